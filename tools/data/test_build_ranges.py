import json
import tempfile
import unittest
from pathlib import Path

from build_ranges import (
    check_table,
    corrected,
    labels_by_region,
    read_corrections,
    regions_by_facts,
    table_text,
)
from common import Expressions, Refusal, region_from
from species_facts import Extents, SpeciesFacts

BLANK = {
    "refines": "",
    "countries": "",
    "parts": "",
    "states": "",
    "members": "",
    "south": "0",
    "north": "10",
    "west": "0",
    "east": "10",
}


def region(code, **values):
    return region_from(BLANK | {"code": code, "id": code, "name": code.title()} | values)


def facts(countries, states=(), extents=None):
    return SpeciesFacts(
        "A_a", frozenset(countries), frozenset(states), extents, frozenset(), False
    )


NEPAL = region("nepal", countries="NP")
KERALA = region("kerala", parts="IN", states="IN-KL")
EAST = region("east", parts="US", west="10", east="20")
WEST = region("west", parts="US", west="-20", east="-10")
REGIONS = [NEPAL, KERALA, EAST, WEST, region("usa", parts="US NP", members="east west")]


class TheFacts(unittest.TestCase):
    def place(self, *arguments):
        return regions_by_facts(REGIONS, facts(*arguments))

    def test_place_a_bird_in_regions_of_its_whole_countries(self):
        self.assertEqual(self.place({"NP"}), {"nepal"})

    def test_place_it_in_a_shared_country_by_states(self):
        self.assertEqual(self.place({"IN"}, {"IN-KL"}), {"kerala"})
        self.assertEqual(self.place({"IN"}, {"IN-AS"}), frozenset())

    def test_place_it_in_a_shared_country_by_bounds(self):
        self.assertEqual(self.place({"US"}, (), Extents(5, 6, 12, 15)), {"east"})
        self.assertEqual(self.place({"US"}, (), Extents(5, 6, -30, 30)), {"east", "west"})
        self.assertEqual(self.place({"US"}, (), Extents(50, 60, 12, 15)), frozenset())

    def test_place_it_everywhere_in_a_shared_country_when_nothing_is_told(self):
        self.assertEqual(self.place({"US"}), {"east", "west"})
        self.assertEqual(self.place({"IN"}), {"kerala"})

    def test_place_it_nowhere_without_countries(self):
        self.assertEqual(self.place(set()), frozenset())


class ACorrection(unittest.TestCase):
    def setUp(self):
        self.expressions = Expressions(REGIONS, [])

    def correct(self, how, expression):
        rows = {"A_a": {"how": how, "regions": expression}}
        return corrected("A_a", frozenset(["east", "west"]), rows, self.expressions)

    def test_adjusts_what_the_facts_say(self):
        self.assertEqual(self.correct("adjust", "nepal -west"), {"nepal", "east"})

    def test_or_stands_alone(self):
        self.assertEqual(self.correct("only", "nepal"), {"nepal"})

    def test_may_be_missing(self):
        self.assertEqual(corrected("B_b", frozenset(["east"]), {}, self.expressions), {"east"})


class CorrectionsAreRefused(unittest.TestCase):
    def assert_refused(self, sentence, *rows):
        with tempfile.TemporaryDirectory() as folder:
            text = "\n".join(["label,how,regions,reason", *rows])
            Path(folder, "range_corrections.csv").write_text(text, encoding="utf-8")
            with self.assertRaises(Refusal) as caught:
                read_corrections(Path(folder), {"A_a": "Bird"})
        self.assertEqual(str(caught.exception), sentence)

    def test_of_a_label_that_the_model_does_not_know(self):
        self.assert_refused(
            "range_corrections.csv names B_b, unknown to the model.", "B_b,only,east,migrant"
        )

    def test_of_a_label_twice(self):
        row = "A_a,only,east,migrant"
        self.assert_refused("range_corrections.csv names A_a twice.", row, row)

    def test_that_say_no_how(self):
        self.assert_refused("The correction of A_a has no known how.", "A_a,maybe,east,migrant")

    def test_that_give_no_reason(self):
        self.assert_refused("The correction of A_a has no one-word reason.", "A_a,only,east,")


class TheTable(unittest.TestCase):
    def setUp(self):
        self.expressions = Expressions(REGIONS, [])

    def table(self, ranges):
        return labels_by_region(REGIONS, ranges, self.expressions)

    def test_gives_a_wide_region_the_labels_of_its_members(self):
        table = self.table({"A_a": {"east"}, "B_b": {"west", "nepal"}})
        self.assertEqual(table["usa"], {"A_a", "B_b"})
        self.assertEqual(table["nepal"], {"B_b"})

    def assert_refused(self, sentence, ranges, labels):
        with self.assertRaises(Refusal) as caught:
            check_table(REGIONS, self.table(ranges), labels)
        self.assertEqual(str(caught.exception), sentence)

    def everywhere(self):
        return {"A_a": {"nepal", "kerala", "east", "west"}}

    def test_passes_when_complete(self):
        check_table(REGIONS, self.table(self.everywhere()), ["A_a"])

    def test_is_refused_with_a_region_without_labels(self):
        self.assert_refused("Region kerala has no labels.", {"A_a": {"nepal", "east"}}, ["A_a"])

    def test_is_refused_with_a_label_that_the_model_does_not_know(self):
        self.assert_refused(
            "Region nepal holds A_a, unknown to the model.", self.everywhere(), ["B_b"]
        )

    def test_is_refused_with_a_label_in_no_region(self):
        self.assert_refused("B_b is in no region.", self.everywhere(), ["A_a", "B_b"])

    def test_is_written_in_the_order_of_the_regions(self):
        table = self.table(self.everywhere())
        names = {"NP": "Nepal", "IN": "India", "US": "United States"}
        written = json.loads(table_text(REGIONS, table, names))
        self.assertEqual(written["version"], 1)
        self.assertEqual(
            [record["id"] for record in written["regions"]],
            ["nepal", "kerala", "east", "west", "usa"],
        )
        self.assertEqual(
            written["regions"][0],
            {
                "id": "nepal",
                "name": "Nepal",
                "countries": ["Nepal"],
                "latitudes": [0.0, 10.0],
                "longitudes": [0.0, 10.0],
                "labels": ["A_a"],
            },
        )

    def test_tells_what_a_region_refines(self):
        regions = [NEPAL, region("terai", refines="nepal", countries="NP")]
        written = json.loads(
            table_text(regions, {"nepal": {"A_a"}, "terai": {"A_a"}}, {"NP": "Nepal"})
        )
        self.assertEqual(written["regions"][1]["refines"], "nepal")


if __name__ == "__main__":
    unittest.main()

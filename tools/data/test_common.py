import json
import unittest
from dataclasses import replace

from common import (
    Expressions,
    Refusal,
    check_regions,
    lines_by_initial,
    read_expressions,
    read_regions,
    region_from,
)

ROW = {
    "code": "ind",
    "id": "indian-subcontinent",
    "name": "Indian subcontinent",
    "south": "8",
    "north": "30",
    "west": "70",
    "east": "90",
    "refines": "",
    "countries": "IN NP",
    "parts": "PK",
    "states": "IN-KL",
    "members": "",
}


class ARegion(unittest.TestCase):
    def setUp(self):
        self.region = region_from(ROW)

    def test_holds_its_edges(self):
        self.assertTrue(self.region.holds(8, 70))
        self.assertTrue(self.region.holds(30, 90))

    def test_does_not_hold_what_lies_beyond(self):
        self.assertFalse(self.region.holds(7.99, 80))
        self.assertFalse(self.region.holds(20, 90.01))

    def test_overlaps_bounds_that_touch_it(self):
        self.assertTrue(self.region.overlaps(30, 40, 90, 100))
        self.assertFalse(self.region.overlaps(31, 40, 70, 90))

    def test_has_its_centre_in_the_middle(self):
        self.assertEqual(self.region.centre(), (19.0, 80.0))

    def test_reads_countries_and_states(self):
        self.assertEqual(self.region.countries, ("IN", "NP"))
        self.assertEqual(self.region.parts, ("PK",))
        self.assertEqual(self.region.states, ("IN-KL",))

    def test_with_bounds_that_are_no_numbers_is_refused(self):
        with self.assertRaisesRegex(Refusal, "^The bounds of region indian-subcontinent are not"):
            region_from(ROW | {"east": "ninety"})


class RegionsAreRefused(unittest.TestCase):
    def setUp(self):
        self.india = region_from(ROW)
        self.kerala = region_from(
            ROW | {"code": "wgh", "id": "kerala", "refines": "indian-subcontinent"}
        )

    def assert_refused(self, sentence, *regions):
        with self.assertRaises(Refusal) as caught:
            check_regions(regions)
        self.assertEqual(str(caught.exception), sentence)

    def test_not_when_all_is_well(self):
        check_regions([self.india, self.kerala])

    def test_without_the_subcontinent(self):
        self.assert_refused('Region "indian-subcontinent" is missing.', self.kerala)

    def test_with_an_id_twice(self):
        self.assert_refused(
            "Region indian-subcontinent is there twice.",
            self.india,
            replace(self.kerala, id="indian-subcontinent", refines=""),
        )

    def test_with_a_code_twice(self):
        self.assert_refused(
            "Region ind is there twice.", self.india, replace(self.kerala, code="ind")
        )

    def test_with_invalid_bounds(self):
        for bounds in (
            {"south": 30.0, "north": 8.0},
            {"north": 90.5},
            {"south": -91.0},
            {"west": 170.0, "east": -170.0},
            {"east": 181.0},
        ):
            with self.subTest(bounds):
                self.assert_refused(
                    "Region kerala has invalid bounds.",
                    self.india,
                    replace(self.kerala, **bounds),
                )

    def test_that_refine_what_is_not_there_or_themselves(self):
        for refined in ("asia", "kerala"):
            with self.subTest(refined):
                self.assert_refused(
                    f"Region kerala refines {refined}, which is no other region.",
                    self.india,
                    replace(self.kerala, refines=refined),
                )


class AnExpression(unittest.TestCase):
    def setUp(self):
        regions = [region_from(ROW | {"code": code, "id": code}) for code in ("a", "b", "c")]
        self.expressions = Expressions(regions, [("AB", "a b"), ("ALL", "AB c")])

    def evaluate(self, expression, start=frozenset()):
        return self.expressions.evaluate(expression, "a test", start)

    def test_joins_regions_and_groups(self):
        self.assertEqual(self.evaluate("AB c"), {"a", "b", "c"})

    def test_takes_away_from_left_to_right(self):
        self.assertEqual(self.evaluate("ALL -AB"), {"c"})
        self.assertEqual(self.evaluate("ALL -AB a"), {"a", "c"})

    def test_begins_at_its_start(self):
        self.assertEqual(self.evaluate("-a", frozenset("ab")), {"b"})

    def test_may_be_empty(self):
        self.assertEqual(self.evaluate(""), frozenset())

    def test_with_an_unknown_name_is_refused(self):
        with self.assertRaisesRegex(Refusal, "^d in a test is no region and no group.$"):
            self.evaluate("a -d")

    def test_can_not_have_a_group_twice(self):
        with self.assertRaisesRegex(Refusal, "^Group AB is there twice.$"):
            Expressions([region_from(ROW)], [("AB", "ind"), ("AB", "ind")])


class LinesByInitial(unittest.TestCase):
    def test_are_a_sorted_array_with_a_line_for_each_letter(self):
        text = lines_by_initial({"Bubo_bubo", "Anas_acuta", "Anas_crecca"}, 2)
        self.assertEqual(text, '[\n  "Anas_acuta","Anas_crecca",\n  "Bubo_bubo"]')
        self.assertEqual(json.loads(text), ["Anas_acuta", "Anas_crecca", "Bubo_bubo"])


class TheCommittedRegions(unittest.TestCase):
    def test_pass_their_checks(self):
        regions = read_regions()
        self.assertGreaterEqual(len(regions), 45)
        expressions = read_expressions(regions)
        for region in regions:
            expressions.evaluate(region.members, region.id)


if __name__ == "__main__":
    unittest.main()

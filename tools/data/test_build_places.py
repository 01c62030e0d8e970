import json
import unittest
from dataclasses import replace

from build_places import (
    Place,
    check_places,
    is_real,
    named_countries,
    normal_form,
    ordered,
    place_text,
    places_of,
    resolves,
    useful_aliases,
    with_corrections,
    with_region,
    without_doubles,
)
from common import Refusal, region_from

BLANK = {"refines": "", "countries": "", "parts": "", "states": "", "members": ""}


def region(code, south, north, west, east, **values):
    bounds = {"south": south, "north": north, "west": west, "east": east}
    return region_from(BLANK | bounds | {"code": code, "id": code, "name": code} | values)


WIDE = region("wide", 0, 40, 0, 40, countries="IN")
FINE = region("fine", 10, 20, 10, 20, parts="PK")
COUNTRY = region("country", 15, 15.2, 15, 15.4, parts="IN", members="wide fine")
REGIONS = [COUNTRY, WIDE, FINE]

KEYS = "how kind name country as latitude longitude region aliases".split()


def row(**values):
    return dict.fromkeys(KEYS, "") | values


def place(name="Kochi", **values):
    fields = {"kind": "city", "country": "IN", "latitude": 15.0, "longitude": 15.0, "region": ""}
    return Place(name=name, **(fields | values))


class TheNormalForm(unittest.TestCase):
    def test_ignores_case_accents_hyphens_and_stops(self):
        self.assertEqual(normal_form("São-Paulo."), "sao paulo")
        self.assertEqual(normal_form("WASHINGTON, D.C."), "washington d c")

    def test_reads_an_ampersand_as_a_word(self):
        self.assertEqual(normal_form("Jammu & Kashmir"), normal_form("Jammu and Kashmir"))

    def test_of_punctuation_is_empty(self):
        self.assertEqual(normal_form("-.-"), "")


class Aliases(unittest.TestCase):
    def test_give_plain_letters_where_folding_does_not(self):
        self.assertEqual(useful_aliases("Tromsø", (), set()), ("Tromso",))
        self.assertEqual(useful_aliases("São Paulo", ("Sao Paulo",), set()), ())

    def test_never_repeat_a_name_or_each_other(self):
        aliases = useful_aliases("Mumbai", ("Bombay", "BOMBAY", "mumbai", "Pune"), {"pune"})
        self.assertEqual(aliases, ("Bombay",))

    def test_of_one_letter_go(self):
        self.assertEqual(useful_aliases("Hanoi", ("H",), set()), ())


class Corrections(unittest.TestCase):
    def test_drop_mend_and_add(self):
        places = with_corrections(
            [place("Kochi", aliases=("Cochin",)), place("Nowhere")],
            [
                row(how="drop", kind="city", name="Nowhere", country="IN"),
                row(
                    how="mend",
                    kind="city",
                    name="Kochi",
                    country="IN",
                    latitude="9.9",
                    aliases="-Cochin|Ernakulam",
                ),
                row(how="add", kind="birding", name="Thattekad", latitude="10", longitude="77"),
            ],
        )
        self.assertEqual(
            places,
            [
                place("Kochi", latitude=9.9, aliases=("Ernakulam",)),
                place(
                    "Thattekad",
                    kind="birding",
                    country="",
                    latitude=10.0,
                    longitude=77.0,
                    by_hand=True,
                ),
            ],
        )

    def assert_refused(self, sentence, places, *rows):
        with self.assertRaises(Refusal) as caught:
            with_corrections(places, rows)
        self.assertEqual(str(caught.exception), sentence)

    def test_of_what_is_not_there_are_refused(self):
        self.assert_refused(
            "places.csv corrects Kochi, which is no city of the facts.",
            [],
            row(how="mend", kind="city", name="Kochi", country="IN"),
        )

    def test_of_what_is_there_twice_are_refused(self):
        self.assert_refused(
            "Kochi is there twice to mend.",
            [place(), place(latitude=3.0)],
            row(how="mend", kind="city", name="Kochi", country="IN"),
        )

    def test_without_a_how_are_refused(self):
        self.assert_refused("Kochi has no known how.", [], row(how="move", name="Kochi"))

    def test_that_add_without_a_point_are_refused(self):
        self.assert_refused(
            "The added place Kochi has no point.", [], row(how="add", kind="city", name="Kochi")
        )

    def test_that_take_away_an_alias_that_is_not_there_are_refused(self):
        self.assert_refused(
            "Kochi has no alias Cochin to take away.",
            [place()],
            row(how="mend", kind="city", name="Kochi", country="IN", aliases="-Cochin"),
        )


class TheRegionOfAPlace(unittest.TestCase):
    def test_is_the_smallest_of_its_country(self):
        smaller = region("smaller", 14, 16, 14, 16, countries="IN")
        self.assertEqual(with_region(place(), [WIDE, smaller, FINE]).region, "smaller")

    def test_is_one_of_its_country_before_a_smaller_one(self):
        self.assertEqual(with_region(place(), REGIONS).region, "wide")
        self.assertEqual(with_region(place(country="LK"), REGIONS).region, "fine")

    def test_can_be_named(self):
        self.assertEqual(with_region(place(region="fine"), REGIONS).region, "fine")

    def test_for_a_whole_country_sets_the_point_too(self):
        found = with_region(place(region="country", latitude=3.0), REGIONS)
        self.assertEqual((found.latitude, found.longitude), (15.1, 15.2))

    def test_that_is_none_is_refused(self):
        with self.assertRaisesRegex(Refusal, r"^Kochi \(IN\) lies in no region.$"):
            with_region(place(latitude=50.0), REGIONS)
        with self.assertRaisesRegex(Refusal, "^Kochi lies in asia, which is no region.$"):
            with_region(place(region="asia"), REGIONS)


class TheOrder(unittest.TestCase):
    def test_begins_with_countries_and_states_of_large_countries(self):
        places = [
            place("a", kind="state", country="LU"),
            place("b", kind="birding"),
            place("c", kind="city"),
            place("d", kind="state", country="IN"),
            place("e", kind="country"),
            place("f", kind="city", by_hand=True),
        ]
        self.assertEqual([found.name for found in ordered(places)], list("edfcba"))

    def test_has_large_cities_before_places_of_birders_and_small_ones_after(self):
        cities = [place(f"city {index}") for index in range(601)]
        names = [found.name for found in ordered([place("b", kind="birding")] + cities)]
        self.assertEqual(names[599:], ["city 599", "b", "city 600"])


class Doubles(unittest.TestCase):
    def test_go_when_they_lie_nearby(self):
        first, near = place("Delhi"), place("DELHI", latitude=15.3)
        far = place("Delhi", latitude=30.0)
        self.assertEqual(without_doubles([first, near, far]), [first, far])


class OtherSteps(unittest.TestCase):
    def test_unnamed_islands_are_no_places(self):
        self.assertFalse(is_real(place("IND-99 (India minor island)")))
        self.assertFalse(is_real(place("--")))
        self.assertTrue(is_real(place("Goa")))

    def test_countries_take_the_names_of_their_table(self):
        rows = {"LA": {"name": "Laos", "aliases": "Lao PDR|Lao"}}
        country = place("Lao PDR", kind="country", country="LA")
        laos = replace(country, name="Laos", aliases=("Lao PDR", "Lao"))
        self.assertEqual(list(named_countries([country, place()], rows)), [laos, place()])

    def test_names_come_before_aliases(self):
        places = [place("Pune", aliases=("Poona",)), place("Poona", region="fine")]
        self.assertEqual(resolves("POONA", places), places[1])
        self.assertIsNone(resolves("Goa", places))

    def test_a_place_is_written_without_what_is_empty(self):
        written = json.loads(place_text(place(region="fine", latitude=9.98765)))
        self.assertEqual(
            written,
            {"name": "Kochi", "latitude": 9.988, "longitude": 15.0, "regionID": "fine"},
        )

    def test_a_draft_of_an_unknown_kind_is_refused(self):
        draft = [{"kind": "sea", "name": "Kara Sea"}]
        with self.assertRaisesRegex(Refusal, "^Kara Sea is of no known kind, sea.$"):
            places_of(draft, {}, [], REGIONS)


class PlacesAreRefused(unittest.TestCase):
    def assert_refused(self, sentence, places):
        with self.assertRaises(Refusal) as caught:
            check_places(places, REGIONS)
        self.assertEqual(str(caught.exception), sentence)

    def test_outside_the_box_of_their_region(self):
        self.assert_refused(
            "Kochi (IN) lies outside the box of fine.", [place(region="fine", latitude=21.0)]
        )

    def test_in_no_region(self):
        self.assert_refused(
            "Kochi lies in asia, which is no region.", [place(region="asia")]
        )

    def test_when_they_are_too_few(self):
        self.assert_refused("1 places are too few.", [place(region="fine")])

    def test_when_a_name_does_not_resolve(self):
        places = [place(f"Place {index}", region="fine") for index in range(2500)]
        self.assert_refused("Kerala does not resolve.", places)


if __name__ == "__main__":
    unittest.main()

"""The four finished tables, as they are shipped."""

import json
import unittest

from build_places import Place, normal_form, resolves
from common import BUNDLE, HERE, model_labels, read_csv, read_json

NORTHERN_EUROPE = (56.0, 10.0)


def shipped(name):
    return read_json(BUNDLE / name)


def holds(region, latitude, longitude):
    south, north = region["latitudes"]
    west, east = region["longitudes"]
    return south <= latitude <= north and west <= longitude <= east


class Ranges(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.labels = set(model_labels())
        cls.regions = shipped("range_regions.json")["regions"]
        cls.by_id = {region["id"]: region for region in cls.regions}
        cls.places = shipped("places.json")["places"]

    def birds_at(self, latitude, longitude):
        """The labels that count as in range there, and whether any region holds the point."""
        holding = [region for region in self.regions if holds(region, latitude, longitude)]
        return set().union(*(region["labels"] for region in holding)), bool(holding)

    def test_hold_every_label_and_no_other(self):
        held = set().union(*(region["labels"] for region in self.regions))
        self.assertEqual(held, self.labels)

    def test_have_regions_with_labels_and_ids_of_their_own(self):
        self.assertGreaterEqual(len(self.regions), 45)
        self.assertEqual(len(self.by_id), len(self.regions))
        self.assertIn("indian-subcontinent", self.by_id)
        for region in self.regions:
            self.assertTrue(region["labels"], region["id"])

    def test_refine_regions_that_are_there(self):
        for region in self.regions:
            if "refines" in region:
                self.assertIn(region["refines"], self.by_id)

    def test_give_each_place_at_least_one_region(self):
        for place in self.places:
            found = self.birds_at(place["latitude"], place["longitude"])[1]
            self.assertTrue(found, place["name"])

    def test_keep_fine_regions_fine(self):
        """A wide list over a fine one would undo it."""
        everything = len(self.labels)
        for place in self.places:
            birds = self.birds_at(place["latitude"], place["longitude"])[0]
            self.assertLess(len(birds), 0.55 * everything, place["name"])

    def test_agree_with_what_is_known_of_a_hundred_species(self):
        named, aliased = {}, {}
        for place in self.places:
            named.setdefault(normal_form(place["name"]), place)
            for alias in place.get("aliases", ()):
                aliased.setdefault(normal_form(alias), place)
        rows = read_csv(HERE / "known_species.csv")
        self.assertGreaterEqual(len(rows), 100)
        for row in rows:
            for column, expected in (("lives", True), ("not", False)):
                for name in filter(None, row[column].split("|")):
                    form = normal_form(name)
                    place = named.get(form) or aliased[form]
                    birds = self.birds_at(place["latitude"], place["longitude"])[0]
                    with self.subTest(row["label"], place=name):
                        self.assertEqual(row["label"] in birds, expected)

    def test_know_the_birds_of_a_danish_spring(self):
        birds = self.birds_at(*NORTHERN_EUROPE)[0]
        for label in ("Podiceps_grisegena", "Circus_cyaneus", "Recurvirostra_avosetta"):
            self.assertIn(label, birds)
        self.assertNotIn("Fulica_americana", birds)


class Seasons(unittest.TestCase):
    def test_have_twelve_months_of_known_labels(self):
        labels = set(model_labels())
        months = shipped("season_months.json")["months"]
        self.assertEqual(sorted(map(int, months)), list(range(1, 13)))
        for names in months.values():
            self.assertLessEqual(set(names), labels)
            self.assertGreater(len(names), 0.99 * len(labels))


class Places(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.records = shipped("places.json")["places"]
        cls.regions = {region["id"]: region for region in shipped("range_regions.json")["regions"]}
        cls.places = [
            Place(
                "",
                record["name"],
                "",
                record["latitude"],
                record["longitude"],
                record["regionID"],
                tuple(record.get("aliases", ())),
            )
            for record in cls.records
        ]

    def test_are_many_and_lie_in_their_regions(self):
        self.assertGreaterEqual(len(self.records), 2500)
        for place in self.places:
            region = self.regions[place.region]
            self.assertTrue(holds(region, place.latitude, place.longitude), place.name)

    def test_resolve_to_the_region_that_people_mean(self):
        for text, region in (
            ("Kerala", "western-ghats"),
            ("Ladakh", "ladakh"),
            ("Bangalore", "southern-india"),
            ("Bengaluru", "southern-india"),
            ("bombay", "western-ghats"),
            ("Calcutta", "bengal"),
            ("India", "indian-subcontinent"),
            ("USA", "united-states"),
            ("New York", "northeast"),
            ("NYC", "northeast"),
            ("California", "california"),
            ("Denver", "high-plains"),
            ("München", "low-countries-germany"),
            ("Koln", "low-countries-germany"),
            ("Barcelona", "eastern-spain"),
            ("Tromso", "northern-scandinavia"),
            ("Norfolk", "british-isles"),
            ("Burma", "myanmar"),
            ("Peking", "northern-china"),
            ("Saigon", "indochina"),
            ("Sao Paulo", "southern-atlantic-forest"),
            ("Georgia", "caucasus"),
            ("Galapagos", "galapagos"),
        ):
            with self.subTest(text):
                self.assertEqual(resolves(text, self.places).region, region)


class Size(unittest.TestCase):
    def test_is_below_two_megabytes(self):
        names = ("range_regions.json", "season_months.json", "places.json", "credits.json")
        self.assertLess(sum((BUNDLE / name).stat().st_size for name in names), 2_000_000)

    def test_all_are_json(self):
        for name in ("season_months.json", "credits.json"):
            self.assertIsInstance(json.loads((BUNDLE / name).read_text("utf-8")), dict)


if __name__ == "__main__":
    unittest.main()

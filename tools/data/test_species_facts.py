import unittest

from common import Refusal
from species_facts import Extents, FactsTable, months_of

COLUMNS = (
    "label countries countries_introduced country_source in_states lat_south lat_north lon_west "
    "lon_east months_breeding_range months_nonbreeding_range"
).split()


def species(label, **values):
    return dict.fromkeys(COLUMNS, "") | {"label": label} | values


def name(scientific, label, match):
    return {"any_scientific_name": scientific, "label": label, "match": match}


def split(label, daughters):
    return {"pre_split_label": label, "daughter_species_2025": daughters}


class Resolving(unittest.TestCase):
    def setUp(self):
        self.table = FactsTable(
            [species("Ardea_ibis"), species("Tachyspiza_badia")],
            [
                name("Bubulcus ibis", "Ardea_ibis", "manual"),
                name("Accipiter badius", "Tachyspiza_badia", "epithet"),
                name("Accipiter lumped", "Tachyspiza_badia", "lump"),
                name("Astur lost", "Astur_gone", "name"),
            ],
            [],
        )

    def test_leaves_todays_names(self):
        self.assertEqual(self.table.resolve("Ardea_ibis"), "Ardea_ibis")

    def test_follows_a_match_that_can_be_relied_on(self):
        self.assertEqual(self.table.resolve("Bubulcus_ibis"), "Ardea_ibis")

    def test_refuses_guesses_and_the_unknown(self):
        for label in ("Accipiter_badius", "Accipiter_lumped", "Astur_lost", "Raphus_cucullatus"):
            with self.subTest(label):
                with self.assertRaises(Refusal) as caught:
                    self.table.resolve(label)
                self.assertEqual(
                    str(caught.exception),
                    f"The facts know no species {label}, or only by a guess.",
                )


class TheFactsOfALabel(unittest.TestCase):
    def test_keep_namibia(self):
        table = FactsTable([species("Struthio_camelus", countries="NA;ZA")], [], [])
        self.assertEqual(table.of("Struthio_camelus").countries, {"NA", "ZA"})

    def test_count_where_a_bird_was_introduced(self):
        row = species("Sturnus_vulgaris", countries="GB", countries_introduced="US;NZ")
        table = FactsTable([row], [], [])
        self.assertEqual(table.of("Sturnus_vulgaris").countries, {"GB", "US", "NZ"})

    def test_tell_states_without_their_flags(self):
        table = FactsTable([species("Pavo_cristatus", in_states="IN-KL:resident;IN-TN")], [], [])
        self.assertEqual(table.of("Pavo_cristatus").states, {"IN-KL", "IN-TN"})

    def test_tell_bounds_only_when_all_four_are_there(self):
        bounds = {"lat_south": "-30.91", "lat_north": "22.47", "lon_west": "-22.02"}
        whole = FactsTable([species("A_a", **bounds, lon_east="48.54")], [], [])
        part = FactsTable([species("A_a", **bounds)], [], [])
        self.assertEqual(whole.of("A_a").extents, Extents(-30.91, 22.47, -22.02, 48.54))
        self.assertIsNone(part.of("A_a").extents)

    def test_say_when_countries_rest_on_phrases(self):
        rows = [
            species("A_a", country_source="rangeBuilder"),
            species("B_b", country_source="rangeBuilder+text"),
        ]
        table = FactsTable(rows, [], [])
        self.assertFalse(table.of("A_a").weak)
        self.assertTrue(table.of("B_b").weak)

    def test_join_what_was_split(self):
        rows = [
            species("Parus_major", countries="GB", lat_south="1", lat_north="2", lon_west="3"),
            species("Parus_cinereus", countries="IN", in_states="IN-KL"),
        ]
        table = FactsTable(rows, [], [split("Parus_major", "Parus cinereus")])
        facts = table.of("Parus_major")
        self.assertEqual(facts.countries, {"GB", "IN"})
        self.assertEqual(facts.states, {"IN-KL"})
        self.assertIsNone(facts.extents)

    def test_leave_out_a_daughter_of_another_genus(self):
        rows = [
            species("Saltator_coerulescens", countries="BR"),
            species("Saltator_grandis", countries="MX"),
            species("Melopyrrha_grandis", countries="KN"),
        ]
        splits = [split("Saltator_coerulescens", "Melopyrrha grandis;Saltator grandis")]
        table = FactsTable(rows, [], splits)
        self.assertEqual(table.daughters("Saltator_coerulescens"), ["Saltator_grandis"])
        self.assertEqual(table.of("Saltator_coerulescens").countries, {"BR", "MX"})


class Months(unittest.TestCase):
    def test_are_read_as_spans_and_lists(self):
        self.assertEqual(months_of("3-5;12"), {3, 4, 5, 12})
        self.assertEqual(months_of("7"), {7})
        self.assertEqual(months_of(""), frozenset())

    def test_run_over_the_turn_of_the_year(self):
        self.assertEqual(months_of("11-2"), {11, 12, 1, 2})

    def test_beyond_the_year_are_refused(self):
        with self.assertRaisesRegex(Refusal, "^0-13 is no span of months.$"):
            months_of("0-13")


if __name__ == "__main__":
    unittest.main()

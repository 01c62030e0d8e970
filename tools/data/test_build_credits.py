import json
import unittest

from build_credits import (
    check_facts,
    citation_of,
    component_from,
    licences_of,
    names_of,
    payload,
    payload_text,
    source_from,
)
from common import HERE, Refusal, read_csv

SOURCE = {
    "id": "cub",
    "name": "CUB",
    "holder": "the photographers",
    "url": "",
    "images": "3",
    "licenses": "CC0=1|none stated=2",
}
COMPONENT = {
    "name": "libvips",
    "role": "decodes",
    "holder": "its contributors",
    "license": "LGPL-2.1-or-later",
    "citation": "libvips.",
    "url": "https://www.libvips.org",
    "facts_name": "",
}


class Refusals(unittest.TestCase):
    def assert_refused(self, sentence, function, *arguments):
        with self.assertRaises(Refusal) as caught:
            function(*arguments)
        self.assertEqual(str(caught.exception), sentence)

    def test_of_licences_that_are_no_numbers(self):
        for text in ("CC0", "CC0=", "=3", "CC0=-1", "CC0=1|CC0=2"):
            with self.subTest(text), self.assertRaises(Refusal):
                licences_of(text)

    def test_of_licences_that_do_not_add_up(self):
        self.assert_refused(
            "The licences of source cub do not add up to its 4 images.",
            source_from,
            SOURCE | {"images": "4"},
        )

    def test_of_a_source_without_a_holder_or_a_number(self):
        self.assert_refused(
            "A source of photographs has no holder.", source_from, SOURCE | {"holder": ""}
        )
        self.assert_refused(
            "Source cub has no number of images.", source_from, SOURCE | {"images": "many"}
        )

    def test_of_a_component_without_a_licence(self):
        self.assert_refused(
            "Component libvips has no license.", component_from, COMPONENT | {"license": ""}
        )

    def test_of_a_double(self):
        component = component_from(COMPONENT)
        self.assert_refused(
            "libvips is credited twice.", payload, [], [component, component], "2026-01-01"
        )

    def test_of_a_roster_that_names_nobody(self):
        for text in ("", " \n\n"):
            self.assert_refused("The roster names nobody.", names_of, text)

    def test_of_what_is_no_doi(self):
        for text in ("dd.abc", "10.15468", "10.15468/", "https://doi.org/10.15468/dd.abc", " "):
            self.assert_refused(f"{text} is no DOI.", citation_of, text)

    def test_of_a_source_that_the_facts_do_not_name(self):
        self.assert_refused(
            "The facts do not name AVONET as their source.",
            check_facts,
            [COMPONENT | {"facts_name": "AVONET"}],
            "Facts from elsewhere.",
        )


class ThePayload(unittest.TestCase):
    def setUp(self):
        self.credits = payload([source_from(SOURCE)], [component_from(COMPONENT)], "2026-01-01")

    def test_has_exactly_the_keys_that_are_read(self):
        self.assertEqual(
            list(self.credits),
            [
                "version",
                "generated",
                "roster_status",
                "training",
                "gbif_citation",
                "components",
                "photographers",
            ],
        )
        training = self.credits["training"]
        self.assertEqual(list(training), ["images_total", "sources", "note"])
        self.assertEqual(
            set(training["sources"][0]), {"id", "name", "holder", "url", "images", "licenses"}
        )
        self.assertEqual(
            set(self.credits["components"][0]),
            {"name", "role", "holder", "license", "citation", "url"},
        )
        self.assertEqual(set(self.credits["gbif_citation"]), {"doi", "text"})

    def test_names_nobody_and_says_that_the_roster_is_pending(self):
        self.assertEqual(self.credits["photographers"], [])
        self.assertEqual(self.credits["roster_status"], "pending")
        self.assertEqual(self.credits["gbif_citation"]["doi"], "")

    def test_with_a_roster_is_complete_and_names_everyone_in_its_order(self):
        names = names_of(" Bea \n\nAda Lovelace\r\nBea\n")
        self.assertEqual(names, ["Bea", "Ada Lovelace", "Bea"])
        credits = payload([], [], "2026-01-01", names)
        self.assertEqual(credits["roster_status"], "complete")
        self.assertEqual(credits["photographers"], names)
        self.assertEqual(json.loads(payload_text(credits)), credits)

    def test_with_a_doi_cites_it_and_no_longer_says_that_there_is_none(self):
        citation = payload([], [], "2026-01-01", doi="10.15468/dd.abc")["gbif_citation"]
        self.assertEqual(citation["doi"], "10.15468/dd.abc")
        self.assertEqual(
            citation["text"],
            "The training pictures are registered with GBIF as a derived dataset.",
        )
        self.assertIn("no DOI to cite", self.credits["gbif_citation"]["text"])

    def test_adds_the_images_up(self):
        self.assertEqual(self.credits["training"]["images_total"], 3)
        self.assertEqual(
            self.credits["training"]["sources"][0]["licenses"], {"CC0": 1, "none stated": 2}
        )

    def test_is_written_whole(self):
        self.assertEqual(json.loads(payload_text(self.credits)), self.credits)


class TheCommittedTables(unittest.TestCase):
    def test_can_be_read(self):
        sources = [source_from(row) for row in read_csv(HERE / "credits_sources.csv")]
        components = [component_from(row) for row in read_csv(HERE / "credits_components.csv")]
        self.assertEqual(payload(sources, components, "")["training"]["images_total"], 19837)


if __name__ == "__main__":
    unittest.main()

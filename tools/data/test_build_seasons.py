import json
import tempfile
import unittest
from pathlib import Path

from build_seasons import (
    check_table,
    labels_by_month,
    months_by_facts,
    read_absences,
    table_text,
)
from common import Refusal
from species_facts import SpeciesFacts

YEAR = frozenset(range(1, 13))


def facts(months):
    return SpeciesFacts("A_a", frozenset(), frozenset(), None, frozenset(months), False)


class TheMonthsOfALabel(unittest.TestCase):
    def test_are_those_of_the_facts(self):
        self.assertEqual(months_by_facts(facts({5, 6})), {5, 6})

    def test_are_all_where_the_facts_are_silent(self):
        self.assertEqual(months_by_facts(facts(())), YEAR)

    def test_lose_those_in_which_it_is_absent(self):
        table = labels_by_month({"A_a": YEAR, "B_b": YEAR}, {"A_a": frozenset([12, 1])})
        self.assertEqual(table[12], {"B_b"})
        self.assertEqual(table[2], {"A_a", "B_b"})


class AbsencesAreRefused(unittest.TestCase):
    def assert_refused(self, sentence, *rows):
        with tempfile.TemporaryDirectory() as folder:
            text = "\n".join(["label,absent,reason", *rows])
            Path(folder, "seasons.csv").write_text(text, encoding="utf-8")
            with self.assertRaises(Refusal) as caught:
                read_absences(Path(folder), {"A_a": "Bird"})
        self.assertEqual(str(caught.exception), sentence)

    def test_of_a_label_that_the_model_does_not_know(self):
        self.assert_refused("seasons.csv names B_b, unknown to the model.", "B_b,1-2,unseen")

    def test_of_a_label_twice(self):
        self.assert_refused("seasons.csv names A_a twice.", "A_a,1,unseen", "A_a,2,unseen")

    def test_without_a_reason(self):
        self.assert_refused("The season of A_a has no one-word reason.", "A_a,1,")


class ACalendar(unittest.TestCase):
    def assert_refused(self, sentence, table, labels=("A_a",)):
        with self.assertRaises(Refusal) as caught:
            check_table(table, labels)
        self.assertEqual(str(caught.exception), sentence)

    def setUp(self):
        self.table = {month: {"A_a"} for month in YEAR}

    def test_passes_when_complete(self):
        check_table(self.table, ["A_a"])

    def test_is_refused_with_eleven_months(self):
        del self.table[7]
        self.assert_refused("The calendar does not have exactly twelve months.", self.table)

    def test_is_refused_with_an_empty_month(self):
        self.table[7] = set()
        self.assert_refused("Month 7 has no labels.", self.table)

    def test_is_refused_with_an_unknown_label(self):
        self.table[7] = {"B_b"}
        self.assert_refused("Month 7 holds B_b, unknown to the model.", self.table)

    def test_is_refused_with_a_label_in_no_month(self):
        self.assert_refused("B_b is in no month.", self.table, ("A_a", "B_b"))

    def test_is_written_with_its_months_as_texts(self):
        written = json.loads(table_text(self.table))
        self.assertEqual(list(written["months"]), [str(month) for month in range(1, 13)])
        self.assertEqual(written["months"]["12"], ["A_a"])
        self.assertEqual(written["version"], 1)


if __name__ == "__main__":
    unittest.main()

import unittest
from pathlib import Path

import numpy as np

import report
from answers import Answered
from measure import at_places, reaching, tally
from places import placed, read_regions, read_source_places, weights
from sets import Set

LABELS = ("Parus_major", "Larus_canus", "Anas_acuta")
NORTH = dict(latitudes=[50, 70], longitudes=[0, 30], labels=["Parus_major"])
NARROW = dict(latitudes=[60, 62], longitudes=[10, 12], labels=["Larus_canus"])
REGIONS = [NORTH, NARROW, dict(latitudes=[-9, -1], longitudes=[0, 9], labels=["Anas_acuta"])]


class APlace(unittest.TestCase):
    def test_weighs_down_what_does_not_live_there(self):
        self.assertEqual(weights((55, 20), LABELS, REGIONS).tolist(),
                         np.float32([1, 0.15, 0.15]).tolist())

    def test_has_the_labels_of_all_its_regions(self):
        self.assertEqual(weights((61, 11), LABELS, REGIONS).tolist(),
                         np.float32([1, 1, 0.15]).tolist())

    def test_outside_every_region_says_nothing(self):
        self.assertEqual(weights((0, 100), LABELS, REGIONS).tolist(), [1, 1, 1])

    def test_says_nothing_of_a_label_without_any_region(self):
        self.assertEqual(weights((55, 20), ("Strix_aluco",), REGIONS).tolist(), [1])

    def test_leaves_probabilities_that_sum_to_1(self):
        answers = placed(np.array([[0.2, 0.5, 0.3]]), weights((55, 20), LABELS, REGIONS))
        np.testing.assert_allclose(answers, [[0.2 / 0.32, 0.075 / 0.32, 0.045 / 0.32]], rtol=1e-6)

    def test_of_each_source_lies_on_earth(self):
        for region, (latitude, longitude) in read_source_places().values():
            self.assertTrue(region and -90 <= latitude <= 90 and -180 <= longitude <= 180)


class Figures(unittest.TestCase):
    ANSWERS = np.array([[0.7, 0.2, 0.1], [0.3, 0.6, 0.1], [0.4, 0.35, 0.25], [0.29, 0.28, 0.43]])

    def test_tell_right_called_and_right_of_called(self):
        told = tally(self.ANSWERS, np.array([0, 0, 0, 2]))
        self.assertEqual((told.pictures, told.right, told.called, told.right_of_called),
                         (4, 0.75, 0.5, 0.5))

    def test_never_count_a_species_without_a_label_as_right(self):
        self.assertEqual(tally(self.ANSWERS, np.full(4, -1)).right, 0)

    def test_of_nothing_are_not_numbers(self):
        told = tally(self.ANSWERS[:0], np.zeros(0, int))
        self.assertTrue(np.isnan([told.right, told.called, told.right_of_called]).all())

    def test_tell_what_reaches_each_level(self):
        self.assertEqual(reaching(self.ANSWERS), (0.5, 0.5, 0.5, 1.0))

    def test_take_each_picture_to_its_own_place(self):
        answers = at_places(self.ANSWERS[2:], [(55, 20), (-5, 5)], LABELS, REGIONS)
        np.testing.assert_array_equal(answers.argmax(1), [0, 2])
        np.testing.assert_allclose(answers.sum(1), 1)


class Tables(unittest.TestCase):
    def setUp(self):
        count = 20
        labels = ["Parus_major", "Larus_canus"] * (count // 2)
        self.of = Set("birds", None, tuple(labels), ((55, 20),) * 10 + (None,) * 10,
                      ("a/b",) * 10 + ("c/d",) * 10, np.zeros(count, bool), (0.2,) * count)
        answers = np.tile([0.6, 0.3, 0.1], (count, 1))
        self.answered = {"start": Answered(answers, LABELS, self.of, REGIONS)}

    def test_tell_each_row_alone_and_with_its_place(self):
        rows = report.everything(self.of)
        alone = report.known_birds("set", rows, self.answered, with_place=False)
        self.assertEqual(alone[0], "| set | n | start |")
        self.assertEqual(alone[2], "| birds | 20 | 50.0 / 100.0 / 50.0 |")
        placed_ = report.known_birds("set", rows, self.answered, with_place=True)
        self.assertEqual(placed_[2], "| birds | 10 | 50.0 / 100.0 / 50.0 |")

    def test_leave_out_rows_of_too_few_pictures(self):
        few = np.arange(20) < report.FEWEST - 1
        lines = report.known_birds("set", [("few", few)], self.answered, with_place=False)
        self.assertEqual(lines[2:], [""])

    def test_tell_the_levels(self):
        lines = report.reached("set", report.everything(self.of), self.answered, with_place=False)
        self.assertEqual(lines[2], "| birds | 20 | 100.0 / 100.0 / 100.0 / 100.0 |")

    def test_part_birds_by_what_the_start_knew(self):
        kinds = dict(report.kinds(self.of, ["Parus_major"], LABELS))
        self.assertEqual([mask.sum() for mask in kinds.values()], [10, 0, 10])

    def test_part_birds_by_size(self):
        sizes = [mask.sum() for _, mask in report.sizes(self.of, ["Larus_canus"])]
        self.assertEqual(sizes, [10, 0, 0])

    def test_part_birds_without_a_label(self):
        (_, mask), = report.strangers(self.of, ["Larus_canus"])
        self.assertEqual(mask[:2].tolist(), [True, False])


class Regions(unittest.TestCase):
    def test_come_from_the_programs_table(self):
        table = Path(__file__).resolve().parents[2] / \
            "core/resources/OrnivoCore_OrnivoCore.bundle/range_regions.json"
        for region in read_regions(table):
            self.assertLessEqual(region["latitudes"][0], region["latitudes"][1])
            self.assertTrue(region["labels"])


if __name__ == "__main__":
    unittest.main()

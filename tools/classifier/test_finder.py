import tempfile
import unittest
from pathlib import Path

import numpy as np
import torch

import finder as finding
from finder_lessons import count, compositions
from network import MAP8, MAP16
from one_look import CELLS
from preparation import SIDE


class Targets(unittest.TestCase):
    def setUp(self):
        self.boxes = torch.tensor([[0.25, 0.25, 0.75, 0.75], [0.5, 0.5, 0.51, 0.51],
                                   [float("nan")] * 4])
        self.score, self.learns = finding.targets(self.boxes)

    def test_are_highest_at_the_middle_of_the_bird(self):
        self.assertGreater(self.score[0, 7, 7], 0.9)
        self.assertLess(self.score[0, 7, 11], 0.2)
        self.assertLess(self.score[0, 0, 0], 1e-6)

    def test_let_the_cells_near_the_middle_learn_the_box(self):
        self.assertTrue(self.learns[0, 7, 7])
        self.assertFalse(self.learns[0, 7, 12])

    def test_give_the_smallest_bird_a_cell(self):
        self.assertEqual(self.score[1].max(), 1)
        self.assertTrue(self.learns[1].any())

    def test_of_no_bird_are_nought(self):
        self.assertEqual(self.score[2].max(), 0)
        self.assertFalse(self.learns[2].any())


class TheOverlap(unittest.TestCase):
    def test_falls_below_nought_with_the_distance(self):
        boxes = torch.tensor([[0.0, 0.0, 1.0, 1.0], [0.0, 0.0, 0.1, 0.1]])
        others = torch.tensor([[0.0, 0.0, 1.0, 1.0], [0.9, 0.9, 1.0, 1.0]])
        same, apart = finding.generalised_overlap(boxes, others)
        self.assertAlmostEqual(float(same), 1, places=4)
        self.assertAlmostEqual(float(apart), -0.98, places=2)


class AFinder(unittest.TestCase):
    def maps_with_spots(self, number):
        """Maps in which one channel lights up where a bird stands: the middle of a random box."""
        chance = np.random.default_rng(5)
        size = chance.uniform(0.2, 0.4, (number, 1))
        low = chance.uniform(0, 0.6, (number, 2))
        boxes = np.concatenate([low, low + size], axis=1).astype(np.float32)
        map16 = chance.normal(0, 0.05, (number, *MAP16)).astype(np.float16)
        map8 = chance.normal(0, 0.05, (number, *MAP8)).astype(np.float16)
        for row, box in enumerate(boxes):
            left, top, right, bottom = np.round(box * CELLS).astype(int)
            map16[row, 3, top:bottom, left:right] = 2
        return map16, map8, boxes

    def test_learns_where_the_spots_are(self):
        map16, map8, boxes = self.maps_with_spots(256)
        finder = finding.train(map16, map8, boxes, np.ones(256), epochs=12, log=lambda text: None)
        found, scores = finding.found(finder, map16, map8)
        centres = (found[:, :2] + found[:, 2:]) / 2, (boxes[:, :2] + boxes[:, 2:]) / 2
        self.assertLess(np.abs(centres[0] - centres[1]).mean(), 0.06)

    def test_is_the_same_after_it_was_saved(self):
        finder = finding.Finder().eval()
        maps = torch.randn(1, *MAP16), torch.randn(1, *MAP8)
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "finder.npz"
            finding.save(finder, path)
            with torch.no_grad():
                torch.testing.assert_close(finding.loaded(path)(*maps), finder(*maps))

    def test_meets_real_small_birds_most_often(self):
        boxes = np.array([[0, 0, 0.3, 0.3], [0, 0, 0.3, 0.3], [0, 0, 0.9, 0.9], [np.nan] * 4])
        often = finding.how_often(boxes, np.array([True, False, True, False]))
        np.testing.assert_allclose(often, [3, 1, 0.5, 1])


class Lessons(unittest.TestCase):
    def test_are_as_many_as_they_are_counted(self):
        squares = np.random.default_rng(1).integers(0, 255, (4, SIDE, SIDE, 3), np.uint8)
        boxes = np.array([[0.2, 0.2, 0.8, 0.8], [0.4, 0.4, 0.5, 0.5], [np.nan] * 4, [0, 0, 1, 1]])
        usable = np.array([True, True, True, False])
        made = list(compositions(squares, boxes, usable))
        self.assertEqual(len(made), count(boxes, usable))
        self.assertEqual(len(made), 3)


if __name__ == "__main__":
    unittest.main()

import tempfile
import unittest
from dataclasses import replace
from pathlib import Path

import numpy as np

import looks
from looks import Looks
from network import MEANS
from settings import Settings

SETTINGS = Settings(gate_means=[0.0] * MEANS, gate_constant=20.0, nobody=[0], sure=1.1)


def seen(side, count=1):
    box = np.tile(np.array([0.1, 0.1, 0.1 + side, 0.2]), (count, 1))
    return Looks(np.zeros((count, MEANS)), box, np.ones(count), np.ones(count, bool),
                 np.zeros((count, MEANS)), box, np.ones(count))


class TheWindow(unittest.TestCase):
    def test_is_the_square_around_the_bird(self):
        # 0.4 of 384 pixels, and 1.25 times that, about 192 and 96.
        edges = looks.window([0.3, 0.2, 0.7, 0.3], margin=1.25, least=72)
        self.assertEqual(edges.tolist(), [0, 96, 192, 288])

    def test_has_some_pixels_at_least_and_lies_within_the_picture(self):
        self.assertEqual(looks.window([0.98, 0.98, 1, 1], 1.15, 72).tolist(), [312, 312, 384, 384])
        self.assertEqual(looks.window([0, 0, 1, 1], 1.15, 72).tolist(), [0, 0, 384, 384])


# Of scores of 3 and 0, where one look alone counts.
SURE = 1 / (1 + np.exp(-3))


class TheAnswers(unittest.TestCase):
    def answers(self, side, **changes):
        first, second = np.array([[3.0, 0.0]]), np.array([[0.0, 3.0]])
        return looks.from_scores(seen(side), first, second, replace(SETTINGS, **changes))[0]

    def test_are_the_second_looks_where_the_bird_is_small(self):
        self.assertAlmostEqual(self.answers(0.2)[1], SURE, places=6)

    def test_are_the_first_looks_where_it_is_large(self):
        self.assertAlmostEqual(self.answers(0.71)[0], SURE, places=6)

    def test_are_between_where_it_is_neither(self):
        self.assertAlmostEqual(self.answers(0.525)[0], 0.5, places=5)

    def test_are_the_first_looks_where_that_is_sure(self):
        self.assertAlmostEqual(self.answers(0.2, sure=0.9)[0], SURE, places=6)

    def test_of_no_bird_are_nobodys(self):
        shares = self.answers(0.2, gate_constant=-20.0, nobody=[0, 1])
        np.testing.assert_allclose(shares, [0.5, 0.5], atol=1e-6)


class Keeping(unittest.TestCase):
    def test_looks_come_back_as_they_were(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "looks.npz"
            looks.save(seen(0.3, 2), path)
            back = looks.load(path).of(np.array([1]))
        np.testing.assert_array_equal(back.box, seen(0.3).box)
        np.testing.assert_allclose(back.side, [0.3])


if __name__ == "__main__":
    unittest.main()

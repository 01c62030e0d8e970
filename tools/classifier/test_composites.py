import random
import unittest

import numpy as np

import composites
import grounds
from preparation import SIDE

# A red bird on grey.
BOX = np.array([0.25, 0.25, 0.75, 0.5])
RED = (250, 0, 0)


def red_bird():
    square = np.full((SIDE, SIDE, 3), 128, np.uint8)
    left, top, right, bottom = (BOX * SIDE).astype(int)
    square[top:bottom, left:right] = RED
    return square


def extent_of_red(square):
    """Where a picture is red: left, top, right, bottom in its parts."""
    pixels = square.astype(int)
    y, x = np.where((pixels[..., 0] > 180) & (pixels[..., 1] < 70) & (pixels[..., 2] < 70))
    return np.array([x.min(), y.min(), x.max() + 1, y.max() + 1]) / SIDE


class Composites(unittest.TestCase):
    def setUp(self):
        self.chance = random.Random(2)
        self.others = [np.full((SIDE, SIDE, 3), 200, np.uint8)]
        self.birds = [(np.full((SIDE, SIDE, 3), 90, np.uint8), BOX)]

    def test_say_where_the_small_bird_lies(self):
        inside = 0
        for _ in range(30):
            scene, box = composites.small_bird(self.chance, red_bird(), BOX, self.others, self.birds)
            self.assertEqual((scene.shape, scene.dtype), ((SIDE, SIDE, 3), np.uint8))
            side = (box[2:] - box[:2]).max()
            self.assertLessEqual(side, composites.LARGEST + 0.01)
            if side < 0.3 or (box == 0).any() or (box == 1).any():
                continue  # its edge fades, or lies outside
            inside += 1
            found = extent_of_red(scene)
            np.testing.assert_allclose(found, box, atol=0.15 * side)
        self.assertGreater(inside, 3)

    def test_look_closely_at_the_bird_or_a_part_of_it(self):
        filling = 0
        for _ in range(30):
            pixels, box = composites.close_look(self.chance, red_bird(), BOX)
            np.testing.assert_allclose(extent_of_red(pixels), box, atol=0.03)
            filling += box[2] - box[0] > 0.999
        self.assertGreater(filling, 0)
        self.assertLess(filling, 30)

    def test_without_a_bird_have_none(self):
        for _ in range(10):
            scene = composites.without_bird(self.chance, self.others, self.birds)
            self.assertEqual((scene.shape, scene.dtype), ((SIDE, SIDE, 3), np.uint8))

    def test_are_the_same_from_the_same_seed(self):
        first, second = (composites.small_bird(random.Random(9), red_bird(), BOX, self.others,
                                               self.birds)[0] for _ in range(2))
        np.testing.assert_array_equal(first, second)


class Grounds(unittest.TestCase):
    def test_beside_a_bird_show_nothing_of_it(self):
        for seed in range(20):
            free = grounds.bird_free(random.Random(seed), red_bird(), BOX)
            pixels = np.asarray(free).astype(int)
            # The filter reaches over the cut by a pixel or two of the original.
            self.assertLess((pixels[16:-16, 16:-16, 0] > 180).sum(), 1)

    def test_beside_a_bird_that_fills_the_picture_there_are_none(self):
        box = np.array([0.1, 0.1, 0.9, 0.9])
        self.assertIsNone(grounds.bird_free(random.Random(1), red_bird(), box))

    def test_that_are_drawn_vary(self):
        for drawn in (grounds.foliage, grounds.water, grounds.sky):
            with self.subTest(drawn.__name__):
                first, second = (np.asarray(drawn(random.Random(seed))) for seed in (1, 2))
                self.assertEqual(first.shape, (SIDE, SIDE, 3))
                self.assertGreater(np.abs(first.astype(int) - second).mean(), 3)
                self.assertGreater(first.std(), 1)


if __name__ == "__main__":
    unittest.main()

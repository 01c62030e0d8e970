import random
import tempfile
import unittest
from pathlib import Path

import numpy as np
from PIL import Image

import tiny_start
from holdback import HELD, TRAIN
from pictures import load
from samples import PLACE, read_samples
from sets import held_sets, sample_sets
from small import laid_small

GREY, RED = (128, 128, 128), (255, 0, 0)


def red_box(image):
    """(left, top, right, bottom) of what is red, in pixels."""
    pixels = np.asarray(image).astype(int)
    rows, columns = np.where(pixels[..., 0] - pixels[..., 1] > 150)
    return columns.min(), rows.min(), columns.max() + 1, rows.max() + 1


class APhotographLaidSmall(unittest.TestCase):
    SCENE = Image.new("RGB", (384, 384), GREY)

    def laid(self, size, times, seed):
        photograph = Image.new("RGB", size, RED)
        return laid_small(photograph, times, self.SCENE, random.Random(seed))

    def test_is_whole_and_as_small_as_wanted_wherever_it_lies(self):
        for seed in range(20):
            scene = self.laid((300, 200), 2.5, seed)
            self.assertEqual(scene.size, (500, 500))
            left, top, right, bottom = red_box(scene)
            self.assertAlmostEqual(right - left, 300, delta=30)  # its edge fades
            self.assertAlmostEqual(bottom - top, 200, delta=30)

    def test_lies_here_and_there(self):
        corners = {red_box(self.laid((300, 200), 2.5, seed))[:2] for seed in range(20)}
        self.assertGreater(len(corners), 15)

    def test_does_not_make_the_scene_too_large(self):
        scene = self.laid((640, 480), 4, 1)
        self.assertEqual(scene.size, (640, 640))
        left, top, right, bottom = red_box(scene)
        self.assertAlmostEqual(bottom - top, 160, delta=24)

    def test_is_centred_where_the_scene_is_too_narrow_for_it(self):
        left, _, right, _ = red_box(self.laid((400, 200), 1.5, 1))
        self.assertEqual((left, right), (0, 300))


class TheSets(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        tiny_start.save_pictures(
            cls.folder, birds=[("a.jpg", "Parus major", True, "mappinjack/birds"),
                               ("b.jpg", "Strix aluco", False, "from/anywhere"),
                               ("c.jpg", "Larus canus", True, "mappinjack/birds")],
            nonbirds=[("n.jpg", "bsds", "images/1.jpg")], boxes=[("x.jpg", "Great Tit")])
        cls.pictures = load(cls.folder, cls.folder / "work",
                            cls.folder / "bird_common_names.json")
        # The last of the birds trains, everything else is held.
        cls.sides = [HELD, HELD, TRAIN, HELD, HELD]
        cls.sets = {one.name: one for one in held_sets(cls.pictures, cls.sides)}

    def test_hold_what_is_held_and_no_more(self):
        self.assertEqual(self.sets["birds"].labels, ("Parus_major", "Strix_aluco"))
        self.assertEqual(self.sets["no birds"].labels, (None,))
        self.assertEqual(self.sets["boxes"].labels, ("Parus_major",))

    def test_know_the_place_of_a_source_where_it_has_one(self):
        self.assertEqual(self.sets["birds"].places, ((43.7, -79.5), None))

    def test_know_the_size_of_a_bird_with_a_box(self):
        self.assertEqual(self.sets["birds"].sides, (None, None))
        # 60 of 120x90 pixels, of which the centre square has 90.
        self.assertAlmostEqual(self.sets["boxes"].sides[0], 60 / 90, places=5)

    def test_lay_birds_with_a_label_small_the_same_each_time(self):
        small = self.sets["small 4.0"]
        self.assertEqual(small.labels, ("Parus_major",))
        first, again = list(small.squares()), list(small.squares())
        self.assertEqual(first[0].shape, (384, 384, 3))
        np.testing.assert_array_equal(first, again)
        self.assertFalse(np.array_equal(first, list(self.sets["birds"].squares())[:1]))

    def test_have_the_samples_as_they_are_and_small(self):
        (self.folder / "photos").mkdir(exist_ok=True)
        tiny_start.noise((300, 200), 9).save(self.folder / "photos" / "s.jpg")
        (self.folder / "answers.csv").write_text(
            "file,scientific_name,english_name\ns.jpg,Parus major,Great Tit\n")
        self.assertEqual([one.label for one in read_samples(self.folder)], ["Parus_major"])
        plain, small = sample_sets(self.folder, self.pictures, self.sides)
        self.assertEqual((plain.places, small.labels), ((PLACE,), ("Parus_major",)))
        self.assertFalse(np.array_equal(list(plain.squares()), list(small.squares())))


if __name__ == "__main__":
    unittest.main()

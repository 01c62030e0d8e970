import tempfile
import unittest
from pathlib import Path

import numpy as np

import finder_lessons
import maps
import network
import tiny_start
from holdback import HELD, TRAIN
from pictures import Picture
from preparation import SIDE, chw, prepared


def picture(path, is_bird=True, box=None):
    return Picture(path, "boxes" if box else "scenes", "Parus major", None, "s", "s", "", is_bird,
                   box)


class Maps(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.work = Path(folder.name)
        tiny_start.save(cls.work / "start.onnx")
        cls.session = maps.open_maps(network.open_network(cls.work / "start.onnx", cls.work),
                                     cls.work)
        cls.path = cls.work / "photograph.png"
        tiny_start.noise((500, 400), 1).save(cls.path)

    def test_are_of_pictures_of_any_size(self):
        pixels = np.asarray(tiny_start.noise((90, 120), 2))
        shapes = [answer.shape[1:] for answer in self.session.run(chw(pixels))]
        self.assertEqual(shapes, list(maps.SHAPES.values()))

    def test_are_kept_in_the_order_of_the_pictures(self):
        images = [np.asarray(tiny_start.noise((SIDE, SIDE), seed)) for seed in (3, 4)]
        self.assertFalse(maps.are_kept(self.work, "some"))
        maps.keep(self.session, iter(images), 2, self.work, "some")
        self.assertTrue(maps.are_kept(self.work, "some"))
        kept = maps.kept(self.work, "some")
        for name, answer in zip(maps.SHAPES, self.session.run(chw(images[1]))):
            np.testing.assert_allclose(kept[name][1], answer[0], rtol=2e-3, atol=2e-3)

    def test_have_the_squares_of_the_pictures_beside_them(self):
        maps.keep_squares([picture(self.path)], self.work)
        np.testing.assert_array_equal(maps.squares(self.work)[0], prepared(self.path))


class TaughtBoxes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.work = Path(folder.name)
        path = self.work / "photograph.png"
        tiny_start.noise((400, 200), 1).save(path)
        self.pictures = [picture(path, box=(0.25, 0, 0.75, 1)), picture(path), picture(path),
                         picture(path, is_bird=False), picture(path, is_bird=False), picture(path)]
        self.sides = [TRAIN] * 5 + [HELD]
        boxes = np.tile(np.array([0.1, 0.2, 0.3, 0.4], np.float32), (6, 1))
        np.savez(self.work / "teacher.npz", boxes=boxes,
                 scores=np.array([0.9, 0.9, 0.4, 0.1, 0.5, 0.9], np.float32))

    def test_are_the_true_ones_else_the_sure_ones_of_the_detector(self):
        boxes, usable = finder_lessons.boxes_of(self.pictures, self.sides, self.work)
        # True; sure; not sure; no bird; something like a bird without one; held back.
        self.assertEqual(usable.tolist(), [True, True, False, True, False, False])
        np.testing.assert_allclose(boxes[0], [0, 0, 1, 1])
        np.testing.assert_allclose(boxes[1], [0.1, 0.2, 0.3, 0.4])
        self.assertTrue(np.isnan(boxes[3]).all())


if __name__ == "__main__":
    unittest.main()

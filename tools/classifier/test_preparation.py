import tempfile
import unittest
from pathlib import Path

import numpy as np
from PIL import Image

from preparation import SIDE, chw, opened, prepared, reduced, square
from views import view

RED, GREEN, BLUE = (255, 0, 0), (0, 255, 0), (0, 0, 255)


def striped(size, *colours):
    """Stripes of equal width from left to right."""
    image = Image.new("RGB", size)
    width = size[0] // len(colours)
    for index, colour in enumerate(colours):
        image.paste(colour, (index * width, 0, (index + 1) * width, size[1]))
    return image


class APhotograph(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = Path(folder.name) / "photograph.png"

    def test_is_reduced_to_640_and_never_enlarged(self):
        self.assertEqual(reduced(Image.new("RGB", (1000, 500))).size, (640, 320))
        self.assertEqual(reduced(Image.new("RGB", (500, 1000))).size, (320, 640))
        self.assertEqual(reduced(Image.new("RGB", (300, 200))).size, (300, 200))

    def test_gives_its_centre_square(self):
        pixels = square(striped((300, 100), RED, GREEN, BLUE))
        self.assertEqual(pixels.shape, (SIDE, SIDE, 3))
        self.assertTrue((pixels == GREEN).all())

    def test_gives_what_a_box_holds(self):
        pixels = square(striped((300, 100), RED, GREEN, BLUE), (200, 0, 300, 100))
        self.assertTrue((pixels == BLUE).all())

    def test_is_turned_upright(self):
        orientation = Image.Exif()
        orientation[0x0112] = 6  # the camera lay on its side: its left edge is the picture's top
        path = self.path.with_suffix(".jpg")
        striped((64, 32), RED, BLUE).save(path, quality=95, exif=orientation)
        image = opened(path)
        self.assertEqual(image.size, (32, 64))
        self.assertGreater(image.getpixel((16, 5))[0], 200)
        self.assertGreater(image.getpixel((16, 60))[2], 200)

    def test_lies_on_black_where_it_is_transparent(self):
        image = Image.new("RGBA", (40, 40), (255, 255, 255, 0))
        image.save(self.path)
        self.assertEqual(prepared(self.path).max(), 0)

    def test_goes_in_as_planes(self):
        pixels = np.arange(2 * 4 * 3, dtype=np.uint8).reshape(2, 4, 3)
        planes = chw(pixels)
        self.assertEqual((planes.shape, planes.dtype), ((1, 3, 2, 4), np.float32))
        self.assertEqual(planes[0, :, 1, 2].tolist(), pixels[1, 2].tolist())


class AView(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = Path(folder.name) / "photograph.png"
        noise = np.random.default_rng(1).integers(0, 256, (30, 40, 3), np.uint8)
        Image.fromarray(noise).save(self.path)

    def test_number_0_is_the_classifiers_square(self):
        np.testing.assert_array_equal(view(self.path, 0), prepared(self.path))

    def test_is_the_same_each_time_and_unlike_the_others(self):
        views = [view(self.path, number) for number in range(4)]
        for number, one in enumerate(views):
            self.assertEqual((one.shape, one.dtype), ((SIDE, SIDE, 3), np.uint8))
            np.testing.assert_array_equal(one, view(self.path, number))
            for other in views[:number]:
                self.assertFalse(np.array_equal(one, other))


if __name__ == "__main__":
    unittest.main()

import tempfile
import unittest
from pathlib import Path

import numpy as np
from PIL import Image

import teacher
from pictures import Picture


# Of the 85 numbers of a cell, the 15th of the eighty things.
BIRD = 19


def silent_heads(side=320):
    """Answers of the detector to a picture in which it sees nothing."""
    return {stride: np.full((1, 85, side // stride, side // stride), -9.0, np.float32)
            for stride in teacher.HEADS}


class TheDetectorsAnswers(unittest.TestCase):
    def test_are_boxes_in_parts_of_the_picture(self):
        heads = silent_heads()
        # Half a cell right of column 4 and at row 2 of stride 32, 4 cells wide and 2 high.
        heads[32][0, :4, 2, 4] = [0.5, 0.0, np.log(4), np.log(2)]
        heads[32][0, [4, BIRD], 2, 4] = 9.0
        boxes, scores = teacher.decoded(heads)
        best = scores.argmax()
        np.testing.assert_allclose(boxes[best], [0.25, 0.1, 0.65, 0.3], atol=1e-6)
        self.assertGreater(scores[best], 0.99)
        self.assertEqual((scores > 0.5).sum(), 1)

    def test_are_no_bird_where_something_else_stands(self):
        heads = silent_heads()
        heads[8][0, [4, BIRD + 1], 3, 3] = 9.0
        self.assertLess(teacher.decoded(heads)[1].max(), 0.01)


class Boxes(unittest.TestCase):
    def test_overlap_by_their_common_area(self):
        boxes = np.array([[0, 0, 1, 1], [0, 0, 0.5, 0.5], [0, 0, 0.2, 0.2]])
        others = np.array([[0, 0, 1, 1], [0, 0, 1, 1], [0.5, 0.5, 1, 1]])
        both, own = teacher.overlap(boxes, others)
        np.testing.assert_allclose(both, [1, 0.25, 0], atol=1e-6)
        np.testing.assert_allclose(own, [1, 0.25, 0], atol=1e-6)

    def test_have_a_longer_side(self):
        np.testing.assert_allclose(teacher.side_of(np.array([[0.1, 0.2, 0.4, 0.9]])), [0.7])

    def test_drawn_on_a_picture_are_cut_to_its_centre_square(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "wide.png"
            Image.new("RGB", (400, 200)).save(path)
            picture = Picture(path, "boxes", "Parus major", None, "s", "s", "", True,
                              (0.2, 0.25, 0.5, 0.75))
            # The square begins at 100; the box spans 80 to 200 across, 50 to 150 down.
            np.testing.assert_allclose(teacher.true_box(picture), [0, 0.25, 0.5, 0.75])


if __name__ == "__main__":
    unittest.main()

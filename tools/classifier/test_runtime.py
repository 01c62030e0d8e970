import tempfile
import unittest
from pathlib import Path

import numpy as np
import onnx
from onnx import TensorProto, helper

from parts import Part, model
from runtime import RuntimeFailure, Session


class ASession(unittest.TestCase):
    """Of a graph that doubles its input, says where the largest is, and gives it a name."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        part = Part("")
        part.node("Mul", ["x", part.constant(1 + 1)], output="twice")
        part.node("ArgMax", ["twice"], output="top", axis=1, keepdims=0)
        part.constants.append(helper.make_tensor("names", TensorProto.STRING, [2], [b"a", b"b"]))
        part.node("Gather", ["names", "top"], output="name")
        ends = [helper.make_tensor_value_info(name, kind, shape) for name, kind, shape in (
            ("x", TensorProto.FLOAT, ["n", 2]), ("twice", TensorProto.FLOAT, ["n", 2]),
            ("top", TensorProto.INT64, ["n"]), ("name", TensorProto.STRING, ["n"]))]
        self.path = self.folder / "doubling.onnx"
        onnx.save(model("doubling", part, ends[:1], ends[1:]), str(self.path))

    def test_knows_the_outputs_in_order(self):
        self.assertEqual(Session(self.path).outputs, ["twice", "top", "name"])

    def test_answers_numbers_in_their_shape_and_type_and_no_texts(self):
        twice, top, name = Session(self.path).run([[1, 2], [4, 3], [5, 6]])
        np.testing.assert_array_equal(twice, np.float32([[2, 4], [8, 6], [10, 12]]))
        np.testing.assert_array_equal(top, np.int64([1, 0, 1]))
        self.assertEqual((twice.dtype, top.dtype, name), (np.float32, np.int64, None))

    def test_answers_only_what_is_wanted(self):
        answers = Session(self.path).run([[1, 2]], ["top"])
        self.assertEqual([answer.tolist() for answer in answers], [[1]])

    def test_leaves_the_graph_that_was_optimised(self):
        Session(self.path, optimisation="basic", save_to=self.folder / "optimised.onnx")
        again = Session(self.folder / "optimised.onnx").run([[3, 1]], ["twice"])[0]
        np.testing.assert_array_equal(again, [[6, 2]])

    def test_says_why_a_model_is_refused(self):
        with self.assertRaisesRegex(RuntimeFailure, "nowhere.onnx"):
            Session(self.folder / "nowhere.onnx")

    def test_says_why_a_run_is_refused(self):
        with self.assertRaisesRegex(RuntimeFailure, "rank|dimension"):
            Session(self.path).run([1, 2])


if __name__ == "__main__":
    unittest.main()

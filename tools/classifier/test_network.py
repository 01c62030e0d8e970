import tempfile
import unittest
from pathlib import Path

import numpy as np

import network
import tiny_start
from features import keep_means, kept_means, means_of
from network import MAP8, MAP16, MEANS
from pictures import Picture
from preparation import chw, prepared
from runtime import Session


def softmax(scores):
    shares = np.exp(scores - scores.max())
    return shares / shares.sum()


class AnOpenedNetwork(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.start = cls.folder / "start.onnx"
        tiny_start.save(cls.start)
        cls.network = network.open_network(cls.start, cls.folder)
        network.save_features_model(cls.network, cls.folder / "features.onnx")
        cls.features = Session(cls.folder / "features.onnx")
        tiny_start.noise((500, 400), 1).save(cls.folder / "photograph.png")
        cls.square = prepared(cls.folder / "photograph.png")

    def test_has_the_starts_labels_and_temperature(self):
        self.assertEqual(self.network.labels, tiny_start.LABELS)
        self.assertAlmostEqual(self.network.temperature, tiny_start.TEMPERATURE, places=6)

    def test_has_no_paddings_of_their_own(self):
        self.assertNotIn("Pad", [node.op_type for node in self.network.graph.node])

    def test_answers_its_parts(self):
        shapes = [answer.shape for answer in self.features.run(chw(self.square))]
        self.assertEqual(shapes, [(1, *MAP16), (1, *MAP8), (1, MEANS), (1, 3)])

    def test_answers_as_the_start_does(self):
        scores = self.features.run(chw(self.square), ["scores"])[0][0]
        start = Session(self.start).run(chw(self.square), ["classLabel_probs"])[0][0]
        np.testing.assert_allclose(softmax(scores / self.network.temperature), start, atol=1e-6)
        self.assertLess(start.max(), 0.9, "an answer too sure would hide what differs")

    def test_has_means_that_the_last_layer_weighs(self):
        _, _, means, scores = self.features.run(chw(self.square))
        weighed = means[0] @ self.network.weight.T + self.network.bias
        np.testing.assert_allclose(weighed, scores[0], rtol=1e-3, atol=1e-3)

    def test_takes_another_last_layer(self):
        weight = np.eye(5, MEANS, dtype=np.float32)
        bias = np.arange(5, dtype=np.float32)
        other = network.with_last_layer(self.network, weight, bias, "abcde")
        network.save_features_model(other, self.folder / "other.onnx")
        _, _, means, scores = Session(self.folder / "other.onnx").run(chw(self.square))
        np.testing.assert_allclose(scores[0], means[0, :5] + bias, rtol=1e-4, atol=1e-4)
        self.assertEqual(other.labels, tuple("abcde"))
        np.testing.assert_array_equal(other.weight, weight)

    def test_stays_as_it_is_when_another_gets_another_last_layer(self):
        network.with_last_layer(self.network, np.zeros((5, MEANS)), np.zeros(5), "abcde")
        network.save_features_model(self.network, self.folder / "again.onnx")
        again = Session(self.folder / "again.onnx").run(chw(self.square), ["scores"])[0]
        np.testing.assert_array_equal(
            again, self.features.run(chw(self.square), ["scores"])[0])

    def test_keeps_the_means_of_a_view_of_pictures(self):
        path = self.folder / "photograph.png"
        picture = Picture(path, "scenes", "Parus major", None, "s", "s", "", True, None)
        keep_means(self.features, [picture, picture], 0, self.folder)
        kept = kept_means(self.folder, 0)
        self.assertEqual((kept.shape, kept.dtype), ((2, MEANS), np.float16))
        np.testing.assert_allclose(kept[1], means_of(self.features, self.square), rtol=2e-3)


if __name__ == "__main__":
    unittest.main()

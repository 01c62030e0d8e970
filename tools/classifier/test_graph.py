import tempfile
import unittest
from dataclasses import replace
from pathlib import Path

import numpy as np
import onnx
import torch

import finder as finding
import graph
import looks
import maps
import network
import settings
import tiny_start
from network import MEANS
from preparation import SIDE, chw
from runtime import Session

# A finder whose cells all answer the same, a box of 2 cells each way: the first is the surest, and
# with its neighbours inside that box it tells of the 3x3 cells at the upper left.
BOX_LOGARITHM = float(np.log(2))
SEEN_SIDE = 3 / 16

LABELS = tuple(f"Genus_species{number}" for number in range(6))


def untaught_finder():
    """Sees a bird wherever its chance weights like it best."""
    torch.manual_seed(6)
    finder = finding.Finder()
    with torch.no_grad():
        finder.o.bias[0] = 2.0
    return {name: value.numpy() for name, value in finder.state_dict().items()}


def constant_finder(score):
    weights = {name: value.numpy() * 0 for name, value in finding.Finder().state_dict().items()}
    weights["o.bias"] = np.array([score] + [BOX_LOGARITHM] * 4, np.float32)
    return weights


def some_settings(**changes):
    chance = np.random.default_rng(3)
    return replace(settings.Settings(
        temperature=0.9, temperature_two=1.1, sharpness=0.3, sure=1.1, seen=-1.0,
        gate_means=(chance.normal(0, 0.01, MEANS)).tolist(), gate_finder=0.2, gate_evidence=0.1,
        gate_constant=0.5, nobody=[0, 2]), **changes)


class TheWholeGraph(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        tiny_start.save(cls.folder / "start.onnx", LABELS)
        cls.network = network.open_network(cls.folder / "start.onnx", cls.folder)
        cls.square = np.asarray(tiny_start.noise((SIDE, SIDE), 4))
        cls.maps = maps.open_maps(cls.network, cls.folder)

    def answers(self, score=1.0, twins=None, finder=None, **changes):
        path = self.folder / "model.onnx"
        self.settings = some_settings(**changes)
        self.finder = finder or constant_finder(score)
        graph.save(self.network, self.finder, self.settings, twins, path, "3")
        session = Session(path)
        shares, _, box = session.run(chw(self.square))
        return shares, box

    def both_looks(self):
        """What looks.py makes of the same picture, finder and settings."""
        known = {name: answer.astype(np.float32) for name, answer in zip(
            maps.SHAPES, self.maps.run(chw(self.square), list(maps.SHAPES)))}
        finder = finding.Finder()
        finder.load_state_dict({name: torch.tensor(value) for name, value in self.finder.items()})
        return looks.taken(self.maps, finder.eval(), self.square[None], known, self.settings)

    def test_keeps_its_contract(self):
        shares, box = self.answers()
        model = onnx.load(str(self.folder / "model.onnx"))
        self.assertEqual([item.name for item in model.graph.input], ["image"])
        self.assertEqual([item.name for item in model.graph.output],
                         ["classLabel_probs", "classLabel", "bird_box"])
        self.assertEqual([(item.domain, item.version) for item in model.opset_import],
                         [("", 12), ("ai.onnx.ml", 2)])
        self.assertEqual(model.ir_version, 7)
        self.assertEqual((shares.shape, box.shape), ((1, len(LABELS)), (1, 4)))
        self.assertAlmostEqual(float(shares.sum()), 1, places=5)
        properties = {entry.key: entry.value for entry in model.metadata_props}
        self.assertEqual(properties["class_labels"].split("\n"), list(LABELS))
        self.assertEqual((self.folder / "labels.txt").read_text().split(), list(LABELS))

    def test_tells_where_the_bird_is(self):
        _, box = self.answers(score=1.5, small=0.0)
        score = 1 / (1 + np.exp(-1.5))
        np.testing.assert_allclose(box[0], [SEEN_SIDE / 2, SEEN_SIDE / 2, SEEN_SIDE, score],
                                   atol=1e-5)

    def test_tells_it_from_the_second_look_where_there_is_one(self):
        _, box = self.answers(score=1.5, margin=1.5, least=1.0)
        # The look at 1.5 x 72 pixels sees the bird in its own upper left corner.
        side = SEEN_SIDE * 108 / SIDE
        np.testing.assert_allclose(box[0, :3], [side / 2, side / 2, side], atol=1e-5)

    def test_tells_it_in_parts_of_the_whole_picture(self):
        _, box = self.answers(finder=untaught_finder(), small=1.1)
        both = self.both_looks()
        self.assertTrue(both.has_second[0])
        top, left, bottom, _ = looks.window(both.box[0], self.settings.margin, self.settings.least)
        self.assertGreater(top * left, 0)
        own_left, own_top, own_right, own_bottom = both.second_box[0] * (bottom - top)
        expected = [left + (own_left + own_right) / 2, top + (own_top + own_bottom) / 2,
                    max(own_right - own_left, own_bottom - own_top)]
        np.testing.assert_allclose(box[0, :3] * SIDE, expected, atol=0.05)

    def test_looks_once_where_no_bird_is_seen_or_the_answer_is_sure_or_the_bird_large(self):
        once, _ = self.answers(score=1.0, small=0.0)
        twice, _ = self.answers(score=1.0)
        self.assertGreater(np.abs(once - twice).max(), 1e-4)
        for changes in (dict(score=-1.5), dict(sure=0.0)):
            shares, _ = self.answers(**changes, gate_finder=0.0)
            expected, _ = self.answers(small=0.0, gate_finder=0.0)
            np.testing.assert_allclose(shares, expected, atol=1e-6)

    def test_mixes_the_looks_as_the_numbers_chosen_for_it_were(self):
        neighbours = (np.array([[0, 1]] + [[row, row] for row in range(1, 6)]),
                      np.array([[0.8, 0.2]] + [[1.0, 0.0]] * 5, np.float32))
        shares, _ = self.answers(twins=neighbours)
        both = self.both_looks()
        self.assertTrue(both.has_second[0])
        expected = looks.answers(both, self.network.weight, self.network.bias, self.settings,
                                 neighbours)
        np.testing.assert_allclose(shares, expected, atol=1e-5)

    def test_answers_the_same_after_it_was_saved_again(self):
        shares, box = self.answers()
        again = self.folder / "again.onnx"
        Session(self.folder / "model.onnx", optimisation="basic", save_to=again)
        for before, after in zip((shares, box), Session(again).run(
                chw(self.square), ["classLabel_probs", "bird_box"])):
            np.testing.assert_array_equal(before, after)


if __name__ == "__main__":
    unittest.main()

import unittest
from types import SimpleNamespace
from unittest import mock

import numpy as np
import torch

import calibration
import head
from looks import Looks
from network import MEANS
from settings import Settings

LABELS = 4


def looks_once(count):
    """Looks that saw the bird large: no second look counts."""
    whole = np.tile(np.array([0, 0, 1, 1.0]), (count, 1))
    nothing = np.zeros(count)
    return Looks(np.zeros((count, MEANS)), whole, nothing, np.zeros(count, bool),
                 np.zeros((count, MEANS)), whole, nothing)


class TheTargets(unittest.TestCase):
    def answers_of(self, best):
        return np.stack([best, 1 - best], axis=1)

    def test_are_met_by_as_many_as_may_reach_each_level(self):
        # Of 100 strangers 11 over 0.60, 6 more over 0.45, 13 more over 0.30.
        best = np.repeat([0.7, 0.5, 0.35, 0.2], [11, 6, 13, 70])
        answers = np.stack([best] + [(1 - best) / 9] * 9, axis=1)
        self.assertLess(calibration.distance(answers), 0.01)

    def test_are_missed_by_too_many_and_by_too_few(self):
        sure = np.full((100, 2), [0.9, 0.1])
        unsure = np.full((100, 10), 0.1)
        self.assertGreater(calibration.distance(sure), 1)
        self.assertGreater(calibration.distance(unsure), 1)
        self.assertTrue(np.isfinite(calibration.distance(unsure)))


class Settling(unittest.TestCase):
    def settled(self, spread):
        """The settings for strangers whose scores spread so far."""
        scores = np.random.default_rng(2).normal(0, spread, (500, 60))
        start = Settings(gate_means=[0.0] * MEANS, gate_constant=9.0, nobody=[0])
        return calibration.settle(looks_once(500), (scores, scores), np.ones((500, 60)), start, None)

    def test_cools_what_is_unsure_and_warms_what_is_sure(self):
        unsure, sure = (self.settled(spread) for spread in (2.2, 2.6))
        self.assertLess(unsure.temperature, sure.temperature)
        self.assertEqual(sure.temperature, sure.temperature_two)
        self.assertEqual(sure.gate_constant, 9.0)


class Crossing(unittest.TestCase):
    def test_keeps_a_species_together(self):
        pictures = [SimpleNamespace(species=name) for name in ("Parus major", "Larus canus") * 3]
        parts = calibration.parts_of(pictures)
        self.assertEqual(len(set(parts[::2])), 1)
        self.assertEqual(len(set(parts[1::2])), 1)

    def test_asks_only_layers_that_were_taught_without_the_asked(self):
        parts = np.array([0, 1, 2, 0, 1, 2])
        lessons = head.Lessons(torch.arange(6.0)[:, None, None].expand(6, 1, MEANS),
                               torch.full((6,), -1), torch.zeros(6, dtype=torch.bool))
        taught = []

        def teach(_, __, given, count):
            taught.append(set(given.means[:, 0, 0].int().tolist()))
            number = float(len(taught))
            return head.Layer(torch.zeros(count, MEANS), torch.full((count,), number))

        start = SimpleNamespace(weight=np.zeros((2, MEANS)), bias=np.zeros(2), temperature=1.0)
        asked = np.array([1, 3, 5])
        with mock.patch.object(head, "teach", teach):
            first, second = calibration.crossed(start, LABELS, lessons, parts, asked, looks_once(3))
        self.assertEqual(taught, [{1, 2, 4, 5}, {0, 2, 3, 5}, {0, 1, 3, 4}])
        # Picture 1 stands in the second part, 3 in the first, 5 in the third.
        np.testing.assert_array_equal(first[:, 0], [2, 1, 3])
        np.testing.assert_array_equal(second, first)


if __name__ == "__main__":
    unittest.main()

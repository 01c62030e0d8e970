import unittest

import numpy as np

import gate
from network import MEANS


class TheGate(unittest.TestCase):
    def setUp(self):
        chance = np.random.default_rng(1)
        self.is_bird = np.arange(400) % 2 == 0
        self.means = np.abs(chance.normal(1, 0.3, (400, MEANS)))
        self.means[:, 7] += self.is_bird
        self.seen = np.where(self.is_bird, 2.0, -2.0) + chance.normal(0, 1.5, 400)
        self.evidence = chance.normal(10, 1, 400)

    def test_tells_birds_from_other_things(self):
        fitted = gate.fitted(self.means, self.seen, self.evidence, self.is_bird)
        logits = fitted.logits(self.means, self.seen, self.evidence)
        self.assertGreater(((logits > 0) == self.is_bird).mean(), 0.97)
        self.assertGreater(fitted.seen, 0)

    def test_sums_the_scores_without_overflow(self):
        scores = np.array([[1000.0, 1000.0], [0.0, -1000.0]])
        np.testing.assert_allclose(gate.evidence_of(scores), [1000 + np.log(2), 0])


if __name__ == "__main__":
    unittest.main()

import unittest

import numpy as np

import lookalikes

LABELS = ["Certhia_a", "Certhia_b", "Certhia_c", "Turdus_a", "Larus_a"]
FAMILIES = dict(zip(LABELS, ["Certhiidae"] * 3 + ["Turdidae", "Laridae"]))
REGIONS = [{"labels": ["Certhia_a", "Turdus_a"]}, {"labels": ["Certhia_b", "Turdus_a"]},
           {"labels": ["Certhia_a", "Certhia_c"]}]

# The creepers all point one way, the thrush with them, the gull the other.
WEIGHT = np.array([[1, 0.0, 0], [1, 0.05, 0], [1, 0, 0.05], [1, 0.05, 0.05], [-4, 0, 0]])


def lent(shares):
    index, weight = lookalikes.twins(WEIGHT, LABELS, FAMILIES, REGIONS)
    return (np.array(shares)[index] * weight).sum(axis=1)


class Lookalikes(unittest.TestCase):
    def test_that_live_apart_lend_each_other_a_share(self):
        np.testing.assert_allclose(lent([1, 0, 0, 0, 0]), [0.85, 0.15, 0, 0, 0], atol=1e-6)

    def test_that_live_together_or_are_of_other_families_lend_nothing(self):
        # c lives where a does, but apart from b.
        np.testing.assert_allclose(lent([0, 0, 1, 0, 0]), [0, 0.15, 0.85, 0, 0], atol=1e-6)
        np.testing.assert_allclose(lent([0, 0, 0, 1, 0]), [0, 0, 0, 1, 0], atol=1e-6)
        np.testing.assert_allclose(lent([0, 0, 0, 0, 1]), [0, 0, 0, 0, 1], atol=1e-6)

    def test_share_with_the_two_nearest(self):
        shares = lent([0, 1, 0, 0, 0])
        self.assertAlmostEqual(shares[1], 0.80, places=5)
        self.assertEqual(sorted(np.round(shares[[0, 2]], 5)), [0.05, 0.15])

    def test_keep_the_sum(self):
        self.assertAlmostEqual(lent([0.2, 0.3, 0.1, 0.3, 0.1]).sum(), 1, places=6)


class Widespread(unittest.TestCase):
    def test_are_the_labels_of_most_regions(self):
        self.assertEqual(list(lookalikes.widespread(LABELS, REGIONS, 2)), [0, 3])


if __name__ == "__main__":
    unittest.main()

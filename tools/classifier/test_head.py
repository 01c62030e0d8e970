import unittest
from dataclasses import replace

import numpy as np
import torch

import head
from head import Layer, Lessons, Recipe
from made_up import made_up_means
from network import MEANS

# The start knows A, B and C; D is new to it.
A, B, C, D = range(4)
UNKNOWN = -1
VIEWS = 2


def means_of(label, pictures, chance):
    """Means that light up where the label's pictures do."""
    means = chance.random((pictures, VIEWS, MEANS)) * 0.2
    means[..., 100 * label:100 * label + 100] += 2
    return means


class ALayer(unittest.TestCase):
    """Taught ten pictures each of A and of D, which the start takes for B; none of B or C."""

    @classmethod
    def setUpClass(cls):
        chance = np.random.default_rng(1)
        rows = np.zeros((3, MEANS), np.float32)
        for label in (A, B, C):
            rows[label, 100 * label:100 * label + 100] = 0.05
        rows[B, 100 * D:100 * D + 100] = 0.05
        cls.start = Layer(torch.tensor(rows), torch.zeros(3))
        cls.means = {label: torch.tensor(means_of(label, 10, chance)).half()
                     for label in (A, B, C, D)}
        cls.lessons = Lessons(torch.cat([cls.means[A], cls.means[D]]),
                              torch.tensor([A] * 10 + [D] * 10), torch.zeros(20, dtype=torch.bool))
        # So few pictures are few steps: larger ones make up for it.
        cls.recipe = Recipe(epochs=40, rate=3e-3)
        cls.layer = head.teach(cls.start, 1.0, cls.lessons, 4, cls.recipe)

    def answer(self, layer, label):
        return layer.scores(self.means[label][:, 0]).argmax(1).tolist()

    def test_learns_the_new_label(self):
        self.assertEqual(self.answer(self.start, D), [B] * 10)
        self.assertEqual(self.answer(self.layer, D), [D] * 10)

    def test_remembers_the_labels_without_pictures(self):
        self.assertEqual(self.answer(self.layer, C), [C] * 10)

    def test_remembers_them_by_made_up_means(self):
        crowded = replace(self.recipe, made_up_weight=0.0, pull_back=0.0, start_share=0.0,
                          epochs=200)
        forgetful = head.teach(self.start, 1.0, self.lessons, 4, crowded)
        mindful = head.teach(self.start, 1.0, self.lessons, 4,
                             replace(crowded, made_up_weight=0.5))

        def sure_of_c(layer):
            return float(layer.scores(self.means[C][:, 0]).softmax(1)[:, C].mean())

        self.assertGreater(sure_of_c(mindful), sure_of_c(forgetful))

    def test_is_the_same_each_time(self):
        again = head.teach(self.start, 1.0, self.lessons, 4, self.recipe)
        self.assertTrue(torch.equal(again.weight, self.layer.weight))

    def test_leaves_the_start_as_it_was(self):
        self.assertEqual(float(self.start.weight.max()), float(np.float32(0.05)))
        self.assertFalse(self.start.weight.requires_grad)

    def test_never_answers_a_new_label_without_pictures(self):
        layer = head.teach(self.start, 1.0, self.lessons, 5, self.recipe)
        answers = layer.scores(torch.cat(list(self.means.values()))[:, 0])
        self.assertLess(float(answers.softmax(1)[:, 4].max()), 1e-6)

    def test_stays_unsure_of_birds_without_a_label(self):
        strangers = Lessons(torch.cat([self.lessons.means, self.means[B]]),
                            torch.cat([self.lessons.label, torch.full((10,), UNKNOWN)]),
                            torch.zeros(30, dtype=torch.bool))

        def sureness(temperature):
            recipe = replace(self.recipe, unknown_temperature=temperature)
            layer = head.teach(self.start, 1.0, strangers, 4, recipe)
            return float(layer.scores(self.means[B][:, 0]).softmax(1).max(1).values.mean())

        self.assertLess(sureness(8.0), sureness(1.0) - 0.1)

    def test_is_drawn_back_to_the_start(self):
        bound = head.teach(self.start, 1.0, self.lessons, 4, replace(self.recipe, pull_back=1.0))

        def moved(layer):
            return float((layer.weight[:3] - self.start.weight).norm())

        self.assertLess(moved(bound), moved(self.layer) / 2)


    def test_begins_with_new_labels_where_their_pictures_lie(self):
        first = head._grown(self.start, self.lessons, 4)
        self.assertTrue((first.scores(self.means[D][:, 0])[:, D] > 0).all())
        self.assertTrue((first.scores(self.means[A][:, 0])[:, D] < 0).all())
        lengths = self.start.weight.norm(dim=1)
        self.assertAlmostEqual(float(first.weight[D].norm()), float(lengths.median()), places=4)


class MadeUpMeans(unittest.TestCase):
    def setUp(self):
        chance = np.random.default_rng(1)
        rows = np.zeros((3, MEANS), np.float32)
        for label in (A, B):
            rows[label, 100 * label:100 * label + 100] = 0.05
        # No picture can make the start call C.
        self.start = Layer(torch.tensor(rows), torch.tensor([0.0, 0.0, -1000.0]))
        self.lessons = Lessons(torch.tensor(means_of(A, 10, chance)).half(),
                               torch.tensor([A] * 10), torch.zeros(10).bool())

    def test_are_such_as_the_start_takes_for_the_label(self):
        means, labels = made_up_means(self.start, 1.0, self.lessons, np.array([B]), 6)
        self.assertEqual(labels.tolist(), [B] * 6)
        self.assertEqual(self.start.scores(means).argmax(1).tolist(), [B] * 6)
        self.assertGreaterEqual(float(means.min()), 0)
        self.assertLessEqual(float(means.max()), 6)

    def test_are_none_for_a_label_that_the_start_never_calls(self):
        means, labels = made_up_means(self.start, 1.0, self.lessons, np.array([C]), 6)
        self.assertEqual((len(means), len(labels)), (0, 0))


class Targets(unittest.TestCase):
    def setUp(self):
        self.start = Layer(torch.zeros(3, MEANS), torch.log(torch.tensor([0.5, 0.3, 0.2])))
        self.means = torch.zeros(3, VIEWS, MEANS, dtype=torch.half)
        self.lessons = Lessons(self.means, torch.tensor([B, D, UNKNOWN]), torch.zeros(3).bool())
        recipe = Recipe(start_share=0.2, start_share_new=0.1, unknown_temperature=2.0)
        self.targets = head._targets(self.start, 1.0, self.lessons, 4, recipe)

    def test_mix_the_label_with_the_starts_own_answer(self):
        np.testing.assert_allclose(self.targets[0], [0.10, 0.86, 0.04, 0], atol=1e-6)

    def test_are_nearly_the_bare_label_where_it_is_new(self):
        np.testing.assert_allclose(self.targets[1], [0.05, 0.03, 0.02, 0.9], atol=1e-6)

    def test_are_the_softened_answer_for_a_bird_without_a_label(self):
        softened = np.sqrt([0.5, 0.3, 0.2])
        np.testing.assert_allclose(self.targets[2, :3], softened / softened.sum(), atol=1e-6)
        self.assertEqual(float(self.targets[2, 3]), 0)


class Weights(unittest.TestCase):
    def test_count_rare_labels_and_sources_new_to_the_start_more(self):
        lessons = Lessons(torch.zeros(6, VIEWS, MEANS), torch.tensor([A, A, A, A, B, UNKNOWN]),
                          torch.tensor([False, False, False, True, False, False]))
        weights = head._weights(lessons, 4, Recipe(unknown_weight=3.0, seen_weight=0.5))
        relative = weights / weights[4]
        np.testing.assert_allclose(relative, [0.5, 0.5, 0.5, 0.25, 1, 3], atol=1e-6)
        self.assertAlmostEqual(float(weights.mean()), 1, places=6)


if __name__ == "__main__":
    unittest.main()

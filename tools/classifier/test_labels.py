import tempfile
import unittest
from pathlib import Path
from types import SimpleNamespace

import numpy as np
import torch

import labels
from head import Lessons, Recipe
from holdback import CANDIDATES, candidate_species
from labels import Candidate, Trial, candidates, chosen, tried
from network import MEANS
from pictures import Picture

TWIN, PLAIN, HIDDEN = "Avis gemella", "Avis clara", "Avis occulta"
FILE = f"species,standing,looks_like\nAvis prima,kept,\n{PLAIN},considered,{TWIN}\n" \
       f"{HIDDEN},considered,{TWIN}\n"


def trial(candidate, own, twin=(1.0, 1.0), pictures=6):
    return Trial(candidate, pictures, own, twin)


class Candidates(unittest.TestCase):
    def test_stand_in_the_file(self):
        everyone = candidates(CANDIDATES)
        self.assertEqual(sum(one.is_kept for one in everyone), 55)
        self.assertEqual({one.species for one in everyone}, candidate_species())
        self.assertIn("Certhia_brachydactyla", [one.label for one in everyone if not one.is_kept])
        self.assertEqual([one.species for one in everyone if one.is_kept],
                         sorted(one.species for one in everyone if one.is_kept))

    def test_earn_a_label_where_half_is_right_in_every_round_for_them_and_their_twin(self):
        one = Candidate(PLAIN, False, TWIN)
        self.assertTrue(trial(one, (0.5, 0.7)).is_earned)
        self.assertFalse(trial(one, (0.4, 0.9)).is_earned)
        self.assertFalse(trial(one, (0.9, 0.9), twin=(0.3, 0.9)).is_earned)
        self.assertFalse(trial(one, ()).is_earned)
        self.assertTrue(trial(one, (0.9, 0.9), twin=()).is_earned)


class WithAFileOfCandidates(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        path = Path(folder.name) / "candidates.csv"
        path.write_text(FILE)
        self.read = labels.candidates
        labels.candidates = lambda: self.read(path)
        self.addCleanup(setattr, labels, "candidates", self.read)
        weight = np.zeros((1, MEANS), np.float32)
        weight[0, :50] = 0.05
        self.network = SimpleNamespace(labels=("Avis_gemella",), weight=weight, temperature=1.0,
                                       bias=np.zeros(1, np.float32))

    def test_kept_labels_follow_the_starts_and_earned_ones_their_place_in_the_file(self):
        kept, plain, hidden = labels.candidates()
        trials = [trial(hidden, (1.0, 1.0)), trial(plain, (0.0, 1.0))]
        self.assertEqual(chosen(self.network, trials),
                         ["Avis_gemella", "Avis_prima", "Avis_occulta"])

    def test_too_few_pictures_earn_nothing(self):
        plain = labels.candidates()[1]
        self.assertEqual(chosen(self.network, [trial(plain, (1.0, 1.0), pictures=2)]),
                         ["Avis_gemella", "Avis_prima"])

    def test_a_species_does_well_if_the_others_of_its_pictures_tell_of_one(self):
        chance = np.random.default_rng(1)
        species = [TWIN] * 9 + [PLAIN] * 6 + [HIDDEN] * 6
        means = chance.random((len(species), 1, MEANS)) * 0.2
        for row, name in enumerate(species):
            lit = {TWIN: 0, PLAIN: 100, HIDDEN: 0}[name]
            means[row, :, lit:lit + 50] += 2
            if name == HIDDEN:  # a mark that no other picture of it has
                means[row, :, 50 * row:50 * row + 20] += 2
        pictures = [Picture(Path("p"), "scenes", name, None, "s", "s", "", True, None)
                    for name in species]

        def lessons_of(names):
            label = [names.index(name.replace(" ", "_")) for name in species]
            return Lessons(torch.tensor(means), torch.tensor(label), torch.zeros(len(label)).bool())

        def factors(chosen_pictures, names):
            return np.ones((len(chosen_pictures), len(names)), np.float32)

        plain, hidden = tried(self.network, pictures, lessons_of, factors,
                              Recipe(epochs=20, rate=3e-3))
        self.assertEqual((plain.candidate.species, plain.pictures), (PLAIN, 6))
        self.assertEqual(plain.own, (1.0, 1.0))
        self.assertEqual(hidden.own, (0.0, 0.0))
        self.assertEqual(plain.twin, (1.0, 1.0))


if __name__ == "__main__":
    unittest.main()

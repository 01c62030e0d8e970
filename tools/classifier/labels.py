"""Which species beyond the start's labels get one.

Those that have one keep it: people's folders are named by it. One that is merely considered earns
its label where, in folds over its pictures, the classifier taught on the others names at least half
of them rightly, and still names at least half of those of the species it looks like.
"""

import csv
import random
from dataclasses import dataclass

import numpy as np

import head
from holdback import CANDIDATES
from head_lessons import indices
from places import placed

FOLDS = 3
ROUNDS = 2
ENOUGH = 0.5

# Fewer would leave a fold with one to learn from.
FEWEST_PICTURES = 3


@dataclass(frozen=True)
class Candidate:
    """A species ("Certhia familiaris") that has a label beyond the start's or may get one."""

    species: str
    is_kept: bool
    looks_like: str

    @property
    def label(self):
        return self.species.replace(" ", "_")

    @property
    def twin(self):
        return self.looks_like.replace(" ", "_")


@dataclass(frozen=True)
class Trial:
    """How a considered label did: the share of its pictures, and of its look-alike's, named rightly
    in each round; `pictures` counts its own."""

    candidate: Candidate
    pictures: int
    own: tuple
    twin: tuple

    @property
    def is_earned(self):
        return min(self.own, default=0) >= ENOUGH and min(self.twin, default=1) >= ENOUGH


def candidates(path=CANDIDATES):
    with open(path, newline="", encoding="utf-8") as file:
        return [Candidate(row["species"], row["standing"] == "kept", row["looks_like"])
                for row in csv.DictReader(file)]


def tried(network, pictures, lessons_of, factors, recipe):
    """A Trial of each considered candidate, with the opened start network.

    `pictures` are those that may teach; `lessons_of(labels)` their lessons with the labels given;
    `factors(pictures, labels)` the weights of the labels at the place of each, [pictures, labels].
    """
    everyone = candidates()
    considered = [one for one in everyone if not one.is_kept]
    labels = list(network.labels) + [one.label for one in everyone]
    truth = indices(pictures, labels)
    watched = {name for one in considered for name in (one.label, one.twin)}
    folded = np.array([truth[row] >= 0 and labels[truth[row]] in watched
                       for row in range(len(pictures))])
    lessons = lessons_of(labels)
    layer = head.layer_of(network)
    rounds = [_named_rightly(layer, network.temperature, lessons, truth, folded, seed, recipe,
                             factors(pictures, labels)) for seed in range(ROUNDS)]
    places = {label: index for index, label in enumerate(labels)}

    def shares(label):
        own = truth == places.get(label, -2)
        return tuple(float(right[own].mean()) for right in rounds) if own.any() else ()

    return [Trial(one, int((truth == places[one.label]).sum()), shares(one.label), shares(one.twin))
            for one in considered]


def chosen(network, trials):
    """All labels: the start's, then those beyond them in the order of the candidates' file."""
    earned = {trial.candidate.label for trial in trials
              if trial.is_earned and trial.pictures >= FEWEST_PICTURES}
    beyond = [one.label for one in candidates() if one.is_kept or one.label in earned]
    return list(network.labels) + beyond


def _named_rightly(layer, temperature, lessons, truth, folded, seed, recipe, factors):
    """Of each picture in the folds, whether the layer taught without its fold names it rightly."""
    chance = random.Random(seed)
    fold = np.full(len(truth), -1)
    for label in np.unique(truth[folded]):
        members = np.where(folded & (truth == label))[0].tolist()
        chance.shuffle(members)
        fold[members] = np.arange(len(members)) % FOLDS
    right = np.zeros(len(truth), bool)
    for number in range(FOLDS):
        asked = np.where(fold == number)[0]
        taught = head.teach(layer, temperature, lessons.of(np.where(fold != number)[0]),
                            factors.shape[1], recipe)
        scores = taught.scores(lessons.means[asked, 0]) / temperature
        answers = placed(scores.softmax(1).numpy(), factors[asked])
        right[asked] = answers.argmax(1) == truth[asked]
    return right

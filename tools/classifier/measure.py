"""How well a classifier answers: shares of pictures, with and without their place."""

from dataclasses import dataclass

import numpy as np

from places import placed, weights
from preparation import chw
from runtime import Session

# What the program calls by default, and the three levels that its users choose between.
CALLED = 0.5375
LEVELS = (0.60, 0.5375, 0.45, 0.30)


class Model:
    """A classifier to be measured: `name` heads its column; `labels` are in the answers' order."""

    def __init__(self, name, path, labels):
        self.name = name
        self.labels = tuple(labels)
        self._session = Session(path)

    def answers(self, squares):
        """The probabilities, float32 [squares, labels], of squares of uint8 [384, 384, 3]."""
        rows = [self._session.run(chw(square), ["classLabel_probs"])[0][0] for square in squares]
        return np.stack(rows) if rows else np.zeros((0, len(self.labels)), np.float32)


@dataclass(frozen=True)
class Tally:
    """Of `pictures`, the shares (0 to 1) that are right in first place and that are called, and of
    the called ones the share that is right; NaN where there are none."""

    pictures: int
    right: float
    called: float
    right_of_called: float


def tally(answers, truth):
    """The Tally of answers [pictures, labels]; `truth` are the labels' indices, -1 for a species
    that the classifier has no label for."""
    right = answers.argmax(axis=1) == truth
    called = answers.max(axis=1) >= CALLED
    return Tally(len(truth), _share(right), _share(called), _share(right[called]))


def reaching(answers):
    """The shares of pictures whose best answer reaches each of LEVELS."""
    best = answers.max(axis=1)
    return tuple(_share(best >= level) for level in LEVELS)


def at_places(answers, places, labels, regions):
    """The answers with each picture's place, (latitude, longitude), taken into account."""
    by_place = {place: weights(place, labels, regions) for place in set(places)}
    if not places:
        return answers
    return placed(answers, np.stack([by_place[place] for place in places]))


def _share(flags):
    return float(np.mean(flags)) if len(flags) else float("nan")

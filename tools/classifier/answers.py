"""What several classifiers answered to the sets they are measured on: kept, and cut into tables."""

from pathlib import Path

import numpy as np

from measure import at_places


def path_of(work, model, name):
    return Path(work) / "answers" / f"{model} {name}.npy"


def keep(model, sets, work):
    """Writes the answers of one measure.Model to each set, float32 [pictures, labels]."""
    for one in sets:
        target = path_of(work, model.name, one.name)
        target.parent.mkdir(parents=True, exist_ok=True)
        np.save(target, model.answers(one.squares()))


class Answered:
    """One classifier's answers to one set, with its labels; cut down to some of its pictures."""

    def __init__(self, answers, labels, of, regions):
        self.answers = answers
        self.labels = tuple(labels)
        self.of = of
        self._regions = regions
        places = {label: index for index, label in enumerate(self.labels)}
        self.truth = np.array([places.get(label, -1) for label in of.labels])

    @classmethod
    def kept(cls, work, model, labels, of, regions):
        return cls(np.load(path_of(work, model, of.name)), labels, of, regions)

    def alone(self, chosen):
        """(answers, truth) of the pictures in the mask `chosen`, without a place."""
        return self.answers[chosen], self.truth[chosen]

    def placed(self, chosen):
        """The same with each picture's place, of those that have one."""
        rows = [row for row in np.where(chosen)[0] if self.of.places[row] is not None]
        places = [self.of.places[row] for row in rows]
        return at_places(self.answers[rows], places, self.labels, self._regions), self.truth[rows]

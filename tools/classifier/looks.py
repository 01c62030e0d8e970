"""Both looks at a set of pictures, and what the graph makes of them, in numpy: the numbers of the
graph are chosen with it."""

from dataclasses import dataclass, fields
from pathlib import Path

import numpy as np

import finder as finding
import maps
from network import MAP8, MAP16, MEANS
from preparation import SIDE, chw
from teacher import side_of

# Wherever the finder sees a bird of up to this side, the second look is kept, so that the settings
# can be chosen below it.
LARGEST_KEPT = 0.85
LEAST_SEEN = -2.5


@dataclass(frozen=True)
class Looks:
    """One row a picture. Of each look: the means [n, 1280], the finder's box [n, 4] in parts of what
    it looked at, and its score [n] (a logit). `has_second` [n]; without one the rest is zero."""

    means: np.ndarray
    box: np.ndarray
    seen: np.ndarray
    has_second: np.ndarray
    second_means: np.ndarray
    second_box: np.ndarray
    second_seen: np.ndarray

    def of(self, rows):
        return Looks(*(getattr(self, field.name)[rows] for field in fields(self)))

    @property
    def side(self):
        return side_of(self.box)


def window(box, margin, least):
    """The second look's square around a box [4]: top, left, bottom, right in pixels, as the graph
    rounds them. `least` is in pixels."""
    left, top, right, bottom = np.asarray(box, np.float32)
    length = np.clip(max(right - left, bottom - top) * np.float32(margin), least / SIDE, 1)
    starts = [np.clip((low + high) / 2 - length / 2, 0, 1 - length)
              for low, high in ((top, bottom), (left, right))]
    edges = np.array(starts + [start + length for start in starts], np.float32)
    return np.round(edges * np.float32(SIDE)).astype(int)


def taken(session, finder, squares, known, settings):
    """Looks at `squares`; `known` are their maps (maps.kept), `session` runs maps.open_maps."""
    box, seen = finding.found(finder, known["map16"], known["map8"])
    has_second = (side_of(box) < LARGEST_KEPT) & (seen > LEAST_SEEN)
    count = len(box)
    means = np.zeros((count, MEANS), np.float32)
    rows = np.where(has_second)[0]
    second16 = np.zeros((len(rows), *MAP16), np.float16)
    second8 = np.zeros((len(rows), *MAP8), np.float16)
    for number, row in enumerate(rows):
        top, left, bottom, right = window(box[row], settings.margin, settings.least)
        answers = session.run(chw(squares[row][top:bottom, left:right]), list(maps.SHAPES))
        second16[number], second8[number], means[row] = (answer[0] for answer in answers)
    second_box, second_seen = np.zeros((count, 4), np.float32), np.zeros(count, np.float32)
    if len(rows):
        second_box[rows], second_seen[rows] = finding.found(finder, second16, second8)
    return Looks(np.asarray(known["means"], np.float32), box, seen, has_second, means, second_box,
                 second_seen)


def save(looks, path):
    np.savez(Path(path), **{field.name: getattr(looks, field.name) for field in fields(looks)})


def load(path):
    kept = np.load(Path(path))
    return Looks(*(kept[field.name] for field in fields(Looks)))

"""Both looks at a set of pictures, and what the graph makes of them, in numpy: the numbers of the
graph are chosen with it."""

from dataclasses import dataclass, fields
from pathlib import Path

import numpy as np

import finder as finding
import maps
from gate import Gate, evidence_of
from network import MAP8, MAP16, MEANS
from preparation import SIDE, chw
from settings import Settings
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


def run(session, finder_file, work):
    """Writes work/looks.npz: both looks at all pictures, in their order; `session` runs
    maps.open_maps."""
    finder = finding.loaded(finder_file)
    known = maps.kept(work, "pictures")
    save(taken(session, finder, maps.squares(work), known, Settings()), Path(work) / "looks.npz")


def save(looks, path):
    np.savez(Path(path), **{field.name: getattr(looks, field.name) for field in fields(looks)})


def load(path):
    kept = np.load(Path(path))
    return Looks(*(kept[field.name] for field in fields(Looks)))


def softmax(scores):
    """Of each row."""
    shares = np.exp(scores - scores.max(axis=1, keepdims=True))
    return shares / shares.sum(axis=1, keepdims=True)


def looks_twice(looks, first, settings):
    """Whether the graph takes the second look, bool [n]; `first` are the first look's scores."""
    unsure = softmax(first / settings.temperature).max(axis=1) < settings.sure
    return looks.has_second & unsure & (looks.side < settings.small) & (looks.seen > settings.seen)


def answers(looks, weight, bias, settings, twins=None):
    """The graph's probabilities [n, labels] with the last layer `weight` [labels, 1280], `bias`
    [labels]."""
    return from_scores(looks, looks.means @ weight.T + bias, looks.second_means @ weight.T + bias,
                       settings, twins)


def from_scores(looks, first, second, settings, twins=None):
    """The same with the scores [n, labels] of both looks at hand."""
    twice = looks_twice(looks, first, settings)
    second = np.where(twice[:, None], second, first)
    share = second_share(looks, twice, settings)[:, None]
    mixed = first * (1 - share) + second * share
    temperature = np.where(twice, settings.temperature_two, settings.temperature)
    shares = softmax(mixed / temperature[:, None])
    if twins is not None:
        shares = lent(shares, *twins)
    return gated(sharpened(shares, settings), bird_logit(looks, first, second, twice, settings),
                 settings)


def second_share(looks, twice, settings):
    """The part of the mixed scores that is the second look's, [n]."""
    share = np.clip((settings.share_from - looks.side) / settings.share_width, 0, 1)
    return np.where(twice, share, 0)


def lent(shares, index, weight):
    """The shares with what look-alikes lend each other (lookalikes.twins)."""
    return sum(shares[:, column] * part for column, part in zip(index.T, weight.T))


def sharpened(shares, settings):
    above = np.maximum(shares.max(axis=1, keepdims=True) - settings.sharp_from, 0)
    raised = shares ** (1 + settings.sharpness * above)
    return raised / raised.sum(axis=1, keepdims=True)


def bird_logit(looks, first, second, twice, settings):
    """How surely there is a bird, [n]: the gate's answers to both looks, mixed."""
    gate = Gate(np.array(settings.gate_means, np.float32), settings.gate_finder,
                settings.gate_evidence, settings.gate_constant)
    one = gate.logits(looks.means, looks.seen, evidence_of(first))
    two = gate.logits(looks.second_means, looks.second_seen, evidence_of(second))
    part = settings.gate_second
    return np.where(twice, one * (1 - part) + two * part, one)


def gated(shares, logit, settings):
    """The shares of birds, the rest spread over the labels that live nearly everywhere."""
    is_bird = 1 / (1 + np.exp(-logit))[:, None]
    spread = np.zeros(shares.shape[1])
    spread[settings.nobody] = 1 / len(settings.nobody)
    return shares * is_bird + spread * (1 - is_bird)

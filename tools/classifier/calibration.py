"""How sure the answers may be: temperature and sharpness, so that the levels at which a picture is
called mean what the program says of them.

They are set by strangers: birds without a label, to which every name is wrong. Of those with a place,
about so many may reach a level as TARGETS says. The answers come from last layers that were taught
without the strangers asked (crossed over three parts of the training side), so what is held back
stays untouched.
"""

from dataclasses import replace
from pathlib import Path

import numpy as np

import gate as gates
import head
import head_lessons
import holdback
import looks
import settings
from lookalikes import widespread
from places import placed, read_source_places, weights

# Level of certainty, and the share of strangers with a place that may reach it.
TARGETS = {0.60: 0.11, 0.45: 0.17, 0.30: 0.30}

PARTS = 3
VIEWS = 3

TEMPERATURES = np.arange(0.80, 1.301, 0.02)
SHARPNESSES = (0.0, 0.3, 0.6)

# The share of "no bird" goes to so many labels, 1 % each at most: no place blows that up to a call.
NOBODIES = 100


def run(network, labels, twins, regions, pictures, sides, work):
    """Writes work/settings.json.

    `network` is the start; `labels` are those of the layer to be taught; `twins` the look-alikes
    (lookalikes.twins); the looks and the gate lie in `work` (looks.run, gate.run).
    """
    first = gated_settings(gates.loaded(Path(work) / "gate.npz"), labels, regions)
    both = looks.load(Path(work) / "looks.npz")
    rows = np.where([picture.set in ("scenes", "extras") and side == holdback.TRAIN
                     for picture, side in zip(pictures, sides)])[0]
    chosen = [pictures[row] for row in rows]
    lessons = head_lessons.gathered(pictures, rows, labels, work, VIEWS)
    strangers = np.where((lessons.label.numpy() < 0) & _have_places(chosen))[0]
    their_looks = both.of(rows[strangers])
    scores = crossed(network, len(labels), lessons, parts_of(chosen), strangers, their_looks)
    factors = _factors([chosen[row] for row in strangers], labels, regions)
    settled = settle(their_looks, scores, factors, first, twins)
    settings.save(settled, Path(work) / "settings.json")
    return f"temperature {settled.temperature:.2f}, sharpness {settled.sharpness}"


def gated_settings(gate, labels, regions):
    """Settings with the gate, and nothing settled yet."""
    return settings.Settings(
        gate_means=gate.means.tolist(), gate_finder=gate.seen, gate_evidence=gate.evidence,
        gate_constant=gate.constant - gates.CAUTION,
        nobody=widespread(labels, regions, NOBODIES).tolist())


def parts_of(pictures):
    """The part that each picture stands in; all pictures of a species stand in one."""
    return np.array([sum(picture.species.encode()) % PARTS for picture in pictures])


def crossed(network, count, lessons, parts, asked, their_looks):
    """The scores (first look, second look), each [asked, count], of the pictures `asked` by layers
    that were taught without their part."""
    first = np.zeros((len(asked), count), np.float32)
    second = first.copy()
    for part in range(PARTS):
        layer = head.teach(head.layer_of(network), network.temperature,
                           lessons.of(np.where(parts != part)[0]), count)
        own = parts[asked] == part
        weight, bias = layer.weight.numpy(), layer.bias.numpy()
        first[own] = their_looks.means[own] @ weight.T + bias
        second[own] = their_looks.second_means[own] @ weight.T + bias
    return first, second


def settle(their_looks, scores, factors, start, twins):
    """The Settings whose answers to strangers come nearest to the targets.

    `scores` are those of both looks, `factors` the weights of the labels at each one's place, all
    [strangers, labels].
    """
    tried = [replace(start, temperature=float(temperature), temperature_two=float(temperature),
                     sharpness=sharpness)
             for temperature in TEMPERATURES for sharpness in SHARPNESSES]
    return min(tried, key=lambda one: distance(placed(
        looks.from_scores(their_looks, *scores, one, twins), factors)))


def distance(answers):
    """How far the answers [n, labels] of strangers are from the targets: 0 on all of them."""
    best = answers.max(axis=1)
    shares = np.array([np.mean(best >= level) for level in TARGETS])
    least = 0.5 / len(best)  # none at all is not infinitely wrong
    return np.square(np.log((shares + least) / list(TARGETS.values()))).sum()


def _have_places(pictures):
    known = read_source_places()
    return np.array([picture.source in known for picture in pictures])


def _factors(pictures, labels, regions):
    known = read_source_places()
    by_place = {place: weights(place, labels, regions) for _, place in known.values()}
    return np.stack([by_place[known[picture.source][1]] for picture in pictures])

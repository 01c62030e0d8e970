"""The numbers by which the graph decides, apart from the weights of its networks."""

import json
from dataclasses import asdict, dataclass, field

import numpy as np


@dataclass(frozen=True)
class Settings:
    """Sides are the longer side of a box, in parts of the input square."""

    # The scores are divided by this before they become probabilities: after one look, after two.
    temperature: float = 1.0
    temperature_two: float = 1.0

    # A second look is taken where the finder's score (before the sigmoid) is over `seen`, the bird's
    # side is under `small`, and the first answer is under `sure`.
    sure: float = 0.95
    small: float = 0.7
    seen: float = -1.0

    # The second look's square has `margin` times the bird's side, and at least this many of the 384
    # pixels: on fewer the network has nothing to see.
    margin: float = 1.15
    least: float = 72.0

    # The share of the second look's scores: (share_from - side) / share_width, within 0 and 1.
    share_from: float = 0.75
    share_width: float = 0.45

    # Answers that stand above `sharp_from` are raised to 1 + sharpness x (top - sharp_from).
    sharpness: float = 0.0
    sharp_from: float = 0.45

    # How surely there is a bird, as a logit: of the means, the finder's score, the log-sum of the
    # scores, and a constant. `gate_second` is the second look's share of it.
    gate_means: list = field(default_factory=list)
    gate_finder: float = 0.0
    gate_evidence: float = 0.0
    gate_constant: float = 0.0
    gate_second: float = 0.5

    # The labels among which the share of "no bird" is spread, as indices.
    nobody: list = field(default_factory=list)


def load(path):
    with open(path, encoding="utf-8") as file:
        return Settings(**json.load(file))


def save(settings, path):
    with open(path, "w", encoding="utf-8") as file:
        json.dump(asdict(settings), file, default=np.ndarray.tolist)

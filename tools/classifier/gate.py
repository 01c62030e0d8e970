"""The gate: how surely there is a bird at all, as a line (a logistic regression) on what one look
knows: the network's means, the finder's score, and how strongly anything answers (the logarithm of
the sum of the scores' exponentials)."""

from dataclasses import asdict, dataclass
from pathlib import Path

import numpy as np
import torch
from torch.nn import functional

import finder as finding
import maps
from finder_lessons import boxes_of
from network import MEANS
from teacher import side_of

# A picture without a bird weighs this many with one: there are fewer of them, and a wrong name for
# something that is no bird is the worse answer.
EMPTY_WEIGHT = 2.0

# How strongly the weights are held near nought: of the 1,280 means, which would otherwise know every
# picture by heart, and of the two sums.
MEANS_DECAY = 1e-2
SUMS_DECAY = 1e-4

# Birds laid smaller than this are for the second look to tell.
LEAST_SIDE = 0.2

# Taken off the constant: a bird that the gate takes for none costs an uncertain shot, the other way
# round a folder with a wrong name.
CAUTION = 1.0

# Keeps a mean that hardly varies from being blown up.
LEAST_DEVIATION = 0.05

STEPS = 120


@dataclass(frozen=True)
class Gate:
    """The logit is means @ `means` + finder's score x `seen` + evidence x `evidence` + `constant`."""

    means: np.ndarray
    seen: float
    evidence: float
    constant: float

    def logits(self, means, seen, evidence):
        return means @ self.means + seen * self.seen + evidence * self.evidence + self.constant


def evidence_of(scores):
    """The logarithm of the sum of the exponentials of scores [n, labels]."""
    top = scores.max(axis=1)
    return top + np.log(np.exp(scores - top[:, None]).sum(axis=1))


def fitted(means, seen, evidence, is_bird):
    """A Gate for means [n, 1280], finder's scores [n] and evidence [n] of pictures with and without
    a bird [n]."""
    numbers = np.concatenate([means, seen[:, None], evidence[:, None]], axis=1).astype(np.float32)
    middle, spread = numbers.mean(axis=0), numbers.std(axis=0) + LEAST_DEVIATION
    given = torch.tensor((numbers - middle) / spread)
    truth = torch.tensor(is_bird, dtype=torch.float32)
    counts = torch.where(truth > 0, 1.0, EMPTY_WEIGHT)
    weight = torch.zeros(given.shape[1], requires_grad=True)
    constant = torch.zeros(1, requires_grad=True)
    optimiser = torch.optim.LBFGS([weight, constant], max_iter=STEPS,
                                  line_search_fn="strong_wolfe")

    def wrong():
        optimiser.zero_grad()
        logits = given @ weight + constant
        loss = functional.binary_cross_entropy_with_logits(logits, truth, weight=counts)
        loss = loss + MEANS_DECAY * weight[:MEANS].square().sum()
        loss = loss + SUMS_DECAY * weight[MEANS:].square().sum()
        loss.backward()
        return loss

    optimiser.step(wrong)
    slopes = weight.detach().numpy() / spread
    at_nought = float(constant.detach()) - float(slopes @ middle)
    return Gate(slopes[:MEANS], float(slopes[MEANS]), float(slopes[MEANS + 1]), at_nought)


def run(both, weight, bias, pictures, sides, work):
    """Writes work/gate.npz, taught by the training side: pictures with and without birds, second
    looks at what is no bird, and what was composed for the finder.

    `both` are the looks.Looks at the pictures; `weight`, `bias` the last layer's.
    """
    _, usable = boxes_of(pictures, sides, work)
    is_bird = np.array([picture.is_bird for picture in pictures])
    again = usable & ~is_bird & both.has_second
    composed, composed_seen, composed_bird = _composed(work)
    means = np.concatenate([both.means[usable], both.second_means[again], composed])
    seen = np.concatenate([both.seen[usable], both.second_seen[again], composed_seen])
    truth = np.concatenate([is_bird[usable], is_bird[again], composed_bird])
    gate = fitted(means, seen, evidence_of(means @ weight.T + bias), truth)
    np.savez(Path(work) / "gate.npz", **asdict(gate))


def _composed(work):
    """Means, finder's scores and whether there is a bird, of what was composed."""
    boxes = np.load(Path(work) / "lessons.npy")
    known = maps.kept(work, "lessons")
    _, seen = finding.found(finding.loaded(Path(work) / "finder.npz"), known["map16"],
                            known["map8"])
    empty = np.isnan(boxes[:, 0])
    fits = empty | (side_of(boxes) > LEAST_SIDE)
    return np.asarray(known["means"][fits], np.float32), seen[fits], ~empty[fits]


def loaded(path):
    kept = np.load(path)
    return Gate(kept["means"], *(float(kept[name]) for name in ("seen", "evidence", "constant")))

"""The gate: how surely there is a bird at all, as a line (a logistic regression) on what one look
knows: the network's means, the finder's score, and how strongly anything answers (the logarithm of
the sum of the scores' exponentials)."""

from dataclasses import dataclass

import numpy as np
import torch
from torch.nn import functional

from network import MEANS

# A picture without a bird weighs this many with one: there are fewer of them, and a wrong name for
# something that is no bird is the worse answer.
EMPTY_WEIGHT = 2.0

# How strongly the weights are held near nought: of the 1,280 means, which would otherwise know every
# picture by heart, and of the two sums.
MEANS_DECAY = 1e-2
SUMS_DECAY = 1e-4

# Birds laid smaller than this are for the second look to tell.
LEAST_SIDE = 0.2

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

"""The last layer taught anew: 1,280 means in, a score for every label out.

Only natural scenes teach it something new; what else is in the recipe keeps it from forgetting:

* A picture with a label teaches that label and, for a part, what the start itself answers.
* A picture of a bird without a label teaches the start's answer softened: unsure it shall stay.
* A label without pictures is held in place by made-up means: real ones moved until the start calls
  that label.
* The weights are drawn back to where they started.
"""

from dataclasses import dataclass

import numpy as np
import torch
from torch.nn import functional

from made_up import made_up_means
from network import MEANS

# A score that no other comes near.
NEVER = -50.0


@dataclass(frozen=True)
class Recipe:
    """The numbers of the teaching; chosen on pictures held back."""

    # The start's share in the target of a picture whose label the start knows, and in that of a
    # picture whose label is new to it.
    start_share: float = 0.2
    start_share_new: float = 0.05

    # The temperature of the start's answer for birds without a label.
    unknown_temperature: float = 2.0

    # A picture that the start was trained on counts this much of another, one of a bird without a
    # label this much of a label's only picture; n pictures of a label count 1/n^`balance` each.
    seen_weight: float = 0.5
    unknown_weight: float = 1.0
    balance: float = 0.5

    # Made-up means: how many a label, how many in a step, their loss's weight.
    made_up: int = 6
    made_up_batch: int = 96
    made_up_weight: float = 0.1

    pull_back: float = 1e-4  # of the squared distance to the weights at the start
    epochs: int = 5
    batch: int = 512
    rate: float = 1e-3
    dropout: float = 0.1
    noise: float = 0.05  # of the means' scale
    seed: int = 0


@dataclass(frozen=True)
class Layer:
    """A last layer: `weight` float32 [labels, 1280], `bias` [labels]; it answers raw scores."""

    weight: torch.Tensor
    bias: torch.Tensor

    def scores(self, means):
        return means.float() @ self.weight.T + self.bias


def layer_of(network):
    """The last layer of an opened network."""
    return Layer(torch.tensor(network.weight), torch.tensor(network.bias))


@dataclass(frozen=True)
class Lessons:
    """What teaches: `means` float16 [pictures, views, 1280]; `label` the index of the picture's
    label or -1; `seen_by_start` whether the start was trained on it."""

    means: torch.Tensor
    label: torch.Tensor
    seen_by_start: torch.Tensor

    def of(self, chosen):
        """The lessons of some pictures only; `chosen` is a mask or a list of indices."""
        chosen = torch.as_tensor(np.asarray(chosen))
        return Lessons(self.means[chosen], self.label[chosen], self.seen_by_start[chosen])


def teach(start, start_temperature, lessons, labels, recipe=Recipe()):
    """The layer for `labels` labels, those of `start` first, taught by `lessons`."""
    torch.manual_seed(recipe.seed)
    first = _grown(start, lessons, labels)
    targets = _targets(start, start_temperature, lessons, labels, recipe)
    weights = _weights(lessons, labels, recipe)
    lacking = np.setdiff1d(np.arange(len(start.bias)), lessons.label.numpy())
    made_up = made_up_means(start, start_temperature, lessons, lacking, recipe.made_up)
    return _fitted(first, lessons, targets, weights, made_up, recipe)


def _grown(start, lessons, labels):
    """The start with a row for each new label: where its pictures lie, seen from all pictures.

    The row points from the middle of all to the middle of the label's own, as long as the start's
    rows usually are; its score is nought halfway. A label without pictures is never answered.
    """
    middle = lessons.means[:, 0].float().mean(0)
    length = start.weight.norm(dim=1).median()
    rows, biases = [start.weight], [start.bias]
    for label in range(len(start.bias), labels):
        own = lessons.means[lessons.label == label, 0].float()
        if len(own) == 0:
            rows.append(torch.zeros(1, MEANS))
            biases.append(torch.full((1,), NEVER))
            continue
        away = own.mean(0) - middle
        row = away / away.norm() * length
        rows.append(row[None])
        biases.append(-(row @ (own.mean(0) + middle) / 2)[None])
    return Layer(torch.cat(rows), torch.cat(biases))


def _targets(start, temperature, lessons, labels, recipe):
    """What each picture shall be answered with: float32 [pictures, labels], rows summing to 1."""
    known = len(start.bias)
    scores = torch.stack([start.scores(views).mean(0) for views in lessons.means])
    answers = torch.zeros(len(scores), labels)
    answers[:, :known] = (scores / temperature).softmax(1)
    unknown = lessons.label < 0
    answers[unknown, :known] = (scores[unknown] / recipe.unknown_temperature).softmax(1)

    share = torch.full((len(scores), 1), recipe.start_share)
    share[lessons.label >= known] = recipe.start_share_new
    share[unknown] = 1.0
    truth = functional.one_hot(lessons.label.clamp(min=0), labels).float()
    return share * answers + (1 - share) * truth


def _weights(lessons, labels, recipe):
    """How much each picture counts: float32 [pictures], 1 on average."""
    with_label = lessons.label >= 0
    pictures = torch.bincount(lessons.label[with_label], minlength=labels).clamp(min=1).float()
    weights = pictures[lessons.label.clamp(min=0)] ** -recipe.balance
    weights[~with_label] = recipe.unknown_weight
    weights[lessons.seen_by_start] *= recipe.seen_weight
    return weights / weights.mean()


def _fitted(first, lessons, targets, weights, made_up, recipe):
    layer = Layer(first.weight.clone().requires_grad_(), first.bias.clone().requires_grad_())
    optimiser = torch.optim.Adam([layer.weight, layer.bias], lr=recipe.rate, betas=(0.9, 0.98))
    pictures, views = lessons.means.shape[:2]
    steps = recipe.epochs * -(-pictures * views // recipe.batch)
    schedule = torch.optim.lr_scheduler.CosineAnnealingLR(optimiser, steps, recipe.rate * 0.02)
    for _ in range(recipe.epochs):
        for batch in torch.randperm(pictures * views).split(recipe.batch):
            picture, view = batch // views, batch % views
            scores = layer.scores(_disturbed(lessons.means[picture, view].float(), recipe))
            losses = -(targets[picture] * scores.log_softmax(1)).sum(1)
            loss = (losses * weights[picture]).mean()
            loss = loss + recipe.pull_back * (layer.weight - first.weight).square().sum()
            loss = loss + recipe.made_up_weight * _made_up_loss(layer, made_up, recipe)
            optimiser.zero_grad()
            loss.backward()
            optimiser.step()
            schedule.step()
    return Layer(layer.weight.detach(), layer.bias.detach())


def _made_up_loss(layer, made_up, recipe):
    means, labels = made_up
    if len(labels) == 0:
        return 0.0
    chosen = torch.randint(len(labels), (recipe.made_up_batch,))
    return functional.cross_entropy(layer.scores(_disturbed(means[chosen], recipe)), labels[chosen])


def _disturbed(means, recipe):
    scale = 1 + recipe.noise * torch.randn(len(means), 1)
    return functional.dropout(means * scale, recipe.dropout)

"""Made-up means for labels without pictures, so that teaching the others does not unteach them."""

import torch

from network import MEANS

# How far one step moves made-up means, of their length; how often at most; how sure of the label
# the start shall be. The means come out of a ReLU6, so they lie within 0 and 6.
STRIDE, STRIDES, SURE_ENOUGH = 0.06, 60, 0.6
CANDIDATES = 40


def made_up_means(start, temperature, lessons, lacking, count):
    """Means for the labels in `lacking`, at most `count` each: (float32 [n, 1280], labels [n]).

    Each is that of a real picture, of those that the start thinks likeliest to show the label,
    moved along the difference of the last layer's rows until the start calls the label.
    """
    real = lessons.means[:, 0].float()
    scores = start.scores(real)
    means, labels = [torch.empty(0, MEANS)], []
    for label in lacking.tolist():
        nearest = scores[:, label].topk(min(CANDIDATES, len(real))).indices
        moved = real[nearest[torch.randperm(len(nearest))[:count]]].clone()
        for _ in range(STRIDES):
            answer = start.scores(moved)
            unsure = (answer / temperature).softmax(1)[:, label] < SURE_ENOUGH
            if not unsure.any():
                break
            answer[:, label] = -torch.inf
            away = start.weight[label] - start.weight[answer.argmax(1)]
            step = STRIDE * away / away.norm(dim=1, keepdim=True) * moved.norm(dim=1, keepdim=True)
            moved[unsure] = (moved + step)[unsure].clamp(0, 6)
        moved = moved[start.scores(moved).argmax(1) == label]
        means.append(moved)
        labels += [label] * len(moved)
    return torch.cat(means), torch.tensor(labels, dtype=torch.int64)

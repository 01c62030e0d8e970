"""Which pictures teach the last layer, put together from their means."""

import numpy as np
import torch

from features import kept_means
from head import Lessons


def label_of(picture):
    """The label that a picture's species has or would have: "Parus_major"; None without a bird."""
    if not picture.is_bird:
        return None
    return picture.label or picture.species.replace(" ", "_")


def indices(pictures, labels):
    """The index of each picture's label among `labels`, -1 where it is none of them: int64."""
    places = {label: index for index, label in enumerate(labels)}
    return np.array([places.get(label_of(picture), -1) for picture in pictures])


def gathered(pictures, chosen, labels, work, views):
    """The lessons of the pictures at the indices `chosen`, with `views` views each."""
    means = np.stack([kept_means(work, number)[chosen] for number in range(views)], axis=1)
    seen = np.array([picture.seen_by_start for picture in pictures])
    return Lessons(torch.tensor(means), torch.tensor(indices(pictures, labels)[chosen]),
                   torch.tensor(seen[chosen]))

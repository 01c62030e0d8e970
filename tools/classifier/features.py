"""What the start network sees in pictures: the 1,280 means that its last layer weighs.

They are kept as float16, one file a view: work/features/means_<view>.npy, [pictures, 1280], in the
order of the pictures given.
"""

from pathlib import Path

import numpy as np

from network import MEANS
from preparation import chw
from views import view


def means_path(work, number):
    return Path(work) / "features" / f"means_{number}.npy"


def keep_means(session, pictures, number, work):
    """Writes the means of view `number` of every picture; `session` runs the features model."""
    means = np.empty((len(pictures), MEANS), np.float16)
    for row, picture in enumerate(pictures):
        means[row] = means_of(session, view(picture.path, number))
    target = means_path(work, number)
    target.parent.mkdir(parents=True, exist_ok=True)
    unfinished = target.with_suffix(".part.npy")
    np.save(unfinished, means)
    unfinished.rename(target)


def means_of(session, pixels):
    """The means, float32 [1280], of one square, uint8 [384, 384, 3]."""
    return session.run(chw(pixels), ["means"])[0][0]


def kept_means(work, number):
    """float16 [pictures, 1280], mapped from the file."""
    return np.load(means_path(work, number), mmap_mode="r")

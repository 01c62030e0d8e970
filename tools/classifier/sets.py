"""The sets of pictures that classifiers are measured on; none of them taught anything."""

import random
from dataclasses import dataclass
from typing import Callable

import numpy as np

from holdback import HELD
from head_lessons import label_of
from places import read_source_places
from preparation import opened, prepared, reduced, square
from samples import PLACE, SHRUNK, read_samples
from small import Grounds, laid_small
from teacher import side_of, true_box

# How many held birds are laid small, and into scenes how many times as wide: there a bird fills
# about 58, 35 and 22 % of the shorter side.
SMALL_BIRDS = 200
TIMES = (1.5, 2.5, 4.0)


@dataclass(frozen=True)
class Set:
    """Pictures to measure on. `squares` answers an iterable of uint8 [384, 384, 3]; of each of them
    `labels` has the label of its species (or None), `places` the (latitude, longitude) or None,
    `sources` where it comes from, `seen` whether the start was trained on its source, and `sides`
    the true longer side of the bird, in parts of the square, where it is known."""

    name: str
    squares: Callable
    labels: tuple
    places: tuple
    sources: tuple
    seen: np.ndarray
    sides: tuple


def held_sets(pictures, sides):
    """Those of the pictures held back: birds, birds with true boxes, birds laid small, no birds."""
    held = [picture for picture, side in zip(pictures, sides) if side == HELD]
    birds = [picture for picture in held if picture.set in ("scenes", "extras")]
    yield _of_pictures("birds", birds)
    yield _of_pictures("boxes", [picture for picture in held if picture.box])
    yield _of_pictures("no birds", [picture for picture in held if not picture.is_bird])
    chosen = [picture for picture in birds if picture.label and not picture.seen_by_start]
    random.Random(1).shuffle(chosen)
    grounds = Grounds(pictures, sides)
    for times in TIMES:
        yield _of_pictures(f"small {times}", chosen[:SMALL_BIRDS],
                           lambda path, times=times: _laid_small(path, times, grounds))


def sample_sets(folder, pictures, sides):
    """The sample photographs as they are, and laid small."""
    grounds = Grounds(pictures, sides)
    everyone = read_samples(folder)
    ways = {"samples": prepared,
            "samples small": lambda path: _laid_small(path, SHRUNK, grounds)}
    for name, way in ways.items():
        yield Set(name, lambda way=way: (way(sample.path) for sample in everyone),
                  labels=tuple(sample.label for sample in everyone),
                  places=(PLACE,) * len(everyone), sources=("samples",) * len(everyone),
                  seen=np.zeros(len(everyone), bool), sides=(None,) * len(everyone))


def _of_pictures(name, pictures, way=prepared):
    places = read_source_places()
    return Set(name, lambda: (way(picture.path) for picture in pictures),
               labels=tuple(label_of(picture) for picture in pictures),
               places=tuple(places.get(picture.source, (None, None))[1] for picture in pictures),
               sources=tuple(picture.source for picture in pictures),
               seen=np.array([picture.seen_by_start for picture in pictures], bool),
               sides=tuple(_side(picture) for picture in pictures))


def _side(picture):
    if not picture.box:
        return None
    return float(side_of(true_box(picture)[None])[0])


def _laid_small(path, times, grounds):
    chance = random.Random(f"{path.name}/{times}")
    return square(laid_small(reduced(opened(path)), times, grounds.draw(chance), chance))

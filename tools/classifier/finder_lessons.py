"""The pictures that teach the finder, put together from the training side alone."""

import random
from pathlib import Path

import numpy as np

import maps
from composites import LEAST_CLOSE, close_look, small_bird, without_bird
from holdback import TRAIN
from preparation import SIDE
from teacher import NONE, SURE, side_of, true_box

SEED = 11

# Scenes without a bird, for every bird laid into one.
WITHOUT_BIRD = 0.25


def boxes_of(pictures, sides, work):
    """Which box each picture teaches, [n, 4] in parts of its square: the true one where people drew
    it, else the detector's where it is sure. NaN tells of no bird; `usable` [n] of a row that
    teaches."""
    taught = np.load(Path(work) / "teacher.npz")
    boxes = taught["boxes"].copy()
    usable = np.zeros(len(pictures), bool)
    for row, picture in enumerate(pictures):
        if picture.box:
            boxes[row] = true_box(picture)
            usable[row] = True
        elif picture.is_bird:
            usable[row] = taught["scores"][row] > SURE
        else:
            boxes[row] = np.nan
            usable[row] = taught["scores"][row] < NONE
    return boxes, usable & (np.array(sides) == TRAIN)


def run(session, pictures, sides, work):
    """Writes the maps of the pictures made (maps.kept(work, "lessons")) and work/lessons.npy, their
    boxes [n, 4], NaN where there is no bird."""
    target = Path(work) / "lessons.npy"
    if target.exists() and maps.are_kept(work, "lessons"):
        return
    boxes, usable = boxes_of(pictures, sides, work)
    taught = []
    made = compositions(maps.squares(work), boxes, usable)

    def images():
        for image, box in made:
            taught.append(box)
            yield image

    maps.keep(session, images(), count(boxes, usable), work, "lessons")
    np.save(target, np.array(taught, np.float32))


def compositions(squares, boxes, usable):
    """Pairs (uint8 [384, 384, 3], box [4]): each usable bird small in a scene, each that is large
    enough from close by, and scenes without a bird."""
    chance = random.Random(SEED)
    has_bird = ~np.isnan(boxes[:, 0])
    rows = np.where(usable & has_bird)[0]
    others = _Rows(squares, np.where(usable & ~has_bird)[0])
    birds = _Pairs(squares, boxes, rows)
    for row in rows:
        yield small_bird(chance, squares[row], boxes[row], others, birds)
        if _is_large(boxes[row]):
            yield close_look(chance, squares[row], boxes[row])
    for _ in range(_empty_scenes(rows)):
        yield without_bird(chance, others, birds), np.full(4, np.nan)


def count(boxes, usable):
    """How many compositions there will be."""
    rows = np.where(usable & ~np.isnan(boxes[:, 0]))[0]
    return len(rows) + sum(_is_large(boxes[row]) for row in rows) + _empty_scenes(rows)


def _is_large(box):
    return side_of(box[None])[0] * SIDE >= LEAST_CLOSE


def _empty_scenes(rows):
    return int(len(rows) * WITHOUT_BIRD)


class _Rows:
    """Some rows of an array that is too large to copy."""

    def __init__(self, array, rows):
        self.array, self.rows = array, rows

    def __len__(self):
        return len(self.rows)

    def __getitem__(self, index):
        return self.array[self.rows[index]]


class _Pairs(_Rows):
    """The same with each row's box."""

    def __init__(self, array, boxes, rows):
        super().__init__(array, rows)
        self.boxes = boxes

    def __getitem__(self, index):
        row = self.rows[index]
        return self.array[row], self.boxes[row]

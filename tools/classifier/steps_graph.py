"""The steps from the pictures to the graph: the teacher, the finder, and what is settled around."""

import numpy as np

import finder
import finder_lessons
import maps
import teacher
from steps import Step


def of_the_graphs(making):
    hashes, taught = making.work / "hashes.npz", making.work / "teacher.npz"
    squares = making.work / "squares.npy"
    found = making.work / "finder.npz"
    given, composed = _maps_files(making, "pictures"), _maps_files(making, "lessons")
    boxes = making.work / "lessons.npy"
    yield Step("teacher's boxes", [hashes, making.teacher], [taught], lambda: _ask(making))
    yield Step("squares", [hashes], [squares], lambda: _keep_squares(making))
    yield Step("maps", [squares, making.features_model], given, lambda: _keep_maps(making))
    yield Step("finder's lessons", [taught, squares, making.features_model], [*composed, boxes],
               lambda: _compose(making))
    yield Step("finder", [*given, *composed, boxes, taught], [found], lambda: _teach(making))


def _maps_files(making, name):
    return [making.work / "maps" / f"{name}_{part}.npy" for part in maps.SHAPES]


def _ask(making):
    teacher.run(making.teacher, making.pictures, making.work)


def _keep_squares(making):
    maps.keep_squares(making.pictures, making.work)


def _keep_maps(making):
    squares = maps.squares(making.work)
    maps.keep(making.features, squares, len(squares), making.work, "pictures")


def _compose(making):
    finder_lessons.run(making.features, making.pictures, making.sides, making.work)
    return f"{len(np.load(making.work / 'lessons.npy'))} pictures made"


def _teach(making):
    finder.run(making.pictures, making.sides, making.work)

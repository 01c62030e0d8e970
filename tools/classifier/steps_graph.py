"""The steps from the pictures to the graph: the teacher, the finder, and what is settled around."""

import numpy as np

import calibration
import finder
import finder_lessons
import gate
import graph
import lookalikes
import looks
import maps
import settings
import teacher
from steps import Step

# The start is the first.
VERSION = "3"


def of_the_graphs(making):
    work = making.work
    hashes, taught, squares, boxes, found, seen, gated, settled = (
        work / name for name in ("hashes.npz", "teacher.npz", "squares.npy", "lessons.npy",
                                 "finder.npz", "looks.npz", "gate.npz", "settings.json"))
    given, composed = _maps_files(making, "pictures"), _maps_files(making, "lessons")
    proof = making.layer_file("proof")
    yield Step("teacher's boxes", [hashes, making.teacher], [taught], lambda: _ask(making))
    yield Step("squares", [hashes], [squares], lambda: _keep_squares(making))
    yield Step("maps", [squares, making.features_model], given, lambda: _keep_maps(making))
    yield Step("finder's lessons", [taught, squares, making.features_model], [*composed, boxes],
               lambda: _compose(making))
    yield Step("finder", [*given, *composed, boxes, taught], [found], lambda: _teach(making))
    yield Step("looks", [found, squares, *given], [seen], lambda: _look(making))
    yield Step("gate", [seen, boxes, taught, proof], [gated], lambda: _gate(making))
    yield Step("settings", [seen, gated, proof, making.regions_file, making.facts], [settled],
               lambda: _settle(making))
    for name in ("proof", "final"):
        yield Step(f"graph of the {name}", [making.layer_file(name), found, settled],
                   [making.model_file(name), making.model_file(name).with_name("labels.txt")],
                   lambda name=name: _assemble(making, name))


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


def _look(making):
    session = maps.open_maps(making.network, making.work)
    looks.run(session, making.work / "finder.npz", making.work)


def _gate(making):
    network = making.network_with_layer("proof")
    gate.run(looks.load(making.work / "looks.npz"), network.weight, network.bias, making.pictures,
             making.sides, making.work)


def _settle(making):
    return calibration.run(making.network, making.labels, _twins(making, "proof"), making.regions,
                           making.pictures, making.sides, making.work)


def _assemble(making, name):
    """The settings are the same for both: they were chosen on strangers, some of which have taught
    the last layer of the one that ships."""
    graph.save(making.network_with_layer(name), dict(np.load(making.work / "finder.npz")),
               settings.load(making.work / "settings.json"), _twins(making, name),
               making.model_file(name), VERSION)


def _twins(making, name):
    weight = making.network_with_layer(name).weight
    return lookalikes.twins(weight, making.labels, lookalikes.families(making.facts),
                            making.regions)

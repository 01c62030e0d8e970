#!/usr/bin/python3
"""Makes the classifier: model.onnx, labels.txt, report.md and sample_answers.csv.

    tools/classifier/make.py --start PACKAGE --pictures FOLDER --teacher MODEL --samples FOLDER
        --facts FILE --regions JSON --work FOLDER --out FOLDER [--compare MODEL]

A list of steps, each of which leaves files in the work folder (about 8 GB) and is skipped where
these are newer than what they were made from: a making that was broken off goes on where it was.
Everything is seeded; a second making answers the same. Two classifiers come about, alike but for
their last layer: the proof, taught without what is held back, which the report measures; and the
one to ship, whose last layer is taught on everything.

It needs Debian's python3-torch, python3-onnx, python3-numpy and python3-pil, and the library that
the target ornivo_runtime builds. One core is enough.
"""

import argparse
from pathlib import Path

import torch

import holdback
import steps
import steps_graph
import steps_head
import steps_measure
from features import means_path
from making import Making
from steps import Step
from steps_head import VIEWS


def making_steps(making, compare=None):
    """The steps of a making; `compare` is another classifier to measure beside it, or None."""
    yield from of_the_layers(making)
    yield from steps_graph.of_the_graphs(making)
    yield from of_the_figures(making, compare)


def of_the_layers(making):
    work = making.work
    given = sorted(making.folder.glob("*.tar")) + sorted(making.folder.glob("*.csv"))
    hashes = work / "hashes.npz"
    means = [means_path(work, number) for number in range(VIEWS)]
    yield Step("pictures", given, [hashes], lambda: steps_head.divide(making))
    yield Step("network", [making.start_model], [making.features_model],
               lambda: steps_head.open_start(making))
    for number, path in enumerate(means):
        yield Step(f"means of view {number}", [hashes, making.features_model], [path],
                   lambda number=number: steps_head.keep_view(making, number))
    yield Step("labels", [*means, making.regions_file, holdback.CANDIDATES],
               [making.labels_file, work / "trials.json"], lambda: steps_head.try_labels(making))
    for name in ("proof", "final"):
        yield Step(f"last layer of the {name}", [*means, making.labels_file],
                   [making.layer_file(name)], lambda name=name: steps_head.teach(making, name))


def of_the_figures(making, compare):
    everyone = list(steps_measure.measured(making, compare))
    done = [steps_measure.answers_done(making, one) for one in everyone]
    for one, file in zip(everyone, done):
        yield Step(f"answers of {one.name}", [one.path, making.work / "hashes.npz"], [file],
                   lambda one=one: steps_measure.ask(making, one))
    told = [making.out / name for name in ("report.md", "sample_answers.csv")]
    yield Step("report", [*done, making.work / "trials.json"], told,
               lambda: steps_measure.tell(making, everyone))


def arguments():
    parser = argparse.ArgumentParser(
        description="Makes the classifier: model.onnx, labels.txt and report.md.")
    for name, what in (
            ("start", "folder of the start's model.onnx and labels.txt"),
            ("pictures", "folder of the pictures' archives and manifests"),
            ("teacher", "the detector that teaches the finder"),
            ("samples", "folder of the sample photographs and their answers.csv"),
            ("facts", "CSV of species with their families"),
            ("regions", "the program's table of regions"),
            ("work", "folder for what the steps leave"),
            ("out", "folder for the classifier and the report")):
        parser.add_argument(f"--{name}", type=Path, required=True, help=what)
    parser.add_argument("--compare", type=Path, help="another classifier to measure beside it")
    return parser.parse_args()


def main():
    given = arguments()
    torch.set_num_threads(1)
    making = Making(start=given.start, folder=given.pictures, teacher=given.teacher,
                    samples=given.samples, facts=given.facts, regions_file=given.regions,
                    work=given.work, out=given.out)
    steps.run(making_steps(making, given.compare))


if __name__ == "__main__":
    main()

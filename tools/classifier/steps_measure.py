"""The steps that measure: what each classifier answers to what is held back, and the report."""

import json
from functools import lru_cache

import numpy as np
import onnx

import answers
import report
import samples
import sets
from answers import Answered
from measure import Model


CELLS = "Right in first place / called at 0.5375 / right of the called, in %."


class Measured:
    """A classifier to measure: `name` heads its column, `path` is its model. `on` are the sets:
    "held", "samples" or both; the classifier to ship was taught on what is held back."""

    def __init__(self, name, path, on):
        self.name, self.path, self.on = name, path, on

    @property
    def labels(self):
        properties = onnx.load(str(self.path)).metadata_props
        text = next(entry.value for entry in properties if entry.key == "class_labels")
        return text.split("\n")


def measured(making, compare):
    """All classifiers that the report tells of, in the order of its columns."""
    both = ("held", "samples")
    yield Measured("start", making.start_model, both)
    if compare:
        yield Measured("compared", compare, both)
    yield Measured("proof", making.model_file("proof"), both)
    yield Measured("final", making.model_file("final"), ("samples",))


def answers_done(making, one):
    """A file that tells that the classifier was asked."""
    return making.work / "answers" / f"{one.name}.done"


def ask(making, one):
    """Keeps the classifier's answers to its sets."""
    chosen = [item for item in _all_sets(making) if _kind(item) in one.on]
    answers.keep(Model(one.name, one.path, one.labels), chosen, making.work)
    answers_done(making, one).touch()
    return f"{sum(len(item.labels) for item in chosen)} pictures"


def tell(making, everyone):
    """Writes the report, and what the classifier to ship answers to the samples."""
    columns = {one.name: one for one in everyone}
    labels = columns["proof"].labels
    tables = _Tables(making, columns)
    lines = ["# The classifier in figures", "", *_pictures(making), *_labels(making, labels),
             *_held(tables, columns["start"].labels, labels), *_by_size(tables, labels),
             *_strangers(tables, labels), *_samples(tables)]
    (making.out / "report.md").write_text("\n".join(lines), encoding="utf-8")
    samples.write_answers(making.out / "sample_answers.csv", samples.read_samples(making.samples),
                          np.load(answers.path_of(making.work, "final", "samples")),
                          columns["final"].labels)


class _Tables:
    """Tables of the figures of all classifiers that were asked, over rows of one set."""

    BOTH = (False, True)

    def __init__(self, making, columns):
        self.sets = {item.name: item for item in _all_sets(making)}
        self._making, self._columns = making, columns

    def known(self, name, rows, with_place=BOTH):
        return self._of(report.known_birds, name, rows, with_place)

    def reached(self, name, rows, with_place=BOTH):
        return self._of(report.reached, name, rows, with_place)

    def _of(self, table, name, rows, with_place):
        item = self.sets[name]
        answered = {
            column: Answered.kept(self._making.work, column, one.labels, item, self._making.regions)
            for column, one in self._columns.items() if _kind(item) in one.on}
        titles = {False: "without place", True: "with place"}
        return [line for placed in with_place
                for line in table(titles[placed], rows, answered, placed)]


def _held(tables, start_labels, labels):
    birds = tables.sets["birds"]
    return ["## Birds held back", "", CELLS, "",
            *tables.known("birds", report.kinds(birds, start_labels, labels)),
            "By part of the world, without the start's own sources:", "",
            *tables.known("birds", report.regions(birds, labels)),
            "By source:", "",
            *tables.known("birds", report.sources(birds, labels), with_place=[False])]


def _by_size(tables, labels):
    lines = ["## By the bird's size", "", "Birds held back, laid into scenes of other pictures, "
             "foliage, water or sky that are 1.5, 2.5 and 4 times as wide:", ""]
    for name, item in tables.sets.items():
        if name.startswith("small"):
            lines += tables.known(name, report.everything(item))
    boxes = tables.sets["boxes"]
    return [*lines, "Real scenes by the true box (their sources taught the start):", "",
            *tables.known("boxes", report.sizes(boxes, labels), with_place=[False])]


def _strangers(tables, labels):
    return ["## Birds without a label, and no birds", "",
            f"Shares that reach {report.level_names()}, in %.", "",
            *tables.reached("birds", report.strangers(tables.sets["birds"], labels)),
            *tables.reached("no birds", report.everything(tables.sets["no birds"]), [False])]


def _samples(tables):
    lines = ["## The sample photographs", "", "All count, those without a label as wrong; the small "
             "ones lie in a foreign scene four times as wide.", ""]
    for name in ("samples", "samples small"):
        lines += tables.known(name, report.everything(tables.sets[name]))
    return lines


def _pictures(making):
    sides, counts = np.unique(making.sides.astype(str), return_counts=True)
    told = ", ".join(f"{count} {side}" for side, count in zip(sides, counts))
    return [f"{len(making.pictures)} pictures: {told}. The column \"proof\" was taught without "
            "what is held back; the last layer of \"final\", which ships, on everything.", ""]


def _labels(making, labels):
    trials = json.loads((making.work / "trials.json").read_text(encoding="utf-8"))
    lines = [f"{len(labels)} labels. Those considered, with the share of their pictures named "
             "rightly in two rounds of folds:", "",
             "| species | pictures | right | looks like | that one right | label |",
             "|---|---|---|---|---|---|"]
    for one in trials:
        right, twin_right = (" / ".join(f"{100 * share:.0f} %" for share in one[key])
                             for key in ("right", "twin_right"))
        lines.append(f"| {one['species']} | {one['pictures']} | {right} | {one['looks_like']} "
                     f"| {twin_right} | {'yes' if one['earned'] else 'no'} |")
    return lines + [""]


def _kind(item):
    return "samples" if item.name.startswith("samples") else "held"


@lru_cache(maxsize=1)
def _all_sets(making):
    return [*sets.held_sets(making.pictures, making.sides),
            *sets.sample_sets(making.samples, making.pictures, making.sides)]

"""The steps that measure: what each classifier answers to the pictures held back, and the report."""

import json
from functools import lru_cache

import answers
import onnx
import report
import sets
from answers import Answered
from measure import Model


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
    """Writes the report."""
    by_name = {item.name: item for item in _all_sets(making)}
    columns = {one.name: one for one in everyone}
    start_labels, labels = columns["start"].labels, columns["proof"].labels

    def table(of, rows, make, with_place=(False, True)):
        answered = {name: Answered.kept(making.work, name, one.labels, of, making.regions)
                    for name, one in columns.items() if _kind(of) in one.on}
        for placed in with_place:
            yield from make("with place" if placed else "without place", rows, answered, placed)

    birds = by_name["birds"]
    known, reached = report.known_birds, report.reached
    lines = ["# The classifier in figures", "", *_pictures(making), *_labels(making, labels)]
    lines += ["## Birds held back", "", CELLS, ""]
    lines += table(birds, report.kinds(birds, start_labels, labels), known)
    lines += ["By part of the world, without the start's own sources:", ""]
    lines += table(birds, report.regions(birds, labels), known)
    lines += ["By source:", ""]
    lines += table(birds, report.sources(birds, labels), known, with_place=[False])
    lines += ["## By the bird's size", "", "Birds held back, laid into scenes 1.5, 2.5 and 4 times "
              "as wide:", ""]
    for name, item in by_name.items():
        if name.startswith("small"):
            lines += table(item, report.everything(item), known)
    lines += ["Real scenes by the true box (their sources taught the start):", ""]
    lines += table(by_name["boxes"], report.sizes(by_name["boxes"], labels), known, with_place=[False])
    lines += ["## Birds without a label, and no birds", "",
              f"Shares that reach {report.level_names()}, in %.", ""]
    lines += table(birds, report.strangers(birds, labels), reached)
    lines += table(by_name["no birds"], report.everything(by_name["no birds"]), reached, [False])
    lines += ["## The sample photographs", "", "All 96 count, those without a label as wrong.", ""]
    for name in ("samples", "samples small"):
        lines += table(by_name[name], report.everything(by_name[name]), known)
    (making.out / "report.md").write_text("\n".join(lines), encoding="utf-8")


CELLS = "Right in first place / called at 0.5375 / right of the called, in %."


def _pictures(making):
    taught = {side: sum(making.sides == side) for side in sorted(set(making.sides))}
    told = ", ".join(f"{count} {side}" for side, count in taught.items())
    return [f"{len(making.pictures)} pictures: {told}. The column \"proof\" was taught without what "
            "is held back; the last layer of \"final\", which ships, on everything.", ""]


def _labels(making, labels):
    trials = json.loads((making.work / "trials.json").read_text(encoding="utf-8"))
    lines = [f"{len(labels)} labels. Those considered, with the share of their pictures named "
             "rightly in two rounds of folds:", "", "| species | pictures | right | looks like | "
             "that one right | label |", "|---|---|---|---|---|---|"]
    for one in trials:
        own, twin = (" / ".join(f"{100 * share:.0f} %" for share in one[key])
                     for key in ("right", "twin_right"))
        lines.append(f"| {one['species']} | {one['pictures']} | {own} | {one['looks_like']} | {twin} "
                     f"| {'yes' if one['earned'] else 'no'} |")
    return lines + [""]


def _kind(item):
    return "samples" if item.name.startswith("samples") else "held"


@lru_cache(maxsize=1)
def _all_sets(making):
    return [*sets.held_sets(making.pictures, making.sides),
            *sets.sample_sets(making.samples, making.pictures, making.sides)]

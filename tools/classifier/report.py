"""The figures of a making, as Markdown."""

import numpy as np

from measure import LEVELS, reaching, tally
from places import read_source_places

# Rows of fewer pictures say nothing.
FEWEST = 10

# The true sizes of birds that are told apart, by the longer side of the box in parts of the square.
SIZES = ((0.0, 0.35), (0.35, 0.6), (0.6, 1.01))


def known_birds(title, rows, answered, with_place):
    """A table of Tallies: `rows` are pairs (what, mask of the set's pictures), `answered` the
    Answered of each classifier by name."""
    lines = [f"| {title} | n | " + " | ".join(answered) + " |",
             "|---|---|" + "---|" * len(answered)]
    for what, chosen in rows:
        cells, pictures = [], 0
        for one in answered.values():
            told = tally(*(one.placed(chosen) if with_place else one.alone(chosen)))
            pictures = told.pictures
            cells.append(_three(told))
        if pictures >= FEWEST:
            lines.append(f"| {what} | {pictures} | " + " | ".join(cells) + " |")
    return lines + [""]


def reached(title, rows, answered, with_place):
    """A table of the shares that reach each level: birds without a label, and no birds."""
    lines = [f"| {title} | n | " + " | ".join(answered) + " |",
             "|---|---|" + "---|" * len(answered)]
    for what, chosen in rows:
        cells, pictures = [], 0
        for one in answered.values():
            answers, _ = one.placed(chosen) if with_place else one.alone(chosen)
            pictures = len(answers)
            cells.append(" / ".join(_percent(share) for share in reaching(answers)))
        lines.append(f"| {what} | {pictures} | " + " | ".join(cells) + " |")
    return lines + [""]


def kinds(of, start_labels, labels):
    """Rows of a set of birds: by what the start knew of them."""
    label = np.array([one or "" for one in of.labels])
    known = np.isin(label, start_labels)
    added = np.isin(label, labels) & ~known
    return [("labels of the start", known & ~of.seen),
            ("the same, of sources that taught the start", known & of.seen),
            ("added labels", added)]


def regions(of, labels):
    """Rows of a set of birds with a label: by the part of the world."""
    parts = read_source_places()
    part = np.array([parts.get(source, ("", None))[0] for source in of.sources])
    known = np.isin(np.array([one or "" for one in of.labels]), labels) & ~of.seen
    return [(name, known & (part == name)) for name in sorted(set(part) - {""})]


def sources(of, labels):
    """Rows of a set of birds with a label: by source."""
    source = np.array(of.sources)
    known = np.isin(np.array([one or "" for one in of.labels]), labels)
    return [(name, known & (source == name)) for name in sorted(set(source))]


def sizes(of, labels):
    """Rows of a set with true boxes: the birds with a label by their size."""
    known = np.isin(np.array([one or "" for one in of.labels]), labels)
    side = np.where(known, np.array(of.sides, float), np.nan)
    return [(f"{round(100 * low)} to {round(100 * min(high, 1))} % of the side",
             (side >= low) & (side < high)) for low, high in SIZES]


def everything(of):
    return [(of.name, np.ones(len(of.labels), bool))]


def strangers(of, labels):
    """Rows of a set of birds: those whose species has no label."""
    return [("birds without a label", ~np.isin(np.array([one or "" for one in of.labels]), labels))]


def level_names():
    return " / ".join(f"{level:g}" for level in LEVELS)


def _three(told):
    return " / ".join(_percent(share)
                      for share in (told.right, told.called, told.right_of_called))


def _percent(share):
    return "-" if np.isnan(share) else f"{100 * share:.1f}"

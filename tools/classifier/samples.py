"""The sample photographs: full scenes that no training saw, as people take them.

They are measured as they are, and laid small into scenes of another place: then the bird is as
small as it is without a long lens.
"""

import csv
from dataclasses import dataclass
from pathlib import Path

# Where the samples are taken for: the photographs are of northern Europe's birds.
PLACE = (60.0, 15.0)

# How much smaller the photograph lies in the foreign scene, by side.
SHRUNK = 4


@dataclass(frozen=True)
class Sample:
    path: Path
    label: str


def read_samples(folder):
    """The photographs below `folder`, as its answers.csv names them."""
    folder = Path(folder)
    with open(folder / "answers.csv", newline="", encoding="utf-8") as file:
        return [Sample(folder / "photos" / row["file"], row["scientific_name"].replace(" ", "_"))
                for row in csv.DictReader(file)]


def write_answers(path, samples, answers, labels):
    """Writes the best label of each sample and its share, from `answers` [samples, labels]. The
    program's own tests compare theirs with it (tests/support/sample_answers.csv)."""
    best = answers.argmax(axis=1)
    rows = sorted((sample.path.name, labels[label], f"{row[label]:.4f}")
                  for sample, row, label in zip(samples, answers, best))
    with open(path, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerows([("file", "label", "confidence"), *rows])

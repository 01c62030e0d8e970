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

"""What a place does to the answers: labels that no list of the place holds weigh less.

The lists are the program's own table of regions, each a box of latitudes and longitudes with the
labels that live there; a place in several boxes has the labels of them all, a place in none says
nothing.
"""

import csv
import json
from pathlib import Path

import numpy as np

# The weight of a label outside the place's lists, as the program gives it.
OFF_RANGE_WEIGHT = 0.15

SOURCE_PLACES = Path(__file__).resolve().parent / "source_places.csv"


def read_regions(path):
    """The regions of the program's table, as dictionaries."""
    with open(path, encoding="utf-8") as file:
        return json.load(file)["regions"]


def read_source_places(path=SOURCE_PLACES):
    """Where a source's pictures were mostly taken: its name to (part of the world, (latitude,
    longitude) in degrees). Sources from all over the world are not in it."""
    with open(path, newline="", encoding="utf-8") as file:
        return {row["source"]: (row["region"], (float(row["latitude"]), float(row["longitude"])))
                for row in csv.DictReader(file)}


def weights(place, labels, regions):
    """The factor of each label at `place` (latitude, longitude): float32 [labels].

    A label that no region of the whole table holds keeps 1: it has no list to be outside of.
    """
    lists = [region["labels"] for region in regions if _holds(region, place)]
    living = set().union(*lists)
    listed = set().union(*(region["labels"] for region in regions)) if lists else set()
    return np.array([OFF_RANGE_WEIGHT if label in listed and label not in living else 1.0
                     for label in labels], np.float32)


def placed(probabilities, factors):
    """The probabilities [..., labels] with the factors of their place, summing to 1 again."""
    weighed = probabilities * factors
    return weighed / weighed.sum(axis=-1, keepdims=True)


def _holds(region, place):
    return all(low <= value <= high for (low, high), value
               in zip((region["latitudes"], region["longitudes"]), place))

"""What the builders of the data tables share: files, regions, and the way they refuse."""

import argparse
import csv
import json
import sys
from dataclasses import dataclass
from pathlib import Path

HERE = Path(__file__).resolve().parent
BUNDLE = HERE.parents[1] / "core" / "resources" / "OrnivoCore_OrnivoCore.bundle"


class Refusal(Exception):
    """A check that failed, told in one sentence."""


def require(condition, sentence):
    """Refuses with the sentence unless the condition holds."""
    if not condition:
        raise Refusal(sentence)


def read_csv(path):
    """The rows of a CSV file as dictionaries of texts. "NA" stays Namibia."""
    with open(path, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))


def read_json(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def model_labels(bundle=BUNDLE):
    """The labels of the shipped classifier, with their common names, in the file's order."""
    return read_json(bundle / "bird_common_names.json")


def write_text(path, text):
    path.write_text(text, encoding="utf-8", newline="\n")


def compact(value):
    """JSON on one line."""
    return json.dumps(value, ensure_ascii=False)


def lines_by_initial(labels, indent):
    """A JSON array of labels with one line for each initial letter, so that a changed label
    changes one line."""
    lines = {}
    for label in sorted(labels):
        lines.setdefault(label[0], []).append(compact(label))
    return "[\n" + ",\n".join(" " * indent + ",".join(line) for line in lines.values()) + "]"


def words(text):
    """The words of a cell that holds several."""
    return text.split()


@dataclass(frozen=True)
class Region:
    """A row of regions.csv. A region with members stands for a whole country or continent: its
    labels are those of its members, and its box is a small field that a typed country leads to."""

    code: str
    id: str
    name: str
    south: float
    north: float
    west: float
    east: float
    refines: str
    countries: tuple  # wholly or mostly inside: a bird of the country is a bird of the region
    parts: tuple  # partly inside
    states: tuple  # ISO 3166-2, where the facts tell states
    members: str

    def holds(self, latitude, longitude):
        return self.south <= latitude <= self.north and self.west <= longitude <= self.east

    def overlaps(self, south, north, west, east):
        return (
            south <= self.north
            and north >= self.south
            and west <= self.east
            and east >= self.west
        )

    def area(self):
        return (self.north - self.south) * (self.east - self.west)

    def centre(self):
        return (self.south + self.north) * 0.5, (self.west + self.east) * 0.5


def region_from(row):
    """A region from a row of regions.csv."""
    try:
        bounds = [float(row[key]) for key in ("south", "north", "west", "east")]
    except ValueError:
        raise Refusal(f"The bounds of region {row['id']} are not numbers.") from None
    return Region(
        row["code"],
        row["id"],
        row["name"],
        *bounds,
        row["refines"],
        tuple(words(row["countries"])),
        tuple(words(row["parts"])),
        tuple(words(row["states"])),
        row["members"],
    )


def check_regions(regions):
    """Refuses what the program would refuse of a region, and links that lead nowhere."""
    ids = [region.id for region in regions]
    codes = [region.code for region in regions]
    for value in ids + codes:
        require(
            ids.count(value) <= 1 and codes.count(value) <= 1, f"Region {value} is there twice."
        )
    require("indian-subcontinent" in ids, 'Region "indian-subcontinent" is missing.')
    for region in regions:
        require(
            -90 <= region.south < region.north <= 90 and -180 <= region.west < region.east <= 180,
            f"Region {region.id} has invalid bounds.",
        )
        require(
            not region.refines or (region.refines in ids and region.refines != region.id),
            f"Region {region.id} refines {region.refines}, which is no other region.",
        )


def read_regions(folder=HERE):
    """The checked regions of regions.csv, in the order in which they are listed."""
    regions = [region_from(row) for row in read_csv(folder / "regions.csv")]
    check_regions(regions)
    return regions


class Expressions:
    """Reads lists of regions as they stand in the tables: codes and names of groups, a leading
    "-" takes away, from left to right."""

    def __init__(self, regions, groups):
        self._known = {region.code: frozenset([region.code]) for region in regions}
        for name, expression in groups:
            require(name not in self._known, f"Group {name} is there twice.")
            self._known[name] = self.evaluate(expression, f"group {name}")

    def evaluate(self, expression, where, start=frozenset()):
        """The codes that the expression leads to from the start; `where` names its place."""
        codes = set(start)
        for word in words(expression):
            name = word.removeprefix("-")
            require(name in self._known, f"{name} in {where} is no region and no group.")
            if word.startswith("-"):
                codes -= self._known[name]
            else:
                codes |= self._known[name]
        return frozenset(codes)


def read_expressions(regions, folder=HERE):
    rows = read_csv(folder / "region_groups.csv")
    return Expressions(regions, [(row["group"], row["regions"]) for row in rows])


def facts_parser(description):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("facts", type=Path, help="the folder with the collected facts")
    parser.add_argument(
        "--output", type=Path, default=BUNDLE, help="where the table goes; the bundle by default"
    )
    return parser


def run(main):
    """Runs a builder; a failed check ends it with its sentence."""
    try:
        main()
    except Refusal as refusal:
        sys.exit(str(refusal))
    except FileNotFoundError as error:
        sys.exit(f"{error.filename} is missing.")

"""What the facts say of a label of the classifier."""

from dataclasses import dataclass

from common import Refusal, read_csv, require

# How a name was matched to today's species, where that can be relied on. "epithet" and "lump" are
# automatic guesses.
TRUSTED_MATCHES = frozenset(["name", "code", "english", "syn", "avibase", "manual"])


@dataclass(frozen=True)
class Extents:
    """South, north, west and east bounds of a range, in degrees."""

    south: float
    north: float
    west: float
    east: float


@dataclass(frozen=True)
class SpeciesFacts:
    label: str
    countries: frozenset  # native, regular or introduced; ISO 3166-1 alpha-2
    states: frozenset  # ISO 3166-2 of India
    extents: Extents | None  # absent where unknown or where the label covers several species
    months: frozenset  # 1 to 12
    weak: bool  # the list of countries rests on range phrases and includes too much


def semicolons(text):
    return frozenset(part.strip() for part in text.split(";") if part.strip())


def months_of(text):
    """The months of "3-9;12", of "10-3" or of ""."""
    months = set()
    for part in semicolons(text.replace(",", ";")):
        first, _, last = part.partition("-")
        month, end = int(first), int(last or first)
        require(1 <= month <= 12 and 1 <= end <= 12, f"{part} is no span of months.")
        months.add(month)
        while month != end:
            month = month % 12 + 1
            months.add(month)
    return frozenset(months)


def extents_of(row):
    values = [row[key] for key in ("lat_south", "lat_north", "lon_west", "lon_east")]
    return Extents(*map(float, values)) if all(values) else None


def states_of(text):
    """The codes of "IN-KL:resident;IN-TN"."""
    return frozenset(part.split(":")[0] for part in semicolons(text))


class FactsTable:
    """The facts about all birds, found by the classifier's labels."""

    def __init__(self, species, names, splits):
        self._species = {row["label"]: row for row in species}
        self._current = {
            row["any_scientific_name"].replace(" ", "_"): row["label"]
            for row in names
            if row["match"] in TRUSTED_MATCHES
        }
        self._splits = {}
        for row in splits:
            self._splits.setdefault(row["pre_split_label"], []).append(row)

    def resolve(self, label):
        """Today's label of the species that the label names."""
        if label in self._species:
            return label
        current = self._current.get(label)
        if current not in self._species:
            raise Refusal(f"The facts know no species {label}, or only by a guess.")
        return current

    def daughters(self, label):
        """The species that were split off the label. Those of another genus were matched by the
        epithet alone and don't count."""
        genus = label.split("_")[0]
        names = set()
        for row in self._splits.get(label, []):
            names |= semicolons(row["daughter_species_2025"])
        return sorted(name.replace(" ", "_") for name in names if name.split(" ")[0] == genus)

    def of(self, label):
        own = self._species[self.resolve(label)]
        daughters = [self._species[self.resolve(name)] for name in self.daughters(label)]
        rows = [own] + daughters
        return SpeciesFacts(
            label,
            frozenset().union(
                *(semicolons(row["countries"]) for row in rows),
                *(semicolons(row["countries_introduced"]) for row in rows),
            ),
            frozenset().union(*(states_of(row["in_states"]) for row in rows)),
            None if daughters else extents_of(own),
            frozenset().union(
                *(months_of(row["months_breeding_range"]) for row in rows),
                *(months_of(row["months_nonbreeding_range"]) for row in rows),
            ),
            any("text" in row["country_source"] for row in rows),
        )


def read_facts(folder):
    """The table of a folder of facts."""
    return FactsTable(
        read_csv(folder / "master.csv"),
        read_csv(folder / "names_lookup.csv"),
        read_csv(folder / "label_splits.csv"),
    )



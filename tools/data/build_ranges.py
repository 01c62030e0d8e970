#!/usr/bin/env python3
"""Builds range_regions.json: which birds live in which part of the world.

A bird belongs to a region when it lives in one of the region's countries. Inside a country that
several regions share, the states decide where the facts tell them, and otherwise the bounds of the
bird's range. range_corrections.csv mends what that gets wrong.
"""

import statistics

from common import (
    HERE,
    compact,
    facts_parser,
    lines_by_initial,
    model_labels,
    read_csv,
    read_expressions,
    read_regions,
    require,
    run,
    write_text,
)
from species_facts import read_facts

VERSION = 1
SOURCE = (
    "Ornivo's own table, by countries and range bounds from rangeBuilder, AVONET, the IOC World "
    "Bird List 15.1, AviList v2025 and State of India's Birds, corrected by hand"
)


def shares(region, country, facts):
    """Whether the bird of a shared country lives in the region's part of it."""
    prefix = country + "-"
    told = {state for state in facts.states if state.startswith(prefix)}
    own = {state for state in region.states if state.startswith(prefix)}
    if told and own:
        return bool(told & own)
    if facts.extents is None:
        return True
    bounds = facts.extents
    return region.overlaps(bounds.south, bounds.north, bounds.west, bounds.east)


def regions_by_facts(regions, facts):
    """The codes of the regions in which the facts place a bird."""
    return frozenset(
        region.code
        for region in regions
        if not region.members
        and (
            facts.countries.intersection(region.countries)
            or any(
                shares(region, country, facts)
                for country in facts.countries.intersection(region.parts)
            )
        )
    )


def read_corrections(folder, labels):
    """The corrections by label. A row that is not needed any more, or names an unknown label, is
    refused rather than kept."""
    corrections = {}
    for row in read_csv(folder / "range_corrections.csv"):
        label = row["label"]
        require(label in labels, f"range_corrections.csv names {label}, unknown to the model.")
        require(label not in corrections, f"range_corrections.csv names {label} twice.")
        require(row["how"] in ("only", "adjust"), f"The correction of {label} has no known how.")
        require(row["reason"].isalpha(), f"The correction of {label} has no one-word reason.")
        corrections[label] = row
    return corrections


def corrected(label, by_facts, corrections, expressions):
    """The codes of a label's regions after its correction."""
    row = corrections.get(label)
    if row is None:
        return by_facts
    start = by_facts if row["how"] == "adjust" else frozenset()
    return expressions.evaluate(row["regions"], f"the correction of {label}", start)


def labels_by_region(regions, ranges, expressions):
    """The set of labels of each region, by code, from the set of codes of each label."""
    table = {region.code: set() for region in regions}
    for label, codes in ranges.items():
        for code in codes:
            table[code].add(label)
    for region in regions:
        if region.members:
            members = expressions.evaluate(region.members, f"the members of {region.id}")
            table[region.code] = set().union(*(table[code] for code in members))
    return table


def check_table(regions, table, labels):
    """Refuses a table that the program couldn't use in full."""
    for region in regions:
        require(table[region.code], f"Region {region.id} has no labels.")
        for label in sorted(table[region.code]):
            require(label in labels, f"Region {region.id} holds {label}, unknown to the model.")
    placed = set().union(*table.values())
    for label in labels:
        require(label in placed, f"{label} is in no region.")


def region_text(region, labels, country_names):
    """One region of the file."""
    head = {
        "id": region.id,
        "name": region.name,
        "countries": [country_names[code] for code in region.countries + region.parts],
        "latitudes": [region.south, region.north],
        "longitudes": [region.west, region.east],
    }
    if region.refines:
        head["refines"] = region.refines
    return f'{compact(head)[:-1]},\n  "labels": {lines_by_initial(labels, 4)}}}'


def table_text(regions, table, country_names):
    blocks = [region_text(region, table[region.code], country_names) for region in regions]
    head = f'{{"version": {VERSION},\n"source": {compact(SOURCE)},\n"regions": [\n'
    return head + ",\n".join(blocks) + "\n]}\n"


def report(regions, table, ranges, by_facts):
    sizes = [len(table[region.code]) for region in regions]
    fine = [len(table[region.code]) for region in regions if not region.members]
    changed = sum(ranges[label] != by_facts[label] for label in ranges)
    print(
        f"{len(regions)} regions ({len(fine)} fine); labels per region {min(sizes)} to "
        f"{max(sizes)}, median of the fine ones {statistics.median(fine):g}; "
        f"{changed} of {len(ranges)} labels corrected by hand"
    )


def main():
    arguments = facts_parser(__doc__.splitlines()[0]).parse_args()
    labels = model_labels()
    regions = read_regions()
    expressions = read_expressions(regions)
    corrections = read_corrections(HERE, labels)
    country_names = {row["code"]: row["name"] for row in read_csv(HERE / "countries.csv")}
    facts = read_facts(arguments.facts)

    by_facts = {label: regions_by_facts(regions, facts.of(label)) for label in labels}
    ranges = {
        label: corrected(label, by_facts[label], corrections, expressions) for label in labels
    }
    table = labels_by_region(regions, ranges, expressions)
    check_table(regions, table, labels)
    write_text(arguments.output / "range_regions.json", table_text(regions, table, country_names))
    report(regions, table, ranges, by_facts)


if __name__ == "__main__":
    run(main)

#!/usr/bin/env python3
"""Builds season_months.json: which birds people may meet in which month, anywhere.

The table knows no places, so a bird that leaves its breeding grounds stays in: it is photographed
where it winters. Left out are only the months of seasons.csv, in which the whole of a species is
where hardly anybody sees it.
"""

from common import (
    HERE,
    compact,
    facts_parser,
    lines_by_initial,
    model_labels,
    read_csv,
    require,
    run,
    write_text,
)
from species_facts import months_of, read_facts

VERSION = 1
SOURCE = "Ornivo's own table, by the migration classes of AVONET, corrected by hand"
YEAR = range(1, 13)


def read_absences(folder, labels):
    """The months in which a label is left out."""
    absences = {}
    for row in read_csv(folder / "seasons.csv"):
        label = row["label"]
        require(label in labels, f"seasons.csv names {label}, unknown to the model.")
        require(label not in absences, f"seasons.csv names {label} twice.")
        require(row["reason"].isalpha(), f"The season of {label} has no one-word reason.")
        absences[label] = months_of(row["absent"])
    return absences


def months_by_facts(facts):
    """The months in which the facts have the bird somewhere; all where they don't say."""
    return facts.months or frozenset(YEAR)


def labels_by_month(months_by_label, absences):
    """The sets of labels by month."""
    nothing = frozenset()
    return {
        month: {
            label
            for label, months in months_by_label.items()
            if month in months and month not in absences.get(label, nothing)
        }
        for month in YEAR
    }


def check_table(table, labels):
    """Refuses a calendar with holes."""
    require(sorted(table) == list(YEAR), "The calendar does not have exactly twelve months.")
    for month in YEAR:
        require(table[month], f"Month {month} has no labels.")
        for label in sorted(table[month]):
            require(label in labels, f"Month {month} holds {label}, unknown to the model.")
    seen = set().union(*table.values())
    for label in labels:
        require(label in seen, f"{label} is in no month.")


def table_text(table):
    months = [f'"{month}": {lines_by_initial(table[month], 2)}' for month in YEAR]
    head = f'{{"version": {VERSION},\n"source": {compact(SOURCE)},\n"months": {{\n'
    return head + ",\n".join(months) + "\n}}\n"


def main():
    arguments = facts_parser(__doc__.splitlines()[0]).parse_args()
    labels = model_labels()
    facts = read_facts(arguments.facts)
    months = {label: months_by_facts(facts.of(label)) for label in labels}
    table = labels_by_month(months, read_absences(HERE, labels))
    check_table(table, labels)
    write_text(arguments.output / "season_months.json", table_text(table))
    left_out = sum(len(labels) - len(names) for names in table.values())
    print(f"12 months, {left_out} times a label is left out of one")


if __name__ == "__main__":
    run(main)

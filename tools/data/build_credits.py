#!/usr/bin/env python3
"""Builds credits.json: whose photographs, software and facts the application rests on.

The names of the photographers come from --roster, a file with one on each line. Without it nobody is
named, and the roster is pending. --doi tells under which DOI the training pictures are registered
with GBIF.
"""

import re
from pathlib import Path

from common import (
    HERE,
    compact,
    facts_parser,
    read_csv,
    require,
    run,
    write_text,
)

VERSION = 1
FACTS_DATE = "2026-11-22"  # of the collected facts; --generated sets another
NOTE = (
    "The classifier grew out of the openly licensed on-device network of google-coral/test_data, "
    "itself trained on photographs shared by naturalists on iNaturalist. These pictures trained "
    "it further: the first five sources its whole network, the others its last layer, and all "
    "of them the part that finds the bird. Not all of them carry an open licence: the terms are "
    "given as published, and where none were published, that is said. None of the pictures is "
    "shipped."
)
UNREGISTERED = (
    "No derived dataset was registered with GBIF, and so there is no DOI to cite: the training "
    "pictures came from the sources listed here, not from a GBIF download."
)
REGISTERED = "The training pictures are registered with GBIF as a derived dataset."
SOURCE_TEXTS = ("id", "name", "holder")
COMPONENT_TEXTS = ("name", "role", "holder", "license", "citation", "url")


def licences_of(text):
    """The numbers of images by licence of "CC0=3|none stated=4"."""
    licences = {}
    for part in filter(None, text.split("|")):
        name, _, number = part.rpartition("=")
        require(
            name and number.isdigit() and name not in licences, f"{part} is no number of images."
        )
        licences[name] = int(number)
    return licences


def source_from(row):
    """A source of photographs, as in the file."""
    for key in SOURCE_TEXTS:
        require(row[key], f"A source of photographs has no {key}.")
    require(row["images"].isdigit(), f"Source {row['id']} has no number of images.")
    images = int(row["images"])
    licences = licences_of(row["licenses"])
    require(
        sum(licences.values()) == images,
        f"The licences of source {row['id']} do not add up to its {images} images.",
    )
    return {key: row[key] for key in (*SOURCE_TEXTS, "url")} | {
        "images": images,
        "licenses": licences,
    }


def component_from(row):
    """A component, as in the file."""
    for key in COMPONENT_TEXTS:
        require(row[key], f"Component {row['name'] or '?'} has no {key}.")
    return {key: row[key] for key in COMPONENT_TEXTS}


def check_no_doubles(records, key):
    values = [record[key] for record in records]
    for value in values:
        require(values.count(value) == 1, f"{value} is credited twice.")


def check_facts(rows, readme):
    """Refuses a source of facts that the facts don't name under that name."""
    for row in rows:
        name = row["facts_name"]
        require(not name or name in readme, f"The facts do not name {name} as their source.")


def names_of(text):
    """The names of a roster, in its order."""
    names = [line.strip() for line in text.splitlines() if line.strip()]
    require(names, "The roster names nobody.")
    return names


def citation_of(doi):
    """How to cite the training pictures; `doi` is empty where they have none."""
    require(not doi or re.fullmatch(r"10\.\d{4,9}/\S+", doi), f"{doi} is no DOI.")
    return {"doi": doi, "text": REGISTERED if doi else UNREGISTERED}


def payload(sources, components, generated, photographers=(), doi=""):
    """The whole file. Without `photographers` the roster is pending."""
    check_no_doubles(sources, "id")
    check_no_doubles(components, "name")
    return {
        "version": VERSION,
        "generated": generated,
        "roster_status": "complete" if photographers else "pending",
        "training": {
            "images_total": sum(source["images"] for source in sources),
            "sources": sources,
            "note": NOTE,
        },
        "gbif_citation": citation_of(doi),
        "components": components,
        "photographers": list(photographers),
    }


def lines_of(records):
    """An array with one record on each line."""
    return "[\n" + ",\n".join(map(compact, records)) + "\n]"


def payload_text(credits):
    """The file, one member, source or component on each line."""
    training = credits["training"]
    training_text = (
        f'{{"images_total": {training["images_total"]},\n'
        f'"sources": {lines_of(training["sources"])},\n'
        f'"note": {compact(training["note"])}}}'
    )
    texts = {key: compact(value) for key, value in credits.items()} | {
        "training": training_text,
        "components": lines_of(credits["components"]),
    }
    return "{" + ",\n".join(f'"{key}": {text}' for key, text in texts.items()) + "}\n"


def main():
    parser = facts_parser(__doc__.splitlines()[0])
    parser.add_argument("--generated", default=FACTS_DATE, help="the date told in the file")
    parser.add_argument("--roster", type=Path, help="the photographers' names, one on each line")
    parser.add_argument("--doi", default="", help="the DOI of the training pictures")
    arguments = parser.parse_args()
    component_rows = read_csv(HERE / "credits_components.csv")
    check_facts(component_rows, (arguments.facts / "README.md").read_text(encoding="utf-8"))
    credits = payload(
        [source_from(row) for row in read_csv(HERE / "credits_sources.csv")],
        [component_from(row) for row in component_rows],
        arguments.generated,
        names_of(arguments.roster.read_text(encoding="utf-8")) if arguments.roster else (),
        arguments.doi,
    )
    write_text(arguments.output / "credits.json", payload_text(credits))
    print(
        f"{credits['training']['images_total']} training images of "
        f"{len(credits['training']['sources'])} sources, {len(credits['components'])} components, "
        f"{len(credits['photographers'])} photographers"
    )


if __name__ == "__main__":
    run(main)

#!/usr/bin/env python3
"""Builds places.json: the places people type, each with its point and its region.

The program takes the first place that fits what was typed, so the order matters: countries, the
states of large countries, places added by hand, large cities, places that birders know, other
cities, other provinces.
"""

import math
import re
import unicodedata
from dataclasses import dataclass, replace

from common import (
    HERE,
    Refusal,
    compact,
    facts_parser,
    read_csv,
    read_json,
    read_regions,
    require,
    run,
    write_text,
)

FEWEST_PLACES = 2500
MUST_RESOLVE = ("Kerala", "Ladakh", "Bangalore")
LARGE_COUNTRIES = frozenset("US CA AU IN BR MX CN RU ZA AR ID".split())
LARGE_CITIES = 600  # so many cities of the facts, which begin with the largest, come early
SAME_PLACE = 0.5  # degrees within which two places of one name are one place
RUN_OF_ISLANDS = re.compile(r"[A-Z]{3}-\d\d")  # Natural Earth's numbers for unnamed islands
KINDS = ("country", "state", "birding", "city")


@dataclass(frozen=True)
class Place:
    kind: str
    name: str
    country: str  # empty for what is no part of one country
    latitude: float
    longitude: float
    region: str  # an id; empty until it is chosen
    aliases: tuple = ()
    by_hand: bool = False


def normal_form(text):
    """The form in which the program compares place names."""
    decomposed = unicodedata.normalize("NFD", text.casefold())
    letters = "".join(sign for sign in decomposed if not unicodedata.combining(sign))
    spaced = "".join(sign if sign.isalnum() else " " for sign in letters.replace("&", "and"))
    return " ".join(spaced.split())


PLAIN_LETTERS = str.maketrans(
    {"ø": "o", "Ø": "O", "đ": "d", "Đ": "D", "ð": "d", "Ð": "D", "ł": "l", "Ł": "L"}
    | {"æ": "ae", "Æ": "Ae", "œ": "oe", "Œ": "Oe", "þ": "th", "Þ": "Th", "ə": "a", "Ə": "A"}
    | {"ħ": "h", "Ħ": "H", "ı": "i", "‘": "'", "’": "'", "ʻ": "'"}
)


def tidy(text):
    """A text without invisible signs and doubled blanks."""
    visible = "".join(sign for sign in text if unicodedata.category(sign) != "Cf")
    return " ".join(visible.split())


def useful_aliases(name, aliases, taken):
    """The aliases that say something new: the name in plain letters where folding doesn't give
    it, and what is neither the name again nor the name of another place."""
    kept = {}
    for alias in [name.translate(PLAIN_LETTERS), *aliases]:
        form = normal_form(alias)
        if len(form) > 1 and form != normal_form(name) and form not in taken:
            kept.setdefault(form, tidy(alias))
    return tuple(kept.values())


def place_from_draft(row):
    require(row["kind"] in KINDS, f"{row['name']} is of no known kind, {row['kind']}.")
    return Place(
        row["kind"],
        tidy(row["name"]),
        row["country"],
        row["latitude"],
        row["longitude"],
        "",
        tuple(row["aliases"]),
    )


def named_countries(places, countries):
    """The countries under the names and aliases of countries.csv."""
    for place in places:
        if place.kind != "country" or place.country not in countries:
            yield place
            continue
        row = countries[place.country]
        aliases = tuple(alias for alias in row["aliases"].split("|") if alias)
        yield replace(place, name=row["name"], aliases=aliases)


def key_of(row):
    return row["kind"], row["name"], row["country"]


def mended(place, row):
    """A place with what its row says; "-" before an alias takes that one away."""
    aliases = list(place.aliases)
    for alias in filter(None, row["aliases"].split("|")):
        if alias.startswith("-"):
            require(alias[1:] in aliases, f"{place.name} has no alias {alias[1:]} to take away.")
            aliases.remove(alias[1:])
        else:
            aliases.append(alias)
    return replace(
        place,
        name=row["as"] or place.name,
        latitude=float(row["latitude"] or place.latitude),
        longitude=float(row["longitude"] or place.longitude),
        region=row["region"],
        aliases=tuple(aliases),
    )


def added(row):
    require(row["latitude"] and row["longitude"], f"The added place {row['name']} has no point.")
    blank = Place(row["kind"], row["name"], row["country"], 0.0, 0.0, "", by_hand=True)
    return mended(blank, row)


def with_corrections(places, rows):
    """The places after the rows of places.csv. A row that finds no place is refused."""
    drops = {key_of(row) for row in rows if row["how"] == "drop"}
    mends = {key_of(row): row for row in rows if row["how"] == "mend"}
    found = set()
    result = []
    for place in places:
        key = (place.kind, place.name, place.country)
        require(key not in mends or key not in found, f"{place.name} is there twice to mend.")
        found.add(key)
        if key not in drops:
            result.append(mended(place, mends[key]) if key in mends else place)
    for row in rows:
        require(row["how"] in ("add", "mend", "drop"), f"{row['name']} has no known how.")
        require(
            row["how"] == "add" or key_of(row) in found,
            f"places.csv corrects {row['name']}, which is no {row['kind']} of the facts.",
        )
    return result + [added(row) for row in rows if row["how"] == "add"]


def is_real(place):
    return not RUN_OF_ISLANDS.match(place.name) and normal_form(place.name)


def with_region(place, regions):
    """The place in its region: the named one, or the smallest that holds the point, one of the
    place's own country before others. A region for a whole country sets the point too."""
    if place.region:
        named = [region for region in regions if region.id == place.region]
        require(named, f"{place.name} lies in {place.region}, which is no region.")
        if named[0].members:
            latitude, longitude = named[0].centre()
            return replace(place, latitude=round(latitude, 4), longitude=round(longitude, 4))
        return place
    holding = [
        region
        for region in regions
        if not region.members and region.holds(place.latitude, place.longitude)
    ]
    require(holding, f"{place.name} ({place.country}) lies in no region.")
    best = min(
        holding,
        key=lambda region: (place.country not in region.countries + region.parts, region.area()),
    )
    return replace(place, region=best.id)


def ordered(places):
    """The places in the order in which they win ties."""
    cities = [place for place in places if place.kind == "city" and not place.by_hand]
    ranks = {place: LARGE_CITIES <= index for index, place in enumerate(cities)}

    def rank(place):
        if place.kind == "country":
            return 0
        if place.kind == "state":
            return 1 if place.country in LARGE_COUNTRIES else 6
        if place.by_hand:
            return 2
        if place.kind == "birding":
            return 4
        return 5 if ranks[place] else 3

    return sorted(places, key=rank)


def without_doubles(places):
    """The places without those that stand earlier already, under one name and nearby."""
    seen = {}
    kept = []
    for place in places:
        form = normal_form(place.name)
        near = any(
            math.dist((place.latitude, place.longitude), other) < SAME_PLACE
            for other in seen.get(form, [])
        )
        seen.setdefault(form, []).append((place.latitude, place.longitude))
        if not near:
            kept.append(place)
    return kept


def with_useful_aliases(places):
    names = {normal_form(place.name) for place in places}
    return [
        replace(place, aliases=useful_aliases(place.name, place.aliases, names))
        for place in places
    ]


def resolves(text, places):
    """The place that the program finds for the exact name or alias, or None."""
    form = normal_form(text)
    for place in places:
        if normal_form(place.name) == form:
            return place
    for place in places:
        if form in map(normal_form, place.aliases):
            return place
    return None


def check_places(places, regions):
    """Refuses places that the program couldn't use, and a list that is too short."""
    by_id = {region.id: region for region in regions}
    for place in places:
        region = by_id.get(place.region)
        require(region, f"{place.name} lies in {place.region}, which is no region.")
        require(
            region.holds(place.latitude, place.longitude),
            f"{place.name} ({place.country}) lies outside the box of {place.region}.",
        )
    require(len(places) >= FEWEST_PLACES, f"{len(places)} places are too few.")
    for name in MUST_RESOLVE:
        if resolves(name, places) is None:
            raise Refusal(f"{name} does not resolve.")


def place_text(place):
    """One place on one line, the point to about a hundred metres."""
    record = {
        "name": place.name,
        "latitude": round(place.latitude, 3),
        "longitude": round(place.longitude, 3),
        "regionID": place.region,
    }
    if place.aliases:
        record["aliases"] = list(place.aliases)
    return compact(record)


def places_of(draft, countries, rows, regions):
    """The finished list."""
    places = [place_from_draft(row) for row in draft]
    places = with_corrections(list(named_countries(places, countries)), rows)
    places = [with_region(place, regions) for place in places if is_real(place)]
    return with_useful_aliases(without_doubles(ordered(places)))


def main():
    arguments = facts_parser(__doc__.splitlines()[0]).parse_args()
    regions = read_regions()
    countries = {row["code"]: row for row in read_csv(HERE / "countries.csv")}
    draft = read_json(arguments.facts / "places_draft.json")
    places = places_of(draft, countries, read_csv(HERE / "places.csv"), regions)
    check_places(places, regions)
    text = '{"places": [\n' + ",\n".join(map(place_text, places)) + "\n]}\n"
    write_text(arguments.output / "places.json", text)
    print(f"{len(places)} places, {sum(len(place.aliases) for place in places)} aliases")


if __name__ == "__main__":
    run(main)

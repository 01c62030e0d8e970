"""Which pictures train and which are held back to measure: a fixed rule, so that no figure is ever
taken from a picture that taught.

* Birds of a species that has or may get a label go by species and source together: all its pictures
  from one source stand on one side. A hash of the two decides; one part in HELD_PARTS is held.
* Birds of other species stand for the birds that the classifier does not know. They go by species
  alone, so that those held are strangers indeed.
* Pictures without a bird go by their class at their source.
* What shows nearly the same as a held picture, whichever source it comes from, does not train:
  their hashes of 256 bits differ in at most NEAR bits. Nor does what says again, within SAME bits,
  what a training picture of the same species says.
"""

import csv
import hashlib
from pathlib import Path

import numpy as np
from PIL import Image

from preparation import centre, opened, reduced

TRAIN, HELD, DROPPED = "train", "held", "dropped"

HELD_PARTS = 5

# Of 256 bits. Pictures of different birds differ in about 128; the same photograph at another size
# or compression differs in under 20.
NEAR = 24
SAME = 20

HASH_SIDE = 16

CANDIDATES = Path(__file__).resolve().parent / "label_candidates.csv"


def divided(pictures, work):
    """TRAIN, HELD or DROPPED for each of `pictures`; their hashes are kept below `work`."""
    kept = Path(work) / "hashes.npz"
    paths = np.array([str(picture.path) for picture in pictures])
    if kept.exists() and np.array_equal(np.load(kept)["paths"], paths):
        hashes = np.load(kept)["hashes"]
    else:
        hashes = np.stack([picture_hash(path) for path in paths])
        np.savez(kept, paths=paths, hashes=hashes)
    return sides(pictures, hashes, candidate_species())


def candidate_species():
    """The scientific names of the species beyond the start's labels that have or may get one."""
    with open(CANDIDATES, newline="", encoding="utf-8") as file:
        return {row["species"] for row in csv.DictReader(file)}


def is_held(picture, with_labels):
    """Whether the rule holds the picture back; `with_labels` are the scientific names of the
    species beyond the start's labels that have or may get one."""
    if not picture.is_bird:
        key = picture.group
    elif picture.label or picture.species in with_labels:
        key = f"{picture.source}/{picture.species}"
    else:
        key = picture.species
    digest = hashlib.sha256(key.encode()).digest()
    return int.from_bytes(digest[:8], "big") % HELD_PARTS == 0


def picture_hash(path):
    """What the centre square looks like, coarsely: uint8 [32], 256 bits.

    Each bit says of two neighbouring cells of 16x17 whether it grows lighter to the right.
    """
    image = reduced(opened(path))
    cells = image.crop(centre(image)).convert("L").resize((HASH_SIDE + 1, HASH_SIDE), Image.BOX)
    grey = np.asarray(cells, np.int16)
    return np.packbits(grey[:, 1:] > grey[:, :-1])


def distances(hashes, others):
    """How many bits differ: int [len(hashes), len(others)]."""
    ours = np.unpackbits(hashes, axis=1).astype(np.float32) * 2 - 1
    theirs = np.unpackbits(others, axis=1).astype(np.float32) * 2 - 1
    return ((256 - ours @ theirs.T) / 2).round().astype(int)


def sides(pictures, hashes, with_labels):
    """TRAIN, HELD or DROPPED for each picture; `hashes` is uint8 [len(pictures), 32]."""
    held = np.array([is_held(picture, with_labels) for picture in pictures])
    answer = np.where(held, HELD, TRAIN).astype(object)
    training, kept = np.where(~held)[0], np.where(held)[0]
    if len(kept):
        near = distances(hashes[training], hashes[kept]).min(axis=1) <= NEAR
        answer[training[near]] = DROPPED
    for again in _said_again(pictures, hashes, np.where(answer == TRAIN)[0]):
        answer[again] = DROPPED
    return list(answer)


def _said_again(pictures, hashes, training):
    """Of the pictures that train, those that repeat an earlier one of their species and set."""
    by_species = {}
    for index in training:
        key = (pictures[index].species or pictures[index].group, pictures[index].set == "boxes")
        by_species.setdefault(key, []).append(index)
    for members in by_species.values():
        apart = distances(hashes[members], hashes[members]) <= SAME
        gone = np.zeros(len(members), bool)
        for row in range(len(members)):
            if not gone[row]:
                gone[row + 1:] |= apart[row, row + 1:]
        yield from np.array(members)[gone]

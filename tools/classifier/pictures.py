"""The pictures that the classifier is made from and measured on, as records.

`load` unpacks the four archives of a pictures folder and reads their manifests:

| set | archive, manifest | what |
|---|---|---|
| scenes | pictures.tar, manifest.csv | birds in natural scenes |
| extras | extra_pictures.tar, extra_manifest.csv | mostly tight crops of birds |
| nonbirds | nonbirds.tar, nonbirds.csv | other things |
| boxes | boxes.tar, boxes.csv | birds in full scenes with their true box |
"""

import csv
import json
import re
import tarfile
from dataclasses import dataclass
from pathlib import Path

ARCHIVES = {
    "scenes": ("pictures.tar", "manifest.csv"),
    "extras": ("extra_pictures.tar", "extra_manifest.csv"),
    "nonbirds": ("nonbirds.tar", "nonbirds.csv"),
    "boxes": ("boxes.tar", "boxes.csv"),
}

BOXES_SOURCE = "CUB-200-2011"
BOXES_LICENCE = "research use"

# The sources that the start network was itself trained on: on their pictures its figures flatter.
SEEN_BY_START = frozenset({
    BOXES_SOURCE,
    "Classifier-ik/westbengal-species",
    "Dip1502/Bird-Classification",
    "Sparcraps/Gob-Game-of-Bird",
    "Tejash241/DayInTheLife",
    "mahavir0/Bird_Classification_AI_Project_COMP_6721",
    "serizba/vision",
    "vuniem131104/Fine-grained-Recognition-with-ViT",
})


@dataclass(frozen=True)
class Picture:
    """One picture and what is known of it.

    `species` is the scientific name ("Parus major"), or the English one where the manifest has no
    other and `label` is None, and None where there is no bird; `label` is the start network's label
    for the species ("Parus_major") or None; `group`
    what its siblings share: the source's name, for a picture without a bird its class there; `box`
    (left, top, right, bottom) of the bird in parts of the picture's width and height, or None.
    """

    path: Path
    set: str
    species: str
    label: str
    source: str
    group: str
    licence: str
    is_bird: bool
    box: tuple

    @property
    def seen_by_start(self):
        return self.source in SEEN_BY_START


def load(folder, work, names=None):
    """All pictures of `folder`, unpacked below `work`, in the order of the manifests.

    `names` is the file of common names by label; with it the pictures of the set boxes, whose
    manifest speaks English only, have species and labels too.
    """
    by_english = _labels_by_english_name(names) if names else {}
    readers = {"scenes": _bird, "extras": _bird, "nonbirds": _nonbird,
               "boxes": lambda *row: _boxed(*row, by_english)}
    pictures = []
    for name, (archive, manifest) in ARCHIVES.items():
        unpacked = unpack(Path(folder) / archive, Path(work) / "pictures" / name)
        with open(Path(folder) / manifest, newline="", encoding="utf-8") as file:
            for row in csv.DictReader(file):
                pictures.append(readers[name](name, unpacked / row["file"], row))
    return pictures


def unpack(archive, target):
    """Unpacks an archive of plain files into `target` unless that is done already; answers it."""
    done = target / "complete"
    if done.exists() and done.stat().st_mtime >= archive.stat().st_mtime:
        return target
    target.mkdir(parents=True, exist_ok=True)
    with tarfile.open(archive) as tar:
        for member in tar:
            if member.isfile():
                name = Path(member.name).name
                (target / name).write_bytes(tar.extractfile(member).read())
    done.touch()
    return target


def _bird(name, path, row):
    return Picture(
        path=path, set=name, species=row["species"],
        label=row["label"] if row["known"] == "1" else None,
        source=row["source"], group=row["source"], licence=row["licence"], is_bird=True, box=None)


def _nonbird(name, path, row):
    # Pictures of one kind lie in one folder at Caltech-101; elsewhere each stands for itself.
    there = Path(row["path_there"])
    group = there.parent if row["source"] == "caltech" else there
    return Picture(
        path=path, set=name, species=None, label=None, source=row["source"],
        group=f"{row['source']}/{group}", licence="", is_bird=False, box=None)


def _boxed(name, path, row, by_english):
    width, height = float(row["picture_width"]), float(row["picture_height"])
    left, top = float(row["x"]), float(row["y"])
    right, bottom = left + float(row["width"]), top + float(row["height"])
    label = by_english.get(_plain(row["bird"]))
    return Picture(
        path=path, set=name, species=label.replace("_", " ") if label else row["bird"], label=label,
        source=BOXES_SOURCE, group=BOXES_SOURCE, licence=BOXES_LICENCE, is_bird=True,
        box=(left / width, top / height, right / width, bottom / height))


def _labels_by_english_name(path):
    with open(path, encoding="utf-8") as file:
        return {_plain(name): label for label, name in json.load(file).items()}


def _plain(name):
    """The letters of a name alone: CUB writes "Chuck will Widow" and "Black footed Albatross"."""
    return re.sub("[^a-z]", "", name.lower().replace("gray", "grey"))

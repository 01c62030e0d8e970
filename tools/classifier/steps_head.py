"""The steps that make the last layer: pictures, means, labels, and the layer itself."""

import json

import numpy as np

import features
import head
import head_lessons
import holdback
import labels
import network
import places

# Views of each picture that teach the last layer. Two did as well as four.
VIEWS = 3


def divide(making):
    """Unpacks the pictures and says which are held back."""
    sides = making.sides
    return ", ".join(f"{(sides == side).sum()} {side}"
                     for side in (holdback.TRAIN, holdback.HELD, holdback.DROPPED))


def open_start(making):
    network.save_features_model(making.network, making.features_model)


def keep_view(making, number):
    features.keep_means(making.features, making.pictures, number, making.work)


def try_labels(making):
    """Decides on the labels by folds over the training side; leaves them and how they did."""
    rows = _teaching(making, everything=False)
    trials = labels.tried(
        making.network, [making.pictures[row] for row in rows],
        lambda names: head_lessons.gathered(making.pictures, rows, names, making.work, VIEWS),
        lambda chosen, names: _factors(making, chosen, names), head.Recipe())
    chosen = labels.chosen(making.network, trials)
    told = [{"species": trial.candidate.species, "looks_like": trial.candidate.looks_like,
             "pictures": trial.pictures, "right": trial.own, "twin_right": trial.twin,
             "earned": trial.candidate.label in chosen} for trial in trials]
    (making.work / "trials.json").write_text(json.dumps(told, indent=1), encoding="utf-8")
    making.labels_file.write_text("".join(f"{label}\n" for label in chosen), encoding="utf-8")
    return f"{len(chosen)} labels, of {len(trials)} considered {sum(one['earned'] for one in told)}"


def teach(making, name):
    """Teaches the last layer of "proof" on the training side, that of "final" on everything."""
    rows = _teaching(making, everything=name == "final")
    lessons = head_lessons.gathered(making.pictures, rows, making.labels, making.work, VIEWS)
    layer = head.teach(head.layer_of(making.network), making.network.temperature, lessons,
                       len(making.labels))
    np.savez(making.layer_file(name), weight=layer.weight.numpy(), bias=layer.bias.numpy())
    return f"{len(rows)} pictures, {VIEWS} views of each"


def _teaching(making, everything):
    """The rows of the birds that teach. What repeats a held picture never does, nor does a bird with
    a box whose English name says nothing to us: it may well have a label."""
    has_name = np.array([picture.is_bird and (picture.set != "boxes" or picture.label is not None)
                         for picture in making.pictures])
    sides = (holdback.TRAIN, holdback.HELD) if everything else (holdback.TRAIN,)
    return np.where(has_name & np.isin(making.sides, sides))[0]


def _factors(making, chosen, names):
    """The weights of the labels at each picture's place: float32 [pictures, labels]."""
    known = places.read_source_places()
    by_source = {source: places.weights(place, names, making.regions)
                 for source, (_, place) in known.items()}
    everywhere = np.ones(len(names), np.float32)
    return np.stack([by_source.get(picture.source, everywhere) for picture in chosen])

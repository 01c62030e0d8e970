"""What the steps of a making share: the folders, the pictures, the network, all read once."""

import json
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

import numpy as np

import features
import head
import head_lessons
import holdback
import labels
import network
import pictures
import places
from runtime import Session

# Views of each picture that teach the last layer. More of them gained nothing.
VIEWS = 3


@dataclass(frozen=True)
class Making:
    """A making in the folder `work`, from the folders and files given to make.py."""

    start: Path
    folder: Path
    teacher: Path
    samples: Path
    regions_file: Path
    work: Path
    out: Path

    @property
    def start_model(self):
        return self.start / "model.onnx"

    @property
    def names(self):
        """The common names by label, which lie beside the regions."""
        return self.regions_file.with_name("bird_common_names.json")

    @cached_property
    def pictures(self):
        return pictures.load(self.folder, self.work, self.names)

    @cached_property
    def sides(self):
        return np.array(holdback.divided(self.pictures, self.work))

    @cached_property
    def network(self):
        return network.open_network(self.start_model, self.work)

    @cached_property
    def features(self):
        """A session of the model that answers the network's maps, means and scores."""
        target = self.work / "features.onnx"
        network.save_features_model(self.network, target)
        return Session(target)

    @cached_property
    def regions(self):
        return places.read_regions(self.regions_file)

    def rows_that_teach(self, everything):
        """Which pictures teach the last layer: the birds on the training side, or, for the layer to
        ship, all of them but for repetitions."""
        is_bird = np.array([picture.set in ("scenes", "extras") for picture in self.pictures])
        sides = (holdback.TRAIN, holdback.HELD) if everything else (holdback.TRAIN,)
        return np.where(is_bird & np.isin(self.sides, sides))[0]

    def keep_view(self, number):
        features.keep_means(self.features, self.pictures, number, self.work)

    def try_labels(self):
        rows = self.rows_that_teach(everything=False)
        chosen = [self.pictures[row] for row in rows]
        trials = labels.tried(
            self.network, chosen,
            lambda names: head_lessons.gathered(self.pictures, rows, names, self.work, VIEWS),
            self._factors, head.Recipe())
        all_labels = labels.chosen(self.network, trials)
        told = [dict(species=trial.candidate.species, looks_like=trial.candidate.looks_like,
                     pictures=trial.pictures, own=trial.own, twin=trial.twin,
                     earned=trial.is_earned) for trial in trials]
        (self.work / "trials.json").write_text(json.dumps(told, indent=1))
        (self.work / "labels.txt").write_text("".join(f"{label}\n" for label in all_labels))
        return f"{len(all_labels)} labels, {sum(trial.is_earned for trial in trials)} of them new"

    @property
    def labels(self):
        return (self.work / "labels.txt").read_text().split()

    def teach_head(self, target, everything):
        rows = self.rows_that_teach(everything)
        lessons = head_lessons.gathered(self.pictures, rows, self.labels, self.work, VIEWS)
        layer = head.teach(head.layer_of(self.network), self.network.temperature, lessons,
                           len(self.labels))
        np.savez(target, weight=layer.weight.numpy(), bias=layer.bias.numpy())
        return f"{len(rows)} pictures, {VIEWS} views each"

    def network_with(self, head_file):
        layer = np.load(head_file)
        return network.with_last_layer(self.network, layer["weight"], layer["bias"], self.labels)

    def _factors(self, chosen, names):
        known = places.read_source_places()
        everywhere = np.ones(len(names), np.float32)
        by_place = {place: places.weights(place, names, self.regions)
                    for _, place in known.values()}
        return np.stack([by_place[known[picture.source][1]] if picture.source in known
                         else everywhere for picture in chosen])

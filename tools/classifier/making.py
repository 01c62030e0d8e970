"""What the steps of a making share: the folders given, and what is read from them once."""

from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

import numpy as np

import holdback
import network
import pictures
import places
from runtime import Session


@dataclass(frozen=True)
class Making:
    """A making in the folder `work`, from the folders and files given to make.py."""

    start: Path
    folder: Path
    teacher: Path
    samples: Path
    facts: Path
    regions_file: Path
    work: Path
    out: Path

    @property
    def start_model(self):
        return self.start / "model.onnx"

    @property
    def features_model(self):
        return self.work / "features.onnx"

    @property
    def labels_file(self):
        return self.work / "labels.txt"

    def layer_file(self, name):
        """The last layer of the classifier `name`, "proof" or "final"."""
        return self.work / name / "head.npz"

    def model_file(self, name):
        return (self.out if name == "final" else self.work / name) / "model.onnx"

    @cached_property
    def pictures(self):
        # The common names lie beside the regions.
        names = self.regions_file.with_name("bird_common_names.json")
        return pictures.load(self.folder, self.work, names)

    @cached_property
    def sides(self):
        """holdback.TRAIN, HELD or DROPPED for each picture."""
        return np.array(holdback.divided(self.pictures, self.work))

    @cached_property
    def network(self):
        """The start, opened."""
        return network.open_network(self.start_model, self.work)

    @cached_property
    def features(self):
        """A session of the model that answers the network's maps, means and scores."""
        return Session(self.features_model)

    @cached_property
    def regions(self):
        return places.read_regions(self.regions_file)

    @property
    def labels(self):
        """The labels of the classifier in the making."""
        return self.labels_file.read_text(encoding="utf-8").split()

    def network_with_layer(self, name):
        """The start with the last layer of the classifier `name`."""
        layer = np.load(self.layer_file(name))
        return network.with_last_layer(self.network, layer["weight"], layer["bias"], self.labels)

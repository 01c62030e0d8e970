import json
import shutil
import tempfile
import unittest
from pathlib import Path

import numpy as np

import make
import steps
import steps_measure
import tiny_start
from holdback import is_held
from labels import candidates
from making import Making
from network import MEANS
from pictures import load
from samples import read_samples
from steps_measure import Measured

REGIONS = {"regions": [{"latitudes": [40, 50], "longitudes": [-90, -70],
                        "labels": ["Larus_canus"]}]}


class AMaking(unittest.TestCase):
    """From three labels, a handful of pictures, and no detector."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        given = Path(folder.name) / "given"
        (given / "photos").mkdir(parents=True)
        # So many sources that some are held back and some are not.
        birds = [(f"{number}.jpg", species, True, f"source/{number}")
                 for number, species in enumerate(["Parus major", "Larus canus"] * 6)]
        tiny_start.save_pictures(
            given, birds=[*birds, ("s.jpg", "Strix nova", False, "source/s")],
            nonbirds=[(f"n{number}.jpg", "bsds", f"{number}.jpg") for number in range(30)],
            boxes=[("b.jpg", "Great Tit"),
                   *((f"b{number}.jpg", f"Bird {number}") for number in range(12))])
        tiny_start.save(given / "model.onnx")
        (given / "regions.json").write_text(json.dumps(REGIONS))
        tiny_start.noise((300, 200), 9).save(given / "photos" / "p.jpg")
        (given / "answers.csv").write_text(
            "file,scientific_name,english_name\np.jpg,Parus major,Great Tit\n")
        cls.making = Making(start=given, folder=given, teacher=given, samples=given, facts=given,
                            regions_file=given / "regions.json", work=given.parent / "work",
                            out=given.parent / "out")
        cls.said = []
        steps.run(make.of_the_layers(cls.making), cls.said.append)

    def test_leaves_the_labels_of_the_start_and_those_beyond(self):
        kept = [one.label for one in candidates() if one.is_kept]
        self.assertEqual(self.making.labels, [*tiny_start.LABELS, *kept])

    def test_leaves_two_last_layers_of_which_one_knows_less(self):
        layers = [np.load(self.making.layer_file(name)) for name in ("proof", "final")]
        for layer in layers:
            self.assertEqual(layer["weight"].shape, (len(self.making.labels), MEANS))
            self.assertEqual(layer["bias"].shape, (len(self.making.labels),))
        self.assertFalse(np.array_equal(layers[0]["weight"], layers[1]["weight"]))

    def test_teaches_the_proof_nothing_that_is_held_back(self):
        pictures = load(self.making.folder, self.making.work,
                        self.making.folder / "bird_common_names.json")
        beyond = {one.species for one in candidates()}
        birds = [one for one in pictures if one.set == "scenes" or one.label and one.box]
        training = [one for one in birds if not is_held(one, beyond)]
        self.assertLess(len(training), len(birds))
        self.assertIn(f"last layer of the proof: {len(training)} pictures", " ".join(self.said))
        self.assertIn(f"last layer of the final: {len(birds)} pictures", " ".join(self.said))

    def test_goes_on_where_it_was(self):
        said = []
        steps.run(make.of_the_layers(self.making), said.append)
        self.assertTrue(all(line.endswith("done before") for line in said), said)

    def test_tells_its_figures(self):
        making = self.making
        for name in ("proof", "final"):
            making.model_file(name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(making.start_model, making.model_file(name))
        steps.run(make.of_the_figures(making, compare=None), self.said.append)
        lines = (making.out / "report.md").read_text().splitlines()
        told = (making.out / "sample_answers.csv").read_text().splitlines()
        shares = np.load(making.work / "answers" / "final samples.npy")
        names = sorted(one.path.name for one in read_samples(making.samples))
        self.assertEqual(told[0], "file,label,confidence")
        self.assertEqual([line.split(",")[0] for line in told[1:]], names)
        self.assertEqual(sorted(line.split(",")[2] for line in told[1:]),
                         sorted(f"{share:.4f}" for share in shares.max(axis=1)))
        asked = {path.name for path in (making.work / "answers").glob("*.npy")}
        self.assertIn("proof birds.npy", asked)
        self.assertNotIn("final birds.npy", asked)
        held = sum(making.sides == "held")
        self.assertTrue(any(f"{held} held" in line for line in lines))
        self.assertIn("| without place | n | start | proof |", lines)
        self.assertIn("| with place | n | start | proof | final |", lines)
        self.assertTrue(any(line.startswith("| Certhia brachydactyla | 0 |") for line in lines))


class WhatIsMeasured(unittest.TestCase):
    def test_has_the_labels_of_its_model(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "model.onnx"
            tiny_start.save(path)
            self.assertEqual(Measured("start", path, ("held",)).labels, list(tiny_start.LABELS))

    def test_asks_what_ships_nothing_that_taught_it(self):
        making = Making(*[Path(name) for name in "abcdefgh"])
        on = {one.name: one.on for one in steps_measure.measured(making, Path("other.onnx"))}
        self.assertEqual(on, {"start": ("held", "samples"), "compared": ("held", "samples"),
                              "proof": ("held", "samples"), "final": ("samples",)})


if __name__ == "__main__":
    unittest.main()

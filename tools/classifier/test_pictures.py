import tempfile
import unittest
from pathlib import Path

import numpy as np
from PIL import Image

import tiny_start
from holdback import DROPPED, HELD, TRAIN, divided, is_held, picture_hash, sides
from pictures import Picture, load


def bird(path, species, source, label=None):
    return Picture(Path(path), "scenes", species, label, source, source, "", True, None)


def thing(group):
    return Picture(Path("thing.jpg"), "nonbirds", None, None, "caltech", group, "", False, None)


class InAFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)


class PicturesOfAFolder(InAFolder):
    def setUp(self):
        super().setUp()
        tiny_start.save_pictures(
            self.folder, birds=[("a.jpg", "Parus major", True, "some/one"),
                                ("b.jpg", "Strix aluco", False, "some/one")],
            nonbirds=[("n.jpg", "caltech", "objects/chair/image_1.jpg")],
            boxes=[("x.jpg", "Great Tit")])
        self.pictures = load(self.folder, self.folder / "work",
                             self.folder / "bird_common_names.json")

    def test_have_a_label_where_the_start_has_one(self):
        self.assertEqual([(one.species, one.label, one.is_bird) for one in self.pictures],
                         [("Parus major", "Parus_major", True), ("Strix aluco", None, True),
                          (None, None, False), ("Parus major", "Parus_major", True)])

    def test_have_boxes_in_parts_of_the_picture(self):
        self.assertEqual([one.box for one in self.pictures],
                         [None, None, None, (0.25, 20 / 90, 0.75, 65 / 90)])

    def test_go_with_their_class_where_there_is_no_bird(self):
        self.assertEqual(self.pictures[2].group, "caltech/objects/chair")

    def test_lie_unpacked(self):
        for one in self.pictures:
            with Image.open(one.path) as image:
                self.assertEqual(image.size, (120, 90))

    def test_know_what_the_start_was_trained_on(self):
        self.assertEqual([one.seen_by_start for one in self.pictures], [False, False, False, True])

    def test_keep_their_hashes(self):
        work = self.folder / "work"
        first = divided(self.pictures, work)
        kept = (work / "hashes.npz").stat().st_mtime_ns
        self.assertEqual(divided(self.pictures, work), first)
        self.assertEqual((work / "hashes.npz").stat().st_mtime_ns, kept)


class TheRule(unittest.TestCase):
    def test_holds_one_part_in_five_back(self):
        held = [is_held(bird("", f"Avis {number}", "some/one"), set()) for number in range(2000)]
        self.assertAlmostEqual(sum(held) / len(held), 1 / 5, delta=0.02)

    def test_keeps_the_pictures_of_a_species_and_a_source_together(self):
        for number in range(50):
            pair = [bird(path, f"Avis {number}", "some/one", "Avis") for path in ("a", "b")]
            self.assertEqual(is_held(pair[0], set()), is_held(pair[1], set()))

    def test_parts_a_species_with_a_label_by_source(self):
        sides_ = {is_held(bird("", "Parus major", f"source {number}", "Parus_major"), set())
                  for number in range(50)}
        self.assertEqual(sides_, {True, False})

    def test_parts_a_species_that_may_get_a_label_by_source(self):
        sides_ = {is_held(bird("", "Strix aluco", f"source {number}"), {"Strix aluco"})
                  for number in range(50)}
        self.assertEqual(sides_, {True, False})

    def test_keeps_a_stranger_on_one_side_whatever_the_source(self):
        sides_ = {is_held(bird("", "Strix aluco", f"source {number}"), set())
                  for number in range(50)}
        self.assertEqual(len(sides_), 1)

    def test_keeps_a_class_of_things_together(self):
        self.assertEqual(is_held(thing("caltech/chair"), set()),
                         is_held(thing("caltech/chair"), set()))
        self.assertEqual({is_held(thing(f"caltech/{number}"), set()) for number in range(50)},
                         {True, False})


class NearDuplicates(InAFolder):
    def hashes(self, *images):
        answer = []
        for number, image in enumerate(images):
            path = self.folder / f"{number}.jpg"
            image.save(path, quality=95)
            answer.append(picture_hash(path))
        return np.stack(answer)

    def species(self, held):
        """A species with a label on the side wanted."""
        return next(name for name in map("Avis {}".format, range(100))
                    if is_held(bird("", name, "s", "label"), set()) == held)

    def test_of_a_held_picture_do_not_train(self):
        photograph = tiny_start.noise((320, 240), 1)
        hashes = self.hashes(photograph, photograph.resize((200, 150)),
                             tiny_start.noise((320, 240), 2))
        pictures = [bird("0", self.species(held=True), "s", "label"),
                    bird("1", self.species(held=False), "s", "label"),
                    bird("2", self.species(held=False), "s", "label")]
        self.assertEqual(sides(pictures, hashes, set()), [HELD, DROPPED, TRAIN])

    def test_of_a_training_picture_train_once(self):
        photograph = tiny_start.noise((320, 240), 1)
        hashes = self.hashes(photograph, photograph.resize((200, 150)))
        pictures = [bird(path, self.species(held=False), "s", "label") for path in "ab"]
        self.assertEqual(sides(pictures, hashes, set()), [TRAIN, DROPPED])


if __name__ == "__main__":
    unittest.main()

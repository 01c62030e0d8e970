import os
import tempfile
import unittest
from pathlib import Path

from steps import Step, run


class Steps(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.source = self.folder / "source"
        self.source.write_text("1")
        self.done = []
        self.said = []
        first, second = self.folder / "below" / "first", self.folder / "second"
        self.steps = [self.step("one", self.source, first), self.step("two", first, second)]

    def step(self, name, reads, writes):
        def work():
            self.done.append(name)
            writes.write_text(name)
            return f"made {name}"
        return Step(name, (reads,), (writes,), work)

    def run_all(self):
        self.done.clear()
        run(self.steps, self.said.append)
        return self.done

    def age(self, path, seconds):
        stamp = path.stat().st_mtime - seconds
        os.utime(path, (stamp, stamp))

    def test_are_done_in_order_and_told(self):
        self.assertEqual(self.run_all(), ["one", "two"])
        self.assertRegex(self.said[0], r"^one: made one \(\d+ s\)$")

    def test_are_done_once(self):
        self.run_all()
        self.assertEqual(self.run_all(), [])
        self.assertEqual(self.said[-1], "two: done before")

    def test_are_done_again_from_what_has_changed(self):
        self.run_all()
        self.age(self.folder / "second", 10)
        self.assertEqual(self.run_all(), ["two"])
        for path in (self.folder / "below" / "first", self.folder / "second"):
            self.age(path, 10)
        self.assertEqual(self.run_all(), ["one", "two"])

    def test_are_done_again_where_one_of_two_files_is_old(self):
        both = self.folder / "old", self.folder / "new"

        def work():
            self.done.append("both")
            for path in both:
                path.write_text("1")

        self.steps = [Step("both", (self.source,), both, work)]
        self.run_all()
        self.assertEqual(self.run_all(), [])
        self.age(both[0], 10)
        self.assertEqual(self.run_all(), ["both"])

    def test_that_fail_are_done_again(self):
        def failing():
            self.steps[1].writes[0].write_text("half")
            raise OSError("full")
        whole = self.steps[1]
        self.run_all()
        self.age(self.folder / "second", 10)
        self.steps[1] = Step("two", whole.reads, whole.writes, failing)
        with self.assertRaises(OSError):
            self.run_all()
        self.steps[1] = whole
        self.assertEqual(self.run_all(), ["two"])

    def test_must_leave_what_they_promise(self):
        idle = Step("idle", (), (self.folder / "never",), lambda: None)
        with self.assertRaisesRegex(RuntimeError, "idle did not leave .*never"):
            run([idle], self.said.append)


if __name__ == "__main__":
    unittest.main()

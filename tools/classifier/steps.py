"""A making as a list of steps, each leaving files, that goes on where it was left."""

import time
from dataclasses import dataclass
from pathlib import Path
from typing import Callable


@dataclass(frozen=True)
class Step:
    """`work` makes the files `writes` from the files `reads`; it may answer a sentence of what it
    did."""

    name: str
    reads: tuple
    writes: tuple
    work: Callable

    @property
    def is_done(self):
        """Whether everything it writes is there and newer than all it reads."""
        if not all(Path(path).exists() for path in self.writes):
            return False
        oldest = min(Path(path).stat().st_mtime for path in self.writes)
        return all(Path(path).stat().st_mtime <= oldest for path in self.reads)


def run(steps, say=print):
    """Does the steps in order, all but those done already. A step that fails leaves nothing that
    would make it look done."""
    for step in steps:
        if step.is_done:
            say(f"{step.name}: done before")
            continue
        begun = time.monotonic()
        _clear(step)
        try:
            told = step.work()
        except BaseException:
            _clear(step)
            raise
        missing = [str(path) for path in step.writes if not Path(path).exists()]
        if missing:
            raise RuntimeError(f"{step.name} did not leave {', '.join(missing)}")
        say(f"{step.name}: {told or 'done'} ({time.monotonic() - begun:.0f} s)")


def _clear(step):
    """Away with what the step is to write, with a folder for each file of it."""
    for path in step.writes:
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        Path(path).unlink(missing_ok=True)

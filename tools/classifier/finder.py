"""The finder: a small head on the network's own maps that says where the bird is.

For each of 16x16 cells it answers a score (a logit: whether the middle of a bird lies there) and the
distances from the cell's centre to the left, top, right and bottom edge of the bird's box, in cells
and as logarithms.
"""

import time
from pathlib import Path

import numpy as np
import torch
from torch import nn
from torch.nn import functional

import finder_lessons
import maps
from network import MAP8, MAP16
from one_look import CELLS, LONGEST_LOGARITHM, OUTWARDS, SURENESS, cell_centres
from teacher import side_of

# Channels between the maps and the answer: about 39,000 numbers in all.
WIDTH = 64

# The score is taught to be 1 at the middle of the bird and to fall off with the distance from it, in
# parts of the box, as a bell of this width; nearer than BOX_RADIUS the cells learn the box.
BELL = 0.28
BOX_RADIUS = 0.35

# Boxes weigh against scores.
SCORE_WEIGHT = 4.0

# The exponent by which cells that are right already count less.
FOCUS = 1.5

# A bird under this longer side is small; how many times an epoch a real picture of one teaches, and
# one of a large bird.
SMALL_SIDE = 0.65
REAL_SMALL = 3.0
LARGE = 0.5

BATCH = 64
EPOCHS = 8
PEAK_RATE = 3e-3
SEED = 11


class Finder(nn.Module):
    """Takes maps [n, 96, 16, 16] and [n, 320, 8, 8]; answers [n, 5, 16, 16]."""

    def __init__(self):
        super().__init__()
        self.a = nn.Conv2d(MAP16[0], WIDTH, 1)
        self.b = nn.Conv2d(MAP8[0], WIDTH, 1)
        self.d1 = nn.Conv2d(WIDTH, WIDTH, 5, padding=2, groups=WIDTH)
        self.p1 = nn.Conv2d(WIDTH, WIDTH, 1)
        self.d2 = nn.Conv2d(WIDTH, WIDTH, 5, padding=2, groups=WIDTH)
        self.p2 = nn.Conv2d(WIDTH, WIDTH, 1)
        self.o = nn.Conv2d(WIDTH, 5, 1)
        nn.init.constant_(self.o.bias, -2.0)  # few cells have a bird

    def forward(self, map16, map8):
        doubled = functional.interpolate(self.b(map8), scale_factor=2, mode="nearest")
        features = functional.relu(self.a(map16) + doubled)
        features = features + functional.relu(self.p1(self.d1(features)))
        features = features + functional.relu(self.p2(self.d2(features)))
        return self.o(features)


def loaded(path):
    finder = Finder()
    finder.load_state_dict({name: torch.tensor(value) for name, value in np.load(path).items()})
    return finder.eval()


_CENTRES = torch.tensor(cell_centres().reshape(CELLS, CELLS, 4), dtype=torch.float32)
_OUTWARDS = torch.tensor(OUTWARDS, dtype=torch.float32)


def decoded(answer):
    """Scores [n, 16, 16] and boxes [n, 16, 16, 4] in parts of the picture."""
    logarithms = answer[:, 1:].clamp(-LONGEST_LOGARITHM, LONGEST_LOGARITHM)
    return answer[:, 0], _CENTRES + torch.exp(logarithms).permute(0, 2, 3, 1) * _OUTWARDS


def found(finder, map16, map8):
    """The bird of each picture: boxes [n, 4] within 0 and 1, scores [n], as numpy."""
    boxes, scores = [], []
    with torch.no_grad():
        for start in range(0, len(map16), 256):
            part = slice(start, start + 256)
            score, box = decoded(finder(_tensor(map16[part]), _tensor(map8[part])))
            score, box = score.flatten(1), box.flatten(1, 2)
            scores.append(score.max(1).values.numpy())
            boxes.append(_agreed(score, box).clamp(0, 1).numpy())
    return np.concatenate(boxes), np.concatenate(scores)


def _agreed(score, box):
    """Of cells' scores [n, cells] and boxes [n, cells, 4], the mean box of the cells that lie within
    the box of the surest, as the graph takes it: [n, 4]."""
    best, cell = score.max(1, keepdim=True)
    own = box[torch.arange(len(box)), cell[:, 0]][:, None]
    middles = _CENTRES.reshape(1, -1, 4)[..., :2]
    inside = ((middles > own[..., :2]) & (middles < own[..., 2:])).all(dim=2)
    weight = torch.exp((score - best) * SURENESS) * inside
    return (weight[..., None] * box).sum(1) / weight.sum(1, keepdim=True)


def _tensor(array):
    return torch.tensor(np.asarray(array, np.float32))


def targets(boxes):
    """What boxes [n, 4] teach each cell: the score 0 to 1, and whether it learns the box, both
    [n, 16, 16]. A row of NaN is a picture without a bird."""
    middle = (boxes[:, :2] + boxes[:, 2:]) / 2
    size = (boxes[:, 2:] - boxes[:, :2]).clamp(min=1 / CELLS)
    away = _CENTRES[None, :, :, :2] - middle[:, None, None]
    distance = (away / size[:, None, None]).norm(dim=3)
    score = torch.nan_to_num(torch.exp(-(distance / BELL) ** 2), 0.0)
    own_cell = (away.abs() <= 0.5 / CELLS).all(dim=3)
    return torch.where(own_cell, torch.ones_like(score), score), own_cell | (distance < BOX_RADIUS)


def generalised_overlap(boxes, others):
    """GIoU of boxes [n, 4]: their overlap, less the empty part of the box around both; -1 to 1."""
    common = _area(torch.maximum(boxes[:, :2], others[:, :2]),
                   torch.minimum(boxes[:, 2:], others[:, 2:]))
    both = (_area(boxes[:, :2], boxes[:, 2:]) + _area(others[:, :2], others[:, 2:]) - common + 1e-7)
    around = _area(torch.minimum(boxes[:, :2], others[:, :2]),
                   torch.maximum(boxes[:, 2:], others[:, 2:])) + 1e-7
    return common / both - (around - both) / around


def _area(low, high):
    return (high - low).clamp(min=0).prod(dim=1)


def loss(finder, map16, map8, boxes):
    """How wrong the finder is about pictures with these boxes, NaN where there is no bird."""
    score, box = decoded(finder(map16, map8))
    wanted, learns = targets(boxes)
    missed = functional.binary_cross_entropy_with_logits(score, wanted, reduction="none")
    missed = missed * (torch.sigmoid(score) - wanted).abs() ** FOCUS
    missed = missed.sum() / (learns.sum() + len(boxes))
    truth = boxes[:, None, None].expand_as(box)[learns]
    weight = wanted[learns]
    apart = ((1 - generalised_overlap(box[learns], truth)) * weight).sum() / (weight.sum() + 1)
    return SCORE_WEIGHT * missed + apart


def mirrored(map16, map8, boxes):
    left, top, right, bottom = boxes.unbind(1)
    return map16.flip(3), map8.flip(3), torch.stack([1 - right, top, 1 - left, bottom], 1)


def train(map16, map8, boxes, often, epochs=EPOCHS, log=print):
    """A finder taught on maps (arrays of float16) and boxes [n, 4], NaN where there is no bird; it
    meets each picture `often` [n] times in an epoch on average."""
    torch.manual_seed(SEED)
    torch.set_num_threads(1)
    finder = Finder()
    with torch.no_grad():  # all channels start equally strong
        finder.a.weight /= _deviation(map16)
        finder.b.weight /= _deviation(map8)
    boxes = torch.tensor(boxes, dtype=torch.float32)
    often = torch.tensor(often, dtype=torch.float32)
    batches = int(often.sum()) // BATCH
    optimiser = torch.optim.AdamW(finder.parameters(), weight_decay=1e-4)
    schedule = torch.optim.lr_scheduler.OneCycleLR(optimiser, PEAK_RATE, epochs * batches)
    began = time.monotonic()
    for epoch in range(epochs):
        drawn = torch.multinomial(often, batches * BATCH, replacement=True)
        total = 0.0
        for batch in drawn.reshape(batches, BATCH):
            rows = np.sort(batch.numpy())
            given = _tensor(map16[rows]), _tensor(map8[rows]), boxes[rows]
            if torch.rand(1) < 0.5:
                given = mirrored(*given)
            wrong = loss(finder, *given)
            optimiser.zero_grad()
            wrong.backward()
            optimiser.step()
            schedule.step()
            total += wrong.item()
        log(f"finder, epoch {epoch + 1} of {epochs}: loss {total / batches:.4f}, "
            f"{time.monotonic() - began:.0f} s")
    return finder.eval()


def _deviation(maps):
    sample = np.asarray(maps[::7], np.float32)
    return torch.tensor(sample.std(axis=(0, 2, 3)) + 1e-3)[None, :, None, None]


def run(pictures, sides, work):
    """Writes work/finder.npz, taught by the training side's pictures and by those made of them."""
    boxes, usable = finder_lessons.boxes_of(pictures, sides, work)
    rows = np.where(usable)[0]
    seen, made = maps.kept(work, "pictures"), maps.kept(work, "lessons")
    both = {name: np.concatenate([seen[name][rows], made[name]]) for name in ("map16", "map8")}
    taught = np.concatenate([boxes[rows], np.load(Path(work) / "lessons.npy")])
    is_real = np.arange(len(taught)) < len(rows)
    finder = train(both["map16"], both["map8"], taught, how_often(taught, is_real))
    save(finder, Path(work) / "finder.npz")


def how_often(boxes, is_real):
    """How many times an epoch each picture teaches, [n]: a real one of a small bird often, since
    there are few; one that a bird fills seldom, real or a close look, since they are many."""
    small = side_of(boxes) < SMALL_SIDE
    empty = np.isnan(boxes[:, 0])
    return np.select([empty, small & is_real, small], [1.0, REAL_SMALL, 1.0], LARGE)


def save(finder, path):
    np.savez(Path(path), **{name: value.numpy() for name, value in finder.state_dict().items()})

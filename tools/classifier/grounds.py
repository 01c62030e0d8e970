"""Grounds to lay birds on: other pictures and their bird-free parts, foliage, water and sky.

All are PIL pictures of the classifier's size, drawn from a `random.Random`.
"""

import numpy as np
from PIL import Image

from preparation import SIDE

# A bird-free part of a picture serves as a ground from this side on, in parts of the square.
LEAST_FREE = 0.25

# Two colours each, between which a drawn ground varies.
FOLIAGE = [((28, 46, 18), (118, 142, 70)), ((60, 52, 30), (150, 128, 84)),
           ((40, 60, 40), (170, 176, 120)), ((90, 74, 56), (196, 178, 140))]
WATER = [((36, 60, 78), (120, 150, 166)), ((70, 84, 80), (150, 160, 150)),
         ((18, 40, 60), (90, 130, 170))]
SKY = [((96, 140, 196), (200, 216, 232)), ((176, 180, 184), (226, 228, 230)),
       ((60, 100, 170), (120, 160, 210))]


def ground(chance, others, birds):
    """A ground: `others` are squares without a bird, `birds` pairs (square, box) with one.

    Squares are uint8 [384, 384, 3], boxes (left, top, right, bottom) in their parts.
    """
    kind = chance.random()
    if kind < 0.4:
        return part_of(chance, others[chance.randrange(len(others))])
    if kind < 0.7:
        free = bird_free(chance, *birds[chance.randrange(len(birds))])
        if free is not None:
            return free
    drawn = chance.choice([foliage, water, sky])
    return drawn(chance)


def part_of(chance, square):
    """A square part, at least half as wide, of a picture."""
    side = chance.uniform(0.5, 1) * SIDE
    left, top = chance.uniform(0, SIDE - side), chance.uniform(0, SIDE - side)
    return _enlarged(square, (left, top, left + side, top + side), chance)


def bird_free(chance, square, box):
    """The largest square beside, over or under the bird, or None where all are too small."""
    left, top, right, bottom = (edge * SIDE for edge in box)
    strips = [(0, 0, left, SIDE), (right, 0, SIDE, SIDE), (0, 0, SIDE, top), (0, bottom, SIDE, SIDE)]
    strip = max(strips, key=lambda edges: min(edges[2] - edges[0], edges[3] - edges[1]))
    side = min(strip[2] - strip[0], strip[3] - strip[1])
    if side < LEAST_FREE * SIDE:
        return None
    x = chance.uniform(strip[0], strip[2] - side)
    y = chance.uniform(strip[1], strip[3] - side)
    return _enlarged(square, (x, y, x + side, y + side), chance)


def _enlarged(square, box, chance):
    image = Image.fromarray(np.asarray(square)).resize((SIDE, SIDE), Image.BICUBIC, box=box)
    return image.transpose(Image.FLIP_LEFT_RIGHT) if chance.random() < 0.5 else image


def foliage(chance):
    """Patches of every size, from leaves to bushes."""
    return _coloured(_clouds(chance, finest=chance.choice([48, 96, 192]), fall=0.75),
                     chance.choice(FOLIAGE))


def water(chance):
    """Ripples: patches far wider than high."""
    return _coloured(_clouds(chance, finest=96, fall=0.6, stretch=chance.choice([4, 8])),
                     chance.choice(WATER))


def sky(chance):
    """A gradient with soft clouds."""
    slope = np.linspace(0, chance.uniform(-1, 1), SIDE)[:, None]
    clouds = _clouds(chance, finest=12, fall=0.45)
    return _coloured(clouds * chance.uniform(0, 1) + slope, chance.choice(SKY))


def _clouds(chance, finest, fall, stretch=1):
    """Noise of several sizes, [384, 384], about 0 to 1. `finest` is the largest number of cells
    along a side; each size is `fall` as strong as the one twice as coarse."""
    generator = np.random.default_rng(chance.randrange(2 ** 32))
    total, weight, strength, cells = np.zeros((SIDE, SIDE)), 0.0, 1.0, 3
    while cells <= finest:
        noise = generator.random((cells, max(cells // stretch, 2))).astype(np.float32)
        total += strength * np.asarray(Image.fromarray(noise).resize((SIDE, SIDE), Image.BICUBIC))
        weight += strength
        strength, cells = strength * fall, cells * 2
    return (total / weight - 0.5) * 2 + 0.5


def _coloured(amount, colours):
    dark, light = (np.array(colour, float) for colour in colours)
    amount = np.clip(amount, 0, 1)[..., None]
    return Image.fromarray((dark + (light - dark) * amount).astype(np.uint8))

"""Pictures made for the finder: birds laid small into other scenes, close looks at birds, and
scenes without any.

A bird is cut out with some of its surroundings, since its outline is not known, and laid on a ground
whose tone is drawn near that of the cut's edge. Scraps of other pictures lie beside it in many, and
in the pictures without a bird, so that a seam tells nothing.
"""

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

from grounds import ground
from preparation import SIDE

# The longer side of a bird laid into a scene, in parts of the square; drawn evenly on a log scale.
SMALLEST, LARGEST = 0.1, 0.65

# A close look is a square of this many times the bird's longer side: under 1 it shows a part of the
# bird, which must then be found to fill the square.
CLOSEST, WIDEST = 0.6, 1.6

# A close look is worth teaching where the bird has at least this many pixels.
LEAST_CLOSE = 110

# The cut around the bird, in times of its longer side.
CUT = (1.1, 2.2)


def small_bird(chance, square, box, others, birds):
    """The bird in the box of the square, laid small into a scene.

    Answers the scene, uint8 [384, 384, 3], and the bird's box (left, top, right, bottom) in its
    parts. `others` and `birds` are where grounds come from (grounds.ground).
    """
    left, top, right, bottom = (edge * SIDE for edge in box)
    length = max(right - left, bottom - top)
    scale = np.exp(chance.uniform(np.log(SMALLEST), np.log(LARGEST))) * SIDE / length
    cut = _cut_around(chance, (left, top, right, bottom), length)
    size = [max(6, round((cut[2] - cut[0]) * scale)), max(6, round((cut[3] - cut[1]) * scale))]
    patch = Image.fromarray(np.asarray(square)).resize(size, Image.LANCZOS, box=cut)
    scene = _toned(chance, ground(chance, others, birds), patch)
    if chance.random() < 0.4:
        _add_scrap(chance, scene, others)

    width, height = (right - left) * scale, (bottom - top) * scale
    x, y = _place(chance, width), _place(chance, height)
    corner = round(x - (left - cut[0]) * scale), round(y - (top - cut[1]) * scale)
    scene.paste(patch, corner, _soft_mask(chance, *size))
    edges = np.array([x, y, x + width, y + height]) / SIDE
    return np.asarray(scene), np.clip(edges, 0, 1)


def _cut_around(chance, box, length):
    """A box around the bird, within the square, with more or less room on each side."""
    room = (chance.uniform(*CUT) - 1) / 2 * length
    low = [max(0.0, edge - room * chance.uniform(0.6, 1.4)) for edge in box[:2]]
    high = [min(float(SIDE), edge + room * chance.uniform(0.6, 1.4)) for edge in box[2:]]
    return (*low, *high)


def _place(chance, extent):
    """Where a bird of that extent begins: somewhere, with at most a tenth of it cut off."""
    middle = chance.uniform(0.1, 0.9) * SIDE
    middle = min(max(middle, extent * 0.4), SIDE - extent * 0.4)
    return middle - extent / 2


def close_look(chance, square, box):
    """A square window about the bird, as a second look may see it: the pixels at [384, 384, 3] and
    what it shows of the bird's box. Of a large bird it may show no more than a part."""
    left, top, right, bottom = (edge * SIDE for edge in box)
    length = max(right - left, bottom - top)
    side = min(length * chance.uniform(CLOSEST, WIDEST), SIDE)
    shift = 0.2 * length
    x = (left + right) / 2 + chance.uniform(-shift, shift) - side / 2
    y = (top + bottom) / 2 + chance.uniform(-shift, shift) - side / 2
    x, y = min(max(x, 0), SIDE - side), min(max(y, 0), SIDE - side)
    image = Image.fromarray(np.asarray(square))
    pixels = image.resize((SIDE, SIDE), Image.BICUBIC, box=(x, y, x + side, y + side))
    edges = np.array([left - x, top - y, right - x, bottom - y]) / side
    return np.asarray(pixels), np.clip(edges, 0, 1)


def without_bird(chance, others, birds):
    """A ground with a scrap or two on it: uint8 [384, 384, 3]."""
    scene = ground(chance, others, birds)
    for _ in range(chance.randint(1, 2)):
        _add_scrap(chance, scene, others)
    return np.asarray(scene)


def _add_scrap(chance, scene, others):
    image = Image.fromarray(np.asarray(others[chance.randrange(len(others))]))
    side = chance.uniform(0.2, 0.9) * SIDE
    left, top = chance.uniform(0, SIDE - side), chance.uniform(0, SIDE - side)
    width = int(np.exp(chance.uniform(np.log(0.12), np.log(0.7))) * SIDE)
    size = width, max(8, int(width * chance.uniform(0.6, 1.6)))
    scrap = image.resize(size, Image.BICUBIC, box=(left, top, left + side, top + side))
    corner = [chance.randint(-width // 3, SIDE - width // 2) for _ in range(2)]
    scene.paste(scrap, corner, _soft_mask(chance, *size))


def _toned(chance, scene, patch):
    """In half the cases the scene, moved towards the tone of the patch's edge."""
    if chance.random() < 0.5:
        return scene
    pixels = np.asarray(patch, np.float32)
    edge = np.concatenate([pixels[0], pixels[-1], pixels[:, 0], pixels[:, -1]]).mean(axis=0)
    ground_pixels = np.asarray(scene, np.float32)
    moved = ground_pixels + chance.uniform(0.3, 1) * (edge - ground_pixels.mean(axis=(0, 1)))
    return Image.fromarray(np.clip(moved, 0, 255).astype(np.uint8))


def _soft_mask(chance, width, height):
    """An ellipse or a rectangle with an edge more or less soft."""
    edge = chance.uniform(0.02, 0.2) * min(width, height)
    mask = Image.new("L", (width, height), 0)
    draw = ImageDraw.Draw(mask)
    shape = draw.ellipse if chance.random() < 0.35 else draw.rectangle
    shape((edge, edge, width - edge, height - edge), fill=255)
    return mask.filter(ImageFilter.GaussianBlur(max(edge / 2, 0.5)))

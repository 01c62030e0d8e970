"""Views of a picture: what the last layer is taught on, besides the classifier's own square."""

import random

import numpy as np
from PIL import Image, ImageEnhance

from preparation import opened, reduced, square

# A view shows at least this part of the centre square's side.
SMALLEST = 0.6

# Half of the views have other light: brightness and contrast by factors from these ranges.
BRIGHTNESS = (0.75, 1.25)
CONTRAST = (0.8, 1.2)


def view(path, number):
    """View `number` of the photograph at `path`: uint8 [384, 384, 3].

    View 0 is what the program makes of it. Each other one is a square of the picture, at random and
    yet the same each time: of at least SMALLEST of the size, somewhere in the picture or in its
    centre square, mirrored or not, in half the cases in other light.
    """
    image = reduced(opened(path))
    if number == 0:
        return square(image)
    chance = random.Random(f"{path.name}/{number}")
    pixels = square(image, _box(image, chance))
    if chance.random() < 0.5:
        pixels = pixels[:, ::-1]
    return _lit(pixels, chance) if chance.random() < 0.5 else pixels


def _box(image, chance):
    width, height = image.size
    whole = min(width, height)
    side = max(round(whole * chance.uniform(SMALLEST, 1)), 1)
    corner = []
    for extent in (width, height):
        margin = (extent - whole) // 2 if chance.random() < 0.5 else 0
        corner.append(chance.randint(margin, extent - margin - side))
    left, top = corner
    return left, top, left + side, top + side


def _lit(pixels, chance):
    image = Image.fromarray(pixels)
    image = ImageEnhance.Brightness(image).enhance(chance.uniform(*BRIGHTNESS))
    image = ImageEnhance.Contrast(image).enhance(chance.uniform(*CONTRAST))
    return np.asarray(image)

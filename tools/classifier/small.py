"""Photographs laid small into a scene of another place: the bird as it is without a long lens."""

from PIL import Image, ImageDraw, ImageFilter

from grounds import ground
from holdback import HELD
from preparation import prepared
from teacher import true_box

# The photograph's edge fades over this part of its shorter side.
FADE = 0.06

# The scene's side, in pixels: enough for a photograph of full size laid in at a quarter.
LARGEST = 640


class Grounds:
    """Grounds that no training saw: things, landscapes, parts without a bird, drawn ones."""

    def __init__(self, pictures, sides):
        held = [picture for picture, side in zip(pictures, sides) if side == HELD]
        self._others = [prepared(picture.path) for picture in held if not picture.is_bird]
        self._birds = [(prepared(picture.path), true_box(picture))
                       for picture in held if picture.box]

    def draw(self, chance):
        return ground(chance, self._others, self._birds)


def laid_small(image, times, scene, chance):
    """A square scene `times` as wide as the photograph `image` is high (or wide, if that is less),
    with the photograph somewhere in it; `scene` is a picture to be the ground. A PIL picture."""
    side = min(LARGEST, round(min(image.size) * times))
    canvas = scene.resize((side, side), Image.BICUBIC)
    scale = side / times / min(image.size)
    size = [max(round(extent * scale), 1) for extent in image.size]
    small = image.resize(size, Image.LANCZOS)
    corner = [_somewhere(side - extent, chance) for extent in size]
    canvas.paste(small, corner, _fading(size))
    return canvas


def _somewhere(room, chance):
    """Where the photograph begins: in the scene, or centred where it is wider than the scene."""
    return chance.randint(0, room) if room >= 0 else room // 2


def _fading(size):
    fade = round(min(size) * FADE)
    mask = Image.new("L", size, 0)
    ImageDraw.Draw(mask).rectangle((fade, fade, size[0] - fade, size[1] - fade), fill=255)
    return mask.filter(ImageFilter.GaussianBlur(fade / 2))

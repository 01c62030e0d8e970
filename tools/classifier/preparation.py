"""A photograph made ready for the classifier, as the program makes it ready.

The program turns a photograph into sRGB, reduces it so that its longer side is at most 640, turns
it upright, cuts the centre square and scales that to 384x384, with Lanczos throughout.
"""

import io

import numpy as np
from PIL import Image, ImageCms, ImageOps

# The longest side, in pixels, at which a photograph is kept.
LONGEST = 640

# The side of the classifier's input square, in pixels.
SIDE = 384

# A JPEG wider than this is decoded at half its size at once: what is left is still more than enough
# for 640, and it saves three quarters of the time.
HALVED_FROM = 2600

_SRGB = ImageCms.createProfile("sRGB")
_BLACK = (0, 0, 0, 255)


def opened(path):
    """The photograph at `path` as an upright sRGB picture; what is transparent lies on black."""
    image = Image.open(path)
    if image.format == "JPEG" and max(image.size) > HALVED_FROM:
        image.draft("RGB", (image.width // 2, image.height // 2))
    image = ImageOps.exif_transpose(image)
    if image.mode in ("P", "RGBA", "LA"):
        image = image.convert("RGBA")
        image = Image.alpha_composite(Image.new("RGBA", image.size, _BLACK), image)
        return image.convert("RGB")
    return _in_srgb(image).convert("RGB")


def _in_srgb(image):
    profile = image.info.get("icc_profile")
    if not profile or image.mode != "RGB":
        return image
    try:
        source = ImageCms.ImageCmsProfile(io.BytesIO(profile))
        return ImageCms.profileToProfile(image, source, _SRGB, outputMode="RGB")
    except (ImageCms.PyCMSError, OSError):
        return image  # a broken profile: its numbers are taken for sRGB


def reduced(image):
    """The picture with its longer side at most LONGEST; never enlarged."""
    scale = LONGEST / max(image.size)
    if scale >= 1:
        return image
    size = [max(round(extent * scale), 1) for extent in image.size]
    return image.resize(size, Image.LANCZOS)


def centre(image):
    """The box (left, top, right, bottom) of the picture's centre square, in pixels."""
    side = min(image.size)
    left = (image.width - side) // 2
    top = (image.height - side) // 2
    return left, top, left + side, top + side


def square(image, box=None):
    """What `box` holds of the picture (its centre square by default), scaled to SIDE.

    The box (left, top, right, bottom) is in whole pixels; answers uint8 [384, 384, 3].
    """
    part = image.crop(box or centre(image))
    return np.asarray(part.resize((SIDE, SIDE), Image.LANCZOS))


def prepared(path):
    """The classifier's square of the photograph at `path`: uint8 [384, 384, 3]."""
    return square(reduced(opened(path)))


def chw(pixels):
    """Pixels [height, width, 3] as the classifier takes them: float32 [1, 3, height, width]."""
    return np.ascontiguousarray(pixels.transpose(2, 0, 1)[None], dtype=np.float32)

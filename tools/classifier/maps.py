"""What the network's maps show of pictures: what the finder and the gate are taught on.

Kept below `work/maps` as arrays of float16, one row a picture.
"""

from pathlib import Path

import numpy as np
import onnx
from numpy.lib.format import open_memmap
from onnx import TensorProto, helper

from network import MAP8, MAP16, MEANS, add_look
from parts import Part, model
from preparation import SIDE, chw, prepared
from runtime import Session

SHAPES = {"map16": MAP16, "map8": MAP8, "means": (MEANS,)}


def open_maps(network, work):
    """A session that answers the maps and means of an `image` [1, 3, height, width] of any size, as
    the second look sees what it has cut out."""
    part = Part("look_")
    tensors = add_look(part, network, "image")
    outputs = []
    for name, tensor in zip(SHAPES, tensors):
        part.node("Identity", [tensor], output=name)
        outputs.append(helper.make_tensor_value_info(name, TensorProto.FLOAT, [1, *SHAPES[name]]))
    image = helper.make_tensor_value_info("image", TensorProto.FLOAT, [1, 3, "height", "width"])
    path = Path(work) / "maps.onnx"
    path.parent.mkdir(parents=True, exist_ok=True)
    onnx.save(model("maps", part, [image], outputs), str(path))
    return Session(path)


def keep_squares(pictures, work):
    """Writes the classifier's square of every picture, in order: work/squares.npy, uint8."""
    target = Path(work) / "squares.npy"
    if target.exists():
        return
    unfinished = target.with_suffix(".part.npy")
    squares = open_memmap(unfinished, "w+", np.uint8, (len(pictures), SIDE, SIDE, 3))
    for row, picture in enumerate(pictures):
        squares[row] = prepared(picture.path)
    squares.flush()
    unfinished.rename(target)


def squares(work):
    return np.load(Path(work) / "squares.npy", mmap_mode="r")


def keep(session, images, count, work, name):
    """Writes the maps of `count` images, an iterable of uint8 [side, side, 3]; `session` runs the
    features model."""
    folder = Path(work) / "maps"
    folder.mkdir(parents=True, exist_ok=True)
    paths = {part: folder / f"{name}_{part}.part.npy" for part in SHAPES}
    arrays = {part: open_memmap(path, "w+", np.float16, (count, *SHAPES[part]))
              for part, path in paths.items()}
    for row, image in enumerate(images):
        for part, answer in zip(SHAPES, session.run(chw(image), list(SHAPES))):
            arrays[part][row] = answer[0]
    for part, path in paths.items():
        arrays[part].flush()
        path.rename(folder / f"{name}_{part}.npy")


def are_kept(work, name):
    return all((Path(work) / "maps" / f"{name}_{part}.npy").exists() for part in SHAPES)


def kept(work, name):
    """The arrays by part, mapped from their files."""
    return {part: np.load(Path(work) / "maps" / f"{name}_{part}.npy", mmap_mode="r")
            for part in SHAPES}

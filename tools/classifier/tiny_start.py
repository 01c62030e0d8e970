"""A network of the start's build, small and untaught, and pictures to try it on: for tests."""

import csv
import io
import json
import tarfile
import zlib
from pathlib import Path

import numpy as np
import onnx
from onnx import TensorProto, helper
from PIL import Image

from network import BODY_SIDE, MAP8, MAP16, MEANS
from parts import Part, model
from preparation import SIDE

LABELS = ("Parus_major", "Larus_canus", "Anas_acuta")
TEMPERATURE = 0.95


def save(path, labels=LABELS):
    """Writes the network, with a padding of its own and two divisors of the scores, to `path`."""
    chance = np.random.default_rng(1)
    part = Part("")

    def convolution(image, width, channels, kernel, stride):
        weight = chance.normal(0, (width * kernel * kernel) ** -0.5,
                               (channels, width, kernel, kernel))
        return part.node("Conv", [image, part.constant(weight)], strides=[stride, stride],
                         pads=[0, 0, 0, 0])

    sizes = part.constant([1, 3, BODY_SIDE, BODY_SIDE], np.int64)
    unused = part.constant([])
    image = part.node("Resize", ["image", unused, unused, sizes], mode="linear",
                      coordinate_transformation_mode="half_pixel")
    image = part.node("Mul", [image, part.constant(1 / 255)])
    # The empty third input is the start's own way; ONNX Runtime leaves such a padding alone.
    image = part.node("Pad", [image, part.constant([0, 0, 0, 0, 0, 0, 1, 1], np.int64), ""])
    image = convolution(image, 3, 8, 3, 2)
    image = convolution(image, 8, MAP16[0], 8, 8)
    image = convolution(image, MAP16[0], 576, 1, 1)
    image = convolution(image, 576, MAP8[0], 2, 2)
    image = convolution(image, MAP8[0], MEANS, 1, 1)
    image = part.node("Clip", [image, part.constant(0), part.constant(6)])
    means = part.node("ReduceMean", [image], axes=[2, 3], keepdims=0)
    layer = part.constant(chance.normal(0, MEANS ** -0.5, (len(labels), MEANS)))
    scores = part.node("Gemm", [means, layer, part.constant(np.zeros(len(labels)))], transB=1)
    scores = part.node("Div", [scores, part.constant(1)])
    scores = part.node("Div", [scores, part.constant(TEMPERATURE)])
    part.node("Softmax", [scores], output="classLabel_probs", axis=1)
    ends = [helper.make_tensor_value_info(name, TensorProto.FLOAT, shape) for name, shape in (
        ("image", [1, 3, SIDE, SIDE]), ("classLabel_probs", [1, len(labels)]))]
    onnx.save(model("start", part, ends[:1], ends[1:], {"class_labels": "\n".join(labels)}),
              str(path))


def noise(size, seed):
    """A picture of coarse noise, different for each seed."""
    cells = np.random.default_rng(seed).integers(0, 256, (12, 12, 3), np.uint8)
    return Image.fromarray(cells).resize(size, Image.BICUBIC)


def save_pictures(folder, birds=(), nonbirds=(), boxes=()):
    """Writes a folder of pictures as pictures.load reads it, with common names beside it.

    `birds` are (file, species, known, source), `nonbirds` (file, source, path there), `boxes`
    (file, English name); the extras stay empty. Each picture is noise of 120x90.
    """
    folder = Path(folder)
    bird_columns = "file,species,label,known,source,licence,note"
    bird_rows = [(file, species, species.replace(" ", "_"), int(known), source, "none", "")
                 for file, species, known, source in birds]
    _save_set(folder, "pictures", "manifest", bird_columns, bird_rows)
    _save_set(folder, "extra_pictures", "extra_manifest", bird_columns, [])
    _save_set(folder, "nonbirds", "nonbirds", "file,source,path_there", nonbirds)
    _save_set(folder, "boxes", "boxes", "file,x,y,width,height,picture_width,picture_height,bird",
              [(file, 30, 20, 60, 45, 120, 90, name) for file, name in boxes])
    names = {"Parus_major": "Great Tit", "Larus_canus": "Common Gull"}
    (folder / "bird_common_names.json").write_text(json.dumps(names))


def _save_set(folder, archive, manifest, columns, rows):
    with open(folder / f"{manifest}.csv", "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file)
        writer.writerow(columns.split(","))
        writer.writerows(rows)
    with tarfile.open(folder / f"{archive}.tar", "w") as tar:
        for row in rows:
            content = io.BytesIO()
            seed = zlib.crc32(row[0].encode())
            noise((120, 90), seed).save(content, "JPEG", quality=95)
            entry = tarfile.TarInfo(row[0])
            entry.size = len(content.getvalue())
            tar.addfile(entry, io.BytesIO(content.getvalue()))

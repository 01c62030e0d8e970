"""Where the birds are, told by a detector that knows some eighty everyday things, the bird among
them. It teaches the finder and is not part of the classifier.

The detector is a YOLOX without its decoding: at three strides it answers for each cell four numbers
of a box, whether anything is there, and which of the eighty things.
"""

from pathlib import Path

import numpy as np
import onnx
from onnx import TensorProto, helper

from parts import Part, model
from preparation import SIDE, chw, prepared
from runtime import Session

# The tensors of the three strides, each [1, 85, side / stride, side / stride].
HEADS = {8: "1064", 16: "1104", 32: "1144"}

# Which of the eighty things is the bird; four numbers of the box and one of the object lead.
BIRD = 5 + 14

# What it was trained on: the mean and deviation of red, green and blue, of 255.
MEAN = np.array([0.485, 0.456, 0.406]) * 255
DEVIATION = np.array([0.229, 0.224, 0.225]) * 255

# The side, in pixels, at which the detector looks. Against true boxes of full scenes it was no worse
# than larger ones, and it takes a quarter of the time of 640.
LOOKS_AT = 320

# Of several boxes the one with the largest score x size^FAVOUR is taken: a whole bird rather than
# its head.
FAVOUR = 0.5

# From this score on a box is believed; under the other there is no bird.
SURE = 0.45
NONE = 0.3


def run(detector, pictures, work):
    """Writes work/teacher.npz for all pictures in their order: `boxes` [n, 4], left, top, right and
    bottom in parts of the classifier's square, and `scores` [n], 0 to 1."""
    target = Path(work) / "teacher.npz"
    if target.exists():
        return
    session = open_detector(detector, work)
    found = [surest(session, prepared(picture.path)) for picture in pictures]
    boxes, scores = zip(*found)
    np.savez(target, boxes=np.array(boxes, np.float32), scores=np.array(scores, np.float32))


def open_detector(path, work, side=LOOKS_AT):
    """A session that takes the classifier's square as it is, and looks at `side` pixels."""
    part = Part("detector_")
    unused, sizes = part.constant([]), part.constant([1, 3, side, side], np.int64)
    resized = part.node("Resize", ["image", unused, unused, sizes], mode="linear",
                        coordinate_transformation_mode="half_pixel")
    centred = part.node("Sub", [resized, part.constant(MEAN.reshape(1, 3, 1, 1))])
    scaled = part.node("Div", [centred, part.constant(DEVIATION.reshape(1, 3, 1, 1))])
    graph = onnx.load(str(path)).graph
    for stride, head in zip(HEADS, part.take(graph, "images", scaled, list(HEADS.values()))):
        part.node("Identity", [head], output=f"stride{stride}")
    outputs = [helper.make_tensor_value_info(f"stride{stride}", TensorProto.FLOAT,
                                             [1, 85, side // stride, side // stride])
               for stride in HEADS]
    image = helper.make_tensor_value_info("image", TensorProto.FLOAT, [1, 3, SIDE, SIDE])
    target = Path(work) / f"detector_{side}.onnx"
    target.parent.mkdir(parents=True, exist_ok=True)
    onnx.save(model("detector", part, [image], outputs), str(target))
    return Session(target)


def surest(session, pixels):
    """The box [4] of the bird in a square, uint8 [384, 384, 3], in its parts, and its score."""
    boxes, scores = decoded(dict(zip(HEADS, session.run(chw(pixels), [f"stride{s}" for s in HEADS]))))
    boxes = np.clip(boxes, 0, 1)
    size = np.sqrt(np.prod(np.maximum(boxes[:, 2:] - boxes[:, :2], 0), axis=1))
    best = np.argmax(scores * size ** FAVOUR)
    return boxes[best], scores[best]


def decoded(heads):
    """Boxes [n, 4] in parts of the picture and bird scores [n] of the answers by stride."""
    boxes, scores = [], []
    for stride, head in heads.items():
        rows = head.shape[2]
        numbers = head[0].reshape(head.shape[1], -1)
        y, x = np.divmod(np.arange(rows * rows), rows)
        centre = (numbers[:2] + [x, y]) / rows
        half = np.exp(numbers[2:4]) / rows / 2
        boxes.append(np.concatenate([centre - half, centre + half]).T)
        scores.append(_sigmoid(numbers[4]) * _sigmoid(numbers[BIRD]))
    return np.concatenate(boxes), np.concatenate(scores)


def _sigmoid(value):
    return 1 / (1 + np.exp(-value))


def true_box(picture):
    """The true box of a picture of the set boxes in parts of the classifier's square."""
    from PIL import Image

    with Image.open(picture.path) as image:
        width, height = image.size
    side = min(width, height)
    left, top = (width - side) // 2, (height - side) // 2
    x0, y0, x1, y1 = picture.box
    box = np.array([x0 * width - left, y0 * height - top, x1 * width - left, y1 * height - top])
    return np.clip(box / side, 0, 1)


def overlap(boxes, others):
    """Of boxes [n, 4] with others [n, 4]: their common area in parts of that of both together (IoU),
    and in parts of the others' own."""
    edges = np.minimum(boxes[:, 2:], others[:, 2:]) - np.maximum(boxes[:, :2], others[:, :2])
    common = np.prod(np.maximum(edges, 0), axis=1)
    area, other_area = area_of(boxes), area_of(others)
    return common / (area + other_area - common + 1e-9), common / (other_area + 1e-9)


def area_of(boxes):
    return np.prod(np.maximum(boxes[:, 2:] - boxes[:, :2], 0), axis=1)


def side_of(boxes):
    """The longer side of each box."""
    return (boxes[:, 2:] - boxes[:, :2]).max(axis=1)

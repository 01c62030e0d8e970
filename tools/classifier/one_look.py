"""One look of the classifier, as the body of the graph's Loop.

A look is taken at a window of the image: it scores every label, finds the bird, says how surely there
is one, and decides whether another look is worth its time, and where.
"""

import numpy as np
from onnx import TensorProto, helper
from onnx.helper import make_tensor_value_info as info

from assembly import Assembly, maximum, minimum
from network import add_look
from preparation import SIDE

# The finder's answers stand on cells of 16x16; each tells the distances to the four edges of its
# box, in cells and as logarithms. Beyond e^4 cells lies outside the picture at any rate.
CELLS = 16
LONGEST_LOGARITHM = 4.0

# Left and top edges lie on the lower side of a cell's centre; in parts of the square.
OUTWARDS = np.array([-1, -1, 1, 1]) / CELLS

# A cell weighs e^(SURENESS x score) in the mean of boxes.
SURENESS = 2.0

# What each look leaves behind, in the order of the Loop's outputs.
KEPT = ("scores", "bird", "seen", "box", "window")


def body(network, finder, settings):
    """The Loop's body: one look at the part `look_window` of the image.

    `look_window` is int64 [top, left, bottom, right] in pixels. Each look leaves behind its scores
    [1, N], how surely there is a bird (a logit, [1]), the finder's score [1], the bird's box in
    parts of the window (left, top, right, bottom, [4]) and the window itself.
    """
    look = Assembly("look_")
    window = look.existing("look_window")
    map16, map8, means, scores = (
        look.existing(name)
        for name in add_look(look, network, _cut(look, window).name))
    seen, box = _found(look, finder, map16, map8)
    bird = _gate(look, settings, means, seen, scores)

    side = longer_side(box)
    again = _wants_second_look(look, settings, scores, side, seen)
    look.call("Reshape", again, look.integers([]), output="look_again")
    look.named(_window_around(look, settings, box, side), "look_next")

    count = len(network.labels)
    kept = {"scores": (scores, [1, count]), "bird": (bird, [1]), "seen": (seen, [1]),
            "box": (box, [4])}
    outputs = [info("look_again", TensorProto.BOOL, []),
               info("look_next", TensorProto.INT64, [4])]
    for name, (value, shape) in kept.items():
        look.named(value, f"look_{name}_out")
        outputs.append(info(f"look_{name}_out", TensorProto.FLOAT, shape))
    look.named(window, "look_window_out")
    outputs.append(info("look_window_out", TensorProto.INT64, [4]))
    inputs = [info("look_index", TensorProto.INT64, []), info("look_go", TensorProto.BOOL, []),
              info("look_window", TensorProto.INT64, [4])]
    return helper.make_graph(look.nodes, "look", inputs, outputs, look.constants)


def _cut(look, window):
    """The image's pixels within the window."""
    return look.call("Slice", look.existing("image"), window.slice(0, 2), window.slice(2, 4),
                     look.integers([2, 3]))


def _found(look, finder, map16, map8):
    """The surest cell's score [1], and the bird's box [4] within 0 and 1.

    The box is the mean of those of all cells that lie within the surest cell's own, weighed by their
    scores: one cell alone may tell of a part of a large bird.
    """
    cells = _finder_features(look, finder, map16, map8).reshape(5, CELLS * CELLS)
    scores = cells.slice(0, 1).reshape(-1)
    logarithms = look.call("Transpose", cells.slice(1, 5), perm=[1, 0])
    distances = logarithms.clip(-LONGEST_LOGARITHM, LONGEST_LOGARITHM).exp()
    boxes = distances * OUTWARDS + cell_centres()

    best = look.call("ArgMax", scores, axis=0, keepdims=1)
    score, own = scores.gather(best), boxes.gather(best)
    middles = look.value(cell_centres()[:, :2])
    inside = ((middles > own.slice(0, 2, axis=1)) & (middles < own.slice(2, 4, axis=1)))
    inside = look.call("ReduceMin", look.call("Cast", inside, to=TensorProto.FLOAT), axes=[1],
                       keepdims=0)
    weights = ((scores - score) * SURENESS).exp() * inside
    mean = weights.reshape(1, -1) @ boxes / weights.sum(axis=0, keepdims=1)
    return score, mean.reshape(4).clip(0.0, 1.0)


def cell_centres():
    """The centre of each cell as x, y, x, y in parts of the square: [256, 4], row by row."""
    across = (np.arange(CELLS) + 0.5) / CELLS
    x, y = np.meshgrid(across, across)
    return np.stack([x, y, x, y], axis=-1).reshape(-1, 4)


def _finder_features(look, finder, map16, map8):
    """The finder's network (finder.Finder), [1, 5, 16, 16]."""

    def convolution(value, name, **attributes):
        return look.call("Conv", value, finder[f"{name}.weight"], finder[f"{name}.bias"],
                         **attributes)

    doubled = look.call(
        "Resize", convolution(map8, "b"), look.value([]), look.value([1, 1, 2, 2]), mode="nearest",
        coordinate_transformation_mode="asymmetric", nearest_mode="floor")
    features = (convolution(map16, "a") + doubled).relu()
    width = len(finder["a.bias"])
    for spread, joined in (("d1", "p1"), ("d2", "p2")):
        spread_out = convolution(features, spread, group=width, pads=[2, 2, 2, 2])
        features = features + convolution(spread_out, joined).relu()
    return convolution(features, "o")


def _gate(look, settings, means, seen, scores):
    """How surely there is a bird, as a logit [1]."""
    weights = np.array(settings.gate_means).reshape(-1, 1)
    evidence = look.call("ReduceLogSumExp", scores, axes=[1], keepdims=0)
    return ((means.reshape(1, -1) @ weights).reshape(1) + seen * [settings.gate_finder]
            + evidence * [settings.gate_evidence] + [settings.gate_constant])


def _wants_second_look(look, settings, scores, side, seen):
    """Whether this is the first look, and a second is worth its time: bool [1]."""
    is_first = look.call("Equal", look.existing("look_index").reshape(1), look.integers([0]))
    top = (scores / settings.temperature).softmax().largest(keepdims=0)
    return (is_first & (top < [settings.sure]) & (side < [settings.small])
            & (seen > [settings.seen]))


def _window_around(look, settings, box, side):
    """The square around the box that lies within the picture: int64 [top, left, bottom, right]."""
    left, top, right, bottom = box.split(1, 1, 1, 1)
    length = (side * settings.margin).clip(settings.least / SIDE, 1.0)
    room = look.value([1.0]) - length

    def start(low, high):
        middle = (low + high) * 0.5
        return maximum(minimum(middle - length * 0.5, room), look.value([0.0]))

    starts = [start(top, bottom), start(left, right)]
    ends = [value + length for value in starts]
    pixels = look.concat(starts + ends) * float(SIDE)
    return look.call("Cast", look.call("Round", pixels), to=TensorProto.INT64)


def longer_side(box):
    """Of a box [4]: [1]."""
    left, top, right, bottom = box.split(1, 1, 1, 1)
    return maximum(right - left, bottom - top)

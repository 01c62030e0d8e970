"""The whole classifier as one ONNX graph.

A Loop runs the network once or twice, so that its weights stand in the file once: first on the whole
square, then, where the finder saw a small bird and the first answer was not sure, on the square
around that bird. The looks' scores are mixed, look-alikes lend each other a share, and what is no
bird loses its answer.

| name | what |
|---|---|
| input `image` | float32 [1, 3, 384, 384], RGB, 0 to 255 |
| output `classLabel_probs` | float32 [1, N], probabilities in the order of the labels, sum 1 |
| output `classLabel` | string [1, 1], the best label |
| output `bird_box` | float32 [1, 4]: the bird's centre x and y and longer side in parts of the square, and how surely it is one (0 to 1) |

Only operators of ONNX's opset 12 and one of ai.onnx.ml: ONNX Runtime 1.17 runs it.
"""

import numpy as np
import onnx
from onnx import TensorProto, helper

from assembly import Assembly, maximum, minimum
from network import add_look
from parts import model
from preparation import SIDE

# The finder's answers stand on cells of 16x16; each tells the distances to the four edges of its
# box, in cells and as logarithms. Beyond e^4 cells lies outside the picture at any rate.
CELLS = 16
LONGEST_LOGARITHM = 4.0

# Left and top edges lie on the lower side of a cell's centre; in parts of the square.
OUTWARDS = np.array([-1, -1, 1, 1]) / CELLS

# A cell weighs e^(SHARPNESS x score) in the mean of boxes.
SHARPNESS = 2.0

# Of ai.onnx.ml, for the label's text.
ML_OPSET = 2


def save(network, finder, settings, twins, path, version):
    """Writes the graph to `path` and the labels beside it as `labels.txt`.

    `network` is a network.Network with the last layer to ship; `finder` the finder's weights by name
    (finder.py); `settings` a settings.Settings; `twins` the look-alikes' (index, weight), each
    [N, K] (lookalikes.py), or None.
    """
    outer = Assembly("")
    looks = _looks(outer, _body(network, finder, settings))
    answer = _answer(outer, looks, settings, twins, len(network.labels))
    outer.named(answer, "classLabel_probs")
    _label(outer, network.labels)
    outer.named(_bird_box(outer, looks), "bird_box")

    count = len(network.labels)
    floats = {"classLabel_probs": [1, count], "bird_box": [1, 4]}
    outputs = [_info(name, TensorProto.FLOAT, shape) for name, shape in floats.items()]
    outputs.insert(1, _info("classLabel", TensorProto.STRING, [1, 1]))
    whole = model(
        "looks_twice", outer, [_info("image", TensorProto.FLOAT, [1, 3, SIDE, SIDE])], outputs,
        properties=_properties(network.labels, version), domains=[("ai.onnx.ml", ML_OPSET)])
    onnx.save(whole, str(path))
    text = "".join(f"{label}\n" for label in network.labels)
    path.with_name("labels.txt").write_text(text, encoding="utf-8")


def _info(name, element, shape):
    return helper.make_tensor_value_info(name, element, shape)


def _properties(labels, version):
    return {
        "class_labels": "\n".join(labels),
        "input": "image: RGB, 1x3x384x384, float32, 0 to 255, upright centre square",
        "outputs": "classLabel: best label; classLabel_probs: probability by label, in the order of "
                   "class_labels; bird_box: centre x, centre y, longer side (parts of the square), "
                   "score (0 to 1)",
        "version": version,
    }


# ---------------------------------------------------------------------------------- one look


def _body(network, finder, settings):
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

    left, top, right, bottom = box.split(1, 1, 1, 1)
    side = maximum(right - left, bottom - top)
    again = _wants_second_look(look, settings, scores, side, seen)
    look.call("Reshape", again, look.integers([]), output="look_again")
    look.named(_window_around(look, settings, box, side), "look_next")

    count = len(network.labels)
    kept = {"scores": (scores, [1, count]), "bird": (bird, [1]), "seen": (seen, [1]),
            "box": (box, [4])}
    outputs = [_info("look_again", TensorProto.BOOL, []),
               _info("look_next", TensorProto.INT64, [4])]
    for name, (value, shape) in kept.items():
        look.named(value, f"look_{name}_out")
        outputs.append(_info(f"look_{name}_out", TensorProto.FLOAT, shape))
    look.named(window, "look_window_out")
    outputs.append(_info("look_window_out", TensorProto.INT64, [4]))
    inputs = [_info("look_index", TensorProto.INT64, []), _info("look_go", TensorProto.BOOL, []),
              _info("look_window", TensorProto.INT64, [4])]
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
    weights = ((scores - score) * SHARPNESS).exp() * inside
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


# ---------------------------------------------------------------------------------- all looks


class _Looks:
    """What the looks left behind. The first and the last are the same where there was one."""

    def __init__(self, stacked, is_second):
        self.first = {name: value.gather(0) for name, value in stacked.items()}
        self.last = {name: value.gather(-1) for name, value in stacked.items()}
        self.is_second = is_second  # float [1]: 0 after one look, 1 after two


def _looks(outer, body):
    names = ("scores", "bird", "seen", "box", "window")
    limit, go = outer.value(2, np.int64), outer.value(True, np.bool_)
    whole = outer.integers([0, 0, SIDE, SIDE])
    results = outer.split_node("Loop", [limit.name, go.name, whole.name], 1 + len(names), body=body)
    stacked = dict(zip(names, map(outer.existing, results[1:])))
    number = outer.call("Shape", stacked["scores"]).slice(0, 1)
    is_second = outer.call("Cast", number - outer.integers([1]), to=TensorProto.FLOAT)
    return _Looks(stacked, is_second)


def _side(box):
    left, top, right, bottom = box.split(1, 1, 1, 1)
    return maximum(right - left, bottom - top)


def _answer(outer, looks, settings, twins, count):
    """The probabilities [1, N]."""
    share = ((settings.share_from - _side(looks.first["box"])) / [settings.share_width]).clip(0.0, 1.0)
    mixed = looks.first["scores"] * (1.0 - share) + looks.last["scores"] * share
    warmer = looks.is_second * [settings.temperature_two - settings.temperature]
    shares = (mixed / (warmer + [settings.temperature])).softmax()
    if twins is not None:
        shares = _lent(outer, shares, *twins)
    if settings.sharpness:
        shares = _sharpened(shares, settings)
    return _gated(outer, shares, looks, settings, count)


def _lent(outer, shares, index, weight):
    """Each label's share becomes the weighted sum of those of its neighbours, itself among them."""
    neighbours = outer.call("Gather", shares, outer.value(index, np.int64), axis=1)
    return (neighbours * weight[None]).sum(axis=2)


def _sharpened(shares, settings):
    above = (shares.largest() - settings.sharp_from).relu()
    raised = shares ** (above * settings.sharpness + 1.0)
    return raised / raised.sum(axis=1, keepdims=1)


def _gated(outer, shares, looks, settings, count):
    """What is no bird spreads over labels that live nearly everywhere: there it is too thin to be
    called, and no factor of a place can blow the rest up."""
    second = settings.gate_second
    is_bird = (looks.first["bird"] * (1.0 - second) + looks.last["bird"] * second).sigmoid()
    spread = np.zeros((1, count), np.float32)
    spread[0, settings.nobody] = 1.0 / len(settings.nobody)
    return shares * is_bird + outer.value(spread) * (1.0 - is_bird)


def _label(outer, labels):
    top = outer.call("ArgMax", outer.existing("classLabel_probs"), axis=1, keepdims=0)
    texts = helper.make_tensor("class_labels", TensorProto.STRING, [1, len(labels)],
                               [label.encode() for label in labels])
    outer.constants.append(texts)
    outer.call("ArrayFeatureExtractor", outer.existing("class_labels"), top, output="classLabel",
               domain="ai.onnx.ml")


def _bird_box(outer, looks):
    """Where the last look saw the bird: centre x and y, longer side and score, [1, 4]."""
    window = outer.call("Cast", looks.last["window"], to=TensorProto.FLOAT) * (1 / SIDE)
    left, top, right, bottom = looks.last["box"].split(1, 1, 1, 1)
    above, before, _, end = window.split(1, 1, 1, 1)
    scale = end - before
    parts = [before + (left + right) * 0.5 * scale, above + (top + bottom) * 0.5 * scale,
             _side(looks.last["box"]) * scale, looks.last["seen"].sigmoid()]
    return outer.concat(parts).reshape(1, 4)

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
from onnx.helper import make_tensor_value_info as info

from assembly import Assembly
from one_look import KEPT, body, longer_side
from parts import model
from preparation import SIDE

# Of ai.onnx.ml, for the label's text.
ML_OPSET = 2


def save(network, finder, settings, twins, path, version):
    """Writes the graph to `path` and the labels beside it as `labels.txt`.

    `network` is a network.Network with the last layer to ship; `finder` the finder's weights by name
    (finder.py); `settings` a settings.Settings; `twins` the look-alikes' (index, weight), each
    [N, K] (lookalikes.py), or None.
    """
    outer = Assembly("")
    looks = _looks(outer, body(network, finder, settings))
    answer = _answer(outer, looks, settings, twins, len(network.labels))
    outer.named(answer, "classLabel_probs")
    _label(outer, network.labels)
    outer.named(_bird_box(outer, looks), "bird_box")

    count = len(network.labels)
    floats = {"classLabel_probs": [1, count], "bird_box": [1, 4]}
    outputs = [info(name, TensorProto.FLOAT, shape) for name, shape in floats.items()]
    outputs.insert(1, info("classLabel", TensorProto.STRING, [1, 1]))
    whole = model(
        "looks_twice", outer, [info("image", TensorProto.FLOAT, [1, 3, SIDE, SIDE])], outputs,
        properties=_properties(network.labels, version), domains=[("ai.onnx.ml", ML_OPSET)])
    onnx.save(whole, str(path))
    text = "".join(f"{label}\n" for label in network.labels)
    path.with_name("labels.txt").write_text(text, encoding="utf-8")


def _properties(labels, version):
    return {
        "class_labels": "\n".join(labels),
        "input": "image: RGB, 1x3x384x384, float32, 0 to 255, upright centre square",
        "outputs": "classLabel: best label; classLabel_probs: probability by label, in the order of "
                   "class_labels; bird_box: centre x, centre y, longer side (parts of the square), "
                   "score (0 to 1)",
        "version": version,
    }


class _Looks:
    """What the looks left behind. The first and the last are the same where there was one."""

    def __init__(self, stacked, is_second):
        self.first = {name: value.gather(0) for name, value in stacked.items()}
        self.last = {name: value.gather(-1) for name, value in stacked.items()}
        self.is_second = is_second  # float [1]: 0 after one look, 1 after two


def _looks(outer, one_look):
    limit, go = outer.value(2, np.int64), outer.value(True, np.bool_)
    whole = outer.integers([0, 0, SIDE, SIDE])
    results = outer.split_node("Loop", [limit.name, go.name, whole.name], 1 + len(KEPT), body=one_look)
    stacked = dict(zip(KEPT, map(outer.existing, results[1:])))
    number = outer.call("Shape", stacked["scores"]).slice(0, 1)
    is_second = outer.call("Cast", number - outer.integers([1]), to=TensorProto.FLOAT)
    return _Looks(stacked, is_second)


def _answer(outer, looks, settings, twins, count):
    """The probabilities [1, N]."""
    share = ((settings.share_from - longer_side(looks.first["box"])) / [settings.share_width]).clip(0.0, 1.0)
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
             longer_side(looks.last["box"]) * scale, looks.last["seen"].sigmoid()]
    return outer.concat(parts).reshape(1, 4)

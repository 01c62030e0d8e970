"""The start network opened up, so that its parts can be used apart.

The start is a MobileNetV2 as one ONNX graph. Here its constants are folded and its paddings taken
into the convolutions (padding nodes of their own cost ONNX Runtime a quarter of the time), and the
tensors between its parts get names:

| tensor | shape | what |
|---|---|---|
| resized | 1x3x256x256 | the picture as the body sees it, 0 to 255 |
| map16 | 1x96x16x16 | the last map of stride 16 |
| map8 | 1x320x8x8 | the last map of stride 32 |
| means | 1x1280 | the features that the last layer weighs |
| scores | 1xN | the last layer's answers, without any temperature |
"""

from dataclasses import dataclass, replace
from pathlib import Path

import numpy as np
import onnx
from onnx import TensorProto, helper, numpy_helper

from parts import Part, model
from preparation import SIDE
from runtime import Session

# The features of a picture as the tensors above, with their shapes.
MAP16 = (96, 16, 16)
MAP8 = (320, 8, 8)
MEANS = 1280

# The side, in pixels, at which the body sees the picture.
BODY_SIDE = 256


@dataclass(frozen=True)
class Network:
    """`graph` with the tensors named above; `labels` in the order of the scores; `temperature` by
    which the start divided its scores; the last layer's `weight` [N, 1280] and `bias` [N]."""

    graph: onnx.GraphProto
    labels: tuple
    temperature: float
    weight: np.ndarray
    bias: np.ndarray


def open_network(path, work):
    """The start network of the file `path`; `work` is a folder for what falls off on the way."""
    folded = Path(work) / "folded.onnx"
    folded.parent.mkdir(parents=True, exist_ok=True)
    Session(path, optimisation="basic", save_to=folded)
    opened = onnx.load(str(folded))
    graph = opened.graph
    _constants_to_initializers(graph)
    _paddings_into_convolutions(graph)
    _name_tensors(graph)
    temperature = _name_scores(graph)
    constants = {tensor.name: tensor for tensor in graph.initializer}
    properties = {entry.key: entry.value for entry in opened.metadata_props}
    layer = next(node for node in graph.node if node.op_type == "Gemm")
    return Network(
        graph=graph, labels=tuple(properties["class_labels"].split("\n")), temperature=temperature,
        weight=numpy_helper.to_array(constants[layer.input[1]]).copy(),
        bias=numpy_helper.to_array(constants[layer.input[2]]).copy())


def with_last_layer(network, weight, bias, labels):
    """The network with another last layer: `weight` [N, 1280], `bias` [N], N labels."""
    graph = onnx.GraphProto()
    graph.CopyFrom(network.graph)
    layer = next(node for node in graph.node if node.op_type == "Gemm")
    for tensor in graph.initializer:
        if tensor.name == layer.input[1]:
            tensor.CopyFrom(numpy_helper.from_array(weight.astype(np.float32), tensor.name))
        elif tensor.name == layer.input[2]:
            tensor.CopyFrom(numpy_helper.from_array(bias.astype(np.float32), tensor.name))
    return replace(network, graph=graph, labels=tuple(labels), weight=weight, bias=bias)


def add_look(part, network, image):
    """Adds to `part` one look of the network at the tensor `image`, 1x3 of any size, 0 to 255.

    Answers the names of map16, map8, means and scores in the part.
    """
    unused = part.constant([])
    sizes = part.constant([1, 3, BODY_SIDE, BODY_SIDE], np.int64)
    resized = part.node("Resize", [image, unused, unused, sizes], mode="linear",
                        coordinate_transformation_mode="half_pixel")
    return part.take(network.graph, "resized", resized, ["map16", "map8", "means", "scores"])


def save_features_model(network, path):
    """Writes a model that answers map16, map8, means and scores of an `image` 1x3x384x384."""
    part = Part("look_")
    names = ("map16", "map8", "means", "scores")
    for name, tensor in zip(names, add_look(part, network, "image")):
        part.node("Identity", [tensor], output=name)
    shapes = ([1, *MAP16], [1, *MAP8], [1, MEANS], [1, len(network.labels)])
    floats = [helper.make_tensor_value_info(name, TensorProto.FLOAT, shape)
              for name, shape in zip(names, shapes)]
    image = helper.make_tensor_value_info("image", TensorProto.FLOAT, [1, 3, SIDE, SIDE])
    onnx.save(model("features", part, [image], floats), str(path))


def _constants_to_initializers(graph):
    for node in [node for node in graph.node if node.op_type == "Constant"]:
        tensor = graph.initializer.add()
        tensor.CopyFrom(node.attribute[0].t)
        tensor.name = node.output[0]
        graph.node.remove(node)


def _paddings_into_convolutions(graph):
    constants = {tensor.name: tensor for tensor in graph.initializer}
    paddings = {node.output[0]: node for node in graph.node if node.op_type == "Pad"}
    for node in graph.node:
        if node.op_type != "Conv" or node.input[0] not in paddings:
            continue
        padding = paddings[node.input[0]]
        # N, C, H, W before, then the same after.
        extents = numpy_helper.to_array(constants[padding.input[1]]).tolist()
        assert extents[:2] == extents[4:6] == [0, 0], "a padding of pictures or channels"
        pads = next(item for item in node.attribute if item.name == "pads")
        for index, extent in enumerate(extents[2:4] + extents[6:8]):
            pads.ints[index] += extent
        node.input[0] = padding.input[0]
    for padding in paddings.values():
        graph.node.remove(padding)


def _name_tensors(graph):
    shapes = {tensor.name: tuple(tensor.dims) for tensor in graph.initializer}
    resize = next(node for node in graph.node if node.op_type == "Resize")
    _rename(graph, resize.output[0], "resized")
    means = next(node for node in graph.node if node.op_type in ("ReduceMean", "GlobalAveragePool"))
    _rename(graph, means.output[0], "means")
    convolutions = [node for node in graph.node if node.op_type == "Conv"]
    widening = [node for node in convolutions if shapes[node.input[1]][:2] == (576, MAP16[0])]
    _rename(graph, widening[-1].input[0], "map16")  # the last block that reads it
    last = next(node for node in convolutions if shapes[node.input[1]][:2] == (MEANS, MAP8[0]))
    _rename(graph, last.input[0], "map8")


def _name_scores(graph):
    """Names the scores; answers the product of the divisors between them and the probabilities."""
    constants = {tensor.name: tensor for tensor in graph.initializer}
    layer = next(node for node in graph.node if node.op_type == "Gemm")
    temperature = 1.0
    for node in graph.node:
        if node.op_type == "Div" and node.input[1] in constants:
            temperature *= float(numpy_helper.to_array(constants[node.input[1]]))
    _rename(graph, layer.output[0], "scores")
    return temperature


def _rename(graph, old, new):
    for node in graph.node:
        node.input[:] = [new if name == old else name for name in node.input]
        node.output[:] = [new if name == old else name for name in node.output]

"""Pieces of ONNX graphs: built node by node, or taken out of another graph, under a prefix of their
own so that several fit into one graph."""

import numpy as np
import onnx
from onnx import helper, numpy_helper

# The operators that every part may use, and the file format's version that goes with them.
OPSET = 12
IR_VERSION = 7


class Part:
    """Nodes and constants whose names all begin with `prefix`."""

    def __init__(self, prefix):
        self.prefix = prefix
        self.nodes = []
        self.constants = []
        self._count = 0

    def _fresh(self, what):
        self._count += 1
        return f"{self.prefix}{what}_{self._count}"

    def constant(self, value, dtype=np.float32):
        """The name of a constant tensor."""
        name = self._fresh("constant")
        self.constants.append(numpy_helper.from_array(np.array(value, dtype=dtype), name))
        return name

    def node(self, operator, inputs, output=None, **attributes):
        """Adds a node of one output; answers the output's name."""
        output = output or self._fresh(operator)
        self.nodes.append(helper.make_node(operator, inputs, [output], **attributes))
        return output

    def split_node(self, operator, inputs, count, **attributes):
        """Adds a node of `count` outputs; answers their names."""
        outputs = [self._fresh(operator) for _ in range(count)]
        self.nodes.append(helper.make_node(operator, inputs, outputs, **attributes))
        return outputs

    def take(self, graph, source, replacement, targets):
        """Copies from `graph` what computes the tensors `targets` from the tensor `source`, which
        becomes this part's tensor `replacement`; answers the targets' names in this part."""
        constants = {constant.name: constant for constant in graph.initializer}
        needed, used = _between(graph, source, targets)

        def renamed(name):
            if name == "":
                return ""
            return replacement if name == source else f"{self.prefix}taken_{name}"

        for original in needed:
            node = onnx.NodeProto()
            node.CopyFrom(original)
            node.name = f"{self.prefix}taken_{original.name or original.output[0]}"
            node.input[:] = [renamed(name) for name in original.input]
            node.output[:] = [renamed(name) for name in original.output]
            self.nodes.append(node)
        for name in used:
            constant = onnx.TensorProto()
            constant.CopyFrom(constants[name])
            constant.name = renamed(name)
            self.constants.append(constant)
        return [renamed(target) for target in targets]


def _between(graph, source, targets):
    """The nodes from `source` to `targets` in the graph's order, and the constants they use."""
    constants = {constant.name for constant in graph.initializer}
    wanted, needed, used = set(targets), [], []
    for node in reversed(graph.node):
        if not wanted & set(node.output):
            continue
        needed.append(node)
        for name in node.input:
            if name in constants:
                used.append(name)
            elif name not in ("", source):
                wanted.add(name)
    return list(reversed(needed)), list(dict.fromkeys(used))


def model(name, part, inputs, outputs, properties=None, domains=()):
    """A checked model of one part; `domains` are pairs (name, version) beyond ONNX's own."""
    graph = helper.make_graph(part.nodes, name, inputs, outputs, part.constants)
    opsets = [helper.make_opsetid("", OPSET)] + [helper.make_opsetid(*pair) for pair in domains]
    answer = helper.make_model(graph, opset_imports=opsets, producer_name="ornivo")
    answer.ir_version = IR_VERSION
    if properties:
        helper.set_model_props(answer, properties)
    onnx.checker.check_model(answer)
    return answer

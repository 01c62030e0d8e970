"""ONNX graphs written as arithmetic.

A `Value` is a tensor of an `Assembly` and adds up, multiplies and compares like a number, so that
the graph reads like the formula that it computes:

    assembly = Assembly("look_")
    left, top, right, bottom = assembly.existing("box").split(1, 1, 1, 1)
    small = maximum(right - left, bottom - top) < 0.7
"""

import numpy as np

from parts import Part


class Value:
    """A tensor under construction, known by its name. Numbers beside it become constants."""

    def __init__(self, assembly, name):
        self.assembly = assembly
        self.name = name

    def __add__(self, other):
        return self.assembly.call("Add", self, other)

    def __sub__(self, other):
        return self.assembly.call("Sub", self, other)

    def __rsub__(self, other):
        return self.assembly.call("Sub", other, self)

    def __mul__(self, other):
        return self.assembly.call("Mul", self, other)

    def __truediv__(self, other):
        return self.assembly.call("Div", self, other)

    def __pow__(self, other):
        return self.assembly.call("Pow", self, other)

    def __matmul__(self, other):
        return self.assembly.call("MatMul", self, other)

    def __and__(self, other):
        return self.assembly.call("And", self, other)

    def __lt__(self, other):
        return self.assembly.call("Less", self, other)

    def __gt__(self, other):
        return self.assembly.call("Greater", self, other)

    def clip(self, low, high):
        return self.assembly.call("Clip", self, low, high)

    def exp(self):
        return self.assembly.call("Exp", self)

    def relu(self):
        return self.assembly.call("Relu", self)

    def sigmoid(self):
        return self.assembly.call("Sigmoid", self)

    def softmax(self):
        """Of each row of two axes."""
        return self.assembly.call("Softmax", self, axis=1)

    def largest(self, keepdims=1):
        """Of each row of two axes."""
        return self.assembly.call("ReduceMax", self, axes=[1], keepdims=keepdims)

    def sum(self, axis, keepdims=0):
        return self.assembly.call("ReduceSum", self, axes=[axis], keepdims=keepdims)

    def reshape(self, *shape):
        return self.assembly.call("Reshape", self, self.assembly.integers(shape))

    def gather(self, index, axis=0):
        """What `index`, integers or a Value of them, picks along an axis."""
        if not isinstance(index, Value):
            index = self.assembly.integers(index)
        return self.assembly.call("Gather", self, index, axis=axis)

    def slice(self, start, end, axis=0):
        bounds = [self.assembly.integers([number]) for number in (start, end, axis)]
        return self.assembly.call("Slice", self, *bounds)

    def split(self, *sizes):
        """Values of the given lengths, cut along the first axis."""
        names = self.assembly.split_node("Split", [self.name], len(sizes), axis=0,
                                         split=list(sizes))
        return [Value(self.assembly, name) for name in names]


def maximum(first, second):
    return first.assembly.call("Max", first, second)


def minimum(first, second):
    return first.assembly.call("Min", first, second)


class Assembly(Part):
    """A part whose tensors are Values."""

    def existing(self, name):
        """The tensor of that name: an input, or what was added by name."""
        return Value(self, name)

    def value(self, number, dtype=np.float32):
        return Value(self, self.constant(number, dtype))

    def integers(self, numbers):
        return self.value(numbers, np.int64)

    def call(self, operator, *inputs, output=None, **attributes):
        """Adds a node of one output; None leaves an optional input out. `output` names the result
        where the graph promises a name."""
        names = [self._name(given) for given in inputs]
        return Value(self, self.node(operator, names, output, **attributes))

    def _name(self, given):
        if given is None:
            return ""
        return given.name if isinstance(given, Value) else self.constant(given)

    def concat(self, values, axis=0):
        return self.call("Concat", *values, axis=axis)

    def named(self, value, name):
        """Gives a value the name of one of the graph's outputs."""
        return self.call("Identity", value, output=name)

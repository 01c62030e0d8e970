"""Runs ONNX graphs with the ONNX Runtime that the program itself stands on.

The door is `runtime.cpp`, built as `libornivo_runtime.so`; the environment variable
`ORNIVO_RUNTIME` says where it lies when it is not in the development build.
"""

import ctypes
import os
from pathlib import Path

import numpy as np

LIBRARY = Path(__file__).resolve().parents[2] / "build/dev/lib/libornivo_runtime.so"

# ONNX Runtime's GraphOptimizationLevel.
OPTIMISATIONS = {"none": 0, "basic": 1, "extended": 2, "all": 99}

# ONNX's numbers for element types, as far as our graphs answer them. Texts come back as None.
ELEMENTS = {1: np.float32, 6: np.int32, 7: np.int64, 9: np.bool_, 11: np.float64}

ROOM_FOR_REASON = 4096


class RuntimeFailure(Exception):
    """ONNX Runtime refused a model or a run; the text is its own."""


def _load():
    path = os.environ.get("ORNIVO_RUNTIME", str(LIBRARY))
    if not Path(path).exists():
        raise RuntimeFailure(
            f"{path} is missing: build the target ornivo_runtime, or set ORNIVO_RUNTIME.")
    library = ctypes.CDLL(path)
    pointer, size, text = ctypes.c_void_p, ctypes.c_size_t, ctypes.c_char_p
    signatures = {
        "ornivo_open": (pointer, [text, ctypes.c_int, ctypes.c_int, text, pointer, size]),
        "ornivo_close": (None, [pointer]),
        "ornivo_outputs": (text, [pointer]),
        "ornivo_run": (pointer, [pointer, pointer, pointer, size, pointer, size, pointer, size]),
        "ornivo_release": (None, [pointer]),
        "ornivo_shape": (size, [pointer, size, pointer]),
        "ornivo_type": (ctypes.c_int, [pointer, size]),
        "ornivo_data": (pointer, [pointer, size]),
    }
    for name, (answer, arguments) in signatures.items():
        function = getattr(library, name)
        function.restype, function.argtypes = answer, arguments
    return library


class Session:
    """A model made ready to run.

    `threads` counts those of one operator; `optimisation` is a key of OPTIMISATIONS; `save_to`
    names a file for the graph as ONNX Runtime rewrote it. Raises RuntimeFailure.
    """

    _library = None

    def __init__(self, path, threads=1, optimisation="all", save_to=None):
        self._handle = None
        if Session._library is None:
            Session._library = _load()
        reason = ctypes.create_string_buffer(ROOM_FOR_REASON)
        self._handle = self._library.ornivo_open(
            os.fsencode(path), threads, OPTIMISATIONS[optimisation],
            os.fsencode(save_to) if save_to else b"", reason, ROOM_FOR_REASON)
        if not self._handle:
            raise RuntimeFailure(f"{path}: {reason.value.decode(errors='replace')}")
        self.outputs = self._library.ornivo_outputs(self._handle).decode().split()

    def __del__(self):
        if self._handle:
            self._library.ornivo_close(self._handle)

    def run(self, array, wanted=None):
        """The outputs named in `wanted` (all, in the graph's order, by default) for one input.

        The input goes in as float32 in the array's shape. Answers a list of arrays of the outputs'
        own shapes and types; an output of texts is None. Raises RuntimeFailure.
        """
        wanted = list(wanted or self.outputs)
        array = np.ascontiguousarray(array, np.float32)
        shape = (ctypes.c_int64 * array.ndim)(*array.shape)
        names = (ctypes.c_char_p * len(wanted))(*[name.encode() for name in wanted])
        reason = ctypes.create_string_buffer(ROOM_FOR_REASON)
        answers = self._library.ornivo_run(
            self._handle, array.ctypes.data, shape, array.ndim, names, len(wanted),
            reason, ROOM_FOR_REASON)
        if not answers:
            raise RuntimeFailure(reason.value.decode(errors="replace"))
        try:
            return [self._array(answers, index) for index in range(len(wanted))]
        finally:
            self._library.ornivo_release(answers)

    def _array(self, answers, index):
        rank = self._library.ornivo_shape(answers, index, None)
        shape = (ctypes.c_int64 * rank)()
        self._library.ornivo_shape(answers, index, shape)
        data = self._library.ornivo_data(answers, index)
        if data is None:
            return None
        element = np.dtype(ELEMENTS[self._library.ornivo_type(answers, index)])
        bytes_ = int(np.prod(shape, dtype=np.int64)) * element.itemsize
        return np.frombuffer(ctypes.string_at(data, bytes_), element).reshape(tuple(shape)).copy()

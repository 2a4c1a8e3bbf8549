"""NumPy arrays as the images of a call: what the library may take them for, and their addresses and steps."""
from __future__ import annotations

import math
from typing import Any, List, NoReturn, Tuple, Type

import numpy as np

from ._shapes import Shape, Size, holds_words, plane_shapes, shape_words, size_of
from ._table import Function, Side

Array = np.ndarray[Any, Any]


def described(dtype: Any, shape: Any) -> str:
    if not isinstance(shape, str):
        shape = "(" + ", ".join(map(str, shape)) + ("," if len(shape) == 1 else "") + ")"
    return f"{np.dtype(dtype).name} of shape {shape}"


class Image:
    """One side of a call; `label` is what messages call it."""

    def __init__(self, function: Function, label: str, side: Side, value: Any):
        self.function, self.label, self.side = function, label, side
        self.dtype = function.dtypes["src" if label == "src" else "dst"]
        self.planes: List[Array] = [self._array(plane, index) for index, plane in enumerate(self._sequence(value))]
        for index, words in enumerate(shape_words(side)):
            self._require_kind(index, words)

    def fail(self, kind: Type[Exception], plane: int, words: str) -> NoReturn:
        place = f"{self.label}[{plane}]" if self.side.planar and plane >= 0 else self.label
        raise kind(f"{self.function.name}: {place}: expected {words}")

    def _sequence(self, value: Any) -> List[Any]:
        if not self.side.planar:
            return [value]
        count = len(shape_words(self.side))
        if not isinstance(value, (list, tuple, np.ndarray)):
            self.fail(TypeError, -1, f"a sequence of {count} arrays, got {type(value).__name__}")
        if len(value) != count:
            self.fail(ValueError, -1, f"{count} arrays, got {len(value)}")
        return list(value)

    def _array(self, value: Any, index: int) -> Array:
        if self.label == "src" and hasattr(value, "__array_interface__"):
            value = np.asarray(value)
        if not isinstance(value, np.ndarray):
            self.fail(TypeError, index, f"a NumPy array of {self.dtype.name}, got {type(value).__name__}")
        return value

    def _require_kind(self, index: int, words: str) -> None:
        """The sample type and, as far as it follows without a size, the shape."""
        plane, template = self.planes[index], plane_shapes(self.side, (1, 1))[index]
        if len(template) == 2 and plane.ndim == 3 and plane.shape[2] == 1:
            plane = self.planes[index] = plane[..., 0]
        if plane.dtype != self.dtype or plane.ndim != len(template) or plane.shape[2:] != template[2:]:
            self.fail(ValueError if plane.dtype == self.dtype else TypeError, index,
                      f"{described(self.dtype, words)}, got {described(plane.dtype, plane.shape)}")

    def size(self) -> Size:
        return size_of(self.side, self.planes[0].shape)

    def require_shapes(self, size: Size, part: bool, bit_offset: int) -> None:
        """The shapes of that size or, where a part of the image is meant, at least these."""
        for index, expected in enumerate(plane_shapes(self.side, size, bit_offset)):
            got = self.planes[index].shape
            least = (part, part or holds_words(self.side) and self.label == "src", False)
            if not all(have >= need if more else have == need for have, need, more in zip(got, expected, least)):
                self.fail(ValueError, index, f"{described(self.dtype, expected)}{' or larger' if part else ''}, "
                                             f"got {described(self.dtype, got)}")
            self._require_pixels(index, expected)
        if self.side.tight:
            self._require_tight(size)

    def _require_pixels(self, index: int, expected: Shape) -> None:
        """The samples of a row lie one behind the other; rows lie anywhere."""
        plane, distance = self.planes[index], self.dtype.itemsize
        for axis in range(plane.ndim - 1, 0, -1):
            if plane.size and expected[axis] > 1 and plane.strides[axis] != distance:
                self.fail(ValueError, index, f"rows whose samples are contiguous, got strides {plane.strides} "
                                             "(numpy.ascontiguousarray makes a copy that serves)")
            distance *= expected[axis]
        if self.label != "src" and not plane.flags.writeable:
            self.fail(ValueError, index, "a writable array, got a read-only one")

    def _require_tight(self, size: Size) -> None:
        for index, (plane, step) in enumerate(zip(self.planes, self.steps(size, 0))):
            row = math.prod(plane_shapes(self.side, size)[index][1:]) * self.dtype.itemsize
            if step != row:
                self.fail(ValueError, index, f"rows without slack, {row} bytes apart, got {step}")

    def addresses(self) -> List[int]:
        return [plane.ctypes.data for plane in self.planes]

    def steps(self, size: Size, bit_offset: int) -> List[int]:
        """Bytes from row to row; tight where there is but one row."""
        steps = []
        for plane, shape in zip(self.planes, plane_shapes(self.side, size, bit_offset)):
            tight = math.prod(shape[1:]) * self.dtype.itemsize
            steps.append(plane.strides[0] if shape[0] > 1 else tight)
        return steps

    def require_rows(self, index: int, above: int, below: int) -> None:
        """That the array is a view into one that has these rows too."""
        plane = self.planes[index]
        whole = plane
        while isinstance(whole.base, np.ndarray):
            whole = whole.base
        low, high = _extent(whole)
        for row in (-above, plane.shape[0] - 1 + below):
            first, last = _extent(plane[:1])
            if first + row * plane.strides[0] < low or last + row * plane.strides[0] > high:
                self.fail(ValueError, index, f"a view into an array with {above} more rows above and {below} below, "
                                             "which this call reads or writes")


def _extent(array: Array) -> Tuple[int, int]:
    """The addresses of an array's first byte and of the byte behind its last."""
    reaches = [(count - 1) * step for count, step in zip(array.shape, array.strides)]
    low = array.ctypes.data + sum(reach for reach in reaches if reach < 0)
    return low, array.ctypes.data + sum(reach for reach in reaches if reach > 0) + array.itemsize

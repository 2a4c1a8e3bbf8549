"""One call of any function: images and arguments by the names and types of its parameters."""
from __future__ import annotations

import ctypes
from typing import Any, Dict, Iterator, List, Optional, Tuple

import numpy as np

from ._arguments import fail, filled, integers, number, scratch, weights
from ._images import Array, Image
from ._library import NUMBERS, SIZES, entry, report
from ._shapes import Size, holds_words, plane_shapes
from ._table import Function, Parameter

PLANE_OF = {None: 0, "Y": 0, "CbCr": 1}
FIRST_STRIPE, MIDDLE_STRIPE, LAST_STRIPE = 1, 4, 16


class Call:
    """The images, sizes and arguments of a call, all checked: the library reads and writes nothing outside them."""

    def __init__(self, function: Function, source: Any, target: Any, region: Any, arguments: Dict[str, Any]):
        self.function, self.arguments = function, filled(function, arguments)
        self.bits = self._bit_offset()
        place = "srcDst" if function.in_place else "dst"
        self.src = None if function.in_place else Image(function, "src", function.src, source)
        target = source if function.in_place else target
        self.dst = None if target is None and not function.in_place else Image(function, place, function.dst, target)
        self.src_size, self.dst_size = self._sizes(region)
        if self.dst is None:
            self.dst = Image(function, place, function.dst, self._new())
        if self.src:
            self.src.require_shapes(self.src_size, region is not None, 0)
        self.dst.require_shapes(self.dst_size, region is not None, self.bits)
        self._require_outside()
        if function.has("buffer"):
            self.arguments["buffer"] = scratch(function, self.arguments, self.dst_size)

    def _bit_offset(self) -> int:
        offset = self.arguments.get("dstBitOffset", 0)
        return max(0, int(number(self.function, "dstBitOffset", "int32_t", offset).value))

    def _new(self) -> Any:
        shapes = plane_shapes(self.function.dst, self.dst_size, self.bits)
        planes = [np.zeros(shape, self.function.dtypes["dst"]) for shape in shapes]
        return planes if self.function.dst.planar else planes[0]

    def _sizes(self, region: Any) -> Tuple[Size, Size]:
        """Of the source and of the destination; they differ where a rectangle of a mosaic is converted."""
        function = self.function
        if self.src and function.has("srcRect"):
            return self.src.size(), self._rectangle(self.src.size())
        if region is not None:
            size = integers(function, "roi", "TolkSizeL", region)
            return (size.width, size.height), (size.width, size.height)
        known = self.dst if self.dst and (function.in_place or holds_words(function.src)) else self.src
        assert known
        return known.size(), known.size()

    def _rectangle(self, mosaic: Size) -> Size:
        """All of it inside the mosaic, of which no function then reads or writes beyond the arrays."""
        given = self.arguments["srcRect"]
        rect = integers(self.function, "srcRect", "TolkRectL", (0, 0) + mosaic if given is None else given)
        if rect.x + rect.width > mosaic[0] or rect.y + rect.height > mosaic[1]:
            fail(self.function, "srcRect", f"a rectangle within {mosaic[0]} by {mosaic[1]} sites", given)
        self.arguments["srcRect"] = (rect.x, rect.y, rect.width, rect.height)
        return rect.width, rect.height

    def _require_outside(self) -> None:
        """What some functions read and write above and below the rows that they are given."""
        function, height, stripe = self.function, self.dst_size[1], self.arguments.get("stripe")
        if function.operation == "YCbCr420To411" and height == 2 and self.src:
            for chroma in (1, 2):
                self.src.require_rows(chroma, 0, 1)
        if stripe in (MIDDLE_STRIPE, LAST_STRIPE) and self.src and self.dst:
            for image, luma in ((self.src, 3), (self.dst, 2)):
                for index in range(len(image.planes)):
                    image.require_rows(index, luma if index == 0 else 1, 0)
        if stripe == FIRST_STRIPE and height < 4 and not function.dst.planar and self.src:
            for index in (0, 1):
                self.src.require_rows(index, 0, 1)

    def values(self) -> Iterator[Any]:
        """The arguments of the C function, in their order."""
        for parameter in self.function.parameters:
            yield self._of_image(parameter) if parameter.of_side else self._of_argument(parameter)

    def _of_image(self, parameter: Parameter) -> Any:
        assert parameter.of_side
        place, part, step, array = parameter.of_side
        image, size = (self.src, self.src_size) if place == "src" else (self.dst, self.dst_size)
        assert image
        kind: Any = NUMBERS[parameter.element] if step else ctypes.c_void_p
        values = self._steps(image, size, 8 * ctypes.sizeof(kind)) if step else image.addresses()
        if array:
            return (kind * len(values))(*values)
        if step and not part and len(set(values)) > 1:
            image.fail(ValueError, -1, f"planes of one row stride, got {values}")
        return values[PLANE_OF[part]]

    def _steps(self, image: Image, size: Size, bits: int) -> List[int]:
        """Row strides as the function counts them, which must be able to count them."""
        steps, sample = image.steps(size, self.bits), image.dtype.itemsize
        wraps = self.function.operation.startswith("ToneMap")  # the distance to any row has 32 bits
        whole = wraps or self.function.element_steps or self.function.has("srcRect")
        for index, step in enumerate(steps):
            if whole and step % sample:
                image.fail(ValueError, index, f"row strides that are multiples of {sample}, got {step}")
            if not -1 << bits - 1 <= step * (size[1] if wraps else 1) < 1 << bits - 1:
                image.fail(ValueError, index, f"row strides that {bits} bits hold, got {step}")
        return [step // sample for step in steps] if self.function.element_steps else steps

    def _of_argument(self, parameter: Parameter) -> Any:
        name, function = parameter.name, self.function
        if parameter.kind in SIZES:
            sizes = {"roi": self.dst_size, "srcSize": self.src_size}
            return integers(function, name, parameter.kind, sizes.get(name) or self.arguments[name])
        if name == "buffer":
            return self.arguments["buffer"].ctypes.data
        if name == "bufferStep":
            return self.arguments["buffer"].strides[0]
        if name not in self.arguments:  # the library does not read it
            return 0
        if parameter.extents:
            values = self.arguments[name] = weights(function, parameter, self.arguments[name])
            return None if values is None else values.ctypes.data
        return number(function, name, parameter.kind, self.arguments[name])


def call(function: Function, source: Any, target: Any, region: Any, arguments: Dict[str, Any], depth: int) -> Any:
    """The destination, after the call. `depth` counts the frames between the caller and this."""
    bound = Call(function, source, target, region, arguments)
    assert bound.dst
    with_room = _with_room(bound)
    status = entry(function.name)(*bound.values())
    if with_room is not None and status >= 0:
        with_room[...] = bound.dst.planes[0]
        bound.dst.planes[0] = with_room
    report(function.name, status, depth + 1)
    if target is not None or function.in_place:
        given = source if function.in_place else target
        return tuple(given) if function.dst.planar else given
    return tuple(bound.dst.planes) if function.dst.planar else bound.dst.planes[0]


def _with_room(bound: Call) -> Optional[Array]:
    """Demosaicing by gradients copies up to two columns and rows beyond a rectangle near the mosaic's edge, so the
    call gets a larger array. Returns the one that it stands for."""
    if bound.function.variant != "VNG" or bound.src_size == bound.dst_size or not bound.dst:
        return None
    target, margin = bound.dst.planes[0], 4
    height, width, channels = target.shape
    room = np.zeros((height + 2 * margin, width + 2 * margin, channels), target.dtype)
    bound.dst.planes[0] = room[margin:margin + height, margin:margin + width]
    bound.dst.planes[0][...] = target
    return target

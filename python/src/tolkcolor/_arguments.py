"""The arguments of a call that are no images: checked, as the C types that the library takes."""
from __future__ import annotations

import ctypes
import operator
from typing import Any, Dict, NoReturn, Optional

import numpy as np

from ._images import Array
from ._library import NUMBERS, SIZES, TolkError, tolkReduceBitsGetBufferSize
from ._shapes import Shape, Size
from ._table import SAMPLES, Function, Parameter

CHANNEL_CODES = {"C1": 1, "C3": 3, "C4": 4, "AC4": 9}
WIDEST_DITHERED = 1 << 28  # pixels of a row whose scratch memory 32 bits still count


def fail(function: Function, name: str, expected: str, got: Any) -> NoReturn:
    raise ValueError(f"{function.name}: {name}: expected {expected}, got {got!r}")


def filled(function: Function, given: Dict[str, Any]) -> Dict[str, Any]:
    """The arguments with their defaults."""
    known = {keyword.name: keyword for keyword in function.keywords}
    for name in given:
        if name not in known:
            raise TypeError(f"{function.name} has no argument {name}; it takes "
                            f"{', '.join(known) or 'none but its images and roi'}")
    for keyword in known.values():
        if keyword.needed and given.get(keyword.name) is None:
            raise TypeError(f"{function.name} needs the argument {keyword.name}")
    return {name: given.get(name, keyword.default) for name, keyword in known.items()}


def integers(function: Function, name: str, kind: str, value: Any) -> Any:
    """A TolkSize or TolkRect."""
    fields = [field[0] for field in SIZES[kind]._fields_]
    bits = 63 if kind.endswith("L") else 31
    try:
        values = [operator.index(number) for number in value]
    except TypeError:
        values = []
    if len(values) != len(fields) or not all(0 <= number < 1 << bits for number in values):
        fail(function, name, f"({', '.join(fields)}), integers from 0 below 2**{bits}", value)
    return SIZES[kind](*values)


def number(function: Function, name: str, kind: str, value: Any) -> Any:
    if kind in ("float", "double"):
        try:
            return NUMBERS[kind](value)
        except TypeError:
            fail(function, name, "a number", value)
    bits = 8 * ctypes.sizeof(NUMBERS[kind])
    low, high = (0, (1 << bits) - 1) if kind.startswith("u") else (-1 << bits - 1, (1 << bits - 1) - 1)
    try:
        exact = operator.index(value)
    except TypeError:
        exact = high + 1
    if not low <= exact <= high:
        fail(function, name, f"an integer from {low} to {high}", value)
    return NUMBERS[kind](exact)


def weights(function: Function, parameter: Parameter, value: Any) -> Optional[Array]:
    """Weights or a matrix; None is a null pointer."""
    if value is None:
        return None
    dtype: Any = SAMPLES[parameter.element]
    try:
        values = np.ascontiguousarray(value, dtype)
    except (TypeError, ValueError):
        values = np.empty(0, dtype)
    if values.shape != parameter.extents:
        fail(function, parameter.name, f"numbers of shape {parameter.extents}", value)
    return values


def scratch(function: Function, arguments: Dict[str, Any], size: Size) -> Array:
    """The caller's scratch memory, or new one."""
    dtype: np.dtype[Any] = function.dtypes["src"] if function.has("bufferStep") else np.dtype(np.uint8)
    shape: Shape = (30, size[0] + 6) if function.has("bufferStep") else (_scratch_bytes(function, arguments, size),)
    given = arguments["buffer"]
    if given is None:
        return np.empty(shape, dtype)
    if not isinstance(given, np.ndarray) or given.dtype != dtype or given.ndim != len(shape) or \
            not all(have >= need for have, need in zip(given.shape, shape)) or \
            not (given.flags.c_contiguous and given.flags.writeable):
        fail(function, "buffer", f"a writable, contiguous array of {dtype.name} of shape {shape} or larger",
             getattr(given, "shape", given))
    return given


def _scratch_bytes(function: Function, arguments: Dict[str, Any], size: Size) -> int:
    if size[0] > WIDEST_DITHERED:
        fail(function, "roi", f"at most {WIDEST_DITHERED} pixels in a row", size)
    try:
        return tolkReduceBitsGetBufferSize(CHANNEL_CODES[function.src.layout], size[0], arguments.get("noise", 0),
                                           arguments["ditherType"])
    except (TolkError, ctypes.ArgumentError):
        return 0  # the function will refuse the arguments by its own order

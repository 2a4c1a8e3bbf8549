"""The functions that lead from one format to another, chosen as the command-line tool chooses them."""
from __future__ import annotations

import functools
from dataclasses import dataclass
from typing import Iterator, List, Optional, Tuple

from ._formats import exchanged, label, repacking_cost, sides
from ._shapes import chroma_group
from ._table import FUNCTIONS, Function, Side

MATRICES = {"601": "", "709": "709CSC", "hdtv": "709HDTV"}
LUMA_CHROMA = ("YCbCr", "YCrCb", "CbYCr", "YUV")
# Against its name the first puts Cb first; the second's filter pales the chroma of a row's first pair; the third's gray
# keeps luma's studio range.
AVOIDED = ("YCbCr420ToYCrCb420", "RGBToCbYCr422", "YCbCr422ToGray")
BITS = {"8u": 8, "16u": 16, "16s": 16, "32u": 32, "32s": 32, "32f": 32, "64f": 64}
# Compared from the left: matrices, loss of chroma, resampling, kinds of matrix, loss of depth, repacking.
Cost = Tuple[int, int, int, int, int, int]


@dataclass(frozen=True)
class Step:
    """One call. A function that only moves chroma serves Cr and Cb in each other's place as well."""

    function: Function
    src: Side
    dst: Side


@dataclass(frozen=True)
class Route:
    """Steps between formats; none where samples need only be put in another order or scale."""

    sides: Tuple[Side, ...]
    steps: Tuple[Step, ...]

    @property
    def functions(self) -> Tuple[str, ...]:
        """The names of the functions."""
        return tuple(step.function.name for step in self.steps)

    def __str__(self) -> str:
        if not self.steps:
            return f"{label(self.sides[0])} -> {label(self.sides[1])}, no function needed"
        return "; ".join(f"{label(self.sides[i])} -> {label(self.sides[i + 1])} by {_words(step)}"
                         for i, step in enumerate(self.steps))


def _words(step: Step) -> str:
    words = step.function.name
    if has_matrix(step.function):
        words += f", matrix {list(MATRICES)[_matrix(step.function) or 0]}"
    return words + (", Cr in the place of Cb" if step.src.space != step.function.src.space else "")


def has_matrix(function: Function) -> bool:
    """Turns RGB into luma and chroma, or back."""
    spaces = function.src.space, function.dst.space
    return any(one.startswith(("RGB", "BGR")) and other.startswith(LUMA_CHROMA)
               for one, other in (spaces, spaces[::-1]))


def _matrix(function: Function) -> Optional[int]:
    variants = list(MATRICES.values())
    known = function.variant in variants and not function.operation.endswith("Gamma")
    return variants.index(function.variant) if known else None


@functools.lru_cache(maxsize=None)
def _choosable(matrix: Optional[str]) -> Tuple[Function, ...]:
    def serves(function: Function) -> bool:
        own = _matrix(function)
        if own is None or function.in_place or function.src.tight or function.operation in AVOIDED:
            return False
        if any(keyword.needed for keyword in function.keywords):
            return False
        return matrix is None or not has_matrix(function) or list(MATRICES)[own] == matrix

    return tuple(function for function in FUNCTIONS.values() if serves(function))


def _depth_loss(source: Side, function: Function, target: Side) -> int:
    """A function had best work at the depth of the deeper end."""
    apart = BITS[function.src.sample] - max(BITS[source.sample], BITS[target.sample])
    return -2 * apart if apart < 0 else apart


def _forms(function: Function) -> Iterator[Tuple[Side, Side, int]]:
    yield function.src, function.dst, 0
    src, dst = exchanged(function.src), exchanged(function.dst)
    if src and dst:
        yield src, dst, 1


_repacking = functools.lru_cache(maxsize=None)(repacking_cost)


@functools.lru_cache(maxsize=None)
def _leaving(source: Side, matrix: Optional[str]) -> List[Tuple[Step, int]]:
    """The steps that a format can take, with what repacking they cost so far."""
    return [(Step(function, src, dst), before + extra) for function in _choosable(matrix)
            for src, dst, extra in _forms(function) for before in [_repacking(source, src)] if before is not None]


@functools.lru_cache(maxsize=None)
def _step(source: Side, target: Side, matrix: Optional[str]) -> Optional[Tuple[Cost, Step]]:
    best: Optional[Tuple[Cost, Step]] = None
    for step, before in _leaving(source, matrix):
        after, function = _repacking(step.dst, target), step.function
        if after is None:
            continue
        kind = (_matrix(function) or 0) if has_matrix(function) else 0
        cost = (int(has_matrix(function)), 0, int(function.family == "Plane resampling"), kind,
                _depth_loss(source, function, target), before + after)
        if best is None or cost < best[0]:
            best = cost, step
    return best


def _chroma_loss(source: Side, between: Side, target: Side) -> int:
    """A format on the way had best have the grouping of the end with less chroma."""
    first, middle, last = chroma_group(source), chroma_group(between), chroma_group(target)
    area = middle[0] * middle[1]
    largest = max(first[0] * first[1], last[0] * last[1])
    return (0 if middle in (first, last) else 2) + (1 if area < largest else 4 if area > largest else 0)


@functools.lru_cache(maxsize=None)
def _find(source: Side, target: Side, matrix: Optional[str]) -> Optional[Route]:
    if _repacking(source, target) is not None:
        return Route((source, target), ())
    direct = _step(source, target, matrix)
    if direct:
        return Route((source, target), (direct[1],))
    best: Optional[Tuple[Cost, Route]] = None
    for between in sides():
        first = _step(source, between, matrix)
        second = _step(between, target, matrix) if first else None
        if not first or not second:
            continue
        sums = [one + other for one, other in zip(first[0], second[0])]
        cost: Cost = (sums[0], _chroma_loss(source, between, target), sums[2], sums[3], sums[4], sums[5])
        if best is None or cost < best[0]:
            best = cost, Route((source, between, target), (first[1], second[1]))
    return best[1] if best else None


def find_route(source: Side, target: Side, matrix: Optional[str]) -> Route:
    """One step rather than two; then the fewest colour matrices, the least loss of chroma, the matrix 601, the least
    loss of depth, and the least repacking."""
    if matrix is not None and matrix not in MATRICES:
        raise ValueError(f"matrix: expected one of {', '.join(MATRICES)}, got {matrix!r}")
    names = f"from {label(source)} to {label(target)}"
    route = _find(source, target, matrix)
    if route is None:
        others = [other for other in MATRICES if matrix and _find(source, target, other)]
        hint = f"; with the matrix {' or '.join(others)} they do" if others else ""
        raise ValueError(f"no one or two functions lead {names}{f' with the matrix {matrix}' if matrix else ''}{hint}")
    if matrix and not any(has_matrix(step.function) for step in route.steps):
        raise ValueError(f"{names} no matrix of YCbCr is applied")
    return route


def whole_groups(route: Route) -> Tuple[int, int]:
    """Columns and rows of which the steps leave none out."""
    groups: List[Tuple[int, int]] = [chroma_group(side) for side in route.sides]
    groups += [(4, 4) for step in route.steps if step.function.family == "Plane resampling"]
    return max(group[0] for group in groups), max(group[1] for group in groups)

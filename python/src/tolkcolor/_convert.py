"""Conversion from one named format to another by the functions that lead there."""
from __future__ import annotations

from typing import Any, List, Optional, Tuple

import numpy as np

from ._call import call
from ._formats import (DEPTHS, DTYPES, FORMATS, filled_like, format_name, full_scale, repacked, resized, samples_of,
                       sides)
from ._images import Array
from ._routes import Route, find_route, whole_groups
from ._shapes import plane_shapes, size_of
from ._table import Side


def formats() -> Tuple[str, ...]:
    """The names that `convert` takes, of which case and punctuation do not count."""
    return tuple(FORMATS)


def _sample(dtype: Any) -> str:
    for sample, known in DTYPES.items():
        if np.dtype(known) == dtype:
            return sample
    raise TypeError(f"expected samples of {', '.join(np.dtype(known).name for known in DTYPES.values())}, "
                    f"got {np.dtype(dtype).name}")


def _source(name: str, dtype: Any) -> Side:
    known, sample = format_name(name), _sample(dtype)
    if sample not in samples_of(known):
        raise TypeError(f"{known}: expected samples of {_names(known)}, got {np.dtype(dtype).name}")
    return Side(*FORMATS[known], sample)


def _target(name: str, dtype: Any, source: Side) -> Side:
    """At the source's depth or, where the format has none such, the one nearest below it."""
    known = format_name(name)
    held = samples_of(known)
    if dtype is None:
        below = [sample for sample in held if DEPTHS[sample] <= DEPTHS[source.sample] and sample != "16s"]
        sample = source.sample if source.sample in held else below[-1] if below else held[0]
    else:
        sample = _sample(np.dtype(dtype))
        if sample not in held:
            raise TypeError(f"{known}: expected dtype to be {_names(known)}, got {np.dtype(dtype).name}")
    return Side(*FORMATS[known], sample)


def _names(name: str) -> str:
    return " or ".join(np.dtype(DTYPES[sample]).name for sample in samples_of(name))


def route(source: str, target: str, matrix: Optional[str] = None, *, source_dtype: Any = None,
          dtype: Any = None) -> Route:
    """The functions that `convert` would use, for samples of `source_dtype`, else of the format's least depth."""
    first = samples_of(format_name(source))[0]
    src = _source(source, DTYPES[first] if source_dtype is None else np.dtype(source_dtype))
    return find_route(src, _target(target, dtype, src), matrix)


def convert(image: Any, source: str, target: str, matrix: Optional[str] = None, *, dtype: Any = None,
            alpha: Optional[float] = None) -> Any:
    """Converts an array, or the arrays of a planar format, from one format to another: convert(rgb, "RGB", "NV12").

    `matrix` is "601", "709" or "hdtv" (BT.709 with luma of full scale); without it 601 is preferred. The samples keep
    their depth where the target has it, else take the next lower one, or are of `dtype`. `alpha` is the value that all
    pixels of a target with alpha get; without it the source's alpha stays, or pixels become opaque. XYZ, LAB and LUV
    are of linear light: no transfer curve is applied.

    Chroma planes have their sizes rounded up; at odd sizes the last column and row are repeated for the conversion.
    Packed 4:2:2 has whole pairs, so an odd width is rounded up."""
    given = list(image) if FORMATS[format_name(source)][1].startswith("P") else [image]
    planes = [np.asarray(plane) for plane in given]
    src = _source(source, planes[0].dtype if planes else None)
    dst = _target(target, dtype, src)
    size = _size(planes, src)
    way = find_route(src, dst, None if matrix is None else str(matrix))
    across, down = whole_groups(way)
    whole = -(-size[0] // across) * across, -(-size[1] // down) * down
    opacity = None if alpha is None else alpha / full_scale(dst.sample)
    at = src
    if alpha is not None and src.layout == "C4":  # else the source's own would stay
        at = Side("RGB", "C3", src.sample)
        planes = repacked(planes, src, at, None)
    planes = _through(resized(planes, at, size, whole), at, way, whole, opacity)
    if dst.layout == "C2":
        size = size[0] + size[0] % 2, size[1]
    planes = resized(planes, dst, whole, size)
    return tuple(planes) if dst.planar else planes[0]


def _size(planes: List[Array], side: Side) -> Tuple[int, int]:
    name = sides()[side]
    if len(planes) != len(plane_shapes(side, (1, 1))):
        raise ValueError(f"{name}: expected {len(plane_shapes(side, (1, 1)))} arrays, got {len(planes)}")
    template = plane_shapes(side, (1, 1))
    if planes[0].ndim != len(template[0]):
        raise ValueError(f"{name}: expected {len(template[0])} dimensions, got the shape {planes[0].shape}")
    size = size_of(side, planes[0].shape)
    if side.layout == "C2" and size[0] % 2:
        raise ValueError(f"{name}: expected an even width, got {size[0]}")
    for index, shape in enumerate(plane_shapes(side, size)):
        if planes[index].shape != shape or min(size) < 1 or planes[index].dtype != planes[0].dtype:
            raise ValueError(f"{name}: expected {planes[0].dtype} of shape {shape} and no empty image in plane {index},"
                             f" got {planes[index].dtype} of shape {planes[index].shape}")
    return size


def _through(planes: List[Array], at: Side, way: Route, size: Tuple[int, int], opacity: Optional[float]
             ) -> List[Array]:
    """A format's image of whole chroma groups, through all steps."""
    for step in way.steps:
        planes = [np.ascontiguousarray(plane) for plane in repacked(planes, at, step.src, opacity)]
        arguments = {}
        if step.function.has("alpha"):
            value = filled_like(np.empty(()), opacity, step.dst.sample)[()]
            arguments["alpha"] = value.item()
        result = call(step.function, planes if step.src.planar else planes[0], None, size, arguments, 2)
        planes, at = list(result) if step.dst.planar else [result], step.dst
        if at.layout == "AC4":
            planes[0][..., 3] = filled_like(planes[0][..., 3], opacity, at.sample)
    return repacked(planes, at, way.sides[-1], opacity)

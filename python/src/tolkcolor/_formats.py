"""Pixel formats by the names that users know, and what brings samples of one into another without a function."""
from __future__ import annotations

import functools
from typing import Dict, List, Optional, Tuple

import numpy as np

from ._images import Array
from ._shapes import plane_shapes
from ._table import FUNCTIONS, Side

# YUV of full scale has other chroma weights than YCbCr, so its names stand apart.
FORMATS = {
    "RGB": ("RGB", "C3"), "BGR": ("BGR", "C3"), "RGBA": ("RGB", "C4"), "BGRA": ("BGR", "C4"), "RGBP": ("RGB", "P3"),
    "GRAY": ("Gray", "C1"), "XYZ": ("XYZ", "C3"), "LAB": ("Lab", "C3"), "LUV": ("LUV", "C3"), "HLS": ("HLS", "C3"),
    "HSV": ("HSV", "C3"), "YCC": ("YCC", "C3"), "YCBCR": ("YCbCr", "C3"), "YUV444P": ("YCbCr", "P3"),
    "YUYV": ("YCbCr422", "C2"), "YVYU": ("YCrCb422", "C2"), "UYVY": ("CbYCr422", "C2"), "I422": ("YCbCr422", "P3"),
    "YV16": ("YCrCb422", "P3"), "I420": ("YCbCr420", "P3"), "YV12": ("YCrCb420", "P3"), "NV12": ("YCbCr420", "P2"),
    "NV21": ("YCrCb420", "P2"), "I411": ("YCbCr411", "P3"), "NV11": ("YCbCr411", "P2"), "I1620": ("YCbCr1620", "P3"),
    "YUV444FULLSCALE": ("YUV", "C3"), "YUV444PFULLSCALE": ("YUV", "P3"), "YUV422FULLSCALE": ("YUV422", "C2"),
    "YUV422PFULLSCALE": ("YUV422", "P3"), "YUV420PFULLSCALE": ("YUV420", "P3"), "YCOCG": ("YCoCg", "P3"),
    "V210": ("YUV422v210", "C3"), "GRAY10": ("Gray10", "C1"), "RGB565": ("RGB565", "C1"), "BGR565": ("BGR565", "C1")}
ALIASES = {"YCC444": "YCBCR", "YUV444": "YCBCR", "YCBCR444": "YCBCR", "I444": "YUV444P", "YCBCR444P": "YUV444P",
           "YCBCRP": "YUV444P", "YUY2": "YUYV", "YUYV422": "YUYV", "UYVY422": "UYVY", "YUV422P": "I422",
           "YUV420P": "I420", "IYUV": "I420", "YUV411P": "I411", "RGB24": "RGB", "BGR24": "BGR", "GREY": "GRAY"}
DEPTHS = {"8u": 0, "16s": 1, "16u": 2, "32u": 3, "32f": 4, "64f": 5}
PICTURES = ("RGB", "BGR", "Gray", "Gray10", "XYZ", "Lab", "LUV", "HLS", "HSV", "YCC")
EXCHANGED = {"YCbCr422": "YCrCb422", "YCrCb422": "YCbCr422", "YCbCr420": "YCrCb420", "YCrCb420": "YCbCr420"}
DTYPES = {"8u": np.uint8, "16u": np.uint16, "16s": np.int16, "32u": np.uint32, "32f": np.float32, "64f": np.float64}


def format_name(name: str) -> str:
    plain = "".join(letter for letter in str(name).upper() if letter.isalnum())
    plain = ALIASES.get(plain, plain)
    if plain not in FORMATS:
        raise ValueError(f"there is no format {name!r}; the formats are {', '.join(FORMATS)}")
    return plain


def is_scalable(side: Side) -> bool:
    """RGB or gray: other depths are the same in another scale."""
    return side.space in ("RGB", "BGR", "Gray") and side.sample != "16s"


@functools.lru_cache(maxsize=None)
def samples_of(name: str) -> Tuple[str, ...]:
    """The sample types that a format has, from the functions that read or write it."""
    space, layout = FORMATS[name]
    layouts = {"C4", "AC4"} if layout == "C4" else {"C3", "P3"} if space in PICTURES and layout == "C3" else {layout}
    found = {side.sample for function in FUNCTIONS.values() for side in (function.src, function.dst)
             if side.space == space and side.layout in layouts}
    if space in ("RGB", "BGR", "Gray"):
        found |= {"8u", "16u", "32f", "64f"}
    return tuple(sorted(found & DEPTHS.keys(), key=DEPTHS.__getitem__))


@functools.lru_cache(maxsize=None)
def sides() -> Dict[Side, str]:
    """All formats at all depths, with their names."""
    return {Side(*FORMATS[name], sample): name for name in FORMATS for sample in samples_of(name)}


def label(side: Side) -> str:
    return f"{sides()[side]} of {np.dtype(DTYPES[side.sample]).name}"


def exchanged(side: Side) -> Optional[Side]:
    """The side with Cr in the place of Cb, where some format has it so."""
    space = EXCHANGED.get(side.space)
    return Side(space, side.layout, side.sample) if space else None


def repacking_cost(source: Side, target: Side) -> Optional[int]:
    """0 nothing, 1 another order of channels or planes, 2 more or fewer channels, and 3 more for another depth."""
    four = ("C4", "AC4")
    fourth, to_fourth = source.layout in four, target.layout in four
    same = source.space == target.space and (source.layout == target.layout or fourth and to_fourth)
    depth = 0 if source.sample == target.sample else 3
    if same and not depth:
        return 0
    if is_scalable(source) and is_scalable(target):
        if "Gray" not in (source.space, target.space):
            return depth + (0 if same else 1 if fourth == to_fourth else 2)
        return depth if same else None
    three = all(side.space in PICTURES and side.layout in ("C3", "P3") for side in (source, target))
    if three and source.space == target.space and (not depth or source.sample[-1] == target.sample[-1] == "f"):
        return depth + (source.layout != target.layout)
    swaps = EXCHANGED.get(source.space) == target.space and source.layout == target.layout == "P3"
    return 1 if swaps and not depth else None


def full_scale(sample: str) -> float:
    return {"8u": 255.0, "16u": 65535.0, "16s": 32767.0}.get(sample, 1.0)


def _rescaled(channel: Array, source: str, target: str) -> Array:
    if source == target:
        return channel
    result: Array
    if target.endswith("f"):
        result = (channel / full_scale(source)).astype(DTYPES[target])
        return result
    fraction = channel.astype(np.float64) / full_scale(source)
    limited = np.where(fraction > 0, np.minimum(fraction, 1.0), 0.0)  # what is not a number gives 0
    result = np.floor(limited * full_scale(target) + 0.5).astype(DTYPES[target])
    return result


def _channels(planes: List[Array], side: Side) -> List[Array]:
    """In the order red, green, blue, alpha, or that of the space."""
    parts = planes if side.planar or side.channels == 1 else [planes[0][..., c] for c in range(side.channels)]
    return parts[2::-1] + parts[3:] if side.space == "BGR" else list(parts)


def repacked(planes: List[Array], source: Side, target: Side, alpha: Optional[float]) -> List[Array]:
    """As repacking_cost found possible. A missing alpha channel gets `alpha`, a fraction, or becomes opaque."""
    if repacking_cost(source, target) == 0:
        return planes
    if target.space in EXCHANGED:
        return [planes[0], planes[2], planes[1]]
    parts = [_rescaled(part, source.sample, target.sample) for part in _channels(planes, source)][:target.channels]
    if len(parts) < target.channels:
        parts.append(filled_like(parts[0], alpha, target.sample))
    if target.space == "BGR":
        parts[:3] = parts[2::-1]
    if target.planar or target.channels == 1:
        return [np.ascontiguousarray(part) for part in parts]
    return [np.stack(parts, axis=-1)]


def filled_like(channel: Array, alpha: Optional[float], sample: str) -> Array:
    """An alpha channel of one value, a fraction of the full scale."""
    value = _rescaled(np.array([1.0 if alpha is None else alpha]), "64f", sample)
    return np.full(channel.shape, value[0], value.dtype)


def resized(planes: List[Array], side: Side, old: Tuple[int, int], new: Tuple[int, int]) -> List[Array]:
    """Cropped, or widened by repeating the last column, or last pair of packed 4:2:2, and the last row."""
    if old == new:
        return planes
    unit = 2 if side.layout == "C2" else 4 if side.space.endswith("v210") else 1
    result = []
    for plane, shape in zip(planes, plane_shapes(side, new)):
        kept, columns = plane.shape[1], np.arange(shape[1])
        columns = np.where(columns < kept, columns, kept - unit + (columns - kept) % unit)
        rows = np.minimum(np.arange(shape[0]), plane.shape[0] - 1)
        result.append(plane[rows[:, None], columns])
    return result

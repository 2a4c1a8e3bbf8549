"""Shapes of the arrays that hold an image."""
from __future__ import annotations

from typing import List, Tuple

from ._table import Side

Shape = Tuple[int, ...]
Size = Tuple[int, int]  # width, height


def chroma_group(side: Side) -> Tuple[int, int]:
    """Columns and rows of the pixels that share a chroma sample."""
    for ending, group in (("422", (2, 1)), ("411", (4, 1)), ("1620", (4, 4)), ("420", (2, 2))):
        if side.space.endswith(ending):
            return group
    return (1, 1)


def holds_words(side: Side) -> bool:
    """Rows are words or bytes of several pixels, from which the width does not follow."""
    return side.space.endswith("v210") or side.sample in ("12u", "1u")


def plane_shapes(side: Side, size: Size, bit_offset: int = 0) -> List[Shape]:
    """Subsampled dimensions are rounded up, except where a side without steps rounds them down."""
    width, height = size
    if side.space.endswith("v210"):
        return [(height, (width + 5) // 6 * 4)]
    if side.sample == "12u":
        return [(height, (3 * width + 1) // 2)]
    if side.sample == "1u":
        return [(height, (bit_offset + width + 7) // 8)]
    if not side.planar:
        return [(height, width) if side.channels == 1 else (height, width, side.channels)]
    across, down = chroma_group(side)
    up = not side.tight or down == 1
    chroma = ((height + (down - 1) * up) // down, (width + (across - 1) * up) // across)
    if side.layout == "P2":
        return [(height, width), chroma + (2,)]
    planes: List[Shape] = [(height, width), chroma, chroma, (height, width)]
    return planes[:side.channels]


def size_of(side: Side, shape: Shape) -> Size:
    """The most pixels that a first plane of this shape holds."""
    height, width = shape[:2]
    if side.space.endswith("v210"):
        return width // 4 * 6, height
    return (width * 2 // 3 if side.sample == "12u" else width), height


def shape_words(side: Side) -> List[str]:
    """The shapes as a reader has them."""
    if holds_words(side):
        row = {"12u": "(3 * width + 1) // 2", "1u": "(dstBitOffset + width + 7) // 8"}
        return [f"(height, {row.get(side.sample, '(width + 5) // 6 * 4')})"]
    if not side.planar:
        return ["(height, width)" if side.channels == 1 else f"(height, width, {side.channels})"]
    across, down = chroma_group(side)
    up = not side.tight or down == 1

    def share(name: str, count: int) -> str:
        return name if count == 1 else f"({name} + {count - 1}) // {count}" if up else f"{name} // {count}"

    chroma = f"({share('height', down)}, {share('width', across)}"
    if side.layout == "P2":
        return ["(height, width)", chroma + ", 2)"]
    return ["(height, width)", chroma + ")", chroma + ")", "(height, width)"][:side.channels]

"""Every function on arrays of any rows against its own result on tight ones, and what lies around them."""
import warnings

import numpy as np
import pytest
import tolkcolor
from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st
from plain import random_planes, status_of
from tolkcolor._table import FAMILIES, FUNCTIONS

WEIGHTS = st.lists(st.floats(-1, 1, width=32), min_size=3, max_size=3)
ARGUMENTS = {
    "alpha": st.integers(0, 1), "coeffs": WEIGHTS, "vMin": st.floats(-1, 0, width=32), "scale": WEIGHTS,
    "vMax": st.floats(0, 2, width=32), "noise": st.integers(0, 101), "ditherType": st.integers(0, 5),
    "levels": st.integers(1, 300), "dstBitOffset": st.integers(0, 20), "threshold": st.integers(0, 255),
    "stripe": st.just(21), "grid": st.integers(0, 4)}


def twists(function):
    extents = next(parameter.extents for parameter in function.parameters if parameter.name == "twist")
    return st.lists(st.floats(-2, 2, width=32), min_size=12, max_size=16).map(lambda values: np.resize(values, extents))


@st.composite
def calls(draw, function):
    """Size, arguments, and how the rows of each side lie: slack in bytes, and whether from the bottom up."""
    size = draw(st.integers(1, 70)), draw(st.integers(1, 13))
    if function.family == "Plane resampling":
        size = size[0] // 4 * 4, size[1] // 4 * 4 + 4
    arguments = {}
    for keyword in function.keywords:
        if keyword.name == "srcRect":
            x, y = draw(st.integers(0, size[0] - 1)), draw(st.integers(0, size[1] - 1))
            arguments["srcRect"] = x, y, draw(st.integers(1, size[0] - x)), draw(st.integers(1, size[1] - y))
        elif keyword.name != "buffer":
            strategy = twists(function) if keyword.name == "twist" else ARGUMENTS[keyword.name]
            arguments[keyword.name] = draw(strategy)
    rows = {place: (draw(st.integers(0, 40)), draw(st.booleans())) for place in ("src", "dst")}
    return size, arguments, rows, draw(st.integers(0, 1 << 30))


def laid_out(function, place, plane, rows):
    """The same samples as a view into bytes, which are returned too."""
    slack, upward = rows
    if getattr(function, place).tight:
        slack, upward = 0, False
    if function.element_steps or "BadStep" in FAMILIES[function.family]:
        upward = False  # these refuse it
    if function.element_steps or function.has("srcRect") or function.operation.startswith("ToneMap"):
        slack -= slack % plane.itemsize
    row = plane.strides[0] + slack
    canvas = np.random.default_rng(slack).integers(0, 256, row * plane.shape[0] + 50, np.uint8)
    strides = (-row if upward else row,) + plane.strides[1:]
    offset = 25 + (row * (plane.shape[0] - 1) if upward else 0)
    view = np.ndarray(plane.shape, plane.dtype, canvas, offset, strides)
    view[...] = plane
    return view, canvas


def with_room(function, dst, sizes):
    """Planes with rows and columns around those of a rectangle, for a function that writes there."""
    if function.variant != "VNG":
        return dst, dst
    room = [np.pad(plane, ((4, 4), (4, 4), (0, 0))) for plane in dst]
    return room, [plane[4:-4, 4:-4] for plane in room]


@pytest.mark.parametrize("name", tolkcolor.functions())
@settings(max_examples=12, suppress_health_check=list(HealthCheck))
@given(data=st.data())
def test_any_rows_give_what_tight_rows_give(name, data):
    function = FUNCTIONS[name]
    size, arguments, rows, seed = data.draw(calls(function))
    random, bits = np.random.default_rng(seed), arguments.get("dstBitOffset", 0)
    region = arguments.get("srcRect", (0, 0) + size)
    src = [] if function.in_place else random_planes(random, function.src, function.dtypes["src"], size)
    dst = random_planes(random, function.dst, function.dtypes["dst"], region[2:], bits)
    src_views = [laid_out(function, "src", plane, rows["src"])[0] for plane in src]
    dst_views, canvases = zip(*(laid_out(function, "dst", plane, rows["dst"]) for plane in dst))

    buffer = np.zeros((40, 2000) if function.has("bufferStep") else 20000, function.dtypes["src"]
                      if function.has("bufferStep") else np.uint8)
    room, inside = with_room(function, dst, size)
    status = status_of(name, src, inside, {"roi": size, "srcSize": size, "srcRect": region},
                       {**arguments, "buffer": buffer})
    expected = [canvas.copy() for canvas in canvases]
    for plane, view, own, canvas in zip(inside, dst_views, canvases, expected):
        offset = view.ctypes.data - own.ctypes.data
        np.ndarray(view.shape, view.dtype, canvas, offset, view.strides)[...] = plane

    def call():
        given = [views if side.planar else views[0] for views, side in
                 (((dst_views, function.dst),) if function.in_place else
                  ((src_views, function.src), (dst_views, function.dst)))]
        return getattr(tolkcolor, name)(*given, **arguments)

    if status < 0:
        with pytest.raises(tolkcolor.TolkError) as fault:
            call()
        assert fault.value.status == status and getattr(tolkcolor, fault.value.name) == status
    elif status > 0:
        with pytest.warns(tolkcolor.TolkWarning) as told:
            call()
        assert told[0].message.status == status and told[0].filename == __file__
    else:
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            result = call()
        assert all(a is b for a, b in zip(result if function.dst.planar else (result,), dst_views))
    for canvas, wanted in zip(canvases, expected):
        np.testing.assert_array_equal(canvas, wanted)

"""Conversion by the names of formats."""
import os
import re
import subprocess

import numpy as np
import pytest
import tolkcolor
from tolkcolor._formats import DTYPES, FORMATS, format_name, samples_of, sides
from tolkcolor._routes import find_route
from tolkcolor._shapes import plane_shapes
from tolkcolor._table import Side


TOOL = os.environ.get("TOLKCOLOR_TOOL")


def picture(width, height):
    """Soft colours, so that shared chroma tells little from own."""
    x, y = np.meshgrid(np.linspace(0, 1, width), np.linspace(0, 1, height))
    return (60 + 130 * np.stack([x, y, 1 - (x + y) / 2], axis=-1)).astype(np.uint8)


ROUND_TRIPS = [name for name in FORMATS if name not in ("GRAY", "V210", "GRAY10", "RGB565", "BGR565")]


@pytest.mark.parametrize("size", [(64, 48), (33, 21), (1, 1)], ids=str)
@pytest.mark.parametrize("name", ROUND_TRIPS)
@pytest.mark.filterwarnings("error")
def test_round_trips(name, size):
    source = picture(*size)
    there = tolkcolor.convert(source[::-1], "RGB", name)
    back = tolkcolor.convert(there, name, "RGB")[:, :size[0]]
    apart = np.abs(back[::-1].astype(int) - source)
    assert apart.max() <= 10 and apart.mean() < 6, (name, apart.mean(), apart.max())


def test_one_function_does_what_it_does_alone():
    rgb = picture(16, 8)
    for name, function in (("NV12", "tolkRGBToYCbCr420_8u_C3P2R"), ("HLS", "tolkRGBToHLS_8u_C3R"),
                           ("YCbCr", "tolkRGBToYCbCr_8u_C3R"), ("yuv444p", "tolkRGBToYCbCr_8u_C3P3R")):
        assert tolkcolor.route("RGB", name).functions == (function,)
        np.testing.assert_equal(tolkcolor.convert(rgb, "rgb", name), getattr(tolkcolor, function)(rgb))
    planes = tolkcolor.tolkBGRToYCbCr420_709CSC_8u_C3P2R(np.ascontiguousarray(rgb[..., ::-1]))
    np.testing.assert_equal(tolkcolor.convert(rgb, "RGB", "NV12", matrix="709"), planes)
    exchanged = tolkcolor.route("NV21", "YVYU")
    assert str(exchanged) == ("NV21 of uint8 -> YVYU of uint8 by tolkYCbCr420ToYCbCr422_8u_P2C2R, "
                              "Cr in the place of Cb")


def test_order_alpha_and_depth():
    rgb = picture(5, 4)
    np.testing.assert_array_equal(tolkcolor.convert(rgb, "RGB", "BGR"), rgb[..., ::-1])
    bgra = tolkcolor.convert(rgb, "RGB", "BGRA", alpha=7)
    np.testing.assert_array_equal(bgra, np.dstack([rgb[..., ::-1], np.full((4, 5), 7, np.uint8)]))
    np.testing.assert_array_equal(tolkcolor.convert(bgra, "BGRA", "RGBA")[..., 3], 7)
    np.testing.assert_array_equal(tolkcolor.convert(bgra, "BGRA", "RGBA", alpha=9)[..., 3], 9)
    nv12 = tolkcolor.convert(rgb, "RGB", "NV12")
    assert (tolkcolor.convert(nv12, "NV12", "BGRA")[..., 3] == 255).all()
    assert (tolkcolor.convert(nv12, "NV12", "RGBA", alpha=3)[..., 3] == 3).all()
    full_scale = tolkcolor.convert(rgb, "RGB", "YUV422P-fullscale")
    assert (tolkcolor.convert(full_scale, "YUV422P-fullscale", "RGBA", alpha=3)[..., 3] == 3).all()
    y, u, v = tolkcolor.convert(rgb, "RGB", "I420")
    for a, b in zip(tolkcolor.convert((y, u, v), "I420", "YV12"), (y, v, u)):
        np.testing.assert_array_equal(a, b)
    np.testing.assert_array_equal(tolkcolor.convert(rgb, "RGB", "RGB", dtype=np.uint16), rgb * np.uint16(257))
    fractions = (rgb / 255).astype(np.float32)
    np.testing.assert_array_equal(tolkcolor.convert(rgb, "RGB", "RGB", dtype=np.float32), fractions)
    deep = np.array([[[-1, 2, np.nan], [0.5, 1, 0]]], np.float32)
    np.testing.assert_array_equal(tolkcolor.convert(deep, "RGB", "RGB", dtype="uint8"), [[[0, 255, 0], [128, 255, 0]]])


def test_samples_keep_their_depth_where_the_target_has_it():
    rgb = picture(6, 4)
    for dtype, held in ((np.uint8, np.uint8), (np.uint16, np.uint16), (np.float32, np.float32)):
        samples = tolkcolor.convert(rgb, "RGB", "RGB", dtype=dtype)
        assert tolkcolor.convert(samples, "RGB", "HLS").dtype == held
        assert tolkcolor.convert(samples, "RGB", "NV12")[0].dtype == np.uint8
    assert tolkcolor.convert(samples, "RGB", "HSV").dtype == np.uint16
    assert tolkcolor.convert(rgb, "RGB", "LAB", dtype=np.float32).dtype == np.float32


def test_decoders_of_words_and_gray():
    v210 = np.full((2, 8), 512 | 300 << 10 | 512 << 20, np.uint32)
    assert (tolkcolor.convert(v210, "V210", "GRAY10") == [[300, 512, 512] * 4] * 2).all()
    assert tolkcolor.convert(v210, "V210", "RGB565").shape == (2, 12)
    gray = tolkcolor.convert(np.full((2, 2, 3), 100, np.uint8), "RGB", "GRAY")
    np.testing.assert_array_equal(gray, 100)
    assert tolkcolor.convert(gray, "GRAY", "RGB").shape == (2, 2, 3)


def test_every_route_works():
    """From every format at every depth to all others that can be reached."""
    count = 0
    for source in sides():
        for target in sides():
            name, to = sides()[source], sides()[target]
            dtype = DTYPES[target.sample]
            try:
                way = find_route(source, target, None)
            except ValueError:
                continue
            shapes = plane_shapes(source, (12, 8))
            planes = [np.ones(shape, DTYPES[source.sample]) for shape in shapes]
            result = tolkcolor.convert(planes if source.planar else planes[0], name, to, dtype=dtype)
            got = [plane.shape for plane in result] if target.planar else [result.shape]
            assert got == plane_shapes(target, (12, 8)), way
            count += 1
    assert count > 400 and all(samples_of(name) for name in FORMATS)


@pytest.mark.skipif(not TOOL, reason="TOLKCOLOR_TOOL does not name the command-line tool")
@pytest.mark.parametrize("source", ["rgb24", "bgra", "gray", "hls", "yvyu", "i422", "nv12", "yuv420p-fullscale"])
def test_the_command_line_tool_does_the_same(source, tmp_path):
    first, last = tmp_path / "first.raw", tmp_path / "last.raw"
    side = Side(*FORMATS[format_name(source)], "8u")
    planes = [np.random.default_rng(1).integers(0, 256, shape, np.uint8) for shape in plane_shapes(side, (46, 7))]
    first.write_bytes(b"".join(plane.tobytes() for plane in planes))
    for target in ("bgr24", "rgba", "lab", "ycbcr444p", "yuyv", "uyvy", "yv16", "nv21", "i420", "yuv444-fullscale"):
        told = subprocess.run([TOOL, "convert", first, last, "--from", source, "--to", target, "--size", "46x7"],
                              capture_output=True, text=True)
        if told.returncode:
            with pytest.raises(ValueError, match="no one or two functions lead"):
                tolkcolor.route(source, target)
            continue
        assert tolkcolor.route(source, target).functions == tuple(re.findall(r"by (tolk\w+)", told.stderr))
        result = tolkcolor.convert(planes if side.planar else planes[0], source, target)
        result = result if isinstance(result, tuple) else (result,)
        assert b"".join(plane.tobytes() for plane in result) == last.read_bytes(), target

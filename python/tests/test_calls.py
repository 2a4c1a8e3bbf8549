"""What a call makes of its arguments: new arrays, refusals and their words, threads, and the library's own words."""
import ast
import inspect
import os
import pathlib
import re
import subprocess
import sys
import threading
import time

import numpy as np
import pytest
import tolkcolor
from plain import library, random_planes, status_of
from tolkcolor._table import FUNCTIONS

RGB = np.arange(4 * 6 * 3, dtype=np.uint8).reshape(4, 6, 3)
GRAY = RGB[..., 0].copy()
IDENTITY = np.eye(3, 4, dtype=np.float32)


@pytest.mark.filterwarnings("ignore::tolkcolor.TolkWarning")
def test_new_arrays_have_the_shapes_of_the_layout():
    shapes = {
        "tolkRGBToYCbCr_8u_C3R": (4, 6, 3), "tolkRGBToGray_8u_C3C1R": (4, 6), "tolkRGBToYCbCr422_8u_C3C2R": (4, 6, 2),
        "tolkRGBToYCbCr420_8u_C3P2R": [(4, 6), (2, 3, 2)], "tolkBGRToYCbCr411_8u_C3P3R": [(4, 6), (4, 2), (4, 2)],
        "tolkRGBToYUV420_8u_C3P3": [(4, 6), (2, 3), (2, 3)], "tolkBGRToHLS_8u_C3P3R": [(4, 6)] * 3}
    for name, shape in shapes.items():
        result = getattr(tolkcolor, name)(RGB)
        assert ([plane.shape for plane in result] if isinstance(shape, list) else result.shape) == shape, name
    packed = tolkcolor.tolkPack_16u12u_C1R(GRAY.astype(np.uint16))
    assert packed.shape == (4, 9)
    np.testing.assert_array_equal(tolkcolor.tolkUnpack_12u16u_C1R(packed), GRAY)
    assert tolkcolor.tolkReduceBits_8u1u_C1R(GRAY, dstBitOffset=3).shape == (4, 2)
    words = np.zeros((2, 4), np.uint32)
    gray = "tolkYUV422v210ToGray_709HDTV_32u16u_C3C1"
    assert getattr(tolkcolor, gray)(words).shape == (2, 6)
    assert getattr(tolkcolor, gray)(words, roi=(4, 2)).shape == (2, 4)
    assert getattr(tolkcolor, gray)(words, np.zeros((2, 5), np.uint16)).shape == (2, 5)
    odd = np.zeros((5, 7, 3), np.uint8)
    assert [plane.shape for plane in tolkcolor.tolkRGBToYUV420_8u_C3P3(odd)] == [(5, 7), (2, 3), (2, 3)]
    assert [plane.shape for plane in tolkcolor.tolkRGBToYUV420_8u_C3P3R(odd)] == [(5, 7), (3, 4), (3, 4)]


def test_sources_need_not_be_whole_arrays():
    expected = tolkcolor.tolkRGBToGray_8u_C3C1R(RGB[1:3, 2:5].copy())
    np.testing.assert_array_equal(tolkcolor.tolkRGBToGray_8u_C3C1R(RGB[1:3, 2:5]), expected)
    np.testing.assert_array_equal(tolkcolor.tolkRGBToGray_8u_C3C1R(RGB[1:, 2:], roi=(3, 2)), expected)
    larger = np.full((4, 6), 9, np.uint8)
    tolkcolor.tolkRGBToGray_8u_C3C1R(RGB[1:3, 2:5], larger[1:3, 1:4])
    np.testing.assert_array_equal(larger[1:3, 1:4], expected)
    assert np.count_nonzero(larger == 9) >= 18
    np.testing.assert_array_equal(tolkcolor.tolkRGBToGray_8u_C3C1R(np.broadcast_to(RGB[:1], RGB.shape))[3],
                                  tolkcolor.tolkRGBToGray_8u_C3C1R(RGB)[0])
    planes = np.ascontiguousarray(RGB.transpose(2, 0, 1))
    np.testing.assert_array_equal(tolkcolor.tolkYCbCrToRGB_8u_P3C3R(planes), tolkcolor.tolkYCbCrToRGB_8u_C3R(RGB))
    column = GRAY[:, 1:2]
    assert tolkcolor.tolkGrayToRGB_8u_C1C3R(column[..., None]).shape == (4, 1, 3)


def test_in_place():
    array = RGB.copy()
    assert tolkcolor.tolkGammaInv_8u_C3IR(array[:, ::1]) is not None
    np.testing.assert_array_equal(array, tolkcolor.tolkGammaInv_8u_C3R(RGB))
    whole = tolkcolor.tolkColorTwist32f_8u_C3R(RGB, twist=2 * IDENTITY)
    np.testing.assert_array_equal(whole, np.minimum(2 * RGB.astype(int), 255))


REFUSED = [
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB.astype(float)), TypeError,
     "tolkRGBToGray_8u_C3C1R: src: expected uint8 of shape (height, width, 3), got float64 of shape (4, 6, 3)"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(GRAY), ValueError, "expected uint8 of shape (height, width, 3), got uint8 of"),
    (lambda t: t.tolkRGBToGray_16u_C3C1R(RGB.astype(">u2")), TypeError, "expected uint16"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R([1]), TypeError, "expected a NumPy array of uint8, got list"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB, GRAY[1:]), ValueError, "dst: expected uint8 of shape (4, 6), got uint8 of "
                                                                    "shape (3, 6)"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB, roi=(7, 4)), ValueError, "expected uint8 of shape (4, 7, 3) or larger"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB, roi=(7,)), ValueError, "roi: expected (width, height), integers"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB, roi=(-1, 1)), ValueError, "roi: expected"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB[:, ::2]), ValueError, "src: expected rows whose samples are contiguous"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB[..., ::-1]), ValueError, "got strides (18, 3, -1)"),
    (lambda t: t.tolkRGBToGray_8u_C3C1R(RGB, np.broadcast_to(GRAY[:1], (4, 6))), ValueError, "dst: expected a wri"),
    (lambda t: t.tolkGammaInv_8u_C3IR(np.broadcast_to(RGB[:1], RGB.shape)), ValueError, "srcDst: expected a writable"),
    (lambda t: t.tolkGammaInv_8u_C3IR(None), TypeError, "srcDst: expected a NumPy array of uint8, got NoneType"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C3R([GRAY] * 2), ValueError, "src: expected 3 arrays, got 2"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C3R(1), TypeError, "src: expected a sequence of 3 arrays, got int"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C3R([GRAY, GRAY, RGB]), ValueError, "src[2]: expected uint8 of shape (height"),
    (lambda t: t.tolkYCbCr420ToRGB_8u_P2C3R([GRAY, RGB[:2, :3, :2]][::-1]), ValueError, "src[0]: expected uint8"),
    (lambda t: t.tolkYCbCr420ToRGB_8u_P2C3R([GRAY, GRAY[..., None].repeat(2, 2)]), ValueError,
     "src[1]: expected uint8 of shape (2, 3, 2), got uint8 of shape (4, 6, 2)"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C3R([GRAY, GRAY, RGB[..., 0].repeat(2, 1)[:, :6]]), ValueError,
     "src: expected planes of one row stride, got [6, 6, 12]"),
    (lambda t: t.tolkRGBToYUV420_8u_C3P3(RGB[:, :4]), ValueError, "src: expected rows without slack, 12 bytes apart, "
                                                                  "got 18"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C4R([GRAY] * 3, alpha=256), ValueError, "alpha: expected an integer from 0 to"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C4R([GRAY] * 3, alpha=1.5), ValueError, "alpha: expected an integer"),
    (lambda t: t.tolkYCbCrToRGB_8u_P3C4R([GRAY] * 3, alhpa=1), TypeError, "has no argument alhpa; it takes alpha"),
    (lambda t: t.tolkColorTwist32f_8u_C3R(RGB), TypeError, "needs the argument twist"),
    (lambda t: t.tolkColorTwist32f_8u_C3R(RGB, twist=np.eye(3)), ValueError, "twist: expected numbers of shape (3, 4)"),
    (lambda t: t.tolkColorToGray_64f_AC4C1R(np.zeros((1, 1, 4))), TypeError, "needs the argument coeffs"),
    (lambda t: t.tolkReduceBits_8u_C3R(RGB, levels=2, ditherType=1, buffer=np.zeros(3, np.uint8)), ValueError,
     "buffer: expected a writable, contiguous array of uint8 of shape (128,) or larger, got (3,)"),
    (lambda t: t.tolkToneMapMean_32f8u_C1R(np.ndarray((2, 2), np.float32, bytes(32), 0, (10, 4))), ValueError,
     "src: expected row strides that are multiples of 4, got 10"),
    (lambda t: t.tolkYCbCr420To411_8u_P3R([GRAY[:2, :4].copy(), GRAY[:1, :2].copy(), GRAY[:1, :2].copy()]), ValueError,
     "src[1]: expected a view into an array with 0 more rows above and 1 below"),
    (lambda t: t.convert(RGB, "RGB", "NV13"), ValueError, "there is no format 'NV13'; the formats are RGB, BGR"),
    (lambda t: t.convert(RGB, "RGB", "NV12", "2020"), ValueError, "matrix: expected one of 601, 709, hdtv"),
    (lambda t: t.convert(RGB, "RGB", "HLS", "601"), ValueError, "no matrix of YCbCr is applied"),
    (lambda t: t.convert(RGB, "RGB", "V210"), ValueError, "no one or two functions lead from RGB of uint8 to V210"),
    (lambda t: t.convert(RGB.astype(int), "RGB", "HSV"), TypeError, "expected samples of uint8, uint16"),
    (lambda t: t.convert(RGB, "RGB", "NV12", dtype=np.float32), TypeError, "NV12: expected dtype to be uint8"),
    (lambda t: t.convert([GRAY], "NV12", "RGB"), ValueError, "NV12: expected 2 arrays, got 1"),
    (lambda t: t.convert([GRAY, GRAY], "NV12", "RGB"), ValueError, "NV12: expected uint8 of shape (2, 3, 2)"),
    (lambda t: t.convert(RGB[:, :3, :2], "YUYV", "RGB"), ValueError, "YUYV: expected an even width, got 3")]


@pytest.mark.parametrize("call, kind, words", REFUSED, ids=range(len(REFUSED)))
def test_refusals_say_what_was_expected(call, kind, words):
    with pytest.raises(kind) as fault:
        call(tolkcolor)
    assert words in str(fault.value)


def test_statuses():
    with pytest.raises(tolkcolor.TolkError) as fault:
        tolkcolor.tolkReduceBits_8u_C3R(RGB, levels=1)
    assert (fault.value.status, fault.value.name) == (-54, "tolkStatusBadLevels")
    assert str(fault.value) == ("tolkReduceBits_8u_C3R returned tolkStatusBadLevels (-54): "
                                "reduction level count out of range")
    with pytest.raises(tolkcolor.TolkError, match="BadNoise"):
        tolkcolor.tolkReduceBitsGetBufferSize(3, 10, 101)
    with pytest.warns(tolkcolor.TolkWarning, match="OddSize .35.: not a whole number of chroma groups") as told:
        tolkcolor.tolkRGBToYCbCr420_8u_C3P3R(RGB[:, :5])
    assert told[0].filename == __file__
    assert tolkcolor.tolkGetLibVersion().versionMajor == int(tolkcolor.__version__.split(".")[0])


@pytest.mark.parametrize("name", ["tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R", "tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R"])
def test_stripes_lie_in_one_picture(name):
    function, random = FUNCTIONS[name], np.random.default_rng(0)
    src, dst = (random_planes(random, side, np.dtype(np.uint8), (64, 24)) for side in (function.src, function.dst))
    mine, own = ([plane.copy() for plane in dst] for _ in range(2))

    def stripe(planes, first, rows):
        share = [planes[0].shape[0] // plane.shape[0] for plane in planes]
        return [plane[first // k:(first + rows) // k] for plane, k in zip(planes, share)]

    for kind, first, rows in ((1, 0, 8), (4, 8, 10), (16, 18, 6)):
        given = stripe(mine, first, rows)
        getattr(tolkcolor, name)(stripe(src, first, rows), given if len(given) > 1 else given[0], stripe=kind)
        assert status_of(name, stripe(src, first, rows), stripe(own, first, rows), {"roi": (64, rows)},
                         {"stripe": kind}) == 0
    for a, b, untouched in zip(mine, own, dst):
        np.testing.assert_array_equal(a, b)
        assert (a != untouched).any()
    alone = [plane.copy() for plane in stripe(src, 8, 10)]
    with pytest.raises(ValueError, match="a view into an array with 3 more rows above"):
        getattr(tolkcolor, name)(alone, stripe=4)


def test_other_threads_run_during_a_call():
    image = np.zeros((3000, 3000, 3), np.uint8)
    times = {}

    def convert():
        times["start"] = time.perf_counter()
        tolkcolor.tolkReduceBits_8u_C3R(image, levels=4, ditherType=tolkcolor.tolkDitherStucki)
        times["end"] = time.perf_counter()

    thread, seen = threading.Thread(target=convert), []
    thread.start()
    while thread.is_alive():
        seen.append(time.perf_counter())
        time.sleep(0.001)
    span = times["end"] - times["start"]
    middle = [moment for moment in seen if 0.2 < (moment - times["start"]) / span < 0.8]
    assert len(middle) > 3, f"the main thread stood still for {span:.3f} s"


def run(code, **variables):
    environment = {**os.environ, **variables}
    environment = {name: value for name, value in environment.items() if value is not None}
    return subprocess.run([sys.executable, "-c", code], env=environment, capture_output=True, text=True)


def test_the_library_is_found_or_said_to_be_missing():
    code = "import tolkcolor; print(tolkcolor.tolkGetLibVersion().versionMajor)"
    folder = str(pathlib.Path(library._name).resolve().parent)
    found = run(code, TOLKCOLOR_LIBRARY=None, LD_LIBRARY_PATH=folder).stdout.strip()
    assert found == tolkcolor.__version__.split(".")[0]
    missing = run(code, TOLKCOLOR_LIBRARY="/no/such/file.so").stderr
    assert re.search(r"ImportError: the TolkColor library cannot be loaded: /no/such/file.*TOLKCOLOR_LIBRARY", missing)
    other = run(code, TOLKCOLOR_LIBRARY="libm.so.6").stderr
    assert "ImportError: the library libm.so.6 has no tolkGetLibVersion" in other


def test_stubs_and_signatures_agree():
    folder = pathlib.Path(tolkcolor.__file__).parent
    stubs = {node.name: node.args for node in ast.parse((folder / "_functions.pyi").read_text()).body
             if isinstance(node, ast.FunctionDef)}
    assert list(stubs) == tolkcolor.functions()
    for name, args in stubs.items():
        parameters = inspect.signature(getattr(tolkcolor, name)).parameters.values()
        assert [p.name for p in parameters] == [a.arg for a in args.args + args.kwonlyargs], name
        defaults = [None if p.default is p.empty else repr(p.default) for p in parameters]
        given = args.defaults + args.kw_defaults
        assert defaults[len(defaults) - len(given):] == [value and ast.unparse(value) for value in given], name
        assert getattr(tolkcolor, name).__doc__.startswith(FUNCTIONS[name].text)

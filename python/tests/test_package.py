"""The package as others use it: its types, and the example."""
import pathlib
import subprocess
import sys

import pytest
import tolkcolor

TYPED = """
import numpy as np
from numpy.typing import NDArray
import tolkcolor

rgb: NDArray[np.uint8] = np.zeros((4, 6, 3), np.uint8)
gray: NDArray[np.uint8] = tolkcolor.tolkRGBToGray_8u_C3C1R(rgb)
back: NDArray[np.uint8] = tolkcolor.tolkYCbCr420ToBGR_8u_P3C4R([gray, gray, gray], alpha=tolkcolor.tolkDitherBayer)
y, cbcr = tolkcolor.tolkRGBToYCbCr420_8u_C3P2R(rgb, roi=(4, 4))
name: str = tolkcolor.route("RGB", "NV12", matrix="709").functions[0]
"""
WRONG = """
tolkcolor.tolkRGBToGray_16u_C3C1R(rgb)
tolkcolor.tolkColorTwist32f_8u_C3R(rgb)
tolkcolor.tolkRGBToGray_8u_C3C1R(rgb, alpha=1)
"""


def test_types(tmp_path):
    pytest.importorskip("mypy")
    program = tmp_path / "program.py"
    program.write_text(TYPED + WRONG)
    package = pathlib.Path(tolkcolor.__file__).parent
    told = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--no-error-summary", "--cache-dir",
                           str(tmp_path), str(package), str(program)], capture_output=True, text=True)
    faults = told.stdout.splitlines()
    line = TYPED.count("\n")
    for number, words in ((2, "incompatible type"), (3, 'Missing named argument "twist"'), (4, "Unexpected keyword")):
        assert any(f"program.py:{line + number}: error: " in fault and words in fault for fault in faults), told.stdout
    assert sum("error:" in fault for fault in faults) == 3, told.stdout + told.stderr


def test_the_example_gives_what_whole_images_give():
    pytest.importorskip("distributed")
    example = pathlib.Path(__file__).parent.parent / "examples/stack_with_dask.py"
    told = subprocess.run([sys.executable, str(example), "3", "301", "117"], capture_output=True, text=True)
    assert told.stdout == ("3 images of 117x301: luma (3, 301, 117), chroma (3, 151, 59, 2), as from whole images\n"), \
        told.stderr

#!/usr/bin/env python3
"""Assembles the package in FOLDER, with the table of functions and the type stubs that the public header gives:
generate.py FOLDER."""
import json
import pathlib
import re
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path += [str(ROOT / "tools/catalogue"), str(ROOT / "tools/tolk")]
from make_statuses import statuses  # noqa: E402
from make_table import declarations, functions  # noqa: E402

SAMPLES = {"uint8_t": "uint8", "uint16_t": "uint16", "int16_t": "int16", "uint32_t": "uint32", "int32_t": "int32",
           "float": "float32", "double": "float64"}
OPAQUE = {"uint8_t": 255, "uint16_t": 65535, "int16_t": 32767, "float": 1.0}
DEFAULTS = {"coeffs": None, "scale": None, "buffer": None, "srcRect": None, "vMin": 0.0, "vMax": 1.0, "noise": 0,
            "ditherType": 0, "dstBitOffset": 0, "threshold": 127, "stripe": 21}
# What the arrays and their shapes tell, and what no function reads.
IMPLIED = re.compile(r"(src|dst|srcDst)(Y|CbCr)?(Step)?|roi|srcSize|bufferStep|reserved|unused\d")
TYPES = {"coeffs": "Sequence[float]", "scale": "Sequence[float]", "twist": "ArrayLike", "srcRect": "Sequence[int]",
         "vMin": "float", "vMax": "float"}


def version():
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(tolkcolor VERSION ([\d.]+)", text).group(1)


def element(kind):
    """The C type of what a parameter points to, or is."""
    return kind.replace("const", "").replace("*", "").strip()


def keywords(function):
    """Name, whether it must be given, and default of each argument that a caller may give."""
    for kind, label in function["parameters"]:
        name = label.split("[")[0]
        if IMPLIED.fullmatch(name):
            continue
        if name == "alpha":
            yield name, False, OPAQUE[kind]
        else:
            needed = name not in DEFAULTS or f"{name} must not be null" in function["text"]
            yield name, needed, DEFAULTS.get(name)


def table(header):
    families, listed, queries = {}, [], {}
    for declared in declarations(header):
        queries[declared["name"]] = declared["text"]
    for function in functions(header):
        del queries[function["name"]]
        families[function["family"]] = function.pop("familyText")
        listed.append({**function, "keywords": list(keywords(function))})
    return {"version": version(), "statuses": list(statuses(header)), "families": families, "functions": listed,
            "enumerators": {name: int(value) for name, value in re.findall(r"^ *(tolk\w+) = (-?\d+)", header, re.M)},
            "queries": queries}


def array_type(function, place):
    image = re.compile(rf"(?:srcDst|{place})(?![a-zA-Z]*Step)")
    kind = next(kind for kind, label in function["parameters"] if image.match(label))
    return SAMPLES[element(kind)]


def stub(function):
    array = {place: array_type(function, place) for place in ("src", "dst")}
    planar = {place: "P" in function[place]["layout"] for place in ("src", "dst")}
    given = {place: f"Planes[np.{array[place]}]" if planar[place] else f"NDArray[np.{array[place]}]" for place in array}
    result = f"Tuple[NDArray[np.{array['dst']}], ...]" if planar["dst"] else given["dst"]
    arguments = [f"srcDst: {given['dst']}"] if function["inPlace"] else [
        f"src: {given['src']}", f"dst: Optional[{given['dst']}] = None"]
    names = [name for name, _, _ in function["keywords"]]
    if "srcRect" not in names:
        arguments.append("roi: Optional[Sequence[int]] = None")
    if names:
        arguments.append("*")
    for name, needed, default in function["keywords"]:
        kind = TYPES.get(name) or ("NDArray[Any]" if name == "buffer" else
                                   "float" if isinstance(default, float) else "int")
        arguments.append(f"{name}: {kind}" if needed else
                         f"{name}: {kind} = {default}" if default is not None else f"{name}: Optional[{kind}] = None")
    return f"def {function['name']}({', '.join(arguments)}) -> {result}: ...\n"


def stubs(content):
    head = ("from typing import Any, Optional, Sequence, Tuple, TypeVar, Union\n\n"
            "import numpy as np\nfrom numpy.typing import ArrayLike, NDArray\n\n"
            "_Sample = TypeVar(\"_Sample\", bound=np.generic)\n"
            "Planes = Union[Sequence[NDArray[_Sample]], NDArray[_Sample]]\n\n")
    names = [f["name"] for f in content["functions"]] + list(content["enumerators"])
    return (head + f"__all__ = {json.dumps(names)}\n\n" +
            "".join(f"{name}: int\n" for name in content["enumerators"]) + "\n" +
            "".join(stub(function) for function in content["functions"]))


def write(folder):
    """Writes table.json and _functions.pyi into a folder."""
    content = table((ROOT / "include/tolkcolor.h").read_text(encoding="utf-8"))
    pathlib.Path(folder, "table.json").write_text(json.dumps(content), encoding="utf-8")
    pathlib.Path(folder, "_functions.pyi").write_text(stubs(content), encoding="utf-8")


if __name__ == "__main__":
    package = pathlib.Path(sys.argv[1], "tolkcolor")
    shutil.rmtree(package, ignore_errors=True)
    shutil.copytree(ROOT / "python/src/tolkcolor", package, ignore=shutil.ignore_patterns("__pycache__"))
    write(package)

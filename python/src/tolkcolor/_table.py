"""The table of all functions, which the build derives from the public header."""
from __future__ import annotations

import json
import pathlib
import re
from dataclasses import dataclass
from functools import cached_property
from typing import Any, Dict, FrozenSet, List, Optional, Tuple

import numpy as np

SAMPLES = {"uint8_t": np.uint8, "uint16_t": np.uint16, "int16_t": np.int16, "uint32_t": np.uint32,
           "int32_t": np.int32, "float": np.float32, "double": np.float64}
SIDE = re.compile(r"(srcDst|src|dst)(Y|CbCr)?(Step)?(\[\d\])?")


@dataclass(frozen=True)
class Side:
    """One image of a call: colour space, layout and sample type as a function's name has them."""

    space: str
    layout: str
    sample: str
    tight: bool = False  # the call takes no steps: rows stand without slack, and 4:2:0 chroma is rounded down

    @cached_property
    def planar(self) -> bool:
        return "P" in self.layout

    @cached_property
    def channels(self) -> int:
        return int(self.layout[-1])


@dataclass(frozen=True)
class Parameter:
    """A parameter of the C function."""

    kind: str
    label: str  # with its extents: "src[3]"

    @cached_property
    def name(self) -> str:
        return self.label.split("[")[0]

    @cached_property
    def extents(self) -> Tuple[int, ...]:
        return tuple(int(extent) for extent in re.findall(r"\[(\d)\]", self.label))

    @cached_property
    def of_side(self) -> Optional[Tuple[Optional[str], ...]]:
        """The image that it belongs to, its part, whether it is a step, and its extent; None for other arguments."""
        match = SIDE.fullmatch(self.label)
        return match.groups() if match else None

    @cached_property
    def element(self) -> str:
        """The C type of what it points to, or is."""
        return self.kind.replace("const", "").replace("*", "").strip()


@dataclass(frozen=True)
class Keyword:
    """An argument behind the images, or `srcRect`."""

    name: str
    needed: bool
    default: Any


@dataclass(frozen=True)
class Function:
    """One function, its sides and the header's words."""

    name: str
    family: str
    text: str
    operation: str
    variant: str
    in_place: bool
    element_steps: bool  # steps count samples, not bytes
    src: Side
    dst: Side
    parameters: Tuple[Parameter, ...]
    keywords: Tuple[Keyword, ...]

    @cached_property
    def _names(self) -> FrozenSet[str]:
        return frozenset(parameter.name for parameter in self.parameters)

    def has(self, name: str) -> bool:
        return name in self._names

    @cached_property
    def dtypes(self) -> Dict[str, np.dtype[Any]]:
        """What the arrays of "src" and "dst" hold."""
        return {place: np.dtype(SAMPLES[parameter.element]) for parameter in self.parameters if parameter.of_side
                for place in ("src", "dst") if parameter.of_side[0] in (place, "srcDst") and not parameter.of_side[2]}


def _function(record: Dict[str, Any]) -> Function:
    return Function(
        record["name"], record["family"], record["text"], record["operation"], record["variant"], record["inPlace"],
        record["elementSteps"], Side(**record["src"]), Side(**record["dst"]),
        tuple(Parameter(*parameter) for parameter in record["parameters"]),
        tuple(Keyword(*keyword) for keyword in record["keywords"]))


def _load() -> Dict[str, Any]:
    place = pathlib.Path(__file__).with_name("table.json")
    try:
        content: Dict[str, Any] = json.loads(place.read_text(encoding="utf-8"))
    except FileNotFoundError:
        raise ImportError(f"{place} is missing: the build makes it, as does generate.py beside this package") from None
    return content


_content = _load()
VERSION: str = _content["version"]
STATUSES: Dict[int, Tuple[str, str]] = {value: (name, meaning) for name, value, meaning in _content["statuses"]}
ENUMERATORS: Dict[str, int] = _content["enumerators"]
FAMILIES: Dict[str, str] = _content["families"]
QUERIES: Dict[str, str] = _content["queries"]
FUNCTIONS: Dict[str, Function] = {record["name"]: _function(record) for record in _content["functions"]}


def functions() -> List[str]:
    """The names of all functions on images, in the header's order."""
    return list(FUNCTIONS)

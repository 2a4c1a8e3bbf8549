"""Finds and loads the library, and tells what its statuses mean."""
from __future__ import annotations

import ctypes
import ctypes.util
import functools
import os
import warnings
from typing import Any, Dict, NamedTuple, Type

from ._table import FUNCTIONS, QUERIES, STATUSES, VERSION

VARIABLE = "TOLKCOLOR_LIBRARY"


class _Status(Exception):
    def __init__(self, function: str, status: int):
        super().__init__(function, status)
        self.function, self.status = function, status
        self.name, self.meaning = STATUSES.get(status, ("an unknown status", "is the library of another version?"))

    def __str__(self) -> str:
        return f"{self.function} returned {self.name} ({self.status}): {self.meaning.replace('warning: ', '')}"


class TolkError(_Status):
    """An error status: nothing was written. `status` is its number, `name` its name in the header."""


class TolkWarning(_Status, UserWarning):
    """A warning status: the work was done as the family defines it."""


def report(function: str, status: int, depth: int) -> None:
    """Raises or warns, `depth` frames above the caller."""
    if status < 0:
        raise TolkError(function, status)
    if status > 0:
        warnings.warn(TolkWarning(function, status), stacklevel=depth + 2)


def _structure(name: str, kind: Any, *fields: str) -> Type[ctypes.Structure]:
    return type(name, (ctypes.Structure,), {"_fields_": [(field, kind) for field in fields]})


SIZES = {"TolkSize": _structure("TolkSize", ctypes.c_int32, "width", "height"),
         "TolkSizeL": _structure("TolkSizeL", ctypes.c_int64, "width", "height"),
         "TolkRect": _structure("TolkRect", ctypes.c_int32, "x", "y", "width", "height"),
         "TolkRectL": _structure("TolkRectL", ctypes.c_int64, "x", "y", "width", "height")}
NUMBERS: Dict[str, Any] = {"uint8_t": ctypes.c_uint8, "int16_t": ctypes.c_int16, "uint16_t": ctypes.c_uint16,
           "int32_t": ctypes.c_int32, "uint32_t": ctypes.c_uint32, "int64_t": ctypes.c_int64,
           "float": ctypes.c_float, "double": ctypes.c_double}


class _Version(ctypes.Structure):
    _fields_ = [("versionMajor", ctypes.c_int32), ("versionMinor", ctypes.c_int32), ("versionPatch", ctypes.c_int32),
                ("revision", ctypes.c_uint32), ("targetCode", ctypes.c_char * 8), ("libraryName", ctypes.c_char_p),
                ("versionText", ctypes.c_char_p), ("buildDate", ctypes.c_char_p)]


class LibraryVersion(NamedTuple):
    """Identity of the loaded library."""

    versionMajor: int
    versionMinor: int
    versionPatch: int
    revision: int
    targetCode: str
    libraryName: str
    versionText: str
    buildDate: str


@functools.lru_cache(maxsize=None)
def library() -> ctypes.CDLL:
    """The library, loaded at the first use. A CDLL lets other threads run during a call."""
    stated = os.environ.get(VARIABLE)
    found = ctypes.util.find_library("tolkcolor") if not stated else None
    names = [stated] if stated else [f"libtolkcolor.so.{VERSION.split('.')[0]}"] + ([found] if found else [])
    faults = []
    for name in names:
        try:
            return ctypes.CDLL(name)
        except OSError as fault:
            faults.append(str(fault))
    raise ImportError(f"the TolkColor library cannot be loaded: {'; '.join(faults)}. Install it where the system's "
                      f"loader looks, or set {VARIABLE} to its file (now "
                      f"{repr(stated) if stated else 'not set'}).")


@functools.lru_cache(maxsize=None)
def entry(name: str) -> Any:
    """A function of the library, with its argument types where the table has them."""
    try:
        symbol = getattr(library(), name)
    except AttributeError:
        raise ImportError(f"the library {library()._name} has no {name}; this package is of {VERSION}") from None
    if name in FUNCTIONS:
        symbol.argtypes = [ctypes.c_void_p if parameter.extents or "*" in parameter.kind else
                           SIZES.get(parameter.kind) or NUMBERS[parameter.kind]
                           for parameter in FUNCTIONS[name].parameters]
    return symbol


def tolkGetLibVersion() -> LibraryVersion:
    symbol = entry("tolkGetLibVersion")
    symbol.restype = ctypes.POINTER(_Version)
    record = symbol().contents
    values = (getattr(record, name) for name in LibraryVersion._fields)
    return LibraryVersion(*(value.decode() if isinstance(value, bytes) else value for value in values))


def tolkReduceBitsGetBufferSize(channelCode: int, width: int, noise: int = 0, ditherType: int = 0) -> int:
    symbol = entry("tolkReduceBitsGetBufferSize")
    symbol.argtypes = [ctypes.c_uint32] * 4 + [ctypes.c_void_p]
    size = ctypes.c_uint32()
    report("tolkReduceBitsGetBufferSize", symbol(channelCode, width, noise, ditherType, ctypes.byref(size)), 1)
    return size.value


for _query in (tolkGetLibVersion, tolkReduceBitsGetBufferSize):
    _query.__doc__ = QUERIES[_query.__name__]

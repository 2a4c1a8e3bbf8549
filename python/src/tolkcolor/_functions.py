"""All functions of the library by their names, made from the table."""
from __future__ import annotations

import inspect
from typing import Any, Callable, List

from ._call import call
from ._shapes import shape_words
from ._table import ENUMERATORS, FAMILIES, FUNCTIONS, Function


def _documentation(function: Function) -> str:
    def image(name: str, place: str) -> str:
        side = function.src if place == "src" else function.dst
        return f"{name}: {function.dtypes[place].name} {', '.join(shape_words(side))}"

    images = [image("srcDst", "dst")] if function.in_place else [image("src", "src"), image("dst", "dst")]
    declared = ", ".join(f"{parameter.kind} {parameter.label}" for parameter in function.parameters)
    return "\n\n".join([function.text, "\n".join(images), f"C: {function.name}({declared})",
                        f"{function.family}: {FAMILIES[function.family]}"])


def _signature(function: Function) -> inspect.Signature:
    kinds = inspect.Parameter
    parameters = [kinds("srcDst" if function.in_place else "src", kinds.POSITIONAL_OR_KEYWORD)]
    optional = ([] if function.in_place else ["dst"]) + ([] if function.has("srcRect") else ["roi"])
    parameters += [kinds(name, kinds.POSITIONAL_OR_KEYWORD, default=None) for name in optional]
    parameters += [kinds(keyword.name, kinds.KEYWORD_ONLY, default=kinds.empty if keyword.needed else keyword.default)
                   for keyword in function.keywords]
    return inspect.Signature(parameters)


def _made(function: Function) -> Callable[..., Any]:
    def in_place(srcDst: Any, roi: Any = None, **arguments: Any) -> Any:
        return call(function, srcDst, None, roi, arguments, 1)

    def convert(src: Any, dst: Any = None, roi: Any = None, **arguments: Any) -> Any:
        return call(function, src, dst, roi, arguments, 1)

    def demosaic(src: Any, dst: Any = None, **arguments: Any) -> Any:
        return call(function, src, dst, None, arguments, 1)

    made: Any = in_place if function.in_place else demosaic if function.has("srcRect") else convert
    made.__name__ = made.__qualname__ = function.name
    made.__module__ = "tolkcolor"
    made.__doc__ = _documentation(function)
    made.__signature__ = _signature(function)
    return made  # type: ignore[no-any-return]


globals().update(ENUMERATORS)
globals().update({name: _made(function) for name, function in FUNCTIONS.items()})
__all__: List[str] = list(FUNCTIONS) + list(ENUMERATORS)

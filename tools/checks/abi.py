#!/usr/bin/env python3
"""abi.py HEADER > abi.txt: what the header declares, a line each; check.abi compares a later header with it.
abi.py --stub HEADER_OR_LIST > stub.c: the text itself, a variable of each type and an empty definition of each function: a
library of these has the binary interface of all that is declared, and debug information that takes no time to make."""
import pathlib
import re
import sys


def declarations(text):
    code = re.sub(r"/\*.*?\*/|^#.*?$", "", text, flags=re.S | re.M)
    code = re.sub(r'extern "C" \{|^\}$', "", code, flags=re.M)
    return [" ".join(one.split()) for one in re.findall(r"[^{;]+(?:\{[^}]*\}[^;]*)?;", code)]


def definition(declaration):
    if declaration.startswith("TOLK_API"):
        return declaration.removeprefix("TOLK_API").rstrip(";") + " { __builtin_unreachable(); }"
    name = re.search(r"\w*;$", declaration)[0]
    return f"{name[:-1]} any{name}" if declaration.startswith("typedef") else ""


def main():
    text = pathlib.Path(sys.argv[-1]).read_text(encoding="utf-8")
    found = declarations(text)
    if "--stub" in sys.argv:
        text = text if "#include" in text else "#include <stdint.h>\n#define TOLK_API\n" + text
        found = [text, *map(definition, found)]
    print(*found, sep="\n")


main()

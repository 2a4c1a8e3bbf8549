#!/usr/bin/env python3
"""exports.py LIST HEADER LIBRARY...: each library exports exactly the header's functions, and each is in the list."""
import pathlib
import re
import subprocess
import sys


def exported(library):
    """The dynamic symbols, with the type of those that are not functions; the version's own name is left out."""
    output = subprocess.run(["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    symbols = (line.split()[1:] for line in output.splitlines())
    return {name.split("@")[0] + ("" if kind == "T" else f" (type {kind})") for kind, name in symbols if kind != "A"}


def main():
    listed, header = (pathlib.Path(path).read_text(encoding="utf-8") for path in sys.argv[1:3])
    code = re.sub(r"/\*.*?\*/|//[^\n]*|^#[^\n]*", "", header, flags=re.S | re.M)
    declared = set(re.findall(r"\b(\w+)\s*\(", code))
    if not declared:
        sys.exit("the header declares no function")
    frozen = set(re.findall(r"^TOLK_API .*?(\w+)\(", listed, re.M))
    faults = [f"declared but not in the list of functions: {name}" for name in sorted(declared - frozen)]
    for library in sys.argv[3:]:
        names = exported(library)
        faults += [f"{library}: declared but not exported: {name}" for name in sorted(declared - names)]
        faults += [f"{library}: exported but not declared: {name}" for name in sorted(names - declared)]
    print(f"{len(declared)} functions declared, {len(sys.argv) - 3} libraries", *faults, sep="\n")
    sys.exit(bool(faults))


main()

#!/usr/bin/env python3
"""dependencies.py base|v3 LIBRARY: soname, needed libraries, imported functions and processor note are as intended."""
import re
import subprocess
import sys

SONAME = "libtolkcolor.so.2022"
LIBRARIES = {"libc.so.6", "libm.so.6", "libstdc++.so.6", "libgcc_s.so.1"}
IMPORTS = {"memcpy", "memmove", "memset", "pow", "__stack_chk_fail", "sysconf"}  # no allocation, no output, no thread
MAYBE_IMPORTS = {"tolkGetMaxCacheSizeB"}  # weak: another library's, if the process has it


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def main():
    kind, library = sys.argv[1:]
    dynamic = run("readelf", "-dW", library)
    soname = re.findall(r"\(SONAME\).*\[(.*)\]", dynamic)
    needed = set(re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic))
    undefined = run("nm", "-D", "--undefined-only", library)
    imports, maybe = set(re.findall(r" U (\w+)", undefined)), set(re.findall(r" [wv] (tolk\w+)", undefined))
    note = "x86-64-v3" in run("readelf", "-nW", library)
    print(f"soname {soname}, needs {sorted(needed)}, imports {sorted(imports)}, maybe {sorted(maybe)}, note x86-64-v3: {note}")
    faults = [f"the soname is not {SONAME}"] * (soname != [SONAME])
    faults += [f"needs {name}" for name in sorted(needed - LIBRARIES)]
    faults += [f"imports {name}" for name in sorted(imports - IMPORTS | maybe - MAYBE_IMPORTS)]
    faults += ["the note that the processor must be an x86-64-v3 one is wrong"] * (note != (kind == "v3"))
    sys.exit("\n".join(faults) or 0)


main()

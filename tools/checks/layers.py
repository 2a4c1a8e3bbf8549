#!/usr/bin/env python3
"""layers.py ROOT: each folder of the library includes only what its layer may, and lanes alone know the processor."""
import pathlib
import re
import sys

FAMILIES = ("lumachroma", "chroma", "values", "spaces", "depth", "demosaic")
MAY_INCLUDE = {"include": {"include"}, "lanes": {"lanes"}, "frame": {"lanes", "frame", "include"}}
MAY_INCLUDE.update({family: {"lanes", "frame", "include", family} for family in FAMILIES})
SYSTEM_HEADERS = {("frame/cache_size.cpp", "unistd.h")}  # the one file that asks the system
SHARED_FORMS = set()  # (including file, <family>_forms.h of another family), each named on purpose

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)')
STANDARD = re.compile(r"[a-z_]+$")  # a C++ header; the public header is C as well and takes stdint.h
INTRINSICS_HEADER = re.compile(r"\w*intrin\.h$")
PROCESSOR = re.compile(r"\b_mm\d*_|\b__m(64|128|256|512)|__builtin_ia32_|\bTOLK_PLAIN\b|"
                       r"\b__(SSE\w*|SSSE3|AVX\w*|FMA|BMI2?|F16C|x86_64|i386|amd64)__\b")
RUN_TIME_CHOICE = re.compile(r'__builtin_cpu_|\bcpuid\b|\btarget(_clones)?\s*\(\s*"|#\s*pragma\s+(GCC|clang)\s.*target')


def folder_of(root, file, name):
    for place in (file.parent, root, root / "include"):
        if (place / name).is_file():
            return (place / name).resolve().relative_to(root)
    return None


def faults_in(root, file):
    folder = file.relative_to(root).parts[0]
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m[0].count("\n"), file.read_text(encoding="utf-8"), flags=re.S)
    for number, line in enumerate((line.split("//")[0] for line in text.split("\n")), 1):
        where = f"{file.relative_to(root)}:{number}:"
        include = INCLUDE.match(line)
        if include and include[1] == "<":
            allowed = STANDARD.match(include[2]) or (folder == "lanes" and INTRINSICS_HEADER.match(include[2])) or (
                folder == "include" and include[2] == "stdint.h") or (
                str(file.relative_to(root)), include[2]) in SYSTEM_HEADERS
            if not allowed:
                yield f"{where} {folder} may not include <{include[2]}>"
        elif include:
            target = folder_of(root, file, include[2])
            shared = (str(file.relative_to(root)), str(target)) in SHARED_FORMS
            if not target or (target.parts[0] not in MAY_INCLUDE[folder] and not shared):
                yield f"{where} {folder} may not include {target or include[2]}"
        if folder != "lanes" and PROCESSOR.search(line):
            yield f"{where} only lanes may know the processor: {line.strip()}"
        if RUN_TIME_CHOICE.search(line):
            yield f"{where} the system's loader chooses the class, not the code: {line.strip()}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    files = [file for folder in MAY_INCLUDE for file in sorted((root / folder).rglob("*.*"))
             if file.suffix in (".h", ".cpp", ".c", ".inc")]
    faults = [fault for file in files for fault in faults_in(root, file)]
    print(f"{len(files)} files", *faults, sep="\n")
    sys.exit(bool(faults) or not files)


main()

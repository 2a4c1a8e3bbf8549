#!/usr/bin/env python3
"""corpus.py unpack FILE FOLDER: the inputs of a corpus, a line of hexadecimal digits each, as the files that the fuzzer reads.
corpus.py pack FOLDER FILE: the other way."""
import pathlib
import sys


def main():
    command, source, target = sys.argv[1], *map(pathlib.Path, sys.argv[2:])
    if command == "unpack":
        target.mkdir(parents=True, exist_ok=True)
        for number, line in enumerate(source.read_text(encoding="ascii").split()):
            (target / f"{number:04}").write_bytes(bytes.fromhex(line))
    else:
        inputs = {file.read_bytes().hex() for file in source.iterdir()}
        target.write_text("".join(line + "\n" for line in sorted(inputs) if line), encoding="ascii")


main()

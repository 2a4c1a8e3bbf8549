#!/usr/bin/env python3
"""Derives names and meanings of the status codes from the public header: make_statuses.py HEADER > status_table.inc"""
import re
import sys

STATUS = re.compile(r"(tolkStatus\w+) = (-?\d+),?(?:\s*/\*\*<\s*(.*?)\s*\*/)?", re.S)


def statuses(header):
    """Name, value and meaning of each code."""
    for name, value, meaning in STATUS.findall(header):
        yield name, int(value), re.sub(r"\s+", " ", meaning) or "success"


if __name__ == "__main__":
    for name, _, meaning in statuses(open(sys.argv[1], encoding="utf-8").read()):
        print(f'{{{name}, "{name}", R"({meaning})"}},')

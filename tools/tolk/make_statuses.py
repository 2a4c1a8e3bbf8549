#!/usr/bin/env python3
"""Derives names and meanings of the status codes from the public header: make_statuses.py HEADER > status_table.inc"""
import re
import sys

STATUS = re.compile(r"(tolkStatus\w+) = -?\d+,?(?:\s*/\*\*<\s*(.*?)\s*\*/)?", re.S)

for name, meaning in STATUS.findall(open(sys.argv[1], encoding="utf-8").read()):
    meaning = re.sub(r"\s+", " ", meaning) or "success"
    print(f'{{{name}, "{name}", R"({meaning})"}},')

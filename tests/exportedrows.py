#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
"""exportedrows.py csv|json: reads what provender-export printed, as a script would, and says what was in it.

Prints a JSON array of rows of texts, the columns' names first; numbers are as they were written, nothing is "". Fails for
what the two formats do not allow, and for JSON lines whose keys differ.
"""
import csv
import io
import json
import sys


def refuse(constant):
    raise ValueError(constant)


printed = sys.stdin.buffer.read()
if sys.argv[1] == "csv":
    rows = list(csv.reader(io.StringIO(printed.decode(), newline=""), strict=True))
else:
    lines = printed.decode().split("\n")
    if lines.pop():
        sys.exit("the last line does not end")
    objects = [json.loads(line, parse_float=str, parse_int=str, parse_constant=refuse) for line in lines]
    rows = [list(objects[0])] if objects else []
    for each in objects:
        if list(each) != rows[0]:
            sys.exit("the keys differ")
        rows.append(["" if value is None else value for value in each.values()])
json.dump(rows, sys.stdout)

#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
"""tst_layers.py <sources> <rooms>: holds every include of the program's own files against the link lines.

<rooms> holds a file for each library and for the program, written by CMake: its folder, its sources and what it links.
A file may include its own room's headers and those of the rooms that its room links by name. Fails, with a line each,
for any other include, for a source or header that no room has, and for rooms that link each other in a circle.
"""
import pathlib
import re
import sys

top, graph = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
links, owner = {}, {}
for record in graph.iterdir():
    folder, sources, linked = record.read_text().splitlines()
    links[record.name] = set(linked.split(";"))
    for source in filter(None, sources.split(";")):
        path = (pathlib.Path(folder) / source).resolve()
        if path.suffix in (".h", ".cpp") and path.is_relative_to(top) and not path.is_relative_to(graph.parent):
            owner[path] = record.name

faults = []
for room in sorted({path.relative_to(top).parts[0] for path in owner} - {"build"}):
    for path in sorted((top / room).rglob("*")):
        if path.suffix in (".h", ".cpp") and path not in owner and room != "tools":
            faults.append(f"{path.relative_to(top)}: no room has this file")
for path, room in sorted(owner.items()):
    for number, line in enumerate(path.read_text().splitlines(), 1):
        include = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
        if not include or not (header := top / include[1]).exists():
            continue  # one that the build writes
        other = owner.get(header.resolve())
        if other != room and other not in links[room]:
            faults.append(f"{path.relative_to(top)}:{number}: {include[1]} is of {other}, which {room} does not link")


def circle(room, above):
    """The rooms from one back to itself, if they link each other so."""
    if room in above:
        return above[above.index(room):] + [room]
    return next((found for next_room in sorted(links.get(room, ())) if (found := circle(next_room, above + [room]))), None)


for room in sorted(links):
    if found := circle(room, []):
        faults.append(" links ".join(found))
        break
if len(links) < 5 or len(owner) < 50:
    faults.append(f"{len(links)} rooms with {len(owner)} files: the build did not write them all")
print("\n".join(faults) or f"{len(owner)} files of {len(links)} rooms")
sys.exit(1 if faults else 0)

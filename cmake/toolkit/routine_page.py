"""Writes the page of the routine set, docs/routines.md, from the headers for C++ and for C.
Usage: routine_page.py [--check] FILE; with --check it only compares, and fails when the page is old."""

import pathlib
import re
import sys

from c_headers import FOLDER, all_routines

FAMILIES = {"strings.h": "Strings", "paths.h": "Paths", "lines.h": "Lines, fields and values",
            "numbers.h": "Numbers", "geometry.h": "Plane geometry", "opener.h": "Units and the opener",
            "messages.h": "Messages and the stop"}
HEAD = """# Routines for other programs

The routine set of vantelgis as a library: strings, paths, lines, numbers, plane geometry, files and
messages, exactly as the converter does them. From C++ the routines have names in capitals
(`#include "toolkit/paths.h"`, namespace `vantelgis`); from C, Fortran, Python and other languages the
same names in small letters behind `vg_` (`#include <vantelgis.h>`, `use vantelgis`). How to build
against it stands in `examples/toolkit`. This page is made from the headers.

## What holds for all

- A text that goes in is its characters and their number, without a zero byte; for C++ a
  `std::string_view`. Trailing blanks never count. A text that comes out is cut at the capacity of its
  place. For C its length is the result, or goes to `..._length`; `..._used` is the length of a text that
  is changed in place, before and after. A zero byte is put behind it where there is room.
- Columns, fields, units and positions count from 1. Lengths are in the unit of the coordinates.
- In an example, what stands behind `->` is the result and then what comes out, in the order of the
  arguments; lengths and capacities of texts are left out.

## Console, stop and threads

- What the set prints goes to the standard output of the C run-time (`stdout`), in order with what the
  host prints through it or through `std::cout`, and is handed to the system before a routine returns
  (`vg_set_hand_over`). A host with a buffer of its own (Fortran, Python, or on Windows another C
  run-time) flushes that before it calls a routine that prints, or takes the text with `vg_set_console`.
  Questions are read from `stdin` line by line; nothing behind the line is taken. A host that nobody
  answers calls `vg_set_unattended`.
- A stop closes all units, shows its prompt and ends the process by `exit(0)`: handlers of `atexit` run
  and the host's files are written out. `vg_set_end` replaces that for a host that can't be ended; its
  routine may throw or jump, and the set is used again behind `vg_filesinit`. What is open at the
  ordinary end of the host is written out.
- Strings, paths, lines, numbers and plane geometry keep nothing from call to call: they may be called
  from any thread at the same time. Whatever opens, reads, writes, prints or stops belongs to one thread:
  units, opener, messages, settings and `READLINE`. So does the stop that `INSIDE_POLYGON` and the
  `EXTRACT` routines come to at faulty input.
"""


def described(text):
    """What a header for C++ says at its top, and its groups: comment, names, declarations."""
    top, _, body = text.partition('extern "C" {\n')
    intro = re.sub(r"^// ?", "", "\n".join(re.findall(r"^//.*$", top, re.MULTILINE)), flags=re.MULTILINE)
    groups = []
    for block in body.partition('}  // extern "C"')[0].strip().split("\n\n"):
        comment = "\n".join(line[4:] for line in block.splitlines() if line.startswith("/// "))
        declaration = "\n".join(line for line in block.splitlines() if not line.startswith("//"))
        names = re.findall(r"\b([A-Z][A-Z0-9_]+)\(", declaration)
        if names:
            groups.append((comment, names, declaration))
        else:
            groups.append((re.sub(r"(?m)^// ?", "", block), [], ""))
    return intro, groups


def entry(title, comment, declarations, examples):
    code = "\n\n".join(declarations) + "".join(f"\n// {line}" for line in examples)
    return f"\n### {title}\n\n{comment}\n\n```cpp\n{code}\n```\n"


def page():
    routines = {routine.name: routine for routine in all_routines()}
    out = [HEAD]
    for header, family in FAMILIES.items():
        intro, groups = described((FOLDER.parent / header).read_text("utf-8"))
        out.append(f"\n## {family}\n" + (f"\n{intro}\n" if intro else ""))
        for comment, names, declaration in groups:
            if not names:
                out.append(f"\n{comment}\n")
                continue
            of_c = [routines.pop("vg_" + name.lower()) for name in names]
            out.append(entry(", ".join(f"`{name}`" for name in names), comment,
                             [declaration, "\n".join(routine.declaration for routine in of_c)],
                             [routine.example for routine in of_c if routine.example]))
    out.append("\n## Records and host\n")
    groups = {}
    for routine in routines.values():
        groups.setdefault(routine.comment, []).append(routine)
    for comment, group in groups.items():
        out.append(entry(", ".join(f"`{routine.name}`" for routine in group), comment,
                         ["\n".join(routine.declaration for routine in group)],
                         [routine.example for routine in group if routine.example]))
    return "".join(out)


def main():
    target = pathlib.Path(sys.argv[-1])
    if sys.argv[1] == "--check":
        if target.read_text("utf-8") != page():
            sys.exit(f"{target} is older than the headers: the build target routine_page makes it anew")
    else:
        target.write_text(page(), "utf-8")


main()

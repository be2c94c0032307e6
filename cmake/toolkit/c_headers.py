"""Reads the headers for C: their routines with arguments, comments and examples."""

import pathlib
import re
from dataclasses import dataclass

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "src/toolkit/c"
HEADERS = ("vantelgis_texts.h", "vantelgis_geometry.h", "vantelgis.h")

DECLARATION = re.compile(r"((?:[\w]+ )*[\w]+[ *]+)(vg_\w+)\((.*)\);", re.DOTALL)
# A routine of the host's as an argument; its own arguments don't matter here.
HANDLER = re.compile(r"void \(\*(\w+)\)\([^)]*\)")


@dataclass
class Routine:
    family: str      # the line above its group
    name: str
    result: str      # of C
    arguments: list  # (type, name); an array counts as a pointer
    comment: str     # "" for a routine that the C++ headers describe
    example: str     # vg_...(...) -> ...
    declaration: str


def argument(text):
    if handler := HANDLER.match(text):
        return "handler", handler.group(1)
    match = re.fullmatch(r"(.*?)(\w+)(\[3\])?", text.strip())
    return match.group(1).strip() + ("*" if match.group(3) else ""), match.group(2)


def arguments_of(text):
    text = HANDLER.sub(lambda match: match.group().replace(",", "\0"), " ".join(text.split()))
    return [] if text == "void" else [argument(part) for part in text.split(", ")]


def routines_of(text):
    family, comment, example, statement = "", "", "", ""
    for line in text.splitlines():
        if statement or re.match(r"(void|bool|size_t|float|int32_t|const char\*) ?vg_", line):
            statement += line + "\n"
            if line.endswith(";"):
                result, name, arguments = DECLARATION.fullmatch(statement.strip()).groups()
                yield Routine(family, name, result.strip(), arguments_of(arguments), comment.strip(),
                              example, statement.strip())
                example, statement = "", ""
        elif line.startswith("/// "):
            comment += line[4:] + "\n"
        elif line.startswith("// vg_"):
            example = line[3:]
        elif line.startswith("// "):
            family = line[3:]
        if not line:
            comment = ""


def all_routines():
    return [routine for header in HEADERS
            for routine in routines_of((FOLDER / header).read_text("utf-8"))]

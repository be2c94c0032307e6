#!/usr/bin/env python3
"""Makes the manual page of a program.

man_page.py guide FOLDER VERSION                   vantelgis(1) from the pages of the guide
man_page.py help PROGRAM OPTION ABOUT VERSION      the page of a program from its help and a line about it

Of Markdown it knows what the guide uses: headings, paragraphs, lists, indented blocks, tables, code,
bold words, links and pictures.
"""

import pathlib
import re
import subprocess
import sys

NAME = "vantelgis \\- convert between 12d Model archives and GIS layers"
SYNOPSIS = ["vantelgis [OPTION...] FILE1 [FILE2]"]
PAGES = ["conversions", "running", "limits", "messages"]


def escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text[:1] in (".", "'") else text


def inline(text):
    """Code and bold words in bold, links as their text."""
    text = re.sub(r"!?\[([^\]]*)\]\([^)]*\)", r"\1", text)
    parts = re.split(r"(`[^`]+`|\*\*[^*]+\*\*)", text)
    marked = "".join(f"\\fB{escaped(part.strip('`' if part[0] == '`' else '*')).removeprefix(chr(92) + '&')}\\fR"
                     if index % 2 else escaped(part).removeprefix("\\&" if index else "")
                     for index, part in enumerate(parts))
    return "\\&" + marked if marked[:1] in (".", "'") else marked


def table(rows):
    cells = [[cell.strip() for cell in re.split(r"(?<!\\)\|", row.strip().strip("|"))]
             for row in rows]
    heads, body = cells[0], cells[2:]
    for row in body:
        yield ".TP"
        yield inline(row[0]) or "\\&"
        for head, cell in list(zip(heads, row))[1:]:
            if cell:
                yield (f"{inline(head)}: " if len(row) > 2 and head else "") + inline(cell)
                yield ".br"
    yield ".PP"


def block(lines):
    """One paragraph, list, table or indented block."""
    first = lines[0]
    if first.startswith("    "):
        yield from (".PP", ".RS 4", ".nf", *(escaped(line[4:]) for line in lines), ".fi", ".RE")
    elif first.startswith("|"):
        yield from table(lines)
    elif first.startswith("- "):
        for item in re.split(r"^- ", "\n".join(lines), flags=re.MULTILINE)[1:]:
            yield from (".IP \\(bu 2", inline(" ".join(item.split())))
        yield ".PP"
    elif first.startswith("# "):
        yield f'.SH "{escaped(first[2:]).upper()}"'
    elif first.startswith("#"):
        yield f'.SS "{inline(first.lstrip("# "))}"'
    elif not first.startswith("!["):
        yield from (".PP", inline(" ".join(line.strip() for line in lines)))


def blocks(text):
    """Groups of lines of one kind."""
    group = []
    for line in text.splitlines() + [""]:
        kind = next((mark for mark in ("    ", "|", "#") if line.startswith(mark)), "")
        old = next((mark for mark in ("    ", "|", "#") if group and group[0].startswith(mark)), "")
        if group and (not line.strip() or kind == "#" or (kind != old and old in ("|", "#"))):
            yield group
            group = []
        if line.strip():
            group.append(line)


def heading(program, version):
    return f'.TH {program.upper()} 1 "" "vantelgis {version}" "User commands"'


def guide(folder, version):
    yield from (heading("vantelgis", version), ".SH NAME", NAME, ".SH SYNOPSIS")
    yield from (f".B {escaped(line)}" for line in SYNOPSIS)
    for page in PAGES:
        text = (pathlib.Path(folder) / f"{page}.md").read_text("utf-8")
        for lines in blocks(text):
            yield from block(lines)
    yield from (".SH SEE ALSO", ".BR vantelgis\\-batch (1)")


def help_items(lines):
    """Pairs of a term and what is said of it; nothing where a line is no such pair."""
    items = []
    for line in lines:
        if items and len(line) - len(line.lstrip()) > 10:  # goes on with the one before
            items[-1][-1] += " " + line.strip()
        else:
            items.append(re.split(r"  +", line.strip(), maxsplit=1))
    return items if all(len(item) == 2 for item in items) else []


def help_block(lines):
    """A paragraph; or indented lines, as a list or as they stand, with perhaps a heading before."""
    indented = [line for line in lines if line.startswith(" ")]
    if not indented:
        yield from (".PP", *map(escaped, lines))
        return
    first = lines[0].rstrip(":")
    if not first.startswith(" "):
        yield f'.SH "{escaped(first).upper()}"'
    items = help_items(indented)
    for term, words in items:
        yield from (".TP", f"\\fB{escaped(term)}\\fR", escaped(words))
    if not items:
        yield from (".PP", ".nf", *(escaped(line.strip()) for line in indented), ".fi")


def program_help(program, option, about, version):
    text = subprocess.run([program, option], capture_output=True, text=True, check=True).stdout
    name = pathlib.Path(program).name
    usage = re.search(r"^Usage: .*\n(?: .*\n)*", text, re.MULTILINE)
    synopsis = usage[0].removeprefix("Usage:").strip().splitlines()
    yield from (heading(name, version), ".SH NAME",
                f"{escaped(name)} \\- {escaped(about[0].lower() + about[1:])}", ".SH SYNOPSIS", ".nf")
    yield from (f".B {escaped(line.strip())}" for line in synopsis)
    yield from (".fi", ".SH DESCRIPTION")
    for group in re.split(r"\n\s*\n", text.replace(usage[0], "").strip("\n")):
        yield from help_block(group.splitlines())
    yield from (".SH SEE ALSO", ".BR vantelgis (1)")


def main():
    kind, *rest = sys.argv[1:]
    print("\n".join({"guide": guide, "help": program_help}[kind](*rest)))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Every message of the program is met by a test: each text in src/ that begins with ERROR, WARNING or
CHECK stands in a test program or in the expected console of a case. The messages page of the guide
tells every numbered one, and none that isn't there."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Messages that no test can meet, by how they begin, and why.
EXCEPTIONS = {
    "ERROR - Unable to detect any existing attributes.":
        "both readers of layers refuse one without fields before",
    "ERROR - An argument is not valid text.":
        "only on Windows can an argument be no text",
    "ERROR 0322 - End of .mif file encountered whilst reading object type.":
        "the scanner asks for the end of the file before it reads a line",
}

LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"(?:\s*"((?:[^"\\\n]|\\.)*)")*')
PIECE = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
NUMBERED = re.compile(r"\b(?:ERROR|WARNING|CHECK) \d{4}\b")
MESSAGE = re.compile(r"(?:ERROR|WARNING|CHECK) (?:\d{4}|-)")


def literals(source):
    """The string literals of C++ text; neighbours are one."""
    source = re.sub(r"(?m)^\s*(//|#include).*$", "", source)
    for match in LITERAL.finditer(source):
        text = "".join(PIECE.findall(match.group()))
        yield text.replace("\\n", "\n").replace('\\"', '"')


def messages():
    found = {}
    for path in sorted((ROOT / "src").rglob("*.cpp")) + sorted((ROOT / "src").rglob("*.h")):
        for text in literals(path.read_text()):
            match = MESSAGE.search(text)
            if match:
                message = text[match.start():].rstrip("\n")
                found.setdefault(message, path.relative_to(ROOT).as_posix())
    return found


def expectations():
    consoles = [path.read_bytes().decode("latin-1")
                for path in (ROOT / "tests" / "cases").rglob("console")]
    sources = ["\n".join(literals(path.read_text()))
               for path in (ROOT / "tests").rglob("*.cpp")]
    return "\n".join(consoles + sources)


def guide_faults(found):
    page = (ROOT / "docs" / "messages.md").read_text("utf-8")
    known = set(NUMBERED.findall("\n".join(found)))
    told = set(NUMBERED.findall(page))
    faults = [f"docs/messages.md: {message} is not told" for message in sorted(known - told)]
    faults += [f"docs/messages.md: no such message: {message}" for message in sorted(told - known)]
    code = "\n".join(text for path in (ROOT / "src").rglob("*.cpp")
                     for text in literals(path.read_text("utf-8")))
    for words in re.findall(r"^\| `([^`]+)`", page, flags=re.MULTILINE):
        # The other messages are told by their first words; a name may stand between the ends.
        pieces = words.split(" - ")[-1].strip(".").split()
        if not NUMBERED.match(words) and not (pieces[0] in code and " ".join(pieces[-2:]) in code):
            faults.append(f"docs/messages.md: no such message: {words}")
    return faults


def main():
    expected = expectations()
    found = messages()
    faults = []
    for message, path in found.items():
        excused = any(message.startswith(beginning) for beginning in EXCEPTIONS)
        if (message in expected) == excused:
            faults.append(f"{path}: {'met all the same' if excused else 'no test meets'}: {message}")
    faults += [f"check_messages.py: no such message: {beginning}" for beginning in EXCEPTIONS
               if not any(message.startswith(beginning) for message in found)]
    faults += guide_faults(found)
    print("\n".join(faults + [f"{len(found)} messages, {len(faults)} fault(s)"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

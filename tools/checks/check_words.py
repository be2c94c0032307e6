#!/usr/bin/env python3
"""The tree explains itself: nothing in it refers to papers that its reader does not have."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Written so that no pattern fits its own text. In lower case a part is one of a polyline.
WORDS = re.compile(
    r"(?i:\b[s]pecifications?\b|\b[s]pec\.md\b|\b(the|a|this|our) [s]pecs?\b"
    r"|\bparts? [1-9]\.[0-9]|\bDEVELOPERS[.]md\b|\b[i]ssues? ?#?[0-9]+\b)"
    r"|\b(Part|PART)s? [1-9]\b|(?<![\w&\[])#[0-9]{1,3}\b(?![\w\"])")
NAMES = re.compile(r"(^|/)[^/]*([s]pec[._-]|[s]pecification|[p]art[-_]?[1-6][._-]?[0-9]"
                   r"|[i]ssue[-_]?[0-9])", re.IGNORECASE)
SKIPPED = 77  # what ctest takes for a test that could not be run


def git(*arguments):
    done = subprocess.run(["git", "-C", str(ROOT), *arguments], capture_output=True, check=False)
    return done.stdout.decode("utf-8", "replace")


def faulty_lines(where, text):
    return [f"{where}:{number}: {line.strip()[:100]}"
            for number, line in enumerate(text.split("\n"), 1) if WORDS.search(line)]


def main():
    try:
        names = [name for name in git("ls-files", "-z").split("\0") if name]
    except FileNotFoundError:
        names = []
    if not names:
        print("not a git tree, or git is not installed")
        return SKIPPED
    faults = [f"{name}: its name" for name in names if NAMES.search(name)]
    for name in names:
        data = (ROOT / name).read_bytes() if (ROOT / name).is_file() else b""
        if b"\0" not in data:
            faults += faulty_lines(name, data.decode("latin-1"))
    faults += faulty_lines("git log", git("log", "--format=%B"))
    print("\n".join(faults + [f"{len(names)} files looked at, {len(faults)} fault(s)"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

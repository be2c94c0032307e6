#!/usr/bin/env python3
"""The tree explains itself: nothing in it refers to papers that its reader does not have."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA_SUFFIXES = {".shp", ".shx", ".dbf", ".png", ".mid", ".mif", ".12da"}
# Written so that no pattern fits its own text.
WORDS = re.compile(
    r"\b[Ss]pecification\b|\b[s]pec\.md\b|\b[Pp]arts? [1-6]\.[0-9]\b|\bthe [Ss]pec\b"
    r"|\b[Ss]tep [0-9]+ of [Pp]art\b|\bDEVELOPERS[.]md\b|\b[i]ssue #?[0-9]+\b")
NAMES = re.compile(r"(^|/)[^/]*([s]pec[._-]|[s]pecification|[p]art[-_]?[1-6][._-]?[0-9])",
                   re.IGNORECASE)
SKIPPED = 77  # what ctest takes for a test that could not be run


def tracked_files():
    listing = subprocess.run(["git", "-C", str(ROOT), "ls-files", "-z"], capture_output=True,
                             check=False)
    return [name for name in listing.stdout.decode().split("\0") if name]


def main():
    try:
        names = tracked_files()
    except FileNotFoundError:
        names = []
    if not names:
        print("not a git tree, or git is not installed")
        return SKIPPED
    faults = [f"{name}: its name" for name in names if NAMES.search(name)]
    for name in names:
        path = ROOT / name
        if path.suffix.lower() in DATA_SUFFIXES or not path.is_file():
            continue
        data = path.read_bytes()
        if b"\0" in data:
            continue
        for number, line in enumerate(data.decode("latin-1").split("\n"), 1):
            if WORDS.search(line):
                faults.append(f"{name}:{number}: {line.strip()[:100]}")
    print("\n".join(faults + [f"{len(names)} files looked at, {len(faults)} fault(s)"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

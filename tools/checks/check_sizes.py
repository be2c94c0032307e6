#!/usr/bin/env python3
"""Nothing grows past what can be read at once: files and routines of src have a largest size, and the
tests a share of what they test. Prints the figures in any case."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CODE = {".h", ".cpp", ".py"}
LONGEST_FILE = 260      # lines
LONGEST_ROUTINE = 40
LARGEST_SHARE = 0.33    # of the tests, in lines that are not blank, by those of src and qgis

# A routine begins at a line's start, or at the first indent within a class; it ends at its column.
ROUTINE = re.compile(r"^(?P<indent>(?:    )?)(?!namespace|struct|class|enum|union|extern|constexpr|const |using|}|//)"
                     r"[A-Za-z_\[~][^\n;={}]*(?:\n[^\n;{}]*)*?\) ?(?:const |noexcept |override )*\{\n"
                     r"(?P<body>.*?)\n(?P=indent)\}", re.MULTILINE | re.DOTALL)


def sources(*folders):
    return [path for folder in folders for path in sorted((ROOT / folder).rglob("*"))
            if path.suffix in CODE]


def filled_lines(paths):
    return sum(bool(line.strip()) for path in paths for line in path.read_text("utf-8").splitlines())


def main():
    faults = []
    for path in sources("src"):
        text = path.read_text("utf-8")
        lines = text.count("\n")
        if lines > LONGEST_FILE:
            faults.append(f"{path.relative_to(ROOT)}: {lines} lines")
        for match in ROUTINE.finditer(text):
            length = match.group().count("\n") + 1
            if length > LONGEST_ROUTINE:
                number = text.count("\n", 0, match.start()) + 1
                faults.append(f"{path.relative_to(ROOT)}:{number}: a routine of {length} lines")
    tests = sources("tests", "qgis/tests")
    tested = [path for path in sources("src", "qgis") if path not in tests]
    share = filled_lines(tests) / filled_lines(tested)
    if share > LARGEST_SHARE:
        faults.append(f"the tests have {share:.1%} of the lines of what they test")
    print("\n".join(faults + [f"{len(tested)} files of {filled_lines(tested)} lines, tests "
                              f"{filled_lines(tests)} lines or {share:.1%}, {len(faults)} fault(s)"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Holds every C++ file against .clang-format. Arguments: clang-format, the build folder."""

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = "src", "tests", "bench", "fuzz", "cmake", "examples"


def main():
    files = sorted(str(path.relative_to(ROOT)) for folder in FOLDERS
                   for path in (ROOT / folder).rglob("*") if path.suffix in {".h", ".cpp"})
    done = subprocess.run([sys.argv[1], "--dry-run", "--Werror", "--ferror-limit=1", *files],
                          cwd=ROOT, check=False)
    print(f"{len(files)} files looked at")
    if done.returncode != 0:
        print("To lay a file out: clang-format -i FILE")
    return done.returncode


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Writes the first inputs of a fuzz driver: the files and command lines of tests/cases and examples.

Arguments: the name of the driver; the folder to write to. An input is a byte that chooses the
conversion, the first file, a divider, the second file. That of "boundaries" has a byte before it,
for the place where the buffer ends, and its conversion is also told which file is shifted; that of
"roundtrip" is any bytes.
"""

import hashlib
import pathlib
import random
import sys

import gpkg_seeds

ROOT = pathlib.Path(__file__).resolve().parent.parent
DIVIDER = b"\n=====\n"
LONGEST = 20_000
SHIFTED = ("mif", "mif", "mif", "shp", "archive", "shp")  # the files that "boundaries" shifts
LONGEST_SHIFTED = 400
SHIFTED_MODES = 0, 1
PAIRS = {"mif": (".mif", ".mid"), "shp": (".shp", ".dbf")}


def found(suffix):
    for folder in "tests/cases", "examples":
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix.lower() == suffix and path.is_file():
                yield path


def partner(path, suffix):
    for other in sorted(path.parent.iterdir()):
        if (other.is_file() and other.stem.lower() == path.stem.lower()
                and other.suffix.lower() == suffix):
            return other.read_bytes()
    return b""


def inputs(driver):
    if driver in PAIRS:
        first, second = PAIRS[driver]
        for path in found(first):
            for mode in range(4):
                yield bytes([mode]) + path.read_bytes() + DIVIDER + partner(path, second)
    elif driver == "archive":
        for path in found(".12da"):
            for mode in range(8):
                yield bytes([mode]) + path.read_bytes()
    elif driver == "boundaries":
        for kind, name in enumerate(SHIFTED):
            for i, data in enumerate(dict.fromkeys(inputs(name))):
                if len(data) <= LONGEST_SHIFTED and data[0] in SHIFTED_MODES:
                    yield bytes([i // 4 * 53 % 256, data[0] + 8 * kind]) + data[1:]
    elif driver == "gpkg":
        yield from gpkg_seeds.inputs(found(".12da"))
    elif driver == "roundtrip":
        for seed in range(200):
            yield random.Random(seed).randbytes(40 + seed * 5)
    else:
        for args in sorted((ROOT / "tests" / "cases").rglob("args")):
            typed = args.parent / "stdin"
            yield b"\0" + args.read_bytes() + DIVIDER + (typed.read_bytes() if typed.exists() else b"")
        for line in ("lines.mif", "-b\nlines.shp", "-zln\npoints.mif\nlines.mif", "-zln\nlines.mif",
                     "-results\npoints.shp", "-mif\nsite.12da", "-shp\nsite.12da", "-xs\n-shp\nsite.12da",
                     "-out\nx.mif\nsite.12da", "-out\nfolder\\x\n-shp\nsite.12da\nHeader.prj",
                     "-model\nM\n-out\nlines.mif\nlines.mif"):
            yield b"\0" + line.encode() + DIVIDER + b"y\n\nn\nother.mif\n\n"


def main():
    driver, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for data in inputs(driver):
        if len(data) <= LONGEST:
            (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)


if __name__ == "__main__":
    main()

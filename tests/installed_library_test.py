#!/usr/bin/env python3
"""Installs the routine set into an empty folder, looks at its names, builds the example program
against it and runs that."""

import argparse
import pathlib
import re
import subprocess
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
NOT_EXPORTED = {"REMOVETABS", "NEXTTOKEN", "DMESSAGECLEAR", "DMESSAGERESETCOUNTERS", "DLINE", "DPAUSE"}
RECORDS = {"DMESSAGES", "openerSettings"}


def run(*command, **options):
    result = subprocess.run([str(part) for part in command], text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, **options)
    assert result.returncode == 0, f"{command}:\n{result.stdout}"
    return result.stdout


def declared_names():
    """Every capital routine that a header of the toolkit declares."""
    names = set()
    for header in TOP.glob("src/toolkit/*.h"):
        names |= set(re.findall(r"^(?:\[\[noreturn\]\] )?[\w:]+ ([A-Z][A-Z0-9_]+)\(",
                                header.read_text(), re.MULTILINE))
    assert len(names) > 70, sorted(names)
    return names


def check_names(library):
    shown = {line.split()[-1] for line in run("nm", "-D", "--defined-only", library).splitlines()}
    wanted = declared_names() - NOT_EXPORTED | RECORDS
    assert shown == wanted, f"missing {sorted(wanted - shown)}, too many {sorted(shown - wanted)}"


def check_example(root, folder):
    run("cmake", "-S", TOP / "examples/toolkit", "-B", folder / "build",
        f"-DCMAKE_PREFIX_PATH={root}")
    run("cmake", "--build", folder / "build")
    (folder / "in.txt").write_text("  12.5 ! a level\n")
    shown = run(folder / "build/toolkit_example", "in.txt", cwd=folder)
    assert "Creek | .12da | C:\\flood\\gis\\lines.mif\n" in shown, shown
    # The panel falls from 2 to 0 over 4: half of it is wet at level 1, a triangle of 2 by 1.
    assert "length 5., wet area 1, width 2\n" in shown, shown
    assert "data: 12.5\n" in shown, shown
    opened = b" Trying to open file in.txt...OK. Opened File Unit: 102\r\n...Closed File Unit: 102\r\n"
    assert (folder / "opener.log").read_bytes() == opened


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="build folder with the library in it")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        root = folder / "root"
        run("cmake", "--install", arguments.build, "--prefix", root, "--component", "development")
        check_names(next(root.rglob("libvantelgis_toolkit.so")))
        check_example(root, folder)


main()

#!/usr/bin/env python3
"""Has the program write layers under each sample header, and GDAL say which coordinate system they
are in. Arguments: the program, the folder of the sample headers."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "examples/site.12da"
EPSG_BEFORE_ZONE = {"GDA94": "283", "GDA2020": "78"}
SKIPPED = 77


def output(*command, folder):
    return subprocess.run([str(word) for word in command], cwd=folder, stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, check=True).stdout


def coord_sys(text):
    return re.search(r"^CoordSys .*$", text, re.MULTILINE)[0].strip()


def check(program, header, folder):
    """The EPSG code of a layer in either format, as GDAL knows it, is that of the header's name."""
    datum, zone = re.fullmatch(r"(\w+) MGA zone (\d\d)", header.name).groups()
    code = EPSG_BEFORE_ZONE[datum] + zone
    shutil.copytree(header, folder)
    shutil.copy(EXAMPLE, folder)
    for family in "-mif", "-shp":
        output(program, "-b", family, EXAMPLE.name, folder=folder)
    found = output("gdalsrsinfo", "-e", "site.12da_L.prj", folder=folder)
    assert f"EPSG:{code}\n" in found, f"{header.name}: {found}"
    # GDAL names no code for a MapInfo system, but writes one.
    output("ogr2ogr", "-f", "MapInfo File", "-dsco", "FORMAT=MIF", "-a_srs", f"EPSG:{code}", "gdal.mif",
           "site.12da.mif", folder=folder)
    ours, theirs = ((folder / name).read_text("latin-1") for name in ("site.12da.mif", "gdal.mif"))
    assert coord_sys(ours) == coord_sys(theirs), f"{header.name}: {coord_sys(ours)}"


def main():
    if shutil.which("gdalsrsinfo") is None:
        print("gdalsrsinfo (gdal-bin) is missing")
        return SKIPPED
    program, headers = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    folders = sorted(headers.iterdir())
    assert len(folders) == 16, folders
    with tempfile.TemporaryDirectory() as scratch:
        for header in folders:
            check(program, header, pathlib.Path(scratch) / header.name)
    print(f"{len(folders)} headers name the systems that they should")
    return 0


if __name__ == "__main__":
    sys.exit(main())

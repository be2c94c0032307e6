#!/usr/bin/env python3
"""Asks GDAL what the layers of the program hold, and the program what those of GDAL do.

Each archive of the first table is converted to a layer, which ogr2ogr turns into the .csv file beside
this one. Each .csv file of the second is turned into a layer by ogr2ogr, which the program converts to
the .12da file of that name. Without ogr2ogr nothing is judged; the test then counts as skipped.
"""

import argparse
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
EXAMPLES = HERE.parents[1] / "examples"
SKIPPED = 77
# Arguments of a run, a layer of it, its features, and which of them by their geometry.
TO_LAYERS = [
    (["-out", "a.mif"], "a.mif", "strings.csv", ""),
    (["-out", "a.shp"], "a_L.shp", "strings.csv", "LINESTRING"),
    (["-out", "a.shp"], "a_P.shp", "strings.csv", "POINT"),
    (["-xs", "-out", "a.mif"], "a.mif", "xs.csv", ""),
    (["-xs", "-out", "a.mif"], "a_Pts.mif", "xs_Pts.csv", ""),
    (["-xs", "-out", "a.shp"], "a_L.shp", "xs.csv", ""),
    (["-xs", "-out", "a.shp"], "a_P.shp", "xs_Pts.csv", ""),
]
FROM_LAYERS = {"lines": [], "areas": [], "points": ["-results"]}
FORMATS = {"shp": ["-f", "ESRI Shapefile"], "mif": ["-f", "MapInfo File", "-dsco", "FORMAT=MIF"]}
CSV_TABLE = ["-oo", "AUTODETECT_TYPE=YES", "-oo", "GEOM_POSSIBLE_NAMES=WKT", "-oo",
             "KEEP_GEOM_COLUMNS=NO"]


def run(folder, *command):
    return subprocess.run(list(map(str, command)), cwd=folder, check=True, capture_output=True,
                          stdin=subprocess.DEVNULL).stdout


def rows(csv, geometry="", name_length=99):
    """The lines of a table with all numbers in one form and the names of its fields cut."""
    head, *lines = csv.splitlines()
    names = [name[:name_length] for name in head.split(",")]
    return [names] + [re.sub(r"-?\d+(\.\d+)?", lambda found: f"{float(found.group()):.9g}", line)
                      for line in lines if line.lstrip('"').startswith(geometry)]


def judge_output(folder, program, arguments, layer, table, geometry):
    run(folder, program, "-b", *arguments, "site.12da")
    found = run(folder, "ogr2ogr", "-f", "CSV", "/vsistdout/", layer, "-lco", "GEOMETRY=AS_WKT")
    # A dBase table keeps ten characters of a name.
    expected = rows((HERE / table).read_text(), geometry, 10 if layer.endswith(".shp") else 99)
    return expected, rows(found.decode())


def judge_input(folder, program, name, options, suffix):
    run(folder, "ogr2ogr", *CSV_TABLE, *FORMATS[suffix], f"{name}.{suffix}", HERE / f"{name}.csv")
    run(folder, program, "-b", "-model", "m", *options, f"{name}.{suffix}")
    expected = (HERE / f"{name}.12da").read_text()
    if suffix == "shp":  # whose text in quotes has no way to keep one
        expected = expected.replace('"12" pipe, (old)"', '"12"')
    return expected.splitlines(), (folder / f"{name}.12da").read_text().splitlines()


def agrees(what, judge, program, *arguments):
    with tempfile.TemporaryDirectory(prefix="vantelgis-judge-") as scratch:
        folder = pathlib.Path(scratch) / "work"
        shutil.copytree(EXAMPLES, folder)
        expected, found = judge(folder, program, *arguments)
    print(f"{what}: {'agrees' if expected == found else 'differs'}")
    for mark, lines, others in ("-", expected, found), ("+", found, expected):
        print("".join(f"  {mark} {line}\n" for line in lines if line not in others), end="")
    return expected == found


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="the program under test")
    program = pathlib.Path(parser.parse_args().program).resolve()
    if not shutil.which("ogr2ogr"):
        print("NOT JUDGED: ogr2ogr is missing (Debian package gdal-bin)", file=sys.stderr)
        return SKIPPED
    results = [agrees(f"{row[0]} {row[1]}", judge_output, program, *row) for row in TO_LAYERS]
    results += [agrees(f"{name}.{suffix}", judge_input, program, name, options, suffix)
                for name, options in FROM_LAYERS.items() for suffix in FORMATS]
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())

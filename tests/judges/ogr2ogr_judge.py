#!/usr/bin/env python3
"""Converts layers that GDAL's ogr2ogr has written and compares the archive with what GDAL itself
reads from them: polylines and their names as 2D breaklines, points with their values as results.

To judge a further layer add it to LAYERS. Without ogr2ogr nothing is judged; the test then counts
as skipped.
"""

import argparse
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
PROJECTIONS = {"Header.mif": 'CoordSys NonEarth Units "m"\n', "Header.prj": "PROJCS[]\n"}
RING = [[0, 0], [0, 90], [90, 90], [90, 0], [0, 0]]
HOLE = [[10, 10], [20, 10], [20, 20], [10, 20], [10, 10]]

# Names or values, and geometries; None where there is none.
LINES = [
    ("weir", ("LineString", [[327401.125, 6251204.75], [327410.5, -0.000004], [1e7, 3]])),
    ("it's, in two parts", ("MultiLineString", [[[1, 1], [2, 2], [3, 1]], [[5.5, 5], [6, 6]]])),
    ("nowhere", None),
    (None, ("LineString", [[0, 0], [-99999.123456, 1]])),
    ('12" pipe, (old)', ("LineString", [[8, 8], [9, 9]])),
    ("two words", ("LineString", [[8, 7], [9, 7]])),
]
AREAS = [("with a hole", ("Polygon", [RING, HOLE])), ("last", ("Polygon", [HOLE]))]
POINTS = [
    ([1.25, 270.5, "a"], ("Point", [300000.5, 6000000.25])),
    ([None, 359.99, "b, c"], ("Point", [300001, 6000001])),
    ([7, 8, "d"], None),
    ([-2.5, None, "e"], ("Point", [-1.5, 0])),
]
LAYERS = {"lines": (["NAME"], LINES), "areas": (["NAME"], AREAS),
          "points": (["SPEED", "ANGLE", "NOTE"], POINTS)}
FORMATS = {".shp": ["-f", "ESRI Shapefile"], ".mif": ["-f", "MapInfo File", "-dsco", "FORMAT=MIF"]}


def feature(fields, values, geometry):
    values = values if isinstance(values, list) else [values]
    shape = geometry and {"type": geometry[0], "coordinates": geometry[1]}
    return {"type": "Feature", "properties": dict(zip(fields, values)), "geometry": shape}


def write_layer(folder, name, suffix):
    fields, rows = LAYERS[name]
    source = {"type": "FeatureCollection", "features": [feature(fields, *row) for row in rows]}
    (folder / "source.json").write_text(json.dumps(source))
    subprocess.run(["ogr2ogr", "-a_srs", "EPSG:28356", *FORMATS[suffix], name + suffix,
                    "source.json"], cwd=folder, check=True, capture_output=True)


def read_by_gdal(folder, layer):
    done = subprocess.run(["ogr2ogr", "-f", "GeoJSON", "/vsistdout/", layer], cwd=folder,
                          check=True, capture_output=True)
    for found in json.loads(done.stdout)["features"]:
        geometry = found["geometry"] or {"type": None, "coordinates": []}
        yield geometry["type"], geometry["coordinates"], found["properties"]


def expected_lines(features, suffix):
    """Name and nodes of each string. A table's text has no way to keep a quote within a name."""
    for kind, nodes, row in features:
        name = (row["NAME"] or "").rstrip()
        if suffix == ".shp":
            name = name.partition('"')[0].rstrip()
        for part in {"LineString": [nodes], "MultiLineString": nodes}.get(kind, []):
            yield name, part


def found_lines(archive):
    for name, data in re.findall(r'  name      "(.*)"\r\n(?:.*\r\n)*?  data \{\r\n((?:    .*\r\n)*)',
                                 archive):
        yield name, [[float(number) for number in line.split()] for line in data.splitlines()]


def expected_points(features, _suffix):
    for kind, node, row in features:
        if kind == "Point":
            yield "", [[*node, row["SPEED"] or 0]]
            yield "", [[row["SPEED"] or 0, row["ANGLE"] or 0]]


def found_points(archive):
    places = re.findall(r"^    ( .{18}.*)\r$", archive.partition("symbol_data")[0], re.MULTILINE)
    sizes = re.findall(r"      size    (.*)\r\n      rotation (.*)\r\n", archive)
    for place, size in zip(places, sizes):
        yield "", [[float(number) for number in place.split()]]
        yield "", [[float(number) for number in size]]


def same(one, other, digits):
    name, nodes = one
    return name == other[0] and len(nodes) == len(other[1]) and all(
        len(a) == len(b) and all(abs(x - y) <= 0.51 / 10**digits for x, y in zip(a, b))
        for a, b in zip(nodes, other[1]))


def judge(program, name, suffix):
    """True when the archive holds what GDAL finds in the layer."""
    points = name == "points"
    with tempfile.TemporaryDirectory(prefix="vantelgis-judge-") as scratch:
        folder = pathlib.Path(scratch)
        for projection, text in PROJECTIONS.items():
            (folder / projection).write_text(text)
        write_layer(folder, name, suffix)
        subprocess.run([program, "-b", *(["-results"] if points else []), name + suffix],
                       cwd=folder, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        archive = (folder / f"{name}.12da").read_bytes().decode("latin-1")
        features = list(read_by_gdal(folder, name + suffix))
    expected, found = [list((expected_points if points else expected_lines)(features, suffix)),
                       list((found_points if points else found_lines)(archive))]
    # The counts keep a layer that neither side understood from passing.
    agrees = (len(features) == len(LAYERS[name][1]) and bool(expected) == (name != "areas")
              and len(expected) == len(found)
              and all(same(*pair, 2 if points else 5) for pair in zip(expected, found)))
    print(f"{name}{suffix}: {'agrees' if agrees else 'differs'}")
    if not agrees:
        print(f"  GDAL reads {expected}\n  the archive has {found}")
    return agrees


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="the program under test")
    program = str(pathlib.Path(parser.parse_args().program).resolve())
    if not shutil.which("ogr2ogr"):
        print("NOT JUDGED: ogr2ogr is missing (Debian package gdal-bin)", file=sys.stderr)
        return SKIPPED
    return 0 if all([judge(program, name, suffix)
                     for name in LAYERS for suffix in FORMATS]) else 1


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Has GDAL's ogrinfo read the layers that the program writes, and compares what it finds in them
with what the source holds: features in their order, geometry types, coordinates, extent, attributes.

The source is read here a second time, by other means. To judge a further layer add a row to
JUDGEMENTS. Without ogrinfo nothing is judged; the test then counts as skipped.
"""

import argparse
import dataclasses
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
SKIPPED = 77
NULL = -99999.0


@dataclasses.dataclass
class Feature:
    kind: str         # POINT or LINESTRING
    nodes: list       # (x, y) pairs
    attributes: dict  # by field name, numbers as float


@dataclasses.dataclass
class Judgement:
    """The arguments of a run in a copy of examples/, and the features of each layer it writes."""
    name: str
    args: list
    layers: dict  # file name: function that gives the features to expect


def blocks(archive):
    """Each data block of a well-formed archive: type text, name, level, and its vertices."""
    text = re.sub(r"//[^\n]*", "", (EXAMPLES / archive).read_text(encoding="ascii"))
    for head, body in re.findall(r"^string ([^{]*) \{(.*?)^\}", text, re.DOTALL | re.MULTILINE):
        level = re.search(r"^ *z (\S+)", body, re.MULTILINE)
        name = re.search(r'^ *name "(.*)"', body, re.MULTILINE).group(1)
        first = True
        for kind, data in re.findall(r"^ *data(_[23]d)? \{\s*([^}]*)\}", body, re.MULTILINE):
            wide = kind == "_3d" or (kind == "" and "3d" in head)
            if not wide and kind == "" and "2d" not in head:
                continue
            z = float(level.group(1)) if level and first else NULL
            first = False
            vertices = []
            for line in data.split("\n"):
                if line.strip():
                    numbers = [NULL if item == "null" else float(item) for item in line.split()]
                    vertices.append(tuple(numbers[:3]) if wide else (*numbers[:2], z))
            if re.search(r"^ *closed 1", body, re.MULTILINE):
                vertices.append(vertices[0])
            yield head, name, wide, vertices


def strings(archive):
    """A polyline for each block and a point for each vertex with an elevation."""
    for head, _, wide, vertices in blocks(archive):
        row = {"Z": NULL if wide else vertices[0][2], "dZ": 0.0, "Width": 0.0, "Options": "",
               "String_Type": head}
        yield Feature("LINESTRING", [v[:2] for v in vertices], row)
        for x, y, z in vertices:
            if z != NULL:
                yield Feature("POINT", [(x, y)], {**row, "Z": z})


def sections(archive):
    """The polyline of each string whose first block has three numbers a vertex."""
    texts = ["Type", "Flags", *(f"Column_{i}" for i in range(1, 7)), "Comments"]
    seen = set()
    for _, name, wide, vertices in blocks(archive):
        if wide and name not in seen:
            row = {field: "" for field in texts}
            row |= {"Source": f"{name}.csv", "Type": "xz", "Z_Increment": 0.0, "Z_Maximum": 0.0,
                    "Skew": 0.0}
            yield Feature("LINESTRING", [v[:2] for v in vertices], row)
        seen.add(name)


def section_points(archive):
    """The points of those strings; the first of each is its left end."""
    seen = set()
    for _, name, wide, vertices in blocks(archive):
        with_z = [v for v in vertices if v[2] != NULL]
        for i, (x, y, z) in enumerate(with_z if wide and name not in seen else []):
            yield Feature("POINT", [(x, y)],
                          {"Z": z, "MNR": -1.0, "LCR": "C" if i else "L", "XS_ID": name})
        seen.add(name)


def only(kind, features):
    return [feature for feature in features if feature.kind == kind]


def in_table(features):
    """The features with the ten characters that a dBase table keeps of a field's name."""
    for feature in features:
        row = {name[:10]: value for name, value in feature.attributes.items()}
        yield dataclasses.replace(feature, attributes=row)


JUDGEMENTS = [
    Judgement("strings to MapInfo", ["-mif", "site.12da"],
              {"site.12da.mif": lambda: strings("site.12da")}),
    Judgement("cross-sections to MapInfo", ["-xs", "-out", "xs.mif", "site.12da"],
              {"xs.mif": lambda: sections("site.12da"),
               "xs_Pts.mif": lambda: section_points("site.12da")}),
    Judgement("strings to shapefiles", ["-shp", "site.12da"],
              {"site.12da_L.shp": lambda: in_table(only("LINESTRING", strings("site.12da"))),
               "site.12da_P.shp": lambda: in_table(only("POINT", strings("site.12da")))}),
    Judgement("cross-sections to shapefiles", ["-xs", "-out", "xs.shp", "site.12da"],
              {"xs_L.shp": lambda: in_table(sections("site.12da")),
               "xs_P.shp": lambda: in_table(section_points("site.12da"))}),
]


def ogrinfo(*args):
    done = subprocess.run(["ogrinfo", "-ro", *args], capture_output=True, check=True, text=True)
    if done.stderr:
        print(f"ogrinfo has something to say: {done.stderr}", end="")
        raise SystemExit(1)
    return done.stdout


def features_in(layer):
    """What ogrinfo finds in a layer."""
    for entry in ogrinfo("-al", "-q", str(layer)).split("OGRFeature")[1:]:
        attributes = {}
        for name, kind, value in re.findall(r"^  (\w+) \((\w+)\) = (.*)$", entry, re.MULTILINE):
            text = "" if value == "(null)" else value  # a field of blanks in a table
            attributes[name] = text if kind == "String" else float(value)
        kind, nodes = re.search(r"^  ([A-Z]+) (?:Z )?\((.*)\)$", entry, re.MULTILINE).groups()
        yield Feature(kind, [tuple(map(float, node.split()[:2])) for node in nodes.split(",")],
                      attributes)


def extent_of(layer):
    found = re.search(r"^Extent: \((.*), (.*)\) - \((.*), (.*)\)$", ogrinfo("-al", "-so", str(layer)),
                      re.MULTILINE)
    return tuple(map(float, found.groups()))


def near(one, other):
    if isinstance(one, str) or isinstance(other, str):
        return one == other
    return abs(one - other) < 1e-6


def differs(expected, found):
    """What is wrong with a feature, None if nothing is."""
    if expected.kind != found.kind or len(expected.nodes) != len(found.nodes):
        return f"{expected.kind} of {len(expected.nodes)} nodes expected, found {found}"
    for pair, other in zip(expected.nodes, found.nodes):
        if not all(map(near, pair, other)):
            return f"node {pair} expected, found {other}"
    if expected.attributes.keys() != found.attributes.keys():
        return f"fields {list(expected.attributes)} expected, found {list(found.attributes)}"
    for name, value in expected.attributes.items():
        if not near(value, found.attributes[name]):
            return f"{name} = {value!r} expected, found {found.attributes[name]!r}"
    return None


def faults_of(layer, expected):
    if not expected:
        return ["nothing to expect: the source was not understood"]
    found = list(features_in(layer))
    if len(found) != len(expected):
        return [f"{len(expected)} features expected, found {len(found)}"]
    faults = [f"feature {i}: {fault}" for i, pair in enumerate(zip(expected, found), 1)
              if (fault := differs(*pair))]
    xs, ys = zip(*(node for feature in expected for node in feature.nodes))
    extent = extent_of(layer)
    if not all(map(near, (min(xs), min(ys), max(xs), max(ys)), extent)):
        faults.append(f"extent {extent}")
    return faults


def judge(program, judgement):
    """True when GDAL finds in every layer what the source holds."""
    passed = True
    with tempfile.TemporaryDirectory(prefix="vantelgis-judge-") as scratch:
        folder = pathlib.Path(scratch) / "work"
        shutil.copytree(EXAMPLES, folder)
        subprocess.run([program, "-b", *judgement.args], cwd=folder, check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        for name, expected in judgement.layers.items():
            faults = faults_of(folder / name, list(expected()))
            print(f"{judgement.name}, {name}: {'differs' if faults else 'agrees'}")
            print("".join(f"  {fault}\n" for fault in faults), end="")
            passed &= not faults
    return passed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="the program under test")
    program = str(pathlib.Path(parser.parse_args().program).resolve())
    if not shutil.which("ogrinfo"):
        print("NOT JUDGED: ogrinfo is missing (Debian package gdal-bin)", file=sys.stderr)
        return SKIPPED
    return 0 if all([judge(program, judgement) for judgement in JUDGEMENTS]) else 1


if __name__ == "__main__":
    sys.exit(main())

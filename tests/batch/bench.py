"""What the tests of vantelgis-batch share: layers to run it on, runs of it, their reports."""

import argparse
import json
import os
import pathlib
import shlex
import struct
import subprocess
import sys
import tempfile
import unittest

PARSER = argparse.ArgumentParser()
PARSER.add_argument("--batch", required=True)
PARSER.add_argument("--program", required=True)
PARSER.add_argument("--stand-in", default="")
PARSER.add_argument("--launcher", default="")
OPTIONS, REST = PARSER.parse_known_args()
BATCH = [*shlex.split(OPTIONS.launcher), str(pathlib.Path(OPTIONS.batch).resolve())]
PROGRAM = str(pathlib.Path(OPTIONS.program).resolve())
STAND_IN = str(pathlib.Path(OPTIONS.stand_in).resolve())
WINDOWS = OPTIONS.batch.endswith(".exe")


def mif(objects="Pline 2\n300000 6200000\n300010.5 6200020\n", records='"a"\n', fields="N Char(20)",
        head='CoordSys NonEarth Units "m"\n', name="l"):
    """The two files of a MapInfo layer."""
    columns = fields.split(";")
    text = head + f"Columns {len(columns)}\n" + "".join(f"  {c}\n" for c in columns) + "Data\n\n"
    return {name + ".mif": text + objects, name + ".mid": records}


def dbf(rows, fields=(("N", "C", 8),), count=None, marks=None):
    """A dBase table; `rows` hold texts of the fields' widths."""
    width = 1 + sum(field[2] for field in fields)
    head = struct.pack("<4BIHH20x", 3, 124, 1, 1, len(rows) if count is None else count,
                       33 + 32 * len(fields), width)
    for name, kind, length in fields:
        head += struct.pack("<11sc4xBB14x", name.encode(), kind.encode(), length, 0)
    marks = marks or " " * len(rows)
    body = b"".join(mark.encode() + "".join(f"{value:<{field[2]}}" for value, field
                                            in zip(row, fields)).encode()
                    for mark, row in zip(marks, rows))
    return head + b"\r" + body + b"\x1a"


def polyline(*parts):
    points = [point for part in parts for point in part]
    starts, place = [], 0
    for part in parts:
        starts.append(place)
        place += len(part)
    return (struct.pack("<i4dii", 3, 0, 0, 0, 0, len(parts), len(points))
            + struct.pack(f"<{len(parts)}i", *starts)
            + b"".join(struct.pack("<2d", *point) for point in points))


def point(x, y, kind=1, more=b""):
    return struct.pack("<i2d", kind, x, y) + more


LINE = polyline([(300000, 6200000), (300010.5, 6200020)])
PRJ = 'PROJCS["MGA 55",GEOGCS["GDA"],PROJECTION["Transverse_Mercator"],PARAMETER["central_meridian",147]]\n'


def shp(shapes=(LINE,), rows=(("a",),), name="l", prj=PRJ, **table):
    """A shapefile; `prj` is the text of its own .prj and of Header.prj."""
    body, index = b"", b""
    for number, shape in enumerate(shapes, 1):
        index += struct.pack(">ii", 50 + len(body) // 2, len(shape) // 2)
        body += struct.pack(">ii", number, len(shape) // 2) + shape

    def head(length):
        kind = struct.unpack("<i", shapes[0][:4])[0] if shapes else 3
        return struct.pack(">i20xi", 9994, 50 + length // 2) + struct.pack("<ii64x", 1000, kind)
    files = {name + ".shp": head(len(body)) + body, name + ".shx": head(len(index)) + index,
             name + ".dbf": dbf(rows, **table)}
    return files | ({"Header.prj": prj, name + ".prj": prj} if prj else {})


def archive(strings, head='null -999\nmodel "m"\n', name="l"):
    return {name + ".12da": head + strings}


def string3d(name="s", data="1 2 3\n4 5 6\n", kind="3d"):
    return f'string {kind} {{\n  name "{name}"\n  data {{\n{data}  }}\n}}\n'


class Done:
    """A run of the batch: status, texts, and the records of its report by input."""

    def __init__(self, done, report):
        self.status, self.out, self.err = done.returncode, done.stdout, done.stderr
        self.report = json.loads(report.read_text("utf-8")) if report.is_file() else None
        self.runs = self.report["runs"] if self.report else []
        self.verdicts = {pathlib.PurePath(run["input"].replace("\\", "/")).as_posix(): run["verdict"]
                         for run in self.runs}

    def findings(self, place=0):
        return {finding["name"] for finding in self.runs[place]["findings"]}


class Bench(unittest.TestCase):
    """Each test has a folder of its own."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="vantelgis-batch-test-")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name).resolve() / "work"
        self.folder.mkdir()

    def write(self, files, below="."):
        for name, content in files.items():
            path = self.folder / below / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content if isinstance(content, bytes) else content.encode())

    def command(self, *arguments, program=PROGRAM):
        report = self.folder.parent / "report.json"
        report.unlink(missing_ok=True)
        programs = ["--program", program] if program else []
        return [*BATCH, *programs, "--report", str(report), *map(str, arguments)], report

    def batch(self, *arguments, program=PROGRAM, text=None, cwd=None, env=None):
        command, report = self.command(*arguments, program=program)
        done = subprocess.run(command, cwd=cwd or self.folder, capture_output=True, timeout=120,
                              input=(text or "").encode(), check=False,
                              env=os.environ | (env or {}))
        done.stdout = done.stdout.decode("utf-8", "replace").replace("\r\n", "\n")
        done.stderr = done.stderr.decode("utf-8", "replace").replace("\r\n", "\n")
        return Done(done, report)

    def names(self, below="."):
        folder = self.folder / below
        return sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*")
                      if path.is_file())

    def text(self, name):
        return (self.folder / name).read_bytes().decode("latin-1")


def main():
    unittest.main(argv=[sys.argv[0], *REST])

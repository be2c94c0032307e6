"""What the tests of vantelgis-gpkg share: runs of it, archives made and read by other means, packages
read through Python's own SQLite."""

import argparse
import contextlib
import math
import pathlib
import re
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
FIELDS = ("name", "model", "colour", "style", "breakline", "chainage", "z")
# Debian's module is for Debian's Python alone.
SYSTEM_PYTHON = "/usr/bin/python3"
VALIDATOR = "import sys; from osgeo_utils.samples.validate_gpkg import check\n" \
    "faults = [(f, m) for f in sys.argv[1:] for m in check(f, abort_at_first_error=False," \
    " extra_checks=True)]\nprint(faults); sys.exit(bool(faults))"
PROGRAM = CONVERTER = None


def string(kind, vertices, name=None, block="data", **attributes):
    """A string of an archive; vertices are texts, or tuples of numbers."""
    lines = [f"string {kind} {{"] + ([] if name is None else [f'  name "{name}"'])
    lines += [f"  {key} {value}" for key, value in attributes.items()]
    rows = [v if isinstance(v, str) else " ".join(map(str, v)) for v in vertices]
    return "\n".join([*lines, f"  {block} {{", *rows, "  }", "}", ""])


def archive(*strings, head='null -999\nmodel "m"\n'):
    return head + "\n".join(strings)


def geometry(blob):
    """Type number and vertices of a point or line of a package."""
    flags, (x_min, x_max, y_min, y_max) = blob[3], (math.nan,) * 4
    at = 8
    if flags >> 1 & 7:
        x_min, x_max, y_min, y_max = struct.unpack_from("<4d", blob, 8)
        at = 40
    order, kind = struct.unpack_from("<BI", blob, at)
    assert blob[:3] == b"GP\0" and order == 1, blob
    is_line, width = kind % 1000 == 2, 2 + kind // 1000
    count = struct.unpack_from("<I", blob, at + 5)[0] if is_line else 1
    numbers = struct.unpack(f"<{count * width}d", blob[at + 5 + 4 * is_line:])
    vertices = [numbers[i:i + width] for i in range(0, len(numbers), width)]
    if is_line:
        xs, ys = [v[0] for v in vertices], [v[1] for v in vertices]
        assert (x_min, x_max, y_min, y_max) == (min(xs), max(xs), min(ys), max(ys)), blob
    return kind, vertices


def strings_of(text):
    """The strings of an archive of this program: attributes and vertices, by lines."""
    found, model = [], None
    for line in re.split(r"\r?\n", text):
        word, _, value = line.strip().partition(" ")
        value = value.strip().strip('"')
        if word == "model":
            model = value
        elif word == "string":
            found.append({"model": model, "type": value[:-2], "vertices": []})
        elif found and re.match(r"-?\d", word):
            found[-1]["vertices"].append(tuple(map(float, line.split())))
        elif found and word not in ("", "data", "}"):
            found[-1][word] = value
    return found


class GpkgTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="vantelgis-gpkg-")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name).resolve()

    def write(self, name, text):
        (self.folder / name).write_bytes(text if isinstance(text, bytes) else text.encode())

    def read(self, name):
        return (self.folder / name).read_bytes().decode()

    def run_gpkg(self, *arguments, status=0, says=""):
        """A run; `says` has to be found in what it writes to standard error."""
        done = subprocess.run([*PROGRAM, *arguments], cwd=self.folder, capture_output=True,
                              stdin=subprocess.DEVNULL, timeout=120, check=False)
        told = done.stderr.decode()
        self.assertEqual(done.returncode, status, (arguments, told))
        self.assertTrue(re.search(says, told), (arguments, told))
        self.assertEqual([p.name for p in self.folder.glob("*.part*")], [], arguments)
        return done.stdout.decode(), told

    def query(self, package, sql, *values):
        with contextlib.closing(sqlite3.connect(self.folder / package)) as database:
            rows = database.execute(sql, values).fetchall()
            database.commit()
        return rows

    def features(self, package, layer="strings"):
        """Attributes and geometry of each feature, in order."""
        rows = self.query(package, f"SELECT {','.join(FIELDS)}, type, geom FROM {layer} "
                                   "ORDER BY fid")
        return [(*row[:-1], *geometry(row[-1])) for row in rows]

    def validate(self, *packages):
        if subprocess.run([SYSTEM_PYTHON, "-c", "import osgeo_utils"], capture_output=True,
                          check=False).returncode != 0:
            self.skipTest("GDAL's validator isn't installed")
        done = subprocess.run([SYSTEM_PYTHON, "-c", VALIDATOR, *packages], cwd=self.folder,
                              capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout.strip()), (0, "[]"), done.stderr)

    def ogr(self, *arguments):
        if not shutil.which(arguments[0]):
            self.skipTest(f"{arguments[0]} isn't installed")
        return subprocess.run(arguments, cwd=self.folder, capture_output=True, text=True,
                              check=True).stdout

    def convert(self, name):
        """The converter's console, and its lines as (vertices, points behind them with z). A number
        too wide for its columns is nan."""
        done = subprocess.run([*CONVERTER, "-b", "-mif", name], cwd=self.folder,
                              capture_output=True, stdin=subprocess.DEVNULL, check=False)
        layer = self.folder / (name + ".mif")
        words = re.findall(r"[A-Z]\w+|-?\d+(?:\.\d{6})?|\*{16}", layer.read_text(
            "latin-1").partition("Data")[2]) if layer.exists() else []
        rows = layer.with_suffix(".mid").read_text("latin-1").splitlines() if words else []
        lines, at, record = [], 0, 0
        while at < len(words):
            count = int(words[at + 1]) if words[at] == "Pline" else 1
            at += 2 if words[at] == "Pline" else 1
            numbers = [float(word.replace("*" * len(word), "nan"))
                       for word in words[at:at + 2 * count]]
            vertices = list(zip(numbers[::2], numbers[1::2]))
            if words[at - 1] == "Point":
                z = float(rows[record].split(",")[0])
                if not lines:
                    lines.append(([], []))
                lines[-1][1].append((*vertices[0], z))
            else:
                lines.append((vertices, []))
            at, record = at + 2 * count, record + 1
        return done.stdout.decode("latin-1"), lines


def main():
    global PROGRAM, CONVERTER
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--converter", required=True)
    parser.add_argument("--launcher", default="")
    arguments, rest = parser.parse_known_args()
    PROGRAM, CONVERTER = ([*arguments.launcher.split(), path]
                          for path in (arguments.program, arguments.converter))
    unittest.main(module="__main__", argv=[sys.argv[0], *rest])

#!/usr/bin/env python3
"""Packages that become archives: those of other programs, round trips, and hostile ones."""

import json
import math
import random
import sqlite3
import struct

import harness
from harness import GpkgTest, archive, geometry, string, strings_of

A_LINE = {"type": "LineString", "coordinates": [[1, 2, 3], [4, 5, 6]]}


def features(*rows, crs="urn:ogc:def:crs:EPSG::7856"):
    return json.dumps({
        "type": "FeatureCollection", "crs": {"type": "name", "properties": {"name": crs}},
        "features": [{"type": "Feature", "properties": properties, "geometry": shape}
                     for shape, properties in rows]})


class FromOthers(GpkgTest):
    def package(self, *rows, options=(), **more):
        self.write("a.json", features(*rows, **more))
        (self.folder / "a.gpkg").unlink(missing_ok=True)
        self.ogr("ogr2ogr", "-nln", "road s", *options, "a.gpkg", "a.json")

    def strings(self, *options, says=""):
        out = self.run_gpkg("a.gpkg", *options, says=says)[0]
        found = strings_of(self.read("a.12da"))
        self.assertIn(f"{len(found)} string", out)
        return found

    def test_kinds_of_geometry(self):
        square = [[0, 0], [1, 0], [1, 1], [0, 0]]
        self.package((A_LINE, {"Name": "L"}),
                     ({"type": "MultiLineString",
                       "coordinates": [[[0, 0], [1, 1]], [[2, 2], [3, 3], [4, 4]]]}, {"Name": "M"}),
                     ({"type": "MultiPolygon", "coordinates": [[square, square], [square]]}, {}),
                     ({"type": "LineString", "coordinates": []}, {}), (None, {}))
        found = self.strings("--prj", says="2 features have no geometry")
        self.assertEqual([(s["type"], s["name"], len(s["vertices"])) for s in found],
                         [("3d", "L", 2), ("2d", "M", 2), ("2d", "M", 3), *[("2d", "", 4)] * 3])
        self.assertEqual(found[0]["vertices"], [(1, 2, 3), (4, 5, 6)])
        self.assertEqual(found[5]["vertices"], [tuple(v) for v in square])
        self.assertEqual([(s["model"], s["colour"], s["style"], s["breakline"], s["chainage"])
                          for s in found], [("road s", "red", "1", "line", "0")] * 6)
        self.assertRegex(self.read("a.prj"), r'^PROJCS\["GDA2020 / MGA zone 56",.*\]\n$')
        lines = self.convert("a.12da")[1]
        self.assertEqual([line[0] for line in lines],
                         [[v[:2] for v in s["vertices"]] for s in found])
        self.ogr("ogr2ogr", "-nlt", "CURVE", "-f", "GPKG", "b.gpkg", "a.gpkg", "-where", "fid=1")
        self.run_gpkg("b.gpkg", "--model", "own")
        self.assertEqual(strings_of(self.read("b.12da"))[0]["model"], "own")

    def test_shapefile(self):
        self.ogr("ogr2ogr", "-explodecollections", "-nln", "kerb", "a.gpkg",
                 str(harness.ROOT / "examples/kerb.shp"))
        found = self.strings("--model", "kerbs")
        rows = self.query("a.gpkg", "SELECT geom FROM kerb WHERE geom NOT NULL ORDER BY fid")
        stored = [geometry(blob)[1] for blob, in rows]
        self.assertEqual([line[0] for line in self.convert("a.12da")[1]],
                         [[(round(x, 5), round(y, 5)) for x, y, *_ in line] for line in stored])
        self.assertGreater(len(found), 0)

    def test_fields_and_order(self):
        rows = [({"type": "LineString", "coordinates": [[i, 0], [i, 1]]}, properties)
                for i, properties in enumerate([
                    {"ROAD": 'say "hi"', "COLOUR": "dark  red", "MODEL": "b", "Z": 7.1, "n": 3},
                    {"ROAD": "a\nb\tc", "STYLE": 4, "MODEL": "a", "CHAINAGE": 0.1, "n": 1},
                    {"ROAD": "//x///y", "COLOUR": None, "MODEL": "b", "TYPE": "3D", "n": 2},
                    {"ROAD": "é" * 60, "MODEL": "", "TYPE": "2d", "n": None}])]
        self.package(*rows)
        found = self.strings("--field", "name=road",
                             says=r"(?s)2 double quotes.*2 line ends or tabs.*3 times //.*1 text was")
        self.assertEqual([(s["model"], s["name"], s["vertices"][0][0]) for s in found],
                         [("b", "say 'hi'", 0), ("b", "/ /x/ / /y", 2), ("a", "a b c", 1),
                          ("road s", "é" * 50, 3)])
        self.assertEqual([(s.get("colour"), s.get("style"), s.get("chainage"), s.get("z"),
                           s["vertices"][1][2:]) for s in found],
                         [("dark  red", None, None, "7.1", ()), (None, None, None, None, (-999,)),
                          (None, "4", "0.1", None, ()), (None,) * 4 + ((),)])
        for options, order in ((["--sort", "n"], [3, 1, 2, 0]),
                               (["--where", "n > 1 -- some"], [0, 2]),
                               (["--where", "MODEL='a'", "--layer", "ROAD S"], [1])):
            self.assertEqual([s["vertices"][0][0] for s in self.strings(*options)], order)
        for options, words in ((["--sort", "m"], "no such column: \"?m"),
                               (["--where", "n >"], '--where "n >": .*syntax error'),
                               (["--where", "1); DROP TABLE x; --"], "--where"),
                               (["--layer", "x"], r"no layer x; it has: road s \(LINESTRING\)"),
                               (["--field", "name=x"], "no field x")):
            self.run_gpkg("a.gpkg", *options, status=1, says=words)

    def test_numbers_fit_or_nothing_is_written(self):
        """The widest that leave a blank between two columns, and the next ones."""
        rows = [(9999999999.99999, 999999999.99999, 999999.9999),
                (-999999999.99999, -99999999.99999, -99999.9999)]
        self.package(({"type": "LineString", "coordinates": rows}, {}))
        (found,) = self.strings()
        self.assertEqual(found["vertices"], rows)
        self.assertNotIn("*", self.read("a.12da"))
        before = self.read("a.12da")
        for wrong in ([1e10, 0, 0], [0, -1e8, 0], [0, 0, 1e6], [0, 0, -99999.99996]):
            self.package((A_LINE, {}),
                         ({"type": "LineString", "coordinates": [[0, 0, 0], wrong]}, {}))
            self.run_gpkg("a.gpkg", status=1, says="layer road s, feature 2: the vertex .* doesn't fit")
            self.assertEqual(self.read("a.12da"), before)
        self.package(({"type": "LineString", "coordinates": [[0, 0, -999], [0, 0, 1]]}, {}))
        self.strings(says="1 elevation of -999 will be read as missing")

    def test_coordinate_systems(self):
        self.package((A_LINE, {}), crs="urn:ogc:def:crs:EPSG::4283")
        self.run_gpkg("a.gpkg", status=1, says='"GDA94", whose coordinates are degrees')
        self.strings("--degrees")
        self.package((A_LINE, {}), options=("-nln", "one"))
        self.write("b.json", features((A_LINE, {}), crs="urn:ogc:def:crs:EPSG::7855"))
        self.ogr("ogr2ogr", "-append", "-nln", "two", "a.gpkg", "b.json")
        self.run_gpkg("a.gpkg", status=1, says="layers one and two are in two coordinate systems")
        self.assertEqual([s["model"] for s in self.strings("--layer", "two")], ["two"])
        self.query("a.gpkg", "UPDATE gpkg_geometry_columns SET srs_id=0")
        self.strings("--layer", "two", "--layer", "one", "--prj", says="(?s)undefined.*no .prj")

    def test_spellings(self):
        self.package((A_LINE, {"name": "Łé"}))
        for encoding, name in (("utf-8", "Łé"), ("windows-1252", "?é"), ("utf-16le", "Łé"),
                               ("utf-16be", "Łé")):
            self.run_gpkg("a.gpkg", "--encoding", encoding, says="1 character" if "?" in name else "")
            data = (self.folder / "a.12da").read_bytes()
            text = data.decode({"windows-1252": "cp1252"}.get(encoding, encoding[:6]))
            self.assertEqual(strings_of(text)[0]["name"], name, encoding)
            self.assertFalse(encoding == "utf-8" and data.startswith(b"\xef"))


class RoundTrips(GpkgTest):
    def test_random_archives(self):
        """Archive, package, archive, package: all that 2d and 3d strings can say is kept."""
        for seed in range(40):
            dice = random.Random(seed)
            texts = ["", "A", "two words", "ümlaut €", "it's", "0", "x" * 100, "semi;colon", "{b}", "string {"]
            strings = []
            for _ in range(dice.randrange(30)):
                kind = dice.choice(["2d", "3d", "3d polyline", "super", "text"])
                wide = kind not in ("2d", "text")
                z = ["null"] if seed % 2 else ["-999"]
                rows = [[f"{dice.uniform(-1e6, 1e7):.{dice.randrange(6)}f}" for _ in "xy"] +
                        [dice.choice([f"{dice.uniform(-50, 900):.{dice.randrange(4)}f}", *z])] * wide
                        for _ in range(dice.choice([1, 2, 3, 40]))]
                more = {key: dice.choice(values) for key, values in {
                    "colour": ["red", '"dark blue"', "off yellow"], "style": ['"1 2"', "5"],
                    "breakline": ["line", "point"], "chainage": ["0", "12.25", "1e-7"],
                    "model": ['"inner"']}.items() if dice.random() < .6}
                if kind == "2d" and dice.random() < .5:
                    more["z"] = dice.choice(["12.3", "-0.001", "4e6"])
                name = dice.choice([None, *texts])
                strings.append(string(kind, rows, name, **more,
                                      block="data_3d" if kind == "super" else "data"))
                if dice.random() < .2:
                    strings.append(f'model "{dice.choice(texts[1:5])}"\n')
            head = "// null_keyword true\nmodel \"first\"\n" if seed % 2 else "null -999\nmodel \"m\"\n"
            self.write("a.12da", archive(*strings, head=head))
            for source, target in (("a.12da", "a.gpkg"), ("a.gpkg", "b.12da"), ("b.12da", "b.gpkg")):
                self.run_gpkg(source, "-o", target)
            first, second = (self.everything(name) for name in ("a.gpkg", "b.gpkg"))
            order = {row[1]: i for i, row in reversed(list(enumerate(first)))}
            self.assertEqual(second, sorted(first, key=lambda row: order[row[1]]), seed)
        self.validate("a.gpkg", "b.gpkg")

    def everything(self, package):
        """Strings and points in the order of the archive, with vertices as they are printed."""
        rows = []
        for layer in ("strings", "points"):
            fids = self.query(package, f"SELECT fid FROM {layer} ORDER BY fid")
            rows += zip(fids, self.features(package, layer))
        found = []
        for _, (*fields, kind, _, vertices) in sorted(rows, key=lambda row: row[0]):
            wide = kind != "2d"
            found.append((*fields, wide, [
                (*(f"{n:.5f}" for n in v[:2]), *("" if math.isnan(n) else f"{n:.4f}" for n in v[2:]))
                for v in vertices]))
        for i, (*fields, wide, vertices) in enumerate(found):
            if not wide or all(len(v) == 2 for v in vertices):
                vertices = [(*v[:2], "") for v in vertices]
            found[i] = tuple(map(str, (*fields, vertices)))
        return found


class Hostile(GpkgTest):
    def setUp(self):
        super().setUp()
        self.write("good.12da", archive(string("3d", [(1, 2, 3), (4, 5, 6)])))
        self.run_gpkg("good.12da", "-o", "good.gpkg")
        with sqlite3.connect(self.folder / "good.gpkg") as database:
            for (trigger,) in database.execute(
                    "SELECT name FROM sqlite_master WHERE type='trigger'").fetchall():
                database.execute(f'DROP TRIGGER "{trigger}"')
            database.execute("DELETE FROM gpkg_contents WHERE table_name='points'")
        self.good = (self.folder / "good.gpkg").read_bytes()
        self.write("a.12da", "old")

    def refuse(self, words):
        self.run_gpkg("a.gpkg", status=1, says=words)
        self.assertEqual(self.read("a.12da"), "old")

    def change(self, *statements):
        self.write("a.gpkg", self.good)
        with sqlite3.connect(self.folder / "a.gpkg") as database:
            database.execute("PRAGMA writable_schema=ON")
            for sql, *values in statements:
                database.execute(sql, values)

    def test_blobs(self):
        head = b"GP\0\1" + struct.pack("<i", -1)
        nan, inf = math.nan, math.inf

        def line(kind, *numbers, count=2):
            return struct.pack("<BII", 1, kind, count) + struct.pack(f"<{len(numbers)}d", *numbers)
        good = line(2, 1, 2, 3, 4)
        for blob, words in (
                (b"", "no GeoPackage geometry"), ("text", "no GeoPackage geometry"),
                (b"\0\1junk", "no GeoPackage geometry"), (head[:5], "cut short"),
                (b"GP\1" + head[3:] + good, "head"), (b"GP\0\x0f" + head[4:] + good, "head"),
                (b"GP\0\x21" + head[4:] + good, "only its own program"), (head, "cut short"),
                (head + b"\2" + good[1:], "no such byte order"), (head + good[:-1], "cut short"),
                (head + line(2, 1, 2, count=2**32 - 1), "cut short"), (head + good + b"!", "left behind"),
                (head + struct.pack("<BII", 1, 6, 2**32 - 1), "cut short"),
                (head + line(18, 1, 2, 3, 4), "no such type"), (head + line(4002, 1, 2), "no such type"),
                (head + line(2, 1, nan, 3, 4), "no finite number"), (head + line(2, 1, 2, inf, 4), "finite"),
                (head + line(1002, 1, 2, -inf, 3, 4, 5), "finite"), (head + line(8, 1, 2), "curves"),
                (head + line(9, 1, 2), "Segmentize"), (head + line(7, 1, 2), "collection"),
                (head + struct.pack("<BII", 1, 5, 1) + struct.pack("<BI2d", 1, 1, 0, 0), "another type")):
            self.change(("UPDATE strings SET geom=?", blob))
            self.refuse(f"a.gpkg, layer strings, feature 1: .*{words}.*Nothing was written")
        swapped = struct.pack(">BIi", 0, 2002, 2) + struct.pack(">6d", 1, 2, 9, 3, 4, nan)
        old_z = line(0x80000002, 5, 6, 7, 8, 9, nan)
        boxed = b"GP\0\3" + head[4:] + struct.pack("<4d", nan, 9, -inf, 0) + good
        for blob, vertices in ((head + swapped, [(1, 2), (3, 4)]), (head + good, [(1, 2), (3, 4)]),
                               (head + old_z, [(5, 6, 7), (8, 9, -999)]), (boxed, [(1, 2), (3, 4)]),
                               (head + struct.pack("<BII", 1, 2, 0), None), (None, None),
                               (head + struct.pack("<BI2d", 1, 1, nan, nan), None)):
            self.change(("UPDATE strings SET type=NULL, geom=?", blob))
            self.run_gpkg("a.gpkg", "-o", "b.12da")
            found = strings_of(self.read("b.12da"))
            self.assertEqual([s["vertices"] for s in found], [vertices] if vertices else [], blob)

    def test_databases(self):
        name = 'a"; DROP TABLE x; --\'[`'
        quoted = name.replace('"', '""')
        self.change((f'ALTER TABLE strings RENAME TO "{quoted}"',),
                    (f'ALTER TABLE "{quoted}" RENAME COLUMN geom TO "g""\'"',),
                    (f'ALTER TABLE "{quoted}" RENAME COLUMN fid TO "f""d"',),
                    ("UPDATE gpkg_geometry_columns SET table_name=?, column_name=? WHERE "
                     "table_name='strings'", name, "g\"'"),
                    ("UPDATE gpkg_contents SET table_name=? WHERE table_name='strings'", name))
        for options in ((), ("--sort", "f\"d")):
            self.run_gpkg("a.gpkg", "-o", "b.12da", "--layer", name, *options)
            self.assertEqual(len(strings_of(self.read("b.12da"))), 1)
        endless = "WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM r) SELECT i AS fid, " \
            "NULL AS geom FROM r"
        rows = [
            (("DROP TABLE gpkg_contents",), "no table gpkg_contents"),
            (("DROP TABLE strings",), "the layer strings can't be read: its table isn't there"),
            (("UPDATE gpkg_geometry_columns SET column_name='x'",), "strings has no column x"),
            (("UPDATE gpkg_geometry_columns SET geometry_type_name='POINT'",), "no layer of lines"),
            (("UPDATE sqlite_master SET type='view', rootpage=0, sql='CREATE VIEW strings AS "
              f"{endless}' WHERE name='strings'",), "it is a view"),
            (("UPDATE sqlite_master SET sql='CREATE TABLE strings (fid, geom' WHERE name='strings'",),
             "malformed|damaged"),
            (("UPDATE sqlite_master SET rootpage=9999 WHERE name='strings'",), "malformed|damaged"),
            (("UPDATE strings SET z=1e300, type='2d'",), "feature 1: its z is too large")]
        for statement, words in rows:
            self.change(statement)
            self.refuse(words)
        for data, words in ((b"", "no table gpkg"), (b"SQLite format 3\0", "no SQLite|damaged|gpkg"),
                            (b"junk" * 999, "no SQLite database"), (self.good[:3000], "damaged|no SQL"),
                            (self.good[:40960], "damaged|malformed")):
            self.write("a.gpkg", data)
            self.refuse(words)
        (self.folder / "a.gpkg").unlink()
        self.refuse("isn't there")

    def test_a_small_file_gives_no_endless_archive(self):
        """Pages that are met again and again, a layer listed often, a long text for many parts."""
        blob = self.query("good.gpkg", "SELECT geom FROM strings")[0][0]
        with sqlite3.connect(self.folder / "a.gpkg") as database:
            database.execute("PRAGMA page_size=512")
            database.executescript(
                "CREATE TABLE gpkg_contents AS SELECT 'strings' table_name, 'features' data_type;"
                "CREATE TABLE gpkg_geometry_columns AS SELECT 'strings' table_name, 'geom' column_name,"
                " 'LINESTRING' geometry_type_name, 1 srs_id;"
                "CREATE TABLE gpkg_spatial_ref_sys (srs_id, definition);"
                "CREATE TABLE strings (fid INTEGER PRIMARY KEY, geom)")
            database.executemany("INSERT INTO strings VALUES (NULL, ?)", [(blob,)] * 2000)
            root, = database.execute("SELECT rootpage FROM sqlite_master WHERE name='strings'").fetchone()
        pages = bytearray((self.folder / "a.gpkg").read_bytes())
        while pages[(root - 1) * 512] == 5:  # an inner page: all of its children become the first one
            start = (root - 1) * 512
            count, = struct.unpack_from(">H", pages, start + 3)
            cells = struct.unpack_from(f">{count}H", pages, start + 12)
            root, = struct.unpack_from(">I", pages, start + cells[0])
            for place in (8, *cells):
                struct.pack_into(">I", pages, start + place, root)
        self.write("a.gpkg", bytes(pages))
        self.refuse(r"a.gpkg is damaged: in the layer strings, feature 1 comes behind feature \d+")
        self.run_gpkg("a.gpkg", "--sort", "fid", status=1, says="rows that contradict each other")
        self.change(("DROP TABLE gpkg_contents",),
            ("CREATE TABLE gpkg_contents AS WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM r "
             "LIMIT 9999) SELECT 'strings' AS table_name, 'features' AS data_type FROM r",))
        self.refuse("lists more than 5000 layers")
        self.change(("DELETE FROM gpkg_contents WHERE table_name='layer_styles'",),
                    ("DROP TABLE gpkg_contents",), ("CREATE TABLE gpkg_contents AS SELECT 'strings' AS "
                     "table_name, 'features' AS data_type UNION ALL SELECT 'strings', 'features'",))
        self.refuse("lists the layer strings twice")
        part = struct.pack("<BII2d", 1, 2, 1, 5, 6)
        self.change(("UPDATE strings SET name=?, geom=?", "x{string" * 100000, blob[:8].replace(
            b"\3", b"\1") + struct.pack("<BII", 1, 5, 20000) + part * 20000))
        self.run_gpkg("a.gpkg", says="(?s)braces of 1 text.* 1 text was cut")


if __name__ == "__main__":
    harness.main()

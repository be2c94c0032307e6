#!/usr/bin/env python3
"""Archives that become packages: what is in them, and what becomes of files that are there."""

import math
import shutil
import sqlite3
import struct
import subprocess
import time

import harness
from harness import GpkgTest, ROOT, archive, geometry, string

LINE = [(0, 0, 1.5), (3, 4, 2.5)]
WKT = 'PROJCS["MGA zone 56",GEOGCS["GDA",DATUM["D",SPHEROID["S",6378137,298.25]],PRIMEM["G",0],' \
    'UNIT["degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],UNIT["metre",1]]'


class Contents(GpkgTest):
    def test_strings_of_every_kind(self):
        """kind, vertices, attributes -> layer, geometry type, vertices, some fields."""
        nan = "nan"
        rows = [
            ("3d", [(1, 2, 12.3), (4, 6, "-999")], {"name": "A", "colour": '"dark red"',
             "chainage": 12.5, "style": "CL 1", "breakline": "point"},
             "strings", 1002, [(1, 2, 12.3), (4, 6, nan)],
             ("A", "m", "dark red", "CL 1", "point", 12.5, None, 0, 5.0, None, 12.3, 12.3)),
            ("2d", [(0, 0), (0, 7)], {"z": "0.1", "model": '"own"'}, "strings", 2, [(0, 0), (0, 7)],
             (None, "own", None, None, None, None, 0.1, 0, 7.0, None, None, None)),
            ("3d", [(0, 0, -999), (0, 1, -999)], {"name": ""}, "strings", 2, [(0, 0), (0, 1)],
             (None, "m", None, None, None, None, None, 0, 1.0, None, None, None)),
            ("3d", [(5, 6, 7)], {"color": "blue"}, "points", 1001, [(5, 6, 7)],
             (None, "m", "blue", None, None, None, None, 0, 0.0, 0.0, 7.0, 7.0)),
            ("polyline", [(0, 0, 0), (3, 0, 4)], {}, "strings", 1002,
             [(0, 0, 0), (3, 0, 4), (0, 0, 0)],
             (None, "m", None, None, None, None, None, 1, 6.0, 10.0, 0.0, 4.0)),
            ("super", [(0, 0, 1), (1, 0, 1), (1, 1, 1)], {"closed": "true", "block": "data_3d"},
             "strings", 1002, [(0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 0, 1)],
             (None, "m", None, None, None, None, None, 1, 2 + 2**.5, 2 + 2**.5, 1.0, 1.0)),
            ("super", [(0, 0, 1), (1, 1, 1), (0, 0, 1)], {"closed": 1, "block": "data_3d"},
             "strings", 1002, [(0, 0, 1), (1, 1, 1), (0, 0, 1)],
             (None, "m", None, None, None, None, None, 1, 8**.5, 8**.5, 1.0, 1.0)),
        ]
        self.write("a.12da", archive(*(string(kind, v, **more) for kind, v, more, *_ in rows)))
        self.run_gpkg("a.12da", "--check", says="no .prj")
        fields = "name,model,colour,style,breakline,chainage,z,closed,length_2d,length_3d,z_min,z_max"
        for number, (*_, layer, kind, vertices, expected) in enumerate(rows, 1):
            (count, blob, *found), = self.query(
                "a.gpkg", f"SELECT vertices, geom, {fields} FROM {layer} WHERE fid=?", number)
            self.assertEqual(count, len(vertices))
            self.assertEqual([type(f) for f in found], [type(e) for e in expected])
            for value, wanted in zip(found, expected):
                self.assertEqual(value, wanted) if isinstance(wanted, (str, type(None))) else \
                    self.assertAlmostEqual(value, wanted, 12)
            stored = geometry(blob)[1]
            stored = [tuple(nan if math.isnan(n) else n for n in v) for v in stored]
            self.assertEqual((geometry(blob)[0], stored), (kind, vertices), number)

    def test_what_gives_no_line_is_listed(self):
        ring = string("polyline", [])
        text = archive(
            string("text", ["5 5"], name="note"), string("3d", [], name="none"), ring,
            string("super", ["1 2 3", "4 5 6"], block="hipdata", name="hip"),
            'string drainage {\n  name "lost"\n}', string("2d", ["1 2 3", "4 5 6"], name="taken"),
            "string symbol {\n}", string("2d", ["1 2"], name="swallowed"),
            "string 3d {\n  data {\n1 2 3\n  }\nstring 3d {\n  data {")
        self.write("a.12da", text)
        self.run_gpkg("a.12da")
        line = {number: row for number, row in enumerate(text.split("\n"), 1)}
        found = self.query("a.gpkg", "SELECT type, name, line, reason, archive FROM ignored")
        self.assertEqual([(kind, name) for kind, name, *_ in found],
                         [("text", "note"), ("3d", "none"), ("polyline", None), ("super", "hip"),
                          ("drainage", "lost"), ("symbol", None), ("2d", "swallowed"),
                          ("3d", None)])
        for (kind, _, number, reason, name), words in zip(
                found, ("strings of this type", "no vertices", "no vertices", "--hip",
                        "no data of its own", "no data of its own", "another type", "ends before")):
            self.assertEqual((line[number], name), (f"string {kind} {{", "a.12da"))
            self.assertIn(words, reason)
        self.assertEqual(self.query("a.gpkg", "SELECT name, type, line FROM strings"),
                         [("taken", "drainage", text.split("\n").index('  name "taken"'))])
        self.run_gpkg("a.12da", "--hip")
        self.assertEqual(self.query("a.gpkg", "SELECT name FROM strings"), [("hip",), ("taken",)])

    def test_vertices_and_null_z(self):
        self.write("a.12da", archive(string("3d", [(0, 0, 1), (3, 4, -999)], chainage=10),
                                     string("2d", [(1, 1), (1, 2)], z=5)))
        self.run_gpkg("a.12da", "--vertices", "--null-z", "-5")
        self.assertEqual(geometry(self.query("a.gpkg", "SELECT geom FROM strings")[0][0])[1],
                         [(0, 0, 1), (3, 4, -5)])
        rows = self.query("a.gpkg", "SELECT string, number, chainage, z, geom FROM vertices")
        self.assertEqual([(*row[:4], *geometry(row[4])) for row in rows],
                         [(1, 1, 10.0, 1.0, 1001, [(0, 0, 1)]),
                          (1, 2, 15.0, None, 1001, [(3, 4, -5)]),
                          (2, 1, 0.0, 5.0, 1, [(1, 1)]), (2, 2, 1.0, 5.0, 1, [(1, 2)])])
        self.validate("a.gpkg")

    def same(self, stored, printed, decimals):
        self.assertEqual(*([[f"{n:.{decimals}f}" * (not math.isnan(p)) for n, p in zip(v, w)]
                            for v, w in zip(rows, printed)] for rows in (stored, printed)))
        self.assertEqual(len(stored), len(printed))

    def test_equals_the_converter(self):
        """Every archive of the cases and examples: the same lines, or the same refusal."""
        archives = sorted([*(ROOT / "tests/cases").rglob("input/**/*.?*da"),
                           *(ROOT / "examples").glob("*.12da")])
        self.assertGreater(len(archives), 15)
        packages = []
        for number, source in enumerate(path for path in archives if path.is_file()):
            name = f"{number}.12da"
            try:
                shutil.copy(source, self.folder / name)
            except OSError:
                continue  # a link to a device that is full
            console, lines = self.convert(name)
            refused = "ERROR" in console and "UTF-16" not in console or "Problems" in console
            self.run_gpkg(name, "--out", f"{number}.gpkg", status=int(refused),
                          says=f"{name}:\\d+: " if refused else "")
            if refused:
                self.assertFalse((self.folder / f"{number}.gpkg").exists())
                continue
            packages.append(f"{number}.gpkg")
            if "UTF-16" in console:
                continue
            found = self.features(packages[-1])
            self.assertEqual(len(found), len([line for line in lines if line[0]]), source)
            for (*_, level, kind, _, vertices), (plain, points) in zip(found, lines):
                if kind != "super":
                    self.same([v[:2] for v in vertices], plain, 6)
                heights = [(*v[:2], v[2] if len(v) > 2 else level) for v in vertices]
                heights = [(*v[:2], struct.unpack("f", struct.pack("f", v[2]))[0]) for v in heights
                           if v[2] is not None and not math.isnan(v[2])]  # as the converter has it
                if kind == "super" and vertices[0][:2] == vertices[-1][:2]:
                    heights = heights[:-1]  # the converter leaves it open
                if heights:  # behind these come the points of strings that give no line
                    self.same(heights, points[:len(heights)], 3)
            self.ogr("ogrinfo", "-al", packages[-1])
        self.validate(*packages)

    def test_spellings(self):
        text = archive(string("3d", LINE, name="Łódź €"), head="null -999\nmodel \"näh\"\n")
        rows = [(text.encode(), (), "Łódź €"), (text.encode("utf-8-sig"), (), "Łódź €"),
                (text.encode("utf-16"), (), "Łódź €"),
                ("\ufeff".encode("utf-16-be") + text.encode("utf-16-be"), (), "Łódź €"),
                (text.encode("utf-16-le"), ("--encoding", "utf-16le"), "Łódź €"),
                (text.replace("Łódź", "Lodz").encode("cp1252"), (), "Lodz €"),
                (text.encode(), ("--encoding", "windows-1252"), "Å\x81Ã³dÅº â‚¬")]
        for number, (data, options, name) in enumerate(rows):
            self.write("a.12da", data)
            self.run_gpkg("a.12da", *options)
            self.assertEqual(self.query("a.gpkg", "SELECT name, line FROM strings"), [(name, 3)],
                             number)

    def test_coordinate_systems(self):
        self.write("a.12da", archive(string("3d", LINE)))
        system = "SELECT srs_name, organization, definition FROM gpkg_spatial_ref_sys s JOIN " \
            "gpkg_contents c USING (srs_id) WHERE table_name='strings'"
        for name in ("Projection.prj", "header.PRJ", "a.prj"):
            self.write(name, WKT.replace("MGA", name).replace(",GEOGCS", ",\r\n  GEOGCS"))
            self.run_gpkg("a.12da")
            self.assertEqual(self.query("a.gpkg", system),
                             [(f"{name} zone 56", "NONE", WKT.replace("MGA", name))])
        self.write("b.prj", WKT[:-1] + ',AUTHORITY["EPSG","7856"]]')
        self.run_gpkg("a.12da", "--crs", "b.prj")
        self.assertEqual(self.query("a.gpkg", system)[0][1], "EPSG")
        self.assertIn("7856", self.ogr("ogrinfo", "-al", "-so", "a.gpkg", "strings"))
        self.write("b.prj", 'ENGCRS["site",EDATUM["d"],CS[Cartesian,2],AXIS["x",east],'
                            'AXIS["y",north],LENGTHUNIT["metre",1]]')
        self.run_gpkg("a.12da", "--crs", "b.prj")
        self.validate("a.gpkg")
        for wrong in ("", "PROJCS[\"a\"", "+proj=utm", "PROJCS[\"a\"]]"):
            self.write("b.prj", wrong)
            self.run_gpkg("a.12da", "--crs", "b.prj", status=1, says="b.prj holds no coordinate")

    def test_style(self):
        colours = ("red", '"a<b"', "RED", "white")
        self.write("a.12da", archive(*(string("3d", LINE, colour=c) for c in colours)))
        self.run_gpkg("a.12da", says='colour "a<b" is unknown')
        (layer, qml), *_ = self.query("a.gpkg", "SELECT f_table_name, styleQML FROM layer_styles "
                                                "WHERE useAsDefault ORDER BY id")
        self.assertEqual(layer, "strings")
        for part in ('value="a&lt;b"', 'value="red"', 'value="RED"', "255,0,0,255", 'fieldName="name"'):
            self.assertIn(part, qml)


class Files(GpkgTest):
    def setUp(self):
        super().setUp()
        self.write("a.12da", archive(string("3d", LINE, name="A"), string("3d", LINE[:1])))
        self.write("b.12da", archive(string("3d", [(9, 9, 9), (8, 8, 8)], name="B")))

    def names(self, package):
        return self.query(package, "SELECT archive, name FROM strings ORDER BY fid")

    def test_several_archives_and_append(self):
        self.run_gpkg("a.12da", "b.12da", "--out", "all.gpkg", "--vertices")
        self.assertEqual(self.names("all.gpkg"), [("a.12da", "A"), ("b.12da", "B")])
        self.write("a.12da", archive(string("3d", LINE, name="A2")))
        self.write("c.12da", archive(string("3d", [(-7, 0, 0), (1, 1, 1)], name="C")))
        self.run_gpkg("a.12da", "c.12da", "--append", "-o", "all.gpkg", "--vertices", "--check")
        self.assertEqual(self.names("all.gpkg"), [("b.12da", "B"), ("a.12da", "A2"), ("c.12da", "C")])
        for layer, count in (("strings", 3), ("points", 0), ("vertices", 6)):
            self.assertEqual(self.query("all.gpkg", f"SELECT (SELECT count(*) FROM {layer}), "
                                        f"(SELECT count(*) FROM rtree_{layer}_geom)"), [(count,) * 2])
        self.assertEqual(self.query("all.gpkg", "SELECT min_x, max_x FROM gpkg_contents WHERE "
                                                "table_name='strings'"), [(-7, 9)])
        self.validate("all.gpkg")
        (self.folder / "sub").mkdir()
        self.write("sub/a.12da", archive())
        for arguments, words in ((("a.12da", "sub/a.12da"), "two of the archives are called a.12da"),
                                 (("a.12da", "gone.12da"), "gone.12da isn't there")):
            self.run_gpkg(*arguments, "-o", "all.gpkg", status=1, says=words)

    def test_layers_of_others_stay(self):
        self.write("roads.json", '{"type":"LineString","coordinates":[[1,2],[3,4]]}')
        self.ogr("ogr2ogr", "-nln", "roads", "a.gpkg", "roads.json")
        before = (self.folder / "a.gpkg").read_bytes()
        self.run_gpkg("a.12da", status=1, says=r"holds layers .*\(roads\): --append keeps")
        self.assertEqual((self.folder / "a.gpkg").read_bytes(), before)
        self.run_gpkg("a.12da", "--append")
        self.assertEqual(self.query("a.gpkg", "SELECT count(*) FROM roads"), [(1,)])
        self.validate("a.gpkg")
        # A package's triggers don't run; counts that others keep by triggers are right all the same.
        self.query("a.gpkg", "CREATE TRIGGER t AFTER INSERT ON strings BEGIN DELETE FROM roads; END")
        self.query("a.gpkg", "INSERT INTO gpkg_ogr_contents VALUES ('strings', 77)")
        self.run_gpkg("a.12da", "--append")
        self.assertEqual(self.query("a.gpkg", "SELECT * FROM gpkg_ogr_contents ORDER BY 1"),
                         [("roads", 1), ("strings", 1)])
        self.run_gpkg("a.12da", "--replace")
        self.assertEqual(self.query("a.gpkg", "SELECT name FROM sqlite_master WHERE name='roads'"), [])

    def test_the_old_result_stays(self):
        self.run_gpkg("a.12da")
        before = (self.folder / "a.gpkg").read_bytes()
        self.write("a.12da", archive(string("3d", LINE), string("3d", ["1 2 3", "1 x 2"], name="K")))
        self.run_gpkg("a.12da", status=1, says=r'a.12da:14: a number .* "1 x 2" \(in the string "K", '
                                               "which begins in line 10")
        self.write("b.12da", archive(string("3d", ["1 2"])))
        self.run_gpkg("b.12da", "-o", "a.gpkg", status=1, says='b.12da:5: too few numbers in "1 2"')
        self.write("b.12da", archive(string("3d", LINE, z="high")))
        self.run_gpkg("b.12da", "-o", "a.gpkg", status=1, says="b.12da:4: the value .*z high")
        for ending in ("-wal", "-journal", "-shm"):
            self.write("a.gpkg" + ending, "")
            self.run_gpkg("b.12da", "-o", "a.gpkg", status=1, says=f"a.gpkg{ending} lies beside")
            (self.folder / ("a.gpkg" + ending)).unlink()
        self.assertEqual((self.folder / "a.gpkg").read_bytes(), before)

    def test_a_package_in_use(self):
        self.run_gpkg("a.12da")
        before = (self.folder / "a.gpkg").read_bytes()
        database = sqlite3.connect(self.folder / "a.gpkg", isolation_level=None)
        for sql in ("SELECT 1 FROM strings", "BEGIN EXCLUSIVE"):
            database.execute(sql).fetchall()
            self.run_gpkg("a.12da", status=1, says="a.gpkg is open in another program")
        self.run_gpkg("a.gpkg", "-o", "back.12da", status=1, says="a.gpkg is locked")
        database.close()
        self.assertEqual((self.folder / "a.gpkg").read_bytes(), before)

    def test_a_killed_run(self):
        self.run_gpkg("a.12da")
        before = (self.folder / "a.gpkg").read_bytes()
        self.write("a.12da", archive(*[string("3d", LINE * 5)] * 100000))
        for number in (15, 9):
            run = subprocess.Popen([*harness.PROGRAM, "a.12da"], cwd=self.folder,
                                   stderr=subprocess.DEVNULL)
            scratch = self.folder / "a.gpkg.part"
            while not scratch.exists() or scratch.stat().st_size == 0:
                time.sleep(0.001)
            if number == 9:
                done = subprocess.run([*harness.PROGRAM, "a.12da"], cwd=self.folder,
                                      capture_output=True, check=False)
                self.assertIn(b"another run is writing", done.stderr)
            run.send_signal(number)
            self.assertEqual(run.wait(), -number)
            self.assertEqual((scratch.exists(), (self.folder / "a.gpkg").read_bytes()),
                             (number == 9, before))
        self.run_gpkg("a.12da")
        self.assertEqual(self.query("a.gpkg", "SELECT count(*) FROM strings"), [(100000,)])

    def test_usage(self):
        self.run_gpkg("a.12da")
        for arguments, words in (
                ((), "no file is named"), (("--appendd", "a.12da"), "did you mean --append"),
                (("a.txt",), "neither an archive"), (("a.12da", "a.gpkg"), "named together"),
                (("a.12da", "b.12da"), "with --out"), (("a.12da", "-o", "b.12da"), "b.12da is"),
                (("a.12da", "--layer", "x"), "--layer has a meaning only"),
                (("a.gpkg", "--vertices"), "--vertices has a meaning only"),
                (("a.12da", "--null-z", "nan"), "--null-z wants"),
                (("a.gpkg", "--field", "width=W"), "--field wants"),
                (("a.12da", "--encoding", "ebcdic"), "--encoding knows")):
            self.run_gpkg(*arguments, status=2, says=words)
        self.assertIn("vantelgis-gpkg site.12da", self.run_gpkg("--help", "nonsense")[0])


if __name__ == "__main__":
    harness.main()

#!/usr/bin/env python3
"""Each finding: an input that has it, and one that nearly has it."""

import os
import subprocess

from bench import (BATCH, LINE, PRJ, WINDOWS, Bench, archive, dbf, main, mif, point, polyline, shp,
                   string3d)

PLINE = "Pline 2\n300000 6200000\n300010.5 6200020\n"
POINT = "Point 300000.5 6200000\n"
SECOND = PRJ.replace("147", "153")
LONG = [(300000 + i, 6200000) for i in range(1001)]
CREEK = '"12.5"\n'


def zln(records, objects=PLINE + POINT, fields="Z Float"):
    return mif(objects, records, fields)


def older(name, seconds):
    return {"touch": (name, seconds)}


# name, options, input, files that have it, files that nearly have it
CASES = [
    ("missing", "", "x.mif", {}, mif(name="x")),
    ("unfit-kind", "-shp", "l.mif", mif(), None),
    ("unfit-kind", "", "l.12da", archive(string3d()), None),
    ("sister-missing", "", "l.mif", {"l.mif": mif()["l.mif"]},
     {"l.mif": mif()["l.mif"], "L.MID": '"a"\n'}),
    ("sister-missing", "", "l.shp", {"l.shp": shp()["l.shp"], "Header.prj": PRJ}, shp()),
    ("sister-case", "", "l.mif", {"l.mif": mif()["l.mif"], "L.MID": '"a"\n', "L.mid": '"a"\n'},
     {"l.mif": mif()["l.mif"], "L.mid": '"a"\n'}),
    ("sister-older", "", "l.shp", shp() | older("l.dbf", 600), shp() | older("l.dbf", 60)),
    ("result-is-input", "-zln levels_unsnapped_points.mif levels.mif", "", {}, None),
    ("result-is-older", "", "l.mif", mif() | {"l.12da": ""} | older("l.12da", 600),
     mif() | {"m.12da": ""}),
    ("result-is-newer", "", "l.mif", mif() | {"l.12da": ""} | older("l.mif", 600), mif()),
    ("shapes-with-z", "", "l.shp", shp([point(1e5, 1e6, 11, bytes(16))]), shp([point(1e5, 1e6)])),
    ("collection", "", "l.mif", mif("Collection 1\n"), mif("Pline 2\n1 1\n2 2\n")),
    ("column-type", "-results", "l.mif", mif(POINT, "1,2\n", "V Float;N Integer"),
     mif(POINT, "1,2\n", "V Float;N Integer(8)")),
    ("too-many-nodes", "", "l.mif", mif("Pline 1001\n" + "1 1\n" * 1001),
     mif("Pline 1000\n" + "1 1\n" * 1000)),
    ("too-many-nodes", "", "l.shp", shp([polyline(LONG)]), shp([polyline(LONG[:1000], LONG[:9])])),
    ("too-many-parts", "", "l.shp", shp([polyline(*[LONG[:2]] * 10000)]),
     shp([polyline(*[LONG[:2]] * 9999)])),
    ("too-many-fields", "", "l.shp", shp(rows=[["a"] * 129], fields=[("N", "C", 1)] * 129),
     shp(rows=[["a"] * 128], fields=[("N", "C", 1)] * 128)),
    ("would-stop", "", "l.mif", mif("Pline x\n"), mif("Pline 1\n1 1\n")),
    ("deleted-rows", "", "l.shp", shp([LINE], [("x",), ("a",)], marks="* "),
     shp([LINE, LINE], [("x",), ("a",)])),
    ("few-records", "", "l.shp", shp([LINE, LINE]), shp([LINE, LINE], [("a",), ("b",)])),
    ("few-records", "", "l.mif", mif(PLINE * 2), mif(PLINE * 2, '"a"\n"b"')),
    ("many-records", "", "l.shp", shp(rows=[("a",), ("b",)]), shp()),
    ("many-records", "", "l.mif", mif(records='"a"\n"b"\n'), mif(records='"a"\n\n')),
    ("quoted-line-break", "", "l.mif", mif(PLINE * 2, '"a\nb"\n"c"\n'),
     mif(PLINE * 2, '"a ""b"""\n"c"\n')),
    ("no-projection", "", "l.shp", shp(prj=""), shp()),
    ("no-coordsys", "", "l.mif", mif(), mif() | {"projection.MIF": 'COORDSYS NonEarth Units "m"\n'}),
    ("projection-form", "", "l.shp", shp() | {"Header.prj": 'GEOGCS["GDA94"]'}, shp()),
    ("projection-form", "-zln", "l.shp", shp(prj='PROJCRS["x"]'), shp()),
    ("projection-form-unused", "", "l.shp", shp() | {"Header.prj": PRJ.replace(",PARA", ",\nPARA")},
     shp() | {"Header.prj": " " + PRJ}),
    ("other-projection-unused", "", "l.shp", shp() | {"Header.prj": SECOND},
     shp() | {"Header.prj": PRJ.replace("MGA 55", "another name")}),
    ("other-projection", "-zln other.mif l.mif", "", {}, None),
    ("degrees", "", "l.mif", mif("Pline 2\n151.20732 -33.86785\n151.2 -33.9\n"),
     mif("Pline 2\n151.207 -33.868\n151.2 -33.9\n")),
    ("degrees", "", "l.shp", shp() | {"l.prj": 'GEOGCS["GDA94",DATUM["D"]]'}, shp()),
    ("outside-columns", "", "l.mif", mif("Pline 2\n1 1000000000\n2 2\n"),
     mif("Pline 2\n1 999999999.99999\n2 2\n")),
    ("outside-columns", "-mif", "l.12da", archive(string3d(data="100000000 2 3\n4 5 6\n")),
     archive(string3d(data="99999999 2 3\n4 5 6\n"))),
    ("long-number", "-zln", "l.mif", zln("1e7\n1\n"), zln("9999999\n-999999.9\n")),
    ("long-number", "-results", "l.mif", mif(POINT, "99999.99,-99.996\n", "V Float;Angle Float"),
     mif(POINT, "99999.99,-99.99\n", "V Float;Angle Float")),
    ("long-number", "-results", "l.mif", mif(POINT, "-1e4,1\n", "V Float;B Float"),
     mif(POINT, "-9999.99,1e9\n", "V Float;B Float")),
    ("not-a-number", "-zln", "l.mif", zln(CREEK * 2), zln("12.5\n1.25E1\n")),
    ("blank-record", "-zln", "l.mif", zln("12.5\n\n"), zln("12.5\n,\n")),
    ("kept-value", "-zln", "l.mif", zln("12.5\n,2\n"), zln("12.5\n0,2\n")),
    ("kept-value", "", "l.mif", mif(records=",x\n"), mif(records='"",x\n')),
    ("empty-value", "-results", "l.mif", mif(POINT, ",2\n", "V Float;A Float"),
     mif(POINT, "1,\n", "V Float;A Float")),
    ("empty-value", "-results", "l.mif", mif(POINT, "1,,3\n", "V Float;angle Float;B Float"),
     mif(POINT, "1,2,\n", "V Float;angle Float;B Float")),
    ("asterisk-number", "-zln", "l.shp",
     shp(rows=[("****", "1")], fields=[("Z", "N", 4), ("B", "N", 4)]),
     shp(rows=[("1", "****")], fields=[("Z", "N", 4), ("B", "N", 4)])),
    ("long-name", "", "l.mif", mif(records='"' + "n" * 101 + '"\n'),
     mif(records='"' + "n" * 100 + '"\n')),
    ("quoted-name", "", "l.mif", mif(records='"a ""b"""\n'), mif(records="\"a 'b'\"\n")),
    ("quoted-name", "", "l.shp", shp(rows=[('12" a', "b")], fields=[("N", "C", 5), ("B", "C", 1)]),
     shp(rows=[("12' a", '"')], fields=[("N", "C", 5), ("B", "C", 1)])),
    ("nothing-to-convert", "", "l.mif", mif(POINT), mif(POINT + PLINE, '"a"\n"b"\n')),
    ("nothing-to-convert", "-results", "l.mif", mif(fields="V Float", records="1\n"),
     mif(POINT, "1\n", "V Float")),
    ("nothing-to-convert", "-zln", "l.mif", zln("1\n", POINT), zln("1\n1\n")),
    ("no-points", "-zln", "l.mif", zln("1\n", PLINE), zln("1\n1\n")),
    ("passed-over", "", "l.mif", mif(POINT + PLINE, '"a"\n"b"\n'), mif()),
    ("utf-16", "-mif", "l.12da", {"l.12da": archive(string3d())["l.12da"].encode("utf-16")},
     {"l.12da": b"\xef\xbb\xbf" + archive(string3d())["l.12da"].encode()}),
    ("cut-archive", "-mif", "l.12da", archive(string3d()[:-6]), archive(string3d() + "// end\n")),
    ("no-model", "-mif", "l.12da", archive(string3d(), "null -999\n"), archive(string3d())),
    ("ignored-strings", "-mif", "l.12da", archive(string3d() + string3d(kind="text")),
     archive(string3d() + string3d(kind="2d"))),
    ("long-section-name", "-xs -mif", "l.12da", archive(string3d("XS_1234567890")),
     archive(string3d("XS_123456789"))),
    ("section-twice", "-xs -mif", "l.12da", archive(string3d("a") + string3d("a.csv")),
     archive(string3d("a") + string3d("b"))),
    ("section-outside", "-xs -mif", "l.12da", archive(string3d("..\\a")),
     archive(string3d("sub\\a"))),
]
ERRORS = {"sister-missing", "sister-older", "shapes-with-z", "too-many-nodes", "deleted-rows"}


class Findings(Bench):
    def look(self, options, inputs):
        done = self.batch("--check", "-q", *inputs, "--", *options.split())
        return {run["input"]: run for run in done.runs}, done

    def put(self, folder, files):
        files = dict(files)
        touch = files.pop("touch", None)
        self.write(files, folder)
        if touch:
            path = self.folder / folder / touch[0]
            time = path.stat().st_mtime - touch[1]
            os.utime(path, (time, time))

    def test_each_by_an_input_that_has_it_and_one_that_nearly_has(self):
        groups = {}
        for number, (name, options, layer, has, nearly) in enumerate(CASES):
            if not layer or (WINDOWS and "case" in name):
                continue
            for expected, files in ((True, has), (False, nearly)):
                if files is None:
                    continue
                folder = f"{number}-{expected}"
                (self.folder / folder).mkdir()
                self.put(folder, files)
                groups.setdefault(options, []).append((f"{folder}/{layer}", name, expected))
        for options, rows in groups.items():
            runs, done = self.look(options, [row[0] for row in rows])
            self.assertEqual(len(runs), len(rows), done.err)
            for layer, name, expected in rows:
                found = [finding["name"] for finding in runs[layer]["findings"]]
                with self.subTest(finding=name, input=layer, options=options, found=found):
                    self.assertEqual(name in found, expected)
                    errors = any(f["level"] == "error" for f in runs[layer]["findings"])
                    self.assertEqual(runs[layer]["verdict"], "not run" if errors else "ready")

    def test_findings_of_two_files(self):
        self.write(mif(POINT, "1\n", "Z Float", name="other") |
                   mif(fields="Z Float", records="2\n", name="lines") |
                   {"p.mif": mif(POINT, "1\n", "Z Float", 'CoordSys Earth Projection 8\n')["l.mif"],
                    "p.mid": "1\n"})
        self.write(mif(POINT, "1\n", "Z Float", name="lines_unsnapped_points"))
        for second, finding in (("lines.mif", None), ("gone.mif", "missing")):
            done = self.batch("--check", "other.mif", "--", "-zln", second)
            self.assertEqual(finding in done.findings() if finding else not done.findings(),
                             True, done.runs)
        done = self.batch("--check", "lines_unsnapped_points.mif", "--", "-zln", "lines.mif")
        self.assertIn("result-is-input", done.findings())

    def test_a_file_that_may_not_be_read_or_no_room_for_the_result(self):
        if WINDOWS or os.geteuid() == 0:
            return
        self.write(mif() | mif(name="m"))
        os.chmod(self.folder / "l.mid", 0)
        os.chmod(self.folder / "m.mif", 0)
        done = self.batch("--check", "l.mif", "m.mif")
        self.assertIn("sister-unreadable", done.findings(0))
        self.assertIn("unreadable", done.findings(1))

    def test_large_files_are_sampled(self):
        line = "Pline 2\n300000 6200000\n300010 6200020\n"
        count = 18_000_000 // len(line)
        bad = line * (count // 2) + "Pline 1001\n" + "1 1\n" * 1001 + line * (count // 2)
        self.write(mif(bad, '"a"\n' * (count + 1), name="bad") |
                   mif(line * count, '"a"\n' * count, name="good"))
        for look, notes in (("sample", True), ("full", False)):
            done = self.batch("--check", "--look", look, "bad.mif", "good.mif")
            self.assertEqual("not_looked_at" in done.runs[1], notes)
            self.assertEqual(done.verdicts["good.mif"], "ready")
            if look == "full":
                self.assertIn("too-many-nodes", done.findings(0))
        self.write(mif("Point 1 1\n" * 200_000, "1\n" * 200_000, "Z Float", name="levels") |
                   mif(line * count, "1\n" * count, "Z Float", name="lines"))
        done = self.batch("--check", "levels.mif", "--", "-zln", "lines.mif")
        self.assertNotIn("nothing-to-convert", done.findings())
        records = '"{}"\n'.format("r" * 1998) * 9000
        self.write(mif(line * 9001, records + '"a\nb"\n', name="tail") |
                   mif(line * 9000, records, name="wide"))
        done = self.batch("--check", "tail.mif", "wide.mif")
        self.assertIn("quoted-line-break", done.findings(0))
        self.assertEqual(done.verdicts["wide.mif"], "ready")
        self.assertIn("records of wide.mid behind the first", done.runs[1]["not_looked_at"])

    def test_the_list_of_findings_is_the_guide(self):
        done = subprocess.run([*BATCH, "--list-findings"], capture_output=True, check=True)
        page = (os.path.join(os.path.dirname(__file__), "../../docs/batch.md"))
        with open(page, encoding="utf-8") as text:
            self.assertIn(done.stdout.decode().replace("\r\n", "\n"), text.read())
        shown = {line.split("`")[1] for line in done.stdout.decode().splitlines() if "`" in line}
        tried = {case[0] for case in CASES} | {"folder-not-writable", "no-room", "unreadable",
                                               "sister-unreadable", "too-many-points"}
        self.assertEqual(shown, tried)
        self.assertTrue(dbf([]))


if __name__ == "__main__":
    main()

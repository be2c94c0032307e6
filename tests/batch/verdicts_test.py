#!/usr/bin/env python3
"""Each verdict: by the console and the results of a program that plays the converter's part, and by
the converter itself; and what becomes of results that were there before."""

import json
import subprocess

from bench import (BATCH, LINE, PROGRAM, STAND_IN, WINDOWS, Bench, archive, main, mif, point, shp,
                   string3d)

HEAD = "null -999\\nmodel \"m\"\\n\\n"
STRING = ("string 2d {\\n  name      \"a\"\\n  data {\\n       300000.00000   6200000.00000\\n"
          "       300010.50000   6200020.00000\\n  }\\n}\\n\\n")
TOLD = "print Polyline 1 with 2 nodes..."
CLOSE = "print ...Closed File Unit:1001\\n\\nFinished.\\n\\nPress Enter to Close\\n"
WELL = ["write l.12da " + HEAD + STRING, TOLD, CLOSE]


def result(text, *more):
    return ["write l.12da " + text, *more, TOLD, CLOSE]


# what the run does, its verdict, words of the reason
CASES = {
    "well": (WELL, "well", ""),
    "without-pause": ([WELL[0], TOLD, "print ...Closed File Unit:9\\n\\nFinished.\\n"], "well", ""),
    "status": ([*WELL, "exit 3"], "failed", ""),
    "crash": ([*WELL, "crash"], "failed", "" if WINDOWS else "signal 6"),
    "silent": ([WELL[0]], "failed", "<"),
    "unfinished": ([WELL[0], TOLD, "print \\nNot Finished.\\n"], "failed", "Not Finished."),
    "error": ([WELL[0], "print \\nERROR 0310 - Exceeded number.\\n\\nPress Enter to Close\\n"],
              "failed", "ERROR 0310"),
    "error-behind-names": (["print XS_1, XS_1234567890123, ERROR - XS ID exceeds 12 characters.\\n"],
                           "failed", "ERROR - XS ID exceeds 12 characters."),
    "finished-in-a-message": ([WELL[0], "print \\nERROR - Reading .12da file.  Erroneous line is:\\n"
                               "Finished.\\n\\nPress Enter to Close\\n"], "failed", "ERROR - Reading"),
    "named-like-an-error": ([WELL[0], TOLD, "print \\nERROR 1, ERROR 0254, \\n", CLOSE], "well", ""),
    "bad-start": ([WELL[0], TOLD, "print \\nWARNING - Problems finding start of data in .12da file\\n",
                   CLOSE], "failed", "start of data"),
    "late-error": ([*WELL[:2], CLOSE.replace("\\n\\nPress", "\\n\\nERROR - Writing file l.12da\\n\\nPress")],
                   "failed", "Writing file"),
    "no-result": ([TOLD, CLOSE], "failed", "can't be read"),
    "no-head": (result(STRING), "failed", "no \"model\" line"),
    "cut-result": (result(HEAD + STRING[:-12]), "failed", "ends within"),
    "string-missing": (result(HEAD), "failed", "0 strings where there should be 1"),
    "string-too-many": ([WELL[0].replace(STRING, STRING * 2), "print Polyline 2 with 2 nodes...",
                         CLOSE], "failed", "2 strings where there should be 1"),
    "asterisks": (result(HEAD + STRING.replace("   300010.50000", "*" * 15)), "suspicious",
                  "too long"),
    "touching": (result(HEAD + STRING.replace("   6200020.00000", "9996200020.00000")),
                 "suspicious", "too long"),
    "asterisk-in-name": (result(HEAD + STRING.replace('"a"', '"a*{"')), "well", ""),
    "warning": ([*WELL[:2], "print \\nWARNING - Something else.\\n", CLOSE], "suspicious",
                "WARNING - Something"),
    "flat": ([WELL[0], TOLD + "no snapped points - using polyline elevation.\\n", CLOSE],
             "suspicious", "elevation"),
}
GOOD = "300000 6200000\n300010 6200000\n"


class Verdicts(Bench):
    def plan(self, doing, name="l"):
        """A layer whose run does this."""
        lines = "".join(f"do {line.replace('l.12da', name + '.12da')}\n" for line in doing)
        return mif(head=lines, name=name) | {"Header.mif": "CoordSys NonEarth Units \"m\"\n"}

    def test_each_case(self):
        for name, (doing, _, _) in CASES.items():
            self.write(self.plan(doing), name)
        self.write({"l.12da": "the old one"}, "crash")
        done = self.batch("-q", "--log", "logs", *[f"{name}/l.mif" for name in CASES],
                          program=STAND_IN)
        for run, (name, (_, verdict, reason)) in zip(done.runs, CASES.items()):
            with self.subTest(case=name, reason=run.get("reason")):
                self.assertEqual(run["verdict"], verdict)
                self.assertIn(reason, run.get("reason", ""))
                placed = (self.folder / name / "l.12da").exists()
                self.assertEqual(placed, verdict != "failed" or name == "crash")
        self.assertEqual(self.text("crash/l.12da"), "the old one")
        self.assertEqual(done.status, 1)
        self.assertTrue(self.text("logs/0001-l.mif.log").startswith("<l.mif>[]"))
        self.assertNotIn(".vantelgis-batch", "".join(self.names()))
        self.assertTrue(any("0310" in run.get("reason", "") and "-zln" in run["cure"]
                            for run in done.runs))

    def test_old_results_stay_as_they_are_unless_the_run_is_good(self):
        cases = (([], CASES["error"][0], 1, False, 1), (["--strict"], CASES["warning"][0], 1, False, 1),
                 (["--keep"], CASES["error"][0], 1, True, 1), ([], CASES["warning"][0], 0, False, 0),
                 (["--timeout", "1"], [WELL[0], "sleep 30000"], 1, False, 1),
                 (["--program", "nothing"], WELL, 2, False, 1))
        for number, (options, doing, status, kept, old) in enumerate(cases):
            with self.subTest(options=options):
                folder = f"case{number}"
                self.write(self.plan(doing) | {"l.12da": "old"}, folder)
                done = self.batch(f"{folder}/l.mif", *options, program=STAND_IN)
                self.assertEqual(done.status, status, done.err)
                self.assertEqual(self.text(f"{folder}/l.12da") == "old", bool(old))
                failed = [name for name in self.names(folder) if ".failed-" in name]
                self.assertEqual(len(failed), 1 if kept else 0)
        (self.folder / "case0/l.mid").unlink()
        self.assertEqual(self.batch("case0/l.mif", program=STAND_IN).verdicts["case0/l.mif"], "not run")
        self.assertEqual(self.text("case0/l.12da"), "old")

    def test_an_error_found_before_the_run_can_be_overridden(self):
        self.write(mif("Pline 2\n1 1000000000\n2 2\n"))
        self.assertEqual(self.batch("l.mif").verdicts["l.mif"], "not run")
        done = self.batch("l.mif", "--anyway")
        self.assertEqual((done.verdicts["l.mif"], done.status), ("suspicious", 0))

        self.write(archive(string3d("a") + string3d("a", data="7 8 9\n7 9 9\n")) |
                   {"Header.mif": "CoordSys NonEarth"})
        done = self.batch("l.12da", "--anyway", "--", "-xs", "-mif")
        self.assertIn("a.csv", done.runs[0]["reason"])
        # Told as it is, though nothing else of the console is as it should be.
        self.write({"l.12da": b"null -\xe999\nmodx \"m\"\n"})
        done = self.batch("l.12da", "--", "-mif")
        self.assertIn("finding start of data", done.runs[0]["reason"])

    def test_results_of_the_converter(self):
        header = {"Header.mif": "CoordSys NonEarth Units \"m\"\n"}
        zln = {"fields": "Z Float", "head": 'CoordSys NonEarth Units "m"\n'}
        ends = "Point 300000 6200000\nPoint 300010 6200000\n"
        self.write(mif("Pline 2\n" + GOOD + ends, "1\n2\n3\n", **zln), "snapped")
        self.write(mif("Pline 2\n" + GOOD + ends + "Point 9 9\n", "1\n2\n3\n4\n", **zln), "unsnapped")
        self.write(mif("Pline 2\n" + GOOD + ends.split("\n")[0], "1\n2\n", **zln), "dangling")
        self.write(mif("Pline 2\n" + GOOD, "1\n", **zln), "flat")
        self.write(mif("Point 1 2\n", "1\n", "V Float") | header, "results")
        self.write(mif("Point 1 2\n", "123456.5\n", "V Float") | header, "wide")
        self.write(mif() | header, "plain")
        self.write(mif("", "") | header, "empty")
        self.write(mif("Pline Multiple 2\n 2\n1 1\n2 2\n 2\n3 3\n4 4\n") | header, "parts")
        self.write(shp([LINE, point(1, 1)], [("a",), ("b",)]), "passed")
        self.write(archive(string3d() + string3d(data="1 2 3\n")) | header, "strings")
        self.write(archive(string3d("a", data="1 2 3\n4 5 12345678\n")) | header, "sections")
        expected = {
            "-zln": {"snapped": "well", "unsnapped": "suspicious", "dangling": "suspicious",
                     "flat": "suspicious"},
            "-results": {"results": "well", "wide": "suspicious"},
            "": {"plain": "well", "empty": "suspicious", "parts": "well", "passed": "suspicious"},
            "-mif": {"strings": "well"}, "-xs -mif": {"sections": "suspicious"}}
        counts = {"unsnapped": ("unsnapped points", 1), "dangling": ("dangling lines", 1),
                  "wide": ("lines with a number of asterisks", 1),
                  "flat": ("lines without a snapped point", 1),
                  "sections": ("lines with a number of asterisks", 1)}
        for options, folders in expected.items():
            done = self.batch("-q", "-r", "--anyway", *folders, "--", *options.split())
            verdicts = {name.split("/")[0]: verdict for name, verdict in done.verdicts.items()}
            self.assertEqual(verdicts, folders, done.out)
            for run in done.runs:
                name, value = counts.get(run["input"].split("/")[0].split("\\")[0], ("", 0))
                self.assertEqual(run["counts"].get(name, 0), value, run)
        self.assertIn("plain/l.12da", self.names())
        by_hand = self.folder / "byhand"
        self.write(mif() | header, "byhand")
        if not WINDOWS:
            subprocess.run([PROGRAM, "l.mif"], cwd=by_hand, stdin=subprocess.DEVNULL,
                           stdout=subprocess.DEVNULL, check=True)
            self.assertEqual(self.text("byhand/l.12da"), self.text("plain/l.12da"))

    def test_packages(self):
        self.write(archive(string3d(data="1 2 3\n")), "one-vertex")
        self.write({"l.12da": archive(string3d())["l.12da"].encode("utf-16")}, "utf-16")
        self.write(archive(string3d(kind="text")), "texts")
        self.write(archive(string3d(data="1 x 3\n")), "no-number")
        done = self.batch("--to", "gpkg", "-r", ".", program=None)
        self.assertEqual({name.split("/")[0]: verdict for name, verdict in done.verdicts.items()},
                         {"one-vertex": "well", "utf-16": "well", "texts": "suspicious",
                          "no-number": "not run"}, done.out)

    def test_own_projection(self):
        own = 'CoordSys Earth Projection 8, 33, "m", 147, 0, 0.9996, 500000, 10000000\n'
        self.write(mif(head=own) | {"Header.mif": "CoordSys NonEarth Units \"m\"\n"}, "m")
        self.write(shp() | {"Header.prj": "nothing"}, "s")
        for options, status, told in (([], 1, "CoordSys NonEarth"), (["--own-projection"], 0, own.strip())):
            done = self.batch("-r", "m", "s", "--log", "logs", *options)
            self.assertEqual(done.status, status, done.out)
            self.assertIn("mif Projection: " + told, self.text("logs/0001-l.mif.log"))
        self.assertIn('shp Projection: PROJCS["MGA', self.text("logs/0002-l.shp.log"))
        self.assertEqual(self.text("s/Header.prj"), "nothing")

    def test_messages_and_cures_come_from_the_guide(self):
        self.write(self.plan(CASES["error"][0]))
        run = self.batch("l.mif", program=STAND_IN).runs[0]
        self.assertIn("Split the line", run["cure"])
        self.assertEqual(json.loads(json.dumps(run["exit_status"])), 0)
        self.assertTrue(BATCH)


if __name__ == "__main__":
    main()

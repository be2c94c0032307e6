#!/usr/bin/env python3
"""Holds tools/vantelgis-batch against its promises with a program that only plays its part, and once
with the real one."""

import argparse
import pathlib
import subprocess
import tempfile
import unittest

BATCH = pathlib.Path(__file__).resolve().parent.parent / "tools" / "vantelgis-batch"
PROGRAM = None

# Shows its arguments and its standard input, then what its first file holds; ends as that tells it.
STAND_IN = """#!/bin/sh
printf '<%s>' "$@"
printf '[%s]\\n' "$(cat)"
case $(head -n 1 "$1") in
    together)
        : >"$1.here"
        for tick in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
            [ -e a.mif.here ] && [ -e b.mif.here ] && { echo Finished.; exit; }
            sleep 0.1
        done
        ;;
    crash) echo Finished.; kill -SEGV $$ ;;
    *) cat "$1" ;;
esac
"""

MEANINGS = {  # what a run writes, and what is said of it
    "well.mif": ("Polyline 1 with 2 nodes...\n\nFinished.\n", None),
    "windows.mif": ("no ERROR here\r\n\r\nFinished.\r\n", None),
    "two words.mif": ("Finished.\n", None),
    "-dash.mif": ("Finished.\n", None),
    "silent.mif": ("Converting\nNot Finished.\n", 'There is no line "Finished."'),
    "error.mif": ("\nERROR 0310 - Too many.\nERROR - more\n", "ERROR 0310 - Too many."),
    "both.mif": ("ERROR - File 1\n\nFinished.\n", "ERROR - File 1"),
    "head.12da": ("WARNING - Problems finding start of data in .12da file\n\nFinished.\n",
                  "WARNING - Problems finding start of data in .12da file"),
    "warned.12da": ("WARNING - Problems finding a pen\nFinished.\n", None),
    "crash.mif": ("crash\n", "ERROR - The run ended with status 139"),
}


class Batch(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="vantelgis-batch-")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name).resolve()
        self.stand_in = self.folder / "stand in"
        self.stand_in.write_text(STAND_IN)
        self.stand_in.chmod(0o755)

    def write(self, name, text):
        (self.folder / name).write_bytes(text.encode())

    def run_batch(self, *arguments, program=None):
        return subprocess.run(["sh", BATCH, "-p", program or self.stand_in, *arguments],
                              cwd=self.folder, capture_output=True, text=True, timeout=60,
                              stdin=subprocess.DEVNULL, check=False)

    def log(self, name):
        return (self.folder / name).read_text()

    def test_each_outcome(self):
        names = sorted(MEANINGS, reverse=True)  # the one with a leading minus last, behind a file
        for name in names:
            self.write(name, MEANINGS[name][0])
        done = self.run_batch("-j", "3", *names)
        faulty = [name for name in names if MEANINGS[name][1]]
        expected = [f"{len(faulty)} of {len(names)} runs are not well:"]
        expected += [f"  {name}.log: {MEANINGS[name][1]}" for name in faulty]
        self.assertEqual(done.stdout.splitlines(), expected)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(self.log("two words.mif.log"), "<two words.mif>[]\nFinished.\n")
        self.assertEqual(self.log("-dash.mif.log"), "<./-dash.mif>[]\nFinished.\n")

    def test_arguments_and_logs(self):
        self.write("one.12da", "Finished.\n")
        self.write("my header.mif", "")
        absolute = str(self.folder / "one.12da")
        done = self.run_batch("-l", "all logs/deep", absolute, "--", "-mif", "-model", "A \"b\" $c",
                              str(self.folder / "my header.mif"))
        self.assertEqual((done.returncode, done.stdout), (0, "1 runs, all well\n"))
        depth = len(self.folder.parts) - 1
        home = "../" * depth + str(self.folder)[1:]
        self.assertEqual(self.log("all logs/deep/0001-one.12da.log").splitlines()[0],
                         f'<{home}/one.12da><-mif><-model><A "b" $c><{home}/my header.mif>[]')

    def test_runs_stand_side_by_side(self):
        for name in "a.mif", "b.mif":
            self.write(name, "together\n")
        self.assertEqual(self.run_batch("-j", "2", "a.mif", "b.mif").returncode, 0)

    def test_refusals(self):
        for name in "a.mif", "b.mif", "a.shp":
            self.write(name, "Finished.\n")
        for arguments in ([], ["-j", "0", "a.mif"], ["-j", "x", "a.mif"],
                          ["a.mif", "a.shp"], ["a.mif", "b.mif", "--", "-OUT", "c"],
                          ["-l", "a.mif", "b.mif"], ["-p", "./nothing", "a.mif"], ["-z", "a.mif"]):
            with self.subTest(arguments=arguments):
                done = self.run_batch(*arguments)
                self.assertEqual(done.returncode, 2)
                self.assertNotEqual(done.stderr, "")
                self.assertEqual(done.stdout, "")

    def test_real_program(self):
        if PROGRAM is None:
            self.skipTest("no program given")
        layer = "Columns 1\n  ID Integer\nData\n\nLine 0 0 1 1\n"
        for name in "good.mif", "bad.mif":
            self.write(name, layer)
        self.write("good.mid", "7\n")
        self.write("bad.mid", "")
        done = self.run_batch("bad.mif", str(self.folder / "good.mif"), program=PROGRAM)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines()[1:],
                         ["  bad.mif.log: ERROR 0254 - Failed to read object attribute data record "
                          "for a LINE object in GIS layer."])
        self.assertIn("string 2d {", self.log("good.12da"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program")
    options = parser.parse_args()
    if options.program:
        PROGRAM = str(pathlib.Path(options.program).resolve())
    unittest.main(argv=["batch_test"])

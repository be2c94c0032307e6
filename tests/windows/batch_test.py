#!/usr/bin/env python3
"""What only the Windows batch does: arguments through CreateProcessW, hard links or copies in the
scratch folder, ends by Control-C, and what is left of a batch whose processes are ended."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "batch"))
from bench import STAND_IN, Bench, main, mif  # noqa: E402
from verdicts_test import WELL  # noqa: E402

WAITING = [WELL[0], "write here x", "wait ../../../go", *WELL[1:]]
AWKWARD = ['say "yes"', "ends in a stroke\\", '\\\\"two', "", "%PATH%", "a^b&c|d<e>f", "é", " lead", "*.mif"]


class Windows(Bench):
    def setUp(self):
        super().setUp()
        self.write(mif(head="".join(f"do {line}\n" for line in WAITING)) |
                   {"Header.mif": 'CoordSys NonEarth Units "m"\n', "l.12da": "old"})

    def wait_for(self, condition):
        for _ in range(1200):
            if condition():
                return
            time.sleep(0.05)
        self.fail("waited in vain")

    def scratch(self, below="."):
        return [name for name in self.names(below) if ".vantelgis-batch" in name]

    def start(self, *arguments, below="."):
        command, _ = self.command(*arguments, program=STAND_IN)
        # Output to a file: what is left of an ended batch may hold a pipe open.
        with open(self.folder.parent / "out.txt", "w", encoding="utf-8") as out:
            child = subprocess.Popen(command, cwd=self.folder, stdout=out, stderr=out)
        self.addCleanup(child.wait)
        self.addCleanup(child.kill)
        self.wait_for(lambda: any(name.endswith("run/here") for name in self.names(below)))
        return child

    def run_folder(self, below="."):
        return next((self.folder / below).glob(".vantelgis-batch/*/run"))

    def test_arguments_arrive_as_they_are(self):
        self.write({"go": ""})
        for argument in AWKWARD:
            done = self.batch("l.mif", "--log", "logs", "--", "-model", argument, program=STAND_IN)
            self.assertEqual(done.status, 0, (argument, done.out, done.err))
            told = (self.folder / "logs" / "0001-l.mif.log").read_bytes().splitlines()[0]
            wanted = f"<l.mif><-model><{argument}>[]"
            self.assertIn(told, (wanted.encode(), wanted.encode("cp1252", "replace")))

    def test_inputs_are_linked_or_copied_and_never_changed(self):
        original = self.folder / "l.mif"
        before = original.read_bytes()
        child = self.start("l.mif")
        linked = self.run_folder() / "l.mif"
        self.assertTrue(os.path.samefile(original, linked))
        self.write({"go": ""})
        self.assertEqual(child.wait(timeout=60), 0)
        self.assertEqual((original.stat().st_nlink, original.read_bytes()), (1, before))
        self.assertEqual((self.scratch(), self.text("l.12da") == "old"), ([], False))

    def test_a_result_on_another_volume(self):
        memory = pathlib.Path("/dev/shm")
        if not memory.is_dir() or memory.stat().st_dev == self.folder.stat().st_dev:
            self.skipTest("there is no other volume")
        with tempfile.TemporaryDirectory(dir=memory, prefix="vantelgis-batch-") as other:
            child = self.start("l.mif", "--output-folder", other, below=other)
            self.assertFalse(os.path.samefile(self.folder / "l.mif", self.run_folder(other) / "l.mif"))
            (pathlib.Path(other) / "go").touch()
            self.assertEqual(child.wait(timeout=60), 0)
            self.assertEqual(os.listdir(other).count("l.12da"), 1)
        self.assertEqual(self.text("l.12da"), "old")

    def test_an_interrupted_batch_cleans_up(self):
        child = self.start("l.mif")
        child.send_signal(signal.SIGINT)
        self.assertEqual(child.wait(timeout=60), 130)
        self.wait_for(lambda: not self.scratch())
        self.assertEqual(self.text("l.12da"), "old")

    def test_what_an_ended_batch_left_is_removed_by_the_next(self):
        child = self.start("l.mif")
        child.kill()  # its workers and their runs end with it
        child.wait(timeout=60)
        self.assertNotEqual(self.scratch(), [])
        self.assertEqual(self.text("l.12da"), "old")
        self.write({"go": ""})
        self.wait_for(lambda: self.batch("l.mif", program=STAND_IN).status == 0 and not self.scratch())
        self.assertNotEqual(self.text("l.12da"), "old")


if __name__ == "__main__":
    main()

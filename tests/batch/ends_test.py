#!/usr/bin/env python3
"""Batches that are interrupted, killed, or run side by side; full disks; what is left behind."""

import os
import pathlib
import signal
import socket
import subprocess
import time

from bench import STAND_IN, WINDOWS, Bench, main, mif
from verdicts_test import CASES, WELL

HEADER = {"Header.mif": 'CoordSys NonEarth Units "m"\n'}


class Ends(Bench):
    def layer(self, doing, name="l", below="."):
        lines = "".join(f"do {line.replace('l.12da', name + '.12da')}\n" for line in doing)
        self.write(mif(head=lines, name=name) | HEADER, below)

    def scratch(self):
        return [name for name in self.names() if ".vantelgis-batch" in name]

    def wait_for(self, condition):
        for _ in range(600):
            if condition():
                return
            time.sleep(0.05)
        self.fail("waited in vain")

    def start(self, *arguments):
        command, _ = self.command(*arguments, program=STAND_IN)
        child = subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE, text=True,
                                 stderr=subprocess.PIPE, start_new_session=True)
        self.addCleanup(child.communicate)
        self.addCleanup(child.kill)
        return child

    def test_an_interrupted_batch_cleans_up_and_says_so(self):
        if WINDOWS:
            return
        for number, status in ((signal.SIGINT, 130), (signal.SIGTERM, 143)):
            self.layer([WELL[0], "write started x", "sleep 60000"])
            self.layer([WELL[0], "sleep 60000"], "m")
            self.write({"l.12da": "old"})
            child = self.start("-j", "2", "l.mif", "m.mif", "n.mif")
            self.wait_for(lambda: any(name.endswith("run/started") for name in self.names()))
            child.send_signal(number)
            out, _ = child.communicate(timeout=30)
            self.assertEqual(child.returncode, status)
            self.assertRegex(out, "[23] not reached")
            self.assertEqual((self.scratch(), self.text("l.12da")), ([], "old"))
            self.assertEqual(subprocess.run(["pgrep", "-f", str(self.folder)], check=False,
                                            capture_output=True).stdout, b"")

    def test_what_a_killed_batch_left_is_cleaned_by_the_next(self):
        if WINDOWS:
            return
        self.layer([WELL[0], "write started x", "sleep 60000"])
        child = self.start("l.mif")
        self.wait_for(lambda: any(name.endswith("run/started") for name in self.names()))
        members = subprocess.run(["pgrep", "-s", str(child.pid)], capture_output=True, text=True,
                                 check=True).stdout.split()
        for member in members:  # as when the power fails: all of them, at once
            os.kill(int(member), signal.SIGKILL)
        child.communicate(timeout=30)
        self.assertNotEqual(self.scratch(), [])
        self.layer(WELL)
        self.assertEqual(self.batch("l.mif", program=STAND_IN).status, 0)
        self.assertEqual(self.scratch(), [])

    def test_a_worker_that_dies_takes_only_its_input_with_it(self):
        if WINDOWS:
            return
        self.layer([WELL[0], "write started x", "sleep 30000"])
        self.layer(WELL, "m")
        child = self.start("-j", "1", "l.mif", "m.mif")
        self.wait_for(lambda: any(name.endswith("run/started") for name in self.names()))
        worker = subprocess.run(["pgrep", "-P", str(child.pid)], capture_output=True, text=True,
                                check=True).stdout.split()[0]
        os.kill(int(worker), signal.SIGKILL)
        out, _ = child.communicate(timeout=30)
        self.assertEqual(child.returncode, 1)
        self.assertIn("Nothing is known of this input: the look at it ended with status 137", out)
        self.assertIn("m.mif  m.12da", out)
        self.assertEqual(self.scratch(), [])

    def leave_behind(self, host, journal=None):
        """What a batch on some host would have left, with a set that was half in its place."""
        base = self.folder / ".vantelgis-batch"
        (base / "abc/run").mkdir(parents=True)
        (base / "abc.lock").write_text(f"{host}\n1\n")
        if journal is not None:
            (base / "abc/journal").write_text(journal)

    def test_a_half_replaced_set_is_finished_by_the_next_batch(self):
        self.layer(WELL)
        self.write({"a.mif": "new", "a.mid": "old"})
        self.leave_behind(socket.gethostname(), '["run/a.mif","a.mif","run/a.mid","a.mid"]')
        self.write({"a.mid": "new"}, ".vantelgis-batch/abc/run")
        self.assertEqual(self.batch("l.mif", program=STAND_IN).status, 0)
        self.assertEqual((self.text("a.mif"), self.text("a.mid"), self.scratch()), ("new", "new", []))

    def test_folders_of_other_hosts_and_of_living_batches_are_left_alone(self):
        self.layer(WELL)
        self.leave_behind("elsewhere")
        for age, told in ((0, 0), (7200, 1)):  # a share of the same batch may be at work there
            lock = self.folder / ".vantelgis-batch/abc.lock"
            os.utime(lock, (time.time() - age,) * 2)
            done = self.batch("l.mif", program=STAND_IN)
            self.assertEqual(done.status, 0)
            self.assertEqual(done.err.count("belongs to a batch on the host elsewhere"), told)
            self.assertEqual(len(self.scratch()), 1)

    def test_two_batches_in_one_folder(self):
        self.layer(["write here x", "wait ../../../go", *WELL], "a")
        self.layer(WELL, "b")
        child = self.start("a.mif")
        self.wait_for(lambda: any(name.endswith("run/here") for name in self.names()))
        self.assertEqual(self.batch("b.mif", program=STAND_IN).status, 0)
        self.assertNotEqual(self.scratch(), [])
        self.write({"go": ""})
        self.assertEqual(child.wait(timeout=30), 0)
        self.assertEqual([name for name in self.names() if name.endswith(".12da")], ["a.12da", "b.12da"])
        self.assertEqual(self.scratch(), [])

    def test_a_full_disk_and_a_file_where_a_folder_should_be(self):
        full = pathlib.Path("/dev/full")
        if not WINDOWS and full.exists():
            self.write(mif() | HEADER | {"old/l.12da": "old"})
            limited = ["sh", "-c", 'ulimit -f 0; exec "$@"', "sh"]
            command, _ = self.command("-q", "--output-folder", "old", "l.mif")
            done = subprocess.run(limited + command, cwd=self.folder, capture_output=True, text=True,
                                  timeout=60, check=False)
            self.assertEqual(done.returncode, 1)
            self.assertEqual(self.text("old/l.12da"), "old")
        self.write({"file": ""})
        done = self.batch("l.mif", "--output-folder", "file")
        self.assertEqual(done.status, 1)
        self.layer(WELL)
        (self.folder / "l.12da").mkdir()
        done = self.batch("l.mif", program=STAND_IN)
        self.assertIn("can't be put in its place", done.runs[0]["reason"])
        self.assertTrue(CASES)


if __name__ == "__main__":
    main()

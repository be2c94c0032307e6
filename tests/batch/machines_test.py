#!/usr/bin/env python3
"""The scripts of the guide's page about many machines do what it says: the array's tasks are started by
hand, and the hosts of GNU parallel are this one."""

import json
import os
import pathlib
import re
import shutil
import subprocess

from bench import BATCH, PROGRAM, Bench, main, mif

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "many-machines.md"


class Machines(Bench):
    def setUp(self):
        super().setUp()
        text = PAGE.read_text("utf-8")
        blocks = [re.sub("^    ", "", block, flags=re.MULTILINE)
                  for block in re.findall(r"(?:^    .*\n)+", text, flags=re.MULTILINE)]
        self.array, self.merge, self.parallel = blocks
        programs = self.folder.parent / "bin"
        programs.mkdir()
        for name, target in ("vantelgis-batch", BATCH[-1]), ("vantelgis", PROGRAM):
            (programs / name).symlink_to(target)
        self.env = os.environ | {"PATH": f"{programs}:{os.environ['PATH']}"}
        for number in range(10):
            self.write(mif(name=f"n{number}") | {"Header.mif": 'CoordSys NonEarth Units "m"\n'}, "survey/sub")

    def run_script(self, text, status=0, **env):
        done = subprocess.run(["sh", "-c", text], cwd=self.folder, env=self.env | env, check=False,
                              capture_output=True, text=True, timeout=120)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def check_whole(self):
        done = self.run_script(self.merge.replace("all.html", "all.json"))
        self.assertIn("10 inputs: 10 well", done.stdout)
        runs = json.loads((self.folder / "all.json").read_text("utf-8"))["runs"]
        self.assertEqual([run["number"] for run in runs], list(range(1, 11)))
        self.assertEqual(len([name for name in self.names() if name.endswith(".12da")]), 10)

    def test_the_array(self):
        for task in range(1, 5):
            if task == 3:
                self.assertIn("missing: 3, 4", self.run_script(self.merge, 1).stderr)
            self.run_script(self.array, SLURM_ARRAY_TASK_ID=str(task), SLURM_CPUS_PER_TASK="2")
        self.check_whole()

    def test_parallel(self):
        if not shutil.which("parallel"):
            self.skipTest("GNU parallel is not installed")
        self.run_script(self.parallel.replace("host1,host2", ":"))
        self.check_whole()


if __name__ == "__main__":
    main()

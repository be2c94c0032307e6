#!/usr/bin/env python3
"""With too little memory at whatever point, before the first line of main among them, a run says so and
ends in order."""

import argparse
import pathlib
import resource
import shutil
import subprocess
import tempfile

CASE = pathlib.Path(__file__).resolve().parents[1] / "cases" / "breaklines_3d" / "one_file"
STEP = 20 << 10
NOT_LOADED = 127  # the system itself had no room for the program
OUT_OF_MEMORY = b"\nERROR - Out of memory\n\nPress Enter to Close\n"


def run_with(memory, program, folder):
    return subprocess.run([program, "-b", "-zln", "site.mif"], cwd=folder, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False, timeout=60,
                          preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (memory, memory)))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    program = parser.parse_args().program
    told = 0
    with tempfile.TemporaryDirectory(prefix="vantelgis-memory-") as scratch:
        folder = pathlib.Path(scratch) / "work"
        shutil.copytree(CASE / "input", folder)
        for memory in range(4 << 20, 1 << 30, STEP):
            done = run_with(memory, program, folder)
            if done.returncode in (NOT_LOADED, -11):  # or its loader
                assert not done.stdout, done.stdout
                continue
            assert done.returncode == 0, f"{memory} bytes: ended with {done.returncode}"
            if done.stdout.endswith(b"\nFinished.\n"):
                break
            assert done.stdout.endswith(OUT_OF_MEMORY), f"{memory} bytes: {done.stdout}"
            told += 1
    assert told > 0
    print(f"{told} runs with too little memory said so")


main()

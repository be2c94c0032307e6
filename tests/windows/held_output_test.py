#!/usr/bin/env python3
"""An output that another program has open is waited for; an input that one writes to is read."""

import argparse
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

CASE = pathlib.Path(__file__).resolve().parent.parent / "cases" / "lines_to_2d"
OLDER = b"what was there before, and is longer than what comes\r\n" * 100
REFUSED = (b"Can't Open\r\n\r\n Can't open: lines.12da\r\n\r\n"
           b" Another application or user maybe using it,\r\n"
           b"    or the file's folder does not exist.\r\n"
           b" If so, close the file or create file path.\r\n"
           b"Enter command<CR> or <CR> to continue.\r\n")


def start(command, folder):
    return subprocess.Popen(command, cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL)


def read_until(process, end):
    text = b""
    while not text.endswith(end):
        byte = process.stdout.read(1)
        if not byte:
            sys.exit(f"ended too early: {text!r}")
        text += byte
    return text


def press_enter(process):
    process.stdin.write(b"\n")
    process.stdin.flush()


def check(options, folder, kind):
    launcher = shlex.split(options.launcher)
    output = folder / "lines.12da"
    output.write_bytes(OLDER)
    holders = [start(launcher + [options.holder, *arguments], folder)
               for arguments in ((kind, "lines.12da"), ("writer", "lines.mif"))]
    for holder in holders:
        read_until(holder, b"held\r\n")
    run = start(launcher + [options.program, "-b", "lines.mif"], folder)
    read_until(run, b"file lines.12da..." + REFUSED)
    press_enter(run)
    read_until(run, REFUSED)
    assert output.read_bytes() == OLDER, "the output was touched while another program had it"
    press_enter(holders[0])
    assert holders[0].wait() == 0
    press_enter(run)
    read_until(run, b"OK.  File Unit:1002\r\n")
    rest = run.communicate()[0]
    assert rest.endswith(b"\r\nFinished.\r\n"), rest
    assert output.read_bytes() == (CASE / "expected" / "files" / "lines.12da").read_bytes()
    press_enter(holders[1])
    assert holders[1].wait() == 0
    print(f"waited for a {kind}, then wrote")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--holder", required=True)
    parser.add_argument("--launcher", default="")
    options = parser.parse_args()
    for kind in ("reader", "writer"):
        with tempfile.TemporaryDirectory(prefix="vantelgis-held-") as scratch:
            folder = pathlib.Path(scratch) / "work"
            shutil.copytree(CASE / "input", folder)
            check(options, folder, kind)


if __name__ == "__main__":
    main()

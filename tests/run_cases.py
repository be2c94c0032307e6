#!/usr/bin/env python3
r"""Runs the program on the cases of tests/cases and compares everything it leaves, byte for byte.

A case is a folder, at any depth, that holds
  args             one argument on each line (an empty file: no argument)
  stdin            what the user types; without this file standard input is at its end
  input/           copied to an empty working folder, where the program runs
  expected/console what standard output holds
  expected/files/  every file that is there afterwards and is not an unchanged input
  only             optional: "posix" or "windows", where the case makes sense
  under            optional: a command that starts the program, such as `prlimit --fsize=200`

The path behind "Executable: " is written `vantelgis`, today's date in a .dbf table (bytes 1 to 3) is
zero, and on Windows the console's CR LF is LF, on both sides of the comparison. `{work}` in args and
in expected/console stands for the working folder (such as Z:\tmp\x under Wine). The program must
end with status 0 within 20 seconds and, when run without a launcher, leave standard error empty.

--record writes the expected files of the named cases from what the program does now. That is a
draft and proves nothing: read it, line by line, against the rules of the formats, and correct what
the program got wrong. Never commit a recording unread.
"""

import argparse
import concurrent.futures
import datetime
import difflib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import time

CASES = pathlib.Path(__file__).resolve().parent / "cases"
TIMEOUT_SECONDS = 20
BINARY_SUFFIXES = {".shp", ".shx", ".dbf"}


class Program:
    def __init__(self, path, launcher):
        self.command = shlex.split(launcher) + [str(pathlib.Path(path).resolve())]
        self.windows = path.lower().endswith(".exe")
        self.silent = not launcher  # wine and valgrind have things of their own to say

    def run(self, case, work):
        """The console and the faults of one run in the folder `work`."""
        args = (case / "args").read_bytes().split(b"\n")
        if args[-1] == b"":
            args.pop()
        folder = os.fsencode(self.own_form(work))
        args = [os.fsdecode(arg.replace(b"{work}", folder)) for arg in args]
        under = case / "under"
        command = shlex.split(under.read_text()) if under.exists() else []
        typed = case / "stdin"
        with open(typed if typed.exists() else os.devnull, "rb") as stdin:
            try:
                done = subprocess.run(command + self.command + args, stdin=stdin, cwd=work,
                                      capture_output=True, timeout=TIMEOUT_SECONDS, check=False)
            except subprocess.TimeoutExpired as late:
                return self.normal(late.stdout or b"", folder), [
                    f"  still running after {TIMEOUT_SECONDS} seconds"]
        faults = [f"  ended with status {done.returncode}"] if done.returncode != 0 else []
        if done.stderr and (self.silent or faults):
            faults.append("  standard error:")
            faults += [f"    {visible(line)}" for line in done.stderr.splitlines()[:30]]
        return self.normal(done.stdout, folder), faults

    def own_form(self, folder):
        """A path as the program knows it: to Wine the root is the drive Z."""
        if not self.windows or os.name == "nt":
            return str(folder)
        return "Z:" + str(folder).replace("/", "\\")

    def normal(self, console, folder):
        console = console.replace(folder, b"{work}")
        if self.windows:
            console = console.replace(b"\r\n", b"\n")
        return re.sub(rb"(?m)^Executable: .*$", b"Executable: vantelgis", console, count=1)


def contents(path):
    """What is compared of a file; a link stands for itself, as it may lead to a device."""
    if path.is_symlink():
        return b"link to " + os.fsencode(os.readlink(path))
    data = path.read_bytes()
    days = [datetime.date.fromtimestamp(time.time() - seconds) for seconds in (0, TIMEOUT_SECONDS)]
    if path.suffix.lower() == ".dbf" and data[1:4] in [
            bytes([day.year - 1900, day.month, day.day]) for day in days]:
        data = data[:1] + b"\0\0\0" + data[4:]
    return data


def files_below(folder):
    return {path.relative_to(folder).as_posix(): contents(path)
            for path in sorted(folder.rglob("*")) if path.is_symlink() or path.is_file()}


def outcome(program, case):
    """The console, the new or changed files, and the faults that no expectation excuses."""
    with tempfile.TemporaryDirectory(prefix="vantelgis-case-") as scratch:
        work = pathlib.Path(scratch) / "work"
        if (case / "input").is_dir():
            shutil.copytree(case / "input", work, symlinks=True)
        else:
            work.mkdir()
        before = files_below(work)
        console, faults = program.run(case, work)
        after = files_below(work)
    faults += [f"  {name}: an input that is gone" for name in before if name not in after]
    files = {name: data for name, data in after.items() if before.get(name) != data}
    return console, files, faults


def visible(line):
    text = line.decode("latin-1")
    return "".join(c if " " <= c <= "~" else c.encode("unicode_escape").decode() for c in text)


def shown(name, data):
    """The lines of a text, or of a dump of a binary file."""
    if pathlib.Path(name).suffix.lower() not in BINARY_SUFFIXES:
        return [visible(line) for line in data.split(b"\n")]
    return [f"{at:6}: {data[at:at + 16].hex(' ')}" for at in range(0, len(data), 16)]


def difference(name, expected, actual):
    lines = difflib.unified_diff(shown(name, expected), shown(name, actual), n=2, lineterm="")
    return [f"  {name}:"] + [f"    {line}" for line in lines][2:40] if expected != actual else []


def faults_of(program, case):
    """What is wrong with the program in this case, as lines of a report."""
    console, files, faults = outcome(program, case)
    expected_console = case / "expected" / "console"
    if not expected_console.is_file():
        return faults + ["  expected/console is missing"]
    faults += difference("console", expected_console.read_bytes(), console)
    expected = files_below(case / "expected" / "files")
    for name in sorted(expected.keys() | files.keys()):
        if name not in files:
            faults.append(f"  {name}: was not written")
        elif name not in expected:
            faults.append(f"  {name}: was written, but is not expected")
        else:
            faults += difference(name, expected[name], files[name])
    return faults


def record(program, case):
    console, files, faults = outcome(program, case)
    shutil.rmtree(case / "expected", ignore_errors=True)
    (case / "expected").mkdir()
    (case / "expected" / "console").write_bytes(console)
    for name, data in files.items():
        target = case / "expected" / "files" / name
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)
    print(f"{case.relative_to(CASES)}: recorded, {len(files)} file(s). A draft: read every line of "
          "it before it is committed.")
    print("\n".join(faults), end="\n" if faults else "")


def chosen_cases(names, windows):
    """The named cases, or all of this platform; a name may be a folder of cases."""
    roots = [CASES / name for name in names] or [CASES]
    cases = sorted({args.parent for root in roots for args in root.rglob("args")
                    if "input" not in args.relative_to(CASES).parts})
    here = "windows" if windows else "posix"
    return [case for case in cases
            if not (case / "only").exists() or (case / "only").read_text().strip() == here]


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program under test")
    parser.add_argument("--launcher", default="", help="what starts it, such as wine or valgrind")
    parser.add_argument("--record", action="store_true", help="write the expected files (a draft)")
    parser.add_argument("names", nargs="*", help="cases or folders of cases below tests/cases")
    options = parser.parse_args()
    if not os.access(options.program, os.X_OK):
        parser.error(f"there is no program {options.program}; tools/build dev builds one")
    program = Program(options.program, options.launcher)
    cases = chosen_cases(options.names, program.windows)
    if not cases or (options.record and not options.names):
        parser.error("no case of that name" if not cases else "--record needs the names of cases")
    if options.record:
        for case in cases:
            record(program, case)
        return 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        reports = list(pool.map(lambda case: faults_of(program, case), cases))
    failed = 0
    for case, faults in zip(cases, reports):
        if faults:
            failed += 1
            print("\n".join([f"FAILED {case.relative_to(CASES)}"] + faults))
    print(f"{len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

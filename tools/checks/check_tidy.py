#!/usr/bin/env python3
"""Runs clang-tidy on the sources that changed since they last passed.

Arguments: clang-tidy, the build folder with its compile_commands.json. What passed is remembered
in the build folder by a digest of the file, the project headers below it, its compile command and
.clang-tidy.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHECKED = ROOT / "src", ROOT / "bench"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)


def below(path, folders):
    return any(folder in path.parents for folder in folders)


def project_files(path, seen):
    """`path` and every project header that it includes, in a fixed order."""
    if path in seen or not path.is_file():
        return
    seen.append(path)
    for name in INCLUDE.findall(path.read_text("utf-8")):
        for folder in path.parent, ROOT / "src", ROOT:
            project_files(folder / name, seen)


def digest(entry, tool):
    files = [ROOT / ".clang-tidy"]
    project_files(pathlib.Path(entry["file"]), files)
    total = hashlib.sha256((tool + entry["command"]).encode())
    for path in files:
        total.update(path.read_bytes())
    return total.hexdigest()


def check(entry, tool, build):
    """What clang-tidy says of one source, or an empty text."""
    stamp = build / "tidy" / (re.sub(r"\W", "_", os.path.relpath(entry["file"], ROOT)) + ".passed")
    wanted = digest(entry, tool)
    if stamp.is_file() and stamp.read_text() == wanted:
        return ""
    # The flags are those of GCC, some of which clang doesn't know.
    command = [tool, "--quiet", "--extra-arg=-Wno-unknown-warning-option", "-p", str(build)]
    done = subprocess.run([*command, entry["file"]], cwd=ROOT, capture_output=True, text=True,
                          check=False)
    if done.returncode == 0:
        stamp.parent.mkdir(exist_ok=True)
        stamp.write_text(wanted)
        return ""
    return done.stdout.replace(f"{ROOT}/", "") or done.stderr


def main():
    tool, build = sys.argv[1], pathlib.Path(sys.argv[2])
    # A source that goes into two libraries is looked at once, by one command.
    entries = {entry["file"]: entry
               for entry in json.loads((build / "compile_commands.json").read_text())
               if below(pathlib.Path(entry["file"]), CHECKED)}.values()
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for report in pool.map(lambda entry: check(entry, tool, build), entries):
            if report:
                failed += 1
                print(report, flush=True)
    print(f"{len(entries)} sources looked at, {failed} with warnings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Runs the commands of the guide and compares what the pages show with what comes out.

In a page's indented blocks a line that begins with a program's name is a command: it runs in a copy of
examples/, with nobody at the console. All programs lie beside the one that is named. The other
indented lines of a section must appear, in their order within a block, in what the section's commands
wrote; "..." stands for lines left out.
"""

import argparse
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
PAGES = ["conversions.md", "running.md", "limits.md", "batch.md", "gpkg.md"]
COMMANDS = ("vantelgis ", "vantelgis-batch ", "vantelgis-gpkg ")


def sections(page):
    """The indented blocks of each section of a page, as lists of lines."""
    for text in re.split(r"^#+ ", page, flags=re.MULTILINE):
        blocks = re.findall(r"(?:^    .*\n)+", text, flags=re.MULTILINE)
        yield text.split("\n")[0], [[line.strip() for line in block.splitlines()]
                                    for block in blocks]


def run(command, folder, programs):
    words = shlex.split(command, comments=True)
    program = words[0] = str(programs / words[0])
    done = subprocess.run(words, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, timeout=60, check=False)
    assert done.returncode == 0, f"{command}: {done.stdout}{done.stderr}"
    if program == str(programs / "vantelgis"):
        assert "\nFinished.\n" in done.stdout, f"{command}:\n{done.stdout}"
    return done.stdout


def written(folder, before):
    for path in sorted(folder.rglob("*")):
        if path.is_file() and before.get(path) != path.stat().st_mtime_ns:
            yield path.read_bytes().decode("latin-1")


def missing_line(block, texts):
    """The first line of the block that no text has in its place, or None."""
    worst = None
    for text in texts:
        lines = iter(line.strip() for line in text.splitlines())
        missing = next((line for line in block if line != "..." and line not in lines), None)
        if missing is None:
            return None
        worst = worst or missing
    return worst


def check_section(page, title, blocks, programs):
    commands = [line for block in blocks for line in block if line.startswith(COMMANDS)]
    if not commands:
        return 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name) / "examples"
        shutil.copytree(TOP / "examples", folder)
        before = {path: path.stat().st_mtime_ns for path in folder.rglob("*")}
        texts = [run(command, folder, programs) for command in commands]
        texts += written(folder, before)
        for block in blocks:
            if block[0].startswith(COMMANDS):
                continue
            missing = missing_line(block, texts)
            assert missing is None, f"{page}, {title}: {missing!r} came out nowhere"
    return len(commands)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    programs = pathlib.Path(os.path.abspath(parser.parse_args().program)).parent
    count = 0
    for page in PAGES:
        for title, blocks in sections((TOP / "docs" / page).read_text("utf-8") + "\n"):
            count += check_section(page, title, blocks, programs)
    assert count >= 8, f"only {count} commands found"
    print(f"{count} commands of the guide do what it says")


main()

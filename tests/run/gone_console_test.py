#!/usr/bin/env python3
"""A console that goes away while the program waits counts as the end of input, at every question and
pause: the run ends at once, with the text and files that it has at a pipe's end. No output that
fails makes a run longer."""

import argparse
import concurrent.futures
import os
import pathlib
import select
import shlex
import shutil
import subprocess
import sys
import tempfile
import termios
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from run_cases import CASES, files_below  # noqa: E402

WALL_SECONDS = 20  # a run that asks for ever never ends
CPU_SECONDS = 1    # one that spins burns more

CLOSE = "Press Enter to Close\n"
CONTINUE = "Press Enter to Continue\n"
ENTER = "Enter command<CR> or <CR> to continue.\n"
NAME = "enter another file name: "
CLOSE_IT = " is already open, close it? "
EXTENSION = '".12da" or ".4da".\n'
PROMPTS = (CLOSE, CONTINUE, ENTER, NAME, CLOSE_IT, EXTENSION)
ENDED = "\nERROR - End of File encountered\n\nPress Enter to Close\n"
CROWD = "too many points"  # the one pause that no small input comes to
# A folder of tests/cases, the answers given, the prompt that comes then, and whether the run can't go
# on without an answer.
WAITS = [
    ("usage", [], CLOSE, False),
    ("breaklines_3d/one_file", [], CLOSE, False),
    ("both_formats", [], CLOSE, False),
    ("empty_output_name", [], CLOSE, False),
    ("extension_is_whole/of_file_1", [], EXTENSION, False),
    ("no_projection_file", [], CONTINUE, False),
    ("no_projection_file", [""], CLOSE, False),
    ("from_archive/null_value_unreadable", [], CONTINUE, False),
    ("from_archive/cross_sections", [], CONTINUE, False),
    ("from_archive/cross_sections", [""], CONTINUE, False),
    ("blank_record", [], ENTER, False),
    ("results/value_is_no_number", [], ENTER, False),
    (CROWD, [], ENTER, False),
    ("missing_folder", [], ENTER, True),
    ("missing_folder", ["", ""], ENTER, True),
    ("missing_layer_nobody_answers", [], NAME, True),
    ("missing_layer_nobody_answers", ["", "nope"], NAME, True),
    ("missing_layer_named_by_hand", ["lines.mif"], NAME, True),
    ("output_is_open", [], CLOSE_IT, True),
    ("output_is_open", ["n"], NAME, True),
    ("output_is_open", ["n", "proj.12da"], CLOSE_IT, True),
]
# Streams that are no good from the start; `exec` so that the shell is out of the way.
BAD_INPUTS = ["<&-", "<.", "0>/dev/null"]
BAD_OUTPUTS = [">&-", ">/dev/full", "1</dev/null", "<&- >&-"]


def make_crowd(folder):
    points = 1_000_001
    (folder / "crowd.mif").write_text('Version 300\nCoordSys NonEarth Units "m"\nColumns 1\n Z Float\n'
                                      "Data\n" + "Point 1 1\n" * points)
    (folder / "crowd.mid").write_text("1\n" * points)


class Run:
    """A run of a case's arguments in a folder of its own."""

    def __init__(self, options, case, redirection=""):
        self.launcher = shlex.split(options.launcher)
        self.scratch = tempfile.TemporaryDirectory(prefix="vantelgis-gone-")
        self.folder = pathlib.Path(self.scratch.name) / "work"
        source = CASES / case
        if (source / "input").is_dir():
            shutil.copytree(source / "input", self.folder)
        else:
            self.folder.mkdir()
        args = ["-b", "-zln", "crowd.mif"]
        if case == CROWD:
            make_crowd(self.folder)
        else:
            args = (source / "args").read_text("latin-1").split("\n")[:-1]
        self.most_work = CPU_SECONDS + (60 if case == CROWD or self.launcher else 0)
        self.before = files_below(self.folder)
        self.command = [*self.launcher, options.program, *args]
        if redirection:
            self.command = ["sh", "-c", f'exec "$0" "$@" {redirection}', *self.command]
        self.text = b""

    def start(self, stdin, stdout, before=()):
        self.process = subprocess.Popen([*before, *self.command], cwd=self.folder, stdin=stdin,
                                        stdout=stdout, stderr=subprocess.DEVNULL)

    def console(self):
        return self.text.decode("latin-1").replace("\r\n", "\n")

    def read(self, end, until=None):
        """What is printed now, until it ends with `until`; without, up to the output's end."""
        limit = time.monotonic() + WALL_SECONDS
        while select.select([end], [], [], max(0, limit - time.monotonic()))[0]:
            data = os.read(end, 65536)
            self.text += data
            if not data:
                assert until is None, f"no {until!r}: {self.console()}"
                return
            if until and self.console().endswith(until):
                return
        raise AssertionError(f"no end: {self.console()}")

    def answer(self, end, typing, answers, prompt):
        """Answers the first prompts and waits for the one that gets no answer."""
        for answer in answers:
            self.read(end, PROMPTS)
            os.write(typing, f"{answer}\n".encode())
        self.read(end, prompt)

    def finish(self):
        """The files that it leaves, once it has ended as it should."""
        limit = time.monotonic() + WALL_SECONDS
        while not (ended := os.wait4(self.process.pid, os.WNOHANG))[0]:
            if time.monotonic() > limit:
                self.process.kill()
                self.process.wait()
                raise AssertionError("goes on for ever")
            time.sleep(0.002)
        _, self.process.returncode, usage = ended
        assert self.process.returncode == 0, f"ended with {self.process.returncode}"
        work = usage.ru_utime + usage.ru_stime
        assert work < self.most_work, f"{work} s of work"
        after = files_below(self.folder)
        self.scratch.cleanup()
        assert self.before.items() <= after.items(), "an input is not what it was"
        return {name: after[name] for name in after.keys() - self.before.keys()}


def at_pipes_end(options, case, answers, prompt):
    run = Run(options, case)
    run.start(subprocess.PIPE, subprocess.PIPE)
    output = run.process.stdout.fileno()
    run.answer(output, run.process.stdin.fileno(), answers, prompt)
    run.process.stdin.close()
    run.read(output)
    return run.console(), run.finish()


def in_terminal(options, case, answers, prompt):
    """The input alone is a terminal, and another program's: no signal comes when it is closed."""
    run = Run(options, case)
    master, slave = os.openpty()
    run.start(slave, subprocess.PIPE)
    os.close(slave)
    output = run.process.stdout.fileno()
    run.answer(output, master, answers, prompt)
    os.close(master)
    run.read(output)
    return run.console(), run.finish()


def in_window(options, case, answers, prompt):
    """The terminal is the program's own, for both streams, and its closing is signalled."""
    run = Run(options, case)
    master, slave = os.openpty()
    settings = termios.tcgetattr(slave)
    settings[3] &= ~termios.ECHO
    termios.tcsetattr(slave, termios.TCSANOW, settings)
    run.start(slave, slave, ["setsid", "--ctty"])
    os.close(slave)
    run.answer(master, master, answers, prompt)
    os.close(master)
    return run.finish()


def with_bad_stream(options, case, redirection):
    run = Run(options, case, redirection)
    run.start(subprocess.DEVNULL, subprocess.PIPE)
    run.read(run.process.stdout.fileno())
    return run.console(), run.finish()


def check(options, row):
    case, answers, prompt, needs_answer = row
    console, files = at_pipes_end(options, case, answers, prompt)
    assert not needs_answer or console.endswith(ENDED), console
    # Wine takes no answer from a terminal that isn't the output as well, and with two streams closed
    # has files of its own in their place; Windows ends all that runs in a window that is closed.
    if not (options.launcher and answers):
        assert in_terminal(options, case, answers, prompt) == (console, files), "terminal"
    if not options.launcher:
        assert in_window(options, case, answers, prompt) == files, "window"
    if answers:
        return
    for redirection in BAD_INPUTS:
        assert with_bad_stream(options, case, redirection) == (console, files), redirection
    for redirection in BAD_OUTPUTS[: 3 if options.launcher else None]:
        assert with_bad_stream(options, case, redirection) == ("", files), redirection


def faults(options, row):
    try:
        check(options, row)
    except AssertionError as fault:
        return f"FAILED {row[:3]}: {fault}"
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--launcher", default="")
    options = parser.parse_args()
    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        told = [fault for fault in pool.map(lambda row: faults(options, row), WAITS) if fault]
    print("\n".join(told + [f"{len(WAITS)} questions and pauses, {len(told)} fault(s)"]))
    return 1 if told else 0


if __name__ == "__main__":
    sys.exit(main())

"""Finds the programs and runs them, with progress, and an end within a second when it is wanted."""

import contextlib
import os
import queue
import shutil
import stat
import subprocess
import sys
import threading

from qgis.core import QgsProcessingException

from .. import settings

INSIDE = os.path.join(os.path.dirname(os.path.dirname(__file__)), "bin",
                      "windows-x64" if os.name == "nt" else "linux-x64")
SUFFIX = ".exe" if os.name == "nt" else ""
SETTING = "Settings > Options > Processing > Providers > vantelgis"
TICK = 0.1   # seconds between two looks at the Cancel button
GRACE = 0.3  # that a program has to take its scratch files away


def program(name):
    """The path of a program: from the folder in the settings, else the plugin's, else in PATH."""
    chosen = settings.program_folder()
    if chosen:
        path = os.path.join(chosen, name + SUFFIX)
        if not os.path.isfile(path):
            raise QgsProcessingException(
                f"There is no {name} in {chosen}: correct the folder in {SETTING}, or clear it to "
                "use the programs of the plugin.")
        return path
    path = os.path.join(INSIDE, name + SUFFIX)
    if os.path.isfile(path):
        _make_executable(INSIDE)
        return path
    path = shutil.which(name)
    if path is None:
        raise QgsProcessingException(
            f"The program {name} was found neither in the plugin ({INSIDE}) nor in PATH. Install "
            f"the plugin again from its zip, or name a folder with the programs for this system "
            f"({sys.platform}) in {SETTING}.")
    return path


def _make_executable(folder):
    """The installer of QGIS unpacks files without the right to run them; and the batch program
    runs the converter beside it."""
    for name in os.listdir(folder):
        path = os.path.join(folder, name)
        if os.name == "nt" or os.access(path, os.X_OK):
            continue
        try:
            os.chmod(path, os.stat(path).st_mode | stat.S_IXUSR | stat.S_IXGRP | stat.S_IXOTH)
        except OSError as error:
            raise QgsProcessingException(
                f"{path} can't be made executable ({error.strerror}): ask whoever installed the "
                "plugin to do so.") from error


class Run:
    """A program at work in a folder, with its standard input at its end."""

    def __init__(self, name, arguments, folder):
        alone = ({"creationflags": subprocess.CREATE_NO_WINDOW} if os.name == "nt"
                 else {"start_new_session": True})
        # Scratch files of its own go with the folder, even when it has no time to remove them.
        places = dict.fromkeys(("TMPDIR", "TMP", "TEMP"), os.path.abspath(folder))
        try:
            self._process = subprocess.Popen(  # pylint: disable=consider-using-with
                [program(name), *arguments], cwd=folder, env={**os.environ, **places},
                stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, **alone)
        except OSError as error:
            raise QgsProcessingException(f"{name} can't be started: {error}.") from error
        self._lines = queue.Queue()
        self._readers = [threading.Thread(target=self._read, args=(stream,), daemon=True)
                         for stream in (self._process.stdout, self._process.stderr)]
        for reader in self._readers:
            reader.start()

    def follow(self, feedback, take_line):
        """Gives every line to `take_line(is_error, line)` as it comes; returns the exit status.
        Cancel ends the program."""
        ended = 0
        while ended < len(self._readers):
            if feedback.isCanceled():
                self.end()
                raise QgsProcessingException("Cancelled: the old result is untouched.")
            try:
                stream, line = self._lines.get(timeout=TICK)
            except queue.Empty:
                continue
            if line is None:
                ended += 1
            else:
                take_line(stream is self._process.stderr, line)
        return self._process.wait()

    def end(self):
        """Asks the program to end, which then ends its own runs, and makes it after a while. The
        system may need seconds more to take away what a large file left in memory; nobody has to
        wait for that."""
        for stop in (self._process.terminate, self._process.kill):
            stop()
            with contextlib.suppress(subprocess.TimeoutExpired):
                self._process.wait(GRACE)
                return

    def _read(self, stream):
        with stream:
            for line in stream:
                self._lines.put((stream, line.decode("utf-8", errors="replace").rstrip("\r\n")))
        self._lines.put((stream, None))

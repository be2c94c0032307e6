#!/usr/bin/env python3
"""Installs the routine set into an empty folder, compares the lists of its names, and builds and runs
programs against it: the examples, and a host in C that calls it in odd ways."""

import argparse
import os
import pathlib
import pty
import re
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TOP / "cmake/toolkit"))
from c_headers import all_routines  # noqa: E402
from host_runs import HOST_RUNS, OPENED, RULE, STREAMS, TYPED  # noqa: E402

RECORDS = {"DMESSAGES", "openerSettings"}
READS = "reading levels.txt\n" + OPENED + " 101\n...Closed File Unit: 101\nsum 3.75\n"


def run(*command, **options):
    result = subprocess.run([str(part) for part in command], text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, check=False, **options)
    assert result.returncode == 0, f"{command}:\n{result.stdout}"
    return result.stdout


def check_names(library):
    """What the headers declare, the linker's list names and the library shows is the same, and each
    name is there under the version under which it was shown first."""
    declared = {routine.name for routine in all_routines()} | RECORDS
    for header in TOP.glob("src/toolkit/*.h"):
        declared |= set(re.findall(r"^(?:\[\[noreturn\]\] )?[\w:]+ ([A-Z][A-Z0-9_]+)\(",
                                   header.read_text("utf-8"), re.MULTILINE))
    shown = [line.split()[-1] for line in run("nm", "-D", "--defined-only", library).splitlines()]
    symbols = sorted(name for name in shown if not name.startswith("VANTELGIS_"))
    wanted = (pathlib.Path(__file__).parent / "symbols.txt").read_text("utf-8").split()
    assert symbols == wanted, set(symbols) ^ set(wanted)
    names = {symbol.split("@")[0] for symbol in symbols}
    assert names == declared, names ^ declared
    listed = set(run(sys.executable, TOP / "cmake/toolkit/exports_def.py",
                     TOP / "cmake/toolkit_exports.map").replace(" DATA", "").split())
    assert listed - {"LIBRARY", "EXPORTS", "vantelgis_toolkit.dll"} == names


def check_examples(root, folder):
    run("cmake", "-S", next(root.rglob("examples/toolkit")), "-B", folder / "build",
        f"-DCMAKE_PREFIX_PATH={root}")
    run("cmake", "--build", folder / "build")
    shown = run(folder / "build/toolkit_example", "levels.txt", cwd=folder)
    assert "Creek | .12da | C:\\flood\\gis\\lines.mif\n" in shown, shown
    # The panel falls from 2 to 0 over 4: half of it is wet at level 1, a triangle of 2 by 1.
    assert "length 5., wet area 1, width 2\n" in shown, shown
    assert "data: 1.5\n" in shown, shown
    opened = OPENED.encode() + b" 102\r\n...Closed File Unit: 102\r\n"
    assert (folder / "opener.log").read_bytes() == opened
    shown = run(folder / "build/levels_c", "levels.txt", cwd=folder)
    assert shown.endswith("...Closed File Unit: 101\nsum 3.75\n"), shown
    assert (folder / "levels.sum").read_bytes() == b"3.75\r\n"
    library = next(root.rglob("libvantelgis_toolkit.so"))
    shown = run(sys.executable, TOP / "examples/toolkit/levels.py", library, "levels.txt", cwd=folder)
    assert shown == READS, shown
    if shutil.which("gfortran"):
        shown = run(folder / "build/levels_fortran", "levels.txt", cwd=folder)
        assert shown == READS, shown


def build_host(root, folder, compiler, standard, source):
    settings = os.environ | {"PKG_CONFIG_PATH": str(next(root.rglob("pkgconfig")))}
    flags = run("pkg-config", "--cflags", "--libs", "vantelgis", env=settings).split()
    source = pathlib.Path(__file__).parent / source
    run(compiler, f"-std={standard}", "-Wall", "-Wextra", "-pedantic", "-Werror", source, "-o",
        folder / source.stem, *flags, f"-Wl,-rpath,{next(root.rglob('libvantelgis_toolkit.so')).parent}")
    return folder / source.stem


def check_other_compiler(root):
    """The C headers have no words of GNU: the compiler of the other system's ABI takes them too."""
    if not (clang := shutil.which("clang")):
        return
    header = next(root.rglob("include/**/vantelgis.h"))
    own = pathlib.Path(run(clang, "-print-resource-dir").strip()) / "include"
    for language, standard in (("c", "c11"), ("c++", "c++11")):
        run(clang, "--target=x86_64-pc-windows-msvc", "-fms-compatibility", "-ffreestanding", "-nostdinc",
            "-isystem", own, "-fsyntax-only", "-Wall", "-Wextra", "-pedantic", "-Werror", "-x", language,
            f"-std={standard}", header)


def check_streams(host, folder):
    for arguments in ([], ["own buffer"]):
        assert run(host, *arguments) == STREAMS
        with open(folder / "shown", "w+", encoding="utf-8") as out:
            subprocess.run([host, *arguments], stdout=out, check=True)
        assert (folder / "shown").read_text("utf-8") == STREAMS
        assert on_terminal(host, arguments, folder) == STREAMS


def on_terminal(host, arguments, folder):
    master, slave = pty.openpty()
    (folder / "typed").write_text(TYPED)
    with open(folder / "typed", encoding="utf-8") as typed, subprocess.Popen(
            [host, *arguments], stdin=typed, stdout=slave, stderr=subprocess.DEVNULL, cwd=folder):
        os.close(slave)
        shown = b""
        try:
            while piece := os.read(master, 4096):
                shown += piece
        except OSError:
            pass  # the terminal's other end is closed
    os.close(master)
    return shown.replace(b"\r\n", b"\n").decode()


def check_host(host, folder):
    for argument, (wanted, files) in HOST_RUNS.items():
        for where in ("pipe", "file", "terminal"):
            for name in files:
                (folder / name).unlink(missing_ok=True)
            if where == "terminal":
                shown = on_terminal(host, [argument], folder)
            else:
                with open(folder / "shown", "w+", encoding="utf-8") as out:
                    done = subprocess.run([host, argument], input=TYPED, text=True, cwd=folder,
                                          stdout=out if where == "file" else subprocess.PIPE,
                                          stderr=subprocess.PIPE, check=True)
                shown = (folder / "shown").read_text("utf-8") if where == "file" else done.stdout
                assert done.stderr == (RULE if argument == "print" else ""), done.stderr
            assert shown == wanted, f"{argument}, {where}: {shown}"
            for name, content in files.items():
                assert (folder / name).read_bytes() == content.encode(), name


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="build folder with the library in it")
    arguments = parser.parse_args()
    run(sys.executable, TOP / "cmake/toolkit/routine_page.py", "--check", TOP / "docs/routines.md")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        root = folder / "root"
        run("cmake", "--install", arguments.build, "--prefix", root, "--component", "development")
        library = next(root.rglob("libvantelgis_toolkit.so"))
        (folder / "levels.txt").write_text("1.5\n# a comment\n2.25, x\n")
        check_names(library)
        check_examples(root, folder)
        check_host(build_host(root, folder, "cc", "c11", "host.c"), folder)
        check_streams(build_host(root, folder, "c++", "c++11", "streams.cpp"), folder)
        check_other_compiler(root)
        (folder / "in.txt").write_text("  12.5 ! a level\n")
        run(sys.executable, pathlib.Path(__file__).with_name("example_lines.py"), library, cwd=folder)


main()

#!/usr/bin/env python3
"""Installs the routine set as it stands in the zip and runs a host in C that was built against it, with
the import library for either linker."""

import argparse
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
LIBRARY_TESTS = TOP / "tests/library"
sys.path.insert(0, str(LIBRARY_TESTS))
from host_runs import HOST_RUNS, TYPED  # noqa: E402


def build_host(compiler, dev, library, folder):
    subprocess.run([compiler, "-std=c11", "-Wall", "-Werror", LIBRARY_TESTS / "host.c", "-o",
                    folder / "host.exe", "-I", dev / "include", dev / library], check=True)
    return folder / "host.exe"


def check_examples(launcher, dev, folder):
    """Built as their own CMakeLists.txt says, in C and in C++."""
    subprocess.run(["cmake", "-G", "Ninja", "-S", dev / "examples/toolkit", "-B", folder / "build",
                    f"-DCMAKE_TOOLCHAIN_FILE={TOP / 'cmake/windows-toolchain.cmake'}",
                    f"-Dvantelgis_DIR={dev / 'cmake'}"], check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", folder / "build"], check=True, stdout=subprocess.DEVNULL)
    shutil.copy(dev / "vantelgis_toolkit.dll", folder / "build")
    for example, wanted in (("levels_c", "sum 3.75\n"), ("toolkit_example", "data: 1.5\n")):
        done = subprocess.run([*launcher, folder / "build" / (example + ".exe"), "levels.txt"], cwd=folder,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
        assert wanted in done.stdout.decode().replace("\r\n", "\n"), done.stdout


def check_host(command, folder):
    for argument, (wanted, files) in HOST_RUNS.items():
        for name in files:
            (folder / name).unlink(missing_ok=True)
        done = subprocess.run([*command, argument], input=TYPED.encode(), stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, cwd=folder, check=True)
        shown = done.stdout.decode().replace("\r\n", "\n")
        assert shown == wanted, f"{argument}: {shown}"
        for name, content in files.items():
            assert (folder / name).read_bytes() == content.encode(), name


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="build folder with the library in it")
    parser.add_argument("--compiler", required=True, help="of C, for Windows")
    parser.add_argument("--launcher", default="", help="what starts a Windows program")
    arguments = parser.parse_args()
    launcher = [arguments.launcher] if arguments.launcher else []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.run(["cmake", "--install", arguments.build, "--prefix", folder, "--component",
                        "development"], check=True, stdout=subprocess.DEVNULL)
        dev = folder / "dev"
        shutil.copy(dev / "vantelgis_toolkit.dll", folder)
        (folder / "levels.txt").write_text("1.5\n# a comment\n2.25, x\n")
        for library in ("libvantelgis_toolkit.dll.a", "vantelgis_toolkit.lib"):
            check_host([*launcher, build_host(arguments.compiler, dev, library, folder)], folder)
        check_examples(launcher, dev, folder)


main()

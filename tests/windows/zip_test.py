#!/usr/bin/env python3
"""Unpacks the zip below a folder whose name is awkward, drops samples with awkward names on each of
its icons, and runs its examples. Arguments: the zip, its version, what starts a Windows program."""

import contextlib
import pathlib
import shlex
import sqlite3
import subprocess
import sys
import tempfile
import zipfile

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
AWKWARD = "50% & !x! ^ (a) [b] é Ωμ 日本 😀"
BREAKLINES_3D = "3D breaklines (points and lines)"
# The icon, what is dropped on it (a folder ends in "/"), a result, and a text that this holds.
DROPS = [
    ("2D breaklines", ["creek.mif", "creek.mid"], "creek.12da", "top of left bank"),
    ("2D breaklines", ["./"], "kerb.12da", "string 2d"),
    (BREAKLINES_3D, ["invert.mif", "levels.mif"], "invert.12da", "string 3d"),
    (BREAKLINES_3D, ["levels.mif", "levels.mid", "invert.mid", "invert.mif"], "invert.12da", "10.8876"),
    (BREAKLINES_3D, ["levee.mif"], "levee.12da", "12.1154"),
    ("Results", ["velocity.mif"], "velocity.12da", "ARROW"),
    ("Archive to layers", ["site.12da", "creek.mif"], "site.12da_L.prj", "PROJCS"),
    ("Archive to layers", ["without projection/"], "without projection/site.12da.mif", "Pline"),
    ("Archive to cross-sections", ["sections.12da"], "XS_100.csv", '"X","Z"'),
]


def run(launcher, folder, *command):
    return subprocess.run([*launcher, *command], cwd=folder, stdin=subprocess.DEVNULL, timeout=120,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)


def awkward(name):
    """The same name with awkward characters before its ending, but for files found by theirs."""
    path = pathlib.PurePath(name)
    if path.stem in ("Header", "XS_100") or name.endswith("/"):
        return name
    stem, dot, rest = path.name.partition(".")
    return str(path.parent / f"{stem} {AWKWARD}{dot}{rest}")


def make_samples(folder):
    for path in EXAMPLES.glob("*.*"):
        (folder / awkward(path.name)).write_bytes(path.read_bytes())
    apart = folder / "without projection"
    apart.mkdir()
    (apart / awkward("site.12da")).write_bytes((EXAMPLES / "site.12da").read_bytes())


def drop(launcher, top, work, row):
    icon, names, result, text = row
    samples = work / "samples"
    samples.mkdir()
    make_samples(samples)
    dropped = [samples / awkward(name) for name in names]
    done = run(launcher, work, str(top / f"{icon}.exe"), *(f"Z:{path}".replace("/", "\\") for path in dropped))
    what = f"{icon}, {names}:\n{done.stdout.decode('utf-8', 'replace')}"
    assert done.returncode == 0 and done.stdout.rstrip().endswith(b"close this window."), what
    made = samples / awkward(result)
    assert made.is_file() and text in made.read_text("latin-1"), what
    assert (made.parent / f"{icon} report.html").stat().st_size > 1000, what
    samples.rename(work / f"done {len(list(work.iterdir()))}")


def check_package(launcher, top, work):
    """An archive of an awkward name becomes a package, and that an archive with all of its strings."""
    folder = work / f"package {AWKWARD}"
    folder.mkdir()
    archive = folder / awkward("site.12da")
    archive.write_bytes((EXAMPLES / "site.12da").read_bytes())
    package = archive.with_suffix(".gpkg")
    program = str(top / "vantelgis-gpkg.exe")
    for arguments in ([archive.name, "--vertices", "--check"], [archive.name, "--append"],
                      [package.name, "-o", "back.12da"]):
        done = run(launcher, folder, program, *arguments)
        assert done.returncode == 0 and b": 7 strings" in done.stdout, (arguments, done.stdout)
    with contextlib.closing(sqlite3.connect(package)) as database:
        names = database.execute("SELECT name FROM strings ORDER BY fid").fetchall()
        assert database.execute("PRAGMA integrity_check").fetchall() == [("ok",)]
    log = pathlib.Path(f"{package}-wal")
    log.touch()
    before = package.read_bytes()
    assert run(launcher, folder, program, archive.name).returncode == 1 and package.read_bytes() == before
    assert len(names) == 7 and all(f'"{name}"' in (folder / "back.12da").read_text() for name, in names)
    assert not list(folder.glob("*.part*")), list(folder.iterdir())


def check_wait(launcher, top):
    """An icon that is opened with nothing on it says what it takes, and its window stays."""
    with subprocess.Popen([*launcher, str(top / "Results.exe")], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
        told = b""
        while not told.endswith(b"this window."):
            byte = process.stdout.read(1)
            assert byte, told
            told += byte
        assert b"drop layers" in told, told
        assert process.poll() is None
        process.stdin.close()
        assert process.wait(timeout=60) == 2


def check_programs(top, version):
    programs = list(top.glob("*.exe"))
    assert len(programs) == 8, programs
    for program in programs:
        data = program.read_bytes()
        assert b"longPathAware" in data and version.encode("utf-16le") in data, program


def check_examples(launcher, top):
    folder = top / "examples"
    told = run(launcher, folder, "cmd", "/c", "Run the examples.cmd").stdout.decode("latin-1")
    rows = [line.split("|") for line in (folder / "runs.txt").read_text().splitlines() if line[0] != "#"]
    for _, result, _, title in rows:
        assert f"== {title}" in told and (folder / "results" / result).is_file(), told


def main():
    archive, version, launcher = sys.argv[1:]
    launcher = shlex.split(launcher)
    with tempfile.TemporaryDirectory(prefix=f"zip {AWKWARD} ") as scratch:
        work = pathlib.Path(scratch)
        with zipfile.ZipFile(archive) as packed:
            packed.extractall(work)
        top, = work.iterdir()
        check_programs(top, version)
        check_examples(launcher, top)
        for row in DROPS:
            drop(launcher, top, work, row)
        check_wait(launcher, top)
        check_package(launcher, top, work)
    print(f"{len(DROPS)} drops give what they should")


main()

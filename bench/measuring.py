"""Data and runs of the benchmarks."""

import dataclasses
import os
import pathlib
import shutil
import subprocess

from jobs import NO_POINTS

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "release"
DATA = ROOT / "build" / "bench-data"
MB = 1e6


def program(name):
    return str(BUILD / "bench" / f"bench_{name}")


@dataclasses.dataclass
class Best:
    """The best of several runs; times in seconds, the peak in MB."""
    wall: float = float("inf")
    cpu: float = float("inf")
    peak: float = 0.0

    def run(self, command, folder, times=1):
        done = subprocess.run([program("measure"), str(times), *command], cwd=folder, check=True,
                              stdout=subprocess.PIPE, text=True)
        wall, cpu, kib = done.stdout.split()
        self.wall = min(self.wall, float(wall))
        self.cpu = min(self.cpu, float(cpu))
        self.peak = max(self.peak, float(kib) * 1024 / MB)


class Data:
    """The folder of a recipe with so many vertices, filled unless it is there and as new as the
    generator. What runs leave in it is removed at the end."""

    def __init__(self, recipe, vertices, keep=True):
        self.folder = DATA / f"{recipe}-{vertices}"
        self.keep = keep
        generator, count = pathlib.Path(program("generate")), self.folder / "vertices"
        if not count.exists() or count.stat().st_mtime < generator.stat().st_mtime:
            shutil.rmtree(self.folder, ignore_errors=True)
            self.folder.mkdir(parents=True)
            done = subprocess.run([generator, recipe, self.folder, str(vertices)], check=True,
                                  stdout=subprocess.PIPE, text=True)
            count.write_text(done.stdout)
        self.vertices = int(count.read_text())
        self.made = set(self.folder.iterdir())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if not self.keep:
            shutil.rmtree(self.folder)
            return
        for path in set(self.folder.iterdir()) - self.made:
            path.unlink()


def own(job):
    name, *options = job.program
    return [str(BUILD / "src" / name), *options, *job.args.split()]


def beside(job):
    if job.beside == NO_POINTS:
        return [word.replace("points.mif", "none.mif").replace("out.", "none.")
                for word in own(job)]
    return [program("bare"), *job.beside.split()]


def measure(job, data, runs):
    """The program and what it is put beside, in turns: a busy moment meets both."""
    ours, theirs = Best(), Best()
    if job.before:
        ours.run(own(dataclasses.replace(job, args=job.before)), data.folder)
        ours = Best()
    for _ in range(runs):
        ours.run(own(job), data.folder)
        theirs.run(beside(job), data.folder)
    return ours, theirs


def best_other(job, folder):
    """CPU seconds of ogr2ogr at the nearest thing, None where it has none or isn't installed."""
    best = Best()
    quiet = ["--config", "CPL_LOG", os.devnull]  # where its warnings go
    for command in job.others if shutil.which("ogr2ogr") else ():
        for path in folder.glob("ogr.*"):
            path.unlink()
        best.run(["ogr2ogr", *quiet, *command.split("|")], folder)
    return best.cpu if best.peak else None


def differing(job, folder):
    """The program's files that are not what the bare loop wrote."""
    return [body.ours for body in job.bodies if not body.agrees(folder)]

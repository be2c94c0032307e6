#!/usr/bin/env python3
"""Measures the program against its rivals on generated data. See README.md beside this file."""

import argparse
import dataclasses
import itertools
import pathlib
import shutil
import subprocess
import sys
from typing import Callable, Optional

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "release"
DATA = ROOT / "build" / "bench-data"
MIB = 1024 * 1024


@dataclasses.dataclass
class Rival:
    """What the program is put beside. Without a limit it is only shown."""
    name: str
    command: list
    limit: Optional[float] = None  # largest ratio of the program's time to the rival's
    most_runs: int = 1000          # of a slow one


@dataclasses.dataclass
class Benchmark:
    """One row. All commands run in the folder that the recipe of bench_generate filled."""
    name: str
    recipe: str
    args: list    # of the program
    reads: list   # files that count for MB/s
    rivals: list
    memory_limit: Optional[int] = None                           # MiB
    agrees: Optional[Callable[[pathlib.Path], bool]] = None      # looks at what was written


def bench(name):
    return str(BUILD / "bench" / f"bench_{name}")


def vertex_lines_agree(archive, bare):
    """The archive's vertex lines are what the bare loop wrote."""
    def agree(folder):
        with open(folder / archive, "rb") as ours, open(folder / bare, "rb") as theirs:
            vertices = (line for line in ours if line.startswith(b"    ") and len(line) == 38)
            return all(line == next(vertices, b"") for line in theirs) and not any(vertices)
    return agree


def points_agree(folder):
    """The point objects and their rows are what the bare loop wrote, whatever stands between."""
    def lines(name):
        with open(folder / name, "rb") as file:
            yield from file

    def points(mif, mid):
        rows = iter(lines(mid))
        for line in lines(mif):
            if line.startswith(b"Pline"):
                next(rows)
            elif line.startswith(b"Point"):
                yield line, next(rows, b"").split(b",")[:3]
    pairs = itertools.zip_longest(points("out.mif", "out.mid"), points("bare.mif", "bare.mid"))
    return all(ours == theirs for ours, theirs in pairs)


def records_agree(folder):
    """Both sets hold the records of the bare loop behind their headers."""
    def same(ours, theirs, header, footer):
        mine = (folder / ours).read_bytes()
        return mine[header:len(mine) - footer] == (folder / theirs).read_bytes()
    return all(same(f"out_{family}.{suffix}", f"bare_{family}.{suffix}", header, footer)
               for family in "LP"
               for suffix, header, footer in (("shp", 100, 0), ("shx", 100, 0), ("dbf", 193, 1)))


def archive_to_mif(name, recipe, *more_rivals, memory_limit=32):
    """An archive's strings become lines and points."""
    bare = Rival("bare loop", [bench("bare_archive_to_mif"), "site.12da", "bare.mif", "bare.mid"],
                 limit=1.6)
    return Benchmark(f"archive to mif, {name}", recipe, args=["-b", "-out", "out.mif", "site.12da"],
                     reads=["site.12da"], rivals=[bare, *more_rivals],
                     memory_limit=memory_limit, agrees=points_agree)


def ogr2ogr(source, *target):
    """Reads the source and writes it as another layer; slow enough to be run once."""
    return Rival("ogr2ogr", ["ogr2ogr", *target, source], most_runs=1)


AS_MIF = ["-f", "MapInfo File", "-dsco", "FORMAT=MIF", "ogr.mif"]


def snapping(name, recipe, limit=3.0):
    """3D breaklines, beside the same lines with no point to look for."""
    empty = Rival("no points", [str(BUILD / "src" / "vantelgis"), "-b", "-zln", "-out", "none.12da",
                                "none.mif", "lines.mif"], limit=limit)
    return Benchmark(f"snapping, {name}", recipe,
                     args=["-b", "-zln", "-out", "out.12da", "points.mif", "lines.mif"],
                     reads=["points.mif", "points.mid", "lines.mif", "lines.mid"],
                     rivals=[empty], memory_limit=150)


BENCHMARKS = [
    Benchmark("mif to 2D breaklines", "mif-lines",
              args=["-b", "-out", "out.12da", "lines.mif"],
              reads=["lines.mif", "lines.mid"],
              rivals=[Rival("bare loop", [bench("bare_mif_to_archive"), "lines.mif", "bare.txt"],
                            limit=1.6)],
              memory_limit=32,
              agrees=vertex_lines_agree("out.12da", "bare.txt")),
    Benchmark("shp to 2D breaklines", "shp-lines",
              args=["-b", "-out", "out.12da", "lines.shp"],
              reads=["lines.shp", "lines.dbf"],
              rivals=[Rival("bare loop", [bench("bare_shp_to_archive"), "lines.shp", "bare.txt"],
                            limit=1.6),
                      ogr2ogr("lines.shp", *AS_MIF)],
              memory_limit=32,
              agrees=vertex_lines_agree("out.12da", "bare.txt")),
    archive_to_mif("3d strings", "archive-3d", ogr2ogr("out.mif", *AS_MIF)),
    archive_to_mif("super strings, levels and nulls", "archive-super"),
    archive_to_mif("the longest string", "archive-longest", memory_limit=100),
    Benchmark("archive to shp, 3d strings", "archive-3d",
              args=["-b", "-out", "out.shp", "site.12da"],
              reads=["site.12da"],
              rivals=[Rival("bare loop", [bench("bare_archive_to_shp"), "site.12da"], limit=1.6),
                      ogr2ogr("out_P.shp", "-overwrite", "ogr.shp")],
              memory_limit=32, agrees=records_agree),
    snapping("points near vertices", "snap-near"),
    snapping("points on a north-south line", "snap-line"),
    snapping("points in one place", "snap-place"),
    snapping("points crowded in a few centimetres", "snap-crowd", limit=6.0),
]


@dataclasses.dataclass
class Best:
    """The best of several runs; times in seconds, the peak in MiB."""
    wall: float = float("inf")
    cpu: float = float("inf")
    peak: float = 0.0

    def run(self, command, folder):
        done = subprocess.run([bench("measure"), *command], cwd=folder, check=True,
                              stdout=subprocess.PIPE, text=True)
        wall, cpu, kib = done.stdout.split()
        self.wall = min(self.wall, float(wall))
        self.cpu = min(self.cpu, float(cpu))
        self.peak = max(self.peak, float(kib) / 1024)


def vertices_of(recipe):
    """Fills the recipe's folder unless it is there from a generator as new; gives its vertices."""
    folder, generator = DATA / recipe, pathlib.Path(bench("generate"))
    count = folder / "vertices.count"
    if not count.exists() or count.stat().st_mtime < generator.stat().st_mtime:
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        print(f"Generating {recipe}...", flush=True)
        done = subprocess.run([str(generator), recipe, str(folder)], check=True,
                              stdout=subprocess.PIPE, text=True)
        count.write_text(done.stdout)
    return int(count.read_text())


def row(name, best, megabytes, vertices):
    print(f"  {name:<12} {best.wall:8.3f} {best.cpu:8.3f} {megabytes / best.wall:8.1f} "
          f"{vertices / best.wall / 1e6:8.2f} {best.peak:8.1f}")


def verdict(text, passed):
    print(f"  {text}: {'pass' if passed else 'FAIL'}")
    return passed


def measure(benchmark, runs):
    """Prints one benchmark; true when it keeps its limits."""
    vertices = vertices_of(benchmark.recipe)
    folder = DATA / benchmark.recipe
    megabytes = sum((folder / name).stat().st_size for name in benchmark.reads) / MIB
    ours, rivals = Best(), [(rival, Best()) for rival in benchmark.rivals
                            if shutil.which(rival.command[0])]
    for turn in range(runs):  # in turns, so that a busy moment of the machine meets all of them
        ours.run([str(BUILD / "src" / "vantelgis"), *benchmark.args], folder)
        for rival, best in rivals:
            if turn < rival.most_runs:
                best.run(rival.command, folder)
    print(f"\n{benchmark.name} ({megabytes:.1f} MiB, {vertices} vertices, best of {runs})")
    print(f"  {'':<12} {'wall s':>8} {'cpu s':>8} {'MiB/s':>8} {'Mvert/s':>8} {'peak MiB':>8}")
    row("vantelgis", ours, megabytes, vertices)
    passed = True
    for rival, best in rivals:
        row(rival.name, best, megabytes, vertices)
    for rival, best in rivals:
        text = (f"time against {rival.name}: {ours.cpu / best.cpu:.2f} (cpu), "
                f"{ours.wall / best.wall:.2f} (wall)")
        if rival.limit is None:
            print(f"  {text}")
        else:
            passed &= verdict(f"{text}, limit {rival.limit}", ours.cpu <= rival.limit * best.cpu)
    if benchmark.memory_limit is not None:
        passed &= verdict(f"peak memory: {ours.peak:.1f} MiB, limit {benchmark.memory_limit}",
                          ours.peak <= benchmark.memory_limit)
    if benchmark.agrees is not None:
        passed &= verdict("same numbers written", benchmark.agrees(folder))
    return passed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=5, help="runs of each program (5)")
    parser.add_argument("names", nargs="*", help="words of the benchmarks to run (all)")
    options = parser.parse_args()
    chosen = [benchmark for benchmark in BENCHMARKS
              if not options.names or any(word in benchmark.name for word in options.names)]
    if not chosen or options.runs < 1:
        parser.error("nothing to run")
    return 0 if all([measure(benchmark, options.runs) for benchmark in chosen]) else 1


if __name__ == "__main__":
    sys.exit(main())

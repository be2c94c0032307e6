"""What is measured: the programs' runs, what each is put beside, and the goals. See README.md."""

import contextlib
import dataclasses
import sqlite3
import typing

MILLION = 1_000_000
NO_POINTS = "no points"  # beside the program's own run on the same lines, instead of a bare loop


class Body(typing.NamedTuple):
    """A file of the program and the one of the bare loop that holds the same behind its head."""
    ours: str
    bare: str
    head: typing.Callable[[bytes], int]  # how long the head of ours is
    tail: int = 0

    def agrees(self, folder):
        mine = (folder / self.ours).read_bytes()
        return (mine[self.head(mine[:4096]):len(mine) - self.tail] ==
                (folder / self.bare).read_bytes())


class Features(typing.NamedTuple):
    """Two packages whose layer `strings` holds the same geometries and has the same index."""
    ours: str
    bare: str

    def agrees(self, folder):
        with contextlib.closing(sqlite3.connect(folder / self.ours)) as database:
            database.execute("ATTACH ? AS bare", (str(folder / self.bare),))
            return not any(
                database.execute(f"SELECT {columns} FROM main.{table} EXCEPT "
                                 f"SELECT {columns} FROM bare.{table} LIMIT 1").fetchall() or
                database.execute(f"SELECT (SELECT count(*) FROM main.{table}) - "
                                 f"(SELECT count(*) FROM bare.{table})").fetchone()[0]
                for table, columns in (("strings", "fid, geom"), ("rtree_strings_geom", "*")))


def head_lines(count):
    """A head of so many lines."""
    def length(data):
        end = 0
        for _ in range(count):
            end = data.index(b"\n", end) + 1
        return end
    return length


def head_to(mark):
    return lambda data: data.index(mark) + len(mark)


def head_bytes(count):
    return lambda data: count


@dataclasses.dataclass(frozen=True)
class Job:
    """One row of the table. All commands run in the folder that the recipe filled."""
    name: str
    recipe: str
    vertices: int                  # about so many, at full size
    args: str                      # of the program
    beside: str                    # arguments of bench_bare, or NO_POINTS
    goal: float                    # largest ratio of the program's CPU time to that
    reads: tuple                   # files that count for MB/s
    bodies: tuple = ()             # what must agree with the bare loop
    table: typing.Optional[int] = 0  # bytes a vertex or point beyond the 8 MB; None: no limit
    others: tuple = ()             # arguments of ogr2ogr for the nearest thing it can do
    program: tuple = ("vantelgis", "-b")
    memory: float = 8.0            # MB beside those of `table`
    before: str = ""               # arguments of the program that make what it reads
    quick: bool = True             # part of a quick run


def as_layers(source):
    """The same objects as text of three kinds, which is the nearest to an archive."""
    return (f"-f|MapInfo File|-dsco|FORMAT=MIF|ogr.mif|{source}",
            f"-f|CSV|-lco|GEOMETRY=AS_WKT|ogr.csv|{source}",
            f"-f|GeoJSONSeq|ogr.json|{source}")


def to_archive(kind, recipe, name, vertices, goal):
    source = f"lines.{kind}"
    table = "lines.mid" if kind == "mif" else "lines.dbf"
    return Job(f"{kind} -> archive{name}", f"{kind}-{recipe}", vertices,
               f"-out out.12da {source}", f"{kind}-to-archive lines bare.12da", goal,
               (source, table), (Body("out.12da", "bare.12da", head_lines(3)),),
               others=as_layers(source))


def from_archive(kind, recipe, name, vertices, goal, table=0):
    mif = (Body("out.mif", "bare.mif", head_to(b"Data\r\n\r\n")),
           Body("out.mid", "bare.mid", head_bytes(0)))
    shp = tuple(Body(f"out_{family}.{suffix}", f"bare_{family}.{suffix}", head_bytes(head), tail)
                for family in "LP"
                for suffix, head, tail in (("shp", 100, 0), ("shx", 100, 0), ("dbf", 193, 1)))
    others = {"mif": ("-f|MapInfo File|-dsco|FORMAT=MIF|ogr.mif|out.mif",),
              "shp": ("-f|ESRI Shapefile|ogr.shp|out_P.shp",)}
    return Job(f"archive -> {kind}{name}", f"archive-{recipe}", vertices,
               f"-out out.{kind} site.12da", f"archive-to-{kind} site bare", goal,
               ("site.12da",), mif if kind == "mif" else shp, table=table,
               others=others[kind] if not name else ())


def results(kind):
    return Job(f"results, {kind}", f"{kind}-results", MILLION,
               f"-results -out out.12da points.{kind}", f"{kind}-results points bare.12da", 1.5,
               (f"points.{kind}", "points.mid" if kind == "mif" else "points.dbf"),
               (Body("out.12da", "bare.12da", head_lines(3)),), table=24,
               others=as_layers(f"points.{kind}"))


def snapping(recipe, name, beside, goal, quick=False, table=8):
    """Memory beyond the limit is that of the points, of which there is one to five vertices."""
    bodies = ()
    if beside != NO_POINTS:
        layers = ("dangles", "unsnapped_points")
        bodies = (Body("out.12da", "bare.12da", head_lines(3)),
                  *(Body(f"lines_{layer}.mif", f"bare_{layer}.mif", head_to(b"Data\r\n\r\n"))
                    for layer in layers),
                  *(Body(f"lines_{layer}.mid", f"bare_{layer}.mid", head_bytes(0))
                    for layer in layers))
    return Job(f"-zln, {name}", recipe, 5 * MILLION, "-zln -out out.12da points.mif lines.mif",
               beside, goal, ("points.mif", "points.mid", "lines.mif", "lines.mid"), bodies,
               table=table, quick=quick)


def packages(length):
    """Archives of strings of so many vertices to a package, and that package to an archive."""
    shared = {"recipe": f"archive-{length}", "vertices": 4 * MILLION, "goal": 1.5,
              "program": ("vantelgis-gpkg", "-q"), "memory": 64.0, "table": 0}
    return (Job(f"archive -> package, strings of {length}", args="site.12da -o out.gpkg",
                beside="archive-to-package site bare", reads=("site.12da",),
                bodies=(Features("out.gpkg", "bare.gpkg"),),
                others=("-f|GPKG|ogr.gpkg|lines.mif",), **shared),
            Job(f"package -> archive, strings of {length}", args="out.gpkg -o out.12da",
                beside="package-to-archive out bare", reads=("out.gpkg",),
                bodies=(Body("out.12da", "bare.12da", head_lines(1)),),
                others=as_layers("out.gpkg|strings"), before="site.12da -o out.gpkg", **shared))


SHORT = ", short lines"

JOBS = (
    to_archive("mif", "lines", "", 2 * MILLION, 1.3),
    to_archive("shp", "lines", "", 2 * MILLION, 1.3),
    from_archive("mif", "3d", "", 2 * MILLION, 1.3),
    from_archive("shp", "3d", "", 2 * MILLION, 1.3),
    results("mif"),
    results("shp"),
    to_archive("mif", "short", SHORT, 800_000, 1.5),
    to_archive("shp", "short", SHORT, 800_000, 1.5),
    from_archive("mif", "short", SHORT, 800_000, 1.5),
    from_archive("shp", "short", SHORT, 800_000, 1.5),
    from_archive("mif", "super", ", super strings", 2 * MILLION, 1.3),
    from_archive("shp", "super", ", super strings", 2 * MILLION, 1.3),
    from_archive("mif", "longest", ", one string", MILLION, 1.3, table=None),
    from_archive("shp", "longest", ", one string", MILLION, 1.3, table=None),
    *packages(40),
    *packages(4),
    snapping("snap-near", "half of the points near", "snapping ./ bare", 0.7, quick=True),
    snapping("snap-dense", "dense, beside no points", NO_POINTS, 2.0, quick=True),
    # These are there to show that no layout makes the search quadratic.
    snapping("snap-line", "on a line, beside no points", NO_POINTS, 3.0),
    snapping("snap-place", "in one place, beside no points", NO_POINTS, 3.0),
    snapping("snap-crowd", "crowded, beside no points", NO_POINTS, 6.0, table=16),
)

# Each conversion once, from 10^4 vertices on; the program takes a million results at most.
GROWING = {job: MILLION if job.name.startswith("results") else None
           for job in JOBS if job.name in (
               "mif -> archive", "shp -> archive", "archive -> mif", "archive -> shp",
               "results, mif", "results, shp", "-zln, half of the points near")}

ONE_LINE = JOBS[0]          # on a layer of a single line
START_GOAL = 3.0, 4.0       # wall milliseconds and peak MB of such a run
GROWTH_GOAL = 1.10          # of the time a vertex takes, from one size to the one ten times as large

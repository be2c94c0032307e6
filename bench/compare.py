#!/usr/bin/env python3
"""Measures the program against bare loops on generated data. See README.md beside this file."""

import argparse
import sys

import jobs
from measuring import MB, Best, Data, best_other, differing, measure, own

MISSED = "!"
QUICK_PART = 4      # of the vertices
QUICK_SLACK = 1.25  # a quick run fails only beyond this many times a goal


class Verdict:
    """Marks what misses its goal, and remembers whether the whole run fails."""

    def __init__(self, slack):
        self.slack = slack
        self.faults = []

    def mark(self, what, figure, goal):
        if figure > goal * self.slack:
            self.faults.append(f"{what}: {figure:.2f}, goal {goal:.2f}")
        return MISSED if figure > goal else " "


def figures_of(job, options, verdict):
    """Measures a job and prints its row."""
    vertices = job.vertices // (QUICK_PART if options.quick else 1)
    with Data(job.recipe, vertices) as data:
        ours, theirs = measure(job, data, options.runs)
        other = None if options.quick else best_other(job, data.folder)
        verdict.faults += [f"{job.name}: {name} is not what the bare loop wrote"
                           for name in differing(job, data.folder)]
        megabytes = sum((data.folder / name).stat().st_size for name in job.reads) / MB
    ratio = ours.cpu / theirs.cpu
    memory_mark = " "
    if job.table is not None:
        limit = job.memory + job.table * data.vertices / MB
        memory_mark = verdict.mark(f"{job.name}, peak MB", ours.peak, limit)
    print(f"{job.name:36} {data.vertices:9} {theirs.cpu:8.3f} {ours.cpu:8.3f} {ratio:6.2f}"
          f"{verdict.mark(job.name, ratio, job.goal)} {job.goal:5.2f} {megabytes / ours.cpu:7.0f} "
          f"{ours.peak:7.1f}{memory_mark} {f'{other:8.2f}' if other else '       -'}", flush=True)


def print_table(chosen, options, verdict):
    print(f"CPU seconds, best of {options.runs}\n{'':36} {'vertices':>9} {'bare':>8} {'own':>8} "
          f"{'ratio':>6}  {'goal':>5} {'MB/s':>7} {'peak MB':>7}  {'ogr2ogr':>8}")
    for job in chosen:
        figures_of(job, options, verdict)


def print_start(verdict):
    """A run on a layer of one line; gives its CPU seconds."""
    best = Best()
    with Data(jobs.ONE_LINE.recipe, 1) as data:
        best.run(own(jobs.ONE_LINE), data.folder, times=200)
    milliseconds = best.wall * 1000
    wall_goal, peak_goal = jobs.START_GOAL
    print(f"\nA layer of one line: {milliseconds:.2f} ms wall"
          f"{verdict.mark('one line, ms', milliseconds, wall_goal)} (goal {wall_goal:.1f}), "
          f"{best.peak:.1f} MB peak{verdict.mark('one line, MB', best.peak, peak_goal)} "
          f"(goal {peak_goal:.1f})")
    return best.cpu


def print_growth(chosen, largest, start, verdict):
    """CPU nanoseconds a vertex, without what a run takes on one line, from 10^4 vertices on."""
    sizes = [10 ** power for power in range(4, largest + 1)]
    growing = [job for job in jobs.GROWING if job in chosen]
    if not growing:
        return
    print(f"\nns a vertex{'':25}" + "".join(f"  10^{len(str(size)) - 1:<6}" for size in sizes))
    for job in growing:
        row, before = "", None
        for size in sizes:
            if size > (jobs.GROWING[job] or size):
                break
            with Data(job.recipe, size, keep=False) as data:
                best = Best()
                for _ in range(min(max(4_000_000 // size, 3), 40)):
                    best.run(own(job), data.folder)
            each = (best.cpu - start) / data.vertices * 1e9
            growth = each / before if before else 0.0
            row += f"{each:9.1f}" + verdict.mark(f"{job.name}, growth to {size}", growth,
                                                 jobs.GROWTH_GOAL)
            before = each
        print(f"{job.name:36}{row}", flush=True)


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--quick", action="store_true",
                        help=f"1/{QUICK_PART} of the data, fewer runs, without other tools; "
                             f"fails only beyond {QUICK_SLACK} times a goal")
    parser.add_argument("--huge", action="store_true",
                        help="growth up to 10^8 vertices (20 GB of disk)")
    parser.add_argument("--runs", type=int, help="runs of each program (5; quick: 3)")
    parser.add_argument("names", nargs="*", help="words of the jobs to run (all)")
    options = parser.parse_args()
    options.runs = options.runs or (3 if options.quick else 5)
    return options


def main():
    options = arguments()
    chosen = [job for job in jobs.JOBS if (job.quick or not options.quick) and
              (not options.names or any(word in job.name for word in options.names))]
    if not chosen:
        sys.exit("bench/run: no job of that name")
    verdict = Verdict(QUICK_SLACK if options.quick else 1.0)
    print_table(chosen, options, verdict)
    start = print_start(verdict)
    print_growth(chosen, 6 if options.quick else 8 if options.huge else 7, start, verdict)
    if verdict.faults:
        print(f"\n{MISSED} Not met:", *verdict.faults, sep="\n  ")
    return 1 if verdict.faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""page.py MACHINE: runs build/release/bin/bench_front; docs/performance-front.md on standard output."""
import os
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
environment = {**os.environ, "OPENBLAS_NUM_THREADS": "1"}
rows = table.rows([str(root / "build/release/bin/bench_front"), *sys.argv[2:]], environment)
heads = [k for k, row in enumerate(rows) if row[0] in ("one thread", "10,000 of", "two threads")]
calls, objects, threads = (rows[a:b] for a, b in zip(heads, [*heads[1:], len(rows)]))

MOST_MORE = 25  # ns a call
MOST_RATIO = 1.05
LEAST_GAIN = 1.8  # at a million elements, of what memory does not limit
# Where both do the same work on one thread, ratios of minima repeat to this.
NOISE = 0.04

misses = [(f"{name}, n = {n}", f"{more} ns more", f"at most {MOST_MORE}") for name, n, _, _, more in calls[1:]
          if int(n) <= 10 and float(more) > MOST_MORE]
misses += [(f"{name}, n = {n}", f"{more} ns more", "nothing measurable") for name, n, kernel, _, more in calls[1:]
           if int(n) >= 1000 and float(more) > max(MOST_MORE, NOISE * float(kernel))]
misses += [(what, ratio, f"at most {MOST_RATIO}") for what, _, _, ratio in objects[1:] if float(ratio) > MOST_RATIO]
misses += [(f"{name}, two threads, n = {n}", gain, f"at least {LEAST_GAIN}") for name, n, _, _, gain in threads[1:]
           if int(n) == 1000000 and name != "abs" and float(gain) < LEAST_GAIN]
misses += [(f"{name}, two threads, n = {n}", gain, "never slower than one") for name, n, _, _, gain in threads[1:]
           if float(gain) < 1 - NOISE]

# The curve: a column for each function.
names = list(dict.fromkeys(row[0] for row in threads[1:]))
gains = {(name, n): gain for name, n, _, _, gain in threads[1:]}
lengths = list(dict.fromkeys(row[1] for row in threads[1:]))
curve = [["n", *names], *([f"{int(n):,}", *(gains[name, n] for name in names)] for n in lengths)]

print("\n".join([
    "# Performance of the front", "",
    "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "", "```sh",
    "cmake --build --preset release --target bench_front",
    f"bench/front/page.py \"{machine}\" > docs/performance-front.md", "```", "", f"Machine: {machine}.", "",
    "The front and the kernel take turns in one process; the fastest turn counts. What other work on the machine takes away is seen",
    "first in the gains of threads.", "",
    "## A call", "", "Doubles at high accuracy, one thread: what checks, modes and reports cost.", "", *table.markdown(calls), "",
    "## Objects", "",
    "Microseconds of one thread. The kernels' tasks are made beforehand; a spline that is made copies and checks its breakpoints.", "",
    *table.markdown(objects), "",
    "## Two threads", "",
    "How many times faster a call is that may take two threads. Gaussian: numbers of the inverse method from PHILOX4X32X10, whose",
    "parts skip ahead. Results of 8 MB and more of `abs` are written past the caches, by one thread or by two.", "",
    *table.markdown(curve), "", *table.shortfalls(misses)]))

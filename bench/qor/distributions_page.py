#!/usr/bin/env python3
"""distributions_page.py MACHINE: runs build/release/bin/bench_distributions on one core; docs/performance-distributions.md on
standard output."""
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
rows = table.rows(["taskset", "-c", "1", str(root / "build/release/bin/bench_distributions"), "0.2"])
misses = [(what, ratio, goal) for what, _, _, ratio, goal in rows[1:]
          if goal.startswith(">=") and float(ratio) < float(goal[2:])]

print("\n".join([
    "# Speed of the distributions", "", "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:",
    "", "```sh", "cmake --build --preset release --target bench_distributions",
    f"bench/qor/distributions_page.py \"{machine}\" > docs/performance-distributions.md", "```", "",
    f"Machine: {machine}.", "",
    "One core. Each comparison is timed in turns, ours and every peer that has the distribution; all draw from a Mersenne",
    "twister of 2^19937 - 1. Times are the least of many turns, per number, in nanoseconds. The last column is the goal for the",
    "column before it.", "",
    *table.markdown(rows), "", *table.shortfalls(misses)]))

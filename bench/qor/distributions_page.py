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
    *table.markdown(rows), "", *table.shortfalls(misses), "",
    "What limits them:", "",
    "- Exponential is a uniform, a logarithm and the last pass; most of it is the logarithm.",
    "- Gaussian by method 2 is for the most part the inverse of the error function; by methods 0 and 1 it is the logarithm, the",
    "  sine and the root, and method 0 pays for two uniforms a number.",
    "- ChiSquare of 15 draws seven uniforms and a normal number of method 0, nine uniforms in all.",
    "- Binomial and Poisson of large parameters take two floats a candidate; what leaves the triangle costs a logarithm, where near the",
    "  mode of smaller ones a table answers.",
    "- Multinomial by method 0 cuts a binomial number out of one uniform in steps: the square root of the trials.",
    "- GaussianMV of 50 dimensions is measured beside drawing the same normal numbers and one product: the rest is adding the mean."]))

#!/usr/bin/env python3
"""distributions_page.py MACHINE: runs build/release/bin/bench_distributions on one core; docs/performance-distributions.md on
standard output."""
import os
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
command = ["taskset", "-c", "1", str(root / "build/release/bin/bench_distributions")]
rows = table.rows([*command, "0.2"])


def times(registers):
    """Ours alone in registers of so many bits, where the process has such."""
    lines = table.rows([*command, "0.1", "", "alone"], {**os.environ, "ORVIK_REGISTERS": registers})[1:]
    return {what: float(ours) for what, ours, *_ in lines}


def widths():
    narrow, wide = times("256"), times("512")
    return table.markdown([["what", "256 bits, ns", "512 bits, ns", "256 / 512"],
                           *([what, f"{narrow[what]:.3f}", f"{wide[what]:.3f}", f"{narrow[what] / wide[what]:.2f}"]
                             for what in wide if what.endswith("n = 1000"))])


calls = table.rows([*command, "0.02", "", "calls"])
misses = [(what, ratio, goal) for what, _, _, ratio, goal in rows[1:]
          if goal.startswith(">=") and float(ratio) < float(goal[2:])]

print("\n".join([
    "# Speed of the distributions", "", "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:",
    "", "```sh", "cmake --build --preset release --target bench_distributions",
    f"bench/qor/distributions_page.py \"{machine}\" > docs/performance-distributions.md", "```", "",
    f"Machine: {machine}.", "",
    "One core. Each comparison is timed in turns, ours and every peer that has the distribution; all draw from a Mersenne",
    "twister of 2^19937 - 1. Times are the least of many turns, per number, in nanoseconds. The last column is the goal for the",
    "column before it. A slow peer draws fewer numbers a turn.", "",
    *table.markdown(rows), "", *table.shortfalls(misses), "",
    "Requests of 1,000 numbers in registers of 512 bits, where the process has such, and, from another run with",
    "`ORVIK_REGISTERS=256`, in those of 256:", "", *widths(), "",
    "Nanoseconds of a call for one number and for few, the set-up of the parameters kept with the stream where there is one:", "",
    *table.markdown(calls), "",
    "What limits them:", "",
    "- Exponential is a uniform, a logarithm and the last pass; most of it is the logarithm.",
    "- Gaussian by method 2 is for the most part the inverse of the error function (`dErfInv` EP in performance-vector.md): a logarithm",
    "  and four coefficients of one of 240 rows, which lie in memory; by methods 0 and 1 it is the logarithm, the sine and the root, and",
    "  method 0 pays for two uniforms a number.",
    "- Long requests go to the kernels by 32,768 numbers, so that a chain of kernels finds its numbers in the caches.",
    "- ChiSquare of 15 draws seven uniforms and a normal number of method 0, nine uniforms in all.",
    "- Binomial and Poisson of large parameters take two floats a candidate; what leaves the triangle costs a logarithm, where near the",
    "  mode of smaller ones a table answers.",
    "- Multinomial by method 0 cuts a binomial number out of one uniform in steps: the square root of the trials.",
    "- GaussianMV of 50 dimensions is measured beside drawing the same normal numbers and one product: the rest is adding the mean."]))

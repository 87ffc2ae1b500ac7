#!/usr/bin/env python3
"""page.py MACHINE: runs build/release/bin/bench_ss, all but the threads on one core; docs/performance-statistics.md on
standard output."""
import os
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
program = str(root / "build/release/bin/bench_ss")
env = dict(os.environ, OPENBLAS_NUM_THREADS="1")
rows = table.rows(["taskset", "-c", "1", program, "moments", "covariance", "sorting", "robust", "stream", "quartiles",
                   "short", "shapes", "cliffs"], env)
rows += table.rows([program, "threads", "robust_threads"], env)[1:]

# What is compared with whom must reach which ratio: the first line whose words all occur.
GOALS = [
    (("geometric mean", "every library"), 1.8),
    (("geometric mean",), None),
    (("two threads", "reading memory"), None),
    (("two threads", "in cache"), 1.8),
    (("two threads: mean",), None),
    (("two threads: four moments",), None),
    (("two threads",), 1.8),
    (("stream quantiles",), None),
    (("covariances",), 1),
    (("imputation",), 0.8),
    (("std::nth_element",), 1),
    (("n = 1000", "mean"), 1),
    (("n = 1000", "moments"), 1),
    (("n = 1000", "sums"), 1),
    (("n = 10",), None),
    (("one plain variable",), None),
    (("cliffs",), 0.5),
    (("reading memory",), 0.9),
    (("fast", "Boost"), 2),
    (("fast", "GSL"), 10),
    (("one pass", "Boost"), 1),
    (("covariance", "dsyrk"), 0.85),
    (("covariance", "Eigen"), 1.2),
    (("order statistics, p = 1",), 3),
    (("std::",), 1),
]
rows[0].append("goal")
misses = []
for row in rows[1:]:
    what, _, peer, _, ratio = row
    goal = next((g for words, g in GOALS if all(w in f"{what} {peer}" for w in words)), None)
    row.append("" if goal is None else f">= {goal}")
    if goal is not None and float(ratio) < goal:
        misses.append((f"{what}, beside {peer}", ratio, f">= {goal}"))

print("\n".join([
    "# Speed of the statistics", "",
    "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "", "```sh",
    "cmake --build --preset release --target bench_ss", f"bench/ss/page.py \"{machine}\" > docs/performance-statistics.md",
    "```", "",
    f"Machine: {machine}.", "", "Times are nanoseconds of one value, minima of 5 to 9 rounds in which the candidates take turns;",
    "a ratio above 1 means that orvik is faster. \"Reading memory\" is a loop that only loads the same data; the line of two",
    "threads that reads memory tells what the machine gives to any two threads. The peer of two threads is one thread.", "",
    *table.markdown(rows), "", *table.shortfalls(misses), "",
    "Data are read in four streams, a quarter of a block each, which is faster from memory than a plain read of one: the hardware",
    "foresees each of them. Of contiguous observations, running results are loaded and stored once for four rows. Tiles of rows that",
    "keep the results in registers are slower from memory, since the hardware does not foresee their order and prefetch instructions alone",
    "bring a third of the bandwidth.", "",
    "Rows of observations are added up in registers of 512 bits where the processor has them and a row is long (`ss_widths` times",
    "both widths); peers that are compiled here have those of the library's own level, 256 bits.", "",
    "Two threads gain no more from sums of powers from memory than memory gives to two, which is the line of a plain read; the lines",
    "\"in cache\" have data that stay in the caches.", "",
    "The geometric means are of all lines whose peer is another library, and of the fastest library of each.", "",
    "## Memory", "",
    "Beyond the caller's arrays a call of one thread takes: moments, at most 12 rows of p doubles and two of p values (on the frame",
    "up to 4 KiB); covariance, one p by p matrix where no full matrix of the request can be accumulated in place, and 256 KiB for",
    "the block of observations that is centred; quantiles, sort, deviations, n values (weighted median, sorting to columns 2 n). Where observations are added",
    "up in several chunks (from 16,384 values on) rows and matrix twice; each further thread takes these and a block of its own.",
    "Threads by variable take 1 GiB of copies together at most. Stream",
    "quantiles: `StreamMemory` in `tests/qor/ss/stream_quantiles_test.cc` checks the bound 72 log2(4 epsilon n)^2 / epsilon bytes.", "",
    "The lines of cliffs tell for a shape the length up to 1,023 whose call takes longest against any longer one (1 is best); the",
    "figure beside it is the time of a call of one observation.", "",
    "## A long stream", "",
    "`build/release/bin/tour examples/data/airquality.csv` feeds 10^8 (or `TOUR_STREAM_VALUES`) generated values to stream",
    "quantiles with epsilon = 0.001, progress shown."]))

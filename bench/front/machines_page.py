#!/usr/bin/env python3
"""machines_page.py MACHINE: runs build/release/bin/bench_machines; docs/beyond-one-machine.md on standard output."""
import math
import os
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
environment = {**os.environ, "OPENBLAS_NUM_THREADS": "1"}  # one thread in each process, as on a full machine
rows = table.rows(["taskset", "-c", "1", str(root / "build/release/bin/bench_machines")], environment)
second = next(k for k, row in enumerate(rows) if row[0] == "variables")
jumps, summaries = rows[:second], rows[second:]

RANKS = 1024
ROUNDS = int(math.log2(RANKS))
middle = next(row for row in summaries if row[0] == "100")
reduction = ROUNDS * (float(middle[2]) + float(middle[3])) / 1000
sent = int(middle[1]) / 1000
even = 1000 * reduction / (float(middle[3]) / float(middle[4]))  # observations that take as long as the reduction

print("\n".join([
    "# Beyond one machine", "",
    "Generated; the figures are from one run. To repeat it:", "", "```sh",
    "cmake --build --preset release --target bench_machines",
    f"bench/front/machines_page.py \"{machine}\" > docs/beyond-one-machine.md", "```", "",
    "The library starts threads, not processes. What it has for many machines: streams that are parts of one sequence, and",
    "summaries that are small, that travel as bytes, and that merge. [option.cc](../examples/mpi/option.cc) and",
    "[reduction.h](../examples/mpi/reduction.h) put them together with MPI in some seventy lines; a test runs them on 1, 2, 3 and 4 ranks, whose",
    "draws have the same bits and whose moments agree to 13 digits.", "", "```sh",
    "cmake --build --preset release --target example_option && mpirun --oversubscribe -n 4 build/release/bin/example_option", "```", "",
    "## Streams for many", "",
    "- **Parts of one sequence.** Where a distribution takes a fixed number of uniforms a number ([distributions.md](distributions.md)), a rank that",
    "  makes numbers `first` to `last` skips `first` times that many. Nothing in the draws tells how many ranks there were.",
    "- **A part for each piece of work.** Where the number of uniforms varies, give every piece of work, not every rank, a part far",
    "  from the others: piece k of PHILOX4X32X10, ARS5 or MRG32K3A begins k 2^64 numbers on (`orvik_stream_skip_long` with {0, k}). There are 2^66",
    "  such parts of the first two and 2^127 of MRG32K3A; a core that draws a number a nanosecond needs 580 years for one.",
    "- **Members.** Each rank another member of MT2203 or WH, as many as there are; another seed for each as well",
    "  ([streams.md](streams.md)). Results depend on the number of ranks.",
    "- Twisters skip in milliseconds and not beyond 2^64; MCG31M1 and MCG59 are too short to be shared by many. Points (Sobol, Niederreiter) are",
    "  shared by skips, in coordinates.", "", f"One core of: {machine}. A jump from wherever the stream is:", "",
    *table.markdown(jumps), "",
    "## Summaries", "",
    "A merge adds what another summary saw, in double whatever the precision. Its order decides the last digits: reduce in the order of ranks",
    "(an operation that does not commute) and the same ranks give the same bits. For the same bits on any number of ranks cut the work into",
    "pieces that do not depend on it, keep one summary a piece, and merge them in the order of pieces on one rank.", "",
    *table.markdown(summaries), "",
    "The last column: how many observations, fed in blocks of 20,000, take as long as a merge.", "",
    f"How far it carries: a reduction over {RANKS:,} ranks has {ROUNDS} rounds, for 100 variables {reduction:.2g} ms of work and {sent:.3g} KB sent each: as",
    f"long as an update by some {round(even, -int(math.log10(even))):,.0f} observations. The state grows with the square of the variables: at 1,000",
    "of them it has 8 MB, and fewer, larger ranks with threads inside are the better cut.", "",
    "Stream quantiles do not merge: gather the data, or the quantiles of the ranks, on one."]))

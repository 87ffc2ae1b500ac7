#!/usr/bin/env python3
"""page.py MACHINE: runs build/release/bin/bench_streams on one core; docs/performance-streams.md on standard output."""
import os
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
command = ["taskset", "-c", "1", str(root / "build/release/bin/bench_streams"), "0.2"]
rows = table.rows(command)
narrow = {what: ours for what, ours, *_ in table.rows(command, {**os.environ, "ORVIK_REGISTERS": "256"})[1:]}


def widths():
    """Requests of 100 numbers and more in registers of 512 bits, where the process has such, beside those of 256."""
    lines = []
    for what, ours, *_ in rows[1:]:
        name, per = what.split(", beside")[0], 1
        if name.split(",")[0] == "TRNG" or "dimensions" in name:
            continue
        if "a call for 100 of the" in name:
            name, per = f"{name.split(',')[0]}, {name.split()[-1]}, n = 100", 100
        elif "n = 1000" not in name:
            continue
        lines.append([name, f"{float(narrow[what]) / per:.3f}", f"{float(ours) / per:.3f}",
                      f"{float(narrow[what]) / float(ours):.2f}"])
    return table.markdown([["what", "256 bits, ns", "512 bits, ns", "256 / 512"], *lines])


def short_calls():
    """A line for each generator and form, a column for each length."""
    calls = {}
    for what, ours, *_ in rows[1:]:
        generator, _, call = what.partition(", a call for ")
        if call:
            calls.setdefault((generator, call.split()[-1]), []).append(ours)
    return table.markdown([["ns a call", "n = 1", "n = 3", "n = 4", "n = 16", "n = 31", "n = 100", "n = 255"],
                           *([f"{generator}, {form}", *times] for (generator, form), times in calls.items())])


def long_rows():
    return [rows[0], *(row for row in rows[1:] if ", a call for " not in row[0] or ", a call for one" in row[0])]


NANOSECONDS = {"ns": 1, "ms": 1e6}
misses = []
for what, ours, _, ratio, goal in rows[1:]:
    if goal.startswith(">="):
        missed, value = float(ratio) < float(goal[2:]), ratio
    elif goal.startswith("<"):
        number, unit = goal.lstrip("<= ").split()
        missed, value = float(ours) > float(number) * NANOSECONDS[unit], f"{ours} ns"
    else:
        continue
    if missed:
        misses.append((what, value, goal))

print("\n".join([
    "# Speed of the streams", "", "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:",
    "", "```sh", "cmake --build --preset release --target bench_streams",
    f"bench/qor/page.py \"{machine}\" > docs/performance-streams.md", "```", "",
    f"Machine: {machine}.", "",
    "One core. Each comparison is timed in turns, ours and every peer that has the form; the fastest peer stands in the table.",
    "Times are the least of many turns, per number (or per call, in the lines that say so), in nanoseconds. The last column is",
    "the goal for the column before it, or for the time where there is no peer. Points have ten dimensions.", "",
    *table.markdown(long_rows()), "", *table.shortfalls(misses), "",
    "Short calls:", "",
    *short_calls(), "",
    "Registers of 512 bits, from a second run with `ORVIK_REGISTERS=256` (one column of times where the processor has none):", "",
    *widths(), "",
    "What limits them:", "",
    "- A 59-bit product of MCG59 takes seven operations to become a double, rounded once; to become a float, which is rounded",
    "  by way of the double, it takes four more. Making it takes four.",
    "- Doubles of the twisters are quicker where 2^20 lengths of the interval come off its origin without rounding, as from 0.",
    "- PHILOX4X32X10 is twenty multiplications a block, ARS5 five AES instructions: both run at what the processor does of them.",
    "  Ten rounds in a row take some 27 ns, which a call for up to sixteen numbers waits for.",
    "- SFMT19937 is one chain of dependent 128-bit blocks: what does not wait for the last two is made a register at a time,",
    "  so that words are as quick as the chain at either width and conversions gain.",
    "- MRG32K3A and WH take exact remainders of each product; requests below 64 numbers of MRG32K3A go step by step.",
    "- Short requests of points pay for the pattern of sixteen points that long ones repeat."]))

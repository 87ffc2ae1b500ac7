#!/usr/bin/env python3
"""page.py MACHINE: runs build/release/bin/bench_streams on one core; docs/performance-streams.md on standard output."""
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
rows = table.rows(["taskset", "-c", "1", str(root / "build/release/bin/bench_streams")])

NANOSECONDS = {"ns": 1, "ms": 1e6}
misses = []
for what, ours, _, ratio, goal in rows[1:]:
    if goal.startswith(">="):
        missed, value = float(ratio) < float(goal[2:]), ratio
    elif goal.startswith("<"):
        number, unit = goal.lstrip("<= ").split()
        missed, value = float(ours) > float(number) * NANOSECONDS[unit], f"{ours} ns"
    else:
        continue  # "near 1" is told below
    if missed:
        misses.append((what, value, goal))

near = {}
for what, _, _, ratio, goal in rows[1:]:
    if goal == "near 1":
        name, form = what.split(", ")[:2]
        near.setdefault(name, {})[form] = ratio

print("\n".join([
    "# Speed of the streams", "", "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:",
    "", "```sh", "cmake --build --preset release --target bench_streams",
    f"bench/qor/page.py \"{machine}\" > docs/performance-streams.md", "```", "",
    f"Machine: {machine}.", "", "One core, the fastest of five runs of each line. Times are per number (or per call, in the lines that",
    "say so), in nanoseconds; peers were measured in the same run. The last column is the goal for the column before it, or",
    "for the time where there is no peer.", "", *table.markdown(rows), "", *table.shortfalls(misses), "",
    "What limits them:", "",
    "- A 59-bit product of MCG59 takes seven operations to become a double, rounded once; to become a float, which is rounded",
    "  by way of the double, it takes four more. Making it takes four.",
    "- Doubles of the twisters are quicker where 2^20 lengths of the interval come off its origin without rounding, as from 0.",
    "- Long requests cost what short ones do: making a number takes longer than storing it. Speed of `memset` over the same bytes",
    "  to ours, at n = 10^7:", "",
    "| generator | floats | doubles |", "|---|---|---|",
    *(f"| {name} | {t['floats']} | {t['doubles']} |" for name, t in near.items())]))

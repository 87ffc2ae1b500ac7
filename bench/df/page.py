#!/usr/bin/env python3
"""page.py MACHINE: runs build/release/bin/fitting_bench; docs/performance-fitting.md on standard output."""
import math
import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(root / "bench/support"))
import table  # noqa: E402

machine = sys.argv[1]
bench = str(root / "build/release/bin/fitting_bench")
options = ["--benchmark_repetitions=8", "--benchmark_min_time=0.01", "--benchmark_enable_random_interleaving=true"]
rows = table.rows(["taskset", "-c", "1", bench, *options, "--benchmark_filter=-two threads"])
rows += table.rows([bench, *options, "--benchmark_filter=two threads"])[1:]

# The least ratio (peer / ours) of a row, by how its name begins and by the peer; the first line that fits. Then the most
# nanoseconds of a row without a peer.
RATIOS = [("construct natural nx=100000", "GSL", 3), ("search random", "std::upper_bound", 8),
          ("search random", "branch-free", 2), ("cubic, random", "GSL", 8), ("cubic, sorted", "GSL", 4),
          ("integrate, random limits nx=1000", "GSL", 10), ("integrate, random limits nx=100000", "GSL", 100),
          ("cubic, 10^7 sites", "one thread", 1.8), ("construct akima", "Boost", 2), ("construct hyman", "Boost", 2),
          ("", "", 1)]
TIMES = [("cubic, uniform partition, 10^4 sites nx=1000", 1), ("one site", 30)]
GROUPS = ["search", "construct", "cubic", "floats", "integrate"]

misses, logs = [], {}
# The longest beginning first, so that nx=100000 is not taken for nx=1000.
fits = sorted(RATIOS, key=lambda goal: -len(goal[0]))
for what, ours, peer, _, ratio in rows[1:]:
    if not peer:
        misses += [(what, f"{ours} ns", f"{most} ns") for name, most in TIMES
                   if what.startswith(name) and float(ours) > most]
        continue
    goal = next(least for name, who, least in fits if what.startswith(name) and peer.startswith(who))
    if float(ratio) < goal:
        misses.append((f"{what}, {peer}", ratio, f">= {goal}"))
    group = next(g for g in GROUPS if what.startswith(g))
    if "thread" not in peer:
        logs.setdefault({"cubic": "interpolation", "floats": "interpolation"}.get(group, group), []).append(
            math.log(float(ratio)))

mean = {group: math.exp(sum(each) / len(each)) for group, each in logs.items()}
overall = math.exp(sum(sum(each) for each in logs.values()) / sum(len(each) for each in logs.values()))
if overall < 2.5:
    misses.append(("geometric mean of all rows with a peer", f"{overall:.2f}", ">= 2.5"))

print("\n".join([
    "# Performance of data fitting", "",
    "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "", "```sh",
    "cmake --build --preset release --target fitting_bench",
    f"bench/df/page.py \"{machine}\" > docs/performance-fitting.md", "```", "", f"Machine: {machine}.", "",
    "Nanoseconds of processor time per breakpoint, site or pair of limits, least of eight interleaved repetitions; double",
    "precision where a line does not say floats. Peers ran in the same process. The line of two threads shows real time.", "",
    *table.markdown(rows), "", f"Geometric mean of the ratios: {overall:.1f}; " +
    ", ".join(f"{group} {value:.1f}" for group, value in sorted(mean.items())) + ".", "", *table.shortfalls(misses), "",
    "Boost.Math's figures include the copies of the vectors that its constructors take over (\"copy two vectors\" is the",
    "cost of two); it stores slopes, ours four coefficients an interval. GSL's `gsl_spline_eval_integ` passes every interval",
    "between the limits. The formula beside the uniform search is held inside 0 .. nx, but does not tell the ends.", "",
    "What limits them:", "",
    "- Search by buckets: the brackets of 128 sites are made equally wide, halved together where they are wide, and then",
    "  counted with vector comparisons that wait for nothing and take no branch.",
    "- Sorted sites: 64 are looked at together. Where they pass few breakpoints, whole vectors are passed over; where they pass",
    "  some, eight are counted against the next 3, 8 or 16; where they pass many, they are sought like those of a bucket.",
    "  A scan of the same few hundred sites again and again, whose branches the processor has learnt, can be faster.",
    "- Results: interval, local coordinate and coefficients stay in registers, and all derivatives come from one load of the",
    "  coefficients. Rows are loaded whole and transposed, not gathered by element. Registers of 512 bits (cubics of doubles on",
    "  even partitions, in runs, at pieces found before; lines on even partitions) halve the arithmetic and the stores, not the",
    "  shuffles; `ORVIK_REGISTERS=256` shows the narrow ones.",
    "- Integrals: a pair of limits costs two searches, two pieces and at most four sums of whole pieces, which are made once a",
    "  call.",
    "- Local kinds: slopes, derivatives and coefficients advance in one loop, so that divisions run beside stores.",
    "- Coefficient rows that do not cross cache lines are a little cheaper: align the array to 32 bytes where you can. The",
    "  benchmark takes what `std::vector` gives."]))

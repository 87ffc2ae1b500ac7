#!/usr/bin/env python3
"""page.py CSV MACHINE: docs/performance-vector.md from what `zym_bench --csv CSV` wrote, on standard output."""
import csv
import math
import sys
from collections import defaultdict

LIMIT = {"LA": "4 ulp", "HA": "1 ulp", "EP": "any"}
rows = list(csv.DictReader(open(sys.argv[1])))
machine = sys.argv[2]


def pick(section):
    return [r for r in rows if r["section"] == section]


out = ["# Speed of the vector functions", "",
       "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "", "```",
       "cmake --build --preset release --target zym_bench", "taskset -c 1 build/release/bin/zym_bench --csv zym.csv",
       f"bench/zym/page.py zym.csv \"{machine}\" > docs/performance-vector.md", "```", "",
       f"Machine: {machine}. Nanoseconds, fastest of many interleaved turns; a ratio is peer over ours, so that above 1 ours",
       "is faster. The rival of a level is the fastest peer that is at least as accurate (HA: 1 ulp; LA: 4 ulp; EP: any)",
       "among SLEEF, the C library's vector functions, Eigen, and loops over operators and the C library.", "",
       "## In cache, unit stride", "",
       "| row | kernel | n = 100 | n = 1,000 | n = 100,000 | rival at 1,000 | ratio at 100 | 1,000 | 100,000 |",
       "|---|---|---|---|---|---|---|---|---|"]
ours = {(r["row"], r["level"], r["n"]): float(r["ns"]) for r in pick("rows") if r["what"] == "ours"}
rival = {(r["row"], r["level"], r["n"]): (r["what"], float(r["ns"]), float(r["ratio"])) for r in pick("summary")}
for row, level in dict.fromkeys((k[0], k[1]) for k in ours):
    sizes = ("100", "1000", "100000")
    times = " | ".join(f"{ours[row, level, n]:.3f}" if (row, level, n) in ours else "" for n in sizes)
    name, ns, _ = rival.get((row, level, "1000"), ("none", 0, 0))
    ratios = " | ".join(f"{rival[row, level, n][2]:.2f}" if (row, level, n) in rival else "" for n in sizes)
    out.append(f"| `{row}` | {level} | {times} | {name} {ns:.3f} | {ratios} |" if ns else
               f"| `{row}` | {level} | {times} | none | {ratios} |")

overhead = defaultdict(dict)
for r in pick("overhead"):
    overhead[r["row"], r["level"]][r["n"], r["strided"]] = float(r["ns"])
if overhead:
    out += ["", "## A call, ns above a plain function call", "",
            "| row | kernel | n = 1 | strided | n = 16 | strided |", "|---|---|---|---|---|---|"]
    out += [f"| `{row}` | {level} | " + " | ".join(f"{t[k]:.1f}" for k in (("1", "0"), ("1", "1"), ("16", "0"), ("16", "1"))) +
            " |" for (row, level), t in overhead.items()]

memory = defaultdict(dict)
for r in pick("memory"):
    memory[r["row"]][r["what"]] = (float(r["ns"]), float(r["ratio"]))
if memory:
    out += ["", "## Ten million elements", "", "Traffic: every input read once, every result written once; memcpy moves as many bytes.",
            "", "| row | ns per element | memcpy, same traffic | memcpy/ours | loop/ours |", "|---|---|---|---|---|"]
    for row, t in memory.items():
        loop = f"{t['loop'][1]:.2f}" if "loop" in t else ""
        out.append(f"| `{row}` | {t['ours'][0]:.3f} | {t['memcpy'][0]:.3f} | {t['memcpy'][1]:.2f} | {loop} |")

special = defaultdict(dict)
for r in pick("special"):
    special[r["row"], r["level"]][r["what"]] = float(r["ratio"])
if special:
    kinds = ["nan", "inf", "denormal", "-1e30"]
    out += ["", "## One special element in a hundred", "", "Time over that of a plain array, n = 1,000, errors off.", "",
            "| row | kernel | " + " | ".join(kinds) + " |", "|---|---|" + "---|" * len(kinds)]
    out += [f"| `{row}` | {level} | " + " | ".join(f"{t[k]:.2f}" for k in kinds) + " |" for (row, level), t in special.items()]
print("\n".join(out))

#!/usr/bin/env python3
"""page.py CSV NARROW MACHINE [NAME]: docs/performance-vector.md, or docs/NAME.md of another machine, on standard output, from what `zym_bench --csv CSV` wrote and, of the same
program with ORVIK_REGISTERS=256, NARROW."""
import csv
import math
import sys
from collections import defaultdict

LIMIT = {"LA": "4 ulp", "HA": "1 ulp", "EP": "any"}
rows = list(csv.DictReader(open(sys.argv[1])))
narrow = {(r["row"], r["level"]): float(r["ns"]) for r in csv.DictReader(open(sys.argv[2]))
          if r["section"] == "rows" and r["what"] == "ours" and r["n"] == "1000"}
machine = sys.argv[3]
name = sys.argv[4] if len(sys.argv) > 4 else "performance-vector"


def pick(section):
    return [r for r in rows if r["section"] == section]


out = ["# Speed of the vector functions", "",
       "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "", "```",
       "cmake --build --preset release --target zym_bench", "taskset -c 1 build/release/bin/zym_bench --csv zym.csv",
       "ORVIK_REGISTERS=256 taskset -c 1 build/release/bin/zym_bench --csv narrow.csv",
       f"bench/zym/page.py zym.csv narrow.csv \"{machine}\"{' ' + name if len(sys.argv) > 4 else ''} > docs/{name}.md", "```", "",
       f"Machine: {machine}. Nanoseconds, fastest of many interleaved turns; a ratio is peer over ours, so that above 1 ours",
       "is faster. The rival of a level is the fastest peer that is at least as accurate (HA: 1 ulp; LA: 4 ulp; EP: any)",
       "among SLEEF, the C library's vector functions, Eigen, NumPy, and loops over operators and the C library, in registers of",
       "512 bits where the processor has them and the peer a variant for them. Our time of 256 bits is of the second run.", ""]
ours = {(r["row"], r["level"], r["n"]): float(r["ns"]) for r in pick("rows") if r["what"] == "ours"}
rival = {(r["row"], r["level"], r["n"]): (r["what"], float(r["ns"]), float(r["ratio"])) for r in pick("summary")}


def mean(ratios):
    return math.exp(sum(map(math.log, ratios)) / len(ratios))


out += ["Geometric means at n = 1,000:", "", "| level | rivals | rows | ratio | least | 256 bits / 512 bits |", "|---|---|---|---|---|---|"]
for level in LIMIT:
    for what, keep in (("all", ""), ("of 512 bits", "512")):
        some = {k[0]: v[2] for k, v in rival.items() if k[1] == level and k[2] == "1000" and keep in v[0]}
        if some:
            least = min(some, key=some.get)
            # A level that shares its kernel with another one has no line of its own.
            widths = [narrow[row, level] / ours[row, level, "1000"] for row in some if (row, level) in narrow]
            out.append(f"| {level} | {what} | {len(some)} | {mean(some.values()):.2f} | {some[least]:.2f} `{least}` | {f'{mean(widths):.2f}' if widths else ''} |")
beside = [r for r in pick("beside") if r["what"] in ("numpy", "numpy 512")]
if beside:
    about = next(r["what"] for r in pick("about"))
    out += ["", "## Beside NumPy", "",
            f"{about}: its ufuncs with the output given, called through CPython's C API without an interpreter's loop around them. All functions",
            "that both have, whatever the accuracy of NumPy's (4 ulp where it has vector loops); and those of which it has loops of 512 bits.", "",
            "| level | NumPy's loops | n | rows | geometric mean | least | next | rows below 1 |", "|---|---|---|---|---|---|---|---|"]
    for level in ("LA", "HA"):
        for what, keep in (("all", ""), ("of 512 bits", "512")):
            for n in ("1000", "10000", "100000"):
                some = {r["row"]: float(r["ratio"]) for r in beside if r["level"] == level and r["n"] == n and keep in r["what"]}
                if some:
                    least = " | ".join(f"{some[row]:.2f} `{row}`" for row in sorted(some, key=some.get)[:2])
                    out.append(f"| {level} | {what} | {int(n):,} | {len(some)} | {mean(some.values()):.2f} | {least} | "
                               f"{sum(x < 1 for x in some.values())} |")
out += ["", "## In cache, unit stride", "",
        "| row | kernel | n = 100 | n = 1,000 | n = 100,000 | 256 bits, 1,000 | rival at 1,000 | ratio at 100 | 1,000 | 100,000 |",
        "|---|---|---|---|---|---|---|---|---|---|"]
for row, level in dict.fromkeys((k[0], k[1]) for k in ours):
    sizes = ("100", "1000", "100000")
    times = " | ".join(f"{ours[row, level, n]:.3f}" if (row, level, n) in ours else "" for n in sizes)
    times += f" | {narrow[row, level]:.3f}" if (row, level) in narrow else " | "
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

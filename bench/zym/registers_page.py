#!/usr/bin/env python3
"""registers_page.py CSV MACHINE: docs/performance-registers.md from what `zym_widths` printed, on standard output.
registers_page.py --halves CSV MACHINE: docs/performance-registers-halves.md, the same of a processor that takes wide registers in halves.
registers_page.py --narrow CSV...: the marks `narrow` that rows.def should have by these runs, a line for each row whose mark would change.
registers_page.py --whole CSV...: the marks `whole`, by runs on a processor that takes wide registers in halves."""
import argparse
import csv
import math
import sys
from collections import defaultdict
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "rows"))
import rows as rows_tool  # noqa: E402

LENGTHS = ("1", "16", "1000", "10000")
# A wide kernel earns its place by gaining something over the longer lengths and losing nothing at any of them, whatever the arrays' place;
# what a run differs from the next by does not tell.
GAIN, NO_SLOWER = 1.03, 0.98
# Where wide registers go in halves many gain nothing and lose nothing; one that loses is marked.
GAIN_OF_HALVES, NO_SLOWER_BY_HALVES = 1.0, 0.97
# An element takes so much longer of 10,000 than of 1,000 where memory sets the pace, of wide registers and narrow ones alike.
MEMORY = 1.25


def read(path):
    """Ratio narrow/wide by kernel, length and place; times of the scalar loop; families; time of the wide kernel as the ratios."""
    ratios, loops, families, times = defaultdict(dict), {}, {}, defaultdict(dict)
    for r in csv.DictReader(open(path, encoding="ascii")):
        if r["row"].startswith("scalar loop"):
            loops[r["row"]] = (float(r["narrow"]), float(r["wide"]))
        else:
            ratios[r["row"], r["level"]][r["n"], r["beyond"]] = float(r["narrow"]) / float(r["wide"])
            families[r["row"], r["level"]] = r["family"]
            times[r["row"], r["level"]][r["n"], r["beyond"]] = float(r["wide"])
    return ratios, loops, families, times


def marked_wide(halves):
    """Kernels that are wide on processors of either kind."""
    return {(rows_tool.row_name(row), level) for row in rows_tool.unit_rows() for level in row.wide
            if not (halves and level in row.whole)}


def mean(values):
    return math.exp(sum(map(math.log, values)) / len(values))


def long_ratios(of_kernel):
    return [ratio for (n, _), ratio in of_kernel.items() if int(n) >= 1000]


def marks(row, levels_by_mark):
    """As rows.def has them."""
    out = []
    for mark in ("narrow", "whole"):
        levels = levels_by_mark.get(mark, set())
        if levels:
            out.append(mark if levels == set(rows_tool.LEVELS[row.sharing]) else "_".join([mark, *sorted(levels)]))
    return ", ".join(out) or "none"


def propose_narrow(paths):
    found = defaultdict(list)
    for path in paths:
        for kernel, of_kernel in read(path)[0].items():
            found[kernel] += long_ratios(of_kernel)
    for row in rows_tool.unit_rows():
        name = rows_tool.row_name(row)
        known = {level for level in ("LA", "HA", "EP") if (name, level) in found}
        now = {level for level in known if level not in row.wide}
        want = {level for level in known if min(found[name, level]) < NO_SLOWER or mean(found[name, level]) < GAIN}
        if want != now:
            figures = " ".join(f"{level} {mean(found[name, level]):.2f} least {min(found[name, level]):.2f}" for level in sorted(known))
            print(name, marks(row, {"narrow": want}), figures)


def propose_whole(paths):
    found = defaultdict(lambda: defaultdict(list))
    for path in paths:
        for kernel, of_kernel in read(path)[0].items():
            for at, ratio in of_kernel.items():
                if int(at[0]) >= 1000:
                    found[kernel][at].append(ratio)
    for row in rows_tool.unit_rows():
        name, want, figures = rows_tool.row_name(row), set(), []
        for level in row.wide:
            means = [mean(ratios) for ratios in found[name, level].values()]
            if means:
                want |= {level} if min(means) < NO_SLOWER_BY_HALVES or mean(means) < GAIN_OF_HALVES else set()
                figures.append(f"{level} {mean(means):.2f} least {min(means):.2f}")
        if want != set(row.whole):
            print(name, marks(row, {"whole": want}), "; ".join(figures))


def page(path, machine, halves):
    ratios, loops, families, times = read(path)
    wide = marked_wide(halves)
    option, name = ("--halves ", "performance-registers-halves") if halves else ("", "performance-registers")
    folder = "build/release" if halves else "build/both"
    build = [f"cmake --preset release{'' if halves else ' -B build/both -DORVIK_WIDE_ALL=ON'} && cmake --build {folder} --target zym_widths",
             f"taskset -c 1 {folder}/bin/zym_widths > widths.csv"]
    kind = (["The processor takes registers of 512 bits through its units of arithmetic in two halves, so that the gain is in fewer instructions,",
             "permutations of more numbers and more registers. [performance-registers.md](performance-registers.md) is of one that takes them whole.", ""]
            if halves else
            ["[performance-registers-halves.md](performance-registers-halves.md) is of a processor that takes these registers in two halves.", ""])
    out = ["# Registers of 512 bits" + (" taken in halves" if halves else ""), "",
           "Generated from one run; do not edit. The vector functions have kernels for registers of 512 bits beside those of 256, with the same",
           "results; [architecture.md](architecture.md) says how. `zym_widths` times both side by side, each kernel's fastest turn of some ten",
           "microseconds, arguments from the functions' domains. To repeat it" + ("" if halves else ", with the kernels that stay narrow in rows.def among them") + ":", "",
           "```", *build, f"bench/zym/registers_page.py {option}widths.csv \"{machine}\" > docs/{name}.md", "```", "",
           f"Machine: {machine}.", "", *kind,
           "Ratio of the time of the narrow kernel to that of the wide one, in geometric mean over the kernels that are wide, and the least of one,",
           "of arrays at multiples of 64 bytes and (+16) behind them by 16 bytes, as `malloc` gives long ones:", "",
           "| family | kernels | n = 1 | n = 16 | n = 1,000 | least | +16 | least | n = 10,000 | least | +16 | least |",
           "|---|---|---|---|---|---|---|---|---|---|---|---|"]
    groups = defaultdict(list)
    for kernel in ratios:
        if kernel in wide:
            groups["all"].append(kernel)
            groups[families[kernel]].append(kernel)
            of_memory = times[kernel]["10000", "0"] > MEMORY * times[kernel]["1000", "0"]
            groups["limited by memory at 10,000" if of_memory else "not limited by memory"].append(kernel)
    first = ["all", "not limited by memory", "limited by memory at 10,000"]
    for family in [group for group in first if group in groups] + sorted(set(groups) - set(first)):
        cells = []
        for key in (("1", "0"), ("16", "0"), ("1000", "0"), ("1000", "16"), ("10000", "0"), ("10000", "16")):
            some = [ratios[kernel][key] for kernel in groups[family]]
            cells.append(f"{mean(some):.2f}")
            if int(key[0]) >= 1000:
                cells.append(f"{min(some):.2f}")
        out.append(f"| {family} | {len(groups[family])} | {' | '.join(cells)} |")
    out += ["", f"Limited by memory: an element of 10,000 takes more than {MEMORY:.2f} times what it takes of 1,000, at whose pace registers no longer count.", "",
            "Calls of less than a block (32 floats, 16 doubles; strided ones of 32 elements or fewer) are the narrow kernel's, after one comparison.",
            "", "## Neighbours", "", "A chain of dependent scalar additions and products, 40,000 of each, behind one call of 64 elements, microseconds:", "",
            "| behind one call of | narrow | wide | narrow/wide |", "|---|---|---|---|"]
    out += [f"| `{name.split()[-1]}` LA | {a / 1000:.1f} | {b / 1000:.1f} | {a / b:.3f} |" for name, (a, b) in loops.items()]
    narrow = [kernel for kernel in ratios if kernel not in wide]
    out += ["", "## What stays narrow", "",
            "`narrow` in `src/zym/frame/rows.def`, by `registers_page.py --narrow` over several runs: a kernel whose wide form gained less than",
            f"{100 * (GAIN - 1):.0f}% over n = 1,000 and 10,000, aligned or not, or lost more than {100 * (1 - NO_SLOWER):.0f}% at one of them, on a processor that takes the",
            "registers whole. `whole`, by `registers_page.py --whole` over several runs on a processor that takes them in halves: one whose wide form was",
            f"slower there on the whole, or by more than {100 * (1 - NO_SLOWER_BY_HALVES):.0f}% at one length; it stays narrow on such processors. Reasons:", "",
            "- **Memory.** A 64-byte load crosses a cache line wherever the array is not aligned to 64 bytes, a 32-byte one every other time. (Long",
            "  calls align their stores.) Rows that take many loads and few steps lose by it at n = 10,000, whatever they gain at 1,000.",
            "- **Division and root instructions** give as many elements in a unit of time at either width. Kernels that wait for them",
            "  divide, or take the root, of one vector of two by fused steps, with the same bits (`src/lanes/quotients.h`); units of 256 bits",
            "  make no faster steps.",
            "- **Tables in memory.** The instruction that gathers eight numbers takes units of 256 bits more than twice the time of loads.", "",
            "| row | kernel | n = 1,000 | +16 | n = 10,000 | +16 |", "|---|---|---|---|---|---|"]
    for row, level in narrow:
        of_kernel = ratios[row, level]
        cells = " | ".join(f"{of_kernel[key]:.2f}" for key in (("1000", "0"), ("1000", "16"), ("10000", "0"), ("10000", "16")))
        out.append(f"| `{row}` | {level} | {cells} |")
    print("\n".join(out))


parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
what = parser.add_mutually_exclusive_group()
for option in ("narrow", "whole", "halves"):
    what.add_argument("--" + option, action="store_true")
parser.add_argument("csv", nargs="+")
arguments = parser.parse_args()
if arguments.narrow:
    propose_narrow(arguments.csv)
elif arguments.whole:
    propose_whole(arguments.csv)
else:
    page(*arguments.csv, arguments.halves)

#!/usr/bin/env python3
"""page.py MACHINE [--name NAME] [--only NAME,...] [--sections NAME,...]: measures the Python package beside NumPy and SciPy and writes
docs/performance-python.md, or docs/NAME.md of another machine, on standard output. Run it with the Python that the package was built for."""
import argparse
import math
import pathlib
import statistics
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[1:1] = [str(ROOT / "build/release/python"), str(ROOT / "tests/python"), str(ROOT / "bench/support")]

import measure  # noqa: E402
import table  # noqa: E402

# A section is a module here with TITLE, NOTE, cases(only), GOALS by (group, label), LEAST by the same, and maybe SHORT, PLOT.
SECTIONS = ["ufuncs", "classes", "calls"]
SIZE_NAMES = {100: "100", 10_000: "10^4", 100_000: "10^5", 1_000_000: "10^6"}


def size_name(n):
    return SIZE_NAMES.get(n, str(n))


def rows_of(timed):
    """A row for each name: for each length the peer's time and our ratios."""
    labels = list(timed[0].ours)
    sizes = sorted({t.case.n for t in timed})
    yield ["what", "peer"] + [f"n = {size_name(n)}: {what}" for n in sizes for what in ["peer, ns"] + labels]
    by_name = {}
    for t in timed:
        by_name.setdefault((t.case.name, t.case.peer), {})[t.case.n] = t
    for (name, peer), of_size in by_name.items():
        cells = [name, peer]
        for n in sizes:
            t = of_size.get(n)
            cells += [f"{t.theirs:.3g}"] + [f"{t.theirs / t.ours[label]:.2f}" for label in labels] if t else [""] * (1 + len(labels))
        yield cells


def summary_of(section, timed):
    """Geometric means by group and length, and what misses its goal."""
    short = getattr(section, "SHORT", None)
    out, misses = [["group", "level", "n", "rows", "geometric mean", "least", "goal"]], []
    groups = sorted({(t.case.group, label, t.case.n) for t in timed for label in t.ours})
    for group, label, n in groups:
        ratios = {t.case.name: t.theirs / t.ours[label] for t in timed if (t.case.group, t.case.n) == (group, n) and label in t.ours}
        mean = math.exp(statistics.fmean(math.log(r) for r in ratios.values()))
        worst = min(ratios, key=ratios.get)
        goal = 1.0 if n == short else section.GOALS.get((group, label))
        out.append([group, label, size_name(n), str(len(ratios)), f"{mean:.2f}", f"{ratios[worst]:.2f} ({worst})",
                    "" if goal is None else f">= {goal}"])
        if goal is not None and mean < goal:
            misses.append((f"geometric mean, {group}, {label}, n = {size_name(n)}", f"{mean:.2f}", f">= {goal}"))
        least = 1.0 if n == short else section.LEAST.get((group, label))
        misses += [(f"{name}, {label}, n = {size_name(n)}", f"{r:.2f}", f">= {least}") for name, r in ratios.items()
                   if least is not None and r < least]
    return out, misses


def plot_of(section):
    """What tools/plots/plots.py draws of a section."""
    return [f"![{section.PLOT[1]}]({section.PLOT[0]})", ""] if hasattr(section, "PLOT") else []


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("machine")
    parser.add_argument("--name", default="performance-python")
    parser.add_argument("--only", type=lambda s: s.split(","))
    parser.add_argument("--sections", type=lambda s: s.split(","), default=SECTIONS)
    options = parser.parse_args()
    drawn = options.name == parser.get_default("name")
    import numpy
    import scipy
    print("\n".join([
        "# Speed of the Python package", "", "Generated from one run; do not edit. To repeat it, on a machine that does nothing else:", "",
        "```sh", "cmake --build --preset release --target orvik_python",
        f"/usr/bin/python3 bench/python/page.py \"{options.machine}\"{'' if drawn else ' --name ' + options.name} > docs/{options.name}.md",
        *(["tools/plots/plots.py python"] if drawn else []), "```", "",
        f"Machine: {options.machine}. NumPy {numpy.__version__}, SciPy {scipy.__version__}.", "",
        "Times are nanoseconds of one value, the call included, minima of rounds in which the candidates take turns. Other figures are",
        "ratios to the peer: above 1 orvik is faster."]))
    for name in options.sections:
        section = __import__(name)
        timed = []
        for case in section.cases(options.only):
            timed.append(measure.measure(case))
            print(case.name, case.n, f"{timed[-1].theirs:.3g}", {k: round(timed[-1].theirs / v, 2) for k, v in timed[-1].ours.items()},
                  file=sys.stderr)
        summary, misses = summary_of(section, timed)
        print("\n".join(["", f"## {section.TITLE}", "", section.NOTE, "", *(plot_of(section) if drawn else []), *table.markdown(summary), "", *table.shortfalls(misses), "",
                         *table.markdown(list(rows_of(timed)))]))


if __name__ == "__main__":
    main()

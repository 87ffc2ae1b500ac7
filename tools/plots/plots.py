#!/usr/bin/env python3
"""The plots of the pages, docs/plots/*.svg, with gnuplot, from what is built.

    tools/plots/plots.py [--build FOLDER] [--out FOLDER] [PLOT ...]

Without names all of them:

    errors       error against input of four rows at their levels, measured here
    speed        time per element against the length, beside peers: runs zym_bench, wants a machine that does nothing else
    generators   speed of the generators, the figures of docs/performance-streams.md
    python       ufuncs beside NumPy's and SciPy's, the figures of docs/performance-python.md
    spline       one set of points, three kinds of ends, and what lies beyond them

--build: default build/release. Before: cmake --build --preset release --target orvik_kernel zym_bench"""

import argparse
import array
import csv
import ctypes
import decimal
import math
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
COLOURS = ["#c2410c", "#0f766e", "#4338ca", "#a16207", "#be185d", "#0369a1", "#57534e"]
HEAD = """set terminal svg size {width},{height} font "sans-serif,13" background "#ffffff"
set output "{out}"
set border 3 linecolor "#57534e"
set tics nomirror textcolor "#292524"
set grid linecolor "#e7e5e4" linetype 1 linewidth 0.5
set key textcolor "#292524"
"""
DIGITS = 40  # of references to doubles


class Plotter:
    def __init__(self, build, out, scratch):
        self.build, self.out, self.scratch = pathlib.Path(build), pathlib.Path(out), pathlib.Path(scratch)

    def load_library(self):
        return ctypes.CDLL(str(self.build / "lib" / "liborvik_kernel.so"))

    def data(self, name, rows):
        """A file of numbers; None is a gap."""
        path = self.scratch / f"{name}.dat"
        path.write_text("".join("\n" if row is None else " ".join(f"{x:.9g}" for x in row) + "\n" for row in rows), encoding="utf-8")
        return path

    def draw(self, name, commands, width=900, height=480):
        script = HEAD.format(width=width, height=height, out=self.out / f"{name}.svg") + commands
        done = subprocess.run(["gnuplot"], input=script, text=True, check=False, capture_output=True)
        if done.returncode != 0 or done.stderr:
            sys.exit(f"gnuplot on {name}:\n{done.stderr}{script}")
        print(self.out / f"{name}.svg")


# ---- Errors ---------------------------------------------------------------------------------------------------------


def exact_ln(x):
    return decimal.Decimal(x).ln()


# Row, its entries by level, element, where inputs lie, what it should be: float results are judged by the C library's doubles,
# whose own error is a billionth of a float's ulp; double results by decimals.
ERROR_ROWS = [
    ("sExp", ("", "_21", "_11"), "f", (-20, 20), math.exp),
    ("sSin", ("", "_21", "_11"), "f", (-20, 20), math.sin),
    ("sErf", ("", "_21", "_11"), "f", (-4, 4), math.erf),
    ("dLn", ("", "_50", "_26"), "d", (0.05, 8), exact_ln),
]
LEVELS = ("HA", "LA", "EP")
BOUND = {"HA": 1, "LA": 4}  # ulp
BINS, PER_BIN = 180, 120


def ulp(element, wanted):
    """The distance of the floats or doubles next to a number."""
    bits, least = (24, -149) if element == "f" else (53, -1074)
    return 2.0 ** max(math.frexp(wanted)[1] - bits, least)


def largest_errors(function, element, low, high, wanted):
    """The largest error in ulp of each of the BINS parts of the interval."""
    number = random.Random(7)
    real = ctypes.c_float if element == "f" else ctypes.c_double
    inputs = array.array(element)
    for part in range(BINS):
        inputs.extend(low + (high - low) * (part + number.random()) / BINS for _ in range(PER_BIN))
    count = len(inputs)
    a, r = (real * count)(*inputs), (real * count)()
    function(ctypes.c_int32(count), a, r)
    worst = [0.0] * BINS
    for i in range(count):
        true = wanted(a[i])
        if float(true) != 0:
            error = abs(float(decimal.Decimal(r[i]) - decimal.Decimal(true))) / ulp(element, float(true))
            worst[i // PER_BIN] = max(worst[i // PER_BIN], error)
    return [(low + (high - low) * (part + 0.5) / BINS, error) for part, error in enumerate(worst)]


def errors(plotter):
    decimal.getcontext().prec = DIGITS
    library = plotter.load_library()
    panels = []
    for row, suffixes, element, (low, high), wanted in ERROR_ROWS:
        lines = []
        for place, (level, suffix) in enumerate(zip(LEVELS, suffixes)):
            found = largest_errors(getattr(library, f"_zym{row}{suffix}"), element, low, high, wanted)
            if max(error for _, error in found) > BOUND.get(level, math.inf):
                sys.exit(f"{row} {level}: an error of {max(error for _, error in found)} ulp")
            file = plotter.data(f"{row}-{level}", found)
            lines.append(f'"{file}" using 1:2 with steps linewidth 1.4 linecolor "{COLOURS[place]}" title "{level}"')
        bounds = [f"{bound} with lines dashtype 3 linecolor \"#78716c\" notitle" for bound in BOUND.values()]
        scale = "0.3:100000" if element == "f" else "0.3:1e9"
        panels.append(f'set title "{row}"\nset xrange [{low}:{high}]\nset yrange [{scale}]\nplot {", ".join(lines + bounds)}\n')
    plotter.draw("errors", 'set logscale y\nset format y "10^{%L}"\nset ylabel "largest error, ulp"\nset key top right horizontal samplen 1\n'
                 "set multiplot layout 2,2\n" + "".join(panels) + "unset multiplot\n", height=640)


# ---- Speed ----------------------------------------------------------------------------------------------------------

SPEED_ROWS = ("sExp", "dLn", "dSin", "dPow")
SIZES = (1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1000, 4000, 16000, 64000, 250000, 1000000)
SPEED_LEVELS = ("HA", "LA")
PEERS = {"libm": "libm", "sleef u10": "sleef, 1 ulp", "libmvec": "libmvec, 4 ulp", "eigen": "eigen", "numpy": "NumPy"}


def processor():
    """What the speed was measured on."""
    facts = dict(re.findall(r"^(.*?)\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"), re.MULTILINE))
    return f"one core of: {facts['model name']} (family {facts['cpu family']}, model {facts['model']})"


def speed(plotter):
    figures, program = plotter.scratch / "speed.csv", plotter.build / "bin" / "zym_bench"
    if not program.exists():
        sys.exit(f"{program} is not built")
    subprocess.run(["taskset", "-c", "1", program, "--rows", ",".join(SPEED_ROWS), "--levels", ",".join(SPEED_LEVELS),
                    "--sizes", ",".join(map(str, SIZES)), "--section", "rows", "--time", "40", "--csv", figures],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with open(figures, encoding="utf-8") as file:
        rows = [row for row in csv.DictReader(file) if row["strided"] == "0"]
    variants = {row["what"] for row in rows}
    panels = []
    for name in SPEED_ROWS:
        lines = []
        curves = [("ours", level, f"ours, {level}") for level in SPEED_LEVELS]
        for peer, title in PEERS.items():  # as the processor has registers
            wide = f"{peer} 512"
            curves.append((wide if wide in variants else peer, SPEED_LEVELS[0], title))
        for place, (what, level, title) in enumerate(curves):
            points = [(int(row["n"]), float(row["ns"])) for row in rows
                      if (row["row"], row["what"], row["level"]) == (name, what, level)]
            if points:
                lines.append(f'"{plotter.data(f"{name}-{place}", points)}" using 1:2 with lines linecolor "{COLOURS[place]}" '
                             f'linewidth {2.4 if what == "ours" else 1.2} title "{title}"')
        panels.append(f'set title "{name}"\nplot {", ".join(lines)}\n')
    plotter.draw("speed", 'set logscale xy\nset format x "10^{%L}"\nset yrange [0.1:2000]\nset xlabel "elements a call"\n'
                 'set ylabel "ns per element"\nset key top right maxrows 3 samplen 1\n'
                 f'set multiplot layout 2,2 title "{processor()}"\n' + "".join(panels) + "unset multiplot\n", height=700)


# ---- Generators -----------------------------------------------------------------------------------------------------


def generators(plotter):
    page = (ROOT / "docs" / "performance-streams.md").read_text(encoding="utf-8").split("Registers of 512 bits")[0]
    found = re.findall(r"^\| ([\w-]+), doubles, n = 100000(?:, [^|]*)? \| ([\d.]+) \| ([\d.]*) *\|", page, re.MULTILINE)
    if len(found) < 5:
        sys.exit("docs/performance-streams.md has another form")
    rows = sorted(((name, float(ours), float(peer or "nan")) for name, ours, peer in found
                   if name != "TRNG"),  # the processor's source takes as long as all others together
                  key=lambda row: row[1])
    file = plotter.scratch / "generators.dat"
    file.write_text("".join(f'"{name}" {ours} {peer}\n' for name, ours, peer in rows), encoding="utf-8")
    plotter.draw("generators", 'set style data histogram\nset style histogram clustered gap 1\nset style fill solid border rgb "#ffffff"\n'
                 'set xtics rotate by -35\nset ylabel "ns per double, 100,000 a call"\nset yrange [0:*]\nset key top left\n'
                 f'plot "{file}" using 2:xtic(1) linecolor "{COLOURS[0]}" title "ours", '
                 f'"" using 3 linecolor "#d6d3d1" title "fastest peer of that form"\n')


def python(plotter):
    page = (ROOT / "docs" / "performance-python.md").read_text(encoding="utf-8")
    header = next((line for line in page.splitlines() if line.startswith("| what | peer | n = 100: peer, ns")), "")
    cells = header.split(" | ")
    if "n = 10^4: LA" not in cells:
        sys.exit("docs/performance-python.md has another form")
    column, ratios = cells.index("n = 10^4: LA"), {}
    for line in page[page.index(header):].splitlines()[2:]:
        found = re.match(r"\| (\w+), (float32|float64) \|", line)
        if found:
            ratios.setdefault(found[1], {})[found[2]] = float(line.split(" | ")[column])
        if not line.startswith("|"):
            break
    rows = sorted(((name, of.get("float32"), of.get("float64")) for name, of in ratios.items()), key=lambda row: row[2] or 0)
    file = plotter.scratch / "python.dat"
    file.write_text("".join(f'"{name}" {single or "nan"} {double or "nan"}\n' for name, single, double in rows), encoding="utf-8")
    plotter.draw("python", 'set logscale y\nset xtics rotate by -60 font ",10"\nset key top left\n'
                 'set ylabel "times as fast as NumPy or SciPy, LA, 10,000 numbers"\n'
                 f'plot 1 linecolor "{COLOURS[-1]}" dashtype 2 notitle, '
                 f'"{file}" using 0:2:xtic(1) with points pointtype 7 pointsize 0.6 linecolor "{COLOURS[0]}" title "float32", '
                 f'"" using 0:3 with points pointtype 5 pointsize 0.6 linecolor "{COLOURS[2]}" title "float64"\n', width=1100)


# ---- A spline and its ends ------------------------------------------------------------------------------------------

POINTS_X = (0.0, 1.0, 2.0, 3.5, 4.5, 6.0, 7.0, 8.0)
POINTS_Y = (1.0, 2.6, 2.2, 0.4, 0.9, 2.7, 2.3, 1.0)
NATURAL, FREE, NOT_A_KNOT, FIRST = 2, 2, 1, 12
ENDS = [("free: second derivatives of 0", FREE, None), ("not a knot: a cubic over the last two pieces", NOT_A_KNOT, None),
        ("first derivatives of 0", FIRST, (0.0, 0.0))]
ORDER, ROWS, NON_UNIFORM, SITES = 4, 16, 1, 400


def evaluate_spline(library, ends, values, sites):
    """The natural cubic spline of the points with these ends at the sites, by the library."""
    def reals(numbers):
        return (ctypes.c_double * len(numbers))(*numbers)

    def checked(name, *arguments):
        status = getattr(library, f"orvik_df_kernel_{name}")(*arguments)
        if status != 0:
            sys.exit(f"{name}: status {status}")

    i64, null = ctypes.c_int64, ctypes.c_void_p()
    task, x, y, coefficients = ctypes.c_void_p(), reals(POINTS_X), reals(POINTS_Y), reals([0.0] * (ORDER * len(POINTS_X)))
    checked("dNewTask1D", ctypes.byref(task), i64(len(x)), x, i64(NON_UNIFORM), i64(1), y, i64(ROWS), ctypes.c_int32(0))
    checked("dEditPPSpline1D", task, i64(ORDER), i64(NATURAL), i64(ends), reals(values) if values else null, i64(0), null,
            coefficients, i64(0))
    checked("dDFNaturalCubicSpline1D", task, i64(0), i64(0), null)
    at, result = reals(sites), reals([0.0] * len(sites))
    wanted = (ctypes.c_int32 * 1)(1)
    checked("dDFInterpolate1D", task, i64(1), i64(0), i64(len(sites)), at, i64(0), i64(1), wanted, null, result, i64(0), null,
            null, null, null, null, null, null, null, null, null)
    checked("DeleteTask", ctypes.byref(task))
    return list(result)


def spline(plotter):
    library = plotter.load_library()
    low, high = POINTS_X[0] - 0.9, POINTS_X[-1] + 0.9
    sites = [low + (high - low) * i / SITES for i in range(SITES + 1)]
    lines = []
    for place, (title, ends, values) in enumerate(ENDS):
        at_points = evaluate_spline(library, ends, values, POINTS_X)
        if max(abs(got - want) for got, want in zip(at_points, POINTS_Y)) > 1e-12:
            sys.exit(f"{title}: the spline misses its points: {at_points}")
        file = plotter.data(f"spline-{ends}", zip(sites, evaluate_spline(library, ends, values, sites)))
        lines.append(f'"{file}" using 1:2 with lines linewidth 2 linecolor "{COLOURS[place]}" title "{title}"')
    points = plotter.data("points", zip(POINTS_X, POINTS_Y))
    plotter.draw("spline", "\n".join([
        f"set xrange [{low}:{high}]", "set yrange [-1.5:4.5]", "set key top center", "set ylabel \"value\"",
        f'set object 1 rectangle from {low},graph 0 to {POINTS_X[0]},graph 1 behind fillcolor "#f5f5f4" fillstyle solid noborder',
        f'set object 2 rectangle from {POINTS_X[-1]},graph 0 to {high},graph 1 behind fillcolor "#f5f5f4" fillstyle solid noborder',
        f'plot {", ".join(lines)}, "{points}" using 1:2 with points pointtype 7 pointsize 0.7 linecolor "#1c1917" title "the points"', ""]))


PLOTS = {"errors": errors, "speed": speed, "generators": generators, "python": python, "spline": spline}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=ROOT / "build" / "release")
    parser.add_argument("--out", default=ROOT / "docs" / "plots")
    parser.add_argument("plots", nargs="*", metavar="PLOT")
    options = parser.parse_args()
    unknown = set(options.plots) - set(PLOTS)
    if unknown:
        parser.error(f"no such plot: {', '.join(sorted(unknown))}")
    if not shutil.which("gnuplot"):
        print("gnuplot is not installed: nothing was drawn")
        sys.exit(77)
    pathlib.Path(options.out).mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as scratch:
        plotter = Plotter(options.build, options.out, scratch)
        for name in options.plots or PLOTS:
            PLOTS[name](plotter)


if __name__ == "__main__":
    main()

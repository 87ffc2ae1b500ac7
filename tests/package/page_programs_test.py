"""The code of the guides compiles as it stands, without a warning, behind what its reader has: headers, arrays and a main of his own. It
runs, does what its page says, and prints what a comment says that it prints.

    page_programs_test.py --cc CC --cxx CXX --libraries FOLDER --include FOLDER [--python PYTHON --package FOLDER] DOCS"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HEADS = {"c": "#include <orvik/front.h>\n#include <orvik/orvik.h>\n#include <stdio.h>\n",
         "c++": "#include <algorithm>\n#include <cmath>\n", "python": ""}
# The pieces of each guide in order: what stands before one in main, and a condition that holds behind it. None: a whole program.
PIECES = {
    "distributions.md": [
        ("", "k[0] + k[1] + k[2] + k[3] == 100 && k[996] + k[997] + k[998] + k[999] == 100"),
        ("", "status == 0 && r[0] != r[1]"),
    ],
    "fitting.md": [
        ("", "cells[0] == 1 && cells[1] == 4 && slopes.size() == 4 && value > 2 && area > 8"),
        ("", "r[0] > 1 && r[0] < 3 && r[1] > 0 && r[3] < 0.5 && area[0] > 8 && area[0] < 10"),
    ],
    "python-objects.md": [("", "x.shape == (1_000_000, 3) and s.count() == 1_000_000 and abs(s.mean() - 10).max() < 0.01")],
    "python.md": [("", "y.shape == x.shape and abs(y - np.log(x)).max() < 1e-14")],
    "statistics.md": [
        ("const std::int64_t n = 100; std::vector<double> x(3 * n); orvik::Stream t; orvik::normal(t, x); x[3] = 50; x[6] = NAN;",
         "mean.size() == 3 && covariance.size() == 9 && quartiles.size() == 9 && flags[1] == 1 && flags[2] == 1 && "
         "robust.covariance.size() == 9 && sets.size() == 20 * x.size() && !std::isnan(sets[6])"),
        None,
    ],
    "streams.md": [
        ("std::vector<int> v = {1, 2, 3};",
         "r[0] >= -1 && r[999] <= 1 && orvik::Stream::load(image).save() == image && far.save() != image"),
        ("", "r[0] >= 0 && r[999] < 1"),
        ("uint32_t seed = 7; OrvikStream s; __qorNewStreamEx(&s, ORVIK_BRNG_MCG59, 1, &seed); const int32_t k = 1;", ""),
        ("OrvikStream s; static double r[10 * 1000];", "r[0] == 0.5 && r[9] == 0.5 && r[10] != r[11]"),
    ],
    "testing.md": [],  # of the tests' own
    "vector-mathematics.md": [
        ("", "r[0] == std::log(0.5) && a[0] > 1.64 && found.size() == 1 && found[0].index == 2 && z[0] == 1.0"),
        ("enum { n = 10 }; float a[n] = {0}, r[n]; double x[2 * n] = {0}, y[n] = {1}, z[3 * n];", "r[9] == 1 && z[0] == 1 && z[27] == 0"),
        ("enum { n = 2 }; double x[n] = {1, 1}, y[n] = {7, 7};", "y[0] == 0 && y[1] == 0"),
        ("enum { n = 2 }; double x[n] = {0, 1}, y[n];", "y[0] == -745 && y[1] == 0"),
    ],
}


def pieces(page):
    found = re.findall(r"^```(c|c\+\+|cpp|python)\n(.*?)^```$", page.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)
    return [("c++" if language == "cpp" else language, source) for language, source in found]


def program(language, source, before, holds):
    """Includes and functions with which a piece begins stand in front of main."""
    if language == "python":
        return f"{before}\n{source}\nassert {holds}\n"
    includes = "".join(re.findall(r"^#include.*\n", source, re.MULTILINE))
    body = re.sub(r"^#include.*\n", "", source, flags=re.MULTILINE)
    functions = ""
    while found := re.match(r"\s*(static .*?^}\n)", body, re.MULTILINE | re.DOTALL):
        functions += found[1]
        body = body[found.end():]
    end = f"return !({holds});" if holds else "return 0;"
    return f"{HEADS[language]}{includes}{functions}int main(void) {{\n{before}\n{body}{end}\n}}\n"


def fault(arguments, folder, language, source, what):
    """What is wrong with a piece, or nothing."""
    text = source if what is None else program(language, source, *what)
    path = folder / ("piece" + {"c": ".c", "c++": ".cc", "python": ".py"}[language])
    path.write_text(text, encoding="utf-8")
    environment = dict(os.environ)
    if language == "python":
        command = [arguments.python, str(path)]
        environment["PYTHONPATH"] = arguments.package
    else:
        compiler = [arguments.cc, "-std=c11"] if language == "c" else [arguments.cxx, "-std=c++20"]
        command = [str(folder / "piece")]
        # What a piece declares for its reader it need not use itself.
        warnings = ["-Wall", "-Wextra", "-Werror", *(["-Wno-unused"] if what is not None else [])]
        done = subprocess.run([*compiler, *warnings, f"-I{arguments.include}", str(path), "-o", *command,
                               f"-L{arguments.libraries}", "-lorvik_front", "-lorvik_kernel", f"-Wl,-rpath,{arguments.libraries}"],
                              check=False, capture_output=True, text=True)
        if done.returncode != 0:
            return done.stderr
    done = subprocess.run(command, env=environment, check=False, capture_output=True, text=True)
    if done.returncode != 0:
        return f"ends with {done.returncode}: {done.stdout}{done.stderr}"
    said = re.findall(r"(?://|#|/\*) prints (.*?)(?: \*/)?$", source, re.MULTILINE)
    if [line.rstrip() for line in done.stdout.splitlines()] != said:
        return f"prints {done.stdout!r}, and says {said}"
    return None


def arguments_with(what):
    parser = argparse.ArgumentParser()
    for name in ("--cc", "--cxx", "--libraries", "--include"):
        parser.add_argument(name, required=True)
    parser.add_argument("--python")
    parser.add_argument("--package")
    parser.add_argument(what, type=pathlib.Path)
    return parser.parse_args()


def main():
    arguments = arguments_with("docs")
    faults, count = [], 0
    for page in sorted(arguments.docs.glob("*.md")):
        found = pieces(page)
        known = PIECES.get(page.name, [])
        if page.name not in PIECES and found or known and len(known) != len(found):
            faults.append(f"{page.name} has {len(found)} pieces, PIECES knows {len(known)}")
            continue
        for place, ((language, source), what) in enumerate(zip(found, known), 1):
            if language == "python" and not arguments.python:
                continue
            count += 1
            with tempfile.TemporaryDirectory() as folder:
                wrong = fault(arguments, pathlib.Path(folder), language, source, what)
            if wrong:
                faults.append(f"{page.name}, piece {place} of {len(found)} ({language}): {wrong}")
    if count == 0:
        faults.append("no pieces")
    print("\n".join(faults) if faults else f"{count} pieces")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""The figures of README.md, copied from docs/performance-vector.md and performance-vector-zen4.md, and the count of rows, from docs/status.md.

    readme.py            writes what stands between the markers of README.md
    readme.py --check    says whether it is what would be written (exit status 1: no)

Both take another project directory as a last argument."""

import pathlib
import re
import sys

# Rows that stand for their kind, those that gain least among them. A row that the page lacks is an error.
IN_CACHE = ["sExp", "sLn", "dExp", "dLn", "sCbrt", "dInvSqrt", "sDiv", "sAdd", "dMul", "sAbs", "dFloor", "sRound"]
IN_MEMORY = ["sAdd", "dMul", "sAbs", "dFloor", "sRound"]
LEVELS = ["HA", "LA", "EP"]
BESIDE = ["1,000", "10,000", "100,000"]  # elements a call, of NumPy's ufuncs


def fail(what):
    sys.exit(f"readme.py: {what}")


def table(page, heading):
    """The table below a heading of a page: a dictionary of column name and cell for each row."""
    section = re.search(rf"^## {re.escape(heading)}$(.*?)(?=^## |\Z)", page, re.MULTILINE | re.DOTALL)
    if not section:
        fail(f"no section '{heading}'")
    lines = [line for line in section.group(1).splitlines() if line.startswith("|")]
    cells = [[cell.strip().strip("`") for cell in line.strip("|").split("|")] for line in lines]
    return [dict(zip(cells[0], row)) for row in cells[2:]]


def machine_of(page):
    machine = re.search(r"^Machine: (.*?)\. Nanoseconds", page, re.MULTILINE)
    return machine.group(1) if machine else fail("the page names no machine")


def beside_numpy(page):
    rows_beside = {(row["NumPy's loops"], row["level"], row["n"]): f"{row['geometric mean']}, {row['least'].replace('`', '')}" for row in table(page, "Beside NumPy")}
    out = ["| NumPy's loops | level | " + " | ".join(f"n = {n}" for n in BESIDE) + " |", "|---" * (2 + len(BESIDE)) + "|"]
    for what, level in dict.fromkeys(key[:2] for key in rows_beside):
        cells = [rows_beside.get((what, level, n)) or fail(f"the page has no n of {n} beside NumPy") for n in BESIDE]
        out.append(f"| {what} | {level} | " + " | ".join(cells) + " |")
    return out


def figures(page, other):
    """Every figure is a cell of a page, character by character."""
    cached = {(row["row"], row["kernel"]): row for row in table(page, "In cache, unit stride")}
    memory = {row["row"]: row for row in table(page, "Ten million elements")}
    out = [f"Machine: {machine_of(page)}. Nanoseconds per element on one core, data in cache unless said; the rival of a level is",
           "the fastest peer that is at least as accurate. All rows and sizes:",
           "[docs/performance-vector.md](docs/performance-vector.md).", "",
           "| n = 1,000 | " + " | ".join(f"{level} | its rival" for level in LEVELS) + " |", "|---" * 7 + "|"]
    for name in IN_CACHE:
        kernels = [cached.get((name, level)) for level in LEVELS]
        if not any(kernels):
            fail(f"the page has no row {name}")
        out.append(f"| `{name}` | " + " | ".join(f"{k['n = 1,000']} | {k['rival at 1,000']}" if k else " | " for k in kernels) + " |")
    out += ["", "An empty place: the level shares its kernel with another one.", ""]
    if "\n## Beside NumPy\n" in page:  # where the machine had it
        out += ["Beside NumPy's ufuncs, all functions that both have, and those of which NumPy has loops of 512 bits: geometric mean and least.", "",
                *beside_numpy(page), "", f"The same on {machine_of(other)} ([all rows and sizes](docs/performance-vector-zen4.md)):", "",
                *beside_numpy(other), ""]
    out += ["| n = 10,000,000 | ours | `memcpy` of the same bytes | ratio |", "|---" * 4 + "|"]
    for name in IN_MEMORY:
        row = memory.get(name) or fail(f"the page has no row {name} of ten million elements")
        out.append(f"| `{name}` | {row['ns per element']} | {row['memcpy, same traffic']} | {row['memcpy/ours']} |")
    return "\n" + "\n".join(out) + "\n"


def rows(status):
    count = re.search(r"(\d+) of (\d+) table rows have kernels", status)
    if not count:
        fail("docs/status.md does not say how many rows there are")
    return f"{count.group(1)} of {count.group(2)} rows are built"


def rewritten(root):
    """README.md as it should be."""
    text = (root / "README.md").read_text(encoding="utf-8")
    blocks = {"figures": figures(*((root / "docs" / f"{name}.md").read_text(encoding="utf-8")
                                  for name in ("performance-vector", "performance-vector-zen4"))),
              "rows": rows((root / "docs" / "status.md").read_text(encoding="utf-8"))}
    for name, block in blocks.items():
        begin, end = f"<!-- {name}: bench/zym/readme.py -->", f"<!-- end of {name} -->"
        if text.count(begin) != 1 or text.count(end) != 1:
            fail(f"README.md needs the markers {begin} and {end} once")
        before, rest = text.split(begin)
        text = before + begin + block + end + rest.split(end)[1]
    return text


def main():
    arguments = sys.argv[1:]
    check = "--check" in arguments
    if check:
        arguments.remove("--check")
    if len(arguments) > 1 or any(argument.startswith("-") for argument in arguments):
        sys.exit(__doc__)
    root = pathlib.Path(arguments[0]) if arguments else pathlib.Path(__file__).resolve().parents[2]
    readme = root / "README.md"
    text = rewritten(root)
    if not check:
        readme.write_text(text, encoding="utf-8")
    elif text != readme.read_text(encoding="utf-8"):
        fail("README.md is not what docs/performance-vector.md and docs/status.md say; run bench/zym/readme.py")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""The worst errors that kernels state, against those that are recorded.

Above the struct of a kernel stands a line for each row and kernel that rounds:

  // sExp LA: 2.6375 ulp at -0x1.0fb666p+4

It is made from the row's line in recorded/FAMILY.csv and holds nothing else, so that a program writes it:

  comments.py write [SOURCE_DIR]   brings all lines up to date; a kernel without one gets it above its struct. Where no struct
                                   is found, put `// sExp LA:` in a line of its own where it belongs
  comments.py check [SOURCE_DIR]   fails for every line that is missing, stands twice, is out of date or belongs to no record
"""

import csv
import pathlib
import re
import sys

LEVELS = ("LA", "HA", "EP")
LINE = re.compile(r"^// ([sdcz][A-Z]\w*) (LA|HA|EP):.*$", re.MULTILINE)
LANES = {"s": "Single", "c": "Single", "d": "Double", "z": "Double"}  # the concepts of lane types
STRUCT = re.compile(r"^template <(.*)>\n(?:  requires .*\n)?struct (\w+)(<.*>)?(?: :[^;{]*)?\s*\{", re.MULTILINE)


def text_of(record):
    """The line of one record."""
    where = ", ".join(record["arguments"].split())
    if record["order"] not in ("", "0"):
        where = f"order {record['order']}, {where}"
    if record["result"] == "1":
        where += " (second result)"
    return f"// {record['row']} {record['kernel']}: {record['error']} {record['metric']} at {where}"


def lines_of(table):
    """Row and kernel to line, of those that round."""
    with open(table, encoding="utf-8", newline="") as file:
        lines = {}
        for r in csv.DictReader(file):  # of two measures of a complex row the first is the promised one
            if r["error"] and not (r["metric"] == "exact" and r["error"] == "0"):
                lines.setdefault((r["row"], r["kernel"]), text_of(r))
        return lines


def place_of(row, kernel, texts):
    """Where a new line goes: file and offset of the struct that serves the row and level most specially."""
    best, place = -1, (None, 0)
    lane = LANES[row[0]]
    for path, text in texts.items():
        for m in STRUCT.finditer(text):
            lanes = re.findall(r"\b(Single|Double)\b", m[1])
            levels = re.findall(r"\bLevel::(\w+)", m[3] or "")
            if m[2] != row[1:] or lanes not in ([], [lane]) or levels not in ([], [kernel]):
                continue
            if (rank := 2 * len(lanes) + len(levels)) > best:
                best, place = rank, (path, m.start())
    return place


def faults_of(name, wanted, texts):
    """What is wrong in one family's files."""
    found, faults = set(), []
    for path, text in texts.items():
        for m in LINE.finditer(text):
            key = m[1], m[2]
            where = f"{path}:{text.count(chr(10), 0, m.start()) + 1}"
            if key not in wanted:
                faults.append(f"{where}: {m[1]} {m[2]} has no record in {name}")
            elif key in found:
                faults.append(f"{where}: {m[1]} {m[2]} stands twice")
            elif m[0] != wanted[key]:
                faults.append(f"{where}: {m[0]}\n  the record says {wanted[key]}")
            found.add(key)
    faults += [f"{row} {kernel} is recorded in {name} and stated nowhere" for row, kernel in wanted if (row, kernel) not in found]
    return faults


def bring_up_to_date(wanted, texts):
    """The files with the lines as they should be, and what has no place."""
    texts = dict(texts)
    found = set()
    for path, text in texts.items():
        found |= {(m[1], m[2]) for m in LINE.finditer(text)}
        # A line without a record goes.
        text = re.sub(LINE.pattern + r"\n", lambda m: m[0] if (m[1], m[2]) in wanted else "", text, flags=re.MULTILINE)
        texts[path] = LINE.sub(lambda m: wanted[m[1], m[2]], text)
    homeless = []
    for (row, kernel), line in wanted.items():
        if (row, kernel) in found:
            continue
        path, at = place_of(row, kernel, texts)
        if path is None:
            homeless.append(f"{row} {kernel}: no struct found; put a line `// {row} {kernel}:` where it belongs")
        else:
            texts[path] = texts[path][:at] + line + "\n" + texts[path][at:]
    return texts, homeless


def main():
    if len(sys.argv) not in (2, 3) or sys.argv[1] not in ("write", "check"):
        sys.exit(__doc__)
    root = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else pathlib.Path(__file__).resolve().parents[2]
    faults, stated = [], 0
    for table in sorted((root / "tests/accuracy/recorded").glob("*.csv")):
        folder = root / "src/zym/kernels" / table.stem
        wanted = lines_of(table)
        texts = {path: path.read_text(encoding="utf-8") for path in sorted(folder.rglob("*")) if path.suffix in (".h", ".cc")}
        if wanted and not texts:
            faults.append(f"{folder} has no files")
        if sys.argv[1] == "write":
            new, homeless = bring_up_to_date(wanted, texts)
            faults += homeless
            for path, text in new.items():
                if text != texts[path]:
                    path.write_text(text, encoding="utf-8")
                    print(path.relative_to(root))
        else:
            faults += faults_of(table.name, wanted, texts)
        stated += len(wanted)
    if faults:
        sys.exit("\n".join(faults))
    if stated == 0:
        sys.exit("no records found")
    if sys.argv[1] == "check":
        print(f"{stated} kernels state what is recorded")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""exported.py ROWS_DIRECTORY NM LIBRARY: counts of the exported names and addresses of rows, built and not."""
import subprocess
import sys

directory, nm, library = sys.argv[1:]
sys.path.insert(0, directory)
import rows  # noqa: E402

address = {}
for line in subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True,
                           text=True).stdout.splitlines():
    value, _, name = line.split()
    address[name.split("@")[0]] = int(value, 16)

errors = []


def expect(condition, text):
    if not condition:
        errors.append(text)


all_rows = rows.all_rows()
names = [n for r in all_rows for level in rows.entry_names(r) for n in level]
expect(len(all_rows) == 480, f"{len(all_rows)} rows, not 480")
expect(len(set(names)) == 1920, f"{len(set(names))} entry names, not 1920")
expect(sum(len(rows.entry_names(r)) for r in all_rows) == 1440, "not 1440 entries")
counts = [sum(r.sharing == s for r in all_rows) for s in ("one", "la_ha", "la_ep", "apart")]
expect(counts == [222, 20, 28, 210], f"sharing {counts}")

tables = [n for n in address if n.startswith("orvik_zym_kernel_") and n.endswith(("_ttab", "_ctab"))]
expect(len(tables) == 960, f"{len(tables)} table exports, not 960")
start = address[f"orvik_zym_kernel_{rows.row_name(all_rows[0])}_ttab"]
for index, row in enumerate(all_rows):
    stem = f"orvik_zym_kernel_{rows.row_name(row)}"
    expect(address.get(stem + "_ttab") == start + 48 * index, f"{stem}_ttab is not row {index} of one table")
    expect(address.get(stem + "_ctab") == start + 48 * index + 24, f"{stem}_ctab is not 24 bytes behind its ttab")
    for level in rows.entry_names(row):
        there = [n in address for n in level]
        expect(all(there) if rows.built(row) else not any(there), f"{level}: exported {there}, built {rows.built(row)}")
        expect(len({address.get(n) for n in level}) == 1, f"{level} are not one address")
    if rows.built(row):
        entries = {address[level[0]] for level in rows.entry_names(row)}
        expect(len(entries) == 3, f"{stem}: levels share an entry")
built = sum(rows.built(r) for r in all_rows)
entries = {address[n] for n in names if n in address}
expect(len(entries) == 3 * built, f"{len(entries)} entry addresses of {built} built rows")
exported = [n for n in address if n.startswith(("_zyms", "_zymd", "_zymc", "_zymz")) and n in set(names)]
expect(len(exported) == 4 * built, f"{len(exported)} entry names of {built} built rows")

if errors:
    sys.exit("\n".join(errors[:40]))
print(f"480 rows, {built} built, {len(entries)} entries under {len(exported)} names, {len(tables)} table exports")

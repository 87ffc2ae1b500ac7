#!/usr/bin/env python3
"""refusals.py ROWS_DIRECTORY: the generator refuses a row for which something is missing, by the name of the row and of the file."""
import sys

sys.path.insert(0, sys.argv[1])
import rows  # noqa: E402

good = rows.unit_rows()[0]
errors = []


def expect(row, *lines):
    got = rows.complaints([row])
    if got != list(lines):
        errors.append(f"{row.precision}{row.function} {row.shape}: {got}")


expect(good)
expect(good._replace(function="Frobnicate"),
       "sFrobnicate: no description of Frobnicate; add it to TEXT in tools/rows/rows.py")
expect(good._replace(shape="ternary"), "sCeil: no argument list of the shape ternary; add it to SHAPES or PACK in tools/rows/rows.py")
expect(good._replace(shape="pack"), "sCeil: no argument list of the shape pack; add it to SHAPES or PACK in tools/rows/rows.py")
expect(good._replace(sharing="some"),
       "sCeil: no sharing called some; see src/zym/frame/rows.def and LEVELS in tools/rows/rows.py")
expect(good._replace(precision="q"), "qCeil: no elements of the precision q; see ELEMENT in tools/rows/rows.py")
expect(good._replace(family="rounding/nowhere"),
       "sCeil: no header src/zym/kernels/rounding/nowhere.h; write it, or mend the family in src/zym/frame/rows.def")
if rows.complaints(rows.unit_rows()):
    errors.append("the list itself is refused: " + "; ".join(rows.complaints(rows.unit_rows())))
sys.exit("\n".join(errors) or 0)

#!/usr/bin/env python3
"""prototypes.py ROWS_DIRECTORY: the C prototype of every row, built or not, against argument lists that are written down here once
more, by function and element, as callers know them."""
import sys

sys.path.insert(0, sys.argv[1])
import rows  # noqa: E402

BINARY = set("Add Sub Mul Div Pow Powr Hypot Atan2 Atan2pi CopySign NextAfter Fdim Fmax Fmin MaxMag MinMag Remainder Fmod "
             "MulByConj".split())
PAIRS = {"SinCos", "Modf", "SinCospi"}
ORDERS = {"Jn", "Yn"}
PACK = {
    "PackI": "const {E}* a, int64_t inc, {E}* y", "PackV": "const {E}* a, const int32_t* index, {E}* y",
    "PackM": "const {E}* a, const int32_t* mask, {E}* y", "UnpackI": "const {E}* a, {E}* y, int64_t inc",
    "UnpackV": "const {E}* a, {E}* y, const int32_t* index", "UnpackM": "const {E}* a, {E}* y, const int32_t* mask",
}
ELEMENTS = {"s": ("float", "float"), "d": ("double", "double"), "c": ("ZymComplexFloat", "float"),
            "z": ("ZymComplexDouble", "double")}


def expected(row, name):
    element, real = ELEMENTS[row.precision]
    f, complex_row = row.function, row.precision in "cz"
    if f in PACK:
        return f"void {name}(int64_t n, {PACK[f].format(E=element)});"
    into = real if complex_row and f == "CIS" else element
    out = real if complex_row and f in ("Abs", "Arg") else element
    arguments = ["int32_t n"]

    def array(kind, letter, inc):
        arguments.append(f"{kind}* {letter}")
        if row.strided:
            arguments.append(f"int32_t inc{inc}")

    if f in ORDERS:
        arguments.append("int32_t order")
    array("const " + into, "a", "A")
    if f in BINARY or f == "LinearFrac":
        array("const " + into, "b", "B")
    if f == "Powx":
        arguments.append(f"{element} b")
    if f == "LinearFrac":
        arguments += [f"{element} {s}" for s in ("scaleA", "shiftA", "scaleB", "shiftB")]
    if f in PAIRS:
        array(out, "r1", "R1")
        array(out, "r2", "R2")
    else:
        array(out, "r", "R")
    return f"void {name}({', '.join(arguments)});"


wrong = []
count = 0
for row in rows.all_rows():
    name = rows.entry_names(row)[1][0]
    count += 1
    if rows.prototype(row, name) != expected(row, name):
        wrong.append(f"made:   {rows.prototype(row, name)}\nwanted: {expected(row, name)}")
if count != 480:
    wrong.append(f"{count} rows, not 480")
sys.exit("\n".join(wrong) or 0)

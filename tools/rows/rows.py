#!/usr/bin/env python3
"""Makes everything that enumerates vector functions from the one list of rows, src/zym/frame/rows.def.

    rows.py table    OUT   assembler: dispatch table, its exports, the entries
    rows.py exports  OUT   names that the shared library exports
    rows.py wrappers DIR   C++ sources: the kernels around each family header; prints their names, then those of wide ones
    rows.py header   OUT   include/orvik/zym_functions.h
    rows.py status   OUT   docs/status.md
    rows.py list     DIR   C++: what tests, benchmarks and tools loop over (tools/rows/list.h)
    rows.py front_header  OUT   include/orvik/front_functions.h: the checked functions of the front
    rows.py front_cxx     OUT   include/orvik/front_functions.hpp: their overloads in C++
    rows.py front_exports OUT   names that the front exports for them
    rows.py front_sources DIR   C++ sources: the front's functions, one a precision; prints their names

and, the other way round:

    rows.py costs    IN    puts measured costs (lines "row LA HA EP" or, of both widths, "row LA HA EP LA HA EP", as the
                           program costs prints them) into rows.def

With --all-wide behind, rows that rows.def marks narrow have wide kernels too, to be measured.
"""
import re
import sys
from collections import namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
ROWS = ROOT / "src" / "zym" / "frame" / "rows.def"
ALL_WIDE = "--all-wide" in sys.argv

Row = namedtuple("Row", "precision function shape sharing reports family costs wide_costs wide whole strided")

# Kernel of each level index (LA, HA, EP) by sharing.
LEVELS = {
    "one": ("HA", "HA", "HA"),
    "la_ha": ("HA", "HA", "EP"),
    "la_ep": ("LA", "HA", "LA"),
    "apart": ("LA", "HA", "EP"),
}

# Argument lists: unit stride, strided. T is the element, S the real number that it is made of. This is the one place that has
# them: prototypes, and how the tests call an entry, are made from it.
SHAPES = {
    "unary": ("const T* a, T* r", "const T* a, int32_t incA, T* r, int32_t incR"),
    "to_real": ("const T* a, S* r", "const T* a, int32_t incA, S* r, int32_t incR"),
    "from_real": ("const S* a, T* r", "const S* a, int32_t incA, T* r, int32_t incR"),
    "binary": ("const T* a, const T* b, T* r",
               "const T* a, int32_t incA, const T* b, int32_t incB, T* r, int32_t incR"),
    "unary2": ("const T* a, T* r1, T* r2", "const T* a, int32_t incA, T* r1, int32_t incR1, T* r2, int32_t incR2"),
    "scalar": ("const T* a, T b, T* r", "const T* a, int32_t incA, T b, T* r, int32_t incR"),
    "bessel": ("int32_t order, const T* a, T* r", "int32_t order, const T* a, int32_t incA, T* r, int32_t incR"),
    "fraction": ("const T* a, const T* b, T scaleA, T shiftA, T scaleB, T shiftB, T* r",
                 "const T* a, int32_t incA, const T* b, int32_t incB, T scaleA, T shiftA, T scaleB, T shiftB, "
                 "T* r, int32_t incR"),
}
PACK = {
    "PackI": "const T* a, int64_t inc, T* y",
    "PackV": "const T* a, const int32_t* index, T* y",
    "PackM": "const T* a, const int32_t* mask, T* y",
    "UnpackI": "const T* a, T* y, int64_t inc",
    "UnpackV": "const T* a, T* y, const int32_t* index",
    "UnpackM": "const T* a, T* y, const int32_t* mask",
}
SHAPE_NAMES = list(SHAPES) + ["pack"]
ELEMENT = {"s": "float", "d": "double", "c": "ZymComplexFloat", "z": "ZymComplexDouble"}

# What each function computes, for the prototypes' comments.
TEXT = {
    "Abs": "r = |a|", "Sqr": "r = a^2", "Add": "r = a + b", "Sub": "r = a - b", "Mul": "r = a b",
    "LinearFrac": "r = (a scaleA + shiftA) / (b scaleB + shiftB)",
    "Ceil": "smallest integer not below a", "Floor": "largest integer not above a", "Trunc": "a rounded towards zero",
    "Rint": "a rounded to nearest, ties to even; raises inexact",
    "NearbyInt": "a rounded to nearest, ties to even; never raises inexact",
    "Round": "a rounded to nearest, ties away from zero", "Frac": "a - trunc(a), with the sign of a",
    "CopySign": "|a| with the sign of b", "Fdim": "a - b where a > b, else +0", "Fmax": "larger of a and b; a NaN loses",
    "Fmin": "smaller of a and b; a NaN loses", "MaxMag": "the one of larger magnitude; a NaN loses",
    "MinMag": "the one of smaller magnitude; a NaN loses", "NextAfter": "the float next to a towards b",
    "Modf": "r1 = trunc(a), r2 = a - trunc(a), both with the sign of a",
    "Logb": "exponent of a: floor(log2 |a|)", "Remainder": "IEEE remainder: a - b n, n the integer nearest to a / b",
    "Fmod": "a - b trunc(a / b)", "Inv": "r = 1 / a", "Div": "r = a / b", "Sqrt": "square root", "InvSqrt": "1 / sqrt(a)",
    "Cbrt": "cube root", "InvCbrt": "1 / cbrt(a)", "Hypot": "sqrt(a^2 + b^2)", "Pow3o2": "a^(3/2)",
    "Pow2o3": "cbrt(a)^2", "Exp": "e^a", "Ln": "natural logarithm", "Log10": "logarithm to base 10",
    "Log2": "logarithm to base 2", "Exp2": "2^a", "Exp10": "10^a", "Expm1": "e^a - 1", "Log1p": "ln(1 + a)",
    "Sin": "sine, a in radians", "Cos": "cosine, a in radians", "Tan": "tangent, a in radians",
    "SinCos": "r1 = sine, r2 = cosine, a in radians", "Sinpi": "sine of a pi", "Cospi": "cosine of a pi",
    "Tanpi": "tangent of a pi", "SinCospi": "r1 = sine, r2 = cosine of a pi", "Sind": "sine, a in degrees",
    "Cosd": "cosine, a in degrees", "Tand": "tangent, a in degrees",
    "PackI": "y[i] = a[i inc]", "PackV": "y[i] = a[index[i]]", "PackM": "the elements of a where mask is not zero",
    "Conj": "conjugate: (re, -im)", "MulByConj": "r = a conj(b)", "CIS": "cos a + i sin a of a real array",
    "Arg": "argument in (-pi, pi]: atan2(im, re)", "Asin": "arc sine", "Acos": "arc cosine", "Atan": "arc tangent",
    "Asinpi": "arc sine / pi", "Acospi": "arc cosine / pi", "Atanpi": "arc tangent / pi",
    "Atan2": "angle of the point (b, a) in [-pi, pi]", "Atan2pi": "angle of the point (b, a) / pi", "Sinh": "hyperbolic sine",
    "Cosh": "hyperbolic cosine", "Tanh": "hyperbolic tangent", "Asinh": "inverse hyperbolic sine",
    "Acosh": "inverse hyperbolic cosine", "Atanh": "inverse hyperbolic tangent", "Pow": "a^b",
    "Powr": "a^b for a not below 0", "Powx": "a^b, b one number for all a", "Erf": "error function",
    "Erfc": "complementary error function 1 - erf(a)", "Erfcx": "e^(a^2) erfc(a)", "ErfInv": "inverse error function",
    "ErfcInv": "inverse complementary error function", "CdfNorm": "normal distribution function",
    "CdfNormInv": "normal quantile", "LGamma": "ln |gamma(a)|", "TGamma": "gamma function",
    "ExpInt1": "exponential integral E1: integral of e^-t / t from a on", "I0": "modified Bessel function I of order 0",
    "I1": "modified Bessel function I of order 1", "J0": "Bessel function J of order 0", "J1": "Bessel function J of order 1",
    "Y0": "Bessel function Y of order 0", "Y1": "Bessel function Y of order 1", "Jn": "Bessel function J of integer order",
    "Yn": "Bessel function Y of integer order",
    "UnpackI": "y[i inc] = a[i]", "UnpackV": "y[index[i]] = a[i]", "UnpackM": "y[i] = next of a where mask is not zero",
}


def complaints(rows):
    """What is missing for these rows, each line naming the row and the file to edit."""
    out = []
    for row in rows:
        name = row.precision + row.function
        if row.shape != "pack" and row.shape not in SHAPES or row.shape == "pack" and row.function not in PACK:
            out.append(f"{name}: no argument list of the shape {row.shape}; add it to SHAPES or PACK in tools/rows/rows.py")
        if row.precision not in ELEMENT:
            out.append(f"{name}: no elements of the precision {row.precision}; see ELEMENT in tools/rows/rows.py")
        if row.sharing not in LEVELS:
            out.append(f"{name}: no sharing called {row.sharing}; see src/zym/frame/rows.def and LEVELS in tools/rows/rows.py")
        if row.function not in TEXT:
            out.append(f"{name}: no description of {row.function}; add it to TEXT in tools/rows/rows.py")
        header = f"src/zym/kernels/{row.family}.h"
        if row.family not in ("none", "pack") and not (ROOT / header).exists():
            out.append(f"{name}: no header {header}; write it, or mend the family in src/zym/frame/rows.def")
    return out


def marked_levels(sharing, mark):
    """Levels of the kernels that a mark names: `narrow_HA_EP` these two, `narrow` alone all, nothing none."""
    kernels = set(LEVELS.get(sharing, ()))
    named = kernels if mark and "_" not in mark else set((mark or "").split("_")[1:])
    if not named <= kernels:
        sys.exit(f"rows.def: {mark}: no kernels of these levels where sharing is {sharing}")
    return named


def unit_rows():
    pattern = re.compile(r"^ROW\((\w), (\w+), (\w+), (\w+), (\w+), ([\w/]+), "
                         r"([\d.]+), ([\d.]+), ([\d.]+)((?:, [\d.]+){3})?(?:, (narrow\w*))?(?:, (whole\w*))?\)$")
    rows = []
    for line in ROWS.read_text().splitlines():
        if line.startswith("ROW("):
            m = pattern.match(line)
            if not m:
                sys.exit(f"rows.def: cannot read: {line}")
            p, f, shape, sharing, reports, family, *costs, of_wide, narrow, whole = m.groups()
            if of_wide and narrow == "narrow":
                sys.exit(f"rows.def: costs of 512 bits without kernels of them: {line}")
            wide_costs = tuple(of_wide[2:].split(", ")) if of_wide else tuple(costs)
            wide = set() if family in ("none", "pack") else set(LEVELS.get(sharing, ()))
            wide -= set() if ALL_WIDE else marked_levels(sharing, narrow)
            whole = marked_levels(sharing, whole)
            if not whole <= wide:
                sys.exit(f"rows.def: a level is either narrow or whole: {line}")
            rows.append(Row(p, f, shape, sharing, reports == "reports", family, tuple(costs), wide_costs, tuple(sorted(wide)),
                            tuple(sorted(whole)), False))
    return rows


def all_rows():
    rows = unit_rows()
    return rows + [r._replace(strided=True) for r in rows if r.shape != "pack"]


def row_name(row):
    return row.precision + row.function + ("I" if row.strided else "")


def built(row):
    return row.family != "none"


def entry_names(row):
    """The exported names of each level's entry."""
    stem = "_zym" + row_name(row)
    la, ep = ("_21", "_11") if row.precision in "sc" else ("_50", "_26")
    return ([stem + la], [stem, stem + "_HA"], [stem + ep])


def kernel(row, level):
    return f"orvik_zym_{row_name(row)}_{level}"


def wide_kernel(row, level):
    return f"orvik_zym_wide_{row_name(row)}_{level}" if level in row.wide else kernel(row, level)


def halves_kernel(row, level):
    """What serves where registers of 512 bits are taken in two halves."""
    return kernel(row, level) if level in row.whole else wide_kernel(row, level)


def symbol(name, kind, size):
    return f"\t.globl {name}\n\t.type {name}, @{kind}\n\t.size {name}, {size}\n"


def jump_through(row, level):
    return [f"\tmovq orvik_zym_kernel_{row_name(row)}_ttab@GOTPCREL(%rip), %r11", f"\tjmp *{8 * level}(%r11)"]


def entry_body(row, level):
    slot = f"*{8 * level}(%r11)"
    load = f"\tmovq orvik_zym_kernel_{row_name(row)}_ttab@GOTPCREL(%rip), %r11"
    if row.shape == "pack":  # 32-bit counts, increments, indices and masks
        return ["\tmovl $1, %r8d", load, f"\tjmp {slot}"]
    if row.shape == "scalar" and row.precision == "z":  # the scalar pair comes in two registers, the kernel wants its address
        frame = ["\tsubq $24, %rsp", "\t.cfi_adjust_cfa_offset 24", "\tmovsd %xmm0, (%rsp)", "\tmovsd %xmm1, 8(%rsp)"]
        if row.strided:
            shift = ["\tmovl %r8d, %r9d", "\tmovq %rcx, %r8", "\tmovq %rsp, %rcx"]
        else:
            shift = ["\tmovq %rdx, %rcx", "\tmovq %rsp, %rdx"]
        return frame + shift + [load, f"\tcall {slot}", "\taddq $24, %rsp", "\t.cfi_adjust_cfa_offset -24", "\tret"]
    return [load, f"\tjmp {slot}"]


def wide_rows():
    """The kernels of 512 bits beside the rows whose slots they take at load (src/zym/frame/registers.cc)."""
    out = ["#if ORVIK_WIDE_REGISTERS",
           "# What fills the slots comes with the table, also out of a static library.",
           "\t.section .data.rel.ro.orvik_zym_wide,\"aw\",@progbits", "\t.balign 8",
           "\t.quad orvik_zym_choose_kernels",
           "\t.globl orvik_zym_wide_rows\n\t.hidden orvik_zym_wide_rows\n\t.type orvik_zym_wide_rows, @object",
           "orvik_zym_wide_rows:"]
    for row in all_rows():
        if row.wide:
            names = [kind(row, level) for kind in (kernel, wide_kernel, halves_kernel) for level in LEVELS[row.sharing]]
            out.append(f"\t.quad orvik_zym_kernel_{row_name(row)}_ttab, {', '.join(names)}")
            out.append(f"\t.float {', '.join(row.wide_costs)}\n\t.zero 4")
    return out + ["\t.zero 96", "\t.size orvik_zym_wide_rows, .-orvik_zym_wide_rows", "#endif"]


def make_table():
    out = ["# Generated by tools/rows/rows.py from rows.def.",
           "# Entries reach their slot through the global offset table, so that a patch of the exported table redirects them",
           "# even where the program that links the library holds the table by a copy relocation.",
           "\t.section .data.orvik_zym_table,\"aw\",@progbits", "\t.balign 64"]
    for row in all_rows():
        name = row_name(row)
        slots = [kernel(row, level) if built(row) else "0" for level in LEVELS[row.sharing]]
        out.append(symbol(f"orvik_zym_kernel_{name}_ttab", "object", 48).rstrip())
        out.append(f"orvik_zym_kernel_{name}_ttab:\n\t.quad {', '.join(slots)}")
        out.append(symbol(f"orvik_zym_kernel_{name}_ctab", "object", 24).rstrip())
        out.append(f"orvik_zym_kernel_{name}_ctab:\n\t.float {', '.join(row.costs)}\n\t.zero 12")
    out += wide_rows()
    out.append("\t.section .text.orvik_zym_entries,\"ax\",@progbits")
    for row in all_rows():
        if not built(row):
            continue
        for level, names in enumerate(entry_names(row)):
            out.append("\t.balign 16")
            out += [f"\t.globl {n}\n\t.type {n}, @function\n{n}:" for n in names]
            out += ["\t.cfi_startproc"] + entry_body(row, level) + ["\t.cfi_endproc"]
            out += [f"\t.size {n}, .-{n}" for n in names]
    out.append("\t.section .note.GNU-stack,\"\",@progbits")
    return "\n".join(out) + "\n"


def make_exports():
    out = ["# Generated by tools/rows/rows.py from rows.def."]
    for row in all_rows():
        name = row_name(row)
        out += [f"orvik_zym_kernel_{name}_ttab", f"orvik_zym_kernel_{name}_ctab"]
        if built(row):
            out += [n for names in entry_names(row) for n in names]
    return "\n".join(out) + "\n"


# The signature of a shape's kernels (src/zym/skeleton/signature.h) and the arguments that its wrappers hand on: inputs,
# results, parameters. Inputs and results are (pointer, increment).
SIGNATURES = {
    "unary": ("", "", ["a"], ["r"], None),
    "to_real": (".a = Kind::complex", "", ["a"], ["r"], None),
    "from_real": (".r = Kind::complex", "", ["a"], ["r"], None),
    "unary2": ("", ".results = 2", ["a"], ["r1", "r2"], None),
    "binary": (".b = Kind::real", "", ["a", "b"], ["r"], None),
    "scalar": (".b = Kind::scalar", "", ["a", "&b"], ["r"], None),
    "bessel": ("", "", ["a"], ["r"], ("Order", "order")),
    "fraction": (".b = Kind::real", "", ["a", "b"], ["r"], ("Fraction<{E}>", "scaleA, shiftA, scaleB, shiftB")),
}
LANES = {"s": "F32", "d": "F64", "c": "F32", "z": "F64"}
REAL = {"s": "float", "d": "double", "c": "float", "z": "double"}


def signature(row):
    kinds, results, *_ = SIGNATURES[row.shape]
    if row.precision in "cz" and row.shape not in ("to_real", "from_real"):
        kind = "complex_scalar" if row.shape == "scalar" else "complex"
        b = f".b = Kind::{kind}" if row.shape in ("binary", "scalar") else ""
        kinds = ", ".join(k for k in (".a = Kind::complex", b, ".r = Kind::complex") if k)
    reports = ".reports = true" if row.reports else ""
    return "{" + ", ".join(part for part in (kinds, results, reports) if part) + "}"


def strided_name(row, level):
    """The name that a strided kernel reports: its twin's, but for one."""
    return "vzExpI" if row.precision + row.function == "zExp" and level == "HA" else f"v{row.precision}{row.function}"


def wrapper(row, level, strided):
    """One kernel: its C name and arguments around the skeleton's."""
    _, _, inputs, results, params = SIGNATURES[row.shape]
    twin = row._replace(strided=strided)
    own_body = strided and strided_name(row, level) != f"v{row_name(row)}"
    call = f"{'strided' if strided else 'unit'}({row_name(row)}{'I' if own_body else ''}_{level}, n"

    def pass_on(names, prefix, width):
        out = ""
        for k in range(width):
            if k >= len(names):
                out += ", nullptr" + (", 0" if strided else "")
            elif names[k].startswith("&"):
                # The scalar pair of 64 bits comes by address.
                out += ", b" if row.precision == "z" else ", &b"
                out += ", 0" if strided else ""
            else:
                inc = {"a": "incA", "b": "incB", "r": "incR", "r1": "incR1", "r2": "incR2"}[names[k]]
                out += f", {names[k]}" + (f", {inc}" if strided else "")
        return out

    parameters = "{}" if params is None else "{" + params[1] + "}"
    arguments = prototype(twin, f"ORVIK_KERNEL({row_name(twin)}_{level})").rstrip(";")
    if row.shape == "scalar" and row.precision == "z":
        arguments = arguments.replace("ZymComplexDouble b", "const ZymComplexDouble* b")
    kernel_type = f"K_{row_name(row)}<Level::{level}>"
    narrow = ""
    if level in row.wide:
        names = ", ".join(re.findall(r"(\w+)(?=[,)])", arguments[arguments.index("(int"):]))
        narrow = (f"  if ({kernel_type}::is_short{'_strided' if strided else ''}(n)) "
                  f"return {kernel(twin, level)}({names});\n")
        arguments = arguments.replace(f"ORVIK_KERNEL({row_name(twin)}_{level})", kernel(twin, level)) + ";\n" + arguments
    return (f"{arguments} {{\n{narrow}  {kernel_type}::{call}{pass_on(inputs, 'in', 2)}"
            f"{pass_on(results, 'out', 2)}, {parameters});\n}}")


def struct_name(row):
    """The family struct. Those of the folder complex have a namespace of their own, since they build on the real ones."""
    return ("complex::" if row.family.startswith("complex/") else "") + row.function


def guarded(lines):
    return ["#if ORVIK_REGISTER_BITS != 512"] + lines + ["#endif"]


def make_kernels(row, level):
    """The kernels of a level, unit stride and strided, with what the skeleton's shared part knows of them."""
    name = f"v{row.precision}{row.function}"
    kernel_type = f"K_{row_name(row)}<Level::{level}>"
    out = ["namespace orvik::zym {", "namespace {",
           f"constexpr Body {row_name(row)}_{level} = {kernel_type}::make_body(\"{name}\");"]
    if strided_name(row, level) != name:
        out.append(f"constexpr Body {row_name(row)}I_{level} = {kernel_type}::make_body(\"{strided_name(row, level)}\");")
    return out + ["}  // namespace", "}  // namespace orvik::zym", "extern \"C\" {", wrapper(row, level, False),
                  wrapper(row, level, True), "}  // extern \"C\""]


def make_wrappers(header, rows):
    """The source that holds the kernels of a family header's rows of one precision."""
    out = ["// Generated by tools/rows/rows.py from rows.def.", f"#include \"zym/kernels/{header}.h\"",
           "#include \"zym/skeleton/kernel.h\"", "", "using namespace orvik::zym;", ""]
    for row in rows:
        params = SIGNATURES[row.shape][4]
        extra = "" if params is None else ", " + params[0].replace("{E}", REAL[row.precision])
        part = ["namespace orvik::zym {", "namespace {", "template <Level L>",
                f"using K_{row_name(row)} = Kernel<{struct_name(row)}<{LANES[row.precision]}, L>, "
                f"{LANES[row.precision]}, Signature{signature(row)}{extra}>;", "}  // namespace", "}  // namespace orvik::zym"]
        out += part if row.wide else guarded(part)
        for level in levels_of(row):
            part = make_kernels(row, level)
            out += part if level in row.wide else guarded(part)
        out.append("")
    return "\n".join(out) + "\n"


def levels_of(row):
    return sorted(set(LEVELS[row.sharing]), key=("LA", "HA", "EP").index)


def write_wrappers(folder):
    """One source per family header and precision; prints their names, and in a second line those with rows for registers
    of 512 bits. Stale ones go."""
    files = {}
    for row in unit_rows():
        if built(row) and row.shape != "pack":
            files.setdefault((row.family, row.precision), []).append(row)
    written, wide = set(), set()
    for (header, precision), rows in files.items():
        path = Path(folder) / f"{header}_{precision}.cc"
        write_if_changed(path, make_wrappers(header, rows))
        written.add(path)
        if any(row.wide for row in rows):
            wide.add(path)
    for path in Path(folder).rglob("*.cc"):
        if path not in written:
            path.unlink()
    print("\n".join(";".join(str(path) for path in sorted(paths)) for paths in (written, wide)), end="")


def prototype(row, name):
    args = PACK[row.function] if row.shape == "pack" else SHAPES[row.shape][1 if row.strided else 0]
    count = "int64_t" if row.shape == "pack" else "int32_t"
    text = re.sub(r"\bT\b", ELEMENT[row.precision], f"void {name}({count} n, {args});")
    return re.sub(r"\bS\b", REAL[row.precision], text)


def make_header():
    out = ["/* Vector functions and their dispatch tables. Generated by tools/rows/rows.py from the list of rows.", " *",
           " * Four names a row and stride: _21 / _50 the lower accuracy level, no suffix and _HA the high one, _11 / _26",
           " * enhanced performance; a final I marks the strided form. n and increments count elements; in and out may be the",
           " * same array. Kernels check nothing and return nothing: see _zymGetErrStatus. */",
           "#ifndef ORVIK_ZYM_FUNCTIONS_H", "#define ORVIK_ZYM_FUNCTIONS_H", "", "#include \"orvik/zym_types.h\"", "",
           "#ifdef __cplusplus", "extern \"C\" {", "#endif", ""]
    twins = {(r.precision, r.function): r for r in all_rows() if r.strided}
    for row in unit_rows():
        if not built(row):
            continue
        text = TEXT[row.function]
        codes = "; elements can be reported" if row.reports else ""
        out.append(f"/* {row_name(row)}: {text}{codes}. */")
        for r in [row] + ([twins[row.precision, row.function]] if row.shape != "pack" else []):
            out += [prototype(r, n) for names in entry_names(r) for n in names]
            name = row_name(r)
            out.append(f"ORVIK_TABLE void* orvik_zym_kernel_{name}_ttab[];")
            out.append(f"ORVIK_TABLE float orvik_zym_kernel_{name}_ctab[];")
        out.append("")
    out += ["#ifdef __cplusplus", "}", "#endif", "", "#endif"]
    return "\n".join(out) + "\n"


def make_status():
    rows = all_rows()
    missing = [r for r in unit_rows() if not built(r)]
    done = sum(built(r) for r in rows)
    out = ["# The vector functions", "", "Generated by `tools/rows/rows.py status` from the list of rows.", "",
           f"{done} of {len(rows)} table rows have kernels."]
    if missing:
        out += ["The others have empty slots and no exported entries, so that a caller meets a link error and never a wrong",
                "result. Their functions (each with its strided twin):", ""]
    for precision, kind in (("s", "32 bits"), ("d", "64 bits"), ("c", "complex, 32 bits"), ("z", "complex, 64 bits")):
        names = [row_name(r) for r in missing if r.precision == precision]
        if names:
            out.append(f"- {kind} ({len(names)}): " + " ".join(f"`{n}`" for n in names))
    out += ["", "Of elements `d` the function `Exp` is `orvik_dexp(n, a, r, options)` in C, `orvik::exp(a, r, options)` in C++, and `_zymdExp(n, a, r)` as a kernel.",
            "In Python most names are NumPy's or SciPy's: [python.md](python.md). `s`: 32-bit floats, `d`: 64-bit, `c`, `z`: pairs of these. What each does at the ends of",
            "its domain: [vector-mathematics.md](vector-mathematics.md). \\*: elements can be reported. The levels of",
            "accuracy that have kernels of their own, and how accurate they are: [accuracy.md](accuracy.md). "
            "Data movers are kernels alone; all others have a strided form.", "",
            "| function | | elements | arguments |", "|---|---|---|---|"]
    for function in dict.fromkeys(r.function for r in unit_rows() if built(r)):
        same = sorted((r for r in unit_rows() if r.function == function and built(r)), key=lambda r: "sdcz".index(r.precision))
        arguments = [a.rsplit(" ", 1)[1] for a in (PACK[function] if same[0].shape == "pack" else SHAPES[same[0].shape][0]).split(", ")]
        text = TEXT[function].replace("|", "&#124;").replace("*", "\\*")
        letters = " ".join(r.precision + ("\\*" if r.reports else "") for r in same)
        out.append(f"| `{function}` | {text} | {letters} | {', '.join(arguments)} |")
    return "\n".join(out) + "\n"


def arguments_of(shape, strided):
    """(type, name) of each argument behind n."""
    return [tuple(a.rsplit(" ", 1)) for a in SHAPES[shape][strided].split(", ")]


def arrays_of(shape):
    """Pointer types of the inputs and of the results."""
    pointers = [t for t, _ in arguments_of(shape, 0) if t.endswith("*")] if shape in SHAPES else ["const T*", "T*"]
    return [t for t in pointers if t.startswith("const")], [t for t in pointers if not t.startswith("const")]


def make_row_types():
    return "\n".join(["// Generated by tools/rows/rows.py from rows.def.", "#pragma once", "", "namespace orvik::rows {", "",
                      f"enum class Shape {{ {', '.join(SHAPE_NAMES)} }};", f"enum class Sharing {{ {', '.join(LEVELS)} }};",
                      f"inline constexpr int kUnitRows = {len(unit_rows())};  // functions",
                      f"inline constexpr int kTwins = {len(all_rows()) - len(unit_rows())};  // their strided twins", "",
                      "}  // namespace orvik::rows"]) + "\n"


def make_row_list():
    """Rows of tools/rows/list.cc: ENTRY(name) for every exported entry, then ROW_OF(...) for every row."""
    out = ["// Generated by tools/rows/rows.py from rows.def.", "#ifdef ENTRY"]
    out += [f"ENTRY({names[0]})" for row in all_rows() for names in entry_names(row)]
    out += ["#endif", "#ifdef ROW_OF"]
    order = ("LA", "HA", "EP")
    for row in unit_rows():
        inputs, results = arrays_of(row.shape)
        parts = {t: 2 if row.precision in "cz" and "T" in t else 1 for t in inputs + results}
        entries = [[f"ADDRESS({names[0]})" for names in entry_names(r)] for r in (row, row._replace(strided=True))]
        if row.shape == "pack":
            entries[1] = ["nullptr"] * 3
        kernels = ", ".join(str(order.index(level)) for level in LEVELS[row.sharing])
        out.append(f"ROW_OF('{row.precision}', \"{row.function}\", \"{row_name(row)}\", Shape::{row.shape}, "
                   f"Sharing::{row.sharing}, LIST({kernels}), {str(row.reports).lower()}, \"{row.family.split('/')[0]}\", "
                   f"\"{TEXT[row.function]}\", LIST({', '.join(row.costs)}), LIST({', '.join(row.wide_costs)}), {len(inputs)}, {len(results)}, "
                   f"{parts[inputs[0]]}, {parts[results[0]]}, LIST({', '.join(entries[0])}), LIST({', '.join(entries[1])}))")
    return "\n".join(out + ["#endif"]) + "\n"


def make_row_calls():
    """The cases of with_call in tools/rows/list.h: an entry of each shape with its arguments from a Call."""
    out = ["// Generated by tools/rows/rows.py from rows.def."]
    member = {"r": "r1", "incR": "incR1"}
    for shape in SHAPES:
        scalars = [name for t, name in arguments_of(shape, 0) if t == "T"]
        out.append(f"case Shape::{shape}:")
        if scalars:
            out.append("  with_scalar_type([&]<class T>(T) {")
            out += [f"    const T {name} = scalar_of<T>(c, {k});" for k, name in enumerate(scalars)]
        for strided in (1, 0):
            types, values = ["I"], ["n"]
            for t, name in arguments_of(shape, strided):
                types.append("T" if t == "T" else "I" if t == "int32_t" else "In" if t.startswith("const") else "Out")
                values.append(name if t == "T" else f"c.{member.get(name, name)}")
            out += [f"  {'if (strided)' if strided else 'else'} {{",
                    f"    const auto f = as(static_cast<void (*)({', '.join(types)})>(nullptr));",
                    f"    use([=](I n) {{ f({', '.join(values)}); }});", "  }"]
        out += ["  });"] if scalars else []
        out.append("  break;")
    return "\n".join(out) + "\n"


def make_front_list():
    """The front's functions by row: FRONT(row's name, unit stride, strided)."""
    out = ["// Generated by tools/rows/rows.py from rows.def."]
    out += [f'FRONT("{row_name(r)}", {front_name(r, 0)}, {front_name(r, 1)})' for r in front_rows()]
    return "\n".join(out) + "\n"


def write_list(folder):
    write_if_changed(Path(folder) / "front_list.inc", make_front_list())
    write_if_changed(Path(folder) / "zym_row_types.h", make_row_types())
    write_if_changed(Path(folder) / "zym_row_list.inc", make_row_list())
    write_if_changed(Path(folder) / "zym_row_calls.inc", make_row_calls())


# ---- The front: checked, threaded functions over the rows. Data movers have none. --------------------------------------


def front_rows(precision=None):
    return [r for r in unit_rows() if built(r) and r.shape != "pack" and precision in (None, r.precision)]


def front_name(row, strided):
    return f"orvik_{row.precision}{row.function.lower()}" + ("_strided" if strided else "")


def snake(name):
    return re.sub(r"([a-z])([A-Z])", lambda m: f"{m.group(1)}_{m.group(2).lower()}", name)


def typed(text, row):
    return re.sub(r"\bS\b", REAL[row.precision], re.sub(r"\bT\b", ELEMENT[row.precision], text))


def front_prototype(row, strided):
    arguments = []
    for t, name in arguments_of(row.shape, strided):
        if name.startswith("inc"):
            # inc_a, inc_r1: the kernels' increments count on 64 bits here
            arguments.append(f"int64_t inc_{name[3:].lower()}")
        else:
            arguments.append(typed(f"{t} {snake(name)}", row))
    return f"orvik_status {front_name(row, strided)}(int64_t n, {', '.join(arguments)}, orvik_math_options* options)"


def make_front_header():
    out = ["/* Checked vector functions. Generated by tools/rows/rows.py from the list of rows; included by orvik/front.h. */",
           "#ifndef ORVIK_FRONT_FUNCTIONS_H", "#define ORVIK_FRONT_FUNCTIONS_H", "",
           "#ifndef ORVIK_FRONT_H", "#include \"orvik/front.h\" /* the types */", "#endif", "",
           "#pragma GCC visibility push(default)", "#ifdef __cplusplus", "extern \"C\" {", "#endif", ""]
    for row in front_rows():
        codes = "; elements can be reported" if row.reports else ""
        out.append(f"/* {row_name(row)}: {TEXT[row.function]}{codes}. */")
        out += [front_prototype(row, strided) + ";" for strided in (0, 1)]
    out += ["", "#ifdef __cplusplus", "}", "#endif", "#pragma GCC visibility pop", "", "#endif"]
    return "\n".join(out) + "\n"


def make_front_exports():
    out = ["# Generated by tools/rows/rows.py from rows.def."]
    out += [front_name(row, strided) for row in front_rows() for strided in (0, 1)]
    return "\n".join(out) + "\n"


# How a shape's kernels are called (src/front/math/shapes.h): the template, and its types.
FRONT_CALLS = {
    "unary": "Unary<T, T>", "to_real": "Unary<T, S>", "from_real": "Unary<S, T>", "binary": "Binary<T>", "unary2": "Unary2<T>",
    "scalar": "Scalar<T>", "bessel": "Bessel<T>", "fraction": "Fraction<T>",
}


def make_front_source(precision):
    out = ["// Generated by tools/rows/rows.py from rows.def.", "#include \"front/math/shapes.h\"", "#include \"orvik/front.h\"",
           "#include \"orvik/zym.h\"", "", "using namespace orvik::front;", "", "extern \"C\" {"]
    for row in front_rows(precision):
        call = typed(FRONT_CALLS[row.shape], row)
        for strided in (0, 1):
            names = {name for _, name in arguments_of(row.shape, strided)}
            scalars = [snake(name) for t, name in arguments_of(row.shape, strided) if t == "T"]
            out.append(front_prototype(row, strided) + " {")
            out.append(f"  static constexpr Row row = {call}::row(orvik_zym_kernel_{row_name(row)}_ttab, "
                       f"orvik_zym_kernel_{row_name(row)}I_ttab, orvik_zym_kernel_{row_name(row)}_ctab, "
                       f"{str(row.reports).lower()});")
            if scalars:
                out.append(f"  const {ELEMENT[row.precision]} scalars[] = {{{', '.join(scalars)}}};")

            def array(name):
                if name not in names:
                    return None
                return f"{{{name}, {'inc_' + name if strided else '1'}}}"

            scalar_b = "b" in names and "b" not in scalars
            results = [array("r") or array("r1"), array("r2")]
            fields = [array("a"), array("b") if scalar_b else "{}", results[0], results[1] or "{}",
                      "scalars" if scalars else "nullptr", "order" if "order" in names else "0",
                      "true" if strided else "false"]
            out += [f"  return run(row, {{{', '.join(fields)}}}, n, options);", "}"]
    out.append("}  // extern \"C\"")
    return "\n".join(out) + "\n"


def write_front_sources(folder):
    paths = [Path(folder) / f"math_{p}.cc" for p in ELEMENT]
    for p, path in zip(ELEMENT, paths):
        write_if_changed(path, make_front_source(p))
    print(";".join(str(path) for path in paths), end="")


CXX_ELEMENT = {"s": "float", "d": "double", "c": "std::complex<float>", "z": "std::complex<double>"}


def make_front_cxx():
    """An overload a row over spans, one that returns a vector where there is one result, and a template a name."""
    out = ["// Vector functions in C++. Generated by tools/rows/rows.py from the list of rows; included by orvik/front.hpp.",
           "#ifndef ORVIK_FRONT_FUNCTIONS_HPP", "#define ORVIK_FRONT_FUNCTIONS_HPP", "",
           "#ifndef ORVIK_FRONT_HPP", "#include \"orvik/front.hpp\"", "#endif", "", "namespace orvik {", ""]
    for row in sorted(front_rows(), key=lambda r: r.function.lower()):
        name, element, real = row.function.lower(), CXX_ELEMENT[row.precision], REAL[row.precision]
        c_element = ELEMENT[row.precision]
        parameters, sizes, values, results, inputs = [], [], ["n"], [], []
        for t, argument in arguments_of(row.shape, 0):
            t = t.replace("T", element) if "T" in t else t.replace("S", real)
            argument = snake(argument)
            if t.endswith("*"):
                parameters.append((f"std::span<{t[:-1]}>", argument))
                sizes.append(argument)
                values.append(f"detail::raw({argument})")
                (inputs if t.startswith("const") else results).append(argument)
            elif t == "int32_t":
                parameters.append((t, argument))
                values.append(argument)
            else:
                parameters.append((t, argument))
                values.append(argument if row.precision in "sd" else f"{c_element}{{{argument}.real(), {argument}.imag()}}")
        same = ", ".join(f"{s}.size()" for s in sizes)
        written = ", ".join(f"{t} {a}" for t, a in parameters)
        out.append(f"// {TEXT[row.function]}")
        out.append(f"inline std::int32_t {name}({written}, const MathOptions& options = {{}}) {{")
        out.append(f"  const std::int64_t n = detail::same_size({same});")
        out.append(f"  return detail::math(options, {front_name(row, 0)}, {', '.join(values)});")
        out.append("}")
        if len(results) == 1:
            result = dict((a, t) for t, a in parameters)[results[0]][len("std::span<"):-1]
            taken = ", ".join(f"{t} {a}" for t, a in parameters if a not in results)
            passed = ", ".join("std::span(made)" if a in results else a for _, a in parameters)
            passed = passed.replace("std::span(made)", f"std::span<{result}>(made)")
            out.append(f"inline std::vector<{result}> {name}({taken}, const MathOptions& options = {{}}) {{")
            out.append(f"  std::vector<{result}> made({inputs[0]}.size());")
            out.append(f"  {name}({passed}, options);")
            out.append("  return made;")
            out.append("}")
    # With the element named: exp<double>(a, r).
    out.append("")
    by_name = {}
    for row in front_rows():
        if row.shape in ("unary", "binary", "unary2"):
            by_name.setdefault((row.function.lower(), row.shape), []).append(row)
    for (name, shape), rows in sorted(by_name.items()):
        concept = "Number" if any(r.precision in "cz" for r in rows) else "Real"
        parameters = [("std::span<const T>" if t.startswith("const") else "std::span<T>", a) for t, a in arguments_of(shape, 0)]
        out.append(f"// {TEXT[rows[0].function]}")
        out.append(f"template <{concept} T>")
        out.append(f"std::int32_t {name}({', '.join(f'{t} {a}' for t, a in parameters)}, const MathOptions& options = {{}}) {{")
        out.append(f"  return {name}({', '.join(a for _, a in parameters)}, options);")
        out.append("}")
    out += ["", "}  // namespace orvik", "", "#endif"]
    return "\n".join(out) + "\n"


MAKERS = {"table": make_table, "exports": make_exports, "header": make_header,
          "status": make_status, "front_header": make_front_header, "front_cxx": make_front_cxx,
          "front_exports": make_front_exports}


def take_costs(path):
    """Only the figures of the rows that were measured change; comments, order and all else stay."""
    measured = {}
    for line in Path(path).read_text().splitlines():
        name, *costs = line.split()
        if len(costs) not in (3, 6) or not all(0 < float(c) < 1e6 for c in costs):
            sys.exit(f"{path}: cannot read: {line}")
        measured[name] = [f"{float(c):.3f}" for c in costs]
    lines = []
    for line in ROWS.read_text().splitlines():
        m = re.match(r"^(ROW\((\w), (\w+), .*?), ([\d.]+, [\d.]+, [\d.]+)((?:, [\d.]+){3})?((?:, (?:narrow|whole)\w*)*)\)$", line)
        if m and m.group(2) + m.group(3) in measured:
            costs = measured.pop(m.group(2) + m.group(3))
            # sExp fixes the unit: its figures of 256 bits stand.
            narrow = m.group(4) if m.group(2) + m.group(3) == "sExp" else ", ".join(costs[:3])
            of_wide = "".join(f", {c}" for c in costs[3:]) or m.group(5) or ""  # those of before, where none are measured
            line = f"{m.group(1)}, {narrow}{of_wide}{m.group(6) or ''})"
        lines.append(line)
    if measured:
        sys.exit(f"{path}: no such rows: {' '.join(measured)}")
    ROWS.write_text("\n".join(lines) + "\n")


def write_if_changed(output, text):
    if not output.exists() or output.read_text() != text:
        output.parent.mkdir(parents=True, exist_ok=True)
        output.write_text(text)


def main():
    if ALL_WIDE:
        sys.argv.remove("--all-wide")
    missing = complaints(unit_rows())
    if missing:
        sys.exit("\n".join(missing))
    if len(sys.argv) == 3 and sys.argv[1] == "costs":
        return take_costs(sys.argv[2])
    if len(sys.argv) == 3 and sys.argv[1] == "wrappers":
        return write_wrappers(sys.argv[2])
    if len(sys.argv) == 3 and sys.argv[1] == "list":
        return write_list(sys.argv[2])
    if len(sys.argv) == 3 and sys.argv[1] == "front_sources":
        return write_front_sources(sys.argv[2])
    if len(sys.argv) != 3 or sys.argv[1] not in MAKERS:
        sys.exit(__doc__)
    text = MAKERS[sys.argv[1]]()
    write_if_changed(Path(sys.argv[2]), text)


if __name__ == "__main__":
    main()

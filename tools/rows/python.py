#!/usr/bin/env python3
"""What enumerates the ufuncs of the Python package, from the list of rows, src/zym/frame/rows.def. This file is the one place that
knows their names in Python.

    python.py source OUT   C++: the ufuncs of the extension orvik._math, their loops and docstrings
    python.py stub   OUT   python/orvik/_math.pyi
    python.py names  PAGE  puts the table of names between its two marks into docs/python.md
    python.py list         prints the names, one a line, with NumPy's or SciPy's
"""
import sys
from collections import namedtuple
from pathlib import Path

import rows

# Of a function of rows.def: its ufunc's name (NumPy's or SciPy's where these mean the same), theirs (None: they have none), what it
# computes, its arguments in an example and what that prints, what the arguments are, and the identity of its reductions.
Name = namedtuple("Name", "name peer summary example shown arguments identity")

X = "x: Argument."
RADIANS, DEGREES, TURNS = "x: Angle in radians.", "x: Angle in degrees.", "x: Angle in half turns."
X1X2 = "x1: First argument.; x2: Second argument."
POINT = "x1: Ordinate.; x2: Abscissa."
POWERS = "x1: Base.; x2: Exponent."
ORDER = "n: Order, a whole number (others give NaN).; x: Argument."
FRACTION = ("x1: Numerators.; x2: Denominators.; scale1: Factor of x1.; shift1: Added to the numerator.; scale2: Factor of x2.; "
            "shift2: Added to the denominator.")
IDENTITIES = {"none": "PyUFunc_None", "zero": "PyUFunc_Zero", "one": "PyUFunc_One", "reorder": "PyUFunc_ReorderableNone"}


def ufunc(name, peer, summary, example, shown, arguments=X, identity="none"):
    return Name(name, peer, summary, example, shown, arguments, identity)


NAMES = {
    "Abs": ufunc("absolute", "numpy.absolute", "Magnitude of each element, of complex ones without overflow in between.",
                 "[-1.5, 3+4j]", "array([1.5, 5. ])"),
    "Sqr": ufunc("square", "numpy.square", "Square.", "[1.0, 2.0, 3.0]", "array([1., 4., 9.])"),
    "Add": ufunc("add", "numpy.add", "Sum.", "[1.0, 2.0], 0.5", "array([1.5, 2.5])", arguments=X1X2, identity="zero"),
    "Sub": ufunc("subtract", "numpy.subtract", "Difference, x1 - x2.",
                 "[1.0, 2.0], 0.5", "array([0.5, 1.5])", arguments=X1X2),
    "Mul": ufunc("multiply", "numpy.multiply", "Product.",
                 "[1.0, 2.0], 1.5", "array([1.5, 3. ])", arguments=X1X2, identity="one"),
    "MulByConj": ufunc("mulbyconj", None, "Product of x1 and the conjugate of x2.",
                       "[1+2j], 3+4j", "array([11.+2.j])", arguments=X1X2),
    "LinearFrac": ufunc("linearfrac", None, "Linear fraction, (x1 scale1 + shift1) / (x2 scale2 + shift2).",
                        "[1.0, 2.0], [3.0, 4.0], 2.0, 1.0, 1.0, 0.0", "array([1.  , 1.25])", arguments=FRACTION),
    "Ceil": ufunc("ceil", "numpy.ceil", "Smallest integer not below x.", "[-1.5, 0.2]", "array([-1.,  1.])"),
    "Floor": ufunc("floor", "numpy.floor", "Largest integer not above x.", "[-1.5, 0.2]", "array([-2.,  0.])"),
    "Trunc": ufunc("trunc", "numpy.trunc", "x rounded towards zero.", "[-1.5, 1.7]", "array([-1.,  1.])"),
    "Rint": ufunc("rint", "numpy.rint", "x rounded to the nearest integer, ties to even.",
                  "[0.5, 1.5, 2.6]", "array([0., 2., 3.])"),
    "NearbyInt": ufunc("nearbyint", None, "x rounded to the nearest integer, ties to even; never raises the inexact flag.",
                       "[0.5, 1.5, 2.6]", "array([0., 2., 3.])"),
    "Round": ufunc("round_half_away", None, "x rounded to the nearest integer, ties away from zero.",
                   "[0.5, 1.5, -2.5]", "array([ 1.,  2., -3.])"),
    "Frac": ufunc("frac", None, "Fractional part, x - trunc(x), with the sign of x.",
                  "[1.25, -1.75]", "array([ 0.25, -0.75])"),
    "Modf": ufunc("modf", "numpy.modf", "Fractional and whole part, both with the sign of x.",
                  "[1.25, -1.75]", "(array([ 0.25, -0.75]), array([ 1., -1.]))"),
    "CopySign": ufunc("copysign", "numpy.copysign", "Magnitude of x1 with the sign of x2.",
                      "[1.0, 2.0], [-1.0, 1.0]", "array([-1.,  2.])", arguments=X1X2),
    "Fdim": ufunc("fdim", None, "Positive difference: x1 - x2 where x1 > x2, else 0.",
                  "[1.0, 3.0], 2.0", "array([0., 1.])", arguments=X1X2),
    "Fmax": ufunc("fmax", "numpy.fmax", "Larger of x1 and x2; a NaN loses.",
                  '[1.0, 3.0, float("nan")], 2.0', "array([2., 3., 2.])", arguments=X1X2, identity="reorder"),
    "Fmin": ufunc("fmin", "numpy.fmin", "Smaller of x1 and x2; a NaN loses.",
                  '[1.0, 3.0, float("nan")], 2.0', "array([1., 2., 2.])", arguments=X1X2, identity="reorder"),
    "MaxMag": ufunc("maxmag", None, "The one of larger magnitude; a NaN loses.",
                    "[1.0, -3.0], 2.0", "array([ 2., -3.])", arguments=X1X2, identity="reorder"),
    "MinMag": ufunc("minmag", None, "The one of smaller magnitude; a NaN loses.",
                    "[1.0, -3.0], 2.0", "array([1., 2.])", arguments=X1X2, identity="reorder"),
    "NextAfter": ufunc("nextafter", "numpy.nextafter", "The floating-point number next to x1 towards x2.",
                       "1.0, 2.0", "1.0000000000000002", arguments=X1X2),
    "Logb": ufunc("logb", None, "Exponent of x: floor(log2 |x|).", "[0.3, 1.0, 10.0]", "array([-2.,  0.,  3.])"),
    "Remainder": ufunc("ieee_remainder", None, "IEEE remainder: x1 - n x2, n the integer nearest to x1 / x2, ties to even.",
                       "[5.0, 7.0], 4.0", "array([ 1., -1.])", arguments=X1X2),
    "Fmod": ufunc("fmod", "numpy.fmod", "x1 - x2 trunc(x1 / x2), with the sign of x1.",
                  "[5.0, -7.0], 4.0", "array([ 1., -3.])", arguments=X1X2),
    "Inv": ufunc("reciprocal", "numpy.reciprocal", "1 / x.", "[2.0, 4.0]", "array([0.5 , 0.25])"),
    "Div": ufunc("divide", "numpy.divide", "Quotient, x1 / x2.", "[1.0, 2.0], 4.0", "array([0.25, 0.5 ])", arguments=X1X2),
    "Sqrt": ufunc("sqrt", "numpy.sqrt", "Square root.", "[2.0, 4.0]", "array([1.41421356, 2.        ])"),
    "InvSqrt": ufunc("rsqrt", None, "1 / sqrt(x).", "[2.0, 4.0]", "array([0.70710678, 0.5       ])"),
    "Cbrt": ufunc("cbrt", "numpy.cbrt", "Cube root.", "[2.0, -8.0]", "array([ 1.25992105, -2.        ])"),
    "InvCbrt": ufunc("rcbrt", None, "1 / cbrt(x).", "[2.0, -8.0]", "array([ 0.79370053, -0.5       ])"),
    "Hypot": ufunc("hypot", "numpy.hypot", "sqrt(x1**2 + x2**2), without overflow in between.",
                   "[3.0, 5.0], [4.0, 12.0]", "array([ 5., 13.])", arguments=X1X2, identity="zero"),
    "Pow3o2": ufunc("pow3o2", None, "x to the power 3/2.", "[2.0, 4.0]", "array([2.82842712, 8.        ])"),
    "Pow2o3": ufunc("pow2o3", None, "x to the power 2/3: the square of the cube root.",
                    "[2.0, -8.0]", "array([1.58740105, 4.        ])"),
    "Exp": ufunc("exp", "numpy.exp", "Exponential function, e to the power x.",
                 "[0.0, 1.0]", "array([1.        , 2.71828183])"),
    "Exp2": ufunc("exp2", "numpy.exp2", "2 to the power x.", "[0.5, 3.0]", "array([1.41421356, 8.        ])"),
    "Exp10": ufunc("exp10", "scipy.special.exp10", "10 to the power x.",
                   "[0.5, 3.0]", "array([   3.16227766, 1000.        ])"),
    "Expm1": ufunc("expm1", "numpy.expm1", "e to the power x, less 1; accurate for small x.",
                   "[1e-10, 1.0]", "array([1.00000000e-10, 1.71828183e+00])"),
    "Ln": ufunc("log", "numpy.log", "Natural logarithm.", "[1.0, 2.0]", "array([0.        , 0.69314718])"),
    "Log10": ufunc("log10", "numpy.log10", "Logarithm to base 10.", "[2.0, 100.0]", "array([0.30103, 2.     ])"),
    "Log2": ufunc("log2", "numpy.log2", "Logarithm to base 2.", "[3.0, 8.0]", "array([1.5849625, 3.       ])"),
    "Log1p": ufunc("log1p", "numpy.log1p", "Natural logarithm of 1 + x; accurate for small x.",
                   "[1e-10, 1.0]", "array([1.00000000e-10, 6.93147181e-01])"),
    "Sin": ufunc("sin", "numpy.sin", "Sine.", "[0.5, 1.0]", "array([0.47942554, 0.84147098])", arguments=RADIANS),
    "Cos": ufunc("cos", "numpy.cos", "Cosine.", "[0.5, 1.0]", "array([0.87758256, 0.54030231])", arguments=RADIANS),
    "Tan": ufunc("tan", "numpy.tan", "Tangent.", "[0.5, 1.0]", "array([0.54630249, 1.55740772])", arguments=RADIANS),
    "SinCos": ufunc("sincos", None, "Sine and cosine.",
                    "[0.5, 1.0]", "(array([0.47942554, 0.84147098]), array([0.87758256, 0.54030231]))", arguments=RADIANS),
    "Sinpi": ufunc("sinpi", None, "Sine of pi x.", "[0.25, 0.5]", "array([0.70710678, 1.        ])", arguments=TURNS),
    "Cospi": ufunc("cospi", None, "Cosine of pi x.", "[0.25, 1.0]", "array([ 0.70710678, -1.        ])", arguments=TURNS),
    "Tanpi": ufunc("tanpi", None, "Tangent of pi x.", "[0.25, 0.125]", "array([1.        , 0.41421356])", arguments=TURNS),
    "SinCospi": ufunc("sincospi", None, "Sine and cosine of pi x.",
                      "[0.25, 0.5]", "(array([0.70710678, 1.        ]), array([0.70710678, 0.        ]))", arguments=TURNS),
    "Sind": ufunc("sind", "scipy.special.sindg", "Sine.", "[30.0, 90.0]", "array([0.5, 1. ])", arguments=DEGREES),
    "Cosd": ufunc("cosd", "scipy.special.cosdg", "Cosine.", "[60.0, 180.0]", "array([ 0.5, -1. ])", arguments=DEGREES),
    "Tand": ufunc("tand", "scipy.special.tandg", "Tangent.",
                  "[45.0, 60.0]", "array([1.        , 1.73205081])", arguments=DEGREES),
    "Asin": ufunc("arcsin", "numpy.arcsin", "Arc sine, in radians.", "[0.5, 1.0]", "array([0.52359878, 1.57079633])"),
    "Acos": ufunc("arccos", "numpy.arccos", "Arc cosine, in radians.", "[0.5, -1.0]", "array([1.04719755, 3.14159265])"),
    "Atan": ufunc("arctan", "numpy.arctan", "Arc tangent, in radians.", "[0.5, 1.0]", "array([0.46364761, 0.78539816])"),
    "Asinpi": ufunc("arcsinpi", None, "Arc sine / pi.", "[0.5, 1.0]", "array([0.16666667, 0.5       ])"),
    "Acospi": ufunc("arccospi", None, "Arc cosine / pi.", "[0.5, -1.0]", "array([0.33333333, 1.        ])"),
    "Atanpi": ufunc("arctanpi", None, "Arc tangent / pi.", "[0.5, 1.0]", "array([0.14758362, 0.25      ])"),
    "Atan2": ufunc("arctan2", "numpy.arctan2", "Angle of the point (x2, x1), in radians.",
                   "[1.0, -1.0], [1.0, 2.0]", "array([ 0.78539816, -0.46364761])", arguments=POINT),
    "Atan2pi": ufunc("arctan2pi", None, "Angle of the point (x2, x1) / pi.",
                     "[1.0, -1.0], [1.0, 2.0]", "array([ 0.25      , -0.14758362])", arguments=POINT),
    "Sinh": ufunc("sinh", "numpy.sinh", "Hyperbolic sine.", "[0.5, 1.0]", "array([0.52109531, 1.17520119])"),
    "Cosh": ufunc("cosh", "numpy.cosh", "Hyperbolic cosine.", "[0.5, 1.0]", "array([1.12762597, 1.54308063])"),
    "Tanh": ufunc("tanh", "numpy.tanh", "Hyperbolic tangent.", "[0.5, 1.0]", "array([0.46211716, 0.76159416])"),
    "Asinh": ufunc("arcsinh", "numpy.arcsinh", "Inverse hyperbolic sine.", "[0.5, 1.0]", "array([0.48121183, 0.88137359])"),
    "Acosh": ufunc("arccosh", "numpy.arccosh", "Inverse hyperbolic cosine.", "[1.0, 2.0]", "array([0.       , 1.3169579])"),
    "Atanh": ufunc("arctanh", "numpy.arctanh", "Inverse hyperbolic tangent.",
                   "[0.0, 0.5]", "array([0.        , 0.54930614])"),
    "Pow": ufunc("power", "numpy.power", "x1 to the power x2.",
                 "[2.0, 3.0], 0.5", "array([1.41421356, 1.73205081])", arguments=POWERS),
    "Powr": ufunc("powr", None, "x1 to the power x2 of bases that are not negative; -0 counts as 0.",
                  "[2.0, 3.0], 0.5", "array([1.41421356, 1.73205081])", arguments=POWERS),
    "Erf": ufunc("erf", "scipy.special.erf", "Error function.", "[0.5, 1.0]", "array([0.52049988, 0.84270079])"),
    "Erfc": ufunc("erfc", "scipy.special.erfc", "Complementary error function, 1 - erf(x).",
                  "[0.5, 10.0]", "array([4.79500122e-01, 2.08848758e-45])"),
    "Erfcx": ufunc("erfcx", "scipy.special.erfcx", "Scaled complementary error function, e to the power x**2 times erfc(x).",
                   "[0.5, 100.0]", "array([0.61569034, 0.00564161])"),
    "ErfInv": ufunc("erfinv", "scipy.special.erfinv", "Inverse of the error function.",
                    "[0.0, 0.5]", "array([0.        , 0.47693628])"),
    "ErfcInv": ufunc("erfcinv", "scipy.special.erfcinv", "Inverse of the complementary error function.",
                     "[0.5, 1e-10]", "array([0.47693628, 4.57282497])"),
    "CdfNorm": ufunc("ndtr", "scipy.special.ndtr", "Distribution function of the standard normal distribution.",
                     "[0.0, 1.96]", "array([0.5      , 0.9750021])"),
    "CdfNormInv": ufunc("ndtri", "scipy.special.ndtri", "Quantile of the standard normal distribution.",
                        "[0.5, 0.975]", "array([0.        , 1.95996398])"),
    "LGamma": ufunc("gammaln", "scipy.special.gammaln", "Logarithm of the magnitude of the gamma function.",
                    "[0.5, 100.0]", "array([  0.57236494, 359.13420537])"),
    "TGamma": ufunc("gamma", "scipy.special.gamma", "Gamma function.", "[0.5, 5.0]", "array([ 1.77245385, 24.        ])"),
    "ExpInt1": ufunc("exp1", "scipy.special.exp1", "Exponential integral E1: the integral of exp(-t) / t from x on.",
                     "[0.5, 1.0]", "array([0.55977359, 0.21938393])"),
    "I0": ufunc("i0", "scipy.special.i0", "Modified Bessel function of the first kind of order 0.",
                "[0.5, 1.0]", "array([1.06348337, 1.26606588])"),
    "I1": ufunc("i1", "scipy.special.i1", "Modified Bessel function of the first kind of order 1.",
                "[0.5, 1.0]", "array([0.25789431, 0.5651591 ])"),
    "J0": ufunc("j0", "scipy.special.j0", "Bessel function of the first kind of order 0.",
                "[0.5, 1.0]", "array([0.93846981, 0.76519769])"),
    "J1": ufunc("j1", "scipy.special.j1", "Bessel function of the first kind of order 1.",
                "[0.5, 1.0]", "array([0.24226846, 0.44005059])"),
    "Y0": ufunc("y0", "scipy.special.y0", "Bessel function of the second kind of order 0.",
                "[0.5, 1.0]", "array([-0.44451873,  0.08825696])"),
    "Y1": ufunc("y1", "scipy.special.y1", "Bessel function of the second kind of order 1.",
                "[0.5, 1.0]", "array([-1.47147239, -0.78121282])"),
    "Jn": ufunc("jn", "scipy.special.jn", "Bessel function of the first kind of integer order.",
                "2, [0.5, 1.0]", "array([0.03060402, 0.11490348])", arguments=ORDER),
    "Yn": ufunc("yn", "scipy.special.yn", "Bessel function of the second kind of integer order.",
                "2, [0.5, 1.0]", "array([-5.44137084, -1.65068261])", arguments=ORDER),
    "Conj": ufunc("conjugate", "numpy.conjugate", "Complex conjugate.", "[1+2j, 3-4j]", "array([1.-2.j, 3.+4.j])"),
    "CIS": ufunc("cis", None, "cos(x) + i sin(x) of real x.",
                 "[0.5, 1.0]", "array([0.87758256+0.47942554j, 0.54030231+0.84147098j])", arguments=RADIANS),
    "Arg": ufunc("angle", "numpy.angle", "Argument of complex numbers, in (-pi, pi], in radians.",
                 "[1+1j, -1j]", "array([ 0.78539816, -1.57079633])"),
}
# Rows without a ufunc of their own, and what does their work.
WITHOUT = {"Powx": "`power` with one number as its second argument"}
# Rows whose two results come the other way round, as numpy.modf has them.
EXCHANGED = {"Modf"}
# Functions that hand on one of their arguments, or its neighbour.
SELECTING = {"Fmax", "Fmin", "MaxMag", "MinMag", "NextAfter"}
# Functions of which a report's code and result do not tell what was exceptional, and the kernels' flags do.
RAISING = {"Div", "Pow", "Powr"}
# Functions of one instruction, in math/in_order.h.
IN_ORDER = {"Add": "Sum", "Sub": "Difference", "Mul": "Product", "Fmax": "Larger", "Fmin": "Smaller"}
CPP_TYPES = {"s": "float", "d": "double"}
RESULTS = {"Modf": ("Fractional part", "Whole part"), "SinCos": ("Sine", "Cosine"), "SinCospi": ("Sine", "Cosine")}
TYPES = {"s": "float32", "d": "float64", "c": "complex64", "z": "complex128"}
NARROW = {"c": "s", "z": "d"}
LEAST_LOCKED, MOST_LOCKED = 500, 16384


def ufuncs():
    """(Name, function, rows by precision) by name."""
    by_function = {}
    for row in rows.front_rows():
        by_function.setdefault(row.function, []).append(row)
    unsure = (set(by_function) - set(WITHOUT)) ^ set(NAMES)
    if unsure:
        sys.exit(f"tools/rows/python.py: rows.def and NAMES differ about: {' '.join(sorted(unsure))}")
    return sorted((name, f, sorted(by_function[f], key=lambda r: "sdcz".index(r.precision))) for f, name in NAMES.items())


def arguments_of(name):
    return [tuple(argument.split(": ", 1)) for argument in name.arguments.split("; ")]


def types_of(row):
    """NumPy's types of the arrays and of the results."""
    own, narrow = TYPES[row.precision], TYPES[NARROW.get(row.precision, row.precision)]
    return (narrow if row.shape == "from_real" else own), (narrow if row.shape == "to_real" else own)


def docstring(name, function, own):
    out = [name.summary, "", "Parameters", "----------"]
    for word, text in arguments_of(name):
        out += [f"{word} : array_like", f"    {text}"]
    out += ["out, where, casting, order, dtype, subok : optional", "    As in all ufuncs of NumPy.", "", "Returns", "-------"]
    results = RESULTS.get(function, ("Result",))
    for k, text in enumerate(results):
        word = "y" if len(results) == 1 else f"y{k + 1}"
        out += [f"{word} : ndarray or scalar", f"    {text}, of the shape that the arguments broadcast to; a scalar where all are."]
    loops = ", ".join(a if a == r else f"{a} to {r}" for a, r in map(types_of, own))
    out += ["", "See Also", "--------"] + ([name.peer] if name.peer else []) + ["orvik.accuracy : the level of accuracy", ""]
    out += ["Notes", "-----", f"Computed in {loops}; other types are cast as NumPy casts them."]
    if all(row.sharing == "one" for row in own):
        out.append("All levels of accuracy are the same.")
    out += ["", "Examples", "--------", ">>> import orvik", f">>> orvik.{name.name}({name.example})", *name.shown.splitlines()]
    return "\n".join(out)


def locked_elements(row):
    """Up to how many elements a call keeps the interpreter's lock: some 3 microseconds, by the costs of rows.def, a fifth of a nanosecond
    each; but no fewer than NumPy's own loops keep it for."""
    return int(min(max(LEAST_LOCKED, 15_000 / max(map(float, row.costs))), MOST_LOCKED))


def make_source():
    out = ["// Generated by tools/rows/python.py from rows.def.", "#include \"math/in_order.h\"", "#include \"math/loops.h\"", "#include \"math/numpy.h\"", "",
           "namespace orvik::python {", "namespace {"]
    table = []
    for name, function, own in ufuncs():
        loops = [f"locked(Of<{rows.front_name(row, 0)}, {rows.front_name(row, 1)}>::loop, {locked_elements(row)})" for row in own]
        loops = [f"with({loop}, &Loop::reports)" if row.reports else loop for loop, row in zip(loops, own)]
        if own[0].shape == "bessel":
            loops += [f"real_order({loop})" for loop in loops]
        for prop, held in (("swapped", function in EXCHANGED), ("selects", function in SELECTING), ("reorders", name.identity != "none")):
            loops = [f"with({loop}, &Loop::{prop})" if held else loop for loop in loops]
        if function == "Div":
            loops = [f"with({loop}, &Loop::divides)" if row.precision in "cz" else loop for loop, row in zip(loops, own)]
        if function in RAISING:
            loops = [f"with({loop}, &Loop::raises)" if row.precision in "sd" else loop for loop, row in zip(loops, own)]
        if function in IN_ORDER:
            loops = [f"with({loop}, in_order<{CPP_TYPES[row.precision]}, {IN_ORDER[function]}>)" if row.precision in CPP_TYPES else loop
                     for loop, row in zip(loops, own)]
        out.append(f"constexpr Loop {name.name}_loops[] = {{{', '.join(loops)}}};")
        table.append(f"    {{\"{name.name}\", {IDENTITIES[name.identity]}, R\"({docstring(name, function, own)})\", {name.name}_loops, "
                     f"{len(loops)}}},")
    out += ["}  // namespace", "", "const Ufunc kUfuncs[] = {", *table, "};", f"const int kUfuncCount = {len(table)};", "",
            "}  // namespace orvik::python"]
    return "\n".join(out) + "\n"


def make_stub():
    out = ["# Generated by tools/rows/python.py.", "from typing import SupportsIndex", "", "import numpy as np", "",
           "__all__ = ["]
    out += [f'    "{name.name}",' for name, _, _ in ufuncs()]
    out += ["]", "__version__: str", ""]
    out += [f"{name.name}: np.ufunc  # {name.summary}" for name, _, _ in ufuncs()]
    out += ["", "def get_num_threads() -> int: ...", "def set_num_threads(n: SupportsIndex, /) -> None: ...",
            "def _get_accuracy() -> int: ...", "def _set_accuracy(level: int, /) -> int: ..."]
    return "\n".join(out) + "\n"


def make_names():
    out = ["| orvik | NumPy, SciPy | what | types |", "|---|---|---|---|"]
    for name, _, own in ufuncs():
        letters = ", ".join(a if a == r else f"{a} to {r}" for a, r in map(types_of, own))
        summary = name.summary.rstrip(".").replace("|", "&#124;").replace("**", "\\*\\*")
        out.append(f"| `{name.name}` | {f'`{name.peer}`' if name.peer else ''} | {summary} | {letters} |")
    out.append("")
    out += [f"`{function}` has no ufunc of its own: {instead}." for function, instead in WITHOUT.items()]
    return "\n".join(out) + "\n"


def put_names(page):
    begin, end = "<!-- names: tools/rows/python.py names -->\n", "<!-- end of names -->\n"
    text = page.read_text()
    if text.count(begin) != 1 or text.count(end) != 1:
        sys.exit(f"{page}: the marks of the table of names are missing")
    head, rest = text.split(begin)
    rows.write_if_changed(page, head + begin + make_names() + end + rest.split(end)[1])


def main():
    if sys.argv[1:] == ["list"]:
        print("\n".join(f"{name.name} {name.peer or '-'}" for name, _, _ in ufuncs()))
    elif len(sys.argv) == 3 and sys.argv[1] == "source":
        rows.write_if_changed(Path(sys.argv[2]), make_source())
    elif len(sys.argv) == 3 and sys.argv[1] == "stub":
        rows.write_if_changed(Path(sys.argv[2]), make_stub())
    elif len(sys.argv) == 3 and sys.argv[1] == "names":
        put_names(Path(sys.argv[2]))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()

"""Which arguments the ufuncs are tried with, and what their results are compared with."""
import numpy as np
import scipy.special as sp

import orvik

SUBMODULES = {"interpolate", "random", "stats"}
UFUNCS = {name: f for name in orvik.__all__ if name not in SUBMODULES and isinstance(f := getattr(orvik, name), np.ufunc)}
REAL, COMPLEX = (np.float32, np.float64), (np.complex64, np.complex128)

# Where the real arguments lie; -4 to 4 where nothing is said.
RANGES = {
    "log": (1e-3, 1e3), "log2": (1e-3, 1e3), "log10": (1e-3, 1e3), "log1p": (-0.9, 100), "sqrt": (0, 100), "rsqrt": (0.01, 100),
    "pow3o2": (0, 100), "arcsin": (-1, 1), "arccos": (-1, 1), "arcsinpi": (-1, 1), "arccospi": (-1, 1), "arccosh": (1, 50),
    "arctanh": (-0.99, 0.99), "erfinv": (-0.99, 0.99), "erfcinv": (0.01, 1.99), "ndtri": (0.01, 0.99), "gamma": (0.1, 30),
    "gammaln": (3, 100), "exp1": (0.01, 20), "y0": (0.1, 30), "y1": (0.1, 30), "yn": (0.1, 30), "jn": (0.1, 30), "j0": (-30, 30),
    "j1": (-30, 30), "power": (0.1, 4), "powr": (0.1, 4), "reciprocal": (0.1, 4), "rcbrt": (0.1, 4), "exp": (-20, 20),
    "sind": (-720, 720), "cosd": (-720, 720), "tand": (-80, 80), "sinpi": (-4, 4), "erfcx": (-2, 20), "logb": (0.01, 100),
    "divide": (0.1, 4), "linearfrac": (0.1, 4),
}


def extended(f):
    """The function in long double, 11 bits more than double."""
    return lambda *x: f(*(v.astype(np.longdouble) for v in x))


PI = np.longdouble("3.14159265358979323846264338327950288")


def turns(quarters, full):
    """A function of angles, of which `full` make a turn: reduced exactly to less than an eighth of a turn, then one of four."""
    def f(x):
        x = x.astype(np.longdouble)
        quarter = np.rint(4 * x / full)
        r = (x - quarter * full / 4) * (2 * PI / full)
        return np.choose(quarter.astype(int) % 4, quarters(np.sin(r), np.cos(r)))
    return f


def sine(s, c):
    return [s, c, -s, -c]


def cosine(s, c):
    return [c, -s, -c, s]


def tangent(s, c):
    with np.errstate(divide="ignore"):
        return [s / c, -c / s, s / c, -c / s]


# Exact or nearly so, in more precision than the result where that is to be had. Of the special functions SciPy's double ones.
REFERENCES = {
    "mulbyconj": lambda a, b: a.astype(np.clongdouble) * np.conj(b.astype(np.clongdouble)),
    "linearfrac": extended(lambda a, b, s, t, u, v: (a * s + t) / (b * u + v)),
    "nearbyint": np.rint, "round_half_away": lambda x: np.copysign(np.floor(np.abs(x) + 0.5), x), "frac": lambda x: x - np.trunc(x),
    "fdim": extended(lambda a, b: np.where(a > b, a - b, 0)), "logb": lambda x: np.frexp(x)[1] - 1.0,
    "maxmag": lambda a, b: np.where(np.abs(a) > np.abs(b), a, b), "minmag": lambda a, b: np.where(np.abs(a) < np.abs(b), a, b),
    "ieee_remainder": extended(lambda a, b: a - b * np.rint(a / b)),
    "rsqrt": extended(lambda x: 1 / np.sqrt(x)), "rcbrt": extended(lambda x: 1 / np.cbrt(x)),
    "pow3o2": extended(lambda x: x * np.sqrt(x)), "pow2o3": extended(lambda x: np.cbrt(x) ** 2),
    "sincos": extended(lambda x: (np.sin(x), np.cos(x))), "exp10": extended(lambda x: np.power(np.longdouble(10), x)),
    "sinpi": turns(sine, 2), "cospi": turns(cosine, 2), "tanpi": turns(tangent, 2),
    "sincospi": lambda x: (turns(sine, 2)(x), turns(cosine, 2)(x)),
    "sind": turns(sine, 360), "cosd": turns(cosine, 360), "tand": turns(tangent, 360),
    "arcsinpi": extended(lambda x: np.arcsin(x) / PI), "arccospi": extended(lambda x: np.arccos(x) / PI),
    "arctanpi": extended(lambda x: np.arctan(x) / PI), "arctan2pi": extended(lambda a, b: np.arctan2(a, b) / PI),
    "powr": extended(np.power), "cis": extended(lambda x: np.cos(x) + 1j * np.sin(x)), "angle": lambda z: np.arctan2(
        z.imag.astype(np.longdouble), z.real.astype(np.longdouble)),
    "jn": lambda n, x: sp.jv(n, x.astype(float)), "yn": lambda n, x: sp.yn(n, x.astype(float)),
    "nextafter": np.nextafter, "conjugate": np.conjugate, "copysign": np.copysign,
}


def reference(name):
    if name in REFERENCES:
        return REFERENCES[name]
    if hasattr(np, name):
        wide = {"f": np.longdouble, "c": np.clongdouble}
        return lambda *x: getattr(np, name)(*(v.astype(wide[v.dtype.kind]) for v in x))
    return lambda *x: getattr(sp, name)(*(v.astype(float) for v in x))


SPECIAL = {"erf", "erfc", "erfinv", "erfcinv", "erfcx", "ndtr", "ndtri", "gamma", "gammaln", "exp1", "i0", "i1", "j0", "j1", "y0", "y1",
           "jn", "yn"}


def loops(f):
    """(types of the inputs, types of the results) of each loop."""
    for signature in f.types:
        inputs, results = signature.split("->")
        yield tuple(np.dtype(c) for c in inputs), tuple(np.dtype(c) for c in results)


def numbers(random, name, dtype, shape):
    low, high = RANGES.get(name, (-4, 4))
    if dtype.kind == "i":
        return random.integers(0, 20, shape).astype(dtype)
    if dtype.kind == "c":
        return (random.uniform(-4, 4, shape) + 1j * random.uniform(-4, 4, shape)).astype(dtype)
    return random.uniform(low, high, shape).astype(dtype)


def arguments(random, name, inputs, shape):
    """Of one loop, by the types of its inputs. An order that comes as floating-point numbers is whole all the same."""
    made = [numbers(random, name, dtype, shape) for dtype in inputs]
    if name in ("jn", "yn") and made[0].dtype.kind == "f":
        made[0] = np.trunc(made[0])
    return made

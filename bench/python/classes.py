"""Random fills, covariances, quantiles and splines beside NumPy and SciPy, arrays in and out as users have them, on one thread."""
import functools

import numpy as np
import scipy.interpolate
from measure import Case

import orvik
from orvik import interpolate, random, stats

TITLE = "Random numbers, statistics, splines"
NOTE = """One thread on both sides (BLAS as well). Fills: the output is given, ours from the generator that the row names, by its own methods;
NumPy's by `random` and `standard_normal`. Covariances of 10 variables, "F": in Fortran order. Quantiles of one variable.
Splines over 1,000 breakpoints (100 of them for n = 100), not-a-knot, sites at random and in order."""
LABEL = "orvik"
UNIFORM_TWISTER, UNIFORM_PCG, NORMAL = "uniforms, Generator(MT19937)", "uniforms, Generator(PCG64)", "normals"
COV, QUANTILE, SPLINE, BUILD = "np.cov", "np.quantile", "CubicSpline, values", "CubicSpline, construction"
GOALS = {(UNIFORM_TWISTER, LABEL): 3, (UNIFORM_PCG, LABEL): 1.5, (NORMAL, LABEL): 3, (COV, LABEL): 1.5, (QUANTILE, LABEL): 3,
         (SPLINE, LABEL): 5}
LEAST = {}
SHORT = 100  # numbers at which no call may be slower than NumPy's
SEED = 1


def case(name, group, n, ours, peer, theirs):
    return Case(name, group, n, {LABEL: ours}, peer, theirs)


def fills(n):
    out = np.empty(n)
    for kind in (random.MT19937, random.SFMT19937, random.PHILOX4X32X10, random.ARS5):
        stream = kind(SEED)
        for bits, group in ((np.random.MT19937, UNIFORM_TWISTER), (np.random.PCG64, UNIFORM_PCG)):
            rng = np.random.Generator(bits(SEED))
            peer = f"Generator({bits.__name__})"
            yield case(f"uniform, {kind.__name__}", group, n, functools.partial(stream.uniform, out=out), peer,
                       functools.partial(rng.random, out=out))
            yield case(f"normal, {kind.__name__}", NORMAL, n, functools.partial(stream.normal, out=out), peer,
                       functools.partial(rng.standard_normal, out=out))


def statistics(n):
    x = np.random.default_rng(SEED).normal(size=(n, 10))
    by_columns, one = np.asfortranarray(x), np.ascontiguousarray(x[:, 0])
    for name, data in (("cov", x), ("cov, F", by_columns), ("cov, one variable", one)):
        yield case(name, COV, n, functools.partial(stats.cov, data), "numpy", functools.partial(np.cov, data, rowvar=False))
    for name, q in (("quantile, median", 0.5), ("quantile, three", [0.1, 0.5, 0.9])):
        yield case(name, QUANTILE, n, functools.partial(stats.quantile, one, q), "numpy", functools.partial(np.quantile, one, q))


def splines(n):
    knots = min(n, 1000)
    x = np.sort(np.random.default_rng(SEED).uniform(0, 10, knots))
    y = np.sin(x)
    ours, theirs = interpolate.Spline(x, y, ends="not-a-knot"), scipy.interpolate.CubicSpline(x, y)
    t = np.random.default_rng(SEED + 1).uniform(x[0], x[-1], n)
    for name, sites in (("spline, sites at random", t), ("spline, sites in order", np.sort(t))):
        yield case(name, SPLINE, n, functools.partial(ours, sites), "scipy", functools.partial(theirs, sites))
    if n <= 10_000:
        x = np.sort(np.random.default_rng(SEED).uniform(0, 10, n))
        y = np.sin(x)
        yield case("spline, construction", BUILD, n, functools.partial(interpolate.Spline, x, y, ends="not-a-knot"), "scipy",
                   functools.partial(scipy.interpolate.CubicSpline, x, y))


def cases(only=None, sizes=(100, 10_000, 1_000_000)):
    before = orvik.get_num_threads()
    orvik.set_num_threads(1)
    for n in sizes:
        for part in (fills, statistics, splines):
            for one in part(n):
                if not only or one.name in only:
                    yield one
    orvik.set_num_threads(before)

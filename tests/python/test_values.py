"""Values of every loop of every ufunc at each level of accuracy, beside NumPy's in long double and SciPy's in double."""
import numpy as np
import pytest
from arguments import REAL, SPECIAL, UFUNCS, arguments, loops, reference

import orvik

CASES = [(name, inputs, results) for name, f in UFUNCS.items() for inputs, results in loops(f)]
# What the levels promise in ulp; linearfrac rounds four times. MPFR judges the kernels themselves, far more strictly.
BOUNDS = {"HA": 1.0, "LA": 4.0}
LINEARFRAC = 2.0
# What SciPy's own functions are off: next to the zeros of those that oscillate only in ulp of larger numbers.
SCIPY = 40.0
OSCILLATING = {"j0": 400.0, "j1": 400.0, "y0": 400.0, "y1": 400.0, "jn": 400.0, "yn": 400.0}
LEAST_OSCILLATING = 0.1


def errors_in_ulp(got, want, least):
    """Of real results; of complex ones by the norm. Numbers below `least` count as that, infinite ones where both are."""
    part = got.real.dtype
    info = np.finfo(part)
    want = np.where(np.isinf(want.astype(got.dtype)), got, want) if got.dtype.kind == "f" else want
    scale = np.maximum(np.abs(want), max(least, info.tiny)).astype(np.longdouble)
    ulp = np.ldexp(np.longdouble(1), np.frexp(scale)[1] - 1 - info.nmant)
    difference = got.astype(np.clongdouble if got.dtype.kind == "c" else np.longdouble) - want
    return np.where(got == want, 0, np.abs(difference) / ulp)


@pytest.mark.filterwarnings("ignore")
@pytest.mark.parametrize("level", ["HA", "LA", "EP"])
@pytest.mark.parametrize("name, inputs, results", CASES, ids=[f"{c[0]}-{''.join(t.char for t in c[1])}" for c in CASES])
def test_values(name, inputs, results, level):
    x = arguments(np.random.default_rng(11), name, inputs, 2000)
    with orvik.accuracy(level):
        got = UFUNCS[name](*x)
    want = reference(name)(*x)
    got, want = (got, want) if isinstance(got, tuple) else ((got,), (want,))
    for g, w, dtype in zip(got, want, results):
        assert g.dtype == dtype
        error = errors_in_ulp(g, w, LEAST_OSCILLATING if name in OSCILLATING else 0)
        if level == "EP":
            bits = 11 if g.real.dtype == np.float32 else 26
            allowed = 2.0 ** (np.finfo(g.real.dtype).nmant + 1 - bits)
        else:
            allowed = max(BOUNDS[level], LINEARFRAC if name == "linearfrac" else 0)
        if name in SPECIAL:
            allowed += OSCILLATING.get(name, SCIPY) if g.dtype == np.float64 else 0.1
        worst = np.argmax(error)
        assert error[worst] <= allowed, (error[worst], [v[worst] for v in x])


def test_the_levels_differ_where_the_kernels_do():
    x = np.random.default_rng(3).uniform(-10, 10, 1000)
    results = {}
    for level in ("HA", "LA", "EP"):
        with orvik.accuracy(level):
            results[level] = orvik.exp(x)
    assert not np.array_equal(results["LA"], results["EP"])
    assert not np.array_equal(results["HA"], results["LA"])


@pytest.mark.parametrize("dtype", REAL)
def test_reductions_are_those_of_their_order(dtype):
    x = np.random.default_rng(5).uniform(0.5, 1.5, 50).astype(dtype)
    total = dtype(0)
    for v in x:
        total = dtype(total + v)
    assert orvik.add.reduce(x) == total
    assert np.array_equal(orvik.add.accumulate(x)[-1], total)
    assert orvik.add.reduce(np.empty(0, dtype)) == 0
    assert orvik.multiply.reduce(np.empty(0, dtype)) == 1
    assert orvik.fmax.reduce(x) == x.max()
    assert orvik.fmin.reduce(x.reshape(5, 10), axis=(0, 1)) == x.min()
    assert np.allclose(orvik.hypot.reduce(x), np.sqrt(np.sum(x.astype(float) ** 2)), rtol=1e-5)

"""Exceptional elements as NumPy's errstate has them."""
import warnings

import numpy as np
import pytest
from arguments import REAL

import orvik

KINDS = {"divide": "divide by zero", "over": "overflow", "under": "underflow", "invalid": "invalid value"}
CASES = [
    ("log", (0.0,), "divide"), ("log", (-1.0,), "invalid"), ("log2", (0.0,), "divide"), ("log10", (-2.0,), "invalid"),
    ("log1p", (-1.0,), "divide"), ("log1p", (-2.0,), "invalid"), ("exp", (1e4,), "over"), ("exp", (-1e4,), "under"),
    ("exp2", (1e5,), "over"), ("expm1", (1e4,), "over"), ("sqrt", (-1.0,), "invalid"), ("reciprocal", (0.0,), "divide"),
    ("divide", (1.0, 0.0), "divide"), ("divide", (0.0, 0.0), "invalid"), ("power", (0.0, -1.0), "divide"),
    ("power", (0.0, -2.5), "divide"), ("power", (0.0, -np.inf), "divide"), ("power", (-0.0, -np.inf), "divide"),
    ("power", (-2.0, 0.5), "invalid"), ("power", (1e30, 1e3), "over"), ("sin", (np.inf,), "invalid"),
    ("cos", (np.inf,), "invalid"), ("tan", (-np.inf,), "invalid"), ("arcsin", (2.0,), "invalid"), ("arccos", (-2.0,), "invalid"),
    ("arccosh", (0.5,), "invalid"), ("arctanh", (1.0,), "divide"), ("arctanh", (2.0,), "invalid"), ("sinh", (1e4,), "over"),
    ("cosh", (-1e4,), "over"), ("fmod", (1.0, 0.0), "invalid"), ("hypot", (3e38, 3e38), "over"), ("add", (3e38, 3e38), "over"),
    ("multiply", (1e30, 1e30), "over"), ("multiply", (1e-30, 1e-30), "under"), ("square", (1e30,), "over"),
    ("subtract", (np.inf, np.inf), "invalid"),
]
# SciPy's own raise nothing; ours do as the functions above.
SPECIAL = [
    ("rsqrt", (-1.0,), "invalid"), ("rsqrt", (0.0,), "divide"), ("erfc", (1e4,), "under"), ("erfinv", (1.0,), "divide"),
    ("erfinv", (2.0,), "invalid"), ("ndtri", (0.0,), "divide"), ("ndtri", (2.0,), "invalid"), ("gamma", (0.0,), "divide"),
    ("gamma", (-1.0,), "invalid"), ("gamma", (1e4,), "over"), ("gammaln", (-3.0,), "divide"), ("exp1", (0.0,), "divide"),
    ("exp1", (-1.0,), "invalid"), ("y0", (0.0,), "divide"), ("y1", (-1.0,), "invalid"), ("i0", (1e4,), "over"), ("tanpi", (0.5,), "divide"),
    ("exp10", (1e4,), "over"), ("pow3o2", (-1.0,), "invalid"), ("ieee_remainder", (1.0, 0.0), "invalid"),
]


def arrays(x, dtype, n, place):
    """n usual elements with this one among them."""
    usual = [np.full(n, 0.75, dtype) for _ in x]
    for v, one in zip(usual, x):
        v[place] = one
    return usual


def raised(f, *x, **more):
    """The kinds that a call raises."""
    found = set()
    with np.errstate(all="call", call=lambda kind, _: found.add(kind)):
        f(*x, **more)
    return found


def usable(name, x, kind, dtype):
    return not (dtype == np.float64 and max(map(abs, x)) in (3e38, 1e30, 1e-30))


ALL = [(name, x, kind, dtype) for name, x, kind in CASES + SPECIAL for dtype in REAL
       if usable(name, x, kind, dtype)] + [("add", (1.5e308, 1.5e308), "over", np.float64), ("hypot", (1.5e308, 1.5e308), "over", np.float64),
                                           ("multiply", (1e300, 1e300), "over", np.float64)]


@pytest.mark.parametrize("n", [1, 100, 5000])
@pytest.mark.parametrize("name, x, kind, dtype", ALL)
def test_each_kind_is_raised_warned_and_ignored(name, x, kind, dtype, n):
    f = getattr(orvik, name)
    v = arrays(x, dtype, n, n // 2)
    if name == "arccosh":
        v[0][v[0] == 0.75] = 1.5
    with np.errstate(all="ignore", **{kind: "raise"}), pytest.raises(FloatingPointError, match=f"{KINDS[kind]} encountered in {name}"):
        f(*v)
    with np.errstate(all="ignore", **{kind: "warn"}), pytest.warns(RuntimeWarning, match=KINDS[kind]):
        f(*v)
    with np.errstate(**{"all": "raise", kind: "ignore"}):
        f(*v)
    if (name, x, kind) in CASES:
        assert raised(f, *v) == raised(getattr(np, name), *v)


@pytest.mark.parametrize("name", sorted({case[0] for case in CASES + SPECIAL}))
@pytest.mark.parametrize("dtype", REAL)
def test_usual_elements_raise_nothing(name, dtype):
    f = getattr(orvik, name)
    x = [np.random.default_rng(1).uniform(1.25, 1.5, 3000).astype(dtype)] * f.nin
    if name in ("arcsin", "arccos", "arctanh", "erfinv", "ndtri"):
        x[0] = x[0] - dtype(1)
    with np.errstate(all="raise"):
        f(*x)
        f(*(v[::2] for v in x))


@pytest.mark.parametrize("name", ["exp", "log", "sqrt", "sin", "erf", "gamma", "power", "fmax", "fmin", "maxmag", "minmag", "nextafter",
                                  "hypot", "divide", "floor"])
@pytest.mark.parametrize("dtype", REAL)
def test_nans_raise_nothing(name, dtype):
    f = getattr(orvik, name)
    x = np.full(50, np.nan, dtype)
    with np.errstate(all="raise"):
        f(*[x] * f.nin)
        if f.nin == 2:
            f(x, np.ones(50, dtype))


@pytest.mark.parametrize("level", ["HA", "LA", "EP"])
@pytest.mark.parametrize("name, dtype, tiny", [
    ("exp", "f", 1e-20), ("exp", "d", 1e-200), ("exp2", "f", 1e-40), ("exp2", "d", 1e-310), ("exp10", "d", 5e-324), ("expm1", "f", 1e-25),
    ("log1p", "f", 1e-25), ("sqrt", "f", 1e-37), ("arccos", "f", 1e-40), ("arccos", "d", 1e-310), ("log", "D", -1e-150), ("sqrt", "D", 1e-154 + 2j),
    ("log", "D", 1.7 + 1e-200j), ("angle", "F", -1e-36), ("angle", "D", -1e-200)])
def test_tiny_arguments_of_results_that_are_not_raise_nothing(name, dtype, tiny, level):
    f = getattr(orvik, name)
    for n in (1, 9, 3000):
        x = np.full(2 * n, tiny, dtype)
        with orvik.accuracy(level), np.errstate(all="raise"):
            f(x)
            f(x[::2])
            f(x[0])


@pytest.mark.parametrize("dtype", "fd")
def test_results_below_the_normal_numbers_raise_underflow(dtype):
    for n in (1, 9, 3000):
        x = np.full(2 * n, 0.5, dtype)
        x[n - 1] = -88 if dtype == "f" else -709
        assert raised(orvik.exp, x) == raised(orvik.exp, x[(n - 1) % 2::2]) == {"underflow"}
        x[n - 1] = np.finfo(dtype).tiny
        assert raised(orvik.multiply, x, x) == raised(orvik.multiply, x[(n - 1) % 2::2], x[(n - 1) % 2::2]) == {"underflow"}


@pytest.mark.parametrize("dtype", "FD")
def test_angles_and_logarithms_of_real_numbers_raise_nothing(dtype):
    x = np.arange(1, 4000, 7).astype(dtype)
    with np.errstate(all="raise"):
        for v in (x, -x, 1j * x, -1j * x):
            orvik.angle(v)
            orvik.log(v)


def test_several_kinds_in_one_call():
    x = np.full(2000, 0.5)
    x[3], x[1500] = -1, 0
    assert raised(orvik.log, x) == {"divide by zero", "invalid value"}
    assert raised(orvik.log, x[::3]) == {"divide by zero", "invalid value"}
    x[3], x[1500] = 1e4, -1e4
    assert raised(orvik.exp, x) == {"overflow", "underflow"}


@pytest.mark.parametrize("n", [17, 64, 65, 1000, 1024, 1025, 16_385, 65_536, 65_537, 100_000])
def test_a_kind_that_comes_behind_many_of_another(n):
    x = np.full(n, 1e4)
    x[-1] = -1e4
    assert raised(orvik.exp, x) == {"overflow", "underflow"}
    x = np.full(n, -1.0)
    x[-1] = 0
    assert raised(orvik.log, x) == {"divide by zero", "invalid value"}
    assert raised(orvik.log, x.astype("f")) == {"divide by zero", "invalid value"}


@pytest.mark.parametrize("n", [17, 1000, 70_000, 200_000])
@pytest.mark.parametrize("step", [1, 2])
def test_a_kind_behind_many_of_another_counts_in_place_too(n, step):
    """The arguments are gone when the call is over: each part of it must have had room for all its reports."""
    for name, many, last, kinds in (("exp", 1e4, -1e4, {"overflow", "underflow"}), ("log", -1.0, 0.0, {"divide by zero", "invalid value"}),
                                    ("gamma", -1.0, 0.0, {"divide by zero", "invalid value"})):
        for dtype in REAL:
            x = np.full(n * step, many, dtype)[::step]
            x[-1] = last
            f = getattr(orvik, name)
            with np.errstate(all="ignore"):
                wanted = f(x)
            assert raised(f, x, out=x) == kinds
            np.testing.assert_array_equal(x, wanted)


def test_a_kind_behind_many_of_another_in_place_of_the_second_argument():
    a, b = np.full(1000, -2.0), np.full(1000, 0.5)
    a[-1], b[-1] = 0.0, -1.0
    assert raised(orvik.power, a, b, out=b) == {"divide by zero", "invalid value"}


def test_a_raising_call_in_place_has_written_its_results():
    x = np.array([1.0, 0.0, 2.0])
    with np.errstate(all="raise"), pytest.raises(FloatingPointError, match="divide by zero encountered in log"):
        orvik.log(x, out=x)
    np.testing.assert_allclose(x, [0, -np.inf, np.log(2)])


def test_functions_and_logs_of_errstate_are_called():
    class Log:
        lines = []

        def write(self, line):
            self.lines.append(line)

    with np.errstate(all="log", call=Log()):
        orvik.log(np.zeros(100))
    assert Log.lines == ["Warning: divide by zero encountered in log\n"]

    def fail(kind, _):
        raise KeyError(kind)

    with np.errstate(all="call", call=fail), pytest.raises(KeyError, match="divide by zero"):
        orvik.log(np.zeros(100))


@pytest.mark.parametrize("place", [0, 777777, 1999999])
def test_elements_that_other_threads_compute_count(place):
    x = np.full(2000000, 0.5)
    x[place] = -1
    try:
        orvik.set_num_threads(4)
        assert raised(orvik.log, x) == {"invalid value"}
        assert raised(orvik.sqrt, x) == {"invalid value"}
    finally:
        orvik.set_num_threads(0)


def test_warnings_come_by_default_but_for_underflow():
    with warnings.catch_warnings(record=True) as seen:
        warnings.simplefilter("always")
        orvik.exp(np.array([-1e4]))
        orvik.log(np.array([0.0]))
    assert [str(w.message) for w in seen] == ["divide by zero encountered in log"]


def test_flags_that_stood_before_are_not_reported():
    a = np.array([1e300])
    with np.errstate(all="ignore"):
        np.multiply(a, a)
        np.log(np.array([-1.0]))
    with np.errstate(all="raise"):
        orvik.exp(np.array([0.5, 0.25]))
        orvik.exp(np.full(3000, 0.5))


def test_results_are_complete_where_nothing_is_raised():
    x = np.array([-1.0, 0.0, 1.0, np.e] * 30)
    with np.errstate(all="ignore"):
        got = orvik.log(x)
    np.testing.assert_allclose(got, np.array([np.nan, -np.inf, 0, 1] * 30))


def test_complex_elements():
    with np.errstate(all="ignore", over="raise"), pytest.raises(FloatingPointError, match="overflow"):
        orvik.exp(np.array([1e4 + 1j]))
    with np.errstate(all="ignore", invalid="raise"), pytest.raises(FloatingPointError, match="invalid"):
        orvik.sin(np.array([np.inf + 1j]))
    with np.errstate(all="raise"):
        orvik.exp(np.full(3000, 0.5 + 0.25j))


@pytest.mark.parametrize("dtype", [np.complex64, np.complex128])
@pytest.mark.parametrize("step", [1, 2])
def test_complex_quotients_by_zero(dtype, step):
    a, b = np.full(200, 1 + 2j, dtype)[::step], np.full(200, 3 - 1j, dtype)[::step]
    assert raised(orvik.divide, a, b) == set()
    b[50] = 0
    assert raised(orvik.divide, a, b) == raised(np.divide, a, b) == {"divide by zero"}
    assert raised(orvik.divide, a, b.copy(), out=a.copy()) == {"divide by zero"}
    mine = b.copy()
    assert raised(orvik.divide, a, mine, out=mine) == {"divide by zero"}
    a[50] = 0
    assert raised(orvik.divide, a, b) == raised(np.divide, a, b) == {"invalid value"}


# Numbers at which functions are exceptional, or near where they are.
EDGES = [0.0, -0.0, np.inf, -np.inf, np.nan, 1.0, -1.0, 0.5, -0.5, 2.0, -3.0, 1e-37, -1e-37, 1e-45, -1e-45, 1e30, -1e30, 1e308, 1e-308, 5e-324, -5e-324,
         35.2, -34.5, 88.8, -104.0, 170.7, -170.5, 710.0, -746.0, 27.5, 0.999, 1.001]


@pytest.mark.parametrize("level", ["HA", "LA", "EP"])
@pytest.mark.parametrize("name", [u for u in orvik.__all__ if isinstance(getattr(orvik, u), np.ufunc)])
def test_a_call_in_place_raises_what_a_call_apart_does(name, level):
    """Every function at every special number and pair of them, alone and among others: what is raised does not need the arguments."""
    f = getattr(orvik, name)
    if f.nin > 2 or name in ("jn", "yn"):
        return
    for types in f.types:
        inputs, outputs = types.split("->")
        with np.errstate(over="ignore"):
            edges = np.array(EDGES).astype(inputs[-1])
        if inputs[-1] in "FD":
            parts = np.meshgrid(edges.real[::3], edges.real[::4])
            edges = np.empty(parts[0].size, inputs[-1])
            edges.real, edges.imag = (part.ravel() for part in parts)
            edges = edges[::2]
        grid = [edges] if f.nin == 1 else [v.ravel() for v in np.meshgrid(edges[:40], edges[:40])]
        with orvik.accuracy(level):
            for k in range(grid[0].size):
                for n in (1, 40):
                    x = [np.full(n, 0.75, v.dtype) for v in grid]
                    for v, g in zip(x, grid):
                        v[n // 2] = g[k]
                    wanted = raised(f, *x)
                    for place in range(f.nin):
                        if inputs[place] != outputs[0]:
                            continue
                        mine = [v.copy() for v in x]
                        out = mine[place] if f.nout == 1 else (mine[place], np.empty(n, outputs[1]))
                        assert raised(f, *mine, out=out) == wanted, [g[k] for g in grid]

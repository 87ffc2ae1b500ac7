"""Distributions as methods: the library's numbers, NumPy's conventions, long draws in pieces."""
import ctypes
import inspect
import pydoc
import re
import signal
import threading
import time

import numpy as np
import pytest
import scipy.stats
from hypothesis import given
from hypothesis import strategies as st

from library import Stream
from orvik import _random
from orvik.random import MRG32K3A, MT2203, MT19937, PHILOX4X32X10, SFMT19937

D = ctypes.c_double

# Name, arguments in Python; name of the front and its arguments; the law of SciPy.
REAL = [
    ("uniform", (-1.0, 3.0), {}, "uniform", (-1.0, 3.0), scipy.stats.uniform(-1, 4)),
    ("normal", (1.0, 2.0), {}, "normal", (1.0, 2.0), scipy.stats.norm(1, 2)),
    ("normal", (1.0, 2.0), {"method": "box-muller"}, "gaussian", (1.0, 2.0, 0), scipy.stats.norm(1, 2)),
    ("normal", (1.0, 2.0), {"method": "box-muller-pairs"}, "gaussian", (1.0, 2.0, 1), scipy.stats.norm(1, 2)),
    ("cauchy", (1.0, 2.0), {}, "cauchy", (1.0, 2.0), scipy.stats.cauchy(1, 2)),
    ("exponential", (2.0,), {"loc": 1.0}, "exponential", (1.0, 2.0), scipy.stats.expon(1, 2)),
    ("laplace", (1.0, 2.0), {}, "laplace", (1.0, 2.0), scipy.stats.laplace(1, 2)),
    ("gumbel", (1.0, 2.0), {}, None, None, scipy.stats.gumbel_r(1, 2)),
    ("rayleigh", (2.0,), {}, "rayleigh", (0.0, 2.0 * 2**0.5), scipy.stats.rayleigh(0, 2)),
    ("weibull", (1.5,), {"loc": 1.0, "scale": 2.0}, "weibull", (1.5, 1.0, 2.0), scipy.stats.weibull_min(1.5, 1, 2)),
    ("lognormal", (0.5, 0.7), {}, "lognormal", (0.5, 0.7, 0.0, 1.0, 1), scipy.stats.lognorm(0.7, 0, np.exp(0.5))),
    ("lognormal", (0.5, 0.7), {"method": "box-muller-pairs"}, "lognormal", (0.5, 0.7, 0.0, 1.0, 0),
     scipy.stats.lognorm(0.7, 0, np.exp(0.5))),
    ("gamma", (2.5, 2.0), {}, "gamma", (2.5, 0.0, 2.0), scipy.stats.gamma(2.5, 0, 2)),
    ("beta", (2.0, 0.5), {}, "beta", (2.0, 0.5, 0.0, 1.0), scipy.stats.beta(2, 0.5)),
    ("chisquare", (5,), {}, "chisquare", (5,), scipy.stats.chi2(5)),
]
INTEGER = [
    ("integers", (-3, 8), "uniform", (-3, 8), scipy.stats.randint(-3, 8)),
    ("bernoulli", (0.3,), "bernoulli", (D(0.3),), scipy.stats.bernoulli(0.3)),
    ("geometric", (0.3,), None, None, scipy.stats.geom(0.3)),
    ("binomial", (100, 0.4), "binomial", (100, D(0.4)), scipy.stats.binom(100, 0.4)),
    ("hypergeometric", (30, 60, 20), "hypergeometric", (90, 20, 30), scipy.stats.hypergeom(90, 30, 20)),
    ("negative_binomial", (2.5, 0.3), "negbinomial", (D(2.5), D(0.3)), scipy.stats.nbinom(2.5, 0.3)),
    ("negative_binomial", (200.0, 0.3), "negbinomial", (D(200), D(0.3)), scipy.stats.nbinom(200, 0.3)),
    ("poisson", (4.5,), "poisson", (D(4.5), 0), scipy.stats.poisson(4.5)),
    ("poisson", (300.0,), "poisson", (D(300), 0), scipy.stats.poisson(300)),
]
NAMED = [(name, arguments, {}) for name, arguments, *_ in INTEGER] + [case[:3] for case in REAL]


def label(case):
    return "-".join([case[0], *(str(v) for v in case[2].values())] if isinstance(case[2], dict) else [case[0]])


@pytest.mark.parametrize("dtype", [np.float64, np.float32])
@pytest.mark.parametrize("case", REAL, ids=label)
def test_real_numbers_are_those_of_the_library_and_of_the_law(case, dtype):
    name, arguments, options, front, parameters, law = case
    x = getattr(PHILOX4X32X10(7), name)(*arguments, size=20000, dtype=dtype, **options)
    assert x.dtype == dtype and x.shape == (20000,)
    if front is not None:
        letter = "d" if dtype is np.float64 else "s"
        expected = Stream(_random.PHILOX4X32X10, 7).draw(f"{letter}_{front}", np.empty(20000, dtype), *parameters)
        np.testing.assert_array_equal(x, expected)
    assert scipy.stats.kstest(x, law.cdf).pvalue > 1e-4


@pytest.mark.parametrize("dtype", [np.int32, np.int64])
@pytest.mark.parametrize("case", INTEGER, ids=lambda case: case[0])
def test_integers_are_those_of_the_library_and_of_the_law(case, dtype):
    name, arguments, front, parameters, law = case
    x = getattr(PHILOX4X32X10(7), name)(*arguments, size=20000, dtype=dtype)
    assert x.dtype == dtype
    if front is not None:
        np.testing.assert_array_equal(x, Stream(_random.PHILOX4X32X10, 7).draw(f"i_{front}", np.empty(20000, np.int32),
                                                                               *parameters))
    values, counts = np.unique(x, return_counts=True)
    kept = law.pmf(values) * x.size > 5
    expected = law.pmf(values[kept]) * x.size
    chi2 = ((counts[kept] - expected) ** 2 / expected).sum()
    assert scipy.stats.chi2(kept.sum()).sf(chi2) > 1e-4
    assert law.pmf(values).min() > 0


def test_poisson_numbers_by_the_quantile():
    for mean in (4.5, 300.0):
        x = PHILOX4X32X10(7).poisson(mean, 20000, method="normal")
        expected = Stream(_random.PHILOX4X32X10, 7).draw("i_poisson", np.empty(20000, np.int32), D(mean), 1)
        np.testing.assert_array_equal(x, expected)


@pytest.mark.parametrize("dtype", [np.int32, np.int64])
def test_poisson_numbers_of_means_of_their_own(dtype):
    means = np.random.default_rng(1).uniform(0.1, 2000, 30000)
    x = PHILOX4X32X10(7).poisson(means, dtype=dtype)
    expected = Stream(_random.PHILOX4X32X10, 7).draw("i_poissonv", np.empty(30000, np.int32),
                                                     means.ctypes.data_as(ctypes.c_void_p))
    np.testing.assert_array_equal(x, expected)
    assert abs(((x - means) / np.sqrt(means)).std() - 1) < 0.03
    np.testing.assert_array_equal(PHILOX4X32X10(7).poisson([1.0, 50.0], (4, 2)), PHILOX4X32X10(7).poisson([[1.0, 50.0]] * 4))
    out = np.zeros((4, 2), dtype)
    assert PHILOX4X32X10(7).poisson([1.0, 50.0], out=out, dtype=dtype) is out and out.any()
    for call in (lambda s: s.poisson([1.0, 2.0], 3), lambda s: s.poisson([1.0, -2.0]), lambda s: s.poisson([1.0, np.nan]),
                 lambda s: s.poisson(np.ones((4, 2)), out=np.zeros((4, 2), "i4", order="F")),
                 lambda s: s.poisson([1.0], method="other")):
        with pytest.raises(ValueError):
            call(PHILOX4X32X10(7))


@pytest.mark.parametrize("method", ["sequential", "poisson"])
@pytest.mark.parametrize("dtype", [np.int32, np.int64])
def test_multinomial_rows_sum_to_the_trials(method, dtype):
    p = np.array([0.2, 0.3, 0.0, 0.5])
    x = PHILOX4X32X10(7).multinomial(50, p, (300, 20), dtype, method=method)
    assert x.shape == (300, 20, 4) and x.dtype == dtype
    assert (x.sum(axis=-1) == 50).all() and not x[..., 2].any()
    np.testing.assert_allclose(x.reshape(-1, 4).mean(axis=0), 50 * p, atol=0.2)
    np.testing.assert_allclose(x.reshape(-1, 4).var(axis=0), 50 * p * (1 - p), rtol=0.1)
    expected = Stream(_random.PHILOX4X32X10, 7).draw("i_multinomial", np.empty((6000, 4), np.int32), 50, 4,
                                                     p.ctypes.data_as(ctypes.c_void_p), int(method == "poisson"), count=6000)
    np.testing.assert_array_equal(x.reshape(-1, 4), expected)
    assert PHILOX4X32X10(7).multinomial(50, p).shape == (4,)


@pytest.mark.parametrize("n, pvals", [
    (-1, [0.5, 0.5]), (5, [0.5, 0.6, 0.1]), (5, [-0.5, 1.5]), (5, []), (5, [[]]), (5, [np.nan, 1]), (5, [0.5, np.nan]), (1 << 40, [1.0]),
    (5, 1.0), ([5, -1], [0.5, 0.5]), ([5, 6, 7], [[0.5, 0.5], [0.1, 0.9]]), (5, [[0.5, 0.5], [1.1, 0.0]]), (5, [[0.6, 0.6, 0.1]] * 2)])
def test_bad_outcomes_are_value_errors(n, pvals):
    stream = PHILOX4X32X10(1)
    with pytest.raises(ValueError):
        stream.multinomial(n, pvals, 3)
    assert stream.state == PHILOX4X32X10(1).state
    with pytest.raises(ValueError):
        stream.multinomial(5, [1.0], method="other")


def test_gumbel_and_geometric_follow_numpy_where_the_library_differs():
    minima = Stream(_random.PHILOX4X32X10, 7).draw("d_gumbel", np.empty(1000), -1.0, 2.0)
    np.testing.assert_array_equal(PHILOX4X32X10(7).gumbel(1.0, 2.0, 1000), -minima)
    failures = Stream(_random.PHILOX4X32X10, 7).draw("i_geometric", np.empty(1000, np.int32), D(0.3))
    np.testing.assert_array_equal(PHILOX4X32X10(7).geometric(0.3, 1000), failures + 1)


# Beyond a piece: numbers of one call of the front, bit for bit.
PLAIN = (1 << 20) + 4099
SPLIT = (1 << 24) + 4099


@pytest.mark.parametrize("kind, name, arguments, front, parameters, dtype, n", [
    ("MT19937", "uniform", (0.0, 1.0), "s_uniform", (0.0, 1.0), np.float32, SPLIT),
    ("SFMT19937", "words", (), "i_words", (), np.uint32, SPLIT),
    ("PHILOX4X32X10", "gamma", (2.5,), "d_gamma", (2.5, 0.0, 1.0), np.float64, PLAIN),
    ("PHILOX4X32X10", "gamma", (0.7,), "s_gamma", (0.7, 0.0, 1.0), np.float32, PLAIN),
    ("PHILOX4X32X10", "beta", (2.0, 3.0), "d_beta", (2.0, 3.0, 0.0, 1.0), np.float64, PLAIN),
    ("MT19937", "chisquare", (7,), "d_chisquare", (7,), np.float64, PLAIN),
    ("MT19937", "chisquare", (30,), "d_chisquare", (30,), np.float64, PLAIN),
    ("MT19937", "binomial", (1000, 0.4), "i_binomial", (1000, D(0.4)), np.int32, PLAIN),
    ("MT19937", "hypergeometric", (3000, 6000, 2000), "i_hypergeometric", (9000, 2000, 3000), np.int32, PLAIN),
    ("MT19937", "negative_binomial", (2.5, 0.001), "i_negbinomial", (D(2.5), D(0.001)), np.int32, PLAIN),
    ("MT19937", "negative_binomial", (3e7, 0.5), "i_negbinomial", (D(3e7), D(0.5)), np.int32, PLAIN),
    ("MT19937", "poisson", (1000.0,), "i_poisson", (D(1000), 0), np.int32, PLAIN),
])
def test_pieces_of_a_long_draw_are_one_call(kind, name, arguments, front, parameters, dtype, n):
    options = {} if name == "words" else {"dtype": dtype}
    stream = getattr(__import__("orvik.random").random, kind)(7)
    x = getattr(stream, name)(*arguments, size=n, **options)
    expected = Stream(getattr(_random, kind), 7).draw(front, np.empty(n, dtype), *parameters)
    assert x.tobytes() == expected.tobytes()


@pytest.mark.parametrize("method", ["inverse", "box-muller-pairs"])
def test_pieces_of_pairs_are_one_call(method):
    x = SFMT19937(7).normal(size=SPLIT, dtype=np.float32, method=method)
    parameters = (0.0, 1.0, 2 if method == "inverse" else 1)
    expected = Stream(_random.SFMT19937, 7).draw("s_gaussian", np.empty(SPLIT, np.float32), *parameters)
    assert x.tobytes() == expected.tobytes()


@pytest.mark.parametrize("method", [0, 1])
def test_pieces_of_rows_of_counts_are_one_call(method):
    n, p = (1 << 19) + 77, np.array([0.2, 0.3, 0.5])
    x = SFMT19937(7).multinomial(100, p, n, method=("sequential", "poisson")[method])
    expected = Stream(_random.SFMT19937, 7).draw("i_multinomial", np.empty((n, 3), np.int32), 100, 3,
                                                 p.ctypes.data_as(ctypes.c_void_p), method, count=n)
    assert x.tobytes() == expected.tobytes()


def test_pieces_of_numbers_of_means_of_their_own_are_one_call():
    means = np.random.default_rng(1).uniform(0.1, 2000, PLAIN)
    expected = Stream(_random.SFMT19937, 7).draw("i_poissonv", np.empty(PLAIN, np.int32), means.ctypes.data_as(ctypes.c_void_p))
    assert SFMT19937(7).poisson(means).tobytes() == expected.tobytes()


@pytest.mark.parametrize("dtype", [np.float64, np.float32])
def test_pieces_of_vectors_are_one_call(dtype):
    n, factor = (1 << 20) + 77, np.array([[1, 0, 0], [0.5, 2, 0], [0.25, -1, 0.5]], dtype)
    mean = np.array([1, -1, 2], dtype)
    x = SFMT19937(7).multivariate_normal(mean, size=n, factor=factor, dtype=dtype)
    letter = "d" if dtype is np.float64 else "s"
    expected = Stream(_random.SFMT19937, 7).draw(
        f"{letter}_multivariate_normal", np.empty((n, 3), dtype), 3, 0, mean.ctypes.data_as(ctypes.c_void_p),
        factor.ctypes.data_as(ctypes.c_void_p), 2, count=n)
    assert x.tobytes() == expected.tobytes()


def test_vectors_have_mean_and_covariance():
    cov = np.array([[2.0, 0.5], [0.5, 1.0]])
    x = PHILOX4X32X10(7).multivariate_normal([1, -1], cov, size=200000)
    np.testing.assert_allclose(x.mean(0), [1, -1], atol=0.02)
    np.testing.assert_allclose(np.cov(x.T), cov, atol=0.03)
    assert PHILOX4X32X10(7).multivariate_normal([1, -1], cov).shape == (2,)
    assert PHILOX4X32X10(7).multivariate_normal([1, -1], cov, (3, 4)).shape == (3, 4, 2)


@pytest.mark.parametrize("mean, cov, options", [
    ([0, 0], [[1, 0], [0, -1]], {}), ([0, 0], [[1]], {}), ([[0, 0]], np.eye(2), {}), ([0, np.nan], np.eye(2), {}),
    ([0], None, {}), ([0], [[1]], {"factor": [[1]]}), ([], np.empty((0, 0)), {}), ([0], [[1]], {"method": "other"}),
    ([0, 0], [[1, np.nan], [np.nan, 1]], {})])
def test_bad_vectors_are_value_errors(mean, cov, options):
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).multivariate_normal(mean, cov, 3, **options)


@pytest.mark.parametrize("case", NAMED, ids=label)
@given(cuts=st.lists(st.integers(0, 700), min_size=1, max_size=4))
def test_numbers_do_not_depend_on_how_they_are_asked_for(case, cuts):
    name, arguments, options = case
    if name == "chisquare":
        arguments = (4,)  # of an odd number, cuts change turns
    a, b = MRG32K3A(7), MRG32K3A(7)
    parts = [np.atleast_1d(getattr(a, name)(*arguments, size=n, **options)) for n in cuts]
    whole = getattr(b, name)(*arguments, size=sum(cuts), **options)
    if options.get("method") == "box-muller-pairs":  # a pair that a cut divides goes through kernels for one number
        np.testing.assert_allclose(np.concatenate(parts), whole, rtol=1e-5, atol=1e-6)
    else:
        np.testing.assert_array_equal(np.concatenate(parts), whole)
        assert a.state == b.state


# ---- size, dtype, out


@pytest.mark.parametrize("case", NAMED, ids=label)
def test_sizes_and_outputs_as_numpy_has_them(case):
    name, arguments, options = case

    def draw(**more):
        return getattr(PHILOX4X32X10(3), name)(*arguments, **options, **more)

    flat = draw(size=24)
    number = draw()
    assert type(number) is (float if flat.dtype.kind == "f" else int)
    assert draw(size=(2, 3, 4)).shape == (2, 3, 4)
    np.testing.assert_array_equal(draw(size=(2, 3, 4)).ravel(), flat)
    assert draw(size=()).shape == ()
    assert draw(size=0).shape == (0,)
    assert draw(size=(3, 0)).shape == (3, 0)
    assert draw(size=np.int64(24)).shape == (24,)
    out = np.zeros((4, 6), flat.dtype)
    assert draw(out=out) is out
    np.testing.assert_array_equal(out.ravel(), flat)
    by_columns = np.zeros((4, 6), flat.dtype, order="F")
    draw(out=by_columns)
    np.testing.assert_array_equal(by_columns.ravel(order="K"), flat)
    assert draw(size=(4, 6), out=out) is out


def unaligned(n, dtype):
    return np.frombuffer(bytearray(n * 8 + 1), np.uint8)[1:].view(dtype)


def read_only(n):
    x = np.zeros(n)
    x.flags.writeable = False
    return x


@pytest.mark.parametrize("out, error", [
    (read_only(9), ValueError), (np.zeros(18)[::2], ValueError), (np.zeros(9)[::-1], ValueError),
    (unaligned(9, np.float64), ValueError), (np.zeros(9, ">f8"), ValueError), (np.zeros(9, "f4"), TypeError),
    (np.zeros(9, "i8"), TypeError), (np.zeros(9, object), TypeError), (np.zeros(9, "c16"), TypeError),
    (np.broadcast_to(np.zeros(1), 9), ValueError),
    (np.zeros((9, 2)).T[0], ValueError)])
def test_bad_outputs_raise_what_numpy_raises(out, error):
    with pytest.raises(error):
        np.random.default_rng(1).random(out=out)
    stream = MT19937(1)
    with pytest.raises(error):
        stream.uniform(out=out)
    assert stream.state == MT19937(1).state


@pytest.mark.parametrize("out", [[0.0] * 9, "text", 5, memoryview(bytearray(72)).cast("d")])
def test_an_output_that_is_no_array_is_a_type_error(out):
    with pytest.raises(TypeError):
        MT19937(1).uniform(out=out)


class Subclass(np.ndarray):
    pass


def test_an_output_of_a_subclass_is_filled():
    out = np.zeros(9).view(Subclass)
    assert MT19937(1).uniform(out=out) is out
    np.testing.assert_array_equal(np.asarray(out), MT19937(1).uniform(size=9))


@pytest.mark.parametrize("size, error", [(-1, ValueError), ((2, -3), ValueError), (1.5, TypeError), ("3", TypeError),
                                         (1 << 62, (ValueError, MemoryError)), (1 << 70, (ValueError, OverflowError)),
                                         (10**15, MemoryError), ((1 << 40, 1 << 40), ValueError), ([2, None], TypeError)])
def test_bad_sizes_raise_what_numpy_raises(size, error):
    with pytest.raises(error):
        MT19937(1).uniform(size=size)


def test_size_must_match_out():
    with pytest.raises(ValueError):
        MT19937(1).uniform(size=8, out=np.zeros(9))
    with pytest.raises(ValueError):
        MT19937(1).multivariate_normal([0, 0], np.eye(2), out=np.zeros((4, 3)))


@pytest.mark.parametrize("dtype", ["i4", ">f8", "f2", "c16", object, "U3", "datetime64[s]"])
def test_other_dtypes_are_type_errors(dtype):
    with pytest.raises(TypeError):
        MT19937(1).uniform(size=3, dtype=dtype)
    with pytest.raises(TypeError):
        MT19937(1).binomial(3, 0.5, size=3, dtype="i2")


NAN, INF = float("nan"), float("inf")


@pytest.mark.parametrize("name, arguments", [
    ("uniform", (1, 1)), ("uniform", (0, INF)), ("uniform", (NAN, 1)), ("uniform", (-1e308, 1e308)), ("normal", (0, -1)),
    ("normal", (0, 0)), ("normal", (NAN, 1)), ("normal", (INF, 1)), ("exponential", (-1,)), ("laplace", (0, 0)),
    ("cauchy", (0, NAN)), ("gumbel", (0, -1)), ("rayleigh", (0,)), ("weibull", (0,)), ("lognormal", (0, -1)), ("gamma", (-1,)),
    ("beta", (0, 1)), ("chisquare", (0,)), ("chisquare", (1 << 40,)), ("integers", (5, 5)), ("integers", (0, 1 << 40)),
    ("bernoulli", (1.5,)), ("bernoulli", (NAN,)), ("geometric", (0,)), ("geometric", (1,)), ("binomial", (-1, 0.5)),
    ("binomial", (5, -0.1)), ("hypergeometric", (-1, 5, 2)), ("hypergeometric", (3, 3, 7)),
    ("hypergeometric", ((1 << 31) - 1, 5, 2)), ("negative_binomial", (0, 0.5)), ("negative_binomial", (1, 0)),
    ("poisson", (0,)), ("poisson", (NAN,)), ("poisson", (1e10,))])
@pytest.mark.parametrize("size", [None, 0, 5])
def test_parameters_outside_their_domain_are_value_errors_and_leave_the_stream(name, arguments, size):
    stream = PHILOX4X32X10(1)
    with pytest.raises(ValueError):
        getattr(stream, name)(*arguments, size=size)
    assert stream.state == PHILOX4X32X10(1).state


@pytest.mark.parametrize("name, arguments", [("uniform", ("a",)), ("integers", ([0, "a"], 5)), ("chisquare", (1.5,)),
                                             ("integers", (1.5,)), ("binomial", (1.5, 0.5)), ("gamma", (None,)),
                                             ("uniform", (1j,))])
def test_parameters_of_other_types_are_errors(name, arguments):
    with pytest.raises((TypeError, ValueError)):
        getattr(PHILOX4X32X10(1), name)(*arguments)


def test_float32_parameters_that_overflow_are_refused():
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).normal(0, 1e300, size=3, dtype=np.float32)


@pytest.mark.parametrize("method", ["", None, 3, "inversion", []])
def test_unknown_methods_are_value_errors(method):
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).normal(method=method)
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).lognormal(method=method)


# ---- Interrupts


class Interrupted(Exception):
    pass


def test_an_interrupt_ends_a_long_draw_between_pieces():
    def interrupt(*_):
        raise Interrupted

    stream, piece = PHILOX4X32X10(1), 1 << 20
    out = np.zeros(24 * piece, np.float32)
    old = signal.signal(signal.SIGALRM, interrupt)
    try:
        signal.setitimer(signal.ITIMER_REAL, 0.02)
        begin = time.perf_counter()
        with pytest.raises(Interrupted):
            while True:
                out[:] = 0
                stream = PHILOX4X32X10(1)
                stream.beta(0.3, 0.4, out=out, dtype=np.float32)
    finally:
        signal.setitimer(signal.ITIMER_REAL, 0)
        signal.signal(signal.SIGALRM, old)
    assert time.perf_counter() - begin < 30
    drawn = np.flatnonzero(out)[-1] + 1 if out.any() else 0
    pieces = -(-int(drawn) // piece)
    assert pieces < 24
    expected = PHILOX4X32X10(1)
    assert expected.beta(0.3, 0.4, size=pieces * piece, dtype=np.float32).tobytes() == out[:pieces * piece].tobytes()
    assert stream.state == expected.state
    assert stream.lock.acquire(blocking=False)
    stream.lock.release()


@pytest.mark.parametrize("kind", [MT2203, MT19937])
def test_a_draw_goes_on_where_an_interrupted_one_ended(kind):
    stream = kind(1)
    a = stream.uniform(size=1 << 20)
    b = stream.uniform(size=100)
    np.testing.assert_array_equal(np.concatenate([a, b]), kind(1).uniform(size=(1 << 20) + 100))


SHORT = {"uniform": (-1.0, 2.0), "normal": (3.0, 0.5), "exponential": (2.0,), "laplace": (1.0, 2.0), "cauchy": (1.0, 2.0)}


@pytest.mark.parametrize("name", SHORT)
def test_plain_calls_are_what_the_method_in_python_does(name):
    """The commonest calls are served past the checks; the numbers and the stream's place are the same."""
    short = getattr(MT19937, name)
    slow = short.__wrapped__
    parameters = SHORT[name]
    calls = [((), {}), (parameters, {}), (parameters, {"size": 7}), ((*parameters, 7), {}), ((), {"size": 0}), ((), {"size": 2000}),
             ((*parameters, 7, np.float64), {}), ((), {"size": (2, 3)}), ((), {"size": 5, "dtype": np.float32}),
             ((1, *parameters[1:]), {"size": None}), ((np.float64(1.5), *parameters[1:]), {"size": 3})]
    for arguments, named in calls:
        a, b = MT19937(5), MT19937(5)
        got, wanted = short(a, *arguments, **named), slow(b, *arguments, **named)
        assert type(got) is type(wanted)
        np.testing.assert_array_equal(got, wanted)
        assert a.state["state"] == b.state["state"]
    for shape in ((10,), (3, 4), (), (700_000,)):
        a, b, mine, theirs = MT19937(5), MT19937(5), np.empty(shape), np.empty(shape)
        assert short(a, *parameters, out=mine) is mine
        slow(b, *parameters, out=theirs)
        np.testing.assert_array_equal(mine, theirs)
        assert a.uniform() == b.uniform()


# The others with a short way: parameters, some that it leaves to the method in Python, some that are refused.
ALSO_SHORT = {
    "lognormal": ((0.5, 0.7), [(np.float64(0.5), 0.7), ([0.5], 0.7)], [(0.0, -1.0)]), "gumbel": ((0.5, 2.0), [(True, 2.0)], [(0.0, 0.0)]),
    "rayleigh": ((1.5,), [([1.0],)], [(-1.0,)]), "weibull": ((1.5,), [(np.float32(2),)], [(0.0,), ()]),
    "gamma": ((0.7, 2.0), [([0.7], 2.0)], [(0.0,), (), (np.nan,)]), "beta": ((0.7, 2), [([0.7], 2)], [(0.7,), (0.7, -1.0), (0.7, np.nan)]),
    "chisquare": ((3,), [(np.int8(3),)], [(3.0,), (0,), (2**31,), ()]),
    "integers": ((2, 90), [(7,), (7, None), (-2**31, 2**31 - 1), (0, 2**31), (0, 2**32), (-2**40, 5 - 2**40), (True,)],
                 [(3, 3), (0,), (1.5,), (), (4, 2.0), (2, np.nan)]),
    "bernoulli": ((0.3,), [([0.3, 0.4],)], [(1.5,), ()]), "geometric": ((0.3,), [(np.float64(0.3),)], [(0.0,), ()]),
    "binomial": ((20, 0.3), [(np.int64(20), 0.3)], [(20.0, 0.3), (20,), (-1, 0.3), (20, np.nan), (2**31, 0.5)]),
    "hypergeometric": ((30, 60, 20), [(0, 5, 5), (np.int8(3), 5, 5)], [(30, 60, 91), (-1, 60, 3), (2**31 - 1, 2, 3), (30, 60), (30, 60, 2.0)]),
    "negative_binomial": ((2.5, 0.3), [([2.5], 0.3)], [(0.0, 0.3), (1,)]), "poisson": ((4.0,), [(), (4,), ([4.0],)], [(-1.0,), (np.nan,), ("x",)]),
}


@pytest.mark.parametrize("name", ALSO_SHORT)
@pytest.mark.parametrize("kind", [MT19937, PHILOX4X32X10])
def test_plain_calls_of_the_other_distributions_too(name, kind):
    short, slow = getattr(kind, name), getattr(kind, name).__wrapped__
    plain, others, refused = ALSO_SHORT[name]
    own = type(slow(kind(5), *plain, size=1)[0])
    room = [np.empty(shape, own) for shape in ((10,), (3, 4), ())]
    calls = [(plain, {}), ((*plain, 7), {}), ((*plain, None), {}), ((*plain, (2, 3), own), {})]
    calls += [(plain, {"size": size}) for size in (0, 1, 2000, (), (4,), (2, 0), (3, 1, 2), [2, 3], np.int64(3), (np.int8(2), 2))]
    calls += [(plain, {"size": 5, "dtype": kind_}) for kind_ in (np.float32, np.float64, np.int32, np.int64, "f8", "i4")]
    calls += [(plain, {"out": out}) for out in room] + [(plain, {"size": 10, "out": room[0]}), (plain, {"size": 9, "out": room[0]})]
    calls += [(plain, {"size": size}) for size in (-1, (2, -1), 2.0, (2, 2.0))] + [(plain, {"oops": 1}), (plain, {"size": 3, "size_": 3})]
    calls += [(x, {"size": size}) for x in [*others, *refused] for size in (None, 3)]
    for arguments, named in calls:
        a, b = kind(5), kind(5)
        try:
            wanted = slow(b, *arguments, **named)
        except Exception as error:
            with pytest.raises(type(error), match=re.escape(str(error))):
                short(a, *arguments, **named)
        else:
            wanted = wanted.copy() if isinstance(wanted, np.ndarray) else wanted
            got = short(a, *arguments, **named)
            assert type(got) is type(wanted) and getattr(got, "dtype", None) == getattr(wanted, "dtype", None)
            assert np.shape(got) == np.shape(wanted)
            np.testing.assert_array_equal(got, wanted)
        assert a.state["state"] == b.state["state"]


@pytest.mark.parametrize("arguments, named", [
    ((), {"size": -1}), ((0.0, 1.0, -1), {}), (("x",), {}), ((), {"out": [1.0]}), ((), {"out": np.empty(3, np.float32)}),
    ((), {"out": np.empty(6)[::2]}), ((), {"size": 3, "out": np.empty(4)}), ((), {"oops": 1}), ((0.0,), {"low": 1.0}),
    ((1.0, 1.0), {"size": 3}), ((np.nan, 1.0, 3), {}), ((), {"dtype": np.int32}), ((0.0, 1.0, 3, None, None, None), {}), ((10**400,), {}),
])
def test_refused_plain_calls_are_refused_by_the_method_in_python(arguments, named):
    a = MT19937(5)
    before = a.state["state"]
    with pytest.raises(Exception) as wanted:
        MT19937.uniform.__wrapped__(a, *arguments, **named)
    with pytest.raises(wanted.type, match=re.escape(str(wanted.value))):
        a.uniform(*arguments, **named)
    assert a.state["state"] == before


def test_help_of_methods_with_a_short_way_has_their_text():
    for thing in (MT19937, MT19937.uniform, MT19937(1).uniform):
        assert "Numbers evenly between" in pydoc.render_doc(thing, renderer=pydoc.plaintext)


def test_methods_with_a_short_way_look_like_methods():
    assert inspect.signature(MT19937.normal) == inspect.signature(MT19937.normal.__wrapped__)
    assert list(inspect.signature(MT19937(1).normal).parameters)[0] == "loc"
    assert MT19937.normal.__name__ == "normal" and MT19937.normal.__doc__.startswith("Normal numbers")
    assert callable(MT19937(1).normal) and inspect.isroutine(MT19937.normal)
    with pytest.raises(AttributeError):
        MT19937.uniform("not a generator")
    with pytest.raises(TypeError):
        MT19937.uniform()


def test_a_short_draw_waits_for_the_lock():
    stream, done = MT19937(5), threading.Event()
    wanted = MT19937(5).uniform(size=3)
    got = []
    with stream.lock:
        thread = threading.Thread(target=lambda: (got.append(stream.uniform(size=3)), done.set()))
        thread.start()
        assert not done.wait(0.1)
    assert done.wait(10)
    thread.join()
    np.testing.assert_array_equal(got[0], wanted)


SHIFTED = [("uniform", {}, ("low", "high"), (-1.3, 2.9)), ("normal", {}, ("loc", "scale"), (0.7, 2.3)),
           ("normal", {"method": "box-muller-pairs"}, ("loc", "scale"), (0.7, 2.3)), ("exponential", {}, ("loc", "scale"), (0.3, 2.3)),
           ("lognormal", {}, ("mean", "sigma"), (0.7, 0.6)), ("lognormal", {"mean": 0.2, "method": "box-muller-pairs"}, ("loc", "scale"), (0.7, 2.3)),
           ("laplace", {}, ("loc", "scale"), (0.7, 2.3)), ("cauchy", {}, ("loc", "scale"), (0.7, 2.3)),
           ("gumbel", {}, ("loc", "scale"), (0.7, 2.3)), ("rayleigh", {}, ("loc", "scale"), (0.7, 2.3)),
           ("gamma", {"shape": 0.7}, ("loc", "scale"), (0.7, 2.3)), ("weibull", {"a": 1.7}, ("loc", "scale"), (0.7, 2.3))]
GROUPED = [("gamma", {}, ("shape", "scale"), (0.7, 2.3)), ("weibull", {}, ("a", "scale"), (1.7, 2.0)), ("beta", {}, ("a", "b"), (0.7, 2.3)),
           ("chisquare", {}, ("df",), (3,)), ("bernoulli", {}, ("p",), (0.3,)), ("geometric", {}, ("p",), (0.3,)),
           ("binomial", {}, ("n", "p"), (20, 0.3)), ("negative_binomial", {}, ("n", "p"), (2.5, 0.3)),
           ("hypergeometric", {}, ("ngood", "nbad", "nsample"), (30, 60, 20)), ("integers", {}, ("low", "high"), (2, 90))]


@pytest.mark.parametrize("name, more, names, values", SHIFTED + GROUPED)
@pytest.mark.parametrize("dtype", [0, 1])
def test_constant_arrays_of_parameters_draw_as_numbers_do(name, more, names, values, dtype):
    integers = name in {case[0] for case in INTEGER}
    kinds = (np.int32, np.int64) if integers else (np.float64, np.float32)
    a, b = MT19937(9), MT19937(9)
    wanted = getattr(a, name)(**more, **dict(zip(names, values)), size=(50, 21), dtype=kinds[dtype])
    arrays = {n: np.full(21 if k else (50, 1), v) for k, (n, v) in enumerate(zip(names, values))}
    np.testing.assert_array_equal(getattr(b, name)(**more, **arrays, size=(50, 21), dtype=kinds[dtype]), wanted)
    assert a.state["state"] == b.state["state"]
    out = np.empty((50, 21), kinds[dtype])
    assert getattr(MT19937(9), name)(**more, **arrays, dtype=kinds[dtype], out=out) is out
    np.testing.assert_array_equal(out, wanted)


@pytest.mark.parametrize("name, more, names, values", SHIFTED + GROUPED)
def test_each_number_has_its_own_parameters(name, more, names, values):
    """Rows of two different sets of parameters have the laws of these."""
    other = tuple(v * 3 if v >= 1 else v * 0.5 for v in values)
    arrays = {n: np.array([[v], [w]]) for n, v, w in zip(names, values, other)}
    got = getattr(MT19937(9), name)(**more, **arrays, size=(2, 4000))
    for row, numbers in zip(got, (values, other)):
        alone = getattr(MT19937(77), name)(**more, **dict(zip(names, numbers)), size=4000)
        assert scipy.stats.ks_2samp(row, alone).pvalue > 1e-4


def test_parameters_broadcast_as_numpys_do():
    s, rng = MT19937(1), np.random.default_rng(1)
    for name, arguments in (("normal", ([0.0, 1.0], [[1.0], [2.0], [3.0]])), ("uniform", ([0.0, 1.0], 5.0)), ("exponential", ([1.0, 2.0],)),
                            ("gamma", ([1.0, 2.0], 3.0)), ("binomial", ([5, 6], 0.5)), ("lognormal", ([0.0, 1.0], [[1.0], [2.0], [3.0]])),
                            ("integers", ([0, 1], [[5], [6], [7]])), ("integers", ([5, 6],)), ("integers", (0, [])),
                            ("hypergeometric", ([5, 6], 3, [[2], [3], [4]])), ("multinomial", ([5, 6], [0.5, 0.5])),
                            ("multinomial", (5, [[0.5, 0.5], [0.1, 0.9]])), ("multinomial", ([[5], [6], [7]], [[0.5, 0.5], [0.1, 0.9]])),
                            ("multinomial", ([], [0.5, 0.5])), ("multinomial", (5, np.zeros((0, 2)))), ("poisson", ([1.0, 2.0],)), ("normal", ([], 1.0))):
        assert getattr(s, name)(*arguments).shape == getattr(rng, name)(*arguments).shape
        for size in ((3, 2), (4, 3, 2), (2, 3), 5):
            try:
                shape = getattr(rng, name)(*arguments, size=size).shape
            except ValueError:
                with pytest.raises(ValueError):
                    getattr(s, name)(*arguments, size=size)
            else:
                assert getattr(s, name)(*arguments, size=size).shape == shape


@pytest.mark.parametrize("name, arguments", [
    ("normal", ([0.0, 1.0], [1.0, -1.0])), ("normal", ([0.0, np.nan], 1.0)), ("uniform", ([0.0, 2.0], 1.0)), ("uniform", (0.0, [1.0, np.inf])),
    ("uniform", ([0.0, -1.7e308], 1.7e308)), ("exponential", ([1.0, 0.0],)), ("gamma", ([1.0, -1.0],)), ("gamma", (1.0, [1.0, 0.0])),
    ("binomial", ([5, 6], [0.5, 1.5])), ("binomial", ([5, 1 << 40], 0.5)), ("beta", ([1.0, 0.0], 1.0)), ("chisquare", ([3, 0],)),
    ("lognormal", ([0.0, np.nan], 1.0)), ("lognormal", (0.0, [1.0, -1.0])), ("lognormal", (0.0, [0.0])),
    ("integers", ([5, 6], [7, 6])), ("integers", ([5, 0],)), ("integers", (0, [1, 1 << 40])), ("integers", ([-1 << 31, -1 << 32], 5)),
    ("hypergeometric", ([5, -1], 5, 3)), ("hypergeometric", (5, [5, -1], 3)), ("hypergeometric", (5, 5, [3, 11])), ("hypergeometric", (5, 5, [-1])),
    ("hypergeometric", ([(1 << 31) - 1], 5, 3)), ("multinomial", ([5, -6], [0.5, 0.5])), ("multinomial", ([5, 1 << 40], [0.5, 0.5])),
    ("weibull", ([1.0, np.nan],)), ("bernoulli", ([0.5, -0.5],)), ("geometric", ([0.5, 0.0],)), ("laplace", (0.0, [1.0, np.inf])),
])
def test_one_parameter_outside_its_domain_leaves_the_stream(name, arguments):
    s = MT19937(9)
    before = s.state["state"]
    with pytest.raises(ValueError):
        getattr(s, name)(*arguments)
    assert s.state["state"] == before


def test_arrays_that_parameters_cannot_be():
    s = MT19937(9)
    with pytest.raises(TypeError, match="integers"):
        s.binomial([2.5, 3.0], 0.5)
    for call in (lambda: s.hypergeometric([2.5], 3, 1), lambda: s.integers([2.5, 3.0]), lambda: s.integers(["a"]), lambda: s.integers([None]),
                 lambda: s.multinomial([2.5], [0.5, 0.5])):
        with pytest.raises(TypeError):
            call()
    with pytest.raises(ValueError, match="box-muller"):
        s.normal([0.0, 1.0], 1.0, method="box-muller")
    with pytest.raises(ValueError, match="C order"):
        s.normal([0.0, 1.0], 1.0, out=np.empty((3, 2), order="F"))
    with pytest.raises((TypeError, ValueError)):
        s.normal(["a", "b"], 1.0)
    unaligned = np.frombuffer(b"x" + np.array([1.0, 2.0, 3.0]).tobytes(), np.uint8)[1:].view(np.float64)
    assert not unaligned.flags.aligned
    np.testing.assert_array_equal(MT19937(9).poisson(unaligned), MT19937(9).poisson([1.0, 2.0, 3.0]))
    np.testing.assert_array_equal(MT19937(9).normal(unaligned, 1.0), MT19937(9).normal([1.0, 2.0, 3.0], 1.0))


TYPES = [np.bool_, np.int8, np.uint8, np.int16, np.uint16, np.int32, np.uint32, np.int64, np.uint64]


def asked(call):
    """What a call gives: type and shape, or the exception and its text."""
    try:
        x = call()
    except Exception as error:
        return type(error), str(error)
    return getattr(x, "dtype", type(x)), np.shape(x)


@pytest.mark.parametrize("dtype", TYPES)
def test_integers_of_every_type_as_numpy_has_them(dtype):
    """Types, shapes, bounds and the texts of their errors; `endpoint`, which may be the type's last number."""
    least, most = (0, 1) if dtype is np.bool_ else (int(np.iinfo(dtype).min), int(np.iinfo(dtype).max))
    s, rng = PHILOX4X32X10(1), np.random.default_rng(1)
    for low, high in ((0, [1, 1]), ([0], [[1], [1]]), ([least - 1], 1), (0, [most + 1]), (0, [most + 2]), ([1], [0]), ([1], [1]), ([0, 1], None),
                      ([1, 1], None), (least - 1, 1), (0, most + 2), (1, 1), (1, 0), (0, None), ([], 1)):
        arrays = np.ndim(low) + (high is not None and np.ndim(high)) > 0
        if high == [most + 1] and most >> 32:
            continue  # longer than ours
        for size in (None,) if np.ndim(high) == 2 else (None, 3, (3, 2)) if arrays else (None, (), 3, (3, 2)):
            for endpoint in (False, True):
                def draw(generator):
                    return generator.integers(low, high, size=size, dtype=dtype, endpoint=endpoint)
                got, wanted = asked(lambda: draw(s)), asked(lambda: draw(rng))
                if wanted[0] is ValueError and "shape mismatch" in wanted[1]:
                    assert got[0] is ValueError
                elif wanted[1] == () and size is None:  # ours are numbers of Python's
                    assert got == (bool if dtype is np.bool_ else int, ())
                else:
                    assert got == wanted, (low, high, size, endpoint)
    for low, high in ((max(least, most - 5), most), (least, min(most, least + 5))):
        x = s.integers(np.full(5000, low), np.array(high, dtype), dtype=dtype, endpoint=True)
        assert x.dtype == dtype and set(x.tolist()) == set(range(low, high + 1))
        x = s.integers(low, high + 1, size=5000, dtype=dtype)
        assert x.dtype == dtype and set(x.tolist()) == set(range(low, high + 1))
        assert low <= s.integers(low, high, dtype=dtype, endpoint=True) <= high


def test_types_that_integers_cannot_have():
    s, rng = PHILOX4X32X10(1), np.random.default_rng(1)
    for dtype in (np.float64, "c8", "M8[s]", object, "S1", np.dtype(">i4"), "no such"):
        assert asked(lambda: s.integers(0, 3, dtype=dtype))[0] is asked(lambda: rng.integers(0, 3, dtype=dtype))[0]


def test_intervals_of_integers_from_one_to_2_to_the_32():
    s = PHILOX4X32X10(3)
    x = s.integers([0, -1 << 31, 1 << 40, -1 << 63], [1 << 32, 1 << 31, (1 << 40) + (1 << 32), (-1 << 63) + (1 << 32)], size=(4000, 4), dtype=np.int64)
    u = (x - np.array([0, -1 << 31, 1 << 40, -1 << 63])) / 2.0**32
    assert u.min() >= 0 and u.max() < 1
    for column in u.T:
        assert scipy.stats.kstest(column, "uniform").pvalue > 1e-4
    x = s.integers(np.array([(1 << 64) - 6], np.uint64), [1 << 64], size=5000, dtype=np.uint64)
    np.testing.assert_array_equal(np.unique(x), np.arange(6, dtype=np.uint64) + np.uint64((1 << 64) - 6))
    with pytest.raises(ValueError, match="more than 2"):
        s.integers([0], [(1 << 32) + 1], dtype=np.int64)
    with pytest.raises(ValueError, match="more than 2"):
        s.integers(-1 << 63, 1 << 63, dtype=np.int64)


def test_the_last_integer_is_below_high_where_sums_are_rounded():
    """Next to 2^31 the sum of the interval's begin and a part of its length has 22 bits behind the point."""
    low, high = (1 << 31) - 2, (1 << 31) - 1
    s = PHILOX4X32X10(1)
    assert (s.integers(low, high, size=30_000_000) == low).all()
    assert (PHILOX4X32X10(1).integers(np.full(30_000_000, low), high) == low).all()


def test_integers_of_intervals_of_their_own_have_their_laws():
    low, high = np.array([-5, 0, 1000]), np.array([1, 100, 1010])
    x = MT19937(7).integers(low, high, size=(20000, 3), dtype=np.int64)
    for column, a, b in zip(x.T, low, high):
        counts = np.bincount(column - a, minlength=b - a)
        assert counts.size == b - a
        assert scipy.stats.chisquare(counts).pvalue > 1e-4


def test_outcomes_of_trials_and_probabilities_of_their_own():
    n, p = np.array([[20], [50]]), np.array([[0.2, 0.3, 0.5], [0.7, 0.1, 0.2]])
    for method in ("sequential", "poisson"):
        x = PHILOX4X32X10(7).multinomial(n, p, size=(8000, 2, 2), dtype=np.int64, method=method)
        assert x.shape == (8000, 2, 2, 3) and x.dtype == np.int64
        assert (x.sum(axis=-1) == n).all()
        mean = n[..., None] * p
        np.testing.assert_allclose(x.mean(axis=0), mean, atol=0.25)
        np.testing.assert_allclose(x.var(axis=0), mean * (1 - p), rtol=0.1)
    a, b = PHILOX4X32X10(7), PHILOX4X32X10(7)
    rows = a.multinomial(np.full((5, 40), 20), np.broadcast_to(p[0], (40, 3)))
    np.testing.assert_array_equal(rows, b.multinomial(20, p[0], (5, 40)))
    assert a.state == b.state
    out = np.empty((5, 40, 3), np.int32)
    assert PHILOX4X32X10(7).multinomial(np.full(40, 20), p[0], out=out) is out
    np.testing.assert_array_equal(out, rows)


def test_the_last_probability_is_what_the_others_leave():
    for last in (0.5, 0.0, 1.0, 0.4999):
        np.testing.assert_array_equal(PHILOX4X32X10(7).multinomial(50, [0.2, 0.3, last], 100), PHILOX4X32X10(7).multinomial(50, [0.2, 0.3, 0.5], 100))
    np.testing.assert_array_equal(PHILOX4X32X10(7).multinomial(5, [0.3]), [5])
    single = np.array([0.1, 0.2, 0.7], np.float32)
    assert (PHILOX4X32X10(7).multinomial([50, 60], single, size=(9, 2)).sum(axis=-1) == [50, 60]).all()


@pytest.mark.parametrize("errors", [
    lambda s: s.multinomial([5, -1], [0.5, 0.5]), lambda s: s.multinomial(5, [1.5, 0.5]), lambda s: s.multinomial(5, [0.7, 0.6, 0.1]),
    lambda s: s.multinomial(5, [[0.7, 0.6, 0.1], [0.1, 0.1, 0.8]]), lambda s: s.multinomial(5, 0.5), lambda s: s.multinomial(5, [[]]),
    lambda s: s.multinomial([5, 6], [0.5, 0.5], size=(2, 1)), lambda s: s.multinomial(5, [[0.5, 0.5], [0.1, 0.9]], size=()),
    lambda s: s.hypergeometric([5, 6], [7, 8], [13, 3]), lambda s: s.hypergeometric([5, 6], [-1, 8], 3), lambda s: s.hypergeometric([-5], 8, 3)])
def test_errors_of_arrays_have_numpys_texts(errors):
    assert asked(lambda: errors(PHILOX4X32X10(1))) == asked(lambda: errors(np.random.default_rng(1)))


@pytest.mark.parametrize("name, parameters", [
    ("gamma", lambda g: (g.uniform(0.3, 5, 30000),)), ("beta", lambda g: (g.uniform(0.3, 5, 30000), 2.0)), ("weibull", lambda g: (g.uniform(0.5, 5, 30000),)),
    ("chisquare", lambda g: (g.integers(1, 1000, 30000),)), ("binomial", lambda g: (g.integers(1, 1000, 30000), 0.3)),
    ("negative_binomial", lambda g: (g.uniform(0.5, 30, 30000), 0.3)), ("geometric", lambda g: (g.uniform(0.1, 0.9, 30000),)),
    ("bernoulli", lambda g: (g.uniform(0, 1, 30000),)), ("hypergeometric", lambda g: (g.integers(50, 900, 30000), 100, 60))])
def test_sets_are_drawn_in_ascending_order_each_as_a_call_of_its_own(name, parameters):
    p = np.broadcast_arrays(*parameters(np.random.default_rng(3)))
    got = getattr(PHILOX4X32X10(5), name)(*p)
    key = (p[0] + p[1], p[2], p[0]) if name == "hypergeometric" else p
    order = np.lexsort(key[::-1])
    s = PHILOX4X32X10(5)
    for i in order[:300]:  # sets of one or a few numbers
        same = np.flatnonzero(np.logical_and.reduce([v == v[i] for v in p]))
        if i == same[0]:
            np.testing.assert_array_equal(got[same], getattr(s, name)(*(v[i].item() for v in p), size=same.size))


@pytest.mark.parametrize("call, said", [(lambda s: s.normal(0, -1, 3), "loc = 0.0, scale = -1.0"),
                                        (lambda s: s.normal([0, 1], [1, -2]), "loc = 1.0, scale = -2.0"),
                                        (lambda s: s.uniform(2, 1), "low = 2.0, high = 1.0"), (lambda s: s.poisson(-3), "lam = -3.0"),
                                        (lambda s: s.binomial(3, 1.5, dtype=np.int64), "n = 3, p = 1.5"),
                                        (lambda s: s.gamma(-1, [1.0, 2.0]), "shape = -1.0"), (lambda s: s.chisquare(0), "df = 0")])
def test_what_is_outside_its_domain_is_named(call, said):
    with pytest.raises(ValueError, match=re.escape(said)):
        call(PHILOX4X32X10(1))

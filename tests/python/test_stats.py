"""Statistics beside NumPy and SciPy, for any layout; summaries as objects."""
import copy
import pickle
import threading

import numpy as np
import pytest
import scipy.stats
from hypothesis import given
from hypothesis import strategies as st
from hypothesis.extra import numpy as hnp

from arrays import LAYOUTS
from orvik import stats
from orvik.stats import StreamQuantiles, Summary

TYPES = [np.float64, np.float32]


def tolerance(dtype):
    return {"rtol": 1e-11, "atol": 1e-11} if dtype == np.float64 else {"rtol": 2e-5, "atol": 2e-5}


def table(n, p, dtype=np.float64, seed=1):
    return np.random.default_rng(seed).normal(size=(n, p)).astype(dtype)


# ---- One go


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("layout", LAYOUTS)
@pytest.mark.parametrize("n, p", [(50, 3), (1, 4), (2, 1), (7, 7), (3000, 2), (30000, 12)])
def test_estimators_are_numpys_for_any_layout(layout, n, p, dtype):
    plain = table(n, p, dtype)
    x = LAYOUTS[layout](plain)
    if n > 1:
        np.testing.assert_allclose(stats.cov(x), np.cov(plain, rowvar=False).reshape(p, p), **tolerance(dtype))
        np.testing.assert_allclose(stats.corrcoef(x), np.corrcoef(plain, rowvar=False).reshape(p, p), **tolerance(dtype))
    q = [0, 0.1, 0.5, 1]
    np.testing.assert_allclose(stats.quantile(x, q), np.quantile(plain, q, axis=0), **tolerance(dtype))
    np.testing.assert_allclose(stats.mad(x), scipy.stats.median_abs_deviation(plain, axis=0), **tolerance(dtype))
    np.testing.assert_array_equal(stats.sort(x), np.sort(plain, axis=0))
    s = stats.summary(x)
    np.testing.assert_allclose(s.mean, plain.mean(axis=0), **tolerance(dtype))
    np.testing.assert_array_equal(s.min, plain.min(axis=0))
    np.testing.assert_array_equal(s.max, plain.max(axis=0))
    assert s.count == n and s.mean.dtype == dtype


@given(x=hnp.arrays(np.float64, hnp.array_shapes(min_dims=1, max_dims=4, max_side=6),
                    elements=st.floats(-1e6, 1e6)), axis=st.integers(-4, 3), data=st.data())
def test_axes_are_numpys(x, axis, data):
    if not -x.ndim <= axis < x.ndim:
        for call in (lambda: stats.quantile(x, 0.5, axis), lambda: stats.summary(x, axis), lambda: stats.mad(x, axis),
                     lambda: stats.sort(x, axis)):
            with pytest.raises(np.AxisError):
                call()
        return
    q = data.draw(hnp.arrays(np.float64, hnp.array_shapes(min_dims=0, max_dims=2, max_side=3), elements=st.floats(0, 1)))
    ours, numpys = stats.quantile(x, q, axis), np.quantile(x, q, axis=axis)
    assert np.shape(ours) == np.shape(numpys)
    np.testing.assert_allclose(ours, numpys, rtol=1e-12, atol=1e-9)
    s = stats.summary(x, axis)
    assert np.shape(s.mean) == x.mean(axis=axis).shape
    np.testing.assert_allclose(s.mean, x.mean(axis=axis), rtol=1e-12, atol=1e-9)
    np.testing.assert_array_equal(s.max, x.max(axis=axis))
    np.testing.assert_array_equal(stats.sort(x, axis), np.sort(x, axis=axis))


def test_without_an_axis_all_is_one_variable():
    x = table(10, 3)
    assert stats.quantile(x, 0.3, axis=None) == np.quantile(x, 0.3)
    assert stats.summary(x, axis=None).count == 30
    np.testing.assert_array_equal(stats.sort(x, axis=None), np.sort(x, axis=None))


@pytest.mark.parametrize("dtype", ["i1", "u2", "i4", "i8", "u8", "?", "f2", "f4", "f8", ">f4", ">i2", "g"])
def test_real_types_are_taken_as_numpy_would(dtype):
    x = (table(40, 2) * 3).astype(dtype)
    wide = np.asarray(x, np.float64)
    expected = np.float32 if np.dtype(dtype).newbyteorder("=") in (np.float32, np.float16) else np.float64
    assert stats.cov(x).dtype == expected
    np.testing.assert_allclose(stats.cov(x), np.cov(wide, rowvar=False), **tolerance(expected))
    assert stats.quantile(x, 0.5).dtype == expected


@pytest.mark.parametrize("x", [np.array([1 + 2j, 3]), np.array(["a", "b"]), np.array([1, None], object), [[1, "x"]],
                               np.array(["2020-01-01"], "M8[D]"), np.zeros(3, [("a", "f8")]), object(), None, {}])
@pytest.mark.parametrize("name", ["cov", "corrcoef", "summary", "mad", "sort", "quantile", "weighted_median", "outliers",
                                  "robust_cov", "impute"])
def test_what_is_not_real_is_a_type_error(name, x):
    more = {"quantile": (0.5,), "weighted_median": ([1, 1],)}.get(name, ())
    with pytest.raises(TypeError):
        getattr(stats, name)(x, *more)


def test_ragged_lists_are_value_errors():
    with pytest.raises(ValueError):
        stats.cov([[1, 2], [3]])


def test_columns_of_pandas_are_arrays():
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame(table(30, 3), columns=list("abc"))
    np.testing.assert_allclose(stats.cov(frame), frame.cov().to_numpy(), rtol=1e-12)
    assert stats.quantile(frame["a"], 0.25) == frame["a"].quantile(0.25)
    s = Summary(3)
    s.update(frame, weights=frame["a"] ** 2)
    assert s.count() == 30


@pytest.mark.parametrize("dtype", TYPES)
def test_weights_are_numpys_aweights(dtype):
    x, w = table(200, 3, dtype), np.random.default_rng(2).random(200).astype(dtype)
    w[::7] = 0
    np.testing.assert_allclose(stats.cov(x, w), np.cov(x, rowvar=False, aweights=w), **tolerance(dtype))
    s = stats.summary(x, weights=w)
    np.testing.assert_allclose(s.mean, np.average(x, axis=0, weights=w), **tolerance(dtype))
    whole = np.random.default_rng(3).integers(0, 4, 200)
    np.testing.assert_allclose(stats.weighted_median(x[:, 0], whole), np.median(np.repeat(x[:, 0], whole)), rtol=0.05, atol=0.05)


@pytest.mark.parametrize("weights", [np.ones(9), np.ones((10, 1)), -np.ones(10), np.full(10, np.nan), np.full(10, np.inf),
                                     np.float64(1)])
def test_bad_weights_are_value_errors(weights):
    x = table(10, 2)
    for call in (stats.cov, stats.corrcoef, lambda x, w: stats.summary(x, weights=w), Summary(2).update):
        with pytest.raises(ValueError):
            call(x, weights)
    if not np.isinf(weights).all():  # an infinite weight has a median
        with pytest.raises(ValueError):
            stats.weighted_median(x, weights)


def test_complex_weights_are_type_errors():
    with pytest.raises(TypeError):
        stats.cov(table(10, 2), np.ones(10, complex))


def test_moments_are_the_documented_ones():
    x = table(500, 2)
    s = stats.summary(x)
    v = x.var(axis=0, ddof=1)
    d = x - x.mean(axis=0)
    np.testing.assert_allclose(s.variance, v, rtol=1e-12)
    np.testing.assert_allclose(s.skewness, (d**3).mean(axis=0) / v**1.5, rtol=1e-10)
    np.testing.assert_allclose(s.kurtosis, (d**4).mean(axis=0) / v**2 - 3, rtol=1e-10)


def test_nan_spreads_as_in_numpy():
    x = table(100, 3)
    x[5, 1] = np.nan
    for y in (x, np.asfortranarray(x)):
        np.testing.assert_array_equal(stats.quantile(y, [0.2, 0.7]), np.quantile(x, [0.2, 0.7], axis=0))
        assert np.isnan(stats.mad(y)).tolist() == [False, True, False]
        assert np.isnan(stats.weighted_median(y, np.ones(100))).tolist() == [False, True, False]
        assert np.isnan(stats.cov(y)).tolist() == np.isnan(np.cov(x, rowvar=False)).tolist()
        np.testing.assert_array_equal(stats.sort(y), np.sort(x, axis=0))


@pytest.mark.parametrize("q", [-0.1, 1.1, np.nan, [0.5, 2], np.inf])
def test_orders_out_of_range_are_value_errors(q):
    with pytest.raises(ValueError):
        stats.quantile(table(5, 2), q)
    with pytest.raises(ValueError):
        StreamQuantiles(1, 0.1).quantile(q)


def test_few_observations_and_no_variables():
    assert np.isnan(stats.cov(table(1, 2))).all()
    assert np.isnan(stats.cov(np.empty((0, 2)))).all()
    assert stats.cov(np.empty((5, 0))).shape == (0, 0)
    assert stats.quantile(np.empty((5, 0)), [0.1, 0.2]).shape == (2, 0)
    assert stats.quantile(table(5, 2), []).shape == (0, 2)
    assert stats.mad(np.empty((5, 0))).shape == (0,)
    assert stats.summary(np.empty((5, 0))).mean.shape == (0,)
    assert stats.sort(np.empty((0, 3))).shape == (0, 3)
    assert np.isnan(stats.summary(np.empty(0)).mean)
    assert stats.quantile(5.0, 0.5) == 5.0
    for call in (lambda: stats.quantile([], 0.5), lambda: stats.mad([]), lambda: stats.weighted_median([], []),
                 lambda: stats.quantile(np.empty((0, 3)), 0.5)):
        with pytest.raises(ValueError):
            call()
    with pytest.raises(ValueError):
        stats.cov(np.ones((2, 2, 2)))
    with pytest.raises(ValueError):
        stats.cov(1.0)


def test_zero_strides_are_equal_observations():
    x = np.broadcast_to(np.array([1.0, 2.0]), (100, 2))
    np.testing.assert_array_equal(stats.cov(x), np.zeros((2, 2)))
    np.testing.assert_array_equal(stats.quantile(x, 0.3), [1, 2])
    assert np.isnan(stats.corrcoef(x)).all()
    tall = np.broadcast_to(np.arange(10.0)[:, None], (10, 4))
    np.testing.assert_allclose(stats.cov(tall), np.cov(tall, rowvar=False), rtol=1e-13)


def test_masked_arrays_are_what_numpy_makes_of_them():
    x = np.ma.array(table(20, 2), mask=False)
    np.testing.assert_allclose(stats.cov(x), np.cov(np.asarray(x), rowvar=False), rtol=1e-12)


@pytest.mark.parametrize("dtype", ["f8", "f4", "i8", "u1", "?", ">f8"])
def test_masked_elements_are_missing(dtype):
    x = np.ma.array(np.arange(12).reshape(6, 2) % 5, dtype=dtype)
    x[3, 1] = np.ma.masked
    holes = x.astype(np.float64).filled(np.nan)
    before = x.copy()
    np.testing.assert_allclose(stats.summary(x).mean, holes.mean(axis=0), rtol=1e-6)
    np.testing.assert_allclose(stats.quantile(x, 0.5), np.quantile(holes, 0.5, axis=0), rtol=1e-6)
    assert stats.quantile(x, 0.5).dtype == (np.float32 if dtype == "f4" else np.float64)
    assert np.isnan(stats.sort(x)[-1, 1]) and np.isfinite(stats.impute(np.ma.array(table(20, 2), mask=np.eye(20, 2)))).all()
    assert (x.mask == before.mask).all() and (x.data == before.data).all()


def test_the_callers_array_stays_as_it_is():
    x = table(50, 2)
    before = x.copy()
    for call in (stats.cov, stats.mad, stats.sort, stats.summary, lambda x: stats.quantile(x, 0.5), stats.outliers, stats.impute):
        call(x)
    np.testing.assert_array_equal(x, before)


def test_arrays_in_c_and_fortran_order_are_not_copied():
    from orvik._observations import table as taken, table_along

    for x in (table(50, 3), np.asfortranarray(table(50, 3)), table(50, 3, np.float32)):
        assert np.shares_memory(taken(x)[0], x) and np.shares_memory(table_along(x, 0)[0], x)
        assert np.shares_memory(table_along(x, 1)[0], x)
    assert not np.shares_memory(taken(table(50, 3)[::2])[0], table(50, 3))


# ---- Data that are not clean


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("layout", LAYOUTS)
def test_outliers_are_found_and_do_not_move_the_robust_estimate(layout, dtype):
    plain = table(400, 3, dtype)
    plain[::20] = 12 + 0.1 * plain[::20]
    x = LAYOUTS[layout](plain)
    flags = stats.outliers(x)
    assert flags.dtype == bool and flags.shape == (400,)
    assert flags[::20].all() and flags.sum() < 22
    r = stats.robust_cov(x)
    assert r.mean.dtype == dtype and r.covariance.shape == (3, 3)
    np.testing.assert_allclose(r.mean, 0, atol=0.25)
    np.testing.assert_allclose(r.covariance, np.eye(3), atol=0.3)
    assert np.abs(stats.cov(x)[0, 1]) > 3


def test_a_vector_is_one_variable_for_robust_estimates():
    x = table(100, 1)[:, 0]
    x[5] = 50
    assert np.flatnonzero(stats.outliers(x)).tolist() == [5]
    r = stats.robust_cov(x)
    assert np.ndim(r.mean) == 0 and abs(r.covariance - 1) < 0.5


def test_nan_and_infinity_are_outliers():
    x = table(100, 2)
    x[3, 0], x[7, 1] = np.nan, np.inf
    assert stats.outliers(x)[[3, 7]].all()


def test_alpha_decides_how_many_are_outliers():
    x = table(2000, 2)
    assert stats.outliers(x, 1e-6).sum() <= stats.outliers(x, 0.05).sum() <= stats.outliers(x, 1.0).sum()


@pytest.mark.parametrize("alpha", [-0.1, 1.5, np.nan])
def test_an_alpha_that_is_no_probability_is_named(alpha):
    with pytest.raises(ValueError, match="alpha must be"):
        stats.outliers(table(100, 2), alpha)


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("layout", LAYOUTS)
def test_what_is_missing_is_drawn_and_the_rest_stays(layout, dtype):
    rng = np.random.default_rng(1)
    plain = table(300, 3, dtype)
    plain[:, 2] = plain[:, 0] + plain[:, 1] + 0.01 * plain[:, 2]
    whole, holes = plain.copy(), rng.random(plain.shape) < 0.1
    plain[holes] = np.nan
    x = LAYOUTS[layout](plain)
    y = stats.impute(x)
    assert y.shape == x.shape and y.dtype == dtype and np.isfinite(y).all()
    np.testing.assert_array_equal(y[~holes], whole[~holes])
    alone = holes[:, 2] & ~holes[:, 0] & ~holes[:, 1]
    np.testing.assert_allclose(y[alone, 2], whole[alone, 2], atol=0.1)
    assert np.isnan(np.asarray(x)[holes]).all()


def test_sets_differ_and_do_not_depend_on_how_many_there_are():
    x = table(100, 2)
    x[::9, 1] = np.nan
    sets = stats.impute(x, 3)
    assert sets.shape == (3, 100, 2)
    np.testing.assert_array_equal(sets[0], stats.impute(x))
    np.testing.assert_array_equal(sets[:2], stats.impute(x, 2))
    np.testing.assert_array_equal(sets, stats.impute(np.asfortranarray(x), 3))
    assert len(set(sets[:, 0, 1])) == 3
    assert stats.impute(x, 0).shape == (0, 100, 2)


def test_without_holes_nothing_is_drawn():
    x = table(10, 2)
    np.testing.assert_array_equal(stats.impute(x), x)
    assert not np.shares_memory(stats.impute(x), x)
    assert stats.impute(np.empty((0, 3))).shape == (0, 3)


@pytest.mark.parametrize("call", [
    lambda: stats.outliers(table(9, 2)), lambda: stats.outliers(np.empty((9, 0))), lambda: stats.outliers(np.ones((20, 2))),
    lambda: stats.outliers(table(20, 2), -0.1), lambda: stats.outliers(table(20, 2), np.nan), lambda: stats.outliers([]),
    lambda: stats.robust_cov(table(4, 2)), lambda: stats.robust_cov(np.empty((9, 0))), lambda: stats.robust_cov(np.ones((20, 2))),
    lambda: stats.impute(np.ones(5)), lambda: stats.impute(np.full((9, 2), np.nan)),
    lambda: stats.impute([[1, 2], [np.inf, np.nan], [3, 4]]), lambda: stats.impute(np.ones((3, 2)), -1)])
def test_what_has_no_robust_answer_is_a_value_error(call):
    with pytest.raises(ValueError):
        call()


# ---- Summaries


@pytest.mark.parametrize("dtype", TYPES)
@given(cuts=st.lists(st.integers(0, 40), min_size=1, max_size=6), weighted=st.booleans(), merged=st.booleans())
def test_blocks_in_any_number_are_the_whole(dtype, cuts, weighted, merged):
    x = table(sum(cuts), 3, dtype)
    w = np.random.default_rng(5).random(sum(cuts)).astype(dtype) if weighted else None
    whole, parts, first = Summary(3, dtype), Summary(3, dtype), 0
    whole.update(x, w)
    for n in cuts:
        part = Summary(3, dtype) if merged else parts
        part.update(x[first:first + n], None if w is None else w[first:first + n])
        if merged:
            parts.merge(pickle.loads(pickle.dumps(part)))
        first += n
    assert whole.count() == parts.count() == x.shape[0]
    for name in ("mean", "variance", "min", "max", "covariance"):
        np.testing.assert_allclose(getattr(parts, name)(), getattr(whole, name)(), **tolerance(dtype))
    if x.shape[0] > 3:
        for name in ("skewness", "kurtosis", "correlation"):
            np.testing.assert_allclose(getattr(parts, name)(), getattr(whole, name)(), rtol=1e-4, atol=1e-4)


def test_a_new_summary_knows_nothing():
    s = Summary(2)
    assert s.count() == 0 and s.p == 2 and s.dtype == np.float64
    for name in ("mean", "variance", "skewness", "kurtosis", "min", "max", "covariance", "correlation"):
        assert np.isnan(getattr(s, name)()).all()
    s.update(np.empty((0, 2)))
    assert s.count() == 0


def test_results_are_those_of_the_functions():
    x = table(1000, 4)
    s = Summary(4)
    s.update(x)
    np.testing.assert_array_equal(s.covariance(), stats.cov(x))
    np.testing.assert_array_equal(s.correlation(), stats.corrcoef(x))
    for name in ("mean", "variance", "skewness", "kurtosis", "min", "max"):
        np.testing.assert_array_equal(getattr(s, name)(), getattr(stats.summary(x), name))


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("p", [1, 16, 17, 32, 50])
@pytest.mark.parametrize("order", "CF")
def test_summaries_of_many_variables(p, order, dtype):
    x = np.array(table(200, p), dtype, order=order)
    w = np.random.default_rng(1).uniform(0, 2, 200).astype(dtype)
    for weights in (None, w):
        s = Summary(p, dtype)
        s.update(x, weights)
        found = stats.summary(x, weights=weights)
        assert found.count == 200
        for name in ("mean", "variance", "skewness", "kurtosis", "min", "max"):
            result = getattr(found, name)
            assert result.dtype == dtype and result.shape == (p,)
            np.testing.assert_allclose(result, getattr(s, name)(), rtol=1e-12 if dtype == np.float64 else 1e-4, atol=1e-12 if dtype == np.float64 else 1e-4)


def test_a_summary_of_very_many_variables_holds_nothing_of_their_pairs():
    x = np.random.default_rng(1).normal(size=(3, 200_000))  # whose covariances would take 320 GB
    np.testing.assert_allclose(stats.summary(x).mean, x.mean(axis=0), atol=1e-15)
    np.testing.assert_allclose(stats.summary(x.T, axis=1).variance, x.var(axis=0, ddof=1), rtol=1e-12, atol=1e-15)


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s)), Summary.copy])
@pytest.mark.parametrize("dtype", TYPES)
def test_copies_are_independent_and_equal(copied, dtype):
    s = Summary(2, dtype)
    s.update(table(10, 2, dtype))
    t = copied(s)
    np.testing.assert_array_equal(t.covariance(), s.covariance())
    t.update(table(10, 2, dtype, 3))
    assert (s.count(), t.count(), t.dtype) == (10, 20, dtype)


def test_a_summary_merges_with_itself():
    s = Summary(1)
    s.update([1.0, 2.0])
    s.merge(s)
    assert s.count() == 4 and s.mean()[0] == 1.5


def test_what_does_not_merge_says_so():
    for other, error in ((Summary(3), ValueError), (Summary(2, np.float32), TypeError), (5, TypeError), (None, TypeError)):
        with pytest.raises(error):
            Summary(2).merge(other)


@pytest.mark.parametrize("p, error", [(0, ValueError), (-1, ValueError), (1.5, TypeError), ("2", TypeError), (1 << 70, ValueError),
                                      (1 << 40, ValueError), (4000000, MemoryError)])
def test_bad_numbers_of_variables(p, error):
    with pytest.raises(error):
        Summary(p)


@pytest.mark.parametrize("dtype", ["i4", "f2", ">f8", "c16", object, "g"])
def test_summaries_are_of_two_types(dtype):
    for make in (lambda: Summary(1, dtype), lambda: StreamQuantiles(1, 0.1, dtype)):
        with pytest.raises(TypeError):
            make()


@pytest.mark.parametrize("block", [np.ones((3, 1)), np.ones(3), np.ones((3, 2, 1)), np.ones((0, 3)), 1.0])
def test_blocks_of_another_width_are_value_errors(block):
    s = Summary(2)
    for target in (s, StreamQuantiles(2, 0.1)):
        with pytest.raises(ValueError):
            target.update(block)
    assert s.count() == 0


def test_no_damaged_image_is_taken():
    s = Summary(2)
    s.update(table(10, 2))
    make, (kind, dtype, image), _ = s.__reduce__()
    for place in range(len(image)):
        damaged = bytearray(image)
        damaged[place] ^= 0x11
        with pytest.raises(ValueError):
            make(kind, dtype, bytes(damaged))
    for length in range(len(image)):
        with pytest.raises(ValueError):
            make(kind, dtype, image[:length])
    with pytest.raises(ValueError):
        make(kind, "<f4", image)
    for other in ("text", dict, stats.StreamQuantiles.__mro__[1]):
        with pytest.raises(TypeError):
            make(other, dtype, image)
    with pytest.raises(TypeError):
        make(kind, dtype, "text")


def test_threads_may_share_a_summary():
    s, x = Summary(3), table(1000, 3)
    threads = [threading.Thread(target=lambda: [s.update(x) for _ in range(20)]) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert s.count() == 80000
    np.testing.assert_allclose(s.mean(), x.mean(axis=0), rtol=1e-12)


# ---- Quantiles of a stream


@pytest.mark.parametrize("dtype", TYPES)
def test_quantiles_of_a_stream_keep_their_error(dtype):
    x, epsilon = table(20000, 2, dtype), 0.01
    s = StreamQuantiles(2, epsilon, dtype)
    for block in np.array_split(x, 7):
        s.update(np.asfortranarray(block))
    q = np.array([0.1, 0.5, 0.9])
    r = s.quantile(q)
    assert r.shape == (3, 2) and s.quantile(0.5).shape == (2,) and r.dtype == dtype
    for j in range(2):
        ranks = np.searchsorted(np.sort(x[:, j]), r[:, j]) / len(x)
        assert np.abs(ranks - q).max() <= epsilon


def test_an_empty_stream_has_no_quantiles():
    assert np.isnan(StreamQuantiles(2, 0.1).quantile([0.2, 0.4])).all()


@pytest.mark.parametrize("epsilon", [0, -1, 2, np.nan, 1e-9])
def test_bad_errors_of_stream_quantiles(epsilon):
    with pytest.raises(ValueError, match="epsilon must be"):
        StreamQuantiles(1, epsilon)


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s)), StreamQuantiles.copy])
@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("n", [0, 1, 777, 20000])
def test_copies_of_a_stream_of_quantiles_go_on_alike(copied, dtype, n):
    x, more = table(n + 1, 2, dtype)[1:], table(3000, 2, dtype, 3)
    s, q = StreamQuantiles(2, 0.02, dtype), np.linspace(0, 1, 11)
    s.update(x)
    t = copied(s)
    assert t.p == 2
    np.testing.assert_array_equal(t.quantile(q), s.quantile(q))
    assert t.quantile(q).dtype == dtype
    before = s.quantile(q)
    t.update(more)
    np.testing.assert_array_equal(s.quantile(q), before)
    s.update(more)
    np.testing.assert_array_equal(t.quantile(q), s.quantile(q))


@pytest.mark.parametrize("dtype", TYPES)
def test_damaged_images_of_streams_of_quantiles_are_value_errors(dtype):
    s = StreamQuantiles(2, 0.1, dtype)
    s.update(table(500, 2, dtype))
    load, (kind, name, image), _ = s.__reduce__()
    assert load(kind, name, image).p == 2
    rng = np.random.default_rng(1)
    for at in (*range(60), *rng.integers(60, len(image), 200)):
        bent = bytearray(image)
        bent[at] ^= 1 << rng.integers(8)
        with pytest.raises(ValueError):
            load(kind, name, bytes(bent))
    for less in (0, 1, 23, 24, len(image) // 2, len(image) - 1):
        with pytest.raises(ValueError):
            load(kind, name, image[:less])
    with pytest.raises(ValueError):
        load(kind, name, image + b"0")
    with pytest.raises(ValueError):
        load(kind, "<f4" if dtype == np.float64 else "<f8", image)
    with pytest.raises(ValueError):
        load(kind, name, Summary(2, dtype).__reduce__()[1][2])
    with pytest.raises(TypeError):
        load(kind, name, "text")
    with pytest.raises(TypeError):
        load(kind, "i4", image)


class Named(Summary):
    def __init__(self, p, name):
        super().__init__(p)
        self.name = name


class NamedQuantiles(StreamQuantiles):
    pass


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s)), lambda s: s.copy()])
def test_copies_of_subclasses_are_of_the_subclass_and_keep_its_attributes(copied):
    s = Named(2, "a")
    s.update(table(10, 2))
    t = copied(s)
    assert type(t) is Named and t.name == "a" and t.count() == 10
    q = NamedQuantiles(1, 0.1)
    q.note = [1]
    t = copied(q)
    assert type(t) is NamedQuantiles and t.note == [1] and t.p == 1


def test_several_axes_are_numpys():
    x = table(60, 4).reshape(3, 4, 5, 4)
    for axes in ((0, 2), (-1, 1), (3, 0, 1), (0,), (0, 1, 2, 3)):
        np.testing.assert_allclose(stats.quantile(x, [0.1, 0.5], axis=axes), np.quantile(x, [0.1, 0.5], axis=axes), rtol=1e-13)
        np.testing.assert_allclose(stats.summary(x, axis=axes).mean, x.mean(axis=axes), rtol=1e-13, atol=1e-15)
        assert stats.mad(x, axis=axes).shape == x.mean(axis=axes).shape
    for axes, error in (((0, 0), ValueError), ((0, 9), np.AxisError), (9, np.AxisError), (1.5, TypeError)):
        with pytest.raises(error):
            stats.quantile(x, 0.5, axis=axes)
        with pytest.raises(TypeError if isinstance(axes, tuple) else error):
            stats.sort(x, axes)


def test_a_correlation_with_itself_is_a_number_and_a_number_is_sorted_without_an_axis():
    assert isinstance(stats.corrcoef(table(10, 1)[:, 0]), np.float64)
    assert stats.sort(np.array(3.0), axis=None).tolist() == [3.0]
    with pytest.raises(np.AxisError):
        stats.sort(3.0)


def test_columns_of_pandas_that_lack_values_have_nans_there():
    pandas = pytest.importorskip("pandas")
    whole = pandas.Series([1, 2, 4], dtype="Int64")
    assert stats.quantile(whole, 0.5) == 2
    assert np.isnan(stats.quantile(pandas.Series([1, None, 4], dtype="Int64"), 0.5))
    frame = pandas.DataFrame({"a": pandas.array([1.0, 2.0, 3.5], dtype="Float64"), "b": [True, False, True]})
    np.testing.assert_allclose(stats.cov(frame), np.cov(frame.to_numpy(float), rowvar=False))
    for column in (pandas.Series(["1", "2"]), pandas.Series([1, "2"]), pandas.DataFrame({"a": [1, 2], "b": ["1", "2"]})):
        with pytest.raises(TypeError):
            stats.quantile(column, 0.5)


def test_no_weights_where_they_are_needed_are_a_type_error():
    with pytest.raises(TypeError, match="weights must be"):
        stats.weighted_median([1.0, 2.0], None)


@pytest.mark.parametrize("holes", [False, True])
def test_infinities_are_not_imputed(holes):
    x = table(30, 2)
    x[3, 0] = np.inf
    if holes:
        x[4, 1] = np.nan
    with pytest.raises(ValueError, match="infinit"):
        stats.impute(x)


@pytest.mark.parametrize("place", [0, 5, 29])
def test_covariances_with_a_variable_that_holds_an_infinity_are_no_numbers(place):
    x = table(30, 3)
    x[place, 1] = np.inf
    with np.errstate(invalid="ignore"):
        want = np.cov(x, rowvar=False)
    s = Summary(3)
    s.update(x)
    for r in (stats.cov(x), stats.cov(np.asfortranarray(x)), s.covariance()):
        np.testing.assert_allclose(r, want, rtol=1e-13)
    assert np.isnan(stats.corrcoef(x)[1]).all()

"""Splines and search beside SciPy and NumPy."""
import copy
import pickle

import numpy as np
import pytest
import scipy.interpolate as scipys
from hypothesis import given
from hypothesis import strategies as st
from hypothesis.extra import numpy as hnp

from arrays import LAYOUTS
from orvik.interpolate import Spline, search

KINDS = ("linear", "hermite", "bessel", "akima", "hyman", "natural", "default", "quadratic")


def points(n=20, seed=1):
    rng = np.random.default_rng(seed)
    return np.cumsum(rng.uniform(0.1, 1.0, n)), rng.normal(size=n)


def sites(x, n=300):
    return np.random.default_rng(2).uniform(x[0] - 0.3, x[-1] + 0.3, n)


@pytest.mark.parametrize("ends, boundary", [
    ("free", "natural"), ("not-a-knot", "not-a-knot"), (("first", 0.5, -1.0), ((1, 0.5), (1, -1.0))),
    (("second", 0.5, -1.0), ((2, 0.5), (2, -1.0))), ("periodic", "periodic")])
def test_cubic_splines_are_scipys(ends, boundary):
    x, y = points()
    if ends == "periodic":
        y[-1] = y[0]
    ours, theirs = Spline(x, y, ends=ends), scipys.CubicSpline(x, y, bc_type=boundary)
    t = sites(x) if ends != "periodic" else np.random.default_rng(2).uniform(x[0], x[-1], 300)
    for derivative in range(4):
        np.testing.assert_allclose(ours(t, derivative), theirs(t, derivative), rtol=1e-7, atol=1e-8)
    np.testing.assert_allclose(ours(t, derivative=4), 0)
    np.testing.assert_allclose(ours.c, theirs.c[::-1].T, rtol=1e-7, atol=1e-8)
    a, b = np.sort(np.random.default_rng(3).uniform(x[0], x[-1], (2, 5)), axis=0)
    np.testing.assert_allclose(ours.integrate(a, b), [theirs.integrate(u, v) for u, v in zip(a, b)], rtol=1e-9)


def test_other_kinds_are_scipys():
    x, y = points()
    t = np.random.default_rng(2).uniform(x[0], x[-1], 300)
    np.testing.assert_allclose(Spline(x, y, "linear")(t), np.interp(t, x, y), rtol=1e-12, atol=1e-12)
    np.testing.assert_allclose(Spline(x, y, "akima")(t)[5:], scipys.Akima1DInterpolator(x, y)(t)[5:], rtol=1e-8, atol=1e-9)
    slopes = np.cos(x)
    hermite = Spline(x, y, "hermite", ("first", slopes[0], slopes[-1]), slopes[1:-1])
    np.testing.assert_allclose(hermite(t), scipys.CubicHermiteSpline(x, y, slopes)(t), rtol=1e-9, atol=1e-10)
    natural = scipys.CubicSpline(x, y, bc_type="natural")
    default = Spline(x, y, "default", ("second", 0.0, 0.0), natural(x, 2)[1:-1])
    np.testing.assert_allclose(default(t), natural(t), rtol=1e-8, atol=1e-9)


@pytest.mark.parametrize("kind", KINDS)
@pytest.mark.parametrize("dtype", [np.float64, np.float32])
def test_every_kind_goes_through_its_values(kind, dtype):
    x, y = (v.astype(dtype) for v in points())
    internal = np.zeros(len(x) - 2, dtype) if kind in ("hermite", "default") else None
    s = Spline(x, y, kind, internal=internal)
    assert s(x).dtype == dtype and s.c.dtype == dtype
    np.testing.assert_allclose(s(x), y, atol=1e-4 if dtype is np.float32 else 1e-11)
    order = {"linear": 2, "quadratic": 3}.get(kind, 4)
    assert s.c.shape == (len(x) - (kind != "quadratic"), order)
    if kind != "quadratic":
        np.testing.assert_array_equal(s.c[:, 0], y[:-1])


def test_a_monotone_kind_is_monotone():
    x, y = points()
    s = Spline(x, np.cumsum(np.abs(y)), "hyman", ("first", 0.0, 0.0))
    assert (np.diff(s(np.linspace(x[0], x[-1], 1000))) >= -1e-12).all()


def test_several_functions_share_breakpoints():
    x, y = points()
    many = np.stack([y, y[::-1], np.sin(x)])
    s = Spline(x, many, ends="not-a-knot")
    t = sites(x, 12).reshape(3, 4)
    assert s(t).shape == (3, 3, 4) and s(0.5).shape == (3,) and s.c.shape == (3, len(x) - 1, 4)
    assert s.integrate(x[0], t).shape == (3, 3, 4)
    for row, one in zip(range(3), many):
        single = Spline(x, one, ends="not-a-knot")
        np.testing.assert_array_equal(s(t)[row], single(t))
        np.testing.assert_array_equal(s.c[row], single.c)


@pytest.mark.parametrize("layout", LAYOUTS)
def test_any_layout_gives_the_same_bits(layout):
    x, y = points()
    t = sites(x, 60)
    s, laid = Spline(x, y), LAYOUTS[layout]
    np.testing.assert_array_equal(s(laid(t)), s(t))
    np.testing.assert_array_equal(s(laid(t.reshape(6, 10))), s(t).reshape(6, 10))
    np.testing.assert_array_equal(Spline(laid(x), laid(y)).c, s.c)
    np.testing.assert_array_equal(s.integrate(laid(t), 1.0), s.integrate(t, 1.0))
    np.testing.assert_array_equal(search(laid(x), laid(t)), search(x, t))


@pytest.mark.parametrize("kind", ["natural", "linear", "quadratic"])
def test_sites_in_order_give_the_same_bits(kind):
    x, y = points(200)
    s = Spline(x, y, kind)
    t = np.concatenate([sites(x, 5000), x])
    t[7], t[9] = np.inf, -np.inf
    order = np.argsort(t)
    for derivative in range(3):
        np.testing.assert_array_equal(s(t, derivative)[order], s(t[order], derivative))


@given(shape=hnp.array_shapes(min_dims=0, max_dims=3, min_side=0, max_side=5))
def test_shapes_of_results_are_those_of_sites(shape):
    x, y = points()
    s = Spline(x, y)
    assert np.shape(s(np.ones(shape))) == shape
    assert np.shape(s.integrate(np.zeros(shape), 1.0)) == shape
    assert np.shape(search(x, np.ones(shape))) == shape
    assert np.shape(Spline(x, np.stack([y, y]))(np.ones(shape))) == (2, *shape)


def test_scalars_are_scalars_and_nan_stays():
    x, y = points()
    s = Spline(x, y)
    assert isinstance(s(1.5), np.float64) and isinstance(s.integrate(0, 1), np.float64)
    assert np.isnan(s(np.nan)) and np.isnan(s([np.nan, 1.0])).tolist() == [True, False]
    assert isinstance(search(x, 1.5), np.int64)


@pytest.mark.parametrize("kind", ["linear", "natural", "quadratic"])
def test_derivatives_of_every_order_are_nan_where_the_site_is(kind):
    x, y = points()
    s, two = Spline(x, y, kind=kind), Spline(x, np.stack([y, -y]), kind=kind)
    for order in range(6):
        assert np.isnan(s(np.nan, order)) and np.isnan(s([[np.nan, 1.0]], order)).tolist() == [[True, False]]
        assert np.isnan(two([1.0, np.nan], order)).tolist() == [[False, True]] * 2


def test_masked_numbers_and_those_that_pandas_lacks_are_nan():
    s = Spline([0, 1, 2], [0, 1, 4])
    t = np.ma.array([0.5, 1.5], mask=[False, True])
    np.testing.assert_array_equal(s(t), [s(0.5), np.nan])
    assert search([0, 1, 2], t).tolist() == [1, 3]
    assert np.isnan(Spline([0, 1, 2], np.ma.array([0, 1, 4], mask=[0, 0, 1]), kind="linear")([0.5, 1.5])).tolist() == [False, True]
    with pytest.raises(ValueError):
        Spline(np.ma.array([0, 1, 2], mask=[0, 1, 0]), [0, 1, 4])
    pandas = pytest.importorskip("pandas")
    np.testing.assert_array_equal(Spline(pandas.Series([0, 1, 2], dtype="Int64"), [0, 1, 4])(pandas.Series([0.5, None], dtype="Float64")),
                                  [s(0.5), np.nan])


def test_outside_the_end_pieces_go_on():
    s = Spline([0, 1, 2], [0, 1, 4], "linear")
    np.testing.assert_array_equal(s([-1, 3]), [-1, 7])


def test_breakpoints_are_the_objects_own():
    x, y = points()
    s = Spline(x, y)
    value = s(1.5)
    x[:], y[:] = 0, 0
    assert s(1.5) == value
    with pytest.raises(ValueError):
        s.x[0] = 5
    c = s.c
    c[:] = 0
    assert s.c.any()


def test_a_spline_is_pickled():
    x, y = points()
    for s in (Spline(x, y, ends="not-a-knot"), Spline(x, np.stack([y, y]), "hermite", ("first", 0.0, 1.0), np.ones(18)),
              Spline(x.astype("f4"), y.astype("f4"), "akima")):
        again = pickle.loads(pickle.dumps(s))
        np.testing.assert_array_equal(again.c, s.c)
        np.testing.assert_array_equal(again.x, s.x)
        np.testing.assert_array_equal(again(1.5), s(1.5))


def test_types_are_numpys():
    x, y = points()
    assert Spline(x.astype("f4"), y).c.dtype == np.float64
    assert Spline(np.arange(5), np.arange(5))(2.5) == 2.5
    assert Spline([False, True], [0, 1], "linear")(0.25) == 0.25


@pytest.mark.parametrize("x, y, options, error", [
    ([0, 1, 1, 2], [0, 1, 2, 3], {}, ValueError), ([0, 2, 1], [0, 1, 2], {}, ValueError),
    ([0, np.nan, 2], [0, 1, 2], {}, ValueError), ([0], [0], {}, ValueError), ([], [], {}, ValueError),
    ([0, 1, np.inf], [0, 1, 2], {}, ValueError), ([0, 1, 2], [0, 1], {}, ValueError),
    ([[0, 1, 2]], [0, 1, 2], {}, ValueError), ([0, 1, 2], np.zeros((3, 2)), {}, ValueError),
    ([0, 1, 2], np.zeros((1, 1, 3)), {}, ValueError), ([0, 1, 2], np.zeros((0, 3)), {}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"kind": "cubic"}, ValueError), ([0, 1, 2], [0, 1, 2], {"kind": None}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"ends": "clamped"}, ValueError), ([0, 1, 2], [0, 1, 2], {"ends": ("first", 1)}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"ends": ("third", 1, 2)}, ValueError), ([0, 1, 2], [0, 1, 2], {"ends": 3}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"ends": ("first", np.nan, 0)}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"kind": "hermite"}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"kind": "hermite", "internal": [1, 2]}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"kind": "hermite", "internal": [np.nan]}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"internal": [1]}, ValueError),
    ([0, 1, 2, 3], [0, 1, 2, 3], {"kind": "akima"}, ValueError),
    ([0, 1, 2, 3], [0, 1, 2, 5], {"ends": "periodic"}, ValueError),
    ([0, 1, 2], [0, 1, 2], {"kind": "quadratic", "ends": "periodic"}, ValueError),
    ([0, 1, 2j], [0, 1, 2], {}, TypeError), (["a", "b"], [0, 1], {}, TypeError),
    ([0, 1], np.array([0, None], object), {}, TypeError), ([0, 1], [0, 1], {"ends": ("first", "a", 1)}, ValueError)])
def test_bad_splines_raise(x, y, options, error):
    with pytest.raises(error):
        Spline(x, y, **options)


def test_bad_sites_raise():
    s = Spline([0, 1, 2], [0, 1, 2])
    for t in ([1j], ["a"], np.array([None], object)):
        with pytest.raises(TypeError):
            s(t)
    with pytest.raises(ValueError):
        s(1.0, derivative=-1)
    with pytest.raises(TypeError):
        s(1.0, derivative=0.5)
    assert s(1.0, derivative=1 << 70) == 0
    with pytest.raises(ValueError):
        s.integrate([1, 2], [1, 2, 3])
    with pytest.raises((TypeError, AttributeError)):
        Spline.__new__(Spline)(1.0)


@pytest.mark.parametrize("dtype", [np.float64, np.float32])
@given(data=st.data())
def test_search_is_searchsorted(dtype, data):
    width = np.dtype(dtype).itemsize * 8
    x = np.unique(data.draw(hnp.arrays(dtype, st.integers(2, 40), elements=st.floats(-1e6, 1e6, width=width))))
    if x.size < 2:
        return
    t = data.draw(hnp.arrays(dtype, st.integers(0, 60), elements=st.floats(width=width)))
    t = np.concatenate([t, x])
    np.testing.assert_array_equal(search(x, t), np.searchsorted(x, t, side="right"))
    t = np.sort(t)
    np.testing.assert_array_equal(search(x, t), np.searchsorted(x, t, side="right"))


@pytest.mark.parametrize("x, error", [([1.0], ValueError), ([], ValueError), ([1, 1], ValueError), ([0, np.nan], ValueError),
                                      ([[0, 1]], ValueError), ([0, 1j], TypeError)])
def test_search_refuses_what_does_not_ascend(x, error):
    with pytest.raises(error):
        search(x, [0.5])


class Titled(Spline):
    def __init__(self, title):
        super().__init__([0, 1, 2], [0, 1, 4])
        self.title = title


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s))])
def test_copies_of_subclasses_are_of_the_subclass_and_keep_its_attributes(copied):
    s = copied(Titled("a"))
    assert type(s) is Titled and s.title == "a" and s(2) == 4


@pytest.mark.parametrize("derivative, error", [(0.0, TypeError), (1.0, TypeError), (None, TypeError), ("1", TypeError), (-1, ValueError)])
def test_orders_of_derivatives_that_are_none(derivative, error):
    with pytest.raises(error) as raised:
        Spline([0, 1, 2], [0, 1, 4])(0.5, derivative)
    assert "incompatible function arguments" not in str(raised.value)


def test_orders_of_derivatives_are_any_integers():
    s = Spline([0, 1, 2], [0, 1, 4])
    assert s(0.5, np.int64(0)) == s(0.5) and s(0.5, np.uint8(1)) == s(0.5, 1) and s(0.5, 10**30) == 0


def test_a_spline_says_what_it_is():
    assert repr(Spline([0, 1, 2], [[0, 1, 4]] * 2, ends="not-a-knot")) == "<Spline of 2 functions, 3 breakpoints, natural, ends 'not-a-knot', float64>"

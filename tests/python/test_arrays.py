"""Arrays of any shape, strides, type and place: bits that do not depend on them, and results as NumPy's ufuncs have them."""
import numpy as np
import pytest
from arguments import COMPLEX, REAL, UFUNCS, arguments, loops
from hypothesis import given
from hypothesis import strategies as st
from hypothesis.extra import numpy as hnp

import orvik

pytestmark = pytest.mark.filterwarnings("ignore:overflow")

LOOPS = [(name, inputs) for name, f in UFUNCS.items() for inputs, _ in loops(f)]
SHAPES = hnp.array_shapes(min_dims=0, max_dims=4, min_side=0, max_side=7)


def same_bits(a, b):
    return a.dtype == b.dtype and a.shape == b.shape and np.ascontiguousarray(a).tobytes() == np.ascontiguousarray(b).tobytes()


def tupled(results):
    return results if isinstance(results, tuple) else (results,)


@st.composite
def views(draw, array):
    """An array with the values of this one that lies otherwise: transposed, reversed, with gaps, repeated, unaligned."""
    axes = draw(st.permutations(range(array.ndim)))
    gaps = [draw(st.integers(1, 3)) * draw(st.sampled_from([1, -1])) for _ in range(array.ndim)]
    room = np.zeros([n * abs(g) for n, g in zip(array.transpose(axes).shape, gaps)], array.dtype)
    view = room[tuple(slice(None, None, g) for g in gaps)].transpose(np.argsort(axes)) if array.ndim else room
    view[...] = array
    return view


@st.composite
def unaligned(draw, array):
    memory = np.zeros(array.nbytes + 16, np.uint8)
    start = draw(st.integers(1, 15))
    view = memory[start:start + array.nbytes].view(array.dtype).reshape(array.shape)
    view[...] = array
    return view


@given(st.data(), st.sampled_from(LOOPS), SHAPES, st.integers(0, 2**32))
def test_bits_do_not_depend_on_where_the_elements_lie(data, loop, shape, seed):
    name, inputs = loop
    x = arguments(np.random.default_rng(seed), name, inputs, shape)
    want = tupled(UFUNCS[name](*x))
    placed = [data.draw(st.one_of(views(v), unaligned(v))) for v in x]
    assert all(same_bits(v, p) for v, p in zip(x, placed))
    for got, w in zip(tupled(UFUNCS[name](*placed)), want):
        assert same_bits(np.asarray(got), np.asarray(w))
    outputs = [data.draw(views(np.zeros(np.shape(w), np.asarray(w).dtype))) for w in want]
    returned = tupled(UFUNCS[name](*placed, out=tuple(outputs)))
    for r, o, w in zip(returned, outputs, want):
        assert r is o and same_bits(o, np.asarray(w))


@given(st.data(), st.sampled_from(LOOPS), hnp.mutually_broadcastable_shapes(num_shapes=7, max_dims=3, max_side=5))
def test_arguments_broadcast(data, loop, shapes):
    name, inputs = loop
    random = np.random.default_rng(7)
    x = [arguments(random, name, inputs, shape)[k] for k, shape in enumerate(shapes.input_shapes[:len(inputs)])]
    spread = [v.copy() for v in np.broadcast_arrays(*x)]
    for got, want in zip(tupled(UFUNCS[name](*x)), tupled(UFUNCS[name](*spread))):
        assert same_bits(np.asarray(got), np.asarray(want))


@pytest.mark.parametrize("name, inputs", LOOPS, ids=[f"{n}-{''.join(t.char for t in i)}" for n, i in LOOPS])
def test_every_loop_on_long_arrays_with_steps(name, inputs):
    """Long enough for blocks, pieces and the interpreter's lock to be let go."""
    x = arguments(np.random.default_rng(3), name, inputs, 3001)
    want = tupled(UFUNCS[name](*x))
    for step in (2, -1, -3):
        gapped = [v[::step] for v in x]
        for got, w in zip(tupled(UFUNCS[name](*gapped)), want):
            assert same_bits(got, w[::step])


@pytest.mark.parametrize("name, inputs", LOOPS, ids=[f"{n}-{''.join(t.char for t in i)}" for n, i in LOOPS])
@pytest.mark.parametrize("n", [7, 3001])
def test_in_place(name, inputs, n):
    x = arguments(np.random.default_rng(3), name, inputs, n)
    wants = tupled(UFUNCS[name](*x))
    if len(wants) != 1 or wants[0].dtype not in [v.dtype for v in x]:
        return
    for k, v in enumerate(x):
        if v.dtype == wants[0].dtype:
            mine = [w.copy() for w in x]
            UFUNCS[name](*mine, out=mine[k])
            assert same_bits(mine[k], wants[0])


@given(st.integers(2, 400), st.integers(-3, 3), st.sampled_from(REAL + COMPLEX))
def test_results_across_arguments(n, shift, dtype):
    """Views of one array that lie across each other are as if copied."""
    random = np.random.default_rng(n)
    values = random.uniform(0.5, 2, n + 8).astype(dtype)
    if values.dtype.kind == "c":
        values.imag = random.uniform(0.5, 2, n + 8)
    for f, count in ((orvik.exp, 1), (orvik.power, 2)):
        one = values.copy()
        inputs = [one[4:4 + n]] * count
        want = f(*(v.copy() for v in inputs))
        f(*inputs, out=one[4 + shift:4 + shift + n])
        assert same_bits(one[4 + shift:4 + shift + n], want)
        one = values.copy()
        want = f(*[one[:n].copy()] * count)
        f(*[one[:n]] * count, out=one[:n][::-1])
        assert same_bits(one[:n][::-1], want)


@pytest.mark.parametrize("dtype", REAL + COMPLEX)
@pytest.mark.parametrize("n", [1, 2, 255, 1000])
@pytest.mark.parametrize("way", [1, -1])
def test_columns_of_one_table(dtype, n, way):
    random = np.random.default_rng(n)
    values = random.uniform(0.5, 2, (n, 4)).astype(dtype)
    if values.dtype.kind == "c":
        values.imag = random.uniform(0.5, 2, (n, 4))
    for source, target in ((0, 1), (3, 0), (2, 3), (1, 1)):
        table = values.copy()
        orvik.exp(table[::way, source], out=table[::way, target])
        want = values.copy()
        want[:, target] = orvik.exp(values[:, source])
        assert same_bits(table, want)
    if dtype in REAL:
        table = values.copy()
        orvik.sincos(table[:, 0], out=(table[:, 1], table[:, 2]))
        sine, cosine = orvik.sincos(values[:, 0])
        assert same_bits(table, np.column_stack([values[:, 0], sine, cosine, values[:, 3]]))


def test_magnitudes_into_the_parts_of_their_arguments():
    for dtype in COMPLEX:
        for n in (1, 5, 3000):
            z = arguments(np.random.default_rng(3), "absolute", [np.dtype(dtype)], n)[0]
            want = orvik.absolute(z)
            orvik.absolute(z, out=z.real)
            assert same_bits(z.real, want)


@pytest.mark.parametrize("dtype", COMPLEX)
@pytest.mark.parametrize("n", [1, 2, 255, 256, 257, 3000])
def test_complex_numbers_in_records(dtype, n):
    """Their steps are no multiple of their size."""
    part = np.dtype(dtype).type(0).real.dtype
    records = np.zeros(n, np.dtype([("z", dtype), ("x", part)]))
    random = np.random.default_rng(n)
    records["z"] = random.uniform(-2, 2, n) + 1j * random.uniform(-2, 2, n)
    plain = records["z"].copy()
    assert same_bits(orvik.exp(records["z"]), orvik.exp(plain))
    assert same_bits(orvik.absolute(records["z"]), orvik.absolute(plain))
    assert same_bits(orvik.multiply(records["z"], plain), orvik.multiply(plain, plain))
    assert orvik.add.reduce(records["z"]) == orvik.add.reduce(plain)
    assert same_bits(orvik.add.accumulate(records["z"]), orvik.add.accumulate(plain))
    total = plain[0]
    for v in plain[1:]:
        total = orvik.subtract(total, v)
    assert orvik.subtract.reduce(records["z"]) == total
    orvik.exp(records["z"], out=records["z"])
    assert same_bits(records["z"].copy(), orvik.exp(plain))


BINARY = [name for name in ("add", "subtract", "multiply", "divide", "fmax", "fmin", "hypot", "copysign", "fmod") if hasattr(np, name)]


@given(st.data(), st.sampled_from(BINARY), hnp.array_shapes(min_dims=1, max_dims=3, min_side=1, max_side=6), st.sampled_from(REAL))
def test_accumulate_reduceat_outer_and_at_are_numpys(data, name, shape, dtype):
    ours, theirs = getattr(orvik, name), getattr(np, name)
    x = data.draw(views(np.random.default_rng(1).uniform(0.5, 2, shape).astype(dtype)))
    axis = data.draw(st.integers(-len(shape), len(shape) - 1))
    close = dict(rtol=1e-6 if dtype == np.float32 else 1e-14)
    np.testing.assert_allclose(ours.accumulate(x, axis=axis), theirs.accumulate(x, axis=axis), **close)
    where = data.draw(st.lists(st.integers(0, shape[axis] - 1), min_size=1, max_size=4))
    np.testing.assert_allclose(ours.reduceat(x, where, axis=axis), theirs.reduceat(x, where, axis=axis), **close)
    np.testing.assert_allclose(ours.outer(x, x[0]), theirs.outer(x, x[0]), **close)
    np.testing.assert_allclose(ours.reduce(x, axis=axis, keepdims=True), theirs.reduce(x, axis=axis, keepdims=True), **close)
    a, b = x.copy(), x.copy()
    index = data.draw(st.lists(st.integers(0, shape[0] - 1), max_size=4))
    ours.at(a, index, dtype(1.5))
    theirs.at(b, index, dtype(1.5))
    np.testing.assert_allclose(a, b, **close)


def test_reductions_have_numpys_identities():
    for name in BINARY:
        assert getattr(orvik, name).identity == (0 if name == "hypot" else getattr(np, name).identity)
    with pytest.raises(ValueError, match="zero-size"):
        orvik.fmax.reduce(np.empty(0))
    with pytest.raises(ValueError, match="reorderable"):
        orvik.divide.reduce(np.ones((2, 2)), axis=(0, 1))


@given(st.data(), hnp.array_shapes(max_dims=2, max_side=20))
def test_where_leaves_the_others_as_they_are(data, shape):
    x = np.random.default_rng(2).uniform(-2, 2, shape)
    mask = data.draw(hnp.arrays(bool, shape))
    ours, theirs = np.full(shape, 9.0), np.full(shape, 9.0)
    orvik.floor(x, out=ours, where=mask)
    np.floor(x, out=theirs, where=mask)
    assert same_bits(ours, theirs)


SCALARS = [True, 3, 2.5, np.float32(2.5), np.int8(3), np.uint64(3), np.float64(2.5)]
TYPES = ["?", "b", "B", "h", "H", "i", "I", "l", "L", "q", "e", "f", "d"]


@pytest.mark.parametrize("char", TYPES)
def test_other_types_are_cast_as_scipys_float_ufuncs_cast_them(char):
    """Those have the same loops: integers of up to 16 bits and float16 to float32, wider ones to float64."""
    import scipy.special as sp
    x = np.array([0, 1, 1], char)
    assert orvik.erf(x).dtype == sp.erf(x).dtype
    assert orvik.exp(x).dtype == sp.erf(x).dtype
    for second in [np.array([1, 1, 1], t) for t in TYPES] + SCALARS:
        want = np.result_type(orvik.power(x, second))
        assert want == orvik.power(x, second).dtype == sp.xlogy(x, second).dtype


@pytest.mark.parametrize("x", SCALARS + [2 + 1j, [1.0, 2.0], (1, 2), np.array(2.0)])
def test_numbers_lists_and_0_d_arrays(x):
    ours, theirs = orvik.sqrt(x), np.sqrt(x)
    assert type(ours) is type(theirs) or np.dtype(type(x)).itemsize < 8
    np.testing.assert_allclose(ours, theirs, rtol=1e-3 if theirs.dtype == np.float16 else 1e-6)


def test_dtype_and_casting():
    x = np.linspace(0, 1, 5)
    assert orvik.exp(x, dtype=np.float32, casting="same_kind").dtype == np.float32
    assert orvik.exp(x, dtype="D").dtype == np.complex128
    assert orvik.exp(x, signature="f->f", casting="same_kind").dtype == np.float32
    out = np.empty(5, np.float32)
    assert orvik.exp(x, out=out) is out
    np.testing.assert_allclose(out, np.exp(x), rtol=1e-6)


def test_orders_of_memory():
    x = np.asfortranarray(np.random.default_rng(1).uniform(size=(5, 6)))
    for order in "KACF":
        assert orvik.exp(x, order=order).flags.f_contiguous == np.exp(x, order=order).flags.f_contiguous
        assert orvik.exp(x.T, order=order).flags.f_contiguous == np.exp(x.T, order=order).flags.f_contiguous
    y = np.random.default_rng(1).uniform(size=(3, 4, 5)).transpose(2, 0, 1)
    assert orvik.exp(y).strides == np.exp(y).strides


def test_orders_of_bessel_functions():
    x = np.linspace(0.5, 20, 50)
    orders = np.arange(-3, 5)[:, None]
    table = orvik.jn(orders, x)
    assert table.shape == (8, 50)
    for k, row in zip(orders[:, 0], table):
        assert same_bits(row, orvik.jn(k, x)) and same_bits(row, orvik.jn(float(k), x))
    mixed = np.tile([0, 0, 1, 5, 5], 10)
    assert same_bits(orvik.jn(mixed, x), np.array([orvik.jn(int(k), v) for k, v in zip(mixed, x)]))
    assert orvik.jn(np.int8(2), x.astype("f")).dtype == np.float32
    for bad in (0.5, np.nan, np.inf, 1e10, 2**40):
        with np.errstate(invalid="ignore"):
            assert np.isnan(orvik.jn(bad, x)).all()
        with np.errstate(invalid="raise"), pytest.raises(FloatingPointError):
            orvik.jn(bad, x)


@pytest.mark.parametrize("name", ["modf", "sincos", "sincospi"])
@pytest.mark.parametrize("dtype", [np.float32, np.float64])
@pytest.mark.parametrize("n", [1, 100, 40_000])
def test_two_results_by_every_way_of_giving_outputs(name, dtype, n):
    f, x = getattr(orvik, name), np.random.default_rng(3).uniform(-9, 9, n).astype(dtype)
    wanted = f(x[::-1])  # NumPy's way
    wanted = [w[::-1] for w in wanted]
    first, second = np.empty_like(x), np.empty_like(x)
    for got in (f(x), f(x, first, second), f(x, out=(first, second)), f(x, None, second), f(x, first), f(x, out=(first, None))):
        assert type(got) is tuple
        for g, w in zip(got, wanted):
            np.testing.assert_array_equal(g, w)
    got = f(x, first, second)
    assert got[0] is first and got[1] is second
    mine = x.copy()
    np.testing.assert_array_equal(f(mine, mine, second)[0], wanted[0])
    mine = x.copy()
    np.testing.assert_array_equal(f(mine, first, mine)[1], wanted[1])


def test_two_results_in_one_array_are_as_with_numpys_functions():
    """NumPy computes into copies where they meet, which go back one after the other."""
    x, ours, theirs = np.linspace(0, 9, 50), np.empty(51), np.empty(51)
    orvik.modf(x, ours[:50], ours[1:])
    np.modf(x, theirs[:50], theirs[1:])
    np.testing.assert_array_equal(ours, theirs)


def test_in_place_is_what_a_new_array_has():
    for n in (1, 100, 5000, 100_000):
        x = np.random.default_rng(n).uniform(0.5, 2, n)
        for f, more in ((orvik.exp, ()), (orvik.power, (x[::-1].copy(),)), (orvik.floor, ())):
            mine = x.copy()
            assert f(mine, *more, mine) is mine
            np.testing.assert_array_equal(mine, f(x, *more))
    z = np.array([3 + 4j] * 20)
    narrow = z.view(np.float64)[:20]  # lies within its argument, with another size of element
    np.testing.assert_array_equal(orvik.absolute(z, narrow), np.full(20, 5.0))

"""Calls that go past NumPy's preparations: the results, types, places, flags and errors are those that they have with them."""
import itertools

import numpy as np
import pytest
from arguments import COMPLEX, REAL, UFUNCS

import orvik

UNARY = ["sqrt", "exp", "absolute", "floor", "modf", "sincos", "angle", "conjugate", "arctan", "log"]
BINARY = ["add", "power", "arctan2", "divide", "multiply", "fmax", "mulbyconj"]
NUMBERS = [
    2.5, -0.0, 1e-3, 1e300, 1e39, 3.2e38, 1e-40, 1e-300, np.inf, np.nan, 2, -3, 0, 32768, 65535, 65536, -32769, 2**53 + 1, 2**62, 10**30, True,
    2 + 1j, complex(1e39, 0), complex(0, np.inf), np.float32(2.5), np.float64(2.5), np.float64(1e39), np.complex64(2 - 1j),
    np.complex128(2 - 1j), np.int8(3), np.int64(2**40), np.float16(2.5), np.longdouble(2.5), np.bool_(True), np.array(2.5), np.array(2.5, "f"),
    np.array(2), np.array(1 + 2j), np.array(1 + 2j, "F"), np.array(2.5, ">f8"),
]
ARRAYS = [np.linspace(0.5, 2, 5), np.linspace(0.5, 2, 5, dtype="f"), np.linspace(0.5, 2, 5) + 1j, np.array([1 + 2j, 3], "F"),
          np.arange(3), np.ones((2, 3)), np.empty(0)]


def outcome(f, *x, **more):
    """Types, places and bits of what a call gives, with the kinds that it raises; or its error."""
    kinds = []
    with np.errstate(all="call", call=lambda kind, _: kinds.append(kind)):
        try:
            results = f(*x, **more)
        except Exception as error:
            return type(error), str(error)
    results = results if isinstance(results, tuple) else (results,)
    return sorted(set(kinds)), [(type(r), np.asarray(r).dtype.str, np.shape(r), np.asarray(r).strides, np.asarray(r).tobytes()) for r in results]


def same_as_by_numpy(f, *x, **more):
    """`subok` as it is anyway: a call with it is NumPy's from the start."""
    assert outcome(f, *x, **more) == outcome(f, *x, subok=True, **more)


@pytest.mark.parametrize("name", UNARY)
def test_numbers(name):
    for x in NUMBERS:
        same_as_by_numpy(UFUNCS[name], x)


@pytest.mark.parametrize("name", BINARY)
def test_numbers_with_numbers(name):
    for a, b in itertools.product(NUMBERS, NUMBERS):
        same_as_by_numpy(UFUNCS[name], a, b)


@pytest.mark.parametrize("name", BINARY)
def test_numbers_with_arrays(name):
    for a, b in itertools.product(NUMBERS, ARRAYS):
        same_as_by_numpy(UFUNCS[name], a, b)
        same_as_by_numpy(UFUNCS[name], b, a)


def test_results_of_numbers_in_arrays():
    for out in (np.zeros(3), np.zeros(()), np.zeros(3, "f"), None):
        assert outcome(orvik.add, 1.0, 2.0, out=out) == outcome(orvik.add, 1.0, 2.0, out=out, subok=True)
    x = np.arange(4.0)
    assert orvik.multiply(x, 2.0, out=x) is x and x.tolist() == [0, 2, 4, 6]
    assert orvik.multiply(x, 2, x) is x and x.tolist() == [0, 4, 8, 12]


def test_errstate_of_numbers():
    with np.errstate(all="raise"), pytest.raises(FloatingPointError, match="divide by zero encountered in log"):
        orvik.log(0.0)
    with np.errstate(all="raise"), pytest.raises(FloatingPointError, match="overflow encountered in multiply"):
        orvik.multiply(1e300, np.full(3, 1e300))
    with pytest.warns(RuntimeWarning, match="invalid value"):
        assert np.isnan(orvik.sqrt(-1.0))


def laid(values, step):
    """A vector of these values whose elements are so many apart."""
    room = np.zeros(len(values) * max(abs(step), 1), values.dtype)
    view = room[::step] if step else np.broadcast_to(values[:1], len(values))
    if step:
        view[...] = values
    return view


@pytest.mark.parametrize("n", [1, 2, 33, 1000, 5000])
@pytest.mark.parametrize("dtype", REAL + COMPLEX)
def test_vectors_of_any_step(n, dtype):
    x = np.linspace(0.5, 2, n).astype(dtype)
    for a, b in itertools.product((1, 2, -1, -3, 0), repeat=2):
        u, v = laid(x, a), laid(x[::-1], b)
        same_as_by_numpy(orvik.add, u, v)
        same_as_by_numpy(orvik.power, u, v)
        same_as_by_numpy(orvik.exp, u)
        if b == 0:
            continue
        for f, arguments in ((orvik.divide, (u, u)), (orvik.sqrt, (u,)), (orvik.multiply, (u, dtype(1.5)))):
            ours, numpys = laid(np.zeros(n, dtype), b), laid(np.zeros(n, dtype), b)
            assert f(*arguments, out=ours) is ours
            f(*arguments, out=numpys, subok=True)
            assert ours.tobytes() == numpys.tobytes()


@pytest.mark.parametrize("f", [orvik.add, orvik.arctan2])
@pytest.mark.parametrize("n", [3, 40, 700])
def test_vectors_across_each_other(f, n):
    """Outputs between, on and beside the elements of an input are as if that had been copied."""
    for step, start, out_step, out_start in itertools.product((1, 2, -1, -2), (0, 1, 2), (1, 2, -1), (0, 1, 5)):
        ours = np.linspace(0.5, 3, 4 * n + 16)
        numpys = ours.copy()
        for memory, more in ((ours, {}), (numpys, {"subok": True})):
            x = memory[start:][::step][:n]
            f(x, 2.0, out=memory[out_start:][::out_step][:n], **more)
        assert ours.tobytes() == numpys.tobytes()


def masks(n):
    random = np.random.default_rng(n)
    yield from (random.random(n) < share for share in (0, 0.1, 0.5, 0.95, 1))
    yield np.arange(n) < n // 2
    yield (np.arange(n) // 300) % 2 == 1


@pytest.mark.parametrize("n", [1, 16, 255, 256, 257, 1000, 5000])
@pytest.mark.parametrize("dtype", REAL + COMPLEX)
def test_masks(n, dtype):
    x = np.linspace(0.5, 2, n).astype(dtype)
    for mask in masks(n):
        for f, arguments in ((orvik.log, (x,)), (orvik.power, (x, 1.5)), (orvik.add, (x, laid(x, -2)))):
            for step in (1, -2):
                ours, numpys = laid(np.full(n, 9, dtype), step), laid(np.full(n, 9, dtype), step)
                assert f(*arguments, out=ours, where=mask) is ours
                f(*arguments, out=numpys, where=mask, subok=True)
                assert ours.tobytes() == numpys.tobytes()
            assert f(*arguments, where=mask)[mask].tobytes() == f(*arguments)[mask].tobytes()
        ours = x.copy()
        orvik.sqrt(ours, ours, where=mask)
        assert ours.tobytes() == np.where(mask, orvik.sqrt(x), x).tobytes()


def test_masks_of_two_results_and_tables():
    x = np.random.default_rng(1).uniform(-4, 4, (30, 40))
    mask = x > 0
    ours, numpys = [np.full((2, 30, 40), 9.0) for _ in range(2)]
    orvik.modf(x, ours[0], ours[1], where=mask)
    orvik.modf(x, *numpys, where=mask, subok=True)
    assert ours.tobytes() == numpys.tobytes()
    for odd in (True, mask[0], mask.T.copy().T, mask.astype("i1"), mask[:, :1], [True] * 40):
        results = [np.full((30, 40), 9.0) for _ in range(2)]
        caught = [outcome(orvik.exp, x, out=r, where=odd, **more) for r, more in zip(results, ({}, {"subok": True}))]
        assert caught[0] == caught[1] and results[0].tobytes() == results[1].tobytes()


def test_a_mask_in_the_memory_of_the_result():
    for more in ({}, {"subok": True}):
        memory = np.ones(800, np.uint8)
        mask, out = memory.view(bool)[:100], memory.view(np.float64)
        orvik.add(np.ones(100), 1.0, out=out, where=mask, **more)
        assert out.tolist() == [2.0] * 100


def test_elements_outside_a_mask_raise_nothing():
    x = np.tile([-1.0, 1.0, 0.0, 2.0], 500)
    out = np.zeros(2000)
    with np.errstate(all="raise"):
        orvik.log(x, out=out, where=x > 0)
        with pytest.raises(FloatingPointError, match="divide by zero"):
            orvik.log(x, out=out, where=x >= 0)
        with pytest.raises(FloatingPointError, match="invalid value"):
            orvik.log(x, out=out, where=x != 0)


SPECIAL = [0.0, -0.0, 1.0, -1.5, 1e-45, 1e-320, -1e-310, 1e38, 3e38, -3e38, 1e-38, 1e308, 1.7e308, -1.7e308, np.inf, -np.inf, np.nan]


@pytest.mark.parametrize("name", ["add", "subtract", "multiply", "fmax", "fmin"])
@pytest.mark.parametrize("dtype", REAL)
def test_running_results_have_the_bits_and_flags_of_whole_calls(name, dtype):
    f = UFUNCS[name]
    with np.errstate(all="ignore"):
        values = np.array(SPECIAL).astype(dtype)
    size = values.dtype.itemsize
    unlike = np.concatenate([values, -values[-1:], np.frombuffer(b"\x01\x02" + b"\0" * (size - 4) + b"\xf0\x7f" if size == 8 else
                                                                 b"\x01\x02\xc0\x7f", dtype)])
    for a, b in itertools.product(unlike, repeat=2):
        whole = np.full(40, a), np.full(40, b)  # long enough for the kernels
        pair = np.array([a, b])
        kinds, ((_, _, _, _, bits),) = outcome(f, *whole)
        for call in (lambda: f.accumulate(pair)[1:], lambda: f.reduce(pair[1:], initial=a), lambda: f(pair[:1], pair[1:]), lambda: f(*(v[:9] for v in whole))[8:]):
            found, ((_, _, _, _, few),) = outcome(call)
            assert few == bits[:size], (a, b)
            assert found == kinds or call().size == 0, (a, b, found, kinds)


@pytest.mark.parametrize("dtype", REAL)
def test_running_sums_are_those_of_one_after_another(dtype):
    x = np.random.default_rng(1).normal(size=(3, 50)).astype(dtype)
    for name in ("add", "subtract", "multiply"):
        ours, theirs = getattr(orvik, name), getattr(np, name)
        np.testing.assert_array_equal(ours.accumulate(x, axis=1), theirs.accumulate(x, axis=1))
        np.testing.assert_array_equal(ours.accumulate(x, axis=0), theirs.accumulate(x, axis=0))
    np.testing.assert_array_equal(orvik.subtract.reduce(x, axis=1), np.subtract.reduce(x, axis=1))
    for n in range(1, 8):  # NumPy adds these one after another as well
        np.testing.assert_array_equal(orvik.add.reduce(x[:, :n], axis=1), np.add.reduce(x[:, :n], axis=1))

"""Arguments that are no good: exceptions of the class that NumPy raises, and nothing written."""
import numpy as np
import pytest
from arguments import UFUNCS

import orvik

X = np.linspace(0.1, 1, 10)


def exception_of(call):
    try:
        call()
    except Exception as error:
        return type(error)
    return None


# Calls that NumPy refuses, with its own function of the same number of arguments in the same place.
CALLS = {
    "no argument": lambda f: f(),
    "too many arguments": lambda f: f(X, X, X, X),
    "a text": lambda f: f("abc"),
    "an array of texts": lambda f: f(np.array(["a", "b"])),
    "bytes": lambda f: f(np.array([b"a"])),
    "nothing": lambda f: f(None),
    "an object": lambda f: f(object()),
    "objects": lambda f: f(np.array([object(), None])),
    "a record": lambda f: f(np.zeros(3, [("x", "f8"), ("y", "f8")])),
    "times": lambda f: f(np.array(["2020-01-01"], "M8[D]")),
    "an unknown word": lambda f: f(X, nonsense=1),
    "output of another shape": lambda f: f(X, out=np.empty(3)),
    "output that would have to be spread": lambda f: f(np.ones((3, 4)), out=np.empty(4)),
    "output of integers": lambda f: f(X, out=np.empty(10, int)),
    "output of booleans": lambda f: f(X, out=np.empty(10, bool)),
    "output that is no array": lambda f: f(X, out=[0.0] * 10),
    "real output of complex numbers": lambda f: f(X + 1j, out=np.empty(10)),
    "read-only output": lambda f: f(X, out=read_only(np.empty(10))),
    "output given twice": lambda f: f(*[X] * f.nin, np.empty(10), out=np.empty(10)),
    "too many outputs": lambda f: f(X, out=(np.empty(10), np.empty(10))),
    "a mask of numbers": lambda f: f(X, where=X),
    "a mask of another shape": lambda f: f(X, where=np.ones(3, bool)),
    "a casting that is none": lambda f: f(X, casting="nonsense"),
    "a type that is none": lambda f: f(X, dtype="nonsense"),
    "a type without a loop": lambda f: f(X, dtype="M8[s]"),
    "an order that is none": lambda f: f(X, order="Q"),
    "a signature that is none": lambda f: f(X, signature="zz->z"),
    "unsafe casting": lambda f: f(X, dtype=np.float32, casting="no"),
    "shapes that do not go together": lambda f: f(np.ones(3), np.ones(4)) if f.nin == 2 else f(np.ones(3), out=np.ones(4)),
}


def read_only(array):
    array.flags.writeable = False
    return array


@pytest.mark.parametrize("what", CALLS)
@pytest.mark.parametrize("name", ["exp", "arctan2", "sqrt"])
def test_calls_that_numpy_refuses(what, name):
    theirs = exception_of(lambda: CALLS[what](getattr(np, name)))
    ours = exception_of(lambda: CALLS[what](getattr(orvik, name)))
    assert theirs is not None and ours is not None and issubclass(ours, theirs)


@pytest.mark.parametrize("dtype", ["g", "G", "O", "M8[s]", "m8[s]", "U3", "S3", "V8"])
@pytest.mark.parametrize("name", UFUNCS)
def test_types_without_a_loop(name, dtype):
    f = UFUNCS[name]
    with pytest.raises(TypeError):
        f(*[np.zeros(3, dtype)] * f.nin)


def test_what_is_refused_writes_nothing():
    out = np.full(3, 7.0)
    for call in (lambda: orvik.exp(X, out=out), lambda: orvik.exp(np.array(["a"] * 3), out=out),
                 lambda: orvik.exp(np.ones(3) + 1j, out=out)):
        assert exception_of(call) is not None
        assert (out == 7).all()
    fixed = read_only(np.full(10, 7.0))
    assert exception_of(lambda: orvik.exp(X, fixed)) is ValueError
    assert (fixed == 7).all()


@pytest.mark.parametrize("n", [1, 10, 3000])
def test_byte_swapped_and_unaligned_arrays(n):
    for dtype in ("f4", "f8", "c8", "c16"):
        x = np.linspace(0.1, 2, n).astype(dtype)
        swapped = x.astype(x.dtype.newbyteorder())
        memory = np.zeros(x.nbytes + 1, np.uint8)
        odd = memory[1:].view(dtype)
        odd[...] = x
        want = orvik.exp(x)
        assert np.array_equal(orvik.exp(swapped), want) and orvik.exp(swapped).dtype.isnative
        assert np.array_equal(orvik.exp(odd), want)
        orvik.exp(odd, out=odd)
        assert np.array_equal(odd, want)
        orvik.exp(swapped, out=swapped)
        assert np.array_equal(swapped, want)
        assert np.array_equal(orvik.power(swapped, x), orvik.power(want * 0 + x.dtype.type(1) * swapped, x))


@pytest.mark.parametrize("shape", [(0,), (3, 0), (0, 3, 0), ()])
def test_empty_and_0_d_arrays(shape):
    for f in UFUNCS.values():
        if f.nin > 2 or f in (orvik.jn, orvik.yn):
            continue
        x = [np.ones(shape)] * f.nin
        with np.errstate(all="ignore"):
            results = f(*x)
            outputs = tuple(np.empty(shape, np.asarray(r).dtype) for r in (results if f.nout > 1 else (results,)))
            f(*x, out=outputs)
        for r, o in zip(results if f.nout > 1 else (results,), outputs):
            assert np.shape(r) == shape and o.shape == shape and np.array_equal(r, o, equal_nan=True)
            assert np.isscalar(r) == (shape == ())


def test_huge_shapes_without_memory():
    """A number spread over more elements than addresses, and over more than fit."""
    huge = np.broadcast_to(np.float64(1), (2**40,))
    with pytest.raises(MemoryError):
        orvik.exp(huge)
    with pytest.raises(MemoryError):
        orvik.power(huge, 2.0)
    none = np.broadcast_to(np.float64(1), (2**40, 0))
    assert orvik.exp(none).shape == (2**40, 0)
    assert exception_of(lambda: orvik.add.outer(huge, huge)) in (MemoryError, ValueError)


def test_many_elements_of_one_number():
    spread = np.broadcast_to(np.float32(0.5), (300, 700))
    assert (orvik.exp(spread) == orvik.exp(np.float32(0.5))).all()
    assert (orvik.power(spread, spread) == orvik.power(np.float32(0.5), np.float32(0.5))).all()


class Marked(np.ndarray):
    pass


class Refusing(np.ndarray):
    __array_ufunc__ = None


class Own(np.ndarray):
    def __array_ufunc__(self, ufunc, method, *inputs, **kwargs):
        return "own", ufunc, method


class Wrapping:
    def __array__(self, dtype=None):
        return np.array([0.0, 1.0])

    def __array_wrap__(self, array, context=None):
        return "wrapped", array.tolist()


def test_subclasses_and_objects_that_act_as_arrays():
    x = X.view(Marked)
    for n in (1, 10):
        assert type(orvik.exp(x[:n])) is Marked and type(orvik.power(X[:n], x[:n])) is Marked
        assert type(orvik.exp(x[:n], subok=False)) is np.ndarray
        out = np.empty(n).view(Marked)
        assert orvik.exp(X[:n], out=out) is out
    with pytest.raises(TypeError):
        orvik.exp(X.view(Refusing))
    assert orvik.exp(X.view(Own)) == ("own", orvik.exp, "__call__")
    assert orvik.exp(X, out=X.copy().view(Own)) == ("own", orvik.exp, "__call__")
    assert orvik.add.reduce(X.view(Own))[2] == "reduce"
    assert orvik.floor(Wrapping()) == ("wrapped", [0.0, 1.0])
    masked = np.ma.masked_less(np.array([-1.0, 2.0]), 0)
    assert orvik.floor(masked).mask.tolist() == [True, False]


def test_pandas_columns_are_arrays():
    pandas = pytest.importorskip("pandas")
    table = pandas.DataFrame({"x": [0.0, 1.0], "y": [2.0, 3.0]}, index=["a", "b"])
    assert orvik.exp(table["x"]).index.tolist() == ["a", "b"]
    assert np.array_equal(orvik.power(table["x"], table["y"]), orvik.power(np.array([0.0, 1.0]), np.array([2.0, 3.0])))
    assert orvik.exp(table).shape == (2, 2)


@pytest.mark.parametrize("level", ["ha", "", None, 1, "XX", ["HA"]])
def test_levels_that_are_none(level):
    with pytest.raises((ValueError, TypeError)):
        orvik.accuracy(level)
    with pytest.raises((ValueError, TypeError)):
        orvik.set_accuracy(level)
    assert orvik.get_accuracy() == "HA"


@pytest.mark.parametrize("threads, error", [(-1, ValueError), (2**31, ValueError), (2**70, ValueError), (1.5, TypeError), ("2", TypeError),
                                            (None, TypeError)])
def test_numbers_of_threads_that_are_none(threads, error):
    before = orvik.get_num_threads()
    with pytest.raises(error):
        orvik.set_num_threads(threads)
    assert orvik.get_num_threads() == before

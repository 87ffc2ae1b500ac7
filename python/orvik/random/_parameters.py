"""Parameters of distributions: their checks, arrays of them, sets of equal ones."""
import math
import operator

import numpy as np

from ._output import INTEGERS

METHODS = {"box-muller": 0, "box-muller-pairs": 1, "inverse": 2}  # of normal numbers
_NUMBERS = (float, int)
# By the inverse of the distribution function, normal numbers are loc + (scale sqrt(2)) y: the type's root of 2, and the deviation
# whose product with it is 1, at which a draw gives y itself.
NORMAL = {np.float64: (math.sqrt(2), 1 / math.sqrt(2)),
           np.float32: (float(np.float32(math.sqrt(2))), float(np.nextafter(np.float32(1) / np.float32(math.sqrt(2)), np.float32(1))))}


# Of the library's draws, in its order.
_OF_DRAWS = {"uniform": ("low", "high"), "gaussian": ("loc", "scale"), "lognormal": ("mean", "sigma", "loc", "scale"),
             "exponential": ("loc", "scale"), "laplace": ("loc", "scale"), "cauchy": ("loc", "scale"), "gumbel": ("loc", "scale"),
             "rayleigh": ("loc", "scale sqrt(2)"), "weibull": ("a", "loc", "scale"), "gamma": ("shape", "loc", "scale"),
             "beta": ("a", "b", "loc", "scale"), "chisquare": ("df",), "bernoulli": ("p",), "geometric": ("p",), "binomial": ("n", "p"),
             "negative_binomial": ("n", "p"), "poisson": ("lam",)}


def naming(error, draw, parameters):
    """The same error with the parameters that a draw refused."""
    given = ", ".join(f"{name} = {value!r}" for name, value in zip(_OF_DRAWS.get(draw, ()), parameters))
    return ValueError(f"{error} ({given})") if given else error


def any_array(*parameters):
    return any(type(p) not in _NUMBERS and np.ndim(p) != 0 for p in parameters)


def plain_parts(loc, scale, kind):
    return loc.astype(kind), scale.astype(kind)


def reals(values):
    return np.asarray(values, np.float64)


def check_rows(size, shape):
    """Whether parameters of a shape broadcast to a size."""
    both = np.broadcast_shapes(shape, size)
    if both != size:
        raise ValueError(f"Output size {size} is not compatible with broadcast dimensions of inputs {both}.")


def affine(pair, parts, array):
    """(loc, factor) of parts(*pair, type) for each number of an array, and the first pair that is outside its domain, or None."""
    pair = [np.broadcast_to(v, array.shape) for v in pair]
    with np.errstate(all="ignore"):
        loc, factor = (np.require(v, requirements=["C", "A"]) for v in parts(*pair, array.dtype.type))
        sound = np.isfinite(loc) & np.isfinite(factor) & (factor > 0)
    if sound.all():
        return loc, factor, None
    first = np.unravel_index(np.argmin(sound), sound.shape)
    return loc, factor, [float(v[first]) for v in pair]


def sets_of(columns):
    """Of parameters as columns of equal length: the order that puts equal sets side by side, ascending, how many there are of each,
    and the sets as rows."""
    n = columns[0].size
    if n == 0:
        return np.empty(0, np.intp), np.empty(0, np.int64), np.empty((0, len(columns)))
    varying = [c for c in columns if c.strides[0] != 0 and (c[1:] != c[:-1]).any()]
    if len(varying) == 1:
        order = np.argsort(varying[0], kind="stable")
    else:
        order = np.lexsort(varying[::-1]) if varying else np.arange(n)
    begins = np.ones(n, bool)
    begins[1:] = False
    for column in varying:
        ordered = column[order]
        begins[1:] |= ordered[1:] != ordered[:-1]
    first = np.flatnonzero(begins)
    table = np.stack([c[order[first]] for c in columns], axis=-1).astype(np.float64)
    return order, np.diff(first, append=n).astype(np.int64), table


def integer_type(dtype):
    if dtype is np.int32:
        return INTEGERS[0]
    dtype = np.dtype(dtype)
    if dtype.kind not in "iub":
        raise TypeError(f"Unsupported dtype {dtype!r} for integers")
    if not dtype.isnative:
        raise ValueError("Providing a dtype with a non-native byteorder is not supported. If you require platform-independent "
                         "byteorder, call byteswap when required.")
    return dtype


def _whole(values, name):
    """Integers as an array: of int64 where they fit, else of Python's."""
    array = np.asarray(values)
    if array.dtype.kind == "O":
        array = np.array([operator.index(v) for v in array.reshape(-1)], object).reshape(array.shape)
    elif array.size == 0:
        return array.astype(np.int64)
    elif array.dtype.kind not in "iub":
        raise TypeError(f"{name} must be integers")
    elif array.dtype == np.uint64:
        array = array.astype(object)
    else:
        return array.astype(np.int64)
    fits = all(-(1 << 63) <= v < 1 << 63 for v in array.reshape(-1))
    return array.astype(np.int64) if fits else array


def intervals(low, high, dtype, endpoint):
    """First integers, modulo 2^64 as int64, and how many there are beyond them, as uint32."""
    alone = high is None
    low, high = _whole(0 if alone else low, "low"), _whole(low if alone else high, "high")
    if low.size and high.size:
        least, most = (0, 1) if dtype.kind == "b" else (np.iinfo(dtype).min, np.iinfo(dtype).max)
        if int(low.min()) < least:
            raise ValueError(f"low is out of bounds for {dtype.name}")
        if int(high.max()) > most + (not endpoint):
            raise ValueError(f"high is out of bounds for {dtype.name}")
        if (low > high).any() if endpoint else (low >= high).any():
            limit = "<" if endpoint else "<="
            raise ValueError(f"high {limit} 0" if alone else "low > high" if endpoint else "low >= high")
    if low.dtype == object or high.dtype == object:
        span = np.asarray(high.astype(object) - low.astype(object) - (not endpoint), object)
        low = np.asarray(low.astype(object) & (1 << 64) - 1, object).astype(np.uint64).view(np.int64)
    else:
        span = high.view(np.uint64) - low.view(np.uint64) - np.uint64(not endpoint)
    if span.size and int(span.max()) >> 32:
        raise ValueError("more than 2^32 integers between low and high")
    return low, span.astype(np.uint32)


def outcomes(pvals):
    """Probabilities as NumPy takes them: the last of a row is what the others leave. The library, which wants sums of 1, has the
    caller's own where they are as good."""
    pvals = np.require(pvals, np.float64, ["C", "A"])
    if pvals.ndim == 0 or pvals.shape[-1] == 0:
        raise ValueError("pvals must have at least 1 dimension and the last dimension of pvals must be greater than 0.")
    if not ((pvals >= 0) & (pvals <= 1)).all():
        raise ValueError("pvals < 0, pvals > 1 or pvals contains NaNs")
    others = pvals[..., :-1].sum(axis=-1)
    if (others > 1 + 1e-12).any():
        raise ValueError("sum(pvals[:-1]) > 1.0" if pvals.ndim == 1 else "sum(pvals[...,:-1]) > 1.0")
    last = np.maximum(1 - others, 0)
    off = abs(pvals[..., -1] - last) > 1e-12
    if off.any():
        pvals = pvals.copy()
        pvals[..., -1] = np.where(off, last, pvals[..., -1])
    return pvals


def int32s(values, name):
    array = np.asarray(values)
    if array.size == 0:
        return array.astype(np.int64)
    if array.dtype.kind not in "iu":
        raise TypeError(f"{name} must be integers")
    if not (-(1 << 31) <= int(array.min()) and int(array.max()) < 1 << 31):
        raise ValueError(f"{name} has more than 32 bits")
    return array


def method_number(name):
    try:
        return METHODS[name]
    except (KeyError, TypeError):
        raise ValueError(f"no such method: {name!r}") from None


def int32(value, name):
    value = operator.index(value)
    if not -(1 << 31) <= value < 1 << 31:
        raise ValueError(f"{name} has more than 32 bits")
    return value

"""The library's distributions as methods, under NumPy's names and with NumPy's parameters."""
import math
import operator

import numpy as np

from .._random import short_draw
from ._output import INTEGERS, REALS, array_for, type_of

_METHODS = {"box-muller": 0, "box-muller-pairs": 1, "inverse": 2}


class Distributions:
    """Draws of a stream, whole arrays at a time.

    All take `size` (int or tuple of ints; None for one number, or for the shape of the parameters), `dtype` and `out` (an array to
    fill, of that type and size) and return the array, or a number where neither size nor out is given and no parameter is an array.
    Parameters outside their domain raise ValueError, and the stream stays where it is.

    Parameters may be arrays that broadcast to `size` (an output is then in C order), but for `integers`, `hypergeometric`,
    `multinomial`, `lognormal` and the vectors. Locations and scales of `uniform`, `normal`, `exponential`, `laplace`, `cauchy`,
    `gumbel` and `rayleigh` make one draw, whose numbers are those of one call where they are constant. Of the other
    distributions each set of equal parameters is a draw of its own, in ascending order of the sets: quick for few of them, a
    microsecond and more a number where all differ.
 Draws run without the interpreter's lock, on as many threads as pay
    where the generator can skip, with the same numbers for any count of threads. An interrupt (Ctrl-C) ends a long draw between
    pieces of up to 2^24 numbers.
    """

    def _real(self, name, size, dtype, out, *parameters):
        if dtype is np.float64 and size is None and type(out) is np.ndarray and out.dtype is REALS[0] and out.flags.carray:
            array = out  # the commonest call, whose checks are a part of the time of short ones
        else:
            array = array_for(size, type_of(dtype, REALS, name), out)
        draw = getattr(self._stream, name)
        with self.lock:
            draw(array, *parameters)
        return array if out is not None or size is not None else array.item()

    def _integer(self, name, size, dtype, out, *parameters):
        array = array_for(size, type_of(dtype, INTEGERS, name), out)
        draw = getattr(self._stream, name)
        with self.lock:
            draw(array, *parameters)
        return array if out is not None or size is not None else array.item()

    def _array_of(self, name, size, dtype, types, out, shape):
        """The array that parameters of a shape broadcast to."""
        size = out.shape if size is None and isinstance(out, np.ndarray) else shape if size is None else size
        array = array_for(size, type_of(dtype, types, name), out)
        if not array.flags.c_contiguous:
            raise ValueError("an output for parameters of their own must be in C order")
        if np.broadcast_shapes(shape, array.shape) != array.shape:
            raise ValueError(f"Output size {array.shape} is not compatible with broadcast dimensions of inputs {shape}.")
        return array

    def _shifted(self, name, size, dtype, out, pair, parts, standard, parameters):
        """One draw of standard numbers x, then loc + factor x, where (loc, factor) are parts(*pair, type). `parameters(*pair)` are
        those of a draw with numbers, whose checks refuse what is outside the domain."""
        pair = [np.asarray(v, np.float64) for v in pair]
        array = self._array_of(name, size, dtype, REALS, out, np.broadcast_shapes(*(v.shape for v in pair)))
        pair = [np.broadcast_to(v, array.shape) for v in pair]
        with np.errstate(all="ignore"):
            loc, factor = (np.require(v, requirements=["C", "A"]) for v in parts(*pair, array.dtype.type))
            sound = np.isfinite(loc) & np.isfinite(factor) & (factor > 0)
        draw = getattr(self._stream, name)
        with self.lock:
            if not sound.all():
                first = np.unravel_index(np.argmin(sound), sound.shape)
                draw(np.empty(0, array.dtype), *parameters(*(float(v[first]) for v in pair)))
                raise ValueError("a parameter is outside its domain")
            draw(array, *standard)
            self._stream.shift_and_scale(array, loc, factor)
        return array

    def _grouped(self, name, size, dtype, types, out, *parameters):
        """A draw for each set of equal parameters, in ascending order."""
        parameters = [np.asarray(p) for p in parameters]
        array = self._array_of(name, size, dtype, types, out, np.broadcast_shapes(*(p.shape for p in parameters)))
        table = np.stack([np.broadcast_to(p, array.shape).reshape(-1) for p in parameters], axis=-1, dtype=np.float64, casting="unsafe")
        sets, which = np.unique(table, axis=0, return_inverse=True)
        sets = [[int(v) if p.dtype.kind in "iu" else v for v, p in zip(row, parameters)] for row in sets.tolist()]
        counts = np.bincount(which.reshape(-1), minlength=len(sets))
        draw, numbers, first = getattr(self._stream, name), np.empty(array.size, array.dtype), 0
        with self.lock:
            for row in sets:
                draw(numbers[:0], *row)  # the checks of all before the first number
            for row, count in zip(sets, counts.tolist()):
                draw(numbers[first:first + count], *row)
                first += count
        array.reshape(-1)[np.argsort(which.reshape(-1), kind="stable")] = numbers
        return array

    # ---- Real numbers

    @short_draw
    def uniform(self, low=0.0, high=1.0, size=None, dtype=np.float64, out=None):
        """Numbers evenly between `low` and `high`: low + (high - low) u. A float32 can round up to `high`.

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> x = PHILOX4X32X10(1).uniform(-1.0, 1.0, size=(2, 3))
        >>> bool((abs(x) <= 1).all())
        True
        """
        if _any_array(low, high):
            return self._shifted("uniform", size, dtype, out, (low, high), lambda a, b, t: (a.astype(t), b.astype(t) - a.astype(t)),
                                 (0.0, 1.0), lambda a, b: (a, b))
        return self._real("uniform", size, dtype, out, float(low), float(high))

    @short_draw
    def normal(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None, *, method="inverse"):
        """Normal numbers of mean `loc` and deviation `scale`.

        Parameters
        ----------
        method : {"inverse", "box-muller", "box-muller-pairs"}, optional
            By the inverse of the distribution function, a uniform a number; by Box and Muller, one number of each pair
            of uniforms, or both (the second number of a pair that a call leaves over begins the next call).

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> x = PHILOX4X32X10(1).normal(size=100000)
        >>> bool(abs(x.mean()) < 0.02 and abs(x.std() - 1) < 0.02)
        True
        """
        if _any_array(loc, scale):
            number = _method(method)
            if method == "box-muller":
                raise ValueError("method 'box-muller' takes numbers as parameters")
            factor, standard = _NORMAL[type_of(dtype, REALS, "normal").type] if method == "inverse" else (1, 1.0)
            return self._shifted("gaussian", size, dtype, out, (loc, scale), lambda a, b, t: (a.astype(t), b.astype(t) * t(factor)),
                                 (0.0, standard, number), lambda a, b: (a, b, number))
        return self._real("gaussian", size, dtype, out, float(loc), float(scale), _method(method))

    def lognormal(self, mean=0.0, sigma=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0,
                  method="inverse"):
        """loc + scale exp(z), z normal of mean `mean` and deviation `sigma`, by "inverse" or "box-muller-pairs"."""
        if method not in ("inverse", "box-muller-pairs"):
            raise ValueError(f"no such method: {method!r}")
        return self._real("lognormal", size, dtype, out, float(mean), float(sigma), float(loc), float(scale),
                          1 if method == "inverse" else 0)

    @short_draw
    def exponential(self, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale E, E exponential of mean 1."""
        if _any_array(loc, scale):
            return self._shifted("exponential", size, dtype, out, (loc, scale), _plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("exponential", size, dtype, out, float(loc), float(scale))

    @short_draw
    def laplace(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """Numbers of density exp(-|x - loc| / scale) / (2 scale)."""
        if _any_array(loc, scale):
            return self._shifted("laplace", size, dtype, out, (loc, scale), _plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("laplace", size, dtype, out, float(loc), float(scale))

    @short_draw
    def cauchy(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """loc + scale tan(pi (u - 1/2))."""
        if _any_array(loc, scale):
            return self._shifted("cauchy", size, dtype, out, (loc, scale), _plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("cauchy", size, dtype, out, float(loc), float(scale))

    def gumbel(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """loc - scale ln E, E exponential: maxima, as NumPy's. Minima are -gumbel(-loc, scale)."""
        if _any_array(loc, scale):
            return self._shifted("gumbel", size, dtype, out, (loc, scale), _plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("gumbel", size, dtype, out, float(loc), float(scale))

    def rayleigh(self, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale sqrt(2 E), E exponential: the length of two normal numbers of deviation `scale`."""
        if _any_array(loc, scale):
            return self._shifted("rayleigh", size, dtype, out, (loc, scale), lambda a, b, t: (a.astype(t), (b * math.sqrt(2)).astype(t)),
                                 (0.0, 1.0), lambda a, b: (a, b * math.sqrt(2)))
        return self._real("rayleigh", size, dtype, out, float(loc), float(scale) * math.sqrt(2))

    def weibull(self, a, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0):
        """loc + scale E^(1/a), E exponential."""
        if _any_array(a, loc, scale):
            if np.ndim(a) != 0:
                return self._grouped("weibull", size, dtype, REALS, out, _reals(a), _reals(loc), _reals(scale))
            a = float(a)
            return self._shifted("weibull", size, dtype, out, (loc, scale), _plain_parts, (a, 0.0, 1.0), lambda b, c: (a, b, c))
        return self._real("weibull", size, dtype, out, float(a), float(loc), float(scale))

    def gamma(self, shape, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale G, G of density y^(shape - 1) exp(-y) / Gamma(shape)."""
        if _any_array(shape, loc, scale):
            if np.ndim(shape) != 0:
                return self._grouped("gamma", size, dtype, REALS, out, _reals(shape), _reals(loc), _reals(scale))
            shape = float(shape)
            return self._shifted("gamma", size, dtype, out, (loc, scale), _plain_parts, (shape, 0.0, 1.0), lambda b, c: (shape, b, c))
        return self._real("gamma", size, dtype, out, float(shape), float(loc), float(scale))

    def beta(self, a, b, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0):
        """loc + scale B, B of density proportional to y^(a - 1) (1 - y)^(b - 1)."""
        if _any_array(a, b, loc, scale):
            return self._grouped("beta", size, dtype, REALS, out, *map(_reals, (a, b, loc, scale)))
        return self._real("beta", size, dtype, out, float(a), float(b), float(loc), float(scale))

    def chisquare(self, df, size=None, dtype=np.float64, out=None):
        """Sums of `df` squares of normal numbers; df is an int."""
        if _any_array(df):
            return self._grouped("chisquare", size, dtype, REALS, out, _int32s(df, "df"))
        return self._real("chisquare", size, dtype, out, _int32(df, "df"))

    def multivariate_normal(self, mean, cov=None, size=None, dtype=np.float64, out=None, *, factor=None,
                            method="inverse"):
        """Normal vectors: mean + L z, L the lower triangular factor of the covariance.

        Parameters
        ----------
        mean : array_like of shape (N,)
        cov : array_like of shape (N, N)
            Positive definite. Its lower triangle counts.
        factor : array_like of shape (N, N), optional
            L instead of `cov`; its lower triangle counts.
        method : {"inverse", "box-muller", "box-muller-pairs"}, optional
            Of the normal numbers.

        Returns
        -------
        ndarray of shape size + (N,)

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> PHILOX4X32X10(1).multivariate_normal([0, 1], [[2, 1], [1, 2]], size=5).shape
        (5, 2)
        """
        dtype = type_of(dtype, REALS, "multivariate_normal")
        if (cov is None) == (factor is None):
            raise ValueError("one of cov and factor is needed")
        mean = np.require(mean, dtype, ["C", "A"])
        if mean.ndim != 1:
            raise ValueError("mean must be 1 dimensional")
        matrix = np.asarray(cov if factor is None else factor, np.float64)
        if matrix.shape != (mean.size, mean.size):
            raise ValueError("mean and cov must have same length")
        if factor is None:
            try:
                matrix = np.linalg.cholesky(matrix)
            except np.linalg.LinAlgError:
                raise ValueError("covariance is not positive definite") from None
        array = array_for(size, dtype, out, mean.shape)
        with self.lock:
            self._stream.multivariate_normal(array, mean, np.require(matrix, dtype, ["C", "A"]), _method(method))
        return array

    # ---- Integers: int32, or int64

    def integers(self, low, high=None, size=None, dtype=np.int32, out=None):
        """Integers from `low` to `high` - 1, or from 0 to `low` - 1. Both lie within 32 bits.

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> x = PHILOX4X32X10(1).integers(1, 7, size=1000)
        >>> int(x.min()), int(x.max())
        (1, 6)
        """
        low, high = (0, low) if high is None else (low, high)
        low, high = _int32(low, "low"), _int32(high, "high")
        if low >= high:
            raise ValueError("low >= high")
        return self._integer("integers", size, dtype, out, low, high)

    def bernoulli(self, p, size=None, dtype=np.int32, out=None):
        """1 with probability `p`, else 0."""
        if _any_array(p):
            return self._grouped("bernoulli", size, dtype, INTEGERS, out, _reals(p))
        return self._integer("bernoulli", size, dtype, out, float(p))

    def geometric(self, p, size=None, dtype=np.int32, out=None):
        """Trials up to the first success, 1 or more."""
        if _any_array(p):
            return self._grouped("geometric", size, dtype, INTEGERS, out, _reals(p))
        return self._integer("geometric", size, dtype, out, float(p))

    def binomial(self, n, p, size=None, dtype=np.int32, out=None):
        """Successes of `n` trials of probability `p`."""
        if _any_array(n, p):
            return self._grouped("binomial", size, dtype, INTEGERS, out, _int32s(n, "n"), _reals(p))
        return self._integer("binomial", size, dtype, out, _int32(n, "n"), float(p))

    def hypergeometric(self, ngood, nbad, nsample, size=None, dtype=np.int32, out=None):
        """Good ones in a sample of `nsample` from `ngood` good and `nbad` bad ones."""
        ngood, nbad, nsample = (_int32(v, name) for v, name in ((ngood, "ngood"), (nbad, "nbad"), (nsample, "nsample")))
        if min(ngood, nbad, nsample) < 0 or nsample > ngood + nbad:
            raise ValueError("ngood + nbad < nsample, or a count is negative")
        return self._integer("hypergeometric", size, dtype, out, _int32(ngood + nbad, "ngood + nbad"), nsample, ngood)

    def negative_binomial(self, n, p, size=None, dtype=np.int32, out=None):
        """Failures before `n` successes of probability `p`; n is a number above 0, not only an integer."""
        if _any_array(n, p):
            return self._grouped("negative_binomial", size, dtype, INTEGERS, out, _reals(n), _reals(p))
        return self._integer("negative_binomial", size, dtype, out, float(n), float(p))

    def poisson(self, lam=1.0, size=None, dtype=np.int32, out=None, *, method="rejection"):
        """Poisson numbers of mean `lam`, above 0.

        Parameters
        ----------
        lam : float or array_like
            One mean, or one for each number, broadcast to `size`; means of their own are drawn by the quantile.
        method : {"rejection", "normal"}, optional
            Of one mean: by a table or rejection, or by a normal number and the quantile as a polynomial in it.

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> PHILOX4X32X10(1).poisson([1.0, 1000.0], size=(5, 2)).shape
        (5, 2)
        """
        if method not in ("rejection", "normal"):
            raise ValueError(f"no such method: {method!r}")
        if np.ndim(lam) == 0:
            return self._integer("poisson", size, dtype, out, float(lam), int(method == "normal"))
        lam = np.asarray(lam, np.float64)
        shape = out.shape if size is None and isinstance(out, np.ndarray) else lam.shape if size is None else size
        array = array_for(shape, type_of(dtype, INTEGERS, "poisson"), out)
        if not array.flags.c_contiguous:
            raise ValueError("an output for means of their own must be in C order")
        means = np.require(np.broadcast_to(lam, array.shape), requirements=["C", "A"])
        with self.lock:
            self._stream.poissons(array, means)
        return array

    def multinomial(self, n, pvals, size=None, dtype=np.int32, out=None, *, method="sequential"):
        """Counts of outcomes in `n` trials.

        Parameters
        ----------
        n : int
        pvals : array_like of shape (k,)
            Probabilities; their sum is 1 to three digits.
        method : {"sequential", "poisson"}, optional
            Outcome by outcome a binomial number of what is left; or Poisson numbers, corrected to the sum. The first
            cannot be interrupted.

        Returns
        -------
        ndarray of shape size + (k,)

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> PHILOX4X32X10(1).multinomial(20, [0.2, 0.3, 0.5], size=4).sum(axis=1)
        array([20, 20, 20, 20])
        """
        if method not in ("sequential", "poisson"):
            raise ValueError(f"no such method: {method!r}")
        pvals = np.require(pvals, np.float64, ["C", "A"])
        if np.ndim(pvals) != 1 or pvals.size == 0:
            raise ValueError("pvals must be a vector of one probability or more")
        array = array_for(size, type_of(dtype, INTEGERS, "multinomial"), out, pvals.shape)
        with self.lock:
            self._stream.multinomial(array, _int32(n, "n"), pvals, int(method == "poisson"))
        return array

    def words(self, size=None, out=None):
        """Words of 32 good bits, uint32: those that `random_raw` gives, drawn by whole arrays."""
        array = array_for(size, np.dtype(np.uint32), out)
        with self.lock:
            self._stream.words(array)
        return array if out is not None or size is not None else array.item()


_NUMBERS = (float, int)
# By the inverse of the distribution function, normal numbers are loc + (scale sqrt(2)) y: the type's root of 2, and the deviation
# whose product with it is 1, at which a draw gives y itself.
_NORMAL = {np.float64: (math.sqrt(2), 1 / math.sqrt(2)),
           np.float32: (float(np.float32(math.sqrt(2))), float(np.nextafter(np.float32(1) / np.float32(math.sqrt(2)), np.float32(1))))}


def _any_array(*parameters):
    return any(type(p) not in _NUMBERS and np.ndim(p) != 0 for p in parameters)


def _plain_parts(loc, scale, kind):
    return loc.astype(kind), scale.astype(kind)


def _reals(values):
    return np.asarray(values, np.float64)


def _int32s(values, name):
    array = np.asarray(values)
    if array.dtype.kind not in "iu":
        raise TypeError(f"{name} must be integers")
    if array.size and not (-(1 << 31) <= int(array.min()) and int(array.max()) < 1 << 31):
        raise ValueError(f"{name} has more than 32 bits")
    return array


def _method(name):
    try:
        return _METHODS[name]
    except (KeyError, TypeError):
        raise ValueError(f"no such method: {name!r}") from None


def _int32(value, name):
    value = operator.index(value)
    if not -(1 << 31) <= value < 1 << 31:
        raise ValueError(f"{name} has more than 32 bits")
    return value

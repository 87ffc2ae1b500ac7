"""The library's distributions as methods, under NumPy's names and with NumPy's parameters."""
import math
import operator

import numpy as np

from .._random import short_draw
from ._output import INTEGERS, REALS, array_for, type_of
from ._parameters import (METHODS, NORMAL, affine, any_array, check_rows, int32, int32s, integer_type, intervals, method_number, naming,
                          outcomes, plain_parts, reals, sets_of)


class Distributions:
    """Draws of a stream, whole arrays at a time.

    All take `size` (int or tuple of ints; None for one number, or for the shape of the parameters), `dtype` and `out` (an array to
    fill, of that type and size) and return the array, or a number where neither size nor out is given and no parameter is an array.
    Parameters outside their domain raise ValueError, and the stream stays where it is.

    Parameters may be arrays that broadcast to `size` (an output is then in C order). Those of `uniform`, `normal`, `lognormal`,
    `exponential`, `laplace`, `cauchy`, `gumbel`, `rayleigh` and `integers` make one draw, whose numbers are those of one call where
    they are constant (of `uniform` and `integers` before the last rounding). Of the other distributions each set of equal parameters is a draw of its own, in ascending order of the
    sets: quickest for few of them.

    Draws run without the interpreter's lock, on as many threads as pay where the generator can skip, with the same numbers for
    any count of threads. An interrupt (Ctrl-C) ends a long draw between pieces of up to 2^24 numbers.
    """

    def _draw(self, name, array, parameters):
        draw = getattr(self._stream, name)
        with self.lock:
            try:
                draw(array, *parameters)
            except ValueError as error:
                raise naming(error, name, parameters) from None

    def _real(self, name, size, dtype, out, *parameters):
        if dtype is np.float64 and size is None and type(out) is np.ndarray and out.dtype is REALS[0] and out.flags.carray:
            array = out  # the commonest call, whose checks are a part of the time of short ones
        else:
            array = array_for(size, type_of(dtype, REALS, name), out)
        self._draw(name, array, parameters)
        return array if out is not None or size is not None else array.item()

    def _integer(self, name, size, dtype, out, *parameters):
        array = array_for(size, type_of(dtype, INTEGERS, name), out)
        self._draw(name, array, parameters)
        return array if out is not None or size is not None else array.item()

    def _array_of(self, name, size, dtype, types, out, shape):
        """The array that parameters of a shape broadcast to."""
        size = out.shape if size is None and isinstance(out, np.ndarray) else shape if size is None else size
        array = array_for(size, type_of(dtype, types, name), out)
        if not array.flags.c_contiguous:
            raise ValueError("an output for parameters of their own must be in C order")
        check_rows(array.shape, shape)
        return array

    def _shifted(self, name, size, dtype, out, pair, parts, standard, parameters):
        """One draw of standard numbers x, then loc + factor x, where (loc, factor) are parts(*pair, type). `parameters(*pair)` are
        those of a draw with numbers, whose checks refuse what is outside the domain."""
        pair = [reals(v) for v in pair]
        array = self._array_of(name, size, dtype, REALS, out, np.broadcast_shapes(*(v.shape for v in pair)))
        loc, factor, unsound = affine(pair, parts, array)
        with self.lock:
            if unsound is not None:
                self._draw(name, np.empty(0, array.dtype), parameters(*unsound))
                raise ValueError("a parameter is outside its domain")
            self._draw(name, array, standard)
            self._stream.shift_and_scale(array, loc, factor)
        return array

    def _lognormals(self, size, dtype, out, normal, outer, method):
        """`normal` and `outer`: locations and scales before and behind the exponential function, which is the draw's own."""
        normal, outer = [reals(v) for v in normal], [reals(v) for v in outer]
        array = self._array_of("lognormal", size, dtype, REALS, out, np.broadcast_shapes(*(v.shape for v in normal + outer)))
        factor, standard = NORMAL[array.dtype.type] if method == METHODS["inverse"] else (1, 1.0)
        mean, sigma, unsound = affine(normal, lambda a, b, t: (a.astype(t), b.astype(t) * t(factor)), array)
        loc, scale, outer_unsound = affine(outer, plain_parts, array)
        if unsound is not None or outer_unsound is not None:
            raise ValueError("a parameter is outside its domain")
        with self.lock:
            self._stream.gaussian(array, 0.0, standard, method)
            self._stream.shift_and_scale(array, mean, sigma)
            self._stream.exponentiate(array)
            self._stream.shift_and_scale(array, loc, scale)
        return array

    def _grouped(self, name, size, dtype, types, out, *parameters):
        """A draw for each set of equal parameters, in ascending order."""
        parameters = [np.asarray(p) for p in parameters]
        array = self._array_of(name, size, dtype, types, out, np.broadcast_shapes(*(p.shape for p in parameters)))
        order, counts, table = sets_of([np.broadcast_to(p, array.shape).reshape(-1) for p in parameters])
        numbers = np.empty(array.size, array.dtype if types is REALS else np.int32)
        draw = getattr(self._stream, name + "_sets")
        with self.lock:
            draw(numbers, counts, table)
        array.reshape(-1)[order] = numbers
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
        if any_array(low, high):
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
        if any_array(loc, scale):
            number = method_number(method)
            if method == "box-muller":
                raise ValueError("method 'box-muller' takes numbers as parameters")
            factor, standard = NORMAL[type_of(dtype, REALS, "normal").type] if method == "inverse" else (1, 1.0)
            return self._shifted("gaussian", size, dtype, out, (loc, scale), lambda a, b, t: (a.astype(t), b.astype(t) * t(factor)),
                                 (0.0, standard, number), lambda a, b: (a, b, number))
        return self._real("gaussian", size, dtype, out, float(loc), float(scale), method_number(method))

    @short_draw
    def lognormal(self, mean=0.0, sigma=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0,
                  method="inverse"):
        """loc + scale exp(z), z normal of mean `mean` and deviation `sigma`, by "inverse" or "box-muller-pairs".

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> PHILOX4X32X10(1).lognormal([0.0, 1.0], [[0.5], [1.0], [2.0]]).shape
        (3, 2)
        """
        if method not in ("inverse", "box-muller-pairs"):
            raise ValueError(f"no such method: {method!r}")
        if any_array(mean, sigma, loc, scale):
            return self._lognormals(size, dtype, out, (mean, sigma), (loc, scale), METHODS[method])
        return self._real("lognormal", size, dtype, out, float(mean), float(sigma), float(loc), float(scale),
                          1 if method == "inverse" else 0)

    @short_draw
    def exponential(self, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale E, E exponential of mean 1."""
        if any_array(loc, scale):
            return self._shifted("exponential", size, dtype, out, (loc, scale), plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("exponential", size, dtype, out, float(loc), float(scale))

    @short_draw
    def laplace(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """Numbers of density exp(-|x - loc| / scale) / (2 scale)."""
        if any_array(loc, scale):
            return self._shifted("laplace", size, dtype, out, (loc, scale), plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("laplace", size, dtype, out, float(loc), float(scale))

    @short_draw
    def cauchy(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """loc + scale tan(pi (u - 1/2))."""
        if any_array(loc, scale):
            return self._shifted("cauchy", size, dtype, out, (loc, scale), plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("cauchy", size, dtype, out, float(loc), float(scale))

    @short_draw
    def gumbel(self, loc=0.0, scale=1.0, size=None, dtype=np.float64, out=None):
        """loc - scale ln E, E exponential: maxima, as NumPy's. Minima are -gumbel(-loc, scale)."""
        if any_array(loc, scale):
            return self._shifted("gumbel", size, dtype, out, (loc, scale), plain_parts, (0.0, 1.0), lambda a, b: (a, b))
        return self._real("gumbel", size, dtype, out, float(loc), float(scale))

    @short_draw
    def rayleigh(self, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale sqrt(2 E), E exponential: the length of two normal numbers of deviation `scale`."""
        if any_array(loc, scale):
            return self._shifted("rayleigh", size, dtype, out, (loc, scale), lambda a, b, t: (a.astype(t), (b * math.sqrt(2)).astype(t)),
                                 (0.0, 1.0), lambda a, b: (a, b * math.sqrt(2)))
        return self._real("rayleigh", size, dtype, out, float(loc), float(scale) * math.sqrt(2))

    @short_draw
    def weibull(self, a, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0):
        """loc + scale E^(1/a), E exponential."""
        if any_array(a, loc, scale):
            if np.ndim(a) != 0:
                return self._grouped("weibull", size, dtype, REALS, out, reals(a), reals(loc), reals(scale))
            a = float(a)
            return self._shifted("weibull", size, dtype, out, (loc, scale), plain_parts, (a, 0.0, 1.0), lambda b, c: (a, b, c))
        return self._real("weibull", size, dtype, out, float(a), float(loc), float(scale))

    @short_draw
    def gamma(self, shape, scale=1.0, size=None, dtype=np.float64, out=None, *, loc=0.0):
        """loc + scale G, G of density y^(shape - 1) exp(-y) / Gamma(shape)."""
        if any_array(shape, loc, scale):
            if np.ndim(shape) != 0:
                return self._grouped("gamma", size, dtype, REALS, out, reals(shape), reals(loc), reals(scale))
            shape = float(shape)
            return self._shifted("gamma", size, dtype, out, (loc, scale), plain_parts, (shape, 0.0, 1.0), lambda b, c: (shape, b, c))
        return self._real("gamma", size, dtype, out, float(shape), float(loc), float(scale))

    @short_draw
    def beta(self, a, b, size=None, dtype=np.float64, out=None, *, loc=0.0, scale=1.0):
        """loc + scale B, B of density proportional to y^(a - 1) (1 - y)^(b - 1)."""
        if any_array(a, b, loc, scale):
            return self._grouped("beta", size, dtype, REALS, out, *map(reals, (a, b, loc, scale)))
        return self._real("beta", size, dtype, out, float(a), float(b), float(loc), float(scale))

    @short_draw
    def chisquare(self, df, size=None, dtype=np.float64, out=None):
        """Sums of `df` squares of normal numbers; df is an int."""
        if any_array(df):
            return self._grouped("chisquare", size, dtype, REALS, out, int32s(df, "df"))
        return self._real("chisquare", size, dtype, out, int32(df, "df"))

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
            self._stream.multivariate_normal(array, mean, np.require(matrix, dtype, ["C", "A"]), method_number(method))
        return array

    # ---- Integers: int32, or int64

    @short_draw
    def integers(self, low, high=None, size=None, dtype=np.int32, out=None, *, endpoint=False):
        """Integers from `low` to `high` - 1, or from 0 to `low` - 1.

        Parameters
        ----------
        low, high : int or array_like of ints
            Within `dtype`, at most 2^32 integers between them.
        dtype : dtype, optional
            Any type of integers, or bool.
        endpoint : bool, optional
            True: up to `high`, or from 0 to `low`.

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> x = PHILOX4X32X10(1).integers(1, 7, size=1000)
        >>> int(x.min()), int(x.max())
        (1, 6)
        >>> PHILOX4X32X10(1).integers([0, 90], [[100], [200]], size=(2, 2), dtype=np.uint8, endpoint=True).dtype
        dtype('uint8')
        """
        dtype = integer_type(dtype)
        if not endpoint and dtype in INTEGERS and not (any_array(low) if high is None else any_array(low, high)):
            least, most = (0, operator.index(low)) if high is None else (operator.index(low), operator.index(high))
            if -(1 << 31) <= least < most < 1 << 31:
                return self._integer("integers", size, dtype, out, least, most)
        first, span = intervals(low, high, dtype, endpoint)
        shape = np.broadcast_shapes(first.shape, span.shape)
        array = self._array_of("integers", size, dtype, (dtype,), out, shape)
        first, span = (np.require(np.broadcast_to(v, array.shape) if shape else v, requirements=["C", "A"]) for v in (first, span))
        with self.lock:
            self._stream.integers_between(array, first, span)
        return array if out is not None or size is not None or shape else array.item()

    @short_draw
    def bernoulli(self, p, size=None, dtype=np.int32, out=None):
        """1 with probability `p`, else 0."""
        if any_array(p):
            return self._grouped("bernoulli", size, dtype, INTEGERS, out, reals(p))
        return self._integer("bernoulli", size, dtype, out, float(p))

    @short_draw
    def geometric(self, p, size=None, dtype=np.int32, out=None):
        """Trials up to the first success, 1 or more."""
        if any_array(p):
            return self._grouped("geometric", size, dtype, INTEGERS, out, reals(p))
        return self._integer("geometric", size, dtype, out, float(p))

    @short_draw
    def binomial(self, n, p, size=None, dtype=np.int32, out=None):
        """Successes of `n` trials of probability `p`."""
        if any_array(n, p):
            return self._grouped("binomial", size, dtype, INTEGERS, out, int32s(n, "n"), reals(p))
        return self._integer("binomial", size, dtype, out, int32(n, "n"), float(p))

    @short_draw
    def hypergeometric(self, ngood, nbad, nsample, size=None, dtype=np.int32, out=None):
        """Good ones in a sample of `nsample` from `ngood` good and `nbad` bad ones."""
        names = ("ngood", "nbad", "nsample")
        if not any_array(ngood, nbad, nsample):
            ngood, nbad, nsample = (int32(v, name) for v, name in zip((ngood, nbad, nsample), names))
            if min(ngood, nbad, nsample) < 0 or nsample > ngood + nbad:
                raise ValueError("ngood + nbad < nsample, or a count is negative")
            return self._integer("hypergeometric", size, dtype, out, int32(ngood + nbad, "ngood + nbad"), nsample, ngood)
        counts = [int32s(v, name).astype(np.int64) for v, name in zip((ngood, nbad, nsample), names)]
        for v, name in zip(counts, names):
            if (v < 0).any():
                raise ValueError(f"{name} < 0")
        ngood, nbad, nsample = counts
        both = int32s(ngood + nbad, "ngood + nbad")
        if (both < nsample).any():
            raise ValueError("ngood + nbad < nsample")
        return self._grouped("hypergeometric", size, dtype, INTEGERS, out, both, nsample, ngood)

    @short_draw
    def negative_binomial(self, n, p, size=None, dtype=np.int32, out=None):
        """Failures before `n` successes of probability `p`; n is a number above 0, not only an integer."""
        if any_array(n, p):
            return self._grouped("negative_binomial", size, dtype, INTEGERS, out, reals(n), reals(p))
        return self._integer("negative_binomial", size, dtype, out, float(n), float(p))

    @short_draw
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
        """How often each of k outcomes comes in `n` trials.

        Parameters
        ----------
        n : int or array_like of ints
        pvals : array_like of shape (..., k)
            Probabilities. The last one is what the others leave, whatever stands there. `n` broadcasts with the dimensions before it.
        method : {"sequential", "poisson"}, optional
            Binomial numbers of what is left, or Poisson numbers that are corrected to the sum. The sequential method
            cannot be interrupted.

        Returns
        -------
        ndarray of shape size + (k,)

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> PHILOX4X32X10(1).multinomial(20, [0.2, 0.3, 0.5], size=4).sum(axis=1)
        array([20, 20, 20, 20])
        >>> PHILOX4X32X10(1).multinomial([[20], [30]], [[0.2, 0.8], [0.5, 0.5]]).shape
        (2, 2, 2)
        """
        if method not in ("sequential", "poisson"):
            raise ValueError(f"no such method: {method!r}")
        method = int(method == "poisson")
        pvals = outcomes(pvals)
        if not any_array(n) and pvals.ndim == 1:
            array = array_for(size, type_of(dtype, INTEGERS, "multinomial"), out, pvals.shape)
            with self.lock:
                self._stream.multinomial(array, int32(n, "n"), pvals, method)
            return array
        n = int32s(n, "n")
        if (n < 0).any():
            raise ValueError("n < 0")
        shape, last = np.broadcast_shapes(n.shape, pvals.shape[:-1]), pvals.shape[-1:]
        if out is not None and size is None:
            size = out.shape[:-1] if isinstance(out, np.ndarray) else shape
        array = array_for(shape if size is None else size, type_of(dtype, INTEGERS, "multinomial"), out, last)
        rows = array.shape[:-1]
        check_rows(rows, shape)
        columns = [np.broadcast_to(v, rows).reshape(-1) for v in (n, *np.moveaxis(pvals, -1, 0))]
        order, counts, table = sets_of(columns)
        numbers = np.empty((order.size, *last), np.int32)
        with self.lock:
            self._stream.multinomial_sets(numbers, counts, table, method)
        array.reshape(-1, *last)[order] = numbers
        return array

    def words(self, size=None, out=None):
        """Words of 32 good bits, uint32: those that `random_raw` gives, drawn by whole arrays."""
        array = array_for(size, np.dtype(np.uint32), out)
        with self.lock:
            self._stream.words(array)
        return array if out is not None or size is not None else array.item()

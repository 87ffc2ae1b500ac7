"""Statistics of observations that come block by block, as objects."""
import copy
import operator
import threading

import numpy as np

from . import _statistics
from ._observations import table, weights_for


class Running:
    """What grows by blocks of observations: an object of the library, its type, images of it."""

    _kind = ""  # of orvik._statistics, without the type

    def _adopt(self, state, dtype):
        self._state = state
        self._dtype = dtype
        self._lock = threading.RLock()

    @property
    def p(self):
        """Number of variables."""
        return self._state.dimension()

    @property
    def dtype(self):
        """Type of blocks and results."""
        return self._dtype

    def _read(self, name, *arguments):
        with self._lock:
            return getattr(self._state, name)(*arguments)

    def copy(self):
        """An independent object that has met the same observations."""
        return copy.copy(self)

    def __reduce__(self):
        own = {key: value for key, value in self.__dict__.items() if key not in ("_state", "_dtype", "_lock")}
        return _of_image, (type(self), self._dtype.str, self._read("image")), own or None


def _of_image(kind, dtype, image):
    if not (isinstance(kind, type) and issubclass(kind, Running) and kind._kind):
        raise TypeError(f"{kind!r} is not a class of orvik.stats")
    if not isinstance(image, bytes):
        raise TypeError("an image is bytes")
    made = kind.__new__(kind)
    made._adopt(kind_of(kind._kind, dtype)(image), np.dtype(dtype))
    return made


class Summary(Running):
    """Moments, extremes and covariances of any number of blocks of observations, of which none is kept.

    Summaries of parts merge into that of the whole, also between processes: objects are pickled by an image with a
    checksum. Sums are held in double; results do not depend on the number of threads.

    Parameters
    ----------
    p : int
        Number of variables.
    dtype : {float64, float32}, optional
        Of blocks and results.

    Examples
    --------
    >>> import numpy as np
    >>> from orvik.stats import Summary
    >>> x = np.arange(12.0).reshape(6, 2)
    >>> a, b = Summary(2), Summary(2)
    >>> a.update(x[:4])
    >>> b.update(x[4:])
    >>> a.merge(b)
    >>> a.count(), a.mean()
    (6, array([5., 6.]))
    """

    _kind = "Summary"

    def __init__(self, p, dtype=np.float64):
        self._adopt(kind_of("Summary", dtype)(_positive(p, "p")), np.dtype(dtype))

    def update(self, block, weights=None):
        """Adds observations.

        Parameters
        ----------
        block : array_like of shape (n, p), or (n,) where p is 1
        weights : array_like of shape (n,), optional
            Not negative; observations of weight 0 count for nothing but in `count`.
        """
        x, _ = table(block, self._dtype)
        with self._lock:
            self._state.update(x, weights_for(weights, x.shape[0], self._dtype))

    def merge(self, other):
        """Adds what another summary of as many variables and the same type has seen; it stays as it is."""
        if not isinstance(other, Summary):
            raise TypeError(f"a Summary merges with another one, not with {type(other).__name__}")
        if other._dtype != self._dtype:
            raise TypeError(f"a Summary of {self._dtype} does not merge with one of {other._dtype}")
        if other.p != self.p:
            raise ValueError(f"a Summary of {self.p} variables does not merge with one of {other.p}")
        first, second = sorted((self, other), key=id)
        with first._lock, second._lock:
            self._state.merge(other._state)

    def count(self):
        """Number of observations."""
        return self._read("count")

    def mean(self):
        """Means, an array of shape (p,); as all results, NaN before the first observation."""
        return self._read("mean")

    def variance(self):
        """Unbiased variances."""
        return self._read("variance")

    def skewness(self):
        """Third central moments over the unbiased variance to the power 3/2."""
        return self._read("skewness")

    def kurtosis(self):
        """Fourth central moments over the squared unbiased variance, less 3."""
        return self._read("kurtosis")

    def min(self):
        """Minima."""
        return self._read("min")

    def max(self):
        """Maxima."""
        return self._read("max")

    def covariance(self):
        """Unbiased covariances, of shape (p, p)."""
        return self._read("covariance")

    def correlation(self):
        """Correlations, of shape (p, p); NaN with a variable that does not vary."""
        return self._read("correlation")

    def __repr__(self):
        return f"<Summary of {self.count()} observations of {self.p} variables, {self._dtype}>"


class StreamQuantiles(Running):
    """Quantiles of any number of blocks of observations, of which few are kept.

    Pickling and copying go on where the object is: what comes later gives the numbers that it gives here.

    Parameters
    ----------
    p : int
        Number of variables.
    epsilon : float
        A quantile's rank is off by epsilon n at most; 1e-8 to 1. Memory grows as 1 / epsilon.
    dtype : {float64, float32}, optional
        Of blocks and results.

    Examples
    --------
    >>> import numpy as np
    >>> from orvik.stats import StreamQuantiles
    >>> s = StreamQuantiles(1, 0.01)
    >>> for k in range(10):
    ...     s.update(np.arange(1000.0) + 1000 * k)
    >>> bool(abs(s.quantile(0.5) - 5000) <= 100)
    True
    """

    _kind = "StreamQuantiles"

    def __init__(self, p, epsilon, dtype=np.float64):
        p = _positive(p, "p")
        epsilon = float(epsilon)
        try:
            state = kind_of("StreamQuantiles", dtype)(p, epsilon)
        except ValueError:
            if 1e-8 < epsilon <= 1:
                raise
            raise ValueError(f"epsilon must be 1e-8 to 1, not {epsilon!r}") from None
        self._adopt(state, np.dtype(dtype))

    def update(self, block):
        """Adds observations, of shape (n, p), or (n,) where p is 1."""
        x, _ = table(block, self._dtype)
        with self._lock:
            self._state.update(x)

    def quantile(self, q):
        """Quantiles of orders `q`, of shape q.shape + (p,); NaN before the first observation."""
        orders, shape = orders_of(q, self._dtype)
        return orders_first(self._read("query", orders), shape, (self.p,))

    def __repr__(self):
        return f"<StreamQuantiles of {self.p} variables, {self._dtype}>"


def kind_of(name, dtype):
    """The class of that name for an element type."""
    dtype = np.dtype(dtype)
    if dtype not in (np.float64, np.float32):
        raise TypeError(f"{name} is of float64 or float32, not of {dtype}")
    return getattr(_statistics, f"{name}{8 * dtype.itemsize}")


def orders_of(q, dtype):
    """Orders as a vector of the type, and their shape."""
    if isinstance(q, float):
        sound, orders = 0 <= q <= 1, np.array(q)
    else:
        orders = np.asarray(q, np.float64)
        sound = bool(((orders >= 0) & (orders <= 1)).all())
    if not sound:
        raise ValueError("Quantiles must be in the range [0, 1]")
    return np.ascontiguousarray(orders, dtype).reshape(-1), orders.shape


def orders_first(r, shape, rest):
    """From a row a variable to orders first."""
    return (r if r.shape[0] == 1 else np.ascontiguousarray(r.T)).reshape(shape + rest)


def _positive(p, name):
    p = operator.index(p)
    if not 0 < p < 1 << 63:
        raise ValueError(f"{name} must be positive")
    return p

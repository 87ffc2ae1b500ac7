"""Summary statistics: observations along axis 0, float64 or float32.

Arrays in C or Fortran order are read where they are, others are copied. Other real types become float64 (float16 float32).

Examples
--------
>>> import numpy as np
>>> from orvik import stats
>>> x = np.array([[1.0, 2.0], [2.0, 4.5], [3.0, 5.5]])
>>> stats.cov(x)
array([[1.  , 1.75],
       [1.75, 3.25]])
>>> stats.quantile(x, [0, 0.5, 1])
array([[1. , 2. ],
       [2. , 4.5],
       [3. , 5.5]])
"""
import operator
from typing import NamedTuple

import numpy as np
from numpy.core.multiarray import normalize_axis_index

from . import _statistics
from ._observations import numbers, table, table_along, weights_for
from ._summaries import StreamQuantiles, Summary, kind_of, orders_first, orders_of

__all__ = ["RobustCovariance", "StreamQuantiles", "Summary", "SummaryResult", "corrcoef", "cov", "impute", "mad", "outliers",
           "quantile", "robust_cov", "sort", "summary", "weighted_median"]


class SummaryResult(NamedTuple):
    """What `summary` knows of each variable."""

    count: int
    mean: np.ndarray
    variance: np.ndarray
    skewness: np.ndarray
    kurtosis: np.ndarray
    min: np.ndarray
    max: np.ndarray


class RobustCovariance(NamedTuple):
    """Mean and covariance that outliers do not move."""

    mean: np.ndarray
    covariance: np.ndarray


def summary(x, axis=0, weights=None):
    """Count, moments and extremes of the variables of an array.

    Parameters
    ----------
    x : array_like
    axis : int, tuple of ints or None, optional
        Along which observations lie. None: all of x is one variable.
    weights : array_like, optional
        One for each observation, not negative.

    Returns
    -------
    SummaryResult
        Results have the shape of x without the axis.

    Examples
    --------
    >>> from orvik import stats
    >>> s = stats.summary([1.0, 2.0, 4.0])
    >>> s.count, float(s.max)
    (3, 4.0)
    """
    table_, rest = table_along(x, axis)
    n, p = table_.shape
    weights = weights_for(weights, n, table_.dtype)
    values = _statistics.moments(table_, weights) if p > 0 else np.empty((len(SummaryResult._fields) - 1, 0), table_.dtype)
    return SummaryResult(n, *(value.reshape(rest)[()] for value in values))


def cov(x, weights=None):
    """Unbiased covariances of the columns, as `numpy.cov(x, rowvar=False)`.

    Parameters
    ----------
    x : array_like of shape (n, p) or (n,)
    weights : array_like of shape (n,), optional
        Not negative; of reliability, as numpy.cov's `aweights`.

    Returns
    -------
    ndarray of shape (p, p), or () for a vector
    """
    return _matrix(x, weights, "covariance")


def corrcoef(x, weights=None):
    """Correlations of the columns, as `numpy.corrcoef(x, rowvar=False)`; NaN with a column that does not vary."""
    return _matrix(x, weights, "correlation")[()]


def _matrix(x, weights, name):
    data, rest = table(x)
    n, p = data.shape
    if p == 0:
        return np.empty((0, 0), data.dtype)
    s = kind_of("Summary", data.dtype)(p)
    s.update(data, weights_for(weights, n, data.dtype))
    r = getattr(s, name)()
    if n < 2:
        r[...] = np.nan
    return r.reshape(rest + rest)


def quantile(x, q, axis=0):
    """Quantiles of the variables of an array, as `numpy.quantile` with linear interpolation; NaN where a variable holds one.

    Parameters
    ----------
    x : array_like
    q : array_like
        Orders, 0 to 1.
    axis : int, tuple of ints or None, optional
        Along which observations lie. None: all of x is one variable.

    Returns
    -------
    scalar or ndarray
        Of shape q.shape, then that of x without the axis.
    """
    data, rest = table_along(x, axis)
    orders, shape = orders_of(q, data.dtype)
    _some(data)
    if data.shape[1] == 0 or orders.size == 0:
        return np.empty(shape + rest, data.dtype)
    r = _statistics.quantiles(data, orders)
    if (nan := _statistics.holds_nan(data)) is not None:
        r[nan] = np.nan
    return orders_first(r, shape, rest)[()]


def mad(x, axis=0):
    """Median of the absolute deviations from the median, of each variable, not scaled; NaN where a variable holds one."""
    data, rest = table_along(x, axis)
    _some(data)
    if data.shape[1] == 0:
        return np.empty(rest, data.dtype)
    r = _statistics.mad(data)
    if (nan := _statistics.holds_nan(data)) is not None:
        r[nan] = np.nan
    return r.reshape(rest)[()]


def weighted_median(x, weights, axis=0):
    """Median of each variable, where observation i counts as weights[i] of them; NaN where a variable holds one.

    Parameters
    ----------
    x : array_like
    weights : array_like
        One for each observation, not negative.
    axis : int, tuple of ints or None, optional
        Along which observations lie. None: all of x is one variable.
    """
    data, rest = table_along(x, axis)
    _some(data)
    if weights is None:
        raise TypeError("weights must be real numbers, not None")
    weights = weights_for(weights, data.shape[0], data.dtype)
    if data.shape[1] == 0:
        return np.empty(rest, data.dtype)
    r = _statistics.weighted_median(data, weights)
    if (nan := _statistics.holds_nan(data)) is not None:
        r[nan] = np.nan
    return r.reshape(rest)[()]


def outliers(x, alpha=0.05):
    """Which observations lie far from the others (Billor, Hadi, Velleman 2000).

    Parameters
    ----------
    x : array_like of shape (n, p) or (n,)
        At least 5 p observations.
    alpha : float, optional
        Probability that a clean normal sample has an outlier.

    Returns
    -------
    ndarray of bool of shape (n,)
        True for an outlier, and for an observation with a NaN or an infinity.

    Examples
    --------
    >>> import numpy as np
    >>> from orvik import stats
    >>> x = np.sin(np.arange(50.0))
    >>> x[7] = 100
    >>> np.flatnonzero(stats.outliers(x))
    array([7])
    """
    data, _ = table(x)
    _enough(data, 5 * data.shape[1], "outliers")
    alpha = float(alpha)
    if not 0 <= alpha <= 1:
        raise ValueError(f"alpha must be 0 to 1, not {alpha!r}")
    return _statistics.outliers(data, alpha).view(np.bool_)


def robust_cov(x):
    """Mean and covariance that outliers do not move (Rocke 1996; Maronna, Zamar 2002).

    Parameters
    ----------
    x : array_like of shape (n, p) or (n,)
        More than 2 p observations. One with a NaN or an infinity weighs nothing.

    Returns
    -------
    RobustCovariance
        Its `mean`, of shape (p,), and `covariance`, of shape (p, p); of a vector, numbers.
    """
    data, rest = table(x)
    _enough(data, 2 * data.shape[1] + 1, "a robust covariance")
    mean, covariance = _statistics.robust_covariance(data)
    return RobustCovariance(mean.reshape(rest)[()], covariance.reshape(rest + rest)[()])


def impute(x, sets=None):
    """Draws what is missing, under the multivariate normal model (Schafer 1997).

    Parameters
    ----------
    x : array_like of shape (n, p)
        NaN is missing. Infinities are refused.
    sets : int, optional
        How many completed tables; each is drawn for itself. Draws are fixed: set k is the same in each call.

    Returns
    -------
    ndarray of shape (n, p), or (sets, n, p) where `sets` is given

    Examples
    --------
    >>> import numpy as np
    >>> from orvik import stats
    >>> x = np.random.default_rng(1).normal(size=(50, 2))
    >>> x[3, 1] = np.nan
    >>> y = stats.impute(x)
    >>> bool(np.isfinite(y).all()), bool((y[:3] == x[:3]).all())
    (True, True)
    """
    array = numbers(x)
    if array.ndim != 2:
        raise ValueError("impute needs a table of two dimensions")
    data, _ = table(array)
    count = 1 if sets is None else operator.index(sets)
    if count < 0:
        raise ValueError("sets must not be negative")
    if np.isinf(data).any():
        raise ValueError("x must not hold infinities")
    n, p = data.shape
    r = np.empty(count * n * p, data.dtype)
    if r.size:
        _statistics.impute(data, r)
    r = r.reshape(count, n, p) if data.flags.c_contiguous else r.reshape(count, p, n).transpose(0, 2, 1)
    return r[0] if sets is None else r


def sort(x, axis=0):
    """A sorted copy, each variable by itself in ascending order and NaN last, as `numpy.sort(x, axis)`."""
    array = numbers(x)
    if axis is None:
        array, axis = array.reshape(-1), 0
    axis = normalize_axis_index(operator.index(axis), array.ndim)
    moved = np.moveaxis(array, axis, 0)
    data = np.array(moved.reshape(moved.shape[0], -1) if moved.size else moved.reshape(0, 1), order="C")
    if data.size:
        _statistics.sort(data)
    return np.moveaxis(data.reshape(moved.shape), 0, axis)


def _some(data):
    if data.shape[0] == 0:
        raise ValueError("no observations")


def _enough(data, least, what):
    if data.shape[1] == 0:
        raise ValueError("no variables")
    if data.shape[0] < least:
        raise ValueError(f"{what} of {data.shape[1]} variables need {least} observations, not {data.shape[0]}")

"""Splines in one dimension, and search in a partition.

Examples
--------
>>> import numpy as np
>>> from orvik.interpolate import Spline, search
>>> x = np.linspace(0, 3, 7)
>>> s = Spline(x, np.sin(x), ends="not-a-knot")
>>> bool(abs(s(1.2) - np.sin(1.2)) < 1e-3)
True
>>> search(x, [0.0, 0.6, 3.0])
array([1, 2, 7])
"""
import operator

import numpy as np

from . import _interpolation
from ._observations import real

__all__ = ["Spline", "search"]

_KINDS = ("linear", "hermite", "bessel", "akima", "hyman", "natural", "default", "quadratic")
_ENDS = ("free", "not-a-knot", "periodic")
_DERIVATIVES = {"first": 3, "second": 4}  # with values


class Spline:
    """A spline through the values of one or several functions at ascending breakpoints.

    Parameters
    ----------
    x : array_like of shape (n,)
        Breakpoints, strictly ascending; two at least.
    y : array_like of shape (n,) or (ny, n)
        Values, of one or of several functions.
    kind : {"natural", "linear", "hermite", "bessel", "akima", "hyman", "default", "quadratic"}, optional
        Natural: a cubic spline with continuous second derivatives. Default and Hermite: cubic pieces of given inner second
        and first derivatives. Bessel, Akima, Hyman: local cubic ones, Hyman monotone where values and end slopes are.
        Quadratic: pieces about the breakpoints, with knots between them.
    ends : str or tuple, optional
        "free", "not-a-knot", "periodic", ("first", left, right), ("second", left, right): what holds at the two ends, for the
        last two the derivatives there.
    internal : array_like of shape (n - 2,), optional
        The inner derivatives that "hermite" and "default" need, the same for all functions.

    Attributes
    ----------
    x : ndarray of shape (n,)
        Breakpoints.
    c : ndarray of shape (pieces, order) or (ny, pieces, order)
        Coefficients, lowest power first, about each piece's left end. There are n - 1 pieces, of the quadratic kind n.

    Notes
    -----
    Of float32 where x and y are, else of float64. Outside the breakpoints the end pieces go on.

    Examples
    --------
    >>> from orvik.interpolate import Spline
    >>> s = Spline([0, 1, 2], [[0, 1, 4], [1, 1, 1]], kind="linear")
    >>> s([0.5, 1.5])
    array([[0.5, 2.5],
           [1. , 1. ]])
    >>> s.integrate(0, 2)
    array([3., 2.])
    """

    def __init__(self, x, y, kind="natural", ends="free", internal=None):
        x, y = _real(x, "x"), _real(y, "y")
        dtype = np.float32 if x.dtype == y.dtype == np.float32 else np.float64
        x, y = np.array(x, dtype, order="C"), _plain(y, dtype)
        if x.ndim != 1:
            raise ValueError("x must be one-dimensional")
        if y.ndim not in (1, 2) or y.shape[-1] != x.size:
            raise ValueError(f"y must have shape (n,) or (ny, n) with n = {x.size}, not {y.shape}")
        if kind not in _KINDS:
            raise ValueError(f"kind must be one of {', '.join(_KINDS)}, not {kind!r}")
        number, left, right = _ends_of(ends)
        if kind in ("hermite", "default"):
            if internal is None:
                raise ValueError(f"a spline of kind {kind!r} needs internal derivatives")
            internal = _plain(_real(internal, "internal"), dtype)
            if internal.shape != (max(x.size - 2, 0),):
                raise ValueError(f"internal must have shape ({max(x.size - 2, 0)},), not {internal.shape}")
        elif internal is not None:
            raise ValueError(f"a spline of kind {kind!r} takes no internal derivatives")
        make = _interpolation.Spline64 if dtype == np.float64 else _interpolation.Spline32
        self._spline = make(x, y, _KINDS.index(kind), number, left, right, internal)
        self._arguments = (x, np.array(y), kind, ends, None if internal is None else np.array(internal))
        self._dtype = np.dtype(dtype)
        self._rows = y.shape[:-1]
        x.flags.writeable = False

    @property
    def x(self):
        """Breakpoints, a read-only array."""
        return self._arguments[0]

    @property
    def c(self):
        """Coefficients, lowest power first, about each piece's left end."""
        c = self._spline.coefficients()
        return c.reshape(self._rows + c.shape[1:])

    def __call__(self, t, derivative=0):
        """Values at `t`, or derivatives of an order there.

        Parameters
        ----------
        t : array_like
        derivative : int, optional
            Its order, 0 or more.

        Returns
        -------
        scalar or ndarray
            Of shape t.shape, after (ny,) where the spline is of several functions. NaN where t is.
        """
        if type(derivative) is not int or derivative != 0:
            derivative = min(operator.index(derivative), 4)
            if derivative < 0:
                raise ValueError("derivative must not be negative")
        t = self._sites(t, "t")
        r = self._spline.evaluate(t, derivative)
        if derivative > 0 and (lacking := np.isnan(t)).any():  # those that are constant within a piece do not look at t
            r[:, lacking.reshape(-1)] = np.nan
        return r.reshape(self._rows + t.shape)[()]

    def integrate(self, a, b):
        """Integrals from `a` to `b`, which are broadcast; shapes as of values."""
        a, b = np.broadcast_arrays(self._sites(a, "a"), self._sites(b, "b"))
        r = self._spline.integrate(np.ascontiguousarray(a), np.ascontiguousarray(b))
        return r.reshape(self._rows + a.shape)[()]

    def _sites(self, t, name):
        if type(t) is np.ndarray and t.dtype is self._dtype and t.flags.carray:
            return t
        t = _real(t, name)
        return np.require(t, self._dtype, ["C", "A"]).reshape(t.shape)

    def __reduce__(self):
        own = {key: value for key, value in self.__dict__.items() if key not in ("_spline", "_arguments", "_dtype", "_rows")}
        return _spline_of, (type(self), *self._arguments), own or None

    def __repr__(self):
        x, _, kind, ends, _ = self._arguments
        functions = f"{self._rows[0]} functions, " if self._rows else ""
        return f"<Spline of {functions}{x.size} breakpoints, {kind}, ends {ends!r}, {self._dtype}>"


def _spline_of(kind, *arguments):
    """A spline, whatever a subclass needs to be made."""
    if not (isinstance(kind, type) and issubclass(kind, Spline)):
        raise TypeError(f"{kind!r} is not a Spline")
    made = kind.__new__(kind)
    Spline.__init__(made, *arguments)
    return made


def _plain(array, dtype):
    """In C order, and aligned, which `ascontiguousarray` does not look at."""
    return np.require(np.ascontiguousarray(array, dtype), requirements=["C", "A"])


def search(x, t):
    """How many breakpoints are not above each site, as `numpy.searchsorted(x, t, side="right")`.

    Parameters
    ----------
    x : array_like of shape (n,)
        Strictly ascending; two at least.
    t : array_like
        Sites; a NaN is above all.

    Returns
    -------
    ndarray of int64 of the shape of t, or an int64
    """
    x, t = _real(x, "x"), _real(t, "t")
    if x.ndim != 1:
        raise ValueError("x must be one-dimensional")
    dtype = np.float32 if x.dtype == t.dtype == np.float32 else np.float64
    sites = np.require(t, dtype, ["C", "A"])
    return _interpolation.search(np.require(x, dtype, ["C", "A"]), sites).reshape(t.shape)[()]


def _real(a, name):
    a = real(a, name)
    return a if a.dtype.isnative else a.astype(a.dtype.newbyteorder("="))


def _ends_of(ends):
    """The library's number of a condition, and its two values."""
    if isinstance(ends, str):
        if ends not in _ENDS:
            raise ValueError(f"ends must be one of {', '.join(_ENDS)}, ('first', left, right), ('second', left, right), not {ends!r}")
        return _ENDS.index(ends), 0.0, 0.0
    if not isinstance(ends, tuple) or len(ends) != 3 or ends[0] not in _DERIVATIVES:
        raise ValueError(f"ends must be a name, ('first', left, right) or ('second', left, right), not {ends!r}")
    return _DERIVATIVES[ends[0]], float(ends[1]), float(ends[2])

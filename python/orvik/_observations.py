"""Observations as the library takes them: two-dimensional, float64 or float32, along axis 0; NaN where there is none."""
import math

import numpy as np
from numpy.core.numeric import normalize_axis_tuple

_DOUBLE = np.dtype(np.float64)


def numbers(x, dtype=None):
    """An array of float64 or float32; what is neither becomes float64, and what is not real is refused."""
    array = real(x, "observations")
    given = array.dtype
    if given is _DOUBLE and dtype is None:
        return array
    if dtype is None:
        dtype = np.float32 if given.newbyteorder("=") in (np.float32, np.float16) else np.float64
    return np.asarray(array, dtype)


def real(x, name):
    """An array of real numbers of any type, NaN where a mask or a type of pandas says that one is missing."""
    if isinstance(x, np.ma.MaskedArray) and np.ma.is_masked(x) and x.dtype.kind in "fiub":
        return np.asarray((x if x.dtype.kind == "f" else x.astype(np.float64)).filled(np.nan))
    array = np.asarray(x)
    if array.dtype.kind == "O" and _are_numbers_of_pandas(x):  # which may lack values, so that NumPy takes them for objects
        array = x.to_numpy(dtype=np.float64, na_value=np.nan)
    if array.dtype.kind not in "fiub":
        raise TypeError(f"{name} must be real numbers, not {array.dtype}")
    return array


def _are_numbers_of_pandas(x):
    if not hasattr(x, "to_numpy"):
        return False
    return all(getattr(column, "kind", "O") in "fiub" for column in (x.dtypes if x.ndim == 2 else [x.dtype]))


def _plain(array):
    """In C or Fortran order and aligned, as it is where it can be."""
    flags = array.flags
    if flags.aligned and (flags.c_contiguous or flags.f_contiguous):
        return array
    # Copied as it lies: by columns if those are nearer together.
    by_columns = array.ndim == 2 and abs(array.strides[0]) < abs(array.strides[1])
    return np.array(array, order="F" if by_columns else "C", subok=False)


def table(x, dtype=None):
    """(n, p) of x of one or two dimensions, and the shape of a result for a variable."""
    array = numbers(x, dtype)
    if array.ndim == 1:
        return _plain(array)[:, np.newaxis], ()
    if array.ndim != 2:
        raise ValueError(f"observations must have one or two dimensions, not {array.ndim}")
    return _plain(array), (array.shape[1],)


def table_along(x, axis):
    """(n, p) of x with its observations along an axis or several (None: all of it), and the shape of what remains."""
    array = numbers(x)
    if axis is None or array.ndim == 0:
        if axis not in (None, 0, -1):
            raise np.AxisError(axis, array.ndim)
        return _plain(array.reshape(-1, 1)), ()
    along = 1
    if axis != 0:
        axes = normalize_axis_tuple(axis, array.ndim)
        along = len(axes)
        array = np.moveaxis(array, axes, range(along))
    rest = array.shape[along:]
    if array.ndim != 2 or along != 1:
        array = array.reshape(math.prod(array.shape[:along]), math.prod(rest))
    return _plain(array), rest


def weights_for(weights, n, dtype):
    """The weights of n observations, or None."""
    if weights is None:
        return None
    array = np.require(np.ascontiguousarray(numbers(weights, dtype)), requirements=["C", "A"])
    if array.shape != (n,):
        raise ValueError(f"weights must be one for each of {n} observations")
    return array

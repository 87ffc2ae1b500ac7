"""Where numbers go: a new array or the caller's, as NumPy's Generator has it."""
import numpy as np

REALS = (np.dtype(np.float64), np.dtype(np.float32))
INTEGERS = (np.dtype(np.int32), np.dtype(np.int64))


def type_of(dtype, types, name):
    """One of the types, as a dtype."""
    if dtype is np.float64 and types is REALS:
        return REALS[0]
    dtype = np.dtype(dtype)
    if dtype not in types:
        raise TypeError(f"Unsupported dtype {dtype!r} for {'normal' if name == 'gaussian' else name}")
    return dtype


def array_for(size, dtype, out, last=()):
    """The array to fill: `out` after checks, or a new one of `size` (one number for None) and the dimensions `last`."""
    if out is None:
        if type(size) is int and not last:
            return np.empty(size, dtype)
        shape = () if size is None else (size,) if np.ndim(size) == 0 else tuple(size)
        return np.empty((*shape, *last), dtype)
    if not isinstance(out, np.ndarray):
        raise TypeError(f"out must be an array, not {type(out).__name__}")
    if out.dtype is not dtype and out.dtype.newbyteorder("=") != dtype:
        raise TypeError(f"Supplied output array has the wrong type. Expected {dtype.name}, got {out.dtype.name}")
    flags = out.flags
    if not (flags.writeable and flags.aligned and out.dtype.isnative
            and (flags.c_contiguous or (flags.f_contiguous and not last))):
        raise ValueError("Supplied output array must be contiguous, writable, aligned, and in machine byte-order.")
    if size is not None:
        shape = (size,) if np.ndim(size) == 0 else tuple(size)
        if (*shape, *last) != out.shape:
            raise ValueError("size must match out.shape when used together")
    elif last and out.shape[-len(last):] != last:
        raise ValueError("the last dimensions of out must be those of one draw")
    return out

"""The front's C interface, for tests that compare the package with it."""
import ctypes

import orvik._random  # noqa: F401  (which loads it)

front = ctypes.CDLL("liborvik_front.so.2")
_TYPES = {"float64": ctypes.c_double, "float32": ctypes.c_float, "int32": ctypes.c_int32, "uint32": ctypes.c_uint32}


class Stream:
    """A stream of the front, to draw from in one call."""

    def __init__(self, generator, seed):
        self._stream = ctypes.c_void_p()
        assert front.orvik_stream_new(ctypes.byref(self._stream), ctypes.c_int32(generator), ctypes.c_uint64(seed)) == 0

    def draw(self, name, array, *parameters, count=None):
        """`parameters`: floats are of the array's type, unless they are given as ctypes; ints of 32 bits."""
        real = _TYPES[array.dtype.name]
        arguments = [real(p) if isinstance(p, float) else ctypes.c_int32(p) if isinstance(p, int) else p for p in parameters]
        count = array.size if count is None else count
        status = getattr(front, f"orvik_{name}")(self._stream, ctypes.c_int64(count), array.ctypes.data_as(ctypes.c_void_p),
                                                 *arguments)
        assert status >= 0, status
        return array

    def __del__(self):
        front.orvik_stream_delete(self._stream)

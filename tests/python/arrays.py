"""Ways to lay out one table of numbers, for tests."""
import numpy as np


def unaligned(x):
    """The same numbers one byte beside where they belong."""
    room = np.zeros(x.nbytes + 1, np.uint8)[1:]
    y = room.view(x.dtype).reshape(x.shape)
    y[...] = x
    assert not y.flags.aligned or x.size == 0
    return y


class Subclass(np.ndarray):
    """One that would notice if it were not taken as what it is: an array."""

    def __array_ufunc__(self, *_, **__):
        raise AssertionError("a subclass's own arithmetic was used")


def strided(x, steps):
    """The same numbers with other elements between them; negative steps count backward."""
    room = np.zeros([n * abs(k) for n, k in zip(x.shape, steps)], x.dtype)
    y = room[tuple(slice(None, None, k) for k in steps)]
    y[...] = x
    return y


LAYOUTS = {
    "C": lambda x: np.ascontiguousarray(x),
    "F": lambda x: np.asfortranarray(x),
    "every second row": lambda x: strided(x, (2,) + (1,) * (x.ndim - 1)),
    "every third column": lambda x: strided(x, (1,) * (x.ndim - 1) + (3,)),
    "backward": lambda x: strided(x, (-1,) * x.ndim),
    "transposed": lambda x: np.ascontiguousarray(x.T).T,
    "unaligned": unaligned,
    "swapped": lambda x: x.astype(x.dtype.newbyteorder()),
    "subclass": lambda x: np.array(x).view(Subclass),
    "read-only": lambda x: (y := np.array(x), y.setflags(write=False))[0],
}

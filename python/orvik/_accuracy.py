"""The level of accuracy of a thread's calls."""
import contextlib
from threading import get_ident

from . import _math

_LEVELS = ("HA", "LA", "EP")


class accuracy(contextlib.ContextDecorator):
    """Context in which this thread's ufuncs have a level of accuracy; also a decorator of functions.

    Parameters
    ----------
    level : {"HA", "LA", "EP"}
        High accuracy, at which threads start: errors below 1 ulp, mostly little above 0.5. Low accuracy: below 4 ulp. Enhanced
        performance: about half of the digits.

    Notes
    -----
    Contexts nest, and threads may share one. Other threads keep their own levels; a new thread begins with "HA". Functions that have
    one kernel for several levels give the best of them.

    Examples
    --------
    >>> import orvik
    >>> with orvik.accuracy("LA"):
    ...     y = orvik.exp([0.0, 1.0])
    ...     orvik.get_accuracy()
    'LA'
    >>> orvik.get_accuracy()
    'HA'
    """

    def __init__(self, level: str) -> None:
        if level not in _LEVELS:
            raise ValueError(f"the level of accuracy must be one of {', '.join(_LEVELS)}, not {level!r}")
        self.level = level
        self._outer: dict[int, list[int]] = {}  # levels to come back to, by thread

    def __enter__(self) -> "accuracy":
        self._outer.setdefault(get_ident(), []).append(_math._set_accuracy(_LEVELS.index(self.level)))
        return self

    def __exit__(self, *_: object) -> None:
        thread = get_ident()
        levels = self._outer[thread]
        _math._set_accuracy(levels.pop())
        if not levels:
            del self._outer[thread]

    def __reduce__(self) -> tuple[object, ...]:
        return type(self), (self.level,)

    def __repr__(self) -> str:
        return f"accuracy({self.level!r})"


def get_accuracy() -> str:
    """The level of this thread: "HA", "LA" or "EP".

    Examples
    --------
    >>> import orvik
    >>> orvik.get_accuracy()
    'HA'
    """
    return _LEVELS[_math._get_accuracy()]


def set_accuracy(level: str) -> None:
    """Sets the level of this thread until it is set again; `accuracy` does so for a block.

    Parameters
    ----------
    level : {"HA", "LA", "EP"}
        See `accuracy`.

    Examples
    --------
    >>> import orvik
    >>> orvik.set_accuracy("EP")
    >>> orvik.get_accuracy()
    'EP'
    >>> orvik.set_accuracy("HA")
    """
    _math._set_accuracy(_LEVELS.index(accuracy(level).level))

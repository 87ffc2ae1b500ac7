"""Vector mathematics, random streams, statistics and splines over NumPy's arrays.

Functions of numbers are ufuncs under NumPy's and SciPy's names (`orvik.exp`, `orvik.erf`), at three levels of accuracy
(`orvik.accuracy`), on as many threads as pay (`orvik.set_num_threads`). `orvik.random` has generators and distributions,
`orvik.stats` summaries and estimators, `orvik.interpolate` splines.
"""
import importlib as _importlib

from . import _pickling  # noqa: F401  (tells pickle of the ufuncs)
from ._accuracy import accuracy, get_accuracy, set_accuracy
from ._math import *  # noqa: F401,F403  (the ufuncs)
from ._math import __all__ as _ufuncs
from ._math import __version__, get_num_threads, set_num_threads

_submodules = ("interpolate", "random", "stats")
__all__ = [*_ufuncs, "accuracy", "get_accuracy", "get_num_threads", "set_accuracy", "set_num_threads", *_submodules]


def __getattr__(name):
    """Loads a submodule when it is first asked for."""
    if name in _submodules:
        return _importlib.import_module(f"{__name__}.{name}")
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")


def __dir__():
    return sorted({*globals(), *__all__})

"""Ufuncs are pickled by name. NumPy's do not know their module, and pickle would look for one through all that are loaded."""
import copyreg

import numpy as np

from . import _math

_names = {getattr(_math, name): name for name in _math.__all__}
_reduction_of_others = copyreg.dispatch_table.get(np.ufunc, lambda f: f.__name__)  # NumPy's own


def _ufunc(name):
    if name not in _math.__all__:
        raise ValueError(f"{name} is not a ufunc of orvik")
    return getattr(_math, name)


def _reduction(f):
    name = _names.get(f)
    return (_ufunc, (name,)) if name else _reduction_of_others(f)


copyreg.pickle(np.ufunc, _reduction)

"""Every ufunc that NumPy or SciPy has as well, with the output given, on one thread."""
import functools

import numpy as np
import scipy.special
from arguments import UFUNCS, arguments, loops
from measure import Case

import orvik

TITLE = "Ufuncs"
VECTOR, SCALAR = "NumPy has vector loops", "one element at a time"
GOALS = {(VECTOR, "LA"): 1.4, (VECTOR, "HA"): 1.1, (SCALAR, "LA"): 5.0}
LEAST = {(VECTOR, "LA"): 1.0}  # of each row
SHORT = 100  # elements at which no call may be slower than NumPy's
PLOT = ("plots/python.svg", "How many times as fast as NumPy or SciPy")
NOTE = "Ranges of the arguments: `RANGES` in `tests/python/arguments.py`. One thread; the output is given."

# NumPy 1.24 on a processor with 512-bit vectors (numpy/core/code_generators/generate_umath.py names the loops).
REAL_LOOPS = set("""absolute add subtract multiply divide square reciprocal sqrt ceil floor trunc rint fmax fmin exp exp2 expm1 log log2 log10
    log1p cbrt sin cos tan arcsin arccos arctan sinh cosh tanh arcsinh arccosh arctanh power arctan2""".split())
COMPLEX_LOOPS = set("add subtract multiply square absolute conjugate".split())
PEERS = {"sind": scipy.special.sindg, "cosd": scipy.special.cosdg, "tand": scipy.special.tandg, "jn": scipy.special.jv,
         "angle": None}


def peer_of(name):
    if name in PEERS:
        return PEERS[name], "scipy.special"
    for module in (np, scipy.special):
        if isinstance(getattr(module, name, None), np.ufunc):
            return getattr(module, name), module.__name__
    return None, None


def at_level(level, call):
    timed = functools.partial(call)  # an object of its own, which can have an attribute
    timed.prepare = functools.partial(orvik.set_accuracy, level)
    return timed


def cases(only=None, sizes=(100, 10_000, 1_000_000)):
    orvik.set_num_threads(1)
    for name, f in sorted(UFUNCS.items()):
        peer, module = peer_of(name)
        if peer is None or (only and name not in only):
            continue
        for inputs, results in loops(f):
            if name in ("jn", "yn") and inputs[0].kind == "f":
                continue
            vector = (REAL_LOOPS if inputs[0].kind == "f" else COMPLEX_LOOPS) if module == "numpy" else set()
            for n in sizes:
                x = arguments(np.random.default_rng(1), name, inputs, n)
                if name in ("jn", "yn"):
                    x[0] = np.int64(3)
                # Results of their own: ours may go past the caches, and theirs would find nothing there.
                out, their_out = (tuple(np.zeros(n, r) for r in results) for _ in range(2))
                ours = {level: at_level(level, functools.partial(f, *x, *out)) for level in ("LA", "HA")}
                yield Case(f"{name}, {(inputs if inputs[-1].kind == 'c' else results)[0].name}", VECTOR if name in vector else SCALAR, n,
                           ours, module, functools.partial(peer, *x, *their_out))

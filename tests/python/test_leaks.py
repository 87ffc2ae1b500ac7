"""Nothing is left behind: memory, references and threads are counted over many calls, good and bad."""
import gc
import os
import sys
import threading
import tracemalloc

import numpy as np
import pytest

import orvik

X = np.linspace(0.1, 1, 50)
RECORDS = np.zeros(300, [("z", "c16"), ("x", "f8")])
OUT = np.empty(50)


def refused(call):
    try:
        call()
    except (TypeError, ValueError, FloatingPointError, MemoryError):
        return
    raise AssertionError("not refused")


def raising():
    with np.errstate(all="raise"):
        orvik.log(-X)


def many_exceptional():
    with np.errstate(all="ignore"):
        orvik.log(np.full(1000, -1.0))


def in_place():
    x = np.full(1000, -1.0)
    with np.errstate(all="ignore"):
        orvik.log(x, out=x)
    x = np.full(1000, -1.0)
    with np.errstate(all="raise"):
        refused(lambda: orvik.log(x, x))


def level():
    with orvik.accuracy("LA"):
        orvik.exp(X)


CALLS = {
    "short": lambda: orvik.exp(X), "short into an array": lambda: orvik.exp(X, OUT), "out=": lambda: orvik.exp(X, out=OUT),
    "two arguments": lambda: orvik.power(X, X), "two results": lambda: orvik.sincos(X),
    "two results, given": lambda: orvik.modf(X, out=(OUT, X.copy())), "one of two results": lambda: orvik.modf(X, OUT),
    "in place": lambda: orvik.exp(OUT[:0], OUT[:0]), "in place, exceptional": in_place, "a number": lambda: orvik.exp(0.5),
    "a list": lambda: orvik.exp([0.5, 1]), "strides": lambda: orvik.exp(X[::-2]), "records": lambda: orvik.exp(RECORDS["z"]),
    "long": lambda: orvik.exp(np.ones(200_000)), "cast": lambda: orvik.exp(np.arange(50)), "reduce": lambda: orvik.add.reduce(X),
    "accumulate": lambda: orvik.add.accumulate(X), "outer": lambda: orvik.hypot.outer(X, X), "orders": lambda: orvik.jn([1, 2], 3.0),
    "flags": lambda: refused(raising), "many exceptional": many_exceptional, "level": level,
    "wrong type": lambda: refused(lambda: orvik.exp("x")), "objects": lambda: refused(lambda: orvik.exp(np.array([None]))),
    "wrong shape": lambda: refused(lambda: orvik.exp(X, out=np.empty(3))), "wrong word": lambda: refused(lambda: orvik.exp(X, oops=OUT)),
    "wrong level": lambda: refused(lambda: orvik.accuracy("no")), "wrong threads": lambda: refused(lambda: orvik.set_num_threads(-1)),
    "too huge": lambda: refused(lambda: orvik.exp(np.broadcast_to(1.0, (2**40,)))),
    "help": lambda: orvik.exp.__doc__, "threads": lambda: orvik.get_num_threads(),
}


def resident():
    with open("/proc/self/statm") as f:
        return int(f.read().split()[1]) * os.sysconf("SC_PAGESIZE")


@pytest.mark.parametrize("what", CALLS)
def test_a_thousand_calls_leave_nothing(what):
    call = CALLS[what]
    watched = [X, OUT, RECORDS, X.dtype, RECORDS.dtype, None, True, orvik.exp, np.dtype("f8"), np.dtype("f4"), np.dtype("c16")]
    for _ in range(20):
        call()
    gc.collect()
    tracemalloc.start()
    try:
        call()
        gc.collect()
        counts, memory, threads = [sys.getrefcount(w) for w in watched], tracemalloc.get_traced_memory()[0], threading.active_count()
        objects = len(gc.get_objects())
        for _ in range(1000):
            call()
        gc.collect()
        grown = tracemalloc.get_traced_memory()[0] - memory
    finally:
        tracemalloc.stop()
    for before, w in zip(counts, watched):
        assert abs(sys.getrefcount(w) - before) < 50, type(w)
    assert len(gc.get_objects()) - objects < 50
    assert threading.active_count() == threads
    assert grown < 5000, "bytes"


def test_memory_of_the_library_is_given_back():
    """A call with many exceptional elements takes 64 bytes for each, which the C library's heap may keep once, not 50 times."""
    x = np.full(200_000, -1.0)
    with np.errstate(all="ignore"):
        for _ in range(5):
            orvik.log(x)
        before = resident()
        for _ in range(50):
            orvik.log(x)
    assert resident() - before < 5 * 64 * x.size


def test_the_counting_sees_a_leak():
    kept = []
    tracemalloc.start()
    try:
        before = tracemalloc.get_traced_memory()[0]
        for _ in range(1000):
            kept.append(orvik.exp(X))
        assert tracemalloc.get_traced_memory()[0] - before > 5000
    finally:
        tracemalloc.stop()

"""Calls beside the plain ones: numbers, steps, one number for all, masks, special elements, reductions; small draws, wide summaries."""
import functools

import numpy as np
from measure import Case

import orvik
from orvik import random, stats

TITLE = "Other calls"
NOTE = """One thread on both sides, float64, accuracy "HA"; results are new arrays. "Zeros": one element in a hundred is 0, errstate ignores it.
Draws are PHILOX4X32X10's own beside Generator(PCG64)'s; n numbers of one call."""
LABEL = "orvik"
GOALS, LEAST, SEED = {}, {}, 1
FUNCTIONS = ("add", "multiply", "exp", "log", "power")


def case(name, group, n, ours, theirs):
    return Case(name, group, n, {LABEL: ours}, "numpy", theirs)


def pair(name, group, n, f, *x, **more):
    return case(f"{f}, {name}", group, n, functools.partial(getattr(orvik, f), *x, **more), functools.partial(getattr(np, f), *x, **more))


def numbers(_):
    for f in FUNCTIONS:
        yield pair("a number", "numbers", 1, f, *[1.5] * getattr(np, f).nin)


def layouts(n):
    rng = np.random.default_rng(SEED)
    wide, x, mask = rng.uniform(0.5, 2, (n, 3)), rng.uniform(0.5, 2, n), rng.random(n) < 0.5
    for f in FUNCTIONS:
        two = getattr(np, f).nin == 2
        yield pair("a column", "layouts", n, f, *[wide[:, 1]] * (1 + two))
        yield pair("backward", "layouts", n, f, *[x[::-1]] * (1 + two))
        yield pair("half masked", "masks", n, f, *[x] * (1 + two), where=mask)
        if two:
            yield pair("one number for all", "layouts", n, f, x, 1.5)
    for f in ("add", "multiply", "subtract", "fmax"):
        for kind in ("accumulate", "reduce"):
            yield case(f"{f}.{kind}", "running results", n, functools.partial(getattr(getattr(orvik, f), kind), x),
                       functools.partial(getattr(getattr(np, f), kind), x))


def zeros(n):
    x = np.random.default_rng(SEED).uniform(0.5, 2, n)
    x[::100] = 0
    with np.errstate(all="ignore"):  # holds while the generator waits
        yield pair("zeros", "special elements", n, "log", x)
        yield pair("zeros", "special elements", n, "reciprocal", x)


def draws(n):
    ours, theirs = random.PHILOX4X32X10(SEED), np.random.Generator(np.random.PCG64(SEED))
    for name, parameters in (("normal", (1.0, 2.0)), ("gamma", (2.0,)), ("poisson", (4.0,)), ("binomial", (10, 0.3)), ("integers", (0, 100))):
        yield case(f"{name}, new array", "draws", n, functools.partial(getattr(ours, name), *parameters, size=n),
                   functools.partial(getattr(theirs, name), *parameters, size=n))


def summaries(n):
    x = np.random.default_rng(SEED).normal(size=(10, n // 10))
    yield case("summary, mean and var of rows of ten", "summaries", n, functools.partial(stats.summary, x),
               lambda: (np.mean(x, axis=0), np.var(x, axis=0)))


def cases(only=None, sizes=(10, 1000, 100_000)):
    before = orvik.get_num_threads()
    orvik.set_num_threads(1)
    orvik.set_accuracy("HA")
    for n in sizes:
        for part in (*([numbers] if n == sizes[0] else []), layouts, zeros, draws, summaries):
            for one in part(n):
                if not only or one.name in only:
                    yield one
    orvik.set_num_threads(before)

"""Nothing is left behind, whether calls succeed or raise: blocks of Python by tracemalloc, all memory by the resident set."""
import contextlib
import gc
import pathlib
import pickle
import resource
import tracemalloc

import numpy as np
import pytest

from orvik import stats
from orvik._summaries import _of_image
from orvik.interpolate import Spline, search
from orvik.random import MT2203, MT19937, NIEDERREITER, PHILOX4X32X10

X = np.random.default_rng(1).normal(size=(300, 4))
KNOTS = np.linspace(0, 1, 200)


def refused(call, *arguments, **options):
    try:
        call(*arguments, **options)
    except (TypeError, ValueError, NotImplementedError, MemoryError):
        return
    raise AssertionError("it was taken")


def streams():
    stream = MT19937(7)
    rng = np.random.Generator(stream)
    rng.random(100)
    stream.normal(size=1000), stream.uniform(0, 1, 5), stream.exponential(), stream.normal(out=np.empty(9))
    copied = stream.copy()
    copied.state = stream.state
    stream.__init__(8)
    stream.spawn(1), NIEDERREITER(100).words(100), MT2203(1, 3).jumped
    PHILOX4X32X10(1).multivariate_normal([0, 1], np.eye(2), size=10)


def refused_streams():
    stream = MT19937(7)
    image = stream.state["state"]
    refused(setattr, stream, "state", {"bit_generator": "MT19937", "state": image[:-1]})
    refused(setattr, stream, "state", {"bit_generator": "MT19937", "state": MT2203(1).state["state"]})
    refused(stream.uniform, 1, 0, size=1000)
    refused(stream.uniform, out=np.zeros(10)[::2])
    refused(stream.normal, 0.0, -1.0, 7), refused(stream.uniform, oops=1), refused(MT19937.uniform)
    refused(stream.gamma, -1, size=1000)
    refused(MT2203(1).skip, 5)
    refused(MT19937, -1)
    refused(NIEDERREITER, 1000)


def statistics():
    s = stats.Summary(4)
    s.update(X, np.ones(300))
    s.merge(s.copy())
    q = stats.StreamQuantiles(4, 0.01)
    q.update(X)
    q.quantile([0.1, 0.2])
    stats.cov(X), stats.quantile(X, 0.3), stats.mad(X), stats.sort(X), stats.summary(X), stats.weighted_median(X, X[:, 0] ** 2)
    stats.outliers(X), stats.robust_cov(X), stats.impute(np.where(X > 2, np.nan, X), 2)


def refused_statistics():
    s = stats.Summary(4)
    refused(s.update, X[:, :3])
    refused(s.update, X, -np.ones(300))
    refused(s.merge, stats.Summary(3))
    refused(_of_image, stats.Summary, "<f8", s.__reduce__()[1][2][:-1])
    refused(stats.quantile, X, 2.0)
    refused(stats.cov, X, np.full(300, np.nan))
    refused(stats.StreamQuantiles, 1, -1.0)
    refused(stats.robust_cov, np.ones((300, 4)))
    refused(stats.impute, np.full((300, 4), np.nan))


def splines():
    s = Spline(KNOTS, np.stack([KNOTS, KNOTS]))
    s(X), s.integrate(0, X), s.c
    search(KNOTS, X)


def refused_splines():
    refused(Spline, KNOTS[::-1], KNOTS)
    refused(Spline, KNOTS, KNOTS, "akima", ("first", np.nan, 1.0))
    refused(Spline, KNOTS, KNOTS, "quadratic", "periodic")
    refused(Spline(KNOTS, KNOTS), X, derivative=-1)
    refused(search, KNOTS[::-1], X)


def pickles():
    pickle.loads(pickle.dumps(MT19937(7)))
    pickle.loads(pickle.dumps(Spline(KNOTS, KNOTS)))
    pickle.loads(pickle.dumps(stats.Summary(4)))
    quantiles = stats.StreamQuantiles(2, 0.1)
    quantiles.update(np.ones((100, 2)))
    kind, name, image = pickle.loads(pickle.dumps(quantiles)).__reduce__()[1]
    with contextlib.suppress(ValueError):
        quantiles.__reduce__()[0](kind, name, image[:-1])


def resident():
    return int(pathlib.Path("/proc/self/statm").read_text().split()[1]) * resource.getpagesize()


# Bytes a round: less than one small object. The interpreter's cache of attributes keeps a few names that unpickling makes, which
# are smaller than any image.
@pytest.mark.parametrize("work, allowed", [(streams, 40), (refused_streams, 40), (statistics, 40), (refused_statistics, 40),
                                           (splines, 40), (refused_splines, 40), (pickles, 200)])
def test_work_leaves_nothing_behind(work, allowed):
    rounds = 150
    for _ in range(20):
        work()
    gc.collect()
    tracemalloc.start()
    try:
        for _ in range(100):  # until the interpreter's own stores have filled
            work()
        growths = []
        for _ in range(3):  # what leaks does so each time; a store of the interpreter's may still grow in one of them
            gc.collect()
            before = tracemalloc.get_traced_memory()[0]
            for _ in range(100):
                work()
            gc.collect()
            growths.append(tracemalloc.get_traced_memory()[0] - before)
        assert min(growths) < 100 * allowed
    finally:
        tracemalloc.stop()
    for _ in range(50):  # the room that the tracing gave back is filled anew
        work()
    gc.collect()
    before = resident()
    for _ in range(rounds):
        work()
    gc.collect()
    assert resident() - before < rounds * 2000  # every object of these is larger


def test_what_would_leak_is_seen():
    kept = []

    def leaking():
        kept.append(MT19937(7))

    with pytest.raises(AssertionError):
        test_work_leaves_nothing_behind(leaking, 200)

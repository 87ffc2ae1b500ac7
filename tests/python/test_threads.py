"""Threads of Python's and of the library's, and processes."""
import copy
import multiprocessing
import os
import pickle
import subprocess
import sys
import threading
import time

import numpy as np
import pytest

import orvik

X = np.random.default_rng(1).uniform(-5, 5, 300_000)


@pytest.fixture(autouse=True)
def leave_as_it_was():
    yield
    orvik.set_num_threads(0)
    orvik.set_accuracy("HA")


@pytest.mark.parametrize("name", ["exp", "sin", "erf", "gammaln", "cis"])
def test_bits_do_not_depend_on_the_number_of_threads(name):
    f, results = getattr(orvik, name), []
    for threads in (1, 2, 3, 7):
        orvik.set_num_threads(threads)
        assert orvik.get_num_threads() == threads
        results.append(f(X))
    assert all(r.tobytes() == results[0].tobytes() for r in results)


def test_levels_nest_and_come_back_after_exceptions():
    with orvik.accuracy("LA") as outer:
        with orvik.accuracy("EP"):
            assert orvik.get_accuracy() == "EP"
            with outer:
                assert orvik.get_accuracy() == "LA"
            assert orvik.get_accuracy() == "EP"
        assert orvik.get_accuracy() == "LA"
        with pytest.raises(KeyError), orvik.accuracy("HA"):
            raise KeyError
        assert orvik.get_accuracy() == "LA"
    assert orvik.get_accuracy() == "HA"
    assert repr(outer) == "accuracy('LA')"


@pytest.mark.parametrize("n", [100, 100_000])
def test_each_thread_has_its_level(n):
    x = X[:n]
    want = {}
    for level in ("HA", "LA", "EP"):
        with orvik.accuracy(level):
            want[level] = orvik.exp(x).tobytes()
    assert len(set(want.values())) == 3
    wrong, together = [], threading.Barrier(6)

    def work(level):
        if orvik.get_accuracy() != "HA":
            wrong.append("start")
        with orvik.accuracy(level):
            together.wait()
            for _ in range(20):
                if orvik.exp(x).tobytes() != want[level]:
                    wrong.append(level)

    threads = [threading.Thread(target=work, args=(level,)) for level in ("HA", "LA", "EP") * 2]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    assert not wrong


def test_the_interpreter_goes_on_meanwhile():
    orvik.set_num_threads(1)
    x = np.random.default_rng(1).uniform(10, 100, 2_000_000)
    out = np.empty_like(x)
    done, ticks = threading.Event(), []

    def work():
        orvik.gammaln(x, out=out)
        done.set()

    t = threading.Thread(target=work)
    t.start()
    while not done.is_set():
        ticks.append(time.monotonic())
        time.sleep(0.001)
    t.join()
    assert len(ticks) > 3


def test_long_calls_in_several_threads():
    want = orvik.exp(X)
    results = [None] * 8

    def work(k):
        results[k] = orvik.exp(X)

    threads = [threading.Thread(target=work, args=(k,)) for k in range(8)]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    assert all(np.array_equal(r, want) for r in results)


def in_child(queue):
    queue.put((orvik.exp(X).tobytes(), orvik.get_accuracy()))


@pytest.mark.parametrize("method", ["fork", "spawn"])
def test_processes(method):
    orvik.set_num_threads(2)
    want = orvik.exp(X).tobytes()  # the pool of threads exists before the fork
    context = multiprocessing.get_context(method)
    queue = context.Queue()
    process = context.Process(target=in_child, args=(queue,))
    process.start()
    assert queue.get(timeout=120) == (want, "HA")
    process.join(60)
    assert process.exitcode == 0


def test_a_forked_child_may_call_in_threads():
    orvik.set_num_threads(2)
    want = orvik.exp(X)
    child = os.fork()
    if child == 0:
        ok = False
        try:
            results = []
            threads = [threading.Thread(target=lambda: results.append(orvik.exp(X))) for _ in range(3)]
            for t in threads:
                t.start()
            for t in threads:
                t.join()
            ok = len(results) == 3 and all(np.array_equal(r, want) for r in results)
        finally:
            os._exit(0 if ok else 1)
    assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 0


def test_interpreters_start_and_end_with_calls_under_way():
    code = ("import threading, numpy as np, orvik\n"
            "x = np.ones(500_000)\n"
            "for _ in range(3): threading.Thread(target=lambda: [orvik.exp(x) for _ in range(50)], daemon=True).start()\n"
            "orvik.exp(x)\n")
    assert subprocess.run([sys.executable, "-c", code], timeout=120, check=False).returncode == 0


def test_threads_may_share_one_context_of_a_level():
    """Each comes back to the level that it had, whoever leaves first."""
    shared, entered, left = orvik.accuracy("LA"), threading.Event(), threading.Event()
    levels = []

    def other():
        orvik.set_accuracy("EP")
        with shared:
            entered.set()
            left.wait(60)
            levels.append(orvik.get_accuracy())
        levels.append(orvik.get_accuracy())

    thread = threading.Thread(target=other)
    with shared:
        thread.start()
        assert entered.wait(60)
        with shared:
            assert orvik.get_accuracy() == "LA"
    assert orvik.get_accuracy() == "HA"
    left.set()
    thread.join()
    assert levels == ["LA", "EP"]


def test_a_level_decorates_a_function():
    @orvik.accuracy("EP")
    def level(fails=False):
        """Text."""
        if fails:
            raise KeyError
        return orvik.get_accuracy()

    assert level() == "EP" and level.__name__ == "level" and level.__doc__ == "Text."
    with pytest.raises(KeyError):
        level(fails=True)
    assert orvik.get_accuracy() == "HA"


def test_a_context_of_a_level_is_copied_as_a_new_one():
    with orvik.accuracy("LA") as context:
        for other in (pickle.loads(pickle.dumps(context)), copy.copy(context), copy.deepcopy(context)):
            with other:
                assert orvik.get_accuracy() == other.level == "LA"
        assert orvik.get_accuracy() == "LA"
    assert orvik.get_accuracy() == "HA"

"""The example of work beyond one machine, on a local cluster of two processes."""
import os
import pathlib
import re
import subprocess
import sys

import numpy as np
import pytest

pytest.importorskip("dask.array")
distributed = pytest.importorskip("distributed")

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
N, P = 100003, 3


@pytest.fixture(scope="module")
def example():
    sys.path.insert(0, str(EXAMPLES))
    try:
        import dask_summary

        yield dask_summary
    finally:
        sys.path.remove(str(EXAMPLES))


@pytest.fixture(scope="module")
def client(example):
    """Two processes, which find the package and the example where this one does."""
    before = os.environ.get("PYTHONPATH")
    os.environ["PYTHONPATH"] = os.pathsep.join(path for path in sys.path if path)
    try:
        with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster:
            with distributed.Client(cluster) as client:
                assert len({client.submit(os.getpid, workers=[w], pure=False).result()
                            for w in client.scheduler_info()["workers"]}) == 2
                yield client
    finally:
        if before is None:
            del os.environ["PYTHONPATH"]
        else:
            os.environ["PYTHONPATH"] = before


@pytest.fixture(scope="module")
def whole(example):
    return example.PHILOX4X32X10(example.SEED).normal(size=(N, P))


@pytest.mark.parametrize("rows", [N, 50000, 9973])
def test_draws_are_the_same_bit_for_bit_for_any_chunking(client, example, whole, rows):
    drawn = example.normals(N, P, rows).compute()
    assert drawn.tobytes() == whole.tobytes()


@pytest.mark.parametrize("rows", [N, 50000, 9973])
def test_ufuncs_on_chunks_are_those_on_the_whole(client, example, whole, rows):
    mapped = example.lognormals(N, P, rows).compute()
    assert mapped.tobytes() == example.orvik.exp(whole * 0.25).tobytes()


@pytest.mark.parametrize("rows", [N, 50000, 9973])
def test_summaries_merged_in_a_tree_are_those_of_the_whole_to_the_last_digits(client, example, whole, rows):
    summary = example.summarise(example.normals(N, P, rows)).compute()
    expected = example.summary_of(whole)
    assert summary.count() == N
    np.testing.assert_array_equal(summary.min(), expected.min())
    np.testing.assert_array_equal(summary.max(), expected.max())
    for name in ("mean", "variance", "covariance", "skewness", "kurtosis"):
        np.testing.assert_allclose(getattr(summary, name)(), getattr(expected, name)(), rtol=1e-12, atol=1e-13)


def test_merging_leaves_its_arguments(example):
    a, b = example.summary_of(np.ones((3, 1))), example.summary_of(np.zeros((2, 1)))
    assert example.merged(a, b).count() == 5 and (a.count(), b.count()) == (3, 2)


def test_the_script_says_the_same_twice():
    done = subprocess.run([sys.executable, EXAMPLES / "dask_summary.py", "20000", "2"], capture_output=True, text=True, timeout=300)
    assert done.returncode == 0, done.stderr
    said = [[float(number) for number in re.findall(r"[\d.e+-]+\d", line.partition("mean")[2])]
            for line in done.stdout.splitlines() if "chunks of" in line]
    assert len(said) == 2 and len(said[0]) == 6
    np.testing.assert_allclose(said[0], said[1], rtol=1e-7)  # as many digits as are printed
    np.testing.assert_allclose(said[0][:3], np.exp(0.25**2 / 2), rtol=0.02)

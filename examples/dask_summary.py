"""Beyond one machine: numbers, functions and statistics over chunks of a Dask array.

Chunk by chunk, on any number of workers: a stream skips to where a chunk's numbers begin, so that the array is the same bit for bit
however it is cut; ufuncs take chunks as they take arrays; summaries of chunks are merged in a tree, which changes their last
digits at most.

    python3 examples/dask_summary.py [NUMBERS [WORKERS]]
"""
import sys

import dask
import dask.array as da
import numpy as np

import orvik
from orvik.random import PHILOX4X32X10
from orvik.stats import Summary

SEED = 2026


def chunk_of_normals(first, shape, seed):
    """Rows of normal numbers, from number `first` of the stream on."""
    stream = PHILOX4X32X10(seed)
    stream.skip(first)
    return stream.normal(size=shape)


def normals(n, p, rows, seed=SEED):
    """A Dask array of n rows of p normal numbers in chunks of `rows` rows, of one stream."""
    draw = dask.delayed(chunk_of_normals, pure=True)
    chunks, first = [], 0
    while first < n:
        shape = (min(rows, n - first), p)
        chunks.append(da.from_delayed(draw(first * p, shape, seed), shape, np.float64))
        first += shape[0]
    return da.concatenate(chunks)


def summary_of(chunk):
    """The summary of one chunk, a row an observation."""
    summary = Summary(chunk.shape[1])
    summary.update(chunk)
    return summary


def merged(a, b):
    """The summary of what two have seen; both stay as they are, since Dask may ask for them again."""
    both = a.copy()
    both.merge(b)
    return both


def summarise(x):
    """The summary of a Dask array's rows, as a task: leaves by chunk, then pairs of neighbours."""
    rows = x.rechunk({1: -1}).to_delayed().reshape(-1)
    level = [dask.delayed(summary_of)(chunk) for chunk in rows]
    while len(level) > 1:
        pairs = [dask.delayed(merged)(a, b) for a, b in zip(level[::2], level[1::2])]
        level = pairs + level[len(pairs) * 2:]
    return level[0]


def lognormals(n, p, rows):
    """exp of normal numbers: the ufunc is applied where the chunks are."""
    return orvik.exp(normals(n, p, rows) * 0.25)


def main(n=1_000_000, workers=2):
    """Draws and summarises on a cluster of processes on this machine, twice, cut in different ways."""
    from distributed import Client, LocalCluster

    with LocalCluster(n_workers=workers, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster):
        for rows in (max(n // 4, 1), max(n // 7, 1)):
            summary = summarise(lognormals(n, 3, rows)).compute()
            print(f"{summary.count()} rows in chunks of {rows}: mean {summary.mean()}, variance {summary.variance()}")
    expected = np.exp(0.25**2 / 2)
    print(f"the mean of the law: {expected:.6f}")


if __name__ == "__main__":
    main(*(int(argument) for argument in sys.argv[1:]))

"""How Python calls are timed: candidates take turns, the least of many rounds counts."""
import time
from collections import namedtuple

# One comparison: its name, what goes into one group of ratios, how many numbers a call makes, our calls by label, the peer's name and call.
# A call with an attribute `prepare` has that called first, which is not timed.
Case = namedtuple("Case", "name group n ours peer theirs")
# Nanoseconds of a number: of ours by label, of the peer. The case is without its calls, which hold arrays.
Timed = namedtuple("Timed", "case ours theirs")

ROUND_NANOSECONDS = 150_000  # of many short calls


def once(call, repetitions):
    getattr(call, "prepare", int)()
    clock = time.perf_counter_ns
    start = clock()
    for _ in range(repetitions):
        call()
    return (clock() - start) / repetitions


def repetitions_of(call):
    """How many calls make a round. The least of several looks counts: an interrupt within a single one would leave a call or two a
    round, and with them the clock's own time and cold caches in every figure."""
    repetitions = 1
    while repetitions * min(once(call, repetitions) for _ in range(3)) < ROUND_NANOSECONDS / 2:
        repetitions *= 2
    return repetitions


def measure(case, rounds=15):
    calls = {**case.ours, case.peer: case.theirs}
    repetitions = {}
    for label, call in calls.items():
        call()
        repetitions[label] = repetitions_of(call)
    best = dict.fromkeys(calls, float("inf"))
    for _ in range(rounds if case.n < 1_000_000 else max(5, rounds // 2)):
        for label, call in calls.items():
            best[label] = min(best[label], once(call, repetitions[label]))
    return Timed(case._replace(ours=None, theirs=None), {label: best[label] / case.n for label in case.ours}, best[case.peer] / case.n)

"""What a seed is: words of 32 bits for a stream."""
import operator

import numpy as np
from numpy.random.bit_generator import ISeedSequence

_WORD = 0xFFFFFFFF


def sequence_of(seed):
    """The seed sequence of a seed; it is what children of unrelated streams are made from."""
    if isinstance(seed, ISeedSequence):
        return seed
    return np.random.SeedSequence(None if seed is None else _integers(seed))


def words_of(seed, sequence, count):
    """The words that a stream is seeded with, as an array; an int below 2^64 as it is.

    Parameters
    ----------
    seed : None, int, sequence of ints, ISeedSequence
        What the user gave.
    sequence : ISeedSequence
        The same as a seed sequence.
    count : int
        How many words of a seed sequence the generator makes use of.
    """
    if seed is None or isinstance(seed, ISeedSequence):
        return np.ascontiguousarray(sequence.generate_state(count, np.uint32), dtype=np.uint32)
    seed = _integers(seed)
    if isinstance(seed, int):
        if seed >> 64 == 0:
            return seed
        words = []
        while seed > 0:
            words.append(seed & _WORD)
            seed >>= 32
        return np.array(words, dtype=np.uint32)
    if any(word > _WORD for word in seed):
        raise ValueError("words of a seed must be below 2**32")
    return np.array(seed, dtype=np.uint32)


def _integers(seed):
    """An int, or a list of ints; none below 0."""
    try:
        whole = operator.index(seed)
    except TypeError:
        if isinstance(seed, (str, bytes)) or not hasattr(seed, "__iter__"):
            raise TypeError(f"seed must be None, an int, a sequence of ints or a SeedSequence, not {seed!r}") from None
        whole = [operator.index(word) for word in seed]
        if any(word < 0 for word in whole):
            raise ValueError("expected non-negative integers") from None
        return whole
    if whole < 0:
        raise ValueError("expected non-negative integer")
    return whole

"""A class for each generator of the library."""
import operator

import numpy as np

from .. import _random
from ._bit_generator import BitGenerator, Family

__all__ = ["ARS5", "MCG31M1", "MCG59", "MRG32K3A", "MT19937", "MT2203", "NIEDERREITER", "PHILOX4X32X10", "R250",
           "SFMT19937", "SOBOL", "TRNG", "WH"]

_COUNTERS = tuple(1 << e for e in (112, 96, 80, 64))


class PHILOX4X32X10(BitGenerator):
    """Philox 4x32 with ten rounds (Salmon, Moraes, Dror, Shaw 2011), the first choice: any number of streams, on any processor.

    Period 2^130. A jump is 2^64 numbers. Words of a seed: two of the key, four of the counter.

    Examples
    --------
    >>> import numpy as np
    >>> from orvik.random import PHILOX4X32X10
    >>> stream = PHILOX4X32X10(7)
    >>> stream.normal(size=3).shape
    (3,)
    >>> rng = np.random.Generator(stream)
    >>> int(rng.integers(10)) in range(10)
    True
    """

    _number = _random.PHILOX4X32X10
    _words = 6
    _jump = 1 << 64
    _distances = _COUNTERS


class ARS5(BitGenerator):
    """ARS with five rounds (Salmon, Moraes, Dror, Shaw 2011): the fastest with long jumps; needs AES instructions.

    Period 2^130. A jump is 2^64 numbers. Words of a seed: four of the key, four of the counter.
    """

    _number = _random.ARS5
    _words = 8
    _jump = 1 << 64
    _distances = _COUNTERS


class MRG32K3A(BitGenerator):
    """A combined multiple recursive generator (L'Ecuyer 1999), as simulation packages use it.

    Period about 2^191. A jump is 2^127 numbers. A word of 32 bits takes two numbers. Words of a seed: six.
    """

    _number = _random.MRG32K3A
    _words = 6
    _jump = 1 << 127
    _distances = tuple(1 << e for e in (174, 158, 142, 127))


class MT19937(BitGenerator):
    """The Mersenne Twister (Matsumoto, Nishimura 1998): one long sequence, the published one.

    Period 2^19937 - 1. A jump is 2^48 numbers and takes milliseconds; children are as far apart and have none. The words of an
    int seed are a key as in the published seeding by an array.
    """

    _number = _random.MT19937
    _jump = 1 << 48
    _distances = (1 << 48,)


class SFMT19937(BitGenerator):
    """The Mersenne Twister for vectors (Saito, Matsumoto 2008): faster, and sooner out of a bad state.

    Period 2^19937 - 1. A jump is 2^48 numbers and takes milliseconds; children are as far apart and have none.
    """

    _number = _random.SFMT19937
    _jump = 1 << 48
    _distances = (1 << 48,)


class MT2203(Family):
    """6,024 Mersenne Twisters of period 2^2203 - 1 with parameters of their own (Matsumoto, Nishimura 2000).

    Parameters
    ----------
    seed : None, int, sequence of ints, SeedSequence, optional
        As for every generator. Members with one seed begin alike for some 300 words.
    member : int, optional
        0 to 6,023.
    """

    _number = _random.MT2203
    _members = 6024


class WH(Family):
    """273 generators of four combined multiplicative ones each (Wichmann, Hill 1982; MacLaren 1989), exact on any machine.

    Period about 2^93. A jump is 2^48 numbers. A word of 32 bits takes two numbers. Words of a seed: four.

    Parameters
    ----------
    seed : None, int, sequence of ints, SeedSequence, optional
        As for every generator.
    member : int, optional
        0 to 272.
    """

    _number = _random.WH
    _members = 273
    _words = 4
    _jump = 1 << 48


class MCG59(BitGenerator):
    """A multiplicative congruential generator modulo 2^59: a small state, splitting by leapfrog.

    Period 2^57 for an odd seed. A jump is 2^40 + 1 numbers: parts that lie a power of two apart share low bits.
    """

    _number = _random.MCG59
    _words = 2
    _jump = (1 << 40) + 1
    _distances = ((1 << 40) + 1,)

    def _seed_words(self, seed, sequence):
        words = super()._seed_words(seed, sequence)
        if not isinstance(words, int) and words.size == self._words and not _is_sequence(seed):
            words[0] |= 1
        return words


class MCG31M1(BitGenerator):
    """A multiplicative congruential generator modulo 2^31 - 1: for short runs, a few million numbers at most.

    Period 2^31 - 2, which is too short to be split: it has no jumps. A word of 32 bits takes two numbers.
    """

    _number = _random.MCG31M1
    _words = 1


class R250(BitGenerator):
    """A generalised feedback shift register (Kirkpatrick, Stoll 1981), for agreement with old results.

    Period 2^250 - 1. It neither skips nor jumps. Give it 250 words: from an int alone it begins badly.
    """

    _number = _random.R250
    _words = 250


class TRNG(BitGenerator):
    """The random numbers of the processor, which are no sequence: an equal state gives other numbers.

    Tens of times slower than the others. It neither skips nor jumps. The second word of a seed is the number of retries.
    """

    _number = _random.TRNG
    _words = 1


class Points(BitGenerator):
    """A sequence of points in several dimensions, coordinate after coordinate."""

    _sequence_of_points = True

    def __init__(self, dimension=1):
        sequence = np.random.SeedSequence(0)
        try:
            stream = _random.Stream.make(self._number, _dimension(dimension, self._most))
        except TypeError:
            words = [operator.index(word) for word in dimension]
            if not all(0 <= word < 1 << 32 for word in words):
                raise ValueError("numbers of points must be below 2**32") from None
            stream = _random.Stream.make_seeds(self._number, np.array(words, dtype=np.uint32))
        self._adopt(stream, sequence)

    def _children(self, n):
        raise TypeError("points are one sequence: they have no children")


class SOBOL(Points):
    """The points of Sobol (1967), in the order of Antonov and Saleev (1979), without the origin.

    Parameters
    ----------
    dimension : int or sequence of ints, optional
        1 to 40; or the numbers that the library takes for points of one's own: the dimension, 1, a flag, numbers.

    Examples
    --------
    >>> from orvik.random import SOBOL
    >>> SOBOL(2).uniform(size=(3, 2))
    array([[0.5 , 0.5 ],
           [0.75, 0.25],
           [0.25, 0.75]])
    """

    _number = _random.SOBOL
    _most = 40


class NIEDERREITER(Points):
    """The points of Niederreiter (1988) in base 2, without the origin.

    Parameters
    ----------
    dimension : int or sequence of ints, optional
        1 to 318; or the numbers that the library takes for points of one's own.
    """

    _number = _random.NIEDERREITER
    _most = 318


def _dimension(value, most):
    dimension = operator.index(value)
    if not 1 <= dimension <= most:
        raise ValueError(f"dimension must be 1 to {most}, not {dimension}")
    return dimension


def _is_sequence(seed):
    return not (seed is None or isinstance(seed, (int, np.integer))
                or hasattr(seed, "generate_state"))

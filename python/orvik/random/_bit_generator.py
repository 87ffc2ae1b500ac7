"""The class that all generators share: a stream of the library as a bit generator of NumPy."""
import operator
import threading

import numpy as np
from numpy.random.bit_generator import ISeedSequence

from .. import _random
from ._distributions import Distributions
from ._parameters import int32
from ._seeding import sequence_of, words_of

_MEMBERS = 0xFFFFF  # of a generator's number, those that tell the member of a family
_CHILDREN = 1 << 16  # fewer can be spawned of one parent by skip-ahead


class BitGenerator(Distributions, np.random.BitGenerator):
    """A stream of random numbers: NumPy's bit generator with the library's own distributions as methods.

    `numpy.random.Generator` draws words of 32 good bits from it. They are taken from the stream by blocks, but `state`, `copy`,
    `skip`, `spawn` and the distributions see the stream at the place right behind the last word that was handed out: a
    block's other words go back. Methods take `lock`, so that threads may share an object; draws release the interpreter's
    lock.

    Parameters
    ----------
    seed : None, int, sequence of ints, SeedSequence, optional
        None asks the system for entropy. An int below 2^64 is two words, the low one first: the seed that the library
        has in C. A sequence is taken word by word, below 2^32 each. A `numpy.random.SeedSequence` gives as many words as
        the generator makes use of.
    """

    __slots__ = ("lock", "_place")  # reentrant, NumPy's own is not; where short draws find the stream

    _number = None  # of the generator in the library
    _words = 8  # of a seed sequence, those that seed a stream
    _jump = None  # numbers that `jumped` skips
    _distances = ()  # numbers between children that are spawned, by generation
    _sequence_of_points = False

    def __init__(self, seed=None):
        self._start(seed, self._number)

    def _start(self, seed, number):
        sequence = sequence_of(seed)
        words = self._seed_words(seed, sequence)
        make = _random.Stream.make if isinstance(words, int) else _random.Stream.make_seeds
        self._adopt(make(number, words), sequence)

    def _seed_words(self, seed, sequence):
        return words_of(seed, sequence, self._words)

    def _adopt(self, stream, sequence, generation=0, spawned=0):
        """Becomes the bit generator of a stream."""
        own = getattr(self, "_stream", None)
        if own is None:
            super().__init__(sequence)
            self.lock = threading.RLock()
            self._stream = stream
            self._place = stream.place()
            stream.serve(self.capsule)
        with self.lock:
            if own is not None:  # __init__ once more: Generators draw from the stream that they were given
                own.become(stream)
            self._sequence, self._generation, self._spawned = sequence, generation, spawned

    def _of(self, stream, sequence=None, generation=None):
        other = type(self).__new__(type(self))
        other._adopt(stream, self._sequence if sequence is None else sequence,
                     self._generation if generation is None else generation)
        return other

    # ---- What NumPy asks of a bit generator

    @property
    def state(self):
        """The stream's place: a dict of the generator's name and the stream's image, bytes with a checksum."""
        with self.lock:
            return {"bit_generator": type(self).__name__, "state": self._stream.image()}

    @state.setter
    def state(self, value):
        if not isinstance(value, dict):
            raise TypeError("state must be a dict")
        name = type(self).__name__
        if value.get("bit_generator") != name:
            raise ValueError(f"state must be for a {name}")
        image = value.get("state")
        if not isinstance(image, bytes):
            raise ValueError("state holds no image")
        generation, spawned = (operator.index(value.get(key, 0)) for key in ("generation", "spawned"))
        sequence = value.get("sequence", self._sequence)
        if not (0 <= generation <= len(self._distances) and spawned >= 0 and isinstance(sequence, ISeedSequence)):
            raise ValueError("state is damaged")
        with self.lock:
            self._stream.restore(image)
            self._generation, self._spawned, self._sequence = generation, spawned, sequence

    @property
    def seed_seq(self):
        """The seed sequence that the object was made with."""
        return self._sequence

    def __reduce__(self):
        state = self.state | {"generation": self._generation, "spawned": self._spawned, "sequence": self._sequence}
        return _unpickled, (type(self),), state

    def random_raw(self, size=None, output=True):
        """Words of 32 bits, as Generator draws them.

        Parameters
        ----------
        size : int or tuple of ints, optional
            None: one, as an int.
        output : bool, optional
            False: drawn, and not returned.

        Returns
        -------
        int, ndarray of uint64 or None

        Examples
        --------
        >>> from orvik.random import MT19937
        >>> MT19937(7).random_raw(2)
        array([4108730632, 3822271071], dtype=uint64)
        """
        words = np.empty(1 if size is None else size, dtype=np.uint64)
        with self.lock:
            self._stream.raw(words)
        if not output:
            return None
        return int(words[0]) if size is None else words

    # ---- Places in the sequence

    def copy(self):
        """An independent object at the same place of the same sequence."""
        with self.lock:
            other = self._of(self._stream.copy())
            other._spawned = self._spawned
            return other

    def skip(self, n):
        """Goes `n` numbers on, as if they had been drawn.

        Counts are numbers of the generator: a uniform number is one; a word of 32 bits as well, but for MRG32K3A, MCG31M1
        and WH, which make a word of two.

        Parameters
        ----------
        n : int
            Not negative. From 2^64 on only for the generators that can skip so far.
        """
        n = operator.index(n)
        if n < 0:
            raise ValueError("a stream cannot go back")
        with self.lock:
            if n >> 64 == 0:
                self._stream.skip(n)
                return
            words = []
            while n > 0:
                words.append(n & 0xFFFFFFFFFFFFFFFF)
                n >>= 64
            self._stream.skip_long(np.array(words, dtype=np.uint64))

    def leapfrog(self, k, nstreams):
        """Keeps numbers k, k + nstreams, k + 2 nstreams ... of what comes."""
        k, nstreams = int32(k, "k"), int32(nstreams, "nstreams")
        with self.lock:
            self._stream.leapfrog(k, nstreams)

    def jumped(self, jumps=1):
        """A copy that is far on in the sequence.

        Parameters
        ----------
        jumps : int, optional
            Not negative. How far one is says the class.
        """
        jumps = operator.index(jumps)
        if self._jump is None:
            raise NotImplementedError(f"{type(self).__name__} cannot jump")
        if jumps < 0:
            raise ValueError("a stream cannot go back")
        with self.lock:
            other = self._of(self._stream.copy())
        other._far(jumps * self._jump)
        return other

    def _far(self, n):
        """Skips a count that the generator can only skip in parts."""
        if self._long:
            return self.skip(n)
        while n > 0:
            part = min(n, 1 << 63)
            self.skip(part)
            n -= part

    @property
    def _long(self):
        return len(self._distances) > 1

    def spawn(self, n_children):
        """Bit generators whose sequences do not meet this one's, nor each other's.

        By skip-ahead where the generator can: child k, counted over all calls, begins k times a distance beyond this
        object's place. The distance shrinks with each generation, so that children have children; there are fewer than 2^16
        of one parent. Families (MT2203, WH) give the next members, each with a seed of its own. Other generators are
        seeded anew by `SeedSequence.spawn`.

        Parameters
        ----------
        n_children : int

        Returns
        -------
        list

        Examples
        --------
        >>> from orvik.random import PHILOX4X32X10
        >>> a, b = PHILOX4X32X10(7).spawn(2)
        >>> a.uniform() == b.uniform()
        False
        """
        n_children = operator.index(n_children)
        if n_children < 0:
            raise ValueError("n_children must not be negative")
        with self.lock:
            children = self._children(n_children)
            self._spawned += n_children
        return children

    def _children(self, n):
        if not self._distances:
            return [type(self)(sequence) for sequence in self._spawned_sequences(n)]
        if self._generation == len(self._distances):
            raise ValueError(f"descendants of a {type(self).__name__} in generation {self._generation} have no children")
        if self._spawned + n >= _CHILDREN:
            raise ValueError(f"one parent has fewer than {_CHILDREN} children")
        distance = self._distances[self._generation]
        children = []
        for k in range(self._spawned + 1, self._spawned + n + 1):
            child = self._of(self._stream.copy(), generation=self._generation + 1)
            child._far(k * distance)
            children.append(child)
        return children

    def _spawned_sequences(self, n):
        if not hasattr(self._sequence, "spawn"):
            raise TypeError("the underlying SeedSequence does not implement spawning")
        return self._sequence.spawn(n)


class Family(BitGenerator):
    """A generator with members: many sequences of one kind."""

    _members = 1

    def __init__(self, seed=None, member=0):
        member = operator.index(member)
        if not 0 <= member < self._members:
            raise ValueError(f"members of {type(self).__name__} are 0 to {self._members - 1}")
        self._start(seed, self._number + member)

    @property
    def member(self):
        """Which member of the family this is."""
        with self.lock:
            return self._stream.generator() & _MEMBERS

    def _children(self, n):
        first = (self._stream.generator() & _MEMBERS) + self._spawned + 1
        return [type(self)(sequence, (first + k) % self._members) for k, sequence in enumerate(self._spawned_sequences(n))]


def _unpickled(kind):
    """An object of a generator's class, whose state follows."""
    if not (isinstance(kind, type) and issubclass(kind, BitGenerator) and kind._number is not None):
        raise ValueError(f"{kind!r} is not a generator of orvik.random")
    made = kind.__new__(kind)
    made._adopt(_random.Stream.make(kind._number, 1), np.random.SeedSequence(0))
    return made

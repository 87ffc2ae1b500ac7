"""Random numbers: every generator of the library as a bit generator of NumPy, with the library's distributions as methods.

Examples
--------
>>> import numpy as np
>>> from orvik.random import MT19937, PHILOX4X32X10
>>> stream = PHILOX4X32X10(7)
>>> x = stream.normal(10.0, 2.0, size=1000)
>>> rng = np.random.Generator(MT19937(7))  # NumPy's distributions over the library's words
>>> sorted(rng.permutation(4).tolist())
[0, 1, 2, 3]
"""
from . import _generators
from ._bit_generator import BitGenerator, Family
from ._generators import (ARS5, MCG31M1, MCG59, MRG32K3A, MT19937, MT2203, NIEDERREITER, PHILOX4X32X10, R250, SFMT19937, SOBOL,
                          TRNG, WH, Points)

__all__ = [*_generators.__all__, "BitGenerator", "Family", "Points"]

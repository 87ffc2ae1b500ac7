// A function by its expansions about the middles of rows: a row is the top bits of a number, three tables hold eleven
// terms of each and what the first lacks.
#pragma once

#include "lanes/lanes.h"

namespace orvik::zym {

// Rows of 2^-Bits of a binade, the first one at 2^First.
template <Double V, int Bits, int First>
struct ExpansionRow {
  Integer<V> index;
  V middle;
  explicit ExpansionRow(V v) {
    using I = Integer<V>;
    constexpr int drop = 52 - Bits;
    const I number = shift_right<drop>(as_bits(v));
    index = number - I(uint64_t{1023 + First} << Bits);
    middle = as_float(shift_left<drop>(number) | I(uint64_t{1} << (drop - 1)));
  }
};

// From the top down: three quads of coefficients at a time would not fit the registers.
template <Double V>
struct Expansion {
  V first, rest, first_tail;  // c0, c1 + c2 x + ... + c10 x^9, what c0 lacks

  template <class At, size_t N>
  Expansion(V x, const At& at, const double (&terms0)[N][4], const double (&terms4)[N][4],
            const double (&terms8)[N][4]) {
    const Quad<V> high = gather(terms8, at);
    first_tail = high.c[3];
    const V x2 = x * x;
    rest = fma(high.c[2], x2, fma(high.c[1], x, high.c[0]));
    const Quad<V> middle = gather(terms4, at);
    rest = fma(fma(rest, x2, fma(middle.c[3], x, middle.c[2])), x2, fma(middle.c[1], x, middle.c[0]));
    const Quad<V> low = gather(terms0, at);
    rest = fma(fma(rest, x, low.c[3]), x2, fma(low.c[2], x, low.c[1]));
    first = low.c[0];
  }
};

// c0 + c1 x + c2 x^2 + c3 x^3.
template <Double V>
V short_expansion(V x, const Quad<V>& c) {
  return fma(fma(c.c[3], x, c.c[2]), x * x, fma(c.c[1], x, c.c[0]));
}

}  // namespace orvik::zym

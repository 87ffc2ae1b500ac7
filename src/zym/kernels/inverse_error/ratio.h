// t P(w) with P(w) = erfinv(t) / t and w = -ln(1 - t^2): one formula from t = 0 to the smallest tails, without a
// branch. P is smooth in w, grows from sqrt(pi)/2 to about sqrt(w), and takes little of what w has for an error: a
// quarter of it as it is while w is small, half of the relative one in the tails. 1 - t^2 comes from the caller, who
// knows it best (the variable is that of Giles 2010).
#pragma once

#include <span>

#include "lanes/head_tail.h"
#include "lanes/lanes.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/inverse_error/coefficients.h"
#include "zym/kernels/inverse_error/constants.h"
#include "zym/kernels/inverse_error/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::inverse_error {

// --- 64 bits --------------------------------------------------------------------------------------------------------

// The row of w, w = v - 4, and the distance from its middle. `Bits`: of the mantissa that count.
template <Double V, int Bits>
struct Row {
  Integer<V> index;
  V middle;
  explicit Row(V v) {
    using I = Integer<V>;
    constexpr int drop = 52 - Bits;
    const I number = shift_right<drop>(as_bits(v));
    index = number - I((uint64_t{1023 + 2} << Bits));
    middle = as_float(shift_left<drop>(number) | I(uint64_t{1} << (drop - 1))) - V(4.0);
  }
};

// c1 + c2 x + ... + c10 x^9, from the top down: three rows of coefficients at a time would not fit the registers.
template <Double V>
struct Terms {
  V first, rest, first_tail;  // c0, c1 + c2 x + ..., what c0 lacks
  template <class At>
  Terms(V x, const At& at) {
    const Quad<V> high = gather(kErfInvTerms8, at);
    first_tail = high.c[3];
    const V x2 = x * x;
    rest = fma(high.c[2], x2, fma(high.c[1], x, high.c[0]));
    const Quad<V> middle = gather(kErfInvTerms4, at);
    rest = fma(fma(rest, x2, fma(middle.c[3], x, middle.c[2])), x2, fma(middle.c[1], x, middle.c[0]));
    const Quad<V> low = gather(kErfInvTerms0, at);
    rest = fma(fma(rest, x, low.c[3]), x2, fma(low.c[2], x, low.c[1]));
    first = low.c[0];
  }
};

// Where 1 - t^2 is 2^-added s, s normalised.
template <Double V>
V t_times_ratio_ha(HeadTail<V> t, HeadTail<V> s, double added) {
  using I = Integer<V>;
  const KeyedDouble<V> k(s.head);
  const V scale =  // rc scale: 1/s
      as_float(I(int64_t{1023 + 1023 - 10} << 52) - (as_bits(s.head) & I(int64_t{0x7FF} << 52)));
  const V correction = k.rc * scale * s.tail;
  const V e = added == 0.0 ? k.exponent() : k.exponent() - V(added);
  const auto log = gather<512>(kLnPairs, indices(k.key));
  // -w: head, and what is below it.
  const V table = fma(e, V(kLn2Head64), log.first);
  const V head = table + k.r;
  const V lost = k.r - (head - table);
  const V low = fma(e, V(kLn2Tail64), log.second) + (fma(k.r * k.r, ln_polynomial(k.r), correction) + lost);

  const Row<V, 4> row(V(4.0) - head);
  const V x = V(0.0) - ((head + row.middle) + low);
  const Terms<V> c(x, indices(row.index));
  const V rest = fma(x, c.rest, c.first_tail);  // some 3 % of c0 at most: its roundings count little
  return fma(t.head, c.first, fma(t.head, rest, t.tail * c.first));
}

template <Double V>
V minus_ln(const KeyedDouble<V>& k, V p) {
  const V e = k.centred_exponent();
  const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + k.r;
  return V(0.0) - (head + fma(e, V(kLn2Tail64), k.r * k.r * p));
}

template <Double V>
V t_times_ratio_la(V t, V s) {
  const KeyedDouble<V> k(s);
  const V w = minus_ln(k, horner(k.r, kLnDoubleLA));
  const Row<V, 4> row(w + V(4.0));
  const V x = w - row.middle;
  const Terms<V> c(x, indices(row.index));
  return t * fma(x, c.rest, c.first);
}

template <Double V>
V t_times_ratio_ep(V t, V s) {
  const KeyedDouble<V> k(s);
  const V w = minus_ln(k, horner(k.r, kLnDoubleEP));
  const Row<V, 5> row(w + V(4.0));
  const Quad<V> c = gather(kErfInvShort, indices(row.index));
  const V x = w - row.middle;
  return t * fma(fma(c.c[3], x, c.c[2]), x * x, fma(c.c[1], x, c.c[0]));
}

// --- 32 bits --------------------------------------------------------------------------------------------------------

// Polynomials of eight rows by power, each power a register.
template <size_t N>
struct Octets {
  alignas(32) float c[N][8];
  constexpr explicit Octets(const float (&rows)[8][N]) : c{} {
    for (size_t k = 0; k < N; ++k) {
      for (size_t i = 0; i < 8; ++i) c[k][i] = rows[i][k];
    }
  }
};
inline constexpr Octets<8> kRowsLA(kErfInvRowsLA);
inline constexpr Octets<4> kRowsEP(kErfInvRowsEP);

template <Level L, Single V>
V t_times_ratio(V t, V s) {
  using I = Integer<V>;
  const CentredSingle<V> c(s);
  V p;
  if constexpr (L == Level::EP) {
    p = horner(c.f, kLnSingleEP);
  } else {
    p = horner(c.f, kLnSingleLA);
  }
  const V w = V(0.0f) - fma(c.e, V(kLn2Whole32), fma(c.f * p, c.f, c.f));
  const V v = w + V(7.0f);
  const I row = shift_right<22>(as_bits(v) - as_bits(V(7.0f)));
  const V x = w - look_up(octet_table<V>(kErfInvMiddles), row);
  const auto evaluate = [&](const auto& octets) {
    V sum = look_up(octet_table<V>(octets.c[0]), row);
    for (const auto& power : std::span(octets.c).template subspan<1>()) {
      sum = fma(sum, x, look_up(octet_table<V>(power), row));
    }
    return sum;
  };
  if constexpr (L == Level::EP) {
    return t * evaluate(kRowsEP);
  } else {
    return t * evaluate(kRowsLA);
  }
}

}  // namespace orvik::zym::inverse_error

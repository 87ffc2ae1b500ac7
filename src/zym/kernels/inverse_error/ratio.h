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
#include "zym/kernels/shared/expansion.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::inverse_error {

// --- 64 bits --------------------------------------------------------------------------------------------------------

// Where 1 - t^2 is 2^-added s, s normalised.
template <Double V>
[[gnu::always_inline]] inline V t_times_ratio_ha(HeadTail<V> t, HeadTail<V> s, double added) {
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

  const ExpansionRow<V, 4, 2> row(V(4.0) - head);
  const V x = V(0.0) - ((head + (row.middle - V(4.0))) + low);
  const Expansion<V> c(x, row_indices(row.index), kErfInvTerms0, kErfInvTerms4, kErfInvTerms8);
  const V rest = fma(x, c.rest, c.first_tail);  // some 3 % of c0 at most: its roundings count little
  return fma(t.head, c.first, fma(t.head, rest, t.tail * c.first));
}

template <Double V>
[[gnu::always_inline]] inline V minus_ln(const KeyedDouble<V>& k, V p) {
  const V e = k.centred_exponent();
  const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + k.r;
  return V(0.0) - (head + fma(e, V(kLn2Tail64), k.r * k.r * p));
}

template <Double V>
[[gnu::always_inline]] inline V t_times_ratio_la(V t, V s) {
  const KeyedDouble<V> k(s);
  const V w = minus_ln(k, horner(k.r, kLnDoubleLA));
  const ExpansionRow<V, 4, 2> row(w + V(4.0));
  const V x = w - (row.middle - V(4.0));
  const Expansion<V> c(x, row_indices(row.index), kErfInvTerms0, kErfInvTerms4, kErfInvTerms8);
  return t * fma(x, c.rest, c.first);
}

template <Double V>
[[gnu::always_inline]] inline V t_times_ratio_ep(V t, V s) {
  const KeyedDouble<V> k(s);
  const V w = minus_ln(k, horner(k.r, kLnDoubleEP));
  const ExpansionRow<V, 5, 2> row(w + V(4.0));
  const V x = w - (row.middle - V(4.0));
  return t * short_expansion(x, gather(kErfInvShort, indices(row.index)));
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
[[gnu::always_inline]] inline V t_times_ratio(V t, V s) {
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

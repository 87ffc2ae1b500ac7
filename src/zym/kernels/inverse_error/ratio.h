// t P(w) with P(w) = erfinv(t) / t and w = -ln(1 - t^2): one formula from t = 0 to the smallest tails, without a
// branch. P is smooth in w, grows from sqrt(pi)/2 to about sqrt(w), and takes little of what w has for an error: a
// quarter of it as it is while w is small, half of the relative one in the tails. 1 - t^2 comes from the caller, who
// knows it best (the variable is that of Giles 2010).
#pragma once

#include <span>

#include "lanes/head_tail.h"
#include "lanes/lanes.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/octave.h"
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
  const OctaveKey<V> k(s.head);
  const auto at = k.at();
  const V near = octave_reciprocal<BaseE, V>(k, at);
  const V r = fms(near, k.m(), V(1.0));
  const V tail = k.scaled(near) * s.tail;
  const V correction = fnma(tail, r, tail);  // ln(s) - ln(s.head)
  // -w: head, which lacks r^2/2 and is good for the row, and what is below it.
  const HeadTail<V> sum = octave_sum<BaseE>(added == 0.0 ? k.e() : k.e() - V(added), at, r, correction);
  const V low = fma(r * horner_by_two(r, kLnOctaveLA64), r, sum.tail);

  const ExpansionRow<V, 4, 2> row(V(4.0) - sum.head);
  const V x = V(0.0) - ((sum.head + (row.middle - V(4.0))) + low);
  const Expansion<V> c(x, row_indices(row.index), kErfInvTerms0, kErfInvTerms4, kErfInvTerms8);
  const V rest = fma(x, c.rest, c.first_tail);  // some 3 % of c0 at most: its roundings count little
  return fma(t.head, c.first, fma(t.head, rest, t.tail * c.first));
}

template <Double V>
[[gnu::always_inline]] inline V t_times_ratio_la(V t, V s) {
  const V w = V(0.0) - octave_log_in_one<BaseE>(s, kLnOctaveLA64);
  const ExpansionRow<V, 4, 2> row(w + V(4.0));
  const V x = w - (row.middle - V(4.0));
  const Expansion<V> c(x, row_indices(row.index), kErfInvTerms0, kErfInvTerms4, kErfInvTerms8);
  return t * fma(x, c.rest, c.first);
}

template <Double V>
[[gnu::always_inline]] inline V t_times_ratio_ep(V t, V s) {
  const V w = V(0.0) - octave_log_in_one<BaseE>(s, kLnOctaveEP64);
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

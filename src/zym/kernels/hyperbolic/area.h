// asinh and acosh at HA as logarithms of a sum y >= 1 of a number and a root, by rows of an octave: y = 2^e m with m in
// [1, 2), c near 2^-e / m by the upper bits of m, ln y = (e ln 2 - ln(c 2^e)) + ln(1 + r), r = c y - 1. c 2^e is 1 in the
// first row, so that next to y = 1 the first sum is 0 and r, which is exact, all that counts. Doubles add y and its
// logarithm in head and tail; floats are computed in doubles, in one.
#pragma once

#include "lanes/exponents.h"
#include "lanes/quotients.h"
#include "zym/kernels/explog/octave.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/constants.h"
#include "zym/kernels/hyperbolic/octave_tables.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::hyperbolic {

// ln y, and `more` ln 2.
template <Double V>
[[gnu::always_inline]] inline V area_log(HeadTail<V> y, double more = 0) {
  const OctaveKey<V> k(y.head);
  const auto row = look_up_row<V>(kAreaTable, k.row());
  using I = typename OctaveKey<V>::I;
  const V c = as_float(as_bits(row.c[0]) - (k.bits & I(Format<V>::exponent_field)));
  const V r = fms(c, y.head, V(1.0));
  const V r_tail = c * y.tail;
  const V e = more == 0 ? k.e() : k.e() + V(more);
  const V table = fma(e, V(kLn2Head64), row.c[1]);  // exact
  const V head = table + r;
  const V lost = r - (head - table);
  // ln(1 + r + r_tail) has the slope 1/(1 + r).
  const V tail = fma(e, V(kLn2Tail64), row.c[2]) + (lost + fnma(r_tail, r, r_tail));
  return head + fma(r * r, horner(r, kLnOctaveHA64), tail);
}

// ln y in a float's digits and a few more.
template <Double V>
[[gnu::always_inline]] inline V area_log_short(V y) {
  const OctaveKey<V> k(y);
  const auto row = look_up_row<V>(kAreaShortTable, k.row());
  const V r = fms(row.c[0], k.m(), V(1.0));
  return fma(r, horner(r, kAreaShort64), fma(k.e(), V(Constants<double>::ln2), row.c[1]));
}

// What the square of a number and 1 must not overflow from.
inline constexpr uint32_t kLastAreaWord = 0x5F2FFFFFu;  // below 2^500

// sqrt(square) with its error. The error of the reciprocal of the root, 1.5 %, is that of the tail; Sharp squares it.
template <bool Sharp, Double V>
[[gnu::always_inline]] inline HeadTail<V> area_root(HeadTail<V> square) {
  const V g = root(square.head);
  V reciprocal = rough_reciprocal(g);
  if constexpr (Sharp) reciprocal = reciprocal * fnma(g, reciprocal, V(2.0));
  return {g, (fnma(g, g, square.head) + square.tail) * (V(0.5) * reciprocal)};
}

// large + small, large >= small, the root's tail added.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> area_sum(V large, V small, V root_tail) {
  const HeadTail<V> y = fast_two_sum(large, small);
  return {y.head, y.tail + root_tail};
}

// asinh a, a >= 0.
template <Double V>
[[gnu::always_inline]] inline V asinh_in_two(V a) {
  const V one = V(1.0), square = safe_square<false>(a);
  HeadTail<V> sum = fast_two_sum(max(square, one), min(square, one));
  sum.tail = sum.tail + fms(a, a, square);
  const HeadTail<V> cosine = area_root<true>(sum);
  const V far = area_log<V>(area_sum(cosine.head, a, cosine.tail));
  const V near = fma(a, square * horner(square, kAsinhDoubleHA), a);
  return select(a < V(1.0 / 16), near, far);
}
// acosh x. x - 1 and, up to 3, the tail are exact.
template <Double V>
[[gnu::always_inline]] inline V acosh_in_two(V x) {
  const V d = x - V(1.0), twice = d + d;
  const V square = fma(d, d, twice);
  const HeadTail<V> sine = area_root<false>(HeadTail<V>{square, fma(d, d, twice - square)});
  return area_log<V>(area_sum(x, sine.head, sine.tail));
}

// Both of widened floats: squares lose nothing.
template <Double V>
[[gnu::always_inline]] inline V asinh_short(V a) {
  return area_log_short(a + root(fma(a, a, V(1.0))));
}
template <Double V>
[[gnu::always_inline]] inline V acosh_short(V x) {
  return area_log_short(x + root(fms(x, x, V(1.0))));
}

}  // namespace orvik::zym::hyperbolic

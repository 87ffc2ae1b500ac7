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

// A function of doubles over both halves of a register of floats side by side, so that one takes the divider beside the
// steps of the other.
template <class F>
[[gnu::always_inline]] inline F32 by_both_halves(F function, F32 x) {
  const Twice<F64> r = function(Twice<F64>{widen_low(x), widen_high(x)});
  return narrow(r.low, r.high);
}
template <class F>
[[gnu::always_inline]] inline Twice<F32> by_both_halves(F function, Twice<F32> x) {
  return {by_both_halves(function, x.low), by_both_halves(function, x.high)};
}

// 1/(2 x) to 0.03 %, for the error of a root x >= 0: the complement of the exponent gives 2^(-1/2)/x within 2 %, which one
// step of Newton's method squares. Of a zero it is a finite number.
template <Double V>
V rough_half_reciprocal(V x) {
  const V y = as_float(Integer<V>(int64_t{0x7FD64173B47EA166}) - as_bits(x));
  return y * fnma(x, y, V(0x1.6a09e667f3bcdp0));
}

// p(x) by its even and odd powers, square = x^2: half the chain of Horner's rule.
template <class V, size_t N>
[[gnu::always_inline]] inline V by_even_and_odd(V x, V square, const Element<V> (&c)[N]) {
  V odd = V(c[N % 2]), even = V(c[1 - N % 2]);
  for (size_t i = 2 + N % 2; i < N; i += 2) odd = fma(odd, square, V(c[i]));
  for (size_t i = 3 - N % 2; i < N; i += 2) even = fma(even, square, V(c[i]));
  return fma(odd, x, even);
}

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
  const V z = r * r;
  return head + fma(z, by_even_and_odd(r, z, kLnOctaveHA64), tail);
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

// sqrt(square) with its error.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> area_root(HeadTail<V> square) {
  const V g = root(square.head);
  return {g, (fnma(g, g, square.head) + square.tail) * rough_half_reciprocal(g)};
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
  const HeadTail<V> cosine = area_root(sum);
  const V far = area_log<V>(area_sum(cosine.head, a, cosine.tail));
  const V near = fma(a, square * horner(square, kAsinhDoubleHA), a);
  return select(a < V(1.0 / 16), near, far);
}
// acosh x. x - 1 and, up to 3, the tail are exact.
template <Double V>
[[gnu::always_inline]] inline V acosh_in_two(V x) {
  const V d = x - V(1.0), twice = d + d;
  const V square = fma(d, d, twice);
  const HeadTail<V> sine = area_root(HeadTail<V>{square, fma(d, d, twice - square)});
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

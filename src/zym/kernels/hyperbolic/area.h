// asinh and acosh at HA as logarithms of a sum y >= 1 of a number and a root, by rows of an octave: y = 2^e m with m in
// [1, 2), c near 2^-e / m by the upper bits of m, ln y = (e ln 2 - ln(c 2^e)) + ln(1 + r), r = c y - 1. c 2^e is 1 in
// the first row, so that next to y = 1 the first sum is 0 and r, which is exact, all that counts. y and its logarithm
// are added in head and tail; nothing is divided.
#pragma once

#include "lanes/exponents.h"
#include "lanes/quotients.h"
#include "zym/kernels/explog/octave.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/constants.h"
#include "zym/kernels/hyperbolic/octave_tables.h"
#include "zym/kernels/shared/complement.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::hyperbolic {

template <class E>
struct Area;
template <>
struct Area<float> {
  static constexpr const auto& table = kAreaTable32;
  static constexpr const auto& log = kAreaLog32;
  static constexpr const auto& near = kAsinhSingleHA;
  static constexpr uint32_t far_word = 0x5F000000u;  // of 2^63
  static constexpr float far = 0x1p63f, far_factor = 0x1p-30f, far_exponent = 31;
};
template <>
struct Area<double> {
  static constexpr const auto& table = kAreaTable64;
  static constexpr const auto& log = kLnOctaveHA64;
  static constexpr const auto& near = kAsinhDoubleHA;
  static constexpr uint32_t far_word = 0x5F300000u;  // of 2^500
  static constexpr double far = 0x1p500, far_factor = 0x1p-600, far_exponent = 601;
};

// p(x) by its even and odd powers, square = x^2: half the chain of Horner's rule.
template <class V, size_t N>
[[gnu::always_inline]] inline V by_even_and_odd(V x, V square, const Element<V> (&c)[N]) {
  V odd = V(c[N % 2]), even = V(c[1 - N % 2]);
  for (size_t i = 2 + N % 2; i < N; i += 2) odd = fma(odd, square, V(c[i]));
  for (size_t i = 3 - N % 2; i < N; i += 2) even = fma(even, square, V(c[i]));
  return fma(odd, x, even);
}

// ln y, and `more` ln 2.
template <class V>
[[gnu::always_inline]] inline V area_log(HeadTail<V> y, Element<V> more = 0) {
  using E = Element<V>;
  using K = Constants<E>;
  const OctaveKey<V> k(y.head);
  const auto row = look_up_row<V>(Area<E>::table, k.row());
  const V c = as_float(as_bits(row.c[0]) - (k.bits & Integer<V>(Format<V>::exponent_field)));
  const V r = fms(c, y.head, V(E(1)));
  const V r_tail = c * y.tail;
  const V e = more == 0 ? k.e() : k.e() + V(more);
  const V table = fma(e, V(K::ln2_head), row.c[1]);  // exact
  const V head = table + r;
  const V lost = r - (head - table);
  // ln(1 + r + r_tail) has the slope 1/(1 + r).
  const V tail = fma(e, V(K::ln2_tail), row.c[2]) + (lost + fnma(r_tail, r, r_tail));
  const V z = r * r;
  return head + fma(z, by_even_and_odd(r, z, Area<E>::log), tail);
}

// ln(2 x) of x where 1 no longer counts beside squares, before they overflow, and which lanes that does not serve. NaNs
// meet no comparison, which would raise a flag of a quiet one.
template <class V>
[[gnu::always_inline]] inline Masked<V, Mask<V>> area_far(V x) {
  using E = Element<V>;
  const Mask<V> left = outside<Area<E>::far_word, Single<V> ? 0x7F7FFFFFu : 0x7FEFFFFFu>(x);
  const V y = select(left, V(Area<E>::far), x) * V(Area<E>::far_factor);
  return {area_log<V>({y, V(E(0))}, Area<E>::far_exponent), left};
}

// sqrt(square) with its error.
template <class V>
[[gnu::always_inline]] inline HeadTail<V> area_root(HeadTail<V> square) {
  const V g = root(square.head);
  return {g, (fnma(g, g, square.head) + square.tail) * rough_half_reciprocal(g)};
}

// large + small, large >= small, the root's tail added.
template <class V>
[[gnu::always_inline]] inline HeadTail<V> area_sum(V large, V small, V root_tail) {
  const HeadTail<V> y = fast_two_sum(large, small);
  return {y.head, y.tail + root_tail};
}

// asinh a, a >= 0. Each side is computed where its powers neither underflow nor overflow. Of the far one's square the tail
// is exact as long as 1 counts beside it.
template <class V>
[[gnu::always_inline]] inline V asinh_in_two(V a) {
  using E = Element<V>;
  const V one = V(E(1)), bound = V(E(1.0 / 16));
  const V b = max(a, bound), square = fma(b, b, one);
  const HeadTail<V> cosine = area_root(HeadTail<V>{square, fma(b, b, one - square)});
  const V far = area_log<V>(area_sum(cosine.head, b, cosine.tail));
  const V c = min(a, bound), z = safe_square<false>(c);
  const V near = fma(c, z * horner(z, Area<E>::near), c);
  return select(a < bound, near, far);
}
// acosh x. x - 1 and, up to 3, the tail are exact.
template <class V>
[[gnu::always_inline]] inline V acosh_in_two(V x) {
  const V d = x - V(Element<V>(1)), twice = d + d;
  const V square = fma(d, d, twice);
  const HeadTail<V> sine = area_root(HeadTail<V>{square, fma(d, d, twice - square)});
  return area_log<V>(area_sum(x, sine.head, sine.tail));
}

}  // namespace orvik::zym::hyperbolic

// Arc tangent at HA: pivots q/p, whose number is in the bits of the tangent,
//   atan(a) = atan(q/p) + atan(t),  t = (a p - q) / (a q + p),  atan(t) = t + t z P(z), z = t^2.
// The first pivot is 0, so that small numbers are t itself; no octant is told apart. Of one number there are eight or
// sixteen, the last infinite, |t| < 0.163 of floats, 0.0994 of doubles. Of a point there are eight for each sign of x,
// found by the difference of the coordinates' bits, which is the quotient's logarithm or a little less or more: powers
// of two, so that the numerator is exact, |t| <= 0.2.
#pragma once

#include "zym/kernels/arc/coefficients.h"
#include "zym/kernels/arc/constants.h"
#include "zym/kernels/arc/pivot_tables.h"
#include "zym/kernels/shared/complement.h"
#include "zym/kernels/shared/corrections.h"

namespace orvik::zym::arc {

template <class E, Unit U>
struct Pivots;
template <>
struct Pivots<float, Unit::radian> {
  static constexpr const auto& rows = kAtanPivotColumns32;
  static constexpr const auto& polynomial = kAtanByPivots32;
};
template <>
struct Pivots<double, Unit::radian> {
  static constexpr const auto& rows = kAtanPivotColumns64;
  static constexpr const auto& polynomial = kAtanByPivots64;
};
template <>
struct Pivots<float, Unit::half_turn> {
  static constexpr const auto& rows = kAtanpiPivotColumns32;
  static constexpr const auto& polynomial = kAtanpiByPivots32;
};
template <>
struct Pivots<double, Unit::half_turn> {
  static constexpr const auto& rows = kAtanpiPivotColumns64;
  static constexpr const auto& polynomial = kAtanpiByPivots64;
};

template <class E, Unit U>
struct Octaves;
template <>
struct Octaves<float, Unit::radian> {
  static constexpr const auto& rows = kAtanOctaveColumns32;
  static constexpr const auto& polynomial = kAtanByOctaves32;
};
template <>
struct Octaves<float, Unit::half_turn> {
  static constexpr const auto& rows = kAtanpiOctaveColumns32;
  static constexpr const auto& polynomial = kAtanpiByOctaves32;
};
template <>
struct Octaves<double, Unit::radian> {
  static constexpr const auto& rows = kAtanOctaveColumns64;
  static constexpr const auto& polynomial = kAtanByOctaves64;
};
template <>
struct Octaves<double, Unit::half_turn> {
  static constexpr const auto& rows = kAtanpiOctaveColumns64;
  static constexpr const auto& polynomial = kAtanpiByOctaves64;
};

template <Single V>
[[gnu::always_inline]] inline Quad<V> pivot(const Octets<4>& columns, Integer<V> bits) {
  const Integer<V> octave = shift_right<23>(bits);
  Quad<V> row = {};
  for (size_t c = 0; c < 4; ++c) row.c[c] = look_up(octet_table<V>(columns.power[c]), octave);
  return row;
}
template <Double V>
[[gnu::always_inline]] inline Quad<V> pivot(const SixteenRows<double, 4>& rows, Integer<V> bits) {
  return look_up_row<V>(rows, shift_right<51>(bits));
}

// base + t + atan(t) - t in the unit, t = num/den and z = t^2; `rest` is num less t den.
template <Unit U, class V, size_t N>
[[gnu::always_inline]] inline V from_pivot(HeadTail<V> base, V t, V z, V rest, V den, const Element<V> (&polynomial)[N]) {
  constexpr bool kRadian = U == Unit::radian;
  using K = Constants<Element<V>>;
  const V head = kRadian ? t : t * V(K::inverse_pi);
  V low = base.tail;
  if constexpr (!kRadian) low = low + fma(t, V(K::inverse_pi_low), fms(t, V(K::inverse_pi), head));
  low = fma(rest, near_reciprocal<kRadian ? 0x7FDE600000000000u : 0x7FC3D00000000000u>(den), low);
  const HeadTail<V> sum = fast_two_sum(base.head, head);
  return sum.head + (sum.tail + fma(t * z, horner(z, polynomial), low));
}

template <Unit U, class V>
[[gnu::always_inline]] inline V by_pivots(V a) {
  using E = Element<V>;
  using Rows = Pivots<E, U>;
  const V inside = min(max(a, V(E(1.0 / 16))), V(E(Single<V> ? 8 : 12)));
  const auto row = pivot<V>(Rows::rows, as_bits(inside));
  const V p = row.c[0], q = row.c[1];
  // The difference is exact: a p is between q/2 and 2 q, or one of them 0. So is p less the denominator.
  const HeadTail<V> product = two_prod(a, p);
  const V num = product.head - q, den = fma(a, q, p), den_low = fma(a, q, p - den);
  const V t = num / den;
  const V rest = fnma(t, den_low, fnma(t, den, num) + product.tail);
  return from_pivot<U>({row.c[2], row.c[3]}, t, safe_square<true>(t), rest, den, Rows::polynomial);
}

// Of (x, y), y >= 0, x not 0; the quotient of their magnitudes and the squares of it are normal, or y is 0.
template <Unit U, class V>
[[gnu::always_inline]] inline V by_octaves(V y, V x) {
  using E = Element<V>;
  using Rows = Octaves<E, U>;
  constexpr Bits<V> kHalf = Bits<V>{1} << (Format<V>::mantissa_bits - 1);
  const V quotient = as_float(as_bits(y) - as_bits(magnitude(x)) + Integer<V>(bits_of(E(1)) + kHalf));
  const V inside = min(max(quotient, V(E(1.0 / 8))), V(E(16)));
  const Integer<V> left = shift_right<8 * sizeof(E) - 4>(as_bits(x)) & Integer<V>(Bits<V>{8});
  const auto row = look_up_row<V>(Rows::rows, shift_right<Format<V>::mantissa_bits>(as_bits(inside)) ^ left);
  const V q = row.c[0];
  // Exact: q x is 0 or between y/2 and 2 y, but for the last pivot, where t is small and its angle large.
  const V num = fnma(q, x, y), den = fma(q, y, x);
  const V of_y = den - x, of_x = den - of_y, den_low = fms(q, y, of_y) + (x - of_x);
  const V t = num / den;
  const V rest = fnma(t, den_low, fnma(t, den, num));
  return from_pivot<U>({row.c[1], row.c[2]}, t, safe_square<false>(t), rest, den, Rows::polynomial);
}

}  // namespace orvik::zym::arc

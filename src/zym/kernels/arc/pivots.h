// Arc tangent at HA: eight or sixteen pivots q/p, found by the bits of a,
//   atan(a) = atan(q/p) + atan(t),  t = (a p - q) / (a q + p),  atan(t) = t + t z P(z), z = t^2,
// |t| < 0.163 of floats, 0.0994 of doubles. The first pivot is 0, so that small numbers are t itself, the last
// infinite; no octant is told apart.
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
  const V t_low = fnma(t, den_low, fnma(t, den, num) + product.tail) * complement_of_exponent(den);
  HeadTail<V> small = {t, t_low};
  if constexpr (U == Unit::half_turn) small = over_pi(t, t_low);
  const V z = safe_square<true>(t);
  const V rest = fma(t * z, horner(z, Rows::polynomial), small.tail);
  const HeadTail<V> sum = fast_two_sum(row.c[2], small.head);
  return sum.head + (sum.tail + (row.c[3] + rest));
}

}  // namespace orvik::zym::arc

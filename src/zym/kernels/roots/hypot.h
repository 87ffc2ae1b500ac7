// sqrt(a^2 + b^2): the sum of squares, then as the square root. At HA the sum is carried in two parts.
#pragma once

#include "zym/kernels/roots/sqrt.h"

namespace orvik::zym {

template <class V, Level L>
struct Hypot;

// a^2 + b^2 as s + low.
template <class V>
struct SquareSum {
  V s, low;

  SquareSum(V a, V b) {
    const V high = max(magnitude(a), magnitude(b));
    const V less = min(magnitude(a), magnitude(b));
    const V p = high * high;
    s = fma(less, less, p);
    low = fma(less, less, p - s) + fms(high, high, p);  // p - s is exact: s is between p and 2 p
  }
};

template <class E, class Finite>
int32_t hypot_element(E a, E b, E* r, Finite finite) {
  if (is_infinite(a) || is_infinite(b)) {
    *r = infinity<E>;
  } else if (is_nan(a) || is_nan(b)) {
    *r = a + b;
  } else {
    *r = finite(a, b);
  }
  return 0;
}

// In range: the sum within [2^-100, 2^126).
template <Single V, Level L>
struct Hypot<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static auto special(V a, V b) { return outside<0x0D800000, 0x7E7FFFFF>(fma(a, a, b * b)); }

  static V lanes(V a, V b) {
    if constexpr (L == Level::HA) {
      const SquareSum<V> sum(a, b);
      const V y = roots::inverse_root(sum.s);
      const auto root = Sqrt<V, Level::HA>::refined(sum.s, sum.s * y, half_of(y));
      return fma(root.residue + sum.low, root.factor, root.head);
    } else {
      const V s = fma(a, a, b * b);
      const V y = roots::inverse_root(s);
      if constexpr (L == Level::EP) return s * y;
      return Sqrt<V, Level::HA>::refined(s, s * y, half_of(y)).sum();
    }
  }

  static int32_t element(const float* a, const float* b, float* r) {
    return hypot_element(*a, *b, r, [](double x, double y) { return static_cast<float>(std::sqrt(x * x + y * y)); });
  }
};

// In range: the sum within [2^-900, 2^1020).
template <Double V, Level L>
struct Hypot<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static auto special(V a, V b) { return outside<0x07B00000, 0x7FAFFFFF>(fma(a, a, b * b)); }

  static V lanes(V a, V b) {
    if constexpr (L == Level::HA) {
      // The rounded root g, and what it lacks by the estimate of 1/g.
      const SquareSum<V> sum(a, b);
      const V g = sqrt(sum.s);
      return fma(fnma(g, g, sum.s) + sum.low, half_of(roots::inverse_root(sum.s)), g);
    } else {
      return Sqrt<V, L>::lanes(fma(a, a, b * b));
    }
  }

  static int32_t element(const double* a, const double* b, double* r) {
    return hypot_element(*a, *b, r, [](double x, double y) {
      const double larger = std::fmax(std::fabs(x), std::fabs(y));
      if (larger == 0) return 0.0;
      const double up = larger > 1 ? 0x1p-600 : 0x1p600;
      const double down = larger > 1 ? 0x1p600 : 0x1p-600;
      return first_lane(Hypot<F64, Level::HA>::lanes(F64(x * up), F64(y * up))) * down;
    });
  }
};

}  // namespace orvik::zym

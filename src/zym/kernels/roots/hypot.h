// sqrt(a^2 + b^2): the sum of squares, then as the square root. At HA the sum is carried in two parts.
#pragma once

#include "lanes/estimates.h"
#include "lanes/quotients.h"
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
    const V less = min(magnitude(b), magnitude(a));  // of a NaN: one of the two is that
    const V p = high * high;
    s = fma(less, less, p);
    low = fma(less, less, p - s) + fms(high, high, p);  // p - s is exact: s is between p and 2 p
  }
};

// The sum of squares tells which lanes it serves: from 2^-100 to 2^126, in 64 bits from 2^-900 to 2^1020. What else it
// raised on the way, its square of a tiny operand too, the registers forget.
template <class V>
auto hypot_special(V s) {
  if constexpr (Single<V>) {
    return outside<0x0D800000, 0x7E7FFFFF>(s);
  } else {
    return outside<0x07B00000, 0x7FAFFFFF>(s);
  }
}
template <class V>
using HypotLanes = Masked<V, decltype(hypot_special(V()))>;
inline constexpr uint32_t kHypotStray = kUnderflowFlag | kSevereFlags;

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

// sHypot LA: 1.1303 ulp at -0x1.5c0b06p+4, 0x1.70c27p+8
// sHypot HA: 0.5002 ulp at 0x1.cbe44p+5, -0x1.91832ap+9
// sHypot EP: 11.58 bits at -0x1.5p+4, 0x1.2p+3
template <Single V, Level L>
struct Hypot<V, L> {
  static constexpr Knobs knobs = {.vectors = 2, .stray = kHypotStray, .together = L != Level::EP};

  static HypotLanes<V> lanes(V a, V b) {
    if constexpr (L == Level::HA) {
      const SquareSum<V> sum(a, b);
      const V y = roots::inverse_root(sum.s);
      const auto root = Sqrt<V, Level::HA>::refined(sum.s, sum.s * y, half_of(y));
      return {fma(root.residue + sum.low, root.factor, root.head), hypot_special(sum.s)};
    } else {
      const V s = fma(a, a, b * b);
      const V y = roots::inverse_root(s);
      if constexpr (L == Level::EP) {
        return {s * y, hypot_special(s)};
      } else {
        return {Sqrt<V, Level::HA>::refined(s, s * y, half_of(y)).sum(), hypot_special(s)};
      }
    }
  }

  static int32_t element(const float* a, const float* b, float* r) {
    return hypot_element(*a, *b, r, [](double x, double y) { return static_cast<float>(std::sqrt(x * x + y * y)); });
  }
};

template <Double V>
struct HypotDouble {
  static int32_t element(const double* a, const double* b, double* r);
};

// dHypot HA: 0.7500 ulp at 0x0.f4847e60e4f0dp-1022, -0x0.0000144a54052p-1022
template <Double V>
struct Hypot<V, Level::HA> : HypotDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2, .stray = kHypotStray};

  static HypotLanes<V> lanes(V a, V b) {
    // The rounded root g, and what it lacks by the estimate of 1/g.
    const SquareSum<V> sum(a, b);
    const V g = root(sum.s);
    return {fma(fnma(g, g, sum.s) + sum.low, half_of(roots::inverse_root(sum.s)), g), hypot_special(sum.s)};
  }
};

template <Double V>
int32_t HypotDouble<V>::element(const double* a, const double* b, double* r) {
  return hypot_element(*a, *b, r, [](double x, double y) {
    const double larger = std::fmax(std::fabs(x), std::fabs(y));
    const double smaller = std::fmin(std::fabs(x), std::fabs(y));
    if (bits_of(larger) - bits_of(smaller) > uint64_t{60} << 52) return larger;
    const double up = larger > 1 ? 0x1p-600 : 0x1p700;
    const double down = larger > 1 ? 0x1p600 : 0x1p-700;
    return first_lane(Hypot<F64, Level::HA>::lanes(F64(x * up), F64(y * up)).value) * down;
  });
}

// A sum of squares from 2^-125 to 2^126 is a normal float, which spares the estimate of its root all scaling; the second
// tier scales. The compiler takes the sum of the test for that of the lanes.
// dHypot LA: 1.3229 ulp at -0x1.61da4a50c3dbbp-13, 0x1.85a33b6ecbc22p+9
// dHypot EP: 34.92 bits at -0x1.7159777db5667p+196, -0x1.3ccdff91f53c5p-798
template <Double V, Level L>
struct Hypot<V, L> : HypotDouble<V> {
  static constexpr Knobs knobs = {.vectors = 2, .stray = kHypotStray};

  static auto special(V a, V b) { return outside<0x38200000u, 0x47CFFFFFu>(fma(a, a, b * b)); }
  static V lanes(V a, V b) {
    const V s = fma(a, a, b * b);
    return Sqrt<V, L>::refined(s, inverse_root_estimate(s));
  }
  static Masked<V, Mask<V>> wide(V a, V b) {
    const auto r = scaled(a, b);
    return {r.value, r.special};
  }
  static HypotLanes<V> scaled(V a, V b) {
    const V s = fma(a, a, b * b);
    return {Sqrt<V, L>::lanes(s), hypot_special(s)};
  }
};

}  // namespace orvik::zym

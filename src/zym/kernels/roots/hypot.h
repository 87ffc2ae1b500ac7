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

// Special lanes by the bits, so that no square overflows or underflows on the way, and no residue of the sum does: the larger
// magnitude is above `high` or at most `low`, or the smaller one is below the reciprocal of `high` and not 0.
template <uint32_t high, uint32_t low, class V>
Mask<V> hypot_special(V a, V b) {
  // In 64 bits the high words count, one more where the low word is not 0.
  const auto words = [](V x) {
    const Integer<V> m = as_bits(magnitude(x));
    if constexpr (Single<V>) {
      return m;
    } else {
      return m + Integer<V>(uint64_t{0xFFFFFFFF});
    }
  };
  const Integer<V> larger = larger_words(words(a), words(b)), smaller = smaller_words(words(a), words(b));
  const Above<V, static_cast<int32_t>(high)> out{larger_words(larger, subtract_from_words(0x80000000u, smaller))};
  const Above<V, static_cast<int32_t>(0x7FFFFFFEu - low)> under{subtract_from_words(0x7FFFFFFFu, larger)};
  return out | under;
}

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

// In range: 2^-50 to 2^63, and the smaller one from 2^-61.
// sHypot LA: 1.1303 ulp at -0x1.5c0b06p+4, 0x1.70c27p+8
// sHypot HA: 0.5001 ulp at -0x1.a69418p+8, 0x1.ba2bfep+9
// sHypot EP: 11.58 bits at 0x1.5p+4, -0x1.2p+3
template <Single V, Level L>
struct Hypot<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static auto special(V a, V b) { return hypot_special<0x5EFFFFFF, 0x26800000>(a, b); }

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

// In range: 2^-450 to 2^510, and the smaller one from 2^-508.
// dHypot LA: 1.2871 ulp at -0x1.11e492b40d2e8p-7, -0x1.a1e6ba4309af7p+7
// dHypot HA: 0.7489 ulp at 0x0.dc8d6fa243972p-1022, -0x0.32030bf65ac7bp-1022
// dHypot EP: 34.92 bits at -0x1.a23906c1bcc9cp-30, -0x1.052e0f9c7aba4p+6
template <Double V, Level L>
struct Hypot<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static auto special(V a, V b) { return hypot_special<0x5FCFFFFF, 0x23D00000>(a, b); }

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
      const double smaller = std::fmin(std::fabs(x), std::fabs(y));
      if (bits_of(larger) - bits_of(smaller) > uint64_t{60} << 52) return larger;
      const double up = larger > 1 ? 0x1p-600 : 0x1p700;
      const double down = larger > 1 ? 0x1p600 : 0x1p-700;
      return first_lane(Hypot<F64, Level::HA>::lanes(F64(x * up), F64(y * up))) * down;
    });
  }
};

}  // namespace orvik::zym

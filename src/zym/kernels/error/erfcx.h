// The scaled complementary error function e^(x^2) erfc(x): q(x) itself, and 2 e^(x^2) - q(|x|) for negative x. Beyond the
// table Hankel's series. One kernel for all levels, that of floats in 64 bits.
#pragma once

#include "lanes/scalar.h"
#include "zym/kernels/error/scaled.h"
#include "zym/kernels/shared/halves.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace error {

// Lanes reach from -26.5, where floats have overflowed and doubles will soon, to 30.9, next to the end of the table.
inline constexpr double kErfcxFirst = -26.5, kErfcxLast = 30.9;

template <Double V>
struct ErfcxParts {
  Mask<V> negative;
  V z;
  HeadTail<V> square;  // 0 for positive x

  [[gnu::always_inline]] explicit ErfcxParts(V x) {
    negative = x < V(0.0);
    z = max(magnitude(x), V(0x1p-100));  // whose square does not underflow
    const V factor = keep(negative, z);
    square = two_prod(z, factor);
  }
};

template <Double V>
[[gnu::always_inline]] inline V erfcx(V x) {
  const ErfcxParts<V> parts(x);
  const Scaled<V> q(parts.z, V(0.0));
  const Exponential<V> e(parts.square, 1);  // 2 e^(x^2)
  const HeadTail<V> sum = fast_two_sum(e.scale, V(0.0) - q.head);
  const V difference = sum.head + (sum.tail + fms(e.scale, e.rest, q.rest));
  return select(parts.negative, difference, q.head + q.rest);
}
// To 30 bits.
template <Double V>
[[gnu::always_inline]] inline V erfcx_short(V x) {
  const ErfcxParts<V> parts(x);
  const V q = scaled_short(parts.z);
  return select(parts.negative, exponential_short(parts.square.head, 1) - q, q);
}

// (1 + u P(u)) / (x sqrt(pi)), u = 1 / x^2, x from kErfcxLast on. The numerator in head and tail; from 2^60 on it is
// 1/sqrt(pi), whose tail is 2^-56 of its head.
template <Double V>
[[gnu::always_inline]] inline V erfcx_far(V x) {
  const V far = V(0x1p60), c = V(kInverseRootPi);
  const V a = select((x > V(1.0)) & (x < far), x, far);
  const V inverse = V(1.0) / a;
  const V u = inverse * inverse;
  const HeadTail<V> top = fast_two_sum(c, fma(c, u * horner(u, kErfcxFar), V(kInverseRootPiTail)));
  const V y = top.head / a;
  const V near = fma(fnma(y, a, top.head) + top.tail, inverse, y);
  return select(x > far, c / select(x > far, x, far), near);
}

}  // namespace error

// sErfcx HA: 0.5095 ulp at 0x1.812e8ap+1
// dErfcx HA: 0.6037 ulp at 0x1.49c86a98e496bp+120
template <class V, Level L>
struct Erfcx {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = Single<V> ? 2 : 1, .together = Double<V>};

  // One test for both ends: of the distance from their middle.
  static auto special(V x) {
    constexpr double kMiddle = (error::kErfcxLast + error::kErfcxFirst) / 2, kReach = error::kErfcxLast - kMiddle;
    constexpr uint32_t kLast =
        Single<V> ? std::bit_cast<uint32_t>(static_cast<float>(kReach)) - 1 : high_word(kReach) - 1;
    return magnitude_above<kLast>(x - V(E(kMiddle)));
  }

  static V lanes(V x) {
    if constexpr (Single<V>) {
      return by_halves([](auto y) __attribute__((always_inline)) { return error::erfcx_short(y); }, x);
    } else {
      return error::erfcx(x);
    }
  }

  static Masked<V, Mask<V>> wide(V x) {
    V y;
    if constexpr (Single<V>) {
      y = by_halves([](auto half) __attribute__((always_inline)) { return error::erfcx_far(half); }, x);
    } else {
      y = error::erfcx_far(x);
    }
    return {y, complement(x > V(E(0)))};
  }

  // NaNs, and what overflows or nearly does: q does not count beside it.
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
    } else if (x == -infinity<E>) {
      *r = infinity<E>;
    } else {
      const double a = min(-static_cast<double>(x), 27.0);
      const error::Exponential<double> e(two_square(a), 1 - 60);
      *r = static_cast<E>(fma(e.scale, e.rest, e.scale) * 0x1p60);
    }
    return 0;
  }
};

}  // namespace orvik::zym

// The float next to a towards b, and the exponent of a float.
#pragma once

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// A step of one in the bit pattern, away from zero or towards it.
template <class V, Level>
struct NextAfter {
  using E = Element<V>;
  using B = Bits<V>;

  static V lanes(V a, V b) {
    // Set where |a| > |b|, which their bits tell, or where the signs differ.
    const V towards_zero = as_float(as_bits(magnitude(b)) - as_bits(magnitude(a))) | (a ^ b);
    return as_float(as_bits(a) + select(sign_decides(towards_zero), Integer<V>(~B{0}), Integer<V>(B{1})));
  }

  // NaNs, numbers without a step between them, results that are no normal numbers.
  static Mask<V> special(V a, V b) {
    constexpr uint32_t kFirst = Single<V> ? 0x00800000u : 0x00100000u, kLast = Single<V> ? 0x7F7FFFFFu : 0x7FEFFFFFu;
    return equal_or_unordered(a, b) | outside_magnitude<kFirst, kLast>(lanes(a, b));
  }

  // What is denormal counts times one: it is flushed where denormals are.
  static int32_t element(const E* pa, const E* pb, E* r) {
    const E a = *pa;
    const E b = *pb;
    if (is_nan(a) || is_nan(b)) {
      *r = a + b;
      return 0;
    }
    if (a == b) {
      *r = quiet(b);
      return 0;
    }
    using F = FloatBits<E>;
    if (a == 0) {
      *r = quiet(float_of<E>((bits_of(b) & F::sign_bit) | 1));
      return zymErrorUnderflow;
    }
    const bool signs_differ = is_negative(a) != is_negative(b);
    const bool towards_zero = signs_differ || magnitude_bits(a) > magnitude_bits(b);
    const E next = float_of<E>(static_cast<B>(bits_of(a) + (towards_zero ? ~B{0} : B{1})));
    *r = quiet(next);
    const B m = magnitude_bits(next);
    if (m == F::exponent_field) return zymErrorOverflow;
    return m < F::min_normal ? zymErrorUnderflow : 0;
  }
};

// floor(log2 |a|), exact. The exponent field becomes a float by way of the mantissa of 2^mantissa_bits.
template <class V, Level>
struct Logb {
  using E = Element<V>;
  using B = Bits<V>;

  static Mask<V> special(V x) { return (magnitude(x) < V(std::numeric_limits<E>::min())) | not_finite(x); }

  static V lanes(V x) {
    const V base =
        pattern<V>(B(Format<V>::bias + Format<V>::mantissa_bits) << Format<V>::mantissa_bits);  // 2^mantissa_bits
    const V field = as_float(shift_right<Format<V>::mantissa_bits>(as_bits(magnitude(x))));
    return ((field | base) - base) - V(static_cast<E>(Format<V>::bias));
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
    } else if (is_infinite(x)) {
      *r = infinity<E>;
    } else if (x == 0) {
      *r = -infinity<E>;
      return zymErrorSingularity;
    } else {  // denormal: the highest set bit counts
      *r = static_cast<E>(static_cast<int>(std::bit_width(magnitude_bits(x))) - Format<V>::mantissa_bits -
                          Format<V>::bias);
    }
    return 0;
  }
};

}  // namespace orvik::zym

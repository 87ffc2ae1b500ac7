// The float next to a towards b, and the exponent of a float.
#pragma once

#include "orvik/zym_types.h"
#include "zym/lanes/lanes.h"
#include "zym/lanes/scalar.h"

namespace orvik::zym {

// A step of one in the bit pattern, away from zero or towards it.
template <class V, Level>
struct NextAfter {
  using E = typename V::Element;
  using I = typename V::Integer;
  using Bits = typename V::Bits;

  static V lanes(V a, V b) {
    // The sign bit of `towards_zero` decides: set where |a| > |b|, or where the signs differ.
    const V towards_zero = compare<_CMP_GT_OQ>(magnitude(a), magnitude(b)) | (a ^ b);
    const V step = select(towards_zero, pattern<V>(~Bits{0}), pattern<V>(Bits{1}));
    return as_float(as_bits(a) + as_bits(step));
  }

  static V special(V a, V b) {
    const V r = magnitude(lanes(a, b));
    const V same_or_nan = compare<_CMP_EQ_UQ>(a, b);
    const V below_normal = compare<_CMP_LT_OQ>(r, V(std::numeric_limits<E>::min()));
    return same_or_nan | below_normal | not_finite(r);
  }

  static int32_t element(const E* pa, const E* pb, E* r) {
    const E a = *pa;
    const E b = *pb;
    if (is_nan(a) || is_nan(b)) {
      *r = a + b;
      return 0;
    }
    if (a == b) {
      *r = b;
      return 0;
    }
    using F = FloatBits<E>;
    if (a == 0) {
      *r = float_of<E>((bits_of(b) & F::sign) | 1);
      return zymErrorUnderflow;
    }
    const bool signs_differ = is_negative(a) != is_negative(b);
    const bool towards_zero = signs_differ || magnitude_bits(a) > magnitude_bits(b);
    *r = float_of<E>(static_cast<Bits>(bits_of(a) + (towards_zero ? ~Bits{0} : Bits{1})));
    const Bits m = magnitude_bits(*r);
    if (m == F::exponent) return zymErrorOverflow;
    return m < F::min_normal ? zymErrorUnderflow : 0;
  }
};

// floor(log2 |a|), exact. The exponent field becomes a float by way of the mantissa of 2^mantissa_bits.
template <class V, Level>
struct Logb {
  using E = typename V::Element;
  using Bits = typename V::Bits;

  static V special(V x) { return compare<_CMP_LT_OQ>(magnitude(x), V(std::numeric_limits<E>::min())) | not_finite(x); }

  static V lanes(V x) {
    const V base = pattern<V>(Bits(V::bias + V::mantissa_bits) << V::mantissa_bits);  // 2^mantissa_bits
    const V field = as_float(shift_right<V::mantissa_bits>(as_bits(magnitude(x))));
    return ((field | base) - base) - V(static_cast<E>(V::bias));
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
      *r = static_cast<E>(static_cast<int>(std::bit_width(magnitude_bits(x))) - V::mantissa_bits - V::bias);
    }
    return 0;
  }
};

}  // namespace orvik::zym

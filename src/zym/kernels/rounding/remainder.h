// Exact remainders of a division. With q = trunc of the rounded quotient, which is the true whole quotient or one more,
// a - q b is a multiple of the last place of b below |b|, so that one fused step computes it exactly; one more |b| is
// added where q was one too many. Quotients of 2^(mantissa_bits - 1) or more take the element routine.
#pragma once

#include <cmath>

#include "orvik/zym_types.h"
#include "zym/lanes/lanes.h"
#include "zym/lanes/scalar.h"

namespace orvik::zym {

template <class V>
struct Quotient {
  using E = typename V::Element;
  static constexpr E kLimit = static_cast<E>(typename V::Bits{1} << (V::mantissa_bits - 1));

  V whole;  // trunc(|a| / |b|)
  V rest;   // |a| - whole |b|, in [0, |b|)

  static Quotient divide(V a, V b) {
    const V q = round<_MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC>(magnitude(a) / magnitude(b));
    const V r = fnma(q, magnitude(b), magnitude(a));
    const V too_many = compare<_CMP_LT_OQ>(r, V(E(0)));
    return {q - (too_many & V(E(1))), r + (too_many & magnitude(b))};
  }

  static V special(V a, V b) {
    // False for NaN as well: zero or NaN divisors, infinite or NaN dividends, large quotients.
    const V small = compare<_CMP_LT_OQ>(magnitude(a) / magnitude(b), V(kLimit));
    return not_finite(a) | not_finite(b) | compare<_CMP_EQ_OQ>(b, V(E(0))) | (small ^ pattern<V>(~typename V::Bits{0}));
  }

  template <class Exact>
  static int32_t element(E a, E b, E* r, Exact exact) {
    if (is_nan(a) || is_nan(b)) {
      *r = a + b;
      return 0;
    }
    if (is_infinite(a) || b == 0) {
      *r = opaque(E(0)) / opaque(E(0));
      return zymErrorDomain;
    }
    *r = is_infinite(b) ? a : exact(a, b);
    return 0;
  }
};

template <class V, Level>
struct Fmod {
  using E = typename V::Element;
  static V special(V a, V b) { return Quotient<V>::special(a, b); }
  static V lanes(V a, V b) { return Quotient<V>::divide(a, b).rest | sign_of(a); }
  static int32_t element(const E* a, const E* b, E* r) {
    return Quotient<V>::element(*a, *b, r, [](E x, E y) { return std::fmod(x, y); });
  }
};

// The quotient to nearest, ties to even: one more |b| is taken where the rest is over a half, or is a half and the
// whole quotient is odd.
template <class V, Level>
struct Remainder {
  using E = typename V::Element;
  static V special(V a, V b) { return Quotient<V>::special(a, b); }
  static V lanes(V a, V b) {
    const Quotient<V> q = Quotient<V>::divide(a, b);
    const V to_next = magnitude(b) - q.rest;
    const V over_half = compare<_CMP_GT_OQ>(q.rest, to_next);
    const V half = compare<_CMP_EQ_OQ>(q.rest, to_next);
    // The lowest bit of a whole number below 2^mantissa_bits, in the sign bit.
    const V base = pattern<V>(typename V::Bits(V::bias + V::mantissa_bits) << V::mantissa_bits);
    const V odd = as_float(shift_left<sizeof(E) * 8 - 1>(as_bits(q.whole + base)));
    const V next = over_half | (half & odd);
    return select(next, q.rest - magnitude(b), q.rest) ^ sign_of(a);
  }
  static int32_t element(const E* a, const E* b, E* r) {
    return Quotient<V>::element(*a, *b, r, [](E x, E y) { return std::remainder(x, y); });
  }
};

}  // namespace orvik::zym

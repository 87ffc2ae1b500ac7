// Exact remainders of a division. With q = trunc of the rounded quotient, which is the true whole quotient or one more,
// a - q b is a multiple of the last place of b below |b|, so that one fused step computes it exactly; one more |b| is
// added where q was one too many. Quotients of 2^(mantissa_bits - 2) or more take the element routine.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// |a| as mantissa 2^exponent, the exponent that of the last place of |a|.
template <class E>
struct LastPlaces {
  using F = FloatBits<E>;
  static constexpr int kMantissaBits = std::countr_zero(F::min_normal);
  uint64_t mantissa;
  int exponent;  // from the smallest denormal number's

  explicit LastPlaces(E a) {
    const auto m = magnitude_bits(a);
    const int field = static_cast<int>(m >> kMantissaBits);
    mantissa = m & (F::min_normal - 1);
    exponent = field > 0 ? field - 1 : 0;
    if (field > 0) mantissa |= F::min_normal;
  }
  E value() const {
    const int up = std::min(std::countl_zero(mantissa) - (63 - kMantissaBits), exponent);
    if (mantissa == 0) return E(0);
    const uint64_t m = mantissa << up;
    return float_of<E>(static_cast<typename F::Bits>((static_cast<uint64_t>(exponent - up) << kMantissaBits) + m));
  }
};

// |a| - q |b| for the whole quotient q = trunc(|a| / |b|), by long division 64 bits at a time: a of another size than b
// by 2^1000 takes sixteen steps. b is not 0, |a| not below |b|.
template <class E>
struct LongDivision {
  E rest;
  bool odd;  // q
  LongDivision(E a, E b) {
    const LastPlaces<E> x(a);
    LastPlaces<E> y(b);
    uint64_t q = x.mantissa / y.mantissa;
    uint64_t r = x.mantissa % y.mantissa;
    for (int left = x.exponent - y.exponent; left > 0;) {
      const int step = left < 63 ? left : 63;
      const uint64_t high = r >> (64 - step), low = r << step;  // high < the divisor: the quotient has 64 bits
      asm("divq %4" : "=a"(q), "=d"(r) : "a"(low), "d"(high), "r"(y.mantissa) : "cc");
      left -= step;
    }
    odd = (q & 1) != 0;
    y.mantissa = r;
    rest = y.value();
  }
};

template <class E>
E with_sign_of(E magnitude, E sign) {
  return float_of<E>(bits_of(magnitude) ^ (bits_of(sign) & FloatBits<E>::sign_bit));
}

template <class V>
struct Quotient {
  using E = Element<V>;
  V whole;  // trunc(|a| / |b|)
  V rest;   // |a| - whole |b|, in [0, |b|)

  static Quotient divide(V a, V b) {
    const V q = round<Direction::zero>(magnitude(a) / magnitude(b));
    const V r = fnma(q, magnitude(b), magnitude(a));
    const Mask<V> too_many = r < V(E(0));
    return {q - keep(too_many, V(E(1))), r + keep(too_many, magnitude(b))};
  }

  static Mask<V> special(V a, V b) {
    // On the bits, since the quotient itself would raise flags: it is below 2^(k + 1) where the exponents differ by k.
    const Integer<V> apart = as_bits(magnitude(a)) - as_bits(magnitude(b));
    const Above<V, Single<V> ? (21 << 23) : (50 << 20)> large{apart};
    return Mask<V>(not_finite(a) | not_finite(b)) | (b == V(E(0))) | large;
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
    *r = quiet(is_infinite(b) ? a : exact(a, b));  // a denormal that counts as zero becomes one
    return 0;
  }
};

// The quotient may underflow, the exact remainder cannot.
inline constexpr Knobs kRemainderKnobs = {.stray = kUnderflowFlag};

template <class V, Level>
struct Fmod {
  using E = Element<V>;
  static constexpr Knobs knobs = kRemainderKnobs;
  static Mask<V> special(V a, V b) { return Quotient<V>::special(a, b); }
  static V lanes(V a, V b) { return join_sign(Quotient<V>::divide(a, b).rest, a); }
  static int32_t element(const E* a, const E* b, E* r) {
    return Quotient<V>::element(*a, *b, r, [](E x, E y) {
      return std::fabs(x) < std::fabs(y) ? x : with_sign_of(LongDivision<E>(x, y).rest, x);
    });
  }
};

// The quotient to nearest, ties to even: one more |b| is taken where the rest is over a half, or is a half and the
// whole quotient is odd.
template <class V, Level>
struct Remainder {
  using E = Element<V>;
  static constexpr Knobs knobs = kRemainderKnobs;
  static Mask<V> special(V a, V b) { return Quotient<V>::special(a, b); }
  static V lanes(V a, V b) {
    const Quotient<V> q = Quotient<V>::divide(a, b);
    const V to_next = magnitude(b) - q.rest;
    const Mask<V> over_half = q.rest > to_next;
    const Mask<V> half = q.rest == to_next;
    // The lowest bit of a whole number below 2^mantissa_bits, in the sign bit.
    const V base = pattern<V>(Bits<V>(Format<V>::bias + Format<V>::mantissa_bits) << Format<V>::mantissa_bits);
    const V odd = as_float(shift_left<sizeof(E) * 8 - 1>(as_bits(q.whole + base)));
    const Mask<V> next = over_half | (half & sign_decides(odd));
    return flip_sign(select(next, q.rest - magnitude(b), q.rest), a);
  }
  static int32_t element(const E* a, const E* b, E* r) {
    return Quotient<V>::element(*a, *b, r, [](E x, E y) {
      if (std::fabs(x) < std::fabs(y)) return std::remainder(x, y);  // not a large quotient
      const LongDivision<E> d(x, y);
      const E to_next = std::fabs(y) - d.rest;
      const bool next = d.rest > to_next || (d.rest == to_next && d.odd);
      return with_sign_of(next ? -to_next : d.rest, x);
    });
  }
};

}  // namespace orvik::zym

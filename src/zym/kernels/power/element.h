// x^y one element at a time: every case that the lanes leave.
#pragma once

#include "zym/kernels/power/element_parts.h"

namespace orvik::zym {

enum class Parity { none, odd, even };  // none: not an integer

template <class E>
Parity parity(E y) {
  using Format = FloatFormat<E>;
  using Bits = typename Format::Bits;
  const int e = exponent_of(y);
  if (e < 0) return Parity::none;
  if (e > Format::mantissa_bits) return Parity::even;  // infinities too
  const Bits unit = Bits{1} << (Format::mantissa_bits - e);
  const Bits m = (magnitude_bits(y) & ((Bits{1} << Format::mantissa_bits) - 1)) | (Bits{1} << Format::mantissa_bits);
  if ((m & (unit - 1)) != 0) return Parity::none;
  return (m & unit) != 0 ? Parity::odd : Parity::even;
}

// A signalling NaN is quieted, every other value stays, a zero with its sign (a denormal that reads as zero becomes
// one).
template <class E>
E quiet_nan(E x) {
  return x + (x == 0 ? x : opaque(E(-0.0)));
}

// `integers`: exponents that are integers give powers of negative numbers; without, such powers are NaN.
template <bool integers, class E>
int32_t power_element(const E* px, const E* py, E* r) {
  const E x = quiet_nan(*px);
  const E y = quiet_nan(*py);
  if (x == 1 || y == 0) {  // a NaN in the other operand notwithstanding
    *r = 1;
    return 0;
  }
  if (is_nan(x) || is_nan(y)) {
    *r = x + y;
    return 0;
  }
  const Parity kind = !integers && !is_infinite(y) ? Parity::none : parity(y);
  const E sign = is_negative(x) && kind == Parity::odd ? E(-1) : E(1);
  if (x == 0) {
    if (y > 0) {
      *r = sign * E(0);
      return 0;
    }
    *r = is_infinite(y) ? sign * infinity<E> : sign / opaque(x * x);
    return sizeof(E) == 4 ? zymErrorDomain : zymErrorOverflow;
  }
  if (x == -1 && kind != Parity::none) {
    *r = sign;
    return 0;
  }
  const E ax = magnitude(x);
  if (is_infinite(x) || is_infinite(y)) {
    *r = (ax >= 1) == (y > 0) ? sign * infinity<E> : sign * E(0);
    return 0;
  }
  if (x < 0 && kind == Parity::none) {
    *r = opaque(E(0)) / opaque(E(0));
    return zymErrorDomain;
  }

  const HeadTail<E> log = log2_head_tail(ax);
  // By the exponents alone: far outside the format, or 1.
  const int exponents = exponent_of(log.head) + exponent_of(y);
  if (exponents >= 11) {
    if ((log.head > 0) == (y > 0)) return overflow_result(sign, r);
    return underflow_result(sign, r);
  }
  if (exponents <= -62) {
    *r = sign * (E(1) + opaque(float_of<E>(FloatFormat<E>::min_normal)));
    return 0;
  }
  const HeadTail<E> t = multiply(log, y);
  return exp2_result(t, sign, r);
}

}  // namespace orvik::zym

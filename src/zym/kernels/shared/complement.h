// Reciprocals by the complement of the exponent, for the errors of quotients and roots, of which a few digits count.
#pragma once

#include "lanes/lanes.h"

namespace orvik::zym {

// c/x of either sign, c by the complement as doubles have it (that of 1 is 0x7FDE6...); x normal with a normal c/x, of a
// zero a finite number.
template <uint64_t Complement, class V>
V near_reciprocal(V x) {
  constexpr uint64_t kComplement = Single<V> ? (Complement >> 29) - (uint64_t{2046 - 254} << 23) : Complement;
  return as_float(Integer<V>(Bits<V>(kComplement)) - as_bits(x));
}

// 1/x within 5 %; x normal with a normal reciprocal.
template <class V>
V complement_of_exponent(V x) {
  return near_reciprocal<0x7FDE600000000000u>(x);
}

// 1/(2 x) within 0.03 %. The complement is 2^(-1/2)/x, where it is off by 2 % at most, and one step of Newton's method
// squares that. Of a zero it is a finite number.
template <class V>
V rough_half_reciprocal(V x) {
  constexpr Bits<V> kComplement = Single<V> ? Bits<V>(0x7EB20B9Du) : Bits<V>(0x7FD64173B47EA166u);
  const V y = as_float(Integer<V>(kComplement) - as_bits(x));
  return y * fnma(x, y, V(Element<V>(0x1.6a09e667f3bcdp0)));
}

}  // namespace orvik::zym

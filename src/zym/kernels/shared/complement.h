// Reciprocals by the complement of the exponent, for the errors of quotients and roots, of which a few digits count.
#pragma once

#include "lanes/lanes.h"

namespace orvik::zym {

// 1/x within 5 %; x normal with a normal reciprocal.
template <class V>
V complement_of_exponent(V x) {
  constexpr Bits<V> kComplement = Single<V> ? Bits<V>(0x7EF30000u) : Bits<V>(0x7FDE600000000000u);
  return as_float(Integer<V>(kComplement) - as_bits(x));
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

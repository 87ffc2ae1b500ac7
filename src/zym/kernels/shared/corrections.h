// What kernels with a small correction to a leading term share.
#pragma once

#include <type_traits>

#include "lanes/lanes.h"

namespace orvik::zym {

// x^2 without underflow, also of the smallest x. With Flush it is 0 where it is far below what counts beside 1, so that
// a product with x does not underflow either.
template <bool Flush, class V>
V safe_square(V x) {
  const V tiny = V(Element<V>(Single<V> ? 0x1p-40 : 0x1p-80));
  const V z = fma(x, x, tiny);
  if constexpr (Flush) return z - tiny;
  return z;
}

// 1/x to 1.5 %, enough for corrections of half an ulp; x normal with a normal reciprocal.
template <class V>
V rough_reciprocal(V x) {
  if constexpr (Single<V> && !std::is_same_v<V, float>) {
    return reciprocal_estimate(x);
  } else {
    // The complement of the exponent is off by up to 12 %; one step of Newton's method squares that.
    constexpr Bits<V> kComplement = Single<V> ? Bits<V>(0x7EF311C3u) : Bits<V>(0x7FDE6238502484BAu);
    const V y = as_float(Integer<V>(kComplement) - as_bits(x));
    return y * fnma(x, y, V(Element<V>(2)));
  }
}

}  // namespace orvik::zym

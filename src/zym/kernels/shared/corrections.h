// What kernels with a small correction to a leading term share.
#pragma once

#include <type_traits>

#include "lanes/lanes.h"

namespace orvik::zym {

// x^2 without underflow, also of the smallest x. With Flush it is 0 where it is far below what counts beside 1, so that
// products of a few such factors do not underflow either.
template <bool Flush, class V>
V safe_square(V x) {
  const V tiny = V(Element<V>(Double<V> ? 0x1p-80 : Flush ? 0x1p-24 : 0x1p-40));
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

// (p(x) - p(0)) / x: for a kernel that adds the lowest term with an error of its own.
template <class V, size_t N>
V horner_but_lowest(V x, const Element<V> (&c)[N]) {
  V sum = V(c[0]);
  for (size_t i = 1; i + 1 < N; ++i) sum = fma(sum, x, V(c[i]));
  return sum;
}

}  // namespace orvik::zym

// The angle of complex numbers on the axes and beyond the range of the arc tangent's lanes: both parts are brought near
// 1 by one power of two. The larger one lies below 1/2 then, where its bits are less than those of 1: the lanes take them
// from a zero's without leaving the numbers.
#pragma once

#include "zym/kernels/arc/arc_tangent2.h"
#include "zym/kernels/complex/parts.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// 2^(-e - 2) of a positive normal number 2^e m, 1 <= m < 2, below 2^(bias - 3).
template <class V>
V inverse_scale(V x) {
  using I = Integer<V>;
  return as_float(I(Bits<V>(2 * Format<V>::bias - 2) << Format<V>::mantissa_bits) -
                  (as_bits(x) & I(Format<V>::exponent_field)));
}

// Serves numbers with a part of 0, and where the parts are not too far from each other; not 0, infinities, NaNs and
// what is next to the ends of the range.
template <Level L, class V>
Masked<V, Mask<V>> wide_angle(Pair<V> z) {
  using E = Element<V>;
  const V zero = V(E(0)), one = V(E(1));
  const Mask<V> limit = not_finite(z);  // a maximum with a NaN would be invalid
  const V x = magnitude(select(limit, one, z.first)), y = magnitude(select(limit, one, z.second));
  const V larger = max(x, y), smaller = min(x, y);
  const V low = V(E(Single<V> ? 0x1p-120f : 0x1p-1010)), high = V(E(Single<V> ? 0x1p120f : 0x1p1010));
  const V least = V(E(Single<V> ? 0x1p-38f : 0x1p-400)), apart = larger * least;
  const Mask<V> close = (larger >= low) & (larger <= high) & ((smaller == zero) | (smaller >= apart));
  const Mask<V> left = limit | complement(close);
  const V scale = inverse_scale(select(left, one, larger));
  const Pair<V> u = {select(left, one, z.first) * scale, select(left, one, z.second) * scale};
  // On the imaginary axis, of which the lanes do not know: a number that the right angle does not notice.
  const V beside = copy_sign(max(magnitude(u.first), least * V(E(0.25))), u.first);
  return {Atan2<V, L>::lanes(u.second, beside), left};
}

}  // namespace orvik::zym::complex

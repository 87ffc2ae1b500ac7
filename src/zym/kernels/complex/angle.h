// The angle of complex numbers on the axes and beyond the range of the arc tangent's lanes: both parts are brought near
// 1 by one power of two.
#pragma once

#include "zym/kernels/arc/arc_tangent2.h"
#include "zym/kernels/complex/parts.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// Serves numbers with a part of 0, and where the parts are not too far from each other; not 0, infinities, NaNs and
// what is next to the ends of the range.
template <Level L, class V>
Masked<V, Mask<V>> wide_angle(Pair<V> z) {
  const BroughtNear<V> b(z);
  // On the imaginary axis, of which the lanes do not know: a number that the right angle does not notice.
  const V beside = copy_sign(max(magnitude(b.z.first), V(BroughtNear<V>::kApart)), b.z.first);
  return {Atan2<V, L>::lanes(b.z.second, beside), b.left};
}

}  // namespace orvik::zym::complex

// a, no larger in magnitude than the bound, a positive number; a is no NaN.
#pragma once

#include "lanes/lanes.h"

namespace orvik {

template <class V>
[[gnu::always_inline]] inline V clamp_magnitude(V a, V bound) {
  return max(min(a, bound), V(Element<V>(0)) - bound);
}
#if ORVIK_REGISTER_BITS == 512
// By one instruction: of magnitudes the smaller, with the sign of the first.
inline constexpr int kSmallerMagnitude = 2 | 0 << 2;
inline F32 clamp_magnitude(F32 a, F32 bound) { return _mm512_range_ps(a.v, bound.v, kSmallerMagnitude); }
inline F64 clamp_magnitude(F64 a, F64 bound) { return _mm512_range_pd(a.v, bound.v, kSmallerMagnitude); }
template <class T>
[[gnu::always_inline]] inline Twice<T> clamp_magnitude(Twice<T> a, Twice<T> bound) {
  return {clamp_magnitude(a.low, bound.low), clamp_magnitude(a.high, bound.high)};
}
#endif

}  // namespace orvik

// The larger magnitude of two numbers; of a number and a NaN either one, without a flag where it is quiet.
#pragma once

#include "lanes/lanes.h"

namespace orvik {

template <class V>
[[gnu::always_inline]] inline V larger_magnitude(V a, V b) {
  return max(magnitude(a), magnitude(b));
}
#if ORVIK_REGISTER_BITS == 512
// By one instruction: of magnitudes the larger, without its sign.
inline constexpr int kLargerMagnitude = 3 | 2 << 2;
inline F32 larger_magnitude(F32 a, F32 b) { return _mm512_range_ps(a.v, b.v, kLargerMagnitude); }
inline F64 larger_magnitude(F64 a, F64 b) { return _mm512_range_pd(a.v, b.v, kLargerMagnitude); }
template <class T>
[[gnu::always_inline]] inline Twice<T> larger_magnitude(Twice<T> a, Twice<T> b) {
  return {larger_magnitude(a.low, b.low), larger_magnitude(a.high, b.high)};
}
#endif

}  // namespace orvik

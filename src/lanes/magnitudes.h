// Tests of sizes that take fewer instructions than those of which they are made.
#pragma once

#include <type_traits>

#include "lanes/lanes.h"
#include "lanes/twice.h"

namespace orvik {

// a >= 0 is below the bound but not 0, or a is a NaN.
#if ORVIK_REGISTER_BITS == 512
inline M32 small_or_nan(F32 a, F32 bound) {
  return M32(
      _mm512_mask_cmp_ps_mask(_mm512_cmp_ps_mask(a.v, bound.v, _CMP_NGE_UQ), a.v, _mm512_setzero_ps(), _CMP_NEQ_UQ));
}
inline M64 small_or_nan(F64 a, F64 bound) {
  return M64(
      _mm512_mask_cmp_pd_mask(_mm512_cmp_pd_mask(a.v, bound.v, _CMP_NGE_UQ), a.v, _mm512_setzero_pd(), _CMP_NEQ_UQ));
}
#else
inline M32 small_or_nan(F32 a, F32 bound) {
  return M32(
      _mm256_and_ps(_mm256_cmp_ps(a.v, bound.v, _CMP_NGE_UQ), _mm256_cmp_ps(a.v, _mm256_setzero_ps(), _CMP_NEQ_UQ)));
}
inline M64 small_or_nan(F64 a, F64 bound) {
  return M64(
      _mm256_and_pd(_mm256_cmp_pd(a.v, bound.v, _CMP_NGE_UQ), _mm256_cmp_pd(a.v, _mm256_setzero_pd(), _CMP_NEQ_UQ)));
}
#endif
template <class T>
[[gnu::always_inline]] inline auto small_or_nan(Twice<T> a, Twice<T> bound) {
  const auto low = small_or_nan(a.low, bound.low);
  return Twice<std::remove_const_t<decltype(low)>>{low, small_or_nan(a.high, bound.high)};
}

}  // namespace orvik

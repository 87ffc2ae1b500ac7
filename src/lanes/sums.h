// Sums over lanes, and single precision taken as double.
#pragma once

#include "lanes/vectors.h"

namespace orvik {

// The sum of all lanes, pairwise: those of the upper half to those of the lower one, again and again.
inline double horizontal_sum(F64 a) {
  const __m128d two = _mm_add_pd(_mm256_castpd256_pd128(a.v), _mm256_extractf128_pd(a.v, 1));
  return _mm_cvtsd_f64(_mm_add_sd(two, _mm_unpackhi_pd(two, two)));
}
inline float horizontal_sum(F32 a) {
  const __m128 four = _mm_add_ps(_mm256_castps256_ps128(a.v), _mm256_extractf128_ps(a.v, 1));
  const __m128 two = _mm_add_ps(four, _mm_movehl_ps(four, four));
  return _mm_cvtss_f32(_mm_add_ss(two, _mm_movehdup_ps(two)));
}

// Four elements as doubles: of single precision they are widened on their way from memory, which spares the shuffle
// that widening half a register takes.
inline F64 load_wide(const double* p) { return _mm256_loadu_pd(p); }
inline F64 load_wide(const float* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }

}  // namespace orvik

// Rounding to integers by the round instruction, in any direction; inexact is raised where the value changes, or
// hidden.
#pragma once

#include <cmath>

#include "lanes/twice.h"
#include "lanes/vectors.h"

namespace orvik {

enum class Direction : int {
  nearest = _MM_FROUND_TO_NEAREST_INT,
  down = _MM_FROUND_TO_NEG_INF,
  up = _MM_FROUND_TO_POS_INF,
  zero = _MM_FROUND_TO_ZERO,
  current = _MM_FROUND_CUR_DIRECTION,
};
enum class Inexact : int { raised = 0, hidden = _MM_FROUND_NO_EXC };

template <Direction D, Inexact I = Inexact::hidden>
inline F32 round(F32 a) {
  return round_by<static_cast<int>(D) | static_cast<int>(I)>(a);
}
template <Direction D, Inexact I = Inexact::hidden>
inline F64 round(F64 a) {
  return round_by<static_cast<int>(D) | static_cast<int>(I)>(a);
}
template <Direction D, Inexact I = Inexact::hidden, class V>
inline Twice<V> round(Twice<V> a) {
  return {round<D, I>(a.low), round<D, I>(a.high)};
}
template <Direction D, Inexact I = Inexact::hidden>
inline float round(float a) {
  const __m128 x = _mm_set_ss(a);
  return _mm_cvtss_f32(_mm_round_ss(x, x, static_cast<int>(D) | static_cast<int>(I)));
}
template <Direction D, Inexact I = Inexact::hidden>
inline double round(double a) {
  const __m128d x = _mm_set_sd(a);
  return _mm_cvtsd_f64(_mm_round_sd(x, x, static_cast<int>(D) | static_cast<int>(I)));
}

}  // namespace orvik

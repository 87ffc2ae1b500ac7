// Distributions of real numbers.
#include "front/random/draws.h"

using namespace orvik::front;

namespace {

constexpr int32_t kMostDimension = 1 << 20;

// Mean and factor of a multivariate normal: finite, and deviations not negative. The upper triangle is not read.
template <class T>
bool sound_factor(int64_t dimen, int32_t storage, const T* a, const T* t) {
  for (int64_t j = 0; j < dimen; ++j) {
    if (!finite(a[j])) return false;
    if (storage == ORVIK_FACTOR_DIAGONAL && !(t[j] >= 0 && finite(t[j]))) return false;
    if (storage == ORVIK_FACTOR_FULL) {
      for (int64_t k = 0; k <= j; ++k) {
        if (!finite(t[j * dimen + k])) return false;
      }
    }
  }
  for (int64_t k = 0; storage == ORVIK_FACTOR_PACKED && k < dimen * (dimen + 1) / 2; ++k) {
    if (!finite(t[k])) return false;
  }
  return dimen > 1 || t[0] > 0;
}

}  // namespace

extern "C" {

#define REAL double
#define NAME(name) orvik_d_##name
#define KERNEL(Name) _qordRng##Name
#include "front/random/real_draws.inc"
#undef KERNEL
#undef NAME
#undef REAL

#define REAL float
#define NAME(name) orvik_s_##name
#define KERNEL(Name) _qorsRng##Name
#include "front/random/real_draws.inc"
#undef KERNEL
#undef NAME
#undef REAL

}  // extern "C"

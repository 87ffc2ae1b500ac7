// The kernels' data fitting by element type.
#pragma once

#include "front/handles.h"
#include "front/math/extents.h"
#include "front/modes.h"
#include "front/pool.h"
#include "front/processor.h"
#include "orvik/df.h"

namespace orvik::front {

using Construct = int32_t (*)(OrvikDFTask, int64_t, int64_t, const OrvikDFServices*);

template <class T>
struct Fitting;
#define ORVIK_FRONT_KERNELS(T, d, bits)                                                           \
  template <>                                                                                     \
  struct Fitting<T> {                                                                             \
    static constexpr Kind kSpline = Kind::kSpline##bits;                                          \
    static constexpr auto new_task = orvik_df_kernel_##d##NewTask1D;                              \
    static constexpr auto edit_spline = orvik_df_kernel_##d##EditPPSpline1D;                      \
    static constexpr auto search = orvik_df_kernel_##d##DFSearch1D;                               \
    static constexpr auto interpolate = orvik_df_kernel_##d##DFInterpolate1D;                     \
    static constexpr auto integrate = orvik_df_kernel_##d##DFIntegrate1D;                         \
    /* By kind, ORVIK_LINEAR to ORVIK_QUADRATIC. */                                               \
    static constexpr Construct construct[] = {                                                    \
        orvik_df_kernel_##d##DFLinearSpline1D,       orvik_df_kernel_##d##DFHermiteCubicSpline1D, \
        orvik_df_kernel_##d##DFBesselCubicSpline1D,  orvik_df_kernel_##d##DFAkimaCubicSpline1D,   \
        orvik_df_kernel_##d##DFHymanCubicSpline1D,   orvik_df_kernel_##d##DFNaturalCubicSpline1D, \
        orvik_df_kernel_##d##DFDefaultCubicSpline1D, orvik_df_kernel_##d##DFQuadraticSpline1D};   \
  };
ORVIK_FRONT_KERNELS(double, d, 64)
ORVIK_FRONT_KERNELS(float, s, 32)
#undef ORVIK_FRONT_KERNELS

// The front's pool as the kernels' threads; sites are computed one by one, so that bits do not depend on it.
extern const OrvikDFServices kServices;

// x ascends strictly and holds no NaN; at least two.
template <class T>
bool ascends(int64_t nx, const T* x) {
  if (nx < 2) return false;
  for (int64_t i = 1; i < nx; ++i) {
    if (!(x[i - 1] < x[i])) return false;
  }
  return true;
}

// Sites in order are merged with the breakpoints instead of looked up, where they are as many; the cells are the same.
inline constexpr int64_t kAscendingSites = 64;

template <class T>
int64_t hint_of(int64_t nx, int64_t n, const T* t) {
  if (n < nx) return 0;
  constexpr int64_t kBlock = 512;
  for (int64_t begin = 1; begin < n; begin += kBlock) {
    const int64_t end = n - begin < kBlock ? n : begin + kBlock;
    bool ordered = true;
    for (int64_t i = begin; i < end; ++i) ordered &= t[i - 1] <= t[i];
    if (!ordered) return 0;
  }
  return kAscendingSites;
}

inline orvik_status fitting_status(int32_t status) { return status == DFS_NO_MEMORY ? ORVIK_ERROR_NO_MEMORY : status; }

}  // namespace orvik::front

// Search in a partition. The kernels give the last breakpoint the cell before it, and a NaN any cell: corrected here.
#include <algorithm>
#include <cmath>

#include "front/fitting/kernels.h"

namespace orvik::front {
namespace {

template <class T>
orvik_status search(int64_t nx, const T* x, int64_t n, const T* t, int64_t* cell) {
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (nx < 0 || n < 0 || nx > kAddressSpace / 8 || n > kAddressSpace / 8) return ORVIK_ERROR_BAD_LENGTH;
  if (nx < 2) return ORVIK_ERROR_NOT_SORTED;
  if (x == nullptr || (n > 0 && (t == nullptr || cell == nullptr))) return ORVIK_ERROR_NULL_POINTER;
  if (!ascends(nx, x)) return ORVIK_ERROR_NOT_SORTED;
  if (n == 0) return ORVIK_SUCCESS;
  const int64_t bytes = sizeof(T), cells = n * int64_t{sizeof(int64_t)};
  if (meet(t, n * bytes, cell, cells) || meet(x, nx * bytes, cell, cells)) return ORVIK_ERROR_OVERLAP;
  const KeepErrno keep;
  if (!std::isfinite(x[nx - 1] - x[0])) {  // the kernels' table needs a length
    for (int64_t i = 0; i < n; ++i) cell[i] = std::isnan(t[i]) ? nx : std::upper_bound(x, x + nx, t[i]) - x;
    return ORVIK_SUCCESS;
  }
  constexpr int32_t kWideCells = 3;
  OrvikDFTask task = nullptr;
  int32_t status = Fitting<T>::new_task(&task, nx, x, DF_PARTITION_NON_UNIFORM, 0, nullptr, 0, kWideCells);
  const int64_t hint = hint_of(nx, n, t);
  if (status == 0) status = Fitting<T>::search(task, 0, n, t, hint, nullptr, cell, nullptr, nullptr, &kServices);
  if (task != nullptr) orvik_df_kernel_DeleteTask(&task);
  for (int64_t i = 0; status == 0 && i < n; ++i) {
    if (!(t[i] < x[nx - 1])) cell[i] = nx;
  }
  return fitting_status(status);
}

}  // namespace
}  // namespace orvik::front

extern "C" {

orvik_status orvik_d_search(int64_t nx, const double* x, int64_t n, const double* t, int64_t* cell) {
  return orvik::front::search(nx, x, n, t, cell);
}
orvik_status orvik_s_search(int64_t nx, const float* x, int64_t n, const float* t, int64_t* cell) {
  return orvik::front::search(nx, x, n, t, cell);
}

}  // extern "C"

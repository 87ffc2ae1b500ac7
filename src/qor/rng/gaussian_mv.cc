// Multivariate Gaussian: a + L z for vectors z of unit normal numbers and a lower triangular factor L.
#include <algorithm>

#include "qor/rng/entry.h"
#include "qor/rng/gaussian.h"
#include "qor/rng/loops.h"
#include "serv/blas.h"

namespace orvik::qor {
namespace {

namespace blas = serv::blas;

// How the factor is stored; values of mstorage.
enum Storage : int32_t { kFull = 0, kPacked = 1, kDiagonal = 2 };

// Short rows are served several at a time, so that a pass over their columns is long enough for vectors.
constexpr int32_t kShortRows = 32;

template <class T>
void add_mean(int32_t n, T* r, int32_t dimen, const T* a) {
  const int32_t together = kShortRows / dimen;
  if (together > 1 && n > together) {
    T mean[kShortRows];
    const int32_t width = together * dimen;
    for (int32_t j = 0; j < width; ++j) mean[j] = a[j % dimen];
    for (; n >= together; n -= together, r += width)
      for (int32_t j = 0; j < width; ++j) r[j] += mean[j];
  }
  for (; n > 0; --n, r += dimen)
    for (int32_t j = 0; j < dimen; ++j) r[j] += a[j];
}

template <class T>
void scale_by_diagonal(int32_t n, T* r, int32_t dimen, const T* a, const T* t) {
  for (; n > 0; --n, r += dimen)
    for (int32_t j = 0; j < dimen; ++j) r[j] = std::fma(r[j], t[j], a[j]);
}

// The rows of a C array are the columns of BLAS: the upper triangle, transposed, is the lower one of the caller.
template <class T>
void multiply_full(int32_t n, T* r, int32_t dimen, const T* t) {
  blas::trmm<T>('L', 'U', 'T', 'N', dimen, n, 1, t, dimen, r, dimen);
}

// The packed factor has its columns one after another, as BLAS has them.
template <class T>
void multiply_packed(int32_t n, T* r, int32_t dimen, const T* t) {
  for (; n > 0; --n, r += dimen) blas::tpmv<T>('L', 'N', 'N', dimen, t, r, 1);
}

// Unit normal numbers; more than a count of 32 bits holds are drawn in parts that cut no pair.
template <class T>
int32_t unit_numbers(uint32_t method, OrvikStream stream, int64_t n, T* r) {
  constexpr int64_t kMost = int64_t{1} << 30;
  int32_t status;
  for (;; n -= kMost, r += kMost) {
    status = gaussian<T>(method, stream, static_cast<int32_t>(std::clamp(n, int64_t{-1}, kMost)), r, 0, 1);
    if (status < 0 || n <= kMost) return status;
  }
}

template <class T>
int32_t gaussian_mv(uint32_t method, OrvikStream stream, int32_t n, T* r, int32_t dimen, int32_t mstorage, const T* a,
                    const T* t) {
  if (dimen == 1) return gaussian(method, stream, n, r, a[0], t[0]);
  const bool has_product = mstorage == kFull || mstorage == kPacked;
  if (has_product && !blas::load()) return ORVIK_QOR_NO_BLAS;
  const int32_t status = unit_numbers(method, stream, int64_t{n} * dimen, r);
  if (status < 0 || n < 1 || dimen < 1) return status;
  if (mstorage == kDiagonal) scale_by_diagonal(n, r, dimen, a, t);
  if (mstorage == kFull) multiply_full(n, r, dimen, t);
  if (mstorage == kPacked) multiply_packed(n, r, dimen, t);
  if (has_product) add_mean(n, r, dimen, a);
  return status;
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngGaussianMV, gaussian_mv,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, int32_t dimen, int32_t mstorage,
                 const double* a, const double* t),
                (method, stream, n, r, dimen, mstorage, a, t))
ORVIK_QOR_ENTRY(_qorsRngGaussianMV, gaussian_mv,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, int32_t dimen, int32_t mstorage,
                 const float* a, const float* t),
                (method, stream, n, r, dimen, mstorage, a, t))

// Lognormal: the exponential function of normal numbers.
#include "orvik/qor.h"
#include "qor/rng/entry.h"
#include "qor/rng/gaussian.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"

namespace orvik::qor {
namespace {

// The whole method word decides: the clamp bit chooses the inverse method as well. That is required.
template <class T>
int32_t lognormal(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T sigma, T b, T beta) {
  const int32_t status = gaussian(method == 0 ? kBoxMullerPairs : kInverse, stream, n, r, a, sigma);
  if (status >= 0)
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::exp(count, x, x);
      scale_and_shift(method, count, x, beta, b);
    });
  return status;
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngLognormal, lognormal,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double sigma, double b,
                 double beta),
                (method, stream, n, r, a, sigma, b, beta))
ORVIK_QOR_ENTRY(_qorsRngLognormal, lognormal,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float sigma, float b, float beta),
                (method, stream, n, r, a, sigma, b, beta))

// Laplace: an exponential number and a sign, from two uniforms.
#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"
#include "qor/rng/vectors.h"

namespace orvik::qor {
namespace {

template <class T>
bool block(Uniforms<T>& uniforms, int32_t n, T* r, T a, T beta) {
  T w[2 * kBlock], u[kBlock], selector[kBlock];
  if (!uniforms.draw(2 * n, w)) return false;
  if (n < 0) return true;
  split(n, w, u, selector);
  kernels::ln(n, u, r);
  for (int32_t i = 0; i < n; ++i) r[i] = std::fma(selector[i] <= T(0.5) ? -beta : beta, r[i], a);
  return true;
}

// Whole blocks, then what is left, even when it is nothing: the last status counts.
template <class T>
int32_t laplace(uint32_t, OrvikStream stream, int32_t n, T* r, T a, T beta) {
  const EntryBracket bracket(always_ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  for (; n >= kBlock; n -= kBlock, r += kBlock)
    if (!block(uniforms, kBlock, r, a, beta)) return uniforms.status();
  static_cast<void>(block(uniforms, n % kBlock, r, a, beta));
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngLaplace, laplace,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qorsRngLaplace, laplace,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta),
                (method, stream, n, r, a, beta))

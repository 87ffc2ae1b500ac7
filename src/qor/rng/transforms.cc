// Distributions that are a chain of kernels over the array of uniforms: Cauchy, Exponential, Gumbel, Rayleigh, Weibull.
#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/exponential.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {

template <class T>
int32_t exponential(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T beta) {
  const EntryBracket bracket(always_ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  if (uniforms.draw(n, r))
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::ln(count, x, x);
      scale_and_shift(method, count, x, -beta, a);
    });
  return uniforms.status();
}
template int32_t exponential(uint32_t, OrvikStream, int32_t, double*, double, double);
template int32_t exponential(uint32_t, OrvikStream, int32_t, float*, float, float);

namespace {

template <class T>
int32_t cauchy(uint32_t, OrvikStream stream, int32_t n, T* r, T a, T beta) {
  Uniforms<T> uniforms(stream);
  if (uniforms.draw(n, r, -Precision<T>::kHalfPi, Precision<T>::kHalfPi))
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::tan(count, x, x);
      scale_and_shift(count, x, beta, a);
    });
  return uniforms.status();
}

template <class T>
int32_t gumbel(uint32_t, OrvikStream stream, int32_t n, T* r, T a, T beta) {
  const EntryBracket bracket(always_ln_of_zero<T>);
  const int32_t status = exponential<T>(0, stream, n, r, 0, 1);
  if (status >= 0)
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::ln(count, x, x);
      scale_and_shift(count, x, beta, a);
    });
  return status;
}

// The root of -ln u; what makes it a root of -2 ln u is the caller's beta.
template <class T>
int32_t rayleigh(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T beta) {
  const EntryBracket bracket(ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  if (uniforms.draw(n, r))
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::ln(count, x, x);
      negate(count, x);
      kernels::sqrt(count, x, x);
      scale_and_shift(method, count, x, beta, a);
    });
  return uniforms.status();
}

template <class T>
int32_t weibull(uint32_t method, OrvikStream stream, int32_t n, T* r, T alpha, T a, T beta) {
  const EntryBracket bracket(ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  if (uniforms.draw(n, r))
    in_passes(n, r, [=](int32_t count, T* x) {
      kernels::ln(count, x, x);
      negate(count, x);
      if (!(alpha == 1)) kernels::powx(count, x, 1 / alpha, x);
      scale_and_shift(method, count, x, beta, a);
    });
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngCauchy, cauchy,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qorsRngCauchy, cauchy, (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qordRngExponential, exponential,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qorsRngExponential, exponential,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qordRngGumbel, gumbel,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qorsRngGumbel, gumbel, (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qordRngRayleigh, rayleigh,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qorsRngRayleigh, rayleigh,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta),
                (method, stream, n, r, a, beta))
ORVIK_QOR_ENTRY(_qordRngWeibull, weibull,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double alpha, double a, double beta),
                (method, stream, n, r, alpha, a, beta))
ORVIK_QOR_ENTRY(_qorsRngWeibull, weibull,
                (uint32_t method, OrvikStream stream, int32_t n, float* r, float alpha, float a, float beta),
                (method, stream, n, r, alpha, a, beta))

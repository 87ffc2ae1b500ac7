// ChiSquare: many degrees of freedom are a Gamma shape, few of them the logarithm of a product of uniforms, and the
// square of a normal number where they are odd.
#include <cmath>
#include <iterator>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/gamma.h"
#include "qor/rng/gaussian.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

constexpr int32_t kMany = 16;

// r[i] = w[i factors] w[i factors + 1] ..., in order; the number of factors is known to the compiler.
template <int32_t factors, class T>
void multiply(int32_t n, const T* w, T* r) {
  for (int32_t i = 0; i < n; ++i, w += factors) {
    T product = w[0];
    for (int32_t k = 1; k < factors; ++k) product *= w[k];
    r[i] = product;
  }
}

// -2 ln of products of `factors` uniforms each, consecutive ones.
template <class T>
bool products(Uniforms<T>& uniforms, int32_t factors, int32_t n, T* r) {
  static constexpr void (*kMultiply[])(int32_t, const T*, T*) = {nullptr,        multiply<1, T>, multiply<2, T>,
                                                                 multiply<3, T>, multiply<4, T>, multiply<5, T>,
                                                                 multiply<6, T>, multiply<7, T>};
  static_assert(std::size(kMultiply) == kMany / 2);
  T w[kMany / 2 * kBlock];
  if (!uniforms.draw(factors * n, w)) return false;
  kMultiply[factors](n, w, r);
  kernels::ln.call(Level::enhanced, n, r, r);  // of both precisions
  transform(n, r, [](T x) { return -2 * x; });
  return true;
}

template <class T>
int32_t chi_square(uint32_t, OrvikStream stream, int32_t n, T* r, int32_t degrees) {
  if (degrees >= kMany) return gamma<T>(0, stream, n, r, T(0.5) * static_cast<T>(degrees), 0, 2);
  const EntryBracket bracket(ln_of_zero<T>);
  Uniforms<T> uniforms(stream);
  for_each_block(n, [&](int32_t first, int32_t count) {
    T* const out = r + first;
    if (degrees > 1 && !products(uniforms, degrees / 2, count, out)) return false;
    if (degrees % 2 == 0) return true;
    T z[kBlock];
    if (!uniforms.took(gaussian<T>(kBoxMuller, stream, count, z, 0, 1))) return false;
    for (int32_t i = 0; i < count; ++i) out[i] = degrees > 1 ? std::fma(z[i], z[i], out[i]) : z[i] * z[i];
    return true;
  });
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngChiSquare, chi_square, (uint32_t method, OrvikStream stream, int32_t n, double* r, int32_t v),
                (method, stream, n, r, v))
ORVIK_QOR_ENTRY(_qorsRngChiSquare, chi_square, (uint32_t method, OrvikStream stream, int32_t n, float* r, int32_t v),
                (method, stream, n, r, v))

// Bernoulli and Geometric: one uniform a number.
#include <bit>
#include <cmath>
#include <limits>

#include "orvik/qor.h"
#include "qor/rng/bracket.h"
#include "qor/rng/callbacks.h"
#include "qor/rng/entry.h"
#include "qor/rng/kernels.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

// Of numbers that are not negative the order is that of their patterns.
int32_t bernoulli(uint32_t, OrvikStream stream, int32_t n, int32_t* r, double p) {
  float* const u = reinterpret_cast<float*>(r);
  Uniforms<float> uniforms(stream);
  if (!uniforms.draw(n, u)) return uniforms.status();
  const int32_t limit = std::bit_cast<int32_t>(static_cast<float>(p));
  for (int32_t i = 0; i < n; ++i) {
    const int32_t pattern = std::bit_cast<int32_t>(u[i]);
    r[i] = pattern < limit ? 1 : 0;
  }
  return uniforms.status();
}

int32_t geometric(uint32_t, OrvikStream stream, int32_t n, int32_t* r, double p) {
  const EntryBracket bracket(ln_of_zero<float>);
  Uniforms<float> uniforms(stream);
  const float c = -std::fabs(static_cast<float>(1 / kernels::ln.high(1 - p)));  // ln 1 is +0
  float u[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, u)) return false;
    kernels::ln(count, u, u);
    for (int32_t i = 0; i < count; ++i) {
      const float number = std::floor(c * u[i]);
      const bool fits = number < 0x1p31f;
      const auto integer = static_cast<int32_t>(fits ? number : 0);
      r[first + i] = fits ? integer : std::numeric_limits<int32_t>::max();
    }
    return true;
  });
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qoriRngBernoulli, bernoulli, (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double p),
                (method, stream, n, r, p))
ORVIK_QOR_ENTRY(_qoriRngGeometric, geometric, (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double p),
                (method, stream, n, r, p))

// Uniform: floats and doubles as the generator gives them, and integers by way of the doubles.
#include <cmath>

#include "orvik/qor.h"
#include "qor/rng/entry.h"
#include "qor/rng/loops.h"
#include "qor/rng/uniforms.h"

namespace orvik::qor {
namespace {

// Generators that round up can give numbers outside the interval. A NaN stays.
template <class T>
void clamp(int32_t n, T* r, T a, T b) {
  transform(n, r, [=](T x) {
    const T least = a > x ? a : x;
    return least > b ? b : least;
  });
}

template <class T>
int32_t uniform(uint32_t method, OrvikStream stream, int32_t n, T* r, T a, T b) {
  const int32_t status = fill_uniform(stream, n, r, a, b);
  if (status >= 0 && (method & kClamp) != 0) clamp(n, r, a, b);
  return status;
}

int32_t integers(uint32_t, OrvikStream stream, int32_t n, int32_t* r, double a, double b) {
  Uniforms<double> uniforms(stream);
  double buffer[kBlock];
  for_each_block(n, [&](int32_t first, int32_t count) {
    if (!uniforms.draw(count, buffer, a, b)) return false;
    for (int32_t i = 0; i < count; ++i) r[first + i] = static_cast<int32_t>(std::floor(buffer[i]));
    return true;
  });
  return uniforms.status();
}

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_ENTRY(_qordRngUniform, uniform,
                (uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double b),
                (method, stream, n, r, a, b))
ORVIK_QOR_ENTRY(_qorsRngUniform, uniform, (uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float b),
                (method, stream, n, r, a, b))
ORVIK_QOR_ENTRY(_qoriRngUniform, integers,
                (uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t a, int32_t b),
                (method, stream, n, r, a, b))

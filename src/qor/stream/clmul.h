// Products of polynomials over GF(2), held in 64-bit words, lowest coefficient in bit 0.
#pragma once

#include <stdint.h>

namespace orvik::qor {

// Words of scratch that a product of n-word factors needs.
constexpr int64_t clmul_scratch(int64_t n) { return 6 * n; }

// out (2 n words) = a b. `out` and `scratch` overlap nothing else.
void clmul(uint64_t* out, const uint64_t* a, const uint64_t* b, int64_t n, uint64_t* scratch);

// out (2 n words) = a^2.
void clsquare(uint64_t* out, const uint64_t* a, int64_t n);

}  // namespace orvik::qor

// Powers modulo a number, and of the companion matrix of a third-order recurrence.
#include <string.h>

#include "qor/stream/matrix3.h"

using namespace orvik::qor;

namespace {

// Applies the 2^i-th powers that the set bits of n ask for, one after the other; the powers come from a table.
template <uint32_t kModulus>
int32_t apply_powers(uint32_t* v, int32_t words, const uint64_t* n, const uint32_t* powers) {
  uint32_t moved[3] = {v[0], v[1], v[2]};
  for (int32_t w = 0; w < words && w < 3; ++w)
    for (uint64_t bits = n[w]; bits != 0; bits &= bits - 1) {
      Matrix3 power;
      memcpy(power.m, powers + 9 * (64 * w + __builtin_ctzll(bits)), sizeof power.m);
      apply(power, moved, kModulus);
    }
  memcpy(v, moved, sizeof moved);
  return ORVIK_QOR_OK;
}

}  // namespace

extern "C" {

uint32_t __qoriPowMod(uint32_t a, uint64_t n, uint32_t m) {
  uint64_t result = 1, power = a % m;
  for (; n != 0; n >>= 1) {
    if (n & 1) result = result * power % m;
    power = power * power % m;
  }
  return static_cast<uint32_t>(result);
}

int32_t __qoriVect3PowMod(uint32_t* v, const uint32_t* c, uint32_t m, uint64_t n) {
  return __qoriVect3PowArrayMod(v, c, m, 1, &n);
}

int32_t __qoriVect3PowArrayMod(uint32_t* v, const uint32_t* c, uint32_t m, int32_t words, const uint64_t* n) {
  Matrix3 power = companion(c);
  uint32_t moved[3] = {v[0], v[1], v[2]};
  for (; words > 0 && n[words - 1] == 0;) --words;  // nothing is squared for zeros at the end
  for (int32_t w = 0; w < words; ++w)
    for (int bit = 0; bit < 64; ++bit) {
      if (n[w] >> bit & 1) apply(power, moved, m);
      if (w == words - 1 && n[w] >> bit <= 1) break;
      power = multiply(power, power, m);
    }
  memcpy(v, moved, sizeof moved);
  return ORVIK_QOR_OK;
}

int32_t __qoriVect3PowArrayMod_M1(uint32_t* v, int32_t words, const uint64_t* n, const uint32_t* powers) {
  return apply_powers<kMrgModulus1>(v, words, n, powers);
}

int32_t __qoriVect3PowArrayMod_M2(uint32_t* v, int32_t words, const uint64_t* n, const uint32_t* powers) {
  return apply_powers<kMrgModulus2>(v, words, n, powers);
}

}  // extern "C"

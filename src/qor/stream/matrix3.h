// 3x3 matrices modulo a 32-bit number, and the tables of powers for the long jumps of third-order recurrences.
#pragma once

#include <stdint.h>

#include "orvik/qor.h"

namespace orvik::qor {

struct Matrix3 {
  uint32_t m[9];  // row by row
};

// For the moduli known at compile time the remainders become multiplications.
constexpr uint32_t kMrgModulus1 = 4294967087u, kMrgModulus2 = 4294944443u;

constexpr Matrix3 identity3() { return {{1, 0, 0, 0, 1, 0, 0, 0, 1}}; }

// Moves (oldest, middle, newest) one step on; c are the coefficients of the newest, middle and oldest member.
constexpr Matrix3 companion(const uint32_t* c) { return {{0, 1, 0, 0, 0, 1, c[2], c[1], c[0]}}; }

constexpr uint32_t dot3(const uint32_t* row, uint64_t x, uint64_t y, uint64_t z, uint32_t modulus) {
  return static_cast<uint32_t>((row[0] * x % modulus + row[1] * y % modulus + row[2] * z % modulus) % modulus);
}

constexpr Matrix3 multiply(const Matrix3& a, const Matrix3& b, uint32_t modulus) {
  Matrix3 r = {};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r.m[3 * i + j] = dot3(a.m + 3 * i, b.m[j], b.m[3 + j], b.m[6 + j], modulus);
  return r;
}

constexpr void apply(const Matrix3& a, uint32_t* v, uint32_t modulus) {
  const uint64_t x = v[0], y = v[1], z = v[2];
  for (int i = 0; i < 3; ++i) v[i] = dot3(a.m + 3 * i, x, y, z, modulus);
}

// A^(2^i), i = 0 to 192.
struct PowerTable {
  Matrix3 power[193];
  const uint32_t* data() const { return power[0].m; }
};

constexpr PowerTable make_powers(const uint32_t* c, uint32_t modulus) {
  PowerTable t = {};
  t.power[0] = companion(c);
  for (int i = 1; i < 193; ++i) t.power[i] = multiply(t.power[i - 1], t.power[i - 1], modulus);
  return t;
}

}  // namespace orvik::qor

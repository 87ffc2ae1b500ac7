// Polynomials on eight intervals, in registers: one look-up a coefficient.
#pragma once

#include <cstddef>

#include "lanes/lanes.h"

namespace orvik::zym {

// A register for each power, highest first, of polynomials that stand in rows, times `scale`. Row i is number i + first,
// modulo 8.
template <size_t N>
struct Octets {
  alignas(32) float power[N][8];

  explicit constexpr Octets(const float (&rows)[8][N], size_t first = 0, float scale = 1) : power{} {
    for (size_t k = 0; k < N; ++k) {
      for (size_t i = 0; i < 8; ++i) power[k][(i + first) % 8] = rows[i][k] * scale;
    }
  }
};

// The polynomial whose number is in the low three bits of `row`.
template <Single V, size_t N>
[[gnu::always_inline]] inline V octet_polynomial(V x, const Octets<N>& c, Integer<V> row) {
  V sum = look_up(octet_table<V>(c.power[0]), row);
  for (size_t k = 1; k < N; ++k) sum = fma(sum, x, look_up(octet_table<V>(c.power[k]), row));
  return sum;
}

}  // namespace orvik::zym

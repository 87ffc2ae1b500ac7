// Polynomials on eight intervals, in registers: one look-up a coefficient.
#pragma once

#include <cstddef>

#include "lanes/lanes.h"
#include "zym/kernels/shared/corrections.h"

namespace orvik::zym {

// A register for each power, highest first, of polynomials that stand in rows, times `scale`. Row i is number i +
// first, modulo 8.
template <size_t N>
struct Octets {
  alignas(32) float power[N][8];

  explicit constexpr Octets(const float (&rows)[8][N], size_t first = 0, float scale = 1) : power{} {
    for (size_t k = 0; k < N; ++k) {
      for (size_t i = 0; i < 8; ++i) power[k][(i + first) % 8] = rows[i][k] * scale;
    }
  }
  // Row 0 is x slope + x^2 p(x).
  constexpr Octets(const float (&p)[N > 2 ? N - 2 : 1], float slope, const float (&others)[7][N], size_t first)
      : power{} {
    for (size_t k = 0; k < N; ++k) {
      power[k][first] = k < N - 2 ? p[k] : k == N - 2 ? slope : 0;
      for (size_t i = 1; i < 8; ++i) power[k][(i + first) % 8] = others[i - 1][k];
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

// Eight polynomials about centres at which value and slope are floats nearly: a line each, and what bends it. The first
// row's line is x.
template <size_t N>
struct OctetNodes {
  Octets<2> lines;
  Octets<N> bends;

  constexpr OctetNodes(const float (&given)[7][2], const float (&rows)[7][N], const float (&p)[N], size_t first)
      : lines(with_first<2>({1, 0}, given).of, first), bends(with_first<N>(p, rows).of, first) {}

 private:
  template <size_t M>
  struct Rows {
    float of[8][M];
  };
  template <size_t M>
  static constexpr Rows<M> with_first(const float (&p)[M], const float (&others)[7][M]) {
    Rows<M> rows{};
    for (size_t k = 0; k < M; ++k) {
      rows.of[0][k] = p[k];
      for (size_t i = 1; i < 8; ++i) rows.of[i][k] = others[i - 1][k];
    }
    return rows;
  }
};

// What is far below the last place of the first row's x leaves a tail: products with it would underflow.
template <Single V>
[[gnu::always_inline]] inline V octet_flushed(V x) {
  const V flush = V(0x1.8p-13f);
  return (x + flush) - flush;
}

// Their sum as head and tail.
template <Single V, size_t N>
[[gnu::always_inline]] inline HeadTail<V> octet_sum(V x, const OctetNodes<N>& c, Integer<V> row) {
  const auto of_row = [&](const float(&power)[8]) __attribute__((always_inline)) {
    return look_up(octet_table<V>(power), row);
  };
  const V slope = of_row(c.lines.power[0]), value = of_row(c.lines.power[1]);
  const V head = fma(slope, x, value);
  const V lost = fma(slope, x, value - head);
  const V s = octet_flushed(x);
  return {head, fma(octet_polynomial(s, c.bends, row) * s, s, lost)};
}

}  // namespace orvik::zym

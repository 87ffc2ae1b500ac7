// Tables of sixteen rows and up to four columns, found by the low four bits of an index: a permutation of registers a
// column where lanes have one, else rows of memory.
#pragma once

#include <cstddef>

#include "lanes/lanes.h"
#include "lanes/register_tables.h"

namespace orvik::zym {

template <class E, size_t N>
struct SixteenRows {
  alignas(64) E columns[N][16];
  alignas(64) E rows[16][4];

  template <class Column>  // what column c has in row i
  explicit constexpr SixteenRows(Column column) : columns{}, rows{} {
    for (size_t c = 0; c < N; ++c) {
      for (size_t i = 0; i < 16; ++i) rows[i][c] = columns[c][i] = column(c, i);
    }
  }
};

template <Single V, size_t N>
[[gnu::always_inline]] inline Quad<V> look_up_row(const SixteenRows<float, N>& table, Integer<V> index) {
  Quad<V> row = {};
  for (size_t c = 0; c < N; ++c) row.c[c] = look_up_16<V>(table.columns[c], index);
  return row;
}
template <Double V, size_t N>
[[gnu::always_inline]] inline Quad<V> look_up_row(const SixteenRows<double, N>& table, Integer<V> index) {
  if constexpr (kHasPermutes64<V>) {
    Quad<V> row = {};
    for (size_t c = 0; c < N; ++c) row.c[c] = look_up_in_16(table.columns[c], index);
    return row;
  } else {
    return gather(table.rows, indices(index & Integer<V>(uint64_t{15})));
  }
}

}  // namespace orvik::zym

// Look-ups by lane: in a register, in memory.
#pragma once

#include <cstdint>

#include "lanes/twice.h"
#include "lanes/vectors.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/tables.h"
#else
#include "lanes/narrow/tables.h"
#endif

namespace orvik {

// --- in registers ---------------------------------------------------------------------------------------------------

// A table of four or eight floats, or of their bits, as often as it fits the lanes.
template <class V>
inline V quad_table(const float (&table)[4]) {
  if constexpr (std::is_same_v<V, F32>) {
    return quad_register(table);
  } else {
    return V(quad_table<F32>(table));
  }
}
template <class V>
inline V octet_table(const float* table) {
  if constexpr (std::is_same_v<V, F32>) {
    return octet_register(table);
  } else {
    return V(octet_table<F32>(table));
  }
}
template <class V>
inline Integer<V> octet_table(const uint32_t* table) {  // of 32-bit words, whatever the lanes' width
  if constexpr (std::is_same_v<V, F32> || std::is_same_v<V, F64>) {
    return octet_register(table);
  } else {
    return Integer<V>(octet_table<decltype(V::low)>(table));
  }
}

template <class T, class I>
inline Twice<T> select_in_quad(Twice<T> table, Twice<I> index) {
  return {select_in_quad(table.low, index.low), select_in_quad(table.high, index.high)};
}

template <class T, class I>
inline Twice<T> look_up(Twice<T> table, Twice<I> index) {
  return {look_up(table.low, index.low), look_up(table.high, index.high)};
}

// One of sixteen floats by the low four bits of the index.
template <class V>
inline V look_up_16(const float* table, Integer<V> index) {
  if constexpr (std::is_same_v<V, F32>) {
    return look_up_in_sixteen(table, index);
  } else {
    using Half = decltype(V::low);
    return {look_up_16<Half>(table, index.low), look_up_16<Half>(table, index.high)};
  }
}

// --- in memory ------------------------------------------------------------------------------------------------------

inline Indices indices(I64 index) { return Indices(index); }
inline Indices indices(I32Half index) { return Indices(index); }
inline int64_t indices(uint64_t index) { return static_cast<int64_t>(index); }  // of one element
inline Twice<Indices> indices(Twice<I64> index) { return {Indices(index.low), Indices(index.high)}; }
inline Twice<Indices> indices(Twice<I32Half> index) { return {Indices(index.low), Indices(index.high)}; }

// The same for several look-ups of rows of two or four elements.
template <class I>
inline RowIndices row_indices(I index) {
  return RowIndices(Indices(index));
}
template <class I>
inline Twice<RowIndices> row_indices(Twice<I> index) {
  return {row_indices(index.low), row_indices(index.high)};
}
inline int64_t row_indices(uint64_t index) { return indices(index); }

inline Quad<Twice<F32>> gather(const float (*table)[4], Twice<I32> index) {
  const Quad<F32> low = gather(table, index.low), high = gather(table, index.high);
  return {{{low.c[0], high.c[0]}, {low.c[1], high.c[1]}, {low.c[2], high.c[2]}, {low.c[3], high.c[3]}}};
}
template <int First = 0, class At>
inline Twice<F64> gather(const double* table, const Twice<At>& k) {
  return {gather<First>(table, k.low), gather<First>(table, k.high)};
}
template <int First = 0, class At>
inline Pair<Twice<F64>> gather(const double (*table)[2], const Twice<At>& k) {
  const RowIndices &low_rows = k.low, &high_rows = k.high;  // both at first: they pass through memory
  const Pair<F64> low = gather<First>(table, low_rows), high = gather<First>(table, high_rows);
  return {{low.first, high.first}, {low.second, high.second}};
}
template <int First = 0, class At>
inline Quad<Twice<F64>> gather(const double (*table)[4], const Twice<At>& k) {
  const RowIndices &low_rows = k.low, &high_rows = k.high;
  const Quad<F64> low = gather<First>(table, low_rows), high = gather<First>(table, high_rows);
  return {{{low.c[0], high.c[0]}, {low.c[1], high.c[1]}, {low.c[2], high.c[2]}, {low.c[3], high.c[3]}}};
}
template <int First = 0, class At>
inline Twice<F64> gather_first(const double (*table)[2], const Twice<At>& k) {
  return {gather_first<First>(table, k.low), gather_first<First>(table, k.high)};
}
template <class At>
inline Quad<Twice<F64>> gather_two_rows(const double (*table)[2], const Twice<At>& k) {
  const Quad<F64> low = gather_two_rows(table, k.low), high = gather_two_rows(table, k.high);
  return {{{low.c[0], high.c[0]}, {low.c[1], high.c[1]}, {low.c[2], high.c[2]}, {low.c[3], high.c[3]}}};
}
// Rows of one element.
template <int First = 0>
inline double gather(const double* table, int64_t k) {
  return table[k - First];
}
template <int First = 0>
inline Pair<double> gather(const double (*table)[2], int64_t k) {
  const double* row = table[k - First];
  return {row[0], row[1]};
}
template <int First = 0>
inline double gather_first(const double (*table)[2], int64_t k) {
  return table[k - First][0];
}
template <int First = 0>
inline Quad<double> gather(const double (*table)[4], int64_t k) {
  const double* row = table[k - First];
  return {{row[0], row[1], row[2], row[3]}};
}

// Rows k to k + N - 1 of a table of 16-byte rows: take(j, columns of row k + j).
template <int N, class At, class Take>
[[gnu::always_inline]] inline void gather_rows(const double (*table)[2], const At& k, Take take) {
  constexpr int kByTwo = kGathersTwoRows && !std::is_same_v<At, int64_t> ? N / 2 * 2 : 0;
#pragma GCC unroll 8
  for (int j = 0; j < kByTwo; j += 2) {
    if constexpr (kByTwo > 0) {
      const auto rows = gather_two_rows(table + j, k);
      using V = std::remove_cvref_t<decltype(rows.c[0])>;
      take(j, Pair<V>{rows.c[0], rows.c[1]});
      take(j + 1, Pair<V>{rows.c[2], rows.c[3]});
    }
  }
#pragma GCC unroll 8
  for (int j = kByTwo; j < N; ++j) take(j, gather(table + j, k));
}

}  // namespace orvik

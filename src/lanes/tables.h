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

template <int First = 0>
inline Twice<F32> gather(const float* table, Twice<I32> index) {
  return {gather<First>(table, index.low), gather<First>(table, index.high)};
}
template <int First = 0>
inline Twice<F64> gather(const double* table, Twice<Indices> k) {
  return {gather<First>(table, k.low), gather<First>(table, k.high)};
}
template <int First = 0>
inline Pair<Twice<F64>> gather(const double (*table)[2], Twice<Indices> k) {
  const Pair<F64> low = gather<First>(table, k.low), high = gather<First>(table, k.high);
  return {{low.first, high.first}, {low.second, high.second}};
}
template <int First = 0>
inline Quad<Twice<F64>> gather(const double (*table)[4], Twice<Indices> k) {
  const Quad<F64> low = gather<First>(table, k.low), high = gather<First>(table, k.high);
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
inline Quad<double> gather(const double (*table)[4], int64_t k) {
  const double* row = table[k - First];
  return {{row[0], row[1], row[2], row[3]}};
}

}  // namespace orvik

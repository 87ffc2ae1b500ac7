// Tables of doubles in registers: lanes of 512 bits permute eight or sixteen of them. Where kHasPermutes64 is false the
// same numbers are to come from memory.
#pragma once

#include "lanes/tables.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/register_tables.h"
#endif

namespace orvik {

template <class V>
inline constexpr bool kHasPermutes64 = sizeof(V) == 64 && std::is_same_v<V, VectorOf<Element<V>>>;
template <class V>
inline constexpr bool kHasPermutes64<Twice<V>> = kHasPermutes64<V>;

template <class I>
inline auto look_up_in_8(const double* table, Twice<I> index) {
  using R = decltype(look_up_in_8(table, index.low));
  return Twice<R>{look_up_in_8(table, index.low), look_up_in_8(table, index.high)};
}
template <class I>
inline auto look_up_in_16(const double* table, Twice<I> index) {
  using R = decltype(look_up_in_16(table, index.low));
  return Twice<R>{look_up_in_16(table, index.low), look_up_in_16(table, index.high)};
}

}  // namespace orvik

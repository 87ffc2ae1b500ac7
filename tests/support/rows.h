// Typed calls through the slots of the dispatch table, over the list of rows.
#pragma once

#include <cstdint>
#include <type_traits>

#include "tools/rows/list.h"

namespace orvik::test {

using rows::kLevelNames;
using rows::Row;
using rows::Shape;

// The arrays of a call. Steps count for strided calls only; b, r2 where the shape has them.
template <class E>
struct Call {
  int32_t n = 0;
  const E* a = nullptr;
  const E* b = nullptr;
  E* r1 = nullptr;
  E* r2 = nullptr;
  int32_t incA = 1, incB = 1, incR1 = 1, incR2 = 1;
  E fraction[4] = {E(1.25), E(-0.5), E(0.75), E(2.0)};  // LinearFrac: scaleA, shiftA, scaleB, shiftB; Powx: the first
};

// Calls the kernel of a level; false where the row has no arrays of E (data movers, other precisions).
template <class E>
bool call_row(const Row& row, int level, bool strided, const Call<E>& c) {
  if (row.precision != (std::is_same_v<E, float> ? 's' : 'd') || row.shape == Shape::pack) return false;
  rows::Call call;
  call.a = c.a, call.b = c.b, call.r1 = c.r1, call.r2 = c.r2;
  call.incA = c.incA, call.incB = c.incB, call.incR1 = c.incR1, call.incR2 = c.incR2;
  for (int i = 0; i < 4; ++i) call.scalars[i] = static_cast<double>(c.fraction[i]);
  void* kernel = rows::table_row(row.index + (strided ? rows::kUnitRows : 0))[level];
  rows::with_call(row, kernel, strided, call, [&](auto function) { function(c.n); });
  return true;
}

}  // namespace orvik::test

// The arrays of one kernel call.
#pragma once

#include <cstdint>

namespace orvik::zym {

// Base pointers and steps in elements. Unit stride has steps of 1, a scalar operand a step of 0.
template <class E, int In, int Out>
struct Operands {
  const E* in[In];
  int64_t in_step[In];
  E* out[Out];
  int64_t out_step[Out];
};

// How a kernel reaches its arrays, known at compile time.
struct UnitStride {
  static constexpr bool strided = false;
};
struct Strided {
  static constexpr bool strided = true;
};

template <class V>
struct Pair {  // the lanes of a function of two results
  V first, second;
};

}  // namespace orvik::zym

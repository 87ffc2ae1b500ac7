// Sums and products whose operands stay in their order, of lanes and of numbers.
#pragma once

#include "lanes/lanes.h"
#include "lanes/ordered_numbers.h"

namespace orvik {

#define ORVIK_ORDERED(name, instruction)                                \
  inline F32 name(F32 a, F32 b) {                                       \
    asm(instruction "ps %2, %1, %0" : "=v"(a.v) : "v"(a.v), "vm"(b.v)); \
    return a;                                                           \
  }                                                                     \
  inline F64 name(F64 a, F64 b) {                                       \
    asm(instruction "pd %2, %1, %0" : "=v"(a.v) : "v"(a.v), "vm"(b.v)); \
    return a;                                                           \
  }                                                                     \
  template <class T>                                                    \
  inline Twice<T> name(Twice<T> a, Twice<T> b) {                        \
    return {name(a.low, b.low), name(a.high, b.high)};                  \
  }
ORVIK_ORDERED(ordered_sum, "vadd")
ORVIK_ORDERED(ordered_product, "vmul")
#undef ORVIK_ORDERED

}  // namespace orvik

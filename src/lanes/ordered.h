// Sums and products whose operands stay in their order. Of two NaNs the instruction returns the first; the compiler,
// which holds the operations for commutative, would take the one that suits its registers.
#pragma once

#include "lanes/lanes.h"

namespace orvik {

#define ORVIK_ORDERED(name, instruction)                                \
  inline float name(float a, float b) {                                 \
    asm(instruction "ss %2, %1, %0" : "=x"(a) : "x"(a), "xm"(b));       \
    return a;                                                           \
  }                                                                     \
  inline double name(double a, double b) {                              \
    asm(instruction "sd %2, %1, %0" : "=x"(a) : "x"(a), "xm"(b));       \
    return a;                                                           \
  }                                                                     \
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

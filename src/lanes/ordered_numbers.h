// Sums and products of two numbers whose operands stay in their order (ordered.h has those of lanes). Of two NaNs the
// instruction returns the first; the compiler, which holds the operations for commutative, would take the one that
// suits its registers.
#pragma once

namespace orvik {

#define ORVIK_ORDERED(name, instruction)                          \
  inline float name(float a, float b) {                           \
    asm(instruction "ss %2, %1, %0" : "=x"(a) : "x"(a), "xm"(b)); \
    return a;                                                     \
  }                                                               \
  inline double name(double a, double b) {                        \
    asm(instruction "sd %2, %1, %0" : "=x"(a) : "x"(a), "xm"(b)); \
    return a;                                                     \
  }
ORVIK_ORDERED(ordered_sum, "vadd")
ORVIK_ORDERED(ordered_product, "vmul")
#undef ORVIK_ORDERED

}  // namespace orvik

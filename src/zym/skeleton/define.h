// Defines the kernels of a row: ORVIK_ZYM_KERNELS(sExp, Exp) makes each kernel that the list of rows asks for, unit
// stride and strided, out of the template Exp<V, Level>. The data movers have no lanes and define their kernels
// themselves.
#pragma once

#include "orvik/zym_types.h"
#include "zym/skeleton/kernel.h"
#include "zym_kernels.h"  // generated

#define ORVIK_ZYM_LANES_s ::orvik::zym::F32
#define ORVIK_ZYM_LANES_d ::orvik::zym::F64
#define ORVIK_ZYM_ELEMENT_s float
#define ORVIK_ZYM_ELEMENT_d double

#define ORVIK_ZYM_RUN(p, Name, L, Fn, In, Out, Access, ScalarB, ...)                                  \
  ::orvik::zym::Kernel<Fn<ORVIK_ZYM_LANES_##p, ::orvik::zym::Level::L>, ORVIK_ZYM_LANES_##p, In, Out, \
                       ::orvik::zym::Access, ScalarB>::run("v" #p #Name, __VA_ARGS__)

#define ORVIK_ZYM_KERNEL_unary(p, Name, L, Fn) ORVIK_ZYM_UNARY(ORVIK_ZYM_ELEMENT_##p, p, Name, L, Fn)
#define ORVIK_ZYM_UNARY(E, p, Name, L, Fn)                                                              \
  extern "C" void orvik_zym_##p##Name##_##L(int32_t n, const E* a, E* r) {                              \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 1, 1, UnitStride, false, n, {{a}, {1}, {r}, {1}});                    \
  }                                                                                                     \
  extern "C" void orvik_zym_##p##Name##I_##L(int32_t n, const E* a, int32_t incA, E* r, int32_t incR) { \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 1, 1, Strided, false, n, {{a}, {incA}, {r}, {incR}});                 \
  }

#define ORVIK_ZYM_KERNEL_binary(p, Name, L, Fn) ORVIK_ZYM_BINARY(ORVIK_ZYM_ELEMENT_##p, p, Name, L, Fn)
#define ORVIK_ZYM_BINARY(E, p, Name, L, Fn)                                                                       \
  extern "C" void orvik_zym_##p##Name##_##L(int32_t n, const E* a, const E* b, E* r) {                            \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 2, 1, UnitStride, false, n, {{a, b}, {1, 1}, {r}, {1}});                        \
  }                                                                                                               \
  extern "C" void orvik_zym_##p##Name##I_##L(int32_t n, const E* a, int32_t incA, const E* b, int32_t incB, E* r, \
                                             int32_t incR) {                                                      \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 2, 1, Strided, false, n, {{a, b}, {incA, incB}, {r}, {incR}});                  \
  }

#define ORVIK_ZYM_KERNEL_unary2(p, Name, L, Fn) ORVIK_ZYM_UNARY2(ORVIK_ZYM_ELEMENT_##p, p, Name, L, Fn)
#define ORVIK_ZYM_UNARY2(E, p, Name, L, Fn)                                                                    \
  extern "C" void orvik_zym_##p##Name##_##L(int32_t n, const E* a, E* r1, E* r2) {                             \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 1, 2, UnitStride, false, n, {{a}, {1}, {r1, r2}, {1, 1}});                   \
  }                                                                                                            \
  extern "C" void orvik_zym_##p##Name##I_##L(int32_t n, const E* a, int32_t incA, E* r1, int32_t incR1, E* r2, \
                                             int32_t incR2) {                                                  \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 1, 2, Strided, false, n, {{a}, {incA}, {r1, r2}, {incR1, incR2}});           \
  }

#define ORVIK_ZYM_KERNEL_scalar(p, Name, L, Fn) ORVIK_ZYM_SCALAR(ORVIK_ZYM_ELEMENT_##p, p, Name, L, Fn)
#define ORVIK_ZYM_SCALAR(E, p, Name, L, Fn)                                                                  \
  extern "C" void orvik_zym_##p##Name##_##L(int32_t n, const E* a, E b, E* r) {                              \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 2, 1, UnitStride, true, n, {{a, &b}, {1, 0}, {r}, {1}});                   \
  }                                                                                                          \
  extern "C" void orvik_zym_##p##Name##I_##L(int32_t n, const E* a, int32_t incA, E b, E* r, int32_t incR) { \
    ORVIK_ZYM_RUN(p, Name, L, Fn, 2, 1, Strided, true, n, {{a, &b}, {incA, 0}, {r}, {incR}});                \
  }

// The four scalars travel to the lanes as one Fraction.
#define ORVIK_ZYM_KERNEL_fraction(p, Name, L, Fn) ORVIK_ZYM_FRACTION(ORVIK_ZYM_ELEMENT_##p, p, Name, L, Fn)
#define ORVIK_ZYM_RUN_FRACTION(p, Name, L, Fn, Access, ...)                                                         \
  ::orvik::zym::Kernel<Fn<ORVIK_ZYM_LANES_##p, ::orvik::zym::Level::L>, ORVIK_ZYM_LANES_##p, 2, 1,                  \
                       ::orvik::zym::Access, false, ::orvik::zym::Fraction<ORVIK_ZYM_LANES_##p>>::run("v" #p #Name, \
                                                                                                      __VA_ARGS__)
#define ORVIK_ZYM_FRACTION(E, p, Name, L, Fn)                                                                          \
  extern "C" void orvik_zym_##p##Name##_##L(int32_t n, const E* a, const E* b, E scaleA, E shiftA, E scaleB, E shiftB, \
                                            E* r) {                                                                    \
    ORVIK_ZYM_RUN_FRACTION(p, Name, L, Fn, UnitStride, n, {{a, b}, {1, 1}, {r}, {1}},                                  \
                           {scaleA, shiftA, scaleB, shiftB});                                                          \
  }                                                                                                                    \
  extern "C" void orvik_zym_##p##Name##I_##L(int32_t n, const E* a, int32_t incA, const E* b, int32_t incB, E scaleA,  \
                                             E shiftA, E scaleB, E shiftB, E* r, int32_t incR) {                       \
    ORVIK_ZYM_RUN_FRACTION(p, Name, L, Fn, Strided, n, {{a, b}, {incA, incB}, {r}, {incR}},                            \
                           {scaleA, shiftA, scaleB, shiftB});                                                          \
  }

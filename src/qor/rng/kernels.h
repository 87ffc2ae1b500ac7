// Vector kernels as the streams' upper floors call them: through the dispatch table, each call in a bracket of its own.
#pragma once

#include <cstdint>

#include "qor/rng/bracket.h"
#include "qor/rng/kernel_row.h"

namespace orvik::qor {

// Index into a dispatch table row.
enum class Level { low = 0, high = 1, enhanced = 2 };

// Of distributions: what a set-up needs once, it asks of the high level.
template <class T>
inline constexpr Level kLevel = Level::enhanced;
template <>
inline constexpr Level kLevel<float> = Level::low;

// One function, float and double. Operands are of any one type; results may stand where operands stood.
template <void* const* (*float_row)(), void* const* (*double_row)()>
struct Kernel {
  template <class T>
  static void call(Level level, int32_t n, const T* a, T* r) {
    run<void (*)(int32_t, const T*, T*), T>(level, n, a, r);
  }
  template <class T>
  void operator()(int32_t n, const T* a, T* r) const {
    call(kLevel<T>, n, a, r);
  }
  // One number by the high level.
  template <class T>
  static T high(T x) {
    T r;
    call(Level::high, 1, &x, &r);
    return r;
  }

 protected:
  template <class F, class T, class... Arguments>
  static void run(Level level, Arguments... arguments) {
    const KernelBracket bracket;
    void* const* row;
    if constexpr (sizeof(T) == 4)
      row = float_row();
    else
      row = double_row();
    reinterpret_cast<F>(row[static_cast<int>(level)])(arguments...);
  }
};

// Two results.
template <void* const* (*float_row)(), void* const* (*double_row)()>
struct PairKernel : Kernel<float_row, double_row> {
  template <class T>
  void operator()(int32_t n, const T* a, T* r, T* s) const {
    PairKernel::template run<void (*)(int32_t, const T*, T*, T*), T>(kLevel<T>, n, a, r, s);
  }
};

// A scalar second operand.
template <void* const* (*float_row)(), void* const* (*double_row)()>
struct ScalarKernel : Kernel<float_row, double_row> {
  template <class T>
  void operator()(int32_t n, const T* a, T b, T* r) const {
    call(kLevel<T>, n, a, b, r);
  }
  template <class T>
  static T high(T x, T b) {
    T r;
    call(Level::high, 1, &x, b, &r);
    return r;
  }

 private:
  template <class T>
  static void call(Level level, int32_t n, const T* a, T b, T* r) {
    ScalarKernel::template run<void (*)(int32_t, const T*, T, T*), T>(level, n, a, b, r);
  }
};

#define ORVIK_KERNEL(kind, name, function)                                    \
  inline void* const* s##function() { return ORVIK_KERNEL_ROW(s##function); } \
  inline void* const* d##function() { return ORVIK_KERNEL_ROW(d##function); } \
  inline constexpr kind<s##function, d##function> name

namespace kernels {

ORVIK_KERNEL(Kernel, sqrt, Sqrt);
ORVIK_KERNEL(Kernel, inv_sqrt, InvSqrt);
ORVIK_KERNEL(Kernel, exp, Exp);
ORVIK_KERNEL(Kernel, expm1, Expm1);
ORVIK_KERNEL(Kernel, ln, Ln);
ORVIK_KERNEL(Kernel, log1p, Log1p);
ORVIK_KERNEL(Kernel, sin, Sin);
ORVIK_KERNEL(Kernel, cos, Cos);
ORVIK_KERNEL(Kernel, tan, Tan);
ORVIK_KERNEL(PairKernel, sin_cos, SinCos);
ORVIK_KERNEL(Kernel, erf, Erf);
ORVIK_KERNEL(Kernel, erf_inv, ErfInv);
ORVIK_KERNEL(Kernel, lgamma, LGamma);
ORVIK_KERNEL(ScalarKernel, powx, Powx);

}  // namespace kernels

#undef ORVIK_KERNEL

}  // namespace orvik::qor

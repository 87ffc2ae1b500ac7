#include "qor/ss/kernels.h"

#include <bit>

#include "orvik/ss.h"
#include "orvik/zym.h"
#include "qor/rng/bracket.h"
#include "qor/rng/kernel_row.h"

namespace orvik::ss {
namespace {

template <class T>
using Kernel = void (*)(int32_t n, const T* a, T* r);

enum Level { kLow = 0, kHigh = 1 };

template <class T>
void call(void* const* row, Level level, int32_t n, const T* a, T* r) {
  const qor::KernelBracket bracket;
  reinterpret_cast<Kernel<T>>(row[level])(n, a, r);
}

template <class T>
T one(void* const* row, T x) {
  T r;
  call(row, kHigh, 1, &x, &r);
  return r;
}

int32_t not_a_number(ZymErrorContext* context) {
  context->result1 = context->result2 = std::bit_cast<double>(uint64_t{0x7FF8000000000000});
  return 0;
}

}  // namespace

template <>
void inverse_square_roots(int32_t n, const double* a, double* r) {
  const qor::EntryBracket bracket(not_a_number);
  call(ORVIK_KERNEL_ROW(dInvSqrt), kLow, n, a, r);
}
template <>
void inverse_square_roots(int32_t n, const float* a, float* r) {
  const qor::EntryBracket bracket(not_a_number);
  call(ORVIK_KERNEL_ROW(sInvSqrt), kLow, n, a, r);
}

template <>
double kernel_sqrt(double x) {
  return one(ORVIK_KERNEL_ROW(dSqrt), x);
}
template <>
float kernel_sqrt(float x) {
  return one(ORVIK_KERNEL_ROW(sSqrt), x);
}
template <>
double kernel_ln(double x) {
  return one(ORVIK_KERNEL_ROW(dLn), x);
}
template <>
float kernel_ln(float x) {
  return one(ORVIK_KERNEL_ROW(sLn), x);
}

}  // namespace orvik::ss

extern "C" {
double __qordSqrt(double x) { return orvik::ss::kernel_sqrt(x); }
float __qorsSqrt(float x) { return orvik::ss::kernel_sqrt(x); }
double __qordLn(double x) { return orvik::ss::kernel_ln(x); }
float __qorsLn(float x) { return orvik::ss::kernel_ln(x); }
}

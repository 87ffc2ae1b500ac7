// ln x one element at a time: zero, negative numbers, infinities, NaNs and denormals.
#pragma once

#include <cmath>
#include <cstdint>

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"

namespace orvik::zym {

// The cases that all logarithms decide alike. True where that was all.
template <class E>
bool log_special(E x, E* r, int32_t* code) {
  *code = 0;
  if (is_nan(x) || x == infinity<E>) {
    *r = x * x;
  } else if (x == 0) {  // denormals too where they read as zero
    *r = -infinity<E>;
    *code = zymErrorSingularity;
  } else if (x < 0) {
    *r = nan<E>;
    *code = zymErrorDomain;
  } else {
    return false;
  }
  return true;
}

// In 64 bits, good for a result of 32; x positive and finite.
inline double ln_wide(double x) {
  const double v = x - 1.0;
  if (std::fabs(v) <= 0.009765625) return std::fma(v * v, horner(v, kLnElement), v);
  const uint64_t bits = bits_of(x);
  const double k = static_cast<double>(static_cast<int64_t>(bits >> 52) - 1023);
  const double m = float_of<double>((bits & 0x000FFFFFFFFFFFFF) | 0x3FF0000000000000);
  const double* row = kLnReciprocal64[bits_of(m + 70368744177665.0) & 0x7F];  // 2^46 + 1: rounds m - 1 to 1/64
  const double m1 = (m + 2097152.0) - 2097152.0;                              // m in 31 bits after the point
  const double d1 = std::fma(row[0], m1, -1.0);
  const double d2 = row[0] * (m - m1);
  const double u = d1 + d2;
  const double head = std::fma(k, kLn2ElementHead, row[1]) + d1;
  const double tail = std::fma(k, kLn2ElementTail, row[2]) + d2 + u * u * horner(u, kLnElement);
  return head + tail;
}

inline int32_t ln_element(const float* px, float* r) {
  int32_t code;
  if (!log_special(*px, r, &code)) *r = static_cast<float>(ln_wide(static_cast<double>(*px)));
  return code;
}

}  // namespace orvik::zym

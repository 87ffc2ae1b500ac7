// e^x one element at a time: special values, and results next to or below the smallest normal number.
#pragma once

#include <cmath>
#include <cstdint>

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"

namespace orvik::zym {

// Infinities and NaNs: the result is x^2, but 0 for -infinity.
template <class E>
E exp_not_finite(E x) {
  return x == -infinity<E> ? E(0) : x * x;
}

// e^x = 2^k head (1 + rest), |x| below 746.
struct ExpParts {
  double head, rest;
  int64_t k, row;

  explicit ExpParts(double x) {
    const double t = std::fma(x, k64OverLn2, kShifter64);
    const double n = t - kShifter64;
    const double r = std::fma(-n, kLn2Over64Tail, std::fma(-n, kLn2Over64Head, x));
    const double p = horner(r, kExpElement);
    set_row(static_cast<int64_t>(bits_of(t) - bits_of(kShifter64)));
    rest = std::fma(r, r * p, r) + kExp2Frac64[row][1];
  }

  // 2^(n/64) (1 + r c(r)), c from the highest power down: other bases.
  static ExpParts from_reduced(int64_t n, double r, const double (&c)[5]) {
    ExpParts parts;
    parts.set_row(n);
    parts.rest = std::fma(r, horner(r, c), kExp2Frac64[parts.row][1]);
    return parts;
  }

  double normal() const {
    const double y = std::fma(head, rest, head);
    if (k < 1024) return y * power_of_two<double>(k);
    const double half = y * power_of_two<double>(k - 1);
    return half + half;
  }

  // Computed 2^60 too high; the step back rounds once, at the precision of the denormal result.
  double denormal() const {
    constexpr double kDown = 0x1p-60;
    const auto e = static_cast<uint64_t>(k + 1083) & 0x7FF;
    const double scale = float_of<double>(e << 52);
    const double v = head * scale;
    const double w = head * rest * scale;
    const double s = v + w;
    if (e <= 50) return s * kDown;
    constexpr double kSplit = 0x1.8p32;
    const double h = s + s * kSplit - s * kSplit;
    const double tail = (w + (v - s)) + (s - h);
    return std::fabs(std::fma(kDown, tail, kDown * h));  // +0 where denormals are flushed
  }

 private:
  ExpParts() = default;
  void set_row(int64_t n) {
    row = n & 63;
    k = n >> 6;
    head = kExp2Frac64[row][0];
  }
};

inline int32_t exp_element(const double* px, double* r) {
  const double x = *px;
  const uint64_t exponent = magnitude_bits(x) >> 52;
  if (exponent == 2047) {
    *r = exp_not_finite(x);
    return 0;
  }
  if (exponent < 971) {
    *r = 1.0 + x;
    return 0;
  }
  if (x > kExpOverflow64) {
    *r = infinity<double>;
    return zymErrorOverflow;
  }
  if (x < kExpUnderflow64) {
    *r = 0.0;
    return zymErrorUnderflow;
  }
  const ExpParts parts(x);
  if (x >= kExpNormal64) {
    *r = parts.normal();
    return 0;
  }
  *r = parts.denormal();
  return zymErrorUnderflow;
}

// HA: in 64 bits, rounded once more.
inline int32_t exp_element_wide(const float* px, float* r) {
  const float x = *px;
  const uint32_t exponent = bits_of(x) & FloatBits<float>::exponent_field;
  if (exponent == FloatBits<float>::exponent_field) {
    *r = exp_not_finite(x);
    return 0;
  }
  if (exponent < 0x25800000u) {
    *r = 1.0f + x;
    return 0;
  }
  if (x > kExpOverflow32) {
    *r = infinity<float>;
    return zymErrorOverflow;
  }
  if (x < kExpUnderflow32) {
    *r = 0.0f;
    return zymErrorUnderflow;
  }
  const ExpParts parts(x);
  if (x >= kExpNormal32) {
    *r = static_cast<float>(parts.normal());
    return 0;
  }
  *r = static_cast<float>(parts.denormal());
  return zymErrorUnderflow;
}

// LA and EP: in 32 bits.
inline int32_t exp_element_narrow(const float* px, float* r) {
  const float x = *px;
  if ((bits_of(x) & FloatBits<float>::exponent_field) == FloatBits<float>::exponent_field) {
    *r = exp_not_finite(x);
    return 0;
  }
  if (x > kExpOverflow32) {
    *r = infinity<float>;
    return zymErrorOverflow;
  }
  if (x < kExpUnderflow32) {
    *r = 0.0f;
    return zymErrorUnderflow;
  }
  const float t = std::fma(x, kLog2E32, kShifter32);
  const float n = t - kShifter32;
  const float f = std::fma(-n, kLn2Tail32, std::fma(-n, kLn2Head32, x));
  const float p = horner(f, kExpSingleElement);
  const auto power = [](int32_t k) { return float_of<float>(static_cast<uint32_t>(k + 127) << 23); };
  const auto k = static_cast<int32_t>(bits_of(t) - bits_of(kShifter32));
  if (x < kExpNormal32) {
    *r = p * power(k + 60) * 0x1p-60f;
    return zymErrorUnderflow;
  }
  if (k >= -127 && k <= 127) {
    *r = p * power(k);
  } else {
    const float half = p * power(k - 1);
    *r = half + half;
  }
  return 0;
}

}  // namespace orvik::zym

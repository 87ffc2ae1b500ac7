// The error function. In 32 bits x P(x), P a polynomial on eight intervals, its coefficients in registers. In 64 bits the
// nearest r = i/128 with d = |x| - r and the derivative s(r) = 2/sqrt(pi) e^(-r^2),
//   erf(r + d) = erf(r) + s d (1 - r d + (2 r^2 - 1)/3 d^2 + r (3 - 2 r^2)/6 d^3 + ...),
// Taylor's series with the Hermite polynomials as its coefficients (Abramowitz, Stegun 1964, 7.1.19).
#pragma once

#include "zym/kernels/error/coefficients.h"
#include "zym/kernels/error/constants.h"
#include "zym/kernels/error/tables.h"
#include "zym/kernels/shared/octets.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace error {

inline constexpr Octets kErfEP(kErfSingleEP);
inline constexpr Octets kErfLA(kErfSingleLA);
inline constexpr Octets kErfHA(kErfSingleHA, 0, 0x1p40f);

}  // namespace error

template <class V, Level L>
struct Erf;

// Larger arguments become the last one, where the lanes give 1. Products with tiny arguments underflow.
// sErf LA: 3.5370 ulp at -0x1.de001ep-2
// sErf HA: 0.8334 ulp at 0x1.da482ap+0
// sErf EP: 11.48 bits at -0x1.333342p-1
template <Single V, Level L>
struct Erf<V, L> {
  static constexpr Knobs knobs = {.stray = kUnderflowFlag};
  static auto special(V x) { return magnitude_above<0x7F800000u>(x); }

  static V lanes(V x) {
    V y;
    if constexpr (L == Level::EP) {
      const V a = min(V(kLastEP), magnitude(x));
      const auto [t, n] = shift_round(a, V(2.5f));
      y = a * octet_polynomial(fnma(n, V(0.4f), a), error::kErfEP, as_bits(t));
    } else if constexpr (L == Level::LA) {
      const V a = min(V(kLastLA), magnitude(x));
      const V b = a - V(0.25f);
      const auto [t, n] = shift_round(b, V(2.0f));
      y = a * octet_polynomial(fnma(n, V(0.5f), b), error::kErfLA, as_bits(t));
    } else {
      const V a = min(V(kLastHA), magnitude(x));
      constexpr float kPerStep = 32.0f / 17;
      const auto [t, n] = shift_round(a, V(kPerStep));
      const V rest = a * octet_polynomial(fnma(n, V(17.0f / 32), a), error::kErfHA, as_bits(t));
      // Computed 2^40 too high, as the coefficients are: denormal results would be rounded by both steps.
      y = fma(a, look_up(octet_table<V>(kErfHeads), as_bits(t)), rest) * V(0x1p-40f);
    }
    return join_sign(y, x);
  }

  static int32_t element(const float* x, float* r) {  // NaNs
    *r = *x + *x;
    return 0;
  }

 private:
  static constexpr float kLastEP = 2.98223f, kLastLA = 3.95f, kLastHA = 3.98f;
};

// dErf LA: 2.2436 ulp at -0x1.273563fb3bd94p-8
// dErf HA: 0.6027 ulp at 0x1.9d0755edd7ec3p-1020
// dErf EP: 32.15 bits at 0x1.0000000000001p-8
template <Double V, Level L>
struct Erf<V, L> {
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4, .stray = kUnderflowFlag};
  static auto special(V x) { return not_finite(x); }
  // Constants by name: the compiler leaves inexact quotients in code to the processor.
  static constexpr double kThird = 1.0 / 3, kTwo15ths = 2.0 / 15;

  static V lanes(V x) {
    const V a = min(magnitude(x), V(6.0));  // 1 to the last bit from there on
    const V shifter = V(kShifter64 / 128);
    const V sum = a + shifter;
    const V r = sum - shifter;
    const V d = a - r;
    const V r2 = r * r;
    const auto index = row_indices(as_bits(sum) & Integer<V>(uint64_t{1023}));
    const auto row = gather(kErfSteps, index);
    const V p = row.second * d;
    // The factor behind s d.
    const V third = fma(r2, V(2 * kThird), V(-kThird));
    if constexpr (L == Level::EP) {
      return join_sign(fma(p, fma(d, fms(d, third, r), V(1.0)), row.first), x);
    } else if constexpr (L == Level::LA) {
      // With most of the sixth term, d^5 being like 0.85 d^3 / 2^16 within 0.15 / 2^40.
      constexpr double kMore = 0.85 * 0x1p-16;
      constexpr double a4 = -2.0 / 45 * kMore, a2 = 2.0 / 9 * kMore - 1.0 / 3, a0 = 0.5 - kMore / 6;
      const V fourth = r * horner(r2, V(a4), V(a2), V(a0));
      const V fifth = horner(r2, V(kTwo15ths), V(-0.4), V(0.1));
      return join_sign(fma(p, fma(d, fms(d, horner(d, fifth, fourth, third), r), V(1.0)), row.first), x);
    } else {
      constexpr double a4 = -2.0 / 45, a2 = 2.0 / 9, a0 = -1.0 / 6, kSeventh = -1.0 / 42;
      const V fourth = r * fma(r2, V(-kThird), V(0.5));
      const V fifth = horner(r2, V(kTwo15ths), V(-0.4), V(0.1));
      const V sixth = r * horner(r2, V(a4), V(a2), V(a0));
      const V seventh = V(kSeventh);  // more of it does not count
      const V more = d * fms(d, horner(d, seventh, sixth, fifth, fourth, third), r);
      const auto tails = gather(kErfStepTails, index);
      const HeadTail<V> head = fast_two_sum(row.first, p);
      const V lost = fma(tails.second, d, fms(row.second, d, p)) + tails.first;
      return join_sign(head.head + (head.tail + fma(p, more, lost)), x);
    }
  }

  static int32_t element(const double* px, double* r) {
    const double x = *px;
    *r = is_nan(x) ? x + x : join_sign(1.0, x);
    return 0;
  }
};

}  // namespace orvik::zym

// Hyperbolic tangent. In 32 bits a polynomial on eight intervals, its coefficients in registers. In 64 bits the nearest
// r = i/32 with d = |x| - r and the slope s = 1 - tanh(r)^2, by the sum of arguments without its division:
//   tanh(r + d) = tanh(r) + s w / (1 + u),  w = tanh(d),  u = tanh(r) w,  |u| <= 1/64,
//   1 / (1 + u) = (1 - u) (1 + u^2) (1 + u^4) within 2^-48.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/tables.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/kernels/shared/octets.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace hyperbolic {

inline constexpr size_t kTanhFirstRow = 6;  // the octave from 1 on has an odd exponent field
inline constexpr Octets<4> kTanhEP(kTanhFirstEP, 1, kTanhRowsEP, kTanhFirstRow);
inline constexpr Octets<7> kTanhLA(kTanhFirstLA, 1, kTanhRowsLA, kTanhFirstRow);
inline constexpr OctetNodes<8> kTanhHA(kTanhLines, kTanhRowsHA, kTanhFirstHA, kTanhFirstRow);
// Centres of the rows; of the HA ones.
inline constexpr Octets<1> kTanhCentreOctets = [] {
  float rows[8][1] = {};
  for (size_t i = 0; i < 8; ++i) rows[i][0] = kTanhCentres[i];
  return Octets<1>(rows, kTanhFirstRow);
}();
inline constexpr Octets<1> kTanhCentreOctetsHA = [] {
  float rows[8][1] = {};
  for (size_t i = 1; i < 8; ++i) rows[i][0] = kTanhCentresHA[i - 1][0];
  return Octets<1>(rows, kTanhFirstRow);
}();

}  // namespace hyperbolic

template <class V, Level L>
struct Tanh;

// sTanh LA: 2.4319 ulp at 0x1.16138ap+2
// sTanh HA: 0.6051 ulp at -0x1.ffdbfep-3
// sTanh EP: 11.87 bits at -0x1.352128p-2
template <Single V, Level L>
struct Tanh<V, L> {
  static auto special(V x) { return magnitude_above<0x7F800000u>(x); }

  static V lanes(V x) {
    using namespace hyperbolic;
    const V a = min(V(kLast), magnitude(x));
    const Integer<V> row = shift_right<22>(as_bits(fma(a, V(53.0f / 32), V(1.0f))));
    constexpr const auto& centres = L == Level::HA ? kTanhCentreOctetsHA : kTanhCentreOctets;
    const V r = a - look_up(octet_table<V>(centres.power[0]), row);
    if constexpr (L == Level::EP) return join_sign(octet_polynomial(r, kTanhEP, row), x);
    if constexpr (L == Level::LA) return join_sign(octet_polynomial(r, kTanhLA, row), x);
    if constexpr (L == Level::HA) {
      const HeadTail<V> sum = octet_sum(r, kTanhHA, row);
      return join_sign(sum.head + sum.tail, x);
    }
  }

  static int32_t element(const float* px, float* r) {  // NaNs
    *r = *px + *px;
    return 0;
  }

 private:
  static constexpr float kLast = 9.02f;  // 1 to the last bit from there on
};

// dTanh LA: 2.5723 ulp at 0x1.0000000000001p-6
// dTanh HA: 0.5010 ulp at 0x1.22017e65b662fp-7
template <Double V, Level L>
struct Tanh<V, L> {
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4};
  static auto special(V x) { return not_finite(x); }

  static V lanes(V x) {
    using namespace hyperbolic;
    const V a = min(magnitude(x), V(20.0));  // 1 to the last bit from there on
    const V shifter = V(kShifter64 / 32), one = V(1.0);
    const V sum = a + shifter;
    const V d = a - (sum - shifter);
    const auto index = indices(as_bits(sum) & Integer<V>(uint64_t{1023}));
    const auto inverse = [&](V u) __attribute__((always_inline)) {  // 1 / (1 + u)
      const V less = one - u, u2 = u * u;
      const V more = fma(less, u2, less);
      return fma(more, u2 * u2, more);
    };
    const V z = safe_square<L == Level::HA>(d);
    const V bend = z * horner(z, kTanhSmall);  // w / d - 1
    if constexpr (L != Level::HA) {
      const auto row = gather(kTanhSteps, index);
      const V w = fma(d, bend, d);
      return join_sign(fma(row.second * w, inverse(row.first * w), row.first), x);
    } else {
      const auto row = gather(kTanhStepPairs, index);
      const V value = row.c[0], slope = row.c[1], value_tail = row.c[2], slope_tail = row.c[3];
      const V line = value * d;
      const V u = fma(line, bend, line);
      const V v = u * inverse(u);  // 1 - 1 / (1 + u)
      const V p = slope * d;
      const HeadTail<V> head = fast_two_sum(value, p);
      const V lost = fma(slope_tail, d, fms(slope, d, p)) + value_tail;
      const V factor = bend - fma(bend, v, v);  // w / (d (1 + u)) - 1
      return join_sign(head.head + (head.tail + fma(p, factor, lost)), x);
    }
  }

  static int32_t element(const double* px, double* r) {
    const double x = *px;
    *r = is_nan(x) ? x + x : join_sign(1.0, x);
    return 0;
  }
};

}  // namespace orvik::zym

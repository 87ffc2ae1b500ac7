// ln(1 + x): the methods of ln on s = 1 + x rounded, and what the rounding lost as a correction. The result has the
// sign of x, also where it is zero.
#pragma once

#include <cmath>

#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/wide.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

// Infinities, NaNs and what is not above -1. True where that was all.
template <class E>
bool log1p_special(E x, E* r, int32_t* code) {
  *code = 0;
  if (is_nan(x) || x == infinity<E>) {
    *r = x * x;
  } else if (x == E(-1)) {
    *r = -infinity<E>;
    *code = zymErrorSingularity;
  } else if (x < E(-1)) {
    *r = nan<E>;
    *code = zymErrorDomain;
  } else {
    return false;
  }
  return true;
}

// 1 + x = sum + lost, exactly.
template <class V>
struct OnePlus {
  V sum, lost;
  explicit OnePlus(V x) {
    using E = typename V::Element;
    const V larger = max(x, V(E(1)));
    sum = x + V(E(1));
    lost = min(x, V(E(1))) - (sum - larger);
  }
};

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <class V, Level L>
struct Log1p;

template <Level L>
struct Log1p<F32, L> {
  // From 2^120 on 2^-e leaves the normal numbers.
  static auto special(F32 x) { return outside<0x00800000, 0x7B7FFFFF>(x + F32(1.0f)); }
  static int32_t element(const float* px, float* r) {
    int32_t code;
    if (!log1p_special(*px, r, &code)) *r = static_cast<float>(wide_log<BaseE>(*px));
    return code;
  }

  static F32 lanes(F32 x) {
    if constexpr (L == Level::HA) {
      return wide_lanes(x);
    } else {
      const OnePlus<F32> s(x);
      const I32 u = as_bits(s.sum) - I32(0x3F2AAAABu);
      const F32 e = to_float(shift_right_arithmetic<23>(u));
      const I32 exponent = u & I32(0xFF800000u);
      const F32 m = as_float(as_bits(s.sum) - exponent);
      const F32 scale = as_float(I32(0x3F800000u) - exponent);  // 2^-e
      const F32 f = fma(s.lost, scale, m - F32(1.0f));
      F32 p;
      if constexpr (L == Level::EP) {
        p = horner(f, kLnSingleEP);
      } else {
        p = horner(f, kLnSingleHA);  // that of ln at this level comes to 4.09 ulp with the rounding of f
      }
      const F32 y = fma(f * p, f, f);
      return fma(e, F32(0.6931471824645996f), y) | sign_of(x);
    }
  }

 private:
  // With c = 2^-e rc/128, an approximation of 1/(1 + x), r = c (1 + x) - 1 = c x + (c - 1).
  static F32 wide_lanes(F32 x) {
    const WideKey k(x + F32(1.0f));
    const F32 c = as_float(as_bits(to_float(k.rc)) - shift_left<23>(k.e + I32(7)));
    const auto half = [](F64 c, F64 x, __m128i e, __m128i rc) {
      return wide_log<BaseE>(fma(c, x, c - F64(1.0)), _mm256_cvtepi32_pd(e), rc);
    };
    const F32 y = narrow(half(widen_low(c), widen_low(x), low_half(k.e), low_half(k.rc)),
                         half(widen_high(c), widen_high(x), high_half(k.e), high_half(k.rc)));
    return y | sign_of(x);  // +0 for -0 otherwise
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

template <Level L>
struct Log1p<F64, L> {
  // From 2^1000 on 2^-e nears the end of the normal numbers.
  static auto special(F64 x) { return outside<0x00100000, 0x7E6FFFFF>(x + F64(1.0)); }
  static int32_t element(const double* px, double* r) {
    int32_t code;
    if (!log1p_special(*px, r, &code)) *r = _mm256_cvtsd_f64(ln_pairs(F64(*px), 0.0).v);
    return code;
  }

  static F64 lanes(F64 x) {
    const OnePlus<F64> s(x);
    const KeyedDouble k(s.sum);
    // rc 2^(-e - 10), an approximation of 1/s.
    const F64 scale = as_float(I64(int64_t{1023 + 1023 - 10} << 52) - (as_bits(s.sum) & I64(int64_t{0x7FF} << 52)));
    const F64 correction = k.rc * scale * s.lost;
    if constexpr (L == Level::HA) {
      const F64 e = k.exponent();
      const GatheredPair log = gather<512>(kLnPairs, Indices(k.key));
      const F64 table = fma(e, F64(kLn2Head64), log.first);
      const F64 head = table + k.r;
      const F64 lost = k.r - (head - table);
      // ln(1 + r + c) = ln(1 + r) + c (1 - r) but for terms below 2^-70.
      const F64 p = fma(k.r * k.r, ln_polynomial(k.r), fnma(correction, k.r, correction));
      const F64 y = head + (fma(e, F64(kLn2Tail64), log.second) + (p + lost));
      return y | sign_of(x);  // +0 for -0 otherwise
    } else {
      const F64 e = k.centred_exponent();
      const F64 r = k.r + correction;
      F64 p;
      if constexpr (L == Level::EP) {
        p = horner(r, F64(kLnC3), F64(kLnC2));
      } else {
        p = horner(r, F64(kLnC5), F64(kLnC4), F64(kLnC3), F64(kLnC2));
      }
      const F64 head = fma(e, F64(kLn2Head64), gather<512>(kLnHeads, Indices(k.key))) + r;
      return (head + fma(e, F64(kLn2Tail64), r * r * p)) | sign_of(x);
    }
  }
};

}  // namespace orvik::zym

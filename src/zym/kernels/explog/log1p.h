// ln(1 + x): the methods of ln on s = 1 + x rounded, and what the rounding lost as a correction. The result has the
// sign of x, also where it is zero.
#pragma once

#include <cmath>

#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/wide.h"
#include "zym/skeleton/family.h"

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
    using E = Element<V>;
    const V larger = max(x, V(E(1)));
    sum = x + V(E(1));
    lost = min(x, V(E(1))) - (sum - larger);
  }
};

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <class V, Level L>
struct Log1p;

// sLog1p LA: 1.5665 ulp at 0x1.570b96p-2
// sLog1p HA: 0.5043 ulp at 0x1.ff9e0ep-8
// sLog1p EP: 12.78 bits at 0x1.555556p-2
template <Single V, Level L>
struct Log1p<V, L> {
  // From 2^120 on 2^-e leaves the normal numbers.
  static auto special(V x) { return outside<0x00800000, 0x7B7FFFFF>(x + V(1.0f)); }
  static int32_t element(const float* px, float* r) {
    int32_t code;
    if (!log1p_special(*px, r, &code)) *r = static_cast<float>(wide_log<BaseE>(*px));
    return code;
  }

  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      return wide_lanes(x);
    } else {
      const OnePlus<V> s(x);
      const Integer<V> u = as_bits(s.sum) - Integer<V>(0x3F2AAAABu);
      const V e = to_float(shift_right_arithmetic<23>(u));
      const Integer<V> exponent = u & Integer<V>(0xFF800000u);
      const V m = as_float(as_bits(s.sum) - exponent);
      const V scale = as_float(Integer<V>(0x3F800000u) - exponent);  // 2^-e
      const V f = fma(s.lost, scale, m - V(1.0f));
      V p;
      if constexpr (L == Level::EP) {
        p = horner(f, kLnSingleEP);
      } else {
        p = horner(f, kLnSingleHA);  // that of ln at this level leaves the bound of 4 ulp with the rounding of f
      }
      const V y = fma(f * p, f, f);
      return join_sign(fma(e, V(kLn2Whole32), y), x);
    }
  }

 private:
  // With c near 1/(1 + x), r = c (1 + x) - 1 = c x + (c - 1).
  [[gnu::always_inline]] static F32 wide_lanes(F32 x) {
    const WideKey k(x + F32(1.0f));
    const I32 c = as_bits(look_up_16<F32>(kReciprocalSixteenths, k.row)) - k.field;
    // Above c the row, whose bits are lost. Below the exponent the row again.
    const Pair<I64> wide_c = unpack(I32(0u), c), e = unpack(I32(0u), k.exponent());
    const auto rows = look_up_in_16(kLnSixteenths, k.row, unpack(k.row, k.row));
    const F32 ordered = unpacked_order(x);
    // A float's bits are 2^-896 too small.
    const Halves factor =
        as_float(shift_right<3>(Twice<I64>{wide_c.first, wide_c.second}) + Twice<I64>(I64(int64_t{896} << 52)));
    const Halves r = fma(factor, Halves{widen_low(ordered), widen_high(ordered)}, factor - Halves(1.0));
    const F32 y = wide_log<BaseE>(r, halves(e), {rows.first.second, rows.second.second});
    return join_sign(y, x);  // +0 for -0 otherwise
  }
  static Twice<F32> wide_lanes(Twice<F32> x) { return {wide_lanes(x.low), wide_lanes(x.high)}; }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// dLog1p LA: 1.9427 ulp at 0x1.c49579dd6f172p-9
// dLog1p HA: 0.7278 ulp at -0x1.fcd814296f17fp-11
// dLog1p EP: 31.99 bits at -0x1.fffffffffffffp-11
template <Double V, Level L>
struct Log1p<V, L> {
  // From 2^1000 on 2^-e nears the end of the normal numbers.
  static auto special(V x) { return outside<0x00100000, 0x7E6FFFFF>(x + V(1.0)); }
  static int32_t element(const double* px, double* r) {
    int32_t code;
    if (!log1p_special(*px, r, &code)) *r = first_lane(ln_pairs(F64(*px), 0.0));
    return code;
  }

  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      const OnePlus<V> s(x);
      const KeyedNormal<V> k(s.sum);
      // rc 2^(-e - 10), an approximation of 1/s.
      const V scale =
          as_float(Integer<V>(int64_t{1023 + 1023 - 10} << 52) - (as_bits(s.sum) & Integer<V>(int64_t{0x7FF} << 52)));
      const V correction = k.rc * scale * s.lost;
      const V e = k.exponent();
      const auto log = gather<512>(kLnPairs, indices(k.key));
      const V table = fma(e, V(kLn2Head64), log.first);
      const V head = table + k.r;
      const V lost = k.r - (head - table);
      // ln(1 + r + c) = ln(1 + r) + c (1 - r) but for terms below 2^-70.
      const V p = fma(k.r * k.r, ln_polynomial(k.r), fnma(correction, k.r, correction));
      const V y = head + (fma(e, V(kLn2Tail64), log.second) + (p + lost));
      return join_sign(y, x);  // +0 for -0 otherwise
    } else {
      const V sum = x + V(1.0);
      const KeyedNormal<V> k(sum);
      // c = rc 2^(-e - 10), an approximation of 1/(1 + x): c (1 + x) - 1 = c x + (c - 1), whatever the sum lost.
      const V c = as_float(as_bits(k.rc) - (as_bits(sum) - as_bits(k.m)));
      const V e = k.centred_exponent();
      const V r = fma(c, x, c - V(1.0));
      V p;
      if constexpr (L == Level::EP) {
        p = horner(r, kLnDoubleEP);
      } else {
        p = horner(r, kLnDoubleLA);
      }
      const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + r;
      return join_sign(head + fma(e, V(kLn2Tail64), r * r * p), x);
    }
  }
};

}  // namespace orvik::zym

// ln(1 + x): s = 1 + x, rounded, gives exponent and row of an octave, c 2^-e an approximation c' of 1/s, and
// r = c' (1 + x) - 1 = c' x + (c' - 1) is that of 1 + x, whatever the sum lost. Floats at EP: ln of s by one
// polynomial, and the loss as a correction. The result has the sign of x, also where it is zero.
#pragma once

#include <cmath>

#include "zym/kernels/explog/ln_element.h"
#include "zym/kernels/explog/octave.h"
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

// From 2^120 and 2^1000 on 2^-e nears the end of the normal numbers.
template <class V, Level L>
struct Log1pCommon {
  using E = Element<V>;

  static auto special(V x) {
    return outside < Single<V> ? 0x00800000u : 0x00100000u, Single<V> ? 0x7B7FFFFFu : 0x7E6FFFFFu > (x + V(E(1)));
  }
  static int32_t element(const E* px, E* r) {
    int32_t code;
    if (log1p_special(*px, r, &code)) return code;
    if constexpr (Single<V>) {
      *r = static_cast<float>(ln_wide(*px));
    } else {
      *r = octave_log_in_two<BaseE>(*px);
    }
    return code;
  }

 protected:
  template <size_t N>
  [[gnu::always_inline]] static V in_one(V x, const E (&p)[N]) {
    const OctaveKey<V> k(x + V(E(1)));
    using B = BaseEOfSum::Octave<E>;
    const auto row = octave_pair<B::rows, V>(k, k.template at<std::size(B::rows)>());
    const V c = k.scaled(row.first);
    const V r = fma(c, x, c - V(E(1)));
    const V slope = fma(r, horner(r, p), V(E(1)));  // 1 for tiny x, whose result is x
    return join_sign(fma(r, slope, octave_log<BaseEOfSum>(k.centred_e(), row.second)), x);
  }
  [[gnu::always_inline]] static V in_two(V x) {
    const OctaveKey<V> k(x + V(E(1)));
    const auto at = k.at();
    const V c = k.scaled(octave_reciprocal<BaseEOfSum, V>(k, at));
    const HeadTail<V> product = two_prod(c, x);
    const V less = c - V(E(1));
    const V r = fma(c, x, less);
    const V r_low = ((product.head + less) - r) + product.tail;  // counts where r is not much less than the result
    const HeadTail<V> sum = octave_sum<BaseEOfSum>(k.e(), at, r, r_low);
    return join_sign(sum.head + fma(r * horner(r, BaseEOfSum::Octave<E>::ha), r, sum.tail), x);
  }
};

template <class V, Level L>
struct Log1p;

// sLog1p LA: 2.6046 ulp at -0x1.f7463ap-6
// sLog1p HA: 0.5999 ulp at 0x1.fedf94p-5
// sLog1p EP: 12.78 bits at 0x1.555556p-2
template <Single V, Level L>
struct Log1p<V, L> : Log1pCommon<V, L> {
  static V lanes(V x) {
    if constexpr (L == Level::HA) return Log1pCommon<V, L>::in_two(x);
    if constexpr (L == Level::LA) return Log1pCommon<V, L>::in_one(x, BaseEOfSum::Octave<float>::la);
    const OnePlus<V> s(x);
    const Integer<V> u = as_bits(s.sum) - Integer<V>(0x3F2AAAABu);
    const V e = to_float(shift_right_arithmetic<23>(u));
    const Integer<V> exponent = u & Integer<V>(0xFF800000u);
    const V m = as_float(as_bits(s.sum) - exponent);
    const V scale = as_float(Integer<V>(0x3F800000u) - exponent);  // 2^-e
    const V f = fma(s.lost, scale, m - V(1.0f));
    const V p = horner(f, kLnSingleEP);
    return join_sign(fma(e, V(kLn2Whole32), fma(f * p, f, f)), x);
  }
};

// dLog1p LA: 2.0736 ulp at 0x1.4253dac7abc7dp-1
// dLog1p HA: 0.5318 ulp at 0x1.ce55715b1324ap-5
// dLog1p EP: 28.06 bits at 0x1.ac2b64ff0874fp-5
template <Double V, Level L>
struct Log1p<V, L> : Log1pCommon<V, L> {
  static V lanes(V x) {
    if constexpr (L == Level::HA) return Log1pCommon<V, L>::in_two(x);
    if constexpr (L == Level::LA) return Log1pCommon<V, L>::in_one(x, BaseEOfSum::Octave<double>::la);
    return Log1pCommon<V, L>::in_one(x, BaseEOfSum::Octave<double>::ep);
  }
};

}  // namespace orvik::zym

// Logarithms to base 2 and 10: the methods of ln x with polynomials and tables of the base.
#pragma once

#include "zym/kernels/explog/base.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/wide.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <class Base, Single V, Level L>
struct LogSingle {
  static auto special(V x) { return not_positive_normal(x); }
  static int32_t element(const float* px, float* r) {
    int32_t code;
    if (!log_special(*px, r, &code)) *r = static_cast<float>(wide_log<Base>(*px));
    return code;
  }
  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      return wide_log<Base>(x);
    } else {
      const CentredSingle<V> c(x);
      V p;
      if constexpr (L == Level::EP) {
        p = horner(c.f, Base::single_ep);
      } else {
        p = horner(c.f, Base::single_la);
      }
      if constexpr (Base::of2_single == 1.0f) return fma(p, c.f, c.e);
      if constexpr (L == Level::EP) return fma(c.e, V(Base::of2_single), p * c.f);
      return fma(c.e, V(kLog10Of2Head32), fma(c.e, V(kLog10Of2Tail32), p * c.f));
    }
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// HA: r / ln(b) in two parts, the sums as in ln_pairs. The exponent is `added` less.
template <class Base, Double V>
V log_pairs(V x, double added) {
  const KeyedNormal<V> k(x);
  const V e = added == 0.0 ? k.exponent() : k.exponent() - V(added);
  const auto log = gather<512>(Base::pairs, indices(k.key));
  const V q = k.r * V(Base::of_e);
  const V q_low = fma(k.r, V(Base::of_e_tail), fms(k.r, V(Base::of_e), q));
  const V p = k.r * k.r * horner(k.r, Base::double_ha);
  const V table = fma(e, V(Base::of2_head), log.first);
  const V head = table + q;
  const V lost = q - (head - table);
  const V tail = Base::of2_tail == 0.0 ? log.second : fma(e, V(Base::of2_tail), log.second);
  return head + (tail + (p + (lost + q_low)));
}

template <class Base, Double V, Level L>
struct LogDouble {
  static auto special(V x) { return not_positive_normal(x); }
  static int32_t element(const double* px, double* r) {
    int32_t code;
    if (!log_special(*px, r, &code)) *r = first_lane(log_pairs<Base>(F64(*px * 0x1p54), 54.0));
    return code;
  }
  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      return log_pairs<Base>(x, 0.0);
    } else {
      const KeyedNormal<V> k(x);
      const V e = k.centred_exponent();
      const V row = gather<512>(Base::heads, indices(k.key));
      V p;
      if constexpr (L == Level::EP) {
        p = horner(k.r, Base::double_ep);
      } else {
        p = horner(k.r, Base::double_la);
      }
      const V table = Base::of2 == 1.0 ? e + row : fma(e, V(Base::of2), row);
      return fma(k.r, p, table);
    }
  }
};

template <class V, Level L>
struct Log2;
// sLog2 LA: 1.7521 ulp at 0x1.556b74p+0
// sLog2 HA: 0.5042 ulp at 0x1.02adc4p+0
// sLog2 EP: 13.81 bits at 0x1.55556ap+0
template <Single V, Level L>
struct Log2<V, L> : LogSingle<Base2, V, L> {};
// dLog2 LA: 1.3893 ulp at 0x1.ffa86a3d4859bp-1
// dLog2 HA: 0.5000 ulp at 0x1.73a33feec0431p-18
// dLog2 EP: 32.44 bits at 0x1.ffa86a3d4859bp-1
template <Double V, Level L>
struct Log2<V, L> : LogDouble<Base2, V, L> {};

template <class V, Level L>
struct Log10;
// sLog10 LA: 2.8251 ulp at 0x1.5558aap+0
// sLog10 HA: 0.5041 ulp at 0x1.fb8a06p-1
// sLog10 EP: 14.04 bits at 0x1.555576p+0
template <Single V, Level L>
struct Log10<V, L> : LogSingle<Base10, V, L> {};
// dLog10 LA: 1.5258 ulp at 0x1.002292f30f543p+0
// dLog10 HA: 0.5000 ulp at 0x1.d4fdb8c6dde08p+8
// dLog10 EP: 32.44 bits at 0x1.ffa86a3d4859bp-1
template <Double V, Level L>
struct Log10<V, L> : LogDouble<Base10, V, L> {};

}  // namespace orvik::zym

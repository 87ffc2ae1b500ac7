// Logarithms to base 2 and 10: the methods of ln x with polynomials and tables of the base.
#pragma once

#include "zym/kernels/explog/base.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/wide.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

// --- 32 bits --------------------------------------------------------------------------------------------------------

template <class Base, Level L>
struct LogSingle {
  static auto special(F32 x) { return not_positive_normal(x); }
  static int32_t element(const float* px, float* r) {
    int32_t code;
    if (!log_special(*px, r, &code)) *r = static_cast<float>(wide_log<Base>(*px));
    return code;
  }
  static F32 lanes(F32 x) {
    if constexpr (L == Level::HA) {
      return wide_log<Base>(WideKey(x));
    } else {
      const CentredSingle c(x);
      F32 p;
      if constexpr (L == Level::EP) {
        p = horner(c.f, Base::single_ep);
      } else {
        p = horner(c.f, Base::single_la);
      }
      if constexpr (Base::of2_single == 1.0f) return fma(p, c.f, c.e);
      if constexpr (L == Level::EP) return fma(c.e, F32(Base::of2_single), p * c.f);
      return fma(c.e, F32(kLog10Of2Head32), fma(c.e, F32(kLog10Of2Tail32), p * c.f));
    }
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// HA: r / ln(b) in two parts, the sums as in ln_pairs. The exponent is `added` less.
template <class Base>
F64 log_pairs(F64 x, double added) {
  const KeyedDouble k(x);
  const F64 e = added == 0.0 ? k.exponent() : k.exponent() - F64(added);
  const GatheredPair log = gather<512>(Base::pairs, Indices(k.key));
  const F64 q = k.r * F64(Base::of_e);
  const F64 q_low = fma(k.r, F64(Base::of_e_tail), fms(k.r, F64(Base::of_e), q));
  const F64 p = k.r * k.r * horner(k.r, Base::double_ha);
  const F64 table = fma(e, F64(Base::of2_head), log.first);
  const F64 head = table + q;
  const F64 lost = q - (head - table);
  const F64 tail = Base::of2_tail == 0.0 ? log.second : fma(e, F64(Base::of2_tail), log.second);
  return head + (tail + (p + (lost + q_low)));
}

template <class Base, Level L>
struct LogDouble {
  static auto special(F64 x) { return not_positive_normal(x); }
  static int32_t element(const double* px, double* r) {
    int32_t code;
    if (!log_special(*px, r, &code)) *r = _mm256_cvtsd_f64(log_pairs<Base>(F64(*px * 0x1p54), 54.0).v);
    return code;
  }
  static F64 lanes(F64 x) {
    if constexpr (L == Level::HA) {
      return log_pairs<Base>(x, 0.0);
    } else {
      const KeyedDouble k(x);
      const F64 e = k.centred_exponent();
      const F64 row = gather<512>(Base::heads, Indices(k.key));
      F64 p;
      if constexpr (L == Level::EP) {
        p = horner(k.r, Base::double_ep);
      } else {
        p = horner(k.r, Base::double_la);
      }
      const F64 table = Base::of2 == 1.0 ? e + row : fma(e, F64(Base::of2), row);
      return fma(k.r, p, table);
    }
  }
};

template <class V, Level L>
struct Log2;
template <Level L>
struct Log2<F32, L> : LogSingle<Base2, L> {};
template <Level L>
struct Log2<F64, L> : LogDouble<Base2, L> {};

template <class V, Level L>
struct Log10;
template <Level L>
struct Log10<F32, L> : LogSingle<Base10, L> {};
template <Level L>
struct Log10<F64, L> : LogDouble<Base10, L> {};

}  // namespace orvik::zym

// Logarithms by rows of an octave; floats to base 2 and 10 at EP by one polynomial, as ln x (ln.h) at all levels.
#pragma once

#include "zym/kernels/explog/base.h"
#include "zym/kernels/explog/ln.h"
#include "zym/kernels/explog/octave.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class Base, class V, Level L>
struct Log {
  using E = Element<V>;
  using Octave = typename Base::template Octave<E>;
  static constexpr Knobs knobs = {.together = false};  // rows and coefficients of two vectors are too many

  static auto special(V x) {
    if constexpr (L == Level::HA || (Single<V> && L == Level::EP)) {
      return not_positive_normal(x);
    } else {
      return outside < Single<V> ? 0x00800000u : 0x00100000u, Single<V> ? 0x7F3FFFFFu : 0x7FE7FFFFu > (x);
    }
  }
  // Of floats in 64 bits, where a denormal is a normal number.
  static int32_t element(const E* px, E* r) {
    int32_t code;
    if (log_special(*px, r, &code)) return code;
    if constexpr (Single<V>) {
      *r = static_cast<float>(octave_log_in_two<Base>(static_cast<double>(*px)));
    } else {
      *r = *px < 1 ? octave_log_in_two<Base>(*px * 0x1p54, 54.0) : octave_log_in_two<Base>(*px);
    }
    return code;
  }

  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      return octave_log_in_two<Base>(x);
    } else if constexpr (L == Level::LA) {
      return octave_log_in_one<Base>(x, Octave::la);
    } else if constexpr (Double<V>) {
      return octave_log_in_one<Base>(x, Octave::ep);
    } else {
      const CentredSingle<V> c(x);
      const V p = horner(c.f, Base::single_ep);
      if constexpr (Base::of2_single == 1.0f) return fma(p, c.f, c.e);
      if constexpr (Base::of2_single != 1.0f) return fma(c.e, V(Base::of2_single), p * c.f);
    }
  }
};

// dLn LA: 1.5611 ulp at 0x1.2ea42e30fb363p-6
// dLn HA: 0.5210 ulp at 0x1.0f7762d292bc5p+0
// dLn EP: 28.06 bits at 0x1.0d5a220beea82p+0
template <Double V, Level L>
struct Ln<V, L> : Log<BaseE, V, L> {};

template <class V, Level L>
struct Log2;
// sLog2 LA: 2.7539 ulp at 0x1.0162ccp+0
// sLog2 HA: 0.5712 ulp at 0x1.f53442p-1
// sLog2 EP: 13.81 bits at 0x1.55556ap+0
template <Single V, Level L>
struct Log2<V, L> : Log<Base2, V, L> {};
// dLog2 LA: 1.7183 ulp at 0x1.ecd272a354274p-1
// dLog2 HA: 0.5124 ulp at 0x1.0c7bbe8539508p+0
// dLog2 EP: 28.44 bits at 0x1.ff2ff3f0f05fbp-1
template <Double V, Level L>
struct Log2<V, L> : Log<Base2, V, L> {};

template <class V, Level L>
struct Log10;
// sLog10 LA: 3.3055 ulp at 0x1.7ff454p-1
// sLog10 HA: 0.5840 ulp at 0x1.0ffeeep+0
// sLog10 EP: 14.04 bits at 0x1.555576p+0
template <Single V, Level L>
struct Log10<V, L> : Log<Base10, V, L> {};
// dLog10 LA: 1.2861 ulp at 0x1.ee9cd70c85e77p-1
// dLog10 HA: 0.5050 ulp at 0x1.1f24b1fe89c01p+0
// dLog10 EP: 28.44 bits at 0x1.ff2ff3f0f05fbp-1
template <Double V, Level L>
struct Log10<V, L> : Log<Base10, V, L> {};

}  // namespace orvik::zym

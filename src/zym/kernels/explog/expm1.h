// e^x - 1 = (s - 1) + s (e^r - 1), s = 2^(n/N). The result has the sign of x, also where it is zero.
#pragma once

#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class E>
int32_t expm1_element(E x, E* r, E overflow) {
  if (is_nan(x) || x == infinity<E>) {
    *r = x * x;
    return 0;
  }
  if (x > overflow) {
    *r = infinity<E>;
    return zymErrorOverflow;
  }
  *r = x < E(-80) ? E(-1) : static_cast<E>(ExpParts(static_cast<double>(x)).normal());
  return 0;
}

// Above the overflow bound infinite, below -80 all that is special is -1.
template <class V>
Mask<V> repair_expm1(V x, V& r, Mask<V> mask, V overflow) {
  using E = Element<V>;
  const Mask<V> above = x > overflow;
  const Mask<V> below = (x < V(E(-80))) & mask;
  r = select(above, V(infinity<E>), r);
  r = select(below, V(E(-1)), r);
  return andnot(above | below, mask);
}

// HA: (s - 1) + s r and what `add_rest` adds, where s - 1 is taken with its rounding error (two-sum), the product's
// leading part with its own, and only the last sum rounds in the result.
template <class V, class AddRest>
V expm1_sum(V s, V r, AddRest add_rest) {
  using E = Element<V>;
  const V less = s - V(E(1));
  const V one = s - less;
  const V lost = (s - (less + one)) + (one - V(E(1)));
  const V head = fma(s, r, less);
  const V product_lost = fma(s, r, less - head);
  return head + (add_rest(product_lost) + lost);
}

template <class V, Level L>
struct Expm1;

// sExpm1 LA: 1.5507 ulp at -0x1.ff61e8p-7
// sExpm1 HA: 0.5185 ulp at 0x1.20554ap+6
// sExpm1 EP: 15.33 bits at 0x1.62e4d8p-7
template <Single V, Level L>
struct Expm1<V, L> {
  // A little below 125 ln 2, and 1021 ln 2 in 64 bits: no product with s leaves the finite numbers.
  static auto special(V x) { return magnitude_above<std::bit_cast<uint32_t>(86.64f) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_expm1(x, r, mask, V(kExpOverflow32)); }
  static int32_t element(const float* x, float* r) { return expm1_element(*x, r, kExpOverflow32); }

  static V lanes(V x) {
    V y;
    if constexpr (L == Level::EP) {
      const auto [t, n] = shift_round(x, V(k32OverLn2In32));
      const V r = fnma(n, V(kLn2Over32In32), x);
      const V s = as_float(as_bits(exp2_of_32<V>(as_bits(t))) + exponent_bits<5>(t));
      y = fma(s, fma(r * r, V(kExpm1SingleEP[0]), r), s - V(1.0f));
    } else {
      const auto [t, n] = shift_round(x, V(k64OverLn2In32));
      const V upper = fnma(n, V(kLn2Over64Head32), x);
      const V r = fnma(n, V(kLn2Over64Tail32), upper);
      const Exp2Row<V> row = Exp2Row<V>::of_64(as_bits(t));
      const Integer<V> exponent = exponent_bits<6>(t);
      const V s = as_float(as_bits(row.head) + exponent);
      const V scale = as_float(as_bits(V(1.0f)) + exponent);
      if constexpr (L == Level::LA) {
        const V rest = fma(row.head, fma(r * r, horner(r, kExpm1SingleLA), r) + row.tail, row.low);
        y = fma(scale, rest, s - V(1.0f));
      } else {
        const V r_low = fnma(n, V(kLn2Over64Tail32), upper - r);
        const V rest = fma(r * r, horner(r, kExpm1SingleHA), r_low + fma(row.tail, r, row.tail));
        y = expm1_sum(s, r, [&](V lost) { return fma(scale, fma(row.low, r, row.low), fma(s, rest, lost)); });
      }
    }
    return join_sign(y, x);  // +0 for -0 otherwise
  }
};

// dExpm1 LA: 2.0817 ulp at 0x1.8c7fed10336fep-9
// dExpm1 HA: 0.6566 ulp at -0x1.f546b6b882d76p-10
// dExpm1 EP: 31.17 bits at 0x1.62f72fc2e1666p-9
template <Double V, Level L>
struct Expm1<V, L> {
  static auto special(V x) { return magnitude_above<high_word(707.7)>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_expm1(x, r, mask, V(kExpOverflow64)); }
  static int32_t element(const double* x, double* r) { return expm1_element(*x, r, kExpOverflow64); }

  static V lanes(V x) {
    const auto [t, n] = shift_round(x, V(k128OverLn2));
    const V upper = fnma(n, V(kLn2Over128Head), x);
    const V r = fnma(n, V(kLn2Over128Tail), upper);
    const auto index = indices(as_bits(t) & Integer<V>(int64_t{127}));
    V y;
    if constexpr (L == Level::EP) {
      const V s = scale_by_row<7>(gather(kExp2Frac128, index), t);
      y = fma(s, fma(r * r, horner(r, kExpm1DoubleEP), r), s - V(1.0));
    } else {
      const auto row = gather(kExp2Pairs128, index);
      const V s = scale_by_row<7>(row.first, t);
      if constexpr (L == Level::LA) {
        y = fma(s, fma(r * r, horner(r, kExpm1DoubleLA), r) + row.second, s - V(1.0));
      } else {
        const V r_low = fnma(n, V(kLn2Over128Tail), upper - r);
        const V rest = fma(r * r, horner(r, kExpm1DoubleLA), r_low + fma(row.second, r, row.second));
        y = expm1_sum(s, r, [&](V lost) { return fma(s, rest, lost); });
      }
    }
    return join_sign(y, x);  // +0 for -0 otherwise
  }
};

}  // namespace orvik::zym

// e^x - 1 = (s - 1) + s (e^r - 1), s = 2^(n/N). The result has the sign of x, also where it is zero.
#pragma once

#include "zym/kernels/explog/constants_fit.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/lanes/lanes.h"

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
V repair_expm1(V x, V& r, V mask, V overflow) {
  using E = typename V::Element;
  const V above = compare<_CMP_GT_OQ>(x, overflow);
  const V below = compare<_CMP_LT_OQ>(x, V(E(-80))) & mask;
  r = select(above, V(infinity<E>), r);
  r = select(below, V(E(-1)), r);
  return andnot(above | below, mask);
}

// HA: (s - 1) + s r and what `add_rest` adds, where s - 1 is taken with its rounding error (two-sum), the product's
// leading part with its own, and only the last sum rounds in the result.
template <class V, class AddRest>
V expm1_sum(V s, V r, AddRest add_rest) {
  using E = typename V::Element;
  const V less = s - V(E(1));
  const V one = s - less;
  const V lost = (s - (less + one)) + (one - V(E(1)));
  const V head = fma(s, r, less);
  const V product_lost = fma(s, r, less - head);
  return head + (add_rest(product_lost) + lost);
}

template <class V, Level L>
struct Expm1;

template <Level L>
struct Expm1<F32, L> {
  static auto special(F32 x) { return magnitude_above<std::bit_cast<uint32_t>(86.64f) - 1>(x); }
  static F32 repair(F32 x, F32& r, F32 mask) { return repair_expm1(x, r, mask, F32(kExpOverflow32)); }
  static int32_t element(const float* x, float* r) { return expm1_element(*x, r, kExpOverflow32); }

  static F32 lanes(F32 x) {
    F32 y;
    if constexpr (L == Level::EP) {
      const F32 t = fma(x, F32(46.166241308446828f), F32(kShifter32));
      const F32 n = t - F32(kShifter32);
      const F32 r = fnma(n, F32(0.021660849392498290f), x);
      const F32 s = as_float(as_bits(exp2_of_32(as_bits(t))) + exponent_bits<5>(t));
      y = fma(s, fma(r * r, F32(kExpm1SingleEP[0]), r), s - F32(1.0f));
    } else {
      const F32 t = fma(x, F32(92.332482616893657f), F32(kShifter32));
      const F32 n = t - F32(kShifter32);
      const F32 upper = fnma(n, F32(kLn2Over64Head32), x);
      const F32 r = fnma(n, F32(kLn2Over64Tail32), upper);
      const Exp2Row row = Exp2Row::of_64(as_bits(t));
      const I32 exponent = exponent_bits<6>(t);
      const F32 s = as_float(as_bits(row.head) + exponent);
      const F32 scale = as_float(as_bits(F32(1.0f)) + exponent);
      if constexpr (L == Level::LA) {
        const F32 rest = fma(row.head, fma(r * r, horner(r, kExpm1SingleLA), r) + row.tail, row.low);
        y = fma(scale, rest, s - F32(1.0f));
      } else {
        const F32 r_low = fnma(n, F32(kLn2Over64Tail32), upper - r);
        const F32 rest = fma(r * r, horner(r, kExpm1SingleHA), r_low + fma(row.tail, r, row.tail));
        y = expm1_sum(s, r, [&](F32 lost) { return fma(scale, fma(row.low, r, row.low), fma(s, rest, lost)); });
      }
    }
    return y | sign_of(x);  // +0 for -0 otherwise
  }
};

template <Level L>
struct Expm1<F64, L> {
  static auto special(F64 x) { return magnitude_above<0x40861D99>(x); }  // from about 707.7
  static F64 repair(F64 x, F64& r, F64 mask) { return repair_expm1(x, r, mask, F64(kExpOverflow64)); }
  static int32_t element(const double* x, double* r) { return expm1_element(*x, r, kExpOverflow64); }

  static F64 lanes(F64 x) {
    const F64 t = fma(x, F64(184.6649652337873), F64(kShifter64));
    const F64 n = t - F64(kShifter64);
    const F64 upper = fnma(n, F64(kLn2Over128Head), x);
    const F64 r = fnma(n, F64(kLn2Over128Tail), upper);
    const Indices index(as_bits(t) & I64(int64_t{127}));
    F64 y;
    if constexpr (L == Level::EP) {
      const F64 s = ExpDouble::scale<7>(gather(kExp2Frac128, index), t);
      y = fma(s, fma(r * r, horner(r, kExpm1DoubleEP), r), s - F64(1.0));
    } else {
      const GatheredPair row = gather(kExp2Pairs128, index);
      const F64 s = ExpDouble::scale<7>(row.first, t);
      if constexpr (L == Level::LA) {
        y = fma(s, fma(r * r, horner(r, kExpm1DoubleLA), r) + row.second, s - F64(1.0));
      } else {
        const F64 r_low = fnma(n, F64(kLn2Over128Tail), upper - r);
        const F64 rest = fma(r * r, horner(r, kExpm1DoubleLA), r_low + fma(row.second, r, row.second));
        y = expm1_sum(s, r, [&](F64 lost) { return fma(s, rest, lost); });
      }
    }
    return y | sign_of(x);  // +0 for -0 otherwise
  }
};

}  // namespace orvik::zym

// e^x - 1 = (s - 1) + s (e^r - 1), s = 2^(n/N). The result has the sign of x, also where it is zero.
#pragma once

#include "lanes/register_tables.h"
#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/exp2_sixteenths.h"
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

// HA: (s - 1) + s r and the rest, where s - 1 is taken with its rounding error (two-sum), the sum with s r with its
// own, and only the last sum rounds in the result. r, the argument less multiples of the head of log(2)/16, is exact;
// what it lacks is taken as the relative tail of s.
template <class V, size_t N>
[[gnu::always_inline]] inline V expm1_in_two(V x, V scale, V step_head, V step_tail, const Element<V> (&p)[N]) {
  const V one_exactly = V(Element<V>(1));
  const auto [t, n] = shift_round(x, scale);
  const V r = fnma(n, step_head, x);
  const auto [s, s_tail] = exp2_of_16(t);
  const V tail = fnma(n, step_tail, s_tail);
  const V rest = fma(r, fma(r, horner(r, p), tail), tail);
  const V less = s - one_exactly;
  const V one = s - less;
  const V lost = (s - (less + one)) + (one - one_exactly);
  const V head = fma(s, r, less);
  const V product_lost = fma(s, r, less - head);
  return join_sign(head + (fma(s, rest, product_lost) + lost), x);  // +0 for -0 otherwise
}

// Doubles at LA and EP: with p = e^r - 1 and less = 1 - 2^(i/N), i about 0, what e^x is scaled from is 1 + u, u = p (1
// - less) - less, and 2^k (1 + u) - 1 loses nothing where it is small. The differences are those that give -0 for -0.
template <class V>
V expm1_scaled(V p, V less, V scale) {
  const V one = V(Element<V>(1));
  return fms(scale, fms(one - less, p, less), one - scale);
}
// Added to the shifter: the bias of the exponent above the row's bits; half a period and half of the lower factor's
// eight rows, which make the rows those about 0.
template <class V, int N>
inline constexpr Element<V> kCentredBias = Format<V>::bias* N + N / 2 + 4;

template <class V, Level L>
struct Expm1;

// sExpm1 LA: 1.2861 ulp at 0x1.ab317ep-5
// sExpm1 HA: 0.5214 ulp at -0x1.01e0a2p-6
// sExpm1 EP: 15.33 bits at 0x1.62e47ap-7
template <Single V, Level L>
struct Expm1<V, L> {
  // A little below 125 ln 2, and 1021 ln 2 in 64 bits: no product with s leaves the finite numbers.
  static auto special(V x) { return magnitude_above<std::bit_cast<uint32_t>(86.64f) - 1>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_expm1(x, r, mask, V(kExpOverflow32)); }
  static int32_t element(const float* x, float* r) { return expm1_element(*x, r, kExpOverflow32); }

  static V lanes(V x) {
    if constexpr (L == Level::EP) {
      const auto [t, n] = shift_round(x, V(k32OverLn2In32));
      const V r = fnma(n, V(kLn2Over32In32), x);
      const V s = as_float(as_bits(exp2_of_32<V>(as_bits(t))) + exponent_bits<5>(t));
      return fms(s, r * fma(V(kExpm1SingleEP[0]), r, V(1.0f)), V(1.0f) - s);
    } else if constexpr (L == Level::LA) {
      const auto [t, n] = shift_round(x, V(k8OverLn2In32));
      const V r = fnma(n, V(kLn2Over8Tail32), fnma(n, V(kLn2Over8Head32), x));
      const V row = look_up_8<V>(kExp2EighthFields32.bits, as_bits(t));
      const V s = as_float(as_bits(row) + shift_left<20>(as_bits(t)));
      const V tail = look_up_8<V>(kExp2Eighths[1], as_bits(t));
      const V p = r + fma(r * r, horner(r, kExpm1Eighth32), tail);
      return join_sign(fma(s, p, s - V(1.0f)), x);  // +0 for -0 otherwise
    } else {
      return expm1_in_two(x, V(k16OverLn2In32), V(kLn2Over16Head32), V(kLn2Over16Tail32), kExpm1Sixteenth32);
    }
  }
};

// dExpm1 LA: 3.0525 ulp at 0x1.a9152dec31deep-9
// dExpm1 HA: 0.5347 ulp at 0x1.1c811fac50e07p+9
// dExpm1 EP: 31.17 bits at 0x1.62f72fc2e1666p-9
template <Double V, Level L>
struct Expm1<V, L> {
  static auto special(V x) { return magnitude_above<high_word(707.7)>(x); }
  static Mask<V> repair(V x, V& r, Mask<V> mask) { return repair_expm1(x, r, mask, V(kExpOverflow64)); }
  static int32_t element(const double* x, double* r) { return expm1_element(*x, r, kExpOverflow64); }

  static V lanes(V x) {
    if constexpr (L == Level::HA) {
      return expm1_in_two(x, V(k16OverLn2), V(kLn2Over16Head), V(kLn2Over16Tail), kExpm1Sixteenth64);
    } else {
      const auto [t, n] = shift_round(x, V(k128OverLn2), V(kShifter64 + kCentredBias<V, 128>));
      const V r = fnma(n, V(kLn2Over128Tail), fnma(n, V(kLn2Over128Head), x));
      V p;
      if constexpr (L == Level::EP) {
        p = r * fma(horner(r, kExpm1DoubleEP), r, V(1.0));
      } else {
        p = r * fma(horner(r, kExpm1DoubleLA), r, V(1.0));
      }
      const Integer<V> exponent = shift_left<52 - 7>(as_bits(t)) & Integer<V>(uint64_t{0xFFF0000000000000});
      return expm1_scaled(p, less_exp2_of_128(as_bits(t)), as_float(exponent));
    }
  }

 private:
  // 1 - 2^(n/128), |n| up to 68, of which the low bits of t are the row.
  static V less_exp2_of_128(Integer<V> t) {
    if constexpr (kHasPermutes64<V>) {
      const V a = look_up_in_16(kLessExp2Sixteenths, shift_right<3>(t));
      return fma(V(1.0) - a, look_up_in_8(kLessExp2In128, t), a);
    } else {
      return gather(kLessExp2Rows128, indices(t & Integer<V>(int64_t{127})));
    }
  }
};

}  // namespace orvik::zym

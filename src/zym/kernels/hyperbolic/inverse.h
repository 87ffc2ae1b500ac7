// Inverse hyperbolic functions. With 2^e the power of two next to the argument of the logarithm,
//   theta = e ln(2) + 2 atanh(t / 2) = e ln(2) + t + t u P(u), u = t^2 <= 0.241,
// where t comes from one division and is the argument itself, nearly, for e = 0: small results need no branch.
//   asinh and acosh at LA and EP: C = cosh theta, S = sinh theta: t = 2 (C + S - 2^e) / (C + S + 2^e), and 2 S / (C + 1)
//   for e = 0; area.h has HA;
//   atanh x: t / 2 = ((1 + x) - 2^e (1 - x)) / ((1 + x) + 2^e (1 - x)), and theta is half of the above.
#pragma once

#include <limits>

#include "lanes/quotients.h"
#include "orvik/zym_types.h"
#include "zym/kernels/hyperbolic/area.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/constants.h"
#include "zym/kernels/shared/complement.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace hyperbolic {

// (2 atanh(t / 2) / t - 1) / u in u = t^2.
template <class V, Level L>
V inverse_polynomial(V u) {
  if constexpr (Single<V>) {
    if constexpr (L == Level::EP) return horner(u, kAtanhSingleEP);
    if constexpr (L == Level::LA) return horner(u, kAtanhSingleLA);
    if constexpr (L == Level::HA) return horner(u, kAtanhSingleHA);
  } else {
    if constexpr (L == Level::EP) return horner(u, kAtanhDoubleEP);
    if constexpr (L == Level::LA) return horner(u, kAtanhDoubleLA);
    if constexpr (L == Level::HA) return horner(u, kAtanhDoubleHA);
  }
}

// 2^e and e, as numbers, of bits whose exponent field is e itself.
template <class V>
struct Power {
  V power, e;
  explicit Power(Integer<V> bits) {
    constexpr int kMantissa = Format<V>::mantissa_bits;
    power = as_float((bits & Integer<V>(Format<V>::exponent_field)) + as_bits(V(Element<V>(1))));
    if constexpr (Single<V>) {
      e = to_float(shift_right<kMantissa>(bits));
    } else {
      const V whole = V(0x1p52);
      e = as_float(shift_right<kMantissa>(bits) | as_bits(whole)) - whole;
    }
  }
};

// e ln(2) + t + t u P(u), t = t_head + t_tail, ln(2) times `scale` (1 or 1/2). The tail counts at HA only.
template <Level L, class V>
[[gnu::always_inline]] inline V logarithm(V e, V t, V t_tail, V u, Element<V> scale) {
  using K = Constants<Element<V>>;
  const V p = inverse_polynomial<V, L>(u);
  if constexpr (L != Level::HA) {
    return fma(e, V(K::ln2 * scale), fma(t, u * p, t));
  } else {
    const HeadTail<V> sum = fast_two_sum(e * V(K::ln2_head * scale), t);
    return sum.head + fma(e, V(K::ln2_tail * scale), sum.tail + fma(t * u, p, t_tail));
  }
}

// theta of the first quadrant from its cosine and sine, not at HA.
template <Level L, class V>
[[gnu::always_inline]] inline V from_cosine_and_sine(V c, V s) {
  using E = Element<V>;
  using K = Constants<E>;
  const V one_half = V(E(0.5));
  const V y = c + s;
  // e = 0 up to e^(1/2) at LA, so that the ulp of what is left is that of 1/2; up to 3/2 otherwise, for a small t.
  const Power<V> n(as_bits(y) - as_bits(V(L == Level::LA ? K::half_root_e : E(0.75))));
  const Mask<V> small = n.power < V(E(2));  // e = 0
  const V num = s + drop(small, c - n.power);
  const V half_den = fma(drop(small, s) + c, one_half, n.power * one_half);
  const V t = num / half_den;
  return logarithm<L>(n.e, t, V(E(0)), safe_square<false>(t), E(1));
}

// Squares are taken of numbers up to this one; beyond it 1 does not count beside them.
template <class E>
inline constexpr E kSquared = sizeof(E) == 4 ? E(0x1p30) : E(0x1p60);
// The last high word that the lanes serve. From 2^90 or 2^900 on the power of two next to the sum nears the end of the
// numbers; at HA squares are taken of all.
template <class V, Level L>
inline constexpr uint32_t kLastWord = L == Level::HA ? (Single<V> ? 0x5EFFFFFFu : 0x5F2FFFFFu)
                                                    : (Single<V> ? 0x6C7FFFFFu : 0x782FFFFFu);

}  // namespace hyperbolic

// sAsinh LA: 2.8686 ulp at -0x1.ff421cp-4
// sAsinh HA: 0.5659 ulp at 0x1.e0f132p-4
// sAsinh EP: 14.07 bits at 0x1.0f5878p-2
// dAsinh LA: 2.5438 ulp at -0x1.f9c5b941a0cp-7
// dAsinh HA: 0.5454 ulp at -0x1.db668926a707bp-4
// dAsinh EP: 28.35 bits at 0x1.233393a5e5fep-2
template <class V, Level L>
struct Asinh {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4, .together = Double<V> || L == Level::HA};
  static auto special(V x) { return magnitude_above<hyperbolic::kLastWord<V, L>>(x); }

  static V lanes(V x) {
    const V a = magnitude(x);
    if constexpr (L != Level::HA) {
      const V b = min(a, V(hyperbolic::kSquared<E>));
      return join_sign(hyperbolic::from_cosine_and_sine<L>(max(root(fma(b, b, V(E(1)))), a), a), x);
    } else {
      return join_sign(hyperbolic::asinh_in_two(a), x);
    }
  }

  static Masked<V, Mask<V>> wide(V x) {
    const auto far = hyperbolic::area_far(magnitude(x));
    return {join_sign(far.value, x), far.special};
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
    } else {
      *r = x;  // infinite
    }
    return 0;
  }
};

// sAcosh LA: 3.3706 ulp at 0x1.1f39eap+0
// sAcosh HA: 0.5863 ulp at 0x1.0063p+0
// sAcosh EP: 14.07 bits at 0x1.08aae2p+0
// dAcosh LA: 2.8995 ulp at 0x1.1f251f148a247p+0
// dAcosh HA: 0.5512 ulp at 0x1.8e991ccdde0b8p+4
// dAcosh EP: 28.35 bits at 0x1.0a26008c8bf36p+0
template <class V, Level L>
struct Acosh {
  using E = Element<V>;
  static constexpr Knobs knobs = {
      .vectors = L == Level::HA ? 2 : 4, .filler = 1.5, .together = Double<V> || L == Level::HA};
  static auto special(V x) { return outside < Single<V> ? 0x3F800000u : 0x3FF00000u, hyperbolic::kLastWord < V, L >> (x); }

  static V lanes(V x) {
    if constexpr (L != Level::HA) {
      const V b = min(x, V(hyperbolic::kSquared<E>)), d = b - V(E(1));
      return hyperbolic::from_cosine_and_sine<L>(x, root(fma(d, d, d + d)) + (x - b));
    } else {
      return hyperbolic::acosh_in_two(x);
    }
  }

  static Masked<V, Mask<V>> wide(V x) { return hyperbolic::area_far(x); }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
    } else if (x == infinity<E>) {
      *r = x;
    } else {
      *r = opaque(E(0)) * infinity<E>;
      return zymErrorDomain;
    }
    return 0;
  }
};

// sAtanh LA: 1.9283 ulp at 0x1.56506ap-3
// sAtanh HA: 0.5940 ulp at -0x1.66ea14p-1
// sAtanh EP: 14.07 bits at 0x1.094332p-3
// dAtanh LA: 2.0454 ulp at 0x1.5efa2646b058bp-3
// dAtanh HA: 0.5932 ulp at -0x1.66f07d479e806p-1
// dAtanh EP: 28.35 bits at -0x1.1d8a8ecfdaa58p-3
template <class V, Level L>
struct Atanh {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4, .together = L == Level::HA};
  // From 1 - 2^-22 or 1 - 2^-21 on: the power of two with 1 added would be rounded.
  static auto special(V x) { return magnitude_above < Single<V> ? 0x3F7FFFFBu : 0x3FEFFFFEu > (x); }

  static V lanes(V x) {
    const V a = magnitude(x), one = V(E(1));
    // The quotient of two numbers as integers, next to their logarithms: rounded to a power of two.
    const V sum = one + a, difference = one - a;
    const hyperbolic::Power<V> n(as_bits(sum) - as_bits(difference) +
                                 Integer<V>(Bits<V>{1} << (Format<V>::mantissa_bits - 1)));
    V t, t_low = V(E(0));
    if constexpr (L != Level::HA) {
      const V above = n.power + one, below = one - n.power;
      t = fma(a, above, below) / fma(a, below, above);
    } else {
      const V scaled = n.power * difference;  // next to the sum: what they differ by is exact
      const V sum_low = a - (sum - one), difference_low = (one - difference) - a;
      const HeadTail<V> num = fast_two_sum(sum - scaled, fnma(n.power, difference_low, sum_low));
      const V rest = fma(n.power, difference_low, sum_low);
      // What the denominator lost: exact for e = 0, where nothing larger is added to t.
      const V den = fma(n.power, difference, sum), den_low = fma(n.power, difference, sum - den) + rest;
      t = num.head / den;
      t_low = (fnma(t, den, num.head) + fnma(t, den_low, num.tail)) * complement_of_exponent(den);
    }
    return join_sign(hyperbolic::logarithm<L>(n.e, t, t_low, safe_square<L == Level::HA>(t + t), E(0.5)), x);
  }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x * x;
      return 0;
    }
    if (is_infinite(x)) {
      *r = x * opaque(E(0));
      return zymErrorDomain;
    }
    if (magnitude(x) > 1) {
      *r = opaque(E(0)) * infinity<E>;
      return zymErrorDomain;
    }
    if (magnitude(x) == 1) {
      *r = x / opaque(E(0));
      return zymErrorSingularity;
    }
    *r = join_sign(static_cast<E>(near_one(magnitude(x))), x);
    return 0;
  }

 private:
  // The power of two is so large that t need not be better than its own ulp.
  static double near_one(double a) {
    const double sum = 1 + a, difference = 1 - a;
    const hyperbolic::Power<double> n(as_bits(sum) - as_bits(difference) + (uint64_t{1} << 51));
    const double t = fnma(n.power, difference, sum) / fma(n.power, difference, sum);
    return hyperbolic::logarithm<Level::HA>(n.e, t, 0.0, 4 * t * t, 0.5);
  }
};

}  // namespace orvik::zym

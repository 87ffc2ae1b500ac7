// Hyperbolic sine and cosine. |x| = n ln(2) + r; with a = 2^n / 2, b = 2^-n / 2, C = cosh r, S = sinh r:
//   cosh x = (a + b) C + (a - b) S,  sinh x = (a - b) C + (a + b) S:
// for n = 0 the sine is S itself, so that it needs no branch of its own. At HA in steps of ln(2)/16, with a table for a
// and b, and with what sums lose.
#pragma once

#include <iterator>

#include "orvik/zym_types.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/constants.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/kernels/shared/sixteen_rows.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace hyperbolic {

// (sinh r / r - 1) / r^2 and (cosh r - 1) / r^2 in z = r^2.
template <class V, Level L>
V sine_polynomial(V z) {
  if constexpr (Single<V>) {
    if constexpr (L == Level::EP) return horner(z, kSinhSingleEP);
    if constexpr (L == Level::LA) return horner(z, kSinhSingleLA);
    if constexpr (L == Level::HA) return horner(z, kSinhSingleHA);
  } else {
    if constexpr (L == Level::EP) return horner(z, kSinhDoubleEP);
    if constexpr (L == Level::LA) return horner(z, kSinhDoubleLA);
    if constexpr (L == Level::HA) return horner(z, kSinhDoubleHA);
  }
}
template <class V, Level L>
V cosine_polynomial(V z) {
  if constexpr (Single<V>) {
    if constexpr (L == Level::EP) return horner(z, kCoshSingleEP);
    if constexpr (L == Level::LA) return horner(z, kCoshSingleLA);
    if constexpr (L == Level::HA) return horner(z, kCoshSingleHA);
  } else {
    if constexpr (L == Level::EP) return horner(z, kCoshDoubleEP);
    if constexpr (L == Level::LA) return horner(z, kCoshDoubleLA);
    if constexpr (L == Level::HA) return horner(z, kCoshDoubleHA);
  }
}

// The element's 1/2 by an integer exponent above or below it.
template <class V>
V half_times_power(Integer<V> shifted_exponent, bool negative) {
  const Integer<V> half = as_bits(V(Element<V>(0.5)));
  return as_float(negative ? half - shifted_exponent : half + shifted_exponent);
}

// 2^(i/16) / 2 and 2^(-i/16) / 2, nearly, and what the logarithms of these have beyond i ln(2)/16. The exponents of
// both are added as n << (mantissa bits - 4), row bits and all, so that each row is entered without them.
template <class E>
constexpr SixteenRows<E, 3> sixteenths(const E (&t)[3][16]) {
  using Bits = typename FloatFormat<E>::Bits;
  return SixteenRows<E, 3>([&](size_t c, size_t i) {
    if (c == 2) return t[2][i];
    const Bits row = static_cast<Bits>(i) << (FloatFormat<E>::mantissa_bits - 4);
    const auto half = std::bit_cast<Bits>(t[c][i] / 2);
    return std::bit_cast<E>(static_cast<Bits>(c == 0 ? half - row : half + row));
  });
}
template <class E>
struct SixteenthRows;
template <>
struct SixteenthRows<float> {
  static constexpr SixteenRows<float, 3> rows = sixteenths(kSixteenths32);
};
template <>
struct SixteenthRows<double> {
  static constexpr SixteenRows<double, 3> rows = sixteenths(kSixteenths64);
};

// |x| in parts for the sum of two exponentials: a and b, r and its square.
template <class V, Level L>
struct Parts {
  using E = Element<V>;
  V a, b;
  V r, r_head, r_lost;  // r is nearly r_head - r_lost, the first exact

  [[gnu::always_inline]] explicit Parts(V x) {
    using K = Constants<E>;
    constexpr E kSteps = L == Level::HA ? 16 : 1;
    const auto [sum, n] = shift_round(x, V(K::log2e * kSteps));
    r_head = fnma(n, V(K::ln2_head / kSteps), x);
    const Integer<V> bits = as_bits(sum);
    if constexpr (L == Level::HA) {
      const Quad<V> row = look_up_row<V>(SixteenthRows<E>::rows, bits);
      const Integer<V> exponent = shift_left<Format<V>::mantissa_bits - 4>(bits);
      a = as_float(as_bits(row.c[0]) + exponent);
      b = as_float(as_bits(row.c[1]) - exponent);
      r_lost = fma(n, V(K::ln2_tail / kSteps), row.c[2]);
      r = r_head - r_lost;
    } else {
      const Integer<V> exponent = shift_left<Format<V>::mantissa_bits>(bits);
      a = half_times_power<V>(exponent, false);
      b = half_times_power<V>(exponent, true);
      r = fnma(n, V(K::ln2_tail), r_head);
    }
  }

  [[gnu::always_inline]] V cosine() const {
    const V p = a + b, m = a - b;
    const V z = safe_square<false>(r);
    const V even = z * cosine_polynomial<V, L>(z);
    const V odd = fma(z, sine_polynomial<V, L>(z), V(E(1)));
    const V s = m * r;  // 0 for n = 0
    if constexpr (L != Level::HA) return fma(s, odd, fma(p, even, p));
    const V p_lost = b - (p - a);
    return p + fma(s, odd, fma(p, even, p_lost));
  }
  [[gnu::always_inline]] V sine() const {
    const V p = a + b, m = a - b;
    const V z = safe_square<L == Level::HA>(r);
    const V even = z * cosine_polynomial<V, L>(z);
    const V odd = sine_polynomial<V, L>(z);
    if constexpr (L != Level::HA) return fma(p, fma(r, z * odd, r), fma(m, even, m));
    const V p_lost = b - (p - a), m_lost = (a - m) - b;
    const V head = fma(p, r_head, m);
    const V lost = fma(p, r_head, m - head);
    const V rest = fma(p, fms(r * z, odd, r_lost), m * even);
    return head + (rest + (lost + fma(p_lost, r, m_lost)));
  }
};

// |x| from 86.5 or 707.625 on: 2^-n / 2 leaves the range of exponents.
template <class V>
auto large(V x) {
  return magnitude_above < Single<V> ? 0x42ACFFFFu : 0x40861CFFu > (x);
}
template <class E>
inline constexpr E kOverflow = sizeof(E) == 4 ? E(kOverflow32) : E(kOverflow64);

// e^|x| / 2, |x| large but without overflow.
template <class E>
E half_exponential(E x) {
  ExpParts parts(static_cast<double>(magnitude(x)));
  parts.k -= 1;
  return static_cast<E>(parts.normal());
}
template <class E>
E overflowed(E x) {
  return x * opaque(std::numeric_limits<E>::max());
}

}  // namespace hyperbolic

// sCosh LA: 2.6711 ulp at -0x1.023622p+3
// sCosh HA: 0.5775 ulp at -0x1.b83e5cp+1
// sCosh EP: 12.81 bits at -0x1.fe282p+2
// dCosh LA: 2.2702 ulp at 0x1.25e551f70ec18p+4
// dCosh HA: 0.5493 ulp at -0x1.6c4548b838816p+4
template <class V, Level L>
struct Cosh {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4};
  static auto special(V x) { return hyperbolic::large(x); }
  static V lanes(V x) { return hyperbolic::Parts<V, L>(magnitude(x)).cosine(); }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || is_infinite(x)) {
      *r = x * x;
    } else if (magnitude(x) > hyperbolic::kOverflow<E>) {
      *r = hyperbolic::overflowed(magnitude(x));
      return zymErrorOverflow;
    } else {
      *r = hyperbolic::half_exponential(x);
    }
    return 0;
  }

  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    const Mask<V> above = magnitude(x) > V(hyperbolic::kOverflow<E>);
    r = select(above, V(infinity<E>), r);
    return andnot(above, mask);
  }
};

// sSinh LA: 2.4625 ulp at 0x1.93141ep-2
// sSinh HA: 0.5905 ulp at -0x1.62ea82p-6
// sSinh EP: 12.29 bits at -0x1.62e52ep-2
// dSinh LA: 2.5961 ulp at 0x1.c40c7f76026p-2
// dSinh HA: 0.5143 ulp at -0x1.6c28dd5489c84p-6
// dSinh EP: 33.34 bits at -0x1.62f64cd64731ap-2
template <class V, Level L>
struct Sinh {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = L == Level::HA ? 2 : 4};
  static auto special(V x) { return hyperbolic::large(x); }
  static V lanes(V x) { return join_sign(hyperbolic::Parts<V, L>(magnitude(x)).sine(), x); }

  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || is_infinite(x)) {
      *r = x + x;
    } else if (magnitude(x) > hyperbolic::kOverflow<E>) {
      *r = hyperbolic::overflowed(x);
      return zymErrorOverflow;
    } else {
      *r = join_sign(hyperbolic::half_exponential(x), x);
    }
    return 0;
  }

  static Mask<V> repair(V x, V& r, Mask<V> mask) {
    const Mask<V> above = magnitude(x) > V(hyperbolic::kOverflow<E>);
    r = select(above, join_sign(V(infinity<E>), x), r);
    return andnot(above, mask);
  }
};

}  // namespace orvik::zym

// Hyperbolic sine and cosine. |x| = n ln(2) + r; with a = 2^n / 2, b = 2^-n / 2, C = cosh r, S = sinh r:
//   cosh x = (a + b) C + (a - b) S,  sinh x = (a - b) C + (a + b) S:
// for n = 0 the sine is S itself, so that it needs no branch of its own. At HA in steps of ln(2)/4, and in head and
// tail.
#pragma once

#include <iterator>

#include "orvik/zym_types.h"
#include "zym/kernels/explog/exp_element.h"
#include "zym/kernels/hyperbolic/coefficients.h"
#include "zym/kernels/hyperbolic/constants.h"
#include "zym/kernels/shared/corrections.h"
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

// Tables of 2^(i/4) / 2 in a register. The exponent is added as n << (mantissa bits - 2), row bits and all, so that
// each row is entered without them.
struct QuarterHeads {
  float v[4];
  constexpr QuarterHeads() : v{} {
    for (uint32_t i = 0; i < 4; ++i) v[i] = f32(std::bit_cast<uint32_t>(kQuarter32[i] / 2) - (i << 21));
  }
};
template <class E>
struct QuarterRows;
template <>
struct QuarterRows<float> {
  static constexpr QuarterHeads heads{};
};
struct WordTable {
  alignas(32) uint32_t words[8];
};
constexpr WordTable words_of(const double (&table)[4], double factor, uint64_t step) {
  WordTable t = {};
  for (uint64_t i = 0; i < 4; ++i) {
    const uint64_t bits = std::bit_cast<uint64_t>(table[i] * factor) - i * step;
    t.words[2 * i] = static_cast<uint32_t>(bits);
    t.words[2 * i + 1] = static_cast<uint32_t>(bits >> 32);
  }
  return t;
}
template <>
struct QuarterRows<double> {
  static constexpr WordTable heads = words_of(kQuarter64, 0.5, uint64_t{1} << 50),
                             tails = words_of(kQuarterLow64, 1, 0);
};

// 2^(n/4) / 2 and 2^(-n/4) / 2, head and tail; n in the low bits of `sum`. From n = 320 on the second is that of 320:
// nothing beside the first, and far from underflow.
template <class V>
struct Quarters {
  HeadTail<V> up, down;

  [[gnu::always_inline]] explicit Quarters(V shifted) {
    const Integer<V> sum = as_bits(shifted);
    const Integer<V> capped = as_bits(min(shifted, V(kShifter<V> + Element<V>(320))));
    if constexpr (Single<V>) {
      const V heads = quad_table<V>(QuarterRows<float>::heads.v), tails = quad_table<V>(kQuarterLow32);
      const auto row = [&](Integer<V> n) -> HeadTail<V> {
        const V head = as_float(as_bits(select_in_quad(heads, n)) + shift_left<21>(n));
        return {head, head * select_in_quad(tails, n)};
      };
      up = row(sum);
      down = row(Integer<V>(uint32_t{0}) - capped);
    } else {
      // A row is two words; `twice` is 2n in both words of a lane.
      const Integer<V> heads = octet_table<V>(QuarterRows<double>::heads.words);
      const Integer<V> tails = octet_table<V>(QuarterRows<double>::tails.words);
      const auto twice = [](Integer<V> n) { return shift_left<33>(n) + (shift_left<1>(n) & Integer<V>(uint64_t{7})); };
      const Integer<V> to_up = Integer<V>(uint64_t{1} << 32) + twice(sum);
      const V up_head = as_float(look_up(heads, to_up) + shift_left<50>(sum));
      up = {up_head, up_head * as_float(look_up(tails, to_up))};
      const Integer<V> to_down = Integer<V>((uint64_t{1} << 32) + 8) - twice(capped);  // no borrow between the words
      const V down_head = as_float(look_up(heads, to_down) - shift_left<50>(capped));
      down = {down_head, down_head * as_float(look_up(tails, to_down))};
    }
  }
};

// |x| in parts for the sum of two exponentials: the sum p = a + b and the difference m = a - b. At HA with tails.
template <class V, Level L>
struct Parts {
  using E = Element<V>;
  V p, m, p_low, m_low;
  V r, r_low, z;

  [[gnu::always_inline]] explicit Parts(V a) {
    using K = Constants<E>;
    constexpr E kSteps = L == Level::HA ? 4 : 1;
    const auto [sum, n] = shift_round(a, V(K::log2e * kSteps));
    const V upper = fnma(n, V(K::ln2_head / kSteps), a);
    r = fnma(n, V(K::ln2_tail / kSteps), upper);
    z = safe_square<L == Level::HA>(r);
    if constexpr (L != Level::HA) {
      const Integer<V> exponent = shift_left<Format<V>::mantissa_bits>(as_bits(sum));
      const V up = half_times_power<V>(exponent, false), down = half_times_power<V>(exponent, true);
      p = up + down;
      m = up - down;
      p_low = m_low = r_low = V(E(0));
    } else {
      r_low = fnma(n, V(K::ln2_tail / kSteps), upper - r);
      const Quarters<V> q(sum);
      p = q.up.head + q.down.head;
      m = q.up.head - q.down.head;
      p_low = (q.down.head - (p - q.up.head)) + (q.up.tail + q.down.tail);
      m_low = ((q.up.head - m) - q.down.head) + (q.up.tail - q.down.tail);
    }
  }

  // one C + other S: p, m for the cosine, m, p for the sine.
  [[gnu::always_inline]] static V joined(const Parts& k, V one, V one_low, V other, V other_low) {
    const V sine = sine_polynomial<V, L>(k.z), cosine = cosine_polynomial<V, L>(k.z);
    if constexpr (L != Level::HA) {
      return fma(other, fma(k.r, k.z * sine, k.r), fma(one, k.z * cosine, one));
    } else {
      // one + other r, its error, and all that is small.
      const V head = fma(other, k.r, one);
      const V lost = fma(other, k.r, one - head);
      const V s = fma(k.r * k.z, sine, k.r_low);
      const V rest = fma(other, s, one * (k.z * cosine));
      return head + (rest + (lost + fma(other_low, k.r, one_low)));
    }
  }
  V cosine() const { return joined(*this, p, p_low, m, m_low); }
  V sine() const { return joined(*this, m, m_low, p, p_low); }
};

// |x| from 87 or 708 on: 2^-n / 2 leaves the range of exponents.
template <class V>
auto large(V x) {
  return magnitude_above < Single<V> ? 0x42ADFFFFu : 0x40861FFFu > (x);
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

// sCosh LA: 2.6562 ulp at 0x1.009662p+3
// sCosh HA: 0.5150 ulp at -0x1.4ce1bp+0
// sCosh EP: 12.81 bits at 0x1.fe280cp+2
// dCosh LA: 2.0654 ulp at 0x1.2904a05479a85p+4
// dCosh HA: 0.5072 ulp at -0x1.1e3c4860b5f8cp+5
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

// sSinh LA: 2.4625 ulp at -0x1.93141ep-2
// sSinh HA: 0.5277 ulp at 0x1.721d1p-4
// sSinh EP: 12.29 bits at 0x1.62e52ep-2
// dSinh LA: 2.3078 ulp at 0x1.26b5ecdc69e8cp+4
// dSinh HA: 0.5072 ulp at -0x1.1e3c4860b5f8cp+5
// dSinh EP: 33.37 bits at -0x1.7e2a58b48d1p-2
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

// ln |gamma(x)|. With the rows of gamma.h: below 1 the logarithm of what 1/gamma is there, so that poles and the zeros
// between them need no care; from 1 to 16 polynomials of the logarithm itself, exact at its zeros 1 and 2; above, and
// reflected below -43, Stirling's formula
//   ln(gamma(x)) = (x - 1/2) (ln(x) - 1) + s(1/x).
// One polynomial and one logarithm serve every lane.
#pragma once

#include "zym/kernels/explog/log.h"
#include "zym/kernels/gamma/element.h"
#include "zym/kernels/gamma/rows.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/kernels/trig/sin_units.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct LGamma;

namespace gamma {

// How a lane of the rows is made up: factor (ln(argument) - less) + polynomial(variable).
template <Double V>
struct LogPlace {
  Mask<V> low, stirling;
  V distance;  // the row's polynomial times this is the argument of the logarithm, for low lanes
  V row, variable;

  // `divisor` is x where x is above 16, but not so large that powers of its reciprocal underflow, and not 0.
  LogPlace(V x, V divisor) {
    const Place<V> p(x, min(x, V(kStirling)));
    low = p.low;
    stirling = x > V(kStirling);
    distance = p.distance;
    row = select(stirling, V(kStirlingRow - kGammaFirst),
                 p.n + select(low, V(-kGammaFirst), V(kLogGammaFirst - 4 - kGammaFirst)));
    variable = select(stirling, V(1.0) / divisor, p.rest);
  }
  V argument(V x, V of_low) const { return select(low, magnitude(of_low), select(stirling, x, V(1.0))); }
  V factor(V x) const { return select(stirling, x - V(0.5), keep(low, V(-1.0))); }
  V minus_less() const { return keep(stirling, V(-1.0)); }
};

// -ln |gamma(-a)|, a > 43 and no integer, but for the logarithm of sin(pi a): (a + 1/2) (ln(a) - 1) and the rest.
// The logarithm of the sine is far too small to matter beyond double precision: results are -120 - ln |a - n| and
// below.
template <Double V>
V rest_of_reflection(V a) {
  const V sine = octave_log_in_two<BaseE, Exponents>(magnitude(Sinpi<V, Level::LA>::lanes(a)));  // quietly of 0, too
  const V s = Row<V>(V(kStirlingRow - kGammaFirst)).template value<kRest>(V(1.0) / min(a, V(0x1p60)));
  return sine + (s + V(kOneLessLogOfPi));
}
template <Double V>
Mask<V> reflected(V x) {
  return (x < V(kFirstOfRows)) & complement(round<Direction::nearest>(x) == x);
}

// Doubles that stand for floats.
template <int Rest, Double W>
[[gnu::always_inline]] inline W log_of_single(W x) {
  const LogPlace<W> p(x, max(x, W(kStirling)));
  const W v = Row<W>(p.row).template value<Rest>(p.variable);
  const W argument = max(W(0x1p-1000), p.argument(x, p.distance * v));  // 0 at poles
  const W ln = Ln<W, Level::EP>::lanes(argument);
  return fma(p.factor(x), ln + p.minus_less(), drop(p.low, v));
}
template <Double W>
W reflection_of_single(W x) {
  const Mask<W> served = reflected(x);
  const W a = select(served, magnitude(x), W(100.5));
  return W(0.0) - fma(a + W(0.5), Ln<W, Level::HA>::lanes(a) - W(1.0), rest_of_reflection(a));
}

}  // namespace gamma

// --- 32 bits --------------------------------------------------------------------------------------------------------

// sLGamma LA: 2.3004 ulp at 0x1.1ffddp+0
// sLGamma HA: 0.5222 ulp at 0x1.1ffa72p+0
// sLGamma EP: 16.64 bits at 0x1.1fffbep+0
template <Single V, Level L>
struct LGamma<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static constexpr int kCoefficients = L == Level::HA ? 8 : L == Level::LA ? 6 : 4;

  static Mask<V> special(V x) { return complement((x >= V(-43.0f)) & (x <= V(gamma::Bounds<float>::log_overflow))); }
  static auto lanes(V x) {
    const Mask<V> pole = (x <= V(0.0f)) & (round<Direction::nearest>(x) == x);
    return Masked{gamma::in_doubles(
                      [](auto y) __attribute__((always_inline)) { return gamma::log_of_single<kCoefficients>(y); }, x),
                  pole};
  }
  static Masked<V, Mask<V>> wide(V x) {
    const V r = gamma::in_doubles([](auto y) { return gamma::reflection_of_single(y); }, x);
    return {r, complement((x < V(-43.0f)) & complement(round<Direction::nearest>(x) == x))};
  }
  static int32_t element(const float* x, float* r) { return gamma::lgamma_element(x, r); }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// dLGamma HA: 0.5064 ulp at -0x1.701880c3bba58p+1
template <Double V, Level L>
struct LGamma<V, L> {
  static constexpr Knobs knobs = {.vectors = 2};
  static constexpr double kTiny = 0x1p-100;  // below, powers of the argument would underflow

  static constexpr double kHuge = 0x1p1014;  // above, a product may overflow though the result does not

  static Mask<V> special(V x) {
    return complement((x >= V(gamma::kFirstOfRows)) & (x <= V(kHuge)) & (magnitude(x) >= V(kTiny)));
  }
  static auto lanes(V x) {
    const gamma::LogPlace<V> p(x, min(x, V(0x1p60)));
    const HeadTail<V> v = gamma::Row<V>(p.row).head_tail(p.variable);
    const Mask<V> pole = p.distance == V(0.0);
    const V den = p.distance * v.head;
    const V den_tail = fma(p.distance, v.tail, fms(p.distance, v.head, den));
    const V argument = p.argument(x, select(pole, V(1.0), den));
    HeadTail<V> ln = ln_head_tail(argument);
    // ln(h + t) = ln(h) + t / h.
    ln.tail = fma(keep(p.low, flip_sign(den_tail, den)), rough_reciprocal(argument), ln.tail);

    const HeadTail<V> less = fast_two_sum(ln.head, p.minus_less());
    const V factor = p.factor(x);
    const V factor_tail = keep(p.stirling, (x - factor) - V(0.5));
    const HeadTail<V> product = two_prod(factor, less.head);
    const V tail = fma(factor, less.tail + ln.tail, fma(factor_tail, less.head, product.tail));
    const HeadTail<V> sum = fast_two_sum(product.head, drop(p.low, v.head));
    return Masked{sum.head + (sum.tail + (tail + drop(p.low, v.tail))), pole};
  }

  // Below -43; next to 0, where gamma(x) is 1/x; the largest, by halves.
  static Masked<V, Mask<V>> wide(V x) {
    const Mask<V> negative = gamma::reflected(x);
    const Mask<V> tiny = (magnitude(x) < V(kTiny)) & (magnitude(x) > V(0.0));
    const Mask<V> huge = (x > V(kHuge)) & (x <= V(gamma::Bounds<double>::log_overflow));
    const V a = select(negative | huge, magnitude(x), V(100.5));
    const HeadTail<V> ln = ln_head_tail(a);
    const HeadTail<V> less = fast_two_sum(ln.head, V(-1.0));
    const V factor = select(huge, a * V(0.5), a + V(0.5));
    const V factor_tail = drop(huge, (a - factor) + V(0.5));
    const HeadTail<V> product = two_prod(factor, less.head);
    const V tail = fma(factor, less.tail + ln.tail, fma(factor_tail, less.head, product.tail));
    const V reflected = V(0.0) - (product.head + (tail + gamma::rest_of_reflection(a)));
    const V lifted = select(tiny, magnitude(x), V(0x1p-1000)) * V(0x1p60);
    const V next_to_zero = V(0.0) - octave_log_in_two<BaseE>(lifted, 60.0);
    const V large = select(huge, (product.head + tail) * V(2.0), reflected);
    return {select(tiny, next_to_zero, large), complement(negative | huge | tiny)};
  }
  static int32_t element(const double* x, double* r) { return gamma::lgamma_element(x, r); }
};

}  // namespace orvik::zym

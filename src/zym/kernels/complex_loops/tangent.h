// Tangent, circular and hyperbolic, of complex numbers (Kahan 1987, without his divisions by cos y):
//   tanh(x + i y) = (sinh x cosh x + i sin y cos y) / (sinh^2 x + cos^2 y);
// the sum has terms of one sign.
#pragma once

#include "zym/kernels/complex_loops/exponential.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym {
namespace complex_loops {

struct HyperbolicTangent {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    if (!(magnitude(x) < kSteep)) [[unlikely]]
      return steep<N>(x, y);
    const Pair<double> r = near<N>(x, y);
    return {r.first, r.second};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    return complement((magnitude(x) < V(kSteep)) & (magnitude(y) < V(kLargeAngle)));
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    return {near<N>(x, y), Mask<V>(x > V(kSteep))};  // none
  }

  static Point special(double x, double y) {
    if (is_nan(x)) return y == 0 ? Point{x + x, y} : no_number(x, y);
    if (!is_infinite(x)) return x == 0 ? Point{x, no_number(0.0, y).im} : no_number(0.0, y);
    if (!complex_loops::finite(y)) return {std::copysign(1.0, x), std::copysign(0.0, y)};
    const SineCosine<double> s = sine_cosine<double>(y);
    return {std::copysign(1.0, x), y == 0 ? y : 0.0 * (s.sine * s.cosine)};
  }

 private:
  static constexpr double kSteep = 22.0;

  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Pair<V> near(V x, V y) {
    const SineCosine<N> s = sine_cosine<N>(y);
    const Hyperbolic<N> h(x);
    const N under = add(square(h.sine), square(s.cosine));
    const V re = quotient(h.sine, h.cosine, under);
    const V im = quotient(s.sine, s.cosine, under);
    return {copy_sign(re, x), with_sign_of_product(im, s)};
  }
  // 1 to the last bit, and 4 sin y cos y e^(-2 |x|).
  template <class N>
  [[gnu::noinline]] static Point steep(double x, double y) {
    const SineCosine<N> s = sine_cosine<N>(y);
    const Exponential<N> e = exponential<N>(-2.0 * min(magnitude(x), 400.0));
    const double im = with_sign_of_product(4.0 * rounded_product(multiply(s.sine, s.cosine), e.value), s);
    const int64_t power = e.power(), k = power / 2;
    return {std::copysign(1.0, x), im * power_of_two<double>(k) * power_of_two<double>(power - k)};
  }
  // a b / c; what is tiny is lifted, so that tails of it stay.
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static V quotient(N a, N b, N c) {
    if constexpr (kPlain<N>) {
      return a * b / c;
    } else {
      const Mask<V> tiny = magnitude(a.head) < V(0x1p-900);
      const N up = scaled(a, select(tiny, V(0x1p300), V(1.0)));
      return rounded(divide(multiply(up, b), c)) * select(tiny, V(0x1p-300), V(1.0));
    }
  }
  template <class N, class V = Lanes<N>>
  static V with_sign_of_product(V r, const SineCosine<N>& s) {  // r may be a zero that lost it
    return copy_sign(r, flip_sign(head_of(s.sine), head_of(s.cosine)));
  }
};
// tan z = -i tanh(i z).
struct CircularTangent {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Point w = HyperbolicTangent::finite<N>(y, x);
    return {w.im, w.re};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    return HyperbolicTangent::left<N>(y, x);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = HyperbolicTangent::lanes<N>(y, x);
    return {{r.value.second, r.value.first}, r.special};
  }
  static Point special(double x, double y) { return turned_back(HyperbolicTangent::special(-y, x)); }
};

// cTan HA: 0.5000 ulp at -0x1.7b3686p+2, 0x1.95b62p+1 (second result)
// zTan HA: 0.7256 ulp at -0x1.1500429644f42p-1021, -0x1.008ef73ed9306p+0
template <class V, Level L>
struct Tan : Loop<CircularTangent, V> {};
// cTanh HA: 0.5000 ulp at 0x1.1090ep+2, 0x1.930a3ep+2
// zTanh HA: 0.6325 ulp at 0x1.4p-4, 0x1p-1022 (second result)
template <class V, Level L>
struct Tanh : Loop<HyperbolicTangent, V> {};

}  // namespace complex_loops

using complex_loops::Tan;
using complex_loops::Tanh;

}  // namespace orvik::zym

// Sine and cosine, circular and hyperbolic, of complex numbers: products of a sine or cosine of one part and a
// hyperbolic one of the other, both of more precision than the result, so that each part is rounded nearly once.
#pragma once

#include "zym/kernels/complex_loops/exponential.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym {
namespace complex_loops {

// What the four functions are made of: the circular pair of one part, the hyperbolic pair of the other.
template <class N>
struct Factors {
  SineCosine<N> circular;
  Hyperbolic<N> hyperbolic;
  [[gnu::always_inline]] Factors(double angle, double exponent)
      : circular(sine_cosine<N>(angle)), hyperbolic(exponent) {}
  double join(N a, N b) const { return rounded_product(a, b) * hyperbolic.scale * hyperbolic.scale; }
};

// sinh(x + i y) = sinh x cos y + i cosh x sin y; cosh(x + i y) = cosh x cos y + i sinh x sin y.
struct HyperbolicSine {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Factors<N> f(y, x);
    return {f.join(f.circular.cosine, f.hyperbolic.sine), f.join(f.circular.sine, f.hyperbolic.cosine)};
  }
  static Point special(double x, double y) {
    if (is_nan(x)) return y == 0 ? Point{x + x, y} : no_number(x, y);
    if (!is_infinite(x)) return x == 0 ? Point{x, no_number(0.0, y).im} : no_number(0.0, y);
    if (!complex_loops::finite(y)) return {x, no_number(0.0, y).im};
    const SineCosine<double> s = sine_cosine<double>(y);
    return {s.cosine * x, y == 0 ? y : s.sine * infinity<double>};
  }
};
struct HyperbolicCosine {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Factors<N> f(y, x);
    return {f.join(f.circular.cosine, f.hyperbolic.cosine), f.join(f.circular.sine, f.hyperbolic.sine)};
  }
  static Point special(double x, double y) {
    if (is_nan(x)) return y == 0 ? Point{x + x, y} : no_number(x, y);
    if (!is_infinite(x)) return x == 0 ? Point{no_number(0.0, y).re, flip_sign(0.0, x)} : no_number(0.0, y);
    if (!complex_loops::finite(y)) return {infinity<double>, no_number(0.0, y).im};
    const SineCosine<double> s = sine_cosine<double>(y);
    return {s.cosine * infinity<double>, y == 0 ? flip_sign(y, x) : s.sine * x};
  }
};
// sin z = -i sinh(i z), cos z = cosh(i z).
struct CircularSine {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Factors<N> f(x, y);
    return {f.join(f.circular.sine, f.hyperbolic.cosine), f.join(f.circular.cosine, f.hyperbolic.sine)};
  }
  static Point special(double x, double y) { return turned_back(HyperbolicSine::special(-y, x)); }
};
struct CircularCosine {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Factors<N> f(x, y);
    return {f.join(f.circular.cosine, f.hyperbolic.cosine), -f.join(f.circular.sine, f.hyperbolic.sine)};
  }
  static Point special(double x, double y) { return HyperbolicCosine::special(-y, x); }
};

// cSin HA: 0.4999 ulp at 0x1.0a35f2p-2, 0x1.f6cf26p+0 (second result)
// zSin HA: 0.7479 ulp at 0x1.62e42feba39efp+6, 0x1p-1022 (second result)
template <class V, Level L>
struct Sin : Loop<CircularSine, V> {};
// cCos HA: 0.4999 ulp at 0x1.4p+120, 0x1p-126 (second result)
// zCos HA: 0.7167 ulp at 0x1.4p+296, 0x1p-1022 (second result)
template <class V, Level L>
struct Cos : Loop<CircularCosine, V> {};
// cSinh HA: 0.4999 ulp at -0x1.2cb7p-43, -0x1.9f8836p+1 (second result)
// zSinh HA: 0.7479 ulp at 0x1p-1022, 0x1.62e42feba39efp+6
template <class V, Level L>
struct Sinh : Loop<HyperbolicSine, V> {};
// cCosh HA: 0.4999 ulp at -0x1.80e4fap-6, 0x1.527918p+0 (second result)
// zCosh HA: 0.7167 ulp at 0x1p-1022, 0x1.4p+296 (second result)
template <class V, Level L>
struct Cosh : Loop<HyperbolicCosine, V> {};

}  // namespace complex_loops

using complex_loops::Cos;
using complex_loops::Cosh;
using complex_loops::Sin;
using complex_loops::Sinh;

}  // namespace orvik::zym

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
  [[gnu::always_inline]] Factors(Lanes<N> angle, Lanes<N> exponent)
      : circular(sine_cosine<N>(angle)), hyperbolic(exponent) {}
};
// Both parts of the result.
template <class N>
struct Products {
  N a, b, c, d;  // a b + i c d
};

template <class F, bool Circular>
struct OfFactors {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Factors<N> f = factors<N>(x, y);
    const Products<N> p = F::products(f);
    const double scale = f.hyperbolic.scale;
    return {rounded_product(p.a, p.b) * scale * scale, rounded_product(p.c, p.d) * scale * scale};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    const V angle = magnitude(Circular ? x : y), exponent = magnitude(Circular ? y : x);
    return complement((angle < V(kLargeAngle)) & (exponent < V(kLargeExponent)));
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const Products<N> p = F::products(factors<N>(x, y));
    const auto re = tested_product(p.a, p.b), im = tested_product(p.c, p.d);
    return {{re.value, im.value}, re.special | im.special};
  }

 private:
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Factors<N> factors(V x, V y) {
    return Circular ? Factors<N>(x, y) : Factors<N>(y, x);
  }
};

// sinh(x + i y) = sinh x cos y + i cosh x sin y; cosh(x + i y) = cosh x cos y + i sinh x sin y.
struct HyperbolicSine : OfFactors<HyperbolicSine, false> {
  template <class N>
  [[gnu::always_inline]] static Products<N> products(const Factors<N>& f) {
    return {f.circular.cosine, f.hyperbolic.sine, f.circular.sine, f.hyperbolic.cosine};
  }
  static Point special(double x, double y) {
    if (is_nan(x)) return y == 0 ? Point{x + x, y} : no_number(x, y);
    if (!is_infinite(x)) return x == 0 ? Point{x, no_number(0.0, y).im} : no_number(0.0, y);
    if (!complex_loops::finite(y)) return {x, no_number(0.0, y).im};
    const SineCosine<double> s = sine_cosine<double>(y);
    return {s.cosine * x, y == 0 ? y : s.sine * infinity<double>};
  }
};
struct HyperbolicCosine : OfFactors<HyperbolicCosine, false> {
  template <class N>
  [[gnu::always_inline]] static Products<N> products(const Factors<N>& f) {
    return {f.circular.cosine, f.hyperbolic.cosine, f.circular.sine, f.hyperbolic.sine};
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
struct CircularSine : OfFactors<CircularSine, true> {
  template <class N>
  [[gnu::always_inline]] static Products<N> products(const Factors<N>& f) {
    return {f.circular.sine, f.hyperbolic.cosine, f.circular.cosine, f.hyperbolic.sine};
  }
  static Point special(double x, double y) { return turned_back(HyperbolicSine::special(-y, x)); }
};
struct CircularCosine : OfFactors<CircularCosine, true> {
  template <class N>
  [[gnu::always_inline]] static Products<N> products(const Factors<N>& f) {
    return {f.circular.cosine, f.hyperbolic.cosine, f.circular.sine, negative(f.hyperbolic.sine)};
  }
  static Point special(double x, double y) { return HyperbolicCosine::special(-y, x); }
};

// cSin HA: 0.5000 ulp at 0x1.28282p+4, -0x1.de974ap+1
// zSin HA: 0.7479 ulp at 0x1.62e42feba39efp+6, 0x1p-1022 (second result)
template <class V, Level L>
struct Sin : Loop<CircularSine, V> {};
// cCos HA: 0.5000 ulp at 0x1.8a538ep+2, -0x1.0ca014p-4 (second result)
// zCos HA: 0.7196 ulp at 0x1.e52c21e166903p-869, 0x1.10859c7478a06p-155 (second result)
template <class V, Level L>
struct Cos : Loop<CircularCosine, V> {};
// cSinh HA: 0.5000 ulp at -0x1.76ed74p+3, 0x1.8ee2ep+2 (second result)
// zSinh HA: 0.7479 ulp at 0x1p-1022, 0x1.62e42feba39efp+6
template <class V, Level L>
struct Sinh : Loop<HyperbolicSine, V> {};
// cCosh HA: 0.5000 ulp at -0x1.75d6c2p-6, 0x1.2b51fp+2 (second result)
// zCosh HA: 0.7196 ulp at 0x1.e52c21e166903p-869, 0x1.10859c7478a06p-155 (second result)
template <class V, Level L>
struct Cosh : Loop<HyperbolicCosine, V> {};

}  // namespace complex_loops

using complex_loops::Cos;
using complex_loops::Cosh;
using complex_loops::Sin;
using complex_loops::Sinh;

}  // namespace orvik::zym

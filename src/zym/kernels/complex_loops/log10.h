// Logarithm to base 10 of complex numbers: ln |z| and the angle, both divided by ln 10. Next to the unit circle the
// modulus less 1 comes from sums without rounding errors, so that the real part keeps its relative precision.
#pragma once

#include "zym/kernels/complex_loops/logarithm.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym {
namespace complex_loops {

struct DecimalLogarithm {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    if (x == 0 && y == 0) [[unlikely]]
      return {-1.0 / opaque(0.0), std::copysign(is_negative(x) ? rounded(scaled_down(kPi)) : 0.0, y)};
    const ComplexLogarithm<N> log = complex_logarithm<N>(x, y);
    return {rounded(scaled_down(log.modulus)), std::copysign(rounded(scaled_down(log.angle)), y)};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    return far_from_one<N>(x, y);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const ComplexLogarithm<N> log = complex_logarithm<N>(x, y);
    const V none = V(0.0);
    return {{rounded(scaled_down(log.modulus)), copy_sign(rounded(scaled_down(log.angle)), y)}, Mask<V>(none > none)};
  }
  static Point special(double x, double y) {
    if (is_infinite(x) || is_infinite(y)) {
      if (is_nan(x) || is_nan(y)) return {infinity<double>, x + y};
      const double quarters = !is_infinite(y) ? (x < 0 ? 4 : 0) : !is_infinite(x) ? 2 : x < 0 ? 3 : 1;
      const Long angle = multiply(scaled_down(kPi), 0.25 * quarters);
      return {infinity<double>, std::copysign(rounded(angle), y)};
    }
    return no_number(x, y);
  }

 private:
  template <Double V>
  static V scaled_down(V log) {
    return log * V(kLog10E64);
  }
  template <Double V>
  static HeadTail<V> scaled_down(HeadTail<V> log) {
    return multiply(HeadTail<V>{V(kLog10E64), V(kLog10ETail64)}, log);
  }
};

// cLog10 HA: 0.5000 ulp at 0x1.98d1p-130, 0x1.829e8p-130 (second result)
// zLog10 HA: 0.8450 ulp at 0x1.c2ac9ad0bab27p+764, 0x1.11f87759fe21p-255 (second result)
template <class V, Level L>
struct Log10 : Loop<DecimalLogarithm, V> {};

}  // namespace complex_loops

using complex_loops::Log10;

}  // namespace orvik::zym

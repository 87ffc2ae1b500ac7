// Arc tangent, circular and hyperbolic, of complex numbers. For x >= 0 (Hull, Fairgrieve, Tang 1994 for the logarithm)
//   atanh(x + i y) = ln(1 + 4 x / ((1 - x)^2 + y^2)) / 4 + i angle(2 y, (1 - x)(1 + x) - y^2) / 2.
#pragma once

#include "zym/kernels/complex_loops/logarithm.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym {
namespace complex_loops {

struct InverseHyperbolicTangent {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Point w = upper_right<N>(magnitude(x), magnitude(y));
    return {std::copysign(w.re, x), std::copysign(w.im, y)};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V re, V im) {
    const V x = magnitude(re), y = magnitude(im), far = V(kPlain<N> ? 0x1p200 : 0x1p100);
    Mask<V> served = (x < far) & (y < far);
    served = andnot((x == V(1.0)) & (y < V(0x1p-120)), served);
    if constexpr (!kPlain<N>) served = andnot((y <= V(0x1p-500)) & (y > V(0.0)), served);
    return complement(served);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V re, V im) {
    const V x = magnitude(re), y = magnitude(im), none = V(0.0);
    return {{copy_sign(rounded(real_part<N>(x, y)), re), copy_sign(rounded(imaginary_part<N>(x, y)), im)},
            Mask<V>(none > none)};
  }
  static Point special(double x, double y) {
    const double right = rounded(multiply(kPi, 0.5));
    if (is_infinite(y)) return {is_nan(x) ? 0.0 : std::copysign(0.0, x), std::copysign(right, y)};
    if (is_infinite(x)) return {std::copysign(0.0, x), is_nan(y) ? y + y : std::copysign(right, y)};
    return x == 0 ? Point{x, y + y} : no_number(x, y);
  }

 private:
  // x, y >= 0.
  template <class N>
  [[gnu::always_inline]] static Point upper_right(double x, double y) {
    if (x == 1.0 && y < 0x1p-120) [[unlikely]]
      return at_one<N>(y);
    if constexpr (!std::is_same_v<N, double>) {
      if (!(x < 0x1p100 && y < 0x1p100)) [[unlikely]]
        return far(x, y);
    }
    if (!std::is_same_v<N, double> && y <= 0x1p-500) [[unlikely]] {
      return {rounded(real_part<N>(x, y)), of_flat(x, y)};
    }
    return {rounded(real_part<N>(x, y)), rounded(imaginary_part<N>(x, y))};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static N real_part(V x, V y) {
    const N quotient = divide(number<N>(V(4.0) * x), add(square(sum<N>(V(1.0), negative(x))), product<N>(y, y)));
    return scaled(logarithm_of_one_plus(quotient), V(0.25));
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static N imaginary_part(V x, V y) {
    const N less = sum<N>(V(1.0), negative(x)), more = sum<N>(V(1.0), x);
    return half(angle(number<N>(V(2.0) * y), add(multiply(less, more), negative(product<N>(y, y)))));
  }
  // Tiny y: y / (1 - x^2), or a right angle.
  [[gnu::noinline, gnu::cold]] static double of_flat(double x, double y) {
    if (x > 1.0) return rounded(multiply(kPi, 0.5));
    const HeadTail<double> q = divide(HeadTail<double>{y * 0x1p300, 0.0}, multiply(two_sum(1.0, -x), two_sum(1.0, x)));
    return (q.head + q.tail) * 0x1p-300;
  }
  // Next to the pole at 1: ln(2 / y) / 2 and half a right angle.
  template <class N>
  [[gnu::noinline, gnu::cold]] static Point at_one(double y) {
    if (y == 0) return {1.0 / opaque(0.0), 0.0};
    const Long log = logarithm(Long{y * 0x1p100, 0.0});  // denormals become normal
    const Long re = add(fast_two_sum(101 * kLn2Head64, 101 * kLn2Tail64), negative(log));
    return {rounded(half(re)), rounded(multiply(kPi, 0.25))};
  }
  // From 2^100 on: x / |z|^2 and a right angle.
  [[gnu::noinline, gnu::cold]] static Point far(double x, double y) {
    const int e = exponent_of(max(x, y));
    const double u = times_two_to(x, -e), v = times_two_to(y, -e);
    const Long re = divide(Long{u, 0.0}, add(two_square(u), two_square(v)));
    return {times_two_to(re.head + re.tail, -e), rounded(multiply(kPi, 0.5))};
  }
};
// atan z = -i atanh(i z).
struct ArcTangent {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const Point w = InverseHyperbolicTangent::finite<N>(y, x);
    return {w.im, w.re};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    return InverseHyperbolicTangent::left<N>(y, x);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = InverseHyperbolicTangent::lanes<N>(y, x);
    return {{r.value.second, r.value.first}, r.special};
  }
  static Point special(double x, double y) { return turned_back(InverseHyperbolicTangent::special(-y, x)); }
};

// cAtan HA: 0.5000 ulp at -0x1p+0, -0x1p-149 (second result)
// zAtan HA: 0.7200 ulp at 0x1.ffffffffffffdp-2, 0x1p-1022 (second result)
template <class V, Level L>
struct Atan : Loop<ArcTangent, V> {};
// cAtanh HA: 0.5000 ulp at -0x1p-149, -0x1p+0
// zAtanh HA: 0.7415 ulp at 0x1.61dbda5d3810fp+548, -0x1.76d5bb7933669p+785
template <class V, Level L>
struct Atanh : Loop<InverseHyperbolicTangent, V> {};

}  // namespace complex_loops

using complex_loops::Atan;
using complex_loops::Atanh;

}  // namespace orvik::zym

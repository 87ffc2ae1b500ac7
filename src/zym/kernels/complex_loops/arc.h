// Arc sine and arc cosine, circular and hyperbolic, of complex numbers. asin z = xi + i eta: z = sin xi cosh eta +
// i cos xi sinh eta, and with g = |z|^2 - 1 and m = |z^2 - 1| (Hull, Fairgrieve, Tang 1997)
//   sinh^2 eta = (m + g) / 2,  cos^2 xi = (m - g) / 2,
// of which the one without cancellation is computed, and the other from Im z = cos xi sinh eta. Then
//   xi = atan(Re z / (cos xi cosh eta)),  acos z = atan((cos xi cosh eta) / Re z) - i eta.
#pragma once

#include "zym/kernels/complex_loops/logarithm.h"
#include "zym/kernels/complex_loops/loop.h"

namespace orvik::zym {
namespace complex_loops {

// Of x, y >= 0: eta, and the tangent of xi as the quotient x / p. For tiny y p is lifted: what is left of xi to a right
// angle comes times `lifted`, or eta.
template <class N>
struct ArcParts {
  N x, p, eta;
  Lanes<N> lifted = Lanes<N>(1.0);
};

template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline ArcParts<N> arc_parts_near(V x, V y) {
  const V one = V(1.0);
  const N squares = product<N>(y, y);
  const N g = add(multiply(sum<N>(x, negative(one)), sum<N>(x, one)), squares);
  const N m = root(add(square(g), scaled(squares, V(4.0))));
  const Mask<V> inside = sign_decides(head_of(g));
  const N larger = root(half(add_smaller(m, signed_by(g, head_of(g)))));
  const N smaller = divide(number<N>(y), larger);
  const N sinh = select(inside, smaller, larger), cos = select(inside, larger, smaller);
  const N sinh2 = square(sinh);
  const N cosh = root(add(sinh2, number<N>(one)));
  // e^eta - 1 = sinh + (cosh - 1).
  const N less = divide(sinh2, add_smaller(cosh, number<N>(one)));
  return {number<N>(x), multiply(cos, cosh), logarithm_of_one_plus(add(sinh, less))};
}

// Next to 1, where the squares of y underflow: sinh eta = cos xi = sqrt(y).
template <class N>
[[gnu::noinline, gnu::cold]] ArcParts<N> arc_parts_at_one(double y) {
  const N s = scaled(root(number<N>(y * 0x1p200)), 0x1p-100);
  return {number<N>(1.0), s, s};
}

// y so tiny that its tails would be lost: eta (x < 1) or p (x > 1) is proportional to it.
[[gnu::noinline, gnu::cold]] inline ArcParts<Long> arc_parts_of_flat(double x, double y) {
  ArcParts<Long> parts = arc_parts_near<Long>(x, y * 0x1p400);
  if (x < 1.0) {
    parts.eta = {rounded(parts.eta) * 0x1p-400, 0.0};
  } else {
    parts.lifted = 0x1p-400;
  }
  return parts;
}

// From 2^100 on: eta = ln |2 z|, tan xi = x / y.
[[gnu::noinline, gnu::cold]] inline ArcParts<Long> arc_parts_of_far(double x, double y) {
  const double large = max(x, y), small = min(x, y);
  const Long ln2 = {kLn2Head64, kLn2Tail64};
  return {number<Long>(x), number<Long>(y), add(logarithm_of_far(large, small), fast_two_sum(ln2.head, ln2.tail))};
}

// xi, pi/2 - xi (in [0, pi], by the sign of Re z) and eta of a finite number.
template <class N>
struct ArcResult {
  double x, y;  // the argument
  ArcParts<N> parts;

  [[gnu::always_inline]] ArcResult(double re, double im) : x(re), y(im), parts(make(magnitude(re), magnitude(im))) {}

  // asin: with the sign of the real part.
  double sine() const {
    if constexpr (!std::is_same_v<N, double>) {
      if (magnitude(x) < 0x1p-900) [[unlikely]]  // proportional to x
        return std::copysign(rounded(angle_of(scaled(parts.x, 0x1p300), parts.p)) * 0x1p-300, x);
    }
    return std::copysign(rounded(angle_of(parts.x, parts.p)), x);
  }
  double cosine() const {
    const bool left = is_negative(x);
    return rounded(angle_of(parts.p, signed_by(parts.x, x))) * (left ? 1.0 : parts.lifted);
  }
  double eta() const { return rounded(parts.eta); }  // not negative

 private:
  [[gnu::always_inline]] static ArcParts<N> make(double x, double y) {
    if (x == 1.0 && y < 0x1p-120) [[unlikely]]
      return arc_parts_at_one<N>(y);
    if constexpr (!std::is_same_v<N, double>) {
      if (!(x < 0x1p100 && y < 0x1p100)) [[unlikely]]
        return arc_parts_of_far(x, y);
      if (y < 0x1p-700 && y != 0) [[unlikely]]
        return arc_parts_of_flat(x, y);
    }
    return arc_parts_near<N>(x, y);
  }
  [[gnu::always_inline]] static N angle_of(N opposite, N adjacent) {
    if constexpr (!std::is_same_v<N, double>) {
      const double large = max(opposite.head, magnitude(adjacent.head));
      if (!(large < 0x1p400 && large > 0x1p-400)) [[unlikely]]
        return angle_of_far(opposite.head, adjacent.head);
    }
    return angle(opposite, adjacent);
  }
};

// The lanes of all four, of an argument that may have its parts exchanged: the angle by its sine or its cosine, and eta.
template <bool Cosine>
struct ArcLanes {
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V re, V im) {
    const V x = magnitude(re), y = magnitude(im), far = V(kPlain<N> ? 0x1p200 : 0x1p100), zero = V(0.0);
    Mask<V> served = (x < far) & (y < far);
    served = andnot((x == V(1.0)) & (y < V(0x1p-120)), served);
    if constexpr (!kPlain<N>) {
      served = andnot(((y < V(0x1p-700)) & (y > zero)) | ((x < V(0x1p-900)) & (x > zero)), served);
    }
    return complement(served);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V re, V im) {
    const ArcParts<N> a = arc_parts_near<N>(magnitude(re), magnitude(im));
    const V large = max(head_of(a.p), head_of(a.x));
    const Mask<V> ordinary = (large < V(0x1p400)) & (large > V(0x1p-400));
    const V eta = rounded(a.eta);
    if constexpr (Cosine) return {{rounded(angle(a.p, signed_by(a.x, re))), eta}, complement(ordinary)};
    return {{copy_sign(rounded(angle(a.x, a.p)), re), eta}, complement(ordinary)};
  }
};

struct ArcSine : ArcLanes<false> {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const ArcResult<N> arc(x, y);
    return {arc.sine(), std::copysign(arc.eta(), y)};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = ArcLanes::lanes<N>(x, y);
    return {{r.value.first, copy_sign(r.value.second, y)}, r.special};
  }
  static Point special(double x, double y);
};
struct ArcCosine : ArcLanes<true> {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const ArcResult<N> arc(x, y);
    return {arc.cosine(), std::copysign(arc.eta(), -y)};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = ArcLanes::lanes<N>(x, y);
    return {{r.value.first, copy_sign(r.value.second, negative(y))}, r.special};
  }
  static Point special(double x, double y);
};
// asinh z = -i asin(i z); acosh z = +-i acos z with a real part that is not negative.
struct InverseHyperbolicSine {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const ArcResult<N> arc(y, x);
    return {std::copysign(arc.eta(), x), arc.sine()};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Mask<V> left(V x, V y) {
    return ArcSine::left<N>(y, x);
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = ArcSine::lanes<N>(y, x);
    return {{r.value.second, r.value.first}, r.special};
  }
  static Point special(double x, double y);
};
struct InverseHyperbolicCosine : ArcLanes<true> {
  template <class N>
  [[gnu::always_inline]] static Point finite(double x, double y) {
    const ArcResult<N> arc(x, y);
    return {arc.eta(), std::copysign(arc.cosine(), y)};
  }
  template <class N, class V = Lanes<N>>
  [[gnu::always_inline]] static Masked<Pair<V>, Mask<V>> lanes(V x, V y) {
    const auto r = ArcLanes::lanes<N>(x, y);
    return {{r.value.second, copy_sign(r.value.first, y)}, r.special};
  }
  static Point special(double x, double y);
};

// --- infinities and NaNs --------------------------------------------------------------------------------------------

// The angle of a point with an infinite coordinate, y >= 0, in quarters of pi.
inline double quarters_of_infinite(double x, double y) {
  if (!is_infinite(y)) return x < 0 ? 4 : 0;
  return !is_infinite(x) ? 2 : x < 0 ? 3 : 1;
}
inline double quarters(double count) { return rounded(multiply(kPi, 0.25 * count)); }

inline Point InverseHyperbolicSine::special(double x, double y) {
  if (is_infinite(y)) {
    if (is_nan(x)) return {infinity<double>, x + x};
    return {std::copysign(infinity<double>, x), std::copysign(quarters(is_infinite(x) ? 1 : 2), y)};
  }
  if (is_infinite(x)) return {x, is_nan(y) ? y + y : std::copysign(0.0, y)};
  return is_nan(x) && y == 0 ? Point{x + x, y} : no_number(x, y);
}
inline Point ArcSine::special(double x, double y) { return turned_back(InverseHyperbolicSine::special(-y, x)); }
inline Point ArcCosine::special(double x, double y) {
  if (is_infinite(y) && is_nan(x)) return {x + x, -y};
  if (is_infinite(x) && is_nan(y)) return {y + y, infinity<double>};
  if (is_infinite(x) || is_infinite(y)) {
    return {quarters(quarters_of_infinite(x, y)), std::copysign(infinity<double>, -y)};
  }
  if (x == 0) return {quarters(2), y + y};
  return no_number(x, y);
}
inline Point InverseHyperbolicCosine::special(double x, double y) {
  if (is_infinite(x) || is_infinite(y)) {
    if (is_nan(x) || is_nan(y)) return {infinity<double>, x + y};
    return {infinity<double>, std::copysign(quarters(quarters_of_infinite(x, y)), y)};
  }
  if (x == 0) return {y + y, quarters(2)};
  return no_number(x, y);
}

// cAsin HA: 0.5000 ulp at 0x1p+0, 0x1.fffffep+63
// zAsin HA: 0.6938 ulp at 0x1p-1022, 0x1.fffffffffffffp-2
template <class V, Level L>
struct Asin : Loop<ArcSine, V> {};
// cAcos HA: 0.5000 ulp at 0x1.000002p+0, 0x1p-126
// zAcos HA: 0.6157 ulp at 0x1.8000000000003p+0, 0x1p-1022
template <class V, Level L>
struct Acos : Loop<ArcCosine, V> {};
// cAsinh HA: 0.5000 ulp at 0x1.fffffep+63, 0x1p+0 (second result)
// zAsinh HA: 0.7660 ulp at -0x1.77af04836876fp+851, 0x1.da8eea3a99655p-172 (second result)
template <class V, Level L>
struct Asinh : Loop<InverseHyperbolicSine, V> {};
// cAcosh HA: 0.5000 ulp at 0x1.000002p+0, 0x1p-126 (second result)
// zAcosh HA: 0.6157 ulp at 0x1.8000000000003p+0, 0x1p-1022 (second result)
template <class V, Level L>
struct Acosh : Loop<InverseHyperbolicCosine, V> {};

}  // namespace complex_loops

using complex_loops::Acos;
using complex_loops::Acosh;
using complex_loops::Asin;
using complex_loops::Asinh;

}  // namespace orvik::zym

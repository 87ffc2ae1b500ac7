// What sines and cosines of all units share: signs from the bits of n, odd polynomials, the sum of angles on a grid.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/shared/halves.h"
#include "zym/kernels/trig/coefficients.h"
#include "zym/kernels/trig/tables.h"

namespace orvik::zym::trig {

// The bit `Bit` of n, which the low bits of t hold, as the sign of a number; other bits of it mean nothing.
template <int Bit, class V>
V sign_from(V t) {
  return as_float(shift_left<static_cast<int>(8 * sizeof(Element<V>)) - 1 - Bit>(as_bits(t)));
}
// x with its sign changed where n is odd.
template <class V>
V flip_odd(V x, V t) {
  return x ^ sign_from<0>(t);
}

// r + r z P(z), z = r^2; r P(z).
template <class V, size_t N>
[[gnu::always_inline]] inline V odd_sum(V r, const Element<V> (&c)[N]) {
  const V z = r * r;
  return fma(r * z, horner(z, c), r);
}
template <class V, size_t N>
[[gnu::always_inline]] inline V odd_product(V r, const Element<V> (&c)[N]) {
  return horner(r * r, c) * r;
}
// u r + r z P(z), u of two parts.
template <class V, size_t N>
[[gnu::always_inline]] inline V odd_sum(V r, V u, V u_tail, const Element<V> (&c)[N]) {
  const V z = r * r;
  return fma(r, u, r * fma(z, horner(z, c), u_tail));
}

// |x| = n pi/256 + r. pi in parts: n times the first is exact with x while n has 23 bits.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> reduce_by_grid(V a, V n) {
  const V r = fnma(n, V(0.012271846302610356), a);
  const V head = fnma(n, V(4.747734770549973e-13), r);
  return {head, fnma(n, V(1.5798955068718364e-23), fnma(n, V(4.747734770549973e-13), r - head))};
}
inline constexpr double k256OverPi = 81.48733086305042;

// sin and cos of n pi/256 + r, n in the low bits of t, |r| up to pi/512 and a little more. Where the grid point's sine
// (cosine) is 0 the result is r with a relative error; else the sum's head is rounded once and keeps what it lost.
template <Double V>
struct GridPoint {
  V sine, sine_tail, cosine, cosine_tail;
  V sign;  // in its sign bit

  [[gnu::always_inline]] explicit GridPoint(V t) {
    const auto row = gather(kSinCos256, indices(as_bits(t) & Integer<V>(uint64_t{255})));
    sine = row.c[0];
    sine_tail = row.c[1];
    cosine = row.c[2];
    cosine_tail = row.c[3];
    sign = sign_from<8>(t);
  }
};
template <Double V>
struct GridRest {  // sin(r) - r, cos(r) - 1
  V sine, cosine;
  [[gnu::always_inline]] explicit GridRest(V r) {
    const V z = r * r;
    sine = r * z * horner(z, kGridSine);
    cosine = z * horner(z, kGridCosine);
  }
};
// As head and tail without the sign; |tail| is below 2^-12 of the head.
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> grid_sine_parts(const GridPoint<V>& p, HeadTail<V> r) {
  const GridRest<V> rest(r.head);
  const V head = fma(p.cosine, r.head, p.sine);
  const V lost = fma(p.cosine, r.head, p.sine - head);
  const V tail =
      fma(p.sine, rest.cosine, fma(p.cosine, rest.sine + r.tail, fma(p.cosine_tail, r.head, p.sine_tail + lost)));
  return {head, tail};
}
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> grid_cosine_parts(const GridPoint<V>& p, HeadTail<V> r) {
  const GridRest<V> rest(r.head);
  const V head = fnma(p.sine, r.head, p.cosine);
  const V lost = fnma(p.sine, r.head, p.cosine - head);
  const V tail =
      fma(p.cosine, rest.cosine, fnma(p.sine, rest.sine + r.tail, fnma(p.sine_tail, r.head, p.cosine_tail + lost)));
  return {head, tail};
}

}  // namespace orvik::zym::trig

// sin, cos and tan of n pi/16 + r: the sine and cosine of sixteen points from registers, short polynomials of r and the
// sum of angles, with what its leading sums lose. Where the point's sine (cosine) is 0 the result is r with a relative
// error; else the sum's head is rounded once and keeps what it lost.
#pragma once

#include "lanes/lanes.h"
#include "lanes/register_tables.h"
#include "zym/kernels/trig/coefficients.h"
#include "zym/kernels/trig/sine.h"
#include "zym/kernels/trig/tables.h"

namespace orvik::zym::trig {

// Floats of 2^19 are off by a tenth of a step.
template <class V>
inline constexpr Element<V> k16OverPi = Single<V> ? Element<V>(16 * 0.31830987334251404f)
                                                  : Element<V>(5.092958178940651);

// |x| = n pi/16 + r. pi in parts: n times the first is exact with x while n has 23 bits (19 of doubles: those of
// pi/256).
template <Double V>
[[gnu::always_inline]] inline HeadTail<V> reduce_by_sixteenths(V a, V n) {
  const V r = fnma(n, V(16 * 0.012271846302610356), a);
  const V head = fnma(n, V(16 * 4.747734770549973e-13), r);
  return {head, fnma(n, V(16 * 1.5798955068718364e-23), fnma(n, V(16 * 4.747734770549973e-13), r - head))};
}
template <Single V>  // where |r| is less than what is added, it is a multiple of its last place: their difference is exact
[[gnu::always_inline]] inline HeadTail<V> reduce_by_sixteenths(V a, V n) {
  const V step = V(8.742277657347586e-08f / 16);
  const V r = fnma(n, V(3.1415927410125732f / 16), a);
  const V head = r + n * step;
  return {head, fma(n, V(3.4302490200117637e-15f / 16), fma(n, step, r - head))};
}

// n in the low bits of t.
template <class V>
struct CirclePoint {
  V sine, sine_tail, cosine, cosine_tail;
  V sign;  // in its sign bit: of n from 16 on, modulo 32

  [[gnu::always_inline]] explicit CirclePoint(V t) : sign(sign_from<4>(t)) {
    const Integer<V> n = as_bits(t);
    if constexpr (Single<V>) {
      const auto column = [n](const float(&c)[16]) __attribute__((always_inline)) { return look_up_16<V>(c, n); };
      take(column(kCircle32[0]), column(kCircle32[1]), column(kCircle32[2]), column(kCircle32[3]));
    } else if constexpr (kHasPermutes64<V>) {
      const auto column = [n](const double(&c)[16]) __attribute__((always_inline)) { return look_up_in_16(c, n); };
      take(column(kCircle64[0]), column(kCircle64[1]), column(kCircle64[2]), column(kCircle64[3]));
    } else {
      const auto row = gather(kSinCos16, indices(n & Integer<V>(uint64_t{15})));
      take(row.c[0], row.c[1], row.c[2], row.c[3]);
    }
  }

 private:
  [[gnu::always_inline]] void take(V s, V s_tail, V c, V c_tail) {
    sine = s, sine_tail = s_tail, cosine = c, cosine_tail = c_tail;
  }
};

// What the tails of a sum one + other r give. Doubles leave that of `other` to the tables; of floats it is up to half a
// last place.
template <class V>
[[gnu::always_inline]] inline V tail_of_sum(V lost, V one_tail, V other_tail, V r) {
  const V tail = one_tail + lost;
  if constexpr (Single<V>) return fma(other_tail, r, tail);
  return tail;
}

template <class V>
struct CircleRest {  // sin(r) - r with the tail of r, cos(r) - 1
  V sine, cosine;
  [[gnu::always_inline]] explicit CircleRest(HeadTail<V> r) {
    const V z = r.head * r.head;
    if constexpr (Single<V>) {
      sine = fma(r.head * z, horner(z, kCircleSine32), r.tail);
      cosine = z * horner(z, kCircleCosine32);
    } else {
      sine = fma(r.head * z, horner(z, kCircleSine64), r.tail);
      cosine = z * horner(z, kCircleCosine64);
    }
  }
};
template <class V>
[[gnu::always_inline]] inline V circle_sine(const CirclePoint<V>& p, HeadTail<V> r) {
  const CircleRest<V> rest(r);
  const V head = fma(p.cosine, r.head, p.sine);
  const V lost = fma(p.cosine, r.head, p.sine - head);
  const V more = tail_of_sum(lost, p.sine_tail, p.cosine_tail, r.head);
  return flip_sign(head + fma(p.sine, rest.cosine, fma(p.cosine, rest.sine, more)), p.sign);
}
template <class V>
[[gnu::always_inline]] inline V circle_cosine(const CirclePoint<V>& p, HeadTail<V> r) {
  const CircleRest<V> rest(r);
  const V head = fnma(p.sine, r.head, p.cosine);
  const V lost = fnma(p.sine, r.head, p.cosine - head);
  const V more = tail_of_sum(lost, p.cosine_tail, p.sine_tail, V(Element<V>(0)) - r.head);
  return flip_sign(head + fma(p.cosine, rest.cosine, fnma(p.sine, rest.sine, more)), p.sign);
}

// The point n pi/16 as the quotient of two whole numbers, n in the low bits of t.
template <class V>
struct TangentPoint {
  V over, under;

  [[gnu::always_inline]] explicit TangentPoint(V t) {
    const Integer<V> n = as_bits(t);
    if constexpr (Single<V>) {
      over = look_up_16<V>(kTangentRatios32[0], n);
      under = look_up_16<V>(kTangentRatios32[1], n);
    } else if constexpr (kHasPermutes64<V>) {
      over = look_up_in_16(kTangentRatios64[0], n);
      under = look_up_in_16(kTangentRatios64[1], n);
    } else {
      const auto row = gather(kTangentRatios16, indices(n & Integer<V>(uint64_t{15})));
      over = row.first, under = row.second;
    }
  }
};

// tan of the point + r is (over + under g) / (under - over g), g = tan(r). Cut to a few bits, q = that quotient leaves
//   over + under g - q (under - over g) = (over - q under) + (under + q over) g,
// where both brackets are exact, since the point's numbers are short too. With Poles r may be 0 where the point is one.
template <bool Poles, class V>
[[gnu::always_inline]] inline V circle_tangent(const TangentPoint<V>& p, HeadTail<V> r) {
  using I = Integer<V>;
  const V z = r.head * r.head;
  V slope;
  I few;
  if constexpr (Single<V>) {
    slope = horner(z, kTangentCircle32);
    few = I(0xFFFC0000u);  // 6 bits, beside numbers of 16
  } else {
    slope = horner(z, kTangentGrid64);
    few = I(uint64_t{0xFFFFFFF800000000});  // 18 bits, beside numbers of 32
  }
  const V more = fma(r.head * z, slope, r.tail);
  const V g = r.head + more;
  const V under = fnma(p.over, g, p.under);
  const V inverse = V(Element<V>(1)) / under;
  const auto corrected = [&](V inverse) __attribute__((always_inline)) {
    const V q = as_float(as_bits(fma(p.under, g, p.over) * inverse) & few);
    const V turned = fma(q, p.over, p.under);
    const V left = fma(turned, more, fma(turned, r.head, fnma(q, p.under, p.over)));
    return fma(left, inverse, q);
  };
  if constexpr (!Poles) return corrected(inverse);
  const Mask<V> pole = under == V(Element<V>(0));
  return select(pole, inverse, corrected(drop(pole, inverse)));
}

}  // namespace orvik::zym::trig

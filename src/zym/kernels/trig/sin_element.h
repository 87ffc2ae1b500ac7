// sin(x) and cos(x) of large doubles at the lowest level: a routine for one element, which the second vector form runs
// on several at once, step by step the same. From 2^30 on x is multiplied with the bits of 2/pi that matter, in pieces
// of 25 bits whose products with both halves of x are exact; below, multiples of pi/4 are taken off by parts (Cody and
// Waite 1980). The rest is a grid of pi/32 and the sum of angles.
#pragma once

#include "zym/kernels/trig/element.h"
#include "zym/kernels/trig/reduce.h"
#include "zym/kernels/trig/sine.h"

namespace orvik::zym::trig {

// |x| = q pi/2 + v; q in the low bits of t.
template <class V>
struct Quadrant {
  V t;
  HeadTail<V> v;
};

template <class V>
[[gnu::always_inline]] inline V without_fours(V p) {
  return fnma(round<Direction::nearest>(p * V(0.25)), V(4.0), p);
}

// From 2^29 on.
template <class V>
[[gnu::always_inline]] inline Quadrant<V> quadrant_of_huge(V a) {
  using I = Integer<V>;
  // The row is the exponent, less that of 2^29, divided by 25.
  const I e = shift_right<52>(as_bits(a));
  const auto rows = shift_right<21>(multiply_low_words(e, I(uint64_t{83886})) - I(uint64_t{88248072}));
  const auto c = gather(kTwoOverPiChunks, indices(rows + rows));
  const auto d = gather(kTwoOverPiChunks, indices(rows + rows + I(uint64_t{1})));

  const V x = a * V(0x1p-200);
  const V head = as_float(as_bits(x) & I(uint64_t{0xFFFFFFFFF8000000}));
  const V tail = x - head;
  // The first products may exceed 4 by 2^78: multiples of 4 go at once. All of these are multiples of 2^-48.
  const V first = without_fours(head * c.c[0]) + without_fours(tail * c.c[0]);
  const V second = without_fours(head * c.c[1]) + without_fours(tail * c.c[1]);
  const HeadTail<V> s1 = two_sum(first + second + without_fours(head * c.c[2]), tail * c.c[2]);
  const HeadTail<V> s2 = two_sum(s1.head, head * c.c[3]);
  const auto [t, n] = shift_round(s2.head);
  const HeadTail<V> s3 = two_sum(s2.head - n, tail * c.c[3]);
  const HeadTail<V> s4 = two_sum(s3.head, head * d.c[0]);
  V rest = fma(tail, d.c[3], head * d.c[3]);
  rest = fma(tail, d.c[2], fma(head, d.c[2], rest));
  rest = fma(tail, d.c[1], fma(head, d.c[1], rest));
  rest = fma(tail, d.c[0], rest);
  const HeadTail<V> f = fast_two_sum(s4.head, ((s1.tail + s2.tail) + (s3.tail + s4.tail)) + rest);
  // From quadrants to eighths of a turn, these times pi/4 by parts.
  const V g = f.head + f.head;
  const V g_tail = f.tail + f.tail;
  const V v = g * V(0.7853981256484985);
  const V v_tail = fma(g_tail, V(0.7853981256484985), fms(g, V(0.7853981256484985), v));
  const HeadTail<V> sum = fast_two_sum(v, g * V(3.774894977445941e-8));
  return {t, {sum.head, fma(g_tail, V(3.774894977445941e-8), sum.tail) + v_tail}};
}

// From 2^17 to 2^30.
template <class V>
Quadrant<V> quadrant_by_parts(V a) {
  const V eighths = round<Direction::down>(a * V(1.2732395447351628));
  const V q = round<Direction::down>(fma(eighths, V(0.5), V(0.5)));
  const V k = q + q;  // even
  const Mask<V> large = a >= V(8388608.0);
  const auto part = [&](double from_2_23, double below) { return select(large, V(from_2_23), V(below)); };
  const V r1 = fnma(k, part(0.7853975296020508, 0.7853981629014015), a);
  const V r2 = fnma(k, part(6.337954800983425e-7, 4.960467904491228e-10), r1);
  const HeadTail<V> r3 = two_sum(r2, k * part(8.256991011063031e-14, 6.088525906594782e-19));
  const HeadTail<V> r4 = two_sum(r3.head, k * part(6.675151087907452e-20, 0.0));
  const V rest = fnma(k, part(8.223128468162129e-27, 1.7607799325916e-27), r3.tail + r4.tail);
  return {q + V(kShifter64), {r4.head, rest}};
}

// sin(q pi/2 + v).
template <class V>
[[gnu::always_inline]] inline V sine_on_grid(Quadrant<V> x) {
  const auto [t, u] = shift_round(x.v.head, V(10.185916357881302));
  const V w = fnma(u, V(3.798187816439979e-12), fnma(u, V(0.09817477042088285), x.v.head)) + x.v.tail;
  const Integer<V> key = as_bits(t) + shift_left<4>(as_bits(x.t));
  const auto row = gather(kSinCos32, indices(key & Integer<V>(uint64_t{31})));
  const V z = w * w;
  const V sine = fma(w * z, horner(z, kGridSine), w);
  const V cosine = z * horner(z, kGridCosine);
  const V s = fma(row.second, sine, fma(row.first, cosine, row.first));
  return flip_sign(s, as_float(shift_left<58>(key)));
}

template <bool Cosine, class V>
Quadrant<V> turned(Quadrant<V> x) {  // by a quarter turn
  if constexpr (Cosine) x.t = x.t + V(1.0);
  return x;
}

// Several at once, from 2^24 on; infinities and NaNs give something finite.
template <bool Cosine, Double V>
[[gnu::always_inline]] inline V sine_by_routine(V a) {
  a = finite_from(a, 16777216.0);
  const Mask<V> small = a < V(1073741824.0);
  Quadrant<V> x = quadrant_of_huge(max(a, V(1073741824.0)));
  if (!none(small)) {
    const Quadrant<V> y = quadrant_by_parts(min(a, V(1073741824.0)));
    x = {select(small, y.t, x.t), {select(small, y.v.head, x.v.head), select(small, y.v.tail, x.v.tail)}};
  }
  return sine_on_grid(turned<Cosine>(x));
}

template <bool Cosine>
int32_t sine_element(const double* px, double* r) {
  const double x = *px;
  const double a = magnitude(x);
  const uint64_t bits = bits_of(a);
  if (bits >= FloatBits<double>::exponent_field) return not_finite_element(px, r);
  if (bits >> 52 < 771) {
    // x (1 - 2^-55), rounded below the normal numbers as well.
    *r = Cosine ? 1.0 - a : flip_sign(fma(a, 0x1p55, -a) * 0x1p-55, x);
    return 0;
  }
  const Quadrant<double> plain{kShifter64, {a, 0.0}};
  const Quadrant<double> v = bits >> 56 < 65 ? plain : a < 1073741824.0 ? quadrant_by_parts(a) : quadrant_of_huge(a);
  const double s = sine_on_grid(turned<Cosine>(v));
  *r = Cosine ? s : flip_sign(s, x);
  return 0;
}

}  // namespace orvik::zym::trig

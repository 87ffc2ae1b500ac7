// Logarithms and angles as numbers: ln x, ln(1 + x), the angle and the logarithm of the modulus of a point.
#pragma once

#include <cmath>

#include "zym/kernels/arc/constants.h"
#include "zym/kernels/complex_loops/coefficients.h"
#include "zym/kernels/complex_loops/exponential.h"
#include "zym/kernels/complex_loops/number.h"
#include "zym/kernels/complex_loops/tables.h"
#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"

namespace orvik::zym::complex_loops {

// Positive integers below 2^12 as numbers of rows.
template <class V>
auto whole(V x) {
  return indices(as_bits(x + V(0x1p52)) & Integer<V>(int64_t{0xFFF}));
}

// --- logarithms -----------------------------------------------------------------------------------------------------

// Of heads and tails: enough for one rounding of the result, 2^-62, or for the powers, which multiply it, 2^-68 and
// normalised. (The others' tails hold all that is small, up to 2^-20 of the heads.)
enum class Precision { rounding, powers };

// x = 2^e m: ln x = e ln(2) + table + ln(1 + r), |r| < 2^-10; table as kLnPairs has it.
template <class N>
struct ReducedLogarithm {
  using V = Lanes<N>;
  V e;
  Pair<V> table;
  N r;

  // x positive and normal.
  [[gnu::always_inline]] explicit ReducedLogarithm(N x) {
    const Integer<V> bits = as_bits(head_of(x));
    const V m = as_float((bits & Integer<V>(int64_t{0x000FFFFFFFFFFFFF})) | Integer<V>(int64_t{0x3FF0000000000000}));
    e = as_float(shift_right<52>(bits) | as_bits(V(0x1p52))) - V(0x1p52 + 1023);
    const V key = round<Direction::zero>(V(1024.0) / m + V(0.5));
    const V c = key * V(0x1p-10);
    table = gather<512>(kLnPairs, whole(key));
    const V left = fms(c, m, V(1.0));  // exact
    if constexpr (kPlain<N>) {
      r = left;
    } else {
      const V power = as_float(Integer<V>(int64_t{2046} << 52) - (bits & Integer<V>(int64_t{0x7FF0000000000000})));
      r = two_sum(left, c * (x.tail * power));
    }
  }
};

template <class N, Precision P>
[[gnu::always_inline]] inline N logarithm_of(const ReducedLogarithm<N>& x) {
  using V = Lanes<N>;
  const auto& [e, table, r] = x;
  if constexpr (kPlain<N>) {
    const V head = fma(e, V(kLn2Head64), table.first);
    return head + (r + fma(r * r, horner(r, kLnDoubleLA), fma(e, V(kLn2Tail64), table.second)));
  } else if constexpr (P == Precision::rounding) {
    const HeadTail<V> s = fast_two_sum(fma(e, V(kLn2Head64), table.first), r.head);  // of exact numbers
    const V rest = fma(r.head * r.head, fma(r.head, horner(r.head, kLogRest), V(-0.5)), r.tail);
    return {s.head, s.tail + (fma(e, V(kLn2Tail64), table.second) + rest)};
  } else {
    const HeadTail<V> q = two_square(r.head);
    const V top = fma(e, V(kLn2Head64), table.first);  // exact
    const HeadTail<V> s = fast_two_sum(top, r.head);
    const HeadTail<V> t = fast_two_sum(s.head, V(-0.5) * q.head);
    const V rest = fma(r.head * q.head, horner(r.head, kLogRest), fma(V(-0.5), q.tail, fnma(r.head, r.tail, r.tail)));
    return {t.head, (s.tail + t.tail) + (fma(e, V(kLn2Tail64), table.second) + rest)};
  }
}
template <class N, Precision P = Precision::rounding>
[[gnu::always_inline]] inline N logarithm(N x) {
  return logarithm_of<N, P>(ReducedLogarithm<N>(x));
}

// ln x or, where the mask is set, ln(1 + y), y > -1/2, to the relative precision of y.
template <class N, Precision P>
[[gnu::always_inline]] inline N logarithm_by(Mask<Lanes<N>> mask, N x, N y) {
  using V = Lanes<N>;
  const Mask<V> tiny = mask & (magnitude(head_of(y)) < V(0.0009765625));
  const N one = number<N>(V(1.0));  // whose logarithm adds nothing to y
  ReducedLogarithm<N> reduced(select(tiny, one, select(mask, add(y, one), x)));
  reduced.r = select(tiny, y, reduced.r);
  return logarithm_of<N, P>(reduced);
}
template <class N, Precision P = Precision::rounding>
[[gnu::always_inline]] inline N logarithm_of_one_plus(N y) {
  using V = Lanes<N>;
  return logarithm_by<N, P>(complement(Mask<V>(V(0.0) > V(0.0))), y, y);
}

// --- angles ---------------------------------------------------------------------------------------------------------

inline constexpr Long kPi = {arc::kPi64, arc::kPiLow64};
template <class N>
inline N pi_times(double power_of_two) {
  return number<N>(kPi.head * power_of_two, kPi.tail * power_of_two);
}

// atan(n / d), 0 <= n <= d, d normal and neither its square nor its inverse out of range: the nearest multiple of 1/128
// to the tangent from a table, and what is left of it.
template <class N>
[[gnu::always_inline]] inline N first_octant(N n, N d) {
  using V = Lanes<N>;
  const V row = round<Direction::zero>(fma(head_of(n) / head_of(d), V(128.0), V(0.5)));
  const V c = row * V(0x1p-7);
  const Pair<V> table = gather(kArcTangents128, whole(row));
  if constexpr (kPlain<N>) {
    const V t = fnma(c, d, n) / fma(c, n, d);
    const V z = t * t;
    return table.first + fma(t * z, horner(z, kArcTangentRest), t);
  } else {
    const N over = {fnma(c, d.head, n.head), fnma(c, d.tail, n.tail)};  // the head is exact
    const V head = fma(c, n.head, d.head);
    const N t = divide(over, {head, fma(c, n.head, d.head - head) + fma(c, n.tail, d.tail)});
    const V z = t.head * t.head;
    const V rest = fma(t.head * z, horner(z, kArcTangentRest), fnma(t.tail, z, t.tail));
    const HeadTail<V> s = fast_two_sum(table.first, t.head);
    return {s.head, s.tail + (table.second + rest)};
  }
}

// The angle of (x, y), y >= 0, in [0, pi]; the larger as `d` above. It is taken from 0, from pi/2 in the two steep
// octants, or from pi.
template <class N>
[[gnu::always_inline]] inline N angle(N y, N x) {
  using V = Lanes<N>;
  const V side = head_of(x);
  const N ax = signed_by(x, side);
  const Mask<V> steep = head_of(y) > head_of(ax);
  const auto base = [&](double pi) __attribute__((always_inline)) {
    return select(steep, V(0.5 * pi), select(sign_decides(side), V(pi), V(0.0)));
  };
  N n, d;
  if constexpr (kPlain<N>) {
    n = min(y, ax), d = max(y, ax);
  } else {
    n = {min(y.head, ax.head), select(steep, ax.tail, y.tail)};
    d = {max(y.head, ax.head), select(steep, y.tail, ax.tail)};
  }
  const V away = select(steep, negative(side), side);
  return add_smaller(number<N>(base(kPi.head), base(kPi.tail)), signed_by(first_octant<N>(n, d), away));
}

// The same of any finite point but 0.
[[gnu::noinline, gnu::cold]] inline Long angle_of_far(double y, double x) {
  if (x == 0) return pi_times<Long>(0.5);
  if (y == 0) return is_negative(x) ? kPi : Long{0.0, 0.0};
  const int ey = exponent_of(y), ex = exponent_of(x);
  if (ey < ex - 200) {
    if (x < 0) return kPi;
    const Long q = divide(HeadTail<double>{times_two_to(y, -ey), 0.0}, HeadTail<double>{times_two_to(x, -ex), 0.0});
    return {times_two_to(q.head, ey - ex), times_two_to(q.tail, ey - ex)};
  }
  if (ex < ey - 200) return pi_times<Long>(0.5);
  const int e = ey > ex ? ey : ex;
  return angle(Long{times_two_to(y, -e), 0.0}, Long{times_two_to(x, -e), 0.0});
}

// --- points ---------------------------------------------------------------------------------------------------------

// x^2 + y^2 - 1 with a relative error of some 2^-100 (2^-53) however much cancels; x >= y, the squares about 1.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline N beyond_unit_circle(V x, V y) {
  if constexpr (kPlain<N>) {
    // Of floats: two products of 48 bits, and x - 1 and x + 1 are exact.
    return fma(x - V(1.0), x + V(1.0), y * y);
  } else {
    const HeadTail<V> p = two_square(x), q = two_square(y);
    const HeadTail<V> less = fast_two_sum(V(-1.0), p.head);  // of x^2 = 1/4 to 2, so that the tail is exact
    const HeadTail<V> s = two_sum(less.head, q.head);
    const HeadTail<V> low = two_sum(p.tail, q.tail);
    const HeadTail<V> t = two_sum(s.head, low.head);
    return fast_two_sum(t.head, t.tail + ((less.tail + s.tail) + low.tail));
  }
}

// ln |z| and the angle of z in [0, pi], of which the sign is that of the imaginary part.
template <class N>
struct ComplexLogarithm {
  N modulus, angle;
};

template <class N, Precision P, class V = Lanes<N>>
[[gnu::always_inline]] inline N logarithm_of_modulus(V large, V small) {
  const N squares = add_smaller(product<N>(large, large), product<N>(small, small));
  const V head = head_of(squares);
  const Mask<V> near = (head > V(0.5)) & (head < V(2.0));
  return half(logarithm_by<N, P>(near, squares, beyond_unit_circle<N>(large, small)));
}

// Points so far out or in that squares leave the range.
[[gnu::noinline, gnu::cold]] inline Long logarithm_of_far(double large, double small) {
  const int e = exponent_of(large);
  const Long log = logarithm_of_modulus<Long, Precision::powers>(times_two_to(large, -e), times_two_to(small, -e));
  return add(fast_two_sum(e * kLn2Head64, e * kLn2Tail64), log);
}

// What lanes of complex_logarithm do not serve: 0, infinities, NaNs, and what is far from 1 or from the diagonals.
template <class N, class V = Lanes<N>>
[[gnu::always_inline]] inline Mask<V> far_from_one(V x, V y) {
  const V ax = magnitude(x), ay = magnitude(y);
  const V large = max(ax, ay), small = min(ax, ay);
  const Mask<V> numbers = complement(unordered(x, y));
  if constexpr (kPlain<N>) {  // any float
    return complement(numbers & (large > V(0.0)) & (large < V(0x1p200)));
  } else {
    const Mask<V> near = (large > V(0x1p-400)) & (large < V(0x1p400));
    return complement(numbers & near & ((small > V(0x1p-500)) | (small == V(0.0))));
  }
}

// z finite and not 0.
template <class N, Precision P = Precision::rounding, class V = Lanes<N>>
[[gnu::always_inline]] inline ComplexLogarithm<N> complex_logarithm(V x, V y) {
  const V ax = magnitude(x), ay = magnitude(y);
  const V large = max(ax, ay), small = min(ax, ay);
  N modulus, turned;
  if constexpr (!kPlain<N> && kAlone<N>) {
    const bool near = large > 0x1p-400 && large < 0x1p400;
    modulus = near ? logarithm_of_modulus<N, P>(large, small) : logarithm_of_far(large, small);
    turned = near && (small > 0x1p-500 || small == 0) ? angle(number<N>(ay), number<N>(x)) : angle_of_far(ay, x);
  } else {
    modulus = logarithm_of_modulus<N, P>(large, small);
    turned = angle(number<N>(ay), number<N>(x));
  }
  if constexpr (kPlain<N> || P == Precision::rounding) {
    return {modulus, turned};
  } else {
    return {fast_two_sum(modulus.head, modulus.tail), fast_two_sum(turned.head, turned.tail)};
  }
}

}  // namespace orvik::zym::complex_loops

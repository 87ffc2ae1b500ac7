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

// --- logarithms -----------------------------------------------------------------------------------------------------

// Of heads and tails: enough for one rounding of the result, 2^-62, or for the powers, which multiply it, 2^-68 and
// normalised. (The others' tails hold all that is small, up to 2^-20 of the heads.)
enum class Precision { rounding, powers };

// e ln(2) + table + ln(1 + r), |r| < 2^-10; table as kLnPairs has it.
template <class N, Precision P>
[[gnu::always_inline]] inline N logarithm_near(double e, Pair<double> table, N r) {
  if constexpr (std::is_same_v<N, double>) {
    const double head = fma(e, kLn2Head64, table.first);
    return head + (r + fma(r * r, horner(r, kLnDoubleLA), fma(e, kLn2Tail64, table.second)));
  } else if constexpr (P == Precision::rounding) {
    const HeadTail<double> s = fast_two_sum(fma(e, kLn2Head64, table.first), r.head);  // of exact numbers
    const double rest = fma(r.head * r.head, fma(r.head, horner(r.head, kLogRest), -0.5), r.tail);
    return {s.head, s.tail + (fma(e, kLn2Tail64, table.second) + rest)};
  } else {
    const HeadTail<double> q = two_square(r.head);
    const double top = fma(e, kLn2Head64, table.first);  // exact
    const HeadTail<double> s = fast_two_sum(top, r.head);
    const HeadTail<double> t = fast_two_sum(s.head, -0.5 * q.head);
    const double rest = fma(r.head * q.head, horner(r.head, kLogRest), fma(-0.5, q.tail, fnma(r.head, r.tail, r.tail)));
    return {t.head, (s.tail + t.tail) + (fma(e, kLn2Tail64, table.second) + rest)};
  }
}

// ln x, x positive and normal.
template <class N, Precision P = Precision::rounding>
[[gnu::always_inline]] inline N logarithm(N x) {
  const uint64_t bits = bits_of(head_of(x));
  const double m = float_of<double>((bits & 0x000FFFFFFFFFFFFF) | 0x3FF0000000000000);
  const double e = static_cast<double>(static_cast<int64_t>(bits >> 52) - 1023);
  const auto key = static_cast<int64_t>(1024.0 / m + 0.5);
  const double c = static_cast<double>(key) * 0x1p-10;
  const Pair<double> table = gather<512>(kLnPairs, key);
  const double r = fms(c, m, 1.0);  // exact
  if constexpr (std::is_same_v<N, double>) {
    return logarithm_near<N, P>(e, table, r);
  } else {
    const double power = float_of<double>((uint64_t{2046} << 52) - (bits & 0x7FF0000000000000));
    return logarithm_near<N, P>(e, table, two_sum(r, c * (x.tail * power)));
  }
}

// ln(1 + x), x > -1/2, to the relative precision of x.
template <class N, Precision P = Precision::rounding>
[[gnu::always_inline]] inline N logarithm_of_one_plus(N x) {
  if (magnitude(head_of(x)) < 0.0009765625) return logarithm_near<N, P>(0.0, {0.0, 0.0}, x);
  return logarithm<N, P>(add(x, number<N>(1.0)));
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
  const auto row = static_cast<int64_t>(fma(head_of(n) / head_of(d), 128.0, 0.5));
  const double c = static_cast<double>(row) * 0x1p-7;
  const Pair<double> table = gather(kArcTangents128, row);
  if constexpr (std::is_same_v<N, double>) {
    const double t = fnma(c, d, n) / fma(c, n, d);
    const double z = t * t;
    return table.first + fma(t * z, horner(z, kArcTangentRest), t);
  } else {
    const Long over = {fnma(c, d.head, n.head), fnma(c, d.tail, n.tail)};  // the head is exact
    const double head = fma(c, n.head, d.head);
    const Long t = divide(over, {head, fma(c, n.head, d.head - head) + fma(c, n.tail, d.tail)});
    const double z = t.head * t.head;
    const double rest = fma(t.head * z, horner(z, kArcTangentRest), fnma(t.tail, z, t.tail));
    const HeadTail<double> s = fast_two_sum(table.first, t.head);
    return {s.head, s.tail + (table.second + rest)};
  }
}

// What the angle of the first octant is taken from: 0, pi/2 in the two steep octants, pi.
struct AngleBases {
  double head[4], tail[4];
};
inline constexpr AngleBases kAngleBases = {{0, kPi.head / 2, kPi.head, kPi.head / 2},
                                           {0, kPi.tail / 2, kPi.tail, kPi.tail / 2}};

// The angle of (x, y), y >= 0, in [0, pi]; the larger as `d` above. Without jumps: quadrants are not to be foreseen.
template <class N>
[[gnu::always_inline]] inline N angle(N y, N x) {
  const N ax = signed_by(x, head_of(x));
  const bool steep = as_bits(head_of(y)) > as_bits(head_of(ax));  // of numbers that are not negative
  const uint64_t left = as_bits(head_of(x)) >> 63;
  const uint64_t quadrant = uint64_t{steep} + 2 * left;
  const uint64_t away = (quadrant << 63) ^ (left << 63);
  N n, d;
  if constexpr (std::is_same_v<N, double>) {
    n = min(y, ax), d = max(y, ax);
  } else {
    const uint64_t mask = mask_of(steep);
    n = {min(y.head, ax.head), choose(mask, ax.tail, y.tail)};
    d = {max(y.head, ax.head), choose(mask, y.tail, ax.tail)};
  }
  const N base = number<N>(kAngleBases.head[quadrant], kAngleBases.tail[quadrant]);
  return add_smaller(base, signed_by(first_octant<N>(n, d), as_float(away)));
}

// The same of any finite point but 0.
[[gnu::noinline, gnu::cold]] inline Long angle_of_far(double y, double x) {
  if (x == 0) return pi_times<Long>(0.5);
  if (y == 0) return is_negative(x) ? kPi : Long{0.0, 0.0};
  const int ey = std::ilogb(y), ex = std::ilogb(x);
  if (ey < ex - 200) {
    if (x < 0) return kPi;
    const Long q = divide(HeadTail<double>{std::scalbn(y, -ey), 0.0}, HeadTail<double>{std::scalbn(x, -ex), 0.0});
    return {std::scalbn(q.head, ey - ex), std::scalbn(q.tail, ey - ex)};
  }
  if (ex < ey - 200) return pi_times<Long>(0.5);
  const int e = ey > ex ? ey : ex;
  return angle(Long{std::scalbn(y, -e), 0.0}, Long{std::scalbn(x, -e), 0.0});
}

// --- points ---------------------------------------------------------------------------------------------------------

// x^2 + y^2 - 1 with a relative error of some 2^-100 (2^-53) however much cancels; x >= y, the squares about 1.
template <class N>
[[gnu::always_inline]] inline N beyond_unit_circle(double x, double y) {
  if constexpr (std::is_same_v<N, double>) {
    return fma(x - 1.0, x + 1.0, y * y);  // of floats: two products of 48 bits, and x - 1 and x + 1 are exact
  } else {
    const HeadTail<double> p = two_square(x), q = two_square(y);
    const HeadTail<double> less = fast_two_sum(-1.0, p.head);  // of x^2 = 1/4 to 2, so that the tail is exact
    const HeadTail<double> s = two_sum(less.head, q.head);
    const HeadTail<double> low = two_sum(p.tail, q.tail);
    const HeadTail<double> t = two_sum(s.head, low.head);
    return fast_two_sum(t.head, t.tail + ((less.tail + s.tail) + low.tail));
  }
}

// ln |z| and the angle of z in [0, pi], of which the sign is that of the imaginary part.
template <class N>
struct ComplexLogarithm {
  N modulus, angle;
};

template <class N, Precision P>
[[gnu::always_inline]] inline N logarithm_of_modulus(double large, double small) {
  const N squares = add_smaller(product<N>(large, large), product<N>(small, small));
  if (head_of(squares) > 0.5 && head_of(squares) < 2.0) {
    return half(logarithm_of_one_plus<N, P>(beyond_unit_circle<N>(large, small)));
  }
  return half(logarithm<N, P>(squares));
}

// Points so far out or in that squares leave the range.
[[gnu::noinline, gnu::cold]] inline Long logarithm_of_far(double large, double small) {
  const int e = std::ilogb(large);
  const Long log = logarithm_of_modulus<Long, Precision::powers>(std::scalbn(large, -e), std::scalbn(small, -e));
  return add(fast_two_sum(e * kLn2Head64, e * kLn2Tail64), log);
}

// z finite and not 0.
template <class N, Precision P = Precision::rounding>
[[gnu::always_inline]] inline ComplexLogarithm<N> complex_logarithm(double x, double y) {
  const double ax = magnitude(x), ay = magnitude(y);
  const double large = max(ax, ay), small = min(ax, ay);
  if constexpr (std::is_same_v<N, double>) {
    return {logarithm_of_modulus<N, P>(large, small), angle(number<N>(ay), number<N>(x))};
  } else {
    const bool near = large > 0x1p-400 && large < 0x1p400;
    const N modulus = near ? logarithm_of_modulus<N, P>(large, small) : logarithm_of_far(large, small);
    const N turned =
        near && (small > 0x1p-500 || small == 0) ? angle(number<N>(ay), number<N>(x)) : angle_of_far(ay, x);
    if constexpr (P == Precision::rounding) return {modulus, turned};
    return {fast_two_sum(modulus.head, modulus.tail), fast_two_sum(turned.head, turned.tail)};
  }
}

}  // namespace orvik::zym::complex_loops

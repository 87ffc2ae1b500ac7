// What the scalar routines of the complex loops compute in: doubles for parts of 32 bits, heads and tails for parts of
// 64. Routines are written over the number N with the operations below, so that both are one text; results are rounded
// once. Every sum of squares, product and quotient keeps a relative error of some units of 2^-52, or of 2^-104.
#pragma once

#include <cmath>
#include <type_traits>

#include "lanes/head_tail.h"
#include "lanes/scalar.h"
#include "zym/kernels/shared/corrections.h"

namespace orvik::zym::complex_loops {

using Long = HeadTail<double>;

// The number for elements of parts E.
template <class E>
struct NumberOf {
  using Type = double;
};
template <>
struct NumberOf<double> {
  using Type = Long;
};
template <class E>
using Number = typename NumberOf<E>::Type;

// A complex result, or an argument widened to doubles.
struct Point {
  double re, im;
};

// --- doubles --------------------------------------------------------------------------------------------------------

inline double add(double a, double b) { return a + b; }
inline double add_smaller(double a, double b) { return a + b; }
inline double multiply(double a, double b) { return a * b; }
inline double divide(double a, double b) { return a / b; }
inline double root(double a) { return sqrt(a); }
inline double head_of(double a) { return a; }
inline double rounded(double a) { return a; }
inline double negative(double a) { return -a; }
inline double scaled(double a, double power_of_two) { return a * power_of_two; }

// --- heads and tails ------------------------------------------------------------------------------------------------

// Nothing is normalised on the way, which would double the length of the chain of dependent steps.
inline double head_of(Long a) { return a.head; }
inline double rounded(Long a) { return a.head + a.tail; }
inline Long negative(Long a) { return {-a.head, -a.tail}; }
inline Long scaled(Long a, double power_of_two) { return {a.head * power_of_two, a.tail * power_of_two}; }
inline Long add(Long a, Long b) {
  const HeadTail<double> s = two_sum(a.head, b.head);
  return {s.head, s.tail + (a.tail + b.tail)};
}
// |a| >= |b|.
inline Long add_smaller(Long a, Long b) {
  const HeadTail<double> s = fast_two_sum(a.head, b.head);
  return {s.head, s.tail + (a.tail + b.tail)};
}
inline Long multiply(Long a, double b) {
  const HeadTail<double> p = two_prod(a.head, b);
  return {p.head, fma(a.tail, b, p.tail)};
}
inline Long multiply(Long a, Long b) {
  const HeadTail<double> p = two_prod(a.head, b.head);
  return {p.head, fma(a.head, b.tail, fma(a.tail, b.head, p.tail))};
}
inline Long divide(Long a, Long b) {
  const double inverse = 1.0 / b.head;
  const double q = a.head * inverse;
  return {q, (fnma(q, b.head, a.head) + fnma(q, b.tail, a.tail)) * inverse};
}
// The tail to 1.5 %.
inline Long root(Long a) {
  const double s = sqrt(a.head);
  if (s == 0) return {0.0, 0.0};
  return {s, (fnma(s, s, a.head) + a.tail) * (0.5 * rough_reciprocal(s))};
}

// --- both -----------------------------------------------------------------------------------------------------------

// a + b, a b of doubles, exact in heads and tails.
template <class N>
N sum(double a, double b) {
  if constexpr (std::is_same_v<N, double>) return a + b;
  if constexpr (!std::is_same_v<N, double>) return two_sum(a, b);
}
template <class N>
N product(double a, double b) {
  if constexpr (std::is_same_v<N, double>) return a * b;
  if constexpr (!std::is_same_v<N, double>) return two_prod(a, b);
}
template <class N>
N number(double head, double tail = 0.0) {
  if constexpr (std::is_same_v<N, double>) return head;
  if constexpr (!std::is_same_v<N, double>) return {head, tail};
}
// a b rounded once, with its sign also where it is zero. What is so small that tails would be lost is lifted.
inline double rounded_product(double a, double b) { return a * b; }
inline double rounded_product(Long a, Long b) {
  const Long p = multiply(a, b);
  if (magnitude(p.head) < 0x1p-900) [[unlikely]] {
    const Long lifted = multiply(scaled(a, 0x1p200), b);
    return std::copysign(lifted.head + lifted.tail, p.head) * 0x1p-200;
  }
  return p.head + p.tail;
}
// Choices that data make at random go without a jump: a where the mask has all bits set, b where it has none.
inline uint64_t mask_of(bool all) { return all ? ~uint64_t{0} : uint64_t{0}; }
inline double choose(uint64_t mask, double a, double b) { return as_float((as_bits(a) & mask) | (as_bits(b) & ~mask)); }
inline double signed_by(double a, double sign) { return flip_sign(a, sign); }
inline Long signed_by(Long a, double sign) { return {flip_sign(a.head, sign), flip_sign(a.tail, sign)}; }
template <class N>
N square(N a) {
  return multiply(a, a);
}
template <class N>
N half(N a) {
  return scaled(a, 0.5);
}

}  // namespace orvik::zym::complex_loops

// What the routines of the complex loops compute in: lanes of doubles for parts of 32 bits, heads and tails of them for
// parts of 64. They are written over the number N with the operations below and over the lanes V, four elements or one,
// so that all are one text and one element has the same bits alone and among others; results are rounded once. Every sum
// of squares, product and quotient keeps a relative error of some units of 2^-52, or of 2^-104.
#pragma once

#include <cmath>
#include <type_traits>

#include "lanes/lanes.h"
#include "zym/kernels/shared/corrections.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex_loops {

using Long = HeadTail<double>;

template <class N>
struct LanesOf {
  using Type = N;
};
template <class V>
struct LanesOf<HeadTail<V>> {
  using Type = V;
};
template <class N>
using Lanes = typename LanesOf<N>::Type;
// Without a tail.
template <class N>
inline constexpr bool kPlain = std::is_same_v<N, Lanes<N>>;
// One element, which may branch, as those of a vector cannot.
template <class N>
inline constexpr bool kAlone = kWidth<Lanes<N>> == 1;

// The number for elements of parts E over lanes V of doubles.
template <class E, class V = double>
using Number = std::conditional_t<std::is_same_v<E, float>, V, HeadTail<V>>;

// A complex result, or an argument widened to doubles.
struct Point {
  double re, im;
};

// --- doubles --------------------------------------------------------------------------------------------------------

template <Double V>
V negative(V a) {
  return flip_sign(a, V(-1.0));
}
template <Double V>
V signed_by(V a, V sign) {
  return flip_sign(a, sign);
}
template <Double V>
V add(V a, V b) {
  return a + b;
}
template <Double V>
V add_smaller(V a, V b) {
  return a + b;
}
template <Double V>
V multiply(V a, V b) {
  return a * b;
}
template <Double V>
V divide(V a, V b) {
  return a / b;
}
template <Double V>
V root(V a) {
  return sqrt(a);
}
template <Double V>
V head_of(V a) {
  return a;
}
template <Double V>
V rounded(V a) {
  return a;
}
template <Double V>
V scaled(V a, V power_of_two) {
  return a * power_of_two;
}

// --- heads and tails ------------------------------------------------------------------------------------------------

// Nothing is normalised on the way, which would double the length of the chain of dependent steps.
template <Double V>
V head_of(HeadTail<V> a) {
  return a.head;
}
template <Double V>
V rounded(HeadTail<V> a) {
  return a.head + a.tail;
}
template <Double V>
HeadTail<V> signed_by(HeadTail<V> a, V sign) {
  return {flip_sign(a.head, sign), flip_sign(a.tail, sign)};
}
template <Double V>
HeadTail<V> negative(HeadTail<V> a) {
  return {negative(a.head), negative(a.tail)};
}
template <Double V>
HeadTail<V> select(Mask<V> mask, HeadTail<V> yes, HeadTail<V> no) {
  return {orvik::select(mask, yes.head, no.head), orvik::select(mask, yes.tail, no.tail)};
}
using orvik::select;
template <Double V>
HeadTail<V> scaled(HeadTail<V> a, V power_of_two) {
  return {a.head * power_of_two, a.tail * power_of_two};
}
template <Double V>
HeadTail<V> add(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> s = two_sum(a.head, b.head);
  return {s.head, s.tail + (a.tail + b.tail)};
}
// |a| >= |b|.
template <Double V>
HeadTail<V> add_smaller(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> s = fast_two_sum(a.head, b.head);
  return {s.head, s.tail + (a.tail + b.tail)};
}
template <Double V>
HeadTail<V> multiply(HeadTail<V> a, V b) {
  const HeadTail<V> p = two_prod(a.head, b);
  return {p.head, fma(a.tail, b, p.tail)};
}
template <Double V>
HeadTail<V> multiply(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> p = two_prod(a.head, b.head);
  return {p.head, fma(a.head, b.tail, fma(a.tail, b.head, p.tail))};
}
template <Double V>
HeadTail<V> divide(HeadTail<V> a, HeadTail<V> b) {
  const V inverse = V(1.0) / b.head;
  const V q = a.head * inverse;
  return {q, (fnma(q, b.head, a.head) + fnma(q, b.tail, a.tail)) * inverse};
}
// The tail to 1.5 %.
template <Double V>
HeadTail<V> root(HeadTail<V> a) {
  const V s = sqrt(a.head);
  if constexpr (kWidth<V> == 1) {  // no flags of what is dropped
    if (s == 0) return {s, 0.0};
  }
  return {s, drop(Mask<V>(s == V(0.0)), (fnma(s, s, a.head) + a.tail) * (V(0.5) * rough_reciprocal(s)))};
}

// --- both -----------------------------------------------------------------------------------------------------------

// a + b, a b of doubles, exact in heads and tails.
template <class N>
N sum(Lanes<N> a, Lanes<N> b) {
  if constexpr (kPlain<N>) {
    return a + b;
  } else {
    return two_sum(a, b);
  }
}
template <class N>
N product(Lanes<N> a, Lanes<N> b) {
  if constexpr (kPlain<N>) {
    return a * b;
  } else {
    return two_prod(a, b);
  }
}
template <class N>
N number(Lanes<N> head, Lanes<N> tail = Lanes<N>(0.0)) {
  if constexpr (kPlain<N>) {
    return head;
  } else {
    return {head, tail};
  }
}
template <class N>
N square(N a) {
  return multiply(a, a);
}
template <class N>
N half(N a) {
  return scaled(a, Lanes<N>(0.5));
}

// a b rounded once, with its sign also where it is zero. What is so small that tails would be lost is lifted; in lanes
// it is left.
template <Double V>
V rounded_product(V a, V b) {
  return a * b;
}
inline double rounded_product(Long a, Long b) {
  const Long p = multiply(a, b);
  if (magnitude(p.head) < 0x1p-900) [[unlikely]] {
    const Long lifted = multiply(scaled(a, 0x1p200), b);
    return std::copysign(lifted.head + lifted.tail, p.head) * 0x1p-200;
  }
  return p.head + p.tail;
}
template <Double V>
Masked<V, Mask<V>> tested_product(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> p = multiply(a, b);
  const Mask<V> zero = p.head == V(0.0);
  return {select(zero, p.head, p.head + p.tail), andnot(zero, magnitude(p.head) < V(0x1p-900))};
}
template <Double V>
Masked<V, Mask<V>> tested_product(V a, V b) {
  const V none = V(0.0);
  return {a * b, Mask<V>(none > none)};
}

}  // namespace orvik::zym::complex_loops

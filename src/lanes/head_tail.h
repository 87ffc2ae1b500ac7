// Sums and products with their rounding errors, and numbers held as head and tail: value = head + tail, |tail| at most
// half an ulp of head where the comment says normalised (Dekker 1971; Knuth 1997, 4.2.2; products by fused steps).
#pragma once

#include "lanes/scalar.h"
#include "lanes/twice.h"
#include "lanes/vectors.h"

namespace orvik {

template <class V>
struct HeadTail {
  V head, tail;
};

// a + b exactly.
template <class V>
inline HeadTail<V> two_sum(V a, V b) {
  const V s = a + b;
  const V b_part = s - a;
  const V a_part = s - b_part;
  return {s, (a - a_part) + (b - b_part)};
}
// The same where |a| >= |b|, or a is 0.
template <class V>
inline HeadTail<V> fast_two_sum(V a, V b) {
  const V s = a + b;
  return {s, b - (s - a)};
}
// a b exactly, but for underflow.
template <class V>
inline HeadTail<V> two_prod(V a, V b) {
  const V p = a * b;
  return {p, fms(a, b, p)};
}
template <class V>
inline HeadTail<V> two_square(V a) {
  return two_prod(a, a);
}

// Normalised results within a few units of the tail's last place.
template <class V>
inline HeadTail<V> add(HeadTail<V> a, V b) {
  const HeadTail<V> s = two_sum(a.head, b);
  return fast_two_sum(s.head, s.tail + a.tail);
}
template <class V>
inline HeadTail<V> add(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> s = two_sum(a.head, b.head);
  return fast_two_sum(s.head, s.tail + (a.tail + b.tail));
}
template <class V>
inline HeadTail<V> multiply(HeadTail<V> a, V b) {
  const HeadTail<V> p = two_prod(a.head, b);
  return fast_two_sum(p.head, fma(a.tail, b, p.tail));
}
template <class V>
inline HeadTail<V> multiply(HeadTail<V> a, HeadTail<V> b) {
  const HeadTail<V> p = two_prod(a.head, b.head);
  return fast_two_sum(p.head, fma(a.head, b.tail, fma(a.tail, b.head, p.tail)));
}
template <class V>
inline HeadTail<V> divide(V a, V b) {
  const V q = a / b;
  return {q, fnma(q, b, a) / b};
}
template <class V>
inline HeadTail<V> divide(HeadTail<V> a, HeadTail<V> b) {
  const V q = a.head / b.head;
  const V r = fnma(q, b.head, a.head) + fnma(q, b.tail, a.tail);
  return fast_two_sum(q, r / b.head);
}

}  // namespace orvik

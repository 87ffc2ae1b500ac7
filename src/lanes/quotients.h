// a / b and sqrt(a) with the bits of the instructions, for kernels that wait for the divider: 512-bit registers take
// products and sums instead, some three times as many in a unit of time. A kernel with enough else to do divides beside
// that for nothing: measure both.
//
// Quotients of |a|, |b| from 2^-480 to 2^480 (floats: 2^-60 to 2^60) and of a = 0, where the sign is lost; roots of
// a = 0 and 2^-900 to 2^1020, of floats by the instruction. What else there is gives any number. The steps raise no
// flags, inexact neither: for kernels whose results raise it.
#pragma once

#include "lanes/lanes.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/quotients.h"
#endif

namespace orvik {

template <class V>
[[gnu::always_inline]] inline V divided(V a, V b) {
  return a / b;
}
template <class V>
[[gnu::always_inline]] inline V root(V a) {
  return sqrt(a);
}
// a / b of any operands, sign and flags included.
template <class V>
[[gnu::always_inline]] inline V divided_exactly(V a, V b) {
  return a / b;
}
// Beside few other steps: those of the root are worth their time on all processors.
template <class V>
[[gnu::always_inline]] inline V root_of_few(V a) {
  return root(a);
}
#if ORVIK_REGISTER_BITS == 512
// Of two vectors one takes the divider, beside the steps of the other.
template <class T>
[[gnu::always_inline]] inline Twice<T> divided(Twice<T> a, Twice<T> b) {
  return {a.low / b.low, divided(a.high, b.high)};
}
template <class T>
[[gnu::always_inline]] inline Twice<T> divided_exactly(Twice<T> a, Twice<T> b) {
  return {a.low / b.low, divided_exactly(a.high, b.high)};
}
template <class T>
[[gnu::always_inline]] inline Twice<T> root(Twice<T> a) {
  return {sqrt(a.low), root(a.high)};
}
template <class T>
[[gnu::always_inline]] inline Twice<T> root_of_few(Twice<T> a) {
  return {sqrt(a.low), root_by_steps(a.high)};
}
#endif

}  // namespace orvik

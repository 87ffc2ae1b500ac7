// Twice the width: every operation on both halves. What is written over a lane type runs on it unchanged.
#pragma once

#include "lanes/types.h"
#include "lanes/vectors.h"

namespace orvik {

#define ORVIK_TWICE_1(name)                     \
  template <class T>                            \
  inline auto name(Twice<T> a) {                \
    using R = decltype(name(a.low));            \
    return Twice<R>{name(a.low), name(a.high)}; \
  }
#define ORVIK_TWICE_2(name)                                    \
  template <class T>                                           \
  inline auto name(Twice<T> a, Twice<T> b) {                   \
    using R = decltype(name(a.low, b.low));                    \
    return Twice<R>{name(a.low, b.low), name(a.high, b.high)}; \
  }
#define ORVIK_TWICE_3(name)                                           \
  template <class T>                                                  \
  inline Twice<T> name(Twice<T> a, Twice<T> b, Twice<T> c) {          \
    return {name(a.low, b.low, c.low), name(a.high, b.high, c.high)}; \
  }
#define ORVIK_TWICE_SHIFT(name)                       \
  template <int Count, class T>                       \
  inline Twice<T> name(Twice<T> a) {                  \
    return {name<Count>(a.low), name<Count>(a.high)}; \
  }

ORVIK_TWICE_2(operator+)
ORVIK_TWICE_2(operator-)
ORVIK_TWICE_2(operator*)
ORVIK_TWICE_2(operator/)
ORVIK_TWICE_2(operator&)
ORVIK_TWICE_2(operator|)
ORVIK_TWICE_2(operator^)
ORVIK_TWICE_2(operator>)
ORVIK_TWICE_2(operator<)
ORVIK_TWICE_2(operator>=)
ORVIK_TWICE_2(operator<=)
ORVIK_TWICE_2(operator==)
ORVIK_TWICE_2(equal_or_unordered)
ORVIK_TWICE_2(unordered)
ORVIK_TWICE_2(andnot)
ORVIK_TWICE_2(max)
ORVIK_TWICE_2(min)
ORVIK_TWICE_2(equal)
ORVIK_TWICE_2(greater_signed)
ORVIK_TWICE_2(multiply_low_words)
ORVIK_TWICE_2(larger_words)
ORVIK_TWICE_2(smaller_words)
ORVIK_TWICE_2(shift_left)
ORVIK_TWICE_2(shift_right)
ORVIK_TWICE_3(fma)
ORVIK_TWICE_3(fms)
ORVIK_TWICE_3(fnma)
ORVIK_TWICE_3(select_bytes)
ORVIK_TWICE_1(sqrt)
ORVIK_TWICE_1(reciprocal_estimate)
ORVIK_TWICE_1(inverse_root_estimate)
ORVIK_TWICE_1(complement)
ORVIK_TWICE_1(minus_one)
ORVIK_TWICE_1(sign_decides)
ORVIK_TWICE_1(as_bits)
ORVIK_TWICE_1(as_float)
ORVIK_TWICE_1(as_words)
ORVIK_TWICE_1(as_long_words)
ORVIK_TWICE_1(to_float)
ORVIK_TWICE_1(to_double)
ORVIK_TWICE_1(to_integer)
ORVIK_TWICE_1(widen)
ORVIK_TWICE_1(low_words)
ORVIK_TWICE_SHIFT(shift_left)
ORVIK_TWICE_SHIFT(shift_right)
ORVIK_TWICE_SHIFT(shift_right_arithmetic)

#undef ORVIK_TWICE_1
#undef ORVIK_TWICE_2
#undef ORVIK_TWICE_3
#undef ORVIK_TWICE_SHIFT

template <class M, class T>
inline Twice<T> select(Twice<M> mask, Twice<T> yes, Twice<T> no) {
  return {select(mask.low, yes.low, no.low), select(mask.high, yes.high, no.high)};
}
template <class M, class T>
inline Twice<T> keep(Twice<M> mask, Twice<T> a) {
  return {keep(mask.low, a.low), keep(mask.high, a.high)};
}
template <class M, class T>
inline Twice<T> drop(Twice<M> mask, Twice<T> a) {
  return {drop(mask.low, a.low), drop(mask.high, a.high)};
}
inline uint32_t lane_bits(Twice<M32> mask) { return lane_bits(mask.low) | lane_bits(mask.high) << kWidth<F32>; }
inline uint32_t lane_bits(Twice<M64> mask) { return lane_bits(mask.low) | lane_bits(mask.high) << kWidth<F64>; }
template <class M>
inline bool none(Twice<M> mask) {
  return none(mask.low | mask.high);
}
template <class T>
inline auto words_above(Twice<T> a, int32_t bound) {
  return Twice<decltype(words_above(a.low, bound))>{words_above(a.low, bound), words_above(a.high, bound)};
}
template <class T>
inline Twice<T> add_to_words(Twice<T> a, uint32_t b) {
  return {add_to_words(a.low, b), add_to_words(a.high, b)};
}
template <class T>
inline Twice<T> subtract_from_words(uint32_t a, Twice<T> b) {
  return {subtract_from_words(a, b.low), subtract_from_words(a, b.high)};
}
template <class T>
inline Twice<T> multiply_low_halves(Twice<T> a, int16_t b) {
  return {multiply_low_halves(a.low, b), multiply_low_halves(a.high, b)};
}
template <class T>
inline Twice<T> multiply_high16(Twice<T> a, uint16_t b) {
  return {multiply_high16(a.low, b), multiply_high16(a.high, b)};
}

// Halves in the order of the elements: the low half of sixteen lanes is the first eight.
inline Twice<F64> widen_low(Twice<F32> a) { return {widen_low(a.low), widen_high(a.low)}; }
inline Twice<F64> widen_high(Twice<F32> a) { return {widen_low(a.high), widen_high(a.high)}; }
inline Twice<F32> narrow(Twice<F64> low, Twice<F64> high) {
  return {narrow(low.low, low.high), narrow(high.low, high.high)};
}
inline Twice<I32Half> low_half(Twice<I32> a) { return {low_half(a.low), high_half(a.low)}; }
inline Twice<I32Half> high_half(Twice<I32> a) { return {low_half(a.high), high_half(a.high)}; }
inline Twice<I32> join(Twice<I32Half> low, Twice<I32Half> high) {
  return {join(low.low, low.high), join(high.low, high.high)};
}

}  // namespace orvik

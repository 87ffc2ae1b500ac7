// Lane types: thin wrappers around vector registers, so that a lane computation reads like the mathematics and
// compiles to exactly the instructions that it names. Nothing is contracted or reassociated: a fused step is an fma().
//
// What is written over a lane type V compiles for F32 (floats), F64 (half as many doubles), a pair Twice<V> of either,
// and for a plain float or double as the lane type of one element. Registers have 256 bits, or 512 in sources that are
// compiled with ORVIK_REGISTER_BITS=512 and those instructions; what is written over them does not see which. Integers of lanes have no sign of their own:
// operations say how they read them. Masks hold one answer a lane.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/types.h"
#else
#include "lanes/narrow/types.h"
#endif

namespace orvik {

// Members of what holds several vectors are mutable for the compiler's sake alone: g++ 12 keeps a const variable of such a
// type in memory, whole copies of it included, and one that may change in registers.

// Two of them side by side: lanes of twice the width, and what else comes one a vector (indices, masks).
template <class T>
struct Twice {
  mutable T low, high;
  Twice() = default;
  Twice(T l, T h) : low(l), high(h) {}
  template <class All>
  requires std::is_constructible_v<T, All> &&(!std::is_same_v<All, Twice>)explicit(!std::is_convertible_v<All, T>)
      Twice(All all)
      : low(all), high(all) {}
};

template <class E>
struct FloatFormat;
template <>
struct FloatFormat<float> {
  using Bits = uint32_t;
  static constexpr Bits sign_bit = 0x80000000u;
  static constexpr Bits exponent_field = 0x7F800000u;
  static constexpr Bits min_normal = 0x00800000u;
  static constexpr int mantissa_bits = 23;
  static constexpr int bias = 127;
};
template <>
struct FloatFormat<double> {
  using Bits = uint64_t;
  static constexpr Bits sign_bit = 0x8000000000000000u;
  static constexpr Bits exponent_field = 0x7FF0000000000000u;
  static constexpr Bits min_normal = 0x0010000000000000u;
  static constexpr int mantissa_bits = 52;
  static constexpr int bias = 1023;
};

// What goes with a lane type.
template <class V>
struct LaneTraits;
template <>
struct LaneTraits<float> {
  using Element = float;
  using Integer = uint32_t;
  using Mask = bool;
  using Index = uint32_t;
  static constexpr int width = 1;
};
template <>
struct LaneTraits<double> {
  using Element = double;
  using Integer = uint64_t;
  using Mask = bool;
  using Index = uint32_t;
  static constexpr int width = 1;
};
template <>
struct LaneTraits<F32> {
  using Element = float;
  using Integer = I32;
  using Mask = M32;
  using Index = I32;
  static constexpr int width = sizeof(F32) / sizeof(float);
};
template <>
struct LaneTraits<F64> {
  using Element = double;
  using Integer = I64;
  using Mask = M64;
  using Index = I32Half;
  static constexpr int width = sizeof(F64) / sizeof(double);
};
template <class V>
struct LaneTraits<Twice<V>> {
  using Element = typename LaneTraits<V>::Element;
  using Integer = Twice<typename LaneTraits<V>::Integer>;
  using Mask = Twice<typename LaneTraits<V>::Mask>;
  using Index = Twice<typename LaneTraits<V>::Index>;
  static constexpr int width = 2 * LaneTraits<V>::width;
};

template <class V>
using Element = typename LaneTraits<V>::Element;
template <class V>
using Integer = typename LaneTraits<V>::Integer;  // of the lanes' width
template <class V>
using Mask = typename LaneTraits<V>::Mask;
template <class V>
using Index = typename LaneTraits<V>::Index;  // 32-bit integers, one a lane
template <class V>
using Format = FloatFormat<Element<V>>;
template <class V>
using Bits = typename Format<V>::Bits;
template <class V>
inline constexpr int kWidth = LaneTraits<V>::width;

template <class V>
concept Single = std::is_same_v < Element<V>,
float > ;
template <class V>
concept Double = std::is_same_v < Element<V>,
double > ;
// The 64-bit lanes that hold half of a vector V of floats: widen_low() and widen_high() give them.
template <Single V>
struct WideLanes;
template <>
struct WideLanes<F32> {
  using Type = F64;
};
template <>
struct WideLanes<Twice<F32>> {
  using Type = Twice<F64>;
};
template <class V>
using Wide = typename WideLanes<V>::Type;

// The vector of elements E.
template <class E>
using VectorOf = std::conditional_t<std::is_same_v<E, float>, F32, F64>;

// A pair of lanes: the results of a function of two, real and imaginary parts.
template <class V>
struct Pair {
  mutable V first, second;
};

// Four of them: the columns of a table of rows of four.
template <class V>
struct Quad {
  mutable V c[4];
};

// Parts as they lie in memory, of as many elements as a pair of lanes holds: real and imaginary ones alternate.
template <class V>
struct Stored {
  mutable V first, second;
};

}  // namespace orvik

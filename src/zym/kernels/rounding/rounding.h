// Rounding to integers and the parts that it leaves.
#pragma once

#include <limits>

#include "zym/lanes/lanes.h"
#include "zym/lanes/scalar.h"
#include "zym/skeleton/operands.h"

namespace orvik::zym {

// One round instruction; without _MM_FROUND_NO_EXC it raises inexact where the value changes.
template <class V, int Mode>
struct RoundInstruction {
  static constexpr bool streams = true;
  static constexpr int filler = 1;  // whole: inactive lanes must not raise inexact
  static V lanes(V x) { return round<Mode>(x); }
};

template <class V, Level>
struct Ceil : RoundInstruction<V, _MM_FROUND_TO_POS_INF> {};
template <class V, Level>
struct Floor : RoundInstruction<V, _MM_FROUND_TO_NEG_INF> {};
template <class V, Level>
struct Trunc : RoundInstruction<V, _MM_FROUND_TO_ZERO> {};
// The current direction is to nearest: the skeleton has set it.
template <class V, Level>
struct Rint : RoundInstruction<V, _MM_FROUND_CUR_DIRECTION> {};
template <class V, Level>
struct NearbyInt : RoundInstruction<V, _MM_FROUND_CUR_DIRECTION | _MM_FROUND_NO_EXC> {};

// Half away from zero. With h the number below a half, x + h reaches the next integer exactly where the fraction of x
// is a half or more: below a half it stays under it, at a half the sum is a tie or within half an ulp and rounds up,
// and from 2^mantissa_bits on, where x is whole, h is less than half an ulp of it.
template <class V, Level>
struct Round {
  using E = typename V::Element;
  static constexpr bool streams = true;
  static constexpr int filler = 1;
  static constexpr int vectors = 1;  // a little faster than four
  static V lanes(V x) {
    const V below_half = E(0.5) - std::numeric_limits<E>::epsilon() / 4;
    return round<_MM_FROUND_TO_ZERO>(x + (below_half | sign_of(x)));
  }
};

// x - trunc(x) with the sign of x, also where it is zero. Exact.
template <class V, Level>
struct Frac {
  using E = typename V::Element;
  static constexpr bool streams = true;
  static auto special(V x) { return not_finite(x); }
  static V lanes(V x) { return (x - round<_MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC>(x)) | sign_of(x); }
  static int32_t element(const E* x, E* r) {
    const double wide = static_cast<double>(*x);
    *r = is_nan(*x) ? static_cast<E>(wide + wide) : zero_like(*x);
    return 0;
  }
};

template <class V, Level>
struct Modf {
  using E = typename V::Element;
  static auto special(V x) { return not_finite(x); }
  static Pair<V> lanes(V x) {
    const V whole = round<_MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC>(x);
    return {whole, (x - whole) | sign_of(x)};
  }
  static int32_t element(const E* x, E* whole, E* rest) {
    const E value = *x;
    *whole = is_nan(value) ? value + value : value;
    *rest = is_nan(value) ? value + value : zero_like(value);
    return 0;
  }
};

}  // namespace orvik::zym

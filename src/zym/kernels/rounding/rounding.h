// Rounding to integers and the parts that it leaves.
#pragma once

#include <limits>

#include "lanes/scalar.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// One round instruction.
template <class V, Direction D, Inexact I>
struct RoundInstruction {
  static constexpr Knobs knobs = {.filler = 1, .streams = true};
  static V lanes(V x) { return round<D, I>(x); }
};

template <class V, Level>
struct Ceil : RoundInstruction<V, Direction::up, Inexact::raised> {};
template <class V, Level>
struct Floor : RoundInstruction<V, Direction::down, Inexact::raised> {};
template <class V, Level>
struct Trunc : RoundInstruction<V, Direction::zero, Inexact::raised> {};
// The current direction is to nearest: the skeleton has set it.
template <class V, Level>
struct Rint : RoundInstruction<V, Direction::current, Inexact::raised> {};
template <class V, Level>
struct NearbyInt : RoundInstruction<V, Direction::current, Inexact::hidden> {};

// Half away from zero. With h the number below a half, x + h reaches the next integer exactly where the fraction of x
// is a half or more: below a half it stays under it, at a half the sum is a tie or within half an ulp and rounds up,
// and from 2^mantissa_bits on, where x is whole, h is less than half an ulp of it.
template <class V, Level>
struct Round {
  using E = Element<V>;
  static constexpr Knobs knobs = {.filler = 1, .streams = true};
  static V lanes(V x) {
    const V below_half = V(E(0.5) - std::numeric_limits<E>::epsilon() / 4);
    return round<Direction::zero, Inexact::raised>(x + join_sign(below_half, x));
  }
};

// x - trunc(x) with the sign of x, also where it is zero. Exact.
template <class V, Level>
struct Frac {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true};
  static auto special(V x) { return not_finite(x); }
  static V lanes(V x) { return join_sign(x - round<Direction::zero>(x), x); }
  static int32_t element(const E* x, E* r) {
    const double wide = static_cast<double>(*x);
    *r = is_nan(*x) ? static_cast<E>(wide + wide) : zero_like(*x);
    return 0;
  }
};

// A whole number's rest is a zero, an infinity's too, of which it must not be subtracted.
template <class V, Level>
struct Modf {
  static Pair<V> lanes(V x) {
    const V whole = round<Direction::zero>(x);
    const Mask<V> is_whole = whole == x;
    return {whole, join_sign(drop(is_whole, x) - drop(is_whole, whole), x)};
  }
};

}  // namespace orvik::zym

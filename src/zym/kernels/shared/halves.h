// Floats computed in doubles.
#pragma once

#include "lanes/lanes.h"

namespace orvik::zym {

// A function of doubles over the halves of floats.
template <class F, Single V, class... More>
[[gnu::always_inline]] inline V by_halves(F function, V x, More... more) {
  return narrow(function(widen_low(x), widen_low(more)...), function(widen_high(x), widen_high(more)...));
}

// The same over both halves of a register side by side, so that one takes the divider beside the steps of the other.
template <class F, class T>
[[gnu::always_inline]] inline Twice<T> by_both_halves(F function, Twice<T> x) {
  return {by_both_halves(function, x.low), by_both_halves(function, x.high)};
}
template <class F>
[[gnu::always_inline]] inline F32 by_both_halves(F function, F32 x) {
  const Twice<F64> r = function(Twice<F64>{widen_low(x), widen_high(x)});
  return narrow(r.low, r.high);
}

}  // namespace orvik::zym

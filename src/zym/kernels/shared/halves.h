// Floats computed in doubles.
#pragma once

#include "lanes/lanes.h"

namespace orvik::zym {

// A function of doubles over the halves of floats.
template <class F, Single V, class... More>
[[gnu::always_inline]] inline V by_halves(F function, V x, More... more) {
  return narrow(function(widen_low(x), widen_low(more)...), function(widen_high(x), widen_high(more)...));
}

}  // namespace orvik::zym

// One step of sums of powers.
#pragma once

#include "lanes/lanes.h"

namespace orvik::ss {

// s[k] += w d^(k + 1) for K powers.
template <int K, bool Weighted, class V>
inline __attribute__((always_inline)) void add_powers(V d, V w, V (&s)[K]) {
  if constexpr (Weighted) d = drop(w == V(0), d);
  const V wd = Weighted ? w * d : d;
  s[0] = s[0] + wd;
  if constexpr (K >= 2) s[1] = fma(wd, d, s[1]);
  if constexpr (K >= 3) {
    const V d2 = d * d;
    s[2] = fma(wd, d2, s[2]);
    if constexpr (K >= 4) s[3] = fma(Weighted ? wd * d : d2, d2, s[3]);
  }
}

}  // namespace orvik::ss

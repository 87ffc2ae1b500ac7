// One of two inputs, or their positive difference. A single NaN loses, in the manner of the C functions of these names;
// infinities and NaNs take the element routine: the instructions for the larger and the smaller raise invalid for quiet
// NaNs too.
#pragma once

#include "lanes/scalar.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level>
struct CopySign {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V a, V b) { return copy_sign(a, b); }
};

template <template <class, Level> class Fn, class V>
struct Selection {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true};
  static auto special(V a, V b) { return not_finite(a) | not_finite(b); }
  // Either times one, so that a signalling NaN raises invalid also where it loses.
  static int32_t element(const E* pa, const E* pb, E* r) {
    const E a = quiet(*pa), b = quiet(*pb);
    if (is_nan(b)) {
      *r = is_nan(a) ? b : a;
    } else if (is_nan(a)) {
      *r = b;
    } else {
      *r = Fn<E, Level::HA>::lanes(a, b);
    }
    return 0;
  }
};

template <class V, Level>
struct Fmax : Selection<Fmax, V> {
  static V lanes(V a, V b) { return max(a, b); }
};

template <class V, Level>
struct Fmin : Selection<Fmin, V> {
  static V lanes(V a, V b) { return min(a, b); }
};

template <class V, Level>
struct MaxMag : Selection<MaxMag, V> {
  static V lanes(V a, V b) {
    const Mask<V> larger = magnitude(a) > magnitude(b);
    const Mask<V> smaller = magnitude(a) < magnitude(b);
    return select(larger, a, select(smaller, b, max(a, b)));
  }
};

template <class V, Level>
struct MinMag : Selection<MinMag, V> {
  static V lanes(V a, V b) {
    const Mask<V> larger = magnitude(a) > magnitude(b);
    const Mask<V> smaller = magnitude(a) < magnitude(b);
    return select(smaller, a, select(larger, b, min(a, b)));
  }
};

// A NaN gives a NaN here; where both are, the second one's.
template <class V, Level>
struct Fdim {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true, .lanes_stand = true};
  static auto special(V a, V b) { return not_finite(a) | not_finite(b); }
  static V lanes(V a, V b) {
    const Mask<V> positive = a > b;
    return keep(positive, a) - keep(positive, b);  // masked first: equal infinities must not raise invalid
  }
  static int32_t element(const E* a, const E* b, E* r) {
    if (is_nan(*a)) *r = quiet(*a);
    if (is_nan(*b)) *r = quiet(*b);
    return 0;
  }
};

}  // namespace orvik::zym

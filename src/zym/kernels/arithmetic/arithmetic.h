// Exact machine operations without special elements: Abs, Sqr, Add, Sub, Mul, and the linear fraction.
#pragma once

#include "lanes/ordered.h"
#include "lanes/quotients.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level>
struct Abs {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V x) { return magnitude(x); }
};

template <class V, Level>
struct Sqr {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V x) { return x * x; }
};

template <class V, Level>
struct Add {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V a, V b) { return ordered_sum(a, b); }
};

template <class V, Level>
struct Sub {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V a, V b) { return a - b; }
};

template <class V, Level>
struct Mul {
  static constexpr Knobs knobs = {.streams = true};
  static V lanes(V a, V b) { return ordered_product(a, b); }
};

template <class V, Level>
struct LinearFrac {
  // The scalars may give the denominator of any filler a zero.
  static constexpr Knobs knobs = {.own_filler = true, .streams = true, .together = true};
  static V lanes(V a, V b, const Fraction<Element<V>>& f) {
    return divided_exactly(fma(a, V(f.scaleA), V(f.shiftA)), fma(b, V(f.scaleB), V(f.shiftB)));
  }
};

}  // namespace orvik::zym

// Exact machine operations without special elements: Abs, Sqr, Add, Sub, Mul, and the linear fraction.
#pragma once

#include "zym/lanes/lanes.h"

namespace orvik::zym {

template <class V, Level>
struct Abs {
  static constexpr bool streams = true;
  static V lanes(V x) { return magnitude(x); }
};

template <class V, Level>
struct Sqr {
  static constexpr bool streams = true;
  static V lanes(V x) { return x * x; }
};

// Three arrays keep all address units busy: one vector in flight ran faster than four.
template <class V, Level>
struct Add {
  static constexpr bool streams = true;
  static constexpr int vectors = 1;
  static V lanes(V a, V b) { return a + b; }
};

template <class V, Level>
struct Sub {
  static constexpr bool streams = true;
  static constexpr int vectors = 1;
  static V lanes(V a, V b) { return a - b; }
};

template <class V, Level>
struct Mul {
  static constexpr bool streams = true;
  static constexpr int vectors = 1;
  static V lanes(V a, V b) { return a * b; }
};

// The scalars of (a scaleA + shiftA) / (b scaleB + shiftB).
template <class V>
struct Fraction {
  typename V::Element scaleA, shiftA, scaleB, shiftB;
};

template <class V, Level>
struct LinearFrac {
  static constexpr bool streams = true;
  static V lanes(V a, V b, const Fraction<V>& f) {
    return fma(a, V(f.scaleA), V(f.shiftA)) / fma(b, V(f.scaleB), V(f.shiftB));
  }
};

}  // namespace orvik::zym

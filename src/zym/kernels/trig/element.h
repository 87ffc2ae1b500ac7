// Infinities and NaNs, which are all that the element routines of the vector reductions see.
#pragma once

#include "orvik/zym_types.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::trig {

// Squares of tiny arguments underflow on the way, results that do are denormal arguments' own.
constexpr Knobs knobs_of(int vectors) { return {.vectors = vectors, .stray = kUnderflowFlag}; }

template <class E>
int32_t not_finite_element(const E* x, E* r) {
  if (is_nan(*x)) {
    *r = *x * *x;
    return 0;
  }
  *r = opaque(*x) * E(0);
  return zymErrorDomain;
}

template <class V>
struct NotFiniteElement {
  static int32_t element(const Element<V>* x, Element<V>* r) { return not_finite_element(x, r); }
};

}  // namespace orvik::zym::trig

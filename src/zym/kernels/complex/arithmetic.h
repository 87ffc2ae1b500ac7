// Sums, differences and conjugates of complex numbers: plain operations on the parts, as they lie in memory.
#pragma once

#include "lanes/ordered.h"
#include "orvik/zym_types.h"
#include "zym/kernels/complex/parts.h"
#include "zym/skeleton/family.h"

namespace orvik::zym::complex {

// Parts that overflow are reported, and special for nothing else: the lanes' result stands.
template <class V, template <class> class Parts>
auto checked(Parts<V> r) {
  return Masked{r, not_finite(r.first) | not_finite(r.second)};
}

template <class V, Level>
struct Add {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true, .lanes_stand = true};
  template <template <class> class Parts>
  static auto lanes(Parts<V> a, Parts<V> b) {
    return checked(Parts<V>{ordered_sum(a.first, b.first), ordered_sum(a.second, b.second)});
  }
  static int32_t element(const Complex<E>* a, const Complex<E>* b, Complex<E>* r) { return overflow_code(*a, *b, *r); }
};

template <class V, Level>
struct Sub {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true, .lanes_stand = true};
  template <template <class> class Parts>
  static auto lanes(Parts<V> a, Parts<V> b) {
    return checked(Parts<V>{a.first - b.first, a.second - b.second});
  }
  static int32_t element(const Complex<E>* a, const Complex<E>* b, Complex<E>* r) { return overflow_code(*a, *b, *r); }
};

// No arithmetic: a NaN keeps its payload and raises no flag.
template <class V, Level>
struct Conj {
  using E = Element<V>;
  static constexpr Knobs knobs = {.streams = true};
  static Pair<V> lanes(Pair<V> z) { return {z.first, z.second ^ sign_mask<V>()}; }
  static Stored<V> lanes(Stored<V> z) {
    const V sign = by_part(V(E(0)), sign_mask<V>());
    return {z.first ^ sign, z.second ^ sign};
  }
};

}  // namespace orvik::zym::complex

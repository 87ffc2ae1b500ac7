// Loads and stores of lanes: whole vectors, the first k lanes, complex elements as pairs.
#pragma once

#include <cstdint>
#include <type_traits>

#include "lanes/twice.h"
#include "lanes/vectors.h"
#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/memory.h"
#else
#include "lanes/narrow/memory.h"
#endif

namespace orvik {

template <class V>
inline V load(const Element<V>* p) {
  if constexpr (std::is_same_v<V, F32> || std::is_same_v<V, F64>) {
    return load_register(p);
  } else if constexpr (kWidth<V> == 1) {
    return *p;
  } else {
    using Half = decltype(V::low);
    return {load<Half>(p), load<Half>(p + kWidth<Half>)};
  }
}
inline void store(float* p, float a) { *p = a; }
inline void store(double* p, double a) { *p = a; }
template <class V>
inline void store(Element<V>* p, Twice<V> a) {
  store(p, a.low);
  store(p + kWidth<V>, a.high);
}
inline void finish_past_cache() { _mm_sfence(); }

template <class V>
inline Stored<V> load_stored(const Element<V>* p) {
  return {load<V>(p), load<V>(p + kWidth<V>)};
}
template <class V>
inline void store(Element<V>* p, Stored<V> a) {
  store(p, a.first);
  store(p + kWidth<V>, a.second);
}
template <class V>
inline void store_past_cache(Element<V>* p, Stored<V> a) {
  store_past_cache(p, a.first);
  store_past_cache(p + kWidth<V>, a.second);
}

// Complex elements in pairs of lanes; the first k of them, k below the width, with the filler in both parts of the
// others.
template <class V>
inline Pair<V> load_pairs(const Element<V>* p) {
  return in_pairs(load_stored<V>(p));
}
template <class V>
inline void store_pairs(Element<V>* p, Pair<V> a) {
  store(p, as_stored(a));
}
template <class V>
inline Pair<V> load_first_pairs(const Element<V>* p, int k, V others) {
  const int first = 2 * k, second = first - kWidth<V>;
  Stored<V> x = {others, others};
  if (second < 0) {
    x.first = load_first(p, first, others);
  } else {
    x.first = load<V>(p);
    x.second = load_first(p + kWidth<V>, second, others);
  }
  return in_pairs(x);
}
template <class V>
inline void store_first_pairs(Element<V>* p, int k, Pair<V> a) {
  const Stored<V> x = as_stored(a);
  const int first = 2 * k, second = first - kWidth<V>;
  if (second < 0) {
    store_first(p, first, x.first);
  } else {
    store(p, x.first);
    store_first(p + kWidth<V>, second, x.second);
  }
}

}  // namespace orvik

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

// The sum of all lanes, pairwise.
template <class V>
inline Element<V> horizontal_sum(V a) {
  Element<V> lane[kWidth<V>];
  store(lane, a);
  for (int half = kWidth<V> / 2; half > 0; half /= 2) {
    for (int i = 0; i < half; ++i) lane[i] += lane[i + half];
  }
  return lane[0];
}

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

}  // namespace orvik

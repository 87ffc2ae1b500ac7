// Loops over values in vectors: one row with its tail, rows of contiguous observations in several streams.
#pragma once

#include <type_traits>

#include "lanes/first_lanes.h"
#include "lanes/lanes.h"
#include "qor/ss/fold.h"
#include "qor/ss/task.h"

namespace orvik::ss {

template <class V>
struct WholeVector {
  V load(const Element<V>* p) const { return orvik::load<V>(p); }
  void store(Element<V>* p, V v) const { orvik::store(p, v); }
};
// The first lanes only: zeros behind them, and nothing is stored there.
template <class V>
struct PartVector {
  FirstLanes<V> first;
  V load(const Element<V>* p) const { return orvik::load(p, first); }
  void store(Element<V>* p, V v) const { orvik::store(p, first, v); }
};

// body(j, vector) for the vectors of n values.
template <class V, class Body>
inline __attribute__((always_inline)) void for_vectors(int64_t n, Body&& body) {
  int64_t j = 0;
  for (; j + kWidth<V> <= n; j += kWidth<V>) body(j, WholeVector<V>{});
  if (j < n) body(j, PartVector<V>{first_lanes<V>(n - j)});
}

// Streams of rows that are read together: what is kept by place is loaded and stored once for a row of each. Every one
// of them goes strictly through memory, which the hardware foresees; rows next to each other would not do.
inline constexpr int kStreams = 4;

// rows(streams, length, x, apart, i, observations) for the observations [i0, i1) of contiguous observations: rows of
// `length` values at x, one for each of `streams` streams, that begin at observation i, the next stream `apart`
// observations further, and hold `observations` each (then their length is a multiple of p). A row that is shorter than
// the others comes last.
template <class T, class Rows>
inline __attribute__((always_inline)) void for_rows(const Data<T>& d, int64_t i0, int64_t i1, int64_t first,
                                                    int64_t width, const Fold& fold, Rows&& rows) {
  const int64_t length = fold.observations > 1 ? fold.length : width;
  const int64_t apart = (i1 - i0) / fold.observations / kStreams * fold.observations;
  const T* x = d.x + first;
  int64_t i = i0;
  for (; i < i0 + apart; i += fold.observations) {
    rows(std::integral_constant<int, kStreams>{}, length, x + i * d.p, apart, i, fold.observations);
  }
  const std::integral_constant<int, 1> one;
  for (i = i0 + kStreams * apart; i + fold.observations <= i1; i += fold.observations) {
    rows(one, length, x + i * d.p, int64_t{0}, i, fold.observations);
  }
  if (i < i1) rows(one, (i1 - i) * width, x + i * d.p, int64_t{0}, i, i1 - i);  // the rest, a shorter row
}

}  // namespace orvik::ss

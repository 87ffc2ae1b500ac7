// Sums of powers over rows of contiguous observations, a place of the row for each variable. What stands at a place is
// added up in one order whatever the registers hold, so that both widths make the same sums.
#pragma once

#include <algorithm>
#include <type_traits>

#include "qor/ss/powers.h"
#include "qor/ss/rows.h"
#include "qor/unroll.h"

namespace orvik::ss {

// Rows of contiguous observations into accumulators by place and order.
template <class T, int K, bool Weighted, bool Shifted>
class RowSums {
 public:
  using V = VectorOf<T>;
  static constexpr int64_t kPlaces = 512;  // accumulators of an order, which fit the first cache
  // From one order's accumulators to the next: no multiple of 4 KiB, at which loads would wait for unrelated stores.
  static constexpr int64_t kStep = kPlaces + 1024 / static_cast<int64_t>(sizeof(T));

  // `length` places for variables of a row of `width`.
  RowSums(const T* weights, const T* shift, int64_t width, int64_t length) : weights_(weights) {
    const int64_t padded = (length + kWidth<V> - 1) / kWidth<V> * kWidth<V>;
    for (int k = 0; k < K; ++k) std::fill(sums_ + k * kStep, sums_ + k * kStep + padded, T{0});
    if constexpr (Shifted) {
      std::copy(shift, shift + width, shift_);
      for (int64_t have = width; have < length; have *= 2) {
        std::copy(shift_, shift_ + std::min(have, length - have), shift_ + have);
      }
      std::fill(shift_ + length, shift_ + padded, T{0});
    }
  }

  template <int N>
  void add(std::integral_constant<int, N>, int64_t length, const T* x, int64_t p, int64_t apart, int64_t i,
           int64_t observations) {
    const bool spread = Weighted && observations > 1;
    if (spread) {
      for (int s = 0; s < N; ++s) spread_weights(weights_ + i + s * apart, observations, p, spread_[s]);
    }
    V one[N];  // the weight of each row, where it is one observation
    if constexpr (Weighted) {
      for (int s = 0; s < N; ++s) one[s] = V(weights_[i + s * apart]);
    }
    for_vectors<V>(
        length, [&](int64_t j, auto vector) __attribute__((always_inline)) {
          V s[K];
          unroll<K>([&](auto k) __attribute__((always_inline)) { s[k] = load<V>(sums_ + k * kStep + j); });
          V u = V(T(0));
          if constexpr (Shifted) u = load<V>(shift_ + j);
          unroll<N>([&](auto stream) __attribute__((always_inline)) {
            V d = vector.load(x + stream * apart * p + j);
            if constexpr (Shifted) d = drop_behind(vector, d - u);
            V w = u;
            // Behind a row's end the places are those of a longer one: whatever the weight is, they get nothing.
            if constexpr (Weighted) w = drop_behind(vector, spread ? load<V>(spread_[stream] + j) : one[stream]);
            add_powers<K, Weighted>(d, w, s);
          });
          unroll<K>([&](auto k) __attribute__((always_inline)) { store(sums_ + k * kStep + j, s[k]); });
        });
  }

  void put(int64_t length, int64_t width, int64_t first, double* const sums[4]) const {
    for (int k = 0; k < K; ++k) {
      for (int64_t j = 0; j < length; j += width) {
        for (int64_t v = 0; v < width; ++v) sums[k][first + v] += static_cast<double>(sums_[k * kStep + j + v]);
      }
    }
  }

 private:
  static V drop_behind(WholeVector<V>, V d) { return d; }
  static V drop_behind(PartVector<V> vector, V d) { return keep(vector.first, d); }

  // Each weight p times: whole vectors, of which the next ones overwrite what is too much.
  static void spread_weights(const T* w, int64_t observations, int64_t p, T* out) {
    for (int64_t r = 0; r < observations; ++r, out += p) {
      const V v = V(w[r]);
      for (int64_t j = 0; j < p; j += kWidth<V>) store(out + j, v);
    }
  }

  const T* weights_;
  alignas(64) T sums_[K * kStep];
  alignas(64) T shift_[Shifted ? kPlaces : 1];
  alignas(64) T spread_[Weighted ? kStreams : 1][Weighted ? kPlaces + kWidth<V> : 1];
};

// Apart from the loop over segments, which the frame of these places would slow down.
template <class T, int K, bool Weighted, bool Shifted>
[[gnu::noinline]] void add_rows(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift,
                                double* const sums[4]) {
  // A range of the variables is not one contiguous piece of memory: only whole observations can be folded.
  const Fold fold(j0 == 0 && j1 == d.p ? d.p : Fold::kRow, i1 - i0, Weighted);
  using Rows = RowSums<T, K, Weighted, Shifted>;
  for (int64_t first = j0; first < j1; first += Rows::kPlaces) {
    const int64_t width = std::min(Rows::kPlaces, j1 - first);
    const int64_t length = fold.observations > 1 ? fold.length : width;
    Rows rows(d.weights, Shifted ? shift + first : nullptr, width, length);
    for_rows(
        d, i0, i1, first, width, fold,
        [&](auto streams, int64_t size, const T* x, int64_t apart, int64_t i, int64_t observations)
            __attribute__((always_inline)) { rows.add(streams, size, x, d.p, apart, i, observations); });
    rows.put(length, width, first, sums);
  }
}

// The same by the order and by what there is.
template <class T>
void add_row_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                  double* const sums[4]) {
  const auto add = [&]<int K>() {
    if (d.weights != nullptr) {
      shift != nullptr ? add_rows<T, K, true, true>(d, i0, i1, j0, j1, shift, sums)
                       : add_rows<T, K, true, false>(d, i0, i1, j0, j1, shift, sums);
    } else {
      shift != nullptr ? add_rows<T, K, false, true>(d, i0, i1, j0, j1, shift, sums)
                       : add_rows<T, K, false, false>(d, i0, i1, j0, j1, shift, sums);
    }
  };
  switch (order) {
    case 1:
      return add.template operator()<1>();
    case 2:
      return add.template operator()<2>();
    case 3:
      return add.template operator()<3>();
    case 4:
      return add.template operator()<4>();
    default:
      return;
  }
}

}  // namespace orvik::ss

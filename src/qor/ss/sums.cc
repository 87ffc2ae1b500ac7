#include "qor/ss/sums.h"

#include <algorithm>
#include <type_traits>

#include "qor/ss/segment.h"

namespace orvik::ss {
namespace {

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
      for (int64_t j = 0; j < length; j += width) std::copy(shift, shift + width, shift_ + j);
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
            if constexpr (Weighted) w = spread ? load<V>(spread_[stream] + j) : one[stream];
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
  const Fold fold(j0 == 0 && j1 == d.p ? d.p : Fold::kRow, i1 - i0);
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

template <class T, int K>
void add(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift, double* const sums[4]) {
  if (d.contiguous_variables) {
    for (int64_t j = j0; j < j1; ++j) {
      double segment[K];
      add_segment(i1 - i0, d.x + j * d.n + i0, d.weights != nullptr ? d.weights + i0 : nullptr,
                  shift != nullptr ? shift + j : nullptr, segment);
      for (int k = 0; k < K; ++k) sums[k][j] += segment[k];
    }
  } else if (d.weights != nullptr) {
    shift != nullptr ? add_rows<T, K, true, true>(d, i0, i1, j0, j1, shift, sums)
                     : add_rows<T, K, true, false>(d, i0, i1, j0, j1, shift, sums);
  } else {
    shift != nullptr ? add_rows<T, K, false, true>(d, i0, i1, j0, j1, shift, sums)
                     : add_rows<T, K, false, false>(d, i0, i1, j0, j1, shift, sums);
  }
}

// Sums of m weights and of their squares, in lanes of the weights' precision.
template <class T>
void add_weights(const T* w, int64_t m, double* sum, double* squares) {
  using V = VectorOf<T>;
  constexpr int kCount = 4;
  V s[kCount], q[kCount];
  for (int k = 0; k < kCount; ++k) s[k] = q[k] = V(T(0));
  const auto take = [&](V v, int k) __attribute__((always_inline)) {
    s[k] = s[k] + v;
    q[k] = fma(v, v, q[k]);
  };
  const auto vector = [&](int64_t i, auto r) __attribute__((always_inline)) { take(load<V>(w + i), r); };
  for_streams<V, kCount, 1>(
      m, vector, vector, [&](int64_t i, int64_t lanes) __attribute__((always_inline)) {
        take(load(w + i, first_lanes<V>(lanes)), kCount - 1);
      });
  *sum += static_cast<double>(horizontal_sum((s[0] + s[1]) + (s[2] + s[3])));
  *squares += static_cast<double>(horizontal_sum((q[0] + q[1]) + (q[2] + q[3])));
}

}  // namespace

template <class T>
Weights weigh(const T* w, int64_t m) {
  // In single precision few enough at once that rounding stays below that of a result.
  constexpr int64_t kRun = sizeof(T) == 4 ? 2048 : INT64_MAX;
  Weights total{0, 0, m};
  for (int64_t i = 0; i < m; i += std::min(kRun, m - i)) {
    add_weights(w + i, std::min(kRun, m - i), &total.sum, &total.squares);
  }
  // Squares that single precision does not hold.
  if (sizeof(T) == 4 && !(total.squares >= static_cast<double>(m) * 0x1p-100 && total.squares <= 0x1p127)) {
    total = {0, 0, m};
    for (int64_t i = 0; i < m; ++i) {
      const auto x = static_cast<double>(w[i]);
      total.sum += x;
      total.squares += x * x;
    }
  }
  // The square of the sum says that there are several, beyond what rounding may; otherwise they are counted.
  if (!(total.sum * total.sum > total.squares * (1 + 0x1p-10) && total.squares > 0)) {
    total.observations = std::count_if(w, w + m, [](T x) { return !(x == 0); });
  }
  return total;
}

template <class T>
void add_power_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                    double* const sums[4]) {
  switch (order) {
    case 1:
      return add<T, 1>(d, i0, i1, j0, j1, shift, sums);
    case 2:
      return add<T, 2>(d, i0, i1, j0, j1, shift, sums);
    case 3:
      return add<T, 3>(d, i0, i1, j0, j1, shift, sums);
    case 4:
      return add<T, 4>(d, i0, i1, j0, j1, shift, sums);
    default:
      return;
  }
}

#define ORVIK_INSTANTIATE(T)                 \
  template Weights weigh(const T*, int64_t); \
  template void add_power_sums(const Data<T>&, int64_t, int64_t, int64_t, int64_t, int, const T*, double* const[4]);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

#include "qor/ss/sums.h"

#include <algorithm>
#include <type_traits>

#include "qor/ss/rows.h"
#include "qor/unroll.h"

namespace orvik::ss {
namespace {

// s[k] += w d^(k + 1) for K powers.
template <int K, bool Weighted, class V>
inline __attribute__((always_inline)) void add_powers(V d, V w, V (&s)[K]) {
  if constexpr (Weighted) d = drop(w == V(0), d);
  const V wd = Weighted ? w * d : d;
  s[0] = s[0] + wd;
  if constexpr (K >= 2) s[1] = fma(wd, d, s[1]);
  if constexpr (K >= 3) {
    const V d2 = d * d;
    s[2] = fma(wd, d2, s[2]);
    if constexpr (K >= 4) s[3] = fma(Weighted ? wd * d : d2, d2, s[3]);
  }
}

// One variable, its observations contiguous.
template <class T, int K, bool Weighted, bool Shifted>
void add_segment(int64_t n, const T* x, const T* w, T shift, double* const sums[4], int64_t j) {
  using V = VectorOf<T>;
  constexpr int kUnroll = K == 1 ? 8 : K == 2 ? 4 : 3;
  constexpr int64_t kStep = kUnroll * kWidth<V>;
  const V u = V(shift);
  V s[kUnroll][K];
  for (auto& row : s) {
    for (auto& v : row) v = V(T(0));
  }
  int64_t i = 0;
  for (; i + kStep <= n; i += kStep) {
    unroll<kUnroll>([&](auto r) __attribute__((always_inline)) {
      V d = load<V>(x + i + r * kWidth<V>);
      if constexpr (Shifted) d = d - u;
      add_powers<K, Weighted>(d, Weighted ? load<V>(w + i + r * kWidth<V>) : u, s[r]);
    });
  }
  for (; i + kWidth<V> <= n; i += kWidth<V>) {
    V d = load<V>(x + i);
    if constexpr (Shifted) d = d - u;
    add_powers<K, Weighted>(d, Weighted ? load<V>(w + i) : u, s[0]);
  }
  if (i < n) {
    const auto mask = first_lanes<V>(n - i);
    V d = load(x + i, mask);
    if constexpr (Shifted) d = keep(mask, d - u);
    add_powers<K, Weighted>(d, Weighted ? load(w + i, mask) : u, s[kUnroll - 1]);
  }
  unroll<K>([&](auto k) __attribute__((always_inline)) {
    V total = s[0][k];
    unroll<kUnroll - 1>([&](auto r) __attribute__((always_inline)) { total = total + s[r + 1][k]; });
    sums[k][j] += static_cast<double>(horizontal_sum(total));
  });
}

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
    for_vectors<V>(length, [&](int64_t j, auto vector) __attribute__((always_inline)) {
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
    for_rows(d, i0, i1, first, width, fold,
             [&](auto streams, int64_t size, const T* x, int64_t apart, int64_t i, int64_t observations)
                 __attribute__((always_inline)) { rows.add(streams, size, x, d.p, apart, i, observations); });
    rows.put(length, width, first, sums);
  }
}

template <class T, int K, bool Weighted, bool Shifted>
void add(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift, double* const sums[4]) {
  if (!d.contiguous_variables) return add_rows<T, K, Weighted, Shifted>(d, i0, i1, j0, j1, shift, sums);
  for (int64_t j = j0; j < j1; ++j) {
    add_segment<T, K, Weighted, Shifted>(i1 - i0, d.x + j * d.n + i0, Weighted ? d.weights + i0 : nullptr,
                                         Shifted ? shift[j] : T{0}, sums, j);
  }
}

template <class T, int K>
void add(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift, double* const sums[4]) {
  if (d.weights != nullptr) {
    shift != nullptr ? add<T, K, true, true>(d, i0, i1, j0, j1, shift, sums)
                     : add<T, K, true, false>(d, i0, i1, j0, j1, shift, sums);
  } else {
    shift != nullptr ? add<T, K, false, true>(d, i0, i1, j0, j1, shift, sums)
                     : add<T, K, false, false>(d, i0, i1, j0, j1, shift, sums);
  }
}

// Sums in double of weights and of their squares.
inline void add_weights(F64 w, F64* sum, F64* squares) {
  *sum = *sum + w;
  *squares = fma(w, w, *squares);
}
inline void add_weights(F32 w, F64* sum, F64* squares) {
  add_weights(widen_low(w), sum, squares);
  add_weights(widen_high(w), sum + 1, squares + 1);
}

}  // namespace

template <class T>
Weights weigh(const T* w, int64_t m) {
  using V = VectorOf<T>;
  constexpr int kUnroll = 4;
  F64 sum[2 * kUnroll], squares[2 * kUnroll];
  for (int k = 0; k < 2 * kUnroll; ++k) sum[k] = squares[k] = F64(0.0);
  int64_t r = 0;
  auto take = [&](V v, int k) __attribute__((always_inline)) { add_weights(v, sum + 2 * k, squares + 2 * k); };
  for (; r + kUnroll * kWidth<V> <= m; r += kUnroll * kWidth<V>) {
    unroll<kUnroll>([&](auto k) __attribute__((always_inline)) { take(load<V>(w + r + k * kWidth<V>), k); });
  }
  for (; r + kWidth<V> <= m; r += kWidth<V>) take(load<V>(w + r), 0);
  if (r < m) take(load(w + r, first_lanes<V>(m - r)), 0);
  for (int k = 1; k < 2 * kUnroll; ++k) {
    sum[0] = sum[0] + sum[k];
    squares[0] = squares[0] + squares[k];
  }
  Weights total{horizontal_sum(sum[0]), horizontal_sum(squares[0]), m};
  // The square of the sum says that there are several, beyond what rounding may; otherwise they are counted.
  if (!(total.sum * total.sum > total.squares * (1 + 0x1p-30) && total.squares > 0)) {
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

#define ORVIK_INSTANTIATE(T)                                                                                 \
  template Weights weigh(const T*, int64_t);                                                                 \
  template void add_power_sums(const Data<T>&, int64_t, int64_t, int64_t, int64_t, int, const T*, double* const[4]);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

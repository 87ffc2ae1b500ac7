#include "qor/ss/power_sums.h"

#include <algorithm>

#include "qor/ss/fold.h"
#include "lanes/lanes.h"
#include "qor/unroll.h"

namespace orvik::ss {
namespace {

// s[k] += w d^(k + 1) for K powers.
template <class T, int K, bool Weighted>
inline __attribute__((always_inline)) void add_powers(VectorOf<T> d, VectorOf<T> w,
                                                      VectorOf<T> (&s)[K]) {
  const auto wd = Weighted ? w * d : d;
  s[0] = s[0] + wd;
  if constexpr (K >= 2) s[1] = fma(wd, d, s[1]);
  if constexpr (K >= 3) {
    const auto d2 = d * d;
    s[2] = fma(wd, d2, s[2]);
    if constexpr (K >= 4) {
      const auto wd2 = Weighted ? wd * d : d2;
      s[3] = fma(wd2, d2, s[3]);
    }
  }
}

// One variable, its observations contiguous.
template <class T, int K, bool Weighted, bool Shifted>
void add_segment(int64_t n, const T* x, const T* w, T shift, T* const sums[4], int64_t j) {
  using V = VectorOf<T>;
  constexpr int kUnroll = K <= 2 ? 4 : 2;
  constexpr int64_t kStep = kUnroll * kWidth<VectorOf<T>>;
  const V u = VectorOf<T>(shift);
  V s[kUnroll][K];
  for (auto& row : s) {
    for (auto& v : row) v = VectorOf<T>(0);
  }
  int64_t i = 0;
  for (; i + kStep <= n; i += kStep) {
#pragma GCC unroll 4
    for (int r = 0; r < kUnroll; ++r) {
      V d = load<VectorOf<T>>(x + i + r * kWidth<VectorOf<T>>);
      if constexpr (Shifted) d = d - u;
      add_powers<T, K, Weighted>(d, Weighted ? load<VectorOf<T>>(w + i + r * kWidth<VectorOf<T>>) : u, s[r]);
    }
  }
  for (; i < n; i += kWidth<VectorOf<T>>) {
    const auto mask = first_lanes<VectorOf<T>>(n - i);
    V d = load(x + i, mask);
    if constexpr (Shifted) d = keep(mask, d - u);
    add_powers<T, K, Weighted>(d, Weighted ? load(w + i, mask) : u, s[0]);
  }
  for (int k = 0; k < K; ++k) {
    V total = s[0][k];
    for (int r = 1; r < kUnroll; ++r) total = total + s[r][k];
    sums[k][j] += horizontal_sum(total);
  }
}

template <class T, int K, bool Weighted, bool Shifted>
void add_contiguous_variables(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift,
                              T* const sums[4]) {
  const int64_t segment = Weighted ? 1024 : i1 - i0;  // weights stay in the first cache while the variables go by
  for (int64_t i = i0; i < i1; i += segment) {
    const int64_t m = std::min(segment, i1 - i);
    for (int64_t j = j0; j < j1; ++j) {
      add_segment<T, K, Weighted, Shifted>(m, d.x + j * d.n + i, Weighted ? d.weights + i : nullptr,
                                           Shifted ? shift[j] : T{0}, sums, j);
    }
  }
}

// One row of `length` values from each of N streams into accumulators by order. `w` has one weight for a row or, where
// rows are folded observations (`spread`), one for each value.
template <class T, int K, bool Weighted, bool Shifted, int N>
inline __attribute__((always_inline)) void add_rows(int64_t length, const T* x, int64_t apart, const T* const (&w)[N],
                                                    bool spread, const T* shift, T* acc, int64_t acc_step) {
  using V = VectorOf<T>;
  auto body = [&](int64_t j, auto load_at, auto store_at, auto keep_lanes) __attribute__((always_inline)) {
    V s[K];
    unroll<K>([&](auto k) __attribute__((always_inline)) { s[k] = load_at(acc + k * acc_step + j); });
    unroll<N>([&](auto stream) __attribute__((always_inline)) {
      V d = load_at(x + stream * apart + j);
      if constexpr (Shifted) d = keep_lanes(d - load_at(shift + j));
      V weight = d;
      if constexpr (Weighted) weight = spread ? load_at(w[stream] + j) : VectorOf<T>(*w[stream]);
      add_powers<T, K, Weighted>(d, weight, s);
    });
    unroll<K>([&](auto k) __attribute__((always_inline)) { store_at(acc + k * acc_step + j, s[k]); });
  };
  int64_t j = 0;
  for (; j + kWidth<VectorOf<T>> <= length; j += kWidth<VectorOf<T>>) {
    body(
        j, [](const T* p) { return load<VectorOf<T>>(p); }, [](T* p, V v) { store(p, v); }, [](V v) { return v; });
  }
  if (j < length) {
    const auto mask = first_lanes<VectorOf<T>>(length - j);
    body(
        j, [mask](const T* p) { return load(p, mask); }, [mask](T* p, V v) { store(p, mask, v); },
        [mask](V v) { return keep(mask, v); });
  }
}

// Streams of rows that are read together: the accumulators are loaded and stored once for a row of each. Every one of
// them goes strictly through memory, which the hardware foresees; rows next to each other would not do.
constexpr int kStreams = 4;

constexpr int64_t kChunk = 512;  // variables whose accumulators fit the first cache
// From one order's accumulators to the next: no multiple of 4 KiB, at which loads would wait for unrelated stores.
template <class T>
constexpr int64_t kAccStep = kChunk + 1024 / static_cast<int64_t>(sizeof(T));

template <class T, int K, bool Weighted, bool Shifted>
void add_contiguous_observations(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift,
                                 T* const sums[4]) {
  // A selection of neighbours is not one contiguous range of memory: only whole observations can be folded.
  const Fold fold(j0 == 0 && j1 == d.p ? d.p : Fold::kRow);
  const bool spread = fold.observations > 1;
  for (int64_t first = j0; first < j1; first += kChunk) {
    const int64_t width = std::min(kChunk, j1 - first);
    const int64_t length = spread ? fold.length : width;
    alignas(64) T acc[K * kAccStep<T>];
    alignas(64) T us[Shifted ? kChunk : 1];
    alignas(64) T ws[Weighted ? kStreams * kChunk : 1];
    std::fill(acc, acc + K * kAccStep<T>, T{0});
    if constexpr (Shifted) {
      for (int64_t j = 0; j < length; ++j) us[j] = shift[first + j % width];
    }
    auto weights = [&](int64_t i, int64_t stream) -> const T* {
      if constexpr (!Weighted) return nullptr;
      if (!spread) return d.weights + i;
      T* const begin = ws + stream * kChunk;
      T* out = begin;
      for (int64_t r = 0; r < fold.observations; ++r) {
        for (int64_t j = 0; j < width; ++j) *out++ = d.weights[i + r];
      }
      return begin;
    };
    const int64_t apart = (i1 - i0) / fold.observations / kStreams * fold.observations;  // observations
    int64_t i = i0;
    for (; i < i0 + apart; i += fold.observations) {
      const T* w[kStreams];
      unroll<kStreams>([&](auto s) { w[s] = weights(i + s * apart, s); });
      add_rows<T, K, Weighted, Shifted>(length, d.x + i * d.p + first, apart * d.p, w, spread, us, acc, kAccStep<T>);
    }
    for (i = i0 + kStreams * apart; i + fold.observations <= i1; i += fold.observations) {
      const T* w[1] = {weights(i, 0)};
      add_rows<T, K, Weighted, Shifted>(length, d.x + i * d.p + first, 0, w, spread, us, acc, kAccStep<T>);
    }
    for (; i < i1; ++i) {  // what is left of a folded row goes to its first observation's accumulators
      const T* w[1] = {Weighted ? d.weights + i : nullptr};
      add_rows<T, K, Weighted, Shifted>(width, d.x + i * d.p + first, 0, w, false, us, acc, kAccStep<T>);
    }
    for (int k = 0; k < K; ++k) {
      for (int64_t j = 0; j < length; ++j) sums[k][first + j % width] += acc[k * kAccStep<T> + j];
    }
  }
}

template <class T, int K, bool Weighted, bool Shifted>
void add(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift, T* const sums[4]) {
  constexpr int64_t kSegment = 65536;  // observations added before a sum joins the total: bounds rounding errors
  for (int64_t i = i0; i < i1; i += kSegment) {
    const int64_t end = std::min(i + kSegment, i1);
    if (d.contiguous_variables) {
      add_contiguous_variables<T, K, Weighted, Shifted>(d, i, end, j0, j1, shift, sums);
    } else {
      add_contiguous_observations<T, K, Weighted, Shifted>(d, i, end, j0, j1, shift, sums);
    }
  }
}

template <class T, int K>
void add(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift, T* const sums[4]) {
  if (d.weights != nullptr) {
    shift != nullptr ? add<T, K, true, true>(d, i0, i1, j0, j1, shift, sums)
                     : add<T, K, true, false>(d, i0, i1, j0, j1, shift, sums);
  } else {
    shift != nullptr ? add<T, K, false, true>(d, i0, i1, j0, j1, shift, sums)
                     : add<T, K, false, false>(d, i0, i1, j0, j1, shift, sums);
  }
}

}  // namespace

template <class T>
void add_power_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, const T* shift,
                    T* const sums[4]) {
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

template void add_power_sums(const Data<float>&, int64_t, int64_t, int64_t, int64_t, int, const float*,
                             float* const[4]);
template void add_power_sums(const Data<double>&, int64_t, int64_t, int64_t, int64_t, int, const double*,
                             double* const[4]);

}  // namespace orvik::ss

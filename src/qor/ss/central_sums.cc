#include "qor/ss/central_sums.h"

#include <algorithm>

#include "qor/ss/fold.h"
#include "lanes/lanes.h"
#include "qor/unroll.h"

namespace orvik::ss {
namespace {

constexpr int64_t kBlock = 128;  // observations whose coefficients are made at once

// What an observation of weight w does to a state of weight W depends on the weights alone. With S = W + w:
template <class T, int K>
struct Coefficients {
  T a[kBlock];       // w / S
  T a3[kBlock];      // 3 a
  T a4[kBlock];      // 4 a
  T a6[kBlock];      // 6 a^2
  T b[kBlock];       // W / S
  T bw[kBlock];      // W w / S
  T cube[kBlock];    // (W - w) / S
  T fourth[kBlock];  // (W^2 + w^2 - W w) / S^2

  void set(int64_t i, double weight, double w) {
    const double sum = weight + w;
    const double ai = w / sum;
    const double bi = weight / sum;
    a[i] = static_cast<T>(ai);
    b[i] = static_cast<T>(bi);
    bw[i] = static_cast<T>(bi * w);
    if constexpr (K >= 3) {
      a3[i] = static_cast<T>(3 * ai);
      cube[i] = static_cast<T>(bi - ai);
    }
    if constexpr (K >= 4) {
      a4[i] = static_cast<T>(4 * ai);
      a6[i] = static_cast<T>(6 * ai * ai);
      fourth[i] = static_cast<T>(1.0 - 3.0 * ai * bi);
    }
  }

  // For the next m observations; returns the weight with theirs.
  double fill(int64_t m, double weight, const T* w) {
    if (w == nullptr) {
      const auto count = static_cast<int32_t>(m);
      for (int32_t i = 0; i < count; ++i) set(i, weight + i, 1);
      return weight + static_cast<double>(m);
    }
    for (int64_t i = 0; i < m; ++i) {
      set(i, weight, static_cast<double>(w[i]));
      weight += static_cast<double>(w[i]);
    }
    return weight;
  }
};

// One observation into a vector of states, C2 as fma(b w d, d, C2) and the mean as fma(a, x, b m).
template <class T, int K>
inline __attribute__((always_inline)) void observe(VectorOf<T> x, const Coefficients<T, K>& c, int64_t i,
                                                   VectorOf<T> (&s)[K]) {
  const auto a = VectorOf<T>(c.a[i]);
  if constexpr (K >= 2) {
    const auto delta = x - s[0];
    const auto t = VectorOf<T>(c.bw[i]) * delta;
    if constexpr (K >= 3) {
      const auto square = t * delta;
      const auto carried = VectorOf<T>(c.a3[i]) * s[1];
      if constexpr (K >= 4) {
        // C4 += d (d (6 a^2 C2 + t d (..)) - 4 a C3)
        const auto inner = fma(square, VectorOf<T>(c.fourth[i]), VectorOf<T>(c.a6[i]) * s[1]);
        s[3] = fma(delta, fms(delta, inner, VectorOf<T>(c.a4[i]) * s[2]), s[3]);
      }
      // C3 += d (t d (..) - 3 a C2)
      s[2] = fma(delta, fms(square, VectorOf<T>(c.cube[i]), carried), s[2]);
    }
    s[1] = fma(t, delta, s[1]);
  }
  s[0] = fma(a, x, VectorOf<T>(c.b[i]) * s[0]);
}

// N vectors of variables through m observations, the state in registers. The last vector
// has `tail` lanes where `Whole` does not say that it has all.
template <class T, int K, int N, bool Whole>
void update(int64_t m, const T* x, int64_t step, const Coefficients<T, K>& c, T* const state[4], int64_t j,
            int64_t tail) {
  using V = VectorOf<T>;
  const auto mask = first_lanes<VectorOf<T>>(tail);
  auto load_vector = [&](const T* p, auto v) __attribute__((always_inline)) {
    if constexpr (v == N - 1 && !Whole) return load(p + v * kWidth<VectorOf<T>>, mask);
    return load<VectorOf<T>>(p + v * kWidth<VectorOf<T>>);
  };
  V s[N][K];
  unroll<N>([&](auto v) __attribute__((always_inline)) {
    unroll<K>([&](auto k) __attribute__((always_inline)) { s[v][k] = load_vector(state[k] + j, v); });
  });
  for (int64_t i = 0; i < m; ++i, x += step) {
    unroll<N>([&](auto v) __attribute__((always_inline)) { observe<T, K>(load_vector(x, v), c, i, s[v]); });
  }
  unroll<N>([&](auto v) __attribute__((always_inline)) {
    unroll<K>([&](auto k) __attribute__((always_inline)) {
      T* to = state[k] + j + v * kWidth<VectorOf<T>>;
      if constexpr (v == N - 1 && !Whole) {
        store(to, mask, s[v][k]);
      } else {
        store(to, s[v][k]);
      }
    });
  });
}

// As many vectors at once as the registers hold: 16 for K states, the data and the coefficients.
template <int K>
constexpr int kVectors = K <= 2   ? 4
                         : K == 3 ? 3
                                  : 2;

template <class T, int K>
void update_range(int64_t m, const T* x, int64_t step, const Coefficients<T, K>& c, T* const state[4], int64_t j0,
                  int64_t j1) {
  constexpr int64_t kLanes = kWidth<VectorOf<T>>;
  for (int64_t j = j0; j < j1;) {
    const int64_t left = j1 - j;
    const int64_t vectors = std::min<int64_t>((left + kLanes - 1) / kLanes, kVectors<K>);
    const int64_t tail = std::min(left - (vectors - 1) * kLanes, kLanes);
    const T* first = x + (j - j0);
    if (vectors == kVectors<K> && tail == kLanes) {
      update<T, K, kVectors<K>, true>(m, first, step, c, state, j, tail);
    } else {
      switch (vectors) {
        case 1:
          update<T, K, 1, false>(m, first, step, c, state, j, tail);
          break;
        case 2:
          update<T, K, 2, false>(m, first, step, c, state, j, tail);
          break;
        case 3:
          update<T, K, std::min(3, kVectors<K>), false>(m, first, step, c, state, j, tail);
          break;
        default:
          update<T, K, kVectors<K>, false>(m, first, step, c, state, j, tail);
          break;
      }
    }
    j += (vectors - 1) * kLanes + tail;
  }
}

// m rows of `length` values from each of N streams, `apart` values from one to the next, one state for each place, in
// memory. Observation i of stream s has the coefficients i N + s.
template <class T, int K, int N>
void update_rows(int64_t m, int64_t length, const T* x, int64_t step, int64_t apart, const Coefficients<T, K>& c,
                 T* const state[4]) {
  for (int64_t i = 0; i < m; ++i, x += step) {
    auto body = [&](int64_t j, auto load_at, auto store_at) __attribute__((always_inline)) {
      VectorOf<T> s[K];
      unroll<K>([&](auto k) __attribute__((always_inline)) { s[k] = load_at(state[k] + j); });
      unroll<N>([&](auto stream) __attribute__((always_inline)) {
        observe<T, K>(load_at(x + stream * apart + j), c, i * N + stream, s);
      });
      unroll<K>([&](auto k) __attribute__((always_inline)) { store_at(state[k] + j, s[k]); });
    };
    int64_t j = 0;
    for (; j + kWidth<VectorOf<T>> <= length; j += kWidth<VectorOf<T>>) {
      body(
          j, [](const T* p) { return load<VectorOf<T>>(p); }, [](T* p, auto v) { store(p, v); });
    }
    if (j < length) {
      const auto mask = first_lanes<VectorOf<T>>(length - j);
      body(
          j, [mask](const T* p) { return load(p, mask); }, [mask](T* p, auto v) { store(p, mask, v); });
    }
  }
}

// `rows` rows of `length` values, `step` apart, after a weight that the states stand for. Some streams through memory
// are read together: each goes strictly through it, which the hardware foresees, and the states are loaded and stored
// once for a row of each.
template <class T, int K>
double update_streams(int64_t rows, int64_t length, const T* x, int64_t step, const T* w, double weight,
                      T* const state[4]) {
  constexpr int kStreams = 4;
  const int64_t apart = rows / kStreams;
  Coefficients<T, K> c;
  T ws[kBlock];
  for (int64_t i = 0; i < apart; i += kBlock / kStreams) {
    const int64_t m = std::min(kBlock / kStreams, apart - i);
    for (int64_t r = 0; r < m && w != nullptr; ++r) {
      for (int64_t s = 0; s < kStreams; ++s) ws[r * kStreams + s] = w[i + r + s * apart];
    }
    weight = c.fill(m * kStreams, weight, w == nullptr ? nullptr : ws);
    update_rows<T, K, kStreams>(m, length, x + i * step, step, apart * step, c, state);
  }
  const int64_t done = apart * kStreams;
  weight = c.fill(rows - done, weight, w == nullptr ? nullptr : w + done);
  update_rows<T, K, 1>(rows - done, length, x + done * step, step, 0, c, state);
  return weight;
}

// The values of some variables as rows of observations, `width` apart.
template <class T>
void transpose(const Data<T>& d, int64_t i, int64_t m, int64_t j, int64_t width, T* out) {
  int64_t v = 0;
  for (; v + 4 <= width; v += 4) {
    const T* x = d.x + (j + v) * d.n + i;
    for (int64_t r = 0; r < m; ++r) {
      T* row = out + r * width + v;
      row[0] = x[r];
      row[1] = x[r + d.n];
      row[2] = x[r + 2 * d.n];
      row[3] = x[r + 3 * d.n];
    }
  }
  for (; v < width; ++v) {
    const T* x = d.x + (j + v) * d.n + i;
    for (int64_t r = 0; r < m; ++r) out[r * width + v] = x[r];
  }
}

// States side by side, for observations without weights: the chain from one observation to the next is what bounds the
// speed of a single state. They are merged at the end.
template <class T, int K>
struct SideBySide {
  static constexpr int64_t kMost = 512;
  static constexpr int64_t kStep = kMost + 1024 / sizeof(T);  // no multiple of 4 KiB
  alignas(64) T values[K * kStep];
  T* state[4] = {};

  // `count` rows of `length` values; the value at place j of a row belongs to variable j mod p of `into`, which stands
  // for `weight` observations.
  void run(int64_t count, int64_t length, int64_t p, const T* x, double weight, T* const into[4], int64_t j0) {
    for (int k = 0; k < K; ++k) state[k] = values + k * kStep;
    std::fill(values, values + K * kStep, T{0});
    double rows = update_streams<T, K>(count, length, x, length, nullptr, 0, state);
    // States of equal weight join by halves, then one after the other.
    for (; length / p % 2 == 0; rows *= 2) {
      length /= 2;
      T* upper[4] = {};
      for (int k = 0; k < K; ++k) upper[k] = state[k] + length;
      merge_central_sums(length, K, rows, rows, state, upper);
    }
    T* to[4] = {};
    for (int k = 0; k < K; ++k) to[k] = into[k] + j0;
    for (int64_t j = 0; j < length; j += p) {
      T* from[4] = {};
      for (int k = 0; k < K; ++k) from[k] = state[k] + j;
      merge_central_sums(p, K, weight, rows, to, from);
      weight += rows;
    }
  }
};

// One observation after the other.
template <class T, int K>
double update_in_turn(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, double weight,
                      T* const state[4]) {
  if (!d.contiguous_variables && j1 - j0 >= Fold::kRow) {
    T* from[4] = {};
    for (int k = 0; k < K; ++k) from[k] = state[k] + j0;
    return update_streams<T, K>(i1 - i0, j1 - j0, d.x + i0 * d.p + j0, d.p,
                                d.weights == nullptr ? nullptr : d.weights + i0, weight, from);
  }
  Coefficients<T, K> c;
  for (int64_t i = i0; i < i1; i += kBlock) {
    const int64_t m = std::min(kBlock, i1 - i);
    weight = c.fill(m, weight, d.weights == nullptr ? nullptr : d.weights + i);
    if (!d.contiguous_variables) {
      update_range<T, K>(m, d.x + i * d.p + j0, d.p, c, state, j0, j1);
    } else if (j1 - j0 == 1) {
      update_range<T, K>(m, d.x + j0 * d.n + i, 1, c, state, j0, j1);
    } else {
      constexpr int64_t kTile = kVectors<K> * kWidth<VectorOf<T>>;
      T tile[kBlock * kTile];
      for (int64_t j = j0; j < j1; j += kTile) {
        const int64_t width = std::min(kTile, j1 - j);
        transpose(d, i, m, j, width, tile);
        update_range<T, K>(m, tile, width, c, state, j, j + width);
      }
    }
  }
  return weight;
}

template <class T, int K>
double update_all(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, double weight, T* const state[4]) {
  constexpr int64_t kEnough = 16;  // rows from which merging is worth its while
  // Nothing is known of the mean before the first weight that is not zero.
  while (d.weights != nullptr && i0 < i1 && weight + static_cast<double>(d.weights[i0]) == 0) ++i0;
  if (d.weights == nullptr && d.contiguous_variables) {
    constexpr int64_t kLength = 16 * kWidth<VectorOf<T>>;
    if (const int64_t rows = (i1 - i0) / kLength; rows >= kEnough) {
      SideBySide<T, K> side;
      for (int64_t j = j0; j < j1; ++j) side.run(rows, kLength, 1, d.x + j * d.n + i0, weight, state, j);
      i0 += rows * kLength;
      weight += static_cast<double>(rows * kLength);
    }
  } else if (d.weights == nullptr && j0 == 0 && j1 == d.p && d.p < Fold::kRow) {
    const Fold fold(d.p);
    if (const int64_t rows = (i1 - i0) / fold.observations; rows >= kEnough) {
      SideBySide<T, K>().run(rows, fold.length, d.p, d.x + i0 * d.p, weight, state, 0);
      i0 += rows * fold.observations;
      weight += static_cast<double>(rows * fold.observations);
    }
  }
  return update_in_turn<T, K>(d, i0, i1, j0, j1, weight, state);
}

}  // namespace

template <class T>
void merge_central_sums(int64_t count, int order, double a, double b, T* const into[4], T* const from[4]) {
  const double s = a + b;
  for (int64_t j = 0; j < count; ++j) {
    const double ma = into[0][j], mb = from[0][j];
    const double delta = mb - ma;
    if (order >= 2) {
      const double a2 = into[1][j], b2 = from[1][j];
      if (order >= 3) {
        const double a3 = into[2][j], b3 = from[2][j];
        if (order >= 4) {
          into[3][j] = static_cast<T>(into[3][j] + static_cast<double>(from[3][j]) + 4 * delta * (a * b3 - b * a3) / s +
                                      6 * delta * delta * (a * a * b2 + b * b * a2) / (s * s) +
                                      a * b * (a * a + b * b - a * b) / (s * s * s) * delta * delta * delta * delta);
        }
        into[2][j] = static_cast<T>(a3 + b3 + 3 * delta * (a * b2 - b * a2) / s +
                                    a * b * (a - b) / (s * s) * delta * delta * delta);
      }
      into[1][j] = static_cast<T>(a2 + b2 + a * b / s * delta * delta);
    }
    into[0][j] = static_cast<T>((a * ma + b * mb) / s);
  }
}

template <class T>
double update_central_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, double weight,
                           T* const state[4]) {
  switch (order) {
    case 1:
      return update_all<T, 1>(d, i0, i1, j0, j1, weight, state);
    case 2:
      return update_all<T, 2>(d, i0, i1, j0, j1, weight, state);
    case 3:
      return update_all<T, 3>(d, i0, i1, j0, j1, weight, state);
    default:
      return update_all<T, 4>(d, i0, i1, j0, j1, weight, state);
  }
}

template void merge_central_sums(int64_t, int, double, double, float* const[4], float* const[4]);
template void merge_central_sums(int64_t, int, double, double, double* const[4], double* const[4]);
template double update_central_sums(const Data<float>&, int64_t, int64_t, int64_t, int64_t, int, double,
                                    float* const[4]);
template double update_central_sums(const Data<double>&, int64_t, int64_t, int64_t, int64_t, int, double,
                                    double* const[4]);

}  // namespace orvik::ss

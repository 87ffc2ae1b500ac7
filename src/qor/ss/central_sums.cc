#include "qor/ss/central_sums.h"

#include <algorithm>

#include "qor/ss/fold.h"
#include "qor/ss/lanes.h"

namespace orvik::ss {
namespace {

constexpr int64_t kBlock = 128;  // observations whose coefficients are made at once

// What an observation of weight w does to a state of weight W depends on the weights alone. With S = W + w:
template <class T>
struct Coefficients {
  T a[kBlock];       // w / S
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
    cube[i] = static_cast<T>(bi - ai);
    fourth[i] = static_cast<T>(1.0 - 3.0 * ai * bi);
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

// One observation into a vector of states.
template <class T, int K>
inline __attribute__((always_inline)) void observe(typename Lanes<T>::V x, const Coefficients<T>& c, int64_t i,
                                                   typename Lanes<T>::V* s) {
  using L = Lanes<T>;
  const auto a = L::all(c.a[i]);
  if constexpr (K >= 2) {
    const auto delta = x - s[0];
    const auto t = L::all(c.bw[i]) * delta;
    if constexpr (K >= 3) {
      const auto e = a * delta;
      const auto carried = L::all(3) * (e * s[1]);
      const auto cube = t * delta * delta;
      if constexpr (K >= 4) {
        // C4 += 6 e^2 C2 - 4 e C3 + t d^3 (..)
        const auto twice = L::fma(L::all(-2), s[2], carried);
        s[3] = L::fma(cube * delta, L::all(c.fourth[i]), L::fma(e + e, twice, s[3]));
      }
      // C3 += -3 e C2 + t d^2 (..)
      s[2] = L::fma(cube, L::all(c.cube[i]), s[2] - carried);
    }
    s[1] = L::fma(t, delta, s[1]);
  }
  s[0] = L::fma(a, x, L::all(c.b[i]) * s[0]);
}

// N vectors of variables through m observations, the state in registers. The last vector has `tail` lanes.
template <class T, int K, int N>
void update(int64_t m, const T* x, int64_t step, const Coefficients<T>& c, T* const state[4], int64_t j, int64_t tail) {
  using L = Lanes<T>;
  using V = typename L::V;
  const auto mask = L::first(tail);
  auto load = [&](const T* p, int v) {
    return v == N - 1 ? L::load(p + v * L::kWidth, mask) : L::load(p + v * L::kWidth);
  };
  V s[N][K];
  for (int k = 0; k < K; ++k) {
#pragma GCC unroll 4
    for (int v = 0; v < N; ++v) s[v][k] = load(state[k] + j, v);
  }
  for (int64_t i = 0; i < m; ++i, x += step) {
#pragma GCC unroll 4
    for (int v = 0; v < N; ++v) observe<T, K>(load(x, v), c, i, s[v]);
  }
  for (int k = 0; k < K; ++k) {
#pragma GCC unroll 4
    for (int v = 0; v < N - 1; ++v) L::store(state[k] + j + v * L::kWidth, s[v][k]);
    L::store(state[k] + j + (N - 1) * L::kWidth, mask, s[N - 1][k]);
  }
}

// m rows of `length` values, one state for each place, in memory: reads x strictly in order.
template <class T, int K>
void update_rows(int64_t m, int64_t length, const T* x, int64_t step, const Coefficients<T>& c, T* const state[4]) {
  using L = Lanes<T>;
  for (int64_t i = 0; i < m; ++i, x += step) {
    auto body = [&](int64_t j, auto load, auto store) __attribute__((always_inline)) {
      typename L::V s[K];
      for (int k = 0; k < K; ++k) s[k] = load(state[k] + j);
      observe<T, K>(load(x + j), c, i, s);
      for (int k = 0; k < K; ++k) store(state[k] + j, s[k]);
    };
    int64_t j = 0;
    for (; j + L::kWidth <= length; j += L::kWidth) {
      body(
          j, [](const T* p) { return L::load(p); }, [](T* p, auto v) { L::store(p, v); });
    }
    if (j < length) {
      const auto mask = L::first(length - j);
      body(
          j, [mask](const T* p) { return L::load(p, mask); }, [mask](T* p, auto v) { L::store(p, mask, v); });
    }
  }
}

// As many vectors at once as the registers hold: 16 for K states, the data and the coefficients.
template <int K>
constexpr int kVectors = K <= 2   ? 4
                         : K == 3 ? 3
                                  : 2;

template <class T, int K>
void update_range(int64_t m, const T* x, int64_t step, const Coefficients<T>& c, T* const state[4], int64_t j0,
                  int64_t j1) {
  constexpr int64_t kWidth = Lanes<T>::kWidth;
  for (int64_t j = j0; j < j1;) {
    const int64_t left = j1 - j;
    const int64_t vectors = std::min<int64_t>((left + kWidth - 1) / kWidth, kVectors<K>);
    const int64_t tail = std::min(left - (vectors - 1) * kWidth, kWidth);
    const T* first = x + (j - j0);
    switch (vectors) {
      case 1:
        update<T, K, 1>(m, first, step, c, state, j, tail);
        break;
      case 2:
        update<T, K, 2>(m, first, step, c, state, j, tail);
        break;
      case 3:
        update<T, K, std::min(3, kVectors<K>)>(m, first, step, c, state, j, tail);
        break;
      default:
        update<T, K, kVectors<K>>(m, first, step, c, state, j, tail);
        break;
    }
    j += (vectors - 1) * kWidth + tail;
  }
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
    Coefficients<T> c;
    double rows = 0;
    for (int64_t i = 0; i < count; i += kBlock) {
      const int64_t m = std::min(kBlock, count - i);
      rows = c.fill(m, rows, nullptr);
      if (length == kVectors<K> * Lanes<T>::kWidth) {
        update<T, K, kVectors<K>>(m, x + i * length, length, c, state, 0, Lanes<T>::kWidth);
      } else {
        update_rows<T, K>(m, length, x + i * length, length, c, state);
      }
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
  Coefficients<T> c;
  for (int64_t i = i0; i < i1; i += kBlock) {
    const int64_t m = std::min(kBlock, i1 - i);
    weight = c.fill(m, weight, d.weights == nullptr ? nullptr : d.weights + i);
    if (!d.contiguous_variables && j1 - j0 >= Fold::kRow) {
      T* from[4] = {};
      for (int k = 0; k < K; ++k) from[k] = state[k] + j0;
      update_rows<T, K>(m, j1 - j0, d.x + i * d.p + j0, d.p, c, from);
    } else if (!d.contiguous_variables) {
      update_range<T, K>(m, d.x + i * d.p + j0, d.p, c, state, j0, j1);
    } else if (j1 - j0 == 1) {
      update_range<T, K>(m, d.x + j0 * d.n + i, 1, c, state, j0, j1);
    } else {
      constexpr int64_t kTile = kVectors<K> * Lanes<T>::kWidth;
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
  constexpr int64_t kEnough = 64;  // rows from which merging is worth its while
  // Nothing is known of the mean before the first weight that is not zero.
  while (d.weights != nullptr && i0 < i1 && weight + static_cast<double>(d.weights[i0]) == 0) ++i0;
  if (d.weights == nullptr && d.contiguous_variables) {
    constexpr int64_t kLength = kVectors<K> * Lanes<T>::kWidth;
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

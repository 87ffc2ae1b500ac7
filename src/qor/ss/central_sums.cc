#include "qor/ss/central_sums.h"

#include <algorithm>

#include "qor/ss/lanes.h"

namespace orvik::ss {
namespace {

constexpr int64_t kBlock = 128;  // observations whose coefficients are made at once

// What an observation of weight w does to a state of weight W depends on the weights alone. With S = W + w:
template <class T>
struct Coefficients {
  T a[kBlock];      // w / S
  T b[kBlock];      // W / S
  T bw[kBlock];     // W w / S
  T cube[kBlock];   // (W - w) / S
  T fourth[kBlock]; // (W^2 + w^2 - W w) / S^2

  double fill(int64_t m, double weight, const T* w) {
    for (int64_t i = 0; i < m; ++i) {
      const double wi = w == nullptr ? 1.0 : static_cast<double>(w[i]);
      const double sum = weight + wi;
      const double ai = wi / sum;
      const double bi = weight / sum;
      a[i] = static_cast<T>(ai);
      b[i] = static_cast<T>(bi);
      bw[i] = static_cast<T>(bi * wi);
      cube[i] = static_cast<T>(bi - ai);
      fourth[i] = static_cast<T>(1.0 - 3.0 * ai * bi);
      weight = sum;
    }
    return weight;
  }
};

// N vectors of variables through m observations, the state in registers. The last vector has `tail` lanes.
template <class T, int K, int N>
void update(int64_t m, const T* x, int64_t step, const Coefficients<T>& c, T* const state[4], int64_t j, int64_t tail) {
  using L = Lanes<T>;
  using V = typename L::V;
  const auto mask = L::first(tail);
  auto load = [&](const T* p, int v) { return v == N - 1 ? L::load(p + v * L::kWidth, mask) : L::load(p + v * L::kWidth); };
  V s[K][N];
  for (int k = 0; k < K; ++k) {
#pragma GCC unroll 4
    for (int v = 0; v < N; ++v) s[k][v] = load(state[k] + j, v);
  }
  const V three = L::all(3), four = L::all(4), six = L::all(6);
  for (int64_t i = 0; i < m; ++i, x += step) {
    const V a = L::all(c.a[i]), b = L::all(c.b[i]);
#pragma GCC unroll 4
    for (int v = 0; v < N; ++v) {
      const V xi = load(x, v);
      if constexpr (K >= 2) {
        const V delta = xi - s[0][v];
        const V t = L::all(c.bw[i]) * delta;
        if constexpr (K >= 3) {
          const V e = a * delta;
          const V increment = t * delta;
          if constexpr (K >= 4) {
            // C4 += -4 e C3 + 6 e^2 C2 + increment d^2 (..)
            const V lower = L::fma(six * e, s[1][v], -(four * s[2][v]));
            const V highest = increment * (delta * delta);
            s[3][v] = L::fma(highest, L::all(c.fourth[i]), L::fma(e, lower, s[3][v]));
          }
          // C3 += -3 e C2 + increment d (..)
          s[2][v] = L::fma(increment * delta, L::all(c.cube[i]), L::fma(-(three * e), s[1][v], s[2][v]));
        }
        s[1][v] = L::fma(t, delta, s[1][v]);
      }
      s[0][v] = L::fma(a, xi, b * s[0][v]);
    }
  }
  for (int k = 0; k < K; ++k) {
#pragma GCC unroll 4
    for (int v = 0; v < N - 1; ++v) L::store(state[k] + j + v * L::kWidth, s[k][v]);
    L::store(state[k] + j + (N - 1) * L::kWidth, mask, s[k][N - 1]);
  }
}

// As many vectors at once as the registers hold: 16 for K states, the data and the coefficients.
template <int K>
constexpr int kVectors = K <= 2 ? 4 : K == 3 ? 3 : 2;

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
      case 1: update<T, K, 1>(m, first, step, c, state, j, tail); break;
      case 2: update<T, K, 2>(m, first, step, c, state, j, tail); break;
      case 3: update<T, K, std::min(3, kVectors<K>)>(m, first, step, c, state, j, tail); break;
      default: update<T, K, kVectors<K>>(m, first, step, c, state, j, tail); break;
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

template <class T, int K>
double update_all(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, double weight, T* const state[4]) {
  Coefficients<T> c;
  // Nothing is known of the mean before the first weight that is not zero.
  while (d.weights != nullptr && i0 < i1 && weight + static_cast<double>(d.weights[i0]) == 0) ++i0;
  // Long observations: a block of them stays in the second cache while ranges of variables go by.
  const int64_t in_cache = 0x20000 / (d.p * static_cast<int64_t>(sizeof(T)));
  const int64_t block = d.contiguous_variables ? kBlock : std::clamp<int64_t>(in_cache, 8, kBlock);
  for (int64_t i = i0; i < i1; i += block) {
    const int64_t m = std::min(block, i1 - i);
    weight = c.fill(m, weight, d.weights == nullptr ? nullptr : d.weights + i);
    if (!d.contiguous_variables) {
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

}  // namespace

template <class T>
double update_central_sums(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, int order, double weight,
                           T* const state[4]) {
  switch (order) {
    case 1: return update_all<T, 1>(d, i0, i1, j0, j1, weight, state);
    case 2: return update_all<T, 2>(d, i0, i1, j0, j1, weight, state);
    case 3: return update_all<T, 3>(d, i0, i1, j0, j1, weight, state);
    default: return update_all<T, 4>(d, i0, i1, j0, j1, weight, state);
  }
}

template double update_central_sums(const Data<float>&, int64_t, int64_t, int64_t, int64_t, int, double,
                                    float* const[4]);
template double update_central_sums(const Data<double>&, int64_t, int64_t, int64_t, int64_t, int, double,
                                    double* const[4]);

}  // namespace orvik::ss

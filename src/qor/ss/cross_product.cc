#include "qor/ss/cross_product.h"

#include <algorithm>

#include "lanes/first_lanes.h"
#include "lanes/lanes.h"
#include "lanes/sums.h"
#include "qor/unroll.h"
#include "serv/blas.h"

namespace orvik::ss {

namespace blas = serv::blas;

namespace {

// Up to here products are summed in vectors of observations: matrix kernels are made for more variables, and take two
// to ten times as long for these.
constexpr int64_t kFewVariables = 16;
constexpr int64_t kTogether = 8;  // sums in registers

// to[k] += the sum of products of y and variable k, for the first K variables of m observations each.
template <int K, class T>
void add_products(int64_t m, const T* x, const T* y, T* to) {
  using V = VectorOf<T>;
  constexpr int kStreams = K <= 2 ? 4 : K <= 6 ? 2 : 1;  // chains of sums
  constexpr int64_t kStep = kStreams * kWidth<V>;
  V s[K][kStreams];
  unroll<K * kStreams>([&](auto i) __attribute__((always_inline)) { s[i / kStreams][i % kStreams] = V(T(0)); });
  int64_t i = 0;
  for (; i + kStep <= m; i += kStep) {
    unroll<kStreams>([&](auto r) __attribute__((always_inline)) {
      const V b = load<V>(y + i + r * kWidth<V>);
      unroll<K>([&](auto k) __attribute__((always_inline)) {
        s[k][r] = fma(load<V>(x + k * m + i + r * kWidth<V>), b, s[k][r]);
      });
    });
  }
  for (; i < m; i += kWidth<V>) {
    const auto first = first_lanes<V>(std::min<int64_t>(kWidth<V>, m - i));
    const V b = load(y + i, first);
    unroll<K>([&](auto k) __attribute__((always_inline)) { s[k][0] = fma(load(x + k * m + i, first), b, s[k][0]); });
  }
  unroll<K>([&](auto k) __attribute__((always_inline)) {
    unroll<kStreams - 1>([&](auto r) __attribute__((always_inline)) { s[k][0] = s[k][0] + s[k][r + 1]; });
    to[k] += horizontal_sum(s[k][0]);
  });
}

// The upper triangle of p variables, contiguous and m values apart.
template <class T>
void add_few(int64_t p, int64_t m, const T* x, T* matrix) {
  unroll<kFewVariables>([&](auto j) __attribute__((always_inline)) {
    constexpr int64_t kRest = j + 1 > kTogether ? j + 1 - kTogether : 0;
    if (j >= p) return;
    add_products<j + 1 - kRest>(m, x, x + j * m, matrix + j * p);
    if constexpr (kRest > 0) add_products<kRest>(m, x + kTogether * m, x + j * m, matrix + j * p + kTogether);
  });
}

}  // namespace

template <class T>
void CrossProduct<T>::add_outer(double alpha, const T* v) const {
  blas::syr('U', static_cast<int32_t>(p_), static_cast<T>(alpha), v, 1, matrix_, static_cast<int32_t>(p_));
}

template <class T>
void CrossProduct<T>::add(const Observations<T>& o, int64_t i0, int64_t i1, const T* shift) const {
  const bool few = p_ <= kFewVariables, by_variable = o.contiguous_variables || few;
  for (int64_t i = i0; i < i1; i += block_) {
    const int64_t m = std::min(block_, i1 - i);
    if (o.weights != nullptr) copy_root_weights(o, i, m, roots_);
    copy_block(o, i, m, by_variable ? Layout::ByVariable : Layout::ByObservation, shift,
               o.weights != nullptr ? roots_ : nullptr, rows_);
    if (few) {
      add_few(p_, m, rows_, matrix_);
      continue;
    }
    blas::syrk('U', by_variable ? 'T' : 'N', static_cast<int32_t>(p_), static_cast<int32_t>(m), T{1}, rows_,
               static_cast<int32_t>(by_variable ? m : p_), T{1}, matrix_, static_cast<int32_t>(p_));
  }
}

template class CrossProduct<float>;
template class CrossProduct<double>;

}  // namespace orvik::ss

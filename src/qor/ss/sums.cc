#include "qor/ss/sums.h"

#include <algorithm>
#include <type_traits>

#include "qor/ss/row_sums.h"
#include "qor/ss/segment.h"
#include "qor/ss/wide_rows.h"
#include "serv/registers.h"

namespace orvik::ss {
namespace {

template <class T, int K>
void add_segments(const Data<T>& d, int64_t i0, int64_t i1, int64_t j0, int64_t j1, const T* shift,
                  double* const sums[4]) {
  for (int64_t j = j0; j < j1; ++j) {
    double segment[K];
    add_segment(i1 - i0, d.x + j * d.n + i0, d.weights != nullptr ? d.weights + i0 : nullptr,
                shift != nullptr ? shift + j : nullptr, segment);
    for (int k = 0; k < K; ++k) sums[k][j] += segment[k];
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
  if (!d.contiguous_variables) {
#if ORVIK_WIDE_REGISTERS
    if (serv::wide_registers && wide_sums_pay(d, i1 - i0, j0, j1, order)) {
      return wide_row_sums(d, i0, i1, j0, j1, order, shift, sums);
    }
#endif
    return add_row_sums(d, i0, i1, j0, j1, order, shift, sums);
  }
  switch (order) {
    case 1:
      return add_segments<T, 1>(d, i0, i1, j0, j1, shift, sums);
    case 2:
      return add_segments<T, 2>(d, i0, i1, j0, j1, shift, sums);
    case 3:
      return add_segments<T, 3>(d, i0, i1, j0, j1, shift, sums);
    case 4:
      return add_segments<T, 4>(d, i0, i1, j0, j1, shift, sums);
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

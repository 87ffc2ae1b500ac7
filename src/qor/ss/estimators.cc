#include "qor/ss/estimators.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "qor/ss/by_variable.h"
#include "qor/ss/matrix.h"
#include "qor/ss/moments.h"
#include "qor/ss/selection.h"
#include "qor/ss/workspace.h"
#include "serv/blas.h"

namespace orvik::ss {
namespace {

constexpr int64_t kRows = 512;         // observations of a block of distances
constexpr int64_t kFewVariables = 32;  // up to here, distances by variable without the matrix kernel

// d' M d of the observations of a vector, variable by variable: d[j * m]. The terms off the diagonal come twice. What
// rounding makes negative is 0.
template <class V>
void squares_of(int64_t p, int64_t m, const Element<V>* matrix, const Element<V>* d, Element<V>* out) {
  using T = Element<V>;
  V sum = V(T(0));
  for (int64_t j = 0; j < p; ++j) {
    V row = V(T(0));
    for (int64_t k = 0; k < j; ++k) row = fma(V(matrix[j * p + k]), load<V>(d + k * m), row);
    const V x = load<V>(d + j * m);
    sum = fma(fma(V(matrix[j * p + j]), x, row + row), x, sum);
  }
  store(out, max(V(T(0)), sum));
}

template <class T>
void squares_by_variable(int64_t p, int64_t m, const T* matrix, const T* d, T* out) {
  using V = Twice<VectorOf<T>>;
  int64_t i = 0;
  for (; i + kWidth<V> <= m; i += kWidth<V>) squares_of<V>(p, m, matrix, d + i, out + i);
  for (; i < m; ++i) squares_of<T>(p, m, matrix, d + i, out + i);
}

// d' M d of m observations, one after the other.
template <class T>
void squares_by_observation(int64_t p, int64_t m, const T* matrix, const T* d, T* products, T* out) {
  const auto order = static_cast<int32_t>(p);
  serv::blas::symm('L', 'L', order, static_cast<int32_t>(m), T{1}, matrix, order, d, order, T{0}, products, order);
  for (int64_t i = 0; i < m; ++i) {
    T sum = 0;
    for (int64_t j = 0; j < p; ++j) sum += d[i * p + j] * products[i * p + j];
    out[i] = sum < 0 ? T{0} : sum;
  }
}

}  // namespace

template <class T>
int32_t mahalanobis(const Observations<T>& o, const T* mean, const T* matrix, const OrvikThreading* threading,
                    T* results) {
  const int64_t p = o.p;
  const bool few = p <= kFewVariables;
  if (!few && !serv::blas::load()) return kNoMemory;
  const int64_t blocks = (o.n + kRows - 1) / kRows;
  const int32_t threads = static_cast<int32_t>(std::max<int64_t>(1, std::min<int64_t>(max_threads(threading), blocks)));
  const int64_t size = std::min(kRows, o.n) * p * (few ? 1 : 2);
  const serv::Block<T> scratch(static_cast<uint64_t>(size * threads));
  if (!scratch) return kNoMemory;
  return run_threads(threading, threads, [&](int32_t thread) {
    T* deviations = scratch.get() + size * thread;
    for (int64_t block = blocks * thread / threads; block < blocks * (thread + 1) / threads; ++block) {
      const int64_t i0 = block * kRows, m = std::min(kRows, o.n - i0);
      copy_block(o, i0, m, few ? Layout::ByVariable : Layout::ByObservation, mean, static_cast<const T*>(nullptr),
                 deviations);
      if (few) {
        squares_by_variable(p, m, matrix, deviations, results + i0);
      } else {
        squares_by_observation(p, m, matrix, deviations, deviations + m * p, results + i0);
      }
      for (int64_t i = i0; i < i0 + m; ++i) results[i] = std::sqrt(results[i]);
    }
    return int32_t{kDone};
  });
}

namespace {

// Observations without an index list are data as it is; the others are copied, block by block, to where they are.
template <class T>
Data<T> as_data(const Observations<T>& o) {
  Data<T> d;
  d.x = o.x;
  d.weights = o.weights;
  d.flags = nullptr;
  d.p = o.p;
  d.n = o.contiguous_variables ? o.stride : o.n;
  d.contiguous_variables = o.contiguous_variables;
  return d;
}

// A pass over [i0, i1) of an index list, with `copy` for a block of observations and their weights.
template <class T>
void run_pass_over_index(const Observations<T>& o, const Plan& plan, int64_t i0, int64_t i1, int64_t block, T* copy,
                         Accumulators<T>* acc) {
  for (int64_t i = i0; i < i1; i += block) {
    const int64_t m = std::min(block, i1 - i);
    T* const weights = copy + block * o.p;
    const T* const none = nullptr;
    copy_block(o, i, m, o.contiguous_variables ? Layout::ByVariable : Layout::ByObservation, none, none, copy);
    for (int64_t r = 0; r < m && o.weights != nullptr; ++r) weights[r] = o.weight(i + r);
    Data<T> d;
    d.x = copy;
    d.weights = o.weights == nullptr ? nullptr : weights;
    d.flags = nullptr;
    d.p = o.p;
    d.n = m;
    d.contiguous_variables = o.contiguous_variables;
    run_pass(d, plan, 0, m, acc);
  }
}

}  // namespace

template <class T>
int32_t scatter(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* products, Weights* total) {
  if (!serv::blas::load()) return kNoMemory;
  Plan plan;
  plan.method = Method::OnePass;
  plan.work = 1u << kMean | 1u << kCrossProduct;
  plan.central = 1;
  const int64_t p = o.p;
  const Shares shares(p, o.n, true, threading);
  const int64_t block = o.index == nullptr ? 0 : std::clamp<int64_t>(65536 / p, 256, std::max<int64_t>(o.n, 256));
  Workspace<T> work;
  const serv::Block<T> copies(
      static_cast<uint64_t>(std::max<int64_t>(std::max(shares.sets - 1, 1) * block * (p + 1), 1)));
  const serv::Block<Accumulators<T>> parts(static_cast<uint64_t>(shares.sets));
  if (!work.allocate(p, o.weights != nullptr, plan, shares, true) || !copies || !parts) return kNoMemory;
  T* const point = work.template row<T>();
  work.share_out(plan, shares, products, parts.get());
  int64_t first = 0;
  while (first < o.n && o.weight(first) == 0) ++first;
  for (int64_t j = 0; first < o.n && j < p; ++j) point[j] = finite_or_zero(o.at(first, j));
  for (int32_t k = 0; k < shares.sets; ++k) parts[static_cast<uint64_t>(k)].shift = point;
  std::fill(products, products + p * p, T{0});
  const auto feed = [&](int32_t place, int64_t i, int64_t end, Accumulators<T>* acc) {
    if (o.index == nullptr) {
      run_pass(as_data(o), plan, i, end, acc);
    } else {
      run_pass_over_index(o, plan, i, end, block, copies.get() + place * block * (p + 1), acc);
    }
  };
  if (const int32_t status = run_chunks(shares, p, plan, threading, parts.get(), feed); status != kDone) return status;
  *total = parts[0].weights;
  const bool none = total->observations == 0;
  for (int64_t j = 0; j < p; ++j) {
    mean[j] = none ? std::numeric_limits<T>::quiet_NaN()
                   : static_cast<T>(static_cast<double>(point[j]) + parts[0].central[0][j]);
  }
  mirror_upper(p, products);
  return kDone;
}

template <class T>
int32_t covariance(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* matrix) {
  Weights total;
  if (const int32_t status = scatter(o, threading, mean, matrix, &total); status != kDone) return status;
  const double scale = unbiased(total) / total.sum;
  for (int64_t k = 0; k < o.p * o.p; ++k) matrix[k] = static_cast<T>(static_cast<double>(matrix[k]) * scale);
  return kDone;
}

template <class T>
int32_t quantiles(const Observations<T>& o, int64_t count, const T* orders, const OrvikThreading* threading,
                  T* results) {
  return quantiles(o, nullptr, count, orders, threading, results);
}

template <class T>
int32_t quantiles(const Observations<T>& o, const int32_t* flags, int64_t count, const T* orders,
                  const OrvikThreading* threading, T* results) {
  if (count == 0) return kDone;
  return for_each_variable(o, flags, threading, {}, [&](int64_t j, T* a, T*) {
    quantiles_of(o.n, a, count, orders, results + j * count);
  });
}

template <class T>
int32_t weighted_medians(const Observations<T>& o, const int32_t* flags, bool nans_last,
                         const OrvikThreading* threading, T* results) {
  const bool in_place = o.contiguous_variables && o.index == nullptr;
  const Copying copying{.scratch = 4 * o.n, .copied = !in_place};
  return for_each_variable(o, flags, threading, copying, [&](int64_t j, const T* copy, T* scratch) {
    const T* const x = in_place ? o.x + j * o.stride : copy;
    static_assert(sizeof(Weighed<T>) == 2 * sizeof(T));
    auto* a = reinterpret_cast<Weighed<T>*>(scratch);
    int64_t count = 0;
    double total = 0;
    T nan = 0;
    for (int64_t i = 0; i < o.n; ++i) {
      T value = x[i];
      const T weight = o.weight(i);
      if (weight == 0) continue;
      if (nans_last && value != value) value = std::numeric_limits<T>::infinity();
      if (value != value || weight != weight) nan = value != value ? value : weight;
      a[count++] = {value, weight};
      total += static_cast<double>(weight);
    }
    const bool none = nan != nan || count == 0;
    const T quiet = std::numeric_limits<T>::quiet_NaN();
    results[j] = !none ? weighted_median(count, a, a + o.n, total) : nan != nan ? nan : quiet;
  });
}

template <class T>
int32_t medians(const Observations<T>& o, const OrvikThreading* threading, T* results) {
  const T half = T{0.5};
  return o.weights != nullptr ? weighted_medians(o, nullptr, true, threading, results)
                              : quantiles(o, 1, &half, threading, results);
}

template <class T>
T median_of(int64_t n, T* a) {
  return median(n, a);
}
template <class T>
T median_deviation_of(int64_t n, T* a, T* center) {
  return median_deviation(n, a, center);
}

#define ORVIK_INSTANTIATE(T)                                                                                        \
  template int32_t mahalanobis(const Observations<T>&, const T*, const T*, const OrvikThreading*, T*);              \
  template int32_t scatter(const Observations<T>&, const OrvikThreading*, T*, T*, Weights*);                        \
  template int32_t covariance(const Observations<T>&, const OrvikThreading*, T*, T*);                               \
  template int32_t quantiles(const Observations<T>&, int64_t, const T*, const OrvikThreading*, T*);                 \
  template int32_t quantiles(const Observations<T>&, const int32_t*, int64_t, const T*, const OrvikThreading*, T*); \
  template int32_t weighted_medians(const Observations<T>&, const int32_t*, bool, const OrvikThreading*, T*);       \
  template int32_t medians(const Observations<T>&, const OrvikThreading*, T*);                                      \
  template T median_of(int64_t, T*);                                                                                \
  template T median_deviation_of(int64_t, T*, T*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

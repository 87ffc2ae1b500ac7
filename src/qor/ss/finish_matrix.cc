#include <algorithm>
#include <cmath>
#include <limits>

#include "qor/ss/finish.h"
#include "qor/ss/kernels.h"
#include "qor/ss/matrix.h"
#include "qor/ss/moments.h"

namespace orvik::ss {
namespace {

template <class T>
Matrix<T> covariance(const Task& task, int64_t p) {
  return {task.covariance, p, task.integer(task.covarianceStorage)};
}
template <class T>
Matrix<T> correlation(const Task& task, int64_t p) {
  return {task.correlation, p, task.integer(task.correlationStorage)};
}
template <class T>
Matrix<T> cross_product(const Task& task, int64_t p) {
  return {task.crossProduct, p, task.integer(task.crossProductStorage)};
}

template <class T, class Body>
void for_selected_pairs(const Data<T>& d, Body&& body) {
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    for (int64_t i = 0; i <= j; ++i) {
      if (d.selected(i)) body(i, j);
    }
  }
}

// What rounding alone leaves on the diagonal for a variable that does not vary: below it, the variable is constant. The
// errors of long sums and of a running mean grow with the square root of the number of observations.
template <class T>
double rounding_floor(const Plan& plan, const Weights& total, double mean) {
  constexpr double kEps = std::numeric_limits<T>::epsilon();
  const double observations = total.sum * total.sum / total.squares;
  switch (plan.method) {
    case Method::Fast:
      return (8 + std::sqrt(observations)) * kEps * total.sum * mean * mean;
    case Method::OnePass:
      return total.sum * (16 + observations) * (kEps * mean) * (kEps * mean);
    default:
      return 0;
  }
}

}  // namespace

template <class T>
T* matrix_in_place(const Task& task, const Data<T>& d, const Plan& plan) {
  if (!d.all_selected()) return nullptr;
  if (plan.has(kCrossProduct) && cross_product<T>(task, d.p).full()) return real<T>(task.crossProduct);
  if (plan.has(kCovariance) && covariance<T>(task, d.p).full()) return real<T>(task.covariance);
  if (plan.has(kCorrelation) && correlation<T>(task, d.p).full()) return real<T>(task.correlation);
  return nullptr;
}

template <class T>
void seed_matrix(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, T* cross) {
  const bool from_sums = plan.has(kCrossProduct);
  if ((old.sum == 0 && plan.method != Method::Finish) || (!from_sums && !plan.has(kCovariance))) {
    std::fill(cross, cross + d.p * d.p, T{0});
    return;
  }
  const Matrix<T> held = from_sums ? cross_product<T>(task, d.p) : covariance<T>(task, d.p);
  const double scale = from_sums ? 1.0 : old.sum / unbiased(old);
  for (int64_t j = 0; j < d.p; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      cross[j * d.p + i] =
          d.selected(i) && d.selected(j) ? static_cast<T>(static_cast<double>(held.get(i, j)) * scale) : T{0};
    }
  }
}

template <class T>
void finish_matrix(const Task& task, const Data<T>& d, const Plan& plan, const Weights& total, T* cross, T* scratch) {
  const Matrix<T> sums(cross, d.p, ORVIK_SS_MATRIX_FULL);
  const bool own_mean = plan.method == Method::Fast || plan.method == Method::OnePass;
  if (own_mean && total.sum <= total.squares / total.sum) {  // one observation does not deviate from its mean
    std::fill(cross, cross + d.p * d.p, T{0});
  }
  auto write_correlation = [&] {
    const T* mean = plan.has(kMean) ? real<T>(task.mean) : nullptr;
    for (int64_t j = 0; j < d.p; ++j) {
      const double m = mean != nullptr && d.selected(j) ? static_cast<double>(mean[j]) : 0.0;
      const T c = d.selected(j) ? sums.get(j, j) : T{1};
      scratch[j] = static_cast<double>(c) <= rounding_floor<T>(plan, total, m) ? T{0} : c;
    }
    inverse_square_roots(static_cast<int32_t>(d.p), scratch, scratch);
    const auto to = correlation<T>(task, d.p);
    for_selected_pairs(d, [&](int64_t i, int64_t j) {
      const T diagonal = std::isnan(scratch[j]) ? scratch[j] : T{1};
      to.set(i, j, i == j ? diagonal : sums.get(i, j) * scratch[i] * scratch[j]);
    });
  };
  auto write_covariance = [&] {
    const auto to = covariance<T>(task, d.p);
    const double scale = unbiased(total) / total.sum;
    for_selected_pairs(
        d, [&](int64_t i, int64_t j) { to.set(i, j, static_cast<T>(static_cast<double>(sums.get(i, j)) * scale)); });
  };
  auto write_cross_product = [&] {
    const auto to = cross_product<T>(task, d.p);
    for_selected_pairs(d, [&](int64_t i, int64_t j) { to.set(i, j, sums.get(i, j)); });
  };
  // The one that is accumulated in place comes last.
  for (const bool in_place : {false, true}) {
    if (plan.has(kCorrelation) && (task.correlation == cross) == in_place) write_correlation();
    if (plan.has(kCovariance) && (task.covariance == cross) == in_place) write_covariance();
    if (plan.has(kCrossProduct) && plan.method != Method::Finish && (task.crossProduct == cross) == in_place) {
      write_cross_product();
    }
  }
}

#define ORVIK_INSTANTIATE(T)                                                               \
  template T* matrix_in_place(const Task&, const Data<T>&, const Plan&);                   \
  template void seed_matrix(const Task&, const Data<T>&, const Plan&, const Weights&, T*); \
  template void finish_matrix(const Task&, const Data<T>&, const Plan&, const Weights&, T*, T*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

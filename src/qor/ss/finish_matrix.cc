#include <algorithm>
#include <cmath>

#include "qor/ss/finish.h"
#include "qor/ss/kernels.h"
#include "qor/ss/matrix.h"
#include "qor/ss/moments.h"

namespace orvik::ss {
namespace {

template <class T>
Matrix<T> covariance(const Task& task, int64_t p) {
  return matrix_of<T>(task, task.covariance, task.covarianceStorage, p);
}
template <class T>
Matrix<T> correlation(const Task& task, int64_t p) {
  return matrix_of<T>(task, task.correlation, task.correlationStorage, p);
}
template <class T>
Matrix<T> cross_product(const Task& task, int64_t p) {
  return matrix_of<T>(task, task.crossProduct, task.crossProductStorage, p);
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
void center_matrix(const Task& task, const Data<T>& d, const Weights& old, const Accumulators<T>& acc) {
  const double total = acc.weights.sum;
  for (int64_t j = 0; j < d.p; ++j) {
    const auto u = static_cast<double>(acc.shift[j]);
    const double before =
        old.sum == 0 || !d.selected(j) ? 0.0 : old.sum * (static_cast<double>(real<T>(task.mean)[j]) - u);
    const double about = (before + acc.power[0][j]) / total;
    acc.mean[j] = u + about;
    acc.outer[j] = static_cast<T>(about);
  }
  if (total != 0) acc.cross.add_outer(-total, acc.outer);
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
  auto write_correlation = [&] {
    // All deviations of a variable that does not vary are zero, and so is what they add up to.
    for (int64_t j = 0; j < d.p; ++j) scratch[j] = d.selected(j) ? sums.get(j, j) : T{1};
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

#define ORVIK_INSTANTIATE(T)                                                                        \
  template T* matrix_in_place(const Task&, const Data<T>&, const Plan&);                            \
  template void center_matrix(const Task&, const Data<T>&, const Weights&, const Accumulators<T>&); \
  template void seed_matrix(const Task&, const Data<T>&, const Plan&, const Weights&, T*);          \
  template void finish_matrix(const Task&, const Data<T>&, const Plan&, const Weights&, T*, T*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss

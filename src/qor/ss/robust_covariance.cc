// Mean and covariance that outliers do not move: the S-estimator of the translated biweight (Rocke 1996) from an
// orthogonalized pairwise start.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/biweight.h"
#include "qor/ss/chi_square.h"
#include "qor/ss/estimators.h"
#include "qor/ss/inverse_covariance.h"
#include "qor/ss/matrix.h"
#include "qor/ss/missing_field.h"
#include "qor/ss/robust_start.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

struct Parameters {
  double breakdown;
  double rejection = 0.001;
  double accuracy = 0.001;
  int64_t iterations = 100;

  Parameters(int64_t p, int64_t n) : breakdown(static_cast<double>(n - p) / (2 * static_cast<double>(n))) {}

  template <class T>
  void read(const T* values) {
    if (values[0] > 0) breakdown = std::min(static_cast<double>(values[0]), breakdown);
    if (values[1] > 0 && values[1] < 1) rejection = static_cast<double>(values[1]);
    if (values[2] > 0) accuracy = static_cast<double>(values[2]);
    if (values[3] >= 0) iterations = static_cast<int64_t>(std::min<T>(values[3], T(1 << 30)));
  }
};

int32_t check(const Task& task, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if (task.observationCount == nullptr || task.integer(task.observationCount) <= 2 * task.p()) return kBadCount;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.robustMean == nullptr) return missing_field::robustMean;
  if (task.robustCovariance == nullptr) return missing_field::robustCovariance;
  if (const int32_t status = check_matrix_storage_value(task, task.robustCovarianceStorage); status != kDone)
    return status;
  if (method != ORVIK_SS_METHOD_ROBUST) return kBadMethod;
  return check_observations(task);
}

template <class T>
class Iteration {
 public:
  Iteration(const Observations<T>& o, const Parameters& parameters, const OrvikThreading* threading)
      : o_(o), parameters_(parameters), threading_(threading) {}

  bool allocate() {
    const int64_t p = o_.p;
    values_ = serv::Block<T>(static_cast<uint64_t>(2 * o_.n + 2 * p + 3 * p * p));
    if (!values_) return false;
    distances_ = values_.get();
    weights_ = distances_ + o_.n;
    mean = weights_ + o_.n;
    next_mean_ = mean + p;
    matrix = next_mean_ + p;
    next_matrix_ = matrix + p * p;
    inverse_ = next_matrix_ + p * p;
    return true;
  }

  // From the start in `mean` and `matrix` to the estimate there.
  int32_t run() {
    const auto p = static_cast<double>(o_.p);
    biweight_ = find_biweight(p, parameters_.breakdown, parameters_.rejection);
    loss_ = expected_loss(biweight_, p);
    double scale = 0;
    for (int64_t k = 0; k < parameters_.iterations; ++k) {
      double change = 0;
      if (const int32_t status = step(&scale, &change); status != kDone) return status;
      std::copy(next_mean_, next_mean_ + o_.p, mean);
      std::copy(next_matrix_, next_matrix_ + o_.p * o_.p, matrix);
      if (change < parameters_.accuracy) break;
    }
    return kDone;
  }

  T* mean = nullptr;
  T* matrix = nullptr;

 private:
  int32_t step(double* scale, double* change) {
    const int64_t p = o_.p, n = o_.n;
    std::copy(matrix, matrix + p * p, inverse_);
    int32_t status = check_rank(p, matrix);
    if (status == kDone) status = invert_covariance(p, inverse_);
    if (status == kDone) status = mahalanobis(o_, mean, inverse_, threading_, distances_);
    if (status != kDone) return status;
    if (*scale == 0) *scale = first_scale();
    status = solve_scale(biweight_, loss_, n, distances_, threading_, scale);
    if (status != kDone) return status;
    if (!(*scale > 0)) return kSingular;

    double squares = 0;
    status = weigh_distances(biweight_, *scale, n, distances_, threading_, weights_, &squares);
    if (status != kDone) return status;
    Weights total;
    status = scatter(o_.weighed(weights_), threading_, next_mean_, next_matrix_, &total);
    if (status != kDone) return status;
    for (int64_t k = 0; k < p * p; ++k) {
      next_matrix_[k] = static_cast<T>(static_cast<double>(next_matrix_[k]) * static_cast<double>(p) / squares);
    }
    *scale = 1;  // the new matrix has the scale in it
    *change = largest_change();
    return std::isfinite(*change) ? kDone : int32_t{kSingular};
  }

  // From the median distance.
  double first_scale() {
    std::copy(distances_, distances_ + o_.n, weights_);
    const auto median = static_cast<double>(median_of(o_.n, weights_));
    const double normal = std::sqrt(chi_square_quantile(0.5, static_cast<double>(o_.p)));
    return median > 0 && std::isfinite(median) ? median / normal : 1.0;
  }

  // Of mean and covariance, in units of the new deviations.
  double largest_change() const {
    const int64_t p = o_.p;
    auto deviation = [&](int64_t j) { return std::sqrt(static_cast<double>(next_matrix_[j * p + j])); };
    double largest = 0;
    auto compare = [&](T now, T before, double unit) {
      const double change = std::fabs(static_cast<double>(now) - static_cast<double>(before)) / unit;
      if (!(change <= largest)) largest = change;
    };
    for (int64_t j = 0; j < p; ++j) {
      compare(next_mean_[j], mean[j], deviation(j));
      for (int64_t i = 0; i <= j; ++i) {
        compare(next_matrix_[j * p + i], matrix[j * p + i], deviation(i) * deviation(j));
      }
    }
    return largest;
  }

  const Observations<T>& o_;
  const Parameters& parameters_;
  const OrvikThreading* threading_;
  Biweight biweight_ = {0, 0};
  double loss_ = 0;
  serv::Block<T> values_;
  T *distances_ = nullptr, *weights_ = nullptr, *next_mean_ = nullptr, *next_matrix_ = nullptr, *inverse_ = nullptr;
};

template <class T>
int32_t robust_covariance(OrvikSSTask handle, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task, method); status != kDone) return status;
  const Observations<T> o = Observations<T>(data_of<T>(task)).weighed(nullptr);
  Parameters parameters(o.p, o.n);
  const bool given = task.robustParameterCount != nullptr && task.integer(task.robustParameterCount) == 4 &&
                     task.robustParameters != nullptr;
  if (given) parameters.read(real<T>(task.robustParameters));
  Iteration<T> iteration(o, parameters, threading);
  if (!iteration.allocate()) return kNoMemory;
  if (const int32_t status = robust_start(o, threading, iteration.mean, iteration.matrix); status != kDone)
    return status;
  if (const int32_t status = iteration.run(); status != kDone) return status;
  std::copy(iteration.mean, iteration.mean + o.p, real<T>(task.robustMean));
  matrix_of<T>(task, task.robustCovariance, task.robustCovarianceStorage, o.p).pack(iteration.matrix);
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSRobustCovariance(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::robust_covariance<double>(task, method, threading);
}
int32_t _qorsSSRobustCovariance(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::robust_covariance<float>(task, method, threading);
}
}

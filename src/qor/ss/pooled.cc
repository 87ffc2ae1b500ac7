// Means and covariances of groups, and what is common to all: the pooled covariance, within groups.
#include <algorithm>

#include "orvik/ss.h"
#include "qor/ss/estimators.h"
#include "qor/ss/matrix.h"
#include "qor/ss/missing_field.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

// What is asked for follows from the fields that are set; with none, the pooled results.
struct Wanted {
  bool groups, pooled;

  explicit Wanted(const Task& task)
      : groups(task.groupMeans != nullptr || task.groupCovariances != nullptr ||
               task.groupCovarianceIndices != nullptr),
        pooled(!groups || task.pooledMean != nullptr || task.pooledCovariance != nullptr) {}
};

int32_t check(const Task& task, const Wanted& wanted, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if ((method & (ORVIK_SS_METHOD_FAST | ORVIK_SS_METHOD_ONE_PASS)) == 0) return kBadMethod;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.groupIndices == nullptr) return missing_field::groupIndices;
  if (wanted.pooled) {
    if (task.pooledMean == nullptr) return missing_field::pooledMean;
    if (task.pooledCovariance == nullptr) return missing_field::pooledCovariance;
    const int32_t status = check_matrix_storage_value(task, task.pooledCovarianceStorage);
    if (status != kDone) return status;
  }
  if (wanted.groups) {
    if (task.groupMeans == nullptr) return missing_field::groupMeans;
    if (task.groupCovariances == nullptr) return missing_field::groupCovariances;
    if (task.groupCovarianceIndices == nullptr) return missing_field::groupIndices;
    return check_matrix_storage_value(task, task.groupCovarianceStorage);
  }
  return kDone;
}

// The observations group by group: those of group g are order[first[g]] to order[first[g + 1] - 1].
class Groups {
 public:
  // missing_field::groupIndices for a negative index.
  int32_t sort(const Task& task, int64_t n) {
    int64_t highest = -1;
    for (int64_t i = 0; i < n; ++i) {
      const int64_t g = task.integer_at(task.groupIndices, i);
      if (g < 0 || g == INT64_MAX) return missing_field::groupIndices;
      highest = std::max(highest, g);
    }
    count = highest + 1;
    order = serv::Block<int64_t>(static_cast<uint64_t>(n));
    first = serv::Block<int64_t>(static_cast<uint64_t>(count) + 1);
    if (!order || !first) return kNoMemory;
    std::fill(first.get(), first.get() + count + 1, 0);
    for (int64_t i = 0; i < n; ++i) ++first[static_cast<uint64_t>(task.integer_at(task.groupIndices, i))];
    int64_t end = 0;
    for (int64_t g = 0; g <= count; ++g) first[static_cast<uint64_t>(g)] = end += first[static_cast<uint64_t>(g)];
    for (int64_t i = n - 1; i >= 0; --i) {
      order[static_cast<uint64_t>(--first[static_cast<uint64_t>(task.integer_at(task.groupIndices, i))])] = i;
    }
    return kDone;
  }

  const int64_t* members(int64_t g) const { return order.get() + first[static_cast<uint64_t>(g)]; }
  int64_t size(int64_t g) const { return first[static_cast<uint64_t>(g) + 1] - first[static_cast<uint64_t>(g)]; }

  int64_t count = 0;

 private:
  serv::Block<int64_t> order, first;
};

// Weights are counts here: a group's sum of products is divided by its weight less 1, and by the weight itself where
// that leaves nothing, so that one observation has the covariance 0.
double divisor(double weight, double groups) { return weight > groups ? weight - groups : weight; }

template <class T>
void write_mean(const Data<T>& d, const T* mean, T* to) {
  for (int64_t j = 0; j < d.p; ++j) {
    if (d.selected(j)) to[j] = mean[j];
  }
}
template <class T>
void write_matrix(const Data<T>& d, const T* products, double by, const Matrix<T>& to) {
  for (int64_t j = 0; j < d.p; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      if (d.selected(i) && d.selected(j)) {
        to.set(i, j, static_cast<T>(static_cast<double>(products[j * d.p + i]) / by));
      }
    }
  }
}

template <class T>
int32_t pooled_covariance(OrvikSSTask handle, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  const Wanted wanted(task);
  if (const int32_t status = check(task, wanted, method); status != kDone) return status;
  const Data<T> d = data_of<T>(task);
  const Observations<T> all(d);
  Groups groups;
  if (const int32_t status = groups.sort(task, d.n); status != kDone) return status;

  // Means and products of all groups, the weights of groups, then the sums over them.
  const int64_t p = d.p, row = p + p * p;
  const serv::Block<T> results(static_cast<uint64_t>((groups.count + 1) * row));
  const serv::Block<Weights> weights(static_cast<uint64_t>(groups.count));
  if (!results || !weights) return kNoMemory;
  T* const common = results.get() + groups.count * row;
  std::fill(common, common + row, T{0});
  double total = 0, filled = 0;
  for (int64_t g = 0; g < groups.count; ++g) {
    T *mean = results.get() + g * row, *products = mean + p;
    Weights& w = *new (&weights[static_cast<uint64_t>(g)]) Weights;
    const Observations<T> group = all.subset(groups.members(g), groups.size(g));
    if (const int32_t status = scatter(group, threading, mean, products, &w); status != kDone) return status;
    if (!(w.sum > 0)) continue;
    total += w.sum;
    filled += 1;
    for (int64_t j = 0; j < p; ++j) {
      common[j] += static_cast<T>(w.sum / total) * (mean[j] - common[j]);
    }
    for (int64_t k = 0; k < p * p; ++k) common[p + k] += products[k];
  }
  // Within groups of one nothing is left to tell a covariance from.
  if (wanted.pooled && !(total > filled)) return kBadCount;

  if (wanted.pooled) {
    write_mean(d, common, real<T>(task.pooledMean));
    write_matrix(d, common + p, total - filled,
                 matrix_of<T>(task, task.pooledCovariance, task.pooledCovarianceStorage, p));
  }
  for (int64_t g = 0; wanted.groups && g < groups.count; ++g) {
    const T* mean = results.get() + g * row;
    write_mean(d, mean, real<T>(task.groupMeans) + g * p);
    if (task.integer_at(task.groupCovarianceIndices, g) == 0) continue;
    const int64_t size = matrix_of<T>(task, task.groupCovariances, task.groupCovarianceStorage, p).size();
    write_matrix(d, mean + p, divisor(weights[static_cast<uint64_t>(g)].sum, 1),
                 matrix_of<T>(task, real<T>(task.groupCovariances) + g * size, task.groupCovarianceStorage, p));
  }
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSPooledCovariance(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::pooled_covariance<double>(task, method, threading);
}
int32_t _qorsSSPooledCovariance(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::pooled_covariance<float>(task, method, threading);
}
}

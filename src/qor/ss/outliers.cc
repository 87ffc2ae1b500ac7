// Outlier detection by blocked adaptive computationally efficient outlier nominators (Billor, Hadi and Velleman 2000):
// a small subset that is surely good grows by all that lie near it, until it stays.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/chi_square.h"
#include "qor/ss/estimators.h"
#include "qor/ss/inverse_covariance.h"
#include "qor/ss/missing_field.h"
#include "qor/ss/sort.h"
#include "qor/ss/threads.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

// Rounds after which the subset stands as it is: a small stopping fraction may let it swing between two.
constexpr int kRounds = 100;

struct Parameters {
  bool by_mahalanobis = false;  // the first subset, otherwise by distance from the medians
  double alpha = 0.05;
  double beta = 0.005;

  template <class T>
  void read(const T* values) {
    by_mahalanobis = values[0] >= 1 && values[0] < 2;
    if (values[1] >= 0 && values[1] <= 1) alpha = static_cast<double>(values[1]);
    if (values[2] > 0) beta = static_cast<double>(values[2]);
  }
};

int32_t check(const Task& task, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if (task.observationCount == nullptr || task.integer(task.observationCount) < 5 * task.p()) return kBadCount;
  if (task.observationStorage == nullptr) return kBadStorage;
  const int64_t storage = task.integer(task.observationStorage);
  if (storage != ORVIK_SS_STORAGE_ROWS && storage != ORVIK_SS_STORAGE_COLUMNS) return kBadStorage;
  if (task.outlierWeights == nullptr) return missing_field::outlierWeights;
  if (method != ORVIK_SS_METHOD_BACON) return kBadMethod;
  return check_observations(task);
}

// Distances of a good subset of k of n observations that count as near.
double cutoff(double n, double p, double k, double alpha) {
  const double h = 0.5 * (n + p) + 0.5;
  const double c = 1 + (p + 1) / (n - p) + 2 / (n - 1 - 3 * p) + std::max(0.0, (h - k) / (h + k));
  return c * std::sqrt(chi_square_quantile(1 - alpha / n, p));
}

template <class T>
class Bacon {
 public:
  Bacon(const Data<T>& d, const OrvikThreading* threading)
      : all_(d), threading_(d.n * d.p >= 10000 ? threading : nullptr) {
    counted_ = d.weights == nullptr ? d.n : d.n - std::count(d.weights, d.weights + d.n, T{0});
  }

  // Observations with a weight.
  int64_t counted() const { return counted_; }

  int32_t run(const Parameters& parameters, T* result) {
    const int64_t p = all_.p, n = all_.n;
    values_ = serv::Block<T>(static_cast<uint64_t>(2 * n + p + p * p));
    members_ = serv::Block<int64_t>(static_cast<uint64_t>(n));
    inside_ = serv::Block<bool>(static_cast<uint64_t>(n));
    if (!values_ || !members_ || !inside_) return kNoMemory;
    distances_ = values_.get();
    copy_ = distances_ + n;
    mean_ = copy_ + n;
    matrix_ = mean_ + p;
    if (const int32_t status = first_distances(parameters); status != kDone) return status;
    if (const int32_t status = choose_nearest(5 * p); status != kDone) return status;
    const double enough = parameters.beta * static_cast<double>(n);
    for (int round = 0; round < kRounds; ++round) {
      if (const int32_t status = measure(all_.weighed(nullptr).subset(members_.get(), size_)); status != kDone) {
        return status;
      }
      const double limit =
          cutoff(static_cast<double>(counted_), static_cast<double>(p), static_cast<double>(size_), parameters.alpha);
      int64_t moved = 0;
      if (const int32_t status = choose_near(limit, &moved); status != kDone) return status;
      if (static_cast<double>(moved) <= enough) break;
    }
    for (int64_t i = 0; i < n; ++i) result[i] = inside_[static_cast<uint64_t>(i)] ? T{1} : T{0};
    return kDone;
  }

 private:
  bool counts(int64_t i) const { return all_.weight(i) != 0; }

  // Distances of all observations from the mean of some, under their covariance.
  int32_t measure(const Observations<T>& some) {
    int32_t status = covariance(some, threading_, mean_, matrix_);
    if (status == kDone) status = check_rank(all_.p, matrix_);
    if (status == kDone) status = invert_covariance(all_.p, matrix_);
    if (status == kDone) status = mahalanobis(all_, mean_, matrix_, threading_, distances_);
    return status;
  }

  int32_t first_distances(const Parameters& parameters) {
    if (parameters.by_mahalanobis) return measure(all_);
    if (const int32_t status = medians(all_, threading_, mean_); status != kDone) return status;
    std::fill(matrix_, matrix_ + all_.p * all_.p, T{0});
    for (int64_t j = 0; j < all_.p; ++j) matrix_[j * all_.p + j] = 1;
    return mahalanobis(all_, mean_, matrix_, threading_, distances_);
  }

  // The first subset: the m nearest, of equally near ones those that come first.
  int32_t choose_nearest(int64_t m) {
    const int64_t n = all_.n;
    // The m least distances are among the m least of each chunk.
    const Chunks chunks(n);
    int64_t kept[Chunks::kMost];
    const int32_t status = chunks.run(threading_, [&](int32_t chunk, int64_t begin, int64_t end) {
      int64_t count = 0;
      for (int64_t i = begin; i < end; ++i) {
        if (counts(i) && distances_[i] == distances_[i]) copy_[begin + count++] = distances_[i];
      }
      if (count > m) select(copy_, begin, begin + count - 1, begin + m - 1);
      kept[chunk] = std::min(count, m);
    });
    if (status != kDone) return status;
    int64_t numbers = 0;
    for (int32_t k = 0; k < chunks.count; ++k) {
      std::copy(copy_ + chunks.first(k), copy_ + chunks.first(k) + kept[k], copy_ + numbers);
      numbers += kept[k];
    }
    const bool enough = m <= numbers;
    T limit = INFINITY;
    int64_t nearer = 0;
    if (enough) {
      select(copy_, 0, numbers - 1, m - 1);
      limit = copy_[m - 1];
      for (int64_t i = 0; i < m; ++i) nearer += copy_[i] < limit;
    }
    // Of each chunk those that are nearer, then of those as near as many as are left to it.
    int64_t members[Chunks::kMost + 1], ties[Chunks::kMost];
    const int32_t counted = chunks.run(threading_, [&](int32_t chunk, int64_t i, int64_t end) {
      int64_t below = 0, equal = 0;
      for (; i < end; ++i) {
        below += counts(i) && distances_[i] < limit;
        equal += counts(i) && distances_[i] == limit;
      }
      members[chunk + 1] = below;
      ties[chunk] = equal;
    });
    if (counted != kDone) return counted;
    members[0] = 0;
    int64_t left = enough ? m - nearer : 0;
    for (int32_t k = 0; k < chunks.count; ++k) {
      ties[k] = std::min(ties[k], left);
      left -= ties[k];
      members[k + 1] += members[k] + ties[k];
    }
    size_ = members[chunks.count];
    return chunks.run(threading_, [&](int32_t chunk, int64_t i, int64_t end) {
      int64_t at = members[chunk], equal = ties[chunk];
      for (; i < end; ++i) {
        const bool in = counts(i) && (distances_[i] < limit || (distances_[i] == limit && equal-- > 0));
        inside_[static_cast<uint64_t>(i)] = in;
        if (in) members_[static_cast<uint64_t>(at++)] = i;
      }
    });
  }

  // All that are nearer than `limit`; `moved`: how many moved in or out. What has no weight is judged, but no member.
  int32_t choose_near(double limit, int64_t* moved) {
    const Chunks chunks(all_.n);
    int64_t moves[Chunks::kMost], members[Chunks::kMost + 1];
    int32_t status = chunks.run(threading_, [&](int32_t chunk, int64_t i, int64_t end) {
      int64_t count = 0, inside = 0;
      for (; i < end; ++i) {
        const bool in = static_cast<double>(distances_[i]) < limit;
        count += in != inside_[static_cast<uint64_t>(i)];
        inside_[static_cast<uint64_t>(i)] = in;
        inside += in && counts(i);
      }
      moves[chunk] = count;
      members[chunk + 1] = inside;
    });
    if (status != kDone) return status;
    *moved = 0;
    members[0] = 0;
    for (int32_t k = 0; k < chunks.count; ++k) {
      *moved += moves[k];
      members[k + 1] += members[k];
    }
    size_ = members[chunks.count];
    return chunks.run(threading_, [&](int32_t chunk, int64_t i, int64_t) {
      // Up to the last member, since what lies behind it is the next chunk's.
      for (int64_t at = members[chunk]; at < members[chunk + 1]; ++i) {
        members_[static_cast<uint64_t>(at)] = i;
        at += inside_[static_cast<uint64_t>(i)] && counts(i);
      }
    });
  }

  const Observations<T> all_;
  const OrvikThreading* threading_;
  int64_t counted_ = 0, size_ = 0;
  serv::Block<T> values_;
  serv::Block<int64_t> members_;
  serv::Block<bool> inside_;
  T *distances_ = nullptr, *copy_ = nullptr, *mean_ = nullptr, *matrix_ = nullptr;
};

template <class T>
int32_t detect_outliers(OrvikSSTask handle, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check(task, method); status != kDone) return status;
  Parameters parameters;
  const bool given = task.outlierParameterCount != nullptr && task.integer(task.outlierParameterCount) == 3 &&
                     task.outlierParameters != nullptr;
  if (given) parameters.read(real<T>(task.outlierParameters));
  Bacon<T> bacon(data_of<T>(task), threading);
  if (bacon.counted() < 5 * task.p()) return kBadCount;
  return bacon.run(parameters, real<T>(task.outlierWeights));
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSOutliersDetection(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::detect_outliers<double>(task, method, threading);
}
int32_t _qorsSSOutliersDetection(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::detect_outliers<float>(task, method, threading);
}
}

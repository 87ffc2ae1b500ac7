// Multiple imputation of missing values: maximum likelihood, then a chain of data augmentation for each imputed set.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/matrix.h"
#include "qor/ss/missing_field.h"
#include "qor/ss/normal_model.h"
#include "qor/ss/threads.h"
#include "serv/blas.h"

namespace orvik::ss {
namespace {

constexpr uint32_t kSeed = 20260;  // first seed of every chain's generator; its number is the second

int64_t packed(int64_t p) { return p * (p + 1) / 2; }

// `imputationParameters`, and what follows from them.
struct Request {
  int64_t em_iterations, augmentations, sets, missing;
  double accuracy;

  // Parameters of a set: one block a draw, or those of maximum likelihood where nothing is drawn.
  int64_t blocks() const { return std::max<int64_t>(augmentations, 1); }

  template <class T>
  bool read(const T* values) {
    const auto count = [](T v, int64_t* to) {
      if (!(v >= 0 && v <= T(2147483520))) return false;
      *to = static_cast<int64_t>(v);
      return true;
    };
    accuracy = static_cast<double>(values[2]);
    return count(values[0], &em_iterations) && count(values[1], &augmentations) && count(values[3], &sets) &&
           count(values[4], &missing) && accuracy >= 0 && sets >= 1;
  }
};

int32_t check_lists(const Task& task, uint64_t method) {
  if (task.dimension == nullptr || task.p() < 1) return kBadDimension;
  if (task.observationStorage == nullptr) return kBadStorage;
  const int64_t storage = task.integer(task.observationStorage);
  if (storage != ORVIK_SS_STORAGE_ROWS && storage != ORVIK_SS_STORAGE_COLUMNS) return kBadStorage;
  if (task.imputationParameters == nullptr) return missing_field::imputationParameters;
  if (task.imputationParameterCount == nullptr) return missing_field::imputationParameterCount;
  if (task.integer(task.imputationParameterCount) != 5) return kBadImputationParameterCount;
  if (task.simulatedValues != nullptr && task.simulatedValueCount == nullptr) return missing_field::simulatedValueCount;
  if (task.simulatedValues == nullptr && task.simulatedValueCount != nullptr) return missing_field::simulatedValues;
  if (task.estimates != nullptr && task.estimateCount != nullptr && (method & ORVIK_SS_METHOD_IMPUTATION) == 0) {
    return kBadMethod;
  }
  if (task.estimates == nullptr && task.simulatedValues == nullptr) return kNoImputationResult;
  if (task.estimates != nullptr && task.estimateCount == nullptr) return missing_field::estimateCount;
  if (task.estimates == nullptr && task.estimateCount != nullptr) return missing_field::estimates;
  return check_observations(task);
}

// Arrays that start and prior come in: mean and packed covariance, and two numbers more of the prior.
int32_t check_given(const Task& task) {
  const int64_t p = task.p(), size = p + packed(p);
  if (task.initialEstimates != nullptr &&
      (task.initialEstimateCount == nullptr || task.integer(task.initialEstimateCount) < size)) {
    return missing_field::initialEstimateCount;
  }
  if (task.initialEstimates == nullptr && task.initialEstimateCount != nullptr) return missing_field::initialEstimates;
  if (task.prior != nullptr && (task.priorCount == nullptr || task.integer(task.priorCount) < size + 2)) {
    return missing_field::priorCount;
  }
  return task.prior == nullptr && task.priorCount != nullptr ? missing_field::prior : int32_t{kDone};
}

int32_t check_room(const Task& task, const Request& request) {
  const int64_t p = task.p(), size = p + packed(p);
  const auto least = [](double a, double b, double c) { return a * b * c; };
  if (task.simulatedValues != nullptr &&
      static_cast<double>(task.integer(task.simulatedValueCount)) <
          least(static_cast<double>(request.sets), static_cast<double>(request.missing), 1)) {
    return kBadSimulatedValueCount;
  }
  if (task.estimates != nullptr &&
      static_cast<double>(task.integer(task.estimateCount)) <
          least(static_cast<double>(request.sets), static_cast<double>(request.blocks()), static_cast<double>(size))) {
    return kBadEstimateCount;
  }
  return kDone;
}

// A packed matrix in the caller's units, the lower triangle row by row, to standardized ones.
template <class T>
void standardize(const IncompleteData& data, const T* lower, double* to) {
  for (int64_t j = 0; j < data.p(); ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      to[j * data.p() + i] = static_cast<double>(*lower++) / (data.scale(i) * data.scale(j));
    }
  }
  mirror_upper(data.p(), to);
}
template <class T>
void standardize_mean(const IncompleteData& data, const T* mean, double* to) {
  for (int64_t j = 0; j < data.p(); ++j) to[j] = (static_cast<double>(mean[j]) - data.centre(j)) / data.scale(j);
}
template <class T>
void write_estimates(const IncompleteData& data, const Normal& theta, T* to) {
  for (int64_t j = 0; j < data.p(); ++j) *to++ = static_cast<T>(data.centre(j) + data.scale(j) * theta.mean[j]);
  for (int64_t j = 0; j < data.p(); ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      *to++ = static_cast<T>(theta.covariance[j * data.p() + i] * data.scale(i) * data.scale(j));
    }
  }
}

// Parameters, completed rows and scratch of one thread.
struct Chain {
  serv::Block<double> memory;
  Normal theta;
  double* x;
  ModelScratch scratch;

  bool allocate(const IncompleteData& data) {
    const int64_t p = data.p();
    memory = serv::Block<double>(static_cast<uint64_t>(p + p * p + std::max<int64_t>(data.rows(), 1) * p));
    if (!memory || !scratch.allocate(p)) return false;
    theta = {memory.get(), memory.get() + p};
    x = memory.get() + p + p * p;
    return true;
  }
  void start(const IncompleteData& data, const Normal& from) {
    const int64_t p = data.p();
    std::copy(data.x(), data.x() + data.rows() * p, x);
    if (from.mean == theta.mean) return;
    std::copy(from.mean, from.mean + p, theta.mean);
    std::copy(from.covariance, from.covariance + p * p, theta.covariance);
  }
};

// A generator of a chain's own: a set's values do not depend on the others or on threads.
class Stream {
 public:
  explicit Stream(int64_t set) {
    const uint32_t seeds[2] = {kSeed, static_cast<uint32_t>(set)};
    status_ = __qorNewStreamEx(&stream_, ORVIK_BRNG_PHILOX4X32X10, 2, seeds);
  }
  ~Stream() {
    if (status_ == 0) __qorDeleteStream(&stream_);
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  bool made() const { return status_ == 0; }
  OrvikStream get() const { return stream_; }

 private:
  OrvikStream stream_ = nullptr;
  int32_t status_;
};

template <class T>
class Imputation {
 public:
  Imputation(const Task& task, const Request& request) : task_(task), request_(request), data_(data_of<T>(task)) {}

  int32_t run(const OrvikThreading* threading) {
    if (const int32_t status = incomplete_.load(data_, threading); status != kDone) return status;
    if (incomplete_.missing() != request_.missing) return kBadMissingCount;
    const int64_t p = data_.p, size = p + packed(p);
    serv::Block<double> prior_memory(static_cast<uint64_t>(p + p * p));
    simulated_ = serv::Block<T>(static_cast<uint64_t>(std::max<int64_t>(request_.sets * request_.missing, 1)));
    const bool asked = task_.estimates != nullptr;
    estimates_ = serv::Block<T>(static_cast<uint64_t>(asked ? request_.sets * request_.blocks() * size : 1));
    Chain first;
    if (!prior_memory || !simulated_ || !estimates_ || !first.allocate(incomplete_)) return kNoMemory;
    read_prior(prior_memory.get());
    if (const int32_t status = start(&first); status != kDone) return status;
    if (const int32_t status =
            maximize(incomplete_, request_.em_iterations, request_.accuracy, first.x, first.theta, &first.scratch);
        status != kDone) {
      return status;
    }
    if (const int32_t status = run_chains(first.theta, threading); status != kDone) return status;
    if (task_.simulatedValues != nullptr) {
      std::copy(simulated_.get(), simulated_.get() + request_.sets * request_.missing, real<T>(task_.simulatedValues));
    }
    if (task_.estimates != nullptr) {
      std::copy(estimates_.get(), estimates_.get() + request_.sets * request_.blocks() * size,
                real<T>(task_.estimates));
    }
    return kDone;
  }

 private:
  void read_prior(double* memory) {
    const T* given = real<T>(task_.prior);
    if (given == nullptr) return;
    const int64_t p = data_.p;
    standardize_mean(incomplete_, given, memory);
    standardize(incomplete_, given + p + 2, memory + p);
    prior_ = {static_cast<double>(given[p]), static_cast<double>(given[p + 1]), memory, memory + p};
  }

  // The given estimates, else the means and unit variances in the caller's units.
  int32_t start(Chain* chain) const {
    const int64_t p = data_.p;
    chain->start(incomplete_, chain->theta);
    double *mean = chain->theta.mean, *covariance = chain->theta.covariance;
    if (const T* given = real<T>(task_.initialEstimates); given != nullptr) {
      standardize_mean(incomplete_, given, mean);
      standardize(incomplete_, given + p, covariance);
    } else {
      std::fill(mean, mean + p, 0.0);
      std::fill(covariance, covariance + p * p, 0.0);
      for (int64_t j = 0; j < p; ++j) covariance[j * p + j] = 1 / (incomplete_.scale(j) * incomplete_.scale(j));
    }
    std::copy(covariance, covariance + p * p, chain->scratch.a);
    return factor('L', p, chain->scratch.a) ? kDone : int32_t{kBlockSingular};
  }

  int32_t run_chains(const Normal& likeliest, const OrvikThreading* threading) {
    const auto threads = static_cast<int32_t>(std::min<int64_t>(max_threads(threading), request_.sets));
    return run_threads(threading, threads, [&](int32_t thread) {
      Chain chain;
      if (!chain.allocate(incomplete_)) return int32_t{kNoMemory};
      for (int64_t set = thread; set < request_.sets; set += threads) {
        chain.start(incomplete_, likeliest);
        if (const int32_t status = run_chain(set, &chain); status != kDone) return status;
      }
      return int32_t{kDone};
    });
  }

  // Without augmentations the missing values are drawn once, given the parameters of maximum likelihood.
  int32_t run_chain(int64_t set, Chain* chain) {
    const Stream stream(set);
    if (!stream.made()) return kNoMemory;
    const int64_t size = data_.p + packed(data_.p);
    for (int64_t k = 0; k < request_.blocks(); ++k) {
      int32_t status = impute(incomplete_, chain->theta, stream.get(), chain->x, &chain->scratch);
      if (status == kDone && request_.augmentations > 0) {
        status = draw_parameters(incomplete_, prior_, chain->x, stream.get(), chain->theta, &chain->scratch);
      }
      if (status != kDone) return status;
      if (task_.estimates == nullptr) continue;
      write_estimates(incomplete_, chain->theta, estimates_.get() + (set * request_.blocks() + k) * size);
    }
    incomplete_.write_missing(chain->x, simulated_.get() + set * request_.missing);
    return kDone;
  }

  const Task& task_;
  const Request request_;
  const Data<T> data_;
  IncompleteData incomplete_;
  Prior prior_;
  serv::Block<T> simulated_, estimates_;
};

template <class T>
int32_t missing_values(OrvikSSTask handle, uint64_t method, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (const int32_t status = check_lists(task, method); status != kDone) return status;
  if (const int32_t status = check_given(task); status != kDone) return status;
  Request request;
  if (!request.read(real<T>(task.imputationParameters))) return kBadImputationParameters;
  if (const int32_t status = check_room(task, request); status != kDone) return status;
  if (!serv::blas::load()) return kNoMemory;
  return Imputation<T>(task, request).run(threading);
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSMissingValues(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::missing_values<double>(task, method, threading);
}
int32_t _qorsSSMissingValues(OrvikSSTask task, uint64_t, uint64_t method, const OrvikThreading* threading) {
  return orvik::ss::missing_values<float>(task, method, threading);
}
}

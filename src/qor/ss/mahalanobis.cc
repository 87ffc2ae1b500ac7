// Mahalanobis distances of observations.
#include <algorithm>
#include <cmath>

#include "orvik/ss.h"
#include "qor/ss/task.h"
#include "qor/ss/threads.h"
#include "serv/blas.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

constexpr int64_t kRows = 2048;  // observations of a block

// d' M d for few variables, without the matrix kernel.
template <class T, int P>
T square(const T* m, const T* d) {
  T sum = 0;
  for (int i = 0; i < P; ++i) {
    T row = 0;
    for (int j = 0; j < P; ++j) row += m[i * P + j] * d[j];
    sum += row * d[i];
  }
  return sum;
}

template <class T>
void squares(int64_t p, int64_t m, const T* inverse, const T* deviations, T* products, T* out) {
  if (p > 3) {
    serv::blas::symm('L', 'L', static_cast<int32_t>(p), static_cast<int32_t>(m), T{1}, inverse, static_cast<int32_t>(p),
                     deviations, static_cast<int32_t>(p), T{0}, products, static_cast<int32_t>(p));
  }
  for (int64_t i = 0; i < m; ++i) {
    const T* d = deviations + i * p;
    switch (p) {
      case 1:
        out[i] = square<T, 1>(inverse, d);
        break;
      case 2:
        out[i] = square<T, 2>(inverse, d);
        break;
      case 3:
        out[i] = square<T, 3>(inverse, d);
        break;
      default: {
        T sum = 0;
        for (int64_t j = 0; j < p; ++j) sum += d[j] * products[i * p + j];
        out[i] = sum;
      }
    }
  }
}

template <class T>
int32_t distances(OrvikSSTask handle, int64_t p, const T* inverse, T* results, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<Task*>(handle);
  if (p < 1) return kBadDimension;
  if (const int32_t status = check_observations(task); status != kDone) return status;
  if (const int32_t status = check_storage(task); status != kDone) return status;
  if (task.mean == nullptr) return kNoMean;
  if (p > 3 && !serv::blas::load()) return kNoMemory;
  Data<T> d = data_of<T>(task);
  d.p = p;
  const T* mean = real<T>(task.mean);
  const int64_t blocks = (d.n + kRows - 1) / kRows;
  const int32_t threads = static_cast<int32_t>(std::min<int64_t>(max_threads(threading), blocks));
  const int64_t size = std::min(kRows, d.n) * p * (p > 3 ? 2 : 1);
  const serv::Block<T> scratch(static_cast<uint64_t>(size * threads));
  if (!scratch) return kNoMemory;
  return run_threads(threading, threads, [&](int32_t thread) {
    T* deviations = scratch.get() + size * thread;
    for (int64_t block = blocks * thread / threads; block < blocks * (thread + 1) / threads; ++block) {
      const int64_t i0 = block * kRows, m = std::min(kRows, d.n - i0);
      for (int64_t i = 0; i < m; ++i) {
        const T* x = d.x + (i0 + i) * d.observation_step();
        for (int64_t j = 0; j < p; ++j) deviations[i * p + j] = x[j * d.variable_step()] - mean[j];
      }
      squares(p, m, inverse, deviations, deviations + m * p, results + i0);
      for (int64_t i = i0; i < i0 + m; ++i) results[i] = std::sqrt(results[i]);
    }
    return int32_t{kDone};
  });
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t _qordSSMahDistance(OrvikSSTask task, int64_t p, const double* inverse, double* results,
                           const OrvikThreading* threading) {
  return orvik::ss::distances(task, p, inverse, results, threading);
}
int32_t _qorsSSMahDistance(OrvikSSTask task, int64_t p, const float* inverse, float* results,
                           const OrvikThreading* threading) {
  return orvik::ss::distances(task, p, inverse, results, threading);
}
}

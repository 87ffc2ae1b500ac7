// What the tests of data fitting share: a task that cleans up after itself, thread tables, both real types.
#ifndef ORVIK_TESTS_DF_SUPPORT_H
#define ORVIK_TESTS_DF_SUPPORT_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <thread>
#include <type_traits>
#include <vector>

#include "orvik/df.h"

namespace orvik::df::test {

// The d and s entries under one name.
template <class Real>
struct Entries;

#define ORVIK_TEST_ENTRIES(Real, p, C)                                                 \
  template <>                                                                          \
  struct Entries<Real> {                                                               \
    using SearchCallback = OrvikDFSearchCallback##C;                                   \
    using Callback = OrvikDFInterpolateCallback##C;                                    \
    static constexpr auto make = orvik_df_kernel_##p##NewTask1D;                       \
    static constexpr auto edit_pointer = orvik_df_kernel_##p##EditPtr;                 \
    static constexpr auto edit_row = orvik_df_kernel_##p##EditIdxPtr;                  \
    static constexpr auto edit_spline = orvik_df_kernel_##p##EditPPSpline1D;           \
    static constexpr auto query_pointer = orvik_df_kernel_##p##QueryPtr;               \
    static constexpr auto query_row = orvik_df_kernel_##p##QueryIdxPtr;                \
    static constexpr auto linear = orvik_df_kernel_##p##DFLinearSpline1D;              \
    static constexpr auto quadratic = orvik_df_kernel_##p##DFQuadraticSpline1D;        \
    static constexpr auto default_cubic = orvik_df_kernel_##p##DFDefaultCubicSpline1D; \
    static constexpr auto natural = orvik_df_kernel_##p##DFNaturalCubicSpline1D;       \
    static constexpr auto hermite = orvik_df_kernel_##p##DFHermiteCubicSpline1D;       \
    static constexpr auto bessel = orvik_df_kernel_##p##DFBesselCubicSpline1D;         \
    static constexpr auto akima = orvik_df_kernel_##p##DFAkimaCubicSpline1D;           \
    static constexpr auto hyman = orvik_df_kernel_##p##DFHymanCubicSpline1D;           \
    static constexpr auto search = orvik_df_kernel_##p##DFSearch1D;                    \
    static constexpr auto interpolate = orvik_df_kernel_##p##DFInterpolate1D;          \
    using IntegralCallback = OrvikDFIntegrateCallback##C;                              \
    static constexpr auto integrate = orvik_df_kernel_##p##DFIntegrate1D;              \
  };
ORVIK_TEST_ENTRIES(double, d, D)
ORVIK_TEST_ENTRIES(float, s, S)
#undef ORVIK_TEST_ENTRIES

using Construct = int32_t (*)(OrvikDFTask, int64_t, int64_t, const OrvikDFServices*);

// A task that is deleted at the end of its scope.
class OwnedTask {
 public:
  OwnedTask() = default;
  OwnedTask(const OwnedTask&) = delete;
  OwnedTask& operator=(const OwnedTask&) = delete;
  ~OwnedTask() {
    if (task_ != nullptr) orvik_df_kernel_DeleteTask(&task_);
  }
  OrvikDFTask* out() { return &task_; }
  operator OrvikDFTask() const { return task_; }

 private:
  OrvikDFTask task_ = nullptr;
};

// Thread tables: a loop on the calling thread that claims N threads, and real threads.
template <int64_t kThreads>
struct LoopServices {
  static inline int64_t calls = 0, last_count = 0, last_threads = 0;
  static int32_t run(int64_t count, int64_t threads, void* arguments, OrvikDFBody body) {
    ++calls, last_count = count, last_threads = threads;
    int32_t first = 0;
    for (int64_t i = count - 1; i >= 0; --i) {  // backward: no body may rely on an order
      const int32_t status = body(i, i % threads, threads, arguments);
      if (status < 0 && first == 0) first = status;
    }
    return first;
  }
  static int64_t max() { return kThreads; }
  static inline const OrvikDFServices table = {run, {nullptr, nullptr, nullptr}, max, {nullptr, nullptr, nullptr}};
};

template <int64_t kThreads>
struct ThreadServices {
  static int32_t run(int64_t count, int64_t threads, void* arguments, OrvikDFBody body) {
    std::vector<std::thread> pool;
    std::vector<int32_t> status(static_cast<size_t>(threads), 0);
    for (int64_t t = 0; t < threads; ++t) {
      pool.emplace_back([=, &status] {
        for (int64_t i = t; i < count; i += threads) {
          const int32_t s = body(i, t, threads, arguments);
          if (s < 0 && status[static_cast<size_t>(t)] == 0) status[static_cast<size_t>(t)] = s;
        }
      });
    }
    for (auto& thread : pool) thread.join();
    for (int32_t s : status) {
      if (s < 0) return s;
    }
    return 0;
  }
  static int64_t max() { return kThreads; }
  static inline const OrvikDFServices table = {run, {nullptr, nullptr, nullptr}, max, {nullptr, nullptr, nullptr}};
};

// A strictly ascending partition with widely differing steps.
template <class Real>
std::vector<Real> ragged_partition(int64_t nx, uint32_t seed = 7) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> step(0.05, 1.0);
  std::vector<Real> x(static_cast<size_t>(nx));
  double at = -3;
  for (auto& v : x) v = static_cast<Real>(at), at += step(random);
  return x;
}

template <class Real>
std::vector<Real> random_values(int64_t n, uint32_t seed = 11) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> value(-2, 2);
  std::vector<Real> y(static_cast<size_t>(n));
  for (auto& v : y) v = static_cast<Real>(value(random));
  return y;
}

using Reals = ::testing::Types<double, float>;

}  // namespace orvik::df::test

#endif

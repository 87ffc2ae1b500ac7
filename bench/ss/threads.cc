// Two threads against one, where work goes parallel; stream quantiles. Units: one value.
#include <immintrin.h>

#include <functional>

#include "ss/rounds.h"
#include "ss/task.h"
#include "ss/two_threads.h"

namespace orvik::bench {
namespace {

// Reads the values from `begin` to `end` and keeps what the compiler cannot drop.
void read(const double* begin, const double* end) {
  __m256d s[8] = {};
  for (; begin + 32 <= end; begin += 32) {
    for (int k = 0; k < 8; ++k) s[k] = _mm256_or_pd(s[k], _mm256_loadu_pd(begin + 4 * k));
  }
  for (int k = 1; k < 8; ++k) s[0] = _mm256_or_pd(s[0], s[k]);
  asm volatile("" : : "x"(s[0]));
}

}  // namespace

void two_threads() {
  constexpr int64_t kCount = 10'000'000, kP = 10;
  const auto x = normal_values(kCount);
  // A part that stays in the caches, where memory does not limit two threads.
  constexpr int64_t kPart = 200'000, kCalls = kCount / kPart;
  Task task_in_cache(kP, kPart / kP, ORVIK_SS_STORAGE_COLUMNS, x.data());
  Task task(kP, kCount / kP, ORVIK_SS_STORAGE_COLUMNS, x.data());
  constexpr uint64_t kVariance = ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_MOMENT2;
  constexpr uint64_t kFour = ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS;
  auto pair = [&](const char* what, auto run) {
    compare(what, kCount, {{"", [&] { run(pair_of_threads()); }}, {"one thread", [&] { run(nullptr); }}}, 9);
  };
  // What the memory itself gives to two threads.
  pair("two threads: reading memory", [&](const OrvikThreading* t) {
    const double *begin = x.data(), *end = begin + kCount, *middle = t == nullptr ? end : begin + kCount / 2;
    const double* const parts[] = {begin, middle, end};
    const std::function<void(int32_t)> part = [&](int32_t k) { read(parts[k], parts[k + 1]); };
    if (t == nullptr) return read(begin, end);
    auto* context = const_cast<std::function<void(int32_t)>*>(&part);
    t->run(2, context,
           [](int32_t k, int32_t, int32_t, void* c) { (*static_cast<std::function<void(int32_t)>*>(c))(k); });
  });
  pair("two threads: mean, variance, fast", [&](const OrvikThreading* t) { task.basic(kVariance, 1, t); });
  pair("two threads: four moments, one pass", [&](const OrvikThreading* t) { task.basic(kFour, 2, t); });
  pair("two threads: four moments, fast", [&](const OrvikThreading* t) { task.basic(kFour, 1, t); });
  const auto repeat = [&](uint64_t estimates, uint64_t method, const OrvikThreading* t) {
    for (int64_t k = 0; k < kCalls; ++k) task_in_cache.basic(estimates, method, t);
  };
  pair("two threads: mean, variance, fast, in cache", [&](const OrvikThreading* t) { repeat(kVariance, 1, t); });
  pair("two threads: four moments, one pass, in cache", [&](const OrvikThreading* t) { repeat(kFour, 2, t); });
  pair("two threads: four moments, fast, in cache", [&](const OrvikThreading* t) { repeat(kFour, 1, t); });
  pair("two threads: covariance", [&](const OrvikThreading* t) { task.basic(ORVIK_SS_COVARIANCE, 1, t); });
  pair("two threads: medians",
       [&](const OrvikThreading* t) { _qordSSQuantiles(task.get(), ORVIK_SS_QUANTILES, 1, t); });
}

void stream() {
  constexpr int64_t kCount = 10'000'000;
  const auto x = normal_values(kCount);
  std::vector<double> work;
  for (double epsilon : {0.01, 0.001}) {
    const int64_t one = 1;
    const double order = 0.5;
    double result;
    char what[64];
    snprintf(what, sizeof what, "stream quantiles, epsilon = %g", epsilon);
    compare(what, kCount,
            {{"",
              [&] {
                Task task(1, kCount, ORVIK_SS_STORAGE_ROWS, x.data());
                __qordSSEditStreamQuantiles(task.get(), &one, &order, &result, &one, &epsilon);
                _qordSSStreamQuantiles(task.get(), 0, 0, nullptr);
                __qorSQuantilesFreeBuffers(task.get());
              }},
             {"full sort by order statistics",
              [&] {
                work.resize(kCount);
                Task task(1, kCount, ORVIK_SS_STORAGE_ROWS, x.data());
                const int64_t rows = ORVIK_SS_STORAGE_ROWS;
                __qordSSEditTask(task.get(), OrvikSS_orderStatistics, work.data());
                __qoriSSEditTask(task.get(), OrvikSS_orderStatisticsStorage, &rows);
                _qordSSQuantiles(task.get(), ORVIK_SS_ORDER_STATISTICS, 1, nullptr);
              }}},
            5);
  }
}

}  // namespace orvik::bench

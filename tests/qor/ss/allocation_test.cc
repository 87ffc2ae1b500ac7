// Memory that runs out at every point: -4000, nothing leaked, and the next call works.
#include <gtest/gtest.h>

#include <functional>

#include "qor/ss/support.h"
#include "serv/memory.h"

namespace orvik::ss::test {
namespace {

// Fails the first, second, third ... allocation of `call` until it succeeds. Returns how many failed.
int fail_each_allocation(const std::function<int32_t()>& call) {
  for (int fail = 1; fail < 100; ++fail) {
    const int64_t live = serv::live_allocations();
    serv::fail_allocation_after(fail);
    const int32_t status = call();
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), live) << "allocation " << fail;
    if (status == 0) return fail - 1;
    EXPECT_EQ(status, -4000) << "allocation " << fail;
  }
  ADD_FAILURE() << "never succeeded";
  return -1;
}

struct Fixture {
  static constexpr int64_t p = 40, n = 3000;
  Sample<double> sample = random_sample<double>(p, n);
  std::vector<double> row[24], matrix[3], accumulated = std::vector<double>(2);
  TaskOver<double> task;

  explicit Fixture(bool weighted) {
    EXPECT_EQ(task.make(p, n, 0x20000, sample.columns.data(), weighted ? sample.weights.data() : nullptr), 0);
    for (auto& r : row) r.assign(p * 4, 0);
    for (auto& m : matrix) m.assign(p * p, 0);
    const int32_t ids[] = {7, 8, 9, 10, 11, 12, 13, 14, 15, 18, 67, 68, 69, 70, 71, 72, 73, 76, 77, 26};
    for (int k = 0; k < 20; ++k) task.set(ids[k], row[k]);
    task.set(OrvikSS_covariance, matrix[0]);
    task.set(OrvikSS_correlation, matrix[1]);
    task.set(OrvikSS_crossProduct, matrix[2]);
    task.set_integer(OrvikSS_covarianceStorage, 1);
    task.set_integer(OrvikSS_correlationStorage, 2);
    task.set_integer(OrvikSS_crossProductStorage, 1);
    task.set(OrvikSS_accumulatedWeights, accumulated);
  }
};

TEST(ExhaustedMemory, InMomentsAndCovariance) {
  for (bool weighted : {false, true}) {
    for (uint64_t method : {0x1, 0x2, 0x100}) {
      for (int count : {0, 4}) {
        Fixture f(weighted);
        // A user's mean keeps a row in the task from the first call on; a call before keeps the balance even.
        if (method == 0x100) {
          ASSERT_EQ(_qordSSBasic(f.task.get(), ORVIK_SS_MEAN, method, nullptr), 0);
        }
        const int failed = fail_each_allocation([&] {
          f.accumulated = {0, 0};
          return _qordSSBasic(f.task.get(), 0x1FE0033FF, method, threads(count));
        });
        EXPECT_GE(failed, count == 0 ? 1 : 2);
      }
    }
  }
}

TEST(ExhaustedMemory, OfTheUsersMean) {
  Fixture f(false);
  serv::fail_allocation_after(2);
  EXPECT_EQ(_qordSSBasic(f.task.get(), 0x1FE0033FF, 0x100, nullptr), -4000);
  serv::fail_allocation_after(0);
  EXPECT_EQ(_qordSSBasic(f.task.get(), 0x1FE0033FF, 0x100, nullptr), 0);
}

TEST(ExhaustedMemory, InFinishOnly) {
  Fixture f(false);
  f.accumulated = {3000, 3000};
  EXPECT_EQ(fail_each_allocation([&] { return _qordSSBasic(f.task.get(), 0x33FF, 0x400, nullptr); }), 1);
}

TEST(ExhaustedMemory, LeavesTheResultsOfMomentsUntouched) {
  Fixture f(false);
  ASSERT_EQ(_qordSSBasic(f.task.get(), 0x1FE0033FF, 1, nullptr), 0);
  const auto mean = f.row[0], accumulated = f.accumulated;
  serv::fail_allocation_after(1);
  ASSERT_EQ(_qordSSBasic(f.task.get(), 0x1FE0033FF, 1, nullptr), -4000);
  serv::fail_allocation_after(0);
  EXPECT_EQ(f.row[0], mean);
  EXPECT_EQ(f.accumulated, accumulated);
}

TEST(ExhaustedMemory, InEstimatorsByVariable) {
  Fixture f(true);
  std::vector<double> orders = {0.5, 0.9}, sorted(Fixture::p * Fixture::n);
  f.task.set_integer(OrvikSS_quantileOrderCount, 2);
  f.task.set(OrvikSS_quantileOrders, orders);
  f.task.set(OrvikSS_orderStatistics, sorted);
  f.task.set_integer(OrvikSS_orderStatisticsStorage, 0x10000);
  f.task.set(OrvikSS_sortedObservations, sorted);
  f.task.set_integer(OrvikSS_sortedStorage, 0x20000);
  std::vector<double> inverse(Fixture::p * Fixture::p, 1.0), distances(Fixture::n);
  const OrvikSSTask t = f.task.get();
  for (int count : {0, 3}) {
    const auto* table = threads(count);
    EXPECT_EQ(fail_each_allocation([&] { return _qordSSQuantiles(t, ORVIK_SS_QUANTILES, 1, table); }), 1);
    EXPECT_EQ(fail_each_allocation([&] { return _qordSSQuantiles(t, 0x30000, 1, table); }), 1);
    EXPECT_EQ(fail_each_allocation([&] { return _qordSSMAD(t, 0x600000000, 1, table); }), 1);
    EXPECT_EQ(fail_each_allocation([&] { return _qordSSWMedian(t, 0, 0, table); }), 1);
    EXPECT_EQ(fail_each_allocation([&] { return _qordSSSort(t, 0, ORVIK_SS_METHOD_SORT, table); }), 1);
    EXPECT_EQ(fail_each_allocation(
                  [&] { return _qordSSMahDistance(t, Fixture::p, inverse.data(), distances.data(), table); }),
              1);
  }
}

}  // namespace
}  // namespace orvik::ss::test

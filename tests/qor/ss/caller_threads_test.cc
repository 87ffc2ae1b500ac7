// Threads of the caller that fail: every estimator that is handed them ends with a status, and never with status 0 and
// results of a part of the data.
#include <gtest/gtest.h>

#include <cmath>

#include "qor/ss/estimators.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

using Routine = void (*)(int32_t, int32_t, int32_t, void*);

int32_t four() { return 4; }
constexpr OrvikThreading kFails = {four, [](int32_t, void*, Routine) { return int32_t{-77}; }};
constexpr OrvikThreading kFailsAfterHalf = {four, [](int32_t t, void* c, Routine routine) {
                                              for (int32_t k = 0; k < t / 2; ++k) routine(k, 0, t, c);
                                              return int32_t{5};
                                            }};
constexpr OrvikThreading kSilentlyRunsTooFew = {four, [](int32_t t, void* c, Routine routine) {
                                                  for (int32_t k = 0; k < t - 1; ++k) routine(k, 0, t, c);
                                                  return int32_t{0};
                                                }};
constexpr OrvikThreading kRunsEachTwice = {four, [](int32_t t, void* c, Routine routine) {
                                             for (int32_t k = 0; k < 2 * t; ++k) routine(k / 2, 0, t, c);
                                             return int32_t{0};
                                           }};

struct Fixture {
  static constexpr int64_t kP = 8, kN = 40000;
  Sample<double> sample = random_sample<double>(kP, kN);
  std::vector<double> mean = std::vector<double>(kP), row = std::vector<double>(4 * kP),
                      matrix = std::vector<double>(kP * kP), accumulated = std::vector<double>(2),
                      sorted = std::vector<double>(kP * kN), orders = {0.25, 0.5};
  TaskOver<double> task;

  Fixture() {
    EXPECT_EQ(task.make(kP, kN, 0x20000, sample.columns.data(), sample.weights.data()), 0);
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_rawMoment2, row);
    task.set(OrvikSS_covariance, matrix);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    task.set(OrvikSS_accumulatedWeights, accumulated);
    task.set(OrvikSS_quantiles, row);
    task.set(OrvikSS_quantileOrders, orders);
    task.set_integer(OrvikSS_quantileOrderCount, 2);
    task.set(OrvikSS_medianAbsDeviation, row);
    task.set(OrvikSS_sortedObservations, sorted);
    task.set_integer(OrvikSS_sortedStorage, 0x10000);
    task.set(OrvikSS_streamQuantiles, row);
    task.set(OrvikSS_streamOrders, orders);
    task.set_integer(OrvikSS_streamOrderCount, 2);
    task.set_integer(OrvikSS_streamParameterCount, 1);
    task.set(OrvikSS_streamParameters, epsilon);
  }
  std::vector<double> epsilon = {0.1};
};

// The estimators of data that are not clean. Imputation takes a part of the observations, some values of which it
// lacks.
std::vector<int32_t> statuses_of_robust(const OrvikThreading* table) {
  Fixture f;
  const OrvikSSTask t = f.task.get();
  std::vector<double> good(Fixture::kN), parameters = {2, 1, 0.1, 4, 50}, simulated(200);
  std::vector<int32_t> group(Fixture::kN);
  for (int64_t i = 0; i < Fixture::kN; ++i) group[i] = static_cast<int32_t>(i % 2);
  f.task.set(OrvikSS_outlierWeights, good);
  f.task.set(OrvikSS_robustMean, f.row);
  f.task.set(OrvikSS_robustCovariance, f.matrix);
  f.task.set_integer(OrvikSS_robustCovarianceStorage, 0);
  __qoriSSEditTask(t, OrvikSS_groupIndices, group.data());
  f.task.set(OrvikSS_pooledMean, f.row);
  f.task.set(OrvikSS_pooledCovariance, f.matrix);
  f.task.set_integer(OrvikSS_pooledCovarianceStorage, 0);
  f.task.set(OrvikSS_imputationParameters, parameters);
  f.task.set_integer(OrvikSS_imputationParameterCount, 5);
  f.task.set(OrvikSS_simulatedValues, simulated);
  f.task.set_integer(OrvikSS_simulatedValueCount, 200);
  std::vector<int32_t> all = {_qordSSOutliersDetection(t, 0, ORVIK_SS_METHOD_BACON, table),
                              _qordSSRobustCovariance(t, 0, ORVIK_SS_METHOD_ROBUST, table),
                              _qordSSPooledCovariance(t, 0, ORVIK_SS_METHOD_ONE_PASS, table)};
  for (int64_t i = 0; i < 50; ++i) f.sample.columns[i * 37 * Fixture::kP + i % Fixture::kP] = -std::nan("");
  all.push_back(_qordSSMissingValues(t, 0, ORVIK_SS_METHOD_IMPUTATION, table));
  return all;
}

// Every entry that takes threads.
std::vector<int32_t> statuses(const OrvikThreading* table) {
  Fixture f;
  const OrvikSSTask t = f.task.get();
  std::vector<double> distances(Fixture::kN);
  std::vector<int32_t> all;
  for (uint64_t method : {0x1, 0x2, 0x100}) {
    f.accumulated = {0, 0};
    all.push_back(_qordSSBasic(t, ORVIK_SS_MEAN, method, table));
    f.accumulated = {0, 0};
    all.push_back(_qordSSBasic(t, ORVIK_SS_COVARIANCE, method, table));
  }
  all.push_back(_qordSSQuantiles(t, ORVIK_SS_QUANTILES, 1, table));
  all.push_back(_qordSSMAD(t, ORVIK_SS_MEDIAN_ABS_DEVIATION, 1, table));
  all.push_back(_qordSSWMedian(t, 0, 0, table));
  all.push_back(_qordSSSort(t, 0, ORVIK_SS_METHOD_SORT, table));
  all.push_back(_qordSSStreamQuantiles(t, 0, 0, table));
  all.push_back(_qordSSMahDistance(t, Fixture::kP, f.matrix.data(), distances.data(), table));
  const Observations<double> o(data_of<double>(*static_cast<const Task*>(t)));
  Weights total;
  all.push_back(scatter(o, table, f.mean.data(), f.matrix.data(), &total));
  const auto robust = statuses_of_robust(table);
  all.insert(all.end(), robust.begin(), robust.end());
  return all;
}

TEST(CallersThreads, ThatFailEndTheCallWithTheirStatus) {
  for (int32_t status : statuses(&kFails)) EXPECT_EQ(status, -77);
  for (int32_t status : statuses(&kFailsAfterHalf)) EXPECT_EQ(status, 5);
}

TEST(CallersThreads, ThatRunFewerBodiesThanAskedEndTheCallWithAStatus) {
  for (int32_t status : statuses(&kSilentlyRunsTooFew)) EXPECT_EQ(status, -4000);
}

TEST(CallersThreads, ThatFailLeaveTheSumsOfWeightsOfTheRunAsTheyWere) {
  Fixture f;
  ASSERT_EQ(_qordSSBasic(f.task.get(), ORVIK_SS_MEAN, 1, nullptr), 0);
  const auto accumulated = f.accumulated, mean = f.mean;
  for (const auto* table : {&kFails, &kFailsAfterHalf, &kSilentlyRunsTooFew}) {
    EXPECT_NE(_qordSSBasic(f.task.get(), ORVIK_SS_MEAN, 1, table), 0);
    EXPECT_EQ(f.accumulated, accumulated);
    EXPECT_EQ(f.mean, mean);
  }
}

TEST(CallersThreads, ThatFailLeaveNoMeanOfTheUserBehind) {
  Fixture a, b;
  ASSERT_EQ(_qordSSBasic(a.task.get(), ORVIK_SS_MEAN, 1, nullptr), 0);
  ASSERT_EQ(_qordSSBasic(b.task.get(), ORVIK_SS_MEAN, 1, nullptr), 0);
  EXPECT_NE(_qordSSBasic(a.task.get(), ORVIK_SS_COVARIANCE, 0x100, &kFails), 0);
  ASSERT_EQ(_qordSSBasic(a.task.get(), ORVIK_SS_COVARIANCE, 0x100, nullptr), 0);
  a.matrix.assign(a.matrix.size(), 0);
  b.matrix.assign(b.matrix.size(), 0);
  a.accumulated = b.accumulated = {0, 0};
  ASSERT_EQ(_qordSSBasic(a.task.get(), ORVIK_SS_COVARIANCE, 0x100, nullptr), 0);
  ASSERT_EQ(_qordSSBasic(b.task.get(), ORVIK_SS_COVARIANCE, 0x100, nullptr), 0);
  EXPECT_EQ(a.matrix, b.matrix);
}

TEST(CallersThreads, ThatRunABodyTwiceCountNothingTwice) {
  for (int32_t status : statuses(&kRunsEachTwice)) EXPECT_EQ(status, 0);
  Fixture a, b;
  ASSERT_EQ(_qordSSBasic(a.task.get(), ORVIK_SS_MEAN, 2, &kRunsEachTwice), 0);
  ASSERT_EQ(_qordSSBasic(b.task.get(), ORVIK_SS_MEAN, 2, threads(4)), 0);
  EXPECT_EQ(a.mean, b.mean);
  EXPECT_EQ(a.accumulated, b.accumulated);
}

}  // namespace
}  // namespace orvik::ss::test

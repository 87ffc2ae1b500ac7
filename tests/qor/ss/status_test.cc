// Every status in its order, and no write before the last check.
#include <gtest/gtest.h>

#include <limits>

#include "qor/ss/support.h"
#include "qor/ss/task.h"

namespace orvik::ss::test {
namespace {

constexpr double kOld = -77.5;

// A task in which nothing is set but the dimension; fields are set one by one to see the next status.
struct Bare {
  int32_t p = 2, n = 3, rows = 0x10000, bad = 0, full = 0;
  std::vector<double> x = {1, 2, 4, 3, 5, 9};
  std::vector<double> out = std::vector<double>(64, kOld);
  OrvikSSTask task = nullptr;
  Bare() { EXPECT_EQ(__qordSSNewTask(&task, &p, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0); }
  ~Bare() { __qorSSDeleteTask(&task); }
  void real(int32_t id) { EXPECT_EQ(__qordSSEditTask(task, id, out.data()), 0); }
  void real(int32_t id, const double* value) { EXPECT_EQ(__qordSSEditTask(task, id, value), 0); }
  void integer(int32_t id, const int32_t* value) { EXPECT_EQ(__qoriSSEditTask(task, id, value), 0); }
  void expect_untouched() const {
    for (double v : out) ASSERT_EQ(v, kOld);
  }
};

TEST(BasicStatus, MethodMustHaveExactlyOnePrimaryBit) {
  Bare b;
  for (uint64_t method : {0x0, 0x3, 0x101, 0x102, 0x103, 0x4, 0x8, 0x203}) {
    EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, method, nullptr), -4029) << method;
  }
  for (uint64_t method : {0x1, 0x2, 0x100, 0x201, 0x402}) {
    EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, method, nullptr), -4006) << method;
  }
  for (uint64_t method : {0x200, 0x400, 0x600}) {
    EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, method, nullptr), -4006) << method;
  }
  EXPECT_EQ(_qordSSBasic(nullptr, ORVIK_SS_MEAN, 1, nullptr), -4031);
}

// Sets the missing outputs of a request one after another; each must be asked for by its status, in this order.
void expect_outputs_in_order(uint64_t estimates, uint64_t method,
                             const std::vector<std::pair<int32_t, int32_t>>& status_and_id) {
  Bare b;
  for (const auto& [status, id] : status_and_id) {
    ASSERT_EQ(_qordSSBasic(b.task, estimates, method, nullptr), status) << std::hex << estimates << " " << method;
    b.real(id);
  }
  const int32_t next = _qordSSBasic(b.task, estimates, method, nullptr);
  EXPECT_EQ(next, method >= 0x200 ? -4020 : -4002) << "outputs are all there: the data comes next";
  b.expect_untouched();
}

TEST(BasicStatus, EachEstimateAsksForWhatItNeedsInTheOrderOfTheTable) {
  using I = OrvikSSField;
  const std::pair<int32_t, int32_t> mean{-4006, I::OrvikSS_mean}, r2{-4007, I::OrvikSS_rawMoment2},
      r3{-4008, I::OrvikSS_rawMoment3}, r4{-4009, I::OrvikSS_rawMoment4}, c2{-4010, I::OrvikSS_centralMoment2},
      c3{-4011, I::OrvikSS_centralMoment3}, c4{-4012, I::OrvikSS_centralMoment4}, cov{-4018, I::OrvikSS_covariance},
      cor{-4019, I::OrvikSS_correlation}, kurtosis{-4013, I::OrvikSS_kurtosis}, skewness{-4014, I::OrvikSS_skewness},
      variation{-4017, I::OrvikSS_variation}, sum{-4074, I::OrvikSS_sum}, s2{-4075, I::OrvikSS_rawSum2},
      s3{-4076, I::OrvikSS_rawSum3}, s4{-4077, I::OrvikSS_rawSum4}, cs2{-4078, I::OrvikSS_centralSum2},
      cs3{-4079, I::OrvikSS_centralSum3}, cs4{-4080, I::OrvikSS_centralSum4}, cp{-4081, I::OrvikSS_crossProduct};
  for (uint64_t method : {0x1, 0x2, 0x100}) {
    const bool fast = method == 1;
    expect_outputs_in_order(ORVIK_SS_MEAN, method, {mean});
    expect_outputs_in_order(ORVIK_SS_RAW_MOMENT2, method, {r2});
    expect_outputs_in_order(ORVIK_SS_RAW_MOMENT3, method, {r3});
    expect_outputs_in_order(ORVIK_SS_RAW_MOMENT4, method, {r4});
    expect_outputs_in_order(ORVIK_SS_CENTRAL_MOMENT2, method, {mean, r2, c2});
    expect_outputs_in_order(ORVIK_SS_CENTRAL_MOMENT3, method, {mean, r2, r3, c3});
    expect_outputs_in_order(ORVIK_SS_CENTRAL_MOMENT4, method, {mean, r2, r3, r4, c4});
    expect_outputs_in_order(ORVIK_SS_COVARIANCE, method, {mean, cov});
    expect_outputs_in_order(ORVIK_SS_CORRELATION, method, {mean, cor});
    expect_outputs_in_order(ORVIK_SS_KURTOSIS, method, {mean, r2, r3, r4, c2, c4, kurtosis});
    expect_outputs_in_order(ORVIK_SS_SKEWNESS, method, {mean, r2, r3, c2, c3, skewness});
    expect_outputs_in_order(ORVIK_SS_VARIATION, method, {mean, r2, c2, variation});
    expect_outputs_in_order(ORVIK_SS_SUM, method, {sum});
    expect_outputs_in_order(ORVIK_SS_RAW_SUM2, method, {s2});
    expect_outputs_in_order(ORVIK_SS_RAW_SUM3, method, {s3});
    expect_outputs_in_order(ORVIK_SS_RAW_SUM4, method, {s4});
    if (fast) {
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM2, method, {mean, r2, cs2});
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM3, method, {mean, r2, r3, cs3});
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM4, method, {mean, r2, r3, r4, cs4});
    } else {
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM2, method, {mean, cs2});
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM3, method, {mean, cs3});
      expect_outputs_in_order(ORVIK_SS_CENTRAL_SUM4, method, {mean, cs4});
    }
    expect_outputs_in_order(ORVIK_SS_CROSS_PRODUCT, method, {mean, cp});
    expect_outputs_in_order(ORVIK_SS_SUM | ORVIK_SS_MEAN | ORVIK_SS_CORRELATION | ORVIK_SS_COVARIANCE, method,
                            {mean, cov, cor, sum});
  }
  for (uint64_t method : {0x200, 0x400}) {
    expect_outputs_in_order(ORVIK_SS_MEAN, method, {mean, sum});
    expect_outputs_in_order(ORVIK_SS_RAW_MOMENT4, method, {r4, s4});
    expect_outputs_in_order(ORVIK_SS_CENTRAL_MOMENT3, method, {c3, cs3});
    expect_outputs_in_order(ORVIK_SS_COVARIANCE, method, {cov, cp});
    expect_outputs_in_order(ORVIK_SS_CORRELATION, method, {cor, cp});
    expect_outputs_in_order(ORVIK_SS_KURTOSIS, method, {mean, c2, c4, kurtosis});
    expect_outputs_in_order(ORVIK_SS_SKEWNESS, method, {mean, c2, c3, skewness});
    expect_outputs_in_order(ORVIK_SS_VARIATION, method, {mean, c2, variation});
  }
}

TEST(BasicStatus, FinishOnlyRefusesEverySum) {
  Bare b;
  for (int32_t id : {7, 8, 9, 10, 11, 12, 13, 19, 21, 67, 68, 69, 70, 71, 72, 73, 74}) b.real(id);
  for (uint64_t method : {0x200, 0x400}) {
    for (int bit = 25; bit <= 32; ++bit) {
      EXPECT_EQ(_qordSSBasic(b.task, UINT64_C(1) << bit, method, nullptr), -4029) << bit;
    }
  }
  b.expect_untouched();
}

TEST(BasicStatus, DataIsCheckedAfterTheOutputsInOrder) {
  Bare b;
  auto run = [&] { return _qordSSBasic(b.task, ORVIK_SS_MEAN | ORVIK_SS_COVARIANCE, 1, nullptr); };
  b.real(OrvikSS_mean);
  b.real(OrvikSS_covariance);
  EXPECT_EQ(run(), -4002) << "no count";
  int32_t zero = 0;
  b.integer(OrvikSS_observationCount, &zero);
  EXPECT_EQ(run(), -4002) << "count 0";
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(run(), -4032);
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(), -4044) << "no observation storage";
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  b.real(OrvikSS_weights, b.x.data());
  EXPECT_EQ(run(), -4020) << "weights without accumulated weights";
  double accumulated[2] = {};
  b.real(OrvikSS_accumulatedWeights, accumulated);
  EXPECT_EQ(run(), -4044) << "no matrix storage";
  b.expect_untouched();
  b.integer(OrvikSS_covarianceStorage, &b.full);
  b.real(OrvikSS_covariance, b.out.data() + 32);
  EXPECT_EQ(run(), 0);
}

TEST(BasicStatus, DimensionIsReadAnewAndMustBeAboveZero) {
  Bare b;
  b.real(OrvikSS_mean);
  b.real(OrvikSS_observations, b.x.data());
  b.integer(OrvikSS_observationCount, &b.n);
  b.integer(OrvikSS_observationStorage, &b.rows);
  for (int32_t p : {0, -1}) {
    b.p = p;
    for (uint64_t method : {0x1, 0x2, 0x100}) EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, method, nullptr), -4001);
  }
  b.expect_untouched();
}

TEST(BasicStatus, FinishOnlyNeedsAccumulatedWeightsOrACount) {
  Bare b;
  double sum[2] = {6, 9}, mean[2] = {};
  b.real(OrvikSS_sum, sum);
  b.real(OrvikSS_mean, mean);
  EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, 0x400, nullptr), -4020);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(_qordSSBasic(b.task, ORVIK_SS_MEAN, 0x400, nullptr), 0);
  EXPECT_EQ(mean[0], 2);
  EXPECT_EQ(mean[1], 3);
}

TEST(MinmaxStatus, InOrder) {
  Bare b;
  constexpr uint64_t kBoth = ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM;
  auto run = [&](uint64_t method = 1) { return _qordSSMinmax(b.task, kBoth, method); };
  EXPECT_EQ(_qordSSMinmax(nullptr, kBoth, 1), -4031);
  EXPECT_EQ(run(0), -4015);
  b.real(OrvikSS_minimum);
  EXPECT_EQ(run(0), -4016);
  b.real(OrvikSS_maximum, b.out.data() + 8);
  EXPECT_EQ(run(0), -4029);
  EXPECT_EQ(run(0x100), -4029);
  EXPECT_EQ(run(3), -4044) << "no storage";
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  EXPECT_EQ(run(), -4002);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(run(), -4032);
  b.expect_untouched();
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(), 0);
}

constexpr uint64_t kQuantileBits = ORVIK_SS_QUANTILES | ORVIK_SS_ORDER_STATISTICS;

TEST(QuantileStatus, InOrder) {
  Bare b;
  auto run = [&](uint64_t estimates = kQuantileBits, uint64_t method = 2) {
    return _qordSSQuantiles(b.task, estimates, method, nullptr);
  };
  int32_t count = -1;
  double orders[2] = {0.5, 1.5};
  EXPECT_EQ(_qordSSQuantiles(nullptr, kQuantileBits, 1, nullptr), -4031);
  EXPECT_EQ(run(), -4044);
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  EXPECT_EQ(run(), -4023);
  b.real(OrvikSS_quantiles);
  EXPECT_EQ(run(), -4021);
  b.real(OrvikSS_quantileOrders, orders);
  EXPECT_EQ(run(), -4022) << "no count";
  b.integer(OrvikSS_quantileOrderCount, &count);
  EXPECT_EQ(run(), -4022) << "negative count";
  count = 2;
  EXPECT_EQ(run(), -4022) << "order above 1";
  orders[1] = -0.1;
  EXPECT_EQ(run(), -4022) << "order below 0";
  orders[1] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(run(), -4022) << "order that is no number";
  orders[1] = 1;
  EXPECT_EQ(run(), -4024);
  b.real(OrvikSS_orderStatistics, b.out.data() + 16);
  EXPECT_EQ(run(), -4044) << "no storage of order statistics";
  b.integer(OrvikSS_orderStatisticsStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_orderStatisticsStorage, &b.rows);
  EXPECT_EQ(run(0), -4029) << "no estimate";
  EXPECT_EQ(run(), -4029) << "method";
  EXPECT_EQ(run(kQuantileBits, 1), -4002);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(run(kQuantileBits, 1), -4032);
  b.expect_untouched();
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(kQuantileBits, 1), 0);
}

TEST(StreamQuantileStatus, InOrder) {
  Bare b;
  auto run = [&] { return _qordSSStreamQuantiles(b.task, 0, 0, nullptr); };
  int32_t n = -1, orders = -1, parameters = 2;
  double order = 2, epsilon = 0;
  EXPECT_EQ(_qordSSStreamQuantiles(nullptr, 0, 0, nullptr), -4031);
  EXPECT_EQ(run(), -4002);
  b.integer(OrvikSS_observationCount, &n);
  EXPECT_EQ(run(), -4002) << "negative count";
  n = 0;
  EXPECT_EQ(run(), -4070) << "no observations are needed for none";
  n = 3;
  EXPECT_EQ(run(), -4032);
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(), -4044);
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  EXPECT_EQ(run(), -4070);
  b.real(OrvikSS_streamQuantiles);
  EXPECT_EQ(run(), -4068);
  b.real(OrvikSS_streamOrders, &order);
  EXPECT_EQ(run(), -4069) << "no count";
  b.integer(OrvikSS_streamOrderCount, &orders);
  EXPECT_EQ(run(), -4069) << "negative count";
  orders = 1;
  EXPECT_EQ(run(), -4064);
  b.integer(OrvikSS_streamParameterCount, &parameters);
  EXPECT_EQ(run(), -4066);
  parameters = 1;
  EXPECT_EQ(run(), -4069) << "order above 1";
  order = 0.5;
  EXPECT_EQ(run(), -4065);
  b.real(OrvikSS_streamParameters, &epsilon);
  for (double bad : {0.0, -0.5, 1.0001, std::numeric_limits<double>::quiet_NaN()}) {
    epsilon = bad;
    EXPECT_EQ(run(), -4067);
  }
  b.expect_untouched();
  epsilon = 1;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(__qorSQuantilesFreeBuffers(b.task), 0);
  EXPECT_EQ(static_cast<Task*>(b.task)->streamState, nullptr);
  EXPECT_EQ(__qorSQuantilesFreeBuffers(b.task), 0);
  EXPECT_EQ(__qorSQuantilesFreeBuffers(nullptr), -4031);
}

TEST(DeviationStatus, InOrder) {
  Bare b;
  constexpr uint64_t kBoth = ORVIK_SS_MEDIAN_ABS_DEVIATION | ORVIK_SS_MEAN_ABS_DEVIATION;
  auto run = [&](uint64_t method = 0x101) { return _qordSSMAD(b.task, kBoth, method, nullptr); };
  EXPECT_EQ(_qordSSMAD(nullptr, kBoth, 1, nullptr), -4031);
  EXPECT_EQ(run(0x100), -4029);
  b.p = 0;
  EXPECT_EQ(run(), -4001);
  b.p = 2;
  EXPECT_EQ(run(), -4002);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(run(), -4032);
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(), -4044);
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  EXPECT_EQ(run(), -4082);
  b.real(OrvikSS_medianAbsDeviation);
  EXPECT_EQ(run(), -4083);
  b.real(OrvikSS_meanAbsDeviation, b.out.data() + 8);
  EXPECT_EQ(run(), -4006) << "a mean is to be taken as given";
  EXPECT_EQ(_qordSSMAD(b.task, 0, 1, nullptr), -4029) << "no estimate";
  b.expect_untouched();
  EXPECT_EQ(run(1), 0);
}

TEST(SortStatus, InOrder) {
  Bare b;
  int32_t ambiguous = 0x30000;
  auto run = [&](uint64_t method = ORVIK_SS_METHOD_SORT) { return _qordSSSort(b.task, 0, method, nullptr); };
  EXPECT_EQ(_qordSSSort(nullptr, 0, ORVIK_SS_METHOD_SORT, nullptr), -4031);
  EXPECT_EQ(run(1), -4029);
  EXPECT_EQ(run(), -4084);
  b.real(OrvikSS_sortedObservations);
  EXPECT_EQ(run(), -4044);
  b.integer(OrvikSS_sortedStorage, &ambiguous);
  EXPECT_EQ(run(), -4085) << "both forms at once";
  b.integer(OrvikSS_sortedStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_sortedStorage, &b.rows);
  EXPECT_EQ(run(), -4002);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(run(), -4032);
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(run(), -4044);
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(run(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  b.expect_untouched();
  EXPECT_EQ(run(), 0);
}

TEST(WeightedMedianAndDistanceStatus, InOrder) {
  Bare b;
  auto median = [&] { return _qordSSWMedian(b.task, 0, 0, nullptr); };
  auto distance = [&](int64_t p = 2) { return _qordSSMahDistance(b.task, p, b.x.data(), b.out.data(), nullptr); };
  EXPECT_EQ(_qordSSWMedian(nullptr, 0, 0, nullptr), -4031);
  EXPECT_EQ(_qordSSMahDistance(nullptr, 2, b.x.data(), b.out.data(), nullptr), -4031);
  EXPECT_EQ(distance(0), -4001);
  EXPECT_EQ(median(), -4002);
  EXPECT_EQ(distance(), -4002);
  b.integer(OrvikSS_observationCount, &b.n);
  EXPECT_EQ(median(), -4032);
  EXPECT_EQ(distance(), -4032);
  b.real(OrvikSS_observations, b.x.data());
  EXPECT_EQ(median(), -4044);
  EXPECT_EQ(distance(), -4044);
  b.integer(OrvikSS_observationStorage, &b.bad);
  EXPECT_EQ(median(), -4003);
  EXPECT_EQ(distance(), -4003);
  b.integer(OrvikSS_observationStorage, &b.rows);
  EXPECT_EQ(median(), -4005);
  EXPECT_EQ(distance(), -4006);
  b.real(OrvikSS_weights, b.x.data());
  EXPECT_EQ(median(), -4023);
  b.expect_untouched();
}

}  // namespace
}  // namespace orvik::ss::test

// The bits of every estimator's results are the same on any number of threads, and however the caller runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

template <class T>
using Bits = std::vector<T>;

template <class T>
::testing::AssertionResult same_bits(const Bits<T>& a, const Bits<T>& b) {
  if (a.size() != b.size()) return ::testing::AssertionFailure() << a.size() << " values and " << b.size();
  for (size_t k = 0; k < a.size(); ++k) {
    if (memcmp(&a[k], &b[k], sizeof(T)) != 0) {
      return ::testing::AssertionFailure() << "value " << k << ": " << a[k] << " and " << b[k];
    }
  }
  return ::testing::AssertionSuccess();
}

// All bodies on the calling thread, the last one first.
const OrvikThreading kBackwards = {[] { return int32_t{5}; },
                                   [](int32_t count, void* context, void (*routine)(int32_t, int32_t, int32_t, void*)) {
                                     for (int32_t k = count - 1; k >= 0; --k) routine(k, 0, count, context);
                                     return int32_t{0};
                                   }};

// run(task, threading) of a task over a sample; the arrays of `results` are given to the fields of `ids`.
template <class T>
struct Case {
  const char* name;
  int64_t p, n;
  bool weighted;
  std::vector<std::pair<int32_t, int64_t>> results;  // field and number of values
  std::vector<std::pair<int32_t, int64_t>> integers;
  std::vector<std::pair<int32_t, std::vector<T>>> reals;
  std::function<int32_t(OrvikSSTask, const OrvikThreading*, std::vector<T>*)> run;
  bool missing = false;
};

template <class T>
Bits<T> results_of(const Case<T>& c, const Sample<T>& sample, int64_t storage, const OrvikThreading* threading) {
  TaskOver<T> task;
  EXPECT_EQ(task.make(c.p, c.n, storage, storage == 0x10000 ? sample.rows.data() : sample.columns.data(),
                      c.weighted ? sample.weights.data() : nullptr),
            0);
  std::vector<std::vector<T>> arrays;
  arrays.reserve(c.results.size());
  for (const auto& [id, size] : c.results) {
    arrays.emplace_back(size, T{0});
    EXPECT_EQ(task.set(id, arrays.back()), 0) << id;
  }
  for (const auto& [id, value] : c.integers) EXPECT_EQ(task.set_integer(id, value), 0) << id;
  for (const auto& [id, values] : c.reals) EXPECT_EQ(task.set(id, values), 0) << id;
  std::vector<T> more;
  EXPECT_EQ(c.run(task.get(), threading, &more), 0);
  Bits<T> all = more;
  for (const auto& a : arrays) all.insert(all.end(), a.begin(), a.end());
  return all;
}

template <class T>
void expect_same_on_all_threads(const Case<T>& c) {
  auto sample = random_sample<T>(c.p, c.n, 8);
  if (c.missing) {
    const T none = -std::numeric_limits<T>::quiet_NaN();
    for (int64_t i = 3; i < c.n; i += 10) {
      const int64_t j = i / 10 % c.p;
      sample.columns[i * c.p + j] = sample.rows[j * c.n + i] = none;
    }
  }
  for (int64_t storage : {0x10000, 0x20000}) {
    SCOPED_TRACE(::testing::Message() << c.name << (storage == 0x10000 ? ", rows" : ", columns"));
    const auto wanted = results_of(c, sample, storage, nullptr);
    for (int count : {1, 2, 3, 7}) {
      EXPECT_TRUE(same_bits(results_of(c, sample, storage, threads(count)), wanted)) << count << " threads";
    }
    EXPECT_TRUE(same_bits(results_of(c, sample, storage, &kBackwards), wanted)) << "backwards";
  }
}

constexpr int64_t kP = 5, kN = 30011;  // several chunks of any loop
constexpr uint64_t kMoments = ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS | ORVIK_SS_VARIATION | ORVIK_SS_SUM |
                              ORVIK_SS_RAW_SUM2 | ORVIK_SS_RAW_SUM3 | ORVIK_SS_RAW_SUM4 | ORVIK_SS_CENTRAL_SUM2 |
                              ORVIK_SS_CENTRAL_SUM3 | ORVIK_SS_CENTRAL_SUM4;
constexpr uint64_t kMatrices = ORVIK_SS_COVARIANCE | ORVIK_SS_CORRELATION | ORVIK_SS_CROSS_PRODUCT;

template <class T>
Case<T> moments(const char* name, uint64_t estimates, uint64_t method, bool weighted, int64_t p = kP, int64_t n = kN) {
  Case<T> c{name, p, n, weighted, {}, {}, {}, {}};
  for (int32_t id : {OrvikSS_mean, OrvikSS_rawMoment2, OrvikSS_rawMoment3, OrvikSS_rawMoment4, OrvikSS_centralMoment2,
                     OrvikSS_centralMoment3, OrvikSS_centralMoment4, OrvikSS_kurtosis, OrvikSS_skewness,
                     OrvikSS_variation, OrvikSS_sum, OrvikSS_rawSum2, OrvikSS_rawSum3, OrvikSS_rawSum4,
                     OrvikSS_centralSum2, OrvikSS_centralSum3, OrvikSS_centralSum4}) {
    c.results.push_back({id, p});
  }
  for (int32_t id : {OrvikSS_covariance, OrvikSS_correlation, OrvikSS_crossProduct}) c.results.push_back({id, p * p});
  c.results.push_back({OrvikSS_accumulatedWeights, 2});
  c.integers = {{OrvikSS_covarianceStorage, 0}, {OrvikSS_correlationStorage, 0}, {OrvikSS_crossProductStorage, 0}};
  // The second call goes on from the first.
  c.run = [=](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    const int32_t status = Entries<T>::basic(t, estimates, method, threading);
    return status != 0 ? status : Entries<T>::basic(t, estimates, method, threading);
  };
  return c;
}

template <class T>
class ThreadIndependence : public ::testing::Test {};
using Precisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(ThreadIndependence, Precisions);

TYPED_TEST(ThreadIndependence, OfMoments) {
  using T = TypeParam;
  for (bool weighted : {false, true}) {
    for (uint64_t method : {0x1, 0x2, 0x100}) {
      expect_same_on_all_threads(moments<T>("moments", kMoments, method, weighted));
      expect_same_on_all_threads(moments<T>("mean", ORVIK_SS_MEAN, method, weighted));
    }
    expect_same_on_all_threads(moments<T>("one variable", kMoments, 0x2, weighted, 1, 100003));
    expect_same_on_all_threads(moments<T>("many variables", kMoments, 0x2, weighted, 700, 600));
  }
}

TYPED_TEST(ThreadIndependence, OfCovarianceCorrelationAndCrossProduct) {
  using T = TypeParam;
  for (bool weighted : {false, true}) {
    for (uint64_t method : {0x1, 0x2, 0x100}) {
      expect_same_on_all_threads(moments<T>("matrices", kMatrices, method, weighted));
      expect_same_on_all_threads(moments<T>("covariance alone", ORVIK_SS_COVARIANCE, method, weighted));
    }
  }
}

TYPED_TEST(ThreadIndependence, OfExtremes) {
  using T = TypeParam;
  Case<T> c{"extremes", kP, kN, false, {{OrvikSS_minimum, kP}, {OrvikSS_maximum, kP}}, {}, {}, {}};
  c.run = [](OrvikSSTask t, const OrvikThreading*, std::vector<T>*) {
    return Entries<T>::minmax(t, ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, 1);
  };
  expect_same_on_all_threads(c);
}

TYPED_TEST(ThreadIndependence, OfEstimatorsByVariable) {
  using T = TypeParam;
  Case<T> c{"by variable", kP, kN, true, {}, {}, {}, {}};
  c.results = {{OrvikSS_quantiles, 2 * kP},           {OrvikSS_orderStatistics, kP * kN},
               {OrvikSS_medianAbsDeviation, kP},      {OrvikSS_meanAbsDeviation, kP},
               {OrvikSS_sortedObservations, kP * kN}, {OrvikSS_streamQuantiles, 2 * kP}};
  c.integers = {{OrvikSS_quantileOrderCount, 2},
                {OrvikSS_orderStatisticsStorage, 0x10000},
                {OrvikSS_sortedStorage, 0x20000},
                {OrvikSS_streamOrderCount, 2},
                {OrvikSS_streamParameterCount, 1}};
  c.reals = {{OrvikSS_quantileOrders, {T(0.25), T(0.7)}},
             {OrvikSS_streamOrders, {T(0.25), T(0.7)}},
             {OrvikSS_streamParameters, {T(0.01)}}};
  c.run = [](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    const int32_t statuses[] = {
        Entries<T>::quantiles(t, ORVIK_SS_QUANTILES | ORVIK_SS_ORDER_STATISTICS, 1, threading),
        Entries<T>::mad(t, ORVIK_SS_MEDIAN_ABS_DEVIATION | ORVIK_SS_MEAN_ABS_DEVIATION, 1, threading),
        Entries<T>::sort_task(t, 0, ORVIK_SS_METHOD_SORT, threading), Entries<T>::stream(t, 0, 0, threading)};
    return *std::min_element(std::begin(statuses), std::end(statuses));
  };
  expect_same_on_all_threads(c);
  Case<T> medians{
      "weighted medians", kP, kN, true, {{OrvikSS_quantiles, kP}, {OrvikSS_accumulatedWeights, 2}}, {}, {}, {}};
  medians.run = [](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    return Entries<T>::weighted_median(t, 0, 0, threading);
  };
  expect_same_on_all_threads(medians);
}

TYPED_TEST(ThreadIndependence, OfDistances) {
  using T = TypeParam;
  for (int64_t p : {3, 40}) {  // by variable, and by the matrix kernel
    Case<T> c{"distances", p, 3001, false, {{OrvikSS_mean, p}}, {}, {}, {}};
    c.run = [p](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>* distances) {
      std::vector<T> matrix(p * p, T(0.1));
      for (int64_t j = 0; j < p; ++j) matrix[j * p + j] = T(2);
      distances->resize(3001);
      return Entries<T>::distance(t, p, matrix.data(), distances->data(), threading);
    };
    expect_same_on_all_threads(c);
  }
}

TYPED_TEST(ThreadIndependence, OfOutlierDetection) {
  using T = TypeParam;
  for (T rule : {T(1), T(2)}) {
    Case<T> c{"outliers", kP, kN, false, {{OrvikSS_outlierWeights, kN}}, {{OrvikSS_outlierParameterCount, 3}}, {}, {}};
    c.reals = {{OrvikSS_outlierParameters, {rule, T(0.2), T(1e-5)}}};
    c.run = [](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
      return Entries<T>::outliers(t, 0, ORVIK_SS_METHOD_BACON, threading);
    };
    expect_same_on_all_threads(c);
  }
}

TYPED_TEST(ThreadIndependence, OfRobustCovariance) {
  using T = TypeParam;
  Case<T> c{"robust", kP, kN, false, {{OrvikSS_robustMean, kP}, {OrvikSS_robustCovariance, kP * kP}}, {}, {}, {}};
  c.integers = {{OrvikSS_robustCovarianceStorage, 0}};
  c.run = [](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    return Entries<T>::robust(t, 0, ORVIK_SS_METHOD_ROBUST, threading);
  };
  expect_same_on_all_threads(c);
}

TYPED_TEST(ThreadIndependence, OfMissingValues) {
  using T = TypeParam;
  constexpr int64_t kRows = 12000, kMissing = kRows / 10, kSets = 5, kBlocks = 3, kSize = kP + kP * (kP + 1) / 2;
  Case<T> c{"missing values", kP, kRows, false, {}, {}, {}, {}};
  c.results = {{OrvikSS_simulatedValues, kSets * kMissing}, {OrvikSS_estimates, kSets * kBlocks * kSize}};
  c.integers = {{OrvikSS_imputationParameterCount, 5},
                {OrvikSS_simulatedValueCount, kSets * kMissing},
                {OrvikSS_estimateCount, kSets * kBlocks * kSize}};
  c.reals = {{OrvikSS_imputationParameters, {T(10), T(kBlocks), T(0), T(kSets), T(kMissing)}}};
  c.missing = true;
  c.run = [](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    return Entries<T>::missing(t, 0, ORVIK_SS_METHOD_IMPUTATION, threading);
  };
  expect_same_on_all_threads(c);
}

TYPED_TEST(ThreadIndependence, OfGroupsPartialCovarianceAndParametrization) {
  using T = TypeParam;
  std::vector<int32_t> group(kN), choice(kP, 1), chosen(3, 1);
  for (int64_t i = 0; i < kN; ++i) group[i] = static_cast<int32_t>(i % 97 == 0 ? 2 : i % 2);
  choice[0] = -1;
  constexpr int64_t kKept = kP - 1;
  Case<T> c{"groups", kP, kN, false, {}, {}, {}, {}};
  c.results = {{OrvikSS_mean, kP},
               {OrvikSS_covariance, kP * kP},
               {OrvikSS_correlation, kP * kP},
               {OrvikSS_pooledMean, kP},
               {OrvikSS_pooledCovariance, kP * kP},
               {OrvikSS_groupMeans, 3 * kP},
               {OrvikSS_groupCovariances, 3 * kP * kP},
               {OrvikSS_partialCovariance, kKept * kKept},
               {OrvikSS_partialCorrelation, kKept * kKept},
               {OrvikSS_parametrizedCorrelation, kP * kP}};
  for (int32_t id : {OrvikSS_covarianceStorage, OrvikSS_correlationStorage, OrvikSS_pooledCovarianceStorage,
                     OrvikSS_groupCovarianceStorage, OrvikSS_partialCovarianceStorage,
                     OrvikSS_partialCorrelationStorage, OrvikSS_parametrizedCorrelationStorage}) {
    c.integers.push_back({id, 0});
  }
  c.run = [&](OrvikSSTask t, const OrvikThreading* threading, std::vector<T>*) {
    __qoriSSEditTask(t, OrvikSS_groupIndices, group.data());
    __qoriSSEditTask(t, OrvikSS_groupCovarianceIndices, chosen.data());
    __qoriSSEditTask(t, OrvikSS_partialCovarianceIndices, choice.data());
    const int32_t statuses[] = {
        Entries<T>::basic(t, ORVIK_SS_COVARIANCE | ORVIK_SS_CORRELATION, ORVIK_SS_METHOD_ONE_PASS, threading),
        Entries<T>::pooled(t, 0, ORVIK_SS_METHOD_ONE_PASS, threading),
        Entries<T>::partial(t, ORVIK_SS_PARTIAL_COVARIANCE | ORVIK_SS_PARTIAL_CORRELATION, 1, threading),
        Entries<T>::parametrize(t, 0, 4, threading)};
    return *std::min_element(std::begin(statuses), std::end(statuses));
  };
  expect_same_on_all_threads(c);
}

}  // namespace
}  // namespace orvik::ss::test

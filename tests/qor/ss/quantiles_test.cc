// Exact quantiles, order statistics, the sort of a task, deviations, weighted median, Mahalanobis distance.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "qor/ss/support.h"
#include "qor/ss/threads.h"

namespace orvik::ss::test {
namespace {

constexpr double kUntouched = -77.5;

template <class T>
std::vector<T> sorted_variable(const Sample<T>& s, int64_t j) {
  std::vector<T> v(s.rows.begin() + j * s.n, s.rows.begin() + (j + 1) * s.n);
  std::sort(v.begin(), v.end());
  return v;
}

// q (n - 1) counted from 0, linear between ranks.
template <class T>
double quantile_of(const std::vector<T>& sorted, double q) {
  const double f = q * static_cast<double>(sorted.size() - 1);
  const auto k = static_cast<int64_t>(f);
  const auto next = std::min<int64_t>(k + 1, static_cast<int64_t>(sorted.size()) - 1);
  return sorted[k] + (f - std::floor(f)) * (static_cast<double>(sorted[next]) - sorted[k]);
}

template <class T>
class Quantiles : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Quantiles, Types);

TYPED_TEST(Quantiles, AgreeWithTheDefinitionInEveryCombination) {
  using T = TypeParam;
  std::vector<T> many(50);
  for (int k = 0; k < 50; ++k) many[k] = static_cast<T>(k * 37 % 50) / 49;
  const std::vector<std::vector<T>> order_sets = {
      {T(0.5)}, {T(0.25), T(0.5), T(0.75)}, {T(1), T(0), T(0.999), T(0.001), T(0.5), T(0.5)}, many};
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{1, 1}, {1, 1000}, {3, 2}, {5, 777}, {4, 6000}}) {
    const auto sample = random_sample<T>(p, n);
    for (int mask = 0; mask < 16; ++mask) {
      const bool columns = mask & 1, selected = mask & 2, statistics = mask & 4, out_columns = mask & 8;
      for (const auto& orders : order_sets) {
        const auto count = static_cast<int64_t>(orders.size());
        std::vector<int32_t> flags(p);
        for (int64_t j = 0; j < p; ++j) flags[j] = selected ? j % 3 != 1 : 1;
        const T old = static_cast<T>(kUntouched);
        std::vector<T> quantiles(p * count, old), sorted(p * n, old);
        TaskOver<T> task(columns);
        ASSERT_EQ(task.make(p, n, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data(), nullptr,
                            flags.data()),
                  0);
        task.set_integer(OrvikSS_quantileOrderCount, count);
        task.set(OrvikSS_quantileOrders, orders);
        task.set(OrvikSS_quantiles, quantiles);
        task.set(OrvikSS_orderStatistics, sorted);
        task.set_integer(OrvikSS_orderStatisticsStorage, out_columns ? 0x20000 : 0x10000);
        const uint64_t estimates = ORVIK_SS_QUANTILES | (statistics ? ORVIK_SS_ORDER_STATISTICS : 0);
        ASSERT_EQ(Entries<T>::quantiles(task.get(), estimates, 1, threads(mask % 4)), 0);
        for (int64_t j = 0; j < p; ++j) {
          const auto want = sorted_variable(sample, j);
          for (int64_t k = 0; k < count; ++k) {
            const double value = flags[j] ? quantile_of(want, orders[k]) : kUntouched;
            ASSERT_NEAR(quantiles[j * count + k], value,
                        4 * std::numeric_limits<T>::epsilon() * std::fabs(value) + 1e-300)
                << "p " << p << " n " << n << " mask " << mask << " order " << orders[k];
          }
          for (int64_t i = 0; i < n; ++i) {
            const T got = p > 1 && out_columns ? sorted[i * p + j] : sorted[j * n + i];
            ASSERT_EQ(got, statistics && flags[j] ? want[i] : old);
          }
        }
      }
    }
  }
}

template <class T>
std::vector<T> quantiles_of(const std::vector<T>& x, const std::vector<T>& orders, int32_t* status = nullptr) {
  std::vector<T> results(orders.size() + 1, static_cast<T>(kUntouched));
  TaskOver<T> task;
  EXPECT_EQ(task.make(1, static_cast<int64_t>(x.size()), 0x10000, x.data()), 0);
  const T none = 0;
  task.set_integer(OrvikSS_quantileOrderCount, static_cast<int64_t>(orders.size()));
  task.set(OrvikSS_quantileOrders, orders.empty() ? &none : orders.data());
  task.set(OrvikSS_quantiles, results);
  const int32_t got = Entries<T>::quantiles(task.get(), ORVIK_SS_QUANTILES, 1, nullptr);
  if (status != nullptr) {
    *status = got;
  } else {
    EXPECT_EQ(got, 0);
  }
  return results;
}

// Neighbouring variables of contiguous observations are read together, all of a line or fewer, whichever are selected.
TYPED_TEST(Quantiles, OfNeighboursInContiguousObservationsAreThoseOfContiguousVariables) {
  using T = TypeParam;
  const T old = static_cast<T>(kUntouched);
  const std::vector<T> orders = {T(0.5), T(0.9)};
  for (int64_t p : {3, 4, 5, 8, 9, 16, 17, 31, 40}) {
    for (int64_t n : {1, 2, 7, 47, 48, 49, 95, 96, 300, 511, 512, 513, 700}) {
      const auto sample = random_sample<T>(p, n, static_cast<uint64_t>(p + n));
      for (int pattern = 0; pattern < 6; ++pattern) {
        std::vector<int32_t> flags(p, 1);
        for (int64_t j = 0; j < p; ++j) {
          if (pattern == 1) flags[j] = j == 0;
          if (pattern == 2) flags[j] = j == p - 1;
          if (pattern == 3) flags[j] = j % 3 == 1;
          if (pattern == 4) flags[j] = j > 1 && j < p - 1;
          if (pattern == 5) flags[j] = (j * 7 + n) % 5 < 2;
        }
        std::vector<T> got[2];
        for (bool columns : {false, true}) {
          std::vector<T>& all = got[columns];
          TaskOver<T> task;
          ASSERT_EQ(task.make(p, n, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data(),
                              sample.weights.data(), flags.data()),
                    0);
          const auto run = [&](int32_t id, int64_t size, auto call) {
            std::vector<T> r(static_cast<size_t>(size), old);
            task.set(id, r);
            ASSERT_EQ(call(), 0);
            all.insert(all.end(), r.begin(), r.end());
          };
          std::vector<T> weights_so_far(2);
          task.set(OrvikSS_accumulatedWeights, weights_so_far);
          task.set_integer(OrvikSS_quantileOrderCount, 2);
          task.set(OrvikSS_quantileOrders, orders);
          const int caller = pattern % 3;
          run(OrvikSS_quantiles, 2 * p,
              [&] { return Entries<T>::quantiles(task.get(), ORVIK_SS_QUANTILES, 1, threads(caller)); });
          run(OrvikSS_quantiles, p, [&] { return Entries<T>::weighted_median(task.get(), 0, 0, threads(caller)); });
          run(OrvikSS_medianAbsDeviation, p,
              [&] { return Entries<T>::mad(task.get(), ORVIK_SS_MEDIAN_ABS_DEVIATION, 1, threads(caller)); });
          for (int64_t form : {0x10000, 0x20000}) {
            task.set_integer(OrvikSS_orderStatisticsStorage, form);
            run(OrvikSS_orderStatistics, p * n,
                [&] { return Entries<T>::quantiles(task.get(), ORVIK_SS_ORDER_STATISTICS, 1, threads(caller)); });
            task.set_integer(OrvikSS_sortedStorage, form);
            run(OrvikSS_sortedObservations, p * n,
                [&] { return Entries<T>::sort_task(task.get(), 0, ORVIK_SS_METHOD_SORT, threads(caller)); });
          }
        }
        ASSERT_EQ(got[0], got[1]) << p << " " << n << " " << pattern;
        for (int64_t j = 0; j < p; ++j) {
          const auto want = sorted_variable(sample, j);
          ASSERT_EQ(got[1][2 * j] == old, flags[j] == 0);
          for (int64_t i = 0; i < n; ++i) {  // the last result: sorted observations, contiguous
            ASSERT_EQ(got[1][got[1].size() - p * n + i * p + j], flags[j] ? want[i] : old) << p << " " << n;
          }
        }
      }
    }
  }
}

// Long enough for two copies at a time, and for none beside another.
TYPED_TEST(Quantiles, OfLongVariablesInContiguousObservationsAreThoseOfContiguousVariables) {
  using T = TypeParam;
  constexpr int64_t kVariables = 5;
  for (int64_t n : {600'000, 1'500'000}) {
    std::vector<T> rows(kVariables * n), columns(kVariables * n);
    for (int64_t i = 0; i < n; ++i) {
      for (int64_t j = 0; j < kVariables; ++j) {
        rows[j * n + i] = columns[i * kVariables + j] = static_cast<T>((i * 7919 + j * 104'729) % 1'000'003);
      }
    }
    std::vector<T> medians[2];
    const T half = T(0.5);
    for (bool by_observation : {false, true}) {
      medians[by_observation].assign(kVariables, T(kUntouched));
      TaskOver<T> task;
      task.make(kVariables, n, by_observation ? 0x20000 : 0x10000, (by_observation ? columns : rows).data());
      task.set_integer(OrvikSS_quantileOrderCount, 1);
      task.set(OrvikSS_quantileOrders, &half);
      task.set(OrvikSS_quantiles, medians[by_observation]);
      ASSERT_EQ(Entries<T>::quantiles(task.get(), ORVIK_SS_QUANTILES, 1, nullptr), 0);
    }
    EXPECT_EQ(medians[0], medians[1]);
    std::nth_element(rows.begin(), rows.begin() + (n - 1) / 2, rows.begin() + n);
    EXPECT_LE(rows[(n - 1) / 2], medians[0][0]);
  }
}

TYPED_TEST(Quantiles, OfEveryShortLengthAreThoseOfTheSortedValues) {
  using T = TypeParam;
  const std::vector<T> orders = {T(0), T(0.25), T(0.5), T(0.75), T(1)};
  for (int64_t n = 1; n <= 300; ++n) {
    const auto sample = random_sample<T>(1, n, static_cast<uint64_t>(n));
    const auto want = sorted_variable(sample, 0);
    const auto got = quantiles_of(sample.rows, orders);
    for (size_t k = 0; k < orders.size(); ++k) {
      const double value = quantile_of(want, orders[k]);
      ASSERT_NEAR(got[k], value, 4 * std::numeric_limits<T>::epsilon() * std::fabs(value)) << n << " " << orders[k];
    }
  }
}

TYPED_TEST(Quantiles, OrderOneIsTheLargestValueExactly) {
  EXPECT_EQ((quantiles_of<TypeParam>({3, 1, 4, 1, 5, 9, 2, 6}, {1})[0]), 9);
}

TYPED_TEST(Quantiles, OfOneValueAreThatValueForEveryOrder) {
  const auto q = quantiles_of<TypeParam>({TypeParam(0.1)}, {0, TypeParam(0.3), 1});
  for (int k = 0; k < 3; ++k) EXPECT_EQ(q[k], TypeParam(0.1));
}

// Values that fill their range evenly, crowd a part of it, repeat, or are few: by buckets or by partition.
TYPED_TEST(Quantiles, OfEveryKindOfCrowdAreThoseOfTheSortedValues) {
  using T = TypeParam;
  const std::vector<T> orders = {0, T(0.01), T(0.25), T(0.5), T(0.75), T(0.999), 1, T(0.5)};
  for (int64_t n : {255, 256, 257, 1000, 8191, 8192, 30011}) {
    for (int kind = 0; kind < 8; ++kind) {
      std::mt19937_64 engine(n);
      std::normal_distribution<double> normal;
      std::vector<T> x(n);
      for (int64_t i = 0; i < n; ++i) {
        const double z = normal(engine);
        const double values[] = {z,
                                 std::exp(10 * z),
                                 std::round(z),
                                 7.0,
                                 i == 0 ? 1e30 : z,
                                 static_cast<double>(i) - 500,
                                 i % 2 == 0 ? z : z + 1e6,
                                 i == 5 ? std::numeric_limits<double>::infinity() : z * 1e-300};
        x[i] = static_cast<T>(values[kind]);
      }
      auto sorted = x;
      std::sort(sorted.begin(), sorted.end());
      const auto got = quantiles_of(x, orders);
      for (size_t k = 0; k < orders.size(); ++k) {
        const double f = static_cast<double>(orders[k]) * static_cast<double>(n - 1);
        const auto low = static_cast<int64_t>(f);
        const T a = sorted[low], b = sorted[std::min(low + 1, n - 1)];
        const T want = f == std::floor(f) || a == b ? a : std::fma(b - a, static_cast<T>(f - std::floor(f)), a);
        ASSERT_EQ(got[k], want) << "n " << n << " kind " << kind << " order " << orders[k];
      }
    }
  }
}

// The order statistic itself where the fraction is 0 or both ends are equal, by selection and from the sorted values.
TYPED_TEST(Quantiles, NextToInfinitiesAreTheOrderStatisticsThatTheyMeet) {
  using T = TypeParam;
  const T inf = std::numeric_limits<T>::infinity();
  const std::vector<T> x = {1, 2, inf, -inf, 3};
  const std::vector<T> many(40, T{0.75});  // more orders than are selected
  EXPECT_EQ((quantiles_of<T>(x, {0, T{0.25}, T{0.5}, T{0.75}, 1})),
            (std::vector<T>{-inf, 1, 2, 3, inf, static_cast<T>(kUntouched)}));
  EXPECT_EQ(quantiles_of<T>(x, many)[39], 3);
  EXPECT_EQ((quantiles_of<T>({inf, inf, 1, inf}, {T{0.4}, T{0.6}, T{0.9}, 0})),
            (std::vector<T>{inf, inf, inf, 1, static_cast<T>(kUntouched)}));
  EXPECT_EQ((quantiles_of<T>({-inf, -inf, -inf, 5}, {T{0.1}, T{0.5}})[1]), -inf);
  for (T only : {inf, -inf}) {
    for (T q : {T{0}, T{0.3}, T{1}}) EXPECT_EQ(quantiles_of<T>({only}, {q})[0], only);
  }
}

// Median deviation, sorted values, extremes and weighted median of a NaN are NaN, as its quantiles are.
TYPED_TEST(Quantiles, OfOneValueThatIsNoNumberAreNone) {
  using T = TypeParam;
  const T x[] = {std::numeric_limits<T>::quiet_NaN()}, w[] = {1};
  const T orders[] = {0, T{0.5}, 1};
  T quantiles[3] = {}, sorted = 0, deviations[2] = {}, extremes[2] = {}, accumulated[2] = {};
  TaskOver<T> task;
  ASSERT_EQ(task.make(1, 1, 0x10000, x, w), 0);
  task.set(OrvikSS_accumulatedWeights, accumulated);
  task.set_integer(OrvikSS_quantileOrderCount, 3);
  task.set(OrvikSS_quantileOrders, orders);
  task.set(OrvikSS_quantiles, quantiles);
  task.set(OrvikSS_orderStatistics, &sorted);
  task.set_integer(OrvikSS_orderStatisticsStorage, 0x10000);
  task.set(OrvikSS_medianAbsDeviation, deviations);
  task.set(OrvikSS_meanAbsDeviation, deviations + 1);
  task.set(OrvikSS_minimum, extremes);
  task.set(OrvikSS_maximum, extremes + 1);
  for (uint64_t estimates : {0x10000, 0x30000}) {
    quantiles[0] = quantiles[1] = quantiles[2] = 0;
    ASSERT_EQ(Entries<T>::quantiles(task.get(), estimates, 1, nullptr), 0);
    for (T q : quantiles) EXPECT_TRUE(std::isnan(q));
  }
  EXPECT_TRUE(std::isnan(sorted));
  ASSERT_EQ(Entries<T>::mad(task.get(), 0x600000000, 1, nullptr), 0);
  EXPECT_TRUE(std::isnan(deviations[0]) && std::isnan(deviations[1]));
  ASSERT_EQ(Entries<T>::minmax(task.get(), 0xC00, 1), 0);
  EXPECT_TRUE(std::isnan(extremes[0]) && std::isnan(extremes[1]));
  quantiles[0] = 0;
  ASSERT_EQ(Entries<T>::weighted_median(task.get(), 0, 0, nullptr), 0);
  EXPECT_TRUE(std::isnan(quantiles[0]));
}

// Pairs of value and weight take twice the memory of a value: half as many threads within the bound.
TYPED_TEST(Quantiles, ThreadsByVariableKeepTheirCopiesWithinOneGibibyte) {
  const OrvikThreading many = {[] { return int32_t{64}; }, nullptr};
  constexpr int64_t kN = 0x40000000 / 8 / 16;
  EXPECT_EQ(threads_by_variable(&many, 100, kN), 16);
  EXPECT_EQ(threads_by_variable(&many, 100, 2 * kN), 8);
  EXPECT_EQ(threads_by_variable(&many, 5, kN), 5);
  EXPECT_EQ(threads_by_variable(&many, 100, 0x40000000), 1);
}

TYPED_TEST(Quantiles, OrderHalfOfAnEvenNumberIsTheMeanOfTheTwoMiddleValues) {
  EXPECT_EQ((quantiles_of<TypeParam>({10, 3, 4, 1}, {TypeParam(0.5)})[0]), TypeParam(3.5));
}

TYPED_TEST(Quantiles, WithoutOrdersGiveNoResultAndNoError) {
  int32_t status = 1;
  EXPECT_EQ((quantiles_of<TypeParam>({3, 1}, {}, &status)[0]), static_cast<TypeParam>(kUntouched));
  EXPECT_EQ(status, 0);
}

TYPED_TEST(Quantiles, NanIsTheLargestValue) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  const auto q = quantiles_of<TypeParam>({nan, 1, nan, 2, 3}, {0, TypeParam(0.25), 1});
  EXPECT_EQ(q[0], 1);
  EXPECT_EQ(q[1], 2);
  EXPECT_TRUE(std::isnan(q[2]));
  const auto all = quantiles_of<TypeParam>(std::vector<TypeParam>(20, nan), {0, TypeParam(0.5)});
  EXPECT_TRUE(std::isnan(all[0]));
}

TYPED_TEST(Quantiles, SortOfATaskAgreesInEveryLayout) {
  using T = TypeParam;
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{1, 5000}, {1, 3}, {4, 700}, {3, 6}}) {
    const auto sample = random_sample<T>(p, n);
    for (int mask = 0; mask < 8; ++mask) {
      const bool columns = mask & 1, out_columns = mask & 2, selected = mask & 4;
      std::vector<int32_t> flags(p);
      for (int64_t j = 0; j < p; ++j) flags[j] = selected ? j % 3 != 1 : 1;
      std::vector<T> sorted(p * n, static_cast<T>(kUntouched));
      TaskOver<T> task;
      task.make(p, n, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data(), nullptr,
                flags.data());
      task.set(OrvikSS_sortedObservations, sorted);
      task.set_integer(OrvikSS_sortedStorage, out_columns ? 0x20000 : 0x10000);
      ASSERT_EQ(Entries<T>::sort_task(task.get(), 0, ORVIK_SS_METHOD_SORT, threads(mask % 3)), 0);
      for (int64_t j = 0; j < p; ++j) {
        const auto want = sorted_variable(sample, j);
        for (int64_t i = 0; i < n; ++i) {
          ASSERT_EQ((p > 1 && out_columns ? sorted[i * p + j] : sorted[j * n + i]),
                    flags[j] ? want[i] : static_cast<T>(kUntouched));
        }
      }
    }
  }
}

TYPED_TEST(Quantiles, AbsoluteDeviationsAgreeWithTheirDefinition) {
  using T = TypeParam;
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{1, 1}, {1, 101}, {4, 600}, {3, 2}}) {
    const auto sample = random_sample<T>(p, n);
    for (int mask = 0; mask < 4; ++mask) {
      const bool columns = mask & 1, given = mask & 2;
      std::vector<T> median(p), mean(p), center(p, T(1.5));
      TaskOver<T> task;
      task.make(p, n, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data());
      task.set(OrvikSS_medianAbsDeviation, median);
      task.set(OrvikSS_meanAbsDeviation, mean);
      task.set(OrvikSS_mean, center);
      ASSERT_EQ(Entries<T>::mad(task.get(), ORVIK_SS_MEDIAN_ABS_DEVIATION | ORVIK_SS_MEAN_ABS_DEVIATION,
                                given ? 0x101 : 0x1, threads(mask)),
                0);
      for (int64_t j = 0; j < p; ++j) {
        auto v = sorted_variable(sample, j);
        long double m = 0, deviation = 0;
        for (T x : v) m += x;
        m = given ? 1.5L : m / n;
        for (T x : v) deviation += std::fabs(x - m);
        EXPECT_NEAR(mean[j], static_cast<double>(deviation / n), 20 * std::numeric_limits<T>::epsilon());
        const T middle = static_cast<T>(quantile_of(v, 0.5));
        for (T& x : v) x = std::fabs(x - middle);
        std::sort(v.begin(), v.end());
        EXPECT_NEAR(median[j], quantile_of(v, 0.5), 4 * std::numeric_limits<T>::epsilon());
      }
    }
  }
}

template <class T>
T weighted_median(const std::vector<T>& x, const std::vector<T>& w) {
  T result = static_cast<T>(kUntouched);
  TaskOver<T> task;
  EXPECT_EQ(task.make(1, static_cast<int64_t>(x.size()), 0x10000, x.data(), w.data()), 0);
  task.set(OrvikSS_quantiles, &result);
  EXPECT_EQ(Entries<T>::weighted_median(task.get(), 0, 0, nullptr), 0);
  return result;
}

// By variable from its copy, by group of neighbours in place.
TYPED_TEST(Quantiles, MeanDeviationsHaveTheSameBitsInEitherStorage) {
  using T = TypeParam;
  for (const int64_t p : {2, 15, 16, 17, 35}) {
    for (const int64_t n : {1, 15, 16, 17, 333}) {
      const auto s = random_sample<T>(p, n);
      std::vector<int32_t> flags(static_cast<size_t>(p), 1);
      flags[1] = 0;
      for (const uint64_t method : {0x1, 0x101}) {
        std::vector<T> results[3];
        for (int k = 0; k < 3; ++k) {
          std::vector<T> mean(s.rows.begin(), s.rows.begin() + p), &deviations = results[k];
          deviations.assign(static_cast<size_t>(p), T(-77));
          TaskOver<T> task;
          const T* x = k == 0 ? s.rows.data() : s.columns.data();
          ASSERT_EQ(task.make(p, n, k == 0 ? 0x10000 : 0x20000, x, nullptr, flags.data()), 0);
          task.set(OrvikSS_mean, mean);
          task.set(OrvikSS_meanAbsDeviation, deviations);
          ASSERT_EQ(Entries<T>::mad(task.get(), ORVIK_SS_MEAN_ABS_DEVIATION, method, threads(k)), 0);
          EXPECT_EQ(deviations[1], -77);
        }
        EXPECT_EQ(results[0], results[1]) << p << " " << n;
        EXPECT_EQ(results[0], results[2]) << p << " " << n;
      }
    }
  }
}

TYPED_TEST(Quantiles, WeightedMedianIsWhereTheRunningWeightPassesHalf) {
  using T = TypeParam;
  EXPECT_EQ((weighted_median<T>({5, 1, 3}, {1, 1, 1})), 3);
  EXPECT_EQ((weighted_median<T>({5, 1, 3}, {10, 1, 1})), 5);
  EXPECT_EQ((weighted_median<T>({5}, {2})), 5);
}

TYPED_TEST(Quantiles, WeightedMedianAtExactlyHalfIsTheMeanOfTheNeighbours) {
  using T = TypeParam;
  EXPECT_EQ((weighted_median<T>({4, 1, 3, 2}, {1, 1, 1, 1})), T(2.5));
  EXPECT_EQ((weighted_median<T>({1, 2, 9}, {2, 0, 2})), 5);
}

// Lengths on both sides of where digits sort instead of comparisons, and of where they become more.
TYPED_TEST(Quantiles, WeightedMedianOfEveryLengthIsThatOfValuesRepeatedByWeight) {
  using T = TypeParam;
  std::mt19937 engine(8);
  for (int64_t n : {1, 2, 3, 50, 95, 96, 97, 500, 1499, 1500, 1501, 6000}) {
    for (int64_t values : {2, 40, 1'000'000}) {
      std::vector<T> x, weights, repeated;
      for (int64_t i = 0; i < n; ++i) {
        x.push_back(static_cast<T>(static_cast<int64_t>(engine() % values) - values / 2));
        weights.push_back(static_cast<T>(engine() % 5));
        if (i == 0) weights[0] = 1;
        repeated.insert(repeated.end(), static_cast<size_t>(weights.back()), x.back());
      }
      std::sort(repeated.begin(), repeated.end());
      const size_t half = repeated.size() / 2;
      const T middle = repeated[half], before = repeated[repeated.size() % 2 == 0 ? half - 1 : half];
      EXPECT_EQ(weighted_median<T>(x, weights), before == middle ? middle : T(0.5) * (before + middle)) << n;
    }
  }
}

TYPED_TEST(Quantiles, WeightedMedianOfEveryVariableInBothStorages) {
  using T = TypeParam;
  const auto sample = random_sample<T>(4, 301);
  for (bool columns : {false, true}) {
    std::vector<T> medians(4);
    TaskOver<T> task;
    task.make(4, 301, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data(),
              sample.weights.data());
    task.set(OrvikSS_quantiles, medians);
    ASSERT_EQ(Entries<T>::weighted_median(task.get(), 0, 0, threads(3)), 0);
    for (int64_t j = 0; j < 4; ++j) {
      double below = 0, above = 0, total = 0;
      for (int64_t i = 0; i < 301; ++i) {
        total += sample.weights[i];
        if (sample.at(i, j) < medians[j]) below += sample.weights[i];
        if (sample.at(i, j) > medians[j]) above += sample.weights[i];
      }
      EXPECT_LE(below, total / 2 * (1 + 1e-12));
      EXPECT_LE(above, total / 2 * (1 + 1e-12));
    }
  }
}

TYPED_TEST(Quantiles, MahalanobisDistanceAgreesWithItsDefinition) {
  using T = TypeParam;
  for (int64_t p : {1, 2, 3, 4, 9, 32, 33}) {
    constexpr int64_t kCount = 5000;
    const auto sample = random_sample<T>(p, kCount);
    std::vector<T> inverse(p * p), mean(p, T(2)), distances(kCount);
    for (int64_t i = 0; i < p; ++i) {
      for (int64_t j = 0; j < p; ++j) inverse[i * p + j] = static_cast<T>(i == j ? 2 : 1.0 / (2 + i + j));
    }
    for (int mask = 0; mask < 4; ++mask) {
      const bool columns = mask & 1;
      TaskOver<T> task;
      task.make(p, kCount, columns ? 0x20000 : 0x10000, (columns ? sample.columns : sample.rows).data());
      task.set(OrvikSS_mean, mean);
      ASSERT_EQ(Entries<T>::distance(task.get(), p, inverse.data(), distances.data(), threads(mask)), 0);
      for (int64_t i = 0; i < kCount; i += 7) {
        long double square = 0;
        for (int64_t j = 0; j < p; ++j) {
          for (int64_t k = 0; k < p; ++k) {
            square += static_cast<long double>(inverse[j * p + k]) * (sample.at(i, j) - mean[j]) *
                      (sample.at(i, k) - mean[k]);
          }
        }
        const double want = static_cast<double>(std::sqrt(square));
        ASSERT_NEAR(distances[i], want, 100 * std::numeric_limits<T>::epsilon() * (want + 1));
      }
    }
  }
}

}  // namespace
}  // namespace orvik::ss::test

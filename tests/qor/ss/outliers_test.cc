// Outlier detection.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <random>

#include "qor/ss/classic_data.h"
#include "qor/ss/contaminated.h"
#include "qor/ss/exhausted.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

constexpr uint64_t kMethod = ORVIK_SS_METHOD_BACON;

template <class T>
struct Detection {
  TaskOver<T> task;
  std::vector<T> good, parameters;

  Detection(int64_t p, int64_t n, int64_t storage, const T* x, const T* weights = nullptr, bool wide = false)
      : task(wide), good(n, T{-1}) {
    EXPECT_EQ(task.make(p, n, storage, x, weights), 0);
    task.set(OrvikSS_outlierWeights, good);
  }
  Detection& with(std::vector<T> values, int64_t count = 3) {
    parameters = std::move(values);
    task.set(OrvikSS_outlierParameters, parameters);
    task.set_integer(OrvikSS_outlierParameterCount, count);
    return *this;
  }
  int32_t run(int threads_wanted = 0) { return Entries<T>::outliers(task.get(), 0, kMethod, threads(threads_wanted)); }
  std::vector<int64_t> outliers() const {
    std::vector<int64_t> found;
    for (size_t i = 0; i < good.size(); ++i) {
      EXPECT_TRUE(good[i] == 0 || good[i] == 1) << i;
      if (good[i] == 0) found.push_back(static_cast<int64_t>(i));
    }
    return found;
  }
  bool untouched() const {
    return std::all_of(good.begin(), good.end(), [](T v) { return v == -1; });
  }
};

template <class T>
std::vector<T> as(const std::vector<double>& x) {
  return std::vector<T>(x.begin(), x.end());
}
template <class T>
std::vector<T> transposed(const std::vector<T>& x, int64_t p) {
  const auto n = static_cast<int64_t>(x.size()) / p;
  std::vector<T> y(x.size());
  for (int64_t i = 0; i < n; ++i) {
    for (int64_t j = 0; j < p; ++j) y[j * n + i] = x[i * p + j];
  }
  return y;
}

template <class T>
void expect_hawkins_bradu_kass() {
  const auto columns = as<T>(kHawkinsBraduKass), rows = transposed(columns, 3);
  std::vector<int64_t> wanted(14);
  std::iota(wanted.begin(), wanted.end(), 0);
  for (bool wide : {false, true}) {
    for (T rule : {T(1), T(2)}) {
      for (int64_t storage : {0x10000, 0x20000}) {
        Detection<T> d(3, 75, storage, storage == 0x10000 ? rows.data() : columns.data(), nullptr, wide);
        ASSERT_EQ(d.with({rule, T(0.05), T(0.005)}).run(), 0);
        if (rule == 2) {
          EXPECT_EQ(d.outliers(), wanted);
        }
        // The start by classical distances is what masks these outliers; it finds the four most distant at least.
        for (int64_t i = 10; i < 14; ++i) EXPECT_EQ(d.good[i], 0);
      }
    }
  }
  // Means of the rest.
  const double means[3] = {1.5377049, 1.7803279, 1.6868852};
  Detection<T> d(3, 75, 0x20000, columns.data());
  ASSERT_EQ(d.run(), 0);
  for (int j = 0; j < 3; ++j) {
    double sum = 0, count = 0;
    for (int i = 0; i < 75; ++i) {
      sum += static_cast<double>(d.good[i]) * kHawkinsBraduKass[i * 3 + j];
      count += static_cast<double>(d.good[i]);
    }
    EXPECT_NEAR(sum / count, means[j], 5e-8);
  }
}

TEST(Outliers, OfHawkinsBraduAndKassAreCasesOneToFourteen) {
  expect_hawkins_bradu_kass<double>();
  expect_hawkins_bradu_kass<float>();
}

TEST(Outliers, OfTheStackLossData) {
  Detection<double> d(3, 21, 0x20000, kStackLoss.data());
  ASSERT_EQ(d.run(), 0);
  // The days that are outliers of the regression, 1, 3, 4 and 21, are none of the three variables alone: of so few days
  // the cutoff is 5.3 deviations, and the largest distance from the mean of all is 2.7.
  EXPECT_TRUE(d.outliers().empty());
  // A day that is none of theirs is found.
  auto x = kStackLoss;
  x.insert(x.end(), {40, 27, 72});
  Detection<double> more(3, 22, 0x20000, x.data());
  ASSERT_EQ(more.run(), 0);
  EXPECT_EQ(more.outliers(), (std::vector<int64_t>{21}));
}

TEST(Outliers, OfTheAirQualityDataAreNamedByTheirDays) {
  const auto all = read_air_quality(ORVIK_DATA "/airquality.csv", 4);
  std::vector<double> x;
  std::vector<int64_t> day;
  for (size_t i = 0; i < all.size(); i += 4) {
    if (std::any_of(&all[i], &all[i] + 4, [](double v) { return v != v; })) continue;
    x.insert(x.end(), &all[i], &all[i] + 4);
    day.push_back(static_cast<int64_t>(i / 4));
  }
  ASSERT_EQ(day.size(), 111u);
  Detection<double> d(4, 111, 0x20000, x.data());
  ASSERT_EQ(d.run(), 0);
  std::vector<int64_t> found;
  for (int64_t i : d.outliers()) found.push_back(day[i]);
  // May 30 is row 29, August 25 row 116: the largest Ozone values, 115 and 168.
  EXPECT_EQ(found, (std::vector<int64_t>{116})) << ::testing::PrintToString(found);
}

// Two to twenty variables, 5 to 40 percent far off: all are found, and of the good ones about as many as alpha / n of
// each lets expect are named.
TEST(Outliers, SimulatedContaminationIsFoundWithFewFalseAlarms) {
  for (int64_t p : {2, 5, 10, 20}) {
    for (double share : {0.05, 0.2, 0.4}) {
      const int64_t n = 2000;
      int64_t missed = 0, alarms = 0, good = 0;
      constexpr int kSamples = 5;
      for (uint64_t seed = 1; seed <= kSamples; ++seed) {
        const Contaminated c(p, n, share, 12, seed);
        Detection<double> d(p, n, 0x10000, c.sample.rows.data());
        ASSERT_EQ(d.run(), 0);
        for (int64_t i = 0; i < n; ++i) {
          missed += c.bad[i] && d.good[i] != 0;
          alarms += !c.bad[i] && d.good[i] == 0;
          good += !c.bad[i];
        }
      }
      EXPECT_EQ(missed, 0) << p << " " << share;
      // alpha = 0.05 a sample: five samples let 0.25 be expected, more than 5 come once in 10^7.
      EXPECT_LE(alarms, 5) << p << " " << share << " of " << good;
    }
  }
}

TEST(Outliers, FalseAlarmsOnGoodDataAreAboutNominal) {
  int samples_with_alarm = 0;
  constexpr int kSamples = 200;
  for (uint64_t seed = 1; seed <= kSamples; ++seed) {
    const Contaminated c(4, 400, 0, 0, seed);
    Detection<double> d(4, 400, 0x10000, c.sample.rows.data());
    ASSERT_EQ(d.run(), 0);
    samples_with_alarm += !d.outliers().empty();
  }
  // Nominal 5 percent, 10 of 200; the cutoff's corrections make it a little less. 25 come once in 10^5.
  EXPECT_LE(samples_with_alarm, 25);
}

// The iteration as it is stated, observations one after another in x.
class Plain {
 public:
  Plain(int64_t p, int64_t n, const std::vector<double>& x) : p_(p), n_(n), x_(x) {}

  std::vector<int64_t> outliers(int rule, double alpha, double beta) const {
    std::vector<int64_t> all(n_), by_distance(n_);
    std::iota(all.begin(), all.end(), 0);
    by_distance = all;
    const std::vector<double> first = rule == 1 ? distances(all) : from_medians();
    std::sort(by_distance.begin(), by_distance.end(), [&](int64_t i, int64_t k) { return first[i] < first[k]; });
    std::vector<int64_t> good(by_distance.begin(), by_distance.begin() + 5 * p_);
    std::sort(good.begin(), good.end());
    const double n = static_cast<double>(n_), p = static_cast<double>(p_), h = 0.5 * (n + p) + 0.5;
    for (int round = 0; round < 100; ++round) {
      const std::vector<double> d = distances(good);
      const double k = static_cast<double>(good.size());
      const double c = 1 + (p + 1) / (n - p) + 2 / (n - 1 - 3 * p) + std::max(0.0, (h - k) / (h + k));
      const double limit = c * std::sqrt(__qordChi2ICDF(1 - alpha / n, static_cast<int32_t>(p_)));
      std::vector<int64_t> next, moved;
      std::copy_if(all.begin(), all.end(), std::back_inserter(next), [&](int64_t i) { return d[i] < limit; });
      std::set_symmetric_difference(good.begin(), good.end(), next.begin(), next.end(), std::back_inserter(moved));
      good = std::move(next);
      if (static_cast<double>(moved.size()) <= beta * n) break;
    }
    std::vector<int64_t> found;
    std::set_difference(all.begin(), all.end(), good.begin(), good.end(), std::back_inserter(found));
    return found;
  }

 private:
  double at(int64_t i, int64_t j) const { return x_[static_cast<size_t>(i * p_ + j)]; }

  std::vector<double> from_medians() const {
    std::vector<double> d(n_);
    for (int64_t j = 0; j < p_; ++j) {
      std::vector<double> v(n_);
      for (int64_t i = 0; i < n_; ++i) v[i] = at(i, j);
      std::sort(v.begin(), v.end());
      const double median = 0.5 * (v[(n_ - 1) / 2] + v[n_ / 2]);
      for (int64_t i = 0; i < n_; ++i) d[i] += (at(i, j) - median) * (at(i, j) - median);
    }
    return d;
  }

  // From the mean of some under their covariance, by elimination.
  std::vector<double> distances(const std::vector<int64_t>& some) const {
    const double k = static_cast<double>(some.size());
    std::vector<double> mean(p_), covariance(p_ * p_), d(n_);
    for (int64_t i : some) {
      for (int64_t j = 0; j < p_; ++j) mean[j] += at(i, j) / k;
    }
    for (int64_t i : some) {
      for (int64_t j = 0; j < p_; ++j) {
        for (int64_t l = 0; l < p_; ++l) {
          covariance[j * p_ + l] += (at(i, j) - mean[j]) * (at(i, l) - mean[l]) / (k - 1);
        }
      }
    }
    for (int64_t i = 0; i < n_; ++i) {
      std::vector<double> a = covariance, b(p_);
      for (int64_t j = 0; j < p_; ++j) b[j] = at(i, j) - mean[j];
      double square = 0;
      for (int64_t j = 0; j < p_; ++j) {  // of a symmetric matrix: the sum of squares of what is left over its pivots
        square += b[j] * b[j] / a[j * p_ + j];
        for (int64_t r = j + 1; r < p_; ++r) {
          const double factor = a[r * p_ + j] / a[j * p_ + j];
          for (int64_t l = j; l < p_; ++l) a[r * p_ + l] -= factor * a[j * p_ + l];
          b[r] -= factor * b[j];
        }
      }
      d[i] = std::sqrt(square);
    }
    return d;
  }

  int64_t p_, n_;
  const std::vector<double>& x_;
};

TEST(Outliers, AreThoseOfThePlainIteration) {
  int64_t named = 0;
  for (int64_t p : {1, 2, 3, 5}) {
    for (int64_t n : {5 * p, 5 * p + 1, 5 * p + 9, int64_t{80}}) {
      for (uint64_t seed = 1; seed <= 60; ++seed) {
        std::mt19937_64 engine(seed);
        std::normal_distribution<double> normal;
        std::vector<double> x(p * n);
        for (double& v : x) v = normal(engine), v += 0.7 * v * v * v;  // long tails
        const double alpha[] = {0.05, 0.5, 1}, beta[] = {0.005, 0.1, 0.3};
        for (int rule : {1, 2}) {
          const double a = alpha[seed % 3], b = beta[seed / 3 % 3];
          Detection<double> d(p, n, 0x20000, x.data());
          ASSERT_EQ(d.with({static_cast<double>(rule), a, b}).run(), 0);
          const std::vector<int64_t> found = d.outliers();
          ASSERT_EQ(found, Plain(p, n, x).outliers(rule, a, b)) << p << " " << n << " seed " << seed << " rule " << rule;
          named += static_cast<int64_t>(found.size());
        }
      }
    }
  }
  EXPECT_GT(named, 1000);
}

TEST(Outliers, FiveTimesPIsTheLeastNumberOfObservations) {
  const auto sample = random_sample<double>(3, 15);
  Detection<double> least(3, 15, 0x20000, sample.columns.data());
  EXPECT_EQ(least.run(), 0);
  Detection<double> fewer(3, 14, 0x20000, sample.columns.data());
  EXPECT_EQ(fewer.run(), -4002);
  EXPECT_TRUE(fewer.untouched());
}

TEST(Outliers, ParameterCountOfTwoIgnoresTheArray) {
  const Contaminated c(3, 300, 0.1, 4.5, 7);
  auto found = [&](std::vector<double> values, int64_t count) {
    Detection<double> d(3, 300, 0x20000, c.sample.columns.data());
    EXPECT_EQ(d.with(std::move(values), count).run(), 0);
    return d.outliers();
  };
  Detection<double> defaults(3, 300, 0x20000, c.sample.columns.data());
  ASSERT_EQ(defaults.run(), 0);
  const auto usual = defaults.outliers();
  EXPECT_EQ(found({1, 1, 1}, 2), usual);
  EXPECT_NE(found({2, 1, 0.005}, 3), usual) << "the parameters do matter where they are taken";
  EXPECT_EQ(found({2, 0.05, 0.005}, 3), usual);
}

TEST(Outliers, AlphaOfTwoBehavesAsTheDefault) {
  const Contaminated c(3, 300, 0.1, 4.5, 7);
  auto found = [&](double alpha, double beta) {
    Detection<double> d(3, 300, 0x20000, c.sample.columns.data());
    EXPECT_EQ(d.with({2, alpha, beta}).run(), 0);
    return d.outliers();
  };
  const auto usual = found(0.05, 0.005);
  for (double alpha : {2.0, -1.0, std::nan("")}) EXPECT_EQ(found(alpha, 0.005), usual);
  for (double beta : {0.0, -1.0, std::nan("")}) EXPECT_EQ(found(0.05, beta), usual);
  EXPECT_TRUE(found(0, 0.005).empty()) << "nothing is beyond the cap";
}

TEST(Outliers, ThreadsAndStoragesAgree) {
  const Contaminated c(5, 4000, 0.1, 8, 3);
  Detection<double> one(5, 4000, 0x10000, c.sample.rows.data());
  ASSERT_EQ(one.run(), 0);
  for (int count : {1, 2, 5}) {
    Detection<double> more(5, 4000, 0x20000, c.sample.columns.data());
    ASSERT_EQ(more.run(count), 0);
    EXPECT_EQ(more.good, one.good);
  }
}

TEST(Outliers, ObservationsWithoutWeightCountForNothing) {
  const Contaminated c(3, 500, 0.1, 8, 5);
  Detection<double> plain(3, 500, 0x20000, c.sample.columns.data());
  ASSERT_EQ(plain.run(), 0);
  // The same with 50 observations behind that are no numbers, or far away, and have no weight.
  auto x = c.sample.columns;
  std::vector<double> weights(550, 1.0);
  for (int k = 0; k < 50; ++k) {
    weights[500 + k] = 0;
    for (int j = 0; j < 3; ++j) x.push_back(k < 20 ? std::nan("") : k < 40 ? HUGE_VAL : 1e6);
  }
  for (double rule : {1.0, 2.0}) {
    Detection<double> weighed(3, 550, 0x20000, x.data(), weights.data());
    ASSERT_EQ(weighed.with({rule, 0.05, 0.005}).run(), 0);
    for (int i = 0; i < 500; ++i) EXPECT_EQ(weighed.good[i], plain.good[i]) << i;
    for (int i = 500; i < 550; ++i) EXPECT_EQ(weighed.good[i], 0) << i;
  }
  std::fill(weights.begin(), weights.end(), 0.0);
  Detection<double> none(3, 550, 0x20000, x.data(), weights.data());
  EXPECT_EQ(none.run(), -4002);
}

TEST(Outliers, ValuesThatAreNoNumbersAreOutliers) {
  auto x = kHawkinsBraduKass;
  x[40 * 3 + 1] = std::nan("");
  x[50 * 3] = HUGE_VAL;
  Detection<double> d(3, 75, 0x20000, x.data());
  ASSERT_EQ(d.run(), 0);
  EXPECT_EQ(d.good[40], 0);
  EXPECT_EQ(d.good[50], 0);
  EXPECT_EQ(d.outliers().size(), 16u);
  // By weighted medians too.
  const std::vector<double> weights(75, 1.0);
  Detection<double> weighed(3, 75, 0x20000, x.data(), weights.data());
  ASSERT_EQ(weighed.run(), 0);
  EXPECT_EQ(weighed.good, d.good);
}

TEST(Outliers, ConstantAndDependentVariablesAreSingular) {
  for (int kind : {0, 1, 2}) {
    auto sample = random_sample<double>(3, 60);
    for (int i = 0; i < 60; ++i) {
      double* x = &sample.columns[i * 3];
      if (kind == 0) x[1] = 7;
      if (kind == 1) x[2] = x[0] + x[1];
      if (kind == 2) x[0] = std::nan("");
    }
    for (double rule : {1.0, 2.0}) {
      Detection<double> d(3, 60, 0x20000, sample.columns.data());
      EXPECT_EQ(d.with({rule, 0.05, 0.005}).run(), -5041) << kind;
      EXPECT_TRUE(d.untouched());
    }
  }
}

// The subset of 5 p is singular though the data are not: its observations are equal in one variable.
TEST(Outliers, ASingularFirstSubsetEndsTheCall) {
  auto sample = random_sample<double>(2, 60);
  for (int i = 0; i < 30; ++i) sample.columns[2 * i + 1] = 3, sample.columns[2 * i] = 1 + 0.001 * i;
  for (int i = 30; i < 60; ++i)
    sample.columns[2 * i] += i % 2 == 0 ? 50 : -50, sample.columns[2 * i + 1] += i % 3 - 1.5;
  Detection<double> d(2, 60, 0x20000, sample.columns.data());
  EXPECT_EQ(d.run(), -5041);
  EXPECT_TRUE(d.untouched());
}

TEST(Outliers, ChecksInOrder) {
  const auto sample = random_sample<double>(2, 20);
  std::vector<double> good(20, -1);
  EXPECT_EQ(_qordSSOutliersDetection(nullptr, 0, kMethod, nullptr), -4031);
  int32_t p = 2, n = 9, storage = 0x20000;
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, sample.columns.data(), nullptr, nullptr, 0), 0);
  p = 0;
  storage = 3;
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, 0, nullptr), -4001);
  p = 2;
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, 0, nullptr), -4002);
  n = 20;
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, 0, nullptr), -4003);
  storage = 0x30000;
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, 0, nullptr), -4003);
  storage = 0x10000;
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, 0, nullptr), -4041);
  __qordSSEditTask(task, OrvikSS_outlierWeights, good.data());
  for (uint64_t other : {0x0, 0x1, 0x8, 0x28}) {
    EXPECT_EQ(_qordSSOutliersDetection(task, 0, other, nullptr), -4029);
  }
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, kMethod, nullptr), 0);
  __qorSSDeleteTask(&task);
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, nullptr, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, kMethod, nullptr), -4003) << "null storage";
  __qoriSSEditTask(task, OrvikSS_observationStorage, &storage);
  __qordSSEditTask(task, OrvikSS_outlierWeights, good.data());
  EXPECT_EQ(_qordSSOutliersDetection(task, 0, kMethod, nullptr), -4032) << "null observations";
  __qorSSDeleteTask(&task);
}

TEST(Outliers, ExhaustedMemoryAtEveryAllocation) {
  const Contaminated c(5, 4000, 0.1, 8, 3);
  for (double rule : {1.0, 2.0}) {
    for (int count : {0, 3}) {
      Detection<double> d(5, 4000, 0x10000, c.sample.rows.data());
      d.with({rule, 0.05, 0.005});
      EXPECT_GE(fail_every_allocation([&] { return d.run(count); }, [&] { return d.untouched(); }), 8);
    }
  }
}

}  // namespace
}  // namespace orvik::ss::test

// Missing values: maximum likelihood, the layout of parameters and results, imputations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "qor/ss/classic_data.h"
#include "qor/ss/exhausted.h"
#include "qor/ss/normal_model.h"
#include "qor/ss/support.h"
#include "serv/blas.h"

namespace orvik::ss::test {
namespace {

constexpr uint64_t kMethod = ORVIK_SS_METHOD_IMPUTATION;

int64_t packed(int64_t p) { return p * (p + 1) / 2; }

template <class T>
std::vector<T> rows_of(const std::vector<T>& x, int64_t p) {
  const auto n = static_cast<int64_t>(x.size()) / p;
  std::vector<T> y(x.size());
  for (int64_t i = 0; i < n; ++i) {
    for (int64_t j = 0; j < p; ++j) y[j * n + i] = x[i * p + j];
  }
  return y;
}

template <class T>
struct Imputing {
  int64_t p, n, missing, sets, draws;
  std::vector<T> x, parameters, simulated, estimates, start, prior;
  TaskOver<T> task;

  // `columns`: observation by observation.
  Imputing(int64_t p, const std::vector<double>& columns, int64_t em, int64_t draws, int64_t sets,
           double accuracy = 1e-9, int64_t storage = 0x20000, bool wide = false)
      : p(p), n(static_cast<int64_t>(columns.size()) / p), sets(sets), draws(draws), task(wide) {
    missing = std::count_if(columns.begin(), columns.end(), [](double v) { return v != v; });
    for (double v : columns) x.push_back(v != v ? -std::numeric_limits<T>::quiet_NaN() : static_cast<T>(v));
    if (storage == 0x10000) x = rows_of(x, p);
    parameters = {T(em), T(draws), T(accuracy), T(sets), T(missing)};
    simulated.assign(std::max<int64_t>(sets * missing, 1), T{-77});
    estimates.assign(sets * std::max<int64_t>(draws, 1) * size(), T{-77});
    EXPECT_EQ(task.make(p, n, storage, x.data()), 0);
    task.set(OrvikSS_imputationParameters, parameters);
    task.set_integer(OrvikSS_imputationParameterCount, 5);
    task.set(OrvikSS_simulatedValues, simulated);
    task.set_integer(OrvikSS_simulatedValueCount, static_cast<int64_t>(simulated.size()));
    task.set(OrvikSS_estimates, estimates);
    task.set_integer(OrvikSS_estimateCount, static_cast<int64_t>(estimates.size()));
  }
  int64_t size() const { return p + packed(p); }
  void start_from(std::vector<T> values) {
    start = std::move(values);
    task.set(OrvikSS_initialEstimates, start);
    task.set_integer(OrvikSS_initialEstimateCount, static_cast<int64_t>(start.size()));
  }
  void use_prior(std::vector<T> values) {
    prior = std::move(values);
    task.set(OrvikSS_prior, prior);
    task.set_integer(OrvikSS_priorCount, static_cast<int64_t>(prior.size()));
  }
  int32_t run(int count = 0) { return Entries<T>::missing(task.get(), 0, kMethod, threads(count)); }
  bool untouched() const {
    auto is = [](T v) { return v == -77; };
    return std::all_of(simulated.begin(), simulated.end(), is) && std::all_of(estimates.begin(), estimates.end(), is);
  }
  const T* block(int64_t set, int64_t draw) const {
    return estimates.data() + (set * std::max<int64_t>(draws, 1) + draw) * size();
  }
};

// Where the present variables of a pattern contain those of the next, the likelihood factors into regressions: mean and
// covariance of the first variables from the observations that have them, and so on, block after block (Anderson 1957).
struct Factored {
  std::vector<long double> mean, covariance;  // of the five variables
};

// Solves a x = b, a positive definite.
std::vector<long double> solve(std::vector<long double> a, std::vector<long double> b) {
  const size_t n = b.size();
  for (size_t k = 0; k < n; ++k) {
    for (size_t i = k + 1; i < n; ++i) {
      const long double f = a[i * n + k] / a[k * n + k];
      for (size_t j = k; j < n; ++j) a[i * n + j] -= f * a[k * n + j];
      b[i] -= f * b[k];
    }
  }
  for (size_t k = n; k-- > 0;) {
    for (size_t j = k + 1; j < n; ++j) b[k] -= a[k * n + j] * b[j];
    b[k] /= a[k * n + k];
  }
  return b;
}

// `order`: variables from the most to the least observed.
Factored factored_likelihood(const std::vector<double>& x, size_t p, const std::vector<size_t>& order) {
  const size_t n = x.size() / p;
  Factored f{std::vector<long double>(p), std::vector<long double>(p * p)};
  for (size_t k = 0; k < p; ++k) {
    const size_t v = order[k];
    // Least squares of v on a constant and the variables before it, over the observations that have v.
    std::vector<long double> a((k + 1) * (k + 1)), b(k + 1);
    long double count = 0;
    auto regressor = [&](size_t i, size_t m) { return m == 0 ? 1.0L : x[i * p + order[m - 1]]; };
    for (size_t i = 0; i < n; ++i) {
      if (x[i * p + v] != x[i * p + v]) continue;
      ++count;
      for (size_t m = 0; m <= k; ++m) {
        for (size_t l = 0; l <= k; ++l) a[m * (k + 1) + l] += regressor(i, m) * regressor(i, l);
        b[m] += regressor(i, m) * x[i * p + v];
      }
    }
    const auto slope = solve(a, b);
    long double residual = 0;
    for (size_t i = 0; i < n; ++i) {
      if (x[i * p + v] != x[i * p + v]) continue;
      long double r = x[i * p + v];
      for (size_t m = 0; m <= k; ++m) r -= slope[m] * regressor(i, m);
      residual += r * r / count;
    }
    f.mean[v] = slope[0];
    for (size_t m = 0; m < k; ++m) f.mean[v] += slope[m + 1] * f.mean[order[m]];
    f.covariance[v * p + v] = residual;
    for (size_t m = 0; m < k; ++m) {
      long double c = 0;
      for (size_t l = 0; l < k; ++l) c += slope[l + 1] * f.covariance[order[l] * p + order[m]];
      f.covariance[v * p + order[m]] = f.covariance[order[m] * p + v] = c;
    }
    for (size_t m = 0; m < k; ++m) f.covariance[v * p + v] += slope[m + 1] * f.covariance[v * p + order[m]];
  }
  return f;
}

TEST(MissingValues, LikelihoodOfTheCementDataIsThatOfItsFactors) {
  const Factored f = factored_likelihood(kCement, 5, {2, 4, 0, 1, 3});
  // Means in print (Little and Rubin 2002).
  const double published[5] = {6.655, 49.965, 11.769, 27.047, 95.423};
  for (int storage : {0x10000, 0x20000}) {
    // No augmentation: the estimates are those of maximum likelihood.
    Imputing<double> m(5, kCement, 20000, 0, 2, 1e-14, storage);
    ASSERT_EQ(m.run(), 0);
    for (int set = 0; set < 2; ++set) {
      const double* estimate = m.block(set, 0);
      for (int j = 0; j < 5; ++j) {
        EXPECT_NEAR(estimate[j], static_cast<double>(f.mean[j]), 1e-6) << j;
        EXPECT_NEAR(estimate[j], published[j], 6e-4) << j;
        for (int i = 0; i <= j; ++i) {
          EXPECT_NEAR(estimate[5 + packed(j) + i], static_cast<double>(f.covariance[j * 5 + i]), 1e-4) << i << " " << j;
        }
      }
    }
  }
}

TEST(MissingValues, LikelihoodDoesNotDependOnTheStart) {
  const auto x = read_air_quality(ORVIK_DATA "/airquality.csv", 4);
  Imputing<double> usual(4, x, 1000, 0, 1, 1e-13), other(4, x, 1000, 0, 1, 1e-13);
  other.start_from({50, 100, 5, 90, 400, 0, 1e4, 10, 50, 20, 20, 0, 0, 90});
  ASSERT_EQ(usual.run(), 0);
  ASSERT_EQ(other.run(), 0);
  for (size_t k = 0; k < usual.estimates.size(); ++k) {
    EXPECT_NEAR(other.estimates[k] / usual.estimates[k], 1, 1e-9) << k;
  }
}

TEST(MissingValues, WithoutIterationsTheStartStands) {
  Imputing<double> m(5, kCement, 0, 0, 1);
  ASSERT_EQ(m.run(), 0);
  // Means of the present values, unit covariance.
  for (int j = 0; j < 5; ++j) {
    double sum = 0, count = 0;
    for (int i = 0; i < 13; ++i) {
      if (!std::isnan(kCement[i * 5 + j])) sum += kCement[i * 5 + j], ++count;
    }
    EXPECT_NEAR(m.estimates[j], sum / count, 1e-12) << j;
    for (int i = 0; i <= j; ++i) EXPECT_NEAR(m.estimates[5 + packed(j) + i], i == j, 1e-12);
  }
}

TEST(MissingValues, StopsWhereTheLargestChangeIsBelowTheAccuracy) {
  Imputing<double> coarse(5, kCement, 10000, 0, 1, 1e-2), fine(5, kCement, 10000, 0, 1, 1e-12);
  ASSERT_EQ(coarse.run(), 0);
  ASSERT_EQ(fine.run(), 0);
  const double difference = std::fabs(coarse.estimates[3] - fine.estimates[3]);
  EXPECT_GT(difference, 1e-6);
  EXPECT_LT(difference, 5);
}

// The air-quality table has 42 days with a missing value. Over the imputed sets, the means of the completed variables
// scatter by the error that the sets tell, and their average is the mean of maximum likelihood within it.
TEST(MissingValues, ImputedMeansOfTheAirQualityDataAreWithinTheBetweenImputationError) {
  const auto x = read_air_quality(ORVIK_DATA "/airquality.csv", 4);
  int days = 0;
  for (size_t i = 0; i < x.size(); i += 4) days += std::any_of(&x[i], &x[i] + 4, [](double v) { return v != v; });
  EXPECT_EQ(days, 42);
  constexpr int kSets = 40;
  Imputing<double> m(4, x, 1000, 50, kSets), likelihood(4, x, 1000, 0, 1, 1e-13);
  ASSERT_EQ(m.run(), 0);
  ASSERT_EQ(likelihood.run(), 0);
  const int64_t n = m.n, lacking[4] = {37, 7, 0, 0};
  for (int j = 0; j < 4; ++j) {
    double present = 0;
    for (int64_t i = 0; i < n; ++i) present += std::isnan(x[i * 4 + j]) ? 0 : x[i * 4 + j];
    std::vector<double> means(kSets, present);
    for (int s = 0; s < kSets; ++s) {
      const double* values = &m.simulated[s * m.missing] + (j == 1 ? 37 : 0);
      for (int64_t k = 0; k < lacking[j]; ++k) means[s] += values[k];
      means[s] /= static_cast<double>(n);
    }
    double average = 0, between = 0;
    for (double v : means) average += v / kSets;
    for (double v : means) between += (v - average) * (v - average) / (kSets - 1);
    EXPECT_EQ(between > 1e-9, lacking[j] > 0);
    // The average has the between-imputation error over the root of the number of sets.
    EXPECT_NEAR(average, likelihood.estimates[j], 4 * std::sqrt(between / kSets) + 1e-9) << j;
  }
  // Ozone alone, 37 missing: the parameters' draws scatter about their likeliest value by the standard error of a mean.
  double sum = 0, squares = 0, count = 0;
  for (int s = 0; s < kSets; ++s) {
    for (int k = 10; k < 50; ++k) {
      const double v = m.block(s, k)[0] - likelihood.estimates[0];
      sum += v, squares += v * v, ++count;
    }
  }
  const double error = std::sqrt(likelihood.estimates[4] / static_cast<double>(n));  // if nothing was missing
  EXPECT_NEAR(sum / count, 0, 0.3 * error);
  EXPECT_GT(std::sqrt(squares / count), 0.95 * error);
  EXPECT_LT(std::sqrt(squares / count), 1.5 * error);
}

// Known parameters, values missing at random: intervals of the pooled mean (Rubin 1987) cover the truth as often as
// they should.
TEST(MissingValues, IntervalsOfImputedMeansCoverTheTruth) {
  int covered = 0, trials = 0;
  for (uint64_t seed = 1; seed <= 100; ++seed) {
    std::mt19937_64 engine(seed);
    std::normal_distribution<double> normal;
    std::vector<double> x;
    for (int i = 0; i < 100; ++i) {
      const double common = normal(engine), y = 5 + common + normal(engine);
      x.push_back(common);
      x.push_back(engine() % 100 < (common > 0 ? 50 : 10) ? kMissing : y);  // missing where the other is large
    }
    constexpr int kSets = 10;
    Imputing<double> m(2, x, 200, 20, kSets, 1e-8);
    ASSERT_EQ(m.run(), 0);
    double average = 0, between = 0, within = 0;
    std::vector<double> means;
    for (int s = 0; s < kSets; ++s) {
      double sum = 0, squares = 0;
      const double* next = &m.simulated[s * m.missing];
      for (int i = 0; i < 100; ++i) {
        const double v = std::isnan(x[i * 2 + 1]) ? *next++ : x[i * 2 + 1];
        sum += v, squares += v * v;
      }
      means.push_back(sum / 100);
      average += sum / 100 / kSets;
      within += (squares - sum * sum / 100) / 99 / 100 / kSets;
    }
    for (double v : means) between += (v - average) * (v - average) / (kSets - 1);
    covered += std::fabs(average - 5) < 1.96 * std::sqrt(within + between * (1 + 1.0 / kSets));
    ++trials;
  }
  // 95 of 100 nominal, deviation 2.2: outside 86 to 100 once in 10^4.
  EXPECT_GE(covered, 86) << trials;
}

TEST(MissingValues, SimulatedValuesComeVariableByVariableInEitherStorage) {
  Imputing<double> columns(5, kCement, 500, 3, 2, 1e-9, 0x20000), rows(5, kCement, 500, 3, 2, 1e-9, 0x10000, true);
  ASSERT_EQ(columns.run(), 0);
  ASSERT_EQ(rows.run(), 0);
  EXPECT_EQ(columns.simulated, rows.simulated);
  EXPECT_EQ(columns.estimates, rows.estimates);
  // Nearly deterministic data: the k-th missing value must be the variable's own.
  std::vector<double> x;
  std::mt19937_64 engine(1);
  std::normal_distribution<double> normal;
  for (int i = 0; i < 60; ++i) {
    const double t = i + 0.01 * normal(engine);
    x.insert(x.end(), {t, 1000 + i + 0.01 * normal(engine), 1e6 + 2 * t + 0.01 * normal(engine)});
  }
  const int lacking[][2] = {{5, 0}, {30, 0}, {2, 1}, {30, 1}, {50, 2}};  // observation, variable
  const auto truth = x;
  for (const auto& [i, j] : lacking) x[i * 3 + j] = kMissing;
  Imputing<double> m(3, x, 2000, 2, 3);
  ASSERT_EQ(m.run(), 0);
  for (int s = 0; s < 3; ++s) {
    for (int k = 0; k < 5; ++k) {
      EXPECT_NEAR(m.simulated[s * 5 + k], truth[lacking[k][0] * 3 + lacking[k][1]], 0.2) << s << " " << k;
    }
  }
}

TEST(MissingValues, ThreadsDoNotChangeTheResults) {
  Imputing<double> one(5, kCement, 500, 4, 7), more(5, kCement, 500, 4, 7);
  ASSERT_EQ(one.run(), 0);
  for (int count : {1, 3, 8}) {
    ASSERT_EQ(more.run(count), 0);
    EXPECT_EQ(more.simulated, one.simulated);
    EXPECT_EQ(more.estimates, one.estimates);
  }
  EXPECT_NE(one.simulated[0], one.simulated[one.missing]) << "sets differ";
}

TEST(MissingValues, SinglePrecision) {
  Imputing<double> wanted(5, kCement, 500, 0, 1);
  Imputing<float> m(5, kCement, 500, 0, 1);
  ASSERT_EQ(wanted.run(), 0);
  ASSERT_EQ(m.run(), 0);
  for (size_t k = 0; k < m.estimates.size(); ++k) {
    EXPECT_NEAR(m.estimates[k] / wanted.estimates[k], 1, 2e-5) << k;
  }
  Imputing<float> drawn(5, kCement, 500, 3, 2);
  ASSERT_EQ(drawn.run(2), 0);
  for (float v : drawn.simulated) EXPECT_TRUE(std::isfinite(v));
}

TEST(MissingValues, AMissingValueHasTheStatedPattern) {
  auto float_of = [](uint32_t bits) { return std::bit_cast<float>(bits); };
  auto double_of = [](uint64_t bits) { return std::bit_cast<double>(bits); };
  EXPECT_TRUE(is_missing(float_of(0xFFC00000)));
  EXPECT_TRUE(is_missing(float_of(0xFFBFFFFF)));
  EXPECT_TRUE(is_missing(float_of(0xFFFFFFFF)));
  EXPECT_FALSE(is_missing(float_of(0xFFBFFFFE)));
  EXPECT_FALSE(is_missing(float_of(0xFF800000))) << "an infinity";
  EXPECT_FALSE(is_missing(float_of(0x7FC00000))) << "a NaN without the sign";
  EXPECT_TRUE(is_missing(double_of(0xFFF8000000000000)));
  EXPECT_TRUE(is_missing(double_of(0xFFF7FFFFFFFFFFFF)));
  EXPECT_FALSE(is_missing(double_of(0xFFF7FFFFFFFFFFFE)));
  EXPECT_FALSE(is_missing(double_of(0xFFF0000000000000)));
  EXPECT_FALSE(is_missing(double_of(0x7FF8000000000000)));
}

TEST(MissingValues, OtherNansAndInfinitiesEndTheCall) {
  for (double v : {std::fabs(std::nan("")), HUGE_VAL, -HUGE_VAL}) {
    auto x = kCement;
    Imputing<double> m(5, x, 100, 1, 1);
    m.x[7] = v;
    EXPECT_EQ(m.run(), -5021);
    EXPECT_TRUE(m.untouched());
  }
}

TEST(MissingValues, AnObservationWithNothingPresentIsDrawnButTellsNothing) {
  auto x = kCement;
  Imputing<double> without(5, x, 5000, 0, 1, 1e-13);
  x.insert(x.begin() + 25, 5, kMissing);
  Imputing<double> with(5, x, 5000, 0, 1, 1e-13);
  ASSERT_EQ(without.run(), 0);
  ASSERT_EQ(with.run(), 0);
  for (size_t k = 0; k < with.estimates.size(); ++k) EXPECT_NEAR(with.estimates[k] / without.estimates[k], 1, 1e-9);
  EXPECT_EQ(with.missing, without.missing + 5);
  for (double v : with.simulated) EXPECT_TRUE(std::isfinite(v) && v != -77);
}

TEST(MissingValues, NothingMissingGivesTheMomentsOfTheData) {
  const auto sample = random_sample<double>(3, 200);
  Imputing<double> m(3, sample.columns, 10, 0, 1);
  EXPECT_EQ(m.missing, 0);
  ASSERT_EQ(m.run(), 0);
  for (int j = 0; j < 3; ++j) {
    double sum = 0, squares = 0;
    for (int i = 0; i < 200; ++i) sum += sample.at(i, j) / 200;
    for (int i = 0; i < 200; ++i) squares += (sample.at(i, j) - sum) * (sample.at(i, j) - sum) / 200;
    EXPECT_NEAR(m.estimates[j], sum, 1e-12 * sum);
    EXPECT_NEAR(m.estimates[3 + packed(j) + j], squares, 1e-11 * squares);
  }
  EXPECT_EQ(m.simulated[0], -77);
}

TEST(MissingValues, AVariableWithoutValuesOrSpreadIsRefused) {
  for (int kind : {0, 1}) {
    auto x = kCement;
    for (int i = 0; i < 13; ++i) {
      if (kind == 0) x[i * 5 + 1] = kMissing;
      if (kind == 1 && !std::isnan(x[i * 5 + 1])) x[i * 5 + 1] = 0.1;
    }
    Imputing<double> m(5, x, 100, 1, 1);
    EXPECT_EQ(m.run(), -5025) << kind;
    EXPECT_TRUE(m.untouched());
  }
}

TEST(MissingValues, FewerObservationsThanVariablesHaveNoPosterior) {
  const auto sample = random_sample<double>(6, 5);
  auto x = sample.columns;
  x[3] = kMissing;
  // Without iterations the start is regular, so that only the posterior can fail.
  Imputing<double> m(6, x, 0, 1, 1);
  EXPECT_EQ(m.run(), -5024);
  EXPECT_TRUE(m.untouched());
  // A prior makes up for it.
  std::vector<double> prior(6 + 2 + 21);
  for (int j = 0; j < 6; ++j) prior[j] = 3, prior[8 + packed(j) + j] = 5;
  prior[6] = 1, prior[7] = 10;
  m.use_prior(prior);
  EXPECT_EQ(m.run(), 0);
}

TEST(MissingValues, DependentVariablesAreSingular) {
  const auto sample = random_sample<double>(3, 50);
  auto x = sample.columns;
  for (int i = 0; i < 50; ++i) x[i * 3 + 2] = x[i * 3] + x[i * 3 + 1];
  x[10] = kMissing;
  Imputing<double> m(3, x, 100, 2, 1, 1e-12);
  const int32_t status = m.run();
  EXPECT_TRUE(status <= -5021 && status >= -5025) << status;
  EXPECT_TRUE(m.untouched());
}

TEST(MissingValues, AStartThatIsNotPositiveDefiniteIsRefused) {
  Imputing<double> m(5, kCement, 100, 1, 1);
  std::vector<double> start(20, 1.0);  // all correlations one
  m.start_from(start);
  EXPECT_EQ(m.run(), -5021);
  start.assign(20, 0.0);
  for (int j = 0; j < 5; ++j) start[5 + packed(j) + j] = j == 3 ? -1 : 1;
  m.start_from(start);
  EXPECT_EQ(m.run(), -5021);
  start[5 + packed(3) + 3] = std::nan("");
  m.start_from(start);
  EXPECT_EQ(m.run(), -5021);
  EXPECT_TRUE(m.untouched());
}

// With a strong prior the draws are those of the prior.
TEST(MissingValues, AStrongPriorGovernsTheDraws) {
  std::vector<double> x;
  std::mt19937_64 engine(4);
  std::normal_distribution<double> normal;
  for (int i = 0; i < 30; ++i) x.insert(x.end(), {normal(engine), i % 5 == 0 ? kMissing : normal(engine)});
  Imputing<double> m(2, x, 100, 200, 1);
  const double degrees = 1e6, weight = 1e6;
  m.use_prior({10, 20, weight, degrees, 4 * degrees, 1 * degrees, 9 * degrees});
  ASSERT_EQ(m.run(), 0);
  const double* last = m.block(0, 199);
  EXPECT_NEAR(last[0], 10, 0.02);
  EXPECT_NEAR(last[1], 20, 0.03);
  EXPECT_NEAR(last[2], 4, 0.06);
  EXPECT_NEAR(last[3], 1, 0.06);
  EXPECT_NEAR(last[4], 9, 0.12);
}

// The posterior of complete data is known: the draws of the variances have the moments of an inverted Wishart.
TEST(MissingValues, PosteriorDrawsHaveTheMomentsOfTheInvertedWishart) {
  const int n = 20, p = 2;
  const auto sample = random_sample<double>(p, n, 8);
  const int64_t draws = 4000;
  Imputing<double> m(p, sample.columns, 1, draws, 1);
  ASSERT_EQ(m.run(), 0);
  for (int j = 0; j < p; ++j) {
    double mean = 0, scatter = 0;
    for (int i = 0; i < n; ++i) mean += sample.at(i, j) / n;
    for (int i = 0; i < n; ++i) scatter += std::pow(sample.at(i, j) - mean, 2);
    const double expected = scatter / (n - 1 - p - 1);  // degrees n - 1
    double average = 0, middle = 0, spread = 0;
    for (int64_t k = 0; k < draws; ++k) {
      average += m.block(0, k)[2 + packed(j) + j] / draws;
      middle += m.block(0, k)[j] / draws;
      spread += std::pow(m.block(0, k)[j] - mean, 2) / draws;
    }
    EXPECT_NEAR(average / expected, 1, 0.03) << j;
    EXPECT_NEAR((middle - mean) / std::sqrt(expected / n), 0, 0.08) << j;
    EXPECT_NEAR(spread / (expected / n), 1, 0.12) << j;
  }
}

TEST(MissingValues, ChecksInOrder) {
  std::vector<double> parameters = {10, 1, 1e-3, 1, 15}, simulated(16), estimates(20), other(22, 1);
  auto run = [](OrvikSSTask t, uint64_t method = kMethod) { return _qordSSMissingValues(t, 0, method, nullptr); };
  EXPECT_EQ(run(nullptr), -4031);
  int32_t p = 5, n = 13, storage = 0x20000, count = 5, values = 15, size = 20, given = 20, prior_size = 22;
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0);
  p = 0;
  EXPECT_EQ(run(task), -4001);
  p = 5;
  EXPECT_EQ(run(task), -4003) << "null storage";
  storage = 0x30000;
  __qoriSSEditTask(task, OrvikSS_observationStorage, &storage);
  EXPECT_EQ(run(task), -4003);
  storage = 0x20000;
  EXPECT_EQ(run(task), -4048);
  __qordSSEditTask(task, OrvikSS_imputationParameters, parameters.data());
  EXPECT_EQ(run(task), -4049);
  count = 4;
  __qoriSSEditTask(task, OrvikSS_imputationParameterCount, &count);
  EXPECT_EQ(run(task), -4050);
  count = 5;
  EXPECT_EQ(run(task), -4060) << "nothing asked for";
  __qordSSEditTask(task, OrvikSS_simulatedValues, simulated.data());
  EXPECT_EQ(run(task), -4055);
  __qoriSSEditTask(task, OrvikSS_simulatedValueCount, &values);
  __qordSSEditTask(task, OrvikSS_estimates, estimates.data());
  EXPECT_EQ(run(task), -4056);
  __qoriSSEditTask(task, OrvikSS_estimateCount, &size);
  EXPECT_EQ(run(task, 0), -4029);
  EXPECT_EQ(run(task), -4002) << "null count of observations";
  __qoriSSEditTask(task, OrvikSS_observationCount, &n);
  EXPECT_EQ(run(task), -4032);
  __qordSSEditTask(task, OrvikSS_observations, kCement.data());
  EXPECT_EQ(run(task), 0);
  // Counts without arrays, arrays without counts, arrays too short.
  __qoriSSEditTask(task, OrvikSS_initialEstimateCount, &given);
  EXPECT_EQ(run(task), -4053);
  __qordSSEditTask(task, OrvikSS_initialEstimates, other.data());
  given = 19;
  EXPECT_EQ(run(task), -4052);
  given = 20;
  EXPECT_EQ(run(task), -5021) << "the ones are no covariance";
  std::fill(other.begin() + 5, other.begin() + 20, 0.0);
  for (int j = 0; j < 5; ++j) other[5 + packed(j) + j] = 1;
  EXPECT_EQ(run(task), 0);
  std::vector<double> prior(22, 0.0);
  __qoriSSEditTask(task, OrvikSS_priorCount, &prior_size);
  EXPECT_EQ(run(task), -4062);
  __qordSSEditTask(task, OrvikSS_prior, prior.data());
  prior_size = 21;
  EXPECT_EQ(run(task), -4061);
  prior_size = 22;
  EXPECT_EQ(run(task), 0);
  values = 14;
  EXPECT_EQ(run(task), -4058);
  values = 15;
  size = 19;
  EXPECT_EQ(run(task), -4059);
  size = 20;
  for (double missing : {14.0, 16.0}) {
    parameters[4] = missing;
    values = 16;
    EXPECT_EQ(run(task), -4063) << "not what is found";
  }
  parameters[4] = 15;
  for (int k = 0; k < 5; ++k) {
    for (double bad : {-1.0, std::nan(""), 1e10}) {
      if (k == 2 && bad == 1e10) continue;
      const double kept = parameters[k];
      parameters[k] = bad;
      EXPECT_EQ(run(task), -4051) << k << " " << bad;
      parameters[k] = kept;
    }
  }
  parameters[3] = 0;
  EXPECT_EQ(run(task), -4051) << "no sets";
  __qorSSDeleteTask(&task);

  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, kCement.data(), nullptr, nullptr, 0), 0);
  parameters[3] = 1;
  __qordSSEditTask(task, OrvikSS_imputationParameters, parameters.data());
  __qoriSSEditTask(task, OrvikSS_imputationParameterCount, &count);
  __qoriSSEditTask(task, OrvikSS_simulatedValueCount, &values);
  EXPECT_EQ(run(task), -4054) << "a count without values";
  __qorSSDeleteTask(&task);

  // Simulated values alone need no method bit; estimates alone are served.
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, kCement.data(), nullptr, nullptr, 0), 0);
  __qordSSEditMissingVals(task, &count, parameters.data(), nullptr, nullptr, nullptr, nullptr, &values,
                          simulated.data(), nullptr, nullptr);
  EXPECT_EQ(run(task, 0), 0);
  __qorSSDeleteTask(&task);
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, kCement.data(), nullptr, nullptr, 0), 0);
  __qordSSEditMissingVals(task, &count, parameters.data(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &size,
                          estimates.data());
  EXPECT_EQ(run(task), 0);
  serv::blas::pretend_missing(true);
  EXPECT_EQ(run(task), -4000);
  serv::blas::pretend_missing(false);
  __qorSSDeleteTask(&task);
}

TEST(MissingValues, ExhaustedMemoryAtEveryAllocation) {
  for (int count : {0, 3}) {
    Imputing<double> m(5, kCement, 100, 2, 3);
    std::vector<double> prior(22, 0.0);
    m.use_prior(prior);
    EXPECT_GE(fail_every_allocation([&] { return m.run(count); }, [&] { return m.untouched(); }), 15);
  }
}

}  // namespace
}  // namespace orvik::ss::test

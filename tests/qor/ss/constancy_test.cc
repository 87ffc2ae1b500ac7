// A variable that varies has a correlation, however small its deviations are; one that does not has none, whatever its
// value, the method, the cut into blocks or threads.
#include <gtest/gtest.h>

#include <cmath>

#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

template <class T>
struct Pair {
  std::vector<T> mean = std::vector<T>(2), covariance = std::vector<T>(4), correlation = std::vector<T>(4),
                 accumulated = std::vector<T>(2);

  void feed(int64_t n, const T* columns, uint64_t method, int count = 0, const T* weights = nullptr) {
    TaskOver<T> task;
    ASSERT_EQ(task.make(2, n, 0x20000, columns, weights), 0);
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_covariance, covariance);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    task.set(OrvikSS_correlation, correlation);
    task.set_integer(OrvikSS_correlationStorage, 0);
    task.set(OrvikSS_accumulatedWeights, accumulated);
    ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_COVARIANCE | ORVIK_SS_CORRELATION, method, threads(count)), 0);
  }
};

// Two variables of this mean and deviation, with a correlation near 0.6 that is computed from the stored values.
template <class T>
double feed_pair(int64_t n, double mean, double deviation, uint64_t method, Pair<T>* run) {
  std::mt19937_64 engine(7);
  std::normal_distribution<double> normal;
  std::vector<T> x(2 * n);
  for (int64_t i = 0; i < n; ++i) {
    const double a = normal(engine), b = 0.6 * a + 0.8 * normal(engine);
    x[2 * i] = static_cast<T>(mean + deviation * a);
    x[2 * i + 1] = static_cast<T>(mean + deviation * b);
  }
  long double m[2] = {}, c[3] = {};
  for (int64_t i = 0; i < n; ++i) m[0] += x[2 * i], m[1] += x[2 * i + 1];
  for (int64_t i = 0; i < n; ++i) {
    const long double a = x[2 * i] - m[0] / n, b = x[2 * i + 1] - m[1] / n;
    c[0] += a * a, c[1] += a * b, c[2] += b * b;
  }
  run->feed(n, x.data(), method);
  return static_cast<double>(c[1] / std::sqrt(c[0] * c[2]));
}

TEST(Correlation, OfFloatsThatVaryLittleByTheFastMethodIsANumber) {
  Pair<float> run;
  const double want = feed_pair(1'000'000, 100, 0.9, ORVIK_SS_METHOD_FAST, &run);
  EXPECT_NEAR(run.correlation[1], want, 1e-3);
  EXPECT_EQ(run.correlation[0], 1);
}
TEST(Correlation, OfFloatsThatVaryLittleByOnePassIsANumber) {
  Pair<float> a, b;
  const double want_a = feed_pair(1'000'000, 1000, 0.1, ORVIK_SS_METHOD_ONE_PASS, &a);
  EXPECT_NEAR(a.correlation[1], want_a, 1e-3);
  const double want_b = feed_pair(2'000'000, 293.15, 0.03, ORVIK_SS_METHOD_ONE_PASS, &b);
  EXPECT_NEAR(b.correlation[1], want_b, 1e-3);
}
TEST(Correlation, OfDoublesThatVaryLittleByTheFastMethodIsANumber) {
  Pair<double> run;
  const double want = feed_pair(1'000'000, 1e6, 0.2, ORVIK_SS_METHOD_FAST, &run);
  EXPECT_NEAR(run.correlation[1], want, 1e-9);
}

template <class T>
class Constancy : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Constancy, Types);

constexpr uint64_t kOwnMean[] = {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS};

// The second variable is the constant.
template <class T>
std::vector<T> beside_constant(int64_t n, double constant) {
  std::vector<T> x(2 * n);
  for (int64_t i = 0; i < n; ++i) x[2 * i] = static_cast<T>((i * 37) % 101), x[2 * i + 1] = static_cast<T>(constant);
  return x;
}

TYPED_TEST(Constancy, IsExactInEveryLengthMethodAndNumberOfThreads) {
  using T = TypeParam;
  for (double constant : {0.1, 1.0 / 3, 12345.678, -1e-20, 1e15}) {
    for (int64_t n : {2, 17, 1000, 70001}) {
      const auto x = beside_constant<T>(n, constant);
      std::vector<T> w(n);
      for (int64_t i = 0; i < n; ++i) w[i] = static_cast<T>(0.1 + static_cast<double>(i % 7) / 3);
      for (uint64_t method : kOwnMean) {
        for (int count : {0, 3}) {
          for (bool weighted : {false, true}) {
            Pair<T> run;
            run.feed(n, x.data(), method, count, weighted ? w.data() : nullptr);
            EXPECT_EQ(run.covariance[3], 0) << constant << " n " << n << " method " << method;
            EXPECT_EQ(run.covariance[1], 0);
            EXPECT_EQ(run.mean[1], static_cast<T>(constant));
            EXPECT_TRUE(std::isnan(run.correlation[3]) && std::isnan(run.correlation[1]));
            EXPECT_EQ(run.correlation[0], 1);
          }
        }
      }
    }
  }
}

TYPED_TEST(Constancy, HoldsOverTheBlocksOfARunAndEndsWithTheFirstOtherValue) {
  using T = TypeParam;
  const auto x = beside_constant<T>(5000, 0.1);
  for (uint64_t method : kOwnMean) {
    Pair<T> run;
    for (int b = 0; b < 5; ++b) {
      run.feed(1000, x.data() + 2000 * b, method);
      EXPECT_TRUE(std::isnan(run.correlation[3])) << "block " << b;
    }
    auto other = x;
    other[2 * 777 + 1] = std::nextafter(other[1], T{1});
    run.feed(1000, other.data(), method);
    EXPECT_GT(run.covariance[3], 0);
    EXPECT_EQ(run.correlation[3], 1);
    EXPECT_FALSE(std::isnan(run.correlation[1]));
  }
}

}  // namespace
}  // namespace orvik::ss::test

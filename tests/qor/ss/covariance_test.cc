// Covariance, correlation and cross-product against a two-pass reference, over storages, weights, selection, methods,
// threads and cuts into blocks.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/ss/reference.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

constexpr double kUntouched = -77.5;

int64_t place(int code, int64_t p, int64_t i, int64_t j) {
  if (code == 1) return i >= j ? i * (i + 1) / 2 + j : -1;
  if (code == 2) return j >= i ? i * p - i * (i - 1) / 2 + (j - i) : -1;
  return i * p + j;
}
int64_t size_of(int code, int64_t p) { return code == 0 ? p * p : p * (p + 1) / 2; }

struct Case {
  int64_t p, n;
  bool columns, weighted, selected;
  uint64_t method;
  int threads, blocks;
  int covariance, correlation, cross;  // storage codes, -1 not asked for
};

template <class T>
void check(const Sample<T>& sample, const Case& c) {
  SCOPED_TRACE(testing::Message() << "p " << c.p << " n " << c.n << " columns " << c.columns << " weighted "
                                  << c.weighted << " selected " << c.selected << " method " << c.method << " threads "
                                  << c.threads << " blocks " << c.blocks << " storages " << c.covariance
                                  << c.correlation << c.cross << " size " << sizeof(T));
  std::vector<int32_t> flags(c.p, 1);
  for (int64_t j = 0; c.selected && j < c.p; ++j) flags[j] = j % 3 != 1;
  std::vector<T> mean(c.p), accumulated(2);
  const T old = static_cast<T>(kUntouched);
  std::vector<T> covariance(c.p * c.p, old), correlation(c.p * c.p, old), cross(c.p * c.p, old);
  const Reference want(sample, c.weighted);
  if (c.method == ORVIK_SS_METHOD_USER_MEAN) {
    for (int64_t j = 0; j < c.p; ++j) mean[j] = static_cast<T>(want.v[j].mean);
  }
  uint64_t estimates = 0;
  for (int b = 0; b < c.blocks; ++b) {
    const int64_t i0 = c.n * b / c.blocks, i1 = c.n * (b + 1) / c.blocks, m = i1 - i0;
    std::vector<T> part(c.p * m);
    for (int64_t i = 0; i < m; ++i) {
      for (int64_t j = 0; j < c.p; ++j) part[c.columns ? i * c.p + j : j * m + i] = sample.at(i0 + i, j);
    }
    TaskOver<T> task;
    ASSERT_EQ(task.make(c.p, m, c.columns ? 0x20000 : 0x10000, part.data(),
                        c.weighted ? sample.weights.data() + i0 : nullptr, c.selected ? flags.data() : nullptr),
              0);
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_accumulatedWeights, accumulated);
    auto want_matrix = [&](int code, int32_t id, int32_t storage, uint64_t bit, std::vector<T>& a) {
      if (code < 0) return;
      task.set(id, a);
      task.set_integer(storage, code);
      estimates |= bit;
    };
    want_matrix(c.covariance, OrvikSS_covariance, OrvikSS_covarianceStorage, ORVIK_SS_COVARIANCE, covariance);
    want_matrix(c.correlation, OrvikSS_correlation, OrvikSS_correlationStorage, ORVIK_SS_CORRELATION, correlation);
    want_matrix(c.cross, OrvikSS_crossProduct, OrvikSS_crossProductStorage, ORVIK_SS_CROSS_PRODUCT, cross);
    ASSERT_EQ(Entries<T>::basic(task.get(), estimates, c.method, threads(c.threads)), 0);
  }

  const double eps = std::numeric_limits<T>::epsilon() * 100;
  for (int64_t i = 0; i < c.p; ++i) {
    for (int64_t j = 0; j < c.p; ++j) {
      const bool chosen = flags[i] != 0 && flags[j] != 0;
      const long double spread = std::sqrt(want.cross[i * c.p + i] * want.cross[j * c.p + j]) +
                                 want.weight * std::fabs(want.v[i].mean * want.v[j].mean);
      auto compare = [&](int code, const std::vector<T>& got, long double value, long double scale) {
        const int64_t k = code < 0 ? -1 : place(code, c.p, i, j);
        if (k < 0) return;
        ASSERT_LT(k, size_of(code, c.p));
        if (chosen) {
          ASSERT_NEAR(static_cast<double>(got[k]), static_cast<double>(value), eps * static_cast<double>(scale))
              << i << " " << j;
        } else {
          ASSERT_EQ(got[k], old) << i << " " << j;
        }
      };
      compare(c.covariance, covariance, want.covariance(i, j), spread * want.factor / want.weight);
      compare(c.cross, cross, want.cross[i * c.p + j], spread);
      compare(c.correlation, correlation, want.correlation(i, j),
              spread / std::sqrt(want.cross[i * c.p + i] * want.cross[j * c.p + j]));
    }
  }
}

template <class T>
class Covariance : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Covariance, Types);

constexpr uint64_t kMethods[] = {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS, ORVIK_SS_METHOD_USER_MEAN};

TYPED_TEST(Covariance, AgreesWithATwoPassReferenceInEveryCombination) {
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{1, 400}, {3, 1030}, {12, 611}, {40, 210}}) {
    const auto sample = random_sample<TypeParam>(p, n);
    for (bool columns : {false, true}) {
      for (bool weighted : {false, true}) {
        for (bool selected : {false, true}) {
          for (uint64_t method : kMethods) {
            check(sample, {p, n, columns, weighted, selected, method, 0, 1, 0, 1, 2});
            check(sample, {p, n, columns, weighted, selected, method, 3, 1, 1, 0, 1});
            check(sample, {p, n, columns, weighted, selected, method, 2, 4, 2, 2, 0});
          }
        }
      }
    }
    if (this->HasFatalFailure()) return;
  }
}

// Few variables are summed in vectors, more by matrix kernels; lengths with every rest of a vector.
TYPED_TEST(Covariance, OfEveryFewVariablesAgreesForEveryShortLength) {
  for (int64_t p = 1; p <= 18; ++p) {
    for (int64_t n : {2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 31, 33, 63, 130, 300}) {
      const auto sample = random_sample<TypeParam>(p, n);
      for (bool columns : {false, true}) {
        for (bool weighted : {false, true}) {
          for (uint64_t method : kMethods) check(sample, {p, n, columns, weighted, false, method, 0, 1, 0, -1, 1});
        }
      }
    }
    if (this->HasFatalFailure()) return;
  }
}

TYPED_TEST(Covariance, AgreesForEachMatrixAloneAndEveryNumberOfThreads) {
  const auto sample = random_sample<TypeParam>(8, 5000);
  for (int threads = 1; threads <= 8; ++threads) {
    for (uint64_t method : kMethods) {
      for (int code : {0, 1, 2}) {
        check(sample, {8, 5000, true, true, false, method, threads, 1, code, -1, -1});
        check(sample, {8, 5000, false, false, false, method, threads, 1, -1, code, -1});
        check(sample, {8, 5000, false, true, true, method, threads, 1, -1, -1, code});
      }
    }
  }
}

// What the deviations can keep of their digits, they keep: the mean is 10^6 times the deviation.
TYPED_TEST(Covariance, ByOnePassKeepsDigitsUnderALargeMean) {
  if (sizeof(TypeParam) == 4) GTEST_SKIP() << "a float holds no such data";
  const auto sample = random_sample<TypeParam>(4, 3000, 5, 1e6);
  const Reference want(sample, false);
  std::vector<TypeParam> mean(4), covariance(16);
  TaskOver<TypeParam> task;
  ASSERT_EQ(task.make(4, 3000, 0x20000, sample.columns.data()), 0);
  task.set(OrvikSS_mean, mean);
  task.set(OrvikSS_covariance, covariance);
  task.set_integer(OrvikSS_covarianceStorage, 0);
  ASSERT_EQ(Entries<TypeParam>::basic(task.get(), ORVIK_SS_COVARIANCE, ORVIK_SS_METHOD_ONE_PASS, nullptr), 0);
  for (int k = 0; k < 16; ++k) {
    EXPECT_NEAR(covariance[k] / static_cast<double>(want.covariance(k / 4, k % 4)), 1, 1e-9);
  }
}

TYPED_TEST(Covariance, OfOneObservationIsZero) {
  const auto sample = random_sample<TypeParam>(3, 1);
  std::vector<TypeParam> mean(3), covariance(9, TypeParam{5});
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    TaskOver<TypeParam> task;
    ASSERT_EQ(task.make(3, 1, 0x20000, sample.columns.data()), 0);
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_covariance, covariance);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    ASSERT_EQ(Entries<TypeParam>::basic(task.get(), ORVIK_SS_COVARIANCE, method, nullptr), 0);
    for (TypeParam c : covariance) EXPECT_EQ(c, 0);
  }
}

TYPED_TEST(Covariance, ConstantVariableHasNanInItsWholeRowOfTheCorrelation) {
  for (double constant : {0.1, 3.0, 12345.678, 0.0}) {
    const Sample<TypeParam> sample(
        3, 1000, [&](int64_t i, int64_t j) { return j == 1 ? constant : (i * 37 + j * i * i) % 101; });
    for (uint64_t method : kMethods) {
      for (int threads : {0, 2}) {
        std::vector<TypeParam> correlation(9), mean = {0, static_cast<TypeParam>(constant), 0};
        TaskOver<TypeParam> task;
        ASSERT_EQ(task.make(3, 1000, 0x10000, sample.rows.data()), 0);
        task.set(OrvikSS_mean, mean);
        task.set(OrvikSS_correlation, correlation);
        task.set_integer(OrvikSS_correlationStorage, 0);
        ASSERT_EQ(Entries<TypeParam>::basic(task.get(), ORVIK_SS_CORRELATION, method, ss::test::threads(threads)), 0);
        for (int i = 0; i < 3; ++i) {
          for (int j = 0; j < 3; ++j) {
            EXPECT_EQ(std::isnan(correlation[i * 3 + j]), i == 1 || j == 1)
                << constant << " " << i << j << " " << method;
          }
        }
        EXPECT_EQ(correlation[0], 1);
        EXPECT_EQ(correlation[8], 1);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::ss::test

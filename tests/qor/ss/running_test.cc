// What a run keeps between its blocks, results from held sums, selection of the routines, bad data.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/ss/reference.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

template <class T>
class Running : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Running, Types);

// Two blocks of a sample with the same fields.
template <class T>
void run_blocks(const Sample<T>& s, const std::vector<std::pair<int32_t, T*>>& fields, uint64_t estimates,
                uint64_t method, int blocks = 2) {
  for (int b = 0; b < blocks; ++b) {
    const int64_t i0 = s.n * b / blocks, i1 = s.n * (b + 1) / blocks;
    TaskOver<T> task;
    ASSERT_EQ(task.make(s.p, i1 - i0, 0x20000, s.columns.data() + i0 * s.p), 0);
    for (const auto& [id, value] : fields) task.set(id, value);
    ASSERT_EQ(Entries<T>::basic(task.get(), estimates, method, nullptr), 0);
  }
}

TYPED_TEST(Running, CentralSumsAloneGoOnFromTheLowerSumsThatAreSet) {
  using T = TypeParam;
  const auto s = random_sample<T>(3, 500);
  const Reference want(s, false);
  const double eps = std::numeric_limits<T>::epsilon();
  for (int k : {3, 4}) {
    std::vector<T> mean(3), s2(3, T(9)), s3(3, T(9)), s4(3, T(9)), accumulated(2);
    run_blocks<T>(s,
                  {{OrvikSS_mean, mean.data()},
                   {OrvikSS_centralSum2, s2.data()},
                   {OrvikSS_centralSum3, s3.data()},
                   {OrvikSS_centralSum4, s4.data()},
                   {OrvikSS_accumulatedWeights, accumulated.data()}},
                  k == 3 ? ORVIK_SS_CENTRAL_SUM3 : ORVIK_SS_CENTRAL_SUM4, ORVIK_SS_METHOD_ONE_PASS);
    for (int j = 0; j < 3; ++j) {
      const auto& v = want.v[j];
      const auto scale = static_cast<double>(std::pow(v.c[2], 0.5L * k) * want.weight);
      EXPECT_NEAR((k == 3 ? s3 : s4)[j], static_cast<double>(v.cs[k]), 2000 * eps * scale);
      EXPECT_NEAR(s2[j], static_cast<double>(v.cs[2]), 400 * eps * static_cast<double>(v.cs[2]));
    }
  }
}

TYPED_TEST(Running, RawMomentsGoOnBesideCentralSumsWithoutTheLowerOnes) {
  using T = TypeParam;
  const double eps = std::numeric_limits<T>::epsilon();
  for (int p : {1, 3}) {
    const auto s = random_sample<T>(p, 500);
    const Reference want(s, false);
    for (int k : {3, 4}) {
      std::vector<T> mean(p), raw(p), central(p), accumulated(2);
      const uint64_t estimates = k == 3 ? ORVIK_SS_RAW_MOMENT3 | ORVIK_SS_CENTRAL_SUM3  //
                                        : ORVIK_SS_RAW_MOMENT4 | ORVIK_SS_CENTRAL_SUM4;
      run_blocks<T>(s,
                    {{OrvikSS_mean, mean.data()},
                     {k == 3 ? OrvikSS_rawMoment3 : OrvikSS_rawMoment4, raw.data()},
                     {k == 3 ? OrvikSS_centralSum3 : OrvikSS_centralSum4, central.data()},
                     {OrvikSS_accumulatedWeights, accumulated.data()}},
                    estimates, ORVIK_SS_METHOD_ONE_PASS, 3);
      for (int j = 0; j < p; ++j) {
        const auto& v = want.v[j];
        EXPECT_NEAR(raw[j], static_cast<double>(v.r[k]), 100 * eps * static_cast<double>(v.absolute[k])) << k;
      }
    }
  }
}

TYPED_TEST(Running, CentralMomentsAloneGoOnFromTheRawMoments) {
  using T = TypeParam;
  const auto s = random_sample<T>(3, 500);
  const Reference want(s, false);
  const double eps = std::numeric_limits<T>::epsilon();
  std::vector<T> mean(3), r2(3), r3(3), r4(3), c4(3), accumulated(2);
  run_blocks<T>(s,
                {{OrvikSS_mean, mean.data()},
                 {OrvikSS_rawMoment2, r2.data()},
                 {OrvikSS_rawMoment3, r3.data()},
                 {OrvikSS_rawMoment4, r4.data()},
                 {OrvikSS_centralMoment4, c4.data()},
                 {OrvikSS_accumulatedWeights, accumulated.data()}},
                ORVIK_SS_CENTRAL_MOMENT4, ORVIK_SS_METHOD_ONE_PASS, 3);
  for (int j = 0; j < 3; ++j) {
    const auto& v = want.v[j];
    EXPECT_NEAR(c4[j], static_cast<double>(v.c[4]), 200 * eps * static_cast<double>(v.absolute[4]));
  }
}

TYPED_TEST(Running, StartsAnewWhereTheWeightIsZeroWhateverTheArraysHold) {
  using T = TypeParam;
  const T nan = std::numeric_limits<T>::quiet_NaN();
  const auto s = random_sample<T>(2, 300);
  const Reference want(s, false);
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    for (bool set : {false, true}) {
      std::vector<T> mean(2, nan), r2(2, nan), c2(2, nan), covariance(4, nan), accumulated = {0, nan};
      TaskOver<T> task;
      task.make(2, 300, 0x20000, s.columns.data());
      task.set(OrvikSS_mean, mean);
      task.set(OrvikSS_rawMoment2, r2);
      task.set(OrvikSS_centralMoment2, c2);
      task.set(OrvikSS_covariance, covariance);
      task.set_integer(OrvikSS_covarianceStorage, 0);
      if (set) task.set(OrvikSS_accumulatedWeights, accumulated);
      ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2 | ORVIK_SS_COVARIANCE, method, nullptr), 0);
      for (int j = 0; j < 2; ++j) {
        EXPECT_NEAR(mean[j] / static_cast<double>(want.v[j].mean), 1, 1e-5);
        EXPECT_NEAR(c2[j] / static_cast<double>(want.v[j].c[2]), 1, 1e-4);
        EXPECT_NEAR(covariance[3 * j] / static_cast<double>(want.v[j].c[2]), 1, 1e-4);
      }
      if (set) {
        EXPECT_EQ(accumulated[0], 300);
        EXPECT_EQ(accumulated[1], 300);
      }
    }
  }
}

TYPED_TEST(Running, LeadingZeroWeightsAreSkipped) {
  using T = TypeParam;
  const std::vector<T> x = {1000, 2000, 1, 3, 5}, w = {0, 0, 1, 0, 1};
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    T mean = 0, r2 = 0, c2 = 0, accumulated[2] = {};
    TaskOver<T> task;
    task.make(1, 5, 0x10000, x.data(), w.data());
    task.set(OrvikSS_mean, &mean);
    task.set(OrvikSS_rawMoment2, &r2);
    task.set(OrvikSS_centralMoment2, &c2);
    task.set(OrvikSS_accumulatedWeights, accumulated);
    ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2, method, nullptr), 0);
    EXPECT_EQ(mean, 3);
    EXPECT_EQ(r2, 13);
    EXPECT_EQ(c2, 8);
    EXPECT_EQ(accumulated[0], 2);
  }
}

// The task's copy of the means follows.
TYPED_TEST(Running, UserMeanOfMoreVariablesThanBefore) {
  using T = TypeParam;
  constexpr int64_t kMany = 100000;
  std::vector<T> x(2 * kMany), mean(kMany, T(2)), r2(kMany), c2(kMany);
  for (size_t i = 0; i < x.size(); ++i) x[i] = i % 2 == 0 ? T(1) : T(3);
  TaskOver<T> task;
  ASSERT_EQ(task.make(1, 2, 0x10000, x.data()), 0);
  task.set(OrvikSS_mean, mean);
  task.set(OrvikSS_rawMoment2, r2);
  task.set(OrvikSS_centralMoment2, c2);
  for (const int64_t p : {int64_t{1}, kMany, int64_t{1}}) {
    std::fill(c2.begin(), c2.end(), T(-77));
    task.set_integer(OrvikSS_dimension, p);
    ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2, 0x100, nullptr), 0);
    for (int64_t j = 0; j < kMany; ++j) ASSERT_EQ(c2[static_cast<size_t>(j)], j < p ? T(2) : T(-77));
  }
}

TYPED_TEST(Running, UserMeanMayChangeBetweenBlocks) {
  using T = TypeParam;
  const auto s = random_sample<T>(2, 400);
  const Reference want(s, false);
  const Sample<T> first(2, 200, [&](int64_t i, int64_t j) { return s.at(i, j); });
  const Reference first_want(first, false);
  std::vector<T> mean(2), r2(2), c2(2), covariance(4), accumulated(2);
  int32_t n = 200, p = 2, form = 0x20000, full = 0;
  OrvikSSTask task = nullptr;
  ASSERT_EQ(Entries<T>::new_task(&task, &p, &n, &form, s.columns.data(), nullptr, nullptr, 0), 0);
  Entries<T>::edit(task, OrvikSS_mean, mean.data());
  Entries<T>::edit(task, OrvikSS_rawMoment2, r2.data());
  Entries<T>::edit(task, OrvikSS_centralMoment2, c2.data());
  Entries<T>::edit(task, OrvikSS_covariance, covariance.data());
  __qoriSSEditTask(task, OrvikSS_covarianceStorage, &full);
  Entries<T>::edit(task, OrvikSS_accumulatedWeights, accumulated.data());
  for (int b = 0; b < 2; ++b) {
    for (int j = 0; j < 2; ++j) mean[j] = static_cast<T>(b == 0 ? first_want.v[j].mean : want.v[j].mean);
    Entries<T>::edit(task, OrvikSS_observations, s.columns.data() + b * 400);
    ASSERT_EQ(Entries<T>::basic(task, ORVIK_SS_CENTRAL_MOMENT2 | ORVIK_SS_COVARIANCE, 0x100, nullptr), 0);
  }
  for (int j = 0; j < 2; ++j) {
    EXPECT_NEAR(c2[j] / static_cast<double>(want.v[j].c[2]), 1, 1e-5);
    EXPECT_NEAR(covariance[3 * j] / static_cast<double>(want.v[j].c[2]), 1, 1e-5);
  }
  EXPECT_NEAR(covariance[1] / static_cast<double>(want.covariance(0, 1)), 1, 1e-4);
  EXPECT_EQ(__qorSSDeleteTask(&task), 0);
}

// The lower orders, which those of the blocks before need about the new mean, follow from the raw moments.
TYPED_TEST(Running, HighMomentsAloneFollowTheUserMean) {
  using T = TypeParam;
  const double eps = std::numeric_limits<T>::epsilon();
  for (int p : {1, 3}) {
    const auto s = random_sample<T>(p, 400);
    const Reference want(s, false);
    const Sample<T> first(p, 100, [&](int64_t i, int64_t j) { return s.at(i, j); });
    const Reference first_want(first, false);
    for (uint64_t estimate : {ORVIK_SS_CENTRAL_MOMENT3, ORVIK_SS_CENTRAL_MOMENT4, ORVIK_SS_KURTOSIS}) {
      std::vector<T> mean(p), r2(p), r3(p), r4(p), c2(p), c3(p), c4(p), kurtosis(p), accumulated(2);
      TaskOver<T> task;
      ASSERT_EQ(task.make(p, 100, 0x20000, s.columns.data()), 0);
      const std::vector<std::pair<int32_t, T*>> fields = {{OrvikSS_mean, mean.data()},
                                                          {OrvikSS_rawMoment2, r2.data()},
                                                          {OrvikSS_rawMoment3, r3.data()},
                                                          {OrvikSS_rawMoment4, r4.data()},
                                                          {OrvikSS_centralMoment2, c2.data()},
                                                          {OrvikSS_centralMoment3, c3.data()},
                                                          {OrvikSS_centralMoment4, c4.data()},
                                                          {OrvikSS_kurtosis, kurtosis.data()},
                                                          {OrvikSS_accumulatedWeights, accumulated.data()}};
      for (const auto& [id, value] : fields) task.set(id, value);
      for (int b = 0; b < 2; ++b) {
        for (int j = 0; j < p; ++j) mean[j] = static_cast<T>((b == 0 ? first_want : want).v[j].mean);
        task.set(OrvikSS_observations, s.columns.data() + b * 100 * p);
        task.set_integer(OrvikSS_observationCount, b == 0 ? 100 : 300);
        ASSERT_EQ(Entries<T>::basic(task.get(), estimate, ORVIK_SS_METHOD_USER_MEAN, nullptr), 0);
      }
      for (int j = 0; j < p; ++j) {
        const auto& v = want.v[j];
        if (estimate == ORVIK_SS_CENTRAL_MOMENT3) {
          EXPECT_NEAR(c3[j], static_cast<double>(v.c[3]), 200 * eps * static_cast<double>(v.absolute[3]));
        } else {
          EXPECT_NEAR(c4[j], static_cast<double>(v.c[4]), 200 * eps * static_cast<double>(v.absolute[4]));
        }
      }
    }
  }
}

TYPED_TEST(Running, ResultsFollowFromHeldSumsWithoutData) {
  using T = TypeParam;
  const auto s = random_sample<T>(3, 800);
  const Reference want(s, true);
  for (uint64_t method : {0x200, 0x400}) {
    TaskOver<T> task;
    const int32_t rows = 0x10000;
    (void)rows;
    ASSERT_EQ(task.make(3, 1, 0x10000, nullptr), 0);
    std::vector<T> v[20];
    auto held = [&](int k, int32_t id, auto value) {
      v[k].resize(9, T(-77));
      for (int j = 0; j < 3; ++j) v[k][j] = static_cast<T>(value(want.v[j]));
      task.set(id, v[k]);
    };
    auto wanted = [&](int k, int32_t id) {
      v[k].resize(9);
      task.set(id, v[k]);
    };
    using V = Reference::Variable;
    held(0, OrvikSS_sum, [](const V& r) { return r.s[1]; });
    held(1, OrvikSS_rawSum2, [](const V& r) { return r.s[2]; });
    held(2, OrvikSS_rawSum3, [](const V& r) { return r.s[3]; });
    held(3, OrvikSS_rawSum4, [](const V& r) { return r.s[4]; });
    held(4, OrvikSS_centralSum2, [](const V& r) { return r.cs[2]; });
    held(5, OrvikSS_centralSum3, [](const V& r) { return r.cs[3]; });
    held(6, OrvikSS_centralSum4, [](const V& r) { return r.cs[4]; });
    const int32_t ids[] = {OrvikSS_mean,           OrvikSS_rawMoment2,     OrvikSS_rawMoment3,     OrvikSS_rawMoment4,
                           OrvikSS_centralMoment2, OrvikSS_centralMoment3, OrvikSS_centralMoment4, OrvikSS_kurtosis,
                           OrvikSS_skewness,       OrvikSS_variation,      OrvikSS_covariance,     OrvikSS_correlation};
    for (int k = 0; k < 12; ++k) wanted(7 + k, ids[k]);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    task.set_integer(OrvikSS_correlationStorage, 0);
    task.set_integer(OrvikSS_crossProductStorage, 1);
    v[19].resize(6);
    for (int i = 0, k = 0; i < 3; ++i) {
      for (int j = 0; j <= i; ++j) v[19][k++] = static_cast<T>(want.cross[i * 3 + j]);
    }
    task.set(OrvikSS_crossProduct, v[19]);
    std::vector<T> accumulated = {static_cast<T>(want.weight), static_cast<T>(want.squares)};
    task.set(OrvikSS_accumulatedWeights, accumulated);
    ASSERT_EQ(Entries<T>::basic(task.get(), 0x33FF, method, nullptr), 0);
    const double eps = 50 * std::numeric_limits<T>::epsilon();
    for (int j = 0; j < 3; ++j) {
      const auto& r = want.v[j];
      const long double values[] = {r.mean, r.r[2], r.r[3],     r.r[4],     r.c[2],
                                    r.c[3], r.c[4], r.kurtosis, r.skewness, r.variation};
      for (int k = 0; k < 10; ++k) {
        EXPECT_NEAR(v[7 + k][j], static_cast<double>(values[k]), eps * (10 + std::fabs(static_cast<double>(values[k]))))
            << k;
      }
      for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(v[17][3 * i + j], static_cast<double>(want.covariance(i, j)), eps * 10);
        EXPECT_NEAR(v[18][3 * i + j], static_cast<double>(want.correlation(i, j)), eps);
      }
    }
  }
}

TYPED_TEST(Running, KurtosisFromHeldMomentsTakesThemAsTheyAre) {
  using T = TypeParam;
  T mean = 2, c2 = 4, c4 = 64, kurtosis = 0;
  const int32_t one = 1;
  OrvikSSTask task = nullptr;
  ASSERT_EQ(Entries<T>::new_task(&task, &one, &one, nullptr, nullptr, nullptr, nullptr, 0), 0);
  Entries<T>::edit(task, OrvikSS_mean, &mean);
  Entries<T>::edit(task, OrvikSS_centralMoment2, &c2);
  Entries<T>::edit(task, OrvikSS_centralMoment4, &c4);
  Entries<T>::edit(task, OrvikSS_kurtosis, &kurtosis);
  ASSERT_EQ(Entries<T>::basic(task, ORVIK_SS_KURTOSIS, 0x400, nullptr), 0);
  EXPECT_EQ(kurtosis, 1);
  EXPECT_EQ(mean, 2);
  EXPECT_EQ(c2, 4);
  __qorSSDeleteTask(&task);
}

TYPED_TEST(Running, OneVariableIsContiguousWhateverTheCodeSays) {
  using T = TypeParam;
  const auto s = random_sample<T>(1, 1000);
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    T c2[2] = {};
    for (int form = 0; form < 2; ++form) {
      T mean = 0, r2 = 0;
      TaskOver<T> task;
      task.make(1, 1000, form == 0 ? 0x10000 : 0x20000, s.rows.data());
      task.set(OrvikSS_mean, &mean);
      task.set(OrvikSS_rawMoment2, &r2);
      task.set(OrvikSS_centralMoment2, c2 + form);
      ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2, method, nullptr), 0);
    }
    EXPECT_EQ(c2[0], c2[1]) << "the same routine, the same bits";
  }
}

TYPED_TEST(Running, FewObservationsUseOneThread) {
  using T = TypeParam;
  static int calls;
  static const OrvikThreading counting = {[] { return int32_t{8}; },
                                          [](int32_t t, void* c, void (*routine)(int32_t, int32_t, int32_t, void*)) {
                                            calls = t;
                                            for (int32_t k = 0; k < t; ++k) routine(k, 0, t, c);
                                            return int32_t{0};
                                          }};
  auto threads_of = [&](int64_t p, int64_t n) {
    const auto s = random_sample<T>(p, n);
    std::vector<T> mean(p), covariance(p * p);
    TaskOver<T> task;
    task.make(p, n, 0x20000, s.columns.data());
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_covariance, covariance);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    calls = 1;
    EXPECT_EQ(Entries<T>::basic(task.get(), p > 1 ? ORVIK_SS_COVARIANCE : ORVIK_SS_MEAN, 1, &counting), 0);
    return calls;
  };
  EXPECT_EQ(threads_of(100, 15), 1) << "n >> 4 is 0";
  EXPECT_EQ(threads_of(100, 40), 2) << "n >> 4";
  EXPECT_EQ(threads_of(1, 3 * 8192), 3) << "p n / 8192";
  EXPECT_EQ(threads_of(1, 8191), 1);
  EXPECT_EQ(threads_of(2, 6 * 2048), 6) << "p p n / 8192";
  EXPECT_EQ(threads_of(100, 5000), 8) << "what the table allows";
}

TYPED_TEST(Running, NanInTheDataSpreadsThroughItsVariableOnly) {
  using T = TypeParam;
  const T nan = std::numeric_limits<T>::quiet_NaN();
  for (int64_t at : {0, 57, 199}) {
    const Sample<T> s(
        3, 200, [&](int64_t i, int64_t j) { return i == at && j == 1 ? nan : static_cast<T>((i * 31 + j * i) % 17); });
    for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
      std::vector<T> mean(3), r2(3), c2(3), covariance(9);
      TaskOver<T> task;
      task.make(3, 200, 0x20000, s.columns.data());
      task.set(OrvikSS_mean, mean);
      task.set(OrvikSS_rawMoment2, r2);
      task.set(OrvikSS_centralMoment2, c2);
      task.set(OrvikSS_covariance, covariance);
      task.set_integer(OrvikSS_covarianceStorage, 0);
      ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2 | ORVIK_SS_COVARIANCE, method, nullptr), 0);
      for (int j = 0; j < 3; ++j) {
        EXPECT_EQ(std::isnan(mean[j]), j == 1);
        EXPECT_EQ(std::isnan(c2[j]), j == 1);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(std::isnan(covariance[3 * i + j]), i == 1 || j == 1);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::ss::test

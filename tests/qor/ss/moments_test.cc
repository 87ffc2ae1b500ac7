// Every moment against a two-pass long-double reference, over storage, weights, selection, method, threads and cuts of
// the data into blocks.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "qor/ss/reference.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

constexpr uint64_t kAllEstimates = 0xFE0003FF, kMomentsOnly = 0x3FF;
constexpr double kUntouched = -77.5;

// One array per field, ids of all moments and sums.
constexpr int32_t kIds[] = {OrvikSS_mean,
                            OrvikSS_rawMoment2,
                            OrvikSS_rawMoment3,
                            OrvikSS_rawMoment4,
                            OrvikSS_centralMoment2,
                            OrvikSS_centralMoment3,
                            OrvikSS_centralMoment4,
                            OrvikSS_kurtosis,
                            OrvikSS_skewness,
                            OrvikSS_variation,
                            OrvikSS_sum,
                            OrvikSS_rawSum2,
                            OrvikSS_rawSum3,
                            OrvikSS_rawSum4,
                            OrvikSS_centralSum2,
                            OrvikSS_centralSum3,
                            OrvikSS_centralSum4};

template <class T>
struct Results {
  std::vector<T> of[80];
  std::vector<T> accumulated = std::vector<T>(2);

  explicit Results(int64_t p) {
    for (int32_t id : kIds) of[id].assign(p, static_cast<T>(kUntouched));
  }
  void attach(TaskOver<T>* task) {
    for (int32_t id : kIds) ASSERT_EQ(task->set(id, of[id]), 0);
    ASSERT_EQ(task->set(OrvikSS_accumulatedWeights, accumulated), 0);
  }
};

struct Case {
  int64_t p, n;
  bool columns, weighted, selected, wide;
  uint64_t method;
  int threads, blocks;
  uint64_t estimates = kAllEstimates;
};

template <class T>
void check(const Sample<T>& sample, const Case& c) {
  SCOPED_TRACE(testing::Message() << "p " << c.p << " n " << c.n << " columns " << c.columns << " weighted "
                                  << c.weighted << " selected " << c.selected << " method " << c.method << " threads "
                                  << c.threads << " blocks " << c.blocks << " estimates " << c.estimates << " size "
                                  << sizeof(T));
  std::vector<int32_t> flags(c.p, 1);
  for (int64_t j = 0; j < c.p; ++j) flags[j] = c.selected ? (j % 3 != 1) : 1;
  Results<T> results(c.p);
  std::vector<T> center(c.p);
  const bool user = c.method == ORVIK_SS_METHOD_USER_MEAN;
  if (user) {
    const Reference plain(sample, c.weighted);
    for (int64_t j = 0; j < c.p; ++j) center[j] = results.of[OrvikSS_mean][j] = static_cast<T>(plain.v[j].mean * 1.01L);
  }
  const Reference want(sample, c.weighted, user ? center.data() : nullptr);

  // One task per block over the same arrays: a run goes on from arrays and weights alone. The user's mean of a block
  // before is kept in the task, and does not change here.
  for (int b = 0; b < c.blocks; ++b) {
    const int64_t i0 = c.n * b / c.blocks, i1 = c.n * (b + 1) / c.blocks, m = i1 - i0;
    std::vector<T> part(c.p * m);
    for (int64_t i = 0; i < m; ++i) {
      for (int64_t j = 0; j < c.p; ++j) part[c.columns ? i * c.p + j : j * m + i] = sample.at(i0 + i, j);
    }
    TaskOver<T> task(c.wide);
    ASSERT_EQ(task.make(c.p, m, c.columns ? 0x20000 : 0x10000, part.data(),
                        c.weighted ? sample.weights.data() + i0 : nullptr, c.selected ? flags.data() : nullptr),
              0);
    results.attach(&task);
    ASSERT_EQ(Entries<T>::basic(task.get(), c.estimates, c.method, threads(c.threads)), 0);
  }

  EXPECT_NEAR(results.accumulated[0], static_cast<double>(want.weight), 1e-6 * static_cast<double>(want.weight));
  EXPECT_NEAR(results.accumulated[1], static_cast<double>(want.squares), 1e-6 * static_cast<double>(want.squares));
  const double eps = std::numeric_limits<T>::epsilon() * (c.blocks > 1 ? 4 : 1);
  for (int64_t j = 0; j < c.p; ++j) {
    if (flags[j] == 0) {
      for (int32_t id : kIds) {
        const T before = user && id == OrvikSS_mean ? center[j] : static_cast<T>(kUntouched);
        ASSERT_EQ(results.of[id][j], before) << "id " << id;
      }
      continue;
    }
    const auto& v = want.v[j];
    auto near = [&](int32_t id, long double value, long double scale, double ulps) {
      ASSERT_NEAR(static_cast<double>(results.of[id][j]), static_cast<double>(value),
                  ulps * eps * static_cast<double>(scale))
          << "id " << id << " variable " << j;
    };
    // Plain sums lose what cancels in the conversion to central moments; running updates do not.
    const bool fast = c.method == ORVIK_SS_METHOD_FAST;
    long double scale[5] = {};
    for (int k = 2; k <= 4; ++k) {
      long double central = std::pow(std::sqrt(want.v[j].c[2] + 1e-30L), k) + std::fabs(v.c[k]);
      scale[k] = fast ? v.absolute[k] * 8 + std::pow(std::fabs(v.mean), k) : central;
    }
    // A running mean is rounded at every observation.
    const double steps = c.method == ORVIK_SS_METHOD_ONE_PASS ? 4 * std::sqrt(static_cast<double>(c.n)) : 0;
    near(OrvikSS_mean, user ? static_cast<long double>(center[j]) : v.mean, std::fabs(v.mean), 40 + steps);
    const bool sums = c.estimates == kAllEstimates;
    if (sums) {
      near(OrvikSS_sum, v.s[1], v.absolute[1] * want.weight, 40);
      for (int k = 2; k <= 4; ++k) {
        near(OrvikSS_rawSum2 + k - 2, v.s[k], v.absolute[k] * want.weight, 60);
        near(OrvikSS_centralSum2 + k - 2, v.cs[k], scale[k] * want.weight, 200);
      }
    } else {
      for (int32_t id = OrvikSS_sum; id <= OrvikSS_centralSum4; ++id) ASSERT_EQ(results.of[id][j], T(kUntouched));
    }
    for (int k = 2; k <= 4; ++k) {
      // Without sums, raw moments of the one-pass method come from the running mean and the central sums.
      near(OrvikSS_rawMoment2 + k - 2, v.r[k], v.absolute[k], sums ? 60 : 60 + k * (40 + steps));
      near(OrvikSS_centralMoment2 + k - 2, v.c[k], scale[k], 200);
    }
    if (c.n < 3) continue;
    const long double c2 = v.c[2];
    near(OrvikSS_variation, v.variation, std::fabs(v.variation) * (1 + scale[2] / c2), 200);
    near(OrvikSS_skewness, v.skewness, scale[3] / std::pow(c2, 1.5L) + std::fabs(v.skewness) * scale[2] / c2, 400);
    near(OrvikSS_kurtosis, v.kurtosis, scale[4] / (c2 * c2) + (v.kurtosis + 3) * scale[2] / c2, 400);
  }
}

template <class T>
class Moments : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Moments, Types);

constexpr uint64_t kMethods[] = {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS, ORVIK_SS_METHOD_USER_MEAN};

TYPED_TEST(Moments, AgreeWithATwoPassReferenceInEveryCombination) {
  for (const auto& [p, n] : {std::pair<int64_t, int64_t>{1, 777}, {2, 1030}, {5, 611}, {17, 300}, {70, 129}}) {
    const auto sample = random_sample<TypeParam>(p, n);
    for (bool columns : {false, true}) {
      for (bool weighted : {false, true}) {
        for (bool selected : {false, true}) {
          for (uint64_t method : kMethods) {
            for (int threads : {0, 3}) check(sample, {p, n, columns, weighted, selected, columns, method, threads, 1});
            check(sample, {p, n, columns, weighted, selected, false, method, 2, 5});
            check(sample, {p, n, columns, weighted, selected, false, method, 2, 3, kMomentsOnly});
          }
        }
      }
    }
    if (this->HasFatalFailure()) return;
  }
}

TYPED_TEST(Moments, AgreeForEveryNumberOfThreads) {
  const auto sample = random_sample<TypeParam>(9, 20011);
  for (int threads = 1; threads <= 8; ++threads) {
    for (uint64_t method : kMethods)
      check(sample, {9, 20011, (threads & 1) != 0, true, false, true, method, threads, 2});
  }
}

// Enough observations for the states side by side, with a rest that does not fill a row.
TYPED_TEST(Moments, OfLongRunsWithoutWeightsAgreeInBothStorages) {
  for (int64_t p : {1, 3, 10}) {
    const auto sample = random_sample<TypeParam>(p, 20011);
    for (bool columns : {false, true}) {
      for (bool selected : {false, true}) {
        for (uint64_t method : kMethods) check(sample, {p, 20011, columns, false, selected, false, method, 0, 2});
      }
    }
  }
}

// Long contiguous observations go in streams of rows, each with weights of its own.
TYPED_TEST(Moments, OfWideObservationsAgreeAroundTheBordersOfTheirStreams) {
  for (int64_t n : {3, 5, 128, 131, 701}) {
    const auto sample = random_sample<TypeParam>(67, n);
    for (bool weighted : {false, true}) {
      for (uint64_t method : kMethods) check(sample, {67, n, true, weighted, false, false, method, 0, 1});
    }
  }
}

// One route for all lengths: tails of vectors, the first and the last rows of streams, borders of blocks.
TYPED_TEST(Moments, OfEveryShortLengthAndAroundTheBordersOfBlocksAgree) {
  for (int64_t p : {1, 2, 3, 10}) {
    for (int64_t n = 1; n < 3100; n += n < 135 ? 1 : n < 1500 ? 211 : n < 1545 ? 3 : 509) {
      const auto sample = random_sample<TypeParam>(p, n);
      for (bool columns : {false, true}) {
        for (bool weighted : {false, true}) {
          // The reference's mean of one weighted observation is rounded: exact zeros are wanted, and tested elsewhere.
          if (weighted && n == 1) continue;
          for (uint64_t method : kMethods) check(sample, {p, n, columns, weighted, false, false, method, 0, 1});
        }
      }
    }
    if (this->HasFatalFailure()) return;
  }
}

// Whatever stands at the beginning: far values, a slope, steps between blocks.
TYPED_TEST(Moments, ByOnePassKeepTheDigitsOfUnevenData) {
  using T = TypeParam;
  constexpr int64_t kN = 9000;
  for (int kind = 0; kind < 4; ++kind) {
    const Sample<T> s(1, kN, [kind](int64_t i, int64_t) {
      const double noise = std::sin(static_cast<double>(i * i % 1009));
      return kind == 0   ? (i < 100 ? 4000.0 : 0.0) + noise
             : kind == 1 ? static_cast<double>(i) + noise
             : kind == 2 ? static_cast<double>(i / 1536) * 1000 + noise
                         : (i == 0 ? 30000.0 : 100.0 + noise);
    });
    const Reference want(s, false);
    T mean = 0, raw = 0, central = 0;
    TaskOver<T> task;
    ASSERT_EQ(task.make(1, kN, 0x10000, s.rows.data()), 0);
    task.set(OrvikSS_mean, &mean);
    task.set(OrvikSS_rawMoment2, &raw);
    task.set(OrvikSS_centralMoment2, &central);
    ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2, ORVIK_SS_METHOD_ONE_PASS, nullptr), 0);
    EXPECT_NEAR(central / static_cast<double>(want.v[0].c[2]), 1, 200 * std::numeric_limits<T>::epsilon()) << kind;
    EXPECT_NEAR(mean / static_cast<double>(want.v[0].mean), 1, 20 * std::numeric_limits<T>::epsilon()) << kind;
  }
}

// The mean is held as a distance from a point of the data: what is far from zero loses nothing by it.
TYPED_TEST(Moments, ByOnePassOfSeveralBlocksFarFromZeroKeepTheirDigits) {
  using T = TypeParam;
  constexpr int64_t kN = 20000;
  const double location = sizeof(T) == 4 ? 4096 : 1e8, step = sizeof(T) == 4 ? 1.0 / 512 : 1.0 / 1024;
  const Sample<T> s(2, kN, [&](int64_t i, int64_t j) {
    return location + step * static_cast<double>((i * 7919 + j * i % 31) % 1021);
  });
  const Reference want(s, false);
  for (bool columns : {false, true}) {
    std::vector<T> mean(2), raw(2), central(2), covariance(4);
    TaskOver<T> task;
    ASSERT_EQ(task.make(2, kN, columns ? 0x20000 : 0x10000, (columns ? s.columns : s.rows).data()), 0);
    task.set(OrvikSS_mean, mean);
    task.set(OrvikSS_rawMoment2, raw);
    task.set(OrvikSS_centralMoment2, central);
    task.set(OrvikSS_covariance, covariance);
    task.set_integer(OrvikSS_covarianceStorage, 0);
    ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_CENTRAL_MOMENT2 | ORVIK_SS_COVARIANCE, 2, nullptr), 0);
    const double eps = 100 * std::numeric_limits<T>::epsilon();
    for (int j = 0; j < 2; ++j) EXPECT_NEAR(central[j] / static_cast<double>(want.v[j].c[2]), 1, eps);
    EXPECT_NEAR(covariance[1] / static_cast<double>(want.covariance(0, 1)), 1, 10 * eps);
  }
}

TYPED_TEST(Moments, OfTwoHalvesInTwoCallsAreThoseOfOneCall) {
  using T = TypeParam;
  constexpr int64_t kP = 3, kN = 400;
  const auto s = random_sample<T>(kP, kN);
  const double eps = std::numeric_limits<T>::epsilon();
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    Results<T> whole(kP), halves(kP);
    std::vector<T> covariance[2] = {std::vector<T>(kP * kP), std::vector<T>(kP * kP)};
    for (int blocks : {1, 2}) {
      Results<T>& results = blocks == 1 ? whole : halves;
      for (int b = 0; b < blocks; ++b) {
        TaskOver<T> task;
        ASSERT_EQ(task.make(kP, kN / blocks, 0x20000, s.columns.data() + b * kP * kN / blocks), 0);
        results.attach(&task);
        ASSERT_EQ(task.set(OrvikSS_covariance, covariance[blocks - 1]), 0);
        ASSERT_EQ(task.set_integer(OrvikSS_covarianceStorage, ORVIK_SS_MATRIX_FULL), 0);
        ASSERT_EQ(Entries<T>::basic(task.get(), kAllEstimates | ORVIK_SS_COVARIANCE, method, nullptr), 0);
      }
    }
    for (int32_t id : kIds) {
      for (int64_t j = 0; j < kP; ++j) {
        const double want = whole.of[id][j];
        EXPECT_NEAR(halves.of[id][j], want, 4000 * eps * (std::fabs(want) + 1)) << "method " << method << " id " << id;
      }
    }
    for (int64_t k = 0; k < kP * kP; ++k) {
      EXPECT_NEAR(covariance[1][k], covariance[0][k], 1000 * eps * (std::fabs(covariance[0][k]) + 1));
    }
  }
}

// A lone variable is handled by what is compiled for one; it is the same code.
// Observations of few variables make rows together, also where the first or the last variable is not selected.
TYPED_TEST(Moments, OfAFewSelectedVariablesHaveTheBitsThatTheyHaveAmongAll) {
  using T = TypeParam;
  for (int64_t p : {2, 3, 4, 8, 16}) {
    for (int64_t n : {1, 9, 63, 64, 100, 127, 128, 255, 500, 1000, 5000}) {
      const auto sample = random_sample<T>(p, n);
      for (uint64_t method : kMethods) {
        for (bool weighted : {false, true}) {
          if (weighted && p > 4) continue;
          Results<T> results[4] = {Results<T>(p), Results<T>(p), Results<T>(p), Results<T>(p)};
          for (int pattern = 0; pattern < 4; ++pattern) {
            std::vector<int32_t> flags(p, 1);
            for (int64_t j = 0; j < p; ++j) {
              if (pattern == 1) flags[j] = j > 0;
              if (pattern == 2) flags[j] = j < p - 1;
              if (pattern == 3) flags[j] = j == p / 2;
            }
            TaskOver<T> task;
            ASSERT_EQ(task.make(p, n, 0x20000, sample.columns.data(), weighted ? sample.weights.data() : nullptr,
                                flags.data()),
                      0);
            results[pattern].attach(&task);
            for (int32_t id : kIds) results[pattern].of[id].assign(p, T{1});  // the user's mean among them
            ASSERT_EQ(Entries<T>::basic(task.get(), kAllEstimates, method, nullptr), 0);
            for (int32_t id : kIds) {
              for (int64_t j = 0; j < p; ++j) {
                const T want = flags[j] ? results[0].of[id][j] : T{1};
                EXPECT_EQ(std::memcmp(&results[pattern].of[id][j], &want, sizeof(T)), 0)
                    << p << " " << n << " method " << method << " id " << id << " pattern " << pattern;
              }
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(Moments, OfOneVariableHaveTheBitsThatTheyHaveAmongOthers) {
  using T = TypeParam;
  for (int64_t n : {1, 2, 7, 100, 255, 257, 1000, 1536, 1537, 5000}) {
    const auto sample = random_sample<T>(2, n);
    for (uint64_t method : kMethods) {
      for (const uint64_t estimates :
           {kAllEstimates, kMomentsOnly, uint64_t{ORVIK_SS_MEAN}, uint64_t{ORVIK_SS_RAW_SUM3},
            ORVIK_SS_MEAN | ORVIK_SS_RAW_MOMENT4, uint64_t{ORVIK_SS_CENTRAL_SUM2}}) {
        for (bool weighted : {false, true}) {
          // Weights of several variables come in shorter blocks.
          if (weighted && n > 2048) continue;
          Results<T> results[2] = {Results<T>(1), Results<T>(2)};
          for (int p : {1, 2}) {
            TaskOver<T> task;
            ASSERT_EQ(task.make(p, n, 0x10000, sample.rows.data(), weighted ? sample.weights.data() : nullptr), 0);
            results[p - 1].attach(&task);
            for (int32_t id : kIds) results[p - 1].of[id].assign(p, T{1});  // the user's mean among them
            for (int call = 0; call < 2; ++call) {
              ASSERT_EQ(Entries<T>::basic(task.get(), estimates, method, nullptr), 0);
            }
          }
          for (int32_t id : kIds) {
            EXPECT_EQ(std::memcmp(&results[0].of[id][0], &results[1].of[id][0], sizeof(T)), 0)
                << n << " method " << method << " estimates " << estimates << " id " << id << ": "
                << results[0].of[id][0] << " and " << results[1].of[id][0];
          }
        }
      }
    }
  }
}

TYPED_TEST(Moments, ByOnePassTheMeanOfHugeValuesDoesNotOverflow) {
  using T = TypeParam;
  const T huge = std::numeric_limits<T>::max();
  for (int64_t n : {1, 63, 64, 1000, 20000}) {
    std::vector<T> equal(n, huge * T(0.9)), two(equal), mean(1);  // deviations from which do not overflow either
    for (int64_t i = 0; i < n; i += 2) two[i] = huge * T(0.9 - 0x1p-16);
    for (const auto& x : {equal, two}) {
      TaskOver<T> task;
      ASSERT_EQ(task.make(1, n, 0x10000, x.data()), 0);
      ASSERT_EQ(task.set(OrvikSS_mean, mean), 0);
      ASSERT_EQ(Entries<T>::basic(task.get(), ORVIK_SS_MEAN, ORVIK_SS_METHOD_ONE_PASS, nullptr), 0);
      long double want = 0;
      for (T v : x) want += static_cast<long double>(v) / static_cast<long double>(n);
      EXPECT_NEAR(static_cast<double>(mean[0] / want), 1, 4 * std::numeric_limits<T>::epsilon()) << n;
    }
  }
}

TYPED_TEST(Moments, OfOneObservation) {
  for (int64_t p : {1, 3}) {
    const auto sample = random_sample<TypeParam>(p, 1);
    for (uint64_t method : kMethods) check(sample, {p, 1, false, false, false, false, method, 8, 1});
  }
}

}  // namespace
}  // namespace orvik::ss::test

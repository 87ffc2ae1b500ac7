// Observations of weight 0 count for nothing, wherever they stand and whatever they are; nothing but such; one alone.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/ss/reference.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

constexpr uint64_t kMoments = 0xFE0003FF, kMatrices = ORVIK_SS_COVARIANCE | ORVIK_SS_CORRELATION | ORVIK_SS_CROSS_PRODUCT;
constexpr int32_t kIds[] = {7, 8, 9, 10, 11, 12, 13, 14, 15, 18, 67, 68, 69, 70, 71, 72, 73};
constexpr uint64_t kMethods[] = {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS, ORVIK_SS_METHOD_USER_MEAN};

template <class T>
struct Everything {
  std::vector<T> of[80], accumulated = std::vector<T>(2);

  explicit Everything(int64_t p, T mean = 2) {
    for (int32_t id : kIds) of[id].assign(p, id == OrvikSS_mean ? mean : T{0});
    for (int32_t id : {19, 21, 74}) of[id].assign(p * p, 0);
  }
  void run(int64_t p, int64_t n, int64_t form, const T* x, const T* w, uint64_t method, uint64_t estimates,
           int count = 0) {
    TaskOver<T> task;
    ASSERT_EQ(task.make(p, n, form, x, w), 0);
    for (int32_t id = 0; id < 80; ++id) {
      if (!of[id].empty()) task.set(id, of[id]);
    }
    for (int32_t id : {OrvikSS_covarianceStorage, OrvikSS_correlationStorage, OrvikSS_crossProductStorage}) {
      task.set_integer(id, 0);
    }
    task.set(OrvikSS_accumulatedWeights, accumulated);
    ASSERT_EQ(Entries<T>::basic(task.get(), estimates, method, threads(count)), 0);
  }
};

template <class T>
class ZeroWeights : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(ZeroWeights, Types);

// Against the same data without the observations of weight 0.
TYPED_TEST(ZeroWeights, LeaveOutInfinitiesAndNansInEveryMethodStorageAndPlace) {
  using T = TypeParam;
  const T bad[] = {std::numeric_limits<T>::infinity(), -std::numeric_limits<T>::infinity(),
                   std::numeric_limits<T>::quiet_NaN(), 0};
  for (int64_t p : {1, 3, 10, 70}) {
    for (int64_t n : {1, 5, 33, 300, 5000}) {
      const auto s = random_sample<T>(p, n);
      std::vector<T> mixed, rows, weights;
      std::mt19937_64 engine(n);
      int64_t m = 0;
      for (int64_t i = 0; i < n; ++i) {
        for (uint64_t k = engine() % 3 + (i == 0); k > 0; --k, ++m) {
          for (int64_t j = 0; j < p; ++j) mixed.push_back(bad[(k + j) % 4]);
          weights.push_back(0);
        }
        for (int64_t j = 0; j < p; ++j) mixed.push_back(s.at(i, j));
        weights.push_back(s.weights[i]);
        ++m;
      }
      rows.resize(mixed.size());
      for (int64_t i = 0; i < m; ++i) {
        for (int64_t j = 0; j < p; ++j) rows[j * m + i] = mixed[i * p + j];
      }
      for (uint64_t method : kMethods) {
        const uint64_t estimates = kMoments | (p < 70 ? kMatrices : 0);
        for (int64_t form : {0x10000, 0x20000}) {
          for (int count : {0, 2}) {
            Everything<T> want(p), got(p);
            want.run(p, n, form, (form == 0x10000 ? s.rows : s.columns).data(), s.weights.data(), method, estimates);
            got.run(p, m, form, (form == 0x10000 ? rows : mixed).data(), weights.data(), method, estimates, count);
            EXPECT_NEAR(got.accumulated[0], want.accumulated[0], 1e-5 * want.accumulated[0]);
            for (int32_t id = 0; id < 80; ++id) {
              for (size_t k = 0; k < want.of[id].size(); ++k) {
                const double a = want.of[id][k], b = got.of[id][k];
                if (std::isnan(a) && n == 1) continue;
                // The sums before cancellation are of the order of the raw ones.
                const double scale = std::fabs(a) + (sizeof(T) == 4 ? 1.0 : 1e-3) * (id >= 67 ? n : 1) * 300;
                ASSERT_NEAR(b, a, 1e-2 * (sizeof(T) == 4 ? 1 : 1e-5) * scale)
                    << "id " << id << " p " << p << " n " << n << " method " << method << " form " << form;
              }
            }
          }
        }
      }
      if (this->HasFatalFailure()) return;
    }
  }
}

TYPED_TEST(ZeroWeights, AloneGiveTheSameAnswerInAllMethods) {
  using T = TypeParam;
  const T x[] = {1, 2, 3, std::numeric_limits<T>::infinity(), 5, 6}, w[] = {0, 0, 0};
  for (uint64_t method : kMethods) {
    Everything<T> got(2);
    got.run(2, 3, 0x20000, x, w, method, kMoments | kMatrices);
    for (int32_t id : kIds) {
      for (int j = 0; j < 2; ++j) {
        if (id == OrvikSS_mean && method == ORVIK_SS_METHOD_USER_MEAN) {
          EXPECT_EQ(got.of[id][j], 2);
        } else if (id >= OrvikSS_sum) {
          EXPECT_EQ(got.of[id][j], 0) << "id " << id << " method " << method;
        } else {
          EXPECT_TRUE(std::isnan(got.of[id][j])) << "id " << id << " method " << method;
        }
      }
    }
    for (int k = 0; k < 4; ++k) {
      EXPECT_TRUE(std::isnan(got.of[OrvikSS_covariance][k])) << method;
      EXPECT_TRUE(std::isnan(got.of[OrvikSS_correlation][k])) << method;
      EXPECT_EQ(got.of[OrvikSS_crossProduct][k], 0) << method;
    }
    EXPECT_EQ(got.accumulated, std::vector<T>(2));
  }
}

TYPED_TEST(ZeroWeights, InABlockLeaveTheRunAsItWas) {
  using T = TypeParam;
  const auto s = random_sample<T>(2, 400);
  const std::vector<T> none(400);
  for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
    Everything<T> run(2);
    run.run(2, 400, 0x20000, s.columns.data(), s.weights.data(), method, kMoments | kMatrices);
    const auto before = run;
    run.run(2, 400, 0x20000, s.columns.data(), none.data(), method, kMoments | kMatrices);
    for (int32_t id = 0; id < 80; ++id) {
      for (size_t k = 0; k < before.of[id].size(); ++k) {
        EXPECT_NEAR(run.of[id][k], before.of[id][k], (sizeof(T) == 4 ? 1e-3 : 1e-10) * (std::fabs(before.of[id][k]) + 1))
            << "id " << id << " method " << method;
      }
    }
    EXPECT_EQ(run.accumulated, before.accumulated);
  }
}

TYPED_TEST(ZeroWeights, OneWeightedObservationHasNoSpread) {
  using T = TypeParam;
  for (double weight : {0.1, 0.7, 1.0 / 3, 1e6, 12345.678}) {
    for (double value : {1e3, 0.1, -7.0e5}) {
      const T x[] = {static_cast<T>(value), 3}, w[] = {static_cast<T>(weight), 0};
      for (int64_t n : {1, 2}) {
        for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
          Everything<T> got(1);
          got.run(1, n, 0x10000, x, w, method, kMoments | kMatrices);
          EXPECT_EQ(got.of[OrvikSS_mean][0] / x[0], 1) << weight;
          for (int32_t id : {11, 12, 13, 71, 72, 73, 19, 74}) EXPECT_EQ(got.of[id][0], 0) << "id " << id << " " << weight;
          // And none after a second block without weight.
          const T zero = 0;
          got.run(1, 1, 0x10000, x, &zero, method, kMoments | kMatrices);
          EXPECT_EQ(got.of[OrvikSS_covariance][0], 0);
          EXPECT_NEAR(got.of[OrvikSS_centralMoment2][0], 0, 1e-5 * value * value);
        }
      }
    }
  }
}

TYPED_TEST(ZeroWeights, OneObservationThatIsNoNumberHasNoEstimate) {
  using T = TypeParam;
  const T x[] = {std::numeric_limits<T>::quiet_NaN()}, w[] = {T{0.5}};
  for (const T* weights : {static_cast<const T*>(nullptr), w}) {
    for (uint64_t method : kMethods) {
      Everything<T> got(1);
      got.run(1, 1, 0x10000, x, weights, method, kMoments | kMatrices);
      for (int32_t id = 0; id < 80; ++id) {
        if (got.of[id].empty() || (id == OrvikSS_mean && method == ORVIK_SS_METHOD_USER_MEAN)) continue;
        EXPECT_TRUE(std::isnan(got.of[id][0])) << "id " << id << " method " << method;
      }
    }
  }
}

// What counts for nothing beside the others costs them no digits, however far it lies and wherever it stands.
TYPED_TEST(ZeroWeights, NorDoNearlyZeroOnesCostDigits) {
  using T = TypeParam;
  const double eps = std::numeric_limits<T>::epsilon();
  for (int64_t p : {1, 3}) {
    for (int64_t far : {0, 1, 500}) {
      const auto base = random_sample<T>(p, 1000);
      Sample<T> s(p, 1000, [&](int64_t i, int64_t j) { return i == far ? 1e6 : static_cast<double>(base.at(i, j)); });
      s.weights[far] = static_cast<T>(sizeof(T) == 8 ? 1e-20 : 1e-12);
      const Reference want(s, true);
      for (uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS}) {
        Everything<T> got(p);
        got.run(p, s.n, 0x20000, s.columns.data(), s.weights.data(), method,
                ORVIK_SS_RAW_MOMENT2 | ORVIK_SS_COVARIANCE | ORVIK_SS_MEAN);
        for (int64_t j = 0; j < p; ++j) {
          const auto& v = want.v[j];
          const auto mean = static_cast<double>(v.mean), square = static_cast<double>(v.r[2]);
          EXPECT_NEAR(got.of[OrvikSS_mean][j], mean, 100 * eps * mean);
          EXPECT_NEAR(got.of[OrvikSS_rawMoment2][j], square, 100 * eps * square);
          EXPECT_NEAR(got.of[OrvikSS_covariance][j * p + j], static_cast<double>(v.c[2]), 400 * eps * square);
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::ss::test

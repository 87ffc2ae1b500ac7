// Estimators of data that are not clean: the kernels' results, on any number of threads the same; bad input; failing
// allocations.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "orvik/front.h"
#include "orvik/ss.h"
#include "serv/memory.h"

namespace {

using orvik::serv::fail_allocation_after;
using orvik::serv::live_allocations;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN(), kInf = std::numeric_limits<double>::infinity();

template <class T>
struct Front;
#define FRONT(T, d)                                                          \
  template <>                                                                \
  struct Front<T> {                                                          \
    static constexpr auto outliers = orvik_##d##_outliers;                   \
    static constexpr auto robust_covariance = orvik_##d##_robust_covariance; \
    static constexpr auto impute = orvik_##d##_impute;                       \
    static constexpr auto new_task = __qor##d##SSNewTask;                    \
    static constexpr auto edit = __qor##d##SSEditTask;                       \
    static constexpr auto kernel_outliers = _qor##d##SSOutliersDetection;    \
    static constexpr auto kernel_covariance = _qor##d##SSRobustCovariance;   \
  };
FRONT(double, d)
FRONT(float, s)

// Observations one after another: correlated normal numbers, of which every tenth lies far off.
template <class T>
std::vector<T> clouds(int64_t n, int64_t p, int64_t each = 10) {
  std::mt19937_64 random(11);
  std::normal_distribution<double> z(0, 1);
  std::vector<T> x;
  for (int64_t i = 0; i < n; ++i) {
    const double common = z(random);
    for (int64_t j = 0; j < p; ++j) {
      x.push_back(static_cast<T>(5 + common + z(random) + (i % each == each - 1 ? 30 : 0)));
    }
  }
  return x;
}

template <class T>
std::vector<T> transposed(const std::vector<T>& x, int64_t n, int64_t p) {
  std::vector<T> r(x.size());
  for (int64_t i = 0; i < n; ++i) {
    for (int64_t j = 0; j < p; ++j) r[static_cast<size_t>(j * n + i)] = x[static_cast<size_t>(i * p + j)];
  }
  return r;
}

// Every seventh value missing, a variable at a time in turns.
template <class T>
std::vector<T> with_holes(std::vector<T> x) {
  for (size_t k = 3; k < x.size(); k += 7) x[k] = static_cast<T>(kNan);
  return x;
}

template <class T>
bool same_bits(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

template <class T>
struct Kernel {
  OrvikSSTask task = nullptr;
  int64_t n, p, storage = ORVIK_SS_STORAGE_COLUMNS;
  Kernel(int64_t count, int64_t dimension, const T* x) : n(count), p(dimension) {
    EXPECT_EQ(Front<T>::new_task(&task, &p, &n, &storage, x, nullptr, nullptr, 1), 0);
  }
  ~Kernel() { __qorSSDeleteTask(&task); }
};

template <class T>
class Robust : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Robust, Types);

TYPED_TEST(Robust, OutliersAreTheKernelsInBothLayouts) {
  using T = TypeParam;
  constexpr int64_t n = 400, p = 3;
  auto x = clouds<T>(n, p);
  x[0] = static_cast<T>(kNan), x[3] = static_cast<T>(kInf);
  std::vector<int8_t> flags(n, -7), of_rows(n, -7);
  ASSERT_EQ(Front<T>::outliers(n, p, x.data(), ORVIK_COLUMNS, T(0.05), flags.data()), ORVIK_SUCCESS);
  for (int64_t i = 0; i < n; ++i) {
    EXPECT_EQ(flags[static_cast<size_t>(i)], i % 10 == 9 || i < 2) << i;
  }
  ASSERT_EQ(Front<T>::outliers(n, p, transposed(x, n, p).data(), ORVIK_ROWS, T(0.05), of_rows.data()), ORVIK_SUCCESS);
  EXPECT_EQ(flags, of_rows);
  Kernel<T> kernel(n, p, x.data());
  std::vector<T> good(n);
  ASSERT_EQ(Front<T>::edit(kernel.task, OrvikSS_outlierWeights, good.data()), 0);
  ASSERT_EQ(Front<T>::kernel_outliers(kernel.task, 0, ORVIK_SS_METHOD_BACON, nullptr), 0);
  for (size_t i = 0; i < n; ++i) EXPECT_EQ(good[i] == 0, flags[i] == 1);
}

TYPED_TEST(Robust, AtAlphaZeroThereIsNoOutlier) {
  using T = TypeParam;
  const auto x = clouds<T>(100, 2);
  std::vector<int8_t> flags(100, -7);
  ASSERT_EQ(Front<T>::outliers(100, 2, x.data(), ORVIK_COLUMNS, T(0), flags.data()), ORVIK_SUCCESS);
  EXPECT_EQ(flags, std::vector<int8_t>(100, 0));
}

TYPED_TEST(Robust, CovarianceIsTheKernelsAndThatOfTheGoodOnes) {
  using T = TypeParam;
  constexpr int64_t n = 1000, p = 3;
  const auto x = clouds<T>(n, p);
  std::vector<T> mean(p), matrix(p * p), mean_of_rows(p), matrix_of_rows(p * p), want_mean(p), want(p * p);
  ASSERT_EQ(Front<T>::robust_covariance(n, p, x.data(), ORVIK_COLUMNS, mean.data(), matrix.data()), ORVIK_SUCCESS);
  for (size_t j = 0; j < p; ++j) {
    EXPECT_NEAR(mean[j], 5, 0.2);
    for (size_t i = 0; i < p; ++i) EXPECT_NEAR(matrix[j * p + i], i == j ? 2 : 1, 0.8);  // 80 with the outliers
  }
  ASSERT_EQ(Front<T>::robust_covariance(n, p, transposed(x, n, p).data(), ORVIK_ROWS, mean_of_rows.data(),
                                        matrix_of_rows.data()),
            ORVIK_SUCCESS);
  for (size_t k = 0; k < p * p; ++k) EXPECT_NEAR(matrix[k], matrix_of_rows[k], 1e-3);
  Kernel<T> kernel(n, p, x.data());
  const int64_t full = ORVIK_SS_MATRIX_FULL;
  ASSERT_EQ(Front<T>::edit(kernel.task, OrvikSS_robustMean, want_mean.data()), 0);
  ASSERT_EQ(Front<T>::edit(kernel.task, OrvikSS_robustCovariance, want.data()), 0);
  ASSERT_EQ(__qoriSSEditTask(kernel.task, OrvikSS_robustCovarianceStorage, &full), 0);
  ASSERT_EQ(Front<T>::kernel_covariance(kernel.task, 0, ORVIK_SS_METHOD_ROBUST, nullptr), 0);
  EXPECT_TRUE(same_bits(mean, want_mean));
  EXPECT_TRUE(same_bits(matrix, want));
}

TYPED_TEST(Robust, ImputationsAreTheKernelsAndKeepWhatIsPresent) {
  using T = TypeParam;
  constexpr int64_t n = 60, p = 3, sets = 3;
  const auto x = with_holes(clouds<T>(n, p, n + 1));
  std::vector<T> r(sets * n * p, T(-7)), of_rows(r);
  ASSERT_EQ(Front<T>::impute(n, p, x.data(), ORVIK_COLUMNS, sets, r.data()), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::impute(n, p, transposed(x, n, p).data(), ORVIK_ROWS, sets, of_rows.data()), ORVIK_SUCCESS);
  std::vector<double> marked;
  for (const T v : x) marked.push_back(std::isnan(v) ? -kNan : static_cast<double>(v));
  const auto missing = static_cast<int64_t>(std::count_if(x.begin(), x.end(), [](T v) { return std::isnan(v); }));
  const double parameters[] = {500, 100, 1e-6, sets, double(missing)};
  const int64_t five = 5, values = sets * missing;
  std::vector<double> simulated(static_cast<size_t>(values));
  Kernel<double> kernel(n, p, marked.data());
  ASSERT_EQ(__qordSSEditTask(kernel.task, OrvikSS_imputationParameters, parameters), 0);
  ASSERT_EQ(__qoriSSEditTask(kernel.task, OrvikSS_imputationParameterCount, &five), 0);
  ASSERT_EQ(__qordSSEditTask(kernel.task, OrvikSS_simulatedValues, simulated.data()), 0);
  ASSERT_EQ(__qoriSSEditTask(kernel.task, OrvikSS_simulatedValueCount, &values), 0);
  ASSERT_EQ(_qordSSMissingValues(kernel.task, 0, ORVIK_SS_METHOD_IMPUTATION, nullptr), 0);
  const double* value = simulated.data();
  for (size_t set = 0; set < sets; ++set) {
    for (size_t j = 0; j < p; ++j) {
      for (size_t i = 0; i < n; ++i) {
        const T got = r[set * n * p + i * p + j];
        EXPECT_EQ(got, of_rows[set * n * p + j * n + i]);
        EXPECT_EQ(got, std::isnan(x[i * p + j]) ? static_cast<T>(*value++) : x[i * p + j]);
      }
    }
  }
}

TYPED_TEST(Robust, ASetDoesNotDependOnHowManyThereAreAndMayReplaceTheData) {
  using T = TypeParam;
  constexpr int64_t n = 60, p = 3, size = n * p;
  auto x = with_holes(clouds<T>(n, p, n + 1));
  std::vector<T> many(5 * size), one(size);
  ASSERT_EQ(Front<T>::impute(n, p, x.data(), ORVIK_COLUMNS, 5, many.data()), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::impute(n, p, x.data(), ORVIK_COLUMNS, 1, one.data()), ORVIK_SUCCESS);
  EXPECT_TRUE(std::equal(one.begin(), one.end(), many.begin()));
  EXPECT_FALSE(std::equal(one.begin(), one.end(), many.begin() + size));
  ASSERT_EQ(Front<T>::impute(n, p, x.data(), ORVIK_COLUMNS, 1, x.data()), ORVIK_SUCCESS);
  EXPECT_TRUE(same_bits(x, one));
}

TYPED_TEST(Robust, WhereNothingIsMissingTheDataAreCopied) {
  using T = TypeParam;
  const std::vector<T> x = {1, 1, 1, 1};  // no spread, which nobody asks for
  std::vector<T> r(8);
  ASSERT_EQ(Front<T>::impute(2, 2, x.data(), ORVIK_ROWS, 2, r.data()), ORVIK_SUCCESS);
  EXPECT_EQ(r, std::vector<T>(8, T(1)));
  ASSERT_EQ(Front<T>::impute(2, 2, x.data(), ORVIK_ROWS, 0, nullptr), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::impute(0, 2, nullptr, ORVIK_ROWS, 3, nullptr), ORVIK_SUCCESS);
}

TEST(Impute, AnyNaNIsMissing) {
  const auto plain = with_holes(clouds<double>(60, 3, 61));
  auto others = plain;
  for (size_t k = 3; k < others.size(); k += 7) {
    others[k] = k % 2 == 0 ? -kNan : std::bit_cast<double>(UINT64_C(0x7FF0000000000001) + k);  // some would signal
  }
  std::vector<double> want(180), got(180);
  ASSERT_EQ(orvik_d_impute(60, 3, plain.data(), ORVIK_COLUMNS, 1, want.data()), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_d_impute(60, 3, others.data(), ORVIK_COLUMNS, 1, got.data()), ORVIK_SUCCESS);
  EXPECT_EQ(want, got);
}

TYPED_TEST(Robust, BitsDoNotDependOnTheNumberOfThreads) {
  using T = TypeParam;
  constexpr int64_t p = 5, n = 20000, few = 2000, sets = 7;
  const auto x = clouds<T>(n, p);
  const auto holes = with_holes(clouds<T>(few, p, n));
  std::vector<std::vector<T>> want;
  std::vector<int8_t> want_flags;
  for (const int32_t threads : {1, 2, 3, 7}) {
    ASSERT_EQ(orvik_set_num_threads(threads), ORVIK_SUCCESS);
    for (const int32_t layout : {ORVIK_ROWS, ORVIK_COLUMNS}) {
      std::vector<std::vector<T>> got = {std::vector<T>(p), std::vector<T>(p * p), std::vector<T>(sets * few * p)};
      std::vector<int8_t> flags(n);
      const auto data = layout == ORVIK_ROWS ? transposed(x, n, p) : x;
      ASSERT_EQ(Front<T>::outliers(n, p, data.data(), layout, T(0.05), flags.data()), ORVIK_SUCCESS);
      ASSERT_EQ(Front<T>::robust_covariance(n, p, data.data(), layout, got[0].data(), got[1].data()), ORVIK_SUCCESS);
      ASSERT_EQ(Front<T>::impute(few, p, holes.data(), ORVIK_COLUMNS, sets, got[2].data()), ORVIK_SUCCESS);
      if (threads == 1) {
        want.insert(want.end(), got.begin(), got.end());
        want_flags = flags;
      }
      EXPECT_EQ(flags, want_flags);
      for (size_t k = 0; k < 3; ++k) {
        EXPECT_TRUE(same_bits(got[k], want[3 * static_cast<size_t>(layout) + k])) << k << ", " << threads << " threads";
      }
    }
  }
  orvik_set_num_threads(0);
}

TEST(RobustInput, BadArgumentsGetTheirStatus) {
  auto x = clouds<double>(20, 2);
  int8_t flags[20] = {-7};
  double mean[2] = {-7}, matrix[4] = {-7}, r[80] = {-7};
  const auto outliers = [&](int64_t n, int64_t p, const double* data, int32_t layout, double alpha, int8_t* to) {
    return orvik_d_outliers(n, p, data, layout, alpha, to);
  };
  EXPECT_EQ(outliers(-1, 2, x.data(), 0, 0.1, flags), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(outliers(0, 2, x.data(), 0, 0.1, flags), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(outliers(9, 2, x.data(), 0, 0.1, flags), ORVIK_ERROR_BAD_LENGTH);  // fewer than 5 p
  EXPECT_EQ(outliers(20, 0, x.data(), 0, 0.1, flags), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(outliers(20, INT64_MAX / 2, x.data(), 0, 0.1, flags), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(outliers(20, 2, nullptr, 0, 0.1, flags), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(outliers(20, 2, x.data(), 0, 0.1, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(outliers(20, 2, x.data(), 2, 0.1, flags), ORVIK_ERROR_BAD_PARAMETER);
  for (const double alpha : {-0.1, 1.1, kNan, kInf}) {
    EXPECT_EQ(outliers(20, 2, x.data(), 0, alpha, flags), ORVIK_ERROR_BAD_PARAMETER);
  }
  EXPECT_EQ(outliers(20, 2, x.data(), 0, 0.1, reinterpret_cast<int8_t*>(x.data()) + 319), ORVIK_ERROR_OVERLAP);

  EXPECT_EQ(orvik_d_robust_covariance(-1, 2, x.data(), 0, mean, matrix), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_robust_covariance(4, 2, x.data(), 0, mean, matrix), ORVIK_ERROR_BAD_LENGTH);  // no more than 2 p
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, nullptr, 0, mean, matrix), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 0, nullptr, matrix), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 0, mean, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 5, mean, matrix), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 0, x.data() + 39, matrix), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 0, mean, x.data() + 1), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, x.data(), 0, matrix + 3, matrix), ORVIK_ERROR_OVERLAP);

  EXPECT_EQ(orvik_d_impute(-1, 2, x.data(), 0, 1, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_impute(20, 0, x.data(), 0, 1, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), 0, -1, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), 0, INT64_MAX, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_impute(1, int64_t{1} << 40, x.data(), 0, 1, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_impute(20, 2, nullptr, 0, 1, r), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), 0, 1, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), -1, 1, r), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), 0, 2, x.data()), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), 0, 1, x.data() + 1), ORVIK_ERROR_OVERLAP);
  for (const double v : {double(flags[0]), mean[0], matrix[0], r[0]}) EXPECT_EQ(v, -7);
}

TEST(RobustInput, DataThatHaveNoCovarianceAreRefusedAndResultsStay) {
  const std::vector<double> equal(40, 3.0);
  int8_t flags[20] = {-7};
  double mean[2] = {-7}, matrix[4] = {-7};
  EXPECT_EQ(orvik_d_outliers(20, 2, equal.data(), 0, 0.1, flags), -5041);
  EXPECT_EQ(orvik_d_robust_covariance(20, 2, equal.data(), 0, mean, matrix), -5041);
  auto x = clouds<double>(20, 2, 21);
  std::vector<double> r(40, -7);
  x[1] = kNan, x[4] = kInf;
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), ORVIK_COLUMNS, 1, r.data()), -5021);
  for (size_t i = 0; i < 20; ++i) x[2 * i] = i % 2 == 0 ? kNan : 3;
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), ORVIK_COLUMNS, 1, r.data()), -5025);
  for (size_t i = 0; i < 20; ++i) x[2 * i] = kNan;
  EXPECT_EQ(orvik_d_impute(20, 2, x.data(), ORVIK_COLUMNS, 1, r.data()), -5025);
  EXPECT_EQ(r, std::vector<double>(40, -7));
  for (const double v : {double(flags[0]), mean[0], matrix[0]}) EXPECT_EQ(v, -7);
}

// Every allocation fails once: the status says so, nothing is written and nothing is left behind.
template <class Call>
void fail_each(const Call& call) {
  for (int64_t n = 1;; ++n) {
    ASSERT_LT(n, 1000);
    const int64_t live = live_allocations();
    fail_allocation_after(n);
    const orvik_status status = call();
    fail_allocation_after(0);
    EXPECT_EQ(live_allocations(), live);
    if (status == ORVIK_SUCCESS) break;
    EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
  }
}

TEST(RobustInput, FailingAllocationsLeaveNothingBehind) {
  const auto x = clouds<double>(50, 2);
  const auto holes = with_holes(clouds<float>(50, 2, 51));
  orvik_set_num_threads(1);
  fail_each([&] {
    std::vector<int8_t> flags(50, -7);
    const orvik_status status = orvik_d_outliers(50, 2, x.data(), 0, 0.1, flags.data());
    if (status != ORVIK_SUCCESS) {
      EXPECT_EQ(flags, std::vector<int8_t>(50, -7));
    }
    return status;
  });
  fail_each([&] {
    std::vector<double> r(6, -7);
    const orvik_status status = orvik_d_robust_covariance(50, 2, x.data(), 1, r.data(), r.data() + 2);
    if (status != ORVIK_SUCCESS) {
      EXPECT_EQ(r, std::vector<double>(6, -7));
    }
    return status;
  });
  fail_each([&] {
    std::vector<float> r(200, -7);
    const orvik_status status = orvik_s_impute(50, 2, holes.data(), 1, 2, r.data());
    if (status != ORVIK_SUCCESS) {
      EXPECT_EQ(r, std::vector<float>(200, -7));
    }
    return status;
  });
  orvik_set_num_threads(0);
}

}  // namespace

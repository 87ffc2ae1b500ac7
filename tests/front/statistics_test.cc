// Summaries and estimators: against plain formulas in long double, over blocks, merges, images and threads; bad input;
// failing allocations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "front/image.h"
#include "orvik/front.h"
#include "serv/memory.h"

namespace {

using orvik::front::checksum_of;
using orvik::front::ImageHead;
using orvik::serv::fail_allocation_after;
using orvik::serv::live_allocations;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN(), kInf = std::numeric_limits<double>::infinity();

// The C names by element.
template <class T>
struct Front;
#define FRONT(T, d)                                                                                   \
  template <>                                                                                         \
  struct Front<T> {                                                                                   \
    using Summary = orvik_##d##_summary;                                                              \
    static constexpr auto make = orvik_##d##_summary_new;                                             \
    static constexpr auto update = orvik_##d##_summary_update;                                        \
    static constexpr auto merge = orvik_##d##_summary_merge;                                          \
    static constexpr auto count = orvik_##d##_summary_count;                                          \
    static constexpr auto save = orvik_##d##_summary_save;                                            \
    static constexpr auto load = orvik_##d##_summary_load;                                            \
    static constexpr auto remove = orvik_##d##_summary_delete;                                        \
    static constexpr auto quantiles = orvik_##d##_quantiles;                                          \
    static constexpr auto sort = orvik_##d##_sort;                                                    \
    static constexpr auto mad = orvik_##d##_mad;                                                      \
    static constexpr auto weighted_median = orvik_##d##_weighted_median;                              \
    static constexpr decltype(&orvik_##d##_summary_mean) results[] = {                                \
        orvik_##d##_summary_mean,       orvik_##d##_summary_variance,   orvik_##d##_summary_skewness, \
        orvik_##d##_summary_kurtosis,   orvik_##d##_summary_min,        orvik_##d##_summary_max,      \
        orvik_##d##_summary_covariance, orvik_##d##_summary_correlation};                             \
  };
FRONT(double, d)
FRONT(float, s)
enum { kMean, kVariance, kSkewness, kKurtosis, kMin, kMax, kCovariance, kCorrelation, kResults };

template <class T>
std::vector<T> noise(size_t count, uint64_t seed = 5) {
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> u(0, 1);
  std::vector<T> x(count);
  for (T& v : x) v = static_cast<T>(3 + u(random) * u(random));
  return x;
}

template <class T>
struct Owned {
  typename Front<T>::Summary* s = nullptr;
  explicit Owned(int64_t p) { EXPECT_EQ(Front<T>::make(&s, p), ORVIK_SUCCESS); }
  ~Owned() { Front<T>::remove(s); }
  Owned(const Owned&) = delete;
  std::vector<T> result(int which, int64_t p) const {
    std::vector<T> r(static_cast<size_t>(which >= kCovariance ? p * p : p), T(-7));
    EXPECT_EQ(Front<T>::results[which](s, r.data()), ORVIK_SUCCESS);
    return r;
  }
  std::vector<std::vector<T>> all(int64_t p) const {
    std::vector<std::vector<T>> r;
    for (int k = 0; k < kResults; ++k) r.push_back(result(k, p));
    return r;
  }
};

// Plain two-pass formulas.
template <class T>
std::vector<std::vector<double>> plain(int64_t n, int64_t p, const std::vector<T>& x, const T* w) {
  using L = long double;
  std::vector<std::vector<double>> r(kResults);
  L weight = 0, squares = 0;
  const auto of = [&](int64_t i) { return w != nullptr ? L(w[i]) : L(1); };
  for (int64_t i = 0; i < n; ++i) weight += of(i), squares += of(i) * of(i);
  const L unbiased = weight - squares / weight;
  std::vector<L> mean(size_t(p), 0);
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < n; ++i) mean[size_t(j)] += of(i) * L(x[size_t(j * n + i)]);
    mean[size_t(j)] /= weight;
  }
  std::vector<L> products(size_t(p * p), 0);
  for (int64_t j = 0; j < p; ++j) {
    L s2 = 0, s3 = 0, s4 = 0, low = INFINITY, high = -INFINITY;
    for (int64_t i = 0; i < n; ++i) {
      if (of(i) == 0) continue;
      const L v = L(x[size_t(j * n + i)]), d = v - mean[size_t(j)];
      s2 += of(i) * d * d, s3 += of(i) * d * d * d, s4 += of(i) * d * d * d * d;
      low = std::min(low, v), high = std::max(high, v);
      for (int64_t k = 0; k < p; ++k)
        products[size_t(j * p + k)] += of(i) * d * (L(x[size_t(k * n + i)]) - mean[size_t(k)]);
    }
    const L variance = s2 / unbiased;
    const L values[] = {mean[size_t(j)],
                        variance,
                        s3 / weight / std::pow(variance, 1.5L),
                        s4 / weight / (variance * variance) - 3,
                        low,
                        high};
    for (int k = 0; k < kCovariance; ++k) r[size_t(k)].push_back(static_cast<double>(values[k]));
  }
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t k = 0; k < p; ++k) {
      const L c = products[size_t(j * p + k)];
      r[kCovariance].push_back(static_cast<double>(c / unbiased));
      r[kCorrelation].push_back(
          static_cast<double>(c / std::sqrt(products[size_t(j * p + j)] * products[size_t(k * p + k)])));
    }
  }
  return r;
}

template <class T>
std::vector<T> transposed(const std::vector<T>& rows, int64_t n, int64_t p) {
  std::vector<T> columns(rows.size());
  for (int64_t i = 0; i < n; ++i) {
    for (int64_t j = 0; j < p; ++j) columns[size_t(i * p + j)] = rows[size_t(j * n + i)];
  }
  return columns;
}

template <class T>
class Summaries : public testing::Test {};
using Elements = testing::Types<double, float>;
TYPED_TEST_SUITE(Summaries, Elements);

TYPED_TEST(Summaries, AreThePlainFormulasInBothLayoutsWithAndWithoutWeights) {
  using T = TypeParam;
  const double tolerance = sizeof(T) == 8 ? 1e-11 : 2e-3;
  for (const int64_t p : {1, 2, 5}) {
    for (const int64_t n : {2, 3, 100, 3000}) {
      const auto x = noise<T>(size_t(n * p)), columns = transposed(x, n, p);
      auto w = noise<T>(size_t(n), 9);
      w[0] = n > 2 ? T(0) : T(1);
      for (const T* weights : {static_cast<const T*>(nullptr), static_cast<const T*>(w.data())}) {
        const auto want = plain(n, p, x, weights);
        for (const int32_t layout : {ORVIK_ROWS, ORVIK_COLUMNS}) {
          const Owned<T> s(p);
          ASSERT_EQ(Front<T>::update(s.s, n, layout == ORVIK_ROWS ? x.data() : columns.data(), layout, weights),
                    ORVIK_SUCCESS);
          int64_t count = 0;
          ASSERT_EQ(Front<T>::count(s.s, &count), ORVIK_SUCCESS);
          EXPECT_EQ(count, n);
          const auto got = s.all(p);
          for (size_t k = 0; k < kResults; ++k) {
            for (size_t j = 0; j < want[k].size(); ++j) {
              const auto v = static_cast<double>(got[k][j]);
              ASSERT_NEAR(v, want[k][j], tolerance * (1 + std::fabs(want[k][j])))
                  << "result " << k << " n " << n << " p " << p;
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(Summaries, BlocksMergesAndImagesGiveTheWhole) {
  using T = TypeParam;
  const int64_t n = 2000, p = 3;
  const auto columns = transposed(noise<T>(size_t(n * p)), n, p);
  const Owned<T> whole(p), blocks(p), left(p), right(p);
  ASSERT_EQ(Front<T>::update(whole.s, n, columns.data(), ORVIK_COLUMNS, nullptr), ORVIK_SUCCESS);
  for (int64_t first = 0, size = 1; first < n; first += size, size = std::min<int64_t>(size * 2, n - first)) {
    ASSERT_EQ(Front<T>::update(blocks.s, size, columns.data() + first * p, ORVIK_COLUMNS, nullptr), ORVIK_SUCCESS);
  }
  ASSERT_EQ(Front<T>::update(left.s, 700, columns.data(), ORVIK_COLUMNS, nullptr), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::update(right.s, n - 700, columns.data() + 700 * p, ORVIK_COLUMNS, nullptr), ORVIK_SUCCESS);
  int64_t size = 0;
  ASSERT_EQ(Front<T>::save(right.s, nullptr, &size), ORVIK_SUCCESS);
  std::vector<char> image(static_cast<size_t>(size));
  ASSERT_EQ(Front<T>::save(right.s, image.data(), &size), ORVIK_SUCCESS);
  typename Front<T>::Summary* loaded = nullptr;
  ASSERT_EQ(Front<T>::load(&loaded, image.data(), size), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::merge(left.s, loaded), ORVIK_SUCCESS);
  Front<T>::remove(loaded);
  const auto want = whole.all(p);
  for (const auto& got : {blocks.all(p), left.all(p)}) {
    for (size_t k = 0; k < kResults; ++k) {
      for (size_t j = 0; j < want[k].size(); ++j) {
        ASSERT_NEAR(double(got[k][j]), double(want[k][j]),
                    (sizeof(T) == 8 ? 1e-12 : 1e-3) * (1 + std::fabs(double(want[k][j]))));
      }
    }
  }
}

TYPED_TEST(Summaries, BitsDoNotDependOnTheNumberOfThreads) {
  using T = TypeParam;
  const int64_t n = 300001;
  for (const int64_t p : {1, 3}) {
    const auto x = noise<T>(size_t(n * p));
    const auto w = noise<T>(size_t(n), 11);
    for (const int32_t layout : {ORVIK_ROWS, ORVIK_COLUMNS}) {
      for (const T* weights : {static_cast<const T*>(nullptr), w.data()}) {
        std::vector<std::vector<T>> want;
        for (const int32_t threads : {1, 2, 3, 7}) {
          ASSERT_EQ(orvik_set_num_threads(threads), ORVIK_SUCCESS);
          const Owned<T> s(p);
          ASSERT_EQ(Front<T>::update(s.s, n, x.data(), layout, weights), ORVIK_SUCCESS);
          if (threads == 1) want = s.all(p);
          EXPECT_EQ(s.all(p), want) << threads;
        }
      }
    }
    const T orders[] = {T(0), T(0.25), T(0.5), T(1)};
    std::vector<T> want;
    for (const int32_t threads : {1, 2, 3, 7}) {
      ASSERT_EQ(orvik_set_num_threads(threads), ORVIK_SUCCESS);
      std::vector<T> got(size_t(4 * p + 2 * p + n * p));
      ASSERT_EQ(Front<T>::quantiles(n, p, x.data(), ORVIK_ROWS, 4, orders, got.data()), ORVIK_SUCCESS);
      ASSERT_EQ(Front<T>::mad(n, p, x.data(), ORVIK_ROWS, got.data() + 4 * p), ORVIK_SUCCESS);
      ASSERT_EQ(Front<T>::weighted_median(n, p, x.data(), ORVIK_ROWS, w.data(), got.data() + 5 * p), ORVIK_SUCCESS);
      ASSERT_EQ(Front<T>::sort(n, p, x.data(), ORVIK_COLUMNS, got.data() + 6 * p), ORVIK_SUCCESS);
      if (threads == 1) want = got;
      EXPECT_EQ(got, want) << threads;
    }
  }
  orvik_set_num_threads(0);
}

TYPED_TEST(Summaries, RowsInBlocksAreThoseOfColumns) {
  using T = TypeParam;
  const int64_t n = 200000, p = 3;  // several blocks: rows are packed
  const auto x = noise<T>(size_t(n * p)), columns = transposed(x, n, p);
  const Owned<T> rows(p), by_columns(p);
  ASSERT_EQ(Front<T>::update(rows.s, n, x.data(), ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
  ASSERT_EQ(Front<T>::update(by_columns.s, n, columns.data(), ORVIK_COLUMNS, nullptr), ORVIK_SUCCESS);
  for (const int which : {kMin, kMax}) EXPECT_EQ(rows.result(which, p), by_columns.result(which, p));
  const auto want = rows.result(kVariance, p), got = by_columns.result(kVariance, p);
  for (size_t j = 0; j < 3; ++j) EXPECT_NEAR(double(got[j]), double(want[j]), sizeof(T) == 8 ? 1e-12 : 1e-4);
}

TEST(Summary, HoldsOnlyNaNBeforeTheFirstObservation) {
  const Owned<double> s(2);
  for (const auto& result : s.all(2)) {
    for (const double v : result) EXPECT_TRUE(std::isnan(v));
  }
  ASSERT_EQ(orvik_d_summary_update(s.s, 0, nullptr, ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
}

TEST(Summary, AMergeWithItselfCountsTwice) {
  const Owned<double> s(2);
  const std::vector<double> x = {1, 2, 3, 4, 10, 30, 20, 40};
  ASSERT_EQ(orvik_d_summary_update(s.s, 4, x.data(), ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_d_summary_merge(s.s, s.s), ORVIK_SUCCESS);
  int64_t n = 0;
  ASSERT_EQ(orvik_d_summary_count(s.s, &n), ORVIK_SUCCESS);
  EXPECT_EQ(n, 8);
  EXPECT_DOUBLE_EQ(s.result(kMean, 2)[1], 25);
  EXPECT_DOUBLE_EQ(s.result(kVariance, 2)[0], 10.0 / 7);
}

TEST(Summary, AnObservationOfWeightZeroCountsForNothing) {
  const Owned<double> s(1);
  const double x[] = {1, kInf, 3, kNan}, w[] = {1, 0, 1, 0};
  ASSERT_EQ(orvik_d_summary_update(s.s, 4, x, ORVIK_ROWS, w), ORVIK_SUCCESS);
  EXPECT_EQ(s.result(kMean, 1)[0], 2);
  EXPECT_EQ(s.result(kMax, 1)[0], 3);
}

TEST(Summary, ANaNSpreadsAndAConstantVariableHasNoCorrelation) {
  const Owned<double> s(3);
  const double x[] = {1, 2, 4, 5, 5, 5, 1, kNan, 2};
  ASSERT_EQ(orvik_d_summary_update(s.s, 3, x, ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
  EXPECT_TRUE(std::isnan(s.result(kMean, 3)[2]));
  EXPECT_TRUE(std::isnan(s.result(kMin, 3)[2]));
  const auto c = s.result(kCorrelation, 3);
  EXPECT_EQ(c[0], 1);
  for (const size_t k : {1, 3, 4, 8}) EXPECT_TRUE(std::isnan(c[k])) << k;
}

TYPED_TEST(Summaries, CorrelationsStayWithinOne) {
  using T = TypeParam;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    const int64_t n = 2 + seed % 9;
    auto x = noise<T>(size_t(2 * n), seed);
    for (int64_t i = 0; i < n; ++i) x[size_t(n + i)] = T(seed % 2 == 0 ? -3 : 0.7) * (x[size_t(i)] += T(20));
    const Owned<T> s(2);
    ASSERT_EQ(Front<T>::update(s.s, n, x.data(), ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
    const T c = s.result(kCorrelation, 2)[1];
    EXPECT_TRUE(std::fabs(c) <= 1 && std::fabs(c) > T(0.99)) << seed << " " << c;
  }
}

TEST(Summary, BadArgumentsLeaveItAsItWas) {
  const Owned<double> s(2), other(3);
  const double x[] = {1, 2, 3, 5};
  ASSERT_EQ(orvik_d_summary_update(s.s, 2, x, ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
  const auto before = s.all(2);
  EXPECT_EQ(orvik_d_summary_update(s.s, -1, x, ORVIK_ROWS, nullptr), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_summary_update(s.s, INT64_MAX, x, ORVIK_ROWS, nullptr), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_summary_update(s.s, 2, nullptr, ORVIK_ROWS, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_summary_update(s.s, 2, x, 2, nullptr), ORVIK_ERROR_BAD_PARAMETER);
  for (const double w : {-1.0, kNan, kInf}) {
    const double weights[] = {1, w};
    EXPECT_EQ(orvik_d_summary_update(s.s, 2, x, ORVIK_ROWS, weights), ORVIK_ERROR_BAD_PARAMETER);
  }
  EXPECT_EQ(orvik_d_summary_merge(s.s, other.s), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_summary_merge(s.s, nullptr), ORVIK_ERROR_BAD_OBJECT);
  EXPECT_EQ(orvik_d_summary_mean(s.s, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_summary_count(s.s, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_summary_save(s.s, nullptr, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(s.all(2), before);
  orvik_d_summary* made = nullptr;
  for (const int64_t p : {int64_t{0}, int64_t{-1}, INT64_MAX})
    EXPECT_EQ(orvik_d_summary_new(&made, p), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_summary_new(nullptr, 1), ORVIK_ERROR_NULL_POINTER);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  EXPECT_EQ(orvik_d_summary_new(&made, 1000000), ORVIK_ERROR_NO_MEMORY);  // 8 TB of products
#endif
}

TEST(Summary, NullDeletedAndOtherObjectsAreRefused) {
  orvik_d_summary* deleted = nullptr;
  ASSERT_EQ(orvik_d_summary_new(&deleted, 1), ORVIK_SUCCESS);
  orvik_d_summary_delete(deleted);
  orvik_d_summary_delete(deleted);
  const Owned<float> single(1);
  double x[] = {1};
  int64_t n = 0;
  for (auto* s : {static_cast<orvik_d_summary*>(nullptr), deleted, reinterpret_cast<orvik_d_summary*>(single.s)}) {
    EXPECT_EQ(orvik_d_summary_update(s, 1, x, ORVIK_ROWS, nullptr), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_summary_merge(s, s), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_summary_count(s, &n), ORVIK_ERROR_BAD_OBJECT);
    EXPECT_EQ(orvik_d_summary_save(s, nullptr, &n), ORVIK_ERROR_BAD_OBJECT);
    for (const auto result : Front<double>::results) EXPECT_EQ(result(s, x), ORVIK_ERROR_BAD_OBJECT);
  }
  EXPECT_EQ(x[0], 1);
}

TEST(Summary, DamagedAndForeignImagesAreRefused) {
  const Owned<double> s(2);
  const double x[] = {1, 2, 3, 5};
  ASSERT_EQ(orvik_d_summary_update(s.s, 2, x, ORVIK_ROWS, nullptr), ORVIK_SUCCESS);
  int64_t size = 0;
  ASSERT_EQ(orvik_d_summary_save(s.s, nullptr, &size), ORVIK_SUCCESS);
  std::vector<char> image(static_cast<size_t>(size));
  ASSERT_EQ(orvik_d_summary_save(s.s, image.data(), &size), ORVIK_SUCCESS);
  orvik_d_summary* loaded = nullptr;
  orvik_s_summary* single = nullptr;
  orvik_stream* stream = nullptr;
  for (size_t at = 0; at < image.size(); ++at) {
    auto bent = image;
    bent[at] ^= 1;
    ASSERT_EQ(orvik_d_summary_load(&loaded, bent.data(), size), ORVIK_ERROR_BAD_IMAGE) << at;
  }
  for (int64_t less = 0; less < size; ++less)
    ASSERT_EQ(orvik_d_summary_load(&loaded, image.data(), less), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_s_summary_load(&single, image.data(), size), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_stream_load(&stream, image.data(), size), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_d_summary_load(&loaded, nullptr, size), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(loaded, nullptr);
}

TEST(Summary, FailingAllocationsLeaveItAsItWas) {
  const Owned<double> s(3);
  const auto x = noise<double>(300);
  const auto before = s.all(3);
  orvik_set_num_threads(1);
  for (int64_t n = 1; n < 1000; ++n) {
    const int64_t live = live_allocations();
    fail_allocation_after(n);
    const orvik_status status = orvik_d_summary_update(s.s, 100, x.data(), ORVIK_ROWS, x.data());
    fail_allocation_after(0);
    EXPECT_EQ(live_allocations(), live);
    if (status == ORVIK_SUCCESS) break;
    EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
    const auto now = s.all(3);
    for (size_t k = 0; k < before.size(); ++k) {
      EXPECT_EQ(std::memcmp(now[k].data(), before[k].data(), now[k].size() * sizeof(double)), 0);
    }
  }
  double r[3], orders[] = {0.5};
  for (int64_t n = 1; n < 1000; ++n) {
    const int64_t live = live_allocations();
    fail_allocation_after(n);
    const orvik_status status = orvik_d_quantiles(100, 3, x.data(), ORVIK_COLUMNS, 1, orders, r);
    fail_allocation_after(0);
    EXPECT_EQ(live_allocations(), live);
    if (status == ORVIK_SUCCESS) break;
    EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
  }
  for (int64_t n = 1; n < 1000; ++n) {
    const int64_t live = live_allocations();
    orvik_d_stream_quantiles* q = nullptr;
    fail_allocation_after(n);
    orvik_status status = orvik_d_stream_quantiles_new(&q, 3, 0.1);
    if (status == ORVIK_SUCCESS) status = orvik_d_stream_quantiles_update(q, 100, x.data(), ORVIK_ROWS);
    if (status == ORVIK_SUCCESS) status = orvik_d_stream_quantiles_query(q, 1, orders, r);
    fail_allocation_after(0);
    orvik_d_stream_quantiles_delete(q);
    EXPECT_EQ(live_allocations(), live);
    if (status == ORVIK_SUCCESS) break;
    EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
  }
  orvik_set_num_threads(0);
}

TEST(Estimators, AreThePlainOnes) {
  const double x[] = {4, 1, 3, 2, 40, 10, kNan, 20}, weights[] = {1, 1, 5, 1}, orders[] = {0, 0.5, 1};
  double r[8];
  ASSERT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, 3, orders, r), ORVIK_SUCCESS);
  EXPECT_EQ(r[0], 1);
  EXPECT_EQ(r[1], 2.5);
  EXPECT_EQ(r[2], 4);
  ASSERT_EQ(orvik_d_mad(4, 1, x, ORVIK_ROWS, r), ORVIK_SUCCESS);
  EXPECT_EQ(r[0], 1);
  ASSERT_EQ(orvik_d_weighted_median(4, 1, x, ORVIK_ROWS, weights, r), ORVIK_SUCCESS);
  EXPECT_EQ(r[0], 3);
  ASSERT_EQ(orvik_d_sort(4, 2, x, ORVIK_ROWS, r), ORVIK_SUCCESS);
  const double sorted[] = {1, 2, 3, 4, 10, 20, 40};
  EXPECT_TRUE(std::equal(sorted, sorted + 7, r));
  EXPECT_TRUE(std::isnan(r[7]));
  std::vector<double> in_place(x, x + 8);
  ASSERT_EQ(orvik_d_sort(4, 2, in_place.data(), ORVIK_ROWS, in_place.data()), ORVIK_SUCCESS);
  EXPECT_EQ(std::memcmp(in_place.data(), r, sizeof r), 0);
  in_place.assign({4, 40, 1, 10, 3, 30});
  ASSERT_EQ(orvik_d_sort(3, 2, in_place.data(), ORVIK_COLUMNS, in_place.data()), ORVIK_SUCCESS);
  EXPECT_EQ(in_place, (std::vector<double>{1, 10, 3, 30, 4, 40}));
}

TEST(Estimators, BadArgumentsGetTheirStatus) {
  double x[] = {4, 1, 3, 2}, r[4] = {-7, -7, -7, -7}, half = 0.5;
  EXPECT_EQ(orvik_d_quantiles(0, 1, x, ORVIK_ROWS, 1, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(-4, 1, x, ORVIK_ROWS, 1, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(4, 0, x, ORVIK_ROWS, 1, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(4, INT64_MAX / 2, x, ORVIK_ROWS, 1, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, -1, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, INT64_MAX, &half, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_quantiles(4, 1, nullptr, ORVIK_ROWS, 1, &half, r), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, 1, nullptr, r), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, 1, &half, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, 7, 1, &half, r), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, 1, &half, x + 1), ORVIK_ERROR_OVERLAP);
  for (const double order : {-0.1, 1.1, kNan}) {
    EXPECT_EQ(orvik_d_quantiles(4, 1, x, ORVIK_ROWS, 1, &order, r), ORVIK_ERROR_BAD_PARAMETER);
  }
  EXPECT_EQ(orvik_d_sort(3, 1, x, ORVIK_ROWS, x + 1), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_d_sort(4, 1, x, ORVIK_ROWS, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_mad(4, 1, x, ORVIK_ROWS, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_weighted_median(4, 1, x, ORVIK_ROWS, nullptr, r), ORVIK_ERROR_NULL_POINTER);
  const double weights[] = {1, -1, 1, 1};
  EXPECT_EQ(orvik_d_weighted_median(4, 1, x, ORVIK_ROWS, weights, r), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(r[0], -7);
}

// The image of two variables after `n` observations.
std::vector<char> stream_image(int64_t n, double epsilon = 0.1) {
  const auto x = noise<double>(2 * n + 2);
  orvik_d_stream_quantiles* q = nullptr;
  EXPECT_EQ(orvik_d_stream_quantiles_new(&q, 2, epsilon), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_d_stream_quantiles_update(q, n, x.data(), ORVIK_COLUMNS), ORVIK_SUCCESS);
  int64_t size = 0;
  EXPECT_EQ(orvik_d_stream_quantiles_save(q, nullptr, &size), ORVIK_SUCCESS);
  std::vector<char> image(static_cast<size_t>(size));
  --size;
  EXPECT_EQ(orvik_d_stream_quantiles_save(q, image.data(), &size), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(image, std::vector<char>(image.size()));
  ++size;
  EXPECT_EQ(orvik_d_stream_quantiles_save(q, image.data(), &size), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_d_stream_quantiles_save(q, image.data(), nullptr), ORVIK_ERROR_NULL_POINTER);
  orvik_d_stream_quantiles_delete(q);
  return image;
}

TEST(StreamQuantiles, GoOnFromTheirImages) {
  const auto x = noise<double>(8000);
  const double orders[] = {0, 0.25, 0.5, 1};
  for (const int64_t n : {0, 1, 9, 10, 11, 500, 4000}) {
    const auto image = stream_image(n);
    orvik_d_stream_quantiles *a = nullptr, *b = nullptr;
    ASSERT_EQ(orvik_d_stream_quantiles_new(&a, 2, 0.1), ORVIK_SUCCESS);
    ASSERT_EQ(orvik_d_stream_quantiles_update(a, n, noise<double>(2 * n + 2).data(), ORVIK_COLUMNS), ORVIK_SUCCESS);
    ASSERT_EQ(orvik_d_stream_quantiles_load(&b, image.data(), int64_t(image.size())), ORVIK_SUCCESS);
    for (int64_t more : {0, 1, 30, 3969}) {
      double r[8] = {}, s[8] = {};
      ASSERT_EQ(orvik_d_stream_quantiles_update(a, more, x.data(), ORVIK_COLUMNS), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_stream_quantiles_update(b, more, x.data(), ORVIK_COLUMNS), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_stream_quantiles_query(a, 4, orders, r), ORVIK_SUCCESS);
      ASSERT_EQ(orvik_d_stream_quantiles_query(b, 4, orders, s), ORVIK_SUCCESS);
      EXPECT_EQ(std::memcmp(r, s, sizeof r), 0) << n << " " << more;
    }
    orvik_d_stream_quantiles_delete(a);
    orvik_d_stream_quantiles_delete(b);
    EXPECT_EQ(orvik_d_stream_quantiles_save(a, nullptr, nullptr), ORVIK_ERROR_BAD_OBJECT);
  }
}

TEST(StreamQuantiles, DamagedAndForeignImagesAreRefused) {
  const auto image = stream_image(100);
  const auto size = static_cast<int64_t>(image.size());
  orvik_d_stream_quantiles* loaded = nullptr;
  orvik_s_stream_quantiles* single = nullptr;
  orvik_d_summary* summary = nullptr;
  for (size_t at = 0; at < image.size(); ++at) {
    auto bent = image;
    bent[at] ^= 1;
    ASSERT_EQ(orvik_d_stream_quantiles_load(&loaded, bent.data(), size), ORVIK_ERROR_BAD_IMAGE) << at;
  }
  for (int64_t less = 0; less < size; ++less)
    ASSERT_EQ(orvik_d_stream_quantiles_load(&loaded, image.data(), less), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_s_stream_quantiles_load(&single, image.data(), size), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_d_summary_load(&summary, image.data(), size), ORVIK_ERROR_BAD_IMAGE);
  EXPECT_EQ(orvik_d_stream_quantiles_load(&loaded, nullptr, size), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_stream_quantiles_load(nullptr, image.data(), size), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_stream_quantiles_load(&loaded, image.data(), -1), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(loaded, nullptr);
}

// An image that somebody bent and signed anew is refused, or holds what can be asked and fed.
TEST(StreamQuantiles, BentImagesWithTheirChecksumDoNoHarm) {
  const auto x = noise<double>(200);
  const double orders[] = {0, 0.3, 1};
  int refused = 0, taken = 0;
  for (const int64_t n : {3, 100, 2000}) {
    const auto image = stream_image(n, n == 3 ? 1 : 0.1);
    for (size_t at = sizeof(ImageHead); at < image.size(); ++at) {
      for (const char bit : {char(1), char(-128)}) {
        auto bent = image;
        bent[at] = static_cast<char>(bent[at] ^ bit);
        const uint64_t sum = checksum_of(bent.data() + sizeof(ImageHead), bent.size() - sizeof(ImageHead));
        std::memcpy(bent.data() + offsetof(ImageHead, checksum), &sum, sizeof sum);
        orvik_d_stream_quantiles* q = nullptr;
        const orvik_status status = orvik_d_stream_quantiles_load(&q, bent.data(), int64_t(bent.size()));
        if (status != ORVIK_SUCCESS) {
          ASSERT_TRUE(status == ORVIK_ERROR_BAD_IMAGE || status == ORVIK_ERROR_NO_MEMORY) << at;
          ASSERT_EQ(q, nullptr);
          ++refused;
          continue;
        }
        ++taken;
        int64_t p = 0;
        ASSERT_EQ(orvik_d_stream_quantiles_dimension(q, &p), ORVIK_SUCCESS);
        std::vector<double> r(static_cast<size_t>(3 * p));
        EXPECT_EQ(orvik_d_stream_quantiles_query(q, 3, orders, r.data()), ORVIK_SUCCESS);
        EXPECT_EQ(orvik_d_stream_quantiles_update(q, 200 / p, x.data(), ORVIK_ROWS), ORVIK_SUCCESS);
        EXPECT_EQ(orvik_d_stream_quantiles_query(q, 3, orders, r.data()), ORVIK_SUCCESS);
        orvik_d_stream_quantiles_delete(q);
      }
    }
  }
  EXPECT_GT(refused, 1000);
  EXPECT_GT(taken, 1000);  // values may be any numbers
}

TEST(StreamQuantiles, AnImageThatCannotBeReadForMemoryLeavesNothing) {
  const auto image = stream_image(2000);
  for (int64_t n = 1;; ++n) {
    ASSERT_LT(n, 1000);
    const int64_t live = live_allocations();
    orvik_d_stream_quantiles* q = nullptr;
    fail_allocation_after(n);
    const orvik_status status = orvik_d_stream_quantiles_load(&q, image.data(), int64_t(image.size()));
    fail_allocation_after(0);
    orvik_d_stream_quantiles_delete(q);
    EXPECT_EQ(live_allocations(), live);
    if (status == ORVIK_SUCCESS) break;
    EXPECT_EQ(status, ORVIK_ERROR_NO_MEMORY);
  }
}

TEST(StreamQuantiles, AreWithinTheirError) {
  constexpr int64_t n = 20000;
  const auto x = noise<double>(2 * n);
  orvik_d_stream_quantiles* q = nullptr;
  ASSERT_EQ(orvik_d_stream_quantiles_new(&q, 2, 0.01), ORVIK_SUCCESS);
  const double orders[] = {0.1, 0.5, 0.9};
  double r[6];
  ASSERT_EQ(orvik_d_stream_quantiles_query(q, 3, orders, r), ORVIK_SUCCESS);
  EXPECT_TRUE(std::isnan(r[0]));
  for (int64_t first = 0; first < n; first += 1000) {
    ASSERT_EQ(orvik_d_stream_quantiles_update(q, 1000, x.data() + 2 * first, ORVIK_COLUMNS), ORVIK_SUCCESS);
  }
  ASSERT_EQ(orvik_d_stream_quantiles_query(q, 3, orders, r), ORVIK_SUCCESS);
  for (size_t j = 0; j < 2; ++j) {
    for (size_t k = 0; k < 3; ++k) {
      int64_t below = 0;
      for (size_t i = 0; i < n; ++i) below += x[2 * i + j] <= r[3 * j + k];
      EXPECT_NEAR(double(below) / n, orders[k], 0.0101);
    }
  }
  EXPECT_EQ(orvik_d_stream_quantiles_update(q, -1, x.data(), ORVIK_ROWS), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_stream_quantiles_update(q, 1, nullptr, ORVIK_ROWS), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_stream_quantiles_query(q, -1, orders, r), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_stream_quantiles_query(q, 1, nullptr, r), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_stream_quantiles_query(q, 1, orders, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_d_stream_quantiles_query(q, 1, &kNan, r), ORVIK_ERROR_BAD_PARAMETER);
  orvik_d_stream_quantiles_delete(q);
  orvik_d_stream_quantiles_delete(q);
  EXPECT_EQ(orvik_d_stream_quantiles_update(q, 1, x.data(), ORVIK_ROWS), ORVIK_ERROR_BAD_OBJECT);
  EXPECT_EQ(orvik_d_stream_quantiles_query(nullptr, 1, orders, r), ORVIK_ERROR_BAD_OBJECT);
  for (const double epsilon : {0.0, -1.0, 1.5, 1e-300, kNan}) {
    EXPECT_EQ(orvik_d_stream_quantiles_new(&q, 2, epsilon), ORVIK_ERROR_BAD_PARAMETER);
  }
  EXPECT_EQ(orvik_d_stream_quantiles_new(&q, 0, 0.1), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_d_stream_quantiles_new(nullptr, 1, 0.1), ORVIK_ERROR_NULL_POINTER);
}

}  // namespace

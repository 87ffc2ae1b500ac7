// Extremes over storages, selection and lengths.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

constexpr uint64_t kBoth = ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM;

template <class T>
class Minmax : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Minmax, Types);

template <class T>
int32_t minmax(const Sample<T>& s, bool columns, const int32_t* flags, std::vector<T>& low, std::vector<T>& high,
               uint64_t estimates = kBoth) {
  TaskOver<T> task;
  EXPECT_EQ(task.make(s.p, s.n, columns ? 0x20000 : 0x10000, (columns ? s.columns : s.rows).data(), nullptr, flags), 0);
  task.set(OrvikSS_minimum, low);
  task.set(OrvikSS_maximum, high);
  return Entries<T>::minmax(task.get(), estimates, 2);
}

TYPED_TEST(Minmax, AreTheExtremesInEveryLayout) {
  using T = TypeParam;
  constexpr T kInf = std::numeric_limits<T>::infinity();
  for (int64_t p : {1, 2, 3, 7, 10, 33, 64, 65, 130}) {
    for (int64_t n : {1, 2, 5, 31, 200, 1500}) {
      const auto s = random_sample<T>(p, n, static_cast<uint64_t>(p * n));
      for (int mask = 0; mask < 4; ++mask) {
        std::vector<int32_t> flags(p);
        for (int64_t j = 0; j < p; ++j) flags[j] = mask & 2 ? j % 3 != 1 : 1;
        std::vector<T> low(p, kInf), high(p, -kInf);
        ASSERT_EQ(minmax(s, mask & 1, flags.data(), low, high), 0);
        for (int64_t j = 0; j < p; ++j) {
          const auto [a, b] = std::minmax_element(s.rows.begin() + j * n, s.rows.begin() + (j + 1) * n);
          ASSERT_EQ(low[j], flags[j] ? *a : kInf) << p << " " << n << " " << mask << " " << j;
          ASSERT_EQ(high[j], flags[j] ? *b : -kInf) << p << " " << n << " " << mask << " " << j;
        }
      }
    }
  }
}

// Several observations make a row, the last of them a shorter one; a NaN may stand at any place of either.
TYPED_TEST(Minmax, OfEveryShortLengthInContiguousObservationsAreThoseOfContiguousVariables) {
  using T = TypeParam;
  constexpr T kInf = std::numeric_limits<T>::infinity();
  for (int64_t p : {2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 63}) {
    for (int64_t n = 1; n < 530; n += n < 140 ? 1 : 13) {
      auto s = random_sample<T>(p, n, static_cast<uint64_t>(p * n), 0);
      for (int nan = 0; nan < 3; ++nan) {
        const int64_t i = nan == 1 ? n - 1 : n / 3, j = nan == 1 ? p - 1 : p / 2;
        if (nan != 0) s.rows[j * n + i] = s.columns[i * p + j] = std::numeric_limits<T>::quiet_NaN();
        std::vector<T> low[2], high[2];
        for (bool columns : {false, true}) {
          low[columns].assign(p, kInf), high[columns].assign(p, -kInf);
          ASSERT_EQ(minmax<T>(s, columns, nullptr, low[columns], high[columns]), 0);
        }
        for (int64_t k = 0; k < p; ++k) {
          ASSERT_TRUE(low[0][k] == low[1][k] || (std::isnan(low[0][k]) && std::isnan(low[1][k]))) << p << " " << n;
          ASSERT_TRUE(high[0][k] == high[1][k] || (std::isnan(high[0][k]) && std::isnan(high[1][k]))) << p << " " << n;
        }
      }
    }
  }
}

TYPED_TEST(Minmax, GoOnFromTheStartingValues) {
  using T = TypeParam;
  const Sample<T> s(2, 100, [](int64_t i, int64_t) { return i; });
  for (bool columns : {false, true}) {
    std::vector<T> low = {-5, 20}, high = {1000, 30};
    ASSERT_EQ(minmax<T>(s, columns, nullptr, low, high), 0);
    EXPECT_EQ(low, (std::vector<T>{-5, 0}));
    EXPECT_EQ(high, (std::vector<T>{1000, 99}));
  }
}

TYPED_TEST(Minmax, OneOfThemAloneLeavesTheOtherUntouched) {
  using T = TypeParam;
  const Sample<T> s(1, 100, [](int64_t i, int64_t) { return i; });
  std::vector<T> low = {50}, high = {50};
  ASSERT_EQ(minmax<T>(s, false, nullptr, low, high, ORVIK_SS_MAXIMUM), 0);
  EXPECT_EQ(low[0], 50);
  EXPECT_EQ(high[0], 99);
}

TYPED_TEST(Minmax, NanSpreadsWhereverItStandsAndStays) {
  using T = TypeParam;
  const T nan = std::numeric_limits<T>::quiet_NaN();
  for (int64_t p : {1, 3, 70}) {
    for (int64_t n : {1, 9, 333}) {
      for (int64_t at = 0; at < n; at += 1 + n / 40) {
        const int64_t variable = at % p;
        const Sample<T> s(p, n,
                          [&](int64_t i, int64_t j) { return i == at && j == variable ? nan : static_cast<T>(i); });
        for (bool columns : {false, true}) {
          std::vector<T> low(p, T(1e30)), high(p, T(-1e30));
          ASSERT_EQ(minmax<T>(s, columns, nullptr, low, high), 0);
          for (int64_t j = 0; j < p; ++j) {
            ASSERT_EQ(std::isnan(low[j]), j == variable) << p << " " << n << " " << at;
            ASSERT_EQ(std::isnan(high[j]), j == variable);
          }
        }
      }
    }
  }
  std::vector<T> low = {nan}, high = {nan};
  const Sample<T> s(1, 50, [](int64_t i, int64_t) { return i; });
  ASSERT_EQ(minmax<T>(s, false, nullptr, low, high), 0);
  EXPECT_TRUE(std::isnan(low[0]) && std::isnan(high[0])) << "a block before had one";
}

}  // namespace
}  // namespace orvik::ss::test

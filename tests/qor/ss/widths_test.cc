// Registers of 512 bits, where the processor has them and they are built in, make the statistics of the narrow ones,
// bit for bit; elsewhere there is one width.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "qor/ss/support.h"
#include "support/narrow.h"

namespace {

using namespace orvik;
using namespace orvik::ss::test;

// Results that all calls below write, one after the other.
constexpr int32_t kFields[] = {
    OrvikSS_mean,           OrvikSS_rawMoment2,     OrvikSS_rawMoment3, OrvikSS_rawMoment4, OrvikSS_centralMoment2,
    OrvikSS_centralMoment3, OrvikSS_centralMoment4, OrvikSS_skewness,   OrvikSS_kurtosis,   OrvikSS_sum,
    OrvikSS_rawSum2,        OrvikSS_rawSum3,        OrvikSS_rawSum4,    OrvikSS_minimum,    OrvikSS_maximum};
constexpr uint64_t kOrders[] = {ORVIK_SS_MEAN | ORVIK_SS_SUM,
                                ORVIK_SS_MEAN | ORVIK_SS_CENTRAL_MOMENT2 | ORVIK_SS_RAW_SUM2,
                                ORVIK_SS_MEAN | ORVIK_SS_SKEWNESS | ORVIK_SS_RAW_SUM3,
                                ORVIK_SS_MEAN | ORVIK_SS_SKEWNESS | ORVIK_SS_KURTOSIS | ORVIK_SS_RAW_SUM4};

template <class T>
struct Data {
  int64_t p, n;
  std::vector<T> x, w;
};

template <class T>
std::vector<T> results(const Data<T>& data, bool weighted, int64_t storage, const int32_t* selected) {
  std::vector<T> all;
  for (const uint64_t method : {ORVIK_SS_METHOD_FAST, ORVIK_SS_METHOD_ONE_PASS, ORVIK_SS_METHOD_USER_MEAN}) {
    for (const uint64_t estimates : kOrders) {
      OrvikSSTask task = nullptr;
      EXPECT_EQ(Entries<T>::new_task(&task, &data.p, &data.n, &storage, data.x.data(),
                                     weighted ? data.w.data() : nullptr, selected, 1),
                0);
      std::vector<T> rows(std::size(kFields) * static_cast<size_t>(data.p), T(0.25)), accumulated(2);
      for (size_t k = 0; k < std::size(kFields); ++k) {
        Entries<T>::edit(task, kFields[k], rows.data() + static_cast<int64_t>(k) * data.p);
      }
      Entries<T>::edit(task, OrvikSS_accumulatedWeights, accumulated.data());
      EXPECT_EQ(Entries<T>::basic(task, estimates, method, nullptr), 0);
      if (method != ORVIK_SS_METHOD_USER_MEAN) {
        EXPECT_EQ(Entries<T>::minmax(task, ORVIK_SS_MINIMUM | ORVIK_SS_MAXIMUM, method), 0);
      }
      __qorSSDeleteTask(&task);
      all.insert(all.end(), rows.begin(), rows.end());
      all.insert(all.end(), accumulated.begin(), accumulated.end());
    }
  }
  return all;
}

template <class T>
void expect_same(const Data<T>& data, const std::string& what) {
  std::vector<int32_t> some(static_cast<size_t>(data.p), 1);
  for (size_t j = 0; j < some.size(); j += 3) some[j] = 0;
  for (const bool weighted : {false, true}) {
    for (const int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
      for (const int32_t* selected : {static_cast<const int32_t*>(nullptr), static_cast<const int32_t*>(some.data())}) {
        if (selected != nullptr && data.p == 1) continue;
        const std::vector<T> wide = results(data, weighted, storage, selected);
        const orvik::test::Narrow narrow;
        const std::vector<T> expected = results(data, weighted, storage, selected);
        ASSERT_EQ(wide.size(), expected.size());
        for (size_t k = 0; k < wide.size(); ++k) {
          ASSERT_EQ(memcmp(&wide[k], &expected[k], sizeof(T)), 0)
              << what << " p = " << data.p << ", n = " << data.n << (weighted ? ", weighted" : "") << ", storage "
              << storage << (selected != nullptr ? ", some" : "") << ", result " << k << ": " << wide[k] << " and "
              << expected[k];
        }
      }
    }
  }
}

template <class T>
Data<T> data_of(int64_t p, int64_t n) {
  const Sample<T> sample = random_sample<T>(p, n, static_cast<uint64_t>(1000 * p + n));
  return {p, n, sample.columns, sample.weights};
}

template <class T>
class WidthsTest : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(WidthsTest, Precisions);

TYPED_TEST(WidthsTest, AnyNumberOfObservations) {
  for (int64_t n = 1; n <= 100; ++n) {
    for (const int64_t p : {1, 2, 10}) expect_same(data_of<TypeParam>(p, n), "");
  }
  for (const int64_t n : {127, 128, 129, 511, 1000, 4097}) {
    for (const int64_t p : {1, 3, 10, 31}) expect_same(data_of<TypeParam>(p, n), "");
  }
}

TYPED_TEST(WidthsTest, AnyNumberOfVariables) {
  for (int64_t p = 1; p <= 70; ++p) expect_same(data_of<TypeParam>(p, 270), "");
  for (const int64_t p : {127, 128, 129, 200, 511, 512, 513, 1000, 1030}) {
    for (const int64_t n : {1, 5, 37}) expect_same(data_of<TypeParam>(p, n), "");
  }
}

// One such value or a few of each kind, at any place.
TYPED_TEST(WidthsTest, InfinitiesNotANumbersZerosAndHugeValues) {
  using Limits = std::numeric_limits<TypeParam>;
  const TypeParam specials[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                                TypeParam(-0.0),    Limits::max(),       Limits::denorm_min()};
  for (const int64_t p : {1, 3, 10, 63, 130}) {
    const Data<TypeParam> plain = data_of<TypeParam>(p, 600);
    const int64_t count = p * 600;
    for (const TypeParam special : specials) {
      for (const int64_t at : {int64_t{0}, count / 3, count - 1, count - p - 1}) {
        Data<TypeParam> data = plain;
        data.x[static_cast<size_t>(std::max<int64_t>(at, 0))] = special;
        expect_same(data, "a value " + std::to_string(static_cast<double>(special)) + ' ');
      }
      Data<TypeParam> data = plain;
      for (int64_t k = 7; k < count; k += 101) data.x[static_cast<size_t>(k)] = special;
      expect_same(data, "values " + std::to_string(static_cast<double>(special)) + ' ');
    }
    Data<TypeParam> zeros = plain;
    for (int64_t k = 0; k < count; ++k) zeros.x[static_cast<size_t>(k)] = TypeParam(k * 7 % 5 < 2 ? -0.0 : 0.0);
    expect_same(zeros, "zeros of either sign ");
  }
}

TYPED_TEST(WidthsTest, WeightsThatAreZeroInfiniteOrNotANumber) {
  using Limits = std::numeric_limits<TypeParam>;
  for (const int64_t p : {1, 3, 10, 63, 130}) {
    const Data<TypeParam> plain = data_of<TypeParam>(p, 601);
    for (const TypeParam special : {TypeParam(0), Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min()}) {
      for (const size_t at : {0u, 200u, 600u}) {
        Data<TypeParam> data = plain;
        data.w[at] = special;
        expect_same(data, "a weight " + std::to_string(static_cast<double>(special)) + ' ');
      }
    }
  }
}

}  // namespace

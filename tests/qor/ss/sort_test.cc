// Sorting and selection: any input, any length, contiguous or strided, without a quadratic case.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>

#include "qor/ss/sort.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

template <class T>
using Values = std::vector<T>;

// Inputs that have broken quicksorts before.
template <class T>
std::vector<std::pair<const char*, Values<T>>> inputs(int64_t n) {
  std::mt19937_64 engine(n);
  auto make = [&](auto value) {
    Values<T> v(n);
    for (int64_t i = 0; i < n; ++i) v[i] = static_cast<T>(value(i));
    return v;
  };
  std::normal_distribution<double> normal;
  std::vector<std::pair<const char*, Values<T>>> all = {
      {"sorted", make([](int64_t i) { return i; })},
      {"reversed", make([n](int64_t i) { return n - i; })},
      {"constant", make([](int64_t) { return 7; })},
      {"random", make([&](int64_t) { return normal(engine); })},
      {"two values", make([&](int64_t) { return engine() & 1; })},
      {"sawtooth", make([](int64_t i) { return i % 17; })},
      {"organ pipe", make([n](int64_t i) { return std::min(i, n - i); })},
      {"signed zeros and infinities", make([](int64_t i) {
         constexpr double kInf = std::numeric_limits<double>::infinity();
         const double x[] = {0.0, -0.0, kInf, -kInf, 1e-310, -1.0};
         return x[i % 6];
       })}};
  return all;
}

// Makes an input on which a deterministic quicksort with its pivots among the elements does worst (McIlroy 1999): the
// values are decided while the sort compares them.
Values<double> killer(int64_t n) {
  static thread_local std::vector<double>* values;
  static thread_local int64_t solid, candidate;
  static thread_local double gas;
  struct Antagonist {
    int64_t id;
    bool operator<(const Antagonist& o) const {
      auto& v = *values;
      if (v[id] == gas && v[o.id] == gas) (id == candidate ? v[id] : v[o.id]) = static_cast<double>(solid++);
      if (v[id] == gas) {
        candidate = id;
      } else if (v[o.id] == gas) {
        candidate = o.id;
      }
      return v[id] < v[o.id];
    }
  };
  Values<double> v(n, static_cast<double>(n));
  values = &v;
  solid = candidate = 0;
  gas = static_cast<double>(n);
  std::vector<Antagonist> a(n);
  for (int64_t i = 0; i < n; ++i) a[i].id = i;
  quicksort(a.data(), n);
  return v;
}

template <class T>
class Sorting : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Sorting, Types);

TYPED_TEST(Sorting, SortsEveryShapeOfInputAtEveryShortLength) {
  for (int64_t n = 0; n < 70; ++n) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      auto want = v;
      std::sort(want.begin(), want.end());
      Entries<TypeParam>::sort(n, v.data());
      EXPECT_EQ(v, want) << name << " " << n;
    }
  }
}

TYPED_TEST(Sorting, SortsLongInputs) {
  for (int64_t n : {1000, 20000}) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      auto want = v;
      std::sort(want.begin(), want.end());
      Entries<TypeParam>::sort(n, v.data());
      EXPECT_EQ(v, want) << name << " " << n;
    }
  }
}

TYPED_TEST(Sorting, StridedSortLeavesTheElementsBetweenAlone) {
  for (int64_t n : {0, 1, 5, 6, 7, 8, 300}) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      std::vector<TypeParam> spread(3 * n + 1, TypeParam{-5});
      for (int64_t i = 0; i < n; ++i) spread[3 * i] = v[i];
      Entries<TypeParam>::sort_step(n, spread.data(), 3);
      std::sort(v.begin(), v.end());
      for (int64_t i = 0; i < n; ++i) {
        ASSERT_EQ(spread[3 * i], v[i]) << name;
        ASSERT_EQ(spread[3 * i + 1], -5);
        ASSERT_EQ(spread[3 * i + 2], -5);
      }
    }
  }
}

TYPED_TEST(Sorting, SelectsEveryRankAndPartitionsAroundIt) {
  for (int64_t n : {1, 2, 3, 6, 7, 8, 40, 101}) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      auto sorted = v;
      std::sort(sorted.begin(), sorted.end());
      for (int64_t k = 0; k < n; ++k) {
        auto a = v;
        ASSERT_EQ(Entries<TypeParam>::select(n, a.data(), k), sorted[k]) << name << " " << n << " " << k;
        ASSERT_EQ(a[k], sorted[k]);
        for (int64_t i = 0; i < n; ++i) ASSERT_TRUE(i < k ? a[i] <= a[k] : a[i] >= a[k]);
        std::sort(a.begin(), a.end());
        ASSERT_EQ(a, sorted) << "the same values, in another order";
      }
    }
  }
}

TYPED_TEST(Sorting, PutsNansLast) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  std::mt19937 engine(3);
  for (int64_t n : {1, 4, 9, 200, 3000}) {
    for (int kind = 0; kind < 3; ++kind) {
      Values<TypeParam> v(n);
      int64_t nans = 0;
      for (auto& x : v) {
        x = kind == 2 || engine() % 3 == 0 ? (kind == 1 ? -nan : nan) : static_cast<TypeParam>(engine() % 1000);
        nans += std::isnan(x);
      }
      auto radix = v, scratch = v, selected = v;
      Entries<TypeParam>::sort(n, v.data());
      radix_sort(n, radix.data(), radix.data(), scratch.data());
      for (const auto* a : {&v, &radix}) {
        EXPECT_TRUE(std::is_sorted(a->begin(), a->end() - nans));
        EXPECT_TRUE(std::all_of(a->end() - nans, a->end(), [](TypeParam x) { return std::isnan(x); }));
      }
      for (int64_t k = 0; k < n; k += 1 + n / 7) {
        const TypeParam got = Entries<TypeParam>::select(n, selected.data(), k);
        if (k < n - nans) {
          EXPECT_EQ(got, v[k]);
        } else {
          EXPECT_TRUE(std::isnan(got));
        }
      }
    }
  }
}

TYPED_TEST(Sorting, RadixSortAgreesWhereverItsSourceLies) {
  for (int64_t n : {0, 1, 2, 100, 1499, 1500, 5000}) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      auto want = v;
      std::sort(want.begin(), want.end());
      Values<TypeParam> out(n), temporary(n);
      radix_sort(n, v.data(), out.data(), temporary.data());
      EXPECT_EQ(out, want) << name << " " << n;
      auto in_place = v;
      radix_sort(n, in_place.data(), in_place.data(), temporary.data());
      EXPECT_EQ(in_place, want) << name << " " << n;
      temporary = v;
      radix_sort(n, temporary.data(), out.data(), temporary.data());
      EXPECT_EQ(out, want) << name << " " << n;
    }
  }
}

TYPED_TEST(Sorting, RadixSortOfValuesWithWeightsIsStable) {
  for (int64_t n : {0, 1, 2, 100, 1499, 1500, 5000}) {
    for (auto& [name, v] : inputs<TypeParam>(n)) {
      std::vector<Weighed<TypeParam>> a(n), temporary(n);
      for (int64_t i = 0; i < n; ++i) a[i] = {v[i], static_cast<TypeParam>(i)};
      auto want = a;
      std::stable_sort(want.begin(), want.end(), [](auto x, auto y) {
        return x < y || (x.value == y.value && std::signbit(x.value) && !std::signbit(y.value));
      });
      radix_sort(n, a.data(), temporary.data());
      for (int64_t i = 0; i < n; ++i) {
        ASSERT_EQ(a[i].value, want[i].value) << name << " " << n;
        ASSERT_EQ(a[i].weight, want[i].weight) << name << " " << n;
      }
    }
  }
}

double seconds(const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// A quadratic sort of 10^6 values takes minutes; the limit is generous for slow and instrumented builds.
TEST(SortingTime, HasNoQuadraticCaseAtAMillion) {
  constexpr int64_t kCount = 1000000;
  auto all = inputs<double>(kCount);
  all.emplace_back("median-of-three killer", killer(kCount));
  for (const auto& [name, v] : all) {
    auto a = v, b = v;
    EXPECT_LT(seconds([&] { __qordQSort(kCount, a.data()); }), 20) << name;
    EXPECT_TRUE(std::is_sorted(a.begin(), a.end())) << name;
    double got = 0;
    EXPECT_LT(seconds([&] { got = __qordQSortSelect(kCount, b.data(), kCount / 2); }), 20) << name;
    EXPECT_EQ(got, a[kCount / 2]) << name;
  }
}

// The depth limit is what saves the killer: without it the same input takes more than 10^9 comparisons.
TEST(SortingTime, KillerInputTakesComparisonsOfOrderNLogN) {
  static int64_t comparisons;
  struct Counted {
    double x;
    bool operator<(const Counted& o) const {
      ++comparisons;
      return x < o.x;
    }
  };
  constexpr int64_t kCount = 100000;
  const auto v = killer(kCount);
  std::vector<Counted> a(kCount);
  for (int64_t i = 0; i < kCount; ++i) a[i].x = v[i];
  auto b = a;
  comparisons = 0;
  quicksort(a.data(), kCount);
  EXPECT_LT(comparisons, 10 * kCount * 17);
  comparisons = 0;
  select(b.data(), 0, kCount - 1, kCount / 2);
  EXPECT_LT(comparisons, 10 * kCount * 17);
}

}  // namespace
}  // namespace orvik::ss::test

// What other estimators call: subsets by index, weights, shifts and root weights in blocks; matrices in their storages.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/ss/estimators.h"
#include "qor/ss/matrix.h"
#include "qor/ss/support.h"

namespace orvik::ss::test {
namespace {

template <class T>
class Estimators : public testing::Test {
 protected:
  static constexpr int64_t kP = 5, kN = 700;
  Sample<T> sample = random_sample<T>(kP, kN);
  std::vector<int64_t> index;

  Estimators() {
    for (int64_t i = 0; i < kN; i += 1 + i % 3) index.push_back((i * 37) % kN);
  }
  Observations<T> all(bool columns) const {
    Data<T> d;
    d.x = (columns ? sample.columns : sample.rows).data();
    d.weights = nullptr;
    d.flags = nullptr;
    d.p = kP;
    d.n = kN;
    d.contiguous_variables = !columns;
    return Observations<T>(d);
  }
  // Every choice of observations: all or by index, with weights or without.
  template <class Body>
  void for_all(Body&& body) const {
    for (bool columns : {false, true}) {
      for (bool chosen : {false, true}) {
        for (bool weighted : {false, true}) {
          Observations<T> o = all(columns);
          if (chosen) o = o.subset(index.data(), static_cast<int64_t>(index.size()));
          if (weighted) o = o.weighed(sample.weights.data());
          body(o);
        }
      }
    }
  }
};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(Estimators, Types);

TYPED_TEST(Estimators, ScatterAndCovarianceAreThoseOfTheSubset) {
  using T = TypeParam;
  constexpr int64_t kP = 5;
  this->for_all([&](const Observations<T>& o) {
    long double weight = 0, squares = 0, mean[kP] = {}, want[kP * kP] = {};
    for (int64_t i = 0; i < o.n; ++i) {
      weight += o.weight(i), squares += static_cast<long double>(o.weight(i)) * o.weight(i);
      for (int64_t j = 0; j < kP; ++j) mean[j] += static_cast<long double>(o.weight(i)) * o.at(i, j);
    }
    for (auto& m : mean) m /= weight;
    for (int64_t i = 0; i < o.n; ++i) {
      for (int64_t k = 0; k < kP * kP; ++k) {
        want[k] += o.weight(i) * (o.at(i, k / kP) - mean[k / kP]) * (o.at(i, k % kP) - mean[k % kP]);
      }
    }
    const double eps = 2000 * std::numeric_limits<T>::epsilon();
    for (int count : {0, 3}) {
      std::vector<T> got_mean(kP), got(kP * kP);
      Weights total;
      ASSERT_EQ(scatter(o, threads(count), got_mean.data(), got.data(), &total), 0);
      EXPECT_NEAR(total.sum, static_cast<double>(weight), 1e-6 * total.sum);
      EXPECT_NEAR(total.squares, static_cast<double>(squares), 1e-6 * total.squares);
      for (int64_t j = 0; j < kP; ++j) EXPECT_NEAR(got_mean[j], static_cast<double>(mean[j]), eps * 5);
      for (int64_t k = 0; k < kP * kP; ++k) {
        EXPECT_NEAR(got[k], static_cast<double>(want[k]), eps * static_cast<double>(want[0] + want[12]));
        EXPECT_EQ(got[k], got[k % kP * kP + k / kP]);
      }
      ASSERT_EQ(covariance(o, threads(count), got_mean.data(), got.data()), 0);
      const long double scale = 1 / (weight - squares / weight);
      for (int64_t k = 0; k < kP * kP; ++k) {
        EXPECT_NEAR(got[k], static_cast<double>(want[k] * scale), eps * 20);
      }
    }
  });
}

TYPED_TEST(Estimators, QuantilesMediansAndDistancesAreThoseOfTheSubset) {
  using T = TypeParam;
  constexpr int64_t kP = 5;
  const T orders[] = {T{0.25}, T{0.5}};
  this->for_all([&](const Observations<T>& o) {
    std::vector<T> got(2 * kP), middle(kP), distances(o.n), identity(kP * kP), mean(kP, T{1});
    ASSERT_EQ(quantiles(o, 2, orders, threads(2), got.data()), 0);
    ASSERT_EQ(medians(o, threads(2), middle.data()), 0);
    for (int64_t j = 0; j < kP; ++j) {
      std::vector<T> v(o.n);
      copy_variable(o, j, v.data());
      for (int64_t i = 0; i < o.n; ++i) ASSERT_EQ(v[i], o.at(i, j));
      double below = 0, all = 0;
      for (int64_t i = 0; i < o.n; ++i) {
        all += static_cast<double>(o.weight(i));
        if (v[i] < middle[j]) below += static_cast<double>(o.weight(i));
      }
      EXPECT_LE(below, all / 2);
      std::sort(v.begin(), v.end());
      const double f = 0.25 * static_cast<double>(o.n - 1);
      EXPECT_GE(got[2 * j], v[static_cast<int64_t>(f)]);
      EXPECT_LE(got[2 * j], v[static_cast<int64_t>(f) + 1]);
      if (o.weights == nullptr) {
        EXPECT_EQ(got[2 * j + 1], middle[j]);
      }
      identity[j * kP + j] = 1;
    }
    ASSERT_EQ(mahalanobis(o, mean.data(), identity.data(), threads(2), distances.data()), 0);
    for (int64_t i = 0; i < o.n; ++i) {
      double square = 0;
      for (int64_t j = 0; j < kP; ++j) square += (o.at(i, j) - 1.0) * (o.at(i, j) - 1.0);
      EXPECT_NEAR(distances[i], std::sqrt(square), 1e-5 * std::sqrt(square));
    }
  });
}

TYPED_TEST(Estimators, BlocksAreShiftedAndScaledInEitherLayout) {
  using T = TypeParam;
  constexpr int64_t kP = 5;
  std::vector<T> shift = {1, 2, 3, 4, 5};
  this->for_all([&](const Observations<T>& o) {
    constexpr int64_t kFirst = 11, kM = 37;
    std::vector<T> roots(kM);
    copy_root_weights(o, kFirst, kM, roots.data());
    for (const T* by : {static_cast<const T*>(nullptr), static_cast<const T*>(shift.data())}) {
      for (const T* scale : {static_cast<const T*>(nullptr), static_cast<const T*>(roots.data())}) {
        for (Layout layout : {Layout::ByObservation, Layout::ByVariable}) {
          std::vector<T> out(kM * kP);
          copy_block(o, kFirst, kM, layout, by, scale, out.data());
          for (int64_t r = 0; r < kM; ++r) {
            for (int64_t j = 0; j < kP; ++j) {
              T want = o.at(kFirst + r, j);
              if (by != nullptr) want -= by[j];
              if (scale != nullptr) want *= std::sqrt(o.weight(kFirst + r));
              ASSERT_EQ(out[layout == Layout::ByObservation ? r * kP + j : j * kM + r], want);
            }
          }
        }
      }
    }
  });
}

TYPED_TEST(Estimators, AnObservationOfWeightZeroIsZeroInABlockWhateverItIs) {
  using T = TypeParam;
  const T x[] = {std::numeric_limits<T>::infinity(), 1, std::numeric_limits<T>::quiet_NaN(), 2}, w[] = {0, 1, 0, 4};
  const int32_t p = 1, n = 4, form = 0x10000;
  OrvikSSTask task = nullptr;
  ASSERT_EQ(Entries<T>::new_task(&task, &p, &n, &form, x, w, nullptr, 0), 0);
  const Observations<T> o(data_of<T>(*static_cast<const Task*>(task)));
  T roots[4], out[4], mean, products;
  copy_root_weights(o, 0, 4, roots);
  copy_block(o, 0, 4, Layout::ByObservation, static_cast<const T*>(nullptr), roots, out);
  EXPECT_EQ(std::vector<T>(out, out + 4), (std::vector<T>{0, 1, 0, 4}));
  Weights total;
  ASSERT_EQ(scatter(o, nullptr, &mean, &products, &total), 0);
  EXPECT_EQ(total.sum, 5);
  EXPECT_GT(total.observations, 1);
  EXPECT_NEAR(mean, 1.8, 1e-6);
  EXPECT_NEAR(products, 0.8, 1e-6);
  __qorSSDeleteTask(&task);
}

TYPED_TEST(Estimators, MatricesGoThroughEveryStorageUnchanged) {
  using T = TypeParam;
  constexpr int64_t kP = 4;
  std::vector<T> a(kP * kP);
  for (int64_t j = 0; j < kP; ++j) {
    for (int64_t i = 0; i <= j; ++i) a[j * kP + i] = static_cast<T>(10 * i + j);
  }
  mirror_upper(kP, a.data());
  for (int64_t i = 0; i < kP; ++i) {
    for (int64_t j = 0; j < kP; ++j) EXPECT_EQ(a[i * kP + j], a[j * kP + i]);
  }
  const T lower[] = {0, 1, 11, 2, 12, 22, 3, 13, 23, 33}, upper[] = {0, 1, 2, 3, 11, 12, 13, 22, 23, 33};
  for (int code : {0, 1, 2}) {
    std::vector<T> held(kP * kP, T{-1}), back(kP * kP);
    const Matrix<T> m(held.data(), kP, code);
    EXPECT_EQ(m.size(), code == 0 ? 16 : 10);
    m.pack(a.data());
    if (code == 0) {
      EXPECT_EQ(held, a);
    } else {
      const T* const want = code == 1 ? lower : upper;
      EXPECT_EQ(std::vector<T>(held.begin(), held.begin() + 10), std::vector<T>(want, want + 10));
    }
    m.unpack(back.data());
    mirror_upper(kP, back.data());
    EXPECT_EQ(back, a);
  }
  mirror_lower(kP, a.data());
  EXPECT_EQ(a[4], 1);
}

}  // namespace
}  // namespace orvik::ss::test

// Multivariate Gaussian: the same unit numbers as Gaussian's, times the factor, and the mean.
#include <gtest/gtest.h>

#include <cmath>

#include "qor/rng/call.h"
#include "qor/rng/scripted.h"
#include "serv/blas.h"

namespace orvik::testing {
namespace {

int32_t mv(uint32_t method, OrvikStream s, int32_t n, double* r, int32_t dimen, int32_t storage, const double* a,
           const double* t) {
  return _qordRngGaussianMV(method, s, n, r, dimen, storage, a, t);
}
int32_t mv(uint32_t method, OrvikStream s, int32_t n, float* r, int32_t dimen, int32_t storage, const float* a,
           const float* t) {
  return _qorsRngGaussianMV(method, s, n, r, dimen, storage, a, t);
}
int32_t gaussian(uint32_t method, OrvikStream s, int32_t n, double* r, double a, double sigma) {
  return _qordRngGaussian(method, s, n, r, a, sigma);
}
int32_t gaussian(uint32_t method, OrvikStream s, int32_t n, float* r, float a, float sigma) {
  return _qorsRngGaussian(method, s, n, r, a, sigma);
}

template <class T>
class GaussianMV : public ::testing::Test {
 protected:
  // A factor with something above its diagonal that must not be read.
  struct Problem {
    std::vector<T> mean, full, packed, diagonal;
    explicit Problem(int32_t dimen) {
      for (int32_t i = 0; i < dimen; ++i) {
        mean.push_back(T(i) - T(2.5));
        diagonal.push_back(T(0.5) + T(i) / 8);
        for (int32_t j = 0; j < dimen; ++j) full.push_back(j > i ? T(1e30) : T(1) + T(i) / 4 - T(j) / 3);
      }
      for (int32_t j = 0; j < dimen; ++j)
        for (int32_t i = j; i < dimen; ++i) packed.push_back(full[static_cast<size_t>(i * dimen + j)]);
    }
  };
  static std::vector<T> unit(const Stream& s, int32_t n) {
    return drawn<T>(n, [&](T* r) { return gaussian(1, s.get(), n, r, 0, 1); });
  }
};
using Precisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(GaussianMV, Precisions);

TYPED_TEST(GaussianMV, IsTheMeanAndTheFactorTimesUnitNumbers) {
  using T = TypeParam;
  for (const int32_t dimen : {2, 3, 5, 10, 11, 16, 17, 40})
    for (const int32_t n : {1, 2, 3, 16, 17, 100})
      for (const int32_t storage : {0, 1}) {
        const typename TestFixture::Problem p(dimen);
        const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
        const std::vector<T> z = this->unit(source, n * dimen);
        const T* const t = storage == 0 ? p.full.data() : p.packed.data();
        const std::vector<T> r =
            drawn<T>(n * dimen, [&](T* r) { return mv(1, s.get(), n, r, dimen, storage, p.mean.data(), t); });
        for (int32_t v = 0; v < n; ++v)
          for (int32_t i = 0; i < dimen; ++i) {
            double x = static_cast<double>(p.mean[static_cast<size_t>(i)]), size = std::fabs(x);
            for (int32_t j = 0; j <= i; ++j) {
              const double term = static_cast<double>(p.full[static_cast<size_t>(i * dimen + j)]) *
                                  static_cast<double>(z[static_cast<size_t>(v * dimen + j)]);
              x += term;
              size += std::fabs(term);
            }
            ASSERT_NEAR(r[static_cast<size_t>(v * dimen + i)], x, size * dimen * std::numeric_limits<T>::epsilon())
                << dimen << " numbers, " << n << " vectors, storage " << storage;
          }
        expect_same(uniforms<T>(s, 2), uniforms<T>(source, 2), "numbers that follow");
      }
}

TYPED_TEST(GaussianMV, OfDiagonalStorageIsOneFusedStep) {
  using T = TypeParam;
  for (const int32_t dimen : {2, 10, 33}) {
    const typename TestFixture::Problem p(dimen);
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    std::vector<T> expected = this->unit(source, 20 * dimen);
    for (size_t i = 0; i < expected.size(); ++i) {
      const size_t j = i % static_cast<size_t>(dimen);
      expected[i] = std::fma(expected[i], p.diagonal[j], p.mean[j]);
    }
    expect_same(
        drawn<T>(20 * dimen, [&](T* r) { return mv(1, s.get(), 20, r, dimen, 2, p.mean.data(), p.diagonal.data()); }),
        expected, "diagonal");
  }
}

TYPED_TEST(GaussianMV, OfOneDimensionIgnoresTheStorage) {
  using T = TypeParam;
  const T mean = 3, deviation = T(0.25);
  for (const int32_t storage : {0, 1, 2, 77}) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    expect_same(drawn<T>(9, [&](T* r) { return mv(0, s.get(), 9, r, 1, storage, &mean, &deviation); }),
                drawn<T>(9, [&](T* r) { return gaussian(0, source.get(), 9, r, mean, deviation); }), "one dimension");
  }
}

TYPED_TEST(GaussianMV, OfTwoDimensionsFullStorageAndOneVectorAddsTheMean) {
  using T = TypeParam;
  const typename TestFixture::Problem p(2);
  const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
  const std::vector<T> z = this->unit(source, 2);
  const std::vector<T> r = drawn<T>(2, [&](T* r) { return mv(1, s.get(), 1, r, 2, 0, p.mean.data(), p.full.data()); });
  EXPECT_EQ(r[0], p.full[0] * z[0] + p.mean[0]);
  EXPECT_NEAR(r[1], p.full[2] * z[0] + p.full[3] * z[1] + p.mean[1], 4 * std::numeric_limits<T>::epsilon());
}

TYPED_TEST(GaussianMV, OfUnknownStorageLeavesUnitNumbers) {
  using T = TypeParam;
  const typename TestFixture::Problem p(3);
  for (const int32_t storage : {-1, 3, 1000}) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    expect_same(drawn<T>(30, [&](T* r) { return mv(1, s.get(), 10, r, 3, storage, p.mean.data(), p.full.data()); }),
                this->unit(source, 30), "unit numbers");
  }
}

TYPED_TEST(GaussianMV, CarriesTheGeneratorsStatus) {
  using T = TypeParam;
  const typename TestFixture::Problem p(3);
  std::vector<T> r(30, T(7));
  Scripted s;
  s.spread();
  s->status = [](int64_t) { return 5; };
  EXPECT_EQ(mv(1, s.get(), 10, r.data(), 3, 0, p.mean.data(), p.full.data()), 5);
  std::fill(r.begin(), r.end(), T(7));
  s->status = [](int64_t) { return -5; };
  EXPECT_EQ(mv(1, s.get(), 10, r.data(), 3, 0, p.mean.data(), p.full.data()), -5);
  EXPECT_EQ(r, std::vector<T>(30, T(7)));
}

TYPED_TEST(GaussianMV, BelowOneVectorWritesNothing) {
  using T = TypeParam;
  const typename TestFixture::Problem p(3);
  for (const int32_t n : {0, -1, -7})
    for (const int32_t storage : {0, 1, 2}) {
      Scripted s;
      T r = 7;
      EXPECT_EQ(mv(0, s.get(), n, &r, 3, storage, p.mean.data(), p.full.data()), 0);
      EXPECT_TRUE(s->requests.empty());
      EXPECT_EQ(r, T(7));
    }
}

TYPED_TEST(GaussianMV, MoreNumbersThanACountHoldsAreDrawnInParts) {
  using T = TypeParam;
  Scripted s;
  s->status = [](int64_t) { return -5; };
  T r = 7;
  EXPECT_EQ(mv(2, s.get(), 65536, &r, 40000, 2, &r, &r), -5);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1 << 30}));
  EXPECT_EQ(r, T(7));
}

TYPED_TEST(GaussianMV, SaysSoWithoutABlasPackageAndDrawsNothing) {
  using T = TypeParam;
  const typename TestFixture::Problem p(3);
  Scripted s;
  std::vector<T> r(30, T(7));
  serv::blas::pretend_missing(true);
  EXPECT_EQ(mv(0, s.get(), 10, r.data(), 3, 0, p.mean.data(), p.full.data()), ORVIK_QOR_NO_BLAS);
  EXPECT_EQ(mv(0, s.get(), 10, r.data(), 3, 1, p.mean.data(), p.packed.data()), ORVIK_QOR_NO_BLAS);
  EXPECT_TRUE(s->requests.empty());
  EXPECT_EQ(r, std::vector<T>(30, T(7)));
  EXPECT_EQ(mv(0, s.get(), 10, r.data(), 3, 2, p.mean.data(), p.diagonal.data()), 0) << "a diagonal needs none";
  serv::blas::pretend_missing(false);
}

}  // namespace
}  // namespace orvik::testing

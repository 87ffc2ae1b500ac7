// Gaussian by each of its methods and Lognormal, against plain forms over the generator's own numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "qor/rng/call.h"
#include "qor/rng/plain.h"
#include "qor/rng/scripted.h"
#include "serv/memory.h"

namespace orvik::testing {
namespace {

using plain::Numbers;
const int32_t kSizes[] = {1, 2, 3, 8, 511, 512, 1023, 1024, 1025, 2047, 2048, 2049, 5000};

template <class T>
constexpr T kTwoPi = sizeof(T) == 8 ? static_cast<T>(0x1.921fb54442d18p+2) : static_cast<T>(0x1.921fb6p+2);
template <class T>
constexpr int32_t kPairId = sizeof(T) == 8 ? 2 : 1;

int32_t gaussian(uint32_t method, OrvikStream s, int32_t n, double* r, double a, double sigma) {
  return _qordRngGaussian(method, s, n, r, a, sigma);
}
int32_t gaussian(uint32_t method, OrvikStream s, int32_t n, float* r, double a, double sigma) {
  return _qorsRngGaussian(method, s, n, r, static_cast<float>(a), static_cast<float>(sigma));
}
int32_t lognormal(uint32_t method, OrvikStream s, int32_t n, double* r, double a, double sigma, double b, double beta) {
  return _qordRngLognormal(method, s, n, r, a, sigma, b, beta);
}
int32_t lognormal(uint32_t method, OrvikStream s, int32_t n, float* r, float a, float sigma, float b, float beta) {
  return _qorsRngLognormal(method, s, n, r, a, sigma, b, beta);
}

template <class T>
Numbers<T> radius(Numbers<T> u) {
  return plain::sqrt(plain::each(plain::ln(std::move(u)), [](T x) { return -2 * x; }));
}
template <class T>
Numbers<T> angle(Numbers<T> u) {
  return plain::each(std::move(u), [](T x) { return kTwoPi<T> * x; });
}

// What one call of method 1 gives that finds no pending pair: sine and cosine halves in turn, and the sine of a last
// pair by a kernel of its own.
template <class T>
Numbers<T> both_halves(const Stream& source, int32_t n, T a, T sigma) {
  const Numbers<T> w = uniforms<T>(source, n + n % 2);
  const Numbers<T> rho = radius(plain::every_second(w, 0)), phi = angle(plain::every_second(w, 1));
  const plain::Waves<T> waves = plain::sin_cos(phi);
  Numbers<T> r;
  for (size_t k = 0; k < rho.size(); ++k) {
    const bool alone = k + 1 == rho.size() && n % 2 != 0;
    const T sine = alone ? plain::sin(Numbers<T>{phi[k]})[0] : waves.sine[k];
    r.push_back(std::fma(rho[k] * sine, sigma, a));
    if (!alone) r.push_back(std::fma(rho[k] * waves.cosine[k], sigma, a));
  }
  return r;
}

template <class T>
class Gaussian : public ::testing::Test {};
using Precisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(Gaussian, Precisions);

TYPED_TEST(Gaussian, Method0IsTheSineHalfOfEachPair) {
  using T = TypeParam;
  for (const int32_t brng : {ORVIK_BRNG_MT19937, ORVIK_BRNG_MCG59})
    for (const int32_t n : kSizes) {
      const Stream s(brng, {77}), source = s.copy();
      const Numbers<T> w = uniforms<T>(source, 2 * n);
      const Numbers<T> rho = radius(plain::every_second(w, 0)), wave = plain::sin(angle(plain::every_second(w, 1)));
      Numbers<T> expected;
      for (size_t i = 0; i < rho.size(); ++i) expected.push_back(std::fma(T(0.3) * rho[i], wave[i], T(1.5)));
      expect_same(drawn<T>(n, [&](T* r) { return gaussian(0, s.get(), n, r, 1.5, 0.3); }), expected, "method 0");
      expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "numbers that follow");
      EXPECT_EQ(__qorSearchChunk(s.get(), 1), nullptr);
      EXPECT_EQ(__qorSearchChunk(s.get(), 2), nullptr);
    }
}

TYPED_TEST(Gaussian, Method0AsksForBlocksOf2048Uniforms) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(2050, [&](T* r) { return gaussian(0, s.get(), 2050, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2048, 2048, 4}));
}

TYPED_TEST(Gaussian, Method0BelowOneDrawsNothing) {
  using T = TypeParam;
  Scripted s;
  T r = 7;
  for (const int32_t n : {0, -1, -1024}) EXPECT_EQ(gaussian(0, s.get(), n, &r, 0, 1), 0);
  EXPECT_TRUE(s->requests.empty());
  EXPECT_EQ(r, T(7));
}

TYPED_TEST(Gaussian, Method0OfAUniformOfExactlyZeroIsFinite) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0, 0.25});
  const T r = drawn<T>(1, [&](T* r) { return gaussian(0, s.get(), 1, r, 0, 1); })[0];
  const T rho = radius(Numbers<T>{0})[0];
  EXPECT_NEAR(rho, std::sqrt(-2 * plain::ln_zero<T>()), 1e-4);
  EXPECT_EQ(r, rho * plain::sin(angle(Numbers<T>{T(0.25)}))[0]);
}

TYPED_TEST(Gaussian, Method1IsBothHalvesOfEachPair) {
  using T = TypeParam;
  for (const int32_t brng : {ORVIK_BRNG_MT19937, ORVIK_BRNG_MCG59})
    for (const int32_t n : kSizes) {
      const Stream s(brng, {77}), source = s.copy();
      expect_same(drawn<T>(n, [&](T* r) { return gaussian(1, s.get(), n, r, 1.5, 0.3); }),
                  both_halves<T>(source, n, T(1.5), T(0.3)), "method 1");
      expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "numbers that follow");
    }
}

TYPED_TEST(Gaussian, Method1AsksForWholeBlocksThenForPairsThenForOneMore) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(2053, [&](T* r) { return gaussian(1, s.get(), 2053, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1024, 1024, 4, 2}));
  s->requests.clear();
  drawn<T>(1025, [&](T* r) { return gaussian(1, s.get(), 1025, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1024})) << "one of 1025 was pending";
}

TYPED_TEST(Gaussian, Method1OfOneKeepsThePairForTheNextCall) {
  using T = TypeParam;
  const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
  const Numbers<T> w = uniforms<T>(source, 2);
  const T rho = radius(Numbers<T>{w[0]})[0];
  const Numbers<T> phi = angle(Numbers<T>{w[1]});
  EXPECT_EQ(drawn<T>(1, [&](T* r) { return gaussian(1, s.get(), 1, r, 0, 1); })[0], rho * plain::sin(phi)[0]);
  const T* const pair = static_cast<const T*>(__qorSearchChunk(s.get(), kPairId<T>));
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair[0], w[0]);
  EXPECT_EQ(pair[1], w[1]) << "raw uniforms";
  const Stream before = s.copy();
  EXPECT_EQ(drawn<T>(1, [&](T* r) { return gaussian(1, s.get(), 1, r, 5, 3); })[0],
            std::fma(rho * plain::cos(phi)[0], T(3), T(5)))
      << "a later call applies its own mean and deviation";
  EXPECT_EQ(pair[0], T(-1));
  EXPECT_EQ(pair[1], T(-1));
  expect_same(uniforms<T>(s, 3), uniforms<T>(before, 3), "no uniform was consumed for it");
}

TYPED_TEST(Gaussian, Method1DoesNotDependOnHowARequestIsCutButForTheErrorOfItsKernels) {
  using T = TypeParam;
  const Stream whole(ORVIK_BRNG_PHILOX4X32X10, {5});
  const Stream cut = whole.copy();
  const Numbers<T> expected = drawn<T>(6000, [&](T* r) { return gaussian(1, whole.get(), 6000, r, 1, 2); });
  Numbers<T> got;
  for (int32_t n = 1; got.size() < expected.size(); n = n * 5 % 1237 + 1) {
    n = std::min(n, static_cast<int32_t>(expected.size() - got.size()));
    const Numbers<T> part = drawn<T>(n, [&](T* r) { return gaussian(1, cut.get(), n, r, 1, 2); });
    got.insert(got.end(), part.begin(), part.end());
  }
  // A pair that a cut divides goes through other kernels, each within its own error.
  const T error = sizeof(T) == 8 ? static_cast<T>(1e-6) : static_cast<T>(4e-6);
  for (size_t i = 0; i < expected.size(); ++i) ASSERT_NEAR(got[i], expected[i], error) << i;
  expect_same(uniforms<T>(cut, 3), uniforms<T>(whole, 3), "numbers that follow");
}

TYPED_TEST(Gaussian, Method1WritesThePendingNumberBeforeItLooksAtN) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0.25, 0.125});
  T r[2] = {7, 7};
  EXPECT_EQ(gaussian(1, s.get(), 1, r, 0, 1), 0);
  const T sine = r[0];
  EXPECT_EQ(gaussian(1, s.get(), 0, r, 0, 1), 0);
  EXPECT_NEAR(r[0], sine, 1e-5) << "cosine and sine of an eighth turn";
  EXPECT_EQ(r[1], T(7));
  EXPECT_EQ(s->requests.size(), 1u);
}

TYPED_TEST(Gaussian, Method1KeepsThePairWhenTheGeneratorFails) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0.25, 0.125});
  T r[8];
  EXPECT_EQ(gaussian(1, s.get(), 1, r, 0, 1), 0);
  s->status = [](int64_t) { return -1131; };
  EXPECT_EQ(gaussian(1, s.get(), 5, r, 0, 1), -1131);
  const T* const pair = static_cast<const T*>(__qorSearchChunk(s.get(), kPairId<T>));
  EXPECT_EQ(pair[0], T(0.25));
  EXPECT_EQ(pair[1], T(0.125));
}

TYPED_TEST(Gaussian, Method1LeaksNothingWhenAnAllocationFails) {
  using T = TypeParam;
  T r[3] = {7, 7, 7};
  int failures = 0;
  for (int64_t n = 1;; ++n, ++failures) {
    const Stream s(ORVIK_BRNG_MT19937, {77});
    const Stream source = s.copy();
    const int64_t before = serv::live_allocations();
    serv::fail_allocation_after(n);
    const int32_t status = gaussian(1, s.get(), 3, r, 0, 1);
    serv::fail_allocation_after(0);
    if (status == 0) break;
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(serv::live_allocations(), before);
    EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
    EXPECT_EQ(r[0], T(7));
    expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "nothing was drawn");
  }
  EXPECT_EQ(failures, 2) << "the block and its node";
}

TYPED_TEST(Gaussian, Method1ReplacesASideBlockThatIsTooSmall) {
  using T = TypeParam;
  const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
  void* const small = orvik_serv_allocate(sizeof(T), 128);
  ASSERT_EQ(__qorAddChunk(s.get(), kPairId<T>, nullptr, small, sizeof(T)), 0);
  expect_same(drawn<T>(3, [&](T* r) { return gaussian(1, s.get(), 3, r, 0, 1); }), both_halves<T>(source, 3, 0, 1),
              "method 1");
  EXPECT_EQ(__qorGetNumChunks(s.get()), __qorGetNumChunks(source.get()) + 1);
}

TYPED_TEST(Gaussian, Method1GoesOnInACopyAndInAnImage) {
  using T = TypeParam;
  const Stream s(ORVIK_BRNG_MT19937, {77});
  drawn<T>(3, [&](T* r) { return gaussian(1, s.get(), 3, r, 0, 1); });
  const Stream copy = s.copy();
  std::vector<uint8_t> image(static_cast<size_t>(__qorGetStreamSize(s.get())));
  ASSERT_EQ(__qorSaveStreamM(s.get(), image.data()), 0);
  Stream loaded;
  ASSERT_EQ(__qorLoadStreamM(loaded.out(), image.data()), 0);
  const Numbers<T> expected = drawn<T>(4, [&](T* r) { return gaussian(1, s.get(), 4, r, 0, 1); });
  expect_same(drawn<T>(4, [&](T* r) { return gaussian(1, copy.get(), 4, r, 0, 1); }), expected, "copy");
  expect_same(drawn<T>(4, [&](T* r) { return gaussian(1, loaded.get(), 4, r, 0, 1); }), expected, "image");
}

template <class T>
constexpr T kErfInvOfOne = sizeof(T) == 8 ? static_cast<T>(5.8635847487551676) : static_cast<T>(3.8325068950653076);
template <class T>
Numbers<T> erf_inv(const Numbers<T>& u) {
  Numbers<T> r = plain::raw_erf_inv(u);
  for (size_t i = 0; i < u.size(); ++i)
    if (std::fabs(u[i]) == 1) r[i] = u[i] * kErfInvOfOne<T>;
  return r;
}
// Mean and deviation as method 2 applies them.
template <class T>
Numbers<T> by_inverse(const Stream& source, int32_t n, T a, T sigma) {
  const T factor = sigma * (sizeof(T) == 8 ? static_cast<T>(0x1.6a09e667f3bcdp+0) : static_cast<T>(0x1.6a09e6p+0));
  return plain::each(erf_inv(uniforms<T>(source, n, -1, 1)), [=](T x) { return std::fma(x, factor, a); });
}

TYPED_TEST(Gaussian, Method2IsTheInverseOfTheDistributionFunction) {
  using T = TypeParam;
  for (const int32_t brng : {ORVIK_BRNG_MT19937, ORVIK_BRNG_MCG59, ORVIK_BRNG_SOBOL})
    for (const int32_t n : kSizes) {
      const Stream s(brng, {7}), source = s.copy();
      expect_same(drawn<T>(n, [&](T* r) { return gaussian(2, s.get(), n, r, 1.5, 0.3); }),
                  by_inverse<T>(source, n, T(1.5), T(0.3)), "method 2");
      expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "numbers that follow");
    }
}

TYPED_TEST(Gaussian, Method2AsksOnceForAllItsUniforms) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(3000, [&](T* r) { return gaussian(2, s.get(), 3000, r, 0, 1); });
  EXPECT_EQ(s->requests, (std::vector<Request>{{3000, -1, 1}}));
}

TYPED_TEST(Gaussian, Method2OfMinusOneExactlyIsTheLastFiniteValue) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0, 1, 0.5});
  const Numbers<T> r = drawn<T>(3, [&](T* r) { return gaussian(2, s.get(), 3, r, 3, 2); });
  const T factor = T(2) * (sizeof(T) == 8 ? static_cast<T>(0x1.6a09e667f3bcdp+0) : static_cast<T>(0x1.6a09e6p+0));
  EXPECT_EQ(r[0], std::fma(-kErfInvOfOne<T>, factor, T(3)));
  EXPECT_EQ(r[1], std::fma(kErfInvOfOne<T>, factor, T(3)));
  EXPECT_EQ(r[2], T(3));
}

TYPED_TEST(Gaussian, Method2KeepsTheOrderOfQuasiRandomPoints) {
  using T = TypeParam;
  const Stream s(ORVIK_BRNG_SOBOL, {3}), source = s.copy();
  const Numbers<T> r = drawn<T>(3 * 500, [&](T* r) { return gaussian(2, s.get(), 3 * 500, r, 0, 1); });
  const Numbers<T> u = uniforms<T>(source, 3 * 500, -1, 1);
  for (size_t i = 0; i < u.size(); ++i)
    for (size_t j = i % 3; j < i; j += 333)
      if (u[j] < u[i]) {
        ASSERT_LE(r[j], r[i]);
      }
}

TYPED_TEST(Gaussian, RefusesAnUnknownMethod) {
  using T = TypeParam;
  Scripted s;
  T r = 7;
  for (const uint32_t method : {3u, 0x40000000u, 0xFFFFFFFFu}) EXPECT_EQ(gaussian(method, s.get(), 1, &r, 0, 1), -2);
  EXPECT_TRUE(s->requests.empty());
  EXPECT_EQ(r, T(7));
}

template <class T>
class Lognormal : public ::testing::Test {};
TYPED_TEST_SUITE(Lognormal, Precisions);

TYPED_TEST(Lognormal, Method0IsTheExponentialOfPairs) {
  using T = TypeParam;
  for (const int32_t n : kSizes) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    const Numbers<T> expected = plain::each(plain::exp(both_halves<T>(source, n, T(0.5), T(0.3))),
                                            [](T x) { return std::fma(x, T(0.7), T(1.25)); });
    expect_same(drawn<T>(n, [&](T* r) { return lognormal(0, s.get(), n, r, T(0.5), T(0.3), T(1.25), T(0.7)); }),
                expected, "Lognormal");
  }
}

TYPED_TEST(Lognormal, WithTheClampBitAloneTakesTheInverseMethod) {
  using T = TypeParam;
  for (const uint32_t method : {uint32_t{ORVIK_RNG_CLAMP}, 1u, 2u, ORVIK_RNG_CLAMP | 1u}) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    const bool clamps = (method & ORVIK_RNG_CLAMP) != 0;
    const Numbers<T> expected = plain::each(plain::exp(by_inverse<T>(source, 1000, T(0.5), T(0.3))), [=](T x) {
      const T y = std::fma(x, T(-0.7), T(1.25));
      return clamps && y < T(1.25) ? T(1.25) : y;
    });
    expect_same(
        drawn<T>(1000, [&](T* r) { return lognormal(method, s.get(), 1000, r, T(0.5), T(0.3), T(1.25), T(-0.7)); }),
        expected, "Lognormal");
  }
}

}  // namespace
}  // namespace orvik::testing

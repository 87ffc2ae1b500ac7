// Gamma, Beta and ChiSquare, against plain forms of their methods, one candidate at a time.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/rng/feed.h"
#include "qor/rng/scripted.h"
#include "serv/memory.h"

namespace orvik::testing {
namespace {

int32_t gamma(uint32_t method, OrvikStream s, int32_t n, double* r, double alpha, double a, double beta) {
  return _qordRngGamma(method, s, n, r, alpha, a, beta);
}
int32_t gamma(uint32_t method, OrvikStream s, int32_t n, float* r, float alpha, float a, float beta) {
  return _qorsRngGamma(method, s, n, r, alpha, a, beta);
}
int32_t beta(uint32_t method, OrvikStream s, int32_t n, double* r, double p, double q, double a, double beta) {
  return _qordRngBeta(method, s, n, r, p, q, a, beta);
}
int32_t beta(uint32_t method, OrvikStream s, int32_t n, float* r, float p, float q, float a, float beta) {
  return _qorsRngBeta(method, s, n, r, p, q, a, beta);
}
int32_t chi_square(OrvikStream s, int32_t n, double* r, int32_t v) { return _qordRngChiSquare(0, s, n, r, v); }
int32_t chi_square(OrvikStream s, int32_t n, float* r, int32_t v) { return _qorsRngChiSquare(0, s, n, r, v); }
int32_t gaussian(OrvikStream s, int32_t n, double* r) { return _qordRngGaussian(0, s, n, r, 0, 1); }
int32_t gaussian(OrvikStream s, int32_t n, float* r) { return _qorsRngGaussian(0, s, n, r, 0, 1); }

template <class T>
constexpr T kTwoPi = sizeof(T) == 8 ? static_cast<T>(0x1.921fb54442d18p+2) : static_cast<T>(0x1.921fb6p+2);

// Marsaglia and Tsang's method with the normal numbers of Box and Muller two at a time.
template <class T>
class AboveOne {
 public:
  explicit AboveOne(T alpha) : d_(alpha - T(1.0 / 3)), c_(1 / high_sqrt(std::fma(T(9), alpha, T(-3)))) {}
  T operator()(Feed<T>& feed) {
    for (;;) {
      const T z = normal(feed), u = feed(), t = std::fma(c_, z, T(1)), v = t * t * t;
      if (!(v > 0)) continue;
      if (u < std::fma(z * z * (z * z), T(-0.0331), T(1)) || high_ln(u) < T(0.5) * z * z + d_ * (1 - v + high_ln(v)))
        return d_ * v;
    }
  }

 private:
  T normal(Feed<T>& feed) {
    if (!half_) {
      radius_ = sqrt1(-2 * ln1(feed()));
      const plain::Waves<T> w = plain::sin_cos(plain::Numbers<T>{kTwoPi<T> * feed()});
      cosine_ = w.cosine[0];
      half_ = true;
      return radius_ * w.sine[0];
    }
    half_ = false;
    return radius_ * cosine_;
  }
  T d_, c_, radius_ = 0, cosine_ = 0;
  bool half_ = false;
};

template <class T>
struct Below06 {
  T alpha;
  T operator()(Feed<T>& feed) const {
    const T b = 1 - alpha, inverse = 1 / alpha;
    for (;;) {
      const T u = feed(), w = feed();
      const T t = u < b ? T(0) : -ln1((1 - u) / alpha);
      const T x = exp1(inverse * ln1(u < b ? u : b + alpha * t));
      if (-ln1(w) >= (u < b ? x : x - t)) return x;
    }
  }
};

template <class T>
struct From06To1 {
  T alpha;
  T operator()(Feed<T>& feed) const {
    const T c = 1 / alpha, d = high_exp(alpha / (1 - alpha) * high_ln(alpha)) * (1 - alpha);
    for (;;) {
      const T z = -ln1(feed()), e = -ln1(feed()), x = exp1(c * ln1(z));
      if (z + e >= d + x) return x;
    }
  }
};

template <class T>
class Rejection : public ::testing::Test {
 protected:
  // `plain` makes one result from the feed; `finish` is the last step of the entry.
  template <class Draw, class Plain, class Finish>
  void agree(const char* what, Draw draw, Plain plain, Finish finish) {
    for (const int32_t n : {1, 2, 3, 511, 512, 513, 3000}) {
      const Stream s(ORVIK_BRNG_MT19937, {77});
      Feed<T> feed(s.copy(), 12 * n + 400);
      auto method = plain;
      std::vector<T> expected;
      while (expected.size() < static_cast<size_t>(n)) expected.push_back(finish(method(feed)));
      expect_same(drawn<T>(n, [&](T* r) { return draw(s.get(), n, r); }), expected, what);
      expect_same(uniforms<T>(s, 3), feed.following(3), "numbers that follow");
    }
  }
  static T scaled(T x) { return std::fma(x, T(0.7), T(1.25)); }
  template <class Plain>
  void gamma_agrees(T alpha, Plain plain) {
    agree(
        "Gamma", [&](OrvikStream s, int32_t n, T* r) { return gamma(0, s, n, r, alpha, T(1.25), T(0.7)); }, plain,
        scaled);
  }
  template <class Plain>
  void beta_agrees(T p, T q, Plain plain) {
    agree(
        "Beta", [&](OrvikStream s, int32_t n, T* r) { return beta(0, s, n, r, p, q, T(1.25), T(0.7)); }, plain, scaled);
  }
};
using Precisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(Rejection, Precisions);

TYPED_TEST(Rejection, GammaAboveOneIsMarsagliaAndTsangs) {
  using T = TypeParam;
  for (const double alpha : {1.0625, 1.5, 2.0, 7.5, 1000.0}) this->gamma_agrees(T(alpha), AboveOne<T>(T(alpha)));
}

TYPED_TEST(Rejection, GammaOfExactlyOneConsumesOneUniformAResult) {
  using T = TypeParam;
  this->gamma_agrees(1, [](Feed<T>& feed) { return std::fma(ln1(feed()), T(-1), T(0)); });
}

TYPED_TEST(Rejection, GammaBelow06HasTwoBranches) {
  using T = TypeParam;
  for (const double alpha : {0.01, 0.3, 0.5}) this->gamma_agrees(T(alpha), Below06<T>{T(alpha)});
}

TYPED_TEST(Rejection, GammaFrom06ToOneIsFromWeibullNumbers) {
  using T = TypeParam;
  for (const double alpha : {0.75, 0.999}) this->gamma_agrees(T(alpha), From06To1<T>{T(alpha)});
}

TYPED_TEST(Rejection, GammaOfExactly06IsFromWeibullNumbersAndJustBelowHasTwoBranches) {
  using T = TypeParam;
  this->gamma_agrees(T(0.6), From06To1<T>{T(0.6)});
  const T below = sizeof(T) == 8 ? static_cast<T>(0.5999999999999999) : std::nextafter(T(0.6), T(0));
  this->gamma_agrees(below, Below06<T>{below});
}

TYPED_TEST(Rejection, GammaAboveOneKeepsHalfAPairForTheNextCall) {
  using T = TypeParam;
  const int32_t id = sizeof(T) == 8 ? 7 : 8;
  Scripted s;
  s.numbers({0.25, 0.125, 0.5, 0.625});
  T first, second;
  ASSERT_EQ(gamma(0, s.get(), 1, &first, 2, 0, 1), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{3}));
  const T* const pair = static_cast<const T*>(__qorSearchChunk(s.get(), static_cast<uint32_t>(id)));
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair[0], T(0.25));
  EXPECT_EQ(pair[1], T(0.125));
  ASSERT_EQ(gamma(0, s.get(), 1, &second, 2, 0, 1), 0);
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{3, 1})) << "its own test alone";
  EXPECT_EQ(pair[0], T(-1));
  EXPECT_NEAR(first, second, 1e-5) << "sine and cosine of an eighth turn";
}

TYPED_TEST(Rejection, GammaTakesAPendingPairOfAnotherShape) {
  using T = TypeParam;
  const Stream s(ORVIK_BRNG_MT19937, {77});
  Feed<T> feed(s.copy(), 100);
  AboveOne<T> first(2);
  const T one = first(feed);
  T r[2];
  ASSERT_EQ(gamma(0, s.get(), 1, r, 2, 0, 1), 0);
  EXPECT_EQ(r[0], one);
  ASSERT_EQ(gamma(0, s.get(), 1, r, 5, 0, 1), 0);
  EXPECT_TRUE(std::isfinite(r[0]));
}

TYPED_TEST(Rejection, GammaKeepsItsPairWhenTheGeneratorFails) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0.25, 0.125, 0.5});
  T r[9];
  ASSERT_EQ(gamma(0, s.get(), 1, r, 2, 0, 1), 0);
  s->status = [](int64_t) { return -1131; };
  EXPECT_EQ(gamma(0, s.get(), 9, r, 2, 0, 1), -1131);
  const T* const pair = static_cast<const T*>(__qorSearchChunk(s.get(), sizeof(T) == 8 ? 7 : 8));
  EXPECT_EQ(pair[0], T(0.25));
}

TYPED_TEST(Rejection, GammaLeaksNothingWhenAnAllocationFails) {
  using T = TypeParam;
  int failures = 0;
  for (int64_t n = 1;; ++n, ++failures) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    T r[3] = {7, 7, 7};
    const int64_t before = serv::live_allocations();
    serv::fail_allocation_after(n);
    const int32_t status = gamma(0, s.get(), 3, r, 2, 0, 1);
    serv::fail_allocation_after(0);
    if (status == 0) break;
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(serv::live_allocations(), before);
    EXPECT_EQ(r[0], T(7));
    expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "nothing was drawn");
  }
  EXPECT_EQ(failures, 2);
}

TYPED_TEST(Rejection, GammaAsksForTwoUniformsACandidateInBatchesOf512) {
  using T = TypeParam;
  for (const double alpha : {0.3, 0.75, 3.0}) {
    Scripted s;
    s.spread();
    drawn<T>(1200, [&](T* r) { return gamma(0, s.get(), 1200, r, T(alpha), 0, 1); });
    const std::vector<int32_t> sizes = s->sizes();
    ASSERT_GE(sizes.size(), 3u);
    EXPECT_EQ(sizes[0], 1024);
    EXPECT_EQ(sizes[1], 1024);
    for (const int32_t n : sizes) EXPECT_LE(n, 1024);
  }
}

TYPED_TEST(Rejection, GammaOfUniformsAtTheirEndsIsFinite) {
  using T = TypeParam;
  const T top = 1 - std::numeric_limits<T>::epsilon() / 2;
  for (const double alpha : {0.05, 0.3, 0.6, 0.9, 1.0, 1.5, 100.0})
    for (const double u : {0.0, 0.5, static_cast<double>(top)}) {
      Scripted s;  // the ends first, in every place of a candidate; then numbers that are accepted soon
      s->number = [u](int64_t i) {
        const double x = static_cast<double>(i) * 0.6180339887498949;
        return i < 7 ? u : x - static_cast<double>(static_cast<int64_t>(x));
      };
      for (const T x : drawn<T>(20, [&](T* r) { return gamma(ORVIK_RNG_CLAMP, s.get(), 20, r, T(alpha), 0, 1); })) {
        EXPECT_TRUE(std::isfinite(x)) << alpha << ", " << u;
        EXPECT_GE(x, 0);
      }
    }
}

// Johnk's method.
template <class T>
struct Powers {
  T p, q;
  T operator()(Feed<T>& feed) const {
    for (;;) {
      const T lx = ln1(feed()) * (1 / p), ly = ln1(feed()) * (1 / q), x = exp1(lx), y = exp1(ly);
      if (!(x + y <= 1)) continue;
      if (x + y >= std::numeric_limits<T>::min()) return x / (x + y);
      const T top = std::max(lx, ly), a = high_exp(lx - top), b = high_exp(ly - top);
      return a / (a + b);
    }
  }
};

template <class T>
struct Switching {
  T p, q;  // p below 1
  bool swapped = false;
  T operator()(Feed<T>& feed) const {
    T t, left, unit = 1;
    if (q < 1) {
      const T root_p = high_sqrt(p * (1 - p)), root_q = high_sqrt(q * (1 - q));
      t = root_p / (root_p + root_q);
      left = q * t / (q * t + p * (1 - t));
      unit = 1 - t;
    } else {
      t = (1 - p) / (q + 1 - p);
      left = q * t / (q * t + p * high_power(1 - t, q));
    }
    for (;;) {
      const T u = feed(), e = -ln1(feed());
      if (u <= left) {
        const T x = t * exp1(ln1(u / left) * (1 / p));
        if ((1 - q) * ln1((1 - x) / unit) <= e) return swapped ? 1 - x : x;
      } else {
        const T x = 1 - (1 - t) * exp1(ln1((1 - u) / (1 - left)) * (1 / q));
        if ((1 - p) * ln1(x / t) <= e) return swapped ? 1 - x : x;
      }
    }
  }
};

// Cheng's BB by its logarithmic test alone: the squeeze never decides otherwise.
template <class T>
struct LogLogistic {
  T p, q;
  T operator()(Feed<T>& feed) const {
    const T low = std::min(p, q), high = std::max(p, q), alpha = low + high;
    const T beta = high_sqrt((alpha - 2) / (2 * low * high - alpha)), gamma = low + 1 / beta;
    for (;;) {
      const T u = feed(), second = feed(), v = beta * ln1(u / (1 - u)), w = low * exp1(v);
      const T ratio = gamma * v - T(1.3862943611198906);
      if (ratio + alpha * ln1(alpha / (high + w)) >= ln1(u * u * second)) return (p <= q ? w : high) / (high + w);
    }
  }
};

TYPED_TEST(Rejection, BetaBelowTheLineIsJohnks) {
  using T = TypeParam;
  for (const auto& [p, q] : {std::pair(0.5, 0.5), std::pair(0.1, 0.3), std::pair(0.3, 0.7)})
    this->beta_agrees(T(p), T(q), Powers<T>{T(p), T(q)});
}

TYPED_TEST(Rejection, BetaOfSumsThatUnderflowIsByLogarithms) {
  using T = TypeParam;
  this->beta_agrees(T(0.002), T(0.003), Powers<T>{T(0.002), T(0.003)});
}

TYPED_TEST(Rejection, BetaAboveTheLineIsAtkinsonAndWhittakers) {
  using T = TypeParam;
  for (const auto& [p, q] : {std::pair(0.7, 0.9), std::pair(0.95, 0.95), std::pair(0.9, 0.5)})
    this->beta_agrees(T(p), T(q), Switching<T>{T(p), T(q)});
}

TYPED_TEST(Rejection, BetaOnTheLineIsJohnks) {
  using T = TypeParam;
  const T p = T(0.25), q = T(0.9562409713408151) - T(0.8522552176537243) * (p * p);
  const bool above = std::fma(p * p, T(0.8522552176537243), q - T(0.9562409713408151)) > 0;
  if (above)
    this->beta_agrees(p, q, Switching<T>{p, q});
  else
    this->beta_agrees(p, q, Powers<T>{p, q});
  const T higher = q + 8 * std::numeric_limits<T>::epsilon(), lower = q - 8 * std::numeric_limits<T>::epsilon();
  this->beta_agrees(p, higher, Switching<T>{p, higher});
  this->beta_agrees(p, lower, Powers<T>{p, lower});
}

TYPED_TEST(Rejection, BetaOfAShapeOfOneIsAPowerOfAUniform) {
  using T = TypeParam;
  this->beta_agrees(1, 1, [](Feed<T>& feed) { return feed(); });
  for (const double shape : {0.3, 4.0}) {
    const T inverse = 1 / T(shape);
    this->beta_agrees(T(shape), 1, [=](Feed<T>& feed) { return exp1(inverse * ln1(feed())); });
    this->beta_agrees(1, T(shape), [=](Feed<T>& feed) { return 1 - exp1(inverse * ln1(feed())); });
  }
}

TYPED_TEST(Rejection, BetaAcrossOneIsAtkinsonsSwitching) {
  using T = TypeParam;
  for (const auto& [p, q] : {std::pair(0.5, 1.5), std::pair(0.1, 7.0), std::pair(0.95, 30.0)}) {
    this->beta_agrees(T(p), T(q), Switching<T>{T(p), T(q)});
    this->beta_agrees(T(q), T(p), Switching<T>{T(p), T(q), true});
  }
}

TYPED_TEST(Rejection, BetaAboveOneIsChengs) {
  using T = TypeParam;
  for (const auto& [p, q] : {std::pair(1.5, 1.5), std::pair(2.0, 7.0), std::pair(40.0, 3.0), std::pair(1.0625, 100.0)})
    this->beta_agrees(T(p), T(q), LogLogistic<T>{T(p), T(q)});
}

TYPED_TEST(Rejection, BetaOfUniformsAtTheirEndsIsInItsInterval) {
  using T = TypeParam;
  const T top = 1 - std::numeric_limits<T>::epsilon() / 2;
  for (const auto& [p, q] : {std::pair(0.2, 0.2), std::pair(0.8, 0.9), std::pair(1.0, 0.5), std::pair(0.5, 1.0),
                             std::pair(0.4, 3.0), std::pair(3.0, 0.4), std::pair(2.0, 5.0)})
    for (const double u : {0.0, 0.5, static_cast<double>(top), 1.0}) {
      const T first = T(p), second = T(q);
      Scripted s;
      s->number = [u](int64_t i) {
        const double x = static_cast<double>(i) * 0.6180339887498949;
        return i < 7 ? u : x - static_cast<double>(static_cast<int64_t>(x));
      };
      for (const T x : drawn<T>(20, [&](T* r) { return beta(ORVIK_RNG_CLAMP, s.get(), 20, r, first, second, 1, 2); })) {
        EXPECT_GE(x, 1) << p << ", " << q << ", " << u;
        EXPECT_LE(x, 3) << p << ", " << q << ", " << u;
      }
    }
}

TYPED_TEST(Rejection, BetaOfShapesWhoseProductOverflowsEnds) {
  using T = TypeParam;
  const T large = std::sqrt(std::numeric_limits<T>::max());
  for (const T p : {large, 8 * large}) {
    const Stream s(ORVIK_BRNG_MT19937, {77});
    for (const T x : drawn<T>(100, [&](T* r) { return beta(0, s.get(), 100, r, p, p, 0, 1); }))
      EXPECT_NEAR(static_cast<double>(x), 0.5, 1e-6);
  }
}

TYPED_TEST(Rejection, BetaOfShapesWhoseSumOverflowsIsTheirRatio) {
  using T = TypeParam;
  const T most = std::numeric_limits<T>::max();
  for (const auto& [p, q] : {std::pair(most, most), std::pair(most / 4, most), std::pair(most, most / 4)}) {
    const Stream s(ORVIK_BRNG_MT19937, {77});
    for (const T x : drawn<T>(100, [&, p = p, q = q](T* r) { return beta(0, s.get(), 100, r, p, q, 0, 1); }))
      EXPECT_NEAR(static_cast<double>(x), static_cast<double>(p / 4 / (p / 4 + q / 4)), 1e-6);
  }
}

// The place where the method switches is too small for its type.
TYPED_TEST(Rejection, BetaOfAShapeNextToOneAndTheLargestEnds) {
  using T = TypeParam;
  const T below = 1 - std::numeric_limits<T>::epsilon() / 2, most = std::numeric_limits<T>::max();
  for (const bool swapped : {false, true}) {
    Scripted s;
    s->number = [](int64_t i) { return std::fmod(static_cast<double>(i) * 0.6180339887498949, 1.0); };
    s->status = [](int64_t request) { return request < 50 ? 0 : -1; };
    const T p = swapped ? most : below, q = swapped ? below : most;
    for (const T x : drawn<T>(100, [&, p = p, q = q](T* r) { return beta(0, s.get(), 100, r, p, q, 0, 1); }))
      EXPECT_NEAR(static_cast<double>(x), swapped ? 1 : 0, static_cast<double>(std::numeric_limits<T>::epsilon()));
  }
}

// Numbers of so large a shape q are q times smaller than those of Gamma.
TYPED_TEST(Rejection, BetaOfLargeShapesHasItsMeanAndVariance) {
  using T = TypeParam;
  constexpr int32_t kNumbers = 40000;
  const double eps = static_cast<double>(std::numeric_limits<T>::epsilon());
  for (const double q : {0x1p-9 / eps, 1 / eps, 64 / eps, 1e6 / eps})
    for (const double p : {0.5, 0.9375, 1.0, 1.5, 3.0, 30.0, 10 / eps, q}) {
      if (p > q || (p > 1 / eps && p < q)) continue;
      const double alpha = p + q, mean = p / alpha, variance = mean * (q / alpha) / (alpha + 1);
      if (variance < 1e4 * eps * eps * mean * mean) continue;
      const Stream s(ORVIK_BRNG_MT19937, {77}), other = s.copy();
      double first = 0, square = 0;
      for (const T x : drawn<T>(kNumbers, [&](T* r) { return beta(0, s.get(), kNumbers, r, T(p), T(q), 0, 1); })) {
        const double d = static_cast<double>(x) - mean;
        first += d / kNumbers;
        square += d * d / kNumbers;
      }
      EXPECT_LT(std::fabs(first), 5 * std::sqrt(variance / kNumbers)) << p << ", " << q;
      EXPECT_NEAR(square / variance, 1, 5 * std::sqrt((2 + 6 / std::min(p, 100.0)) / kNumbers)) << p << ", " << q;
      if (p == q) continue;
      T swapped[100];
      ASSERT_EQ(beta(0, other.get(), 100, swapped, T(q), T(p), 0, 1), 0);
      EXPECT_NEAR(static_cast<double>(swapped[0]), 1, 100 * mean + eps);
    }
}

TYPED_TEST(Rejection, BetaOfTheSmallestShapesIsAtTheEnds) {
  using T = TypeParam;
  for (const T p : {std::numeric_limits<T>::denorm_min(), std::numeric_limits<T>::min() / 4}) {
    const Stream s(ORVIK_BRNG_MT19937, {77});
    int ones = 0;
    for (const T x : drawn<T>(1000, [&](T* r) { return beta(0, s.get(), 1000, r, p, p, 0, 1); })) {
      EXPECT_TRUE(x == 0 || x == 1) << x;
      ones += x == 1;
    }
    EXPECT_NEAR(ones, 500, 100);
  }
}

TYPED_TEST(Rejection, ChiSquareOf16DegreesIsGammaOf8) {
  using T = TypeParam;
  for (const int32_t v : {16, 17, 100}) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), t = s.copy();
    expect_same(drawn<T>(1000, [&](T* r) { return chi_square(s.get(), 1000, r, v); }),
                drawn<T>(1000, [&](T* r) { return gamma(0, t.get(), 1000, r, T(0.5) * T(v), 0, 2); }), "ChiSquare");
  }
}

TYPED_TEST(Rejection, ChiSquareOfFewDegreesIsOfProductsAndNormals) {
  using T = TypeParam;
  for (int32_t v = 1; v < 16; ++v)
    for (const int32_t n : {1, 7, 1024, 1025, 3000}) {
      const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
      std::vector<T> expected;
      for (int32_t first = 0; first < n; first += 1024) {
        const int32_t m = std::min(n - first, 1024), k = v / 2;
        std::vector<T> part(static_cast<size_t>(m));
        if (k > 0) {
          const std::vector<T> w = uniforms<T>(source, k * m);
          for (size_t i = 0; i < part.size(); ++i) {
            T product = w[i * static_cast<size_t>(k)];
            for (size_t j = 1; j < static_cast<size_t>(k); ++j) product *= w[i * static_cast<size_t>(k) + j];
            part[i] = product;
          }
          if constexpr (sizeof(T) == 8)
            _zymdLn_26(m, part.data(), part.data());
          else
            _zymsLn_11(m, part.data(), part.data());
          for (T& x : part) x *= -2;
        }
        if (v % 2 != 0) {
          const std::vector<T> z = drawn<T>(m, [&](T* r) { return gaussian(source.get(), m, r); });
          for (size_t i = 0; i < part.size(); ++i) part[i] = k > 0 ? std::fma(z[i], z[i], part[i]) : z[i] * z[i];
        }
        expected.insert(expected.end(), part.begin(), part.end());
      }
      expect_same(drawn<T>(n, [&](T* r) { return chi_square(s.get(), n, r, v); }), expected, "ChiSquare");
      expect_same(uniforms<T>(s, 2), uniforms<T>(source, 2), "numbers that follow");
    }
}

TYPED_TEST(Rejection, ChiSquareOf15DegreesTakesSevenUniformsAndANormalANumber) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(1030, [&](T* r) { return chi_square(s.get(), 1030, r, 15); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{7 * 1024, 2 * 1024, 7 * 6, 2 * 6}));
}

TYPED_TEST(Rejection, ChiSquareOfOneDegreeTakesNormalsAlone) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(10, [&](T* r) { return chi_square(s.get(), 10, r, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{20}));
}

}  // namespace
}  // namespace orvik::testing

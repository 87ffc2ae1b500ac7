// Uniform and the chains of kernels over it, against the same chains over the generator's own numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "qor/rng/call.h"
#include "qor/rng/patched.h"
#include "qor/rng/plain.h"
#include "qor/rng/scripted.h"

namespace orvik::testing {
namespace {

using plain::Numbers;
constexpr uint32_t kClamp = ORVIK_RNG_CLAMP;
const int32_t kSizes[] = {1, 2, 7, 100, 1023, 1024, 1025, 2048, 5000};

// One source for both precisions: the entries of a name by the type of the result.
#define ORVIK_ENTRY(name)                                                          \
  template <class T, class... P>                                                   \
  int32_t name(uint32_t method, OrvikStream s, int32_t n, T* r, P... parameters) { \
    if constexpr (sizeof(T) == 4)                                                  \
      return _qorsRng##name(method, s, n, r, static_cast<float>(parameters)...);   \
    else                                                                           \
      return _qordRng##name(method, s, n, r, static_cast<double>(parameters)...);  \
  }
ORVIK_ENTRY(Uniform)
ORVIK_ENTRY(Cauchy)
ORVIK_ENTRY(Exponential)
ORVIK_ENTRY(Gumbel)
ORVIK_ENTRY(Laplace)
ORVIK_ENTRY(Rayleigh)
ORVIK_ENTRY(Weibull)

template <class T>
class Transforms : public ::testing::Test {
 protected:
  using Model = std::function<Numbers<T>(const Stream& source, int32_t n)>;
  using Draw = std::function<int32_t(OrvikStream, int32_t n, T* r)>;

  // Same numbers, and the same place in the stream afterwards.
  void agree(const char* what, const Draw& draw, const Model& model) {
    for (const int32_t brng : {ORVIK_BRNG_MT19937, ORVIK_BRNG_PHILOX4X32X10, ORVIK_BRNG_MCG59, ORVIK_BRNG_WH})
      for (const int32_t n : kSizes) {
        const Stream s(brng, {777});
        const Stream source = s.copy();
        expect_same(drawn<T>(n, [&](T* r) { return draw(s.get(), n, r); }), model(source, n), what);
        expect_same(uniforms<T>(s, 3), uniforms<T>(source, 3), "numbers that follow");
      }
  }
  static T fma(T x, T scale, T shift) { return std::fma(x, scale, shift); }
};
using Precisions = ::testing::Types<double, float>;
TYPED_TEST_SUITE(Transforms, Precisions);

TYPED_TEST(Transforms, UniformIsTheGeneratorsOwn) {
  using T = TypeParam;
  this->agree(
      "Uniform", [](OrvikStream s, int32_t n, T* r) { return Uniform(0, s, n, r, -3, 8); },
      [](const Stream& s, int32_t n) { return uniforms<T>(s, n, -3, 8); });
}

TYPED_TEST(Transforms, UniformWithANumberOfExactlyBReturnsB) {
  using T = TypeParam;
  const T above = std::nextafter(T(2), T(9)), below = std::nextafter(T(1), T(0));
  const std::vector<T> raw = {T(2), above, below, T(1), T(1.5), std::numeric_limits<T>::quiet_NaN(), T(-5), T(7)};
  const auto draw = [&](uint32_t method) {
    Scripted s;
    s->number = [&](int64_t i) { return static_cast<double>(raw[static_cast<size_t>(i)]) - 1; };
    const int32_t n = static_cast<int32_t>(raw.size());
    return drawn<T>(n, [&](T* r) { return Uniform(method, s.get(), n, r, 1, 2); });
  };
  const std::vector<T> free = draw(0), clamped = draw(kClamp);
  EXPECT_EQ(free[0], T(2));
  EXPECT_EQ(free[1], above) << "without the bit the generator's number stands";
  EXPECT_EQ(clamped[0], T(2));
  EXPECT_EQ(clamped[1], T(2));
  EXPECT_EQ(clamped[2], T(1));
  EXPECT_EQ(clamped[3], T(1));
  EXPECT_EQ(clamped[4], T(1.5));
  EXPECT_TRUE(std::isnan(clamped[5])) << "a NaN stays";
  EXPECT_EQ(clamped[6], T(1));
  EXPECT_EQ(clamped[7], T(2));
}

TYPED_TEST(Transforms, CauchyIsTheTangentOfAnAngle) {
  using T = TypeParam;
  const T half_pi = sizeof(T) == 8 ? static_cast<T>(0x1.921fb54442d18p+0) : static_cast<T>(0x1.921fb6p+0);
  this->agree(
      "Cauchy", [](OrvikStream s, int32_t n, T* r) { return Cauchy(0, s, n, r, 1.25, 0.7); },
      [&](const Stream& s, int32_t n) {
        return plain::each(plain::tan(uniforms<T>(s, n, -half_pi, half_pi)),
                           [](T x) { return std::fma(x, T(0.7), T(1.25)); });
      });
}

TYPED_TEST(Transforms, ExponentialIsOneFusedStepFromTheLogarithm) {
  using T = TypeParam;
  this->agree(
      "Exponential", [](OrvikStream s, int32_t n, T* r) { return Exponential(0, s, n, r, 1.25, 0.7); },
      [](const Stream& s, int32_t n) {
        return plain::each(plain::ln(uniforms<T>(s, n)), [](T x) { return std::fma(-x, T(0.7), T(1.25)); });
      });
}

TYPED_TEST(Transforms, ExponentialOfAUniformOfExactlyZeroIsFinite) {
  using T = TypeParam;
  for (const uint32_t method : {0u, kClamp}) {
    Scripted s;
    s.numbers({0, 0.5, 1, 0});
    const std::vector<T> r = drawn<T>(4, [&](T* r) { return Exponential(method, s.get(), 4, r, 3, 2); });
    const T expected = std::fma(-plain::ln_zero<T>(), T(2), T(3));
    EXPECT_EQ(r[0], expected);
    EXPECT_EQ(r[3], expected);
    EXPECT_EQ(r[2], T(3));
  }
}

TYPED_TEST(Transforms, ClampedNumbersAreNotBelowTheDisplacement) {
  using T = TypeParam;
  // Numbers above 1 have positive logarithms: only the clamp keeps results above the displacement.
  const auto draw = [](auto entry, uint32_t method, auto... shape) {
    Scripted s;
    s.numbers({1.5, 0.25});
    return drawn<T>(2, [&](T* r) { return entry(method, s.get(), 2, r, shape..., 3, 2); });
  };
  const auto exponential = [](auto... p) { return Exponential(p...); };
  EXPECT_LT(draw(exponential, 0)[0], T(3));
  EXPECT_EQ(draw(exponential, kClamp)[0], T(3));
  EXPECT_EQ(draw(exponential, kClamp)[1], draw(exponential, 0)[1]);
  const auto weibull = [](auto... p) { return Weibull(p...); };
  EXPECT_LT(draw(weibull, 0, 1)[0], T(3));
  EXPECT_EQ(draw(weibull, kClamp, 1)[0], T(3));
  EXPECT_EQ(draw(weibull, kClamp, 1)[1], draw(weibull, 0, 1)[1]);
  const auto rayleigh = [](uint32_t method, OrvikStream s, int32_t n, T* r, T a, T beta) {
    return Rayleigh(method, s, n, r, a, beta);
  };
  Scripted s;
  s.numbers({0.25});
  const T kept = drawn<T>(1, [&](T* r) { return rayleigh(kClamp, s.get(), 1, r, 3, -2); })[0];
  EXPECT_EQ(kept, T(3));
}

TYPED_TEST(Transforms, GumbelIsTheLogarithmOfAUnitExponential) {
  using T = TypeParam;
  this->agree(
      "Gumbel", [](OrvikStream s, int32_t n, T* r) { return Gumbel(kClamp, s, n, r, 1.25, 0.7); },
      [](const Stream& s, int32_t n) {
        const Numbers<T> e = plain::each(plain::ln(uniforms<T>(s, n)), [](T x) { return std::fma(-x, T(1), T(0)); });
        return plain::each(plain::ln(e), [](T x) { return std::fma(x, T(0.7), T(1.25)); });
      });
}

TYPED_TEST(Transforms, GumbelOfTheSmallestExponentialNeverYieldsAnInfinity) {
  using T = TypeParam;
  Scripted s;
  s.numbers({1, 0, 1 - std::numeric_limits<T>::epsilon() / 2});
  for (const T x : drawn<T>(3, [&](T* r) { return Gumbel(0, s.get(), 3, r, 0, 1); }))
    EXPECT_TRUE(std::isfinite(x)) << x;
}

TYPED_TEST(Transforms, LaplaceIsALogarithmAndASelectorOfTheSign) {
  using T = TypeParam;
  this->agree(
      "Laplace", [](OrvikStream s, int32_t n, T* r) { return Laplace(0, s, n, r, 1.25, 0.7); },
      [](const Stream& s, int32_t n) {
        const Numbers<T> w = uniforms<T>(s, 2 * n), selector = plain::every_second(w, 1);
        Numbers<T> r = plain::ln(plain::every_second(w, 0));
        for (size_t i = 0; i < r.size(); ++i) r[i] = std::fma(selector[i] > T(0.5) ? T(0.7) : T(-0.7), r[i], T(1.25));
        return r;
      });
}

TYPED_TEST(Transforms, LaplaceSelectorOfExactlyOneHalfGoesAbove) {
  using T = TypeParam;
  Scripted s;
  s.numbers({0.25, 0.5, 0.25, 0.75, 0.25, 0.25});
  const std::vector<T> r = drawn<T>(3, [&](T* r) { return Laplace(0, s.get(), 3, r, 0, 1); });
  EXPECT_GT(r[0], 0);
  EXPECT_LT(r[1], 0);
  EXPECT_GT(r[2], 0);
  EXPECT_EQ(r[0], r[2]);
  EXPECT_EQ(r[0], -r[1]);
}

TYPED_TEST(Transforms, LaplaceOf1024AsksTwiceTheSecondTimeForNothing) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  void** const row = sizeof(T) == 8 ? orvik_zym_kernel_dLn_ttab : orvik_zym_kernel_sLn_ttab;
  const Patched<T> watched(row, sizeof(T) == 8 ? 2 : 0);
  drawn<T>(1024, [&](T* r) { return Laplace(0, s.get(), 1024, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2048, 0}));
  EXPECT_EQ(watched.sizes(), (std::vector<int32_t>{1024, 0}));
}

TYPED_TEST(Transforms, LaplaceOf1025Takes2050Uniforms) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  drawn<T>(1025, [&](T* r) { return Laplace(0, s.get(), 1025, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{2048, 2}));
  EXPECT_EQ(s->drawn, 2050);
}

TYPED_TEST(Transforms, RayleighIsTheRootOfAnExponential) {
  using T = TypeParam;
  this->agree(
      "Rayleigh", [](OrvikStream s, int32_t n, T* r) { return Rayleigh(0, s, n, r, 1.25, 0.7); },
      [](const Stream& s, int32_t n) {
        const Numbers<T> e = plain::each(plain::ln(uniforms<T>(s, n)), [](T x) { return -x; });
        return plain::each(plain::sqrt(e), [](T x) { return std::fma(x, T(0.7), T(1.25)); });
      });
}

TYPED_TEST(Transforms, WeibullIsAPowerOfAnExponential) {
  using T = TypeParam;
  this->agree(
      "Weibull", [](OrvikStream s, int32_t n, T* r) { return Weibull(0, s, n, r, 1.7, 1.25, 0.7); },
      [](const Stream& s, int32_t n) {
        const Numbers<T> e = plain::each(plain::ln(uniforms<T>(s, n)), [](T x) { return -x; });
        return plain::each(plain::powx(e, T(1) / T(1.7)), [](T x) { return std::fma(x, T(0.7), T(1.25)); });
      });
}

TYPED_TEST(Transforms, WeibullOfShapeOneSkipsThePowerAndIsExponential) {
  using T = TypeParam;
  void** const slot = sizeof(T) == 8 ? orvik_zym_kernel_dPowx_ttab + 2 : orvik_zym_kernel_sPowx_ttab;
  void* const kernel = *slot;
  static int powers;
  for (const T alpha : {T(1), T(1.5)}) {
    Scripted s;
    s.spread();
    powers = 0;
    *slot = reinterpret_cast<void*>(+[](int32_t, const T*, T, T*) { ++powers; });
    drawn<T>(100, [&](T* r) { return Weibull(0, s.get(), 100, r, alpha, 1.25, 0.7); });
    *slot = kernel;
    EXPECT_EQ(powers, alpha == 1 ? 0 : 1) << alpha;
  }
  for (const int32_t n : kSizes) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), t = s.copy();
    expect_same(drawn<T>(n, [&](T* r) { return Weibull(0, s.get(), n, r, 1, 1.25, 0.7); }),
                drawn<T>(n, [&](T* r) { return Exponential(0, t.get(), n, r, 1.25, 0.7); }), "Weibull");
  }
}

TYPED_TEST(Transforms, EveryEntryButLaplaceAsksOnceForAllItsUniforms) {
  using T = TypeParam;
  const auto requests = [](auto draw) {
    Scripted s;
    s.spread();
    drawn<T>(3000, [&](T* r) { return draw(s.get(), 3000, r); });
    return s->sizes();
  };
  const std::vector<int32_t> once = {3000};
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Uniform(kClamp, s, n, r, 0, 1); }), once);
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Cauchy(0, s, n, r, 0, 1); }), once);
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Exponential(0, s, n, r, 0, 1); }), once);
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Gumbel(0, s, n, r, 0, 1); }), once);
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Rayleigh(0, s, n, r, 0, 1); }), once);
  EXPECT_EQ(requests([](OrvikStream s, int32_t n, T* r) { return Weibull(0, s, n, r, 2, 0, 1); }), once);
}

TYPED_TEST(Transforms, LongRequestsGoToKernelsInPartsThatFitTheCaches) {
  using T = TypeParam;
  Scripted s;
  s.spread();
  void** const row = sizeof(T) == 8 ? orvik_zym_kernel_dLn_ttab : orvik_zym_kernel_sLn_ttab;
  const Patched<T> watched(row, sizeof(T) == 8 ? 2 : 0);
  drawn<T>(32768, [&](T* r) { return Exponential(0, s.get(), 32768, r, 0, 1); });
  drawn<T>(70000, [&](T* r) { return Exponential(0, s.get(), 70000, r, 0, 1); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{32768, 70000}));
  EXPECT_EQ(watched.sizes(), (std::vector<int32_t>{32768, 32768, 32768, 4464}));
}

TYPED_TEST(Transforms, LongRequestsHaveTheNumbersOfShortOnes) {
  using T = TypeParam;
  const int32_t kLong = 100000, kShort = 7000;
  const auto same = [=](const char* name, auto draw) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), t = s.copy();
    std::vector<T> parts;
    for (int32_t left = kLong; left > 0; left -= kShort) {
      const int32_t n = std::min(left, kShort);
      const std::vector<T> part = drawn<T>(n, [&](T* r) { return draw(t.get(), n, r); });
      parts.insert(parts.end(), part.begin(), part.end());
    }
    expect_same(drawn<T>(kLong, [&](T* r) { return draw(s.get(), kLong, r); }), parts, name);
  };
  same("Cauchy", [](OrvikStream s, int32_t n, T* r) { return Cauchy(0, s, n, r, 1, 2); });
  same("Exponential", [](OrvikStream s, int32_t n, T* r) { return Exponential(kClamp, s, n, r, 1, 2); });
  same("Gumbel", [](OrvikStream s, int32_t n, T* r) { return Gumbel(0, s, n, r, 1, 2); });
  same("Rayleigh", [](OrvikStream s, int32_t n, T* r) { return Rayleigh(0, s, n, r, 1, 2); });
  same("Weibull", [](OrvikStream s, int32_t n, T* r) { return Weibull(0, s, n, r, 1.5, 1, 2); });
}

TEST(IntegerUniform, IsTheFloorOfTheDoubles) {
  for (const int32_t n : kSizes) {
    const Stream s(ORVIK_BRNG_MT19937, {777}), source = s.copy();
    const std::vector<double> x = source.doubles(n, -7, 100);
    std::vector<int32_t> expected;
    for (const double v : x) expected.push_back(static_cast<int32_t>(std::floor(v)));
    expect_same(drawn<int32_t>(n, [&](int32_t* r) { return _qoriRngUniform(kClamp, s.get(), n, r, -7, 100); }),
                expected, "integers");
    EXPECT_EQ(s.doubles(2), source.doubles(2));
  }
}

TEST(IntegerUniform, AsksInBlocksOf1024AndForNothingBelowOne) {
  Scripted s;
  std::vector<int32_t> r(3000, 5);
  EXPECT_EQ(_qoriRngUniform(0, s.get(), 0, r.data(), 0, 9), 0);
  EXPECT_EQ(_qoriRngUniform(0, s.get(), -4, r.data(), 0, 9), 0);
  EXPECT_TRUE(s->requests.empty());
  EXPECT_EQ(_qoriRngUniform(0, s.get(), 2500, r.data(), -2, 9), 0);
  EXPECT_EQ(s->requests, (std::vector<Request>{{1024, -2, 9}, {1024, -2, 9}, {452, -2, 9}}));
  EXPECT_EQ(r[0], 3);
  EXPECT_EQ(r[2499], 3);
  EXPECT_EQ(r[2500], 5);
}

// Of an interval that is short beside its ends the last double below the upper end is the end itself once it is
// rounded.
TEST(IntegerUniform, CanBeTheUpperEndWhereTheDoubleIsRoundedToIt) {
  constexpr int32_t kLow = 2147483000, kHigh = 2147483001;
  Scripted s;
  s.numbers({1 - 0x1p-53, 0.5});
  int32_t r[2];
  ASSERT_EQ(_qoriRngUniform(0, s.get(), 2, r, kLow, kHigh), 0);
  EXPECT_EQ(r[0], kHigh);
  EXPECT_EQ(r[1], kLow);
}

}  // namespace
}  // namespace orvik::testing

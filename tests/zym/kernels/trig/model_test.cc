// The lanes with given steps against scalar models of these steps, bit for bit; the vector form of the routine for
// large doubles against the routine itself.
#include <cmath>
#include <random>

#include "support/row_calls.h"
#include "zym/kernels/trig/sin_element.h"

namespace orvik::test {
namespace {

uint32_t bits(float x) { return std::bit_cast<uint32_t>(x); }
uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }

template <class E>
struct Rounded {
  E n;
  bool odd;
};
template <class E>
Rounded<E> shift_rounded(E x, E scale) {
  const E shifter = sizeof(E) == 4 ? E(12582912.0) : E(6755399441055744.0);
  const E t = std::fma(x, scale, shifter);
  return {t - shifter, (bits(t) & 1) != 0};
}

template <class E>
E polynomial(E z, std::initializer_list<E> c) {
  E p = 0;
  for (E a : c) p = std::fma(p, z, a);
  return p;
}
template <class E>
E odd_sum(E r, std::initializer_list<E> c) {
  const E z = r * r;
  return std::fma(r * z, polynomial(z, c), r);
}
template <class E>
E signed_by(E value, bool odd, E x) {
  value = odd ? -value : value;
  return std::signbit(x) ? -value : value;
}

constexpr float kPi32[] = {3.1415927410125732f, -8.742277657347586e-08f, -3.4302490200117637e-15f};
constexpr float kHalfPi32[] = {1.5707963705062866f, -4.371138828673793e-08f, -1.7151245100058819e-15f};
constexpr double kPi64[] = {3.141592653589793, 1.224646799147353e-16, 2.165713347843828e-32};

template <class E>
E reduced(E a, E n, const E* parts, int count) {
  for (int i = 0; i < count; ++i) a = std::fma(-n, parts[i], a);
  return a;
}

template <bool Cosine>
Rounded<float> half_turns(float a) {
  auto [n, odd] = shift_rounded(Cosine ? a + 1.5707963705062866f : a, 0.31830987334251404f);
  return {Cosine ? n - 0.5f : n, odd};
}

template <bool Cosine>
float sine_ep(float x) {
  const float a = std::fabs(x);
  const auto [n, odd] = half_turns<Cosine>(a);
  const float r = reduced(a, n, kPi32, 2);
  const float s = polynomial(r * r, {0.007576601579785347f, Cosine ? -0.1659211963415146f : -0.16592095792293549f,
                                     0.9998853206634521f}) *
                  r;
  return signed_by(s, odd, Cosine ? a : x);
}
template <bool Cosine>
float sine_la(float x) {
  const float a = std::fabs(x);
  const auto [n, odd] = half_turns<Cosine>(a);
  const float r = reduced(a, n, kPi32, 3);
  const float s =
      Cosine
          ? odd_sum(r, {2.604164592412417e-06f, -0.0001980915985768661f, 0.008333060890436172f, -0.16666659712791443f})
          : odd_sum(r,
                    {2.605780537123792e-06f, -0.00019809602235909551f, 0.008333062753081322f, -0.16666659712791443f});
  return signed_by(s, odd, Cosine ? a : x);
}
template <bool Cosine>
float sine_ha(float x) {
  const float a = std::fabs(x);
  const auto [n, odd] = half_turns<Cosine>(a);
  const double parts[] = {3.1415926535846666, 5.126688303189038e-12};
  const double r = reduced<double>(a, n, parts, 2);
  const double s = odd_sum(r, {2.605780638722852e-06, Cosine ? -0.0001980960290225735 : -0.00019809602902257352,
                               0.00833306624608569, -0.1666665955042783});
  return signed_by(static_cast<float>(s), odd, Cosine ? a : x);
}
template <bool Cosine>
double sine_of_double(double x, bool la) {
  const double a = std::fabs(x);
  auto [n, odd] = shift_rounded(Cosine ? a + 1.5707963267948966 : a, 0.3183098861837907);
  if (Cosine) n -= 0.5;
  const double r = reduced(a, n, kPi64, la ? 3 : 2);
  const double s =
      la ? odd_sum(r, {-7.373344533110665e-13, 1.6048095404959637e-10, -2.505188027386288e-08, 2.7557316600552628e-06,
                       -0.0001984126982505625, 0.008333333333285542, -0.16666666666666186})
         : odd_sum(r, {2.602272538419318e-06, -0.0001980808536178708, 0.008333046645248707, -0.16666658839437162});
  return signed_by(s, odd, Cosine ? a : x);
}
template <bool Cosine>
double sine_ep(double x) {
  return sine_of_double<Cosine>(x, false);
}
template <bool Cosine>
double sine_la(double x) {
  return sine_of_double<Cosine>(x, true);
}

float tangent(float x, int parts) {
  const float a = std::fabs(x);
  const auto [n, odd] = shift_rounded(a, 0.6366197466850281f);
  const float r = reduced(a, n, kHalfPi32, parts);
  const float z = r * r;
  const float over = r * polynomial(z, {-0.09580174088478088f, 0.9999997615814209f});
  const float under = polynomial(z, {0.009716848842799664f, -0.42913565039634705f, 0.9999997615814209f});
  return signed_by(odd ? under / over : over / under, odd, x);
}
float tangent_ep(float x) { return tangent(x, 2); }
float tangent_la(float x) { return tangent(x, 3); }

template <class E>
void compare(const std::string& name, int level, E (*model)(E), double bound) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> uniform(-1, 1);
  std::vector<E> x(60001), r(x.size());
  for (size_t i = 0; i < x.size(); ++i) {
    // All sizes up to the bound, tiny ones, neighbours of multiples of pi/2.
    const double u = uniform(random);
    x[i] = static_cast<E>(i % 3 == 0 ? u * bound : i % 3 == 1 ? u * std::exp2(-static_cast<double>(i % 90)) : 0);
    if (i % 3 == 2) x[i] = static_cast<E>(1.5707963267948966 * std::rint(u * std::fmin(bound / 1.6, 6e5)));
    if (!(std::fabs(x[i]) < bound)) x[i] = std::nextafter(static_cast<E>(bound), E(0));
  }
  x[0] = E(0), x[1] = E(-0.0), x[2] = std::numeric_limits<E>::denorm_min();
  x[3] = std::nextafter(static_cast<E>(bound), E(0)), x[4] = -x[3];
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named(name), level, false, c));
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(bits(r[i]), bits(model(x[i]))) << name << " " << x[i];
}

TEST(TrigModel, FloatSineHasTheBitsOfItsSteps) {
  compare<float>("sSin", 0, sine_la<false>, 524288);
  compare<float>("sSin", 1, sine_ha<false>, 524288);
  compare<float>("sSin", 2, sine_ep<false>, 10000);
}
TEST(TrigModel, FloatCosineHasTheBitsOfItsSteps) {
  compare<float>("sCos", 0, sine_la<true>, 524288);
  compare<float>("sCos", 1, sine_ha<true>, 524288);
  compare<float>("sCos", 2, sine_ep<true>, 10000);
}
TEST(TrigModel, DoubleSineHasTheBitsOfItsSteps) {
  compare<double>("dSin", 0, sine_la<false>, 16777216);
  compare<double>("dSin", 2, sine_ep<false>, 16777216);
}
TEST(TrigModel, DoubleCosineHasTheBitsOfItsSteps) {
  compare<double>("dCos", 0, sine_la<true>, 8388608);
  compare<double>("dCos", 2, sine_ep<true>, 16777216);
}
TEST(TrigModel, FloatTangentHasTheBitsOfItsSteps) {
  compare<float>("sTan", 0, tangent_la, 8256);
  compare<float>("sTan", 2, tangent_ep, 8256);
}

// Large doubles at the lowest level: many at once as one at a time.
TEST(TrigModel, LargeDoublesHaveTheBitsOfTheRoutine) {
  std::mt19937_64 random(23);
  std::uniform_real_distribution<double> exponent(24, 1024), mantissa(1, 2);
  std::vector<double> x(20011), r(x.size());
  for (size_t i = 0; i < x.size(); ++i) {
    x[i] =
        std::ldexp(mantissa(random), static_cast<int>(i % 2 == 0 ? exponent(random) : 24 + static_cast<double>(i % 8)));
    if (i % 3 == 0) x[i] = -x[i];
  }
  x[0] = 1e300, x[1] = 6381956970095103 * 0x1p797, x[2] = std::numeric_limits<double>::max(), x[3] = 16777216,
  x[4] = 0x1p30;
  x[5] = std::nextafter(0x1p30, 0);
  for (const bool cosine : {false, true}) {
    Call<double> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    ASSERT_TRUE(call_row(row_named(cosine ? "dCos" : "dSin"), 2, false, c));
    for (size_t i = 0; i < x.size(); ++i) {
      double want;
      const int32_t code =
          cosine ? zym::trig::sine_element<true>(&x[i], &want) : zym::trig::sine_element<false>(&x[i], &want);
      EXPECT_EQ(code, 0);
      ASSERT_EQ(bits(r[i]), bits(want)) << cosine << " " << x[i];
    }
  }
}

TEST(TrigModel, RoutineForDoublesOfAllSizes) {
  double r;
  for (double x : {0x1p-300, -0x1p-300, 0x1p-1074, -0.0, 0.0, 0x1.fp-1023}) {
    EXPECT_EQ(zym::trig::sine_element<false>(&x, &r), 0);
    EXPECT_EQ(bits(r), bits(x));
    EXPECT_EQ(zym::trig::sine_element<true>(&x, &r), 0);
    EXPECT_EQ(r, 1.0);
  }
  for (double x :
       {0.5, -1.0, 3.0, 100.0, 65000.0, 131071.0, 131072.0, 1e6, 8388607.5, 8388608.0, 1e9, 0x1p30, 1e10, 1e17}) {
    zym::trig::sine_element<false>(&x, &r);
    EXPECT_NEAR(r, std::sin(x), 0x1p-30 * std::fabs(std::sin(x))) << x;
    zym::trig::sine_element<true>(&x, &r);
    EXPECT_NEAR(r, std::cos(x), 0x1p-30 * std::fabs(std::cos(x))) << x;
  }
}

}  // namespace
}  // namespace orvik::test

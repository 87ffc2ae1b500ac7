// The lanes of ln x against a scalar model of their steps, bit for bit.
#include <immintrin.h>
#include <mpfr.h>

#include <cmath>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

uint32_t bits(float x) { return std::bit_cast<uint32_t>(x); }

struct Split {
  float e, f;
};
Split split(float x) {
  const uint32_t u = bits(x) + 0xC0D55555u;
  const float e = static_cast<float>(static_cast<int32_t>(u) >> 23);
  return {e, std::bit_cast<float>((u & 0x007FFFFFu) + 0x3F2AAAABu) - 1.0f};
}

template <size_t N>
float polynomial(const float (&c)[N], float f) {
  float p = c[0];
  for (size_t i = 1; i < N; ++i) p = std::fma(p, f, c[i]);
  return std::fma(f * p, f, f);
}

float ln_ep(float x) {
  const Split s = split(x);
  const float c[] = {0.2198837250471115f, -0.2674025893211365f, 0.33289623260498047f, -0.5f};
  return std::fma(s.e, 0.6931471824645996f, polynomial(c, s.f));
}

float ln_la(float x) {
  const Split s = split(x);
  const float c[] = {-0.15177205204963684f,
                     0.16964881122112274f,
                     -0.16462457180023193f,
                     0.19822503626346588f,
                     -0.25004664063453674f,
                     0.33336564898490906f,
                     -0.5f};
  return std::fma(s.e, 0.6931471824645996f, polynomial(c, s.f));
}

float ln_ha(float x) {
  const Split s = split(x);
  const float c[] = {-0.12891685962677002f, 0.1398443728685379f,   -0.12184260785579681f,
                     0.140058696269989f,    -0.16680487990379333f, 0.20010405778884888f,
                     -0.24999797344207764f, 0.3333321511745453f,   -0.5f};
  return std::fma(s.e, 0.693145751953125f, std::fma(s.e, 1.428606765330187e-06f, polynomial(c, s.f)));
}

void compare(int level, float (*model)(float)) {
  std::mt19937 random(12);
  std::vector<float> x(60005), r(x.size());
  for (size_t i = 0; i < x.size(); ++i) {
    x[i] = std::bit_cast<float>(0x00800000u + static_cast<uint32_t>(random() % 0x7F000000u));
    if (i % 3 == 0) x[i] = 0.5f + static_cast<float>(random() % 1000003) / 1000003.0f;
  }
  Call<float> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named("sLn"), level, false, c));
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(bits(r[i]), bits(model(x[i]))) << x[i];
}

TEST(LnModel, FloatLanesHaveTheBitsOfTheirSteps) {
  compare(0, ln_la);
  compare(1, ln_ha);
  compare(2, ln_ep);
}

// 64 bits. x = 2^e m with m in [1, 2); rc is the integer nearest to the estimate of 1024/m, r = rc m / 1024 - 1.
struct Keyed {
  double e, rc, r;
};
Keyed keyed(double x) {
  int e;
  const double m = std::frexp(x, &e) * 0x1p-9;  // in [2^-10, 2^-9)
  const double rc = std::nearbyint(static_cast<double>(_mm_cvtss_f32(_mm_rcp_ps(_mm_set1_ps(static_cast<float>(m))))));
  return {static_cast<double>(e - 1), rc, std::fma(rc, m, -1.0)};
}

// -ln(numerator/denominator): the nearest multiple of `grid` (0: the nearest double), and the rest.
struct Log {
  double head, low;
};
Log minus_ln(double numerator, double denominator, double grid) {
  mpfr_t exact, head;
  mpfr_inits2(200, exact, head, static_cast<mpfr_ptr>(nullptr));
  mpfr_set_d(exact, numerator, MPFR_RNDN);
  mpfr_div_d(exact, exact, denominator, MPFR_RNDN);
  mpfr_log(exact, exact, MPFR_RNDN);
  mpfr_neg(exact, exact, MPFR_RNDN);
  if (grid == 0) {
    mpfr_set_d(head, mpfr_get_d(exact, MPFR_RNDN), MPFR_RNDN);
  } else {
    mpfr_div_d(head, exact, grid, MPFR_RNDN);
    mpfr_rint(head, head, MPFR_RNDN);
    mpfr_mul_d(head, head, grid, MPFR_RNDN);
  }
  mpfr_sub(exact, exact, head, MPFR_RNDN);
  const Log log = {mpfr_get_d(head, MPFR_RNDN), mpfr_get_d(exact, MPFR_RNDN)};
  mpfr_clears(exact, head, static_cast<mpfr_ptr>(nullptr));
  return log;
}

constexpr double kLn2Head = 0.6931471805582987, kLn2Tail = 1.6465949582866463e-12;
constexpr double kC5 = 0.2000003665949424, kC4 = -0.2500003054940248, kC3 = 0.33333333333308374,
                 kC2 = -0.49999999999988803;

// Rows below 724 belong to the next exponent, so that the logarithms on both sides of 1 are small.
double ln_short(double x, double p(double)) {
  Keyed k = keyed(x);
  double row = k.rc == 1024 || k.rc == 512 ? 0.0 : minus_ln(k.rc, k.rc < 724 ? 512 : 1024, 0).head;
  if (k.rc < 724) k.e += 1;
  const double head = std::fma(k.e, kLn2Head, row) + k.r;
  return head + std::fma(k.e, kLn2Tail, k.r * k.r * p(k.r));
}
double ln_ep(double x) {
  return ln_short(x, [](double r) { return std::fma(kC3, r, kC2); });
}
double ln_la(double x) {
  return ln_short(x, [](double r) { return std::fma(std::fma(std::fma(kC5, r, kC4), r, kC3), r, kC2); });
}

// The heads on a grid of 2^-38, so that they add exactly to the exponent's multiple; row 512 cancels it.
double ln_ha(double x) {
  const Keyed k = keyed(x);
  Log row = {0, 0};
  if (k.rc == 512) {
    row = {kLn2Head, kLn2Tail};
  } else if (k.rc != 1024) {
    row = minus_ln(k.rc, 1024, 0x1p-38);
  }
  const double r = k.r;
  const double p = r * r * std::fma(std::fma(kC5, r, kC4), r * r, std::fma(kC3, r, kC2));
  const double table = std::fma(k.e, kLn2Head, row.head);
  const double head = table + r;
  const double lost = r - (head - table);
  return head + (std::fma(k.e, kLn2Tail, row.low) + (p + lost));
}

void compare_double(int level, double (*model)(double)) {
  std::mt19937_64 random(13);
  std::vector<double> x(20011), r(x.size());
  for (size_t i = 0; i < x.size(); ++i) {
    x[i] = std::bit_cast<double>(0x0010000000000000u + random() % 0x7FE0000000000000u);
    if (i % 3 == 0) x[i] = 0.5 + static_cast<double>(random() % 15000017) / 1e7;
  }
  Call<double> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named("dLn"), level, false, c));
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(r[i], model(x[i])) << x[i];
}

TEST(LnModel, DoubleLanesHaveTheBitsOfTheirSteps) {
  compare_double(0, ln_la);
  compare_double(1, ln_ha);
  compare_double(2, ln_ep);
}

}  // namespace
}  // namespace orvik::test

// The lanes of ln x against a scalar model of their steps, bit for bit.
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

// 64 bits. x = 2^e m with m in [1, 2), a row of a sixteenth of the octave, c near 1/m in six bits, r = c m - 1, exact.
struct Reduced {
  double e, m;
  int row;
  double c, r;
};
Reduced reduced(double x) {
  int e;
  const double m = 2 * std::frexp(x, &e);
  const int row = static_cast<int>((m - 1) * 16);
  const double c = row < 4 ? 1 - row / 16.0 : row == 15 ? 0.5 : std::nearbyint(64 / (1 + (2 * row + 1) / 32.0)) / 64;
  return {static_cast<double>(e - 1), m, row, c, std::fma(c, m, -1.0)};
}

// -ln(x): the nearest multiple of `grid` (0: the nearest double), and the rest.
struct Log {
  double head, low;
};
Log minus_ln(double x, double grid) {
  mpfr_t exact, head;
  mpfr_inits2(200, exact, head, static_cast<mpfr_ptr>(nullptr));
  mpfr_set_d(exact, x, MPFR_RNDN);
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
template <size_t N>
double horner(const double (&c)[N], double r) {
  double p = c[0];
  for (size_t i = 1; i < N; ++i) p = std::fma(p, r, c[i]);
  return p;
}

double ln_ha(double x);

// From m = 3/2 on the exponent is one more, so that the logarithms on both sides of 1 are small; where that leaves the
// exponents, the element routine serves.
double ln_short(double x, double p(double)) {
  if (x >= 0x1.8p1023) return ln_ha(x);
  const Reduced k = reduced(x);
  const double up = k.m >= 1.5 ? 1 : 0;
  const double row = k.row == 0 || k.row == 15 ? 0.0 : minus_ln(k.c * (1 + up), 0).head;
  const double table = std::fma(k.e + up, 0x1.62e42fefa39efp-1, row);
  return std::fma(k.r, std::fma(k.r, p(k.r), 1.0), table);
}
double ln_ep(double x) {
  return ln_short(x, [](double r) {
    return horner({0x1.856ae5df74e94p-3, -0x1.0031b85920dbp-2, 0x1.55586a22887b9p-2, -0x1.fffffc62c40bap-2}, r);
  });
}
double ln_la(double x) {
  return ln_short(x, [](double r) {
    return horner({-0x1.6cbecb02a6ae6p-4, 0x1.c67d5deb52b55p-4, -0x1.000e93fff3014p-3, 0x1.2492b5c49e756p-3,
                   -0x1.5555523f81a94p-3, 0x1.9999997fe2b15p-3, -0x1.000000001fa83p-2, 0x1.555555555622ep-2,
                   -0x1.ffffffffffff4p-2},
                  r);
  });
}

// The heads on a grid of 2^-38, so that they add exactly to the exponent's multiple; the last row cancels it.
double ln_ha(double x) {
  const Reduced k = reduced(x);
  Log row = {0, 0};
  if (k.row == 15) {
    row = {kLn2Head, kLn2Tail};
  } else if (k.row != 0) {
    row = minus_ln(k.c, 0x1p-38);
  }
  const double r = k.r, square = r * r;
  const double even = horner({0x1.4b4f14d690edcp-4, 0x1.c7372d61af183p-4, 0x1.2492464de0146p-3, 0x1.99999999d44dbp-3,
                              0x1.555555555554ap-2},
                             square);
  const double odd = horner({-0x1.99093859d9365p-4, -0x1.0000632141d01p-3, -0x1.5555553dd8629p-3, -0x1.0000000000bbdp-2}, square);
  const double table = std::fma(k.e, kLn2Head, row.head);
  const double head = table + r;
  const double lost = r - (head - table);
  const double low = lost + std::fma(k.e, kLn2Tail, row.low);
  return head + std::fma(-0.5 * r, r, std::fma(r * r * r, std::fma(odd, r, even), low));
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

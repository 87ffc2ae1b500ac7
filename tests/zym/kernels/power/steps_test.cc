// The lanes of the powers against scalar models of their steps, bit for bit; the estimate of the reciprocal is taken as
// the processor gives it.
#include <immintrin.h>

#include <random>

#include "pairs.h"

namespace orvik::test {
namespace {

uint32_t bits(float x) { return std::bit_cast<uint32_t>(x); }
uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }
float f32(uint32_t b) { return std::bit_cast<float>(b); }
float estimate(float x) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(x))); }

// x p + next and so on.
template <class E, size_t N>
E polynomial(E x, const E (&c)[N]) {
  E p = c[0];
  for (size_t i = 1; i < N; ++i) p = std::fma(p, x, c[i]);
  return p;
}

// f(a) in 200 bits less a double, rounded to the nearest double.
double rest(int (*f)(mpfr_t, const mpfr_t, mpfr_rnd_t), double a, double less) {
  mpfr_t x;
  mpfr_init2(x, 200);
  mpfr_set_d(x, a, MPFR_RNDN);
  f(x, x, MPFR_RNDN);
  mpfr_sub_d(x, x, less, MPFR_RNDN);
  const double r = mpfr_get_d(x, MPFR_RNDN);
  mpfr_clear(x);
  return r;
}
double on_grid(double x, double step) { return std::nearbyint(x / step) * step; }

// --- 32 bits --------------------------------------------------------------------------------------------------------

float exp_ep(float x) {
  const float s = 12582912.0f, t = std::fma(x, f32(0x3FB8AA3B), s);
  const float r = std::fma(-(t - s), f32(0x3F317218), x);
  const float p = polynomial(r, {f32(0x3E2963AC), f32(0x3F00F2D6), f32(0x3F8003DE), 1.0f});
  return f32(bits(p) + (bits(t) << 23));
}

float single_ep(float x, float y) {
  const uint32_t u = bits(x) - 0x3F2AAAAB;
  const float e = static_cast<float>(static_cast<int32_t>(u) >> 23);
  const float f = f32((u & 0x007FFFFF) + 0x3F2AAAAB) - 1.0f;
  const float p = polynomial(f, {-0.15177205204963684f, 0.16964881122112274f, -0.16462457180023193f,
                                 0.19822503626346588f, -0.25004664063453674f, 0.33336564898490906f, -0.5f});
  const float ln = std::fma(e, 0.6931457519f, std::fma(e, 1.4286067653e-06f, std::fma(f * p, f, f)));
  return exp_ep(y * ln);
}

float single_la(float x, float y) {
  const uint32_t c = (bits(estimate(x)) + 0x00080000) & 0xFFF00000;
  const double grid = 1 + ((c >> 20) & 7) / 8.0;
  const double head = -on_grid(std::log2(grid), 0x1p-16);
  const auto low = static_cast<float>(-rest(mpfr_log2, grid, -head));
  const float r = std::fma(f32(c), x, -1.0f);
  const float table = static_cast<float>(127 - static_cast<int32_t>(c >> 23)) + static_cast<float>(head);

  const float c1 = 1.4426950216293335f, c2 = -0.7213475108146667f;
  const float q = r * c1, q_low = std::fma(r, c1, -q);
  const float square = r * r;
  const float two = std::fma(square, c2, q), two_low = std::fma(square, c2, q - two);
  const float constants = std::fma(r, std::fma(r, -1.0812603257193132e-08f, 1.925904236088627e-08f), q_low);
  const float p = polynomial(r, {0.20751520991325378f, -0.24168692529201508f, 0.2885349988937378f,
                                 -0.36067134141921997f, 0.48089835047721863f});
  const float log = table + two, lost = two - (log - table);
  const float log_low = (lost + low) + std::fma(square * r, p, constants + two_low);

  const float product = y * log, product_low = std::fma(y, log_low, std::fma(y, log, -product));
  const float sum = (product + product_low) + 1572991.0f;
  const float f = (product - (sum + -1572991.0f)) + product_low;
  const float eighth = static_cast<float>(std::exp2((bits(sum) & 7) / 8.0));
  const float scaled = f32(bits(eighth) + (((bits(sum) & 0x7F8) >> 3) << 23) - (127u << 23));
  return std::fma(scaled, f * polynomial(f, {0.0555119216f, 0.2402640730f, 0.6931471824645996f}), scaled);
}

// --- 64 bits --------------------------------------------------------------------------------------------------------

// 1/m on a grid of 1/64 by the sixteenth of the octave that m is in; whole sixteenths below 1 first, a half last.
double octave_reciprocal(int row) {
  if (row < 4) return 1 - row / 16.0;
  return row == 15 ? 0.5 : on_grid(1 / (1 + (2 * row + 1) / 32.0), 0x1p-6);
}
float single_ha(float x, float y) {
  int exponent;
  const double m = 2 * std::frexp(static_cast<double>(x), &exponent);
  const double c = octave_reciprocal(static_cast<int>((m - 1) * 16)), r = c * m - 1;
  const double p =
      polynomial(r, {0x1.85d6acba94de6p-3, -0x1.ec9a1925ea672p-3, 0x1.277f5b42dfbeap-2, -0x1.7154862f2b505p-2,
                     0x1.ec709c8dba851p-2, -0x1.71547651e1c08p-1, 0x1.71547652b9ee3p0});
  const double t = y * std::fma(r, p, exponent - 1 - rest(mpfr_log2, c, 0));
  const double n = std::nearbyint(t * 16), f = t - n / 16;
  const auto i = static_cast<int64_t>(n);
  const double row = std::ldexp(rest(mpfr_exp2, static_cast<double>(i & 15) / 16, 0), static_cast<int>(i >> 4));
  const double q =
      polynomial(f, {0x1.3b2ab6fb7bf16p-7, 0x1.c6b3487ff16cfp-5, 0x1.ebfbdffb53ef5p-3, 0x1.62e42fee461a2p-1});
  return static_cast<float>(std::fma(row, f * q, row));
}

// Bases within half a sixteenth of m = 1 + i/16, and a grid of reciprocals.
struct Centred {
  double e, c, r;
  explicit Centred(double x) {
    int exponent;
    double m = 2 * std::frexp(x, &exponent);
    e = exponent - 1;
    int row = static_cast<int>((m - 1) * 16 + 0.5);
    if (row == 16) m /= 2, e += 1, row = 0;
    c = on_grid(1 / (1 + row / 16.0), row / 2 == 3 ? 0x1p-5 : 0x1p-6);
    r = std::fma(c, m, -1.0);
  }
};

// Polynomials by halves: the upper coefficients times a power whose exponent is a power of 2.
double by_halves(double x, const double* c, int count) {
  if (count == 1) return c[0];
  int low = 1;
  double power = x;
  while (2 * low < count) low *= 2, power *= power;
  return std::fma(by_halves(x, c, count - low), power, by_halves(x, c + (count - low), low));
}
template <size_t N>
double by_halves(double x, const double (&c)[N]) {
  return by_halves(x, c, static_cast<int>(N));
}

struct Parts {
  double head, tail;
};
Parts sum_of(double a, double b) {  // |a| >= |b|
  const double s = a + b;
  return {s, b - (s - a)};
}
// log2(1 + x) to the third power: constants, and what the first two lack.
constexpr double kFirst = 0x1.71547652b82fep0, kFirstLow = 0x1.777d0ffda0d24p-56;
constexpr double kSecond = -kFirst / 2, kSecondLow = -kFirstLow / 2;
constexpr double kThird = 0x1.ec709dc3a03fdp-2;

Parts log2_parts(double x, bool high) {
  const Centred k(x);
  const double r = k.r;
  const double minus = -rest(mpfr_log2, k.c, 0), row = on_grid(minus, 0x1p-42), row_low = -rest(mpfr_log2, k.c, -row);
  const double inner = std::fma(r, kThird, kSecond);
  const double inner_low = std::fma(r, kThird, kSecond - inner) + kSecondLow;
  const double factor = std::fma(r, inner, kFirst);
  const double factor_low = std::fma(r, inner, kFirst - factor) + kFirstLow;
  const double q = r * factor, q_low = std::fma(r, factor, -q);
  const Parts log = sum_of(k.e + row, q);
  const double lost = (log.tail + row_low) + q_low;
  if (high) {
    const double p =
        by_halves(r, {-0x1.f1e1871c36e79p-4, 0x1.0d3c5fcbb0e09p-3, -0x1.277557145b77p-3, 0x1.484aeb78af31ep-3,
                      -0x1.71547698d8035p-3, 0x1.a61762abcbc88p-3, -0x1.ec709dc39b0b9p-3, 0x1.2776c50ef9ad1p-2,
                      -0x1.71547652b82ffp-2, 0x1.d96a782c3923p-56});
    return {log.head, std::fma(r, std::fma(r, std::fma(r, p, inner_low), factor_low), lost)};
  }
  const double p =
      by_halves(r, {0x1.0ea1d6416209p-3, -0x1.280380c7e6545p-3, 0x1.484a52d9cb07bp-3, -0x1.71545d2d24dcdp-3,
                    0x1.a61762bdb09a3p-3, -0x1.ec709dc51060dp-3, 0x1.2776c50ef9704p-2, -0x1.71547652b82e4p-2});
  const double square = r * r;
  return {log.head, std::fma(square * square, p, std::fma(r, std::fma(r, inner_low, factor_low), lost))};
}

// y log2(x): n/16 by the head, and the rest of the exponent.
struct Split {
  double f;
  int64_t n;
  explicit Split(double head, double low = 0) {
    const double s = 0x1.8p48, sum = head + s;
    f = (head - (sum - s)) + low;
    n = static_cast<int64_t>(bits(sum) - bits(s));
  }
  Split(double y, Parts log) : Split(y * log.head, std::fma(y, log.tail, std::fma(y, log.head, -(y * log.head)))) {}
  double sixteenth() const { return static_cast<double>(n & 15) / 16; }
  int exponent() const { return static_cast<int>(n >> 4); }
};
double exp2_polynomial(double f) {
  return by_halves(f, {0x1.ffcf04233b1c3p-17, 0x1.430ae722249cep-13, 0x1.5d87fe770cdbep-10, 0x1.3b2ab6fa70ee8p-7,
                       0x1.c6b08d704a0cep-5, 0x1.ebfbdff82c596p-3});
}

double double_ep(double x, double y) {
  const Centred k(x);
  const double p =
      by_halves(k.r, {0x1.a8a2ecf52d65ep-3, -0x1.ed29af3b59387p-3, 0x1.2776613afccfbp-2, -0x1.7154690fe0e8ep-2,
                      0x1.ec709dcbb99f6p-2, -0x1.71547652f518dp-1, 0x1.71547652b829ep0});
  const Split t(y * std::fma(k.r, p, k.e - rest(mpfr_log2, k.c, 0)));
  const double row = rest(mpfr_exp2, t.sixteenth(), 0);
  const double s =
      t.f * by_halves(t.f, {0x1.3b2ab6fb7bf16p-7, 0x1.c6b3487ff16cfp-5, 0x1.ebfbdffb53ef5p-3, 0x1.62e42fee461a2p-1});
  return std::ldexp(std::fma(row, s, row), t.exponent());
}

double double_la(double x, double y) {
  const Split t(y, log2_parts(x, false));
  const double row = rest(mpfr_exp2, t.sixteenth(), 0);
  const double s = std::fma(t.f, 0x1.62e42fefa39efp-1, t.f * t.f * exp2_polynomial(t.f));
  return std::ldexp(std::fma(row, s, row), t.exponent());
}

double double_ha(double x, double y) {
  const Split t(y, log2_parts(x, true));
  const double row = rest(mpfr_exp2, t.sixteenth(), 0), row_low = rest(mpfr_exp2, t.sixteenth(), row) / row;
  const double s = std::fma(t.f, 0x1.62e42fefa39efp-1, std::fma(t.f * t.f, exp2_polynomial(t.f), row_low));
  return std::ldexp(std::fma(row, s, row), t.exponent());
}

// Bases of all magnitudes and next to 1, results of all magnitudes that the lanes serve.
template <class E>
void expect_steps(int level, E (*model)(E, E), double exponents) {
  std::mt19937_64 random(61);
  std::uniform_real_distribution<double> unit(-1, 1);
  PowerPairs<E> pairs;
  for (int i = 0; i < 20011; ++i) {
    const double log = exponents * unit(random);
    double x;
    switch (i % 4) {
      case 0:
        x = std::exp2(exponents * 0.97 * unit(random));
        break;
      case 1:
        x = std::exp2(unit(random));
        break;
      case 2:
        x = 1 + unit(random) / 16;
        break;
      default:
        x = 1 + std::ldexp(unit(random), -static_cast<int>(random() % 20));
    }
    const E base = static_cast<E>(x);
    const E y = static_cast<E>(log / std::log2(static_cast<double>(base)));
    if (base == 1 || !(std::fabs(y) < (sizeof(E) == 4 ? E(1e25) : E(1e270))) || std::fabs(y) < E(1e-11)) continue;
    pairs.add(base, y);
  }
  ASSERT_GT(pairs.size(), 19000u);
  const std::vector<E> got = powers("Pow", level, pairs);
  for (size_t i = 0; i < got.size(); ++i) {
    ASSERT_EQ(bits(got[i]), bits(model(pairs.x[i], pairs.y[i]))) << std::hexfloat << pairs.x[i] << " to " << pairs.y[i];
  }
}

TEST(PowerSteps, FloatsAtLa) { expect_steps<float>(0, single_la, 125.4); }
TEST(PowerSteps, FloatsAtHaAreComputedIn64Bits) { expect_steps<float>(1, single_ha, 125.9); }
TEST(PowerSteps, FloatsAtEpAreLnAndExp) { expect_steps<float>(2, single_ep, 125.9); }
TEST(PowerSteps, DoublesAtLa) { expect_steps<double>(0, double_la, 1021.4); }
TEST(PowerSteps, DoublesAtHa) { expect_steps<double>(1, double_ha, 1021.4); }
TEST(PowerSteps, DoublesAtEp) { expect_steps<double>(2, double_ep, 1021.3); }

}  // namespace
}  // namespace orvik::test

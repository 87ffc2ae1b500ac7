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
double f64(uint64_t b) { return std::bit_cast<double>(b); }
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

// x = 2^e 1024 m, m in [2^-10, 2^-9), and the integer next to the estimate of 1/m.
struct Keyed {
  double e, r;
  int key;
  explicit Keyed(double x) {
    const double m = f64((bits(x) & 0x000FFFFFFFFFFFFF) | bits(0.0009765625));
    key = static_cast<int>(std::nearbyint(estimate(static_cast<float>(m))));
    r = std::fma(key, m, -1.0);
    e = static_cast<double>(bits(x) >> 52) - 1023.0;
  }
  // Rows below 724 belong to [1/2, 1).
  double centred() const { return key < 724 ? e + 1 : e; }
  double minus_ln() const { return rest(mpfr_log, key / (key < 724 ? 512.0 : 1024.0), 0) * -1; }
};

double exp_2048(double t) {
  const double s = 6755399441055744.0, sum = std::fma(t, 2048 / 0x1.62e42fefa39efp-1, s);
  const double r = std::fma(-(sum - s), 0x1.62e42fefa39efp-1 / 2048, t);
  const double p = polynomial(r, {0.5, 1.0, 1.0});
  const auto n = static_cast<int64_t>(bits(sum) - bits(s));
  return std::ldexp(rest(mpfr_exp2, static_cast<double>(n & 2047) / 2048, 0) * p, static_cast<int>(n >> 11));
}
double ln_polynomial(double r) {
  return polynomial(r, {-0.2500003054940248, 0.33333333333308374, -0.49999999999988803});
}

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

double double_ep(double x, double y) {
  const Keyed k(x);
  const double head = std::fma(k.centred(), 0.6931471805582987, k.minus_ln()) + k.r;
  return exp_2048(y * (head + std::fma(k.centred(), 1.6465949582866463e-12, k.r * k.r * ln_polynomial(k.r))));
}

struct Parts {
  double head, tail;
};
// The row of the table of logarithms to base 2: a head on a grid of 2^-38, rest.
Parts log2_row(int key) {
  const double head = -on_grid(std::log2(key / 1024.0), 0x1p-38);
  return {head, -rest(mpfr_log2, key / 1024.0, -head)};
}
Parts sum_of(double a, double b) {  // |a| >= |b|
  const double s = a + b;
  return {s, b - (s - a)};
}

// 2^(y (log + log_low)): n/rows and the rest of the exponent.
struct Split {
  double f;
  int64_t n;
  Split(double y, double log, double log_low, double shifter) {
    const double product = y * log, low = std::fma(y, log_low, std::fma(y, log, -product));
    const double sum = (product + low) + shifter;
    f = (product - (sum - shifter)) + low;
    n = static_cast<int64_t>(bits(sum) - bits(shifter));
  }
};

double double_la(double x, double y) {
  const Keyed k(x);
  const Parts row = log2_row(k.key);
  const double q = k.r * 1.4426950408889634;
  const double q_low = std::fma(k.r, 2.0363441957695363e-17, std::fma(k.r, 1.4426950408889634, -q));
  const Parts log = sum_of(k.e + row.head, q);
  const double p = polynomial(k.r, {-0.24028965633949217, 0.28853932378999636, -0.3606737604030723, 0.48089834696286016,
                                    -1.4426950408889634 / 2});
  const Split t(y, log.head, std::fma(k.r * k.r, p, (log.tail + row.tail) + q_low), 0x1.8p44);
  // Fitted; to ten digits 0.0096181301, 0.0555041150, 0.2402265069, 0.6931471805.
  const double power = rest(mpfr_exp2, static_cast<double>(t.n & 255) / 256, 0);
  const double s =
      t.f * polynomial(t.f, {0x1.3b2ab6faffca4p-7, 0x1.c6b09030914bep-5, 0x1.ebfbdff82c5c2p-3, 0x1.62e42fefa39d9p-1});
  return std::ldexp(std::fma(power, s, power), static_cast<int>(t.n >> 8));
}

double double_ha(double x, double y) {
  const Keyed k(x);
  const Parts row = log2_row(k.key);
  const double c1 = 0x1.71547652b82fep0, c1_low = 0x1.777d0ffda0d24p-56, c2 = -c1 / 2;
  const double factor = std::fma(k.r, c2, c1), factor_low = std::fma(k.r, c2, c1 - factor) + c1_low;
  const double q = k.r * factor, q_low = std::fma(k.r, factor, -q);
  const Parts log = sum_of(k.e + row.head, q);
  const double p = polynomial(k.r, {0x1.a60b396adc872p-3, -0x1.ec70d5b99c9eap-3, 0x1.2776c50fe8ec7p-2,
                                    -0x1.71547652b756dp-2, 0x1.ec709dc3a03fdp-2});
  const double low = std::fma(k.r, std::fma(k.r * k.r, p, factor_low), (log.tail + row.tail) + q_low);
  const Split t(y, log.head, low, 0x1.8p45);
  const double i = static_cast<double>(t.n & 127) / 128;
  const double power = rest(mpfr_exp2, i, 0), power_low = rest(mpfr_exp2, i, power) / power;
  const double g = std::fma(t.f,
                            polynomial(t.f, {0x1.5d7dccaf127cep-10, 0x1.3b2ac01e3cf81p-7, 0x1.c6b08d70dde08p-5,
                                             0x1.ebfbdff82c24p-3, 0x1.62e42fefa39efp-1}),
                            power_low);
  return std::ldexp(std::fma(power, g, power), static_cast<int>(t.n >> 7));
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

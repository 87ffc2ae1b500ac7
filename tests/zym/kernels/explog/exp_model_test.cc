// The lanes of e^x against a scalar model of their steps, bit for bit.
#include <mpfr.h>

#include <cmath>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

float f32(uint32_t bits) { return std::bit_cast<float>(bits); }
uint32_t bits(float x) { return std::bit_cast<uint32_t>(x); }
uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }

// 2^(i/n) to the nearest double, and what it lacks relative to itself.
struct Row {
  double head, low;
};
Row row(int i, int n) {
  mpfr_t exact, rest;
  mpfr_inits2(200, exact, rest, static_cast<mpfr_ptr>(nullptr));
  mpfr_set_d(exact, static_cast<double>(i) / n, MPFR_RNDN);
  mpfr_exp2(exact, exact, MPFR_RNDN);
  const double head = mpfr_get_d(exact, MPFR_RNDN);
  mpfr_sub_d(rest, exact, head, MPFR_RNDN);
  mpfr_div_d(rest, rest, head, MPFR_RNDN);
  const double low = mpfr_get_d(rest, MPFR_RNDN);
  mpfr_clears(exact, rest, static_cast<mpfr_ptr>(nullptr));
  return {head, low};
}
double head(int i, int n) { return row(i, n).head; }

float exp_ep(float x) {
  const float s = 12582912.0f, t = std::fma(x, f32(0x3FB8AA3B), s);
  const float r = std::fma(-(t - s), f32(0x3F317218), x);
  float p = std::fma(f32(0x3E2963AC), r, f32(0x3F00F2D6));
  p = std::fma(p, r, f32(0x3F8003DE));
  p = std::fma(p, r, 1.0f);
  return f32(bits(p) + (bits(t) << 23));
}

float exp_la(float x) {
  const float s = 12582912.0f, t = std::fma(x, f32(0x3FB8AA3B), s), n = t - s;
  const float r = std::fma(-n, f32(0x35BFBE8E), std::fma(-n, f32(0x3F317200), x));
  float p = f32(0x3C07D9FE);
  for (uint32_t c : {0x3D2B8392u, 0x3E2AACACu, 0x3EFFFF34u, 0x3F7FFFFEu, 0x3F800000u}) p = std::fma(p, r, f32(c));
  return f32(bits(p) + (bits(t) << 23));
}

float exp_ha(float x) {
  const float heads[] = {1.0f, 1.1892071f, 1.4142135f, 1.6817929f};
  const uint32_t lows[] = {0, 0x33092801, 0x329302AE, 0xB27CE182};
  const float s = 12583420.0f, t = std::fma(x, f32(0x40B8AA3B), s), n = t - s;
  const float r = std::fma(-n, f32(0x3705FDF4), std::fma(-n, f32(0x3E317000), x));
  const uint32_t i = bits(t) & 3;
  const float scaled = heads[i] * f32((bits(t) << 21) & 0x7F800000u);
  float q = std::fma(f32(0x3D2ABB12), r, f32(0x3E2ABB12));
  q = std::fma(q, r, f32(0x3EFFFFFF));
  q = std::fma(q, r * r, f32(lows[i]));
  return std::fma(r + q, scaled, scaled);
}

double exp_ep(double x) {
  const double s = 6755399441055744.0, t = std::fma(x, 184.6649652337873, s), n = t - s;
  const double r = std::fma(-n, 0.0054152123481245725, x);
  const double p = std::fma(std::fma(0.49999908361121337, r, 1.0), r, 1.0);
  return std::bit_cast<double>(bits(head(static_cast<int>(bits(t) & 127), 128) * p) +
                               ((bits(t) << 45) & 0xFFF0000000000000u));
}

double exp_la(double x) {
  const double s = 6755399441055744.0, t = std::fma(x, 1477.3197218702985, s), n = t - s;
  const double r = std::fma(-n, 4.137227896298129e-13, std::fma(-n, 0.0006769015431018488, x));
  double p = std::fma(0.16666666666666669, r, 0.5000000035796539);
  p = std::fma(std::fma(p, r, 1.0), r, 1.0);
  return std::bit_cast<double>(bits(head(static_cast<int>(bits(t) & 1023), 1024) * p) +
                               ((bits(t) << 42) & 0xFFF0000000000000u));
}

double exp_ha(double x) {
  const double s = 6755399441055744.0, t = std::fma(x, 92.33248261689366, s), n = t - s;
  const double r = std::fma(-n, 2.572804622327669e-14, std::fma(-n, 0.010830424696223417, x));
  double q = std::fma(0.00833333416441411, r, 0.04166672368662385);
  q = std::fma(std::fma(q, r, 0.1666666666667797), r, 0.4999999999994775);
  const Row h = row(static_cast<int>(bits(t) & 63), 64);
  const double p = std::fma(r * r, q, r) + h.low;
  return std::bit_cast<double>(bits(std::fma(h.head, p, h.head)) + ((bits(t) << 46) & 0xFFF0000000000000u));
}

TEST(ExpModel, RowOneOfTheTableOfPairs) {
  EXPECT_EQ(row(1, 64).head, 1.0108892860517005);
  EXPECT_EQ(row(1, 64).low, -1.507066976926039e-17);
}

template <class E>
void compare(const std::string& name, int level, E (*model)(E), double low, double high) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> uniform(low, high);
  std::vector<E> x(40003), r(x.size());
  for (E& v : x) v = static_cast<E>(uniform(random));
  for (size_t i = 0; i < x.size(); i += 7)
    x[i] = static_cast<E>(std::ldexp(uniform(random) / high, -static_cast<int>(i % 60)));
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named(name), level, false, c));
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(bits(r[i]), bits(model(x[i]))) << name << " " << x[i];
}

TEST(ExpModel, FloatLanesHaveTheBitsOfTheirSteps) {
  compare<float>("sExp", 0, exp_la, -87.33, 87.33);
  compare<float>("sExp", 1, exp_ha, -87.33, 87.33);
  compare<float>("sExp", 2, exp_ep, -87.33, 87.33);
}

TEST(ExpModel, DoubleLanesHaveTheBitsOfTheirSteps) {
  compare<double>("dExp", 0, exp_la, -708.3, 708.3);
  compare<double>("dExp", 1, exp_ha, -708.3, 708.3);
  compare<double>("dExp", 2, exp_ep, -708.3, 708.3);
}

}  // namespace
}  // namespace orvik::test

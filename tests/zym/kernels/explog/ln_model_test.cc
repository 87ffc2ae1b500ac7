// The lanes of ln x against a scalar model of their steps, bit for bit.
#include <immintrin.h>

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

// 64 bits, EP, inputs in [1, 1.4): the table's rows there are the plain -ln(rc/1024).
double ln_ep(double x) {
  const double m = x * 0x1p-10;
  const double rc = std::nearbyint(static_cast<double>(_mm_cvtss_f32(_mm_rcp_ps(_mm_set1_ps(static_cast<float>(m))))));
  const double r = std::fma(rc, m, -1.0);
  const double p = std::fma(0.33333333333308374, r, -0.49999999999988803);
  const double table = rc == 1024 ? 0.0 : static_cast<double>(-std::log(static_cast<long double>(rc) / 1024));
  return (table + r) + r * r * p;
}

TEST(LnModel, DoubleLanesHaveTheBitsOfTheirStepsFromOneToTheRootOfTwo) {
  std::vector<double> x(8003), r(x.size());
  for (size_t i = 0; i < x.size(); ++i) x[i] = 1.0 + 0.4 * static_cast<double>(i) / static_cast<double>(x.size());
  Call<double> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named("dLn"), 2, false, c));
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(r[i], ln_ep(x[i])) << x[i];
}

}  // namespace
}  // namespace orvik::test

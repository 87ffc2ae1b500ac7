// The short form of the battery, with fixed seeds: some 230 p-values. One outside 10^-6 .. 1 - 10^-6 fails, which true
// random numbers would do once in 2,000 choices of seeds (the processor's own numbers, 21 of them, once in 24,000
// runs). And sources that are not random must fail.
#include "battery.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "orvik/qor.h"

namespace {

using namespace orvik::battery;

constexpr double kAlpha = 1e-6;
bool fails(double p) { return !(p > kAlpha && p < 1 - kAlpha); }

class BatteryTest : public ::testing::TestWithParam<Generator> {};

TEST_P(BatteryTest, RandomFormsPassEveryTestAndQuasiRandomOnesDoNot) {
  const Generator& g = GetParam();
  if (g.brng == ORVIK_BRNG_TRNG && !__qorCPUisRDRAND()) GTEST_SKIP() << "no hardware random instruction";
  for (const Form form : {Form::words, Form::floats, Form::doubles}) {
    int failed = 0, run = 0;
    for (const orvik::battery::Test& t : tests()) {
      Source source = make_source(g.brng, 20240607, form);
      if (!source.next) continue;
      const double p = t.run(source, t.size);
      ++run;
      failed += fails(p);
      if (!g.quasi) {
        EXPECT_FALSE(fails(p)) << name_of(form) << ", " << t.name << ": p = " << p;
      }
    }
    if (run > 0 && g.quasi) {
      EXPECT_GT(failed, 0) << name_of(form);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Statistical, BatteryTest, ::testing::ValuesIn(generators()),
                         [](const auto& info) { return info.param.name; });

// What one seed word leaves of R250: the low bits of a multiplicative generator.
TEST(Battery, RunsFindTheLowBitsOfR250SeededByOneWord) {
  OrvikStream stream = nullptr;
  const uint32_t seed = 20240607;
  ASSERT_EQ(__qorNewStreamEx(&stream, ORVIK_BRNG_R250, 1, &seed), 0);
  Source source = {32, [=] {
                     uint32_t w;
                     __qoriBRngR250(stream, 1, &w);
                     return w;
                   }};
  EXPECT_TRUE(fails(runs(source, 200000)));
  __qorDeleteStream(&stream);
}

double run(const char* name, Source source) {
  for (const orvik::battery::Test& t : tests())
    if (std::string(name) == t.name) return t.run(source, t.size);
  return NAN;
}

// A good source that a bad one is made of.
Source good() { return make_source(generators().back().brng, 5, Form::words); }

TEST(Battery, MonobitFindsARareBit) {
  Source s = good();
  EXPECT_TRUE(fails(run("monobit", {32, [=, i = 0]() mutable { return s.next() | (++i % 10 == 0); }})));
}

TEST(Battery, RunsFindStickyBits) {
  Source s = good();
  EXPECT_TRUE(fails(run("runs", {32, [=]() mutable {
                                   const uint32_t w = s.next();
                                   return w % 16 ? w : w | w << 1;
                                 }})));
}

TEST(Battery, SerialCorrelationFindsASlowSource) {
  Source s = good();
  EXPECT_TRUE(fails(run("serial correlation", {32, [=, last = 0u]() mutable {
                                                 const uint32_t w = s.next();
                                                 return last = w % 16 ? w : last;
                                               }})));
}

TEST(Battery, BirthdaySpacingsFindALattice) {
  EXPECT_TRUE(fails(run("birthday spacings", {32, [i = 0u]() mutable { return i++ * 0x9E3779B9u; }})));
}

TEST(Battery, CollisionFindsAnEvenSpread) {
  EXPECT_TRUE(fails(run("collision", {32, [i = 0u]() mutable { return (i++ * 0x9E3779B9u) >> 7 << 7; }})));
}

TEST(Battery, GapFindsSmallValuesInARow) {
  Source s = good();
  EXPECT_TRUE(fails(run("gap", {32, [=, low = 0]() mutable {
                                  const uint32_t w = s.next();
                                  if (low > 0 && w % 8 == 0) return low = 0, w >> 4;
                                  low = w < 0x20000000;
                                  return w;
                                }})));
}

TEST(Battery, MatrixRankFindsALinearBit) {
  Source s = good();
  EXPECT_TRUE(fails(run("matrix rank", {32, [=]() mutable {
                                          const uint32_t w = s.next();
                                          return (w & ~0x1000u) | ((w >> 31 ^ w >> 20) & 1) << 12;
                                        }})));
}

TEST(Battery, PValuesOfAGoodSourceAreSpreadOut) {
  for (const orvik::battery::Test& t : tests()) {
    std::set<int> tenths;
    double sum = 0;
    for (uint32_t seed = 0; seed < 40; ++seed) {
      Source s = make_source(generators().back().brng, seed, Form::words);
      const double p = t.run(s, t.size / 20 + 5);
      sum += p;
      tenths.insert(static_cast<int>(p * 10));
    }
    EXPECT_GE(tenths.size(), 8u) << t.name;
    EXPECT_NEAR(sum / 40, 0.5, 0.23) << t.name;  // five deviations of a mean of 40
  }
}

}  // namespace

// The short form of the battery, with fixed seeds: 126 p-values. One outside 10^-6 .. 1 - 10^-6 fails, which true
// random numbers would do once in 4,000 choices of seeds. And sources that are not random must fail every test made for
// them.
#include "battery.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace {

using namespace orvik::battery;

constexpr double kAlpha = 1e-6;
bool fails(double p) { return !(p > kAlpha && p < 1 - kAlpha); }

class BatteryTest : public ::testing::TestWithParam<Generator> {};

TEST_P(BatteryTest, EveryFormPassesEveryTest) {
  for (const Form form : {Form::words, Form::floats, Form::doubles})
    for (const orvik::battery::Test& t : tests()) {
      Source source = make_source(GetParam().brng, 20240607, form);
      ASSERT_TRUE(source.next);
      const double p = t.run(source, t.size);
      EXPECT_FALSE(fails(p)) << name_of(form) << ", " << t.name << ": p = " << p;
    }
}

INSTANTIATE_TEST_SUITE_P(Statistical, BatteryTest, ::testing::ValuesIn(generators()),
                         [](const auto& info) { return info.param.name; });

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

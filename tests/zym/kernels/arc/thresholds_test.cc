// Every place where a computation changes its branch, walked over by single steps: no result there is further from the
// exact one than the level allows; nor are flags raised that the exact result has no right to; nor do modes matter.
#include <cfenv>
#include <cmath>
#include <numbers>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

using Wide = long double;

struct Function {
  const char* name;
  Wide (*exact)(Wide);
  std::vector<double> thresholds, only_double;
};

const std::vector<Function>& functions() {
  const double ln2 = std::numbers::ln2, pi = std::numbers::pi;
  static const std::vector<Function> all = {
      {"Asin", std::asin, {0.5, -0.5, 1e-20}, {}},
      {"Acos", std::acos, {0.5, -0.5, 1e-20}, {}},
      {"Asinpi", [](Wide x) { return std::asin(x) / std::numbers::pi_v<Wide>; }, {0.5, -0.5, 0x1p-90}, {0x1p-944}},
      {"Acospi", [](Wide x) { return std::acos(x) / std::numbers::pi_v<Wide>; }, {0.5, -0.5, 0x1p-90}, {0x1p-944}},
      {"Atan",
       std::atan,
       {0.09375, 0.125, 0.1875, 0.25, 9.0 / 32, 0.375, 0.5, 0.75, 1, 1.5, 2, 3, 32.0 / 9, 4, 6, 8, 12, -1, 0x1p62},
       {}},
      {"Atanpi",
       [](Wide x) { return std::atan(x) / std::numbers::pi_v<Wide>; },
       {0.09375, 0.125, 0.25, 9.0 / 32, 0.5, 1, 1.5, 2, 32.0 / 9, 4, 6, 8, 12, -1, 0x1p62, 0x1p-90},
       {0x1p-944}},
      {"Cosh", std::cosh, {ln2 / 2, ln2 * 1.5, ln2 / 8, ln2 * 3 / 8, 55.45, 80 * ln2, 87}, {708, 709.78}},
      {"Sinh", std::sinh, {ln2 / 2, ln2 * 1.5, ln2 / 8, ln2 * 3 / 8, 55.45, 80 * ln2, 87}, {708, 709.78}},
      {"Tanh", std::tanh, {ln2 / 4, ln2 * 3 / 4, ln2 / 16, ln2 * 3 / 16, 9.01, 10}, {19.06, 20}},
      {"Asinh",
       std::asinh,
       {5.0 / 12, 4.0 / 3, std::sinh(0.5), std::sinh(0.5 + ln2), std::sqrt(0.125), 1.06066, 3.5 * std::sqrt(0.125),
        1.0 / 16, -1.0 / 16, 0x1p26, 0x1p30, 0x1p60, 0x1p63, -0x1p63, 0x1p90, 0x1p125, 0x1p127},
       {0x1p53, 0x1p500, 0x1p900, 0x1p1021, 0x1p1023}},
      {"Acosh",
       std::acosh,
       {13.0 / 12, 5.0 / 3, std::cosh(0.5), std::cosh(0.5 + ln2), 1.06066, std::cosh(1.5 * ln2), 2, 3, 0x1p26, 0x1p30,
        0x1p60, 0x1p63, 0x1p90, 0x1p125, 0x1p127},
       {0x1p53, 0x1p500, 0x1p900, 0x1p1021, 0x1p1023}},
      {"Atanh", std::atanh, {0.1716, 0.2, 0.4714, 0.5, 0.48, 1 - 0x1p-22}, {1 - 0x1p-21}},
      {"Atan", std::atan, {std::tan(pi / 8)}, {}},
  };
  return all;
}

template <class E>
std::vector<E> around(const Function& f, int steps) {
  std::vector<double> thresholds = f.thresholds;
  if (sizeof(E) == 8) thresholds.insert(thresholds.end(), f.only_double.begin(), f.only_double.end());
  std::vector<E> x;
  for (double t : thresholds) {
    E at = static_cast<E>(t);
    for (int i = 0; i < steps; ++i) at = std::nextafter(at, -std::numeric_limits<E>::infinity());
    for (int i = 0; i < 2 * steps; ++i) {
      x.push_back(at);
      at = std::nextafter(at, std::numeric_limits<E>::infinity());
    }
  }
  return x;
}

template <class E>
std::vector<E> run(const char* name, int level, const std::vector<E>& x) {
  std::vector<E> r(x.size());
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  EXPECT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
  return r;
}

template <class E>
void walk() {
  for (const Function& f : functions()) {
    const std::vector<E> x = around<E>(f, 2000);
    for (int level = 0; level < 3; ++level) {
      const std::vector<E> r = run<E>(f.name, level, x);
      double worst = 0;
      E at = 0;
      for (size_t i = 0; i < x.size(); ++i) {
        const Wide want = f.exact(static_cast<Wide>(x[i]));
        if (!std::isfinite(want)) continue;  // outside the domain
        const E rounded = std::fabs(static_cast<E>(want));
        const Wide ulp =
            static_cast<Wide>(std::nextafter(rounded, std::numeric_limits<E>::infinity())) - static_cast<Wide>(rounded);
        const Wide unit = level == 2 ? std::fabs(want) * (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) : ulp;
        const auto error = static_cast<double>(std::fabs(static_cast<Wide>(r[i]) - want) / unit);
        if (!(error <= worst)) worst = error, at = x[i];
      }
      EXPECT_LE(worst, level == 1   ? 0.6
                       : level == 0 ? 4
                                    : 1)
          << row_of<E>(f.name) << " " << kLevelNames[level] << " at " << at;
    }
  }
}

TEST(ArcThresholds, NoJumpInFloats) { walk<float>(); }
TEST(ArcThresholds, NoJumpInDoubles) { walk<double>(); }

// Points beside the rays where the branch changes, in every quadrant.
template <class E>
void walk_rays() {
  for (double slope : {9.0 / 32, 1.0, 32.0 / 9}) {
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
      const E sx = quadrant % 2 == 0 ? E(1) : E(-1), sy = quadrant < 2 ? E(1) : E(-1);
      for (E x : {E(1), E(0x1.921fb6p3), E(0x1p-37), E(0x1.fp36)}) {
        E y = static_cast<E>(slope * static_cast<double>(x));
        for (int i = 0; i < 20; ++i) y = std::nextafter(y, E(0));
        std::vector<E> a, b, r(40);
        for (int i = 0; i < 40; ++i) {
          a.push_back(sy * y);
          b.push_back(sx * x);
          y = std::nextafter(y, std::numeric_limits<E>::infinity());
        }
        for (const char* name : {"Atan2", "Atan2pi"}) {
          for (int level = 0; level < 3; ++level) {
            Call<E> c;
            c.n = 40, c.a = a.data(), c.b = b.data(), c.r1 = r.data();
            ASSERT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
            for (size_t i = 0; i < 40; ++i) {
              const Wide angle = std::atan2(static_cast<Wide>(a[i]), static_cast<Wide>(b[i]));
              const Wide want = name == std::string("Atan2") ? angle : angle / std::numbers::pi_v<Wide>;
              const E rounded = std::fabs(static_cast<E>(want));
              const Wide ulp = static_cast<Wide>(std::nextafter(rounded, E(10))) - static_cast<Wide>(rounded);
              const Wide unit = level == 2 ? std::fabs(want) * (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L) : ulp;
              EXPECT_LE(std::fabs(static_cast<Wide>(r[i]) - want) / unit, level == 1   ? 0.6
                                                                          : level == 0 ? 4
                                                                                       : 1)
                  << row_of<E>(name) << " " << kLevelNames[level] << " of " << a[i] << ", " << b[i];
            }
          }
        }
      }
    }
  }
}
TEST(ArcThresholds, NoJumpAcrossRaysInAnyQuadrant) {
  walk_rays<float>();
  walk_rays<double>();
}

// Flags other than inexact: none for normal results of finite arguments.
template <class E>
void expect_no_flags() {
  using L = std::numeric_limits<E>;
  for (const Function& f : functions()) {
    std::vector<E> x = around<E>(f, 20);
    const bool from_one = f.name == std::string("Acosh");
    const bool half_turns = f.name == std::string("Asinpi") || f.name == std::string("Atanpi");
    for (E m = from_one ? E(1) : half_turns ? 8 * L::min() : L::min(); m < E(0.9); m *= E(3.7))
      x.push_back(m), x.push_back(-m);
    if (!from_one) x.push_back(E(0)), x.push_back(E(-0.0));
    for (int level = 0; level < 3; ++level) {
      for (E each : x) {
        if (!std::isfinite(f.exact(static_cast<Wide>(each)))) continue;
        const std::vector<E> one(1, each);
        std::feclearexcept(FE_ALL_EXCEPT);
        run<E>(f.name, level, one);
        // The smallest normal results may be seen as tiny before they are rounded.
        EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW), 0)
            << row_of<E>(f.name) << " " << kLevelNames[level] << "(" << each << ")";
      }
    }
  }
}
TEST(ArcFlags, NoneButInexactOfNormalResultsInFloats) { expect_no_flags<float>(); }
TEST(ArcFlags, NoneButInexactOfNormalResultsInDoubles) { expect_no_flags<double>(); }

TEST(ArcFlags, DomainErrorsRaiseInvalidAndPolesDivideByZero) {
  const struct {
    const char* name;
    float x;
    int flag;
  } cases[] = {{"Asin", 2, FE_INVALID},    {"Acos", -2, FE_INVALID},   {"Asinpi", 2, FE_INVALID},
               {"Acospi", 2, FE_INVALID},  {"Acosh", 0, FE_INVALID},   {"Atanh", 2, FE_INVALID},
               {"Atanh", 1, FE_DIVBYZERO}, {"Cosh", 100, FE_OVERFLOW}, {"Sinh", -100, FE_OVERFLOW}};
  for (const auto& [name, x, flag] : cases) {
    for (int level = 0; level < 3; ++level) {
      const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
      std::feclearexcept(FE_ALL_EXCEPT);
      run<float>(name, level, {x});
      EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), flag) << name;
      _zymSetMode(mode);
    }
  }
}

// With reports off the cheap repairs serve: the same results.
template <class E>
void expect_repair_agrees() {
  using L = std::numeric_limits<E>;
  const std::vector<E> x = {L::infinity(), E(1.5), -L::infinity(), L::quiet_NaN(), E(89),  E(-89),
                            E(90),         E(-90), L::max(),       -L::max(),      E(709), E(710.4),
                            E(-711),       E(2),   E(0.5),         E(-0.0),        E(1)};
  for (const char* name :
       {"Asin", "Acos", "Asinpi", "Acospi", "Atan", "Atanpi", "Cosh", "Sinh", "Tanh", "Asinh", "Acosh", "Atanh"}) {
    for (int level = 0; level < 3; ++level) {
      const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
      const std::vector<E> with = run<E>(name, level, x);
      _zymSetMode(ZYM_ERRMODE_NOERR);
      const std::vector<E> without = run<E>(name, level, x);
      _zymSetMode(mode);
      for (size_t i = 0; i < x.size(); ++i)
        EXPECT_TRUE(same_value(with[i], without[i])) << row_of<E>(name) << "(" << x[i] << ")";
    }
  }
}
TEST(ArcModes, ResultsWithoutErrorHandlingAreThoseWithIt) {
  expect_repair_agrees<float>();
  expect_repair_agrees<double>();
}

template <class E>
void expect_flushed() {
  using L = std::numeric_limits<E>;
  const uint32_t mode = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (const char* name : {"Asin", "Atan", "Asinpi", "Atanpi", "Sinh", "Tanh", "Asinh", "Atanh"}) {
    for (int level = 0; level < 3; ++level) {
      const std::vector<E> r = run<E>(name, level, {L::denorm_min(), -L::min() / 2});
      EXPECT_EQ(r[0], 0) << row_of<E>(name);
      EXPECT_EQ(r[1], 0) << row_of<E>(name);
    }
  }
  _zymSetMode(mode);
}
TEST(ArcModes, DenormalsReadAsZeroWhereTheModeSaysSo) {
  expect_flushed<float>();
  expect_flushed<double>();
}

}  // namespace
}  // namespace orvik::test

// Every place where a computation changes its branch or its interval, walked over by single steps: no result there is
// further from the exact one than the level allows. With reports off, and with denormals flushed.
#include <cmath>

#include "support/row_calls.h"
#include "zym/kernels/error/exact.h"

namespace orvik::test {
namespace {

std::vector<double> thresholds(const std::string& name) {
  std::vector<double> x;
  const auto both = [&](double a) { x.push_back(a), x.push_back(-a); };
  if (name == "Erf") {
    for (int i = 0; i < 8; ++i) both(0.2 + 0.4 * i), both(0.5 * i), both(17.0 / 64 * (2 * i + 1));
    for (int i : {0, 1, 2, 63, 200, 500, 767}) both((2 * i + 1) / 256.0);
    for (double last : {2.98223, 3.95, 3.98, 3.92, 5.93, 6.0, 1e-20}) both(last);
    return x;
  }
  const double unit = name == "CdfNorm" ? std::sqrt(2) : 1;
  for (int octave = 1; octave < 16; octave *= 2) {
    both((octave - 1) / 1.4865539 * unit), both((1.5 * octave - 1) / 1.4865539 * unit);  // of floats
  }
  for (int i : {0, 1, 40, 300, 900, 1280}) both((2 * i + 1) / 256.0 * unit);
  for (double z : {10.05, 25.7, 3.8325069, 5.92, 1e-30, 0x1p-30, 0x1p-100}) both(z * unit);
  if (name == "CdfNorm") both(36.3), both(14.2), both(5.419983), both(8.3);
  if (name == "Erfcx") {
    for (int octave = 1; octave < 32; octave *= 2) {
      for (int i : {0, 1, 9, 37}) both(octave * (1 + i / 64.0) - 1);
    }
    for (double last : {26.5, 30.9, 31.0, 0x1p60, 1e30}) x.push_back(last);
    x.push_back(-26.5), x.push_back(-9.38);
  }
  return x;
}

template <class E>
std::vector<E> around(const std::string& name, int steps) {
  std::vector<E> x;
  for (double t : thresholds(name)) {
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
std::vector<E> run(const std::string& name, int level, const std::vector<E>& x) {
  std::vector<E> r(x.size());
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  EXPECT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
  return r;
}

template <class E>
void walk() {
  using L = std::numeric_limits<E>;
  for (const ErrorFunction& f : kErrorFunctions) {
    const std::vector<E> x = around<E>(f.name, 1000);
    std::vector<Extended> want;
    for (E each : x) want.push_back(f.exact(static_cast<Extended>(each)));
    for (int level = 0; level < 3; ++level) {
      const std::vector<E> r = run<E>(f.name, level, x);
      const bool one_kernel = f.name == std::string("Erfcx");
      Extended worst = 0;
      E at = 0;
      for (size_t i = 0; i < x.size(); ++i) {
        if (want[i] >= static_cast<Extended>(L::max())) {
          EXPECT_TRUE(std::isinf(r[i]) || r[i] == L::max()) << row_of<E>(f.name) << " at " << x[i];
          continue;
        }
        // 11 or 26 bits, of results that have them.
        const Extended few = std::fabs(want[i]) * (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L);
        const Extended error = level != 2 || one_kernel
                                   ? units_off(r[i], want[i])
                                   : std::fabs(static_cast<Extended>(r[i]) - want[i]) /
                                         std::fmax(few, static_cast<Extended>(L::denorm_min()));
        if (!(error <= worst)) worst = error, at = x[i];
      }
      EXPECT_LE(worst, level == 1 || one_kernel ? 0.75L : level == 0 ? 4.0L : 1.0L)
          << row_of<E>(f.name) << " " << kLevelNames[level] << " at " << at;
    }
  }
}
TEST(ErrorThresholds, NoJumpInFloats) { walk<float>(); }
TEST(ErrorThresholds, NoJumpInDoubles) { walk<double>(); }

template <class E>
void expect_repair_agrees() {
  using L = std::numeric_limits<E>;
  const std::vector<E> x = {L::infinity(), -L::infinity(), L::quiet_NaN(), L::max(), -L::max(), E(10.1), E(-10.1),
                            E(11),         E(-15),         E(15),          E(-15.1), E(26),     E(-26),  E(27.1),
                            E(27.3),       E(-38.4),       E(-38.7),       E(39.5),  E(-39.5),  E(0.5),  E(-0.0)};
  for (const ErrorFunction& f : kErrorFunctions) {
    for (int level = 0; level < 3; ++level) {
      const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
      const std::vector<E> with = run<E>(f.name, level, x);
      _zymSetMode(ZYM_ERRMODE_NOERR);
      const std::vector<E> without = run<E>(f.name, level, x);
      _zymSetMode(mode);
      for (size_t i = 0; i < x.size(); ++i) {
        EXPECT_TRUE(same_value(with[i], without[i])) << row_of<E>(f.name) << "(" << x[i] << ")";
      }
    }
  }
}
TEST(ErrorModes, ResultsWithoutErrorHandlingAreThoseWithIt) {
  expect_repair_agrees<float>();
  expect_repair_agrees<double>();
}

template <class E>
void expect_flushed() {
  using L = std::numeric_limits<E>;
  const uint32_t mode = _zymSetMode(ZYM_FLUSH_DENORMALS);
  for (int level = 0; level < 3; ++level) {
    const std::vector<E> tiny = {L::denorm_min(), -L::min() / 2};
    for (E r : run<E>("Erf", level, tiny)) EXPECT_EQ(r, 0);
    const E few = level == 2 && sizeof(E) == 4 ? E(0x1p-11) : E(0);
    for (E r : run<E>("Erfc", level, tiny)) EXPECT_NEAR(r, 1, few);
    for (E r : run<E>("Erfcx", level, tiny)) EXPECT_EQ(r, 1);
    for (E r : run<E>("CdfNorm", level, tiny)) EXPECT_NEAR(r, E(0.5), few);
    // Denormal results.
    EXPECT_EQ(run<E>("Erfc", level, {sizeof(E) == 4 ? E(9.8) : E(27.1)})[0], 0);
    EXPECT_EQ(run<E>("CdfNorm", level, {sizeof(E) == 4 ? E(-13.9) : E(-38.3)})[0], 0);
    EXPECT_EQ(run<E>("Erfcx", level, {L::max()})[0], 0);
    if (sizeof(E) == 8) {  // +0 also where the lower of two parts is negative
      EXPECT_TRUE(same_value(run<E>("Erfc", level, {E(26.62718287571304)})[0], E(0)));
      EXPECT_TRUE(same_value(run<E>("CdfNorm", level, {E(-37.92977999999999)})[0], E(0)));
    }
  }
  _zymSetMode((mode & ~uint32_t{0x3C0000}) | 0x140000);
}
TEST(ErrorModes, DenormalsAreZeroWhereTheModeSaysSo) {
  expect_flushed<float>();
  expect_flushed<double>();
}

}  // namespace
}  // namespace orvik::test

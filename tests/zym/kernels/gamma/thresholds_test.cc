// Every place where a computation changes its branch or its row, walked over by single steps: no result there is
// further from the exact one than the level allows.
#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

using Wide = long double;

template <class E>
void steps_around(double t, int steps, std::vector<E>& x) {
  E at = static_cast<E>(t);
  for (int i = 0; i < steps; ++i) at = std::nextafter(at, -std::numeric_limits<E>::infinity());
  for (int i = 0; i < 2 * steps; ++i) {
    x.push_back(at);
    at = std::nextafter(at, std::numeric_limits<E>::infinity());
  }
}

// Borders of the rows about the multiples of 1/4, the poles, the ends of the rows and of the formulas behind them.
template <class E>
std::vector<E> arguments(bool logarithm) {
  std::vector<E> x;
  for (int i = -2 * 184; i <= 2 * 40; ++i) {
    const double border = 0.25 * i + 0.125;
    if (border > -44) steps_around<E>(border, 20, x), steps_around<E>(border - 0.125, 20, x);
  }
  for (double t : {35.0, 35.04, -35.0, -43.0, -43.5, 16.0, 0x1p-100, -0x1p-100, 0x1p-60, 1e-30, -1e-30, 1.0, 2.0})
    steps_around<E>(t, 500, x);
  if (sizeof(E) == 8) {
    for (double t : {64.0, 128.0, 171.624, -64.0, -127.5, -128.0, -129.0, -170.5, -183.5, 0x1p-1022, -0x1p-1022})
      steps_around<E>(t, 500, x);
  }
  if (logarithm) {
    for (double t : {0x1p20, 0x1p24, 1e10, 0x1p60, 1e30, -1000.5, -65536.25}) steps_around<E>(t, 500, x);
    if (sizeof(E) == 8) {
      for (double t : {0x1p52, 0x1p53, 0x1p54, 1e300, -0x1p51}) steps_around<E>(t, 500, x);
    }
  }
  return x;
}

template <class E>
void walk(const char* name, Wide (*exact)(Wide), const std::vector<E>& x, bool logarithm) {
  for (int level = 0; level < 3; ++level) {
    std::vector<E> r(x.size());
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    const uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
    ASSERT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
    _zymSetMode(mode);
    double worst = 0;
    E at = 0;
    for (size_t i = 0; i < x.size(); ++i) {
      const Wide want = exact(static_cast<Wide>(x[i]));
      if (!std::isfinite(want) || std::fabs(want) > static_cast<Wide>(std::numeric_limits<E>::max())) continue;
      E size = std::fabs(static_cast<E>(want));
      if (logarithm) size = std::fmax(size, E(x[i] > 0 ? 0x1p-8 : 0x1p-3));
      const Wide ulp =
          static_cast<Wide>(std::nextafter(size, std::numeric_limits<E>::infinity())) - static_cast<Wide>(size);
      const auto error = static_cast<double>(std::fabs(static_cast<Wide>(r[i]) - want) / ulp);
      if (!(error <= worst)) worst = error, at = x[i];
    }
    // Denormal results of doubles are rounded twice; all others are within 0.55.
    const bool own = row_named(row_of<E>(name)).function == "LGamma" ? sizeof(E) == 4 : sizeof(E) == 8;
    const double bound = !own || level == 1 ? 0.76 : level == 0 || name == std::string("TGamma") ? 4 : 0x1p13;
    EXPECT_LE(worst, bound) << row_of<E>(name) << " " << kLevelNames[level] << " at " << show(at);
  }
}

// The sign changes at every pole; the C library's long double gamma function is good to a few of its own last places.
Wide exact_gamma(Wide x) { return std::tgamma(x); }
Wide exact_log_gamma(Wide x) { return std::lgamma(x); }

TEST(GammaThresholds, NoJumpOfTGammaInFloats) { walk("TGamma", exact_gamma, arguments<float>(false), false); }
TEST(GammaThresholds, NoJumpOfTGammaInDoubles) { walk("TGamma", exact_gamma, arguments<double>(false), false); }
TEST(GammaThresholds, NoJumpOfLGammaInFloats) { walk("LGamma", exact_log_gamma, arguments<float>(true), true); }
TEST(GammaThresholds, NoJumpOfLGammaInDoubles) { walk("LGamma", exact_log_gamma, arguments<double>(true), true); }

// Where the smallest of the factorials of negative numbers still count, and where none does.
TEST(GammaThresholds, DoublesBesideThePolesDownToMinus184) {
  std::vector<double> x;
  for (int pole = -184; pole < -160; ++pole) steps_around<double>(pole, 200, x);
  walk("TGamma", exact_gamma, x, false);
}

}  // namespace
}  // namespace orvik::test

// The chi-square helpers over 10^-3 to 10^7 degrees and tails of any size, against MPFR. Prints the worst errors.
#include <gtest/gtest.h>
#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "orvik/ss.h"
#include "qor/ss/chi_square.h"

namespace orvik::ss::test {
namespace {

class Number {
 public:
  explicit Number(mpfr_prec_t bits) { mpfr_init2(v_, bits); }
  ~Number() { mpfr_clear(v_); }
  Number(const Number&) = delete;
  Number& operator=(const Number&) = delete;
  operator mpfr_ptr() { return v_; }

 private:
  mpfr_t v_;
};

// Errors of both parts and of the inverse at x, by the series of the lower part: all its terms are positive, and the
// upper part is what it leaves of 1, in as many more bits as that is small.
class Exact {
 public:
  Exact(double k, double x)
      : bits_(160 + static_cast<mpfr_prec_t>(1.5 * std::min(std::fabs(k / 2 * std::log(x / k) - (x - k) / 2), 1e3))),
        below_(bits_),
        above_(bits_),
        head_(bits_),
        work_(bits_) {
    Number a(bits_), y(bits_), term(bits_), sum(bits_);
    mpfr_set_d(a, k, MPFR_RNDN), mpfr_div_2ui(a, a, 1, MPFR_RNDN);
    mpfr_set_d(y, x, MPFR_RNDN), mpfr_div_2ui(y, y, 1, MPFR_RNDN);
    // x^a e^-x / Gamma(a).
    mpfr_log(head_, y, MPFR_RNDN), mpfr_mul(head_, head_, a, MPFR_RNDN), mpfr_sub(head_, head_, y, MPFR_RNDN);
    mpfr_lngamma(work_, a, MPFR_RNDN);
    mpfr_sub(head_, head_, work_, MPFR_RNDN), mpfr_exp(head_, head_, MPFR_RNDN);
    mpfr_set_ui(term, 1, MPFR_RNDN), mpfr_set_ui(sum, 1, MPFR_RNDN);
    Number over(bits_);
    mpfr_set(over, a, MPFR_RNDN);
    for (int n = 0;; ++n) {
      mpfr_add_ui(over, over, 1, MPFR_RNDN);
      mpfr_mul(term, term, y, MPFR_RNDN), mpfr_div(term, term, over, MPFR_RNDN);
      mpfr_add(sum, sum, term, MPFR_RNDN);
      if (mpfr_cmp(over, y) > 0 && mpfr_get_exp(term) < mpfr_get_exp(sum) - bits_) break;
    }
    mpfr_mul(below_, head_, sum, MPFR_RNDN), mpfr_div(below_, below_, a, MPFR_RNDN);
    mpfr_ui_sub(above_, 1, below_, MPFR_RNDN);
  }

  double below() { return mpfr_get_d(below_, MPFR_RNDN); }
  double above() { return mpfr_get_d(above_, MPFR_RNDN); }
  double error_below(double got) { return relative(got, below_); }
  double error_above(double got) { return relative(got, above_); }
  // How far x is from where the lower part is p, in units of x: the head is the slope over ln x.
  double error_inverse(double p) {
    mpfr_sub_d(work_, below_, p, MPFR_RNDN), mpfr_div(work_, work_, head_, MPFR_RNDN);
    return mpfr_get_d(work_, MPFR_RNDN);
  }

 private:
  double relative(double got, mpfr_ptr exact) {
    mpfr_d_sub(work_, got, exact, MPFR_RNDN), mpfr_div(work_, work_, exact, MPFR_RNDN);
    return mpfr_get_d(work_, MPFR_RNDN);
  }

  mpfr_prec_t bits_;
  Number below_, above_, head_, work_;
};

struct Worst {
  const char* of;
  double error = 0, k = 0, at = 0;

  void add(double e, double degrees, double where) {
    if (!(std::fabs(e) <= error)) error = std::fabs(e), k = degrees, at = where;
  }
  void check(double bound) const {
    std::printf("%s: worst error %.3g, %.17g degrees, at %.17g\n", of, error, k, at);
    EXPECT_LE(error, bound) << of << ", " << k << " degrees, at " << at;
  }
};

// Of each test; more by the environment.
int points() {
  const char* given = std::getenv("ORVIK_SWEEP_POINTS");
  return given != nullptr ? std::atoi(given) : 3000;
}
constexpr double kSmallest = 1e-295;  // below, tails and roots come near the end of the range

struct Sweep {
  std::mt19937_64 engine{20};
  double uniform(double low, double high) { return std::uniform_real_distribution<double>(low, high)(engine); }
  double power_of_ten(double low, double high) { return std::pow(10, uniform(low, high)); }
  // Whole numbers and others.
  double degrees() {
    const double k = power_of_ten(-3, 7);
    return k > 1 && engine() % 2 == 0 ? std::round(k) : k;
  }
};

TEST(ChiSquareSweep, TailsOfTenMillionDegreesAndFewer) {
  Sweep sweep;
  const int count = points();
  Worst below{"lower tail"}, above{"upper tail"};
  for (int point = 0; point < count; ++point) {
    const double k = sweep.degrees(), spread = std::sqrt(2 * k);
    double x = 0;
    switch (point % 5) {
      case 0:
        x = k + spread * sweep.uniform(-6, 6);
        break;
      case 1:
        x = k + spread * sweep.uniform(-37, 50);
        break;
      case 2:
        x = k * sweep.uniform(0.2, 2);
        break;
      case 3:
        x = sweep.power_of_ten(-300, 3.1);
        break;
      default:  // about the borders of the series
        x = (sweep.engine() % 2 == 0 ? k : 2) * (1 + sweep.uniform(-1e-3, 1e-3));
    }
    if (!(x > 0) || std::fabs(k * std::log(x / k) - (x - k)) > 1360) continue;
    Exact exact(k, x);
    if (exact.below() > kSmallest) below.add(exact.error_below(chi_square_below(k, x)), k, x);
    if (exact.above() > kSmallest) above.add(exact.error_above(chi_square_above(k, x)), k, x);
  }
  below.check(1e-15);
  above.check(1e-15);
}

TEST(ChiSquareSweep, InverseOfProbabilitiesOfAnySize) {
  Sweep sweep;
  const int count = points();
  Worst inverse{"inverse"};
  for (int point = 0; point < count; ++point) {
    const double k = sweep.degrees();
    const double p = point % 3 == 0   ? sweep.uniform(0, 1)
                     : point % 3 == 1 ? sweep.power_of_ten(-307, 0)
                                      : 1 - sweep.power_of_ten(-16, 0);
    const double x = chi_square_quantile(p, k);
    if (!(p > 0 && p < 1) || x < kSmallest) continue;
    inverse.add(Exact(k, x).error_inverse(p), k, p);
  }
  inverse.check(1e-15);
}

}  // namespace
}  // namespace orvik::ss::test

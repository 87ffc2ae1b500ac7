// Cross-checks with independent libraries where the definitions coincide: GSL (natural, periodic, Akima splines and the
// linear one) and Boost.Math (monotone and barycentric-free cubic Hermite from given slopes).
#include <gsl/gsl_spline.h>

#include <boost/math/interpolators/cubic_hermite.hpp>
#include <memory>

#include "df/fit.h"

namespace orvik::df::test {
namespace {

struct GslSpline {
  gsl_spline* spline;
  gsl_interp_accel* accelerator = gsl_interp_accel_alloc();
  GslSpline(const gsl_interp_type* type, const std::vector<double>& x, const std::vector<double>& y)
      : spline(gsl_spline_alloc(type, x.size())) {
    gsl_spline_init(spline, x.data(), y.data(), x.size());
  }
  ~GslSpline() {
    gsl_spline_free(spline);
    gsl_interp_accel_free(accelerator);
  }
  double value(double t) const { return gsl_spline_eval(spline, t, accelerator); }
  double slope(double t) const { return gsl_spline_eval_deriv(spline, t, accelerator); }
  double bend(double t) const { return gsl_spline_eval_deriv2(spline, t, accelerator); }
};

struct Comparison {
  const char* name;
  const gsl_interp_type* peer;
  Construct construct;
  int64_t order, type, bc_type;
  bool periodic;
};

class GslTest : public ::testing::TestWithParam<int64_t> {};

// GSL's Akima spline continues slopes beyond its ends in another way: the two outer intervals on each side differ.
TEST_P(GslTest, SplinesAgreeInValueSlopeAndBend) {
  using E = Entries<double>;
  const int64_t nx = GetParam();
  const Comparison comparisons[] = {{"linear", gsl_interp_linear, E::linear, 2, 0, 0, false},
                                    {"natural", gsl_interp_cspline, E::natural, 4, 2, 2, false},
                                    {"periodic", gsl_interp_cspline_periodic, E::natural, 4, 2, 64, true},
                                    {"akima", gsl_interp_akima, E::akima, 4, 4, 0, false}};
  for (const Comparison& c : comparisons) {
    auto x = ragged_partition<double>(nx);
    auto y = random_values<double>(nx);
    if (c.periodic) y.back() = y.front();
    const GslSpline peer(c.peer, x, y);
    Fit<double> fit(x, y);
    fit.order = c.order, fit.type = c.type, fit.bc_type = c.bc_type;
    ASSERT_EQ(fit.construct(c.construct), 0);
    const bool akima = std::string(c.name) == "akima";
    std::vector<double> sites;
    const size_t first = akima ? 2 : 0, last = static_cast<size_t>(nx) - (akima ? 4 : 2);
    for (size_t i = first; i <= last; ++i) {
      for (double part : {0.125, 0.5, 0.8125}) sites.push_back(x[i] + part * (x[i + 1] - x[i]));
    }
    const int64_t n = static_cast<int64_t>(sites.size());
    const int32_t orders[] = {1, 1, 1};
    std::vector<double> r(sites.size() * 3);
    ASSERT_EQ(E::interpolate(fit.task, 1, 0, n, sites.data(), 0, 3, orders, nullptr, r.data(), 16, nullptr, nullptr,
                             nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              0);
    for (size_t j = 0; j < sites.size(); ++j) {
      ASSERT_NEAR(r[3 * j], peer.value(sites[j]), 1e-11) << c.name << " " << sites[j];
      ASSERT_NEAR(r[3 * j + 1], peer.slope(sites[j]), 1e-9) << c.name << " " << sites[j];
      ASSERT_NEAR(r[3 * j + 2], peer.bend(sites[j]), 1e-7) << c.name << " " << sites[j];
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, GslTest, ::testing::Values(6, 40, 1500, 5000));

// A cubic Hermite interpolant is its values and slopes: Boost.Math evaluates ours from the slopes that we give it.
TEST(BoostTest, EveryCubicKindIsTheHermiteInterpolantOfItsSlopes) {
  for (const auto& kind : cubic_kinds<double>()) {
    if (std::string(kind.name) == "Default") continue;  // its slopes need not be continuous
    const int64_t nx = 200;
    Fit<double> fit(ragged_partition<double>(nx), random_values<double>(nx));
    fit.order = kind.order, fit.type = kind.type;
    fit.ic = random_values<double>(nx, 3);
    ASSERT_EQ(fit.construct(kind.construct), 0);
    std::vector<double> slopes;
    for (int64_t i = 0; i + 1 < nx; ++i) slopes.push_back(fit.coefficients(i)[1]);
    slopes.push_back(static_cast<double>(fit.at(nx - 2, fit.h(nx - 2), 1)));
    auto x = fit.x;
    auto y = fit.y;
    boost::math::interpolators::cubic_hermite<std::vector<double>> peer(std::move(x), std::move(y), std::move(slopes));
    for (int64_t i = 0; i + 1 < nx; ++i) {
      for (double part : {0.25, 0.5, 0.75}) {
        const double t = fit.x[size_t(i)] + part * (fit.x[size_t(i) + 1] - fit.x[size_t(i)]);
        ASSERT_NEAR(static_cast<double>(fit.at(i, static_cast<long double>(t) - fit.x[size_t(i)])), peer(t), 1e-11)
            << kind.name;
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test

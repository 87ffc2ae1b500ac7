// All cubic kinds: interpolation, reproduction of polynomials; the default kind.
#include "df/fit.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructCubicTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructCubicTest, Reals);

TYPED_TEST(ConstructCubicTest, EveryCubicPassesThroughItsPointsWithAContinuousSlope) {
  for (const auto& kind : cubic_kinds<TypeParam>()) {
    for (int64_t xhint : {1, 4}) {
      for (int64_t bc_type : kAllEnds) {
        for (int64_t nx : {5, 6, 37, 300}) {
          auto fit = legal_fit(kind, nx, 2, bc_type, xhint);
          // The default kind has a continuous slope only for second derivatives that belong together.
          const bool smooth = std::string(kind.name) != "Default";
          ASSERT_EQ(fit->construct(kind.construct), 0);
          const long double tol = kTolerance<TypeParam> * 200;
          for (int64_t f = 0; f < 2; ++f) {
            for (int64_t i = 0; i + 1 < nx; ++i) {
              const auto y = [&](int64_t k) { return fit->y[size_t(f * nx + k)]; };
              ASSERT_EQ(fit->at(i, 0, 0, f), y(i));
              ASSERT_NEAR(fit->at(i, fit->h(i), 0, f), y(i + 1), tol) << kind.name << bc_type << " " << nx << " " << i;
              if (!smooth || i + 2 == nx) continue;
              ASSERT_NEAR(fit->at(i, fit->h(i), 1, f), fit->at(i + 1, 0, 1, f), tol * 20) << kind.name << bc_type;
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(ConstructCubicTest, PolynomialsOfTheRightDegreeAreReproduced) {
  using E = Entries<TypeParam>;
  struct Row {
    const char* what;
    Construct kind;
    int64_t order, type, bc_type;
    int degree;
  };
  const Row rows[] = {{"linear", E::linear, 2, 0, 0, 1},
                      {"hermite", E::hermite, 4, 3, 12, 3},
                      {"bessel", E::bessel, 4, 5, 12, 2},
                      {"bessel, third derivative", E::bessel, 4, 5, 1, 2},
                      {"akima", E::akima, 4, 4, 0, 1},
                      {"hyman", E::hyman, 4, 9, 2, 1},
                      {"natural, slopes", E::natural, 4, 2, 12, 3},
                      {"natural, not a knot", E::natural, 4, 2, 1, 3},
                      {"natural, second", E::natural, 4, 2, 48, 3},
                      {"natural, mixed", E::natural, 4, 2, 36, 3},
                      {"natural, mixed", E::natural, 4, 2, 24, 3},
                      {"natural, free", E::natural, 4, 2, 2, 1},
                      {"default, not a knot", E::default_cubic, 4, 0, 1, 3},
                      {"default, slopes", E::default_cubic, 4, 0, 12, 3},
                      {"default, second", E::default_cubic, 4, 0, 48, 3},
                      {"default, mixed", E::default_cubic, 4, 0, 36, 3},
                      {"default, mixed", E::default_cubic, 4, 0, 24, 3},
                      {"quadratic, midpoint", E::quadratic, 3, 0, 128, 2},
                      {"quadratic, knots, slopes", E::quadratic, 3, 1, 12, 2},
                      {"quadratic, knots, second", E::quadratic, 3, 1, 48, 2},
                      {"quadratic, knots, mixed", E::quadratic, 3, 1, 24, 2},
                      {"quadratic, knots, mixed", E::quadratic, 3, 1, 36, 2},
                      {"quadratic, knots, free", E::quadratic, 3, 1, 2, 1}};
  const long double p[] = {0.5L, -1.25L, 0.375L, 0.0625L};
  for (const Row& row : rows) {
    for (int64_t xhint : {1, 4}) {
      for (int64_t nx : {5, 12}) {
        auto x = xhint == 4 ? even_partition<TypeParam>(nx, -1, 3) : ragged_partition<TypeParam>(nx);
        const auto value = [&](long double t, int k) {
          long double sum = 0;
          for (int j = row.degree; j >= k; --j) {
            long double factor = 1;
            for (int i = 0; i < k; ++i) factor *= j - i;
            sum = sum * t + factor * p[j];
          }
          return static_cast<TypeParam>(sum);
        };
        std::vector<TypeParam> y;
        for (TypeParam t : x) y.push_back(value(t, 0));
        for (int64_t ic_type : {8, 12}) {
          Fit<TypeParam> fit(x, y);
          fit.order = row.order, fit.type = row.type, fit.bc_type = row.bc_type, fit.xhint = xhint;
          const bool first_left = (row.bc_type & 4) != 0, first_right = (row.bc_type & 8) != 0;
          fit.bc = {value(x.front(), first_left ? 1 : 2), value(x.back(), first_right ? 1 : 2)};
          if (row.bc_type == 128) fit.bc = {value((x[0] + x[1]) / 2, 0)};
          fit.ic_type = ic_type;
          if (row.order == 4) {
            for (int64_t k = 1; k + 1 < nx; ++k) fit.ic.push_back(value(x[size_t(k)], row.type == 3 ? 1 : 2));
          }
          ASSERT_EQ(fit.construct(row.kind), 0) << row.what;
          const int64_t intervals = row.type == 1 ? nx : nx - 1;
          for (int64_t i = 0; i < intervals; ++i) {
            for (int k = 0; k <= row.degree && k < row.order; ++k) {
              ASSERT_NEAR(fit.at(i, 0, k), value(x[size_t(i)], k), kTolerance<TypeParam> * 4000)
                  << row.what << " " << nx << " " << xhint << " interval " << i << " derivative " << k;
            }
          }
        }
      }
    }
  }
}

TYPED_TEST(ConstructCubicTest, DefaultFreeEndsVanishOnTheLeftAndHalveOnTheRight) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {3, 4, 9}) {
    auto fit = legal_fit<TypeParam>({"Default", E::default_cubic, 4, 0}, nx, 1, 2, 1);
    ASSERT_EQ(fit->construct(E::default_cubic), 0);
    EXPECT_EQ(fit->coefficients(0)[2], 0);
    EXPECT_NEAR(fit->at(nx - 2, fit->h(nx - 2), 2), fit->ic[size_t(nx) - 3] / 2, kTolerance<TypeParam> * 100);
  }
}

TYPED_TEST(ConstructCubicTest, DefaultTakesTheGivenSecondDerivatives) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : kAllEnds) {
    for (int64_t nx : {3, 4, 5, 20}) {
      auto fit = legal_fit<TypeParam>({"Default", E::default_cubic, 4, 0}, nx, 1, bc_type, 1);
      ASSERT_EQ(fit->construct(E::default_cubic), 0);
      const int64_t l = nx - 2;
      const long double tol = kTolerance<TypeParam> * 2000;
      for (int64_t i = 1; i <= l; ++i) {
        EXPECT_NEAR(fit->at(i, 0, 2), fit->ic[size_t(i) - 1], tol);
        EXPECT_NEAR(fit->at(i - 1, fit->h(i - 1), 2), fit->ic[size_t(i) - 1], tol) << bc_type << " " << nx << " " << i;
        EXPECT_NEAR(fit->at(i - 1, fit->h(i - 1), 0), fit->y[size_t(i)], tol);
      }
      const long double h = fit->h(l);
      EXPECT_NEAR(fit->at(l, h, 0), fit->y[size_t(nx) - 1], tol);
      if (bc_type == 1 && nx > 3) {
        EXPECT_NEAR(fit->at(0, 0, 3), fit->at(1, 0, 3), tol * 10);
        EXPECT_NEAR(fit->at(l - 1, 0, 3), fit->at(l, 0, 3), tol * 10);
      }
      if (bc_type == 12 || bc_type == 36) {
        EXPECT_NEAR(fit->at(0, 0, 1), 0.75, tol);
      }
      if (bc_type == 24 || bc_type == 48 || bc_type == 64) {
        EXPECT_NEAR(fit->at(0, 0, 2), 0.75, tol);
      }
      if (bc_type == 12 || bc_type == 24) {
        EXPECT_NEAR(fit->at(l, h, 1), -0.5, tol);
      }
      if (bc_type == 36 || bc_type == 48) {
        EXPECT_NEAR(fit->at(l, h, 2), -0.5, tol);
      }
      if (bc_type == 64) {
        EXPECT_NEAR(fit->at(l, h, 2), 0.75, tol);
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test

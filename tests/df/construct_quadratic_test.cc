// The quadratic kinds: the midpoint recurrence, splines with knots of their own.
#include "df/fit.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructQuadraticTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructQuadraticTest, Reals);

TYPED_TEST(ConstructQuadraticTest, QuadraticMidpointRecurrenceAlternatesWhenPushedOff) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit(even_partition<TypeParam>(10, 0, 9), std::vector<TypeParam>(10, 1));
  fit.order = 3, fit.bc_type = 128, fit.bc = {TypeParam(1.125)};
  ASSERT_EQ(fit.construct(E::quadratic), 0);
  for (int64_t i = 0; i < 9; ++i) {
    EXPECT_NEAR(fit.at(i, 0.5L), 1 + (i % 2 == 0 ? 0.125 : -0.125), 1e-5);
    if (i > 0) {
      EXPECT_NEAR(fit.at(i - 1, 1, 1), fit.at(i, 0, 1), 1e-4);
    }
  }
}

TYPED_TEST(ConstructQuadraticTest, QuadraticMidpointIsContinuousAboveAndBelowTheStackLimit) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {2, 3, 40, 4094, 4095}) {
    Fit<TypeParam> fit(even_partition<TypeParam>(nx, 0, static_cast<TypeParam>(nx - 1)), random_values<TypeParam>(nx));
    fit.order = 3, fit.bc_type = 128, fit.bc = {TypeParam(0.5)};
    ASSERT_EQ(fit.construct(E::quadratic), 0);
    EXPECT_NEAR(fit.at(0, fit.h(0) / 2), 0.5, 1e-5);
    // Rounding accumulates along the walk; the early intervals tell.
    for (int64_t i = 0; i + 1 < std::min<int64_t>(nx, 30); ++i) {
      ASSERT_NEAR(fit.at(i, fit.h(i), 0), fit.y[size_t(i) + 1], 1e-4);
      if (i > 0) {
        ASSERT_NEAR(fit.at(i - 1, fit.h(i - 1), 1), fit.at(i, 0, 1), 2e-3);
      }
    }
  }
}

TYPED_TEST(ConstructQuadraticTest, QuadraticWithKnotsIsContinuousAtItsKnotsFromBothEnds) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : {2, 12, 24, 36, 48}) {
    for (int64_t ic_type : {8, 12}) {
      for (bool given : {false, true}) {
        for (int64_t nx : {2, 3, 25}) {
          auto fit = legal_fit<TypeParam>({"Quadratic", E::quadratic, 3, 1}, nx, 1, bc_type, 1);
          fit->ic_type = ic_type;
          std::vector<TypeParam> tau(static_cast<size_t>(nx) + 1);
          for (int64_t i = 1; i < nx; ++i) {
            const TypeParam a = fit->x[size_t(i) - 1], b = fit->x[size_t(i)];
            tau[size_t(i)] = given ? a + (b - a) * TypeParam(0.375) : TypeParam(0.5) * (a + b);
          }
          tau[0] = fit->x[0], tau[size_t(nx)] = fit->x.back();
          fit->ic = given ? tau : std::vector<TypeParam>{};
          ASSERT_EQ(fit->construct(E::quadratic), 0);
          const long double tol = kTolerance<TypeParam> * 2000;
          const auto offset = [&](int64_t knot, int64_t i) {
            return static_cast<long double>(tau[size_t(knot)]) - fit->x[size_t(i)];
          };
          for (int64_t i = 0; i < nx; ++i) ASSERT_EQ(fit->at(i, 0), fit->y[size_t(i)]);
          for (int64_t k = 1; k < nx; ++k) {
            for (int derivative : {0, 1}) {
              ASSERT_NEAR(fit->at(k - 1, offset(k, k - 1), derivative), fit->at(k, offset(k, k), derivative), tol)
                  << bc_type << " knot " << k << " of " << nx;
            }
          }
          if (bc_type == 12 || bc_type == 36) {
            EXPECT_NEAR(fit->at(0, 0, 1), 0.75, tol);
          }
          if (bc_type == 24 || bc_type == 48) {
            EXPECT_NEAR(fit->at(0, 0, 2), 0.75, tol * 10);
          }
          if (bc_type == 12 || bc_type == 24) {
            EXPECT_NEAR(fit->at(nx - 1, 0, 1), -0.5, tol);
          }
          if (bc_type == 36 || bc_type == 48) {
            EXPECT_NEAR(fit->at(nx - 1, 0, 2), -0.5, tol * 10);
          }
          if (bc_type == 2) {
            EXPECT_NEAR(fit->at(0, 0, 2), 0, tol * 10);
            EXPECT_NEAR(fit->at(nx - 1, 0, 2), 0, tol * 10);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test

// The local kinds against models of their rules in long double.
#include "df/fit.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructLocalTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructLocalTest, Reals);

template <class Real>
std::vector<long double> model_derivatives(const std::string& kind, Fit<Real>& fit) {
  const int64_t n = fit.nx;
  const auto X = [&](int64_t i) { return static_cast<long double>(fit.x[size_t(i)]); };
  const auto M = [&](int64_t i) {
    return (static_cast<long double>(fit.y[size_t(i) + 1]) - fit.y[size_t(i)]) / (X(i + 1) - X(i));
  };
  const auto W = [&](int64_t j) {
    j = std::clamp<int64_t>(j, 1, n - 2);
    return std::abs(M(j) - M(j - 1));
  };
  std::vector<long double> d(static_cast<size_t>(n));
  for (int64_t i = 1; i < n - 1; ++i) {
    const long double h0 = X(i) - X(i - 1), h1 = X(i + 1) - X(i), m0 = M(i - 1), m1 = M(i);
    const long double bessel = (h1 * m0 + h0 * m1) / (h0 + h1);
    long double v = fit.ic[size_t(i) - 1];
    if (kind == "Bessel") v = bessel;
    if (kind == "Hyman") {
      v = m0 * m1 <= 0 ? 0
                       : std::copysign(std::min(std::abs(bessel), 3 * std::min(std::abs(m0), std::abs(m1))), bessel);
    }
    if (kind == "Akima") {
      const long double s = W(i + 1) + W(i - 1);
      v = s == 0 ? (m0 + m1) / 2 : (W(i + 1) * m0 + W(i - 1) * m1) / s;
    }
    d[size_t(i)] = v;
  }
  // Ends: in the periodic case the rule across the seam, otherwise from the polynomial of the end interval.
  const int64_t l = n - 2;
  const long double h0 = X(1) - X(0), hl = X(n - 1) - X(l), m0 = M(0), ml = M(l), b0 = fit.bc[0], b1 = fit.bc[1];
  const auto second_left = [&](long double given) { return 1.5L * m0 - 0.25L * h0 * given - 0.5L * d[1]; };
  const auto second_right = [&](long double given) { return 1.5L * ml + 0.25L * hl * given - 0.5L * d[size_t(l)]; };
  long double& left = d[0];
  long double& right = d[size_t(n) - 1];
  switch (fit.bc_type) {
    case 0:
      left = 1.5L * m0 - 0.5L * M(1), right = 1.5L * ml - 0.5L * M(l - 1);
      break;
    case 1: {
      // P0''' = P1''' with P'' continuous at x[1] is what the row says: h1 d0 + t d1 = ((2t + h0) h1 m0 + h0^2 m1) / t.
      const long double h1 = X(2) - X(1), t = X(2) - X(0), hb = X(l) - X(l - 1), u = X(n - 1) - X(n - 3);
      left = (((2 * t + h0) * h1 * m0 + h0 * h0 * M(1)) / t - t * d[1]) / h1;
      right = (((2 * u + hl) * hb * ml + hl * hl * M(l - 1)) / u - u * d[size_t(l)]) / hb;
      break;
    }
    case 2:
      left = second_left(0), right = second_right(0);
      break;
    case 12:
      left = b0, right = b1;
      break;
    case 24:
      left = second_left(b0), right = b1;
      break;
    case 36:
      left = b0, right = second_right(b1);
      break;
    case 48:
      left = second_left(b0), right = second_right(b1);
      break;
    default:
      if (kind == "Hermite") left = right = b0;
      if (kind == "Bessel" || kind == "Hyman") left = right = (h0 * ml + hl * m0) / (h0 + hl);
      if (kind == "Akima") {
        const long double v = std::abs(ml - M(l - 1)), u = std::abs(M(1) - m0);
        left = (v * m0 + u * ml) / (v + u);
        const long double v1 = std::abs(M(1) - m0), u1 = std::abs(ml - M(l - 1));
        right = (v1 * ml + u1 * m0) / (v1 + u1);
      }
  }
  return d;
}

TYPED_TEST(ConstructLocalTest, LocalKindsFollowTheirRulesInAllEndConditions) {
  for (const auto& kind : local_kinds<TypeParam>()) {
    for (int64_t xhint : {0, 1, 2, 4}) {
      for (int64_t bc_type : {0, 1, 2, 12, 24, 36, 48, 64}) {
        if (bc_type == 0 && std::string(kind.name) != "Akima") continue;
        for (int64_t nx : {5, 6, 7, 11, 130, 700, 1024, 1025, 1026, 1027, 1028, 2060}) {
          auto fit = legal_fit(kind, nx, 1, bc_type, xhint);
          ASSERT_EQ(fit->construct(kind.construct), 0);
          const auto d = model_derivatives(kind.name, *fit);
          for (int64_t i = 0; i + 1 < nx; ++i) {
            const long double h = fit->h(i),
                              m = (static_cast<long double>(fit->y[size_t(i) + 1]) - fit->y[size_t(i)]) / h;
            const long double d0 = d[size_t(i)], d1 = d[size_t(i) + 1];
            const long double scale = 1 + std::abs(d0) + std::abs(d1) + std::abs(m);
            // An even grid of 700 points is known to its rounding only: steps are differences of large numbers here.
            const long double tol = kTolerance<TypeParam> * (xhint == 4 ? 1000 : 20) * scale / h;
            const TypeParam* c = fit->coefficients(i);
            ASSERT_EQ(c[0], fit->y[size_t(i)]);
            ASSERT_NEAR(c[1], d0, tol) << kind.name << " " << bc_type << " " << nx << " " << i;
            ASSERT_NEAR(c[2], (3 * m - 2 * d0 - d1) / h, tol / h) << kind.name << " " << bc_type << " " << i;
            ASSERT_NEAR(c[3], (d0 + d1 - 2 * m) / h / h, tol / h / h) << kind.name << " " << bc_type << " " << i;
          }
        }
      }
    }
  }
}

TYPED_TEST(ConstructLocalTest, AkimaOnCollinearDataIsTheLine) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : {0, 2}) {
    Fit<TypeParam> fit({0, 1, 2, 4, 8, 16}, {1, 3, 5, 9, 17, 33});
    fit.type = 4, fit.bc_type = bc_type;  // needs no values
    ASSERT_EQ(fit.construct(E::akima), 0);
    for (int64_t i = 0; i < 5; ++i) {
      EXPECT_EQ(fit.coefficients(i)[1], 2);
      EXPECT_EQ(fit.coefficients(i)[2], 0);
      EXPECT_EQ(fit.coefficients(i)[3], 0);
    }
  }
}

TYPED_TEST(ConstructLocalTest, AkimaAtTheThresholdTakesTheWeightedForm) {
  using E = Entries<TypeParam>;
  // Slopes 0 0 0 e 0 ...: the sum of weights at x[1] and x[2] is |e| apart from zeros.
  const bool wide = sizeof(TypeParam) == 8;
  const TypeParam bound = wide ? TypeParam(1e-10) : TypeParam(1.0000001e-6f);
  for (int step : {-1, 0}) {
    const TypeParam e = step < 0 ? std::nextafter(bound, TypeParam(0)) : bound;
    // m = e, 0, 0, 0, 0: w[1] = e, so that at x[2] the weights are w[3] = 0 and w[1] = e.
    Fit<TypeParam> fit({0, 1, 2, 3, 4, 5}, {-e, 0, 0, 0, 0, 0});
    fit.type = 4, fit.bc_type = 0;
    ASSERT_EQ(fit.construct(E::akima), 0);
    // At x[1]: w[2] = 0, w[0] = e: weighted gives m[1] = 0, the mean gives e / 2.
    EXPECT_EQ(fit.coefficients(1)[1], step < 0 ? e / 2 : TypeParam(0));
  }
}

TYPED_TEST(ConstructLocalTest, HymanIsFlatAtAnExtremumAndMonotoneBetween) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 2, 4, 5, 7, 8}, {0, 0.01f, 4, 3, 3, 9, 9.5f});
  fit.type = 9;
  ASSERT_EQ(fit.construct(E::hyman), 0);
  EXPECT_EQ(fit.coefficients(2)[1], 0);
  EXPECT_FALSE(std::signbit(fit.coefficients(2)[1]));
  for (int64_t i = 1; i < 5; ++i) {  // the outer intervals are not filtered
    const long double sign = fit.y[size_t(i) + 1] >= fit.y[size_t(i)] ? 1 : -1;
    for (int k = 0; k <= 100; ++k) ASSERT_GE(sign * fit.at(i, fit.h(i) * k / 100, 1), -1e-5) << i;
  }
}

TYPED_TEST(ConstructLocalTest, PeriodicLinearIsOnlyTested) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3}, {2, 5, 2});
  fit.order = 2, fit.bc_type = 64;
  ASSERT_EQ(fit.construct(E::linear), 0);
  EXPECT_EQ(fit.c, (std::vector<TypeParam>{2, 3, 5, -1.5}));
}

TYPED_TEST(ConstructLocalTest, AkimaWithoutConditionsNeedsNoValuesAndLooksAtTwoSlopes) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 2, 4, 5}, {1, 2, 5, 6, 3});
  fit.type = 4, fit.bc_type = 0;
  ASSERT_EQ(fit.construct(E::akima), 0);
  EXPECT_EQ(fit.coefficients(0)[1], TypeParam(1.5) * 1 - TypeParam(0.5) * 3);
  // The slope at the right end: the derivative of the last polynomial there.
  EXPECT_NEAR(fit.at(3, 1, 1), 1.5 * -3 - 0.5 * 0.5, 1e-5);
}

TYPED_TEST(ConstructLocalTest, RepeatedBreakpointsSpoilOnlyTheIntervalsThatSeeThem) {
  for (const auto& kind : local_kinds<TypeParam>()) {
    for (int64_t nx : {40, 700}) {
      auto fit = legal_fit(kind, nx, 1, 2, 1);
      auto sound = legal_fit(kind, nx, 1, 2, 1);
      fit->x[20] = fit->x[19];
      EXPECT_EQ(fit->construct(kind.construct), 0);  // no status tells
      ASSERT_EQ(sound->construct(kind.construct), 0);
      EXPECT_FALSE(std::isfinite(fit->coefficients(19)[3]));
      for (int64_t i = 0; i + 1 < nx; ++i) {
        if (i >= 16 && i <= 22) continue;
        for (int k = 0; k < 4; ++k) ASSERT_EQ(fit->coefficients(i)[k], sound->coefficients(i)[k]) << kind.name << i;
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test

// Construction: tests of arguments, the kinds against models in long double, continuity, reproduction of polynomials,
// forms of storage and partition, threads, failing memory.
#include "df/fit.h"
#include "serv/memory.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructTest, Reals);

constexpr int64_t kAllEnds[] = {1, 2, 12, 24, 36, 48, 64};

template <class Real>
constexpr double kTolerance = sizeof(Real) == 8 ? 1e-13 : 1e-5;

// A task that a kind accepts: periodic values, conditions given.
template <class Real>
std::unique_ptr<Fit<Real>> legal_fit(const Kind<Real>& kind, int64_t nx, int64_t ny, int64_t bc_type, int64_t xhint) {
  auto x = xhint == 4 ? even_partition<Real>(nx, -1, 5) : ragged_partition<Real>(nx);
  auto y = random_values<Real>(nx * ny, 5);
  for (int64_t f = 0; f < ny; ++f) y[size_t(f * nx + nx - 1)] = y[size_t(f * nx)];
  auto fit = std::make_unique<Fit<Real>>(x, y, ny);
  fit->order = kind.order, fit->type = kind.type, fit->bc_type = bc_type, fit->xhint = xhint;
  fit->bc = {Real(0.75), Real(-0.5)};
  fit->ic = random_values<Real>(nx + 1, 6);
  return fit;
}

TYPED_TEST(ConstructTest, MethodsCountsHintsAndBoundariesAreTestedInOrder) {
  using E = Entries<TypeParam>;
  struct Row {
    Construct kind;
    bool tests_method;
    int64_t least;
  };
  const Row rows[] = {{E::natural, true, 2}, {E::default_cubic, false, 3}, {E::hermite, false, 3},
                      {E::bessel, false, 4}, {E::hyman, false, 4},         {E::akima, false, 5}};
  const auto x = ragged_partition<TypeParam>(8);
  const auto y = random_values<TypeParam>(8);
  for (const Row& row : rows) {
    OwnedTask task;
    std::vector<TypeParam> c(64, TypeParam(77));
    ASSERT_EQ(E::make(task.out(), 8, x.data(), 1, 1, y.data(), 16, 0), 0);
    ASSERT_EQ(E::edit_spline(task, 4, 2, 0, nullptr, 0, nullptr, c.data(), 0), 0);
    Task* record = as_task(task);
    record->nx = row.least - 1, record->yhint = 5, record->bc_type = 4;
    EXPECT_EQ(row.kind(nullptr, 0, 1, nullptr), DFS_NO_TASK);
    EXPECT_EQ(row.kind(task, 0, 1, nullptr), row.tests_method ? DFS_UNKNOWN_METHOD : DFS_BAD_BREAKPOINT_COUNT);
    EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);
    record->nx = row.least;
    EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_FUNCTION_HINT);
    record->yhint = 16;
    for (int64_t bad : {4, 8, 16, 32, 3, 128, 20, -1}) {
      record->bc_type = bad;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE) << bad;
    }
    record->bc_type = 0;  // for Akima alone
    if (row.kind != E::akima) {
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
    }
    for (int64_t needs : {12, 24, 36, 48}) {
      record->bc_type = needs;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
    }
    record->bc_type = 64;
    for (int64_t type : {0, 3}) {
      record->s_type = type;
      EXPECT_EQ(row.kind(task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
    }
    EXPECT_EQ(c, std::vector<TypeParam>(64, TypeParam(77)));  // nothing was written
  }
}

TYPED_TEST(ConstructTest, LinearAndNaturalTestTheMethodFirst) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1}, {2, 3});
  fit.order = 2, fit.bc_type = 999;
  fit.bc = {0};
  fit.make();
  EXPECT_EQ(E::linear(fit.task, 0, 1, nullptr), DFS_UNKNOWN_METHOD);
  as_task(fit.task)->nx = 1, as_task(fit.task)->yhint = 5;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);
  as_task(fit.task)->nx = 2;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_BAD_FUNCTION_HINT);
  as_task(fit.task)->yhint = 16;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), 0);  // other boundary types mean nothing
  as_task(fit.task)->bc_type = 64;
  EXPECT_EQ(E::linear(fit.task, 0, 0, nullptr), DFS_NOT_PERIODIC);
  as_task(fit.task)->bc_type = 1;
  EXPECT_EQ(E::natural(fit.task, 0, 0, nullptr), DFS_BAD_BREAKPOINT_COUNT);  // two points, not-a-knot
}

TYPED_TEST(ConstructTest, AkimaNeedsFiveBreakpointsAndBesselFour) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3, 4}, {1, 0, 2, 1});
  EXPECT_EQ(fit.construct(E::akima), DFS_BAD_BREAKPOINT_COUNT);
  EXPECT_EQ(fit.construct(E::bessel), 0);
}

TYPED_TEST(ConstructTest, DifferingEndsOrNanAreNotPeriodicAndWriteNothing) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int what = 0; what < 3; ++what) {
      auto fit = legal_fit(kind, 40, 20, 64, 1);
      // The last function spoils it for all.
      const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
      if (what == 0) fit->y[19 * 40] += 1;
      if (what == 1) fit->y[19 * 40] = nan;
      if (what == 2) fit->y[19 * 40] = fit->y[19 * 40 + 39] = nan;
      EXPECT_EQ(fit->construct(kind.construct), DFS_NOT_PERIODIC) << kind.name;
      EXPECT_EQ(fit->c, std::vector<TypeParam>(fit->c.size(), TypeParam(77)));
    }
  }
}

TYPED_TEST(ConstructTest, EveryCubicPassesThroughItsPointsWithAContinuousSlope) {
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

TYPED_TEST(ConstructTest, NaturalHasAContinuousSecondDerivativeAndMeetsItsEndConditions) {
  using E = Entries<TypeParam>;
  for (int64_t xhint : {1, 4}) {
    for (int64_t bc_type : kAllEnds) {
      for (int64_t nx : {2, 3, 4, 5, 50, 400}) {
        if (nx == 2 && bc_type == 1) continue;
        if (nx == 3 && bc_type == 1) continue;  // one of many, tested below
        auto fit = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, nx, 1, bc_type, xhint);
        ASSERT_EQ(fit->construct(E::natural), 0);
        const long double tol = kTolerance<TypeParam> * 4000;
        for (int64_t i = 0; i + 2 < nx; ++i) {
          ASSERT_NEAR(fit->at(i, fit->h(i), 1), fit->at(i + 1, 0, 1), tol) << nx << " " << bc_type;
          const long double second = fit->at(i + 1, 0, 2);
          ASSERT_NEAR(fit->at(i, fit->h(i), 2), second, tol * (1 + std::abs(second)))
              << nx << " " << bc_type << " " << i;
        }
        const int64_t l = nx - 2;
        const long double end = fit->h(l);
        const long double left1 = fit->at(0, 0, 1), left2 = fit->at(0, 0, 2);
        const long double right1 = fit->at(l, end, 1), right2 = fit->at(l, end, 2);
        if (bc_type == 1) {
          const long double third = fit->at(1, 0, 3), last_third = fit->at(l, 0, 3);
          EXPECT_NEAR(fit->at(0, 0, 3), third, tol * (1 + std::abs(third)));
          EXPECT_NEAR(fit->at(l - 1, 0, 3), last_third, tol * (1 + std::abs(last_third)));
        }
        if (bc_type == 2) {
          EXPECT_NEAR(left2, 0, tol * 20);
          EXPECT_NEAR(right2, 0, tol * 20);
        }
        if (bc_type == 12 || bc_type == 36) {
          EXPECT_NEAR(left1, 0.75, tol);
        }
        if (bc_type == 24 || bc_type == 48) {
          EXPECT_NEAR(left2, 0.75, tol * 20);
        }
        if (bc_type == 12 || bc_type == 24) {
          EXPECT_NEAR(right1, -0.5, tol);
        }
        if (bc_type == 36 || bc_type == 48) {
          EXPECT_NEAR(right2, -0.5, tol * 20);
        }
        if (bc_type == 64) {
          EXPECT_NEAR(left1, right1, tol);
          EXPECT_NEAR(left2, right2, tol * 20);
        }
      }
    }
  }
}

TYPED_TEST(ConstructTest, NaturalOnThreePointsNotAKnotHasAZeroSlopeInTheMiddle) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3}, {1, 2, -1});
  fit.type = 2, fit.bc_type = 1;
  ASSERT_EQ(fit.construct(E::natural), 0);
  EXPECT_EQ(fit.coefficients(1)[1], 0);
  // t = 3, h = 1 and 2, m = 1 and -1.5.
  EXPECT_NEAR(fit.coefficients(0)[1], ((2 * 3 + 1) * 2 * 1.0 + 1 * -1.5) / (2 * 3), 1e-6);
  EXPECT_NEAR(fit.at(1, 2, 1), ((2 * 3 + 2) * 1 * -1.5 + 4 * 1.0) / (1 * 3), 1e-5);
}

TYPED_TEST(ConstructTest, NaturalOfOneFunctionAndOfTwoAgreeToTheBit) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : {1, 2, 12, 48}) {
    for (int64_t nx : {4, 9, 700, 5000}) {
      auto two = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, nx, 2, bc_type, 1);
      Fit<TypeParam> one(two->x, std::vector<TypeParam>(two->y.begin() + nx, two->y.end()));
      one.type = 2, one.bc_type = bc_type, one.bc = two->bc;
      ASSERT_EQ(two->construct(E::natural), 0);
      ASSERT_EQ(one.construct(E::natural), 0);
      EXPECT_TRUE(std::equal(one.c.begin(), one.c.end(), two->c.begin() + 4 * (nx - 1))) << nx << " " << bc_type;
    }
  }
}

TYPED_TEST(ConstructTest, NaturalReportsASingularSystem) {
  using E = Entries<TypeParam>;
  for (int64_t ny : {1, 2}) {
    Fit<TypeParam> fit({1, 1, 1, 1, 2}, std::vector<TypeParam>(static_cast<size_t>(5 * ny), 1), ny);
    fit.type = 2, fit.bc_type = 1;
    EXPECT_EQ(fit.construct(E::natural), DFS_SOLVER_FAILED);
    EXPECT_EQ(fit.c, std::vector<TypeParam>(fit.c.size(), TypeParam(77)));
    auto x = ragged_partition<TypeParam>(3000);
    x[1500] = x[1501] = x[1502] = x[1499];
    Fit<TypeParam> lengthy(x, random_values<TypeParam>(3000 * ny), ny);
    lengthy.type = 2;
    EXPECT_EQ(lengthy.construct(E::natural), DFS_SOLVER_FAILED);
    EXPECT_EQ(lengthy.c, std::vector<TypeParam>(lengthy.c.size(), TypeParam(77)));
  }
}

// Long functions in rows go through several stretches at a time, columns through the plain solver.
TYPED_TEST(ConstructTest, NaturalInStretchesHasTheBitsOfThePlainSolver) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : {1, 2, 12, 24, 36, 48}) {
    for (int64_t nx : {511, 512, 513, 530, 700, 5000, 20011}) {
      for (bool wild : {false, true}) {
        const auto make = [&](bool columns) {
          auto fit = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, nx, 1, bc_type, 1);
          if (wild) {  // steps over many orders of magnitude, values too
            TypeParam at = 0;
            for (size_t i = 0; i < fit->x.size(); ++i) {
              fit->x[i] = at;
              at += std::max(at * TypeParam(1e-3), std::pow(TypeParam(10), static_cast<TypeParam>(i * 7 % 5) - 2));
              fit->y[i] *= std::pow(TypeParam(10), static_cast<TypeParam>(i * 13 % 9));
            }
          }
          if (columns) fit->yhint = 32;
          EXPECT_EQ(fit->construct(E::natural), 0);
          return fit;
        };
        EXPECT_EQ(make(false)->c, make(true)->c) << nx << " " << bc_type;
      }
    }
  }
}

// ---- The local rules, in long double ----------------------------------------------------------------------------

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

TYPED_TEST(ConstructTest, LocalKindsFollowTheirRulesInAllEndConditions) {
  for (const auto& kind : local_kinds<TypeParam>()) {
    for (int64_t xhint : {0, 1, 2, 4}) {
      for (int64_t bc_type : {0, 1, 2, 12, 24, 36, 48, 64}) {
        if (bc_type == 0 && std::string(kind.name) != "Akima") continue;
        for (int64_t nx : {5, 11, 130, 700}) {
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

TYPED_TEST(ConstructTest, AkimaOnCollinearDataIsTheLine) {
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

TYPED_TEST(ConstructTest, AkimaAtTheThresholdTakesTheWeightedForm) {
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

TYPED_TEST(ConstructTest, HymanIsFlatAtAnExtremumAndMonotoneBetween) {
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

TYPED_TEST(ConstructTest, PeriodicLinearIsOnlyTested) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3}, {2, 5, 2});
  fit.order = 2, fit.bc_type = 64;
  ASSERT_EQ(fit.construct(E::linear), 0);
  EXPECT_EQ(fit.c, (std::vector<TypeParam>{2, 3, 5, -1.5}));
}

// ---- Reproduction of polynomials --------------------------------------------------------------------------------

TYPED_TEST(ConstructTest, PolynomialsOfTheRightDegreeAreReproduced) {
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

// ---- Default and quadratic kinds --------------------------------------------------------------------------------

TYPED_TEST(ConstructTest, DefaultFreeEndsVanishOnTheLeftAndHalveOnTheRight) {
  using E = Entries<TypeParam>;
  for (int64_t nx : {3, 4, 9}) {
    auto fit = legal_fit<TypeParam>({"Default", E::default_cubic, 4, 0}, nx, 1, 2, 1);
    ASSERT_EQ(fit->construct(E::default_cubic), 0);
    EXPECT_EQ(fit->coefficients(0)[2], 0);
    EXPECT_NEAR(fit->at(nx - 2, fit->h(nx - 2), 2), fit->ic[size_t(nx) - 3] / 2, kTolerance<TypeParam> * 100);
  }
}

TYPED_TEST(ConstructTest, DefaultTakesTheGivenSecondDerivatives) {
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

TYPED_TEST(ConstructTest, QuadraticTestsItsArgumentsInOrder) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 2, 4}, {1, 2, 0, 1});
  fit.order = 3, fit.type = 1;
  fit.make();
  Task* record = as_task(fit.task);
  record->yhint = 3, record->s_type = 2;
  EXPECT_EQ(E::quadratic(nullptr, 0, 0, nullptr), DFS_NO_TASK);
  EXPECT_EQ(E::quadratic(fit.task, 0, 9, nullptr), DFS_BAD_FUNCTION_HINT);
  record->yhint = 16;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_UNKNOWN_METHOD);
  record->s_type = 0, record->bc_type = 2, record->bc = nullptr;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
  record->bc_type = 128;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
  record->s_type = 1, record->ic_type = 4;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_TYPE);
  record->ic_type = 8;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_TYPE);
  for (int64_t needs : {12, 24, 36, 48}) {
    record->bc_type = needs;
    EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_BOUNDARY_VALUES);
  }
  record->bc_type = 2;
  std::vector<TypeParam> knots = {0, 0.5, 1.5, 3, 4};
  record->ic = knots.data();
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), 0);
  knots[0] = 0.1f;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_VALUES);
  knots[0] = 0, knots[4] = 3.9f;
  EXPECT_EQ(E::quadratic(fit.task, 0, 0, nullptr), DFS_BAD_INTERNAL_VALUES);
}

TYPED_TEST(ConstructTest, QuadraticMidpointRecurrenceAlternatesWhenPushedOff) {
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

TYPED_TEST(ConstructTest, QuadraticMidpointIsContinuousAboveAndBelowTheStackLimit) {
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

TYPED_TEST(ConstructTest, QuadraticWithKnotsIsContinuousAtItsKnotsFromBothEnds) {
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

// ---- Forms, threads, memory -------------------------------------------------------------------------------------

TYPED_TEST(ConstructTest, RowsColumnsAndSingleRowsGiveTheSameBits) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int64_t xhint : {1, 4}) {
      for (auto [nx, ny] : {std::pair<int64_t, int64_t>{9, 3}, {700, 5}, {2500, 2}}) {
        auto rows = legal_fit(kind, nx, ny, 2, xhint);
        auto columns = legal_fit(kind, nx, ny, 2, xhint);
        auto single = legal_fit(kind, nx, ny, 2, xhint);
        columns->y = transposed(rows->y, nx, ny);
        columns->yhint = 32;
        single->yhint = 128;
        single->make();
        for (int64_t f = 0; f < ny; ++f)
          ASSERT_EQ(E::edit_row(single->task, DFP_FUNCTIONS, f, &single->y[size_t(f * nx)]), 0);
        ASSERT_EQ(rows->construct(kind.construct), 0);
        ASSERT_EQ(columns->construct(kind.construct), 0);
        ASSERT_EQ(single->construct(kind.construct), 0);
        EXPECT_EQ(rows->c, columns->c) << kind.name;
        EXPECT_EQ(rows->c, single->c) << kind.name;
      }
    }
  }
}

TYPED_TEST(ConstructTest, ThreadsGiveTheBitsOfOneThread) {
  using E = Entries<TypeParam>;
  auto kinds = cubic_kinds<TypeParam>();
  kinds.push_back({"Linear", E::linear, 2, 0});
  for (const auto& kind : kinds) {
    for (int64_t xhint : {1, 4}) {
      for (int64_t bc_type : {2, 64}) {
        for (auto [nx, ny] : {std::pair<int64_t, int64_t>{600, 9}, {9000, 3}, {2 * 2048 + 3, 1}, {5, 200}}) {
          auto one = legal_fit(kind, nx, ny, bc_type, xhint);
          auto loop = legal_fit(kind, nx, ny, bc_type, xhint);
          auto threads = legal_fit(kind, nx, ny, bc_type, xhint);
          ASSERT_EQ(one->construct(kind.construct), 0);
          ASSERT_EQ(loop->construct(kind.construct, &LoopServices<8>::table), 0);
          ASSERT_EQ(threads->construct(kind.construct, &ThreadServices<3>::table), 0);
          EXPECT_EQ(one->c, loop->c) << kind.name;
          EXPECT_EQ(one->c, threads->c) << kind.name;
        }
      }
    }
  }
}

TYPED_TEST(ConstructTest, LocalGridHasBlocksOf2048PointsByFourFunctions) {
  using E = Entries<TypeParam>;
  using Loop = LoopServices<4>;
  struct Row {
    Kind<TypeParam> kind;
    int64_t nx, ny, tasks;
  };
  const auto local = local_kinds<TypeParam>();
  const Row rows[] = {{local[1], 511, 1, -1},
                      {local[1], 512, 1, 1},
                      {local[1], 2 + 2049, 1, 1},
                      {local[1], 2 + 2050, 1, 2},
                      {local[2], 4 + 2049, 1, 1},
                      {local[2], 4 + 2050, 1, 2},
                      {local[0], 2 + 3 * 2048, 9, 9},
                      {{"Linear", E::linear, 2, 0}, 128, 1, -1},
                      {{"Linear", E::linear, 2, 0}, 129, 5, 2},
                      {{"Linear", E::linear, 2, 0}, 1026, 1, 2}};
  for (const Row& row : rows) {
    auto fit = legal_fit(row.kind, row.nx, row.ny, 2, 1);
    Loop::calls = 0;
    ASSERT_EQ(fit->construct(row.kind.construct, &Loop::table), 0);
    if (row.tasks < 0) {
      EXPECT_EQ(Loop::calls, 0) << row.kind.name << row.nx;
    } else {
      EXPECT_EQ(Loop::calls, 1);
      EXPECT_EQ(Loop::last_count, row.tasks) << row.kind.name << row.nx;
      EXPECT_EQ(Loop::last_threads, std::min<int64_t>(4, row.tasks));
    }
  }
}

TYPED_TEST(ConstructTest, NaturalUsesThreadsForSeveralLongFunctionsOnly) {
  using E = Entries<TypeParam>;
  const Kind<TypeParam> kind = {"Natural", E::natural, 4, 2};
  const auto calls = [&](int64_t nx, int64_t ny, auto loop) {
    using Loop = decltype(loop);
    auto fit = legal_fit(kind, nx, ny, 2, 1);
    Loop::calls = 0;
    EXPECT_EQ(fit->construct(E::natural, &Loop::table), 0);
    return Loop::calls;
  };
  EXPECT_EQ(calls(1000, 1, LoopServices<4>()), 0);
  EXPECT_EQ(calls(599, 2, LoopServices<4>()), 0);
  EXPECT_EQ(calls(600, 2, LoopServices<4>()), 1);
  EXPECT_EQ(calls(600, 2, LoopServices<1>()), 0);
  EXPECT_EQ(calls(299, 9, LoopServices<8>()), 0);
  EXPECT_EQ(calls(300, 9, LoopServices<8>()), 1);
  EXPECT_EQ(calls(300, 7, LoopServices<8>()), 0);  // seven functions, seven threads
}

TYPED_TEST(ConstructTest, FailingMemoryIsReportedAndWritesNothing) {
  using E = Entries<TypeParam>;
  std::vector<Kind<TypeParam>> kinds = local_kinds<TypeParam>();
  kinds.push_back({"Natural", E::natural, 4, 2});
  kinds.push_back({"Quadratic", E::quadratic, 3, 0});
  kinds.push_back({"Quadratic", E::quadratic, 3, 1});
  for (const auto& kind : kinds) {
    for (int64_t bc_type : {2, 64}) {
      const bool quadratic = kind.order == 3;
      if (quadratic && bc_type == 64) continue;
      auto fit = legal_fit(kind, 5000, 2, quadratic && kind.type == 0 ? 128 : bc_type, 1);
      fit->ic_type = 8;
      if (quadratic) fit->ic.clear();
      fit->make();
      const int64_t before = serv::live_allocations();
      serv::fail_allocation_after(1);
      EXPECT_EQ(fit->construct(kind.construct), DFS_NO_MEMORY) << kind.name;
      serv::fail_allocation_after(0);
      EXPECT_EQ(fit->c, std::vector<TypeParam>(fit->c.size(), TypeParam(77))) << kind.name;
      EXPECT_EQ(fit->construct(kind.construct), 0) << kind.name;
      EXPECT_EQ(serv::live_allocations(), before) << kind.name;
    }
  }
}

TYPED_TEST(ConstructTest, ShortLocalConstructionsTakeNoMemory) {
  for (const auto& kind : local_kinds<TypeParam>()) {
    auto fit = legal_fit(kind, 255, 2, 2, 1);
    fit->make();
    serv::fail_allocation_after(1);
    EXPECT_EQ(fit->construct(kind.construct), 0);
    serv::fail_allocation_after(0);
  }
}

TYPED_TEST(ConstructTest, FailingMemoryWhileATaskIsMadeLeavesARecordToDelete) {
  using E = Entries<TypeParam>;
  const auto x = ragged_partition<TypeParam>(8);
  const auto y = random_values<TypeParam>(8);
  const int64_t before = serv::live_allocations();
  for (int64_t n = 1; n <= 3; ++n) {
    OrvikDFTask task = &task;
    serv::fail_allocation_after(n);
    EXPECT_EQ(E::make(&task, 8, x.data(), 1, 1, y.data(), 16, 0), DFS_NO_MEMORY);
    serv::fail_allocation_after(0);
    EXPECT_EQ(task == nullptr, n == 1);
    if (task == nullptr) continue;
    EXPECT_EQ(as_task(task)->task_state, n == 2 ? 0 : 1);
    EXPECT_EQ(as_task(task)->bucket_table, nullptr);
    if (n == 2) {  // edits and queries of half a record do nothing
      TypeParam* p = nullptr;
      int32_t v = 5;
      EXPECT_EQ(orvik_df_kernel_iEditVal(task, 99, 0), 0);
      EXPECT_EQ(orvik_df_kernel_iQueryVal(task, 14, &v), 0);
      EXPECT_EQ(v, 5);
      EXPECT_EQ(E::edit_pointer(task, 99, nullptr), 0);
      EXPECT_EQ(E::edit_row(task, 99, 0, nullptr), 0);
      EXPECT_EQ(E::query_pointer(task, 1, &p), 0);
      EXPECT_EQ(E::query_row(task, 2, 0, &p), 0);
      EXPECT_EQ(p, nullptr);
      EXPECT_EQ(E::query_row(task, 2, 1, &p), DFS_BAD_INDEX);
      EXPECT_EQ(E::edit_spline(task, -1, 0, 0, nullptr, 0, nullptr, nullptr, 0), DFS_BAD_SPLINE_ORDER);
    }
    EXPECT_EQ(orvik_df_kernel_DeleteTask(&task), 0);
  }
  EXPECT_EQ(serv::live_allocations(), before);
  OwnedTask task;
  ASSERT_EQ(E::make(task.out(), 8, x.data(), 1, 1, y.data(), 16, 0), 0);
  serv::fail_allocation_after(1);
  EXPECT_EQ(orvik_df_kernel_iEditVal(task, DFP_PARTITION_HINT, 1), DFS_NO_MEMORY);
  serv::fail_allocation_after(1);
  EXPECT_EQ(E::edit_pointer(task, DFP_FUNCTIONS, y.data()), DFS_NO_MEMORY);
  serv::fail_allocation_after(1);
  EXPECT_EQ(E::edit_pointer(task, DFP_COEFFICIENTS, y.data()), DFS_NO_MEMORY);
  serv::fail_allocation_after(0);
  TypeParam* p = nullptr;
  EXPECT_EQ(E::query_pointer(task, DFP_FUNCTIONS, &p), 0);
}

}  // namespace
}  // namespace orvik::df::test

// The natural kind: smoothness, end conditions, few points, its solvers.
#include "df/construct/coefficients.h"
#include "df/construct/natural_system.h"
#include "df/fit.h"
#include "serv/tridiagonal.h"

namespace orvik::df::test {
namespace {

template <class Real>
class ConstructNaturalTest : public ::testing::Test {};
TYPED_TEST_SUITE(ConstructNaturalTest, Reals);

TYPED_TEST(ConstructNaturalTest, NaturalHasAContinuousSecondDerivativeAndMeetsItsEndConditions) {
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

TYPED_TEST(ConstructNaturalTest, NaturalOnThreePointsNotAKnotHasAZeroSlopeInTheMiddle) {
  using E = Entries<TypeParam>;
  Fit<TypeParam> fit({0, 1, 3}, {1, 2, -1});
  fit.type = 2, fit.bc_type = 1;
  ASSERT_EQ(fit.construct(E::natural), 0);
  EXPECT_EQ(fit.coefficients(1)[1], 0);
  // t = 3, h = 1 and 2, m = 1 and -1.5.
  EXPECT_NEAR(fit.coefficients(0)[1], ((2 * 3 + 1) * 2 * 1.0 + 1 * -1.5) / (2 * 3), 1e-6);
  EXPECT_NEAR(fit.at(1, 2, 1), ((2 * 3 + 2) * 1 * -1.5 + 4 * 1.0) / (1 * 3), 1e-5);
}

TYPED_TEST(ConstructNaturalTest, NaturalOfOneFunctionAndOfTwoAgreeToTheBit) {
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

TYPED_TEST(ConstructNaturalTest, NaturalReportsASingularSystem) {
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

// The tridiagonal routines under one name for both real types.
inline int64_t factor_matrix(int64_t n, double* dl, double* d, double* du) {
  int64_t info;
  ddttrfb_4dfl(&n, dl, d, du, &info);
  return info;
}
inline int64_t factor_matrix(int64_t n, float* dl, float* d, float* du) {
  int64_t info;
  sdttrfb_4dfl(&n, dl, d, du, &info);
  return info;
}

inline int64_t solve_factored(int64_t n, const double* dl, const double* d, const double* du, double* b) {
  const int64_t one = 1;
  int64_t info;
  ddttrsb_4dfl("N", &n, &one, dl, d, du, b, &n, &info);
  return info;
}
inline int64_t solve_factored(int64_t n, const float* dl, const float* d, const float* du, float* b) {
  const int64_t one = 1;
  int64_t info;
  sdttrsb_4dfl("N", &n, &one, dl, d, du, b, &n, &info);
  return info;
}

// The whole matrix, and the right side of the values y.
template <class Real, bool kUniform>
void form_matrix(const NaturalSystem<Real, kUniform>& system, Real* dl, Real* d, Real* du) {
  const Partition<Real, kUniform>& p = system.partition;
  const int64_t n = system.unknowns();
  for (int64_t i = 1; i <= n - 2; ++i) {
    dl[i - 1] = p.h(i);
    d[i] = 2 * p.two_h(i - 1);
    du[i] = p.h(i - 1);
  }
  const Values<Real> any(system.task, 0);  // the matrix does not depend on the values
  const EndRow<Real> a = system.left(any), b = system.right(any);
  d[0] = a.own;
  du[0] = a.neighbour;
  dl[n - 2] = b.neighbour;
  d[n - 1] = b.own;
}
template <class Real, bool kUniform>
void form_right_side(const NaturalSystem<Real, kUniform>& system, const Values<Real>& y, Real* out) {
  const Partition<Real, kUniform>& p = system.partition;
  const int64_t n = system.unknowns();
  for (int64_t i = 1; i <= n - 2; ++i) {
    out[i] = interior_right_side(p.h(i - 1), p.h(i), system.m(y, i - 1), system.m(y, i));
  }
  out[0] = system.left(y).right;
  out[n - 1] = system.right(y).right;
}

// The coefficients of function f by the plain solver: the whole matrix factored, one right side after it; of a periodic
// one the missing corners brought back by a second solution.
template <bool kUniform, class Real>
std::vector<Real> by_plain_solver(Fit<Real>& fit, int64_t f) {
  const Task& task = *as_task(fit.task);
  Ends ends;
  EXPECT_EQ(read_ends(task, false, &ends), 0);
  const NaturalSystem<Real, kUniform> system(task, ends);
  const Values<Real> y(task, f);
  const size_t nx = static_cast<size_t>(fit.nx), n = static_cast<size_t>(system.unknowns());
  std::vector<Real> dl(n), d(n), du(n), w(nx + 1), z(n), c(4 * (nx - 1));
  form_matrix(system, dl.data(), d.data(), du.data());
  form_right_side(system, y, w.data());
  EXPECT_EQ(factor_matrix(system.unknowns(), dl.data(), d.data(), du.data()), 0);
  EXPECT_EQ(solve_factored(system.unknowns(), dl.data(), d.data(), du.data(), w.data()), 0);
  if (system.periodic()) {
    z[0] = system.first_corner(), z[n - 1] = system.last_corner();
    EXPECT_EQ(solve_factored(system.unknowns(), dl.data(), d.data(), du.data(), z.data()), 0);
    const Real share = (w[0] + w[n - 1]) * (1 / (1 + z[0] + z[n - 1]));
    for (size_t i = 0; i < n; ++i) w[i] -= z[i] * share;
    w[n] = w[0];
  }
  for (size_t i = 0; i + 1 < nx; ++i) {
    const int64_t at = static_cast<int64_t>(i);
    c[4 * i] = y[at], c[4 * i + 1] = w[i];
    cubic_terms<CubicForm::kNatural>(system.m(y, at), system.partition.inverse_h(at), w[i], w[i + 1], &c[4 * i + 2],
                                     &c[4 * i + 3]);
  }
  return c;
}

// Compares all functions; wild: steps over many orders of magnitude, values too.
template <class Real>
void expect_plain_bits(int64_t nx, int64_t ny, int64_t bc_type, int64_t xhint, bool wild) {
  using E = Entries<Real>;
  auto fit = legal_fit<Real>({"Natural", E::natural, 4, 2}, nx, ny, bc_type, xhint);
  Real at = 0;
  for (size_t i = 0; wild && i < fit->x.size(); ++i) {
    if (xhint == 1) fit->x[i] = at;
    at += std::max(at * Real(1e-3), std::pow(Real(10), static_cast<Real>(i * 7 % 5) - 2));
  }
  for (size_t i = 0; wild && i < fit->y.size(); ++i) {
    const size_t row = i / static_cast<size_t>(nx) * static_cast<size_t>(nx), k = i - row;
    fit->y[i] *= std::pow(Real(10), static_cast<Real>(k * 13 % 9));
    if (k + 1 == static_cast<size_t>(nx)) fit->y[i] = fit->y[row];
  }
  ASSERT_EQ(fit->construct(E::natural), 0);
  for (int64_t f = 0; f < ny; ++f) {
    const std::vector<Real> plain = xhint == 4 ? by_plain_solver<true>(*fit, f) : by_plain_solver<false>(*fit, f);
    EXPECT_TRUE(std::equal(plain.begin(), plain.end(), fit->coefficients(0, f)))
        << nx << ", function " << f << " of " << ny << ", ends " << bc_type << ", hint " << xhint << ", wild " << wild;
  }
}

// From 71 unknowns of doubles and 151 of floats on several stretches are solved at a time; a periodic spline has one
// less.
TYPED_TEST(ConstructNaturalTest, NaturalInStretchesHasTheBitsOfThePlainSolver) {
  for (int64_t bc_type : kAllEnds) {
    for (int64_t nx : {4, 5, 6, 7, 16, 70, 71, 72, 73, 90, 150, 151, 152, 153, 200, 300, 511, 512, 700, 5000, 20011}) {
      for (int64_t xhint : {1, 4}) {
        for (bool wild : {false, true}) expect_plain_bits<TypeParam>(nx, 1, bc_type, xhint, wild);
      }
    }
  }
}

TYPED_TEST(ConstructNaturalTest, FunctionsThatFindTheirMatrixFactoredHaveTheBitsOfThePlainSolver) {
  for (int64_t bc_type : {1, 12, 64}) {
    for (int64_t nx : {4, 5, 30, 80, 200, 1000}) {
      for (int64_t xhint : {1, 4}) {
        for (bool wild : {false, true}) expect_plain_bits<TypeParam>(nx, 6, bc_type, xhint, wild);
      }
    }
  }
}

// Every lane begins with a guess; here no guess is ever forgotten, so that each stretch is computed again to its end.
TYPED_TEST(ConstructNaturalTest, AValueThatIsNoNumberIsSpreadAsThePlainSolverSpreadsIt) {
  using E = Entries<TypeParam>;
  for (int64_t bc_type : {2, 64}) {
    auto fit = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, 1000, 1, bc_type, 1);
    fit->y[500] = std::numeric_limits<TypeParam>::quiet_NaN();
    ASSERT_EQ(fit->construct(E::natural), 0);
    const std::vector<TypeParam> plain = by_plain_solver<false>(*fit, 0);
    for (size_t i = 0; i < plain.size(); ++i) {
      ASSERT_EQ(std::isnan(plain[i]), std::isnan(fit->c[i])) << i;
      ASSERT_TRUE(std::isnan(plain[i]) || plain[i] == fit->c[i]) << i;
    }
  }
}

TYPED_TEST(ConstructNaturalTest, NaturalOfColumnsIsThatOfRows) {
  using E = Entries<TypeParam>;
  for (int64_t xhint : {1, 4}) {
    for (int64_t bc_type : {12, 64}) {
      for (int64_t ny : {1, 2, 3, 4, 5, 9}) {
        for (int64_t nx : {2, 3, 4, 60, 130, 700}) {
          auto rows = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, nx, ny, bc_type, xhint);
          auto columns = legal_fit<TypeParam>({"Natural", E::natural, 4, 2}, nx, ny, bc_type, xhint);
          columns->y = transposed(rows->y, nx, ny), columns->yhint = 32;
          ASSERT_EQ(rows->construct(E::natural), 0);
          ASSERT_EQ(columns->construct(E::natural), 0);
          EXPECT_EQ(rows->c, columns->c) << xhint << " " << bc_type << " " << ny << " " << nx;
          ASSERT_EQ(columns->construct(E::natural, &ThreadServices<3>::table), 0);
          EXPECT_EQ(rows->c, columns->c) << xhint << " " << bc_type << " " << ny << " " << nx << ", threads";
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvik::df::test

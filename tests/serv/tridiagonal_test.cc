// The tridiagonal routines: status numbers, sizes down to nothing, several right sides, zero pivots, residuals, and a
// dense elimination beside them.
#include "serv/tridiagonal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace orvik::serv::test {
namespace {

// Both real types under one name.
template <class Real>
struct Routines {
  static constexpr auto factor = ddttrfb_4dfl;
  static constexpr auto solve = ddttrsb_4dfl;
  static constexpr auto one_step = ddtsvb_4dfl;
};
template <>
struct Routines<float> {
  static constexpr auto factor = sdttrfb_4dfl;
  static constexpr auto solve = sdttrsb_4dfl;
  static constexpr auto one_step = sdtsvb_4dfl;
};

template <class Real>
class TridiagonalTest : public ::testing::Test {};
using Reals = ::testing::Types<double, float>;
TYPED_TEST_SUITE(TridiagonalTest, Reals);

template <class Real>
struct System {
  int64_t n;
  std::vector<Real> dl, d, du, b;

  // Diagonally dominant, of mixed signs.
  System(int64_t order, int64_t nrhs, int64_t ldb, uint32_t seed = 1) : n(order) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> value(-1, 1);
    const size_t size = static_cast<size_t>(n);
    dl.resize(size > 0 ? size - 1 : 0), du = dl, d.resize(size), b.assign(static_cast<size_t>(nrhs * ldb), Real(77));
    for (auto& v : dl) v = static_cast<Real>(value(random));
    for (auto& v : du) v = static_cast<Real>(value(random));
    for (size_t i = 0; i < size; ++i) {
      const double sum = (i > 0 ? std::abs(dl[i - 1]) : 0) + (i + 1 < size ? std::abs(du[i]) : 0);
      d[i] = static_cast<Real>((value(random) < 0 ? -1 : 1) * (sum + 0.1));
    }
    for (int64_t k = 0; k < nrhs; ++k) {
      for (int64_t i = 0; i < n; ++i) b[size_t(k * ldb + i)] = static_cast<Real>(value(random));
    }
  }
};

// Gaussian elimination with row exchanges on the full matrix.
template <class Real>
std::vector<long double> dense_solution(const System<Real>& s, int64_t column_start) {
  const size_t n = static_cast<size_t>(s.n);
  std::vector<std::vector<long double>> a(n, std::vector<long double>(n + 1));
  for (size_t i = 0; i < n; ++i) {
    a[i][i] = s.d[i];
    if (i > 0) a[i][i - 1] = s.dl[i - 1];
    if (i + 1 < n) a[i][i + 1] = s.du[i];
    a[i][n] = s.b[static_cast<size_t>(column_start) + i];
  }
  for (size_t k = 0; k < n; ++k) {
    size_t best = k;
    for (size_t i = k; i < n; ++i) {
      if (std::abs(a[i][k]) > std::abs(a[best][k])) best = i;
    }
    std::swap(a[k], a[best]);
    for (size_t i = k + 1; i < n; ++i) {
      const long double factor = a[i][k] / a[k][k];
      for (size_t j = k; j <= n; ++j) a[i][j] -= factor * a[k][j];
    }
  }
  std::vector<long double> x(n);
  for (size_t k = n; k-- > 0;) {
    x[k] = a[k][n];
    for (size_t j = k + 1; j < n; ++j) x[k] -= a[k][j] * x[j];
    x[k] /= a[k][k];
  }
  return x;
}

TYPED_TEST(TridiagonalTest, SolutionsAreThoseOfADenseElimination) {
  using R = Routines<TypeParam>;
  const long double tol = sizeof(TypeParam) == 8 ? 1e-13L : 1e-4L;
  for (int64_t n : {1, 2, 3, 10, 60}) {
    const int64_t nrhs = 3, ldb = n + 2;
    const System<TypeParam> given(n, nrhs, ldb, static_cast<uint32_t>(n));
    System<TypeParam> s = given;
    int64_t info = -7;
    R::one_step(&n, &nrhs, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &ldb, &info);
    ASSERT_EQ(info, 0);
    for (int64_t k = 0; k < nrhs; ++k) {
      const auto expected = dense_solution(given, k * ldb);
      for (int64_t i = 0; i < n; ++i) {
        ASSERT_NEAR(s.b[size_t(k * ldb + i)], expected[size_t(i)], tol * (1 + std::abs(expected[size_t(i)])))
            << n << " " << i;
      }
      for (int64_t i = n; i < ldb; ++i) EXPECT_EQ(s.b[size_t(k * ldb + i)], 77);  // between the columns
    }
  }
}

TYPED_TEST(TridiagonalTest, ResidualsOfLongSystemsAreOfTheSizeOfRounding) {
  using R = Routines<TypeParam>;
  const int64_t n = 20000, one = 1;
  const System<TypeParam> given(n, 1, n);
  System<TypeParam> s = given;
  int64_t info = -7;
  R::one_step(&n, &one, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &n, &info);
  ASSERT_EQ(info, 0);
  const long double eps = std::numeric_limits<TypeParam>::epsilon();
  for (size_t i = 0; i < static_cast<size_t>(n); ++i) {
    long double sum = static_cast<long double>(given.d[i]) * s.b[i], size = std::abs(sum);
    if (i > 0) sum += static_cast<long double>(given.dl[i - 1]) * s.b[i - 1], size += std::abs(s.b[i - 1]);
    if (i + 1 < static_cast<size_t>(n)) {
      sum += static_cast<long double>(given.du[i]) * s.b[i + 1], size += std::abs(s.b[i + 1]);
    }
    ASSERT_NEAR(sum, given.b[i], 16 * eps * (size + 1)) << i;
  }
}

TYPED_TEST(TridiagonalTest, FactorThenSolveHasTheBitsOfOneStep) {
  using R = Routines<TypeParam>;
  for (int64_t n : {1, 2, 3, 500}) {
    const int64_t nrhs = 4, one = 1;
    const System<TypeParam> given(n, nrhs, n);
    System<TypeParam> s = given, t = given, u = given;
    int64_t info = -7;
    R::one_step(&n, &nrhs, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &n, &info);
    ASSERT_EQ(info, 0);
    R::factor(&n, t.dl.data(), t.d.data(), t.du.data(), &info);
    ASSERT_EQ(info, 0);
    EXPECT_EQ(t.dl, given.dl);
    EXPECT_EQ(t.d, s.d);
    EXPECT_EQ(t.du, s.du);
    R::solve("N", &n, &nrhs, t.dl.data(), t.d.data(), t.du.data(), t.b.data(), &n, &info);
    EXPECT_EQ(info, 0);
    EXPECT_EQ(t.b, s.b);
    for (int64_t k = 0; k < nrhs; ++k) {  // column by column, and with a small letter
      R::solve("n", &n, &one, t.dl.data(), t.d.data(), t.du.data(), u.b.data() + k * n, &n, &info);
      EXPECT_EQ(info, 0);
    }
    EXPECT_EQ(u.b, s.b);
  }
}

TYPED_TEST(TridiagonalTest, NoUnknownsAndNoRightSidesTouchNothing) {
  using R = Routines<TypeParam>;
  const int64_t none = 0, one = 1, two = 2;
  int64_t info = -7;
  R::factor(&none, nullptr, nullptr, nullptr, &info);
  EXPECT_EQ(info, 0);
  info = -7;
  R::solve("N", &none, &one, nullptr, nullptr, nullptr, nullptr, &one, &info);
  EXPECT_EQ(info, 0);
  info = -7;
  R::one_step(&none, &one, nullptr, nullptr, nullptr, nullptr, &one, &info);
  EXPECT_EQ(info, 0);
  System<TypeParam> s(2, 1, 2);
  const auto b = s.b;
  info = -7;
  R::one_step(&two, &none, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &two, &info);
  EXPECT_EQ(info, 0);
  R::solve("N", &two, &none, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &two, &info);
  EXPECT_EQ(info, 0);
  EXPECT_EQ(s.b, b);
}

TYPED_TEST(TridiagonalTest, BadArgumentsAreNumberedAndWriteNothing) {
  using R = Routines<TypeParam>;
  const System<TypeParam> given(3, 2, 3);
  System<TypeParam> s = given;
  const auto factor = [&](int64_t n) {
    int64_t info = 99;
    R::factor(&n, s.dl.data(), s.d.data(), s.du.data(), &info);
    return info;
  };
  const auto solve = [&](const char* trans, int64_t n, int64_t nrhs, int64_t ldb) {
    int64_t info = 99;
    R::solve(trans, &n, &nrhs, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &ldb, &info);
    return info;
  };
  const auto one_step = [&](int64_t n, int64_t nrhs, int64_t ldb) {
    int64_t info = 99;
    R::one_step(&n, &nrhs, s.dl.data(), s.d.data(), s.du.data(), s.b.data(), &ldb, &info);
    return info;
  };
  EXPECT_EQ(factor(-1), -1);
  EXPECT_EQ(solve("T", -1, -1, 0), -1);  // the first bad argument is the one that is named
  EXPECT_EQ(solve("N", -1, -1, 0), -2);
  EXPECT_EQ(solve("N", 3, -1, 0), -3);
  EXPECT_EQ(solve("N", 3, 2, 2), -8);
  EXPECT_EQ(solve("N", 0, 2, 0), -8);
  EXPECT_EQ(one_step(-1, -1, 0), -1);
  EXPECT_EQ(one_step(3, -1, 0), -2);
  EXPECT_EQ(one_step(3, 2, 2), -7);
  EXPECT_EQ(one_step(0, 2, 0), -7);
  EXPECT_EQ(s.dl, given.dl);
  EXPECT_EQ(s.d, given.d);
  EXPECT_EQ(s.du, given.du);
  EXPECT_EQ(s.b, given.b);
}

TYPED_TEST(TridiagonalTest, AZeroPivotIsNumberedFromOneAndLeavesTheRightSides) {
  using R = Routines<TypeParam>;
  const int64_t n = 4, one = 1;
  const TypeParam tiny = std::numeric_limits<TypeParam>::denorm_min();
  struct Case {
    std::vector<TypeParam> dl, d, du;
    int64_t info;
  };
  const Case cases[] = {{{1, 1, 1}, {0, 2, 2, 2}, {1, 1, 1}, 1},     // given so
                        {{2, 1, 1}, {1, 2, 5, 5}, {1, 1, 1}, 2},     // 2 - 2 * 1
                        {{0, 0, 0}, {1, 1, 1, 0}, {0, 0, 0}, 4},     // the last
                        {{0, 0, 0}, {1, 1, tiny, 1}, {0, 0, 0}, 3},  // too small to invert
                        {{0, 0, 0}, {1, 0, 0, 1}, {0, 0, 0}, 2}};    // the first of two
  for (const Case& c : cases) {
    auto dl = c.dl, d = c.d, du = c.du;
    int64_t info = -7;
    R::factor(&n, dl.data(), d.data(), du.data(), &info);
    EXPECT_EQ(info, c.info);
    dl = c.dl, d = c.d, du = c.du;
    std::vector<TypeParam> b = {1, 2, 3, 4};
    R::one_step(&n, &one, dl.data(), d.data(), du.data(), b.data(), &n, &info);
    EXPECT_EQ(info, c.info);
    EXPECT_EQ(b, (std::vector<TypeParam>{1, 2, 3, 4}));
  }
}

}  // namespace
}  // namespace orvik::serv::test

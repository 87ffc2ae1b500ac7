// The typed front of BLAS and LAPACK, whatever package the environment leads it to.
#include "serv/blas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace blas = orvik::serv::blas;

bool is_mapped(const std::string& file) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.find(file) != std::string::npos) return true;
  }
  return false;
}

// First of all: until a routine is wanted, no package is loaded.
TEST(BlasBinding, NothingIsLoadedBeforeTheFirstUse) {
  EXPECT_FALSE(is_mapped("libblas"));
  EXPECT_FALSE(is_mapped("liblapack"));
}

TEST(BlasBinding, AMissingPackageIsAnAnswer) {
  blas::pretend_missing(true);
  EXPECT_FALSE(blas::load());
  double a[1] = {4.0}, b[1] = {3.0}, c[1] = {7.0};
  EXPECT_EQ(blas::gemm('N', 'N', 1, 1, 1, 1.0, a, 1, b, 1, 0.0, c, 1), blas::kMissing);
  EXPECT_EQ(c[0], 7.0);
  EXPECT_EQ(blas::potrf('L', 1, a, 1), blas::kMissing);
  EXPECT_EQ(a[0], 4.0);
  blas::pretend_missing(false);
  EXPECT_TRUE(blas::load());
}

TEST(BlasBinding, ManyThreadsMayBindAtOnce) {
  std::vector<std::thread> threads;
  std::vector<int> loaded(4);
  for (size_t t = 0; t < 4; ++t) threads.emplace_back([&loaded, t] { loaded[t] = blas::load(); });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(loaded, std::vector<int>(4, 1));
}

// The test runs once per installed package, led there by LD_LIBRARY_PATH.
TEST(BlasBinding, ThePackageIsTheOneThatWasAskedFor) {
  const char* directory = getenv("ORVIK_TEST_BLAS_DIRECTORY");
  if (directory == nullptr) GTEST_SKIP() << "no package asked for";
  ASSERT_TRUE(blas::load());
  EXPECT_TRUE(is_mapped(directory)) << directory;
}

// Column-major matrices with a leading dimension above their rows, against plain loops.
template <typename T>
struct Matrix {
  Matrix(int rows, int columns, unsigned seed = 0) : rows(rows), columns(columns), ld(rows + 3) {
    data.assign(static_cast<size_t>(ld * columns), T(-77));
    for (int j = 0; j < columns; ++j) {
      for (int i = 0; i < rows; ++i)
        at(i, j) = seed == 0 ? T(0) : T(static_cast<int>((seed = seed * 1103515245u + 12345u) >> 16 & 255) - 128) / 64;
    }
  }
  T& at(int i, int j) { return data[static_cast<size_t>(j * ld + i)]; }
  T at(int i, int j) const { return data[static_cast<size_t>(j * ld + i)]; }
  Matrix transposed() const {
    Matrix t(columns, rows);
    for (int i = 0; i < rows; ++i) {
      for (int j = 0; j < columns; ++j) t.at(j, i) = at(i, j);
    }
    return t;
  }
  int rows, columns, ld;
  std::vector<T> data;
};

template <typename T>
Matrix<T> product(const Matrix<T>& a, const Matrix<T>& b) {
  Matrix<T> c(a.rows, b.columns);
  for (int i = 0; i < a.rows; ++i) {
    for (int j = 0; j < b.columns; ++j) {
      for (int k = 0; k < a.columns; ++k) c.at(i, j) += a.at(i, k) * b.at(k, j);
    }
  }
  return c;
}

// alpha p + beta c, elementwise
template <typename T>
Matrix<T> combine(T alpha, const Matrix<T>& p, T beta, const Matrix<T>& c) {
  Matrix<T> r = c;
  for (int i = 0; i < p.rows; ++i) {
    for (int j = 0; j < p.columns; ++j) r.at(i, j) = alpha * p.at(i, j) + beta * c.at(i, j);
  }
  return r;
}

// Every element, those between the columns included: nothing outside the matrix may be written.
template <typename T>
void expect_same(const Matrix<T>& got, const Matrix<T>& want) {
  ASSERT_EQ(got.data.size(), want.data.size());
  const T tolerance = std::is_same_v<T, float> ? T(2e-4) : T(1e-12);
  for (size_t i = 0; i < got.data.size(); ++i) EXPECT_NEAR(got.data[i], want.data[i], tolerance) << i;
}

template <typename T>
Matrix<T> symmetric(int n, unsigned seed) {
  const Matrix<T> a(n, n, seed);
  return combine(T(1), a, T(1), a.transposed());
}

template <typename T>
Matrix<T> positive_definite(int n, unsigned seed) {
  const Matrix<T> a(n, n, seed);
  Matrix<T> p = product(a, a.transposed());
  for (int i = 0; i < n; ++i) p.at(i, i) += T(n);
  return p;
}

template <typename T>
Matrix<T> lower_part(Matrix<T> a) {
  for (int j = 0; j < a.columns; ++j) {
    for (int i = 0; i < j; ++i) a.at(i, j) = T(0);
  }
  return a;
}

template <typename T>
class Blas : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(blas::load()) << "no BLAS or LAPACK package on this machine"; }
};
using Types = testing::Types<float, double>;
TYPED_TEST_SUITE(Blas, Types);

TYPED_TEST(Blas, Gemm) {
  using T = TypeParam;
  const Matrix<T> a(5, 3, 1), b(4, 3, 2), c(5, 4, 3);
  Matrix<T> r = c;
  EXPECT_EQ(blas::gemm('N', 'T', 5, 4, 3, 0.5, a.data.data(), a.ld, b.data.data(), b.ld, -2, r.data.data(), r.ld), 0);
  expect_same(r, combine(T(0.5), product(a, b.transposed()), T(-2), c));
}

TYPED_TEST(Blas, Gemv) {
  using T = TypeParam;
  const Matrix<T> a(5, 3, 4), x(5, 1, 5), y(3, 1, 6);
  Matrix<T> r = y;
  EXPECT_EQ(blas::gemv('T', 5, 3, 2, a.data.data(), a.ld, x.data.data(), 1, 3, r.data.data(), 1), 0);
  expect_same(r, combine(T(2), product(a.transposed(), x), T(3), y));
}

TYPED_TEST(Blas, Symm) {
  using T = TypeParam;
  const Matrix<T> a = symmetric<T>(4, 7), b(4, 6, 8), c(4, 6, 9);
  const Matrix<T> half = lower_part(a);
  Matrix<T> r = c;
  EXPECT_EQ(blas::symm('L', 'L', 4, 6, 1.5, half.data.data(), half.ld, b.data.data(), b.ld, 1, r.data.data(), r.ld), 0);
  expect_same(r, combine(T(1.5), product(a, b), T(1), c));
}

TYPED_TEST(Blas, SyrTouchesItsTriangleOnly) {
  using T = TypeParam;
  const Matrix<T> x(5, 1, 10), a(5, 5, 11);
  Matrix<T> r = a, want = a;
  EXPECT_EQ(blas::syr('L', 5, 2, x.data.data(), 1, r.data.data(), r.ld), 0);
  for (int j = 0; j < 5; ++j) {
    for (int i = j; i < 5; ++i) want.at(i, j) += 2 * x.at(i, 0) * x.at(j, 0);
  }
  expect_same(r, want);
}

TYPED_TEST(Blas, SyrkTouchesItsTriangleOnly) {
  using T = TypeParam;
  const Matrix<T> a(6, 4, 12), c(4, 4, 13);
  Matrix<T> r = c, want = c;
  EXPECT_EQ(blas::syrk('U', 'T', 4, 6, 0.5, a.data.data(), a.ld, 2, r.data.data(), r.ld), 0);
  const Matrix<T> full = combine(T(0.5), product(a.transposed(), a), T(2), c);
  for (int j = 0; j < 4; ++j) {
    for (int i = 0; i <= j; ++i) want.at(i, j) = full.at(i, j);
  }
  expect_same(r, want);
}

TYPED_TEST(Blas, Trmm) {
  using T = TypeParam;
  const Matrix<T> a = lower_part(Matrix<T>(4, 4, 14)), b(5, 4, 15);
  Matrix<T> r = b;
  EXPECT_EQ(blas::trmm('R', 'L', 'T', 'N', 5, 4, 2, a.data.data(), a.ld, r.data.data(), r.ld), 0);
  expect_same(r, combine(T(2), product(b, a.transposed()), T(0), b));
}

TYPED_TEST(Blas, TpmvTakesTheColumnsOfATriangle) {
  using T = TypeParam;
  const Matrix<T> a = lower_part(Matrix<T>(4, 4, 17)), x(4, 1, 18);
  std::vector<T> packed;
  for (int j = 0; j < 4; ++j)
    for (int i = j; i < 4; ++i) packed.push_back(a.at(i, j));
  Matrix<T> r = x;
  EXPECT_EQ(blas::tpmv('L', 'N', 'N', 4, packed.data(), r.data.data(), 1), 0);
  expect_same(r, product(a, x));
}

TYPED_TEST(Blas, PotrfFactors) {
  using T = TypeParam;
  const Matrix<T> a = positive_definite<T>(6, 16);
  Matrix<T> l = a;
  ASSERT_EQ(blas::potrf('L', 6, l.data.data(), l.ld), 0);
  l = lower_part(l);
  const Matrix<T> back = product(l, l.transposed());
  expect_same(combine(T(1), back, T(0), a), a);
}

TYPED_TEST(Blas, PotrfNamesTheMinorThatIsNotPositive) {
  using T = TypeParam;
  T a[9] = {4, 0, 0, 0, 9, 0, 0, 0, -1};
  EXPECT_EQ(blas::potrf('L', 3, a, 3), 3);
}

TYPED_TEST(Blas, PotriInvertsTheFactoredMatrix) {
  using T = TypeParam;
  const int n = 5;
  const Matrix<T> a = positive_definite<T>(n, 17);
  Matrix<T> inverse = a;
  ASSERT_EQ(blas::potrf('U', n, inverse.data.data(), inverse.ld), 0);
  ASSERT_EQ(blas::potri('U', n, inverse.data.data(), inverse.ld), 0);
  for (int j = 0; j < n; ++j) {
    for (int i = j + 1; i < n; ++i) inverse.at(i, j) = inverse.at(j, i);
  }
  Matrix<T> identity(n, n);
  for (int i = 0; i < n; ++i) identity.at(i, i) = 1;
  expect_same(product(a, inverse), identity);
}

TYPED_TEST(Blas, TrtriInvertsATriangle) {
  using T = TypeParam;
  const int n = 5;
  Matrix<T> a = lower_part(Matrix<T>(n, n, 18));
  for (int i = 0; i < n; ++i) a.at(i, i) = T(4 + i);
  Matrix<T> inverse = a;
  ASSERT_EQ(blas::trtri('L', 'N', n, inverse.data.data(), inverse.ld), 0);
  Matrix<T> identity(n, n);
  for (int i = 0; i < n; ++i) identity.at(i, i) = 1;
  expect_same(product(a, inverse), identity);
  a.at(2, 2) = 0;
  EXPECT_EQ(blas::trtri('L', 'N', n, a.data.data(), a.ld), 3);
}

// Columns of v are eigenvectors: a v = v diag(w).
template <typename T>
void expect_eigenpairs(const Matrix<T>& a, const Matrix<T>& v, const std::vector<T>& w) {
  Matrix<T> scaled = v;
  for (int j = 0; j < v.columns; ++j) {
    for (int i = 0; i < v.rows; ++i) scaled.at(i, j) *= w[static_cast<size_t>(j)];
  }
  const Matrix<T> image = product(a, v);
  expect_same(combine(T(1), image, T(0), scaled), scaled);
}

TYPED_TEST(Blas, SyevGivesEigenpairs) {
  using T = TypeParam;
  const Matrix<T> a = symmetric<T>(5, 19);
  Matrix<T> v = a;
  std::vector<T> w(5), work(1);
  ASSERT_EQ(blas::syev('V', 'U', 5, v.data.data(), v.ld, w.data(), work.data(), -1), 0);
  work.resize(static_cast<size_t>(work[0]));
  ASSERT_GE(work.size(), 14u);
  ASSERT_EQ(blas::syev('V', 'U', 5, v.data.data(), v.ld, w.data(), work.data(), static_cast<int32_t>(work.size())), 0);
  EXPECT_TRUE(std::is_sorted(w.begin(), w.end()));
  expect_eigenpairs(a, v, w);
}

TYPED_TEST(Blas, SpevdGivesEigenpairsOfAPackedMatrix) {
  using T = TypeParam;
  const int n = 5;
  const Matrix<T> a = symmetric<T>(n, 20);
  std::vector<T> packed, w(n), work(1 + 6 * n + n * n);
  std::vector<int32_t> iwork(3 + 5 * n);
  for (int j = 0; j < n; ++j) {
    for (int i = j; i < n; ++i) packed.push_back(a.at(i, j));
  }
  Matrix<T> v(n, n);
  ASSERT_EQ(blas::spevd('V', 'L', n, packed.data(), w.data(), v.data.data(), v.ld, work.data(),
                        static_cast<int32_t>(work.size()), iwork.data(), static_cast<int32_t>(iwork.size())),
            0);
  expect_eigenpairs(a, v, w);
}

}  // namespace

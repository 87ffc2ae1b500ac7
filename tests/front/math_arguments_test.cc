// Bad and odd arguments of the vector functions: each gets its status and leaves everything as it was.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "front/math_calls.h"
#include "serv/memory.h"

namespace orvik::front::test {
namespace {

class MathArguments : public testing::Test {
 protected:
  std::vector<double> a{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, b = a, r = std::vector<double>(12, -7), r2 = r;
  const std::vector<double> before_a = a, before_r = r;
  orvik_math_options options = {ORVIK_HA, 1, nullptr, 0, 77};

  void expect_untouched() {
    EXPECT_EQ(a, before_a);
    EXPECT_EQ(r, before_r);
    EXPECT_EQ(r2, before_r);
    EXPECT_EQ(options.report_count, 77);
  }
};

TEST_F(MathArguments, NullArrays) {
  EXPECT_EQ(orvik_dexp(4, nullptr, r.data(), &options), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_dexp(4, a.data(), nullptr, &options), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_dadd(4, a.data(), nullptr, r.data(), &options), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_dsincos(4, a.data(), r.data(), nullptr, &options), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_dlinearfrac(4, a.data(), nullptr, 1, 0, 1, 0, r.data(), &options), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_dexp_strided(4, nullptr, 1, r.data(), 1, &options), ORVIK_ERROR_NULL_POINTER);
  expect_untouched();
}

TEST_F(MathArguments, EveryFunctionRefusesNullArraysNegativeLengthsAndBadLevels) {
  for (const Functions& f : functions()) {
    const Row& row = *rows::find(f.row);
    for (const bool strided : {false, true}) {
      MathCall c;
      c.n = 3;
      EXPECT_EQ(call(row, f, strided, c, nullptr), ORVIK_ERROR_NULL_POINTER) << f.row;
      c.n = -1;
      EXPECT_EQ(call(row, f, strided, c, nullptr), ORVIK_ERROR_BAD_LENGTH) << f.row;
      c.n = 0;
      EXPECT_EQ(call(row, f, strided, c, nullptr), ORVIK_SUCCESS) << f.row;
      orvik_math_options bad = {3, 0, nullptr, 0, 77};
      EXPECT_EQ(call(row, f, strided, c, &bad), ORVIK_ERROR_BAD_ACCURACY) << f.row;
      EXPECT_EQ(bad.report_count, 77);
    }
  }
}

TEST_F(MathArguments, NegativeLengthsAndThoseOfNoMemory) {
  for (const int64_t n : {int64_t{-1}, INT64_MIN, INT64_MAX, int64_t{1} << 60, int64_t{1} << 47}) {
    EXPECT_EQ(orvik_dexp(n, a.data(), r.data(), &options), ORVIK_ERROR_BAD_LENGTH) << n;
    EXPECT_EQ(orvik_dexp_strided(n, a.data(), 1, r.data(), 1, &options), ORVIK_ERROR_BAD_LENGTH) << n;
  }
  for (const int64_t inc : {INT64_MAX, INT64_MIN, int64_t{1} << 46, -(int64_t{1} << 46)}) {
    EXPECT_EQ(orvik_dexp_strided(2, a.data(), inc, r.data(), 1, &options), ORVIK_ERROR_BAD_LENGTH) << inc;
    EXPECT_EQ(orvik_dexp_strided(2, a.data(), 1, r.data(), inc, &options), ORVIK_ERROR_BAD_LENGTH) << inc;
  }
  options.report_capacity = -1;
  EXPECT_EQ(orvik_dexp(4, a.data(), r.data(), &options), ORVIK_ERROR_BAD_LENGTH);
  expect_untouched();
}

TEST_F(MathArguments, BadLevelsAndThreads) {
  for (const int32_t accuracy : {-1, 3, INT32_MAX, INT32_MIN}) {
    options.accuracy = accuracy;
    EXPECT_EQ(orvik_dexp(4, a.data(), r.data(), &options), ORVIK_ERROR_BAD_ACCURACY);
  }
  options.accuracy = ORVIK_LA;
  for (const int32_t threads : {-1, INT32_MIN}) {
    options.threads = threads;
    EXPECT_EQ(orvik_dexp(4, a.data(), r.data(), &options), ORVIK_ERROR_BAD_PARAMETER);
  }
  expect_untouched();
  options.threads = INT32_MAX;
  EXPECT_EQ(orvik_dexp(4, a.data(), r.data(), &options), ORVIK_SUCCESS);
}

TEST_F(MathArguments, NoElementsNeedNoArrays) {
  EXPECT_EQ(orvik_dexp(0, nullptr, nullptr, nullptr), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_dexp(0, nullptr, nullptr, &options), ORVIK_SUCCESS);
  EXPECT_EQ(options.report_count, 0);
  EXPECT_EQ(orvik_dsincos(0, a.data(), a.data(), a.data(), nullptr), ORVIK_SUCCESS);
}

TEST_F(MathArguments, OverlapsAreRefused) {
  double* const x = a.data();
  EXPECT_EQ(orvik_dexp(4, x, x + 1, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dexp(4, x + 1, x, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dexp(4, x + 3, x, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dadd(4, r.data(), x, x + 2, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dsincos(4, x, r.data(), r.data(), &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dsincos(4, x, r.data(), r.data() + 3, &options), ORVIK_ERROR_OVERLAP);
  // Interleaved, another increment, no increment of a result.
  EXPECT_EQ(orvik_dexp_strided(4, x, 2, x + 1, 2, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dexp_strided(4, x, 2, x, 1, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dexp_strided(4, x, 1, r.data(), 0, &options), ORVIK_ERROR_OVERLAP);
  EXPECT_EQ(orvik_dexp_strided(4, x + 3, -1, x, 1, &options), ORVIK_ERROR_OVERLAP);
  // Another element type at the same start.
  auto* const z = reinterpret_cast<ZymComplexDouble*>(x);
  EXPECT_EQ(orvik_zabs(4, z, x, &options), ORVIK_ERROR_OVERLAP);
  expect_untouched();
}

TEST_F(MathArguments, NeighboursDoNotOverlap) {
  double* const x = a.data();
  EXPECT_EQ(orvik_dabs(4, x, x + 4, &options), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_dabs(4, x + 4, x, &options), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_dabs_strided(4, x + 3, -1, x + 4, 1, &options), ORVIK_SUCCESS);
  EXPECT_EQ(std::vector<double>(x + 4, x + 8), (std::vector<double>{4, 3, 2, 1}));
}

TEST_F(MathArguments, InPlaceIsAllowed) {
  std::vector<double> want(12);
  ASSERT_EQ(orvik_dexp(12, a.data(), want.data(), nullptr), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_dexp(12, a.data(), a.data(), &options), ORVIK_SUCCESS);
  EXPECT_EQ(a, want);
  a = before_a;
  ASSERT_EQ(orvik_dexp_strided(12, a.data() + 11, -1, a.data() + 11, -1, &options), ORVIK_SUCCESS);
  EXPECT_EQ(a, want);
  a = before_a;
  ASSERT_EQ(orvik_dadd(12, a.data(), b.data(), b.data(), &options), ORVIK_SUCCESS);
  EXPECT_EQ(b[11], 24);
  ASSERT_EQ(orvik_dsincos(12, a.data(), a.data(), r.data(), &options), ORVIK_SUCCESS);
}

TEST_F(MathArguments, AnInputIncrementOfZeroRepeatsOneElement) {
  ASSERT_EQ(orvik_dadd_strided(4, a.data() + 2, 0, b.data() + 3, -1, r.data(), 3, &options), ORVIK_SUCCESS);
  EXPECT_EQ(r, (std::vector<double>{7, -7, -7, 6, -7, -7, 5, -7, -7, 4, -7, -7}));
  ASSERT_EQ(orvik_dabs_strided(1, a.data(), 0, r.data(), 0, &options), ORVIK_SUCCESS);
  EXPECT_EQ(r[0], 1);
}

TEST_F(MathArguments, IncrementsBeyondThirtyTwoBits) {
  // The second element of an input lies 16 GB behind the first; both are mapped, nothing between.
  const int64_t inc = (int64_t{1} << 31) + 512;
  EXPECT_EQ(orvik_dabs_strided(1, a.data(), inc, r.data(), -inc, &options), ORVIK_SUCCESS);
  EXPECT_EQ(r[0], 1);
}

TEST_F(MathArguments, ReportsCountWithoutRoom) {
  a[2] = a[7] = 0;
  ASSERT_EQ(orvik_dln(12, a.data(), r.data(), &options), ORVIK_SINGULARITY);
  EXPECT_EQ(options.report_count, 2);
  options.report_capacity = 5;  // of no array
  ASSERT_EQ(orvik_dln(12, a.data(), r.data(), &options), ORVIK_SINGULARITY);
  EXPECT_EQ(options.report_count, 2);
}

TEST_F(MathArguments, TheStatusIsTheLeastCode) {
  const double x[] = {1e300, 1, -1e300};
  double y[3];
  EXPECT_EQ(orvik_dexp(3, x, y, nullptr), ORVIK_OVERFLOW);
  EXPECT_EQ(orvik_dexp(1, x + 2, y, nullptr), ORVIK_UNDERFLOW);
  const double z[] = {0, -1};
  EXPECT_EQ(orvik_dln(2, z, y, nullptr), ORVIK_DOMAIN);
  EXPECT_EQ(orvik_dln(1, z, y, nullptr), ORVIK_SINGULARITY);
}

TEST_F(MathArguments, WithoutMemoryForReportsOneThreadDoesIt) {
  std::vector<double> x(1000, 0.0), y(1000);
  std::vector<orvik_report> reports(1000);
  orvik_math_options o = {ORVIK_HA, 3, reports.data(), 1000, 0};
  const int64_t live = serv::live_allocations();
  serv::fail_allocation_after(1);
  EXPECT_EQ(orvik_dln(1000, x.data(), y.data(), &o), ORVIK_SINGULARITY);
  serv::fail_allocation_after(0);
  EXPECT_EQ(serv::live_allocations(), live);
  EXPECT_EQ(o.report_count, 1000);
  EXPECT_EQ(reports[999].index, 999);
}

}  // namespace
}  // namespace orvik::front::test

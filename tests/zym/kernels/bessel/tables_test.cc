// The tables of expansions against the functions, with the coefficients as they are stored and no rounding else: the
// worst error of every row, in units of the larger of the value and half the amplitude. Printed by interval with
// ORVIK_PRINT_ROWS in the environment.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "cylinder.h"
#include "zym/kernels/bessel/tables.h"

namespace orvik::test {
namespace {

using approx::Real;

struct Interval {
  double from, to;
};
Interval interval(int function, int row) {
  const bool singular = function == 2 || function == 3;
  if (singular && row < 56) {
    const double power = std::exp2(row / 8 - 5);
    return {power * (1 + row % 8 / 8.0), power * (1 + (row % 8 + 1) / 8.0)};
  }
  const double middle = (singular ? row - 48 : row) / 2.0;
  return {std::fmax(middle - 0.25, 0), middle + 0.25};
}

Real value_of(const double (&row)[16], const Real& x) {
  const Real h = x - Real(row[14]);
  Real sum = row[0];
  for (int k = 1; k < 9; ++k) sum = sum * h + row[k];
  sum = sum * h + Real(row[9]) + row[15];
  return (sum * h + Real(row[10]) + row[12]) * h + Real(row[11]) + row[13];
}
Real value_of(const double (&row)[8], const Real& x) {
  const Real h = x - Real(row[7]);
  Real sum = row[0];
  for (int k = 1; k < 7; ++k) sum = sum * h + row[k];
  return sum;
}

template <int Rows, int Columns>
void expect_rows_within(const char* name, int function, const double (&rows)[Rows][Columns], double bound) {
  const approx::Precision precision(200);
  double worst_of_all = 0;
  for (int row = 0; row < Rows; ++row) {
    const auto [from, to] = interval(function, row);
    double worst = 0;
    for (int k = 0; k <= 24; ++k) {
      const Real x = from + (to - from) * k / 24;
      if (mpfr_zero_p(x.get()) != 0) continue;
      const Real exact = approx::cylinder(function, x);
      const double size = std::fabs(mpfr_get_d(exact.get(), MPFR_RNDN));
      const double middle = (from + to) / 2;
      const bool oscillates = function < 4 && middle > (function == 2 ? 0.8 : 2);
      const double floor = oscillates ? std::fmin(0.5, std::sqrt(2 / (M_PI * middle))) / 2 : 0;
      const Real difference = value_of(rows[row], x) - exact;
      worst = std::fmax(worst, std::fabs(mpfr_get_d(difference.get(), MPFR_RNDN)) / std::fmax(size, floor));
    }
    if (std::getenv("ORVIK_PRINT_ROWS") != nullptr)
      std::printf("%s [%g, %g]: 2^%.1f\n", name, from, to, std::log2(worst));
    EXPECT_LT(worst, bound) << name << " row " << row;
    worst_of_all = std::fmax(worst_of_all, worst);
  }
  std::printf("%s: 2^%.1f\n", name, std::log2(worst_of_all));
}

TEST(BesselTables, RowsOfDoublesAreWithinTheirBound) {
  constexpr double kBound = 0x1p-56;
  expect_rows_within("kJ0Rows64", 0, zym::bessel::kJ0Rows64, kBound);
  expect_rows_within("kJ1Rows64", 1, zym::bessel::kJ1Rows64, kBound);
  expect_rows_within("kY0Rows64", 2, zym::bessel::kY0Rows64, kBound);
  expect_rows_within("kY1Rows64", 3, zym::bessel::kY1Rows64, kBound);
  expect_rows_within("kI0Rows64", 4, zym::bessel::kI0Rows64, kBound);
  expect_rows_within("kI1Rows64", 5, zym::bessel::kI1Rows64, kBound);
}
TEST(BesselTables, RowsOfFloatsAreWithinTheirBound) {
  constexpr double kBound = 0x1p-29;
  expect_rows_within("kJ0Rows32", 0, zym::bessel::kJ0Rows32, kBound);
  expect_rows_within("kJ1Rows32", 1, zym::bessel::kJ1Rows32, kBound);
  expect_rows_within("kY0Rows32", 2, zym::bessel::kY0Rows32, kBound);
  expect_rows_within("kY1Rows32", 3, zym::bessel::kY1Rows32, kBound);
  expect_rows_within("kI0Rows32", 4, zym::bessel::kI0Rows32, kBound);
  expect_rows_within("kI1Rows32", 5, zym::bessel::kI1Rows32, kBound);
}

}  // namespace
}  // namespace orvik::test

// Complex elements of both widths for the tests of the complex families.
#pragma once

#include <cmath>
#include <limits>
#include <string>

#include "support/row_calls.h"

namespace orvik::test {

using ComplexElements = testing::Types<ZymComplexFloat, ZymComplexDouble>;

template <class C>
class ComplexTest : public testing::Test {
 protected:
  using E = Part<C>;
  using L = std::numeric_limits<E>;
  static constexpr E inf = L::infinity(), nan = L::quiet_NaN(), largest = L::max(), smallest = L::min(),
                     tiny = L::denorm_min();

  static std::string row(const std::string& function) { return (sizeof(E) == 4 ? "c" : "z") + function; }
  static C of(double re, double im) { return element<C>(re, im); }

  // At every level this value, any NaN for a NaN, and this code.
  static void expect(const std::string& function, C a, C b, C want, int32_t code = 0) {
    expect_element<C, C>(row(function), a, b, want, code);
  }
  static void expect(const std::string& function, C a, C want, int32_t code = 0) {
    expect(function, a, C{1, 0}, want, code);
  }
  // At every level this code and results that are infinite where `want` is.
  static void expect_code(const std::string& function, C a, C b, bool re_infinite, bool im_infinite, int32_t code) {
    for (int level = 0; level < 3; ++level) {
      const Outcome<C> got = evaluate<C, C>(row(function), level, a, b);
      EXPECT_EQ(std::isinf(got.r1.re), re_infinite)
          << row(function) << kLevelNames[level] << show(a) << show(b) << show(got.r1);
      EXPECT_EQ(std::isinf(got.r1.im), im_infinite)
          << row(function) << kLevelNames[level] << show(a) << show(b) << show(got.r1);
      EXPECT_EQ(got.code, code) << row(function) << kLevelNames[level] << show(a) << show(b);
    }
  }
};

inline constexpr int32_t kOverflowCode = 3;

}  // namespace orvik::test

#include "expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace orvik::approx {
namespace {

double value(const std::string& text) {
  const Precision precision(200);
  return mpfr_get_d(Expression(text)(Names{}).get(), MPFR_RNDN);
}

TEST(Expression, has_the_usual_precedence) {
  EXPECT_EQ(value("1 + 2 * 3 - 4 / 8"), 6.5);
  EXPECT_EQ(value("-2^2"), -4);
  EXPECT_EQ(value("2^3^2"), 512);
  EXPECT_EQ(value("2^-1"), 0.5);
  EXPECT_EQ(value("8 - 4 - 2"), 2);
  EXPECT_EQ(value("8 / 4 / 2"), 1);
  EXPECT_EQ(value("(1 + 2) * 3"), 9);
}
TEST(Expression, reads_numbers_as_c_does) {
  EXPECT_EQ(value("7.34e-4"), 7.34e-4);
  EXPECT_EQ(value("0x1.8p-1"), 0.75);
  EXPECT_EQ(value("0x1.8p-1 - 0.25"), 0.5);
  EXPECT_EQ(value("1e2-1"), 99);
}
TEST(Expression, chooses_by_a_comparison) {
  EXPECT_EQ(value("1 < 2 ? 3 : 4"), 3);
  EXPECT_EQ(value("1 >= 2 ? 3 : 5 == 5 ? 6 : 7"), 6);
  EXPECT_EQ(value("1 != 1 ? 3 : 4"), 4);
}
TEST(Expression, knows_functions) {
  EXPECT_EQ(value("log2(8)"), 3);
  EXPECT_EQ(value("cos(pi)"), -1);
  EXPECT_NEAR(value("erf(0.5)"), std::erf(0.5), 1e-15);
  EXPECT_EQ(value("mod(-3, 8)"), 5);
  EXPECT_EQ(value("grid(0.3, 1/4)"), 0.25);
  EXPECT_EQ(value("bits(0x1.ffp0, 4)"), 2);
  EXPECT_EQ(value("trunc_bits(0x1.ffp0, 4)"), 0x1.ep0);
  EXPECT_EQ(value("float(0.1)"), 0.1F);
  EXPECT_EQ(value("float_up(0.3)"), std::nextafter(0.3F, 0.0F) < 0.3 ? 0.3F : std::nextafter(0.3F, 1.0F));
  EXPECT_EQ(value("double_down(1/10) < 1/10"), 1);
  EXPECT_EQ(value("double_up(1/10) > 1/10"), 1);
  EXPECT_EQ(value("float(2^-149 / 2 * 1.5)"), 0x1p-149);
  EXPECT_EQ(value("exponent(3)"), 1);
  EXPECT_EQ(value("min(2, 3) + max(2, 3)"), 5);
}
// Twice the same side: the value on the left comes from Newton's method, its terms from a differential equation.
TEST(Expression, expands_the_inverse_error_function) {
  const double z = 1.25, t = std::erf(z);
  EXPECT_NEAR(value("erfinv_term(-log(1 - erf(1.25)^2), 0)"), z / t, 1e-15);
  EXPECT_NEAR(value("erfinv_term(0, 0)"), std::sqrt(M_PI) / 2, 1e-15);
  std::string sum = "erfinv_term(3, 0)";
  for (int k = 1; k <= 15; ++k) sum += " + erfinv_term(3, " + std::to_string(k) + ") / 16^" + std::to_string(k);
  EXPECT_LT(std::abs(value(sum + " - erfinv_term(3 + 1/16, 0)")), 1e-30);
  EXPECT_NEAR(value("erfinv_term(743, 0)"), 27.2, 0.05);  // next to the smallest denormal number
}
TEST(Expression, knows_bessel_functions_their_zeros_and_expansions) {
  EXPECT_EQ(value("cylinder(0, 1)"), value("j0(1)"));
  EXPECT_EQ(value("cylinder(3, 2.5)"), value("y1(2.5)"));
  EXPECT_NEAR(value("cylinder(4, 1)"), 1.2660658777520084, 1e-15);
  EXPECT_NEAR(value("cylinder(5, 100) * exp(-100)"), 0.03974415302513, 1e-13);
  EXPECT_NEAR(value("cylinder_slope(1, 3)"), value("j0(3) - j1(3)/3"), 1e-16);
  EXPECT_EQ(value("cylinder_slope(5, 0)"), 0.5);
  EXPECT_EQ(value("cylinder_centre(0, 2, 3)"), 2.404825557695773);
  EXPECT_EQ(value("cylinder_centre(0, 3, 4)"), 3.5);
  EXPECT_NEAR(value("cylinder_inverse(4, cylinder(4, 20))"), 20, 1e-12);
  // Two points: the mean slope between them; large arguments: 1/16 and 1/8 are the limits.
  EXPECT_NEAR(value("cylinder_rest(0, 0, 1, 1.0001, 1, 2, 1)"), value("-j1(1)"), 1e-4);
  EXPECT_NEAR(value("cylinder_rest(0, 2, 1, 1.0001, 1, 2, 0)"), value("(j1(1) - j0(1))/2"), 1e-4);
  EXPECT_NEAR(value("cylinder(6, 1e-6)"), -0.0625, 1e-6);
  EXPECT_NEAR(value("cylinder(8, 1e-6)"), -0.125, 1e-6);
  EXPECT_NEAR(value("cylinder(10, 1e-3)"), 0.0703125, 1e-3);
}
TEST(Expression, names_and_polynomials_come_from_outside) {
  const Real x = 2.0;
  const std::vector<Real> p = {3.0, 4.0, 5.0};
  const Names names{.value = [&](const std::string& name) { return name == "x" ? &x : nullptr; },
                    .polynomial = [&](const std::string& name) { return name == "p" ? &p : nullptr; }};
  EXPECT_EQ(mpfr_get_d(Expression("p(x) + p(1)")(names).get(), MPFR_RNDN), 25 + 12);
  EXPECT_THROW(Expression("y")(names), std::runtime_error);
  EXPECT_THROW(Expression("q(x)")(names), std::runtime_error);
}
TEST(Expression, finds_numbers_whose_reciprocals_are_in_the_format) {
  EXPECT_EQ(value("with_reciprocal(1, 53, 10)"), 1);
  // 32 / 1.3125, / 1.375, / 1.25 and / 1.4375 are further than an eighth from an integer, 32 / 1.1875 is not.
  EXPECT_EQ(value("with_reciprocal(1.3, 5, 3)"), 1.1875);
  for (const char* x : {"2^(1/16)", "2^(15/16)", "1.9999"}) {
    const std::string u = "with_reciprocal(" + std::string(x) + ", 53, 10)";
    EXPECT_EQ(value(u + " == double(" + u + ")"), 1) << x;
    EXPECT_LT(value("abs(double(1/" + u + ") * " + u + " - 1)"), 0x1p-62) << x;
    EXPECT_LT(value("abs(" + u + " - " + x + ")"), 0x1p-30) << x;
  }
}
TEST(Expression, finds_convergents) {
  EXPECT_EQ(value("ratio_over(pi, 999)"), 355);
  EXPECT_EQ(value("ratio_under(pi, 999)"), 113);
  EXPECT_EQ(value("ratio_over(pi, 354)"), 333);  // of 333/106, the one before
  EXPECT_EQ(value("ratio_under(1/pi, 333)"), 333);
  EXPECT_EQ(value("ratio_over(0, 8)"), 0);
  EXPECT_EQ(value("ratio_under(0, 8)"), 1);
  EXPECT_EQ(value("ratio_over(3/8, 100)"), 3);  // ends
  EXPECT_EQ(value("ratio_over(2^80, 2^32)"), 1);  // a pole: 1/0
  EXPECT_EQ(value("ratio_under(2^80, 2^32)"), 0);
}
TEST(Expression, finds_places_where_tanh_and_its_slope_are_floats_nearly) {
  for (const char* x : {"0.45", "3.5"}) {
    const std::string c = "tanh_centre(" + std::string(x) + ", 1/4, 28)", t = "tanh(" + c + ")";
    EXPECT_LT(value("abs(float(" + t + ") / " + t + " - 1)"), 0x1p-28) << x;
    EXPECT_LT(value("abs(float(1 - " + t + "^2) - (1 - " + t + "^2)) / 4"), 0x1p-28) << x;
    EXPECT_EQ(value("float(" + c + ") == " + c), 1) << x;
    EXPECT_LT(value("abs(" + c + " / " + x + " - 1)"), 0.01) << x;
  }
}
TEST(Expression, refuses_what_it_cannot_read) {
  for (const char* text : {"", "1 +", "(1", "1)", "atan2(1)", "sin(1, 2)", "1 ? 2", "#", "2 3"}) {
    EXPECT_THROW(Expression{text}, std::runtime_error) << text;
  }
}

}  // namespace
}  // namespace orvik::approx

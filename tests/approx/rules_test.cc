// Reading rules, values by them, and that a wrong value or error is seen.
#include "rules.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orvik::approx {
namespace {

Library library_of(const std::string& text) { return Library(read_header("a.h", text)); }

std::vector<std::string> texts(const std::string& header) {
  Library library = library_of(header);
  const Declaration& d = library.declarations().back();
  std::vector<std::string> made;
  for (const Stored s : library.work_out(d)) made.push_back(d.type.text(s));
  return made;
}
using Texts = std::vector<std::string>;

TEST(Table, has_parts_in_the_order_of_a_row_and_later_ones_see_the_rounded_earlier_ones) {
  EXPECT_EQ(
      texts("//: i from 3\n//: head = float(1/i)\n//: tail = (1/i - head) * 2^24\nextern const float kA[1][2];\n"),
      (Texts{"0x1.555556p-2f", "-0x1.555556p-3f"}));
}
TEST(Table, in_planes_has_all_first_parts_first) {
  EXPECT_EQ(texts("//: planes\n//: a = i\n//: b = -i\ninline constexpr float kA[2][2] = {};\n"),
            (Texts{"0.0f", "0x1p0f", "0.0f", "-0x1p0f"}));
}
TEST(Table, let_names_what_is_not_stored) {
  EXPECT_EQ(texts("//: let third = (i + 1)/3\n//: = 3 * third\ninline constexpr double kA[2] = {};\n"),
            (Texts{"0x1p0", "0x1p1"}));
}
TEST(Table, of_integers_takes_integers_only) {
  EXPECT_EQ(
      texts("//: precision 2000\n//: = mod(floor(2/pi * 2^(32 * (i + 1))), 2^32)\nextern const uint32_t kA[2];\n"),
      (Texts{"0xa2f9836e", "0x4e441529"}));
  EXPECT_EQ(texts("//: = -1\ninline constexpr int32_t kA = 0;\n"), (Texts{"0xffffffff"}));
  EXPECT_THROW(texts("//: = 1/2\ninline constexpr int32_t kA = 0;\n"), std::runtime_error);
  EXPECT_THROW(texts("//: = 256\ninline constexpr uint8_t kA = 0;\n"), std::runtime_error);
}
TEST(Table, whose_sizes_do_not_fit_its_parts_is_refused) {
  EXPECT_THROW(texts("//: a = i\n//: b = i\ninline constexpr float kA[3] = {};\n"), std::runtime_error);
}
TEST(Number, has_its_rule_behind_it_and_refers_to_others) {
  EXPECT_EQ(texts("inline constexpr double kA = 0x1.8p0;  //: = 3/2\ninline constexpr double kB = 0;  //: = 2 * kA\n"),
            (Texts{"0x1.8p1"}));
}
TEST(Number, without_a_rule_is_none_of_the_rules_business_but_an_array_is) {
  EXPECT_TRUE(read_header("a.h", "inline constexpr double kA = 1;\n").empty());
  for (const char* text : {"inline constexpr double kA[2] = {1, 2};\n", "extern const float kA[2];\n",
                           "  static constexpr float table[2] = {1, 2};\n", "const double kA[] = {\n  1};\n"}) {
    const std::vector<Declaration> found = read_header("a.h", text);
    ASSERT_EQ(found.size(), 1U) << text;
    EXPECT_FALSE(found[0].ruled()) << text;
  }
}
TEST(Rule, above_no_declaration_is_an_error) {
  EXPECT_THROW(read_header("a.h", "//: = 1\n\ninline constexpr double kA = 1;\n"), std::runtime_error);
  EXPECT_THROW(read_header("a.h", "//: nonsense\ninline constexpr double kA = 1;\n"), std::runtime_error);
}

std::string error_of(const std::string& header) {
  Library library = library_of(header);
  const Declaration& d = library.declarations().back();
  return error_text(library.worst_error(d, d.claims.at(0), d.values));
}

TEST(Polynomial, worst_error_is_that_of_the_best_linear_fit) {
  // sqrt on [1/4, 1] by x * 2/3 + 17/48: errors of 1/48 at both ends and in the middle.
  const std::string text = "inline constexpr double kA[2] = {0x1.5555555555555p-1, 0x1.6aaaaaaaaaaabp-2};\n";
  EXPECT_EQ(error_of("//: p(x) = sqrt(x) on [1/4, 1], absolute error ?\n" + text), "2^-5.5");  // log2(48) = 5.58
  EXPECT_EQ(error_of("//: p(x) = sqrt(x) on [1/4, 1], relative error ?\n" + text), "2^-4.5");
}
TEST(Polynomial, of_many_rows_has_the_error_of_the_worst) {
  EXPECT_EQ(error_of("//: p(x) = i + x on [0, 1], absolute error ?\n"
                     "inline constexpr float kA[2][2] = {{1.0f, 0.25f}, {1.0f, 1.0f}};\n"),
            "2^-2.0");
}
TEST(Polynomial, refers_to_another_by_name_and_its_claim_goes_on_in_a_second_line) {
  EXPECT_EQ(error_of("//: p(x) = x on [1, 2], relative error 0\ninline constexpr float kBelow[2] = {1.0f, 0.0f};\n"
                     "//: p(x) / kBelow(x) =\n//:   x on [1, 2], relative error ?\n"
                     "inline constexpr float kAbove[3] = {1.125f, 0.0f, 0.0f};\n"),
            "2^-3.0");
}
TEST(Polynomial, extremum_between_the_points_of_the_grid_is_found) {
  // A peak of 1/2 at pi/5 that falls to half of it within a thousandth of the interval.
  EXPECT_EQ(error_of("//: p(x) = 1 / (2 + 2000000 * (x - pi/5)^2) on [0, 1], absolute error ?\n"
                     "inline constexpr double kA[1] = {0.0};\n"),
            "2^-1.0");
}

TEST(Polynomial, through_the_chebyshev_nodes_is_exact_where_it_can_be_and_nearly_best_elsewhere) {
  Library exact = library_of(
      "//: 2 + x * p(x) = 2 + 3 * x + i * x^3 on [1, 3], absolute error ?\n//: i from 4\n//: fit chebyshev\n"
      "inline constexpr double kA[2][3] = {};\n");
  const Declaration& d = exact.declarations().back();
  Texts made;
  for (const Stored s : exact.interpolate(d)) made.push_back(d.type.text(s));
  EXPECT_EQ(made, (Texts{"0x1p2", "0.0", "0x1.8p1", "0x1.4p2", "0.0", "0x1.8p1"}));

  Library near = library_of(
      "//: p(x) = exp(x) on [-1, 1], absolute error ?\n//: fit chebyshev\n"
      "inline constexpr double kA[6] = {};\n");
  const Declaration& e = near.declarations().back();
  // The best error of degree 5 is 4.5e-5, 2^-14.4.
  EXPECT_EQ(error_text(near.worst_error(e, e.claims[0], near.interpolate(e))), "2^-14.2");
}
TEST(Polynomial, refers_to_its_row_of_a_table_whose_values_stand_elsewhere) {
  Library library = library_of(
      "//: i from 2\n//: slope = i\n//: value = 1/i\nextern const double kLow[2][2];\n"
      "//: i from 2\n//: kLow(x) + x^2 * p(x) = 1/i + i * x + x^2 / 4 on [1, 2], absolute error ?\n"
      "//: fit chebyshev\nextern const double kRest[2][1];\n"
      "//: i from 2\n//: kLow(x) + x^2 * kRest(x) + p(x) = 1/i + i * x on [1, 2], absolute error ?\n"
      "inline constexpr double kA[2][3] = {{-0.25, 0.0, 0.0}, {-0.25, 0.0, 0.0}};\n");
  const Declaration& rest = library.declarations()[1];
  const std::vector<Stored> values = library.interpolate(rest);
  ASSERT_EQ(values.size(), 2U);
  EXPECT_EQ(rest.type.text(values[0]), "0x1p-2");
  const Declaration& d = library.declarations().back();  // the head of 1/3 is rounded
  EXPECT_TRUE(library.worst_error(d, d.claims[0], d.values) < Real(0x1p-53));
}
TEST(Polynomial, of_very_many_rows_has_the_error_of_the_worst) {
  std::string rows;
  for (int i = 0; i < 150; ++i) rows += i == 0 ? "{0.0}" : ", {0.0}";
  EXPECT_EQ(error_of("//: p(x) = i < 77 ? x/4 : i < 78 ? 2 * x * (1 - x) : x/4 on [0, 1], absolute error ?\n"
                     "inline constexpr float kA[150][1] = {" +
                     rows + "};\n"),
            "2^-1.0");
}

TEST(ErrorText, is_rounded_towards_the_larger_error) {
  EXPECT_EQ(error_text(Real(0x1p-24)), "2^-24.0");
  EXPECT_EQ(error_text(Real(0x1.001p-24)), "2^-23.9");
  EXPECT_FALSE(error_value(error_text(Real(3e-9))) < Real(3e-9));
  EXPECT_EQ(error_text(Real(0.0)), "0");
  EXPECT_TRUE(error_value("0") < Real(1e-300));
}

TEST(SourcePath, is_the_name_in_small_letters) {
  Declaration d;
  d.header = "zym/kernels/explog/tables.h";
  d.name = "kExp2Frac64";
  EXPECT_EQ(source_path(d), "zym/kernels/explog/tables/exp2_frac64.cc");
  d.name = "kSinHA";
  EXPECT_EQ(source_path(d), "zym/kernels/explog/tables/sin_ha.cc");
}

}  // namespace
}  // namespace orvik::approx

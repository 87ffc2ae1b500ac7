// Walks by single steps across the ends of tables, rows and reductions, and next to zeros.
#include <cmath>

#include "bessel_bounds.h"

namespace orvik::test {
namespace {

template <class E>
class BesselSteps : public ElementTest<E> {
 protected:
  static std::vector<E> around(const std::vector<double>& centres, int steps = 12) {
    std::vector<E> x;
    for (double centre : centres) {
      E down = static_cast<E>(centre), up = down;
      x.push_back(down);
      for (int i = 0; i < steps; ++i) {
        down = std::nextafter(down, E(0)), up = std::nextafter(up, ElementTest<E>::inf);
        x.insert(x.end(), {down, up});
      }
    }
    return x;
  }
  static void expect_both(char kind, const std::vector<E>& x) {
    for (const char* order : {"0", "1"}) expect_below_an_ulp<E>(kind + std::string(order), 0, x);
  }
};
TYPED_TEST_SUITE(BesselSteps, Elements);

TYPED_TEST(BesselSteps, AcrossTheRowsOfTheTables) {
  std::vector<double> edges = {4, 2, 1, 0.5, 0.25, 0.125, 0.0625};
  for (int k = 0; k < 128; ++k) edges.push_back(k / 2.0 + 0.25);
  for (int k = 9; k < 16; ++k) edges.push_back(k / 8.0);
  const auto x = this->around(edges, 3);
  this->expect_both('J', x);
  this->expect_both('Y', x);
}
TYPED_TEST(BesselSteps, AcrossTheRowsOfTheModifiedFunctions) {
  std::vector<double> edges;
  for (int k = 0; k < 64; ++k) edges.push_back(k / 2.0 + 0.25);
  this->expect_both('I', this->around(edges, 3));
}
TYPED_TEST(BesselSteps, AcrossTheEndOfTheTables) {
  this->expect_both('J', this->around({63.75}, 40));
  this->expect_both('Y', this->around({63.75}, 40));
  this->expect_both('I', this->around({31.75}, 40));
}
TYPED_TEST(BesselSteps, AcrossTheBeginningOfTheSingularTables) {
  this->expect_both('Y', this->around({0x1p-5}, 40));
  this->expect_both('Y', this->around({0x1p-10, 1e-5, 1e-20, 0x1p-120}));
}
TYPED_TEST(BesselSteps, AcrossTheBoundsOfTheReductions) {
  const std::vector<double> bounds = {0x1p13, 0x1p16, 0x1p24, 0x1p29, 0x1p53, 1e30};
  this->expect_both('J', this->around(bounds));
  this->expect_both('Y', this->around(bounds));
}
TYPED_TEST(BesselSteps, AtTheEndsOfTheRange) {
  using E = TypeParam;
  const std::vector<E> x = {this->largest,  this->largest / 3,
                            this->smallest, this->smallest * 5,
                            this->tiny * 3, static_cast<E>(sizeof(E) == 4 ? 0x1p-120 : 0x1p-1000)};
  this->expect_both('J', x);
  this->expect_both('Y', x);
}
TYPED_TEST(BesselSteps, ModifiedFunctionsUpToOverflow) {
  const double end = sizeof(TypeParam) == 4 ? 91.9 : 713.9869;
  this->expect_both('I', this->around({end, end - 1, end - 3, 88.72, 80.5, 45.125}, 8));
}
TYPED_TEST(BesselSteps, NextToZerosTheRelativeErrorStaysBelowAnUlp) {
  using E = TypeParam;
  // In units of the result itself: the rows stand about the zeros.
  const struct {
    const char* function;
    std::vector<double> zeros;
  } kZeros[] = {{"J0", {2.4048255576957729, 5.520078110286311, 11.791534439014281, 62.048469190227166}},
                {"J1", {3.8317059702075125, 7.015586669815619, 13.323691936314223}},
                {"Y0", {0.89357696627916752, 3.9576784193148579, 10.222345043496417}},
                {"Y1", {2.197141326031017, 5.4296810407941351, 11.749154830839881}}};
  for (const auto& [function, zeros] : kZeros) {
    mpfr_t exact, at;
    mpfr_inits2(240, exact, at, nullptr);
    for (E x : this->around(zeros, 200)) {
      mpfr_set_d(at, x, MPFR_RNDN);
      function[0] == 'J' ? mpfr_jn(exact, function[1] - '0', at, MPFR_RNDN)
                         : mpfr_yn(exact, function[1] - '0', at, MPFR_RNDN);
      E r;
      Call<E> c;
      c.n = 1, c.a = &x, c.r1 = &r;
      ASSERT_TRUE(call_row(row_named(row_of<E>(function)), 1, false, c));
      mpfr_sub_d(at, exact, r, MPFR_RNDN);
      mpfr_div(at, at, exact, MPFR_RNDN);
      EXPECT_LT(std::fabs(mpfr_get_d(at, MPFR_RNDN)), static_cast<double>(std::numeric_limits<E>::epsilon()))
          << function << x;
    }
    mpfr_clears(exact, at, nullptr);
  }
}

}  // namespace
}  // namespace orvik::test

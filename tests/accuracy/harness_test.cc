// The harness itself, on rows that no list has: plain loops in place of kernels, some of them wrong on purpose.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <string>

#include "accuracy/complex_inputs.h"
#include "accuracy/hard_cases.h"
#include "accuracy/hashes.h"
#include "accuracy/inputs.h"
#include "accuracy/measure.h"
#include "accuracy/records.h"
#include "orvik/zym.h"
#include "support/plain_rows.h"
#include "tools/rows/domains.h"

namespace orvik::accuracy {
namespace {

using rows::Row;
using rows::Shape;

// A row without a strided kernel, or with one.
template <class Unit, class Strided = void()>
Row fake(char precision, std::string_view function, Shape shape, Unit* unit, Strided* strided = nullptr) {
  return test::plain_row(precision, function, shape, unit, strided);
}
void nothing() {}

// Kernels in the C library's double functions: as good as correctly rounded in 32 bits.
using C = std::complex<double>;
using Pair = ZymComplexFloat;
C wide(Pair x) { return {x.re, x.im}; }
Pair narrow(C x) { return {static_cast<float>(x.real()), static_cast<float>(x.imag())}; }

void c_exp(int32_t n, const Pair* a, Pair* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = narrow(std::exp(wide(a[i])));
}
void c_exp_strided(int32_t n, const Pair* a, int32_t incA, Pair* r, int32_t incR) {
  for (int32_t i = 0; i < n; ++i) r[i * incR] = narrow(std::exp(wide(a[i * incA])));
}
void c_asin(int32_t n, const Pair* a, Pair* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = narrow(std::asin(wide(a[i])));
}
void c_asin_wrong_cut(int32_t n, const Pair* a, Pair* r) {  // loses the sign of a zero imaginary part
  for (int32_t i = 0; i < n; ++i) r[i] = narrow(std::asin(C(a[i].re, a[i].im + 0.0f)));
}
void c_mul(int32_t n, const Pair* a, const Pair* b, Pair* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = narrow(wide(a[i]) * wide(b[i]));
}
void c_mul_narrow(int32_t n, const Pair* a, const Pair* b, Pair* r) {  // cancels in one part
  for (int32_t i = 0; i < n; ++i) r[i] = {a[i].re * b[i].re - a[i].im * b[i].im, a[i].re * b[i].im + a[i].im * b[i].re};
}
void c_add(int32_t n, const Pair* a, const Pair* b, Pair* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = {a[i].re + b[i].re, a[i].im + b[i].im};
}
void c_abs(int32_t n, const Pair* a, float* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(std::hypot(double(a[i].re), double(a[i].im)));
}
void c_cis(int32_t n, const float* a, Pair* r) {
  for (int32_t i = 0; i < n; ++i)
    r[i] = {static_cast<float>(std::cos(double(a[i]))), static_cast<float>(std::sin(double(a[i])))};
}
void c_powx(int32_t n, const Pair* a, Pair b, Pair* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = narrow(std::pow(wide(a[i]), wide(b)));
}
void s_powx(int32_t n, const float* a, float b, float* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(std::pow(double(a[i]), double(b)));
}
void s_jn(int32_t n, int32_t order, const float* a, float* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = static_cast<float>(::jn(order, a[i]));
}
void s_jn_wrong_order(int32_t n, int32_t order, const float* a, float* r) { s_jn(n, std::abs(order), a, r); }
void z_abs(int32_t n, const ZymComplexDouble* a, double* r) {
  for (int32_t i = 0; i < n; ++i) r[i] = std::hypot(a[i].re, a[i].im);
}

double worst_of(const Row& row, size_t count = 3000) { return promised(row, 1, measure_sampled(row, count, 3)).error; }
constexpr double kWrong = std::numeric_limits<double>::infinity();

TEST(Harness, RefusesARowWithoutReferenceDomainOrDescriptionByName) {
  Row row = fake('s', "Frobnicate", Shape::unary, nothing);
  row.description = {};
  const std::vector<std::string> lines = missing_of(row);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0],
            "sFrobnicate: no reference of Frobnicate for its shape; add a line to tests/accuracy/reference.cc");
  EXPECT_EQ(lines[1], "sFrobnicate: no domain of Frobnicate; add a line to tools/rows/domains.cc");
  EXPECT_EQ(lines[2], "sFrobnicate: no description of Frobnicate; add it to TEXT in tools/rows/rows.py");
  const Row complex = fake('c', "Frobnicate", Shape::unary, nothing);
  ASSERT_EQ(missing_of(complex).size(), 2u);
  EXPECT_NE(missing_of(complex)[0].find("complex_reference.cc"), std::string::npos);
}

TEST(Harness, RefusesAReferenceOfAnotherShape) {
  EXPECT_EQ(missing_of(fake('s', "Sin", Shape::binary, nothing)).size(), 1u);
  EXPECT_EQ(missing_of(fake('s', "Jn", Shape::unary, nothing)).size(), 1u);
  EXPECT_EQ(missing_of(fake('c', "Abs", Shape::unary, nothing)).size(), 1u);
  EXPECT_TRUE(missing_of(fake('c', "Abs", Shape::to_real, nothing)).empty());
}

TEST(HarnessDeathTest, ADomainThatIsNotThereEndsTheProgramByName) {
  const Row row = fake('d', "Frobnicate", Shape::unary, nothing);
  EXPECT_EXIT(rows::domain(row), testing::ExitedWithCode(2), "dFrobnicate: no domain of Frobnicate; .*domains.cc");
}

TEST(Harness, JudgesComplexResultsByNormAndByPart) {
  const Row row = fake('c', "Exp", Shape::unary, c_exp);
  ASSERT_EQ(measures_of(row).size(), 2u);
  const Worsts worsts = measure_sampled(row, 4000, 3);
  const Worst &norm = worsts[1][index_of(Measure::norm)], &part = worsts[1][index_of(Measure::component)];
  EXPECT_LT(norm.error, 0.75);
  EXPECT_GT(norm.error, 0.5);
  EXPECT_LT(part.error, 0.51);
  EXPECT_GT(norm.inputs, 4000u);
  EXPECT_NE(norm.got.find(' '), std::string::npos);  // both parts
  EXPECT_EQ(make_record(row, 1, Measure::norm, norm, "sampled").metric, "ulp norm");
  EXPECT_EQ(make_record(row, 1, Measure::component, part, "sampled").metric, "ulp");
}

TEST(Harness, ProductThatCancelsIsGoodByNormOnly) {
  const Row row = fake('c', "Mul", Shape::binary, c_mul);
  EXPECT_LT(worst_of(row), 0.75);
  Inputs<float> in;
  const Row narrow_row = fake('c', "Mul", Shape::binary, c_mul_narrow);
  Point p;
  p.arguments = {1.0000001192092896, 1, 1, 1.0000002384185791};  // the real part cancels to -1.2e-7
  EXPECT_LT(measure_point(narrow_row, 1, p, 0, Measure::norm).error, 1);
  p.arguments = {1.0000001192092896, 1.0000003576278687, 1.0000003576278687, 1.0000001192092896};
  EXPECT_LT(measure_point(narrow_row, 1, p, 0, Measure::norm).error, 1);
  p.arguments = {0x1.fffffep0, 0x1.fffffcp0, 0x1.fffffap0,
                 0x1.fffffcp0};  // exact difference -2^-46 4: lost to rounding
  EXPECT_GT(measure_point(narrow_row, 1, p, 0, Measure::component).error, 1000);
}

TEST(Harness, SeesASignOfZeroLostOnABranchCut) {
  EXPECT_LT(worst_of(fake('c', "Asin", Shape::unary, c_asin)), 0.75);
  EXPECT_EQ(worst_of(fake('c', "Asin", Shape::unary, c_asin_wrong_cut)), kWrong);
}

TEST(Harness, ExactComplexRowsAreComparedBitByBit) {
  EXPECT_EQ(worst_of(fake('c', "Add", Shape::binary, c_add)), 0);
  EXPECT_EQ(worst_of(fake('c', "Sub", Shape::binary, c_add)), kWrong);
}

TEST(Harness, ComplexInRealOutAndRealInComplexOut) {
  const Row abs = fake('c', "Abs", Shape::to_real, c_abs);
  EXPECT_EQ(measures_of(abs).size(), 1u);
  EXPECT_LT(worst_of(abs), 0.51);
  EXPECT_LT(worst_of(fake('z', "Abs", Shape::to_real, z_abs)), 1.01);
  EXPECT_LT(worst_of(fake('c', "CIS", Shape::from_real, c_cis)), 0.51);
  EXPECT_EQ(worst_of(fake('c', "Arg", Shape::to_real, c_abs)), kWrong);
}

TEST(Harness, ScalarOperandsRealAndComplex) {
  EXPECT_LT(worst_of(fake('s', "Powx", Shape::scalar, s_powx)), 0.51);
  const Row row = fake('c', "Powx", Shape::scalar, c_powx);
  const Inputs<float> in = make_inputs<float>(row, 3000, 3);
  bool imaginary = false;
  for (const auto& s : in.segments) imaginary |= s.scalars[1] != 0;
  EXPECT_TRUE(imaginary);
  Point p;
  p.arguments = {1.5, -0.5, 2.5, -1.875};
  EXPECT_LT(measure_point(row, 1, p, 0, Measure::norm).error, 0.75);
}

TEST(Harness, OrdersOfBesselFunctionsNegativeOnesToo) {
  const Row row = fake('s', "Jn", Shape::bessel, s_jn);
  const Inputs<float> in = make_inputs<float>(row, 3000, 3);
  EXPECT_TRUE(std::any_of(in.segments.begin(), in.segments.end(), [](const auto& s) { return s.order == -5; }));
  Point p{.arguments = {7.25}, .order = -3};
  EXPECT_LT(measure_point(row, 1, p, 0).error, 0.51);
  EXPECT_GT(measure_point(fake('s', "Jn", Shape::bessel, s_jn_wrong_order), 1, p, 0).error, 1e6);
}

TEST(Harness, StridedResultsHashAlikeAndWrongOnesDoNot) {
  const Row row = fake('c', "Exp", Shape::unary, c_exp, c_exp_strided);
  EXPECT_EQ(hash_kernel(row, 1, true), hash_kernel(row, 1, false));
  const Row wrong = fake('c', "Exp", Shape::unary, c_asin, c_exp_strided);
  EXPECT_NE(hash_kernel(wrong, 1, true), hash_kernel(wrong, 1, false));
}

template <class E>
bool has(const std::vector<E>& values, double value) {
  return std::find(values.begin(), values.end(), static_cast<E>(value)) != values.end();
}

TEST(Inputs, HardReductionsAreAmongThem) {
  const auto s = make_inputs<float>(*rows::find("sSin"), 1000, 1).a;
  const auto d = make_inputs<double>(*rows::find("dCos"), 1000, 1).a;
  for (double x : {16367173 * 0x1p72, 0x1.fffffep127, -0x1.fffffep127}) EXPECT_TRUE(has(s, x)) << x;
  for (double x : {6381956970095103 * 0x1p797, 1e22, std::numeric_limits<double>::max()}) EXPECT_TRUE(has(d, x)) << x;
  // The continued fractions find the known worst float by themselves: 16367173 x 2^72 is the nearest of all to a
  // multiple.
  const auto& found = nearest_to_half_pi<float>();
  EXPECT_TRUE(has(found, 16367173 * 0x1p72));
  size_t near = 0;
  for (float x : found) near += std::fmin(std::fabs(std::sin(double(x))), std::fabs(std::cos(double(x)))) < 1e-6;
  EXPECT_GT(2 * near, found.size()) << near;  // of random floats one in a million is
}

TEST(Inputs, ComplexRowsHaveAllPairsOfSpecialPartsAndBothSidesOfCuts) {
  const auto in = make_inputs<float>(*rows::find("cLn"), 1000, 1).a;
  const auto has_pair = [&](float re, float im) {
    for (size_t i = 0; i < in.size(); i += 2) {
      const auto same = [](float x, float y) {
        return (std::isnan(x) && std::isnan(y)) || (x == y && std::signbit(x) == std::signbit(y));
      };
      if (same(in[i], re) && same(in[i + 1], im)) return true;
    }
    return false;
  };
  const auto special = special_parts<float>();
  ASSERT_EQ(special.size(), 11u);
  for (float x : special) {
    for (float y : special) EXPECT_TRUE(has_pair(x, y)) << x << " " << y;
  }
  for (float y : {0.0f, -0.0f, 0x1p-149f, -0x1p-149f}) EXPECT_TRUE(has_pair(-1.25f, y)) << y;
}

TEST(Inputs, EveryRowHasSomeOfItsPrecisionAndShape) {
  for (const Row& row : rows::all()) {
    if (row.shape == Shape::pack || row.precision == 's' || row.precision == 'c') continue;
    const auto in = make_inputs<double>(row, 500, 1);
    EXPECT_GE(in.count(row), 500u) << row.name;
    EXPECT_EQ(in.b.size(), row.inputs() == 2 ? in.a.size() : 0) << row.name;
    EXPECT_EQ(in.segments.back().last, in.count(row)) << row.name;
  }
}

}  // namespace
}  // namespace orvik::accuracy

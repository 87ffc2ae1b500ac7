// The references themselves: against values of another library, at special values, and the fast ones against MPFR.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "accuracy/error.h"
#include "accuracy/reference.h"
#include "tools/rows/list.h"

namespace orvik::accuracy {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr mpfr_rnd_t kNearest = MPFR_RNDN;

enum class Kind { real, complex, to_real, from_real };
struct Known {
  Kind kind;
  const char* function;
  int order;
  std::vector<double> arguments;
  std::vector<const char*> values;
};
const std::vector<Known>& known_values() {
  static const std::vector<Known> values = {
#include "accuracy/known_values.inc"
  };
  return values;
}

void evaluate_real(const Reference& reference, const std::vector<double>& x, int order, mpfr_ptr r1, mpfr_ptr r2) {
  Real a, b;
  mpfr_set_d(a, x[0], kNearest);
  if (x.size() > 1) mpfr_set_d(b, x[1], kNearest);
  if (reference.unary != nullptr) reference.unary(r1, a, kNearest);
  if (reference.binary != nullptr) reference.binary(r1, a, b, kNearest);
  if (reference.unary2 != nullptr) reference.unary2(r1, r2, a, kNearest);
  if (reference.order != nullptr) reference.order(r1, order, a, kNearest);
}

// A real or complex function's parts, and what is stated of them.
Stated evaluate_complex(const ComplexReference& reference, const std::vector<double>& x, mpfr_ptr r1, mpfr_ptr r2) {
  Complex a, b, r;
  mpc_set_d_d(a, x[0], x.size() > 1 ? x[1] : 0, MPC_RNDNN);
  if (x.size() == 4) mpc_set_d_d(b, x[2], x[3], MPC_RNDNN);
  Stated stated;
  if (reference.unary != nullptr) stated = reference.unary(r, a);
  if (reference.binary != nullptr) stated = reference.binary(r, a, b);
  if (reference.from_real != nullptr) stated = reference.from_real(r, mpc_realref(a.v));
  if (reference.to_real != nullptr) {
    stated = reference.to_real(r1, a);
  } else {
    mpfr_set(r1, mpc_realref(r.v), kNearest);
    mpfr_set(r2, mpc_imagref(r.v), kNearest);
  }
  return stated;
}

void expect_near(mpfr_srcptr got, const char* value, const Known& known, mpfr_srcptr scale) {
  Real want, difference, size;
  ASSERT_EQ(mpfr_set_str(want, value, 10, kNearest), 0);
  mpfr_sub(difference, got, want, kNearest);
  mpfr_abs(size, scale, kNearest);
  mpfr_mul_d(size, size, 1e-40, kNearest);
  EXPECT_LE(mpfr_cmpabs(difference, size), 0) << known.function << " order " << known.order << " at " << known.arguments[0]
                                              << ": " << mpfr_get_d(got, kNearest) << ", known " << value;
}

TEST(References, MeetKnownValues) {
  for (const Known& known : known_values()) {
    Real r1, r2, scale;
    if (known.kind == Kind::real) {
      const Reference* reference = find_reference(known.function);
      ASSERT_NE(reference, nullptr) << known.function;
      evaluate_real(*reference, known.arguments, known.order, r1, r2);
    } else {
      const ComplexReference* reference = find_complex_reference(known.function);
      ASSERT_NE(reference, nullptr) << known.function;
      evaluate_complex(*reference, known.arguments, r1, r2);
    }
    if (known.values.size() == 1) {
      expect_near(r1, known.values[0], known, r1);
      continue;
    }
    mpfr_hypot(scale, r1, r2, kNearest);
    expect_near(r1, known.values[0], known, scale);
    expect_near(r2, known.values[1], known, scale);
  }
}

TEST(References, PairsAreTheirParts) {
  for (const auto& [pair, first, second] :
       {std::array{"SinCos", "Sin", "Cos"}, std::array{"SinCospi", "Sinpi", "Cospi"}}) {
    for (double x : {0.3, -1.7, 1e22, 0.5}) {
      Real s, c, r, none;
      evaluate_real(*find_reference(pair), {x}, 0, s, c);
      evaluate_real(*find_reference(first), {x}, 0, r, none);
      EXPECT_TRUE(mpfr_equal_p(s, r)) << pair << x;
      evaluate_real(*find_reference(second), {x}, 0, r, none);
      EXPECT_TRUE(mpfr_equal_p(c, r)) << pair << x;
    }
  }
}

// Every function of a row that is not exact and not a pair of others has known values.
TEST(References, EveryFunctionHasAKnownValue) {
  std::set<std::pair<bool, std::string>> known;
  for (const Known& k : known_values()) known.insert({k.kind != Kind::real, k.function});
  for (const rows::Row& row : rows::all()) {
    if (row.shape == rows::Shape::pack || row.shape == rows::Shape::unary2) continue;
    if (row.complex()) {
      const ComplexReference* reference = find_complex_reference(row.function);
      ASSERT_NE(reference, nullptr) << row.name;
      EXPECT_TRUE(reference->exact() || known.contains({true, std::string(row.function)})) << row.name;
    } else {
      const Reference* reference = find_reference(row.function);
      ASSERT_NE(reference, nullptr) << row.name;
      EXPECT_TRUE(reference->exact() || known.contains({false, std::string(row.function)})) << row.name;
    }
  }
}

struct SpecialValue {
  const char* function;
  double x, want, y = 0;
  int order = 0;
};

void expect_special(const SpecialValue& s) {
  Real r1, r2;
  const Reference& reference = *find_reference(s.function);
  evaluate_real(reference, {s.x, s.y}, s.order, r1, r2);
  const double got = mpfr_get_d(r1, kNearest);
  const bool same_sign = std::signbit(got) == std::signbit(s.want) || std::isnan(s.want);
  EXPECT_TRUE((std::isnan(got) && std::isnan(s.want)) || (got == s.want && same_sign))
      << s.function << "(" << s.x << ", " << s.y << ") order " << s.order << ": " << got << ", want " << s.want;
  // The fast one answers alike; with a parity for positive arguments only.
  if (reference.fast[0] == nullptr || (reference.parity[0] != Parity::none && std::signbit(s.x))) return;
  const double fast = reference.fast[0](s.x);
  EXPECT_TRUE((std::isnan(fast) && std::isnan(s.want)) || std::fabs(fast - s.want) <= 1e-15 * std::fabs(s.want) || fast == s.want)
      << s.function << "(" << s.x << "), fast: " << fast << ", want " << s.want;
}

TEST(References, SpecialValuesOfRealFunctions) {
  const SpecialValue table[] = {
      {"Pow3o2", -0.0, 0}, {"Pow3o2", -1, kNan}, {"Pow3o2", -kInf, kNan}, {"Pow2o3", -8, 4}, {"Pow2o3", -kInf, kInf},
      {"Pow2o3", -0.0, 0}, {"InvSqrt", -0.0, -kInf}, {"InvCbrt", -0.0, -kInf}, {"Sqrt", -0.0, -0.0},
      {"Sin", -0.0, -0.0}, {"Sin", kInf, kNan}, {"Cos", -0.0, 1}, {"Tan", -kInf, kNan}, {"Tan", -0.0, -0.0},
      {"Sinpi", kInf, kNan}, {"Cospi", kInf, kNan}, {"Sinpi", -0.0, -0.0}, {"Sinpi", 0.5, 1}, {"Sinpi", 1.5, -1},
      {"Cospi", 0.5, 0}, {"Cospi", 3, -1}, {"Cospi", 0x1p100, 1}, {"Tanpi", -0.0, -0.0}, {"Tanpi", 0.5, kInf},
      {"Tanpi", 1.5, -kInf}, {"Tanpi", 0.25, 1}, {"Tanpi", kInf, kNan},
      {"Sind", 30, 0.5}, {"Sind", -0.0, -0.0}, {"Sind", 450, 1}, {"Sind", kInf, kNan}, {"Cosd", 60, 0.5}, {"Cosd", 90, 0},
      {"Cosd", 540, -1}, {"Tand", 45, 1}, {"Tand", 90, kInf}, {"Tand", 270, -kInf}, {"Tand", kInf, kNan},
      {"Asin", 2, kNan}, {"Asin", -0.0, -0.0}, {"Acos", 1, 0}, {"Acos", -kInf, kNan}, {"Acospi", -1, 1}, {"Acospi", 1, 0},
      {"Asinpi", -1, -0.5}, {"Asinpi", 2, kNan}, {"Atanpi", kInf, 0.5}, {"Atan", -0.0, -0.0},
      {"Atan2", 0, 0, 0.0}, {"Atan2", -0.0, -0.0, 1}, {"Atan2pi", 0, 1, -0.0}, {"Atan2pi", -0.0, -1, -0.0},
      {"Atan2pi", 0, 1, -kInf}, {"Atan2pi", 1, 0.5, 0}, {"Atan2pi", -1, -0.5, -0.0}, {"Atan2pi", kInf, 0.75, -kInf},
      {"Atan2pi", -kInf, -0.25, kInf}, {"Atan2", kInf, kNan, kNan},
      {"Cosh", -kInf, kInf}, {"Sinh", -kInf, -kInf}, {"Tanh", -kInf, -1}, {"Acosh", 1, 0}, {"Acosh", 0.5, kNan},
      {"Acosh", -kInf, kNan}, {"Atanh", -1, -kInf}, {"Atanh", 2, kNan}, {"Asinh", -0.0, -0.0},
      {"Pow", 0, kInf, -1}, {"Pow", -0.0, -kInf, -1}, {"Pow", -0.0, kInf, -kInf}, {"Pow", -1, 1, -kInf}, {"Pow", 1, 1, kNan},
      {"Pow", kNan, 1, -0.0}, {"Pow", -8, -512, 3}, {"Pow", -2, kNan, 0.5}, {"Pow", -kInf, -kInf, 3}, {"Pow", -kInf, kInf, 2.5},
      {"Pow", -kInf, -0.0, -3}, {"Pow", 0.5, kInf, -kInf}, {"Powr", -0.0, 0, 3}, {"Powr", -0.0, kInf, -3},
      {"Powr", -2, kNan, 2}, {"Powr", -2, 1, 0}, {"Powr", 1, 1, kNan}, {"Powr", -kInf, kInf, 2}, {"Powr", -2, 0, -kInf}, {"Powr", -1, kNan, kNan}, {"Powr", kNan, 1, 0},
      {"Erf", -kInf, -1}, {"Erf", -0.0, -0.0}, {"Erfc", kInf, 0}, {"Erfc", -kInf, 2}, {"Erfcx", -kInf, kInf}, {"Erfcx", kInf, 0},
      {"Erfcx", 0, 1}, {"ErfInv", -1, -kInf}, {"ErfInv", 1.5, kNan}, {"ErfInv", -kInf, kNan}, {"ErfInv", -0.0, -0.0},
      {"ErfcInv", -0.0, kInf}, {"ErfcInv", 2, -kInf}, {"ErfcInv", 2.5, kNan}, {"ErfcInv", -1, kNan}, {"ErfcInv", 1, 0},
      {"ErfcInv", kInf, kNan}, {"CdfNorm", -kInf, 0}, {"CdfNorm", kInf, 1}, {"CdfNormInv", 0, -kInf}, {"CdfNormInv", 1, kInf},
      {"CdfNormInv", 0.5, 0}, {"CdfNormInv", kInf, kNan}, {"CdfNormInv", -0.1, kNan},
      {"LGamma", 0, kInf}, {"LGamma", -0.0, kInf}, {"LGamma", -1, kInf}, {"LGamma", -kInf, kInf}, {"LGamma", kInf, kInf},
      {"LGamma", 1, 0}, {"LGamma", -1e30, kInf}, {"TGamma", -0.0, -kInf}, {"TGamma", 0, kInf}, {"TGamma", -1, kNan},
      {"TGamma", -kInf, kNan}, {"TGamma", kInf, kInf}, {"TGamma", -1e30, kNan}, {"TGamma", 5, 24},
      {"ExpInt1", 0, kInf}, {"ExpInt1", -0.0, kInf}, {"ExpInt1", -1, kNan}, {"ExpInt1", kInf, 0}, {"ExpInt1", -kInf, kNan},
      {"I0", -kInf, kInf}, {"I0", 0, 1}, {"I1", -kInf, -kInf}, {"I1", -0.0, -0.0}, {"I1", 1e30, kInf},
      {"J0", -kInf, 0}, {"J0", 0, 1}, {"J1", -kInf, -0.0}, {"J1", -0.0, -0.0}, {"Y0", -0.0, -kInf}, {"Y0", -1, kNan},
      {"Y0", kInf, 0}, {"Y1", 0, -kInf}, {"Y1", -kInf, kNan}, {"Y1", kInf, 0},
      {"Jn", -kInf, 0, 0, 2}, {"Jn", -kInf, -0.0, 0, 3}, {"Jn", -kInf, 0, 0, -3}, {"Jn", 0, 1, 0, 0}, {"Jn", 0, 0, 0, 4},
      {"Yn", 0, -kInf, 0, 3}, {"Yn", -0.0, kInf, 0, -3}, {"Yn", 0, -kInf, 0, -2}, {"Yn", -1, kNan, 0, 2}, {"Yn", kInf, 0, 0, 2},
      {"Yn", -kInf, kNan, 0, 2},
  };
  for (const SpecialValue& s : table) expect_special(s);
  for (const rows::Row& row : rows::all()) {  // NaN in, NaN out
    const Reference* reference = row.complex() ? nullptr : find_reference(row.function);
    if (reference == nullptr || reference->exact() || reference->binary != nullptr) continue;
    Real r1, r2;
    evaluate_real(*reference, {kNan}, 1, r1, r2);
    EXPECT_TRUE(mpfr_nan_p(r1)) << row.name;
    if (reference->fast[0] != nullptr) {
      EXPECT_TRUE(std::isnan(reference->fast[0](kNan))) << row.name;
    }
  }
}

// Worst relative errors (against max(|result|, floor)) that were found, rounded up. All that have no line: 6e-16.
const std::map<std::string_view, double> kFastErrors = {
    {"Pow2o3", 1e-15}, {"ErfInv", 8e-16}, {"J0", 1.5e-15}, {"J1", 1.5e-15}, {"Y0", 1.5e-15}, {"Y1", 1.5e-15},
};

TEST(FastReferences, AreAsGoodAsStated) {
  const char* fewer = std::getenv("ORVIK_ACCURACY_INPUTS");  // sanitizers
  const int inputs = fewer != nullptr ? std::atoi(fewer) : 12000;
  std::set<std::string_view> seen;
  for (const rows::Row& row : rows::all()) {
    const Reference* reference = row.precision == 's' ? find_reference(row.function) : nullptr;
    if (reference == nullptr || reference->fast[0] == nullptr || !seen.insert(row.function).second) continue;
    std::mt19937_64 random(5);
    double worst = 0, at = 0;
    for (int i = 0; i < inputs; ++i) {
      // Every third of any exponent, the others between 2^-12 and 2^8.
      const auto bits = static_cast<uint32_t>(random() >> 32);
      float x = std::bit_cast<float>(bits);
      if (i % 3 != 0) x = std::bit_cast<float>((bits & 0x807FFFFFu) | ((115 + (bits >> 23) % 20) << 23));
      if (!std::isfinite(x)) continue;
      for (int j = 0; j < (reference->unary2 != nullptr ? 2 : 1); ++j) {
        if (reference->parity[j] != Parity::none) x = std::fabs(x);
        Real r[2], difference;
        evaluate_real(*reference, {x}, 0, r[0], r[1]);
        const auto clamped = [](double value) { return std::isnan(value) ? value : std::clamp(value, -0x1p129, 0x1p129); };
        const double fast = clamped(reference->fast[j](x)), want = clamped(mpfr_get_d(r[j], kNearest)), argument = x;
        if (std::fabs(want) == 0x1p129) mpfr_set_d(r[j], want, kNearest);  // no float comes near
        if (!std::isfinite(want) || std::fabs(want) < 1e-300) {
          EXPECT_TRUE(fast == want || (std::isnan(fast) && std::isnan(want)) || std::fabs(want) < 1e-300)
              << row.name << " " << x << ": " << fast << ", want " << want;
          continue;
        }
        const double floor = reference->floor != nullptr ? reference->floor(true, &argument, 0) : 0;
        mpfr_d_sub(difference, fast, r[j], kNearest);
        const double error = std::fabs(mpfr_get_d(difference, kNearest)) / std::fmax(std::fabs(want), floor);
        if (!(error <= worst)) worst = error, at = x;
      }
    }
    const auto stated = kFastErrors.find(row.function);
    EXPECT_LE(worst, stated == kFastErrors.end() ? 6e-16 : stated->second) << row.name << " at " << at;
    std::printf("%-12s %.2g at %a\n", std::string(row.name).c_str(), worst, at);
  }
  EXPECT_GT(seen.size(), 50u);
  for (const rows::Row& row : rows::all()) {  // all 2^32 inputs of every such row are to take minutes
    if (row.precision != 's' || (row.shape != rows::Shape::unary && row.shape != rows::Shape::unary2)) continue;
    const Reference* reference = find_reference(row.function);
    EXPECT_TRUE(reference->exact() || seen.contains(row.function)) << row.name << ": no fast reference in reference.cc";
  }
}

using Function = std::complex<double> (*)(const std::complex<double>&);
struct CFunction {
  const char* function;
  Function f;
};

// The C library's functions keep to Annex G as well; where both are defined they agree at all pairs of these values.
TEST(References, ComplexSpecialValuesAreThoseOfTheCLibrary) {
  const double values[] = {-kInf, -1, -0.75, -0.0, 0.0, 0.75, 1, 4, kInf, kNan, -2.5};
  const CFunction functions[] = {{"Exp", std::exp}, {"Ln", std::log}, {"Sqrt", std::sqrt}, {"Sin", std::sin}, {"Cos", std::cos},
                                 {"Tan", std::tan}, {"Sinh", std::sinh}, {"Cosh", std::cosh}, {"Tanh", std::tanh},
                                 {"Asin", std::asin}, {"Acos", std::acos}, {"Atan", std::atan}, {"Asinh", std::asinh},
                                 {"Acosh", std::acosh}, {"Atanh", std::atanh}, {"Log10", std::log10}};
  for (const CFunction& function : functions) {
    for (double x : values) {
      for (double y : values) {
        Real r[2];
        const Stated stated = evaluate_complex(*find_complex_reference(function.function), {x, y}, r[0], r[1]);
        const std::complex<double> z = function.f({x, y});
        const double got[] = {z.real(), z.imag()};
        for (int i = 0; i < 2; ++i) {
          const double want = mpfr_get_d(r[i], kNearest);
          const bool near = std::fabs(got[i] - want) <= 4e-16 * std::hypot(z.real(), z.imag()) || got[i] == want;
          const bool sign = stated.any_sign[i] || std::signbit(got[i]) == std::signbit(want) || (want != 0 && std::isfinite(want));
          const bool magnitude = stated.any_sign[i] && std::fabs(got[i]) == std::fabs(want);
          EXPECT_TRUE((std::isnan(got[i]) && std::isnan(want)) || (near && sign) || magnitude)
              << function.function << "(" << x << ", " << y << ") part " << i << ": C library " << got[i] << ", reference " << want;
        }
      }
    }
  }
}

TEST(References, ComplexDivisionBySpecialValues) {
  const ComplexReference& divide = *find_complex_reference("Div");
  const auto expect = [&](std::vector<double> x, double re, double im) {
    Real r1, r2;
    evaluate_complex(divide, x, r1, r2);
    const double got[] = {mpfr_get_d(r1, kNearest), mpfr_get_d(r2, kNearest)}, want[] = {re, im};
    for (int i = 0; i < 2; ++i) {
      EXPECT_TRUE(got[i] == want[i] || (std::isnan(got[i]) && std::isnan(want[i]))) << x[0] << " " << x[1] << " by " << x[2] << " "
                                                                                    << x[3] << " part " << i << ": " << got[i];
    }
  };
  expect({1, 2, 0, 0}, kInf, kInf);
  expect({1, -2, -0.0, 0}, -kInf, kInf);
  expect({1, 0, 0, 0}, kInf, kNan);
  expect({0, 0, 0, 0}, kNan, kNan);
  expect({kInf, 1, 2, 3}, kInf, -kInf);
  expect({1, 1, kInf, -kInf}, 0, 0);
  expect({kNan, kNan, 0, 0}, kNan, kNan);
  expect({kNan, 1, 2, 3}, kNan, kNan);
}

TEST(References, ComplexPowersStateNothingOfInfinities) {
  Real r1, r2;
  const ComplexReference& power = *find_complex_reference("Pow");
  EXPECT_TRUE(evaluate_complex(power, {kInf, 0, 2, 0}, r1, r2).any);
  EXPECT_TRUE(evaluate_complex(power, {0, 0, -1, 0}, r1, r2).any);
  EXPECT_FALSE(evaluate_complex(power, {0, 0, 2, 5}, r1, r2).any);
  EXPECT_TRUE(mpfr_zero_p(r1) && mpfr_zero_p(r2));
  EXPECT_FALSE(evaluate_complex(power, {3, 4, 0, 0}, r1, r2).any);
  EXPECT_EQ(mpfr_cmp_ui(r1, 1), 0);
}

}  // namespace
}  // namespace orvik::accuracy

// Walks across the bounds of the reductions by single steps, and hard arguments, against MPFR: no jump above the
// level's bound, relative accuracy next to zeros and poles.
#include <mpfr.h>

#include <cmath>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

class Exact {
 public:
  Exact() { mpfr_init2(value_, 200), mpfr_init2(work_, 200); }
  ~Exact() { mpfr_clear(value_), mpfr_clear(work_); }
  Exact(const Exact&) = delete;
  Exact& operator=(const Exact&) = delete;

  void set(const std::string& f, double x) {
    mpfr_set_d(work_, x, MPFR_RNDN);
    const unsigned long turn = f.ends_with("pi") ? 2 : f.ends_with("d") ? 360 : 0;
    const std::string stem = f.substr(0, 3);
    if (stem == "Sin") turn != 0 ? mpfr_sinu(value_, work_, turn, MPFR_RNDN) : mpfr_sin(value_, work_, MPFR_RNDN);
    if (stem == "Cos") turn != 0 ? mpfr_cosu(value_, work_, turn, MPFR_RNDN) : mpfr_cos(value_, work_, MPFR_RNDN);
    if (stem == "Tan") turn != 0 ? mpfr_tanu(value_, work_, turn, MPFR_RNDN) : mpfr_tan(value_, work_, MPFR_RNDN);
  }
  // |got - value| in units of the last place of the value, with `digits` digits.
  double ulps(double got, int digits) {
    if (mpfr_zero_p(value_) != 0) return got == 0 ? 0 : INFINITY;
    if (mpfr_inf_p(value_) != 0) return std::isinf(got) ? 0 : INFINITY;
    mpfr_sub_d(work_, value_, got, MPFR_RNDN);
    mpfr_mul_2si(work_, work_, digits - mpfr_get_exp(value_), MPFR_RNDN);
    return std::fabs(mpfr_get_d(work_, MPFR_RNDN));
  }

 private:
  mpfr_t value_, work_;
};

template <class E>
class Walks : public ElementTest<E> {
 protected:
  static constexpr int kDigits = std::numeric_limits<E>::digits;
  // In ulps of the result, by level. EP: a result's first 11 or 26 bits.
  static double bound(int level) {
    return level == 0 ? 4 : level == 1 ? 1 : std::ldexp(1.0, kDigits - (sizeof(E) == 4 ? 11 : 26));
  }

  static void expect_accurate(const std::string& f, const std::vector<E>& x) {
    Exact exact;
    std::vector<E> r(x.size()), r2(x.size());
    const bool pair = f.starts_with("SinCos");
    for (int level = 0; level < 3; ++level) {
      Call<E> c;
      c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data(), c.r2 = r2.data();
      ASSERT_TRUE(call_row(row_named(row_of<E>(f)), level, false, c));
      for (size_t i = 0; i < x.size(); ++i) {
        for (int part = 0; part < (pair ? 2 : 1); ++part) {
          const std::string name = !pair ? f : (part == 0 ? "Sin" : "Cos") + f.substr(6);
          exact.set(name, x[i]);
          const E got = part == 0 ? r[i] : r2[i];
          const double error = exact.ulps(got, kDigits);
          EXPECT_LE(error, bound(level)) << row_of<E>(name) << kLevelNames[level] << "(" << x[i] << ") = " << got;
        }
      }
    }
  }
  static std::vector<E> around(std::initializer_list<double> centres, int steps) {
    std::vector<E> x;
    for (double centre : centres) {
      const E c = static_cast<E>(centre);
      E down = c, up = c;
      x.push_back(c);
      for (int i = 0; i < steps; ++i) {
        down = std::nextafter(down, E(0)), up = std::nextafter(up, this_inf());
        x.insert(x.end(), {down, -down, up, -up});
      }
    }
    return x;
  }
  static E this_inf() { return std::numeric_limits<E>::infinity(); }
};
TYPED_TEST_SUITE(Walks, Elements);

TYPED_TEST(Walks, AcrossTheBoundsOfTheReductionsInRadians) {
  const auto x = this->around(
      {8192, 8256, 10000, 65536, 65536.00349206588, 128000, 524288, 8388608, 16777216, 0x1p30, 0x1p37}, 40);
  for (const char* f : {"Sin", "Cos", "Tan", "SinCos"}) this->expect_accurate(f, x);
}

TYPED_TEST(Walks, AcrossTheBoundsOfHalfTurnsAndDegrees) {
  const auto turns =
      this->around({0.25, 0.5, 0.75, 1, 1.5, 2, 1023.5, 0x1p22, 0x1p23, 0x1p24, 0x1p51, 0x1p52, 0x1p53}, 40);
  for (const char* f : {"Sinpi", "Cospi", "SinCospi"}) this->expect_accurate(f, turns);
  std::vector<TypeParam> finite;
  for (const TypeParam v : turns) {
    if (std::fabs(v - std::trunc(v)) != TypeParam(0.5)) finite.push_back(v);
  }
  this->expect_accurate("Tanpi", finite);
  const auto degrees =
      this->around({45, 60, 179, 181, 359, 361, 0x1p22, 0x1p23, 0x1p24, 0x1p51, 0x1p52, 0x1p53, 0x1p100}, 40);
  for (const char* f : {"Sind", "Cosd", "Tand"}) this->expect_accurate(f, degrees);
}

TYPED_TEST(Walks, AcrossMultiplesOfAQuarterOfPi) {
  std::vector<TypeParam> x;
  for (int k = 1; k < 4000; k += k < 64 ? 1 : 37) {
    const auto near = this->around({k * 0.78539816339744830962}, 2);
    x.insert(x.end(), near.begin(), near.end());
  }
  for (const char* f : {"Sin", "Cos", "Tan"}) this->expect_accurate(f, x);
}

// Where the nearest point changes, the remainder is largest, and next to a zero the sum smallest.
TYPED_TEST(Walks, AcrossMiddlesBetweenThePointsOfTheCircle) {
  std::vector<TypeParam> x;
  for (int k = 1; k < 80000; k += k < 200 ? 2 : 994) {
    const auto near = this->around({k * (0.78539816339744830962 / 8)}, 3);
    x.insert(x.end(), near.begin(), near.end());
  }
  for (const char* f : {"Sin", "Cos", "Tan", "SinCos"}) this->expect_accurate(f, x);
  for (TypeParam& v : x) v *= TypeParam(0.318309886183790671538);
  for (const char* f : {"Sinpi", "Cospi", "Tanpi", "SinCospi"}) this->expect_accurate(f, x);
}

TYPED_TEST(Walks, HardArgumentsOfAllSizes) {
  using E = TypeParam;
  std::vector<E> x;
  if constexpr (sizeof(E) == 4) {
    x = {std::ldexp(16367173.0f, 72),
         0x1.fffffep127f,
         0x1.1a6fa6p91f,
         11.0f,
         0x1.921fb6p0f,
         0x1.2d97c8p1f,
         710.0f,
         0x1.3p13f};
  } else {
    x = {6381956970095103 * 0x1p797,
         std::numeric_limits<double>::max(),
         1e22,
         1e300,
         0x1.6ac5b262ca1ffp849,
         0x1.504cac51f1eafp133,
         0x1.db41f3cb71d7bp680,
         22.0,
         710.0,
         5.319372648326541e255,
         0x1.921fb54442d18p0,
         0x1.921fb54442d18p1};
  }
  const size_t count = x.size();
  for (size_t i = 0; i < count; ++i) x.push_back(-x[i]);
  for (int k = -20; k < std::numeric_limits<E>::max_exponent; ++k) x.push_back(std::ldexp(E(1.3), k));
  for (const char* f : {"Sin", "Cos", "Tan", "SinCos"}) this->expect_accurate(f, x);
}

}  // namespace
}  // namespace orvik::test

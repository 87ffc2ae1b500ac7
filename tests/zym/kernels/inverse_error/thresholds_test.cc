// Every place where a computation changes its row or its branch, walked over by single steps: no result there is
// further from the exact one than the level allows.
#include <cmath>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

using Wide = long double;

// The argument as the value of erf, and 1 less its magnitude, both exact; the scale of the result.
struct Target {
  Wide t, complement, scale;
};
struct Function {
  const char* name;
  Target (*target)(Wide);
};
constexpr Wide kRoot2 = 1.41421356237309504880168872420969808L;
const Function kFunctions[] = {
    {"ErfInv",
     [](Wide x) {
       return Target{x, 1 - std::fabs(x), 1};
     }},
    {"ErfcInv",
     [](Wide x) {
       return Target{1 - x, x < 1 ? x : 2 - x, 1};
     }},
    {"CdfNormInv",
     [](Wide x) {
       return Target{2 * x - 1, x < 0.5L ? 2 * x : 2 - 2 * x, kRoot2};
     }},
};

// How far a result is from the exact one, by the forward function and its slope: erf in the middle, erfc in the tails.
Wide error_of(const Target& target, Wide got) {
  const Wide z = std::copysign(Wide{1}, target.t) * got / target.scale;
  const Wide missed = std::fabs(target.t) < 0.5L ? std::erf(z) - std::fabs(target.t) : target.complement - std::erfc(z);
  return std::fabs(missed * 0.886226925452758013649083741670572591L * std::exp(z * z) * target.scale);
}

// The edges of rows in w = -ln(1 - t^2), of all levels, as arguments of the functions.
template <class E>
std::vector<E> edges(const char* name) {
  std::vector<Wide> ws;
  for (Wide v = 4; v < 740; v *= 2) {
    for (int i = 0; i < 32; ++i) ws.push_back(v * (1 + Wide(i) / 32) - 4);
  }
  for (Wide v = 7; v < 112; v *= 2) ws.push_back(v - 7), ws.push_back(v * 10 / 7 - 7);
  std::vector<E> x;
  for (Wide w : ws) {
    const Wide s = std::exp(-w), t = std::sqrt(-std::expm1(-w)), c = s / (1 + t);
    if (std::string_view(name) == "ErfInv") x.push_back(static_cast<E>(t)), x.push_back(static_cast<E>(-t));
    if (std::string_view(name) == "ErfcInv") x.push_back(static_cast<E>(c)), x.push_back(static_cast<E>(2 - c));
    if (std::string_view(name) == "CdfNormInv") {
      x.push_back(static_cast<E>(c / 2)), x.push_back(static_cast<E>(1 - c / 2));
    }
  }
  // Where others change their method, the ends of the domains and of the normal numbers.
  for (double y : {0.125, 0.875, 1.125, 1.875, 0.0625, 0.4375, 0.5625, 0.9375, 0.5, 1.0, 2.0, 0.75, 0.25, 0x1p-960}) {
    x.push_back(static_cast<E>(y)), x.push_back(static_cast<E>(1 - y));
  }
  x.push_back(std::numeric_limits<E>::min());
  return x;
}

template <class E>
void expect_within_bounds(const Function& f, const std::vector<E>& x) {
  for (int level = 0; level < 3; ++level) {
    std::vector<E> r(x.size());
    Call<E> c;
    c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
    ASSERT_TRUE(call_row(row_named(row_of<E>(f.name)), level, false, c));
    Wide worst = 0;
    E at = 0;
    for (size_t i = 0; i < x.size(); ++i) {
      const Target target = f.target(static_cast<Wide>(x[i]));
      if (!(target.complement > 0)) continue;  // outside the domain
      if (target.t == 0) {
        EXPECT_EQ(r[i], 0);
        continue;
      }
      const Wide size = std::fabs(static_cast<Wide>(r[i]));
      const Wide ulp = static_cast<Wide>(std::nextafter(std::fabs(r[i]), std::numeric_limits<E>::infinity())) - size;
      // Denormal results: EP's bits are those of the smallest normal number, and HA rounds twice.
      const bool normal = size >= static_cast<Wide>(std::numeric_limits<E>::min());
      const Wide least = normal ? size : static_cast<Wide>(std::numeric_limits<E>::min());
      const Wide unit = level == 2   ? least * (sizeof(E) == 4 ? 0x1p-11L : 0x1p-26L)
                        : level == 1 ? ulp * (normal ? 0.6L : 0.8L)
                                     : 4 * ulp;
      const Wide error = error_of(target, static_cast<Wide>(r[i])) / unit;
      if (!(error <= worst)) worst = error, at = x[i];
    }
    EXPECT_LE(worst, 1) << row_of<E>(f.name) << " " << kLevelNames[level] << " at " << at;
  }
}

template <class E>
class InverseErrorThresholds : public ElementTest<E> {};
TYPED_TEST_SUITE(InverseErrorThresholds, Elements);

TYPED_TEST(InverseErrorThresholds, NoJumpAtAnyEdgeOfARow) {
  using E = TypeParam;
  for (const Function& f : kFunctions) {
    std::vector<E> x;
    for (E at : edges<E>(f.name)) {
      for (int i = 0; i < 40; ++i) at = std::nextafter(at, -this->inf);
      for (int i = 0; i < 80; ++i) {
        x.push_back(at);
        at = std::nextafter(at, this->inf);
      }
    }
    expect_within_bounds<E>(f, x);
  }
}

TYPED_TEST(InverseErrorThresholds, RelativeAccuracyHoldsNextToTheZeros) {
  using E = TypeParam;
  for (const Function& f : kFunctions) {
    const E zero = f.name == std::string_view("CdfNormInv") ? E(0.5) : E(1);
    if (f.name == std::string_view("ErfInv")) continue;  // tiny arguments are among the special values
    std::vector<E> x;
    E below = zero, above = zero;
    for (int i = 0; i < 2000; ++i) {
      x.push_back(below = std::nextafter(below, E(0))), x.push_back(above = std::nextafter(above, E(2)));
    }
    for (E d = E(0.4); d > std::numeric_limits<E>::epsilon(); d *= E(0.93))
      x.push_back(zero - d), x.push_back(zero + d);
    expect_within_bounds<E>(f, x);
  }
}

TYPED_TEST(InverseErrorThresholds, TailsHoldDownToTheSmallestDenormalNumber) {
  using E = TypeParam;
  for (const Function& f : kFunctions) {
    if (f.name == std::string_view("ErfInv")) continue;
    std::vector<E> x;
    for (E tail = E(0.9); tail > 0; tail *= E(0.83)) {
      if (!x.empty() && tail >= x.back()) break;  // rounded back to itself
      x.push_back(tail);
    }
    E least = this->tiny;
    for (int i = 0; i < 1000; ++i, least = std::nextafter(least, E(1))) x.push_back(least);
    expect_within_bounds<E>(f, x);
  }
}

TYPED_TEST(InverseErrorThresholds, TheLastStepsBelowOneHold) {
  using E = TypeParam;
  for (const Function& f : kFunctions) {
    std::vector<E> x;
    E last = f.name == std::string_view("ErfcInv") ? E(2) : E(1);
    for (int i = 0; i < 4000; ++i) x.push_back(last = std::nextafter(last, E(0)));
    expect_within_bounds<E>(f, x);
  }
}

TYPED_TEST(InverseErrorThresholds, RandomArgumentsAreWithinBounds) {
  using E = TypeParam;
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> unit(0, 1);
  for (const Function& f : kFunctions) {
    const double scale = f.name == std::string_view("ErfcInv") ? 2 : 1;
    std::vector<E> x;
    for (int i = 0; i < 20000; ++i) {
      x.push_back(static_cast<E>(scale * unit(random)));
      x.push_back(static_cast<E>(std::exp2(-140 * unit(random))));
    }
    expect_within_bounds<E>(f, x);
  }
}

}  // namespace
}  // namespace orvik::test

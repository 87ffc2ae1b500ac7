#include <immintrin.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Rounding : public ElementTest<E> {};
TYPED_TEST_SUITE(Rounding, Elements);

TYPED_TEST(Rounding, RoundTakesHalvesAwayFromZero) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Round"), E(2.5), E(3));
  expect_unary<E>(row_of<E>("Round"), E(-2.5), E(-3));
  expect_unary<E>(row_of<E>("Round"), E(0.5), E(1));
  expect_unary<E>(row_of<E>("Round"), E(-0.3), E(-0.0));
  expect_unary<E>(row_of<E>("Round"), this->inf, this->inf);
}

TYPED_TEST(Rounding, RoundOfTheFloatBelowAHalfIsZero) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Round"), std::nextafter(E(0.5), E(0)), E(0));
  expect_unary<float>("sRound", 0.49999997f, 0.0f);
}

TYPED_TEST(Rounding, CeilOfMinusAHalfIsMinusZero) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Ceil"), E(-0.5), E(-0.0));
  expect_unary<E>(row_of<E>("Ceil"), E(1.25), E(2));
}

TYPED_TEST(Rounding, DirectionsOfTheInstructions) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Floor"), E(-0.5), E(-1));
  expect_unary<E>(row_of<E>("Trunc"), E(-1.75), E(-1));
  expect_unary<E>(row_of<E>("Rint"), E(2.5), E(2));
  expect_unary<E>(row_of<E>("NearbyInt"), E(3.5), E(4));
}

TYPED_TEST(Rounding, FracKeepsTheSignOfItsArgument) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Frac"), E(-3), E(-0.0));
  expect_unary<E>(row_of<E>("Frac"), E(3), E(0));
  expect_unary<E>(row_of<E>("Frac"), E(-3.25), E(-0.25));
  expect_unary<E>(row_of<E>("Frac"), -this->inf, E(-0.0));
  expect_unary<E>(row_of<E>("Frac"), this->inf, E(0));
  expect_unary<E>(row_of<E>("Frac"), this->nan, this->nan);
}

TYPED_TEST(Rounding, ModfPartsHaveTheSignOfTheArgument) {
  using E = TypeParam;
  for (int level = 0; level < 3; ++level) {
    const auto check = [&](E x, E whole, E rest) {
      const Outcome<E> r = evaluate<E>(row_of<E>("Modf"), level, x);
      EXPECT_TRUE(same_value(r.r1, whole)) << x;
      EXPECT_TRUE(same_value(r.r2, rest)) << x;
      EXPECT_EQ(r.code, 0);
    };
    check(E(-3.25), E(-3), E(-0.25));
    check(E(-0.25), E(-0.0), E(-0.25));
    check(E(-4), E(-4), E(-0.0));
    check(this->inf, this->inf, E(0));
    check(-this->inf, -this->inf, E(-0.0));
    check(this->nan, this->nan, this->nan);
  }
}

TYPED_TEST(Rounding, AgreesWithTheStandardLibrary) {
  using E = TypeParam;
  std::mt19937_64 random(7);
  std::vector<E> x(2000);
  for (E& v : x) v = std::ldexp(static_cast<E>(static_cast<int64_t>(random())), static_cast<int>(random() % 80) - 90);
  const auto check = [&](const char* name, E (*reference)(E)) {
    for (int level = 0; level < 3; ++level) {
      std::vector<E> r(x.size());
      Call<E> c;
      c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
      ASSERT_TRUE(call_row(row_named(row_of<E>(name)), level, false, c));
      for (size_t i = 0; i < x.size(); ++i) ASSERT_TRUE(same_value(r[i], reference(x[i]))) << name << " " << x[i];
    }
  };
  check("Ceil", [](E v) { return std::ceil(v); });
  check("Floor", [](E v) { return std::floor(v); });
  check("Trunc", [](E v) { return std::trunc(v); });
  check("Rint", [](E v) { return std::nearbyint(v); });
  check("NearbyInt", [](E v) { return std::nearbyint(v); });
  check("Round", [](E v) { return std::round(v); });
  check("Frac", [](E v) { return std::copysign(v - std::trunc(v), v); });
}

// Every 1009th float, which meets every exponent: the ties and what lies next to them decide.
TEST(RoundOfPatterns, IsHalfAwayFromZeroOverAllExponents) {
  constexpr uint64_t kStep = 1009;
  std::vector<float> x, r;
  const auto add = [&x](float v) {
    if (!std::isnan(v)) x.push_back(v);
  };
  for (uint64_t u = 0; u < (uint64_t{1} << 32); u += kStep) add(std::bit_cast<float>(static_cast<uint32_t>(u)));
  for (int whole = 0; whole < 1 << 16; ++whole) {
    const float tie = static_cast<float>(whole) + 0.5f;
    for (float v : {tie, std::nextafter(tie, 0.0f), std::nextafter(tie, 1e9f)}) add(v), add(-v);
  }
  r.resize(x.size());
  Call<float> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  ASSERT_TRUE(call_row(row_named("sRound"), 1, false, c));
  for (size_t i = 0; i < x.size(); ++i) {
    if (!same_value(r[i], std::round(x[i]))) FAIL() << x[i] << " gave " << r[i];
  }
}

template <class E>
bool raises_inexact(const char* function, E x) {
  E r;
  Call<E> c;
  c.n = 1, c.a = &x, c.r1 = &r;
  _mm_setcsr(0x1F80);
  call_row(row_named(row_of<E>(function)), 1, false, c);
  const uint32_t flags = _mm_getcsr();
  _mm_setcsr(0x1F80);
  return (flags & _MM_EXCEPT_INEXACT) != 0;
}

TYPED_TEST(Rounding, InexactIsRaisedByAllButNearbyInt) {
  using E = TypeParam;
  for (const char* f : {"Ceil", "Floor", "Trunc", "Rint"}) {
    EXPECT_TRUE(raises_inexact<E>(f, E(1.25))) << f;
    EXPECT_FALSE(raises_inexact<E>(f, E(2))) << f;
  }
  EXPECT_FALSE(raises_inexact<E>("NearbyInt", E(1.25)));
}

TYPED_TEST(Rounding, SignallingNanIsQuietedAndRaisesInvalid) {
  using E = TypeParam;
  using B = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const B signalling = sizeof(E) == 4 ? static_cast<B>(0x7F800001) : static_cast<B>(0x7FF0000000000001);
  for (const char* f : {"Ceil", "Floor", "Trunc", "Rint", "NearbyInt", "Frac"}) {
    E x = std::bit_cast<E>(signalling), r = 0;
    Call<E> c;
    c.n = 1, c.a = &x, c.r1 = &r;
    _mm_setcsr(0x1F80);
    call_row(row_named(row_of<E>(f)), 1, false, c);
    const uint32_t flags = _mm_getcsr();
    _mm_setcsr(0x1F80);
    EXPECT_NE(flags & _MM_EXCEPT_INVALID, 0u) << f;
    const B quiet_bit = B{1} << (sizeof(E) == 4 ? 22 : 51);
    EXPECT_NE(std::bit_cast<B>(r) & quiet_bit, 0u) << f;
  }
}

}  // namespace
}  // namespace orvik::test

// NextAfter, Logb, Remainder, Fmod: exact functions of the bit pattern.
#include <cmath>
#include <limits>
#include <random>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Exponent : public ElementTest<E> {
 protected:
  using typename ElementTest<E>::L;
  using ElementTest<E>::inf;
  using B = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;

  static std::vector<E> patterns(size_t count, uint64_t seed) {
    std::mt19937_64 random(seed);
    std::vector<E> x(count);
    for (E& v : x) v = std::bit_cast<E>(static_cast<B>(random()));
    return x;
  }

  // Random patterns through a two-argument row, against a reference.
  static void check_binary(const char* function, E (*reference)(E, E)) {
    auto a = patterns(20000, 21), b = patterns(20000, 22);
    for (size_t i = 0; i < a.size(); i += 2) b[i] = a[i] * static_cast<E>(static_cast<double>(i % 37 + 1) / 17.0);
    std::vector<E> r(a.size());
    Call<E> c;
    c.n = static_cast<int32_t>(a.size()), c.a = a.data(), c.b = b.data(), c.r1 = r.data();
    _zymSetMode(ZYM_ERRMODE_IGNORE);
    ASSERT_TRUE(call_row(row_named(row_of<E>(function)), 1, false, c));
    for (size_t i = 0; i < a.size(); ++i) {
      ASSERT_TRUE(same_value(r[i], reference(a[i], b[i]))) << function << " " << a[i] << " " << b[i] << " " << r[i];
    }
  }
};
TYPED_TEST_SUITE(Exponent, Elements);

TYPED_TEST(Exponent, NextAfterOfZeroTowardsMinusOneIsTheSmallestNegativeDenormalWithCode4) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("NextAfter"), E(0), E(-1), -this->tiny, 4);
  expect_element<E>(row_of<E>("NextAfter"), E(-0.0), E(1), this->tiny, 4);
}

TYPED_TEST(Exponent, NextAfterOfTheLargestTowardsInfinityIsInfiniteWithCode3) {
  using E = TypeParam;
  const E max = std::numeric_limits<E>::max();
  expect_element<E>(row_of<E>("NextAfter"), max, this->inf, this->inf, 3);
  expect_element<E>(row_of<E>("NextAfter"), -max, -this->inf, -this->inf, 3);
}

TYPED_TEST(Exponent, NextAfterSpecialValues) {
  using E = TypeParam;
  const E min = std::numeric_limits<E>::min(), max = std::numeric_limits<E>::max();
  expect_element<E>(row_of<E>("NextAfter"), this->nan, E(1), this->nan);
  expect_element<E>(row_of<E>("NextAfter"), E(1), this->nan, this->nan);
  expect_element<E>(row_of<E>("NextAfter"), E(2), E(2), E(2));
  expect_element<E>(row_of<E>("NextAfter"), E(0), E(-0.0), E(-0.0));
  expect_element<E>(row_of<E>("NextAfter"), this->inf, E(0), max);
  expect_element<E>(row_of<E>("NextAfter"), this->inf, this->inf, this->inf);
  expect_element<E>(row_of<E>("NextAfter"), min, E(0), min - this->tiny, 4);
  expect_element<E>(row_of<E>("NextAfter"), min - this->tiny, E(1), min, 0);
  expect_element<E>(row_of<E>("NextAfter"), this->tiny, E(-1), E(0), 4);
  expect_element<E>(row_of<E>("NextAfter"), E(1), E(-3), std::nextafter(E(1), E(0)));
}

TYPED_TEST(Exponent, NextAfterAgreesWithTheStandardLibrary) {
  TestFixture::check_binary("NextAfter", [](TypeParam a, TypeParam b) { return std::nextafter(a, b); });
}

TYPED_TEST(Exponent, LogbSpecialValues) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Logb"), E(0), -this->inf, 2);
  expect_unary<E>(row_of<E>("Logb"), E(-0.0), -this->inf, 2);
  expect_unary<E>(row_of<E>("Logb"), -this->inf, this->inf);
  expect_unary<E>(row_of<E>("Logb"), this->nan, this->nan);
  expect_unary<E>(row_of<E>("Logb"), this->tiny, sizeof(E) == 4 ? E(-149) : E(-1074));
  expect_unary<E>(row_of<E>("Logb"), E(-9.5), E(3));
}

TYPED_TEST(Exponent, LogbAgreesWithTheStandardLibrary) {
  using E = TypeParam;
  const auto x = this->patterns(20000, 23);
  std::vector<E> r(x.size());
  Call<E> c;
  c.n = static_cast<int32_t>(x.size()), c.a = x.data(), c.r1 = r.data();
  _zymSetMode(ZYM_ERRMODE_IGNORE);
  call_row(row_named(row_of<E>("Logb")), 1, true, c);
  for (size_t i = 0; i < x.size(); ++i) ASSERT_TRUE(same_value(r[i], std::logb(x[i]))) << x[i];
}

TYPED_TEST(Exponent, RemaindersOfZeroDivisorOrInfiniteDividendAreNanWithCode1) {
  using E = TypeParam;
  for (const char* f : {"Fmod", "Remainder"}) {
    expect_element<E>(row_of<E>(f), E(3), E(0), this->nan, 1);
    expect_element<E>(row_of<E>(f), E(3), E(-0.0), this->nan, 1);
    expect_element<E>(row_of<E>(f), E(0), E(0), this->nan, 1);
    expect_element<E>(row_of<E>(f), this->inf, E(2), this->nan, 1);
    expect_element<E>(row_of<E>(f), this->nan, E(0), this->nan, 0);
    expect_element<E>(row_of<E>(f), this->inf, this->nan, this->nan, 0);
  }
}

TYPED_TEST(Exponent, RemaindersByInfinityAreTheDividend) {
  using E = TypeParam;
  for (const char* f : {"Fmod", "Remainder"}) {
    expect_element<E>(row_of<E>(f), E(-3), this->inf, E(-3));
    expect_element<E>(row_of<E>(f), E(-0.0), -this->inf, E(-0.0));
  }
}

TYPED_TEST(Exponent, AZeroRemainderHasTheSignOfTheDividend) {
  using E = TypeParam;
  for (const char* f : {"Fmod", "Remainder"}) {
    expect_element<E>(row_of<E>(f), E(-6), E(3), E(-0.0));
    expect_element<E>(row_of<E>(f), E(6), E(-3), E(0));
  }
}

TYPED_TEST(Exponent, RemainderTakesTheEvenQuotientOfATie) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Remainder"), E(5), E(2), E(1));
  expect_element<E>(row_of<E>("Remainder"), E(7), E(2), E(-1));
  expect_element<E>(row_of<E>("Remainder"), E(-7), E(2), E(1));
  expect_element<E>(row_of<E>("Fmod"), E(-7), E(2), E(-1));
}

TYPED_TEST(Exponent, RemaindersAreExact) {
  TestFixture::check_binary("Fmod", [](TypeParam a, TypeParam b) { return std::fmod(a, b); });
  TestFixture::check_binary("Remainder", [](TypeParam a, TypeParam b) { return std::remainder(a, b); });
}

TYPED_TEST(Exponent, RemaindersNearWholeQuotientsAreExact) {
  using E = TypeParam;
  std::mt19937_64 random(31);
  std::vector<E> a, b;
  for (int i = 0; i < 20000; ++i) {
    const E divisor = static_cast<E>(static_cast<double>(random() % 1000003 + 1) / 977.0);
    const E multiple = divisor * static_cast<E>(random() % 200000) * E(0.5);
    E x = multiple;
    for (uint64_t k = random() % 3; k > 0; --k) x = std::nextafter(x, E(random() % 2 != 0 ? 1e9 : -1e9));
    a.push_back(random() % 2 != 0 ? x : -x);
    b.push_back(divisor);
  }
  std::vector<E> r(a.size());
  Call<E> c;
  c.n = static_cast<int32_t>(a.size()), c.a = a.data(), c.b = b.data(), c.r1 = r.data();
  call_row(row_named(row_of<E>("Fmod")), 1, false, c);
  for (size_t i = 0; i < a.size(); ++i) ASSERT_TRUE(same_value(r[i], std::fmod(a[i], b[i]))) << a[i] << " " << b[i];
  call_row(row_named(row_of<E>("Remainder")), 1, false, c);
  for (size_t i = 0; i < a.size(); ++i) {
    ASSERT_TRUE(same_value(r[i], std::remainder(a[i], b[i]))) << a[i] << " " << b[i] << " " << r[i];
  }
}

}  // namespace
}  // namespace orvik::test

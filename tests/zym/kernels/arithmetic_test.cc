#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/row_calls.h"

namespace orvik::test {
namespace {

template <class E>
class Arithmetic : public ElementTest<E> {};
TYPED_TEST_SUITE(Arithmetic, Elements);

TYPED_TEST(Arithmetic, AbsClearsTheSign) {
  using E = TypeParam;
  expect_unary<E>(row_of<E>("Abs"), E(-0.0), E(0));
  expect_unary<E>(row_of<E>("Abs"), E(-3.5), E(3.5));
  expect_unary<E>(row_of<E>("Abs"), -this->inf, this->inf);
  const Outcome<E> r = evaluate<E>(row_of<E>("Abs"), 1, -this->nan);
  EXPECT_TRUE(std::isnan(r.r1));
  EXPECT_FALSE(std::signbit(r.r1));
}

TYPED_TEST(Arithmetic, OverflowAndNanGoTheWayOfTheHardwareWithoutReport) {
  using E = TypeParam;
  const E max = std::numeric_limits<E>::max();
  expect_unary<E>(row_of<E>("Sqr"), max, this->inf);
  expect_unary<E>(row_of<E>("Sqr"), E(-3), E(9));
  expect_element<E>(row_of<E>("Add"), max, max, this->inf);
  expect_element<E>(row_of<E>("Add"), this->inf, -this->inf, this->nan);
  expect_element<E>(row_of<E>("Sub"), this->inf, this->inf, this->nan);
  expect_element<E>(row_of<E>("Sub"), E(1), E(3), E(-2));
  expect_element<E>(row_of<E>("Mul"), E(0), this->inf, this->nan);
  expect_element<E>(row_of<E>("Mul"), E(-0.0), E(2), E(-0.0));
  expect_element<E>(row_of<E>("Mul"), std::numeric_limits<E>::denorm_min(), E(0.25), E(0));
}

// As the instructions have it, whatever order of the operands suits the compiler, in blocks and behind them.
TYPED_TEST(Arithmetic, OfTwoNansTheFirstIsTheResult) {
  using E = TypeParam;
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const auto nan = [](Bits payload) {
    return std::bit_cast<E>(static_cast<Bits>(std::bit_cast<Bits>(std::numeric_limits<E>::quiet_NaN()) | payload));
  };
  constexpr int32_t kMost = 70;
  const std::vector<E> a(2 * kMost, nan(3)), b(2 * kMost, nan(5));
  const char complex = sizeof(E) == 4 ? 'c' : 'z';
  for (const std::string& name : {row_of<E>("Add"), row_of<E>("Sub"), row_of<E>("Mul"), complex + std::string("Add")}) {
    const rows::Row* row = rows::find(name);
    ASSERT_NE(row, nullptr) << name;
    for (int level = 0; level < rows::kLevels; ++level) {
      for (int32_t n = 1; n <= kMost; ++n) {
        std::vector<E> r(2 * kMost);
        const rows::Call call{.a = a.data(), .b = b.data(), .r1 = r.data()};
        rows::with_call(*row, row->entries[0][level], false, call, [&](auto function) { function(n); });
        for (int32_t i = 0; i < n * row->output_parts; ++i) {
          ASSERT_EQ(std::bit_cast<Bits>(r[static_cast<size_t>(i)]), std::bit_cast<Bits>(nan(3))) << name << ' ' << n;
        }
      }
    }
  }
}

TYPED_TEST(Arithmetic, LinearFractionIsTwoFusedStepsAndADivision) {
  using E = TypeParam;
  const Call<E> d;  // its default scalars
  for (const auto& [a, b] : {std::pair<E, E>{E(0.3), E(0.7)}, {E(-12.5), E(1e3)}, {E(1), E(-8) / E(3)}}) {
    const E want = std::fma(a, d.fraction[0], d.fraction[1]) / std::fma(b, d.fraction[2], d.fraction[3]);
    expect_element<E>(row_of<E>("LinearFrac"), a, b, want);
  }
}

TYPED_TEST(Arithmetic, LinearFractionByZeroAndInfinity) {
  using E = TypeParam;
  Call<E> c;
  E r = 0;
  E a = E(2), b = E(-1);
  c.n = 1, c.a = &a, c.b = &b, c.r1 = &r;
  c.fraction[0] = 1, c.fraction[1] = 0, c.fraction[2] = 2, c.fraction[3] = 2;
  const Row& row = row_named(row_of<E>("LinearFrac"));
  ASSERT_TRUE(call_row(row, 1, false, c));
  EXPECT_EQ(r, this->inf);
  a = 0;
  call_row(row, 1, false, c);
  EXPECT_TRUE(std::isnan(r));
  a = 1, b = this->inf;
  call_row(row, 1, true, c);
  EXPECT_TRUE(same_value(r, E(0)));
}

}  // namespace
}  // namespace orvik::test

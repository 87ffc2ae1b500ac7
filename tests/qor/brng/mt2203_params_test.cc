// The table of parameter sets: its form, the sets that are fixed, distinctness, and for a sample the full period.
#include <gtest/gtest.h>

#include <bitset>
#include <set>

#include "qor/brng/mt2203.h"
#include "qor/support/berlekamp_massey.h"
#include "qor/support/stream.h"

namespace {

using namespace orvik;
using orvik::testing::Stream;
using qor::kMt2203Members;
using qor::Mt2203Params;

TEST(Mt2203Params, RowsHaveTheFamilysForm) {
  for (int i = 0; i < kMt2203Members; ++i) {
    const auto& p = Mt2203Params[i];
    ASSERT_EQ(p.matrix_a >> 31, 1u) << i;
    ASSERT_EQ(p.mask_b & 0x7F, 0u) << i;
    ASSERT_EQ(p.mask_c & 0x7FFF, 0u) << i;
    ASSERT_TRUE(p.mask_b != 0 && p.mask_c != 0) << i;
  }
}

TEST(Mt2203Params, FixedRowsStandInTheirPlaces) {
  const auto expect_row = [](int i, uint32_t a, uint32_t b, uint32_t c) {
    EXPECT_EQ(Mt2203Params[i].matrix_a, a) << i;
    EXPECT_EQ(Mt2203Params[i].mask_b, b) << i;
    EXPECT_EQ(Mt2203Params[i].mask_c, c) << i;
  };
  expect_row(0, 0xAF81055F, 0xDD7EEF80, 0xEFD78000);
  expect_row(1, 0x832604E1, 0x66AD7F80, 0xEBD58000);
  expect_row(2, 0x92F70739, 0x656D7780, 0xEFC50000);
  expect_row(6023, 0xE8761D4B, 0x72967680, 0xEFEB0000);
}

TEST(Mt2203Params, MatricesAreDistinct) {
  std::set<uint32_t> seen;
  for (const auto& p : Mt2203Params) seen.insert(p.matrix_a);
  EXPECT_EQ(seen.size(), static_cast<size_t>(kMt2203Members));
}

// Plain arithmetic of polynomials over GF(2), independent of the library's.
constexpr size_t kDegree = 2203;
using Poly = std::bitset<2 * kDegree + 2>;

Poly square_modulo(const Poly& a, const Poly& p) {
  Poly r;
  for (size_t i = 0; i < kDegree; ++i) r[2 * i] = a[i];
  for (size_t i = 2 * kDegree; i >= kDegree; --i)
    if (r[i]) r ^= p << (i - kDegree);
  return r;
}

// The polynomial is the minimal polynomial of an output bit. 2203 and 2^2203 - 1 are prime, so that x^(2^2203) = x with
// the full degree and x^2 other than x means irreducible, and irreducible means the period 2^2203 - 1.
TEST(Mt2203Params, SampledMembersHaveThePeriodOfAllStates) {
  for (int member : {0, 2, 3, 1375, 3012, 6022, 6023}) {
    const std::vector<uint32_t> words = Stream(ORVIK_BRNG_MT2203 + member, {7}).words(2 * kDegree + 10);
    std::vector<bool> bits;
    for (uint32_t w : words) bits.push_back(w & 1);
    const std::vector<uint32_t> exponents = support::minimal_polynomial(bits);
    ASSERT_EQ(exponents.back(), kDegree) << member;
    ASSERT_EQ(exponents.front(), 0u) << member;
    Poly p, x;
    for (uint32_t e : exponents) p[e] = true;
    x[1] = true;
    Poly power = x;
    for (size_t i = 0; i < kDegree; ++i) power = square_modulo(power, p);
    EXPECT_EQ(power, x) << member;
  }
}

TEST(Mt2203Params, TheSameTestRefusesAReduciblePolynomial) {
  Poly p, x;
  p[kDegree] = p[5] = p[1] = p[0] = true;
  x[1] = true;
  Poly power = x;
  for (size_t i = 0; i < kDegree; ++i) power = square_modulo(power, p);
  EXPECT_NE(power, x);
}

}  // namespace

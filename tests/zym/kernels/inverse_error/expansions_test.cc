// Neighbouring rows of expansions meet at their common edge, where both are worst: what they differ by, relative to the
// function, is twice the error that their tables state.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "zym/kernels/exp_int1/tables.h"
#include "zym/kernels/inverse_error/tables.h"

namespace orvik::zym {
namespace {

using Wide = long double;

// Rows of 1/rows_of_binade of a binade from 2^first on, the terms of each by a function of the row.
template <class Terms>
Wide worst_mismatch(int rows, int rows_of_binade, int first, Terms terms) {
  const auto at_end = [&](int i, int side) {  // side: -1 the lower, 1 the upper edge
    const Wide half = std::ldexp(Wide{1}, first + i / rows_of_binade) / (2 * rows_of_binade);
    const std::vector<Wide> c = terms(i);
    Wide sum = 0;
    for (size_t k = c.size(); k-- > 0;) sum = sum * (side * half) + c[k];
    return sum;
  };
  Wide worst = 0;
  for (int i = 0; i + 1 < rows; ++i) {
    const Wide left = at_end(i, 1), right = at_end(i + 1, -1);
    worst = std::fmax(worst, std::fabs(left / right - 1));
  }
  return worst;
}

template <size_t N>
std::vector<Wide> eleven_terms(const double (&low)[N][4], const double (&middle)[N][4], const double (&high)[N][4],
                               int i) {
  std::vector<Wide> c;
  for (const auto* table : {&low, &middle, &high}) {
    for (double each : (*table)[i]) c.push_back(each);
  }
  c[0] += c[11];  // what the first lacks
  c.pop_back();
  return c;
}
template <size_t N>
std::vector<Wide> four_terms(const double (&table)[N][4], int i) {
  return {table[i], table[i] + 4};
}

TEST(Expansions, OfTheInverseErrorFunctionMeet) {
  const auto terms = [](int i) { return eleven_terms(kErfInvTerms0, kErfInvTerms4, kErfInvTerms8, i); };
  EXPECT_LT(worst_mismatch(120, 16, 2, terms), 0x1p-56L);
  EXPECT_LT(worst_mismatch(240, 32, 2, [](int i) { return four_terms(kErfInvShort, i); }), 0x1p-28L);
}

TEST(Expansions, OfTheExponentialIntegralMeet) {
  const auto terms = [](int i) { return eleven_terms(kExpInt1Terms0, kExpInt1Terms4, kExpInt1Terms8, i); };
  EXPECT_LT(worst_mismatch(248, 16, -6, terms), 0x1p-57L);
  EXPECT_LT(worst_mismatch(496, 32, -6, [](int i) { return four_terms(kExpInt1Short, i); }), 0x1p-27L);
  const auto single = [](int i) { return std::vector<Wide>(kExpInt1Single[i], kExpInt1Single[i] + 3); };
  EXPECT_LT(worst_mismatch(104, 8, -6, single), 0x1p-13L);
}

}  // namespace
}  // namespace orvik::zym

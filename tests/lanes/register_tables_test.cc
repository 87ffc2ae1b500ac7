// Small tables of doubles, exponents: against single elements.
#include "lanes/register_tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "lanes/exponents.h"
#include "lanes/lanes.h"

namespace orvik {
namespace {

template <class V>
void numbers(Element<V>* x, double step) {
  for (int k = 0; k < kWidth<V>; ++k) x[k] = static_cast<Element<V>>(step * (k + 1));
}

TEST(Exponents, AreThoseOfOneElement) {
  double x[kWidth<F64>], plain[kWidth<F64>];
  for (const double step : {2.2250738585072014e-308, 0.001, 0.75, 1.0, 1e300}) {
    numbers<F64>(x, step);
    store(plain, Exponents<F64>(load<F64>(x)).numbers());
    for (int k = 0; k < kWidth<F64>; ++k) EXPECT_EQ(plain[k], std::logb(x[k])) << x[k];
  }
  float y[kWidth<F32>], single[kWidth<F32>];
  for (const double step : {1.1754943508222875e-38, 0.3, 1e37}) {
    numbers<F32>(y, step);
    store(single, Exponents<F32>(load<F32>(y)).numbers());
    for (int k = 0; k < kWidth<F32>; ++k) EXPECT_EQ(single[k], std::logb(y[k])) << y[k];
  }
}

#if ORVIK_REGISTER_BITS == 512
TEST(RegisterTables, OfDoublesAreReadByTheLowBits) {
  static_assert(kHasPermutes64<F64> && kHasPermutes64<Twice<F64>> && !kHasPermutes64<double>);
  double table[16];
  std::iota(table, table + 16, 0.25);
  for (int first = 0; first < 40; ++first) {
    double x[kWidth<F64>], eighth[kWidth<F64>], sixteenth[kWidth<F64>];
    numbers<F64>(x, 3);
    const I64 index = widen(to_integer(load<F64>(x))) + I64(int64_t{first});
    store(eighth, look_up_in_8(table, index));
    store(sixteenth, look_up_in_16(table, index));
    for (int k = 0; k < kWidth<F64>; ++k) {
      EXPECT_EQ(eighth[k], table[(3 * (k + 1) + first) % 8]);
      EXPECT_EQ(sixteenth[k], table[(3 * (k + 1) + first) % 16]);
    }
  }
}
#endif

}  // namespace
}  // namespace orvik

// Small tables of doubles, floats as doubles in the order of unpacking, exponents: against single elements.
#include "lanes/register_tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "lanes/exponents.h"
#include "lanes/lanes.h"
#include "lanes/unpacked.h"

namespace orvik {
namespace {

template <class V>
void numbers(Element<V>* x, double step) {
  for (int k = 0; k < kWidth<V>; ++k) x[k] = static_cast<Element<V>>(step * (k + 1));
}

TEST(Exponents, AreThoseOfOneElementAndOneMoreWhereAsked) {
  double x[kWidth<F64>], plain[kWidth<F64>], more[kWidth<F64>];
  for (const double step : {2.2250738585072014e-308, 0.001, 0.75, 1.0, 1e300}) {
    numbers<F64>(x, step);
    const Exponents<F64> e(load<F64>(x));
    store(plain, e.numbers());
    store(more, e.one_more(mask_of_bits<F64>(0xA5)));
    for (int k = 0; k < kWidth<F64>; ++k) {
      EXPECT_EQ(plain[k], std::logb(x[k])) << x[k];
      EXPECT_EQ(more[k], std::logb(x[k]) + ((0xA5 >> k) & 1)) << x[k];
    }
  }
  float y[kWidth<F32>], single[kWidth<F32>];
  for (const double step : {1.1754943508222875e-38, 0.3, 1e37}) {
    numbers<F32>(y, step);
    store(single, Exponents<F32>(load<F32>(y)).numbers());
    for (int k = 0; k < kWidth<F32>; ++k) EXPECT_EQ(single[k], std::logb(y[k])) << y[k];
  }
}

TEST(Unpacked, HalvesComeBackInOrder) {
  float x[kWidth<F32>], same[kWidth<F32>];
  numbers<F32>(x, 1.5);
  const F32 ordered = unpacked_order(load<F32>(x));
  store(same, narrow_unpacked(widen_low(ordered), widen_high(ordered)));
  for (int k = 0; k < kWidth<F32>; ++k) EXPECT_EQ(same[k], x[k]);
}

TEST(Unpacked, WordsOfFloatsAreDoublesByAShift) {
  float x[kWidth<F32>], same[kWidth<F32>];
  numbers<F32>(x, 0.7);
  const Pair<I64> wide = unpack(I32(0u), as_bits(load<F32>(x)));
  const F64 scale = 0x1p896;
  store(same,
        narrow_unpacked(as_float(shift_right<3>(wide.first)) * scale, as_float(shift_right<3>(wide.second)) * scale));
  for (int k = 0; k < kWidth<F32>; ++k) EXPECT_EQ(same[k], x[k]);
}

TEST(Unpacked, RowsOfSixteenAreReadByTheLowFourBits) {
  alignas(64) double table[16][2];
  for (int i = 0; i < 16; ++i) table[i][0] = i + 0.5, table[i][1] = -i;
  for (uint32_t first = 0; first < 48; ++first) {
    float lane[kWidth<F32>];
    numbers<F32>(lane, 1);
    const I32 index = to_integer(load<F32>(lane)) * I32(7u) + I32(first);
    const auto rows = look_up_in_16(table, index, unpack(index, index));
    float left[kWidth<F32>], right[kWidth<F32>];
    store(left, narrow_unpacked(rows.first.first, rows.second.first));
    store(right, narrow_unpacked(rows.first.second, rows.second.second));
    for (uint32_t k = 0; k < kWidth<F32>; ++k) {
      const uint32_t row = ((k + 1) * 7 + first) % 16;
      EXPECT_EQ(left[k], static_cast<float>(table[row][0]));
      EXPECT_EQ(right[k], static_cast<float>(table[row][1]));
    }
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

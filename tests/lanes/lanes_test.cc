// The vector layer against the same operations on single elements.
#include "lanes/lanes.h"

#include <immintrin.h>
#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <cstdlib>
#include <cstring>
#include <vector>

#if ORVIK_REGISTER_BITS != 512
#include "lanes/columns.h"
#endif
#include "lanes/strided.h"
#include "support/guarded.h"

namespace orvik {
namespace {

template <class V>
class LanesTest : public testing::Test {
 protected:
  using E = Element<V>;
  static constexpr int kWide = kWidth<V>;

  // Bit patterns of every class; no signalling NaNs, which an operation quiets.
  std::vector<E> values() {
    using L = std::numeric_limits<E>;
    std::mt19937_64 random(7);
    std::vector<E> x = {E(0), E(-0.0), E(1), E(-1), E(0.5), L::infinity(), -L::infinity(), L::quiet_NaN(),
                        L::denorm_min(), -L::denorm_min(), L::min(), L::max(), -L::max(), E(2.5), E(-3.5), E(1e10)};
    while (x.size() < 512) {
      const E v = std::bit_cast<E>(static_cast<Bits<V>>(random()));
      x.push_back(v != v ? E(static_cast<double>(random() % 1000) - 500) : v);
    }
    return x;
  }
  static bool same(E a, E b) { return bits_of(a) == bits_of(b) || (a != a && b != b); }

  // A lane operation of two arguments against its overload for one element.
  template <class Vector, class Scalar>
  void expect_same(const char* what, Vector vector, Scalar scalar) {
    const std::vector<E> x = values();
    for (size_t shift : {0, 1, 3, 5}) {
      for (size_t i = 0; i + kWide <= x.size(); i += kWide) {
        std::vector<E> y(kWide);
        for (int k = 0; k < kWide; ++k) y[static_cast<size_t>(k)] = x[(i + static_cast<size_t>(k) + shift * 17) % x.size()];
        E got[kWide];
        store(got, vector(load<V>(&x[i]), load<V>(y.data())));
        for (int k = 0; k < kWide; ++k) {
          const E want = scalar(x[i + static_cast<size_t>(k)], y[static_cast<size_t>(k)]);
          ASSERT_TRUE(same(got[k], want)) << what << "(" << x[i + static_cast<size_t>(k)] << ", " << y[static_cast<size_t>(k)]
                                          << "): " << got[k] << ", one element " << want;
        }
      }
    }
  }
};
using Lanes = testing::Types<F32, F64>;
TYPED_TEST_SUITE(LanesTest, Lanes);

TYPED_TEST(LanesTest, OperationsAgreeWithTheirOverloadsForOneElement) {
  using V = TypeParam;
  const auto check = [&](const char* what, auto f) { this->expect_same(what, f, f); };
  check("fma", [](auto a, auto b) { return fma(a, b, b); });
  check("fms", [](auto a, auto b) { return fms(a, b, a); });
  check("fnma", [](auto a, auto b) { return fnma(a, b, b); });
  check("max", [](auto a, auto b) { return max(a, b); });
  check("min", [](auto a, auto b) { return min(a, b); });
  check("select", [](auto a, auto b) { return select(a > b, a, b); });
  check("keep", [](auto a, auto b) { return keep(a < b, a); });
  check("drop", [](auto a, auto b) { return drop(a <= b, a); });
  check("complement", [](auto a, auto b) { return select(complement(a >= b), a, b); });
  check("sign_decides", [](auto a, auto b) { return select(sign_decides(a), a, b); });
  check("magnitude", [](auto a, auto) { return magnitude(a); });
  check("sign_of", [](auto a, auto) { return sign_of(a); });
  check("join_sign", [](auto a, auto b) { return join_sign(a, b); });
  check("flip_sign", [](auto a, auto b) { return flip_sign(a, b); });
  check("round to nearest", [](auto a, auto) { return round<Direction::nearest>(a); });
  check("round down", [](auto a, auto) { return round<Direction::down>(a); });
  check("shifts", [](auto a, auto) { return as_float(shift_left<3>(shift_right<2>(as_bits(a)))); });
  check("two_sum", [](auto a, auto b) { return two_sum(a, b).tail; });
  check("two_prod", [](auto a, auto b) { return two_prod(a, b).tail; });
  check("horner", [](auto a, auto b) { return horner(a, b, a, b); });
  check("estrin", [](auto a, auto) {
    constexpr Element<V> c[] = {Element<V>(0.125), Element<V>(-0.5), Element<V>(2), Element<V>(3), Element<V>(-7)};
    return estrin(a, c);
  });
  check("shift_round", [](auto a, auto) { return shift_round(a, decltype(a)(Element<V>(3))).n; });
}

TYPED_TEST(LanesTest, SumsAndProductsKeepWhatRoundingLoses) {
  using E = Element<TypeParam>;
  std::mt19937_64 random(11);
  for (int i = 0; i < 10000; ++i) {
    const E a = static_cast<E>(std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 40) - 60));
    const E b = -static_cast<E>(std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 40) - 60));
    const auto exact = [](E x) { return static_cast<__float128>(x); };
    const HeadTail<E> s = two_sum(a, b);
    ASSERT_TRUE(exact(s.head) + exact(s.tail) == exact(a) + exact(b));
    const HeadTail<E> p = two_prod(a, b);
    ASSERT_TRUE(exact(p.head) + exact(p.tail) == exact(a) * exact(b));
    ASSERT_EQ(s.head, a + b);
    ASSERT_EQ(p.head, a * b);
    const HeadTail<E> q = divide(HeadTail<E>{a, E(0)}, HeadTail<E>{b, E(0)});
    const __float128 error = (exact(q.head) + exact(q.tail)) * exact(b) / exact(a) - 1;
    ASSERT_LT(std::fabs(static_cast<double>(error)), sizeof(E) == 4 ? 0x1p-44 : 0x1p-100);
  }
}

TYPED_TEST(LanesTest, MaskedLoadsAndStoresTouchOnlyTheirElements) {
  using V = TypeParam;
  using E = Element<V>;
  for (int k = 0; k <= kWidth<V>; ++k) {
    test::Guarded<E> from(static_cast<size_t>(k)), to(static_cast<size_t>(k));
    for (bool back : {false, true}) {
      E* p = back ? from.at_back() : from.at_front();
      E* q = back ? to.at_back() : to.at_front();
      for (int i = 0; i < k; ++i) p[i] = E(i + 1);
      E all[kWidth<V>];
      store(all, load_first(p, k, V(E(-9))));
      for (int i = 0; i < kWidth<V>; ++i) ASSERT_EQ(all[i], i < k ? E(i + 1) : E(-9));
      if (k < kWidth<V>) {
        store_first(q, k, load_first(p, k, V(E(-9))));
        for (int i = 0; i < k; ++i) ASSERT_EQ(q[i], E(i + 1));
      }
    }
  }
}

TEST(Strided, DoublesFollowTheStep) {
  for (int64_t step : {1, 2, 5, -1, -3, 0}) {
    std::vector<double> x(200), r(200);
    for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i);
    const double* p = x.data() + 100;
    constexpr int kCount = kWidth<F64>;
    double row[kCount];
    store(row, load_strided<F64>(p, step));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(row[i], p[i * step]);
    store_strided(r.data() + 100, step, load<F64>(x.data()));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(r[static_cast<size_t>(100 + i * step)], step == 0 ? kCount - 1 : i);
  }
}

TEST(Strided, RowsOfElementsOfAnySizeAreGatheredAndSpreadByTheStepAndNoByteMore) {
  for (int size : {4, 8, 16}) {
    for (int step : {1, 2, 5, -1, -3}) {
      for (int n = 0; n <= 40; ++n) {
        const int64_t bytes = int64_t{step} * size;
        // An array of exactly n elements, so that the sanitizer sees a read past its end.
        const auto length = static_cast<size_t>(n > 0 ? (n - 1) * std::abs(bytes) + size : 0);
        std::vector<char> x(length), r(length, char(-1)), row(40 * 16 + 32), back(length, char(-1));
        for (size_t i = 0; i < length; ++i) x[i] = static_cast<char>(i * 7 % 101);
        const auto first = [&](std::vector<char>& v) {
          return n > 0 && step < 0 ? v.data() + static_cast<size_t>((n - 1) * -bytes) : v.data();
        };
        gather_row(first(x), bytes, row.data(), size, n);
        for (int i = 0; i < n; ++i) {
          ASSERT_EQ(std::memcmp(row.data() + i * size, first(x) + i * bytes, static_cast<size_t>(size)), 0) << size << step << n;
        }
        spread_row(row.data(), first(r), bytes, size, n);
        for (int i = 0; i < n; ++i) std::memcpy(first(back) + i * bytes, row.data() + i * size, static_cast<size_t>(size));
        ASSERT_EQ(r, back) << size << " " << step << " " << n;
      }
    }
  }
}

TYPED_TEST(LanesTest, PairsComeApartAndTogetherInOrder) {
  using V = TypeParam;
  using E = Element<V>;
  E x[2 * kWidth<V>], re[kWidth<V>], im[kWidth<V>], back[2 * kWidth<V>];
  for (int i = 0; i < 2 * kWidth<V>; ++i) x[i] = E(i);
  const Pair<V> pair = load_pairs<V>(x);
  store(re, pair.first), store(im, pair.second), store_pairs(back, pair);
  for (int i = 0; i < kWidth<V>; ++i) {
    EXPECT_EQ(re[i], E(2 * i));
    EXPECT_EQ(im[i], E(2 * i + 1));
    EXPECT_EQ(back[2 * i], x[2 * i]);
    EXPECT_EQ(back[2 * i + 1], x[2 * i + 1]);
  }
}

TYPED_TEST(LanesTest, MasksAndBitsGoThereAndBack) {
  using V = TypeParam;
  for (uint32_t bits = 0; bits < 1u << kWidth<V>; ++bits) {
    const Mask<V> mask = mask_of_bits<V>(bits);
    ASSERT_EQ(lane_bits(mask), bits);
    ASSERT_EQ(none(mask), bits == 0);
    ASSERT_EQ(lane_bits(complement(mask)), ~bits & ((1u << kWidth<V>) - 1));
  }
}

#if ORVIK_REGISTER_BITS != 512
template <class V>
void expect_two_columns() {
  Element<V> matrix[20 * kWidth<V>], first[kWidth<V>], second[kWidth<V>];
  std::iota(std::begin(matrix), std::end(matrix), Element<V>(0));
  for (int64_t step = 2; step < 20; ++step) {
    V columns[2];
    load_two_columns(matrix, step, columns);
    store(first, columns[0]), store(second, columns[1]);
    for (int i = 0; i < kWidth<V>; ++i) {
      EXPECT_EQ(first[i], matrix[i * step]) << step;
      EXPECT_EQ(second[i], matrix[i * step + 1]) << step;
    }
  }
}
TEST(Columns, TwoNeighboursAreTakenWhateverTheStep) {
  expect_two_columns<F64>();
  expect_two_columns<F32>();
}
#endif

TEST(Gathers, TakeTheRowsThatTheIndicesName) {
  double single[64], pairs[64][2], quads[64][4];
  for (int i = 0; i < 64; ++i) {
    single[i] = i;
    for (int j = 0; j < 2; ++j) pairs[i][j] = 10 * i + j;
    for (int j = 0; j < 4; ++j) quads[i][j] = 10 * i + j;
  }
  constexpr int kCount = kWidth<F64>;
  const int64_t rows[8] = {63, 0, 17, 5, 1, 62, 5, 33};
  double index_bits[kCount];
  for (int i = 0; i < kCount; ++i) index_bits[i] = std::bit_cast<double>(rows[i]);
  const Indices k = indices(as_bits(load<F64>(index_bits)));
  double got[kCount], got2[kCount];
  store(got, gather(single, k));
  for (int i = 0; i < kCount; ++i) EXPECT_EQ(got[i], static_cast<double>(rows[i]));
  const Pair<F64> pair = gather(pairs, k);
  store(got, pair.first), store(got2, pair.second);
  for (int i = 0; i < kCount; ++i) {
    EXPECT_EQ(got[i], 10.0 * static_cast<double>(rows[i]));
    EXPECT_EQ(got2[i], got[i] + 1);
  }
  const Quad<F64> quad = gather(quads, k);
  for (int j = 0; j < 4; ++j) {
    store(got, quad.c[j]);
    for (int i = 0; i < kCount; ++i) EXPECT_EQ(got[i], 10.0 * static_cast<double>(rows[i]) + j);
  }
  store(got, gather_first(pairs, k));
  for (int i = 0; i < kCount; ++i) EXPECT_EQ(got[i], 10.0 * static_cast<double>(rows[i]));
  float of_rows[64][4], taken[kWidth<F32>];
  for (int i = 0; i < 64; ++i) {
    for (int j = 0; j < 4; ++j) of_rows[i][j] = static_cast<float>(10 * i + j);
  }
  const float numbers[16] = {3, 60, 0, 7, 12, 33, 1, 63, 2, 2, 41, 0, 9, 62, 5, 18};
  const Quad<F32> four = gather(of_rows, to_integer(load<F32>(numbers)));
  for (int j = 0; j < 4; ++j) {
    store(taken, four.c[j]);
    for (int i = 0; i < kWidth<F32>; ++i) EXPECT_EQ(taken[i], 10 * numbers[i] + static_cast<float>(j));
  }
}

// Tables whose first row has another number than 0, indices of 32 bits, both vectors of a pair, one element.
template <class At, class Get>
void expect_rows(const At& k, const int64_t* rows, int count, Get get) {
  double pairs[64][2], quads[64][4];
  for (int i = 0; i < 64; ++i) {
    for (int j = 0; j < 2; ++j) pairs[i][j] = 10 * i + j;
    for (int j = 0; j < 4; ++j) quads[i][j] = 10 * i + j;
  }
  const auto expect = [&](const auto& column, double more, int64_t first) {
    for (int i = 0; i < count; ++i) EXPECT_EQ(get(column, i), 10.0 * static_cast<double>(rows[i] - first) + more);
  };
  const auto pair = gather<2>(pairs, k);
  expect(pair.first, 0, 2), expect(pair.second, 1, 2);
  expect(gather_first<1>(pairs, k), 0, 1);
  const auto quad = gather<1>(quads, k);
  for (int j = 0; j < 4; ++j) expect(quad.c[j], j, 1);
  int taken = 0;
  gather_rows<5>(pairs, k, [&](int j, const auto& row) {
    EXPECT_EQ(j, taken++);
    expect(row.first, 10 * j, 0), expect(row.second, 10 * j + 1, 0);
  });
  EXPECT_EQ(taken, 5);
}

TEST(Gathers, OfSeveralRowsAndOfTablesThatBeginElsewhere) {
  constexpr int kCount = kWidth<F64>;
  const int64_t rows[16] = {58, 2, 17, 5, 3, 57, 5, 33, 2, 49, 21, 9, 9, 4, 40, 31};
  double bits[16];
  for (int i = 0; i < 16; ++i) bits[i] = std::bit_cast<double>(rows[i]);
  const auto at = [](F64 column, int i) {
    double lanes[kCount];
    store(lanes, column);
    return lanes[i];
  };
  const I64 low = as_bits(load<F64>(bits)), high = as_bits(load<F64>(bits + kCount));
  expect_rows(indices(low), rows, kCount, at);
  expect_rows(row_indices(low), rows, kCount, at);
  expect_rows(row_indices(low_words(low)), rows, kCount, at);
  const auto at_either = [&](Twice<F64> column, int i) {
    return i < kCount ? at(column.low, i) : at(column.high, i - kCount);
  };
  expect_rows(indices(Twice<I64>{low, high}), rows, 2 * kCount, at_either);
  expect_rows(row_indices(Twice<I64>{low, high}), rows, 2 * kCount, at_either);
  expect_rows(row_indices(uint64_t{17}), rows + 2, 1, [](double column, int) { return column; });
}

TEST(Tables, InRegistersAreReadByTheLowBitsOfTheIndex) {
  const float quad[4] = {1, 2, 3, 4}, octet[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  const uint32_t words[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  float sixteen[16];
  for (int i = 0; i < 16; ++i) sixteen[i] = static_cast<float>(100 + i);
  constexpr int kCount = kWidth<F32>;
  for (int first = 0; first < 40; ++first) {
    float index[kCount], got[kCount];
    for (int i = 0; i < kCount; ++i) index[i] = static_cast<float>(first + 3 * i);
    const I32 k = to_integer(load<F32>(index));
    store(got, select_in_quad(quad_table<F32>(quad), k));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(got[i], quad[(first + 3 * i) % 4]);
    store(got, look_up(octet_table<F32>(octet), k));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(got[i], octet[(first + 3 * i) % 8]);
    store(got, look_up_16<F32>(sixteen, k));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(got[i], sixteen[(first + 3 * i) % 16]);
    store(got, to_float(look_up(octet_table<F32>(words), k)));
    for (int i = 0; i < kCount; ++i) ASSERT_EQ(got[i], octet[(first + 3 * i) % 8]);
  }
}

// One table of estimates on a processor, whatever the width: results that start from them have the same bits.
TEST(Estimates, AreThoseOfOneElement) {
  std::mt19937_64 random(3);
  for (int round = 0; round < 100000; ++round) {
    float x[kWidth<F32>], reciprocal[kWidth<F32>], root[kWidth<F32>];
    double y[kWidth<F64>], reciprocal64[kWidth<F64>];
    for (float& v : x) v = std::ldexp(static_cast<float>(1 + random() % (1 << 24)), static_cast<int>(random() % 100) - 60);
    for (int i = 0; i < kWidth<F64>; ++i) y[i] = x[i];
    store(reciprocal, reciprocal_estimate(load<F32>(x)));
    store(root, inverse_root_estimate(load<F32>(x)));
    store(reciprocal64, reciprocal_estimate(load<F64>(y)));
    for (int i = 0; i < kWidth<F32>; ++i) {
      ASSERT_EQ(reciprocal[i], _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(x[i]))));
      ASSERT_EQ(root[i], _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(x[i]))));
    }
    for (int i = 0; i < kWidth<F64>; ++i) ASSERT_EQ(reciprocal64[i], static_cast<double>(reciprocal[i]));
  }
}

// Powers of two of one element, denormals and the ends of the range included, as the C library has them.
TEST(Elements, ExponentsAndPowersOfTwoInEveryRounding) {
  std::mt19937_64 random(5);
  for (int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    for (int i = 0; i < 200000; ++i) {
      uint64_t bits = random();
      if (i % 4 == 0) bits &= 0x800FFFFFFFFFFFFFu >> (random() % 12 == 0 ? 0 : random() % 52);
      const auto x = std::bit_cast<double>(bits);
      const auto f = std::bit_cast<float>(static_cast<uint32_t>(bits));
      if (std::isfinite(f) && f != 0) {
        ASSERT_EQ(exponent_of(f), std::ilogb(f)) << f;
      }
      if (!std::isfinite(x) || x == 0) continue;
      ASSERT_EQ(exponent_of(x), std::ilogb(x)) << x;
      const int k = static_cast<int>(random() % 4400) - 2200;
      const double got = times_two_to(x, k), want = std::scalbn(x, k);
      ASSERT_EQ(bits_of(got), bits_of(want)) << x << " 2^" << k;
    }
  }
  std::fesetround(FE_TONEAREST);
  for (int k = -1022; k <= 1023; ++k) ASSERT_EQ(power_of_two<double>(k), std::ldexp(1.0, k));
  for (int k = -126; k <= 127; ++k) ASSERT_EQ(power_of_two<float>(k), std::ldexp(1.0f, k));
  EXPECT_EQ(times_two_to(-0.0, 3000), 0.0);
  EXPECT_TRUE(std::signbit(times_two_to(-0.0, -6000)));
}

TYPED_TEST(LanesTest, TestsOfWordsAnswerByTheHighWord) {
  using V = TypeParam;
  this->expect_same(
      "words_above", [](V a, V) { return select(words_above(as_bits(a), 0x3FF00000), V(Element<V>(1)), V(Element<V>(0))); },
      [](Element<V> a, Element<V>) {
        const auto high = static_cast<int32_t>(bits_of(a) >> (sizeof(a) == 8 ? 32 : 0));
        return Element<V>(high > 0x3FF00000 ? 1 : 0);
      });
}

}  // namespace
}  // namespace orvik

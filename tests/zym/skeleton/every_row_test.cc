// What holds for every built kernel: an element's bits do not depend on its place, its stride or its neighbours; nothing
// outside the arrays is touched; in place gives what separate arrays give.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "orvik/zym.h"
#include "support/guarded.h"
#include "support/rows.h"

namespace orvik::test {
namespace {

template <class E>
using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;

template <class E>
Bits<E> bits(E x) {
  return std::bit_cast<Bits<E>>(x);
}

template <class E>
std::vector<E> mixed_inputs(size_t count, uint64_t seed) {
  using L = std::numeric_limits<E>;
  const E special[] = {E(0),  E(-0.0), E(1),  E(-1), E(0.5), E(2), L::infinity(), -L::infinity(), L::quiet_NaN(),
                       L::denorm_min(), -L::denorm_min(), L::min(), L::max(), -L::max(), L::epsilon()};
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<E> plain(E(-10), E(10));
  std::vector<E> x(count);
  for (E& v : x) {
    const uint64_t kind = random() % 8;
    v = kind == 0   ? special[random() % std::size(special)]
        : kind == 1 ? std::bit_cast<E>(static_cast<Bits<E>>(random()))
                    : plain(random);
    if (v != v) v = L::quiet_NaN();  // payloads may differ between lanes and routines
  }
  return x;
}

template <class E>
struct Result {
  std::vector<E> r1, r2;
};

// Runs over every built row and level of E.
template <class E, class Function>
void for_each_kernel(Function function) {
  _zymSetMode(ZYM_ERRMODE_IGNORE);
  int kernels = 0;
  for (const Row& row : rows::all()) {
    if (!row.built() || row.precision != (sizeof(E) == 4 ? 's' : 'd') || row.shape == Shape::pack) continue;
    for (int level = 0; level < 3; ++level) {
      SCOPED_TRACE(std::string(row.name) + " " + kLevelNames[level]);
      function(row, level);
      ++kernels;
      if (testing::Test::HasFailure()) return;
    }
  }
  EXPECT_GT(kernels, 0);
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
}

template <class E>
class EveryRow : public testing::Test {};
using Elements = testing::Types<float, double>;
TYPED_TEST_SUITE(EveryRow, Elements);

// Each element alone: the reference that all other calls must meet bit for bit.
template <class E>
Result<E> one_by_one(const Row& row, int level, const std::vector<E>& a, const std::vector<E>& b) {
  Result<E> result{std::vector<E>(a.size()), std::vector<E>(a.size())};
  for (size_t i = 0; i < a.size(); ++i) {
    Call<E> c;
    c.n = 1, c.a = &a[i], c.b = &b[i], c.r1 = &result.r1[i], c.r2 = &result.r2[i];
    EXPECT_TRUE(call_row(row, level, false, c));
  }
  return result;
}

template <class E>
void expect_same(const std::vector<E>& want, const E* got, int64_t step, size_t n, const char* what) {
  for (size_t i = 0; i < n; ++i) {
    ASSERT_EQ(bits(want[i]), bits(got[static_cast<int64_t>(i) * step])) << what << " element " << i << " of " << n;
  }
}

TYPED_TEST(EveryRow, BitsDoNotDependOnThePosition) {
  using E = TypeParam;
  const auto a = mixed_inputs<E>(150, 1), b = mixed_inputs<E>(150, 2);
  for_each_kernel<E>([&](const Row& row, int level) {
    const Result<E> want = one_by_one(row, level, a, b);
    for (int n : {2, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 150}) {
      Result<E> got{std::vector<E>(a.size()), std::vector<E>(a.size())};
      Call<E> c;
      c.n = n, c.a = a.data(), c.b = b.data(), c.r1 = got.r1.data(), c.r2 = got.r2.data();
      call_row(row, level, false, c);
      expect_same(want.r1, got.r1.data(), 1, static_cast<size_t>(n), "r1");
      if (row.shape == Shape::unary2) expect_same(want.r2, got.r2.data(), 1, static_cast<size_t>(n), "r2");
    }
  });
}

TYPED_TEST(EveryRow, StridedTwinGivesTheSameBits) {
  using E = TypeParam;
  const size_t count = 75;
  const auto a = mixed_inputs<E>(count, 3), b = mixed_inputs<E>(count, 4);
  for_each_kernel<E>([&](const Row& row, int level) {
    const Result<E> want = one_by_one(row, level, a, b);
    for (const std::array<int32_t, 4>& inc : {std::array{1, 1, 1, 1}, std::array{2, 3, 1, 4}, std::array{-1, 2, -3, 1}}) {
      const auto spread = [&](const std::vector<E>& x, int32_t step) {
        std::vector<E> out(x.size() * 4);
        const int64_t start = step < 0 ? -step * static_cast<int64_t>(x.size() - 1) : 0;
        for (size_t i = 0; i < x.size(); ++i) out[static_cast<size_t>(start + static_cast<int64_t>(i) * step)] = x[i];
        return std::pair(out, start);
      };
      const auto [sa, startA] = spread(a, inc[0]);
      const auto [sb, startB] = spread(b, inc[1]);
      auto [r1, start1] = spread(std::vector<E>(count), inc[2]);
      auto [r2, start2] = spread(std::vector<E>(count), inc[3]);
      Call<E> c;
      c.n = static_cast<int32_t>(count), c.a = sa.data() + startA, c.b = sb.data() + startB;
      c.r1 = r1.data() + start1, c.r2 = r2.data() + start2;
      c.incA = inc[0], c.incB = inc[1], c.incR1 = inc[2], c.incR2 = inc[3];
      call_row(row, level, true, c);
      expect_same(want.r1, c.r1, inc[2], count, "r1");
      if (row.shape == Shape::unary2) expect_same(want.r2, c.r2, inc[3], count, "r2");
    }
  });
}

TYPED_TEST(EveryRow, InputIncrementOfZeroRepeatsTheElement) {
  using E = TypeParam;
  const E a = E(0.625), b = E(1.75);
  for_each_kernel<E>([&](const Row& row, int level) {
    const Result<E> want = one_by_one<E>(row, level, {a}, {b});
    std::vector<E> r1(40), r2(40);
    Call<E> c;
    c.n = 40, c.a = &a, c.b = &b, c.r1 = r1.data(), c.r2 = r2.data(), c.incA = 0, c.incB = 0;
    call_row(row, level, true, c);
    for (const E& r : r1) ASSERT_EQ(bits(r), bits(want.r1[0]));
  });
}

TYPED_TEST(EveryRow, ResultIncrementOfZeroKeepsTheLastElement) {
  using E = TypeParam;
  auto a = mixed_inputs<E>(37, 5), b = mixed_inputs<E>(37, 6);
  a.back() = E(0.25), b.back() = E(0.75);
  a[34] = std::numeric_limits<E>::quiet_NaN();
  for_each_kernel<E>([&](const Row& row, int level) {
    for (int32_t n : {37, 35}) {
      const Result<E> want = one_by_one(row, level, a, b);
      E r1 = 0, r2 = 0;
      Call<E> c;
      c.n = n, c.a = a.data(), c.b = b.data(), c.r1 = &r1, c.r2 = &r2, c.incR1 = 0, c.incR2 = 0;
      call_row(row, level, true, c);
      ASSERT_EQ(bits(r1), bits(want.r1[static_cast<size_t>(n - 1)]));
    }
  });
}

TYPED_TEST(EveryRow, InPlaceGivesTheSameBits) {
  using E = TypeParam;
  const auto a = mixed_inputs<E>(101, 7), b = mixed_inputs<E>(101, 8);
  for_each_kernel<E>([&](const Row& row, int level) {
    const Result<E> want = one_by_one(row, level, a, b);
    for (bool strided : {false, true}) {
      std::vector<E> x = a, y = b, other(a.size());
      Call<E> c;
      c.n = 101, c.a = x.data(), c.b = y.data(), c.r1 = x.data(), c.r2 = other.data();
      call_row(row, level, strided, c);
      expect_same(want.r1, x.data(), 1, a.size(), "r1 over a");
      if (row.shape == Shape::binary) {
        x = a;
        c.r1 = y.data();
        call_row(row, level, strided, c);
        expect_same(want.r1, y.data(), 1, a.size(), "r1 over b");
      }
    }
  });
}

TYPED_TEST(EveryRow, TouchesNothingOutsideTheArrays) {
  using E = TypeParam;
  for_each_kernel<E>([&](const Row& row, int level) {
    for (int32_t n = 0; n <= 40; ++n) {
      const size_t count = static_cast<size_t>(n);
      Guarded<E> a(count), b(count), r1(count), r2(count);
      for (bool back : {false, true}) {
        const auto place = [&](Guarded<E>& g) { return back ? g.at_back() : g.at_front(); };
        for (size_t i = 0; i < count; ++i) place(a)[i] = E(0.5), place(b)[i] = E(0.25);
        if (count > 0) place(a)[count - 1] = std::numeric_limits<E>::quiet_NaN();
        Call<E> c;
        c.n = n, c.a = place(a), c.b = place(b), c.r1 = place(r1), c.r2 = place(r2);
        call_row(row, level, false, c);
        call_row(row, level, true, c);
        if (n > 0) {  // backwards through the same elements
          c.a += n - 1, c.b += n - 1, c.r1 += n - 1, c.r2 += n - 1;
          c.incA = c.incB = c.incR1 = c.incR2 = -1;
          call_row(row, level, true, c);
        }
      }
    }
  });
}

TYPED_TEST(EveryRow, WritesOnlyItsElements) {
  using E = TypeParam;
  const auto a = mixed_inputs<E>(64, 9), b = mixed_inputs<E>(64, 10);
  for_each_kernel<E>([&](const Row& row, int level) {
    for (int32_t n : {0, 1, 7, 20, 33}) {
      std::vector<E> r1(64, E(-77)), r2(64, E(-77));
      Call<E> c;
      c.n = n, c.a = a.data(), c.b = b.data(), c.r1 = r1.data(), c.r2 = r2.data();
      call_row(row, level, false, c);
      for (size_t i = static_cast<size_t>(n); i < 64; ++i) ASSERT_EQ(r1[i], E(-77)) << i;
      c.incR1 = 3, c.n = n / 3;
      std::fill(r1.begin(), r1.end(), E(-77));
      call_row(row, level, true, c);
      for (size_t i = 0; i < 64; ++i) {
        if (i % 3 != 0 || i >= 3 * static_cast<size_t>(c.n)) {
          ASSERT_EQ(r1[i], E(-77)) << i;
        }
      }
    }
  });
}

TYPED_TEST(EveryRow, UnalignedArraysGiveTheSameBits) {
  using E = TypeParam;
  const auto a = mixed_inputs<E>(70, 11), b = mixed_inputs<E>(70, 12);
  for_each_kernel<E>([&](const Row& row, int level) {
    const Result<E> want = one_by_one(row, level, a, b);
    for (int shift = 1; shift < 8; shift += 3) {
      std::vector<E> x(80), y(80), r1(80), r2(80);
      std::copy(a.begin(), a.end(), x.begin() + shift);
      std::copy(b.begin(), b.end(), y.begin() + shift + 1);
      Call<E> c;
      c.n = 70, c.a = x.data() + shift, c.b = y.data() + shift + 1, c.r1 = r1.data() + 3, c.r2 = r2.data() + 1;
      call_row(row, level, false, c);
      expect_same(want.r1, c.r1, 1, 70, "r1");
    }
  });
}

}  // namespace
}  // namespace orvik::test

// What a family may ask of the skeleton, on families made for it: a second vector tier, special lanes that only the
// computation tells, complex elements, element loops, parameters, knobs; blocks read whole before they are stored.
#include <gtest/gtest.h>

#include <cfenv>
#include <limits>
#include <string>
#include <vector>

#include "orvik/zym.h"
#include "zym/skeleton/kernel.h"

namespace orvik::zym {
namespace {

// x + 1; from 100 on the second tier adds 1000, from 10^6 on the element routine reports.
template <class V>
struct Tiers {
  using E = Element<V>;
  static auto special(V x) { return x >= V(E(100)); }
  static V lanes(V x) { return x + V(E(1)); }
  static Masked<V, Mask<V>> wide(V x) { return {x + V(E(1000)), x >= V(E(1e6))}; }
  static int32_t element(const E* x, E* r) {
    *r = -*x;
    return zymErrorOverflow;
  }
};

// x y; products above 50 are found on the way.
template <class V>
struct MidLane {
  using E = Element<V>;
  static constexpr Knobs knobs = {.vectors = 2};
  static Masked<V, Mask<V>> lanes(V x, V y) { return {x * y, x * y > V(E(50))}; }
  static int32_t element(const E*, const E* y, E* r) {
    *r = -*y;
    return 0;
  }
};

// Complex in, complex out: i z; a NaN part takes the element routine.
template <class V>
struct Turn {
  using E = Element<V>;
  static auto special(Pair<V> z) { return unordered(z.first, z.second); }
  static Pair<V> lanes(Pair<V> z) { return {flip_sign(z.second, V(E(-1))), z.first}; }
  static int32_t element(const Complex<E>*, Complex<E>* r) {
    *r = {E(7), E(8)};
    return zymErrorDomain;
  }
};
template <class V>
struct RealPart {
  static V lanes(Pair<V> z) { return z.first; }
};
template <class V>
struct Diagonal {
  static Pair<V> lanes(V x) { return {x, x}; }
};

// A loop over a routine with an order.
template <class V>
struct Loop {
  using E = Element<V>;
  static int32_t element(const Complex<E>* z, Complex<E>* r, const Order& order) {
    const E im = z->im;
    *r = {z->re + static_cast<E>(order.order), im};
    return im < 0 ? zymErrorOverflow : 0;
  }
};

// 1/x; a division by zero counts for nothing, but 1/-0 is invalid.
template <class V>
struct StrayFlags {
  using E = Element<V>;
  static constexpr Knobs knobs = {.stray = kDivideByZeroFlag | kInvalidFlag};
  static Masked<V, Mask<V>> lanes(V x) { return {V(E(1)) / x, x == V(E(0))}; }
  static int32_t element(const E* x, E* r) {
    *r = is_negative(*x) ? opaque(infinity<E>) - opaque(infinity<E>) : E(7);
    return 0;
  }
};

// Complex, taking parts as they lie in memory where it may: negative of imaginary parts that are not negative.
template <class V>
struct Lying {
  using E = Element<V>;
  static Pair<V> lanes(Pair<V> z) { return {z.first, z.second | sign_mask<V>()}; }
  static Stored<V> lanes(Stored<V> z) {
    const V sign = by_part(V(E(0)), sign_mask<V>());
    return {z.first | sign, z.second | sign};
  }
};

template <class V>
using TiersKernel = Kernel<Tiers<V>, V, Signature{.reports = true}>;
template <class V>
using SilentKernel = Kernel<Tiers<V>, V, Signature{}>;
template <class V>
using MidLaneKernel = Kernel<MidLane<V>, V, Signature{.b = Kind::real}>;
template <class V>
using ScalarKernel = Kernel<MidLane<V>, V, Signature{.b = Kind::scalar}>;
template <class V>
using TurnKernel = Kernel<Turn<V>, V, Signature{.a = Kind::complex, .r = Kind::complex, .reports = true}>;
template <class V>
using RealPartKernel = Kernel<RealPart<V>, V, Signature{.a = Kind::complex}>;
template <class V>
using DiagonalKernel = Kernel<Diagonal<V>, V, Signature{.r = Kind::complex}>;
template <class V>
using LoopKernel = Kernel<Loop<V>, V, Signature{.a = Kind::complex, .r = Kind::complex, .reports = true}, Order>;

std::vector<std::string> reports;
int32_t note(ZymErrorContext* c) {
  reports.push_back(std::string(c->functionName) + " " + std::to_string(c->code) + " " + std::to_string(c->index));
  return 0;
}

template <class V>
class FamilyTest : public testing::Test {
 protected:
  using E = Element<V>;
  void SetUp() override {
    reports.clear();
    _zymSetErrorCallBack(note);
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
  }
  void TearDown() override {
    _zymSetErrorCallBack(nullptr);
    _zymSetMode(ZYM_ERRMODE_DEFAULT);
  }
};
using Lanes = testing::Types<F32, F64>;
TYPED_TEST_SUITE(FamilyTest, Lanes);

TYPED_TEST(FamilyTest, TheSecondTierServesWhatTheFirstLeavesAndTheRoutineTheRest) {
  using V = TypeParam;
  using E = Element<V>;
  static constexpr Body body = TiersKernel<V>::make_body("tiers");
  for (int64_t n = 1; n < 80; ++n) {
    for (int64_t inc : {0, 1, 3}) {  // 0 stands for the kernel of unit stride
      const int64_t step = inc == 0 ? 1 : inc;
      std::vector<E> x(static_cast<size_t>(n * step)), r(static_cast<size_t>(n * step), E(-77));
      for (int64_t i = 0; i < n; ++i) x[static_cast<size_t>(i * step)] = i % 7 == 3 ? E(500) : i % 11 == 5 ? E(2e6) : E(i);
      reports.clear();
      if (inc == 0) {
        TiersKernel<V>::unit(body, n, x.data(), nullptr, r.data(), nullptr, {});
      } else {
        TiersKernel<V>::strided(body, n, x.data(), inc, nullptr, 0, r.data(), inc, nullptr, 0, {});
      }
      std::vector<std::string> want;
      for (int64_t i = 0; i < n; ++i) {
        const E v = x[static_cast<size_t>(i * step)];
        ASSERT_EQ(r[static_cast<size_t>(i * step)], v >= E(1e6) ? -v : v >= 100 ? v + 1000 : v + 1) << i << " of " << n;
        if (v >= E(1e6)) want.push_back("tiers 3 " + std::to_string(i));
      }
      ASSERT_EQ(reports, want);
    }
  }
}

TYPED_TEST(FamilyTest, ASilentRowReportsNothingWhateverItsRoutineReturns) {
  using V = TypeParam;
  using E = Element<V>;
  static constexpr Body body = SilentKernel<V>::make_body("silent");
  const E x[1] = {E(2e6)};
  E r[1];
  _zymClearErrStatus();
  SilentKernel<V>::unit(body, 1, x, nullptr, r, nullptr, {});
  EXPECT_EQ(r[0], E(-2e6));
  EXPECT_TRUE(reports.empty());
  EXPECT_EQ(_zymGetErrStatus(), 0);
}

TYPED_TEST(FamilyTest, LanesMayTellTheirSpecialLanesAfterTheComputation) {
  using V = TypeParam;
  using E = Element<V>;
  static constexpr Body array = MidLaneKernel<V>::make_body("mid"), scalar = ScalarKernel<V>::make_body("mid");
  for (int64_t n = 1; n < 50; ++n) {
    std::vector<E> x(static_cast<size_t>(n)), y(static_cast<size_t>(n)), r(static_cast<size_t>(n)), s(static_cast<size_t>(n));
    for (int64_t i = 0; i < n; ++i) x[static_cast<size_t>(i)] = E(i % 9), y[static_cast<size_t>(i)] = E(i % 13);
    MidLaneKernel<V>::unit(array, n, x.data(), y.data(), r.data(), nullptr, {});
    for (size_t i = 0; i < r.size(); ++i) ASSERT_EQ(r[i], x[i] * y[i] > 50 ? -y[i] : x[i] * y[i]);
    const E eight = E(8);
    ScalarKernel<V>::unit(scalar, n, x.data(), &eight, r.data(), nullptr, {});
    ScalarKernel<V>::strided(scalar, n, x.data(), 1, &eight, 0, s.data(), 1, nullptr, 0, {});
    for (size_t i = 0; i < r.size(); ++i) ASSERT_EQ(r[i], x[i] * 8 > 50 ? E(-8) : x[i] * 8);
    ASSERT_EQ(r, s);
  }
}

TYPED_TEST(FamilyTest, ComplexElementsComeAsPairsOfLanes) {
  using V = TypeParam;
  using E = Element<V>;
  using C = Complex<E>;
  static constexpr Body turn = TurnKernel<V>::make_body("turn"), real = RealPartKernel<V>::make_body("real"),
                        diagonal = DiagonalKernel<V>::make_body("diagonal");
  for (int64_t n = 1; n < 50; ++n) {
    for (int64_t inc : {0, 1, 2}) {
      const int64_t step = inc == 0 ? 1 : inc;
      const auto count = static_cast<size_t>(n * step);
      std::vector<C> z(count), w(count), d(count);
      std::vector<E> x(count);
      for (int64_t i = 0; i < n; ++i) {
        z[static_cast<size_t>(i * step)] = {E(i), i % 5 == 4 ? std::numeric_limits<E>::quiet_NaN() : E(-i - 1)};
      }
      reports.clear();
      if (inc == 0) {
        TurnKernel<V>::unit(turn, n, z.data(), nullptr, w.data(), nullptr, {});
        RealPartKernel<V>::unit(real, n, z.data(), nullptr, x.data(), nullptr, {});
        DiagonalKernel<V>::unit(diagonal, n, x.data(), nullptr, d.data(), nullptr, {});
      } else {
        TurnKernel<V>::strided(turn, n, z.data(), inc, nullptr, 0, w.data(), inc, nullptr, 0, {});
        RealPartKernel<V>::strided(real, n, z.data(), inc, nullptr, 0, x.data(), inc, nullptr, 0, {});
        DiagonalKernel<V>::strided(diagonal, n, x.data(), inc, nullptr, 0, d.data(), inc, nullptr, 0, {});
      }
      size_t special = 0;
      for (int64_t i = 0; i < n; ++i) {
        const auto at = static_cast<size_t>(i * step);
        ASSERT_EQ(w[at].re, i % 5 == 4 ? E(7) : E(i + 1));
        ASSERT_EQ(w[at].im, i % 5 == 4 ? E(8) : E(i));
        ASSERT_EQ(x[at], E(i));
        ASSERT_EQ(d[at].re, E(i));
        ASSERT_EQ(d[at].im, E(i));
        if (i % 5 != 4) continue;
        ASSERT_EQ(reports.at(special), "turn 1 " + std::to_string(i));
        ++special;
      }
      ASSERT_EQ(reports.size(), special);
    }
  }
}

TYPED_TEST(FamilyTest, PartsAsTheyLieInMemoryServeLoopsAndRemainderAlike) {
  using V = TypeParam;
  using E = Element<V>;
  using C = Complex<E>;
  using LyingKernel = Kernel<Lying<V>, V, Signature{.a = Kind::complex, .r = Kind::complex}>;
  static_assert(LyingKernel::kStored);
  static constexpr Body body = LyingKernel::make_body("lying");
  for (int64_t n = 1; n < 80; ++n) {
    std::vector<C> z(static_cast<size_t>(n)), w(static_cast<size_t>(n));
    for (int64_t i = 0; i < n; ++i) z[static_cast<size_t>(i)] = {E(i), E(i + 1)};
    LyingKernel::unit(body, n, z.data(), nullptr, w.data(), nullptr, {});
    for (int64_t i = 0; i < n; ++i) {
      ASSERT_EQ(w[static_cast<size_t>(i)].re, E(i));
      ASSERT_EQ(w[static_cast<size_t>(i)].im, E(-i - 1));
    }
  }
}

TYPED_TEST(FamilyTest, FlagsOfSpecialLanesGoWhereTheFamilyAsksForIt) {
  using V = TypeParam;
  using E = Element<V>;
  using StrayKernel = Kernel<StrayFlags<V>, V, Signature{}>;
  static constexpr Body body = StrayKernel::make_body("stray");
  constexpr int kSevere = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
  const auto flags_of = [&](E special, bool strided, int before) {
    std::vector<E> x(150, E(4)), r(150);
    x[3] = x[40] = x[70] = special;
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(before);
    if (strided) {
      StrayKernel::strided(body, 71, x.data(), 1, nullptr, 0, r.data(), 1, nullptr, 0, {});
    } else {
      StrayKernel::unit(body, 71, x.data(), nullptr, r.data(), nullptr, {});
    }
    EXPECT_EQ(r[4], E(0.25));
    return std::fetestexcept(kSevere);
  };
  for (bool strided : {false, true}) {
    for (int before : {0, FE_DIVBYZERO, FE_OVERFLOW}) {
      EXPECT_EQ(flags_of(E(1), strided, before), before);
      EXPECT_EQ(flags_of(E(0), strided, before), before);
      EXPECT_EQ(flags_of(E(-0.0), strided, before), before | FE_INVALID);  // of the element routine
    }
  }
  std::feclearexcept(FE_ALL_EXCEPT);
}

TYPED_TEST(FamilyTest, AnElementLoopRunsInOrderWithItsParameters) {
  using V = TypeParam;
  using E = Element<V>;
  using C = Complex<E>;
  static constexpr Body loop = LoopKernel<V>::make_body("loop");
  std::vector<C> z(10);
  for (int i = 0; i < 10; ++i) z[static_cast<size_t>(i)] = {E(i), i == 3 || i == 8 ? E(-1) : E(1)};
  LoopKernel<V>::unit(loop, 10, z.data(), nullptr, z.data(), nullptr, {-5});  // in place
  for (int i = 0; i < 10; ++i) EXPECT_EQ(z[static_cast<size_t>(i)].re, E(i - 5));
  EXPECT_EQ(reports, (std::vector<std::string>{"loop 3 3", "loop 3 8"}));
}

// Results that lie where later elements are read: those of a block are read before, those behind it see what was stored.
TYPED_TEST(FamilyTest, OverlappingArraysReadABlockWholeAndTheRestOneByOne) {
  using V = TypeParam;
  using E = Element<V>;
  static constexpr Body body = TiersKernel<V>::make_body("tiers");
  constexpr int block = TiersKernel<V>::kBlock;
  for (bool with_special : {false, true}) {
    for (int n : {block, block + 1, block + 5, 2 * block, 2 * block + 3}) {
      std::vector<E> x(static_cast<size_t>(3 * n + 3)), want(x.size());
      for (size_t i = 0; i < x.size(); ++i) x[i] = want[i] = E(i % 50);
      if (with_special) x[3] = want[3] = x[static_cast<size_t>(n - 1)] = want[static_cast<size_t>(n - 1)] = E(2e6);
      const auto step = [&](int first, int count) {
        std::vector<E> read;
        for (int i = 0; i < count; ++i) read.push_back(want[static_cast<size_t>(first + i)]);
        for (int i = 0; i < count; ++i) {
          const E v = read[static_cast<size_t>(i)];
          want[static_cast<size_t>(2 * (first + i))] = v >= E(1e6) ? -v : v >= 100 ? v + 1000 : v + 1;
        }
      };
      int i = 0;
      for (; i + block <= n; i += block) step(i, block);
      for (; i < n; ++i) step(i, 1);
      TiersKernel<V>::strided(body, n, x.data(), 1, nullptr, 0, x.data(), 2, nullptr, 0, {});
      ASSERT_EQ(x, want) << n;
    }
  }
}

}  // namespace
}  // namespace orvik::zym

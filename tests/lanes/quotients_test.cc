// Quotients and roots by steps have the bits of the instructions, above all where the exact result lies
// next to the middle of two numbers.
#include "lanes/quotients.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "lanes/units.h"

namespace orvik {
namespace {

// The steps are tested, also where the divider would take their place.
class BySteps : public testing::Environment {
  void SetUp() override { units_of_halves = false; }
};
[[maybe_unused]] const auto* const by_steps = testing::AddGlobalTestEnvironment(new BySteps);

template <class T>
struct Pairs {
  std::vector<T> a, b;
  void add(T x, T y) {
    a.push_back(x);
    b.push_back(y);
  }
};

template <class E>
E opaque_quotient(E a, E b) {
  return opaque(a) / opaque(b);
}

double lane(F64 x, int k) {
  double all[kWidth<F64>];
  store(all, x);
  return all[k];
}

// Quotients by vectors of V, one after the other, the last one filled up with ones.
template <class V>
void expect_quotients(Pairs<Element<V>> pairs) {
  using E = Element<V>;
  while (pairs.a.size() % kWidth<V> != 0) pairs.add(1, 1);
  int64_t wrong = 0;
  for (size_t i = 0; i < pairs.a.size(); i += kWidth<V>) {
    E q[kWidth<V>], exact[kWidth<V>];
    const V a = load<V>(pairs.a.data() + i), b = load<V>(pairs.b.data() + i);
    store(q, divided(a, b));
    store(exact, divided_exactly(a, b));
    for (int k = 0; k < kWidth<V>; ++k) {
      const E expected = opaque_quotient(pairs.a[i + k], pairs.b[i + k]);
      if ((q[k] != expected || exact[k] != expected) && wrong++ < 5) {
        ADD_FAILURE() << pairs.a[i + k] << " / " << pairs.b[i + k];
      }
    }
  }
  EXPECT_EQ(wrong, 0);
}

// The inverse of an odd number modulo 2^64.
uint64_t inverse(uint64_t b) {
  uint64_t x = b;
  for (int i = 0; i < 5; ++i) x *= 2 - b * x;
  return x;
}

// With a = A / 2^52 and b = B / 2^52 (p = 53, floats 24), the quotient is next to the middle M / 2^p of two numbers
// where A 2^p - M B = +-1; to M / 2^(p + 1) where A 2^(p + 1) - M B = +-1.
template <class E>
void add_hard_dividends(Pairs<E>& pairs, uint64_t b) {
  constexpr int p = sizeof(E) == 8 ? 53 : 24;
  constexpr uint64_t kOne = uint64_t{1} << p;
  const uint64_t i = inverse(b);
  for (const uint64_t m0 : {i, -i}) {
    for (const int more : {0, 1}) {
      const uint64_t m = (m0 & ((kOne << more) - 1)) | (more == 0 ? kOne : 0);
      if (m < kOne) continue;
      const auto product = static_cast<unsigned __int128>(m) * b;
      const uint64_t a = static_cast<uint64_t>((product + 1) >> (p + more));
      if (a < kOne / 2 || a >= kOne) continue;
      pairs.add(static_cast<E>(a), static_cast<E>(b));
    }
  }
}

TEST(Quotients, NextToTheMiddleOfTwoNumbersRoundAsTheInstructionDoes) {
  Pairs<double> doubles;
  std::mt19937_64 random(7);
  constexpr uint64_t kTop = uint64_t{1} << 53;
  for (uint64_t j = 1; j < 200000; j += 2) add_hard_dividends(doubles, kTop - j);
  for (uint64_t j = 1; j < 20000; j += 2) add_hard_dividends(doubles, kTop / 2 + j);
  for (int k = 0; k < 300000; ++k) add_hard_dividends(doubles, kTop / 2 + (random() >> 12 | 1));
  EXPECT_GT(doubles.a.size(), 300000u);
  expect_quotients<F64>(doubles);
  Pairs<float> floats;
  for (uint32_t b = (1u << 23) + 1; b < 1u << 24; b += 2) add_hard_dividends(floats, b);
  EXPECT_GT(floats.a.size(), 4000000u);
  expect_quotients<F32>(floats);
}

TEST(Quotients, OfAllMagnitudesAndOfZeroRoundAsTheInstructionDoes) {
  Pairs<double> doubles;
  Pairs<float> floats;
  std::mt19937_64 random(11);
  const auto number = [&](int reach) {
    const double x = std::ldexp(1 + static_cast<double>(random() >> 12) * 0x1p-52,
                                static_cast<int>(random() % static_cast<uint64_t>(2 * reach)) - reach);
    return random() % 2 == 0 ? x : -x;
  };
  for (int k = 0; k < 1000000; ++k) {
    doubles.add(number(480), number(480));
    floats.add(static_cast<float>(number(60)), static_cast<float>(number(60)));
  }
  for (int e = -480; e < 480; ++e) doubles.add(0, std::ldexp(1.5, e)), doubles.add(std::ldexp(3.0, e / 2), 3);
  expect_quotients<F64>(doubles);
  expect_quotients<F32>(floats);
}

// Bits and flags of one quotient in the first lane, beside quotients that raise nothing.
template <class V>
void expect_exactly(Element<V> a, Element<V> b) {
  using E = Element<V>;
  std::feclearexcept(FE_ALL_EXCEPT);
  const E expected = opaque(opaque_quotient(a, b));
  const int flags = std::fetestexcept(FE_ALL_EXCEPT);
  E x[kWidth<V>], y[kWidth<V>], q[kWidth<V>];
  std::fill_n(x, kWidth<V>, E(6));
  std::fill_n(y, kWidth<V>, E(3));
  x[0] = opaque(a), y[0] = opaque(b);
  const V dividend = load<V>(x), divisor = load<V>(y);
  std::feclearexcept(FE_ALL_EXCEPT);
  store(q, divided_exactly(dividend, divisor));
  opaque(q[0]);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), flags) << a << " / " << b;
  EXPECT_EQ(bits_of(q[0]), bits_of(expected)) << a << " / " << b;
  for (int k = 1; k < kWidth<V>; ++k) EXPECT_EQ(q[k], 2);
}
template <class V>
void expect_all_kinds() {
  using E = Element<V>;
  using Limits = std::numeric_limits<E>;
  std::vector<E> numbers = {0,
                            1,
                            2,
                            3,
                            5,
                            6,
                            7,
                            9,
                            E(0.1),
                            E(1) / 3,
                            Limits::max(),
                            Limits::min(),
                            Limits::denorm_min(),
                            Limits::epsilon(),
                            Limits::infinity(),
                            Limits::quiet_NaN(),
                            Limits::signaling_NaN(),
                            E(2) - Limits::epsilon()};
  for (int e = 0; e < Limits::max_exponent; e += Limits::max_exponent / 32) {
    for (const int sign : {-1, 1}) {
      numbers.push_back(std::ldexp(E(1), sign * e));
      numbers.push_back(std::ldexp(E(1.9), sign * e));
    }
  }
  for (const E a : numbers) {
    for (const E b : numbers) {
      expect_exactly<V>(a, b);
      expect_exactly<V>(-a, b);
    }
  }
}
TEST(Quotients, OfAnyOperandsHaveBitsSignAndFlagsOfTheInstruction) {
  expect_all_kinds<F64>();
  expect_all_kinds<F32>();
}
TEST(Quotients, OfProductsAreExactAndRaiseNothing) {
  std::mt19937_64 random(3);
  for (int k = 0; k < 100000; ++k) {
    const double b = static_cast<double>(random() >> 38), q = static_cast<double>(random() >> 38);
    if (b != 0) expect_exactly<F64>(b * q, b);
    const float c = static_cast<float>(random() >> 53), r = static_cast<float>(random() >> 53);
    if (c != 0) expect_exactly<F32>(c * r, c);
  }
}

TEST(Quotients, OfTwoVectorsAreThoseOfEach) {
  double a[2 * kWidth<F64>], b[2 * kWidth<F64>], q[2 * kWidth<F64>];
  for (int k = 0; k < 2 * kWidth<F64>; ++k) a[k] = 1 + k, b[k] = 7 + 3 * k;
  const Twice<F64> x = {load<F64>(a), load<F64>(a + kWidth<F64>)}, y = {load<F64>(b), load<F64>(b + kWidth<F64>)};
  const Twice<F64> quotient = divided(x, y), exact = divided_exactly(x, y);
  store(q, quotient.low), store(q + kWidth<F64>, quotient.high);
  for (int k = 0; k < kWidth<F64>; ++k) {
    EXPECT_EQ(lane(exact.low, k), lane(quotient.low, k));
    EXPECT_EQ(lane(exact.high, k), lane(quotient.high, k));
  }
  for (int k = 0; k < 2 * kWidth<F64>; ++k) EXPECT_EQ(q[k], opaque_quotient(a[k], b[k]));
}

TEST(Roots, AndQuotientsOfTwoVectorsAreThoseOfEachWhateverUnitsTakeThem) {
  double a[2 * kWidth<F64>], r[2 * kWidth<F64>], few[2 * kWidth<F64>], quotients[2 * kWidth<F64>];
  for (int k = 0; k < 2 * kWidth<F64>; ++k) a[k] = 1 + k;
  const Twice<F64> x = {load<F64>(a), load<F64>(a + kWidth<F64>)};
  for (const bool halves : {true, false}) {
    units_of_halves = halves;
    const Twice<F64> y = root(x), z = root_of_few(x), q = divided(x, z);
    store(r, y.low), store(r + kWidth<F64>, y.high);
    store(few, z.low), store(few + kWidth<F64>, z.high);
    store(quotients, q.low), store(quotients + kWidth<F64>, q.high);
    for (int k = 0; k < 2 * kWidth<F64>; ++k) {
      EXPECT_EQ(quotients[k], opaque_quotient(a[k], few[k])) << halves;
      EXPECT_EQ(r[k], std::sqrt(opaque(a[k]))) << halves;
      EXPECT_EQ(few[k], r[k]) << halves;
    }
  }
}

void expect_roots(std::vector<double> x) {
  while (x.size() % kWidth<F64> != 0) x.push_back(1);
  int64_t wrong = 0;
  for (size_t i = 0; i < x.size(); i += kWidth<F64>) {
    double s[kWidth<F64>];
    store(s, root(load<F64>(x.data() + i)));
    for (int k = 0; k < kWidth<F64>; ++k) {
      if (s[k] != std::sqrt(opaque(x[i + k])) && wrong++ < 5) ADD_FAILURE() << x[i + k];
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(Roots, NextToTheMiddleOfTwoNumbersRoundAsTheInstructionDoes) {
  // With M^2 = c modulo 2^n, c small: (M^2 - c) / 2^n is a number whose root is next to the middle M / 2^53.
  std::vector<double> x;
  for (const int n : {54, 55}) {
    const uint64_t all = (uint64_t{1} << n) - 1;
    for (int64_t c = 1 - 8 * 4000; c < 8 * 4000; c += 8) {
      uint64_t m = 1;
      for (int bit = 3; bit < n; ++bit) {
        if (((m * m - static_cast<uint64_t>(c)) >> bit & 1) != 0) m += uint64_t{1} << (bit - 1);
      }
      for (const uint64_t from : {m, -m, m + (uint64_t{1} << (n - 1)), -m + (uint64_t{1} << (n - 1))}) {
        for (uint64_t root = from & all; root < uint64_t{1} << 54; root += uint64_t{1} << n) {
          if (root < uint64_t{1} << 53) continue;
          const auto square = static_cast<__int128>(root) * root - c;
          const uint64_t a = static_cast<uint64_t>(square >> n);
          if (a < uint64_t{1} << 52 || a >= uint64_t{1} << 53) continue;
          x.push_back(std::ldexp(static_cast<double>(a), n - 106));
        }
      }
    }
  }
  EXPECT_GT(x.size(), 10000u);
  expect_roots(x);
}

TEST(Roots, OfAllMagnitudesOfSquaresAndOfZeroRoundAsTheInstructionDoes) {
  std::vector<double> x = {0, 0x1p-900, 0x1p900, 1, 2, 4};
  std::mt19937_64 random(13);
  for (int k = 0; k < 1000000; ++k) {
    x.push_back(std::ldexp(1 + static_cast<double>(random() >> 12) * 0x1p-52, static_cast<int>(random() % 1800) - 900));
  }
  for (int k = 1; k < 10000; ++k) x.push_back(double(k) * k), x.push_back(std::nextafter(double(k) * k, 0));
  expect_roots(x);
}

#if ORVIK_REGISTER_BITS == 512
TEST(Quotients, AndRootsByStepsRaiseNoFlags) {
  double r[2][kWidth<F64>];
  const F64 one = F64(opaque(1.0)), three = F64(opaque(3.0));
  std::feclearexcept(FE_ALL_EXCEPT);
  store(r[0], divided(one, three));
  store(r[1], root(three));
  EXPECT_EQ(opaque(r[0][0]), 0x1.5555555555555p-2);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}
#endif

}  // namespace
}  // namespace orvik

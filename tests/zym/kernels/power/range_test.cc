// Powers across the borders between lanes and element routine, and over all their range: structured pairs, judged
// exactly.
#include <random>

#include "pairs.h"

namespace orvik::test {
namespace {

template <class E>
E step(E x, int n) {
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  return std::bit_cast<E>(static_cast<Bits>(std::bit_cast<Bits>(x) + static_cast<Bits>(n)));
}

template <class E>
void expect_bound(const std::string& what, const PowerPairs<E>& pairs) {
  std::vector<E> results[3];
  for (int level = 0; level < 3; ++level) results[level] = powers("Pow", level, pairs);
  double worst[3] = {};
  size_t at[3] = {};
  for (size_t i = 0; i < pairs.size(); ++i) {
    const ExactPower exact(static_cast<double>(pairs.x[i]), static_cast<double>(pairs.y[i]));
    for (int level = 0; level < 3; ++level) {
      if (exact.overflows<E>() && std::isinf(results[level][i])) continue;
      const double share = exact.units(results[level][i]) / exact.bound<E>(level);
      if (!(share <= worst[level])) worst[level] = share, at[level] = i;
    }
  }
  for (int level = 0; level < 3; ++level) {
    const size_t i = at[level];
    EXPECT_LE(worst[level], 1) << std::hexfloat << what << ' ' << row_of<E>("Pow") << ' ' << kLevelNames[level] << '('
                               << pairs.x[i] << ", " << pairs.y[i] << ") is " << results[level][i] << ", "
                               << std::defaultfloat << worst[level] << " of the bound";
  }
}

template <class E>
class PowerRange : public ElementTest<E> {
 protected:
  // y such that x^y is about 2^t.
  static E exponent_for(E x, double t) { return static_cast<E>(t / std::log2(static_cast<double>(x))); }
};
TYPED_TEST_SUITE(PowerRange, Elements);

// |y log2 x| at which a level hands over, and the ends of the format: 40 single steps of either argument on both sides.
TYPED_TEST(PowerRange, SingleStepsAcrossTheBoundsOfTheExponent) {
  using E = TypeParam;
  using L = std::numeric_limits<E>;
  const double log2_e = 1.4426950408889634;
  std::vector<double> bounds = {L::max_exponent, L::min_exponent - 1, L::min_exponent - 12, L::min_exponent - L::digits,
                                L::min_exponent - L::digits - 1};
  for (const double b : sizeof(E) == 4 ? std::vector<double>{125.5, 87.300788879 * log2_e, 87.3 * log2_e,
                                                             87.29 * log2_e, 88.714 * log2_e}
                                       : std::vector<double>{1021.5, 708 * log2_e}) {
    bounds.push_back(b), bounds.push_back(-b);
  }
  PowerPairs<E> pairs;
  for (const double t : bounds) {
    for (const double base : {2.0, 1.5, 10.0, 0.9, 0.1, 1.001, 1 - 1e-5, 1e30}) {
      const E x = static_cast<E>(base), y = this->exponent_for(x, t);
      for (int n = -40; n <= 40; ++n) {
        pairs.add(x, step(y, n));
        pairs.add(step(x, n), y);
      }
    }
  }
  expect_bound("bound of the exponent", pairs);
}

// The ends of the ranges of bases and exponents that the lanes take.
TYPED_TEST(PowerRange, SingleStepsAcrossTheBoundsOfTheArguments) {
  using E = TypeParam;
  using L = std::numeric_limits<E>;
  constexpr bool single = sizeof(E) == 4;
  PowerPairs<E> pairs;
  for (const E x : {L::min(), std::ldexp(E(1), L::max_exponent - 3), L::max(), L::denorm_min() * 100, L::min() / 2}) {
    for (int n = -60; n <= 60; ++n) {
      if (std::isinf(step(x, n)) || std::isnan(step(x, n))) continue;
      for (const double t : {-0.97, -0.3, 1e-4, 0.5, 0.96}) {
        pairs.add(step(x, n), this->exponent_for(x, t * L::max_exponent));
      }
    }
  }
  const std::pair<double, double> exponents[] = {{single ? 0x1p-40 : 0x1p-100, 3.0},
                                                 {single ? 0x1.8p85 : 0x1p922, 1 + L::epsilon()},
                                                 {0x1p-60, 1e-10},
                                                 {0x1p24, 1 + 4 * static_cast<double>(L::epsilon())},
                                                 {0x1p23, 1 - 4 * static_cast<double>(L::epsilon())}};
  for (const auto& [y, x] : exponents) {
    for (int n = -60; n <= 60; ++n) {
      for (const int sign : {1, -1}) {
        pairs.add(static_cast<E>(x), sign * step(static_cast<E>(y), n));
        pairs.add(static_cast<E>(sign * x), sign * step(static_cast<E>(y), n));
      }
    }
  }
  // The last two reach powers of negative numbers that are integers; those that are none have another test.
  PowerPairs<E> real;
  for (size_t i = 0; i < pairs.size(); ++i) {
    if (pairs.x[i] > 0 || std::trunc(pairs.y[i]) == pairs.y[i]) real.add(pairs.x[i], pairs.y[i]);
  }
  expect_bound("bound of an argument", real);
}

// Where a logarithm cancels, where the key of a table changes, where the rest of the argument is largest; results of
// all sizes, mostly large ones, since they multiply the logarithm's error.
TYPED_TEST(PowerRange, HardPairs) {
  using E = TypeParam;
  using L = std::numeric_limits<E>;
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> unit(-1, 1);
  PowerPairs<E> pairs;
  for (int i = 0; i < 120000; ++i) {
    double x;
    const auto shift = -static_cast<int>(random() % L::digits);
    switch (i % 6) {
      case 0:
        x = std::exp2((L::max_exponent - 1) * unit(random));
        break;
      case 1:
        x = 1 + std::ldexp(unit(random), shift);
        break;
      case 2:
        x = 1 + unit(random) / 8;
        break;
      case 3:
        x = std::ldexp(1 + unit(random) / 512, static_cast<int>(random() % 64) - 32);
        break;
      // Reciprocals half way between those of the grids.
      case 4:
        x = 1 / (static_cast<double>(random() % 8 + 8) / 16 + 1.0 / 32 + std::ldexp(unit(random), shift - 6));
        break;
      default:
        x = 1024 / (static_cast<double>(random() % 513 + 512) + 0.5 + std::ldexp(unit(random), shift - 4));
    }
    const E base = static_cast<E>(x);
    if (base == 1 || !std::isnormal(base)) continue;
    const double t = i % 3 == 0 ? unit(random) : (unit(random) < 0 ? -1 : 1) * (1 - 0.06 * std::fabs(unit(random)));
    pairs.add(base, this->exponent_for(base, t * (L::max_exponent - 1)));
  }
  expect_bound("hard pair", pairs);
}

// The element routine alone: bases below zero.
TYPED_TEST(PowerRange, NegativeBasesAndDenormalResults) {
  using E = TypeParam;
  using L = std::numeric_limits<E>;
  std::mt19937_64 random(9);
  std::uniform_real_distribution<double> unit(-1, 1);
  PowerPairs<E> pairs;
  for (int i = 0; i < 60000; ++i) {
    const double t =
        i % 4 == 0 ? L::min_exponent - 1 - (L::digits + 2) * std::fabs(unit(random)) : L::max_exponent * unit(random);
    const double n = std::trunc(std::exp2(static_cast<double>(L::digits - 4) * std::fabs(unit(random))));
    const E x = static_cast<E>(-std::exp2(t / n));
    pairs.add(x, static_cast<E>(n));
  }
  expect_bound("negative base", pairs);
}

// Denormals that read as zero, and results that are flushed.
TYPED_TEST(PowerRange, DenormalsReadAsZeroWhereTheModeSaysSo) {
  using E = TypeParam;
  const uint32_t old = _zymSetMode(ZYM_FLUSH_DENORMALS);
  const int32_t code = sizeof(E) == 4 ? zymErrorDomain : zymErrorOverflow;
  expect_element<E>(row_of<E>("Pow"), this->smallest / 2, E(2), E(0));
  expect_element<E>(row_of<E>("Pow"), -this->smallest / 2, E(3), E(-0.0));
  expect_element<E>(row_of<E>("Pow"), this->smallest / 2, E(-1), this->inf, code);
  expect_element<E>(row_of<E>("Pow"), -this->smallest / 2, E(-1), -this->inf, code);
  expect_element<E>(row_of<E>("Pow"), E(3), this->smallest / 2, E(1));
  expect_element<E>(row_of<E>("Pow"), E(-3), this->tiny, E(1));
  expect_element<E>(row_of<E>("Pow"), E(2), E(std::numeric_limits<E>::min_exponent - 5), E(0));
  _zymSetMode(old | 0x140000);
  const ExactPower exact(static_cast<double>(this->smallest / 2), -0.5);
  for (int level = 0; level < 3; ++level) {
    const Outcome<E> got = evaluate<E>(row_of<E>("Pow"), level, this->smallest / 2, E(-0.5));
    EXPECT_LE(exact.units(got.r1), 1);
    EXPECT_EQ(got.code, 0);
  }
}

}  // namespace
}  // namespace orvik::test

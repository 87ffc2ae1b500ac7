// Powers of special values: every pair against the list of rules, every row, every level.
#include <functional>

#include "pairs.h"

namespace orvik::test {
namespace {

constexpr int32_t kDomain = 1, kOverflow = 3;

template <class E>
bool integer(E y) {
  return std::isinf(y) || std::trunc(y) == y;
}
template <class E>
bool odd(E y) {
  return !std::isinf(y) && std::fabs(std::fmod(y, E(2))) == 1;
}

template <class E>
struct Want {
  E value;
  int32_t code = 0;
  bool rounded = false;  // the value is the exact one rounded, the level's bound holds
};
template <class E>
struct Rule {
  const char* name;
  std::function<bool(E, E)> applies;
  std::function<Want<E>(E, E)> want;
};

// In this order; the first that applies decides. `integers` false: exponents are never taken as integers.
template <class E>
std::vector<Rule<E>> rules(bool integers) {
  using L = std::numeric_limits<E>;
  constexpr E inf = L::infinity(), nan = L::quiet_NaN();
  const auto is_odd = [=](E y) { return integers && odd(y); };
  const auto is_integer = [=](E y) { return std::isinf(y) || (integers && integer(y)); };
  const auto signed_like = [=](E x, E y, E magnitude) { return std::signbit(x) && is_odd(y) ? -magnitude : magnitude; };
  const int32_t zero_base_code = sizeof(E) == 4 ? kDomain : kOverflow;
  return {
      {"1^y is 1, also of a NaN", [](E x, E) { return x == 1; }, [](E, E) { return Want<E>{1}; }},
      {"x^0 is 1, also of a NaN", [](E, E y) { return y == 0; }, [](E, E) { return Want<E>{1}; }},
      {"a NaN stays one", [](E x, E y) { return std::isnan(x) || std::isnan(y); }, [=](E, E) { return Want<E>{nan}; }},
      {"0^y, y > 0", [](E x, E y) { return x == 0 && y > 0; },
       [=](E x, E y) { return Want<E>{signed_like(x, y, E(0))}; }},
      {"0^y, y < 0", [](E x, E) { return x == 0; },
       [=](E x, E y) {
         return Want<E>{signed_like(x, y, inf), zero_base_code};
       }},
      {"(-1)^n", [=](E x, E y) { return x == -1 && is_integer(y); },
       [=](E x, E y) { return Want<E>{signed_like(x, y, E(1))}; }},
      {"inf^y, y > 0", [](E x, E y) { return std::isinf(x) && y > 0; },
       [=](E x, E y) { return Want<E>{signed_like(x, y, inf)}; }},
      {"inf^y, y < 0", [](E x, E) { return std::isinf(x); },
       [=](E x, E y) { return Want<E>{signed_like(x, y, E(0))}; }},
      {"x^inf", [](E, E y) { return std::isinf(y); },
       [=](E x, E y) { return Want<E>{(std::fabs(x) > 1) == (y > 0) ? inf : E(0)}; }},
      {"(x < 0)^y, y no integer", [=](E x, E y) { return x < 0 && !is_integer(y); },
       [=](E, E) {
         return Want<E>{nan, kDomain};
       }},
      {"all else is the power", [](E, E) { return true; },
       [](E x, E y) {
         const ExactPower exact(static_cast<double>(x), static_cast<double>(y));
         return Want<E>{exact.rounded<E>(), exact.overflows<E>() ? kOverflow : 0, true};
       }},
  };
}

template <class E>
E signalling() {
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  return std::bit_cast<E>(static_cast<Bits>(std::bit_cast<Bits>(std::numeric_limits<E>::infinity()) + 7));
}

template <class E>
std::vector<E> special_values() {
  using L = std::numeric_limits<E>;
  const E digits = std::ldexp(E(1), L::digits);  // from here on all are even
  std::vector<E> v = {0,
                      1,
                      E(0.5),
                      2,
                      3,
                      4,
                      5,
                      E(1.5),
                      E(2.5),
                      E(0.75),
                      E(1e-3),
                      10,
                      11,
                      1 + L::epsilon(),
                      1 - L::epsilon() / 2,
                      2 - L::epsilon(),
                      3 - 2 * L::epsilon(),
                      digits - 1,
                      digits - 2,
                      digits,
                      digits + 2,
                      digits / 2 + 1,
                      digits / 2 - E(0.5),
                      digits / 2,
                      digits / 4 + E(0.5),
                      E(127.5),
                      E(-L::min_exponent),
                      E(L::max_exponent),
                      E(L::max_exponent - 1),
                      E(151),
                      E(149),
                      E(1074),
                      E(1076),
                      L::max(),
                      std::nextafter(L::max(), E(0)),
                      L::max() / 2,
                      L::min(),
                      L::min() / 2,
                      L::denorm_min(),
                      3 * L::denorm_min(),
                      L::infinity(),
                      L::quiet_NaN(),
                      signalling<E>(),
                      E(1e-20),
                      E(1e20),
                      std::sqrt(L::max()),
                      std::cbrt(L::min())};
  for (size_t i = 0, n = v.size(); i < n; ++i) v.push_back(-v[i]);
  return v;
}

template <class E>
PowerPairs<E> all_pairs() {
  PowerPairs<E> pairs;
  for (const E x : special_values<E>()) {
    for (const E y : special_values<E>()) pairs.add(x, y);
  }
  return pairs;
}

template <class E>
std::string reported_name(const std::string& function) {
  std::string name = "v";
  return name.append(row_of<E>(function));
}

struct Report {
  int32_t code, index;
  double arg1, arg2, result;
  std::string name;
};
std::vector<Report> reports;
int32_t collect(ZymErrorContext* c) {
  reports.push_back({c->code, c->index, c->arg1, c->arg2, c->result1, c->functionName});
  return 0;
}
// Reports that are made while it lives.
struct Collected {
  uint32_t mode = _zymSetMode(ZYM_ERRMODE_IGNORE);
  ZymErrorCallback callback = _zymSetErrorCallBack(collect);
  Collected() {
    reports.clear();
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
  }
  ~Collected() {
    _zymSetErrorCallBack(callback);
    _zymSetMode(mode);
  }
};

template <class E>
void expect_rules(const std::string& function, bool integers) {
  const auto list = rules<E>(integers);
  const PowerPairs<E> pairs = all_pairs<E>();
  for (int level = 0; level < 3; ++level) {
    for (const bool strided : {false, true}) {
      const Collected collected;
      const std::vector<E> got = powers(function, level, pairs, strided);
      std::vector<int32_t> codes(pairs.size(), 0);
      for (const Report& r : reports) {
        EXPECT_EQ(r.name, reported_name<E>(function));
        EXPECT_EQ(codes[static_cast<size_t>(r.index)], 0) << "reported twice";
        codes[static_cast<size_t>(r.index)] = r.code;
      }
      for (size_t i = 0; i < pairs.size(); ++i) {
        const E x = pairs.x[i], y = pairs.y[i];
        for (const auto& rule : list) {
          if (!rule.applies(x, y)) continue;
          const Want<E> want = rule.want(x, y);
          const auto where = [&] {
            std::ostringstream s;
            s << std::hexfloat << row_of<E>(function) << ' ' << kLevelNames[level] << '(' << x << ", " << y << ") is "
              << got[i] << ", not " << want.value << ": " << rule.name;
            return s.str();
          };
          if (want.rounded && want.code == 0) {
            const ExactPower exact(static_cast<double>(x), static_cast<double>(y));
            EXPECT_LE(exact.units(got[i]), exact.bound<E>(level)) << where();
            EXPECT_EQ(std::signbit(got[i]), std::signbit(want.value)) << where();
          } else {
            EXPECT_TRUE(same_value(got[i], want.value)) << where();
          }
          EXPECT_EQ(codes[i], want.code) << where();
          break;
        }
      }
    }
  }
}

TEST(PowerRules, PowOfAllPairsOfSpecialValues) {
  expect_rules<float>("Pow", true);
  expect_rules<double>("Pow", true);
}

TEST(PowerRules, PowrOfAllPairsOfSpecialValues) {
  expect_rules<float>("Powr", false);
  expect_rules<double>("Powr", false);
}

// Bits, codes, indices; the report has the scalar as its second argument.
template <class E>
void expect_powx_is_pow() {
  const std::vector<E> values = special_values<E>();
  for (int level = 0; level < 3; ++level) {
    for (const bool strided : {false, true}) {
      for (const E y : values) {
        PowerPairs<E> pairs;
        for (const E x : values) pairs.add(x, y);
        std::vector<Report> with_array;
        std::vector<E> want, got(values.size());
        {
          const Collected collected;
          want = powers("Pow", level, pairs, strided);
          with_array = reports;
        }
        const Collected collected;
        Call<E> c;
        c.n = static_cast<int32_t>(values.size()), c.a = values.data(), c.r1 = got.data(), c.fraction[0] = y;
        ASSERT_TRUE(call_row(row_named(row_of<E>("Powx")), level, strided, c));
        for (size_t i = 0; i < got.size(); ++i) {
          EXPECT_EQ(std::memcmp(&got[i], &want[i], sizeof(E)), 0)
              << row_of<E>("Powx") << ' ' << kLevelNames[level] << '(' << values[i] << ", " << y << ')';
        }
        ASSERT_EQ(reports.size(), with_array.size()) << y;
        for (size_t i = 0; i < reports.size(); ++i) {
          EXPECT_EQ(reports[i].code, with_array[i].code);
          EXPECT_EQ(reports[i].index, with_array[i].index);
          EXPECT_EQ(reports[i].arg2, static_cast<double>(y));
          EXPECT_EQ(reports[i].name, reported_name<E>("Powx"));
        }
      }
    }
  }
}

TEST(PowerRules, PowxIsPowBitForBitAlsoAtTheScalarsSpecialValues) {
  expect_powx_is_pow<float>();
  expect_powx_is_pow<double>();
}

template <class E>
void expect_same_without_reports() {
  const PowerPairs<E> pairs = all_pairs<E>();
  for (const char* function : {"Pow", "Powr"}) {
    for (int level = 0; level < 3; ++level) {
      const uint32_t old = _zymSetMode(ZYM_ERRMODE_IGNORE);
      const std::vector<E> with = powers(function, level, pairs);
      _zymClearErrStatus();
      _zymSetMode(ZYM_ERRMODE_NOERR);
      const std::vector<E> without = powers(function, level, pairs);
      EXPECT_EQ(_zymGetErrStatus(), 0);
      _zymSetMode(old);
      EXPECT_EQ(std::memcmp(with.data(), without.data(), with.size() * sizeof(E)), 0) << row_of<E>(function) << level;
    }
  }
}

TEST(PowerRules, ResultsWithoutErrorHandlingAreThoseWithIt) {
  expect_same_without_reports<float>();
  expect_same_without_reports<double>();
}

template <class E>
class Power : public ElementTest<E> {};
TYPED_TEST_SUITE(Power, Elements);

TYPED_TEST(Power, OneToANanAndANanToZeroAreOneWithoutCode) {
  using E = TypeParam;
  for (const char* f : {"Pow", "Powr"}) {
    expect_element<E>(row_of<E>(f), E(1), this->nan, E(1));
    expect_element<E>(row_of<E>(f), this->nan, E(0), E(1));
    expect_element<E>(row_of<E>(f), this->nan, E(-0.0), E(1));
    expect_element<E>(row_of<E>(f), signalling<E>(), E(0), E(1));
  }
}

TEST(Power, FloatZeroToMinusOneIsInfiniteWithCode1AndTheSignOfTheZero) {
  expect_element<float>("sPow", 0.0f, -1.0f, std::numeric_limits<float>::infinity(), kDomain);
  expect_element<float>("sPow", -0.0f, -1.0f, -std::numeric_limits<float>::infinity(), kDomain);
  expect_element<float>("sPow", -0.0f, -2.0f, std::numeric_limits<float>::infinity(), kDomain);
}

TEST(Power, DoubleZeroToMinusOneIsInfiniteWithCode3) {
  expect_element<double>("dPow", 0.0, -1.0, std::numeric_limits<double>::infinity(), kOverflow);
  expect_element<double>("dPow", -0.0, -1.0, -std::numeric_limits<double>::infinity(), kOverflow);
}

TYPED_TEST(Power, MinusOneToAnInfinityIsOne) {
  using E = TypeParam;
  for (const char* f : {"Pow", "Powr"}) {
    expect_element<E>(row_of<E>(f), E(-1), this->inf, E(1));
    expect_element<E>(row_of<E>(f), E(-1), -this->inf, E(1));
  }
}

TYPED_TEST(Power, TwoToAlmostTheHighestExponentStaysFinite) {
  using E = TypeParam;
  const E y = std::nextafter(E(std::numeric_limits<E>::max_exponent), E(0));  // in 32 bits 127.99999
  for (int level = 0; level < 3; ++level) {
    const Outcome<E> got = evaluate<E>(row_of<E>("Pow"), level, E(2), y);
    EXPECT_TRUE(std::isfinite(got.r1));
    EXPECT_EQ(got.code, 0);
    EXPECT_LE(ExactPower(2, static_cast<double>(y)).units(got.r1), 1);
  }
  expect_element<E>(row_of<E>("Pow"), E(2), E(std::numeric_limits<E>::max_exponent), this->inf, kOverflow);
}

TYPED_TEST(Power, UnderflowToADenormalOrToZeroReportsNothing) {
  using E = TypeParam;
  const E lowest = static_cast<E>(std::numeric_limits<E>::min_exponent - std::numeric_limits<E>::digits);
  expect_element<E>(row_of<E>("Pow"), E(2), lowest, this->tiny);
  expect_element<E>(row_of<E>("Pow"), E(2), lowest + 10, std::ldexp(this->tiny, 10));
  expect_element<E>(row_of<E>("Pow"), E(2), lowest - 2, E(0));
  expect_element<E>(row_of<E>("Pow"), E(2), E(-1e6), E(0));
  expect_element<E>(row_of<E>("Pow"), E(-2), lowest - 3, E(lowest < -1000 ? -0.0 : 0.0));
}

TYPED_TEST(Power, MinusEightToTheThirdIsMinus512) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Pow"), E(-8), E(3), E(-512));
  expect_element<E>(row_of<E>("Pow"), E(-8), E(2), E(64));
}

TYPED_TEST(Power, MinusTwoToOneHalfIsNanWithCode1) {
  using E = TypeParam;
  expect_element<E>(row_of<E>("Pow"), E(-2), E(0.5), this->nan, kDomain);
  expect_element<E>(row_of<E>("Powr"), E(-2), E(2), this->nan, kDomain);
}

TYPED_TEST(Power, ANanKeepsItsPayloadAndASignallingOneIsQuieted) {
  using E = TypeParam;
  using Bits = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
  const Bits quiet = std::bit_cast<Bits>(this->nan);
  for (const char* f : {"Pow", "Powr"}) {
    for (int level = 0; level < 3; ++level) {
      const E payload = std::bit_cast<E>(static_cast<Bits>(quiet | 0x1234));
      EXPECT_EQ(std::bit_cast<Bits>(evaluate<E>(row_of<E>(f), level, payload, E(2)).r1), quiet | 0x1234);
      EXPECT_EQ(std::bit_cast<Bits>(evaluate<E>(row_of<E>(f), level, E(2), payload).r1), quiet | 0x1234);
      EXPECT_EQ(std::bit_cast<Bits>(evaluate<E>(row_of<E>(f), level, signalling<E>(), E(2)).r1), quiet | 7);
      EXPECT_EQ(std::bit_cast<Bits>(evaluate<E>(row_of<E>(f), level, E(2), signalling<E>()).r1), quiet | 7);
    }
  }
}

}  // namespace
}  // namespace orvik::test

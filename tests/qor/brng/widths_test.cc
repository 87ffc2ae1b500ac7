// Registers of 512 bits, where the processor has them and they are built in, make the numbers of the narrow ones;
// elsewhere there is one width and the streams are the same.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "qor/support/stream.h"
#include "serv/registers.h"
#include "support/narrow.h"

namespace {

using orvik::testing::Generator;
using orvik::testing::Stream;
using namespace orvik;

// All wide forms are compared, also those that a processor which takes such registers in halves leaves to narrow ones.
class Whole : public ::testing::Environment {
  void SetUp() override { serv::wide_by_halves = false; }
};
[[maybe_unused]] const auto* const whole = ::testing::AddGlobalTestEnvironment(new Whole);

class WidthsTest : public ::testing::TestWithParam<Generator> {};

template <class T>
void append(std::vector<uint8_t>& bytes, const std::vector<T>& x) {
  const size_t at = bytes.size();
  bytes.resize(at + x.size() * sizeof(T));
  if (!x.empty()) std::memcpy(bytes.data() + at, x.data(), x.size() * sizeof(T));
}

void append_state(std::vector<uint8_t>& bytes, const Stream& s) {
  const auto* const state = s.state<uint8_t>();
  bytes.insert(bytes.end(), state, state + s.row().StreamStateSize - 16);
}

// All forms one after the other, the quicker doubles among them, what states they leave, and what follows.
std::vector<uint8_t> numbers(const Stream& s, int32_t before, int32_t n) {
  std::vector<uint8_t> bytes;
  append(bytes, s.outputs(before));
  append(bytes, s.outputs(n));
  append_state(bytes, s);
  append(bytes, s.floats(n, -0.75f, 1.5f));
  append_state(bytes, s);
  append(bytes, s.doubles(n, -0.75, 1.5));
  append(bytes, s.doubles(n));
  append_state(bytes, s);
  append(bytes, s.outputs(700));
  return bytes;
}

TEST_P(WidthsTest, RegistersOfBothWidthsGiveTheSameNumbers) {
  for (const int32_t before : {0, 1, 7, 100}) {
    for (const int32_t n : {1, 64, 100, 127, 128, 129, 191, 255, 256, 624, 1000, 1872, 2047, 2048, 4099, 12345}) {
      const Stream a(GetParam().brng, GetParam().seeds), b(GetParam().brng, GetParam().seeds);
      const std::vector<uint8_t> got = numbers(a, before, n);
      const orvik::test::Narrow narrow;
      ASSERT_EQ(got, numbers(b, before, n)) << before << " + " << n;
    }
  }
}
INSTANTIATE_TEST_SUITE_P(Brng, WidthsTest, ::testing::ValuesIn(orvik::testing::seeded_generators()),
                         orvik::testing::name_of);

// Every length of the last registers of a request.
TEST_P(WidthsTest, RequestsOfAnyLengthGiveTheSameNumbers) {
  for (int32_t n = 2; n <= 300; ++n) {
    const Stream a(GetParam().brng, GetParam().seeds), b(GetParam().brng, GetParam().seeds);
    const std::vector<uint8_t> got = numbers(a, n % 11, n);
    const orvik::test::Narrow narrow;
    ASSERT_EQ(got, numbers(b, n % 11, n)) << n;
  }
}

TEST(Widths, LeapedStreamsGiveTheSameNumbers) {
  for (const Generator& g : orvik::testing::seeded_generators()) {
    if (!g.leapfrogs) continue;
    const Stream a(g.brng, g.seeds), b(g.brng, g.seeds);
    ASSERT_EQ(a.leapfrog(3, 7), 0);
    ASSERT_EQ(b.leapfrog(3, 7), 0);
    const std::vector<uint8_t> got = numbers(a, 5, 1000);
    const orvik::test::Narrow narrow;
    EXPECT_EQ(got, numbers(b, 5, 1000)) << g.name;
  }
}

// Registers hold several points, one, or a part of one; more than 32 dimensions go in groups.
TEST(Widths, PointsOfAnyDimensionGiveTheSameNumbers) {
  for (const int32_t brng : {ORVIK_BRNG_SOBOL, ORVIK_BRNG_NIEDERREITER}) {
    for (uint32_t dim = 1; dim <= 40; ++dim) {
      for (const int32_t points : {3, 17, 39, 40, 41, 100}) {
        const Stream a(brng, {dim}), b(brng, {dim});
        const int32_t n = points * static_cast<int32_t>(dim);
        const std::vector<uint8_t> got = numbers(a, 7, n);
        const orvik::test::Narrow narrow;
        ASSERT_EQ(got, numbers(b, 7, n)) << brng << ' ' << dim << ' ' << points;
      }
    }
  }
}

TEST(Widths, TheSelectedDimensionGivesTheSameNumbers) {
  for (const int32_t brng : {ORVIK_BRNG_SOBOL, ORVIK_BRNG_NIEDERREITER}) {
    const Stream a(brng, {20}), b(brng, {20});
    ASSERT_EQ(a.leapfrog(13, 0x7FFFFFFF), 0);
    ASSERT_EQ(b.leapfrog(13, 0x7FFFFFFF), 0);
    const std::vector<uint8_t> got = numbers(a, 9, 1234);
    const orvik::test::Narrow narrow;
    EXPECT_EQ(got, numbers(b, 9, 1234)) << brng;
  }
}

// A linear buffer serves the usual distance of the two places alone, wherever they are.
TEST(Widths, PlacesOfR250AreWhereTheyWere) {
  struct State {
    uint32_t r[250];
    int32_t p, q;
  };
  for (const int32_t distance : {103, 1, 102, 104, 147, 249}) {
    for (const int32_t p : {0, 1, 146, 147, 249}) {
      const Stream a(ORVIK_BRNG_R250), b(ORVIK_BRNG_R250);
      for (const Stream* s : {&a, &b}) s->state<State>()->p = p, s->state<State>()->q = (p + distance) % 250;
      const std::vector<uint8_t> got = numbers(a, 3, 5000);
      const orvik::test::Narrow narrow;
      EXPECT_EQ(got, numbers(b, 3, 5000)) << distance << ' ' << p;
    }
  }
}

// Where the low half of a counter comes to its end no wide run may begin.
TEST(Widths, CountersThatCarryGiveTheSameNumbers) {
  for (const int32_t brng : {ORVIK_BRNG_PHILOX4X32X10, ORVIK_BRNG_ARS5}) {
    std::vector<uint32_t> seeds(brng == ORVIK_BRNG_ARS5 ? 4 : 2, 11);
    for (const uint32_t high : {0u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
      std::vector<uint32_t> all = seeds;
      all.insert(all.end(), {0xFFFFFFE0, high, 0xFFFFFFFF, 1});
      const Stream a(brng, all), b(brng, all);
      const std::vector<uint8_t> got = numbers(a, 3, 1000);
      const orvik::test::Narrow narrow;
      EXPECT_EQ(got, numbers(b, 3, 1000)) << brng << ' ' << high;
    }
  }
}

}  // namespace

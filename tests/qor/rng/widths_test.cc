// Distributions in registers of 512 bits, where the processor has them and they are built in, give the numbers of the
// narrow ones: bits, statuses, what is drawn and in what requests, and how the stream goes on. Elsewhere there is one
// width.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "qor/rng/entries.h"
#include "qor/rng/scripted.h"
#include "qor/support/stream.h"
#include "serv/registers.h"
#include "support/narrow.h"

namespace orvik::testing {
namespace {

using test::Narrow;

constexpr size_t kGuard = 64;  // bytes

// Results at an odd place between guards, with the status behind them.
struct Numbers {
  std::vector<uint8_t> bytes;
  int32_t status;
  bool operator==(const Numbers&) const = default;
};
Numbers numbers(const Entry& e, OrvikStream s, int32_t n) {
  Numbers r = {std::vector<uint8_t>(static_cast<size_t>(n * e.bytes) + 2 * kGuard, 0xA5), 0};
  r.status = e.call(s, n, r.bytes.data() + kGuard + e.bytes);
  return r;
}

// A few numbers, many, a few again: what a call leaves with the stream meets the next one.
struct Course {
  Numbers before, between, after;
  std::vector<uint64_t> words;
  std::vector<uint8_t> state;
  bool operator==(const Course&) const = default;
};
Course course(const Entry& e, const Generator& g, int32_t before, int32_t n) {
  const Stream s(g.brng, g.seeds);
  Course c = {numbers(e, s.get(), before), numbers(e, s.get(), n), numbers(e, s.get(), 3), {}, {}};
  const auto* const state = s.state<uint8_t>();
  c.state.assign(state, state + s.row().StreamStateSize - 16);
  c.words = s.outputs(5);
  return c;
}

bool applies(const Entry& e, const Generator& g) {
  const Stream s(g.brng, g.seeds);
  return e.name != "iUniformBits" || s.row().WordSize == 4;
}

void expect_same(const Entry& e, const Generator& g, int32_t before, int32_t n) {
  const Course wide = course(e, g, before, n);
  const Narrow narrow;
  const Course same = course(e, g, before, n);
  ASSERT_EQ(wide.between.status, same.between.status) << g.name << ' ' << before << " + " << n;
  ASSERT_TRUE(wide == same) << g.name << ' ' << before << " + " << n;
}

TEST(Widths, BothAreHere) {
  if (!serv::wide_registers) GTEST_SKIP() << "no registers of 512 bits: the narrow forms were compared with themselves";
}

class DistributionWidths : public ::testing::TestWithParam<Entry> {};
INSTANTIATE_TEST_SUITE_P(Distributions, DistributionWidths, ::testing::ValuesIn(entries()),
                         [](const auto& info) { return info.param.name; });

TEST_P(DistributionWidths, GiveTheSameNumbersOfEveryGenerator) {
  for (const Generator& g : seeded_generators()) {
    if (!applies(GetParam(), g)) continue;
    for (const int32_t before : {0, 1, 6})
      for (const int32_t n : {1, 2, 15, 16, 17, 100, 511, 512, 513, 1023, 1024, 1025, 2049, 5000})
        expect_same(GetParam(), g, before, n);
  }
}

TEST_P(DistributionWidths, GiveTheSameNumbersOfEveryLength) {
  for (const Generator& g : seeded_generators()) {
    if (g.brng != ORVIK_BRNG_MT19937 && g.brng != ORVIK_BRNG_PHILOX4X32X10) continue;
    for (int32_t n = 0; n <= 100; ++n) expect_same(GetParam(), g, 1 + n % 11, n);
  }
}

TEST_P(DistributionWidths, GiveTheSameNumbersOfLongRequests) {
  for (const Generator& g : seeded_generators()) {
    if (g.brng == ORVIK_BRNG_MRG32K3A || g.brng == ORVIK_BRNG_SFMT19937) expect_same(GetParam(), g, 3, 99991);
  }
}

// Numbers of a caller's generator: what it was asked for besides.
struct Asked {
  Numbers numbers;
  std::vector<Request> requests;
  bool operator==(const Asked&) const = default;
};
template <class Prepare>
void expect_same_requests(const Entry& e, int32_t n, Prepare prepare) {
  const auto ask = [&] {
    Scripted s;
    prepare(s);
    Asked asked = {numbers(e, s.get(), n), {}};
    asked.requests = s->requests;
    // Behind a failure anything may stand that a batch had in hand.
    if (asked.numbers.status < 0) asked.numbers.bytes.clear();
    return asked;
  };
  const Asked wide = ask();
  const Narrow narrow;
  const Asked same = ask();
  ASSERT_EQ(wide.requests, same.requests);
  ASSERT_TRUE(wide == same);
}

TEST_P(DistributionWidths, MakeTheSameRequestsAndEndAtTheSameFailure) {
  for (int64_t failing = 0; failing < 12; ++failing) {
    expect_same_requests(GetParam(), 5000, [failing](Scripted& s) {
      s.spread();
      s->status = [failing](int64_t k) { return k == failing ? -1131 : static_cast<int32_t>(k); };
    });
  }
}

// The ends of the interval and what stands next to them, in every place of a register, for a while; then numbers that
// fill it.
TEST_P(DistributionWidths, GiveTheSameNumbersAtTheEndsOfTheInterval) {
  for (const double odd : {0.0, 1.0, 0.5, 0x1p-24, 0x1p-53, 0x1p-1040, 1 - 0x1p-24, 1 - 0x1p-53}) {
    for (const int64_t apart : {1, 3, 17}) {
      expect_same_requests(GetParam(), 700, [odd, apart](Scripted& s) {
        s->number = [odd, apart](int64_t i) {
          const double x = static_cast<double>(i + 1) * 0.6180339887498949;
          return i < 1500 && i % apart == apart / 2 ? odd : x - std::floor(x);
        };
      });
    }
  }
}

}  // namespace
}  // namespace orvik::testing

// Generators without a recurrence: the processor's instruction, and callers' own numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "qor/stream/cpu.h"
#include "qor/support/stream.h"

namespace {

using orvik::qor::hidden_features;
using orvik::testing::Stream;
using ::testing::Each;
using ::testing::ElementsAre;

// ---- TRNG ----------------------------------------------------------------------------------------------------------

class TrngTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!__qorCPUisRDRAND()) GTEST_SKIP() << "no hardware random instruction";
  }
  void TearDown() override { hidden_features = {}; }
  // The status of a request of n numbers after so many failed attempts.
  static int32_t draw(const Stream& s, uint32_t failures, int32_t n = 1) {
    hidden_features.rdrand_failures = failures;
    std::vector<uint32_t> w(static_cast<size_t>(n));
    const int32_t status = s.row().iBRng(s.get(), n, w.data());
    hidden_features.rdrand_failures = 0;
    return status;
  }
};

TEST_F(TrngTest, NumbersLieInTheIntervalAndDiffer) {
  const Stream s(ORVIK_BRNG_TRNG);
  const std::vector<uint32_t> w = s.words(1001);
  EXPECT_GT(std::set<uint32_t>(w.begin(), w.end()).size(), 990u);
  for (float f : s.floats(1001, -2, 3)) ASSERT_TRUE(f >= -2 && f <= 3);
  for (double d : s.doubles(1001, -2, 3)) ASSERT_TRUE(d >= -2 && d <= 3);
  const std::vector<double> u = s.doubles(10000);
  double sum = 0;
  for (double d : u) sum += d;
  EXPECT_NEAR(sum / 10000, 0.5, 0.02);  // seven deviations
}

TEST_F(TrngTest, DoublesHaveMoreThan32Bits) {
  int finer = 0;
  for (double d : Stream(ORVIK_BRNG_TRNG).doubles(100)) finer += std::ldexp(d, 32) != std::floor(std::ldexp(d, 32));
  EXPECT_GT(finer, 90);
}

TEST_F(TrngTest, RetriesComeFromTheSecondSeed) {
  EXPECT_EQ(Stream(ORVIK_BRNG_TRNG, {}).state<uint32_t>()[1], 10u);
  EXPECT_EQ(Stream(ORVIK_BRNG_TRNG, {5}).state<uint32_t>()[1], 10u);
  EXPECT_EQ(Stream(ORVIK_BRNG_TRNG, {5, 0}).state<uint32_t>()[1], 10u);
  EXPECT_EQ(Stream(ORVIK_BRNG_TRNG, {5, 3}).state<uint32_t>()[1], 3u);
  EXPECT_EQ(Stream(ORVIK_BRNG_TRNG, {5, 3}).state<uint32_t>()[0], 0u);
}

TEST_F(TrngTest, OneRetryPassesOnTheFirstAttemptAndFailsOnTheSecond) {
  const Stream s(ORVIK_BRNG_TRNG, {0, 1});
  EXPECT_EQ(draw(s, 0), 0);
  EXPECT_EQ(draw(s, 1), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_EQ(draw(s, 2), ORVIK_QOR_RDRAND_FAILED);
}

TEST_F(TrngTest, OneRetryMakesTwoAttempts) {
  const Stream s(ORVIK_BRNG_TRNG, {0, 1});
  uint32_t w[4];
  hidden_features.rdrand_failures = 100;
  EXPECT_EQ(__qoriBRngTRNG(s.get(), 4, w), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_EQ(hidden_features.rdrand_failures, 98u);
}

TEST_F(TrngTest, DefaultRetriesPassOnTheTenthAttemptAndFailOnTheEleventh) {
  const Stream s(ORVIK_BRNG_TRNG);
  EXPECT_EQ(draw(s, 9), 0);
  EXPECT_EQ(draw(s, 10), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_EQ(draw(s, 100), ORVIK_QOR_RDRAND_FAILED);
}

TEST_F(TrngTest, WhatWasWrittenBeforeAFailureStays) {
  const Stream s(ORVIK_BRNG_TRNG, {0, 1});
  uint32_t w[4] = {7, 7, 7, 7};
  hidden_features.rdrand_failures = 1;  // the first reading
  EXPECT_EQ(__qoriBRngTRNG(s.get(), 4, w), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_THAT(w, Each(7u));
}

TEST_F(TrngTest, OddRequestsEndWithAShortReading) {
  const Stream s(ORVIK_BRNG_TRNG);
  for (int32_t n : {0, 1, 2, 3, 7}) {
    s.words(n);  // guarded on both sides
    s.floats(n);
    s.doubles(n);
  }
}

TEST_F(TrngTest, OneFloatOrWordMakesNo64BitReading) {
  const Stream s(ORVIK_BRNG_TRNG);
  hidden_features.rdrand_of_64 = true;
  uint32_t w[2];
  float f[2];
  double d;
  EXPECT_EQ(__qoriBRngTRNG(s.get(), 1, w), 0);
  EXPECT_EQ(__qorsBRngTRNG(s.get(), 1, f, 0, 1), 0);
  EXPECT_EQ(__qoriBRngTRNG(s.get(), 2, w), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_EQ(__qorsBRngTRNG(s.get(), 2, f, 0, 1), ORVIK_QOR_RDRAND_FAILED);
  EXPECT_EQ(__qordBRngTRNG(s.get(), 1, &d, 0, 1), ORVIK_QOR_RDRAND_FAILED);
}

TEST_F(TrngTest, EveryFormRefusesWithoutTheInstruction) {
  const Stream s(ORVIK_BRNG_TRNG);
  hidden_features.rdrand = true;
  uint32_t w = 7;
  float f = 7;
  double d = 7;
  EXPECT_EQ(__qoriBRngTRNG(s.get(), 1, &w), ORVIK_QOR_NO_RDRAND);
  EXPECT_EQ(__qorsBRngTRNG(s.get(), 1, &f, 0, 1), ORVIK_QOR_NO_RDRAND);
  EXPECT_EQ(__qordBRngTRNG(s.get(), 1, &d, 0, 1), ORVIK_QOR_NO_RDRAND);
  EXPECT_TRUE(w == 7 && f == 7 && d == 7);
  const Stream seeded(ORVIK_BRNG_TRNG);  // seeding needs no instruction
}

TEST_F(TrngTest, MethodAboveThreeIsRefused) {
  const Stream s(ORVIK_BRNG_TRNG);
  EXPECT_EQ(s.row().InitStream(4, s.get(), 0, nullptr), ORVIK_QOR_BAD_METHOD);
}

// ---- abstract streams ----------------------------------------------------------------------------------------------

// A callback that counts up, and what it is told to do. One test runs at a time.
struct Script {
  int calls = 0;
  std::vector<int32_t> returns;  // of each call; as many numbers as wanted when used up
  std::vector<int32_t> wanted, rooms, positions, sizes;
  double next = 0;
  int32_t new_room = -1;
} script;

template <class T>
int32_t refill(OrvikStream, int32_t* size, T* buffer, int32_t* wanted, int32_t* room, int32_t* position) {
  const size_t call = static_cast<size_t>(script.calls++);
  script.wanted.push_back(*wanted);
  script.rooms.push_back(*room);
  script.positions.push_back(*position);
  script.sizes.push_back(*size);
  const int32_t count = call < script.returns.size() ? script.returns[call] : *wanted;
  for (int32_t i = 0; i < std::min(count, *room); ++i) buffer[(*position + i) % *size] = static_cast<T>(script.next++);
  if (script.new_room >= 0) *room = script.new_room;
  return count;
}

class AbstractTest : public ::testing::Test {
 protected:
  void SetUp() override { script = {}; }
  Stream integers(int32_t n) {
    Stream s;
    EXPECT_EQ(__qoriNewAbstractStream(s.out(), n, ring_, refill<uint32_t>), 0);
    return s;
  }
  static std::vector<uint32_t> counting(uint32_t from, size_t n) {
    std::vector<uint32_t> w(n);
    for (uint32_t& v : w) v = from++;
    return w;
  }
  static std::vector<uint32_t> draw(const Stream& s, int32_t n) {
    std::vector<uint32_t> w(static_cast<size_t>(n));
    EXPECT_EQ(__qoriBRngiAbstract(s.get(), n, w.data()), 0);
    return w;
  }
  uint32_t ring_[16] = {};
};

TEST_F(AbstractTest, FirstRequestCallsTheCallbackForTheWholeRing) {
  const Stream s = integers(10);
  EXPECT_EQ(script.calls, 0);
  EXPECT_EQ(draw(s, 4), counting(0, 4));
  EXPECT_THAT(script.wanted, ElementsAre(4));
  EXPECT_THAT(script.rooms, ElementsAre(10));
  EXPECT_THAT(script.positions, ElementsAre(0));
  EXPECT_THAT(script.sizes, ElementsAre(10));
}

TEST_F(AbstractTest, SurplusIsKeptForTheNextRequest) {
  const Stream s = integers(10);
  script.returns = {9};
  EXPECT_EQ(draw(s, 4), counting(0, 4));
  EXPECT_EQ(draw(s, 3), counting(4, 3));
  EXPECT_EQ(script.calls, 1);
  EXPECT_EQ(draw(s, 5), counting(7, 5));  // two kept, three new
  EXPECT_EQ(script.calls, 2);
  EXPECT_EQ(script.positions[1], 9);
}

TEST_F(AbstractTest, RequestOfExactlyWhatIsUnreadMakesNoCall) {
  const Stream s = integers(10);
  script.returns = {9};
  draw(s, 4);
  EXPECT_EQ(draw(s, 5), counting(4, 5));
  EXPECT_EQ(script.calls, 1);
  EXPECT_EQ(draw(s, 1), counting(9, 1));
  EXPECT_EQ(script.calls, 2);
}

TEST_F(AbstractTest, LongRequestsGoRoundTheRing) {
  const Stream s = integers(7);
  script.returns = {3, 7, 1, 2, 7, 7};
  EXPECT_EQ(draw(s, 40), counting(0, 40));
  EXPECT_EQ(draw(s, 0).size(), 0u);
  EXPECT_EQ(draw(s, 1).size(), 1u);
}

TEST_F(AbstractTest, NoNumberIsDeliveredTwiceWhateverTheCuts) {
  const Stream s = integers(5);
  script.returns = {5, 2, 1, 4, 3, 5, 5, 1};
  uint32_t at = 0;
  for (int32_t n : {1, 3, 2, 7, 1, 1, 4, 0, 5, 9, 2, 6}) {
    EXPECT_EQ(draw(s, n), counting(at, static_cast<size_t>(n)));
    at += static_cast<uint32_t>(n);
  }
}

TEST_F(AbstractTest, NegativeCountsAndCountsAboveTheRoomFailAndLeaveTheStream) {
  for (int32_t bad : {-1, INT32_MIN, 11, INT32_MAX}) {
    script = {};
    const Stream s = integers(10);
    script.returns = {6, bad};
    draw(s, 2);
    uint32_t w[20];
    EXPECT_EQ(__qoriBRngiAbstract(s.get(), 8, w), ORVIK_QOR_ABSTRACT_BAD_COUNT) << bad;
    EXPECT_THAT(std::vector<uint32_t>(w, w + 4), ElementsAre(2, 3, 4, 5));  // written before the failure
    EXPECT_EQ(s.state<int32_t>()[1], 2);                                    // the place is as it was
    EXPECT_EQ(s.state<int32_t>()[2], 6);
  }
}

TEST_F(AbstractTest, NothingDeliveredIsAStatusOfItsOwn) {
  const Stream s = integers(10);
  script.returns = {0};
  uint32_t w[3];
  EXPECT_EQ(__qoriBRngiAbstract(s.get(), 3, w), ORVIK_QOR_ABSTRACT_NO_DATA);
  EXPECT_EQ(draw(s, 3), counting(0, 3));  // and the next request tries again
}

TEST_F(AbstractTest, CallbackMayShrinkTheRoomItIsGiven) {
  const Stream s = integers(10);
  script.returns = {6};
  script.new_room = 7;
  EXPECT_EQ(draw(s, 4), counting(0, 4));
  EXPECT_EQ(s.state<int32_t>()[2], 7 - 6 + 4);
  script.new_room = 2;
  script.returns = {6, 3};  // more than the room it claims
  uint32_t w[30];
  EXPECT_EQ(__qoriBRngiAbstract(s.get(), 30, w), ORVIK_QOR_ABSTRACT_BAD_COUNT);
  script.new_room = 1000;  // more than the ring has: as much as the ring
  script.calls = 5;
  EXPECT_EQ(__qoriBRngiAbstract(s.get(), 20, w), 0);
}

TEST_F(AbstractTest, NullBufferIsRefused) {
  const Stream s = integers(10);
  *reinterpret_cast<void**>(s.state<uint8_t>() + 16) = nullptr;
  uint32_t w;
  EXPECT_EQ(__qoriBRngiAbstract(s.get(), 1, &w), ORVIK_QOR_NULL_POINTER);
}

TEST_F(AbstractTest, FormsOfOtherTypesAreRefused) {
  const Stream s = integers(10);
  float f;
  double d;
  EXPECT_EQ(s.row().sBRng(s.get(), 1, &f, 0, 1), ORVIK_QOR_ABSTRACT_WRONG_TYPE);
  EXPECT_EQ(s.row().dBRng(s.get(), 1, &d, 0, 1), ORVIK_QOR_ABSTRACT_WRONG_TYPE);
  EXPECT_EQ(script.calls, 0);
}

TEST_F(AbstractTest, UnitIntervalGivesTheBuffersNumbersUnchanged) {
  double ring[8] = {};
  Stream s;
  const auto thirds = [](OrvikStream, int32_t* size, double* buffer, int32_t* wanted, int32_t*, int32_t* position) {
    for (int32_t i = 0; i < *wanted; ++i) buffer[(*position + i) % *size] = (i + 1) / 30.0;
    return *wanted;
  };
  ASSERT_EQ(__qordNewAbstractStream(s.out(), 8, ring, 0, 1, thirds), 0);
  const std::vector<double> d = s.doubles(8);
  for (size_t i = 0; i < 8; ++i) EXPECT_EQ(d[i], static_cast<double>(i + 1) / 30.0);
}

TEST_F(AbstractTest, IntervalsAreMapped) {
  double ring[4] = {};
  float sring[4] = {};
  Stream s, f;
  ASSERT_EQ(__qordNewAbstractStream(s.out(), 4, ring, -2, 10, refill<double>), 0);
  EXPECT_THAT(s.doubles(3, 100, 112), ElementsAre(102, 103, 104));
  script.next = 0;
  ASSERT_EQ(__qorsNewAbstractStream(f.out(), 4, sring, -2, 10, refill<float>), 0);
  EXPECT_THAT(f.floats(3, 100, 112), ElementsAre(102, 103, 104));
  EXPECT_EQ(s.row().iBRng(s.get(), 1, ring), ORVIK_QOR_ABSTRACT_WRONG_TYPE);
  EXPECT_EQ(f.row().dBRng(f.get(), 1, ring, 0, 1), ORVIK_QOR_ABSTRACT_WRONG_TYPE);
}

TEST_F(AbstractTest, UnorderedBoundsPassTheConstructor) {
  double ring[4] = {};
  Stream s;
  ASSERT_EQ(__qordNewAbstractStream(s.out(), 4, ring, std::nan(""), 1, refill<double>), 0);
  EXPECT_TRUE(std::isnan(s.doubles(1)[0]));
}

TEST_F(AbstractTest, JumpsAreRefused) {
  const Stream s = integers(10);
  EXPECT_EQ(s.leapfrog(0, 2), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.skip(1), ORVIK_QOR_NO_SKIPAHEAD);
  EXPECT_EQ(s.skip_ex({1}), ORVIK_QOR_NO_SKIPAHEAD_EX);
  EXPECT_EQ(s.row().InitStream(4, s.get(), 0, nullptr), ORVIK_QOR_BAD_METHOD);
}

TEST_F(AbstractTest, CopySharesTheRing) {
  const Stream s = integers(10);
  script.returns = {9};
  draw(s, 2);
  const Stream copy = s.copy();
  EXPECT_EQ(draw(s, 3), counting(2, 3));
  EXPECT_EQ(draw(copy, 3), counting(2, 3));
}

TEST_F(AbstractTest, PlacesOutsideTheRingAreRefused) {
  for (const auto& [n, cur, used] :
       std::vector<std::array<int32_t, 3>>{{0, 0, 0}, {-5, 0, 0}, {10, 10, 0}, {10, -1, 0}, {10, 0, 11}, {10, 0, -1}}) {
    const Stream s = integers(10);
    s.state<int32_t>()[0] = n;
    s.state<int32_t>()[1] = cur;
    s.state<int32_t>()[2] = used;
    uint32_t w[4];
    EXPECT_EQ(__qoriBRngiAbstract(s.get(), 4, w), ORVIK_QOR_BAD_ABSTRACT_ARGUMENT);
  }
}

}  // namespace

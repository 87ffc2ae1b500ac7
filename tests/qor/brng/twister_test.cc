#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "qor/brng/mt19937.h"
#include "qor/support/berlekamp_massey.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;

using State = qor::Mt19937Parameters::State;

TEST(Twister, KeyOfOneWordGivesTheArrayFormNotTheOneWordInitialisation) {
  std::mt19937 one_word(5489);
  EXPECT_NE(Stream(ORVIK_BRNG_MT19937, {5489}).words(1)[0], one_word());
  EXPECT_EQ(Stream(ORVIK_BRNG_MT19937, {5489}).outputs(700), models::take(models::mt19937({5489}), 700));
}

TEST(Twister, NoKeyIsTheKeyOne) {
  EXPECT_EQ(Stream(ORVIK_BRNG_MT19937, {}).words(700), Stream(ORVIK_BRNG_MT19937, {1}).words(700));
  EXPECT_EQ(Stream(ORVIK_BRNG_MT2203, {}).words(700), Stream(ORVIK_BRNG_MT2203, {1}).words(700));
}

TEST(Twister, KeysLongerThanTheStateAreFoldedInWhole) {
  for (size_t n : {68u, 69u, 70u, 71u, 200u, 623u, 624u, 625u, 2000u}) {
    std::vector<uint32_t> key(n);
    for (size_t i = 0; i < n; ++i) key[i] = static_cast<uint32_t>(i * i + 99);
    EXPECT_EQ(Stream(ORVIK_BRNG_MT2203 + 5, key).outputs(300), models::take(models::mt2203(5, key), 300)) << n;
    EXPECT_EQ(Stream(ORVIK_BRNG_MT19937, key).outputs(700), models::take(models::mt19937(key), 700)) << n;
    std::vector<uint32_t> other = key;
    other.back() ^= 1;
    EXPECT_NE(Stream(ORVIK_BRNG_MT2203 + 5, key).words(10), Stream(ORVIK_BRNG_MT2203 + 5, other).words(10)) << n;
  }
}

TEST(Twister, IndexCountsTheDeliveredWordsOfTheGeneration) {
  const Stream s(ORVIK_BRNG_MT19937);
  EXPECT_EQ(s.state<State>()->index, 624);
  s.words(3);
  EXPECT_EQ(s.state<State>()->index, 3);
  s.words(624);
  EXPECT_EQ(s.state<State>()->index, 3);
  s.words(621);
  EXPECT_EQ(s.state<State>()->index, 624);
  s.words(0);
  EXPECT_EQ(s.state<State>()->index, 624);
}

TEST(Twister, StateKeepsTheRawWordsOfThePlainRecurrence) {
  models::Twister model = models::mt19937({4});
  const Stream s(ORVIK_BRNG_MT19937, {4});
  s.words(5 * 624);
  for (int i = 0; i < 5 * 624; ++i) model();
  for (int i = 0; i < 624; ++i) ASSERT_EQ(s.state<State>()->mt[i], model.mt[static_cast<size_t>(i)]);
}

TEST(Twister, IndexOutsideTheStateCountsAsAllDelivered) {
  for (int32_t index : {-1, 625, INT32_MAX, INT32_MIN}) {
    const Stream s(ORVIK_BRNG_MT19937), t(ORVIK_BRNG_MT19937), far(ORVIK_BRNG_MT19937);
    s.state<State>()->index = index;
    EXPECT_EQ(s.words(5), t.words(5));
    far.state<State>()->index = index;
    ASSERT_EQ(far.skip(3000000), 0);
    ASSERT_EQ(t.skip(3000000 - 5), 0);
    EXPECT_EQ(far.words(5), t.words(5));
  }
}

TEST(Mt2203, MembersDiffer) {
  EXPECT_NE(Stream(ORVIK_BRNG_MT2203).words(5), Stream(ORVIK_BRNG_MT2203 + 1).words(5));
  EXPECT_EQ(Stream(ORVIK_BRNG_MT2203 + 6023).outputs(500), models::take(models::mt2203(6023, {1}), 500));
}

// Per cent of bits in which neighbouring members agree, by blocks of 69 words.
TEST(Mt2203, MembersOfOneSeedBeginAlike) {
  constexpr int32_t kBlocks = 6, kPairs = 400;
  double same[kBlocks] = {};
  for (int32_t member = 0; member < kPairs; ++member) {
    const std::vector<uint32_t> a = Stream(ORVIK_BRNG_MT2203 + member).words(69 * kBlocks);
    const std::vector<uint32_t> b = Stream(ORVIK_BRNG_MT2203 + member + 1).words(69 * kBlocks);
    for (size_t i = 0; i < a.size(); ++i) same[i / 69] += 32 - __builtin_popcount(a[i] ^ b[i]);
  }
  for (double& share : same) share *= 100 / (69.0 * 32 * kPairs);
  EXPECT_NEAR(same[0], 58.7, 0.3);
  EXPECT_NEAR(same[1], 51.9, 0.3);
  EXPECT_NEAR(same[2], 50.7, 0.3);
  for (int32_t block = 4; block < kBlocks; ++block) EXPECT_NEAR(same[block], 50, 0.25);  // five deviations
}

TEST(Mt2203, RefusesEveryJump) {
  const Stream s(ORVIK_BRNG_MT2203);
  EXPECT_EQ(s.leapfrog(0, 2), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.skip(1), ORVIK_QOR_NO_SKIPAHEAD);
  EXPECT_EQ(s.skip_ex({1}), ORVIK_QOR_NO_SKIPAHEAD_EX);
  EXPECT_EQ(s.words(50), Stream(ORVIK_BRNG_MT2203).words(50));
}

TEST(Mt19937, RefusesLeapfrogAndLongSkip) {
  const Stream s(ORVIK_BRNG_MT19937);
  EXPECT_EQ(s.leapfrog(0, 2), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.skip_ex({1}), ORVIK_QOR_NO_SKIPAHEAD_EX);
  EXPECT_EQ(s.words(50), Stream(ORVIK_BRNG_MT19937).words(50));
}

TEST(Mt19937, ShortSkipsLandOnTheSequence) {
  const std::vector<uint64_t> want = models::take(models::mt19937({8}), 10000);
  for (int32_t before : {0, 1, 600, 624, 700})
    for (uint64_t c : {0, 1, 23, 24, 25, 623, 624, 625, 1248, 2047, 2048, 2049, 5000}) {
      const Stream s(ORVIK_BRNG_MT19937, {8});
      s.words(before);
      ASSERT_EQ(s.skip(c), 0);
      const size_t at = static_cast<size_t>(before) + c;
      EXPECT_EQ(s.outputs(700), std::vector<uint64_t>(want.begin() + at, want.begin() + at + 700))
          << before << " " << c;
    }
}

TEST(Mt19937, SkipOfZeroLeavesAFreshStreamAsItIs) {
  const Stream s(ORVIK_BRNG_MT19937), t(ORVIK_BRNG_MT19937);
  ASSERT_EQ(s.skip(0), 0);
  EXPECT_EQ(std::memcmp(s.state<State>(), t.state<State>(), sizeof(State)), 0);
}

TEST(Mt19937, LongestWalkAndShortestJumpLandOnTheSequence) {
  const Stream steps(ORVIK_BRNG_MT19937, {8});
  for (int i = 0; i < 2097151 / 7; ++i) steps.words(7);
  steps.words(2097151 % 7);
  const Stream walk(ORVIK_BRNG_MT19937, {8}), jump(ORVIK_BRNG_MT19937, {8});
  ASSERT_EQ(walk.skip(2097151), 0);
  ASSERT_EQ(jump.skip(2097152), 0);
  const std::vector<uint32_t> want = steps.words(1501);
  EXPECT_EQ(walk.words(1500), std::vector<uint32_t>(want.begin(), want.end() - 1));
  EXPECT_EQ(jump.words(1500), std::vector<uint32_t>(want.begin() + 1, want.end()));
}

TEST(Mt19937, TheLongestWalkTakesNoMemoryAndTheShortestJumpDoes) {
  for (uint64_t count : {2097151, 2097152}) {
    const Stream s(ORVIK_BRNG_MT19937, {8});
    serv::fail_allocation_after(1);
    const int32_t status = s.skip(count);
    serv::fail_allocation_after(0);
    EXPECT_EQ(status, count < 2097152 ? 0 : ORVIK_QOR_NO_MEMORY) << count;
  }
}

TEST(Mt19937, JumpsFromInsideAGeneration) {
  for (int32_t before : {1, 300, 623, 624, 625}) {
    const Stream walk(ORVIK_BRNG_MT19937, {8}), jump(ORVIK_BRNG_MT19937, {8});
    walk.words(before);
    jump.words(before);
    ASSERT_EQ(walk.skip(2097151), 0);
    ASSERT_EQ(walk.skip(1000000), 0);
    ASSERT_EQ(jump.skip(3097151), 0);
    EXPECT_EQ(walk.words(700), jump.words(700)) << before;
  }
}

// From a jump that was checked against stepping, doubling by doubling up to 2^63.
TEST(Mt19937, JumpOfTwiceTheLengthEqualsTwoJumps) {
  for (int k = 21; k < 63; k += 3) {
    const Stream once(ORVIK_BRNG_MT19937, {3}), twice(ORVIK_BRNG_MT19937, {3});
    ASSERT_EQ(once.skip(uint64_t{1} << (k + 1)), 0);
    ASSERT_EQ(twice.skip(uint64_t{1} << k), 0);
    ASSERT_EQ(twice.skip(uint64_t{1} << k), 0);
    ASSERT_EQ(once.words(650), twice.words(650)) << k;
  }
}

TEST(Mt19937, RefusedWorkBlockLeavesTheStreamUnchanged) {
  const Stream fresh(ORVIK_BRNG_MT19937);
  const std::vector<uint32_t> want = fresh.words(1000);
  int64_t failures = 0;
  for (int64_t n = 1;; ++n) {
    const Stream s(ORVIK_BRNG_MT19937);
    s.words(100);
    const int64_t live = serv::live_allocations();
    serv::fail_allocation_after(n);
    const int32_t status = s.skip(uint64_t{1} << 40);
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), live);
    if (status == 0) break;
    ++failures;
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(s.words(900), std::vector<uint32_t>(want.begin() + 100, want.end()));
  }
  EXPECT_EQ(failures, 5);  // remainder, state, table, power, and the block of the remainder's arithmetic
}

TEST(Mt19937, CharacteristicPolynomialIsTheMinimalPolynomialOfAnOutputBit) {
  const std::vector<uint32_t> words = Stream(ORVIK_BRNG_MT19937, {12345}).words(2 * 19937 + 64);
  std::vector<bool> bits;
  for (uint32_t w : words) bits.push_back(w >> 31);
  const std::vector<uint32_t> found = support::minimal_polynomial(bits);
  EXPECT_EQ(found, std::vector<uint32_t>(std::begin(qor::kMt19937Polynomial), std::end(qor::kMt19937Polynomial)));
  const std::vector<uint32_t> head = {0, 1189, 1416, 1585, 1643, 1870, 2493, 2773, 3000, 3227, 3454, 3681},
                              tail = {18691, 18860, 19087, 19314, 19937};
  EXPECT_EQ(std::vector<uint32_t>(found.begin(), found.begin() + 12), head);
  EXPECT_EQ(std::vector<uint32_t>(found.end() - 5, found.end()), tail);
}

TEST(Twister, FloatMayReturnTheUpperBound) {
  const Stream s(ORVIK_BRNG_MT19937);
  State& state = *s.state<State>();
  // a raw word whose tempered form is all ones
  uint32_t y = 0xFFFFFFFF;
  y ^= y >> 18;
  y ^= (y << 15) & 0xEFC60000;
  uint32_t x = y;
  for (int i = 0; i < 5; ++i) x = y ^ ((x << 7) & 0x9D2C5680);
  y = x;
  for (int i = 0; i < 3; ++i) x = y ^ (x >> 11);
  state.mt[0] = x;
  state.index = 0;
  EXPECT_EQ(s.copy().words(1)[0], 0xFFFFFFFFu);
  EXPECT_EQ(s.copy().floats(1, 2, 5)[0], 5.0f);
  EXPECT_LT(s.copy().doubles(1, 2, 5)[0], 5.0);
}

}  // namespace

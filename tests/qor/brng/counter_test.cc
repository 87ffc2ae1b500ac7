#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "qor/stream/cpu.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;
using ::testing::Each;

// Where the two generators keep their fields, in words.
struct Layout {
  int counter, left, block;
};
Layout layout(int32_t brng) { return brng == ORVIK_BRNG_ARS5 ? Layout{4, 8, 9} : Layout{2, 6, 7}; }

class CounterTest : public ::testing::TestWithParam<int32_t> {
 protected:
  Stream stream(const std::vector<uint32_t>& seeds = {1, 2, 3, 4, 5, 6, 7, 8}) const {
    return Stream(GetParam(), seeds);
  }
  std::vector<uint64_t> model(size_t n, const std::vector<uint32_t>& seeds = {1, 2, 3, 4, 5, 6, 7, 8}) const {
    return models::take(models::make(GetParam(), seeds), n);
  }
  std::vector<uint32_t> with_counter(const std::vector<uint32_t>& counter) const {
    std::vector<uint32_t> seeds(static_cast<size_t>(layout(GetParam()).counter), 11);
    seeds.insert(seeds.end(), counter.begin(), counter.end());
    return seeds;
  }
  uint32_t left(const Stream& s) const { return s.state<uint32_t>()[layout(GetParam()).left]; }
  std::vector<uint32_t> counter(const Stream& s) const {
    const uint32_t* c = s.state<uint32_t>() + layout(GetParam()).counter;
    return {c, c + 4};
  }
};

TEST_P(CounterTest, ThreeWordsAndFiveEqualEight) {
  const Stream cut = stream(), whole = stream();
  std::vector<uint32_t> w = cut.words(3);
  for (uint32_t v : cut.words(5)) w.push_back(v);
  EXPECT_EQ(w, whole.words(8));
}

TEST_P(CounterTest, CounterCarriesThroughAllItsWords) {
  for (const std::vector<uint32_t>& c :
       std::vector<std::vector<uint32_t>>{{0xFFFFFFFE, 0, 0, 0},
                                          {0xFFFFFFE0, 5, 6, 7},
                                          {0xFFFFFFC9, 5, 6, 7},
                                          {0xFFFFFFFC, 0xFFFFFFFF, 0, 9},
                                          {0xFFFFFFFD, 0xFFFFFFFF, 0xFFFFFFFF, 1},
                                          {0xFFFFFFF0, 0xFFFFFFFF, 7, 1},
                                          {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}}) {
    const std::vector<uint32_t> seeds = with_counter(c);
    const std::vector<uint64_t> want = model(700, seeds);
    for (int32_t cut : {0, 1, 2, 3, 4, 5, 8, 13, 20, 33}) {
      const Stream s = stream(seeds);
      std::vector<uint64_t> got = s.outputs(cut);
      for (uint64_t v : s.outputs(700 - cut)) got.push_back(v);
      ASSERT_EQ(got, want) << cut;
    }
  }
}

TEST_P(CounterTest, CounterOfAllOnesWrapsToZeroAfterOneBlock) {
  const std::vector<uint32_t> seeds = with_counter({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF});
  const Stream s = stream(seeds), zero = stream(with_counter({0, 0, 0, 0}));
  s.words(4);
  EXPECT_EQ(s.words(8), zero.words(8));
}

TEST_P(CounterTest, NoSeedsGiveKeyAndCounterZero) {
  const Stream s = stream({});
  EXPECT_THAT(counter(s), Each(0u));
  EXPECT_EQ(left(s), 0u);
  EXPECT_EQ(s.outputs(20), model(20, {}));
}

TEST_P(CounterTest, SeedsBeyondTheStateAreIgnored) {
  std::vector<uint32_t> seeds = with_counter({1, 2, 3, 4});
  const Stream s = stream(seeds);
  seeds.push_back(99);
  EXPECT_EQ(s.words(10), stream(seeds).words(10));
}

TEST_P(CounterTest, IntervalFromMinusOneToOneIsCentredOnTheWordZero) {
  const Stream s = stream();
  s.words(1);
  uint32_t* state = s.state<uint32_t>();
  std::memset(state + layout(GetParam()).block, 0, 16);
  state[layout(GetParam()).left] = 4;
  EXPECT_EQ(s.floats(1, -1, 1)[0], 0.0f);
  EXPECT_EQ(s.doubles(1, -1, 1)[0], 0.0);
  for (float f : s.floats(10000, -1, 1)) ASSERT_TRUE(f >= -1 && f <= 1);
  for (double d : s.doubles(10000, -1, 1)) ASSERT_TRUE(d >= -1 && d < 1);
}

TEST_P(CounterTest, SkipsLandOnTheSequenceFromEveryPlaceInABlock) {
  const std::vector<uint64_t> want = model(200);
  for (int32_t before = 0; before <= 9; ++before)
    for (uint64_t c = 0; c <= 40; ++c)
      for (bool ex : {false, true}) {
        const Stream s = stream();
        s.words(before);
        ASSERT_EQ(ex ? s.skip_ex({c}) : s.skip(c), 0);
        const size_t at = static_cast<size_t>(before) + c;
        ASSERT_EQ(s.outputs(30), std::vector<uint64_t>(want.begin() + at, want.begin() + at + 30))
            << before << " + " << c << (ex ? " long" : "");
      }
}

TEST_P(CounterTest, SkipOfTheWordsInHandLeavesTheCounterAlone) {
  for (int32_t before : {1, 2, 3}) {
    const Stream s = stream();
    s.words(before);
    const std::vector<uint32_t> c = counter(s);
    ASSERT_EQ(s.skip(left(s)), 0);
    EXPECT_EQ(counter(s), c);
    EXPECT_EQ(left(s), 0u);
  }
}

TEST_P(CounterTest, SkipOfZeroChangesNothing) {
  for (int32_t before : {0, 1, 4, 7})
    for (bool ex : {false, true}) {
      const Stream s = stream(), t = stream();
      s.words(before);
      t.words(before);
      ASSERT_EQ(ex ? s.skip_ex({0, 0, 0}) : s.skip(0), 0);
      const size_t size = static_cast<size_t>(s.row().StreamStateSize) - 16;
      EXPECT_EQ(std::memcmp(s.state<uint8_t>(), t.state<uint8_t>(), size), 0);
    }
}

TEST_P(CounterTest, LongCountsCarryAndBorrow) {
  // 2^64 words are 2^62 blocks; 2^128 words are 2^126 blocks
  const std::vector<uint64_t> want = model(64, with_counter({5, 0x40000000, 0, 0}));
  const Stream s = stream(with_counter({5, 0, 0, 0}));
  ASSERT_EQ(s.skip_ex({0, 1}), 0);
  EXPECT_EQ(s.outputs(64), want);

  const std::vector<uint64_t> far = model(64, with_counter({5, 0, 0, 0x40000000}));
  const Stream t = stream(with_counter({5, 0, 0, 0}));
  ASSERT_EQ(t.skip_ex({0, 0, 1, 77}), 0);  // the fourth word is not read
  EXPECT_EQ(t.outputs(64), far);

  // words in hand are taken off across the words of the count
  const Stream u = stream(with_counter({5, 0, 0, 0})), v = stream(with_counter({5, 0, 0, 0}));
  u.words(1);
  v.words(1);
  ASSERT_EQ(u.skip_ex({2, 1}), 0);
  ASSERT_EQ(v.skip(0xFFFFFFFFFFFFFFFF), 0);
  ASSERT_EQ(v.skip(3), 0);
  EXPECT_EQ(u.words(20), v.words(20));

  const Stream w = stream(with_counter({5, 0, 0, 0}));
  w.words(1);
  ASSERT_EQ(w.skip_ex({0, 0, 1}), 0);
  EXPECT_EQ(w.outputs(10), std::vector<uint64_t>(far.begin() + 1, far.begin() + 11));
}

TEST_P(CounterTest, LongSkipByOneWordOfCountGivesTheStateOfTheShortSkip) {
  for (uint64_t c : {uint64_t{1}, uint64_t{5}, uint64_t{4242}, uint64_t{1} << 40, ~uint64_t{0}}) {
    const Stream s = stream(), t = stream();
    s.words(6);
    t.words(6);
    ASSERT_EQ(s.skip(c), 0);
    ASSERT_EQ(t.skip_ex({c}), 0);
    if ((c + 6) % 4 != 0) {  // at a block's end the short skip of PHILOX4X32X10 holds that block, the long one does not
      const size_t size = static_cast<size_t>(s.row().StreamStateSize) - 16;
      EXPECT_EQ(std::memcmp(s.state<uint8_t>(), t.state<uint8_t>(), size), 0) << c;
    }
    EXPECT_EQ(s.outputs(30), t.outputs(30)) << c;
  }
}

TEST_P(CounterTest, LongSkipOfNoWordsIsASkipOfZero) {
  const Stream s = stream();
  EXPECT_EQ(s.skip_ex({}), 0);
  EXPECT_EQ(s.outputs(10), model(10));
}

TEST_P(CounterTest, LeapfrogIsRefused) {
  const Stream s = stream();
  EXPECT_EQ(s.leapfrog(0, 2), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(s.outputs(10), model(10));
}

TEST_P(CounterTest, MoreWordsInHandThanABlockHasCountAsABlock) {
  const Stream s = stream();
  s.words(1);
  const std::vector<uint32_t> block(s.state<uint32_t>() + layout(GetParam()).block,
                                    s.state<uint32_t>() + layout(GetParam()).block + 4);
  s.state<uint32_t>()[layout(GetParam()).left] = 0xFFFFFFF0;
  EXPECT_EQ(s.words(4), block);
}

INSTANTIATE_TEST_SUITE_P(Brng, CounterTest, ::testing::Values(ORVIK_BRNG_ARS5, ORVIK_BRNG_PHILOX4X32X10));

TEST(Ars5, MakesOneBlockAhead) {
  const Stream s(ORVIK_BRNG_ARS5, {});
  s.words(8);
  EXPECT_EQ(s.state<uint32_t>()[8], 4u);
  EXPECT_EQ(s.state<uint32_t>()[4], 3u);
  s.words(4);  // from the block in hand alone
  EXPECT_EQ(s.state<uint32_t>()[8], 0u);
  EXPECT_EQ(s.state<uint32_t>()[4], 3u);
}

TEST(Philox, MakesNoBlockAhead) {
  const Stream s(ORVIK_BRNG_PHILOX4X32X10, {});
  s.words(8);
  EXPECT_EQ(s.state<uint32_t>()[6], 0u);
  EXPECT_EQ(s.state<uint32_t>()[2], 2u);
  s.words(1);
  EXPECT_EQ(s.state<uint32_t>()[6], 3u);
  EXPECT_EQ(s.state<uint32_t>()[2], 3u);
}

TEST(Philox, SkipToABlocksEndHoldsThatBlockAndTheLongSkipDoesNot) {
  const Stream s(ORVIK_BRNG_PHILOX4X32X10, {}), t(ORVIK_BRNG_PHILOX4X32X10, {});
  ASSERT_EQ(s.skip(4), 0);
  ASSERT_EQ(t.skip_ex({4}), 0);
  EXPECT_EQ(s.state<uint32_t>()[6], 0u);
  EXPECT_EQ(s.state<uint32_t>()[7], 0x6627e8d5u);
  EXPECT_EQ(t.state<uint32_t>()[7], 0u);
  EXPECT_EQ(s.words(9), t.words(9));
}

TEST(Ars5, RefusesWithoutTheInstructionsExceptForFloatsAndSeeding) {
  qor::hidden_features.aes = true;
  Stream s;
  const uint32_t seed = 3;
  EXPECT_EQ(__qorNewStreamEx(s.out(), ORVIK_BRNG_ARS5, 1, &seed), 0);
  uint32_t w = 7;
  double d = 7;
  float f = 7;
  const uint64_t count[1] = {1};
  EXPECT_EQ(__qoriBRngARS5(s.get(), 1, &w), ORVIK_QOR_NO_AES);
  EXPECT_EQ(__qordBRngARS5(s.get(), 1, &d, 0, 1), ORVIK_QOR_NO_AES);
  EXPECT_EQ(__qorSkipAheadStream(s.get(), 1), ORVIK_QOR_NO_AES);
  EXPECT_EQ(__qorSkipAheadStreamEx(s.get(), 1, count), ORVIK_QOR_NO_AES);
  EXPECT_EQ(s.leapfrog(0, 2), ORVIK_QOR_NO_LEAPFROG);
  EXPECT_EQ(w, 7u);
  EXPECT_EQ(d, 7);
  EXPECT_EQ(__qorsBRngARS5(s.get(), 1, &f, 0, 1), 0);
  EXPECT_NE(f, 7);
  qor::hidden_features.aes = false;
  std::vector<uint64_t> want = models::take(models::ars5({3}), 10);
  want.erase(want.begin());  // the float took one word, the refused calls none
  EXPECT_EQ(s.outputs(9), want);
}

}  // namespace

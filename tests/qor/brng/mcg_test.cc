#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "qor/brng/mcg_lanes.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;
using ::testing::Each;
using ::testing::ElementsAre;

constexpr uint64_t kM31 = 0x7FFFFFFF;

const qor::McgLanes& lanes(const Stream& s) {
  return *static_cast<const qor::McgLanes*>(__qorSearchChunk(s.get(), qor::kMcgChunk));
}

TEST(Mcg31m1, SeedsZeroAndTheModulusAndNoSeedGiveOne) {
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG31M1, {0}).outputs(1)[0], 1u);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG31M1, {0x7FFFFFFF}).outputs(1)[0], 1u);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG31M1, {}).outputs(1)[0], 1u);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG31M1, {0xFFFFFFFF}).outputs(1)[0], 1u);  // 2 m + 1
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG31M1, {0x80000005}).outputs(1)[0], 6u);
}

TEST(Mcg31m1, NegativeSeedCountGivesOne) {
  Stream s;
  const uint32_t seed = 5;
  ASSERT_EQ(__qorNewStreamEx(s.out(), ORVIK_BRNG_MCG31M1, -3, &seed), 0);
  EXPECT_EQ(s.outputs(1)[0], 1u);
}

TEST(Mcg59, SeedsOfOneAndTwoWords) {
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG59, {0x89ABCDEF}).outputs(1)[0], 0x89ABCDEFu);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG59, {0, 0}).outputs(1)[0], 1u);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG59, {2, 0xFFFFFFFF}).outputs(1)[0], 0x07FFFFFF00000002u);
  EXPECT_EQ(Stream(ORVIK_BRNG_MCG59, {0, 0x08000000}).outputs(1)[0], 1u);  // 2^59 modulo 2^59
}

TEST(Mcg59, MemberAboveTheModulusIsDeliveredAsItIsByRequestsOfAnyLength) {
  for (int32_t n : {1, 63, 64, 200}) {
    const Stream s(ORVIK_BRNG_MCG59, {777}), t(ORVIK_BRNG_MCG59, {777});
    s.state<uint64_t>()[0] |= uint64_t{21} << 59;
    const std::vector<uint64_t> got = s.outputs(n);
    EXPECT_EQ(got[0], uint64_t{21} << 59 | 777);
    const std::vector<uint64_t> plain = t.outputs(n);
    EXPECT_TRUE(std::equal(got.begin() + 1, got.end(), plain.begin() + 1, plain.end()));
  }
}

TEST(Mcg59, StaysOddOrEvenAsSeeded) {
  for (uint64_t w : Stream(ORVIK_BRNG_MCG59, {6}).outputs(500)) ASSERT_EQ(w % 2, 0u);
  for (uint64_t w : Stream(ORVIK_BRNG_MCG59, {7}).outputs(500)) ASSERT_EQ(w % 2, 1u);
}

TEST(Mcg, SideBlockHoldsLanesAndPowers) {
  const Stream s(ORVIK_BRNG_MCG31M1, {77});
  EXPECT_EQ(lanes(s).row, 0u);
  const std::vector<uint64_t> w = models::take(models::Mcg31m1({77}), 4);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(lanes(s).lane[k], w[k]);
  for (int j = 0; j < 8; ++j) EXPECT_THAT(lanes(s).power[j], Each(__qoriPowMod2P31M1(1132489760, 4 * (j + 1))));
  const Stream t(ORVIK_BRNG_MCG59, {77});
  EXPECT_EQ(lanes(t).row, 1u);
  for (int j = 0; j < 8; ++j) EXPECT_THAT(lanes(t).power[j], Each(__qoriPowMod2P59(302875106592253, 4 * (j + 1))));
}

class McgTest : public ::testing::TestWithParam<int32_t> {};

TEST_P(McgTest, LanesAreAlwaysFourConsecutiveMembersAndXIsTheFirst) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {321}), 3000);
  const Stream s(GetParam(), {321});
  size_t at = 0;
  for (int32_t n = 0; n < 70; ++n) {
    s.doubles(n);
    at += static_cast<size_t>(n);
    for (size_t k = 0; k < 4; ++k) ASSERT_EQ(lanes(s).lane[k], want[at + k]) << n;
    const uint64_t x = GetParam() == ORVIK_BRNG_MCG59 ? s.state<uint64_t>()[0] : s.state<uint32_t>()[0];
    ASSERT_EQ(x, want[at]);
  }
}

TEST_P(McgTest, IntegerCallDoesNotAdvanceTheLanes) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {9}), 400);
  const Stream s(GetParam(), {9});
  EXPECT_EQ(s.outputs(100), std::vector<uint64_t>(want.begin(), want.begin() + 100));
  // doubles begin where the lanes stand, at the start
  EXPECT_EQ(s.doubles(10)[9], models::to_double(GetParam(), want[9], 0, 1));
  // and have overwritten X
  EXPECT_EQ(s.outputs(2)[0], want[10]);
  EXPECT_EQ(s.outputs(1)[0], want[12]);
  EXPECT_EQ(s.floats(1)[0], models::to_float(GetParam(), want[10], 0, 1));
}

TEST_P(McgTest, EmptyFloatCallRewritesXWithTheFirstLane) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {9}), 50);
  const Stream s(GetParam(), {9});
  s.outputs(20);
  const qor::McgLanes before = lanes(s);
  s.floats(0);
  EXPECT_EQ(std::memcmp(&lanes(s), &before, sizeof before), 0);
  EXPECT_EQ(s.outputs(1)[0], want[0]);
}

TEST_P(McgTest, SkipMovesBothPlaces) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {5}), 2000);
  for (uint64_t c : {0, 1, 2, 3, 4, 5, 100, 1717}) {
    const Stream s(GetParam(), {5});
    ASSERT_EQ(s.skip(c), 0);
    EXPECT_EQ(s.outputs(1)[0], want[c]);
    const Stream d(GetParam(), {5});
    ASSERT_EQ(d.skip(c), 0);
    EXPECT_EQ(d.doubles(9)[8], models::to_double(GetParam(), want[c + 8], 0, 1));
  }
}

TEST_P(McgTest, SkipCountsFromWhatXHolds) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {5}), 200);
  const Stream s(GetParam(), {5});
  s.outputs(30);
  ASSERT_EQ(s.skip(0), 0);  // brings the lanes up to X
  EXPECT_EQ(s.doubles(1)[0], models::to_double(GetParam(), want[30], 0, 1));
}

TEST_P(McgTest, LongSkipsAddUp) {
  const Stream once(GetParam(), {5}), twice(GetParam(), {5});
  ASSERT_EQ(once.skip(0xFEDCBA9876543210), 0);
  ASSERT_EQ(twice.skip(0x8000000000000000), 0);
  ASSERT_EQ(twice.skip(0x7EDCBA9876543210), 0);
  EXPECT_EQ(once.outputs(50), twice.outputs(50));
  EXPECT_EQ(once.floats(50), twice.floats(50));
}

TEST_P(McgTest, LeapfrogDealsTheSequenceOut) {
  const std::vector<uint64_t> want = models::take(models::make(GetParam(), {1234}), 1000);
  for (int32_t nstreams : {1, 2, 3, 7, 12})
    for (int32_t k = 0; k < nstreams; ++k) {
      const Stream s(GetParam(), {1234}), d(GetParam(), {1234});
      ASSERT_EQ(s.leapfrog(k, nstreams), 0);
      ASSERT_EQ(d.leapfrog(k, nstreams), 0);
      const std::vector<uint64_t> got = s.outputs(80);
      const std::vector<double> doubles = d.doubles(80);
      for (size_t i = 0; i < got.size(); ++i) {
        const uint64_t w = want[static_cast<size_t>(k) + i * static_cast<size_t>(nstreams)];
        ASSERT_EQ(got[i], w);
        ASSERT_EQ(doubles[i], models::to_double(GetParam(), w, 0, 1));
      }
    }
}

TEST_P(McgTest, LeapfrogOfOneStreamChangesNothing) {
  const Stream s(GetParam(), {1234}), t(GetParam(), {1234});
  ASSERT_EQ(s.leapfrog(0, 1), 0);
  EXPECT_EQ(s.outputs(100), t.outputs(100));
  EXPECT_EQ(s.doubles(100), t.doubles(100));
}

TEST_P(McgTest, LeapfrogOfNoStreamsRepeatsOneValue) {
  const Stream s(GetParam(), {1234});
  ASSERT_EQ(s.leapfrog(0, 0), 0);
  EXPECT_THAT(s.outputs(100), Each(1234u));
  EXPECT_THAT(s.doubles(100), Each(models::to_double(GetParam(), 1234, 0, 1)));
}

TEST_P(McgTest, LeapfrogWithNegativeCountIsRefusedBeforeTheGenerator) {
  const Stream s(GetParam(), {1234});
  __qorDeleteChunks(s.get());  // the generator would answer -4
  EXPECT_EQ(s.leapfrog(0, -1), ORVIK_QOR_BAD_NSTREAMS);
}

TEST_P(McgTest, WithoutTheSideBlockOnlyTheIntegerFormWorks) {
  const Stream s(GetParam(), {1234});
  __qorDeleteChunks(s.get());
  float f = 7;
  double d = 7;
  EXPECT_EQ(s.row().sBRng(s.get(), 1, &f, 0, 1), ORVIK_QOR_NO_MEMORY);
  EXPECT_EQ(s.row().dBRng(s.get(), 1, &d, 0, 1), ORVIK_QOR_NO_MEMORY);
  EXPECT_EQ(f, 7);
  EXPECT_EQ(d, 7);
  EXPECT_EQ(s.skip(3), ORVIK_QOR_NO_MEMORY);
  EXPECT_EQ(s.leapfrog(1, 3), ORVIK_QOR_NO_MEMORY);
  EXPECT_EQ(s.outputs(70), models::take(models::make(GetParam(), {1234}), 70));
}

TEST_P(McgTest, LongSkipIsRefused) {
  const Stream s(GetParam(), {1234});
  EXPECT_EQ(s.skip_ex({1}), ORVIK_QOR_NO_SKIPAHEAD_EX);
  EXPECT_EQ(s.outputs(1)[0], 1234u);
}

INSTANTIATE_TEST_SUITE_P(Brng, McgTest, ::testing::Values(ORVIK_BRNG_MCG31M1, ORVIK_BRNG_MCG59));

TEST(Mcg31m1, FloatMayReturnTheUpperBound) {
  const Stream s(ORVIK_BRNG_MCG31M1, {0x7FFFFFFE});
  EXPECT_EQ(s.floats(1)[0], 1.0f);
  const Stream d(ORVIK_BRNG_MCG31M1, {0x7FFFFFFE});
  EXPECT_LT(d.doubles(1)[0], 1.0);
}

TEST(Mcg31m1, VisitsMembersBelowTheModulusOnly) {
  for (uint64_t w : Stream(ORVIK_BRNG_MCG31M1, {0x7FFFFFFE}).outputs(100000)) ASSERT_TRUE(w >= 1 && w < kM31);
}

}  // namespace

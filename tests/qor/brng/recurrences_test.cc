// Odd cases of R250, MRG32K3A, WH, SFMT19937.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <set>

#include "qor/brng/mrg32k3a.h"
#include "qor/brng/sfmt19937.h"
#include "qor/brng/wh.h"
#include "qor/support/berlekamp_massey.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using orvik::testing::Stream;
using namespace orvik;
using ::testing::Each;
using ::testing::ElementsAre;

std::vector<uint32_t> state_words(const Stream& s, size_t n) { return {s.state<uint32_t>(), s.state<uint32_t>() + n}; }

// ---- R250 ----------------------------------------------------------------------------------------------------------

TEST(R250, StateOfZerosIsNotGuardedAgainst) {
  EXPECT_THAT(Stream(ORVIK_BRNG_R250, std::vector<uint32_t>(250)).words(600), Each(0u));
}

TEST(R250, OneSeedZeroEqualsOneSeedOne) {
  EXPECT_EQ(Stream(ORVIK_BRNG_R250, {0}).words(300), Stream(ORVIK_BRNG_R250, {1}).words(300));
  EXPECT_EQ(Stream(ORVIK_BRNG_R250, {}).words(300), Stream(ORVIK_BRNG_R250, {1}).words(300));
}

TEST(R250, Takes250SeedsAsTheyAreAndIgnoresMore) {
  std::vector<uint32_t> seeds(252);
  std::iota(seeds.begin(), seeds.end(), 77u);
  const Stream s(ORVIK_BRNG_R250, seeds);
  EXPECT_EQ(state_words(s, 250), std::vector<uint32_t>(seeds.begin(), seeds.begin() + 250));
  EXPECT_EQ(s.outputs(1000), models::take(models::R250(seeds), 1000));
  seeds.resize(249);  // one word too few: the first alone counts
  EXPECT_EQ(Stream(ORVIK_BRNG_R250, seeds).words(300), Stream(ORVIK_BRNG_R250, {77}).words(300));
}

TEST(R250, SeededStateHoldsATriangleOfBits) {
  const std::vector<uint32_t> r = state_words(Stream(ORVIK_BRNG_R250, {5}), 252);
  EXPECT_EQ(r[3] >> 31, 1u);
  EXPECT_EQ(r[220], 1u);
  for (uint32_t k = 0; k < 32; ++k) EXPECT_EQ(r[3 + 7 * k] >> (31 - k), 1u);
  EXPECT_EQ(r[250], 0u);
  EXPECT_EQ(r[251], 103u);
}

TEST(R250, PlacesOfAnImageAreFollowedAsThePlainRecurrenceDoes) {
  for (const auto& [p, q] : std::vector<std::pair<int32_t, int32_t>>{
           {0, 1}, {1, 0}, {249, 0}, {0, 249}, {10, 10}, {200, 199}, {7, 100}, {100, 7}, {240, 250}, {-1, 3}}) {
    models::R250 model({9});
    const Stream s(ORVIK_BRNG_R250, {9});
    s.state<int32_t>()[250] = p;
    s.state<int32_t>()[251] = q;
    model.p = p < 0 || p > 249 ? 0 : static_cast<size_t>(p);
    model.q = q < 0 || q > 249 ? 0 : static_cast<size_t>(q);
    EXPECT_EQ(s.outputs(777), models::take([&] { return model(); }, 777)) << p << " " << q;
  }
}

// ---- MRG32K3A ------------------------------------------------------------------------------------------------------

TEST(Mrg32k3a, SixSeedsOfZeroBecomeOneInEachOldestMember) {
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_MRG32K3A, std::vector<uint32_t>(6)), 6), ElementsAre(1, 0, 0, 1, 0, 0));
}

TEST(Mrg32k3a, SeedsAboveTheirModulusAreReduced) {
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_MRG32K3A, {4294967087u, 0xFFFFFFFF, 5, 0xFFFFFFFF, 4294944443u, 7}), 6),
              ElementsAre(0, 208, 5, 22852, 0, 7));
}

TEST(Mrg32k3a, SeedsNotGivenAreOne) {
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_MRG32K3A, {}), 6), Each(1u));
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_MRG32K3A, {9, 8, 7, 6}), 6), ElementsAre(9, 8, 7, 6, 1, 1));
}

TEST(Mrg32k3a, EmptyRequestLeavesTheStateAlone) {
  const Stream s(ORVIK_BRNG_MRG32K3A, {1, 2, 3, 4, 5, 6});
  s.words(0);
  s.doubles(0);
  EXPECT_THAT(state_words(s, 6), ElementsAre(1, 2, 3, 4, 5, 6));
}

// Members chosen so that both components step to the same value.
TEST(Mrg32k3a, EqualComponentsYieldTheModulus) {
  const Stream s(ORVIK_BRNG_MRG32K3A);
  uint32_t* const x = s.state<uint32_t>();
  std::memset(x, 0, 24);  // both step to 0
  EXPECT_EQ(s.words(1)[0], 4294967087u);
  std::memset(x, 0, 24);
  for (uint32_t w : s.words(500)) ASSERT_EQ(w, 4294967087u);  // by lanes as well
}

TEST(Mrg32k3a, WordsLieFrom1ToTheModulus) {
  for (uint32_t w : Stream(ORVIK_BRNG_MRG32K3A, {99}).words(100000)) ASSERT_TRUE(w >= 1 && w <= 4294967087u);
}

TEST(Mrg32k3a, BlockOf16EqualsFifteenStepsAndOne) {
  const Stream block(ORVIK_BRNG_MRG32K3A, {3}), steps(ORVIK_BRNG_MRG32K3A, {3});
  std::vector<uint32_t> w = steps.words(15);
  w.push_back(steps.words(1)[0]);
  EXPECT_EQ(block.words(16), w);
  EXPECT_EQ(state_words(block, 6), state_words(steps, 6));
}

TEST(Mrg32k3a, LanesFollowTheRecurrenceFromExtremeMembers) {
  for (uint32_t x : {0u, 1u, 4294967086u})
    for (uint32_t y : {0u, 1u, 4294944442u}) {
      const std::vector<uint32_t> seeds = {x, 4294967086u, x, y, 4294944442u, y};
      EXPECT_EQ(Stream(ORVIK_BRNG_MRG32K3A, seeds).outputs(5000), models::take(models::Mrg32k3a(seeds), 5000));
    }
}

TEST(Mrg32k3a, LongSkipsOfOneToFiveWordsAddUp) {
  const auto state = [](const std::vector<std::vector<uint64_t>>& counts) {
    const Stream s(ORVIK_BRNG_MRG32K3A, {11, 12, 13, 14, 15, 16});
    for (const auto& c : counts) EXPECT_EQ(s.skip_ex(c), 0);
    return state_words(s, 6);
  };
  EXPECT_EQ(state({{0, 1}}), state({{1ull << 63}, {1ull << 63}}));
  EXPECT_EQ(state({{5, 6, 7}}), state({{5}, {0, 6}, {0, 0, 7}}));
  EXPECT_EQ(state({{0, 0, 0, 1}}), state({{0, 0, 1ull << 63}, {0, 0, 1ull << 63}}));  // beyond the tables
  EXPECT_EQ(state({{1, 2, 3, 0, 0}}), state({{1, 2, 3}}));
  EXPECT_EQ(state({{0, 0, 0, 0, 1}}), state({{0, 0, 0, 1ull << 63}, {0, 0, 0, 1ull << 63}}));
  EXPECT_EQ(state({{}}), state({{0}}));
}

TEST(Mrg32k3a, LongSkipByOneWordOfCountGivesTheStateOfTheShortSkip) {
  for (uint64_t count : {uint64_t{0}, uint64_t{1}, uint64_t{4242}, uint64_t{1} << 40, ~uint64_t{0}}) {
    const Stream s(ORVIK_BRNG_MRG32K3A, {11, 12, 13, 14, 15, 16}), t = s.copy();
    ASSERT_EQ(s.skip(count), 0);
    ASSERT_EQ(t.skip_ex({count}), 0);
    EXPECT_EQ(state_words(s, 6), state_words(t, 6)) << count;
  }
}

TEST(Mrg32k3a, PowerTablesHold193Squares) {
  for (int i = 1; i < 193; ++i) {
    const qor::Matrix3 &a = qor::Mrg32k3aPowers1.power[i - 1], &b = qor::Mrg32k3aPowers2.power[i - 1];
    const qor::Matrix3 a2 = qor::multiply(a, a, qor::kMrgModulus1), b2 = qor::multiply(b, b, qor::kMrgModulus2);
    ASSERT_EQ(std::memcmp(a2.m, qor::Mrg32k3aPowers1.power[i].m, sizeof a2.m), 0);
    ASSERT_EQ(std::memcmp(b2.m, qor::Mrg32k3aPowers2.power[i].m, sizeof b2.m), 0);
  }
}

// ---- WH ------------------------------------------------------------------------------------------------------------

bool is_prime(uint32_t n) {
  for (uint32_t p = 2; p * p <= n; ++p)
    if (n % p == 0) return false;
  return true;
}

TEST(Wh, SetsAreDistinctPrimesInTheirRangeWithCoprimeHalvesAndPrimitiveRoots) {
  std::set<uint32_t> seen;
  for (const qor::WhSet& set : qor::WhParams) {
    std::set<uint32_t> multipliers;
    for (int j = 0; j < 4; ++j) {
      const uint32_t m = set.modulus[j], a = set.multiplier[j];
      ASSERT_TRUE(m >= 16718909 && m <= 16776971 && is_prime(m)) << m;
      ASSERT_TRUE(seen.insert(m).second) << m;
      ASSERT_TRUE(a < 128 && multipliers.insert(a).second);
      for (int k = 0; k < j; ++k) {
        ASSERT_EQ(std::gcd((m - 1) / 2, (set.modulus[k] - 1) / 2), 1u);
      }
      for (uint32_t p = 2, rest = m - 1; rest > 1; ++p) {
        if (p * p > rest) p = rest;
        if (rest % p != 0) continue;
        ASSERT_NE(__qoriPowMod(a, (m - 1) / p, m), 1u) << a << " modulo " << m;
        while (rest % p == 0) rest /= p;
      }
    }
  }
  EXPECT_EQ(seen.size(), 1092u);
}

TEST(Wh, SetsGivenBeforehandStandInTheirPlaces) {
  const auto expect = [](int member, const qor::WhSet& want) {
    EXPECT_EQ(std::memcmp(&qor::WhParams[member], &want, sizeof want), 0) << member;
  };
  expect(0, {{16770647, 16770643, 16770623, 16770617}, {125, 117, 127, 126}});
  expect(1, {{16770311, 16770283, 16770263, 16770209}, {127, 126, 125, 123}});
  expect(2, {{16769807, 16769771, 16769749, 16769663}, {125, 119, 123, 126}});
  expect(272, {{16766363, 16766359, 16766327, 16766231}, {126, 127, 125, 124}});
}

TEST(Wh, EveryMemberFollowsItsRecurrence) {
  for (int32_t member = 0; member < qor::kWhMembers; ++member)
    ASSERT_EQ(Stream(ORVIK_BRNG_WH + member, {1, 2, 3, 4}).outputs(300),
              models::take(models::Wh(member, {1, 2, 3, 4}), 1200))
        << member;
}

TEST(Wh, HistoricalIdsGiveTheSameMembers) {
  for (int32_t k = 0; k < qor::kWhMembers; ++k) {
    const Stream old(4 + k, {5}), now(ORVIK_BRNG_WH + k, {5});
    EXPECT_EQ(__qorGetStreamStateBrng(old.get()), 4 + k);
    EXPECT_EQ(__qorGetStreamStateBrng(now.get()), ORVIK_BRNG_WH + k);
    EXPECT_EQ(old.outputs(20), now.outputs(20)) << k;
    EXPECT_EQ(old.doubles(20), now.doubles(20)) << k;
  }
}

TEST(Wh, SeedThatIsAMultipleOfItsModulusBecomesOne) {
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_WH, {16770647, 2 * 16770643u, 16770623 + 9, 0}), 4),
              ElementsAre(1, 1, 9, 1));
}

TEST(Wh, AsManySeedsCountAsAreGivenUpToFour) {
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_WH, {}), 4), Each(1u));
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_WH, {5, 6}), 4), ElementsAre(5, 6, 1, 1));
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_WH, {5, 6, 7}), 4), ElementsAre(5, 6, 7, 1));
  EXPECT_THAT(state_words(Stream(ORVIK_BRNG_WH, {5, 6, 7, 8, 9}), 4), ElementsAre(5, 6, 7, 8));
  Stream s;
  const uint32_t seeds[] = {5, 6, 7, 8};
  ASSERT_EQ(__qorNewStreamEx(s.out(), ORVIK_BRNG_WH, -1, seeds), 0);
  EXPECT_THAT(state_words(s, 4), ElementsAre(5, 6, 7, 8));
}

TEST(Wh, OneElementIsSixteenBytes) {
  const Stream s(ORVIK_BRNG_WH, {1, 2, 3, 4});
  uint32_t w[8] = {9, 9, 9, 9, 9, 9, 9, 9};
  ASSERT_EQ(__qoriBRngWH(s.get(), 1, w), 0);
  EXPECT_THAT(w, ElementsAre(1, 2, 3, 4, 9, 9, 9, 9));
}

TEST(Wh, MultipliersGrownByLeapfrogStayExact) {
  for (int32_t nstreams : {2, 3, 1000, 0x7FFFFFF0}) {
    const Stream s(ORVIK_BRNG_WH + 3, {123, 456, 789, 1000});
    ASSERT_EQ(s.leapfrog(5, nstreams), 0);
    models::Wh model(3, {123, 456, 789, 1000});
    for (int j = 0; j < 4; ++j) {
      const uint32_t m = static_cast<uint32_t>(model.m[j]);
      model.x[j] = model.x[j] * __qoriPowMod(static_cast<uint32_t>(model.a[j]), 5, m) % m;
      model.a[j] = __qoriPowMod(static_cast<uint32_t>(model.a[j]), static_cast<uint64_t>(nstreams), m);
    }
    EXPECT_EQ(s.outputs(1000), models::take([&] { return model(); }, 4000)) << nstreams;
  }
}

// Every multiplier of a modulus, where the quotient is closest to being wrong: members next to 0 and to the modulus.
TEST(Wh, ProductsNextToMultiplesOfTheModulusAreExact) {
  const uint32_t m = qor::WhParams[9].modulus[0];
  for (uint64_t a = 3; a < m; a += 1009)
    for (uint32_t residue : {1u, 2u, m - 2, m - 1}) {
      // the member that leads to the residue
      const uint32_t inverse = __qoriPowMod(static_cast<uint32_t>(a), m - 2, m);
      const Stream s(ORVIK_BRNG_WH + 9, {1, 1, 1, 1});
      s.state<uint32_t>()[0] = static_cast<uint32_t>(uint64_t{inverse} * residue % m);
      s.state<uint32_t>()[4] = static_cast<uint32_t>(a);
      s.outputs(1);
      ASSERT_EQ(s.state<uint32_t>()[0], residue) << a;
    }
}

// ---- SFMT19937 -----------------------------------------------------------------------------------------------------

const qor::SfmtState& sfmt(const Stream& s) { return *s.state<qor::SfmtState>(); }
std::vector<uint32_t> sfmt_words(size_t n) {
  const std::vector<uint64_t> w = models::take(models::Sfmt({1}), n);
  return {w.begin(), w.end()};
}

TEST(Sfmt19937, NoKeyIsTheKeyOne) {
  EXPECT_EQ(Stream(ORVIK_BRNG_SFMT19937, {}).words(1300), Stream(ORVIK_BRNG_SFMT19937, {1}).words(1300));
}

TEST(Sfmt19937, KeysLongerThanTheStateAreFoldedInWhole) {
  for (size_t n : {4u, 622u, 623u, 624u, 625u, 2000u}) {
    std::vector<uint32_t> key(n);
    for (size_t i = 0; i < n; ++i) key[i] = static_cast<uint32_t>(i * i + 99);
    EXPECT_EQ(Stream(ORVIK_BRNG_SFMT19937, key).outputs(700), models::take(models::Sfmt(key), 700)) << n;
  }
}

TEST(Sfmt19937, OneWordKeepsThreeAndTheNextThreeCallsLeaveTheState) {
  const Stream s(ORVIK_BRNG_SFMT19937, {1});
  const std::vector<uint32_t> want = sfmt_words(4);
  EXPECT_EQ(s.words(1)[0], want[0]);
  EXPECT_EQ(sfmt(s).tail_end - sfmt(s).tail_pos, 3u);
  EXPECT_EQ(sfmt(s).index, 4);
  const std::vector<uint32_t> state(sfmt(s).word, sfmt(s).word + 624);
  for (size_t k = 1; k < 4; ++k) {
    EXPECT_EQ(s.words(1)[0], want[k]);
    EXPECT_EQ(sfmt(s).index, 4);
    EXPECT_EQ(std::vector<uint32_t>(sfmt(s).word, sfmt(s).word + 624), state);
  }
  EXPECT_EQ(sfmt(s).tail_end, 0u);
}

TEST(Sfmt19937, SkipOfOneStartsAGenerationAndKeepsThreeWords) {
  const Stream s(ORVIK_BRNG_SFMT19937, {1});
  ASSERT_EQ(s.skip(1), 0);
  EXPECT_EQ(sfmt(s).tail_end - sfmt(s).tail_pos, 3u);
  const std::vector<uint32_t> want = sfmt_words(1300);
  EXPECT_EQ(s.words(1200), std::vector<uint32_t>(want.begin() + 1, want.begin() + 1201));
}

TEST(Sfmt19937, SkipOverOneGenerationLeavesTheIndexAt624) {
  const Stream s(ORVIK_BRNG_SFMT19937, {1});
  ASSERT_EQ(s.skip(624), 0);
  EXPECT_EQ(sfmt(s).index, 624);
  EXPECT_EQ(sfmt(s).tail_end, 0u);
  const std::vector<uint32_t> want = sfmt_words(1300);
  EXPECT_EQ(s.words(600), std::vector<uint32_t>(want.begin() + 624, want.begin() + 1224));
}

TEST(Sfmt19937, SkipsOnBothSidesOfTheThresholdLandOnTheSequence) {
  const std::vector<uint32_t> want = sfmt_words(50000);
  for (int32_t before : {0, 1, 5, 8, 623, 624})
    for (uint64_t count : {1u, 3u, 19966u, 19967u, 19968u, 19969u, 40001u}) {
      const Stream s(ORVIK_BRNG_SFMT19937, {1});
      s.words(before);
      ASSERT_EQ(s.skip(count), 0);
      const auto at = want.begin() + static_cast<ptrdiff_t>(count) + before;
      ASSERT_EQ(s.words(700), std::vector<uint32_t>(at, at + 700)) << before << " + " << count;
    }
}

TEST(Sfmt19937, JumpOfTwiceTheLengthEqualsTwoJumps) {
  for (int k : {15, 20, 33, 50, 61, 62}) {  // 2^63 has the sign: the plainer method
    const Stream once(ORVIK_BRNG_SFMT19937, {3}), twice(ORVIK_BRNG_SFMT19937, {3});
    once.words(3);
    twice.words(3);
    ASSERT_EQ(once.skip(uint64_t{1} << (k + 1)), 0);
    ASSERT_EQ(twice.skip(uint64_t{1} << k), 0);
    ASSERT_EQ(twice.skip(uint64_t{1} << k), 0);
    ASSERT_EQ(once.words(650), twice.words(650)) << k;
  }
}

TEST(Sfmt19937, PeriodCheckFlipsTheBitForEvenParityOnly) {
  int flipped = 0;
  for (uint32_t seed = 1; seed <= 40; ++seed) {
    const Stream s(ORVIK_BRNG_SFMT19937, {seed});
    const models::Sfmt model({seed});
    ASSERT_EQ(std::vector<uint32_t>(sfmt(s).word, sfmt(s).word + 624), model.s) << seed;
    flipped += model.certified_by_flip;
  }
  EXPECT_TRUE(flipped > 0 && flipped < 40) << flipped;  // both cases came up
}

TEST(Sfmt19937, RefusedWorkBlockLeavesTheStreamUnchanged) {
  const std::vector<uint32_t> want = sfmt_words(1200);
  for (const uint64_t count : {uint64_t{5000}, uint64_t{1} << 40})
    for (int64_t n = 1;; ++n) {
      const Stream s(ORVIK_BRNG_SFMT19937, {1});
      s.words(101);
      const int64_t live = serv::live_allocations();
      serv::fail_allocation_after(n);
      const int32_t status = s.skip(count);
      serv::fail_allocation_after(0);
      EXPECT_EQ(serv::live_allocations(), live);
      if (status == 0) {
        EXPECT_GT(n, 2);
        break;
      }
      EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
      EXPECT_EQ(s.words(900), std::vector<uint32_t>(want.begin() + 101, want.begin() + 1001));
    }
}

TEST(Sfmt19937, PlacesOfAnImageOutsideTheStateCountAsAllDelivered) {
  for (int32_t index : {-1, 1, 3, 625, INT32_MAX, INT32_MIN}) {
    const Stream s(ORVIK_BRNG_SFMT19937, {1});
    auto& state = *s.state<qor::SfmtState>();
    state.index = index;
    state.tail_pos = 7;
    state.tail_end = 0xFFFFFFFF;
    EXPECT_EQ(s.copy().words(50), Stream(ORVIK_BRNG_SFMT19937, {1}).words(50));
    ASSERT_EQ(s.skip(3), 0);
    EXPECT_EQ(s.words(1)[0], sfmt_words(4)[3]);
  }
}

TEST(Sfmt19937, CharacteristicPolynomialIsTheMinimalPolynomialOfABlocksBit) {
  const Stream s(ORVIK_BRNG_SFMT19937, {4321});
  std::vector<bool> bits;
  const std::vector<uint32_t> words = s.words(4 * (2 * qor::kSfmtDegree + 64));
  for (size_t i = 0; i < words.size(); i += 4) bits.push_back(words[i] & 1);
  const std::vector<uint32_t> found = support::minimal_polynomial(bits);
  EXPECT_EQ(found, std::vector<uint32_t>(std::begin(qor::kSfmtPolynomial), std::end(qor::kSfmtPolynomial)));
}

}  // namespace

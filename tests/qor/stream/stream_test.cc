#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "orvik/qor.h"
#include "orvik/serv.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using orvik::testing::Generator;
using orvik::testing::seeded_generators;
using orvik::testing::Stream;

TEST(NewStream, HeaderHoldsTheIdAsGivenAndIsLive) {
  const Stream s(0);  // historical id of MCG31M1
  EXPECT_EQ(__qorGetStreamStateBrng(s.get()), 0);
  const auto* words = static_cast<const uint32_t*>(s.get());
  EXPECT_EQ(words[0], 0u);
  EXPECT_EQ(words[1], 1u);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(s.get()) % 128, 0u);
  const Stream t(ORVIK_BRNG_MT2203 + 77);
  EXPECT_EQ(__qorGetStreamStateBrng(t.get()), ORVIK_BRNG_MT2203 + 77);
}

TEST(NewStream, HistoricalIdsGiveTheSameSequence) {
  EXPECT_EQ(Stream(0, {5}).words(99), Stream(ORVIK_BRNG_MCG31M1, {5}).words(99));
  EXPECT_EQ(Stream(3, {5}).outputs(99), Stream(ORVIK_BRNG_MCG59, {5}).outputs(99));
}

TEST(NewStream, AbstractIdsAreRefusedAndLeaveThePointerUntouched) {
  int mark;
  for (int32_t id : {ORVIK_BRNG_IABSTRACT, ORVIK_BRNG_DABSTRACT, ORVIK_BRNG_SABSTRACT}) {
    OrvikStream s = &mark;
    const int64_t live = orvik::serv::live_allocations();
    orvik::serv::fail_allocation_after(1);
    EXPECT_EQ(__qorNewStreamEx(&s, id, 0, nullptr), ORVIK_QOR_BAD_BRNG);
    orvik::serv::fail_allocation_after(0);
    EXPECT_EQ(s, &mark);
    EXPECT_EQ(orvik::serv::live_allocations(), live);
  }
}

TEST(NewStream, UnknownIdsAreRefusedAndLeaveThePointerUntouched) {
  int mark;
  for (int32_t id : {281, 0xFFFFF, 0x500111, 0x901788, 0x100001, 0x7FFFFFFF}) {
    OrvikStream s = &mark;
    EXPECT_EQ(__qorNewStreamEx(&s, id, 0, nullptr), ORVIK_QOR_BAD_BRNG);
    EXPECT_EQ(s, &mark);
  }
}

TEST(NewStream, FailedSeedingLeavesTheStreamToTheCaller) {
  OrvikStream s = nullptr;
  const uint32_t seeds[] = {2, 1, 1, 0x3FF};  // a polynomial of degree 9
  EXPECT_EQ(__qorNewStreamEx(&s, ORVIK_BRNG_SOBOL, 4, seeds), ORVIK_QOR_BAD_ABSTRACT_ARGUMENT);
  ASSERT_NE(s, nullptr);
  uint32_t word;
  EXPECT_EQ(__qoriBRngSobol(s, 1, &word), ORVIK_QOR_NO_MEMORY);  // there are no tables
  EXPECT_EQ(__qorDeleteStream(&s), 0);
  EXPECT_EQ(s, nullptr);
}

TEST(NewStream, IdsOfEmptyRowsAreRefusedWithAStreamToDelete) {
  for (int32_t id : {279, 280, -1, -77}) {
    OrvikStream s = nullptr;
    EXPECT_EQ(__qorNewStreamEx(&s, id, 0, nullptr), ORVIK_QOR_BAD_BRNG) << id;
    ASSERT_NE(s, nullptr);
    const uint64_t count[1] = {1};
    EXPECT_EQ(__qorSkipAheadStream(s, 1), ORVIK_QOR_BAD_BRNG) << id;
    EXPECT_EQ(__qorSkipAheadStreamEx(s, 1, count), ORVIK_QOR_BAD_BRNG) << id;
    EXPECT_EQ(__qorLeapfrogStream(s, 0, 1), ORVIK_QOR_BAD_BRNG) << id;
    __qorDeleteStream(&s);
  }
}

TEST(AllocateStream, LeavesNoChunksAndChecksTheRow) {
  OrvikStream s = nullptr;
  ASSERT_EQ(__qorAllocateStream(&s, __RegBrngsNew, ORVIK_BRNG_MT19937, 7, 0), 0);
  EXPECT_EQ(__qorGetNumChunks(s), 0);
  EXPECT_EQ(__qorGetStreamStateBrng(s), ORVIK_BRNG_MT19937);
  __qorDeleteStream(&s);
  EXPECT_EQ(__qorAllocateStream(&s, __RegBrngsNew, ORVIK_BRNG_MT19937, 7, 1), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(__qorAllocateStream(&s, __RegBrngsNew, 0, -1, 0), ORVIK_QOR_BAD_BRNG);
}

// Chunks of 2^32 - 16 bytes each: their sum does not fit the result, nor does one of them.
TEST(StreamSize, BeyondTwoToThe31IsARefusal) {
  const Stream s(ORVIK_BRNG_MT19937);
  ASSERT_EQ(__qorAddChunk(s.get(), 20, nullptr, orvik_serv_allocate(16, 128), 0x7FFFF000u), 0);
  EXPECT_EQ(__qorGetStreamSize(s.get()), 2520 + 8 + 24 + 0x7FFFF000);
  ASSERT_EQ(__qorAddChunk(s.get(), 20, nullptr, orvik_serv_allocate(16, 128), 0x80000000u), 0);
  EXPECT_EQ(__qorGetStreamSize(s.get()), ORVIK_QOR_NO_MEMORY);
  ASSERT_EQ(__qorAddChunk(s.get(), 20, nullptr, orvik_serv_allocate(16, 128), 0xFFFFFFF0u), 0);
  EXPECT_EQ(__qorGetStreamSize(s.get()), ORVIK_QOR_NO_MEMORY);
}

TEST(StreamSize, OfAFreshMcg31m1StreamIs408) {
  EXPECT_EQ(__qorGetStreamSize(Stream(ORVIK_BRNG_MCG31M1).get()), 408);
  EXPECT_EQ(__qorGetStreamSize(Stream(ORVIK_BRNG_MT19937).get()), 2528);
}

class StreamTest : public ::testing::TestWithParam<Generator> {};

TEST_P(StreamTest, NoSeedsNeedNoArray) {
  Stream s;
  ASSERT_EQ(__qorNewStreamEx(s.out(), GetParam().brng, 0, nullptr), 0);
  EXPECT_EQ(s.outputs(50), Stream(GetParam().brng, {}).outputs(50));
}

TEST_P(StreamTest, SeedingAnewGivesTheFreshStream) {
  const Stream s(GetParam().brng, {4, 5}), fresh(GetParam().brng, {4, 5});
  s.doubles(101);
  const uint32_t seeds[] = {4, 5};
  ASSERT_EQ(s.row().InitStream(0, s.get(), 2, seeds), 0);
  EXPECT_EQ(__qorGetNumChunks(s.get()), __qorGetNumChunks(fresh.get()));
  EXPECT_EQ(s.doubles(70), fresh.doubles(70));
  EXPECT_EQ(s.outputs(70), fresh.outputs(70));
}

TEST_P(StreamTest, CopyGoesOnLikeItsSourceAndIsIndependent) {
  Stream s(GetParam().brng, {4, 5});
  s.doubles(101);
  const Stream copy = s.copy(), second = s.copy();
  EXPECT_EQ(s.doubles(333), copy.doubles(333));
  EXPECT_EQ(s.outputs(333), copy.outputs(333));
  s = Stream();
  EXPECT_EQ(second.doubles(333).size(), 333u);
  EXPECT_EQ(second.outputs(50), [&] {
    const Stream again(GetParam().brng, {4, 5});
    again.doubles(101);
    again.doubles(333);
    return again.outputs(50);
  }());
}

TEST_P(StreamTest, CopiedStateReplacesTheDestinations) {
  const Stream s(GetParam().brng, {4, 5}), t(GetParam().brng, {6});
  s.doubles(37);
  t.doubles(5);
  const int64_t live = orvik::serv::live_allocations();
  ASSERT_EQ(__qorCopyStreamState(t.get(), s.get()), 0);
  EXPECT_EQ(orvik::serv::live_allocations(), live);
  EXPECT_EQ(__qorGetNumChunks(t.get()), __qorGetNumChunks(s.get()));
  EXPECT_EQ(s.doubles(100), t.doubles(100));
  EXPECT_EQ(s.outputs(100), t.outputs(100));
}

TEST_P(StreamTest, EveryFailedAllocationOfCreationAndCopyLeaksNothing) {
  const int64_t live = orvik::serv::live_allocations();
  const uint32_t seed = 3;
  const auto expect_clean = [&](auto make) {
    int64_t failures = 0;
    for (int64_t n = 1;; ++n) {
      OrvikStream s = nullptr;
      orvik::serv::fail_allocation_after(n);
      const int32_t status = make(&s);
      orvik::serv::fail_allocation_after(0);
      if (s && status < 0) {
        EXPECT_EQ(__qorGetNumChunks(s), 0);
      }
      if (s) __qorDeleteStream(&s);
      if (status == 0) return failures;
      EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
      ++failures;
    }
  };
  const int64_t created = expect_clean([&](OrvikStream* s) { return __qorNewStreamEx(s, GetParam().brng, 1, &seed); });
  EXPECT_EQ(orvik::serv::live_allocations(), live);
  {
    const Stream source(GetParam().brng, {3});
    const int64_t with_source = orvik::serv::live_allocations();
    const int64_t copied = expect_clean([&](OrvikStream* s) { return __qorCopyStream(s, source.get()); });
    EXPECT_EQ(copied, created);
    EXPECT_EQ(orvik::serv::live_allocations(), with_source);
  }
  EXPECT_EQ(orvik::serv::live_allocations(), live);
}

INSTANTIATE_TEST_SUITE_P(Stream, StreamTest, ::testing::ValuesIn(seeded_generators()), orvik::testing::name_of);

TEST(CopyStreamState, OntoItselfReturnsAtOnceWhateverTheGenerator) {
  Stream s(ORVIK_BRNG_MCG31M1);
  *static_cast<int32_t*>(s.get()) = 0x7FFFFFFF;
  EXPECT_EQ(__qorCopyStreamState(s.get(), s.get()), 0);
  *static_cast<int32_t*>(s.get()) = ORVIK_BRNG_MCG31M1;
}

TEST(CopyStreamState, FailedCopyOfSideBlocksLeavesNone) {
  const Stream s(ORVIK_BRNG_MCG59), t(ORVIK_BRNG_MCG59);
  for (int64_t n = 1; n <= 2; ++n) {
    orvik::serv::fail_allocation_after(n);
    EXPECT_EQ(__qorCopyStreamState(t.get(), s.get()), ORVIK_QOR_NO_MEMORY);
    orvik::serv::fail_allocation_after(0);
    EXPECT_EQ(__qorGetNumChunks(t.get()), 0);
  }
}

TEST(CopyStream, OfAnUnknownGeneratorIsRefused) {
  const Stream s(ORVIK_BRNG_MT19937);
  *static_cast<int32_t*>(s.get()) = 0x901788;
  OrvikStream copy = nullptr;
  EXPECT_EQ(__qorCopyStream(&copy, s.get()), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(copy, nullptr);
}

int32_t irefill(OrvikStream, int32_t*, uint32_t*, int32_t*, int32_t*, int32_t*) { return 0; }
int32_t drefill(OrvikStream, int32_t*, double*, int32_t*, int32_t*, int32_t*) { return 0; }
int32_t srefill(OrvikStream, int32_t*, float*, int32_t*, int32_t*, int32_t*) { return 0; }

TEST(AbstractStreams, ArgumentsAreTestedBeforeAnythingIsAllocated) {
  const int64_t live = orvik::serv::live_allocations();
  const uint32_t i[4] = {};
  const double d[4] = {};
  const float f[4] = {};
  int mark;
  OrvikStream s = &mark;
  constexpr int32_t kBad = ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
  EXPECT_EQ(__qoriNewAbstractStream(&s, 0, i, irefill), kBad);
  EXPECT_EQ(__qoriNewAbstractStream(&s, 4, nullptr, irefill), kBad);
  EXPECT_EQ(__qoriNewAbstractStream(&s, 4, i, nullptr), kBad);
  EXPECT_EQ(__qordNewAbstractStream(&s, 0, d, 0, 1, drefill), kBad);
  EXPECT_EQ(__qordNewAbstractStream(&s, 4, nullptr, 0, 1, drefill), kBad);
  EXPECT_EQ(__qordNewAbstractStream(&s, 4, d, 1, 1, drefill), kBad);
  EXPECT_EQ(__qordNewAbstractStream(&s, 4, d, 2, 1, drefill), kBad);
  EXPECT_EQ(__qordNewAbstractStream(&s, 4, d, 0, 1, nullptr), kBad);
  EXPECT_EQ(__qorsNewAbstractStream(&s, 0, f, 0, 1, srefill), kBad);
  EXPECT_EQ(__qorsNewAbstractStream(&s, 4, nullptr, 0, 1, srefill), kBad);
  EXPECT_EQ(__qorsNewAbstractStream(&s, 4, f, 1, 1, srefill), kBad);
  EXPECT_EQ(__qorsNewAbstractStream(&s, 4, f, 0, 1, nullptr), kBad);
  EXPECT_EQ(s, &mark);
  EXPECT_EQ(orvik::serv::live_allocations(), live);
}

TEST(Processor, AnswersAreTruthValues) {
  for (int32_t answer : {__qorCPUisAES(), __qorCPUisRDRAND(), __qorCPUisVAES()})
    EXPECT_TRUE(answer == 0 || answer == 1);
  EXPECT_EQ(__qorCPUisVAES(), orvik_serv_cpuisicx());
  EXPECT_EQ(__qorCPUisAES(), __builtin_cpu_supports("aes") ? 1 : 0);
}

}  // namespace

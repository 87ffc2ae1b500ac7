#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "orvik/serv.h"
#include "qor/stream/record.h"
#include "qor/stream/shared_table.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using namespace orvik;
using orvik::testing::Stream;

constexpr uint64_t kKey[2] = {11, 22};

void* block(uint32_t size = 16, int fill = 0) {
  void* data = orvik_serv_allocate(size, 128);
  std::memset(data, fill, size);
  return data;
}
void add(const Stream& s, int32_t id, const uint64_t* key = nullptr, void* data = block(), uint32_t size = 16) {
  ASSERT_EQ(__qorAddChunk(s.get(), id, key, data, size), 0);
}
uint32_t references(const uint64_t* key) {
  OrvikSharedEntry* entry = nullptr;
  return __qorFindGlobRODataTableEntry(&entry, key) == 0 ? entry->RefCount : 0;
}

class ChunksTest : public ::testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(serv::live_allocations(), live_);
    EXPECT_EQ(qor::shared_count(), 0);
  }
  int64_t live_ = serv::live_allocations();
};

TEST_F(ChunksTest, SearchWithoutChunksReturnsNull) {
  const Stream s(ORVIK_BRNG_MT19937);
  EXPECT_EQ(__qorSearchChunk(s.get(), 1), nullptr);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
}

TEST_F(ChunksTest, NewNodesGoToTheFrontAndSearchTakesTheFirstMatch) {
  const Stream s(ORVIK_BRNG_MT19937);
  void *a = block(), *b = block(), *c = block();
  add(s, 5, nullptr, a);
  add(s, 6, nullptr, b);
  EXPECT_EQ(__qorSearchChunk(s.get(), 5), a);
  add(s, 5, nullptr, c);
  EXPECT_EQ(__qorSearchChunk(s.get(), 5), c);
  EXPECT_EQ(__qorSearchChunk(s.get(), 6), b);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 3);
}

TEST_F(ChunksTest, NullAndZeroKeysArePrivate) {
  const uint64_t zeros[2] = {0, 0};
  const Stream s(ORVIK_BRNG_MT19937);
  add(s, 5);
  add(s, 6, zeros);
  EXPECT_EQ(qor::shared_count(), 0);
  EXPECT_EQ(qor::header(s.get())->chunks->key[0], 0u);
}

TEST_F(ChunksTest, HalfZeroKeysAreShared) {
  const uint64_t low[2] = {1, 0}, high[2] = {0, 1};
  const Stream s(ORVIK_BRNG_MT19937);
  add(s, 5, low);
  add(s, 6, high);
  EXPECT_EQ(references(low), 1u);
  EXPECT_EQ(references(high), 1u);
}

TEST_F(ChunksTest, TwoChunksOfOneKeyShareABlock) {
  void *first = block(), *second = block();
  Stream s(ORVIK_BRNG_MT19937), t(ORVIK_BRNG_MT19937);
  add(s, 9, kKey, first);
  add(t, 9, kKey, second);
  EXPECT_EQ(__qorSearchChunk(t.get(), 9), first);
  orvik_serv_deallocate(second);  // stayed the caller's
  EXPECT_EQ(references(kKey), 2u);
  s = Stream();
  EXPECT_EQ(references(kKey), 1u);
  EXPECT_EQ(__qorSearchChunk(t.get(), 9), first);
  t = Stream();
  EXPECT_EQ(references(kKey), 0u);
}

TEST_F(ChunksTest, CopiesOwnPrivateBlocksAndReferToSharedOnes) {
  Stream s(ORVIK_BRNG_MT19937);
  void *own = block(16, 0x5A), *shared = block(16, 0x77);
  add(s, 5, nullptr, own);
  add(s, 9, kKey, shared);
  const Stream copy = s.copy();
  EXPECT_NE(__qorSearchChunk(copy.get(), 5), own);
  EXPECT_EQ(std::memcmp(__qorSearchChunk(copy.get(), 5), own, 16), 0);
  EXPECT_EQ(__qorSearchChunk(copy.get(), 9), shared);
  EXPECT_EQ(references(kKey), 2u);
  s = Stream();
  EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(copy.get(), 5))[3], 0x5A);
  EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(copy.get(), 9))[3], 0x77);
  EXPECT_EQ(references(kKey), 1u);
}

TEST_F(ChunksTest, CopyingReversesTheOrderOfTheList) {
  const Stream s(ORVIK_BRNG_MT19937);
  for (int32_t id : {1, 2, 3}) add(s, id);
  const Stream copy = s.copy();
  std::vector<uint32_t> ids;
  for (const qor::ChunkNode* node = qor::header(copy.get())->chunks; node; node = node->next) ids.push_back(node->id);
  EXPECT_EQ(ids, (std::vector<uint32_t>{1, 2, 3}));
}

TEST_F(ChunksTest, CopyStreamStateReleasesTheDestinationsChunks) {
  const Stream s(ORVIK_BRNG_MT19937), t(ORVIK_BRNG_MT19937);
  add(t, 5);
  add(t, 9, kKey);
  ASSERT_EQ(__qorCopyStreamState(t.get(), s.get()), 0);
  EXPECT_EQ(__qorGetNumChunks(t.get()), 0);
  EXPECT_EQ(references(kKey), 0u);
}

TEST_F(ChunksTest, StreamSizeCountsEachChunk) {
  const Stream s(ORVIK_BRNG_MT19937);
  add(s, 5, nullptr, block(100), 100);
  add(s, 6, nullptr, block(7), 7);
  EXPECT_EQ(__qorGetStreamSize(s.get()), 2520 + 8 + 124 + 31);
}

TEST_F(ChunksTest, DeletingByIdReleasesTheOneNodeOfThatId) {
  const Stream s(ORVIK_BRNG_MT19937);
  void* stays = block();
  add(s, 5, nullptr, stays);
  add(s, 6);
  ASSERT_EQ(__qorDeleteChunksById(s.get(), 6), 0);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 1);
  EXPECT_EQ(__qorSearchChunk(s.get(), 5), stays);
  ASSERT_EQ(__qorDeleteChunksById(s.get(), 5), 0);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 0);
}

TEST_F(ChunksTest, DeletingByIdKeepsTheListFromItsLastSurvivorOn) {
  const Stream s(ORVIK_BRNG_MT19937);
  for (int32_t id : {1, 2, 3}) add(s, id);  // list: 3 2 1
  qor::ChunkNode* const three = qor::header(s.get())->chunks;
  qor::ChunkNode* const one = three->next->next;
  ASSERT_EQ(__qorDeleteChunksById(s.get(), 2), 0);
  EXPECT_EQ(qor::header(s.get())->chunks, one);
  EXPECT_EQ(three->next, one);  // joined over the removed node
  qor::header(s.get())->chunks = three;
}

TEST_F(ChunksTest, Chunks652LessThoseOfId6Lose5) {
  const Stream s(ORVIK_BRNG_MT19937);
  for (int32_t id : {2, 5, 6}) add(s, id);  // list: 6 5 2
  qor::ChunkNode* const five = qor::header(s.get())->chunks->next;
  ASSERT_EQ(__qorDeleteChunksById(s.get(), 6), 0);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 1);
  EXPECT_EQ(__qorSearchChunk(s.get(), 5), nullptr);
  EXPECT_NE(__qorSearchChunk(s.get(), 2), nullptr);
  qor::header(s.get())->chunks = five;  // 5 still leads to 2
}

TEST_F(ChunksTest, RemovingWithinTheLibraryKeepsEveryOtherChunk) {
  const Stream s(ORVIK_BRNG_MT19937);
  for (int32_t id : {6, 2, 6, 5, 6}) add(s, id);
  qor::remove_chunks(s.get(), 6);
  EXPECT_EQ(__qorGetNumChunks(s.get()), 2);
  EXPECT_NE(__qorSearchChunk(s.get(), 5), nullptr);
  EXPECT_NE(__qorSearchChunk(s.get(), 2), nullptr);
}

TEST_F(ChunksTest, ChunkIsFoundOnlyWithTheBytesThatItsReaderNeeds) {
  const Stream s(ORVIK_BRNG_MT19937);
  add(s, 5, nullptr, block(16), 16);
  EXPECT_NE(qor::find_chunk(s.get(), 5, 16), nullptr);
  EXPECT_EQ(qor::find_chunk(s.get(), 5, 17), nullptr);
  add(s, 5, nullptr, block(8), 8);  // the first of that id decides
  EXPECT_EQ(qor::find_chunk(s.get(), 5, 16), nullptr);
}

TEST_F(ChunksTest, With127EntriesANewKeyedChunkStaysPrivate) {
  const Stream s(ORVIK_BRNG_MT19937);
  for (uint64_t k = 1; k <= 127; ++k) {
    const uint64_t key[2] = {k, 5};
    add(s, 9, key);
  }
  EXPECT_EQ(qor::shared_count(), 127);
  const uint64_t key[2] = {1000, 5}, known[2] = {64, 5};
  add(s, 10, key);
  EXPECT_EQ(qor::header(s.get())->chunks->key[0], 0u);
  EXPECT_EQ(qor::header(s.get())->chunks->key[1], 0u);
  EXPECT_EQ(references(key), 0u);
  void* extra = block();
  add(s, 10, known, extra);  // a known key still binds
  orvik_serv_deallocate(extra);
  EXPECT_EQ(references(known), 2u);
}

TEST_F(ChunksTest, TableTakes128EntriesByDirectCallsAndRefusesThe129th) {
  OrvikSharedEntry* entry = nullptr;
  for (uint64_t k = 1; k <= 128; ++k) {
    const uint64_t key[2] = {k, 6};
    ASSERT_EQ(__qorCreateGlobRODataTableEntry(&entry, key, block()), 0);
    EXPECT_EQ(entry->RefCount, 1u);
    EXPECT_EQ(entry->Key[0], k);
  }
  const uint64_t key[2] = {129, 6};
  EXPECT_EQ(__qorCreateGlobRODataTableEntry(&entry, key, nullptr), ORVIK_QOR_SHARED_TABLE_FULL);
  for (uint64_t k = 1; k <= 128; ++k) {
    const uint64_t used[2] = {k, 6};
    __qorUnregisterGlobRODataReference(used);
    EXPECT_EQ(references(used), 0u);
  }
}

TEST_F(ChunksTest, DirectCallsCountReferences) {
  OrvikSharedEntry* entry = nullptr;
  EXPECT_EQ(__qorFindGlobRODataTableEntry(&entry, nullptr), ORVIK_QOR_SHARED_NOT_FOUND);
  const uint64_t zeros[2] = {0, 0};
  EXPECT_EQ(__qorFindGlobRODataTableEntry(&entry, zeros), ORVIK_QOR_SHARED_NOT_FOUND);
  EXPECT_EQ(__qorFindGlobRODataTableEntry(&entry, kKey), ORVIK_QOR_SHARED_NOT_FOUND);

  OrvikSharedHolder holder = {0, 0, nullptr};
  __qorRegisterGlobRODataReference(&holder, kKey);  // no match changes nothing
  EXPECT_EQ(holder.Data, nullptr);
  void* data = block();
  ASSERT_EQ(__qorCreateGlobRODataTableEntry(&entry, kKey, data), 0);
  __qorRegisterGlobRODataReference(&holder, kKey);
  EXPECT_EQ(holder.Data, data);
  EXPECT_EQ(references(kKey), 2u);
  __qorUnregisterGlobRODataReference(kKey);
  EXPECT_EQ(references(kKey), 1u);
  __qorUnregisterGlobRODataReference(kKey);
  EXPECT_EQ(references(kKey), 0u);
  __qorUnregisterGlobRODataReference(kKey);
}

TEST_F(ChunksTest, RemovingAnEntryMovesTheLastOneIntoItsPlace) {
  OrvikSharedEntry *entry = nullptr, *moved = nullptr;
  uint64_t keys[3][2] = {{1, 7}, {2, 7}, {3, 7}};
  for (auto& key : keys) ASSERT_EQ(__qorCreateGlobRODataTableEntry(&entry, key, block()), 0);
  __qorFindGlobRODataTableEntry(&entry, keys[0]);
  __qorUnregisterGlobRODataReference(keys[0]);
  ASSERT_EQ(__qorFindGlobRODataTableEntry(&moved, keys[2]), 0);
  EXPECT_EQ(moved, entry);
  __qorUnregisterGlobRODataReference(keys[1]);
  __qorUnregisterGlobRODataReference(keys[2]);
}

TEST_F(ChunksTest, GeneratedKeysCarryTheTagAndAreNew) {
  uint64_t first[2] = {}, second[2] = {};
  __qorGenerateNewGlobalRODataTableEntryId(first, 42);
  EXPECT_EQ(first[1], 42u);
  OrvikSharedEntry* entry = nullptr;
  ASSERT_EQ(__qorCreateGlobRODataTableEntry(&entry, first, block()), 0);
  __qorGenerateNewGlobalRODataTableEntryId(second, 42);
  EXPECT_NE(first[0], second[0]);
  uint64_t zero_tag[2] = {};
  __qorGenerateNewGlobalRODataTableEntryId(zero_tag, 0);
  EXPECT_NE(zero_tag[0], 0u);
  __qorUnregisterGlobRODataReference(first);
}

TEST_F(ChunksTest, FailedAllocationsOfAddAndCopyLeakNothing) {
  const Stream s(ORVIK_BRNG_MT19937);
  void* data = block();
  serv::fail_allocation_after(1);
  EXPECT_EQ(__qorAddChunk(s.get(), 5, kKey, data, 16), ORVIK_QOR_NO_MEMORY);
  serv::fail_allocation_after(0);
  EXPECT_EQ(references(kKey), 0u);
  orvik_serv_deallocate(data);

  add(s, 5);
  add(s, 9, kKey);
  add(s, 6);
  for (int64_t n = 1; n <= 6; ++n) {  // record, two private blocks, three nodes
    OrvikStream copy = nullptr;
    serv::fail_allocation_after(n);
    EXPECT_EQ(__qorCopyStream(&copy, s.get()), ORVIK_QOR_NO_MEMORY) << n;
    serv::fail_allocation_after(0);
    EXPECT_EQ(references(kKey), 1u);
    if (copy) {
      EXPECT_EQ(__qorGetNumChunks(copy), 0);
      __qorDeleteStream(&copy);
    }
  }
}

TEST_F(ChunksTest, EmptyBlocksAreCopied) {
  const Stream s(ORVIK_BRNG_MT19937);
  add(s, 5, nullptr, nullptr, 0);
  EXPECT_EQ(__qorGetNumChunks(s.copy().get()), 1);
}

}  // namespace

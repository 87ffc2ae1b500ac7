// Streams copied, restored and deleted from several threads: the shared table is the only thing they have in common.
#include <gtest/gtest.h>

#include <cstring>
#include <thread>

#include "orvik/serv.h"
#include "qor/stream/shared_table.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using namespace orvik;
using orvik::testing::Stream;

constexpr int kThreads = 4;

template <class Body>
void on_threads(Body body) {
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) threads.emplace_back(body, t);
  for (std::thread& t : threads) t.join();
}

void add_shared(const Stream& s, uint64_t key_word, uint8_t fill) {
  const uint64_t key[2] = {key_word, 1};
  void* data = orvik_serv_allocate(64, 128);
  std::memset(data, fill, 64);
  ASSERT_EQ(__qorAddChunk(s.get(), static_cast<int32_t>(100 + key_word), key, data, 64), 0);
  if (__qorSearchChunk(s.get(), static_cast<uint32_t>(100 + key_word)) != data) orvik_serv_deallocate(data);
}

TEST(Threads, CopiesAndDeletionsKeepTheSharedBlocksWhole) {
  const int64_t live = serv::live_allocations();
  {
    const Stream source(ORVIK_BRNG_MCG59, {5});
    add_shared(source, 1, 0x11);
    add_shared(source, 2, 0x22);
    on_threads([&](int) {
      for (int round = 0; round < 300; ++round) {
        const Stream copy = source.copy(), second = copy.copy();
        EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(second.get(), 101))[63], 0x11);
        EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(second.get(), 102))[63], 0x22);
        EXPECT_EQ(copy.outputs(5), second.outputs(5));
      }
    });
    const uint64_t key[2] = {1, 1};
    OrvikSharedEntry* entry = nullptr;
    ASSERT_EQ(__qorFindGlobRODataTableEntry(&entry, key), 0);
    EXPECT_EQ(entry->RefCount, 1u);
  }
  EXPECT_EQ(qor::shared_count(), 0);
  EXPECT_EQ(serv::live_allocations(), live);
}

// All threads create and drop entries of the same keys: who comes first makes the entry, who leaves last frees it.
TEST(Threads, EntriesOfOneKeyComeAndGo) {
  const int64_t live = serv::live_allocations();
  on_threads([](int t) {
    for (int round = 0; round < 300; ++round) {
      const Stream s(ORVIK_BRNG_MT2203 + t);
      const uint64_t word = static_cast<uint64_t>(round % 3);
      add_shared(s, word, static_cast<uint8_t>(word));
      EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(s.get(), static_cast<uint32_t>(100 + word)))[5], word);
    }
  });
  EXPECT_EQ(qor::shared_count(), 0);
  EXPECT_EQ(serv::live_allocations(), live);
}

TEST(Threads, ImagesWithSharedChunksLoadConcurrently) {
  const int64_t live = serv::live_allocations();
  {
    const Stream source(ORVIK_BRNG_PHILOX4X32X10, {5});
    add_shared(source, 7, 0x77);
    std::vector<uint8_t> image(static_cast<size_t>(__qorGetStreamSize(source.get())));
    __qorSaveStreamM(source.get(), image.data());
    on_threads([&](int) {
      for (int round = 0; round < 200; ++round) {
        Stream s;
        ASSERT_EQ(__qorLoadStreamM(s.out(), image.data()), 0);
        EXPECT_EQ(static_cast<uint8_t*>(__qorSearchChunk(s.get(), 107))[5], 0x77);
      }
    });
  }
  EXPECT_EQ(qor::shared_count(), 0);
  EXPECT_EQ(serv::live_allocations(), live);
}

TEST(Threads, StreamsOfDifferentThreadsDoNotInterfere) {
  std::vector<std::vector<double>> got(kThreads);
  on_threads([&](int t) {
    const Stream s(ORVIK_BRNG_MT2203 + t, {9});
    for (int i = 0; i < 50; ++i) got[static_cast<size_t>(t)] = s.doubles(997);
  });
  for (int t = 0; t < kThreads; ++t) {
    const Stream s(ORVIK_BRNG_MT2203 + t, {9});
    s.doubles(49 * 997);
    EXPECT_EQ(got[static_cast<size_t>(t)], s.doubles(997));
  }
}

// A reader that sees a new row's number sees the row.
TEST(Threads, RegistrationIsSeenWhole) {
  RegBrngRow row;
  ASSERT_EQ(__qorGetBrngProperties(ORVIK_BRNG_PHILOX4X32X10, &row), 0);
  std::thread writer([&] {
    for (int i = 0; i < 50; ++i) EXPECT_GT(__qorRegisterBrng(&row), 0);
  });
  while (__qorGetNumRegBrngs() < 66) {
    RegBrngRow seen;
    const int32_t last = __qorGetNumRegBrngs() << 20;
    ASSERT_EQ(__qorGetBrngProperties(last, &seen), 0);
    ASSERT_EQ(seen.iBRng, row.iBRng);
  }
  writer.join();
}

}  // namespace

#include "serv/memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <thread>
#include <vector>

namespace {

using orvik::serv::Block;
using orvik::serv::fail_allocation_after;
using orvik::serv::live_allocations;

TEST(Allocate, BlocksStartOnTheBoundaryAskedFor) {
  for (int32_t alignment : {1, 2, 4, 8, 16, 64, 128, 4096}) {
    for (uint64_t size : {1, 7, 128, 1000, 100000}) {
      void* block = orvik_serv_allocate(size, alignment);
      ASSERT_NE(block, nullptr);
      EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % static_cast<uintptr_t>(alignment), 0u);
      memset(block, 0x5A, size);
      orvik_serv_deallocate(block);
    }
  }
}

TEST(Allocate, NoBytesGiveABlockThatCanBeReleased) {
  void* a = orvik_serv_allocate(0, 128);
  void* b = orvik_serv_allocate(0, 128);
  EXPECT_NE(a, nullptr);
  EXPECT_NE(b, nullptr);
  EXPECT_NE(a, b);
  orvik_serv_deallocate(a);
  orvik_serv_deallocate(b);
}

TEST(Allocate, ExhaustedMemoryGivesNullAndKeepsErrno) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizer's allocator ends the process instead";
#endif
  errno = 5;
  EXPECT_EQ(orvik_serv_allocate(std::numeric_limits<uint64_t>::max() / 2, 128), nullptr);
  EXPECT_EQ(errno, 5);
}

TEST(Deallocate, AcceptsNull) {
  const int64_t before = live_allocations();
  orvik_serv_deallocate(nullptr);
  EXPECT_EQ(live_allocations(), before);
}

TEST(FailureHook, FailsTheNthAllocationAndOnlyThat) {
  for (int64_t n = 1; n <= 4; ++n) {
    fail_allocation_after(n);
    for (int64_t i = 1; i <= 6; ++i) {
      void* block = orvik_serv_allocate(16, 128);
      EXPECT_EQ(block == nullptr, i == n) << "allocation " << i << ", hook at " << n;
      orvik_serv_deallocate(block);
    }
  }
}

TEST(FailureHook, ZeroDisarms) {
  fail_allocation_after(1);
  fail_allocation_after(0);
  void* block = orvik_serv_allocate(16, 128);
  EXPECT_NE(block, nullptr);
  orvik_serv_deallocate(block);
}

TEST(FailureHook, ExactlyOneAllocationOfManyThreadsFails) {
  constexpr int kThreads = 4, kEach = 500;
  fail_allocation_after(777);
  std::vector<int> failures(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      for (int i = 0; i < kEach; ++i) {
        void* block = orvik_serv_allocate(32, 128);
        failures[t] += block == nullptr;
        orvik_serv_deallocate(block);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(failures[0] + failures[1] + failures[2] + failures[3], 1);
}

TEST(LiveAllocations, CountsBlocksNotYetReleased) {
  const int64_t before = live_allocations();
  void* a = orvik_serv_allocate(1, 128);
  void* b = orvik_serv_allocate(1, 128);
  EXPECT_EQ(live_allocations(), before + 2);
  orvik_serv_deallocate(a);
  EXPECT_EQ(live_allocations(), before + 1);
  fail_allocation_after(1);
  EXPECT_EQ(orvik_serv_allocate(1, 128), nullptr);
  EXPECT_EQ(live_allocations(), before + 1);
  orvik_serv_deallocate(b);
  EXPECT_EQ(live_allocations(), before);
}

TEST(BlockOwner, ReleasesAtTheEndOfItsScope) {
  const int64_t before = live_allocations();
  {
    Block<double> block(100);
    ASSERT_TRUE(block);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block.get()) % 128, 0u);
    block[99] = 1.0;
    EXPECT_EQ(live_allocations(), before + 1);
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(BlockOwner, IsNullWhenTheAllocationFails) {
  fail_allocation_after(1);
  Block<float> block(10);
  EXPECT_FALSE(block);
}

TEST(BlockOwner, IsNullWhenTheSizeDoesNotFit) {
  const int64_t before = live_allocations();
  Block<double> block(std::numeric_limits<uint64_t>::max() / 4);
  EXPECT_FALSE(block);
  EXPECT_EQ(live_allocations(), before);
}

TEST(BlockOwner, MovesAndGivesUp) {
  const int64_t before = live_allocations();
  Block<int32_t> a(4);
  int32_t* data = a.get();
  Block<int32_t> b(std::move(a));
  EXPECT_EQ(b.get(), data);
  a = Block<int32_t>(8);
  a = std::move(b);
  EXPECT_EQ(a.get(), data);
  EXPECT_EQ(live_allocations(), before + 1);
  int32_t* raw = a.release();
  EXPECT_FALSE(a);
  orvik_serv_deallocate(raw);
  EXPECT_EQ(live_allocations(), before);
}

TEST(BoundedCopy, CopiesWhatFits) {
  const char source[] = "0123456789";
  char target[8] = {};
  EXPECT_EQ(orvik_serv_memcpy_s(target, 8, source, 8), 0);
  EXPECT_EQ(memcmp(target, source, 8), 0);
  EXPECT_EQ(orvik_serv_memcpy_s(target, 8, source, 0), 0);
}

TEST(BoundedCopy, RefusesWhatDoesNotFitAndCopiesNothing) {
  const char source[] = "0123456789";
  char target[4] = {'a', 'b', 'c', 'd'};
  EXPECT_NE(orvik_serv_memcpy_s(target, 4, source, 5), 0);
  EXPECT_THAT(target, testing::ElementsAre('a', 'b', 'c', 'd'));
}

}  // namespace

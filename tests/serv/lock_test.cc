#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

#include "orvik/serv.h"

namespace {

uint64_t zeroed_word;  // never initialised: a static zero is an open lock

TEST(Lock, AZeroedWordIsOpenAndIsZeroAgainAfterUse) {
  orvik_serv_lock(&zeroed_word);
  EXPECT_NE(zeroed_word, 0u);
  orvik_serv_unlock(&zeroed_word);
  EXPECT_EQ(zeroed_word, 0u);
}

TEST(Lock, ExcludesOtherThreads) {
  constexpr int kThreads = 4, kEach = 20000;
  int64_t plain = 0;  // without the lock a lost update, and a report of the thread sanitizer
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&plain] {
      for (int i = 0; i < kEach; ++i) {
        orvik_serv_lock(&zeroed_word);
        ++plain;
        orvik_serv_unlock(&zeroed_word);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(plain, kThreads * kEach);
  EXPECT_EQ(zeroed_word, 0u);
}

TEST(Lock, AWaiterSleepsUntilTheHolderReleases) {
  uint64_t word = 0;
  std::atomic<int> stage{0};
  orvik_serv_lock(&word);
  std::thread waiter([&] {
    stage = 1;
    orvik_serv_lock(&word);
    stage = 2;
    orvik_serv_unlock(&word);
  });
  while (stage == 0) std::this_thread::yield();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(stage, 1);
  orvik_serv_unlock(&word);
  waiter.join();
  EXPECT_EQ(stage, 2);
}

// All 64 bits are the state: a word of which only the upper half is set is no open lock.
TEST(Lock, AWordWithOnlyItsUpperHalfSetIsTaken) {
  uint64_t word = uint64_t{1} << 32;
  std::atomic<int> stage{0};
  std::thread waiter([&] {
    stage = 1;
    orvik_serv_lock(&word);
    stage = 2;
    orvik_serv_unlock(&word);
  });
  while (stage == 0) std::this_thread::yield();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(stage, 1);
  while (stage == 1) {  // again and again, since the first may come before the waiter has marked the word
    orvik_serv_unlock(&word);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  waiter.join();
  EXPECT_EQ(word, 0u);
}

TEST(Lock, WordsAreIndependent) {
  uint64_t a = 0, b = 0;
  orvik_serv_lock(&a);
  orvik_serv_lock(&b);
  orvik_serv_unlock(&a);
  orvik_serv_unlock(&b);
  EXPECT_EQ(a | b, 0u);
}

}  // namespace

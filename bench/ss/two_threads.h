// Two threads as a caller has them: a second one that is there for the next call. It looks for work for some hundred
// microseconds before it sleeps, as runtimes of parallel loops do.
#pragma once

#include <immintrin.h>

#include <atomic>
#include <thread>

#include "orvik/ss.h"

namespace orvik::bench {

class Helper {
 public:
  using Routine = void (*)(int32_t, int32_t, int32_t, void*);

  Helper() : thread_([this] { work(); }) {}
  ~Helper() {
    give(nullptr, nullptr);
    thread_.join();
  }
  Helper(const Helper&) = delete;
  Helper& operator=(const Helper&) = delete;

  // routine(1) on the other thread, routine(0) on this one.
  void run(Routine routine, void* context) {
    const uint32_t turn = give(routine, context);
    routine(0, 0, 2, context);
    wait_for(done_, turn);
  }

 private:
  uint32_t give(Routine routine, void* context) {
    routine_ = routine, context_ = context;
    const uint32_t turn = given_.load(std::memory_order_relaxed) + 1;
    given_.store(turn, std::memory_order_release);
    given_.notify_one();
    return turn;
  }
  static void wait_for(const std::atomic<uint32_t>& count, uint32_t turn) {
    for (int i = 0; i < 4000; ++i) {
      if (count.load(std::memory_order_acquire) == turn) return;
      _mm_pause();
    }
    for (uint32_t seen; (seen = count.load(std::memory_order_acquire)) != turn;) count.wait(seen);
  }
  void work() {
    for (uint32_t turn = 1;; ++turn) {
      wait_for(given_, turn);
      if (routine_ == nullptr) return;
      routine_(1, 0, 2, context_);
      done_.store(turn, std::memory_order_release);
      done_.notify_one();
    }
  }

  std::atomic<uint32_t> given_{0}, done_{0};
  Routine routine_ = nullptr;
  void* context_ = nullptr;
  std::thread thread_;
};

inline const OrvikThreading* pair_of_threads() {
  static Helper helper;
  static const OrvikThreading table = {[] { return int32_t{2}; },
                                       [](int32_t count, void* context, Helper::Routine routine) {
                                         if (count != 2) return int32_t{-1};
                                         helper.run(routine, context);
                                         return int32_t{0};
                                       }};
  return &table;
}

}  // namespace orvik::bench

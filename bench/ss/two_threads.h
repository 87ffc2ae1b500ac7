// Two threads as a caller has them: a second one that sleeps between calls, not made anew for each.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "orvik/ss.h"

namespace orvik::bench {

class Helper {
 public:
  using Routine = void (*)(int32_t, int32_t, int32_t, void*);

  Helper() : thread_([this] { work(); }) {}
  ~Helper() {
    set(nullptr, nullptr, true);
    thread_.join();
  }
  Helper(const Helper&) = delete;
  Helper& operator=(const Helper&) = delete;

  // routine(1) on the other thread, routine(0) on this one.
  void run(Routine routine, void* context) {
    set(routine, context, false);
    routine(0, 0, 2, context);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return routine_ == nullptr; });
  }

 private:
  void set(Routine routine, void* context, bool end) {
    {
      const std::lock_guard lock(mutex_);
      routine_ = routine, context_ = context, end_ = end;
    }
    changed_.notify_all();
  }
  void work() {
    std::unique_lock lock(mutex_);
    for (;;) {
      changed_.wait(lock, [&] { return routine_ != nullptr || end_; });
      if (end_) return;
      lock.unlock();
      routine_(1, 0, 2, context_);
      lock.lock();
      routine_ = nullptr;
      changed_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  Routine routine_ = nullptr;
  void* context_ = nullptr;
  bool end_ = false;
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

#include <dirent.h>
#include <gtest/gtest.h>
#include <omp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

#include "orvik/serv.h"

namespace {

using Limit = int32_t (*)();
using Body = void (*)(int32_t, void*, void*, void*);
using For = void (*)(int32_t, int32_t, void*, Body);

Limit limit() {
  return reinterpret_cast<Limit>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_get_num_threads_limit"));
}
For parallel_for() { return reinterpret_cast<For>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_for")); }

int threads_of_this_process() {
  int count = 0;
  DIR* directory = opendir("/proc/self/task");
  while (const dirent* entry = readdir(directory)) count += entry->d_name[0] != '.';
  closedir(directory);
  return count;
}

// Restores the number of threads that a test sets.
class ThreadsTest : public testing::Test {
 protected:
  void TearDown() override { omp_set_num_threads(before_); }

 private:
  int before_ = omp_get_max_threads();
};

// Runs first: the thread sanitizer has a thread of its own, hence the comparison.
TEST_F(ThreadsTest, AskingForTheLimitStartsNoThread) {
  const int before = threads_of_this_process();
  omp_set_num_threads(4);
  EXPECT_EQ(limit()(), 4);
  EXPECT_EQ(threads_of_this_process(), before);
}

TEST_F(ThreadsTest, ALoopThatMayUseOneThreadStartsNone) {
  const int before = threads_of_this_process();
  omp_set_num_threads(1);
  std::thread::id ran_by;
  parallel_for()(1, 0, &ran_by, [](int32_t, void*, void*, void* context) {
    *static_cast<std::thread::id*>(context) = std::this_thread::get_id();
  });
  EXPECT_EQ(ran_by, std::this_thread::get_id());
  EXPECT_EQ(threads_of_this_process(), before);
}

TEST_F(ThreadsTest, UnknownNamesGiveNull) {
  EXPECT_EQ(orvik_serv_load_thread_fun("orvik_qor_serv_threader_fork"), nullptr);
  EXPECT_EQ(orvik_serv_load_thread_fun(""), nullptr);
}

TEST_F(ThreadsTest, EveryIndexRunsExactlyOnce) {
  for (int threads : {1, 2, 4}) {
    omp_set_num_threads(threads);
    for (int32_t count : {0, 1, 2, 3, 7, 1000}) {
      std::vector<int> runs(static_cast<size_t>(count));  // plain: each index belongs to one thread
      parallel_for()(count, 0, runs.data(),
                     [](int32_t index, void*, void*, void* context) { ++static_cast<int*>(context)[index]; });
      EXPECT_EQ(runs, std::vector<int>(static_cast<size_t>(count), 1)) << threads << " threads";
    }
  }
}

TEST_F(ThreadsTest, ANegativeCountRunsNothing) {
  int runs = 0;
  parallel_for()(-3, 0, &runs, [](int32_t, void*, void*, void* context) { ++*static_cast<int*>(context); });
  EXPECT_EQ(runs, 0);
}

TEST_F(ThreadsTest, TheLoopUsesSeveralThreadsWhenAllowed) {
  omp_set_num_threads(2);
  // Each of two bodies waits for the other: done by one thread alone this would never end.
  std::atomic<int> arrived{0};
  parallel_for()(2, 0, &arrived, [](int32_t, void*, void*, void* context) {
    auto& count = *static_cast<std::atomic<int>*>(context);
    ++count;
    while (count < 2) std::this_thread::yield();
  });
  EXPECT_EQ(arrived, 2);
}

TEST_F(ThreadsTest, TheLimitFollowsTheRuntimesSettings) {
  for (int threads : {1, 2, 3, 8}) {
    omp_set_num_threads(threads);
    EXPECT_EQ(limit()(), threads);
  }
}

TEST_F(ThreadsTest, InsideALoopTheLimitIsOneAndLoopsRunInline) {
  omp_set_num_threads(2);
  struct Seen {
    int32_t limit;
    int sum;
    bool same_thread;
  };
  std::vector<Seen> seen(4);
  parallel_for()(4, 0, seen.data(), [](int32_t index, void*, void*, void* context) {
    Seen& mine = static_cast<Seen*>(context)[index];
    mine = {limit()(), 0, true};
    struct Inner {
      Seen* seen;
      std::thread::id id;
    } inner{&mine, std::this_thread::get_id()};
    parallel_for()(10, 0, &inner, [](int32_t i, void*, void*, void* argument) {
      auto* from = static_cast<Inner*>(argument);
      from->seen->sum += i;
      from->seen->same_thread &= std::this_thread::get_id() == from->id;
    });
  });
  for (const Seen& one : seen) {
    EXPECT_EQ(one.limit, 1);
    EXPECT_EQ(one.sum, 45);
    EXPECT_TRUE(one.same_thread);
  }
}

TEST_F(ThreadsTest, ResultsOfALoopAreVisibleToTheNext) {
  omp_set_num_threads(4);
  std::vector<int64_t> values(257);
  for (int round = 0; round < 50; ++round) {
    parallel_for()(257, 0, values.data(),
                   [](int32_t index, void*, void*, void* context) { static_cast<int64_t*>(context)[index] += index; });
  }
  for (int64_t i = 0; i < 257; ++i) EXPECT_EQ(values[static_cast<size_t>(i)], 50 * i);
}

TEST_F(ThreadsTest, SeveralThreadsOfTheCallerMayLoopAtOnce) {
  std::vector<std::thread> callers;
  std::vector<int> sums(3);
  for (int c = 0; c < 3; ++c) {
    callers.emplace_back([&sums, c] {
      omp_set_num_threads(2);
      std::atomic<int> sum{0};
      parallel_for()(100, 0, &sum, [](int32_t index, void*, void*, void* context) {
        *static_cast<std::atomic<int>*>(context) += index;
      });
      sums[static_cast<size_t>(c)] = sum;
    });
  }
  for (auto& caller : callers) caller.join();
  EXPECT_EQ(sums, std::vector<int>(3, 4950));
}

TEST_F(ThreadsTest, AForkedChildOfAProcessThatHasLoopedRunsSerially) {
  omp_set_num_threads(2);
  int runs[8] = {};
  const Body count = [](int32_t index, void*, void*, void* context) { ++static_cast<int*>(context)[index]; };
  parallel_for()(8, 0, runs, count);
  const pid_t child = fork();
  if (child == 0) {
    alarm(20);  // the pool's threads are gone in the child: waiting for them would never end
    if (limit()() != 1) _exit(2);
    parallel_for()(8, 0, runs, count);
    for (int one : runs) {
      if (one != 2) _exit(3);
    }
    _exit(0);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status)) << status;
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace

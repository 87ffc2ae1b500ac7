// Parallel loops over OpenMP. The runtime starts its threads at the first loop that uses more than one.
#include <dlfcn.h>
#include <omp.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>

#include "orvik/serv.h"

// The runtime's own hand-over of work is invisible to the thread sanitizer; Loop's atomics repeat it, and the few lines
// that the compiler generates around the parallel region stay out of its sight.
#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ORVIK_UNSEEN_BY_TSAN __attribute__((no_sanitize("thread")))
#endif
#elif defined(__SANITIZE_THREAD__)
#define ORVIK_UNSEEN_BY_TSAN __attribute__((no_sanitize("thread")))
#endif
#ifndef ORVIK_UNSEEN_BY_TSAN
#define ORVIK_UNSEEN_BY_TSAN
#endif

namespace {

using Body = void (*)(int32_t index, void*, void*, void* context);

// The process whose thread pool exists: a forked child inherits the pool's records without its threads.
std::atomic<pid_t> pool_owner{0};

int32_t threads_limit() {
  const pid_t owner = pool_owner.load(std::memory_order_relaxed);
  if (owner != 0 && owner != getpid()) return 1;
  if (omp_get_active_level() >= omp_get_max_active_levels()) return 1;
  return std::max(1, std::min(omp_get_max_threads(), omp_get_thread_limit()));
}

// The pool's threads wait in the runtime's code. A program that unloads this library may unload the runtime with it,
// under the threads' feet, unless it stays for good.
void keep_runtime() {
  Dl_info runtime;
  if (dladdr(reinterpret_cast<void*>(omp_get_max_threads), &runtime) != 0) {
    (void)dlopen(runtime.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
  }
}

struct Loop {
  Loop(int32_t count, void* context, Body body) : count(count), context(context), body(body) {}

  // One thread's share: whatever index is next, until none is left.
  __attribute__((noinline)) void work() {
    (void)started.load(std::memory_order_acquire);
    // 64 bits, since every thread counts one past the end.
    for (int64_t i; (i = next.fetch_add(1, std::memory_order_relaxed)) < count;) {
      body(static_cast<int32_t>(i), nullptr, nullptr, context);
    }
    finished.fetch_add(1, std::memory_order_release);
  }

  const int32_t count;
  void* const context;
  const Body body;
  std::atomic<bool> started{false};
  std::atomic<int64_t> next{0};
  std::atomic<int32_t> finished{0};
};

ORVIK_UNSEEN_BY_TSAN void run_team(Loop* loop, int threads) {
#pragma omp parallel num_threads(threads) default(none) firstprivate(loop)
  loop->work();
}

void parallel_for(int32_t count, int32_t, void* context, Body body) {
  const int32_t threads = std::min(count, threads_limit());
  if (threads < 2) {
    for (int32_t i = 0; i < count; ++i) body(i, nullptr, nullptr, context);
    return;
  }
  if (pool_owner.load(std::memory_order_relaxed) == 0) keep_runtime();
  pool_owner.store(getpid(), std::memory_order_relaxed);
  Loop loop(count, context, body);
  loop.started.store(true, std::memory_order_release);
  run_team(&loop, threads);
  (void)loop.finished.load(std::memory_order_acquire);
}

}  // namespace

extern "C" OrvikServFunction orvik_serv_load_thread_fun(const char* name) {
  if (strcmp(name, "orvik_qor_serv_threader_for") == 0) return reinterpret_cast<OrvikServFunction>(parallel_for);
  if (strcmp(name, "orvik_qor_serv_threader_get_num_threads_limit") == 0) {
    return reinterpret_cast<OrvikServFunction>(threads_limit);
  }
  return nullptr;
}

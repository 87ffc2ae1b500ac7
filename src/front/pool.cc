// Workers wait on a condition; for a moment after a call they watch for the next one, since waking costs more than many
// calls. A call never waits for a worker to wake: what nobody has taken the caller does itself.
#include "front/pool.h"

#include <pthread.h>
#include <sched.h>
#include <signal.h>

#include <atomic>
#include <new>

#include "orvik/front.h"

namespace orvik::front {
namespace {

constexpr int kWatchRounds = 400;  // pauses: some ten microseconds

inline void pause_briefly() { __builtin_ia32_pause(); }

struct Pool {
  pthread_mutex_t call = PTHREAD_MUTEX_INITIALIZER;   // held by the call that has the pool
  pthread_mutex_t state = PTHREAD_MUTEX_INITIALIZER;  // guards what follows, but for the atomics
  pthread_cond_t wake = PTHREAD_COND_INITIALIZER;
  pthread_cond_t done = PTHREAD_COND_INITIALIZER;
  pthread_t workers[kMostThreads - 1];
  int32_t started = 0;
  bool ending = false;
  PoolBody body = nullptr;  // of the open call
  void* context = nullptr;
  int32_t places = 0;               // that workers may still take
  int32_t joined = 0;               // participants so far, the caller among them
  std::atomic<int32_t> working{0};  // workers inside the body
  std::atomic<uint64_t> calls{0};   // opened so far: what a watching worker looks at
};

alignas(Pool) unsigned char storage[sizeof(Pool)];
std::atomic<Pool*> the_pool{nullptr};
pthread_mutex_t making = PTHREAD_MUTEX_INITIALIZER;
std::atomic<int32_t> limit_set{0};
std::atomic<int32_t> processors{0};

void* work(void* argument) {
  Pool& pool = *static_cast<Pool*>(argument);
  uint64_t seen = 0;
  pthread_mutex_lock(&pool.state);
  while (!pool.ending) {
    if (pool.places > 0) {
      --pool.places;
      const PoolBody body = pool.body;
      void* const context = pool.context;
      const int32_t participant = pool.joined++;
      pool.working.fetch_add(1, std::memory_order_relaxed);
      seen = pool.calls.load(std::memory_order_relaxed);
      pthread_mutex_unlock(&pool.state);
      body(context, participant);
      pthread_mutex_lock(&pool.state);
      if (pool.working.fetch_sub(1, std::memory_order_release) == 1) pthread_cond_signal(&pool.done);
      pthread_mutex_unlock(&pool.state);
      for (int k = 0; k < kWatchRounds && pool.calls.load(std::memory_order_relaxed) == seen; ++k) pause_briefly();
      pthread_mutex_lock(&pool.state);
    } else {
      pthread_cond_wait(&pool.wake, &pool.state);
    }
  }
  pthread_mutex_unlock(&pool.state);
  return nullptr;
}

// The child of a fork has no workers and begins anew.
void forget() {
  the_pool.store(nullptr, std::memory_order_relaxed);
  new (&making) pthread_mutex_t(PTHREAD_MUTEX_INITIALIZER);
}

Pool* get() {
  Pool* pool = the_pool.load(std::memory_order_acquire);
  if (pool != nullptr) return pool;
  static bool watching_forks = false;
  pthread_mutex_lock(&making);
  pool = the_pool.load(std::memory_order_relaxed);
  if (pool == nullptr && (watching_forks || pthread_atfork(nullptr, nullptr, forget) == 0)) {
    watching_forks = true;
    pool = new (storage) Pool;
    the_pool.store(pool, std::memory_order_release);
  }
  pthread_mutex_unlock(&making);
  return pool;
}

// Starts workers up to the number that is missing; signals stay with the program's own threads.
void start(Pool& pool, int32_t wanted) {
  if (pool.started >= wanted) return;
  sigset_t all, before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  while (pool.started < wanted && pthread_create(&pool.workers[pool.started], nullptr, work, &pool) == 0)
    ++pool.started;
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

[[gnu::destructor]] void end() {
  Pool* const pool = the_pool.load(std::memory_order_acquire);
  if (pool == nullptr) return;
  pthread_mutex_lock(&pool->call);  // also against a call that a thread of the program is still in
  pthread_mutex_lock(&pool->state);
  pool->ending = true;
  pthread_cond_broadcast(&pool->wake);
  pthread_mutex_unlock(&pool->state);
  for (int32_t k = 0; k < pool->started; ++k) pthread_join(pool->workers[k], nullptr);
  pool->started = 0;
}

int32_t count_processors() {
  cpu_set_t set;
  CPU_ZERO(&set);
  if (sched_getaffinity(0, sizeof set, &set) != 0) return 1;
  const int count = CPU_COUNT(&set);
  return count < 1 ? 1 : count > kMostThreads ? kMostThreads : count;
}

}  // namespace

int32_t thread_limit() {
  if (const int32_t set = limit_set.load(std::memory_order_relaxed); set > 0) return set;
  int32_t count = processors.load(std::memory_order_relaxed);
  if (count == 0) processors.store(count = count_processors(), std::memory_order_relaxed);
  return count;
}

void run_in_pool(int32_t threads, PoolBody body, void* context) {
  Pool* const pool = threads > 1 ? get() : nullptr;
  if (pool == nullptr || pthread_mutex_trylock(&pool->call) != 0) return body(context, 0);
  pthread_mutex_lock(&pool->state);
  if (pool->ending) {  // the process is on its way out
    pthread_mutex_unlock(&pool->state);
    pthread_mutex_unlock(&pool->call);
    return body(context, 0);
  }
  start(*pool, threads - 1);
  pool->body = body;
  pool->context = context;
  pool->joined = 1;
  pool->places = pool->started < threads - 1 ? pool->started : threads - 1;
  pool->calls.fetch_add(1, std::memory_order_relaxed);
  const int32_t woken = pool->places;
  pthread_mutex_unlock(&pool->state);
  if (woken == 1) {
    pthread_cond_signal(&pool->wake);
  } else if (woken > 1) {
    pthread_cond_broadcast(&pool->wake);
  }
  body(context, 0);
  pthread_mutex_lock(&pool->state);
  pool->places = 0;  // whoever wakes now is too late
  pthread_mutex_unlock(&pool->state);
  for (int k = 0; k < kWatchRounds && pool->working.load(std::memory_order_acquire) != 0; ++k) pause_briefly();
  pthread_mutex_lock(&pool->state);
  while (pool->working.load(std::memory_order_relaxed) != 0) pthread_cond_wait(&pool->done, &pool->state);
  pthread_mutex_unlock(&pool->state);
  pthread_mutex_unlock(&pool->call);
}

}  // namespace orvik::front

extern "C" {

orvik_status orvik_set_num_threads(int32_t threads) {
  if (threads < 0) return ORVIK_ERROR_BAD_PARAMETER;
  const int32_t most = orvik::front::kMostThreads;
  orvik::front::limit_set.store(threads < most ? threads : most, std::memory_order_relaxed);
  return ORVIK_SUCCESS;
}

int32_t orvik_get_num_threads(void) { return orvik::front::thread_limit(); }

}  // extern "C"

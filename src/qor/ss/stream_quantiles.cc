// Quantiles of a stream: the state of each variable, blocks in, quantiles out.
#include <algorithm>
#include <limits>

#include "orvik/serv.h"
#include "orvik/ss.h"
#include "qor/ss/by_variable.h"
#include "qor/ss/stream_state.h"
#include "qor/ss/task.h"

namespace orvik::ss {

namespace {

// What a variable needs for a block, made before the first value is fed: a failure leaves no trace.
template <class T>
class Reservation {
 public:
  // Levels and work area for `n` more values. The area grows with what comes: to twice its room or more, so that many
  // short blocks seldom move it. False when memory is exhausted.
  bool reserve(const StreamVariable& v, double epsilon, int64_t n) {
    const int64_t seen = v.seen(), last = level_of(epsilon, seen + n - 1);
    last_ = last;
    first_ = v.levels == nullptr ? 0 : v.currentLevel;
    const bool same = v.levels != nullptr && last == v.currentLevel;
    if (same && v.levels[last].count + n <= v.levels[last].room.values) return true;
    levels_ = static_cast<StreamLevel*>(
        orvik_serv_allocate(sizeof(StreamLevel) * static_cast<uint64_t>(last + 1), serv::kAlignment));
    if (levels_ == nullptr) return false;
    for (int64_t k = 0; k <= last; ++k) levels_[k] = {LevelShape(epsilon, k), LevelRoom(), 0, 0, nullptr, nullptr};
    if (v.levelCount > 0) std::copy(v.levels, v.levels + v.levelCount, levels_);
    // The levels that end within the block use the area of the last one.
    uint64_t bytes = 0;
    for (int64_t k = first_; k <= last; ++k) {
      StreamLevel& level = levels_[k];
      const int64_t length = level.shape.end - level.shape.begin;
      int64_t values = std::min(length, seen + n - level.shape.begin);
      if (same) values = std::max(values, std::min(length, 2 * level.room.values));
      level.room = LevelRoom(level.shape, values);
      bytes = std::max(bytes, level.room.bytes(level.shape, sizeof(T)));
    }
    for (int64_t k = first_; k < last; ++k) {
      levels_[k].summary =
          orvik_serv_allocate(sizeof(Ranked<T>) * static_cast<uint64_t>(levels_[k].shape.keep), serv::kAlignment);
      if (levels_[k].summary == nullptr) return false;
    }
    work_ = orvik_serv_allocate(bytes, serv::kAlignment);
    return work_ != nullptr;
  }

  // Puts the reserved levels in the variable's place.
  void commit(StreamVariable* v, double epsilon) {
    v->epsilon = epsilon;
    if (levels_ == nullptr) return;
    const LevelShape& shape = levels_[first_].shape;
    LevelWork<T> fresh(shape, levels_[first_].room, work_);
    if (v->levels == nullptr) {
      fresh.clear();
    } else {
      fresh.copy_from(LevelWork<T>(shape, v->levels[first_].room, v->levels[first_].work));
      orvik_serv_deallocate(v->levels[first_].work);
      orvik_serv_deallocate(v->levels);
    }
    levels_[first_].work = work_;
    v->levels = levels_;
    v->levelCount = last_ + 1;
    v->currentLevel = first_;
  }

  void release() {
    for (int64_t k = first_; levels_ != nullptr && k < last_; ++k) orvik_serv_deallocate(levels_[k].summary);
    orvik_serv_deallocate(levels_);
    orvik_serv_deallocate(work_);
  }

 private:
  StreamLevel* levels_ = nullptr;
  void* work_ = nullptr;
  int64_t first_ = 0, last_ = 0;
};

template <class T>
void feed(StreamVariable* v, int64_t n, const T* x, int64_t step) {
  while (n > 0) {
    StreamLevel* level = v->levels + v->currentLevel;
    const LevelShape& shape = level->shape;
    LevelWork<T> work(shape, level->room, level->work);
    if (level->count == shape.end - shape.begin) {
      level->used = work.finish(static_cast<Ranked<T>*>(level->summary));
      StreamLevel* next = level + 1;
      next->work = level->work;
      level->work = nullptr;
      ++v->currentLevel;
      LevelWork<T>(next->shape, next->room, next->work).clear();
      continue;
    }
    const int64_t m = std::min(n, shape.end - shape.begin - level->count);
    work.feed(m, x, step);
    level->count += m;
    x += m * step;
    n -= m;
  }
}

// Entries that a query has to look at once `observations` values have come.
int64_t query_entries(double epsilon, int64_t observations) {
  const int64_t last = level_of(epsilon, observations - 1);
  const LevelShape shape(epsilon, last);
  int64_t entries = LevelRoom(shape, observations - shape.begin).entries(shape);
  for (int64_t k = 0; k < last; ++k) entries += LevelShape(epsilon, k).keep;
  return entries;
}

template <class T>
void query(const StreamVariable& v, Ranked<T>* scratch, int64_t count, const T* orders, T* results) {
  int64_t n = 0, seen = 0;
  for (int64_t k = 0; k <= v.currentLevel; ++k) {
    const StreamLevel& level = v.levels[k];
    seen += level.count;
    if (level.work != nullptr) {
      n += LevelWork<T>(level.shape, level.room, level.work).gather(scratch + n);
    } else {
      n += append_pieces(static_cast<const Ranked<T>*>(level.summary), level.used, level.count, scratch + n);
    }
  }
  rank_entries(n, scratch);
  const auto total = static_cast<double>(seen);
  for (int64_t k = 0; k < count; ++k) {
    const double rank = std::clamp(static_cast<double>(orders[k]) * total, 1.0, total);
    results[k] = nearest(scratch, n, rank).value;
  }
}

int32_t check(const Task& task, int64_t* n) {
  if (task.observationCount == nullptr || (*n = task.integer(task.observationCount)) < 0) return kBadCount;
  if (*n > 0) {
    if (task.observations == nullptr) return missing_field::observations;
    if (const int32_t status = check_storage(task); status != kDone) return status;
  }
  if (task.streamQuantiles == nullptr) return missing_field::streamQuantiles;
  if (task.streamOrders == nullptr) return missing_field::streamOrders;
  if (task.streamOrderCount == nullptr || task.integer(task.streamOrderCount) < 0) return kBadStreamOrders;
  if (task.streamParameterCount == nullptr) return kNoStreamParameterCount;
  return task.integer(task.streamParameterCount) != 1 ? kBadStreamParameterCount : kDone;
}

template <class T>
int32_t stream_quantiles(OrvikSSTask handle, const OrvikThreading* threading) {
  if (handle == nullptr) return kNoTask;
  Task& task = *static_cast<Task*>(handle);
  int64_t n;
  if (const int32_t status = check(task, &n); status != kDone) return status;
  const int64_t count = task.integer(task.streamOrderCount);
  const T* orders = real<T>(task.streamOrders);
  if (!std::all_of(orders, orders + count, [](T q) { return q >= 0 && q <= 1; })) return kBadStreamOrders;
  if (task.streamParameters == nullptr) return missing_field::streamParameters;
  const auto wanted = static_cast<double>(*real<T>(task.streamParameters));
  if (!(wanted > 0 && wanted <= 1)) return kBadEpsilon;

  const Data<T> d = data_of<T>(task);
  serv::Block<StreamVariable> fresh;
  StreamVariable* state = task.streamState;
  const int64_t held = state == nullptr ? 0 : task.streamVariables;
  if (held < d.p) {
    fresh = serv::Block<StreamVariable>(static_cast<uint64_t>(d.p));
    if (!fresh) return kNoMemory;
    std::fill(std::copy(state, state + held, fresh.get()), fresh.get() + d.p, StreamVariable{});
    state = fresh.get();
  }
  auto epsilon_of = [&](int64_t j) { return state[j].epsilon != 0 ? state[j].epsilon : wanted; };

  // Everything that can fail comes before the first value: the scratch of the queries, then each variable's levels.
  const int32_t threads = static_cast<int32_t>(std::max<int64_t>(1, std::min<int64_t>(max_threads(threading), d.p)));
  int64_t entries = 0;
  for (int64_t j = 0; j < d.p; ++j) {
    const int64_t total = state[j].seen() + (d.selected(j) ? n : 0);
    if (total > 0) entries = std::max(entries, query_entries(epsilon_of(j), total));
  }
  const serv::Block<Ranked<T>> scratch(static_cast<uint64_t>(threads * entries));
  if (!scratch) return kNoMemory;
  if (n > 0) {
    const serv::Block<Reservation<T>> reserved(static_cast<uint64_t>(d.p));
    if (!reserved) return kNoMemory;
    bool complete = true;
    for (int64_t j = 0; j < d.p; ++j) {
      auto* r = new (reserved.get() + j) Reservation<T>;
      if (d.selected(j)) complete = complete && r->reserve(state[j], epsilon_of(j), n);
    }
    for (int64_t j = 0; j < d.p; ++j) {
      if (!d.selected(j)) continue;
      complete ? reserved[static_cast<uint64_t>(j)].commit(state + j, epsilon_of(j))
               : reserved[static_cast<uint64_t>(j)].release();
    }
    if (!complete) return kNoMemory;
  }
  if (fresh) {
    orvik_serv_deallocate(task.streamState);
    task.streamState = fresh.release();
    task.streamVariables = d.p;
  }

  return run_threads(threading, threads, [&](int32_t thread) {
    for (int64_t j = d.p * thread / threads; j < d.p * (thread + 1) / threads; ++j) {
      if (!d.selected(j)) continue;
      if (n > 0) feed(state + j, n, d.x + j * d.variable_step(), d.observation_step());
      T* results = real<T>(task.streamQuantiles) + j * count;
      if (state[j].levels == nullptr) {
        std::fill(results, results + count, std::numeric_limits<T>::quiet_NaN());
      } else {
        query(state[j], scratch.get() + thread * entries, count, orders, results);
      }
    }
    return int32_t{kDone};
  });
}

int32_t free_buffers(OrvikSSTask handle) {
  if (handle == nullptr) return kNoTask;
  Task& task = *static_cast<Task*>(handle);
  release_streams(task.streamState, task.streamVariables);
  task.streamState = nullptr;
  return kDone;
}

}  // namespace

void release_streams(StreamVariable* state, int64_t p) {
  if (state == nullptr) return;
  for (int64_t j = 0; j < p; ++j) {
    const StreamVariable& v = state[j];
    for (int64_t k = 0; k < v.levelCount; ++k) {
      orvik_serv_deallocate(v.levels[k].summary);
      orvik_serv_deallocate(v.levels[k].work);
    }
    orvik_serv_deallocate(v.levels);
  }
  orvik_serv_deallocate(state);
}

}  // namespace orvik::ss

extern "C" {
int32_t _qordSSStreamQuantiles(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::stream_quantiles<double>(task, threading);
}
int32_t _qorsSSStreamQuantiles(OrvikSSTask task, uint64_t, uint64_t, const OrvikThreading* threading) {
  return orvik::ss::stream_quantiles<float>(task, threading);
}
int32_t __qorSQuantilesFreeBuffers(OrvikSSTask task) { return orvik::ss::free_buffers(task); }
}

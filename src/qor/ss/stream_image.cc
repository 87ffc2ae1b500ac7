// Images of what a task keeps of its streams: words of 64 bits and values, variable by variable. The sizes of levels
// follow from epsilon and the number of values, so that an image holds little that could contradict itself.
#include <algorithm>
#include <cstring>

#include "orvik/qor.h"
#include "orvik/serv.h"
#include "orvik/ss.h"
#include "qor/ss/status.h"
#include "qor/ss/stream_state.h"
#include "qor/ss/task.h"
#include "serv/memory.h"

namespace orvik::ss {
namespace {

constexpr int64_t kMostValues = int64_t{1} << 62;

// Counts bytes, and writes them where there is memory.
class Writer {
 public:
  explicit Writer(void* memory) : memory_(static_cast<char*>(memory)) {}
  int64_t size() const { return static_cast<int64_t>(size_); }
  void put(const void* data, uint64_t bytes) {
    if (memory_ != nullptr && bytes > 0) std::memcpy(memory_ + size_, data, bytes);
    size_ += bytes;
  }
  template <class N>
  void put(N number) {
    put(&number, sizeof number);
  }
  // Without the bytes between the value and the ranks.
  template <class T>
  void put_summary(const Ranked<T>* entries, int64_t used) {
    put(used);
    for (int64_t i = 0; i < used; ++i) put(entries[i].value), put(entries[i].min), put(entries[i].max);
  }

 private:
  char* memory_;
  uint64_t size_ = 0;
};

template <class T>
void write(const StreamVariable& v, Writer& to) {
  to.put(v.epsilon);
  to.put(v.seen());
  for (int64_t k = 0; k < v.levelCount && k <= v.currentLevel; ++k) {
    const StreamLevel& level = v.levels[k];
    if (level.work == nullptr) {
      to.put_summary(static_cast<const Ranked<T>*>(level.summary), level.used);
      continue;
    }
    const LevelWork<T> work(level.shape, level.room, level.work);
    to.put(work.buffer(), static_cast<uint64_t>(work.filled()) * sizeof(T));
    const int64_t heights = LevelRoom(level.shape, level.count).heights;
    for (int64_t height = 0; height < heights; ++height) to.put_summary(work.summary(height), work.used(height));
  }
}

// Whether entries may be those of a summary of `total` values: ascending, with ranks that ascend and lie among these.
// (Of equal values that were sorted into each other's places the greatest rank may be below the least.)
template <class T>
bool sound(const Ranked<T>* entries, int64_t used, int64_t total) {
  for (int64_t i = 0; i < used; ++i) {
    const Ranked<T>& e = entries[i];
    if (e.min < 1 || e.min > total || e.max < 1 || e.max > total) return false;
    if (i > 0 && (e < entries[i - 1] || e.min < entries[i - 1].min || e.max < entries[i - 1].max)) return false;
  }
  return true;
}

// Reads what a writer wrote; nothing that it says is believed.
class Reader {
 public:
  Reader(const void* memory, int64_t size)
      : at_(static_cast<const char*>(memory)), left_(static_cast<uint64_t>(size)) {}
  bool ended() const { return left_ == 0; }
  bool holds(int64_t count, uint64_t bytes) const { return static_cast<uint64_t>(count) <= left_ / bytes; }
  bool take(void* data, uint64_t bytes) {
    if (bytes > left_) return false;
    if (bytes > 0) std::memcpy(data, at_, bytes);
    at_ += bytes;
    left_ -= bytes;
    return true;
  }
  template <class N>
  bool take(N* number) {
    return take(number, sizeof *number);
  }
  // How many entries follow, and whether the image holds as many and a summary may.
  template <class T>
  bool take_count(const LevelShape& shape, int64_t* used) {
    return take(used) && *used >= 1 && *used <= shape.keep && holds(*used, sizeof(T) + 2 * sizeof(int64_t));
  }
  template <class T>
  bool take_entries(Ranked<T>* entries, int64_t used, int64_t total) {
    for (int64_t i = 0; i < used; ++i) {
      if (!take(&entries[i].value) || !take(&entries[i].min) || !take(&entries[i].max)) return false;
    }
    return sound(entries, used, total);
  }

 private:
  const char* at_;
  uint64_t left_;
};

template <class T>
Ranked<T>* new_summary(int64_t entries) {
  return static_cast<Ranked<T>*>(
      orvik_serv_allocate(sizeof(Ranked<T>) * static_cast<uint64_t>(entries), serv::kAlignment));
}

constexpr int32_t kDamaged = ORVIK_QOR_IMAGE_BAD_FORMAT;

// A level whose values have all come.
template <class T>
int32_t read_finished(Reader& from, StreamLevel* level) {
  level->count = level->shape.end - level->shape.begin;
  if (!from.take_count<T>(level->shape, &level->used)) return kDamaged;
  auto* const summary = new_summary<T>(level->used);
  if (summary == nullptr) return kNoMemory;
  level->summary = summary;
  return from.take_entries(summary, level->used, level->count) ? kDone : kDamaged;
}

// The level that values still come to. Its full buffers were added up as a binary counter.
template <class T>
int32_t read_current(Reader& from, StreamLevel* level, int64_t count) {
  const LevelShape& shape = level->shape;
  const int64_t full = count / shape.capacity, filled = count % shape.capacity;
  if (!from.holds(filled, sizeof(T))) return kDamaged;
  level->count = count;
  level->room = LevelRoom(shape, count);
  level->work = orvik_serv_allocate(level->room.bytes(shape, sizeof(T)), serv::kAlignment);
  if (level->work == nullptr) return kNoMemory;
  LevelWork<T> work(shape, level->room, level->work);
  work.clear();
  work.filled() = filled;
  if (!from.take(work.buffer(), static_cast<uint64_t>(filled) * sizeof(T))) return kDamaged;
  for (int64_t height = 0; height < level->room.heights; ++height) {
    int64_t used;
    if ((full >> height & 1) == 0) {
      if (!from.take(&used) || used != 0) return kDamaged;
      continue;
    }
    if (!from.take_count<T>(shape, &used)) return kDamaged;
    if (!from.take_entries(work.summary(height), used, shape.capacity << height)) return kDamaged;
    work.used(height) = used;
  }
  return kDone;
}

// What was made so far hangs on the variable, whatever the status.
template <class T>
int32_t read(Reader& from, StreamVariable* v) {
  int64_t seen;
  if (!from.take(&v->epsilon) || !from.take(&seen) || seen < 0 || seen > kMostValues) return kDamaged;
  if (seen == 0) return v->epsilon == 0 ? kDone : kDamaged;
  if (!(v->epsilon > 0 && v->epsilon <= 1)) return kDamaged;
  const int64_t last = level_of(v->epsilon, seen - 1);
  v->levels = static_cast<StreamLevel*>(
      orvik_serv_allocate(sizeof(StreamLevel) * static_cast<uint64_t>(last + 1), serv::kAlignment));
  if (v->levels == nullptr) return kNoMemory;
  v->levelCount = last + 1;
  v->currentLevel = last;
  for (int64_t k = 0; k <= last; ++k) v->levels[k] = {LevelShape(v->epsilon, k), LevelRoom(), 0, 0, nullptr, nullptr};
  for (int64_t k = 0; k < last; ++k) {
    if (const int32_t status = read_finished<T>(from, v->levels + k); status != kDone) return status;
  }
  return read_current<T>(from, v->levels + last, seen - v->levels[last].shape.begin);
}

template <class T>
int32_t save(OrvikSSTask handle, void* memory, int64_t* size) {
  if (handle == nullptr) return kNoTask;
  const Task& task = *static_cast<const Task*>(handle);
  if (size == nullptr) return kBadCount;
  const auto write_all = [&](Writer to) {
    const int64_t variables = task.streamState != nullptr ? task.streamVariables : 0;
    to.put(variables);
    for (int64_t j = 0; j < variables; ++j) write<T>(task.streamState[j], to);
    return to.size();
  };
  const int64_t needed = write_all(Writer(nullptr));
  if (memory != nullptr) {
    if (*size < needed) return kBadCount;
    write_all(Writer(memory));
  }
  *size = needed;
  return kDone;
}

template <class T>
int32_t load(OrvikSSTask handle, const void* memory, int64_t size) {
  if (handle == nullptr) return kNoTask;
  Task& task = *static_cast<Task*>(handle);
  const int64_t p = task.p();
  if (memory == nullptr || size < 0) return kDamaged;
  Reader from(memory, size);
  int64_t variables;
  if (!from.take(&variables)) return kDamaged;
  StreamVariable* state = nullptr;
  if (variables != 0) {
    if (variables != p || !from.holds(p, 2 * sizeof(int64_t))) return kDamaged;
    serv::Block<StreamVariable> fresh(static_cast<uint64_t>(p));
    if (!fresh) return kNoMemory;
    std::fill(fresh.get(), fresh.get() + p, StreamVariable{});
    state = fresh.release();
  }
  int32_t status = kDone;
  for (int64_t j = 0; j < variables && status == kDone; ++j) status = read<T>(from, state + j);
  if (status == kDone && !from.ended()) status = kDamaged;
  if (status != kDone) {
    release_streams(state, p);
    return status;
  }
  release_streams(task.streamState, task.streamVariables);
  task.streamState = state;
  task.streamVariables = variables;
  return kDone;
}

}  // namespace
}  // namespace orvik::ss

extern "C" {
int32_t orvik_ss_d_save_streams(OrvikSSTask task, void* memory, int64_t* size) {
  return orvik::ss::save<double>(task, memory, size);
}
int32_t orvik_ss_s_save_streams(OrvikSSTask task, void* memory, int64_t* size) {
  return orvik::ss::save<float>(task, memory, size);
}
int32_t orvik_ss_d_load_streams(OrvikSSTask task, const void* memory, int64_t size) {
  return orvik::ss::load<double>(task, memory, size);
}
int32_t orvik_ss_s_load_streams(OrvikSSTask task, const void* memory, int64_t size) {
  return orvik::ss::load<float>(task, memory, size);
}
}

// A bounded summary of a stream of values from which every rank can be told within epsilon n (Zhang, Wang 2007).
//
// The stream is cut into levels, each twice as long as the one before: level k has 2^k / epsilon values. Within a
// level, full buffers of `capacity` values are cut to summaries of `keep` entries, and two summaries of one height are
// merged into one of the next, as a binary counter adds. A cut to B + 1 entries costs N / (2 B) in rank. With L =
// log2(epsilon length) + 2 and capacity L / epsilon, all cuts of a level together cost at most epsilon times its
// length. A finished level leaves one summary; a query looks at those of all levels and at what the current one holds.
#pragma once

#include <cstdint>

#include "qor/ss/sort.h"

namespace orvik::ss {

// A value whose rank within its summary is known to lie in [min, max], counted from 1.
template <class T>
struct Ranked {
  T value;
  int64_t min, max;
  // NaNs last.
  bool operator<(const Ranked& other) const {
    return value < other.value || (value == value && other.value != other.value);
  }
};

// Sizes of a level, all from epsilon and its index.
struct LevelShape {
  int64_t begin = 0, end = 0;  // observations
  int64_t capacity = 0;        // values of a buffer
  int64_t keep = 0;            // entries of a summary
  int64_t heights = 0;         // of the binary counter; 0: one buffer holds the level

  LevelShape() = default;
  LevelShape(double epsilon, int64_t level);
};

// What a level needs for a number of values, which may be far below its length.
struct LevelRoom {
  int64_t values = 0;
  int64_t buffer = 0;   // values of the buffer
  int64_t heights = 0;  // of the binary counter

  LevelRoom() = default;
  LevelRoom(const LevelShape& shape, int64_t values);
  // Entries that the level can hold at once, its buffer included.
  int64_t entries(const LevelShape& shape) const { return buffer + heights * shape.keep; }
  uint64_t bytes(const LevelShape& shape, uint64_t value_size) const;
};

// The level of the observation with this index.
int64_t level_of(double epsilon, int64_t observation);

// Work area of the current level.
template <class T>
class LevelWork {
 public:
  // The area has room.bytes(shape, sizeof(T)) bytes.
  LevelWork(const LevelShape& shape, const LevelRoom& room, void* area);
  // Starts a level.
  void clear();
  // Takes over a level of the same shape and no more room from another area.
  void copy_from(const LevelWork& other);

  // Feeds values `step` apart, no more than there is room for.
  void feed(int64_t n, const T* x, int64_t step);
  // Copies all entries, summary after summary, as pieces for rank_entries. Returns their number.
  int64_t gather(Ranked<T>* out) const;
  // Leaves one summary of the level; returns its number of entries.
  int64_t finish(Ranked<T>* out);

  // What the area holds: values in the buffer, and the entries of the summary at a height.
  int64_t& filled() const { return *filled_; }
  T* buffer() const { return buffer_; }
  int64_t& used(int64_t height) const { return used_[height]; }
  Ranked<T>* summary(int64_t height) const { return summaries_ + height * shape_.keep; }

 private:
  void flush();

  LevelShape shape_;
  LevelRoom room_;
  int64_t* filled_;  // values in the buffer
  int64_t* used_;    // entries by height
  T* buffer_;
  Ranked<T>* summaries_;
  Ranked<T>* scratch_;  // as many entries as the level holds, and those of three summaries for a merge
};

// Appends a summary as pieces: each entry with what it adds to the rank bounds of the entries behind it.
template <class T>
int64_t append_pieces(const Ranked<T>* summary, int64_t used, int64_t total, Ranked<T>* out);

// Turns pieces of several summaries into one summary of all.
template <class T>
void rank_entries(int64_t n, Ranked<T>* pieces);

// The entry whose rank is nearest to `rank`.
template <class T>
const Ranked<T>& nearest(const Ranked<T>* summary, int64_t used, double rank);

}  // namespace orvik::ss

// The words that NumPy's generators draw from a stream, one at a time: drawn by blocks, yet the stream can always be
// had as if only those handed out had been drawn.
#pragma once

#include <cstdint>

#include "orvik/front.h"

namespace orvik::python {

class Words {
 public:
  // Takes the stream over.
  explicit Words(orvik_stream* stream) : stream_(stream) {}
  ~Words();
  Words(const Words&) = delete;
  Words& operator=(const Words&) = delete;

  uint32_t next() {
    if (next_ == end_) refill();
    return block_[next_++];
  }

  // The stream at the place behind the last word that was handed out; nothing is held back any more.
  orvik_stream* settle();
  // Another stream from here on.
  void replace(orvik_stream* stream);
  // The stream for another owner, and none here any more: what is drawn from then on fails.
  orvik_stream* release();
  // The first failure of the generator, 0 while there was none; what has been handed out since is no stream's.
  orvik_status failure() const { return failure_; }

 private:
  static constexpr int32_t kFirst = 64, kMost = 4096;
  void refill();
  void drop();
  void fail(orvik_status status);

  orvik_stream* stream_;
  orvik_stream* before_ = nullptr;  // the stream as it was before the block
  int32_t next_ = 0, end_ = 0, size_ = kFirst;
  orvik_status failure_ = 0;
  uint64_t stand_in_ = 0;
  uint32_t block_[kMost];
};

}  // namespace orvik::python

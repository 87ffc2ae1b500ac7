#ifndef ORVIK_EXAMPLES_TOUR_STREAM_H
#define ORVIK_EXAMPLES_TOUR_STREAM_H

#include <orvik/qor.h>

namespace tour {

// A stream that deletes itself.
class Stream {
 public:
  // `seed`: of generators of points, the dimension.
  Stream(int32_t brng, uint32_t seed) { ok_ = __qorNewStreamEx(&stream_, brng, 1, &seed) == 0; }
  ~Stream() {
    if (stream_) __qorDeleteStream(&stream_);
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  bool ok() const { return ok_; }
  OrvikStream get() const { return stream_; }

 private:
  OrvikStream stream_ = nullptr;
  bool ok_;
};

}  // namespace tour

#endif

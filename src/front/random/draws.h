// One draw: checks, pieces that the kernels can count, and the split of a request over threads.
#pragma once

#include <climits>
#include <cmath>
#include <initializer_list>

#include "front/math/extents.h"
#include "front/modes.h"
#include "front/pool.h"
#include "front/processor.h"
#include "front/random/stream.h"
#include "orvik/qor.h"

namespace orvik::front {

// A multiple of every block of the distributions.
inline constexpr int64_t kMostNumbers = int64_t{1} << 30;

// A run of the kernel over n numbers, which may be more than it can count. `room`: numbers written for one drawn.
template <class T, class Draw>
orvik_status draw_all(OrvikStream stream, int64_t n, T* r, int64_t room, const Draw& draw) {
  orvik_status last = ORVIK_SUCCESS;
  const int64_t most = room < kMostNumbers ? kMostNumbers / room : 1;
  while (n > 0) {
    const auto part = static_cast<int32_t>(n < most ? n : most);
    const orvik_status status = draw(stream, part, r);
    if (status < 0) return status;
    if (status > 0) last = status;
    r += part * room;
    n -= part;
  }
  return last;
}

struct Request {
  orvik_stream* handle;
  int64_t n;
  bool valid;        // the parameters
  int64_t room = 1;  // numbers written for one drawn
};

// The checks of every draw, in their order. kProceed: there is something to do.
inline constexpr orvik_status kProceed = INT32_MAX;
orvik_status check(const Request& q, const void* r, int32_t bytes, OrvikStream* stream);

template <class T, class Draw>
orvik_status draw(const Request& q, T* r, const Draw& kernel) {
  OrvikStream stream;
  if (const orvik_status status = check(q, r, sizeof(T), &stream); status != kProceed) return status;
  const KeepErrno keep;
  return draw_all(stream, q.n, r, q.room, kernel);
}

// The same of a distribution with arrays for parameters, which are looked at once all else is in order.
struct Input {
  const void* start;
  int64_t count, bytes;  // elements, bytes of an element
};
orvik_status check_inputs(std::initializer_list<Input> inputs, const void* r, int64_t bytes);

template <class T, class Sound, class Draw>
orvik_status draw_from(const Request& q, T* r, std::initializer_list<Input> inputs, const Sound& sound,
                       const Draw& kernel) {
  OrvikStream stream;
  orvik_status status = check(q, r, sizeof(T), &stream);
  if (status == kProceed) status = check_inputs(inputs, r, q.n * q.room * static_cast<int64_t>(sizeof(T)));
  if (status != kProceed) return status;
  if (!sound()) return ORVIK_ERROR_BAD_PARAMETER;
  const KeepErrno keep;
  return draw_all(stream, q.n, r, q.room, kernel);
}

// Parts of a request, the last of them the stream itself, the others copies that have skipped ahead.
class Parts {
 public:
  // At most `threads` parts of whole `grain` numbers. A single one where the generator cannot skip or memory is
  // missing.
  Parts(OrvikStream stream, int64_t n, int64_t uniforms, int64_t grain, int32_t threads);
  ~Parts();
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  int32_t count() const { return count_; }
  OrvikStream stream(int32_t k) const { return streams_[k]; }
  int64_t first(int32_t k) const { return first_[k]; }
  int64_t size(int32_t k) const { return first_[k + 1] - first_[k]; }

 private:
  bool make_copies(OrvikStream stream, int64_t uniforms);
  void drop_copies();
  int32_t count_ = 1;
  OrvikStream streams_[kMostThreads];
  OrvikStream own_;
  int64_t first_[kMostThreads + 1];
};

// How many threads a request is worth; 1 where the generator cannot skip.
int32_t threads_worth(OrvikStream stream, int64_t n, int64_t uniforms, int32_t threads);

// `uniforms` of a number. `pairs`: numbers come in pairs, of which one may wait in the stream.
template <class T, class Draw>
orvik_status draw_split(const Request& q, T* r, int64_t uniforms, bool pairs, int32_t threads, const Draw& kernel) {
  OrvikStream stream;
  const orvik_status checked = check(q, r, sizeof(T), &stream);
  if (checked != kProceed && checked < 0) return checked;
  if (threads < 0) return ORVIK_ERROR_BAD_PARAMETER;
  if (checked != kProceed) return checked;
  const KeepErrno keep;
  if (pairs && __qorGetNumChunks(stream) != 0) threads = 1;  // a side block may hold a number that waits
  threads = threads_worth(stream, q.n, uniforms, threads);
  if (threads <= 1) return draw_all(stream, q.n, r, q.room, kernel);
  const Parts parts(stream, q.n, uniforms, 64, threads);
  orvik_status statuses[kMostThreads];
  for_each_item(parts.count(), threads, [&](int32_t k) {
    statuses[k] = draw_all(parts.stream(k), parts.size(k), r + parts.first(k) * q.room, q.room, kernel);
  });
  orvik_status last = ORVIK_SUCCESS;
  for (int32_t k = 0; k < parts.count(); ++k) {
    if (statuses[k] < 0) return statuses[k];
    if (statuses[k] > 0) last = statuses[k];
  }
  return last;
}

// Parameters.
template <class T>
bool finite(T x) {
  return std::isfinite(x);
}
template <class T>
bool positive(T x) {
  return x > 0 && std::isfinite(x);
}

}  // namespace orvik::front

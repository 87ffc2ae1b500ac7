#include "front/random/draws.h"

namespace orvik::front {

orvik_status check(const Request& q, const void* r, int32_t bytes, OrvikStream* stream) {
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  *stream = stream_of(q.handle);
  if (*stream == nullptr) return ORVIK_ERROR_BAD_STREAM;
  if (q.n < 0 || q.n > kAddressSpace / bytes / q.room) return ORVIK_ERROR_BAD_LENGTH;
  if (!q.valid) return ORVIK_ERROR_BAD_PARAMETER;
  if (q.n == 0) return ORVIK_SUCCESS;
  return r == nullptr ? ORVIK_ERROR_NULL_POINTER : kProceed;
}

orvik_status check_inputs(std::initializer_list<Input> inputs, const void* r, int64_t bytes) {
  for (const Input& input : inputs) {
    if (input.start == nullptr) return ORVIK_ERROR_NULL_POINTER;
  }
  for (const Input& input : inputs) {
    if (meet(input.start, input.count * input.bytes, r, bytes)) return ORVIK_ERROR_OVERLAP;
  }
  return kProceed;
}

Parts::Parts(OrvikStream stream, int64_t n, int64_t uniforms, int64_t grain, int32_t threads) : own_(stream) {
  const int64_t grains = n / grain;
  if (threads > kMostThreads) threads = kMostThreads;
  count_ = static_cast<int32_t>(grains < threads ? (grains > 0 ? grains : 1) : threads);
  for (int32_t k = 0; k < count_; ++k) first_[k] = grains * k / count_ * grain;
  first_[count_] = n;
  for (int32_t k = 0; k < count_; ++k) streams_[k] = nullptr;
  if (count_ > 1 && !make_copies(stream, uniforms)) {
    drop_copies();
    count_ = 1;
    first_[1] = n;
  }
  if (count_ == 1) streams_[0] = stream;
}

// The stream itself moves last, when nothing can fail any more but its own skip.
bool Parts::make_copies(OrvikStream stream, int64_t uniforms) {
  for (int32_t k = 0; k + 1 < count_; ++k) {
    if (__qorCopyStream(&streams_[k], stream) != 0) return false;
  }
  int32_t statuses[kMostThreads] = {};
  for_each_item(count_ - 1, count_ - 1, [&](int32_t k) {
    if (k > 0) statuses[k] = __qorSkipAheadStream(streams_[k], static_cast<uint64_t>(first_[k] * uniforms));
  });
  for (int32_t k = 0; k + 1 < count_; ++k) {
    if (statuses[k] != 0) return false;
  }
  if (__qorSkipAheadStream(stream, static_cast<uint64_t>(first_[count_ - 1] * uniforms)) != 0) return false;
  streams_[count_ - 1] = stream;
  return true;
}

void Parts::drop_copies() {
  for (int32_t k = 0; k < count_; ++k) {
    if (streams_[k] != nullptr && streams_[k] != own_) __qorDeleteStream(&streams_[k]);
  }
}

Parts::~Parts() { drop_copies(); }

int32_t threads_worth(OrvikStream stream, int64_t n, int64_t uniforms, int32_t threads) {
  if (threads == 1) return 1;
  // About what a thread must draw to pay for its copy and skip: jumps of the twisters take milliseconds.
  int64_t worth = 20000;
  switch (__qorGetStreamStateBrng(stream) & ~0xFFFFF) {
    case ORVIK_R250:
    case ORVIK_MT2203:
    case ORVIK_TRNG:
      return 1;
    case ORVIK_MT19937:
    case ORVIK_SFMT19937:
      worth = 5000000;
      break;
    default:
      break;
  }
  if (threads > 0) return threads < kMostThreads ? threads : kMostThreads;
  const int64_t most = n / worth * uniforms, limit = thread_limit();
  return static_cast<int32_t>(most < limit ? most : limit);
}

}  // namespace orvik::front

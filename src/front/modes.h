// What a call of the kernels needs of the calling thread's state, and puts back.
#pragma once

#include <cerrno>

#include "lanes/control.h"
#include "orvik/front.h"
#include "orvik/zym.h"

namespace orvik::front {

inline constexpr uint32_t kDenormalField = 0x3C0000, kKeepDenormals = 0x140000;
inline constexpr uint32_t kFlags = 0x3F;             // exception flags of the control register
inline constexpr uint32_t kDefaultControl = 0x1F80;  // all masked, to nearest, no flag

// Exceptional elements of a call of one kernel, or of several one after the other.
struct Collector {
  orvik_report* reports = nullptr;
  int64_t capacity = 0;
  int64_t base = 0;  // index of the kernel's first element in the whole call
  int64_t count = 0;
  int32_t least = 0;  // code
  bool complex = false, second_argument = false, second_result = false;
};

// Where the callback of this thread collects.
extern constinit thread_local Collector* collector;
int32_t collect(ZymErrorContext* context);

// The thread's mode while kernels run: denormals are kept; reported elements go to the collector and nowhere else,
// since the callback says of each that it has been handled; so errno stays as it was. A row that never reports needs
// only the first.
class KernelState {
 public:
  KernelState(Collector* c, bool reports) : reports_(reports), mode_(_zymGetMode()) {
    flushes_ = (mode_ & kDenormalField) == ZYM_FLUSH_DENORMALS;
    if (reports) {
      status_ = _zymGetErrStatus();
      callback_ = _zymSetErrorCallBack(collect);  // with its bit in the mode
      _zymSetInterfInputVectorPointer(nullptr);
      collected_ = c;
      outer_ = collector;
      collector = c;
    }
    if (flushes_) [[unlikely]] {
      _zymSetMode(kKeepDenormals);
    }
  }
  ~KernelState() {
    if (reports_) {
      collector = outer_;
      _zymSetErrorCallBack(callback_);
      if (collected_->count != 0) _zymSetErrStatus(status_);
    }
    if (reports_ || flushes_) _zymSetMode(mode_);
  }
  KernelState(const KernelState&) = delete;
  KernelState& operator=(const KernelState&) = delete;

 private:
  bool reports_, flushes_;
  uint32_t mode_;
  int32_t status_ = 0;
  ZymErrorCallback callback_ = nullptr;
  Collector *collected_ = nullptr, *outer_ = nullptr;
};

// Keeps errno, for calls whose kernels look after the rest themselves.
class KeepErrno {
 public:
  KeepErrno() : saved_(errno) {}
  ~KeepErrno() { errno = saved_; }
  KeepErrno(const KeepErrno&) = delete;
  KeepErrno& operator=(const KeepErrno&) = delete;

 private:
  int saved_;
};

}  // namespace orvik::front

// The control registers around a kernel: it runs in round-to-nearest with all exceptions masked, whatever the caller
// set, and leaves the caller's control bits as they were and the flags that it raised.
#pragma once

#include <cstdint>

#include "lanes/control.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {

class ControlRegisters {
 public:
  // stray_underflow: the underflow flag says nothing of the results and stays as it was.
  ControlRegisters(uint32_t mode, bool stray_underflow) {
    asm volatile("fnstcw %0" : "=m"(x87_));
    if ((x87_ & kX87Masks) != kX87Masks) [[unlikely]]
      mask_x87();
    const uint32_t target = (mode & kDenormalField) == ZYM_FLUSH_DENORMALS ? kFlushing : kPlain;
    vector_ = read_control();
    dropped_ = stray_underflow ? ~vector_ & kUnderflow : 0;
    if (((vector_ ^ target) & kControlBits) != 0) [[unlikely]] {
      write_control((vector_ & ~kControlBits) | target);
      vector_changed_ = true;
    }
    fence();
  }

  ~ControlRegisters() {
    fence();
    if (x87_changed_) [[unlikely]] {
      asm volatile("fldcw %0" : : "m"(x87_));
    }
    if (vector_changed_ || dropped_ != 0) {
      const uint32_t now = read_control();
      const uint32_t left = vector_ | (now & kFlags & ~dropped_);
      if (left != now) [[unlikely]]
        write_control(left);
    }
  }

  // Flags that the lanes of special elements raised: taken back, but for those that stood before or that element routines
  // raised.
  void take_back_flags() {
    const uint32_t now = read_control();
    write_control((now & ~kSevere) | (vector_ & kSevere) | kept_);
  }
  void keep_flags() { kept_ = read_control() & kSevere; }

  ControlRegisters(const ControlRegisters&) = delete;
  ControlRegisters& operator=(const ControlRegisters&) = delete;

 private:
  static constexpr uint16_t kX87Masks = 0x3F;
  static constexpr uint32_t kPlain = 0x1F80;     // exceptions masked, to nearest, no flushing
  static constexpr uint32_t kFlushing = 0x9FC0;  // the same with denormal results and inputs as zero
  static constexpr uint32_t kControlBits = 0xFFC0;
  static constexpr uint32_t kFlags = 0x3F;
  static constexpr uint32_t kUnderflow = 0x10;
  static constexpr uint32_t kSevere = 0xD;  // invalid, division by zero, overflow

  // No load of an input moves up, no store of a result moves down across a change of the registers.
  static void fence() { asm volatile("" : : : "memory"); }

  void mask_x87() {
    const uint16_t masked = x87_ | kX87Masks;
    asm volatile("fnclex");
    asm volatile("fldcw %0" : : "m"(masked));
    x87_changed_ = true;
  }

  uint32_t vector_, dropped_, kept_ = 0;
  uint16_t x87_;
  bool x87_changed_ = false;
  bool vector_changed_ = false;
};

}  // namespace orvik::zym

// The control registers around a kernel: it runs in round-to-nearest with all exceptions masked, whatever the caller
// set, and leaves the caller's control bits as they were and the flags that it raised.
#pragma once

#include <cstdint>

#include "lanes/control.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {

// Stray: flags that lanes may raise on the way to results that do not (Knobs). They leave as they came, but for what
// element routines raised.
template <uint32_t kStray = 0>
class ControlRegisters {
 public:
  [[gnu::always_inline]] explicit ControlRegisters(uint32_t mode) {
    asm volatile("fnstcw %0" : "=m"(x87_));
    vector_ = read_control();
    const uint32_t target = (mode & kDenormalField) == ZYM_FLUSH_DENORMALS ? kFlushing : kPlain;
    changed_ = (x87_ & kX87Masks) != kX87Masks || ((vector_ ^ target) & kControlBits) != 0;
    if (changed_) [[unlikely]]
      change(target);
    fence();
  }

  [[gnu::always_inline]] ~ControlRegisters() {
    fence();
    if (kStray != 0 || changed_) [[unlikely]]
      restore();
  }

  ControlRegisters(const ControlRegisters&) = delete;
  ControlRegisters& operator=(const ControlRegisters&) = delete;

  // Where to keep stray flags that element routines raise; null for most kernels.
  uint32_t* kept() {
    if constexpr (kStray == 0) return nullptr;
    return &kept_;
  }

 private:
  static constexpr uint16_t kX87Masks = 0x3F;
  static constexpr uint32_t kPlain = 0x1F80;     // exceptions masked, to nearest, no flushing
  static constexpr uint32_t kFlushing = 0x9FC0;  // the same with denormal results and inputs as zero
  static constexpr uint32_t kControlBits = 0xFFC0;
  static constexpr uint32_t kFlags = 0x3F;

  // No load of an input moves up, no store of a result moves down across a change of the registers.
  static void fence() { asm volatile("" : : : "memory"); }

  [[gnu::noinline, gnu::cold]] void change(uint32_t target) {
    if ((x87_ & kX87Masks) != kX87Masks) {
      const uint16_t masked = x87_ | kX87Masks;
      asm volatile("fnclex");
      asm volatile("fldcw %0" : : "m"(masked));
    }
    write_control((vector_ & ~kControlBits) | target);
  }

  void restore() {
    if (changed_ && (x87_ & kX87Masks) != kX87Masks) [[unlikely]] {
      asm volatile("fldcw %0" : : "m"(x87_));
    }
    const uint32_t now = read_control();
    const uint32_t left = vector_ | (now & kFlags & ~(kStray & ~kept_));
    if (left != now) [[unlikely]]
      write_control(left);
  }

  uint32_t vector_;
  uint32_t kept_ = 0;
  uint16_t x87_;
  bool changed_;
};

// Around element routines: what the lanes raised before is cleared, what the routines raise is kept.
inline void clear_stray(uint32_t stray) {
  if (stray != 0) write_control(read_control() & ~stray);
}
inline void keep_stray(uint32_t stray, uint32_t* kept) {
  if (stray != 0) *kept |= read_control() & stray;
}

}  // namespace orvik::zym

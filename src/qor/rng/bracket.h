// Scoped changes of the calling thread's floating-point and vector-mode state around calls of vector kernels.
#pragma once

#include <cstdint>

#include "lanes/control.h"
#include "orvik/zym.h"

namespace orvik::qor {

// Around one call of a vector kernel: full denormal handling. A thread whose denormal field was zero keeps 0x140000,
// since the mode is merged and a zero field changes nothing.
class KernelBracket {
 public:
  KernelBracket() : mode_(orvik_zym_kernel_SetMode(kFullDenormals)) {}
  ~KernelBracket() { orvik_zym_kernel_SetMode(mode_); }
  KernelBracket(const KernelBracket&) = delete;
  KernelBracket& operator=(const KernelBracket&) = delete;

 private:
  static constexpr uint32_t kFullDenormals = 0x140000;
  uint32_t mode_;
};

// Around the body of an entry: all floating-point exceptions masked, element reports to `callback` and nowhere else.
class EntryBracket {
 public:
  explicit EntryBracket(ZymErrorCallback callback) {
    clear_pending();
    asm volatile("fnstcw %0" : "=m"(x87_));
    mxcsr_ = read_control();
    if ((x87_ | kX87Masks) != x87_) load_x87(static_cast<uint16_t>(x87_ | kX87Masks));
    if ((mxcsr_ | kSseMasks) != mxcsr_) write_control(mxcsr_ | kSseMasks);
    mode_ = orvik_zym_kernel_SetMode(ZYM_ERRMODE_CALLBACK);
    callback_ = _zymSetErrorCallBack(callback);
  }
  ~EntryBracket() {
    _zymSetErrorCallBack(callback_);
    orvik_zym_kernel_SetMode(mode_);
    clear_pending();
    if ((x87_ | kX87Masks) != x87_) load_x87(x87_);
    if ((mxcsr_ | kSseMasks) != mxcsr_) write_control(mxcsr_);
  }
  EntryBracket(const EntryBracket&) = delete;
  EntryBracket& operator=(const EntryBracket&) = delete;

 private:
  static constexpr uint16_t kX87Masks = 0x3F;
  static constexpr uint16_t kX87Flags = 0xFF;  // exceptions, stack fault, summary
  static constexpr uint32_t kSseMasks = 0x1F80;

  // Clearing flags costs some 20 cycles; looking whether any is up costs few.
  static void clear_pending() {
    uint16_t status;
    asm volatile("fnstsw %0" : "=a"(status));
    if ((status & kX87Flags) != 0) asm volatile("fnclex");
  }
  static void load_x87(uint16_t word) { asm volatile("fldcw %0" : : "m"(word)); }

  uint16_t x87_;
  uint32_t mxcsr_;
  uint32_t mode_;
  ZymErrorCallback callback_;
};

}  // namespace orvik::qor

// The control register of the vector unit.
#pragma once

#include <immintrin.h>

#include <cstdint>

namespace orvik {

// Exception flags among its bits.
inline constexpr uint32_t kInvalidFlag = 0x1, kDivideByZeroFlag = 0x4, kOverflowFlag = 0x8, kUnderflowFlag = 0x10;
inline constexpr uint32_t kSevereFlags = kInvalidFlag | kDivideByZeroFlag | kOverflowFlag;

inline uint32_t read_control() { return _mm_getcsr(); }
inline void write_control(uint32_t value) { _mm_setcsr(value); }

}  // namespace orvik

// The control register of the vector unit.
#pragma once

#include <immintrin.h>

#include <cstdint>

namespace orvik {

inline uint32_t read_control() { return _mm_getcsr(); }
inline void write_control(uint32_t value) { _mm_setcsr(value); }

}  // namespace orvik

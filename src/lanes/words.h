// Vectors of whole numbers as generators use them: 32-bit and 64-bit words that fill a register, halves of it. Words
// have no sign unless a name says so. What is said of quarters of 128 bits are the halves of a register of 256.
#pragma once

#if ORVIK_REGISTER_BITS == 512
#include "lanes/wide/words.h"
#else
#include "lanes/narrow/words.h"
#endif

namespace orvik {

// How many words of 32 and of 64 bits a register holds.
inline constexpr int kWords = sizeof(I32) / sizeof(uint32_t);
inline constexpr int kLongs = kWords / 2;

}  // namespace orvik

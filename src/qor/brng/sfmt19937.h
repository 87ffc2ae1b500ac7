// The state of SFMT19937 and its characteristic polynomial.
#pragma once

#include <stdint.h>

namespace orvik::qor {

constexpr int kSfmtWords = 624, kSfmtBlocks = kSfmtWords / 4;

struct SfmtState {
  uint32_t word[kSfmtWords];    // a ring of blocks of four words
  int32_t index;                // of the next word to deliver, a multiple of four
  uint32_t tail[3];             // words of a block that a request ended in
  uint32_t tail_pos, tail_end;  // of those still to deliver; both 0: none
};

constexpr int kSfmtDegree = 19968, kSfmtTerms = 6711;
// Exponents of the characteristic polynomial of a step of one block, ascending.
extern const uint32_t kSfmtPolynomial[kSfmtTerms];

}  // namespace orvik::qor

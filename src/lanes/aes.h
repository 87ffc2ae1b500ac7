// Rounds of AES (FIPS 197) on blocks of 128 bits: one at a time, or as many as a register of 512 bits holds. For
// sources that are compiled for these instructions.
#pragma once

#include "lanes/words.h"

namespace orvik {

#if ORVIK_REGISTER_BITS == 512
using Blocks = I32;
inline constexpr int kBlocks = 4;
inline Blocks aes_round(Blocks x, Blocks key) { return _mm512_aesenc_epi128(x.v, key.v); }
inline Blocks aes_last_round(Blocks x, Blocks key) { return _mm512_aesenclast_epi128(x.v, key.v); }
// Two 64-bit words each.
inline Blocks add_long(Blocks a, Blocks b) { return _mm512_add_epi64(a.v, b.v); }
// The same in every block; the number of each as a 128-bit number.
inline Blocks in_blocks(const uint32_t* p) {
  return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}
inline Blocks in_blocks(uint64_t low, uint64_t high) {
  return _mm512_broadcast_i32x4(_mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low)));
}
inline Blocks block_numbers() { return _mm512_setr_epi64(0, 0, 1, 0, 2, 0, 3, 0); }
#else
using Blocks = I32Half;
inline constexpr int kBlocks = 1;
inline Blocks aes_round(Blocks x, Blocks key) { return _mm_aesenc_si128(x.v, key.v); }
inline Blocks aes_last_round(Blocks x, Blocks key) { return _mm_aesenclast_si128(x.v, key.v); }
inline Blocks in_blocks(const uint32_t* p) { return load_half(p); }
inline Blocks in_blocks(uint64_t low, uint64_t high) { return long_pair(low, high); }
inline Blocks block_numbers() { return long_pair(0, 0); }
#endif

}  // namespace orvik

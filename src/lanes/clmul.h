// Products of polynomials over GF(2) of 64 coefficients. For sources that are compiled for this instruction.
#pragma once

#include <cstdint>

#include "lanes/words.h"

namespace orvik {

inline I32Half carryless_product(const uint64_t* a, const uint64_t* b) {
  return _mm_clmulepi64_si128(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(a)),
                              _mm_loadl_epi64(reinterpret_cast<const __m128i*>(b)), 0);
}
inline void store(uint64_t* p, I32Half w) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), w.v); }
inline uint64_t low_long(I32Half w) { return static_cast<uint64_t>(_mm_cvtsi128_si64(w.v)); }
inline uint64_t high_long(I32Half w) { return static_cast<uint64_t>(_mm_extract_epi64(w.v, 1)); }
inline I32Half no_terms() { return _mm_setzero_si128(); }

}  // namespace orvik

// Vectors of eight 32-bit indices beside an F64 of 512 bits.
#pragma once

#include <cstdint>

#include "lanes/wide/vectors.h"

namespace orvik {

inline I32Half min(I32Half a, I32Half b) { return _mm256_min_epi32(a.v, b.v); }
inline I32Half max(I32Half a, I32Half b) { return _mm256_max_epi32(a.v, b.v); }

template <class I>
inline I load_indices(const int32_t* p) {
  static_assert(std::is_same_v<I, I32Half>);
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

// Lanes that are indices: truncated to them, and back.
inline I32Half truncated(F64 a) { return _mm512_cvttpd_epi32(a.v); }
inline F64 to_lanes(I32Half a) { return to_double(a); }

// As 64-bit integers in scalar registers; not negative. By way of memory, which takes none of the units that the rows'
// shuffles wait for; the compiler would see through it and make vectors of the loads again.
inline void spread(I32Half index, int64_t* out) {
  alignas(32) int32_t each[8];
  _mm256_store_si256(reinterpret_cast<__m256i*>(each), index.v);
  for (int k = 0; k < 8; ++k) asm("movl %1, %k0" : "=r"(out[k]) : "m"(each[k]));
}

inline bool all_equal(I32Half a, int32_t b) { return _mm256_cmpeq_epi32_mask(a.v, _mm256_set1_epi32(b)) == 0xFF; }

}  // namespace orvik

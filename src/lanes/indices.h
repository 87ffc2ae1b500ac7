// Vectors of 32-bit indices, one for each lane: eight beside an F32, four beside an F64.
#pragma once

#include <algorithm>
#include <cstdint>

#include "lanes/tables.h"
#include "lanes/vectors.h"

namespace orvik {

inline I32 min(I32 a, I32 b) { return _mm256_min_epi32(a.v, b.v); }
inline I32 max(I32 a, I32 b) { return _mm256_max_epi32(a.v, b.v); }
inline I32Half min(I32Half a, I32Half b) { return _mm_min_epi32(a.v, b.v); }
inline I32Half max(I32Half a, I32Half b) { return _mm_max_epi32(a.v, b.v); }

template <class I>
inline I load_indices(const int32_t* p) {
  if constexpr (std::is_same_v<I, I32>) {
    return __m256i(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
  } else {
    return __m128i(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
  }
}
inline void store_indices(int32_t* p, I32 a) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a.v); }
inline void store_indices(int32_t* p, I32Half a) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), a.v); }
inline void store_indices(int64_t* p, I32Half a) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_cvtepi32_epi64(a.v));
}
inline void store_indices(int64_t* p, I32 a) {
  store_indices(p, low_half(a));
  store_indices(p + 4, high_half(a));
}

inline I32 max_unsigned(I32 a, I32 b) { return _mm256_max_epu32(a.v, b.v); }
inline I32Half max_unsigned(I32Half a, I32Half b) { return _mm_max_epu32(a.v, b.v); }

// Lanes that are indices: truncated to them, and back.
inline I32 truncated(F32 a) { return _mm256_cvttps_epi32(a.v); }
inline I32Half truncated(F64 a) { return _mm256_cvttpd_epi32(a.v); }
inline F32 to_lanes(I32 a) { return to_float(a); }
inline F64 to_lanes(I32Half a) { return to_double(a); }

// All ones (-1) in the index of every lane where a whole-lane mask is true.
inline I32 minus_one_index(M32 mask) { return minus_one(mask); }
inline I32Half minus_one_index(M64 mask) {
  const __m256 wide = _mm256_castpd_ps(mask.v);
  return _mm_castps_si128(_mm_shuffle_ps(_mm256_castps256_ps128(wide), _mm256_extractf128_ps(wide, 1), 0x88));
}
inline I32 select_index(M32 mask, I32 yes, I32 no) {
  return _mm256_blendv_epi8(no.v, yes.v, _mm256_castps_si256(mask.v));
}
inline I32Half select_index(M64 mask, I32Half yes, I32Half no) {
  return _mm_blendv_epi8(no.v, yes.v, minus_one_index(mask).v);
}

// As 64-bit integers in memory, which the compiler keeps in scalar registers; not negative.
inline void spread(I32Half index, int64_t* out) {
  const Indices k(index);
  out[0] = k.i0, out[1] = k.i1, out[2] = k.i2, out[3] = k.i3;
}
inline void spread(I32 index, int64_t* out) {
  spread(low_half(index), out);
  spread(high_half(index), out + 4);
}
inline F64 gather(const double* p, I32Half index) { return gather(p, Indices(index)); }

// The largest index.
inline int32_t largest(I32Half a) {
  alignas(16) int32_t each[4];
  store_indices(each, a);
  return std::max(std::max(each[0], each[1]), std::max(each[2], each[3]));
}

inline bool any_above_unsigned(I32Half a, I32Half bound) {
  return _mm_movemask_epi8(_mm_cmpeq_epi32(_mm_max_epu32(a.v, bound.v), bound.v)) != 0xFFFF;
}
inline bool any_above_unsigned(I32 a, I32 bound) {
  return _mm256_movemask_epi8(_mm256_cmpeq_epi32(_mm256_max_epu32(a.v, bound.v), bound.v)) != -1;
}

inline bool all_equal(I32Half a, int32_t b) {
  return _mm_movemask_epi8(_mm_cmpeq_epi32(a.v, _mm_set1_epi32(b))) == 0xFFFF;
}
inline bool all_equal(I32 a, int32_t b) {
  return _mm256_movemask_epi8(_mm256_cmpeq_epi32(a.v, _mm256_set1_epi32(b))) == -1;
}

// The low 32 bits of every lane.
inline I32 to_indices(I32 a) { return a; }
inline I32Half to_indices(I64 a) { return low_words(a); }

// --- counting: true lanes are added up as -1 -------------------------------------------------------------------------

// The totals of four sums of minus_one(), one a lane.
inline I32Half totals(const I32 (&sum)[4]) {
  const __m256i pairs = _mm256_hadd_epi32(_mm256_hadd_epi32(sum[0].v, sum[1].v), _mm256_hadd_epi32(sum[2].v, sum[3].v));
  return _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
}
inline I32Half totals(const I64 (&sum)[4]) {
  const auto low_words = [](I64 a, I64 b) {  // of both
    const __m256 words = _mm256_shuffle_ps(_mm256_castsi256_ps(a.v), _mm256_castsi256_ps(b.v), 0x88);
    return _mm256_castps_si256(words);
  };
  const __m256i pairs = _mm256_hadd_epi32(low_words(sum[0], sum[1]), low_words(sum[2], sum[3]));
  return _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
}

// -1 for each of the four elements at p that is above a bound.
inline I32Half four_above(const double* p, double bound) {
  return minus_one_index(M64(_mm256_cmp_pd(_mm256_set1_pd(bound), _mm256_loadu_pd(p), _CMP_LT_OQ)));
}
inline I32Half four_above(const float* p, float bound) {
  return _mm_castps_si128(_mm_cmplt_ps(_mm_set1_ps(bound), _mm_loadu_ps(p)));
}

// Pairs number k[0 .. 3] of a table of pairs of 64-bit integers that fit in 32 bits.
inline Pair<I32Half> gather_pairs(const int64_t* table, const int32_t* k) {
  const auto pair = [&](int j) {
    return _mm_loadu_ps(reinterpret_cast<const float*>(table + 2 * static_cast<int64_t>(k[j])));
  };
  const __m128 two = _mm_shuffle_ps(pair(0), pair(1), 0x88), more = _mm_shuffle_ps(pair(2), pair(3), 0x88);
  return {_mm_castps_si128(_mm_shuffle_ps(two, more, 0x88)), _mm_castps_si128(_mm_shuffle_ps(two, more, 0xDD))};
}

}  // namespace orvik

// Look-ups by lane: in a register, in memory.
#pragma once

#include <cstdint>

#include "zym/lanes/vectors.h"

namespace orvik::zym {

// One of four floats by the low two bits of the index; the table fills both halves of a register.
inline F32 select_in_quad(F32 table, I32 index) { return _mm256_permutevar_ps(table.v, index.v); }

// One of eight 32-bit entries by the low three bits of each 32-bit word of the index.
inline I32 look_up(I32 table, I32 index) { return _mm256_permutevar8x32_epi32(table.v, index.v); }

// Rows in memory are single loads: the gather instruction is slower on some processors and no faster on the others.
struct Indices {  // of four lanes, in scalar registers
  int64_t i0, i1, i2, i3;
  explicit Indices(I64 index) {
    const __m128i low = _mm256_castsi256_si128(index.v);
    const __m128i high = _mm256_extracti128_si256(index.v, 1);
    i0 = _mm_cvtsi128_si64(low);
    i1 = _mm_extract_epi64(low, 1);
    i2 = _mm_cvtsi128_si64(high);
    i3 = _mm_extract_epi64(high, 1);
  }
  explicit Indices(__m128i index) {  // four 32-bit ones, not negative
    const auto low = static_cast<uint64_t>(_mm_cvtsi128_si64(index));
    const auto high = static_cast<uint64_t>(_mm_extract_epi64(index, 1));
    i0 = static_cast<uint32_t>(low);
    i1 = static_cast<int64_t>(low >> 32);
    i2 = static_cast<uint32_t>(high);
    i3 = static_cast<int64_t>(high >> 32);
  }
};
template <int First = 0>  // the number of the table's first row
inline F64 gather(const double* table, Indices k) {
  const auto row = [&](int64_t i) { return table + (i - First); };
  const __m128d low = _mm_loadh_pd(_mm_load_sd(row(k.i0)), row(k.i1));
  const __m128d high = _mm_loadh_pd(_mm_load_sd(row(k.i2)), row(k.i3));
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(low), high, 1);
}
// Both columns of a table of 16-byte rows.
struct GatheredPair {
  F64 first, second;
};
template <int First = 0>
inline GatheredPair gather(const double (*table)[2], Indices k) {
  const auto rows = [&](int64_t low, int64_t high) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(table[low - First])), _mm_loadu_pd(table[high - First]), 1);
  };
  const __m256d even = rows(k.i0, k.i2);
  const __m256d odd = rows(k.i1, k.i3);
  return {_mm256_unpacklo_pd(even, odd), _mm256_unpackhi_pd(even, odd)};
}

}  // namespace orvik::zym

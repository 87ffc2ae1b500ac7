// Look-ups by lanes of 256 bits.
#pragma once

#include <cstdint>

#include "lanes/narrow/vectors.h"

namespace orvik {

// --- in registers ---------------------------------------------------------------------------------------------------

inline F32 quad_register(const float* table) { return _mm256_broadcast_ps(reinterpret_cast<const __m128*>(table)); }
inline F32 octet_register(const float* table) { return _mm256_loadu_ps(table); }
inline __m256i octet_register(const uint32_t* table) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(table));
}

// One of four floats by the low two bits of the index.
inline F32 select_in_quad(F32 table, I32 index) { return _mm256_permutevar_ps(table.v, index.v); }
// One of eight 32-bit entries by the low three bits of each 32-bit word of the index.
inline I32 look_up(I32 table, I32 index) { return _mm256_permutevar8x32_epi32(table.v, index.v); }
inline I64 look_up(I64 table, I64 index) { return _mm256_permutevar8x32_epi32(table.v, index.v); }
inline F32 look_up(F32 table, I32 index) { return _mm256_permutevar8x32_ps(table.v, index.v); }
// One of sixteen floats by the low four bits.
inline F32 look_up_in_sixteen(const float* table, I32 index) {
  const F32 upper = as_float(shift_left<28>(index));
  return select(sign_decides(upper), look_up(octet_register(table + 8), index), look_up(octet_register(table), index));
}

// --- in memory: rows are single loads, since the gather instruction is slower on some processors and no faster on the
// others -------------------------------------------------------------------------------------------------------------

struct Indices {  // of four lanes, in scalar registers
  int64_t i0, i1, i2, i3;
  explicit Indices(I64 index) {
    // By way of memory, which the compiler would see through: taking them out of a register keeps its arithmetic ports
    // busy, a tenth of the time of an exponential.
    alignas(32) int64_t row[4];
    _mm256_store_si256(reinterpret_cast<__m256i*>(row), index.v);
    asm("" : "+m"(row));
    i0 = row[0], i1 = row[1], i2 = row[2], i3 = row[3];
  }
  explicit Indices(I32Half index) {  // not negative
    const auto low = static_cast<uint64_t>(_mm_cvtsi128_si64(index.v));
    const auto high = static_cast<uint64_t>(_mm_extract_epi64(index.v, 1));
    i0 = static_cast<uint32_t>(low);
    i1 = static_cast<int64_t>(low >> 32);
    i2 = static_cast<uint32_t>(high);
    i3 = static_cast<int64_t>(high >> 32);
  }
};

using RowIndices = Indices;

template <int First = 0>  // the number of the table's first row
inline F64 gather(const double* table, Indices k) {
  const auto row = [&](int64_t i) { return table + (i - First); };
  const __m128d low = _mm_loadh_pd(_mm_load_sd(row(k.i0)), row(k.i1));
  const __m128d high = _mm_loadh_pd(_mm_load_sd(row(k.i2)), row(k.i3));
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(low), high, 1);
}
// Both columns of a table of 16-byte rows.
template <int First = 0>
inline Pair<F64> gather(const double (*table)[2], Indices k) {
  const auto rows = [&](int64_t low, int64_t high) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(table[low - First])),
                                _mm_loadu_pd(table[high - First]), 1);
  };
  const __m256d even = rows(k.i0, k.i2);
  const __m256d odd = rows(k.i1, k.i3);
  return {_mm256_unpacklo_pd(even, odd), _mm256_unpackhi_pd(even, odd)};
}
// The four columns of a table of 32-byte rows.
template <int First = 0>
inline Quad<F64> gather(const double (*table)[4], Indices k) {
  const __m256d r0 = _mm256_loadu_pd(table[k.i0 - First]), r1 = _mm256_loadu_pd(table[k.i1 - First]);
  const __m256d r2 = _mm256_loadu_pd(table[k.i2 - First]), r3 = _mm256_loadu_pd(table[k.i3 - First]);
  const __m256d a = _mm256_unpacklo_pd(r0, r1), b = _mm256_unpackhi_pd(r0, r1);
  const __m256d c = _mm256_unpacklo_pd(r2, r3), d = _mm256_unpackhi_pd(r2, r3);
  return {{_mm256_permute2f128_pd(a, c, 0x20), _mm256_permute2f128_pd(b, d, 0x20), _mm256_permute2f128_pd(a, c, 0x31),
           _mm256_permute2f128_pd(b, d, 0x31)}};
}
template <int First = 0>
inline F64 gather_first(const double (*table)[2], Indices k) {  // the first alone
  return gather<First>(table, k).first;
}
// Rows that follow each other are read by pairs of columns: they join as they are loaded.
inline constexpr bool kGathersTwoRows = false;
// Eight floats; indices of 32 bits, not negative.
inline F32 gather(const float* table, I32 index) {
  const Indices low(low_half(index)), high(high_half(index));
  const auto four = [&](const Indices& k) {
    const auto row = [&](int64_t i) { return _mm_load_ss(table + i); };
    return _mm_movelh_ps(_mm_unpacklo_ps(row(k.i0), row(k.i1)), _mm_unpacklo_ps(row(k.i2), row(k.i3)));
  };
  return _mm256_insertf128_ps(_mm256_castps128_ps256(four(low)), four(high), 1);
}
// The four columns of a table of 16-byte rows of floats; indices of 32 bits, not negative.
inline Quad<F32> gather(const float (*table)[4], I32 index) {
  const Indices low(low_half(index)), high(high_half(index));
  const auto rows = [&](int64_t i, int64_t j) {
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(table[i])), _mm_loadu_ps(table[j]), 1);
  };
  const __m256 r0 = rows(low.i0, high.i0), r1 = rows(low.i1, high.i1);
  const __m256 r2 = rows(low.i2, high.i2), r3 = rows(low.i3, high.i3);
  const __m256 a = _mm256_unpacklo_ps(r0, r1), b = _mm256_unpackhi_ps(r0, r1);
  const __m256 c = _mm256_unpacklo_ps(r2, r3), d = _mm256_unpackhi_ps(r2, r3);
  return {{_mm256_shuffle_ps(a, c, 0x44), _mm256_shuffle_ps(a, c, 0xEE), _mm256_shuffle_ps(b, d, 0x44),
           _mm256_shuffle_ps(b, d, 0xEE)}};
}

}  // namespace orvik

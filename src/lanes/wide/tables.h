// Look-ups by lanes of 512 bits.
#pragma once

#include <cstdint>

#include "lanes/wide/vectors.h"

namespace orvik {

// --- in registers: an octet stands twice, so that whole registers are permuted by their low four bits -----------------

inline F32 quad_register(const float* table) { return _mm512_broadcast_f32x4(_mm_loadu_ps(table)); }
inline F32 octet_register(const float* table) { return _mm512_broadcast_f32x8(_mm256_loadu_ps(table)); }
inline __m512i octet_register(const uint32_t* table) {
  return _mm512_broadcast_i32x8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(table)));
}

// One of four floats by the low two bits of the index.
inline F32 select_in_quad(F32 table, I32 index) { return _mm512_permutevar_ps(table.v, index.v); }
// One of eight 32-bit entries by the low three bits of each 32-bit word of the index.
inline I32 look_up(I32 table, I32 index) { return _mm512_permutexvar_epi32(index.v, table.v); }
inline I64 look_up(I64 table, I64 index) { return _mm512_permutexvar_epi32(index.v, table.v); }
inline F32 look_up(F32 table, I32 index) { return _mm512_permutexvar_ps(index.v, table.v); }
// One of sixteen floats by the low four bits.
inline F32 look_up_in_sixteen(const float* table, I32 index) {
  return _mm512_permutexvar_ps(index.v, _mm512_loadu_ps(table));
}

// --- in memory: one and two columns by the gather instruction, rows of four by loads of them --------------------------

struct Indices {  // of eight lanes
  __m512i v;
  explicit Indices(I64 index) : v(index.v) {}
  explicit Indices(I32Half index) : v(_mm512_cvtepu32_epi64(index.v)) {}  // not negative
};
struct ScalarIndices {  // in memory, for scalar registers: taking them out of a vector keeps arithmetic ports busy
  alignas(64) int64_t i[8];
  explicit ScalarIndices(Indices k) {
    // By halves: what is stored by 64 bytes has to reach the cache before parts of it can be loaded.
    _mm256_store_si256(reinterpret_cast<__m256i*>(i), low_256(k.v));
    _mm256_store_si256(reinterpret_cast<__m256i*>(i + 4), high_256(k.v));
    asm("" : "+m"(i));  // which the compiler would see through
  }
};

// Where row 0 of a table would be whose first has the number First; no object is there.
template <int First, class E>
inline const void* row_zero(const E* table) {
  return reinterpret_cast<const void*>(reinterpret_cast<uintptr_t>(table) - static_cast<uintptr_t>(First) * sizeof(E));
}

template <int First = 0>  // the number of the table's first row
inline F64 gather(const double* table, Indices k) {
  // With a source and a mask of all lanes, so that the instruction waits for no older register.
  return _mm512_mask_i64gather_pd(_mm512_setzero_pd(), 0xFF, k.v, row_zero<First>(table), 8);
}
// Both columns of a table of 16-byte rows.
template <int First = 0>
inline Pair<F64> gather(const double (*table)[2], Indices k) {
  const __m512i at = _mm512_slli_epi64(k.v, 1);
  const auto* first = static_cast<const double*>(row_zero<2 * First>(&table[0][0]));
  return {_mm512_mask_i64gather_pd(_mm512_setzero_pd(), 0xFF, at, first, 8),
          _mm512_mask_i64gather_pd(_mm512_setzero_pd(), 0xFF, at, first + 1, 8)};
}
// The four columns of a table of 32-byte rows.
template <int First = 0>
inline Quad<F64> gather(const double (*table)[4], Indices k) {
  const ScalarIndices s(k);
  const auto rows = [&](int j) {  // j and j + 4
    const auto row = [&](int i) { return _mm256_loadu_pd(table[s.i[i] - First]); };
    return _mm512_insertf64x4(_mm512_castpd256_pd512(row(j)), row(j + 4), 1);
  };
  const __m512d r0 = rows(0), r1 = rows(1), r2 = rows(2), r3 = rows(3);
  const __m512d a = _mm512_unpacklo_pd(r0, r1), b = _mm512_unpackhi_pd(r0, r1);
  const __m512d c = _mm512_unpacklo_pd(r2, r3), d = _mm512_unpackhi_pd(r2, r3);
  const __m512i first = _mm512_setr_epi64(0, 1, 8, 9, 4, 5, 12, 13);
  const __m512i second = _mm512_setr_epi64(2, 3, 10, 11, 6, 7, 14, 15);
  return {{_mm512_permutex2var_pd(a, first, c), _mm512_permutex2var_pd(b, first, d),
           _mm512_permutex2var_pd(a, second, c), _mm512_permutex2var_pd(b, second, d)}};
}
// Sixteen floats; indices of 32 bits, not negative.
template <int First = 0>
inline F32 gather(const float* table, I32 index) {
  return _mm512_mask_i32gather_ps(_mm512_setzero_ps(), 0xFFFF, index.v, row_zero<First>(table), 4);
}

}  // namespace orvik

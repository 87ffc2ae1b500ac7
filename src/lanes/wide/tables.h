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

// --- in memory: one column by the gather instruction, rows of two and four by loads of them -----------------------

struct Indices {  // of eight lanes
  __m512i v;
  explicit Indices(I64 index) : v(index.v) {}
  explicit Indices(I32Half index) : v(_mm512_cvtepu32_epi64(index.v)) {}  // not negative
};
// In memory as well, for scalar registers: taking them out of a vector keeps arithmetic ports busy.
class RowIndices : public Indices {
 public:
  [[gnu::always_inline]] RowIndices(const Indices& k) : Indices(k) {
    const __m512i fours = _mm512_slli_epi64(k.v, 2);
    // By halves: what is stored by 64 bytes has to reach the cache before parts of it can be loaded.
    _mm256_store_si256(reinterpret_cast<__m256i*>(fours_), low_256(fours));
    _mm256_store_si256(reinterpret_cast<__m256i*>(fours_ + 4), high_256(fours));
    asm("" : "+m"(fours_));  // which the compiler would see through
  }
  // The row of a lane in a table with First for the first one's number.
  template <int First, int kLength>
  [[gnu::always_inline]] const double* row(const double (*table)[kLength], int lane) const {
    constexpr int64_t kSize = kLength * sizeof(double);
    return reinterpret_cast<const double*>(reinterpret_cast<uintptr_t>(table) +
                                           static_cast<uintptr_t>(kSize / 4 * fours_[lane] - kSize * First));
  }

 private:
  alignas(64) int64_t fours_[8];  // four times the indices, which addresses of rows of up to four hold as they are
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
// Rows of two and of four elements as columns, by the address of each. What comes from memory joins a register under a
// mask, which more units do than a permutation of registers.
template <class Row>
[[gnu::always_inline]] inline Pair<F64> gather_twos(Row row) {
  const auto rows = [&](int j) {  // every other one from j on
    const __m256d two = _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(row(j))), _mm_loadu_pd(row(j + 2)), 1);
    const __m512d three = _mm512_mask_broadcast_f64x2(_mm512_castpd256_pd512(two), 0x30, _mm_loadu_pd(row(j + 4)));
    return _mm512_mask_broadcast_f64x2(three, 0xC0, _mm_loadu_pd(row(j + 6)));
  };
  const __m512d even = rows(0), odd = rows(1);
  return {_mm512_unpacklo_pd(even, odd), _mm512_unpackhi_pd(even, odd)};
}
template <class Row>
[[gnu::always_inline]] inline Quad<F64> gather_fours(Row row) {
  const auto rows = [&](int j) {  // j and j + 2
    return _mm512_mask_broadcast_f64x4(_mm512_castpd256_pd512(_mm256_loadu_pd(row(j))), 0xF0,
                                       _mm256_loadu_pd(row(j + 2)));
  };
  const __m512d r0 = rows(0), r1 = rows(1), r4 = rows(4), r5 = rows(5);
  const __m512d a = _mm512_unpacklo_pd(r0, r1), b = _mm512_unpackhi_pd(r0, r1);
  const __m512d c = _mm512_unpacklo_pd(r4, r5), d = _mm512_unpackhi_pd(r4, r5);
  return {{_mm512_shuffle_f64x2(a, c, 0x88), _mm512_shuffle_f64x2(b, d, 0x88), _mm512_shuffle_f64x2(a, c, 0xDD),
           _mm512_shuffle_f64x2(b, d, 0xDD)}};
}
// Both columns of a table of 16-byte rows.
template <int First = 0>
[[gnu::always_inline]] inline Pair<F64> gather(const double (*table)[2], const RowIndices& k) {
  return gather_twos([&](int i) { return k.row<First>(table, i); });
}
template <int First = 0>
inline F64 gather_first(const double (*table)[2], Indices k) {  // the first alone
  const auto* first = static_cast<const double*>(row_zero<2 * First>(&table[0][0]));
  return _mm512_mask_i64gather_pd(_mm512_setzero_pd(), 0xFF, _mm512_slli_epi64(k.v, 1), first, 8);
}
// The four columns of a table of 32-byte rows.
template <int First = 0>
[[gnu::always_inline]] inline Quad<F64> gather(const double (*table)[4], const RowIndices& k) {
  return gather_fours([&](int i) { return k.row<First>(table, i); });
}
// Rows k and k + 1 of a table of 16-byte rows: four elements.
inline constexpr bool kGathersTwoRows = true;
[[gnu::always_inline]] inline Quad<F64> gather_two_rows(const double (*table)[2], const RowIndices& k) {
  return gather_fours([&](int i) { return k.row<0>(table, i); });
}
// The four columns of a table of 16-byte rows of floats; indices of 32 bits, not negative.
inline Quad<F32> gather(const float (*table)[4], I32 index) {
  alignas(64) uint32_t twos[16];  // see RowIndices
  const __m512i k = _mm512_slli_epi32(index.v, 1);
  _mm256_store_si256(reinterpret_cast<__m256i*>(twos), low_256(k));
  _mm256_store_si256(reinterpret_cast<__m256i*>(twos + 8), high_256(k));
  asm("" : "+m"(twos));
  const auto row = [&](int i) {
    return _mm_loadu_ps(reinterpret_cast<const float*>(reinterpret_cast<uintptr_t>(table) + uint64_t{8} * twos[i]));
  };
  const auto rows = [&](int j) {  // every fourth one from j on
    const __m256 two = _mm256_insertf128_ps(_mm256_castps128_ps256(row(j)), row(j + 4), 1);
    const __m512 three = _mm512_mask_broadcast_f32x4(_mm512_castps256_ps512(two), 0x0F00, row(j + 8));
    return _mm512_mask_broadcast_f32x4(three, 0xF000, row(j + 12));
  };
  const __m512 r0 = rows(0), r1 = rows(1), r2 = rows(2), r3 = rows(3);
  const __m512 a = _mm512_unpacklo_ps(r0, r1), b = _mm512_unpackhi_ps(r0, r1);
  const __m512 c = _mm512_unpacklo_ps(r2, r3), d = _mm512_unpackhi_ps(r2, r3);
  return {{_mm512_shuffle_ps(a, c, 0x44), _mm512_shuffle_ps(a, c, 0xEE), _mm512_shuffle_ps(b, d, 0x44),
           _mm512_shuffle_ps(b, d, 0xEE)}};
}

}  // namespace orvik

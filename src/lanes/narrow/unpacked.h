// Vectors of floats as two of doubles in the order of unpacking; small tables of doubles.
#pragma once

#include "lanes/narrow/tables.h"
#include "lanes/narrow/vectors.h"

namespace orvik {

// Both halves of lanes with these low and high words.
inline Pair<I64> unpack(I32 low, I32 high) {
  return {_mm256_unpacklo_epi32(low.v, high.v), _mm256_unpackhi_epi32(low.v, high.v)};
}

// The first halves of the register's halves, then the second ones; and back.
inline F32 unpacked_order(F32 a) { return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(a.v), 0xD8)); }
inline F32 narrow_unpacked(F64 first, F64 second) { return unpacked_order(narrow(first, second)); }

// The columns of sixteen rows, for both halves, by the low four bits of the index.
inline Pair<Pair<F64>> look_up_in_16(const double (*table)[2], I32 index, Pair<I64>) {
  alignas(32) uint32_t row[8];
  _mm256_store_si256(reinterpret_cast<__m256i*>(row), (shift_left<1>(index) & I32(30)).v);  // of its first number
  asm("" : "+m"(row));                                                                      // see Indices
  const auto columns = [&](int first) {
    const auto rows = [&](int i) {
      return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_load_pd(*table + row[i])),
                                  _mm_load_pd(*table + row[i + 4]), 1);
    };
    const __m256d even = rows(first), odd = rows(first + 1);
    return Pair<F64>{_mm256_unpacklo_pd(even, odd), _mm256_unpackhi_pd(even, odd)};
  };
  return {columns(0), columns(2)};
}

}  // namespace orvik

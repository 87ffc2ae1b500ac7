// Vectors of floats as two of doubles in the order of unpacking; tables of doubles in registers.
#pragma once

#include "lanes/wide/vectors.h"

namespace orvik {

// Both halves of lanes with these low and high words.
inline Pair<I64> unpack(I32 low, I32 high) {
  return {_mm512_unpacklo_epi32(low.v, high.v), _mm512_unpackhi_epi32(low.v, high.v)};
}

// The first halves of the register's quarters, then the second ones; and back.
inline F32 unpacked_order(F32 a) {
  const __m512i order = _mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7);
  return _mm512_castsi512_ps(_mm512_permutexvar_epi64(order, _mm512_castps_si512(a.v)));
}
inline F32 narrow_unpacked(F64 first, F64 second) {
  const __m512d a = _mm512_castps_pd(_mm512_castps256_ps512(_mm512_cvtpd_ps(first.v)));
  const __m512d b = _mm512_castps_pd(_mm512_castps256_ps512(_mm512_cvtpd_ps(second.v)));
  return _mm512_castpd_ps(_mm512_permutex2var_pd(a, _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11), b));
}

// The columns of sixteen rows, for both halves, by the low four bits of the index, which is unpacked in `keys` as the
// low words.
inline Pair<Pair<F64>> look_up_in_16(const double (*table)[2], I32, Pair<I64> keys) {
  const auto column = [&](int first, const __m512i& order) {
    return _mm512_permutex2var_pd(_mm512_loadu_pd(table[first]), order, _mm512_loadu_pd(table[first + 4]));
  };
  const __m512i even = _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14), odd = _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15);
  const __m512d firsts = column(0, even), more_firsts = column(8, even);
  const __m512d seconds = column(0, odd), more_seconds = column(8, odd);
  const auto columns = [&](I64 key) {
    return Pair<F64>{_mm512_permutex2var_pd(firsts, key.v, more_firsts),
                     _mm512_permutex2var_pd(seconds, key.v, more_seconds)};
  };
  return {columns(keys.first), columns(keys.second)};
}

}  // namespace orvik

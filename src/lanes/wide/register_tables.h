// Tables of doubles that 512-bit registers hold.
#pragma once

#include "lanes/wide/vectors.h"

namespace orvik {

// By the low three and four bits of the index.
inline F64 look_up_in_8(const double* table, I64 index) {
  return _mm512_permutexvar_pd(index.v, _mm512_loadu_pd(table));
}
inline F64 look_up_in_16(const double* table, I64 index) {
  return _mm512_permutex2var_pd(_mm512_loadu_pd(table), index.v, _mm512_loadu_pd(table + 8));
}

}  // namespace orvik

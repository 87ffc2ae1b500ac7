// The first lanes of a register of 512 bits, as a mask of loads and stores; those of 256 bits are in narrow/memory.h.
#pragma once

#include "lanes/wide/memory.h"

namespace orvik {

inline namespace wide {
template <class V>
struct FirstLanes {
  decltype(lane_mask(V(), 0)) mask;
};
}  // namespace wide
// k at or beyond the width: all.
template <class V>
inline FirstLanes<V> first_lanes(int64_t k) {
  return {lane_mask(V(), k < kWidth<V> ? static_cast<int>(k) : kWidth<V>)};
}
inline F32 load(const float* p, FirstLanes<F32> first) { return _mm512_maskz_loadu_ps(first.mask, p); }
inline F64 load(const double* p, FirstLanes<F64> first) { return _mm512_maskz_loadu_pd(first.mask, p); }
inline void store(float* p, FirstLanes<F32> first, F32 a) { _mm512_mask_storeu_ps(p, first.mask, a.v); }
inline void store(double* p, FirstLanes<F64> first, F64 a) { _mm512_mask_storeu_pd(p, first.mask, a.v); }
inline F32 keep(FirstLanes<F32> first, F32 a) { return _mm512_maskz_mov_ps(first.mask, a.v); }
inline F64 keep(FirstLanes<F64> first, F64 a) { return _mm512_maskz_mov_pd(first.mask, a.v); }

}  // namespace orvik

// Chosen lanes of 512-bit registers. From register to register: the forms that store are slow on some processors. Eight
// lanes by a table of their orders: as many operations as the instructions have, which some processors take long over.
#pragma once

#include <cstdint>

#include "lanes/lane_orders.h"
#include "lanes/types.h"

namespace orvik {

inline F32 compress(F32 x, uint32_t bits) { return _mm512_maskz_compress_ps(_cvtu32_mask16(bits), x.v); }
inline F32 expand(F32 x, uint32_t bits) { return _mm512_maskz_expand_ps(_cvtu32_mask16(bits), x.v); }
inline F64 in_order(F64 x, const uint8_t* order) {
  return _mm512_permutexvar_pd(_mm512_cvtepu8_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(order))), x.v);
}
inline F64 compress(F64 x, uint32_t bits) { return in_order(x, kLaneOrders.compressed[bits]); }
inline F64 expand(F64 x, uint32_t bits) { return in_order(x, kLaneOrders.expanded[bits]); }

inline void store(int32_t* p, I32Half a) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a.v); }

}  // namespace orvik

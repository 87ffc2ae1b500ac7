// Chosen lanes of 512-bit registers. From register to register: the forms that store are slow on some processors.
#pragma once

#include <cstdint>

#include "lanes/types.h"

namespace orvik {

inline F32 compress(F32 x, uint32_t bits) { return _mm512_maskz_compress_ps(_cvtu32_mask16(bits), x.v); }
inline F32 expand(F32 x, uint32_t bits) { return _mm512_maskz_expand_ps(_cvtu32_mask16(bits), x.v); }
inline F64 compress(F64 x, uint32_t bits) { return _mm512_maskz_compress_pd(_cvtu32_mask8(bits), x.v); }
inline F64 expand(F64 x, uint32_t bits) { return _mm512_maskz_expand_pd(_cvtu32_mask8(bits), x.v); }

inline void store(int32_t* p, I32Half a) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a.v); }

}  // namespace orvik

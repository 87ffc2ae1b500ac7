// Arithmetic, bits, masks and conversions of the 512-bit lane types.
#pragma once

#include "lanes/types.h"

namespace orvik {

// --- arithmetic -----------------------------------------------------------------------------------------------------

inline F32 operator+(F32 a, F32 b) { return _mm512_add_ps(a.v, b.v); }
inline F64 operator+(F64 a, F64 b) { return _mm512_add_pd(a.v, b.v); }
inline F32 operator-(F32 a, F32 b) { return _mm512_sub_ps(a.v, b.v); }
inline F64 operator-(F64 a, F64 b) { return _mm512_sub_pd(a.v, b.v); }
inline F32 operator*(F32 a, F32 b) { return _mm512_mul_ps(a.v, b.v); }
inline F64 operator*(F64 a, F64 b) { return _mm512_mul_pd(a.v, b.v); }
inline F32 operator/(F32 a, F32 b) { return _mm512_div_ps(a.v, b.v); }
inline F64 operator/(F64 a, F64 b) { return _mm512_div_pd(a.v, b.v); }

// a b + c, a b - c, c - a b, each with one rounding.
inline F32 fma(F32 a, F32 b, F32 c) { return _mm512_fmadd_ps(a.v, b.v, c.v); }
inline F64 fma(F64 a, F64 b, F64 c) { return _mm512_fmadd_pd(a.v, b.v, c.v); }
inline F32 fms(F32 a, F32 b, F32 c) { return _mm512_fmsub_ps(a.v, b.v, c.v); }
inline F64 fms(F64 a, F64 b, F64 c) { return _mm512_fmsub_pd(a.v, b.v, c.v); }
inline F32 fnma(F32 a, F32 b, F32 c) { return _mm512_fnmadd_ps(a.v, b.v, c.v); }
inline F64 fnma(F64 a, F64 b, F64 c) { return _mm512_fnmadd_pd(a.v, b.v, c.v); }

// By the round instruction's operand.
template <int Operand>
inline F32 round_by(F32 a) {
  return _mm512_roundscale_ps(a.v, Operand);
}
template <int Operand>
inline F64 round_by(F64 a) {
  return _mm512_roundscale_pd(a.v, Operand);
}

inline F32 sqrt(F32 a) { return _mm512_sqrt_ps(a.v); }
inline F64 sqrt(F64 a) { return _mm512_sqrt_pd(a.v); }

// Halves of a register, and a register of halves.
inline __m256 low_256(__m512 a) { return _mm512_castps512_ps256(a); }
inline __m256 high_256(__m512 a) { return _mm512_extractf32x8_ps(a, 1); }
inline __m256i low_256(__m512i a) { return _mm512_castsi512_si256(a); }
inline __m256i high_256(__m512i a) { return _mm512_extracti32x8_epi32(a, 1); }
inline __m512 join_256(__m256 low, __m256 high) { return _mm512_insertf32x8(_mm512_castps256_ps512(low), high, 1); }
inline __m512i join_256(__m256i low, __m256i high) {
  return _mm512_inserti32x8(_mm512_castsi256_si512(low), high, 1);
}

// 1/a and 1/sqrt(a) as the lanes of 256 bits estimate them, by the same instruction: those of 512 bits have others, with
// other bits.
inline F32 reciprocal_estimate(F32 a) { return join_256(_mm256_rcp_ps(low_256(a.v)), _mm256_rcp_ps(high_256(a.v))); }
inline F32 inverse_root_estimate(F32 a) {
  return join_256(_mm256_rsqrt_ps(low_256(a.v)), _mm256_rsqrt_ps(high_256(a.v)));
}
inline F64 reciprocal_estimate(F64 a) { return _mm512_cvtps_pd(_mm256_rcp_ps(_mm512_cvtpd_ps(a.v))); }

// The instruction's own choice on NaNs and zeros: b unless a is greater (less).
inline F32 max(F32 a, F32 b) { return _mm512_max_ps(a.v, b.v); }
inline F64 max(F64 a, F64 b) { return _mm512_max_pd(a.v, b.v); }
inline F32 min(F32 a, F32 b) { return _mm512_min_ps(a.v, b.v); }
inline F64 min(F64 a, F64 b) { return _mm512_min_pd(a.v, b.v); }

// --- masks ----------------------------------------------------------------------------------------------------------

// Quiet comparisons: a NaN compares false, and no flag is raised for a quiet one.
inline M32 operator>(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_GT_OQ)); }
inline M64 operator>(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_GT_OQ)); }
inline M32 operator<(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_LT_OQ)); }
inline M64 operator<(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_LT_OQ)); }
inline M32 operator>=(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_GE_OQ)); }
inline M64 operator>=(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_GE_OQ)); }
inline M32 operator<=(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_LE_OQ)); }
inline M64 operator<=(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_LE_OQ)); }
inline M32 operator==(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_EQ_OQ)); }
inline M64 operator==(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_EQ_OQ)); }
// True for a NaN.
inline M32 equal_or_unordered(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_EQ_UQ)); }
inline M64 equal_or_unordered(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_EQ_UQ)); }
inline M32 unordered(F32 a, F32 b) { return M32(_mm512_cmp_ps_mask(a.v, b.v, _CMP_UNORD_Q)); }
inline M64 unordered(F64 a, F64 b) { return M64(_mm512_cmp_pd_mask(a.v, b.v, _CMP_UNORD_Q)); }

inline M32 operator&(M32 a, M32 b) { return M32(_kand_mask16(a.v, b.v)); }
inline M64 operator&(M64 a, M64 b) { return M64(_kand_mask8(a.v, b.v)); }
inline M32 operator|(M32 a, M32 b) { return M32(_kor_mask16(a.v, b.v)); }
inline M64 operator|(M64 a, M64 b) { return M64(_kor_mask8(a.v, b.v)); }
inline M32 operator^(M32 a, M32 b) { return M32(_kxor_mask16(a.v, b.v)); }
inline M64 operator^(M64 a, M64 b) { return M64(_kxor_mask8(a.v, b.v)); }
inline M32 complement(M32 a) { return M32(_knot_mask16(a.v)); }
inline M64 complement(M64 a) { return M64(_knot_mask8(a.v)); }
// b where a is not.
inline M32 andnot(M32 a, M32 b) { return M32(_kandn_mask16(a.v, b.v)); }
inline M64 andnot(M64 a, M64 b) { return M64(_kandn_mask8(a.v, b.v)); }

inline F32 select(M32 mask, F32 yes, F32 no) { return _mm512_mask_blend_ps(mask.v, no.v, yes.v); }
inline F64 select(M64 mask, F64 yes, F64 no) { return _mm512_mask_blend_pd(mask.v, no.v, yes.v); }
inline I32 select(M32 mask, I32 yes, I32 no) { return _mm512_mask_blend_epi32(mask.v, no.v, yes.v); }
inline I64 select(M64 mask, I64 yes, I64 no) { return _mm512_mask_blend_epi64(mask.v, no.v, yes.v); }
// a or +0.
inline F32 keep(M32 mask, F32 a) { return _mm512_maskz_mov_ps(mask.v, a.v); }
inline F64 keep(M64 mask, F64 a) { return _mm512_maskz_mov_pd(mask.v, a.v); }
inline F32 drop(M32 mask, F32 a) { return _mm512_maskz_mov_ps(_knot_mask16(mask.v), a.v); }
inline F64 drop(M64 mask, F64 a) { return _mm512_maskz_mov_pd(_knot_mask8(mask.v), a.v); }

inline uint32_t lane_bits(M32 mask) { return _cvtmask16_u32(mask.v); }
inline uint32_t lane_bits(M64 mask) { return _cvtmask8_u32(mask.v); }
inline bool none(M32 mask) { return _kortestz_mask16_u8(mask.v, mask.v) != 0; }
inline bool none(M64 mask) { return _kortestz_mask8_u8(mask.v, mask.v) != 0; }

// True where a bit is set, the lowest first.
inline M32 mask_of_bits(F32, uint32_t bits) { return M32(_cvtu32_mask16(bits)); }
inline M64 mask_of_bits(F64, uint32_t bits) { return M64(_cvtu32_mask8(bits)); }

// --- bits -----------------------------------------------------------------------------------------------------------

inline F32 operator&(F32 a, F32 b) { return _mm512_and_ps(a.v, b.v); }
inline F64 operator&(F64 a, F64 b) { return _mm512_and_pd(a.v, b.v); }
inline F32 operator|(F32 a, F32 b) { return _mm512_or_ps(a.v, b.v); }
inline F64 operator|(F64 a, F64 b) { return _mm512_or_pd(a.v, b.v); }
inline F32 operator^(F32 a, F32 b) { return _mm512_xor_ps(a.v, b.v); }
inline F64 operator^(F64 a, F64 b) { return _mm512_xor_pd(a.v, b.v); }
inline F32 andnot(F32 mask, F32 a) { return _mm512_andnot_ps(mask.v, a.v); }
inline F64 andnot(F64 mask, F64 a) { return _mm512_andnot_pd(mask.v, a.v); }

inline I32 operator+(I32 a, I32 b) { return _mm512_add_epi32(a.v, b.v); }
inline I64 operator+(I64 a, I64 b) { return _mm512_add_epi64(a.v, b.v); }
inline I32 operator-(I32 a, I32 b) { return _mm512_sub_epi32(a.v, b.v); }
inline I64 operator-(I64 a, I64 b) { return _mm512_sub_epi64(a.v, b.v); }
inline I32 operator&(I32 a, I32 b) { return _mm512_and_si512(a.v, b.v); }
inline I64 operator&(I64 a, I64 b) { return _mm512_and_si512(a.v, b.v); }
inline I32 operator|(I32 a, I32 b) { return _mm512_or_si512(a.v, b.v); }
inline I64 operator|(I64 a, I64 b) { return _mm512_or_si512(a.v, b.v); }
inline I32 operator^(I32 a, I32 b) { return _mm512_xor_si512(a.v, b.v); }
inline I64 operator^(I64 a, I64 b) { return _mm512_xor_si512(a.v, b.v); }
inline I32 operator*(I32 a, I32 b) { return _mm512_mullo_epi32(a.v, b.v); }
// Of the low halves of 64-bit lanes, as numbers without a sign.
inline I64 multiply_low_words(I64 a, I64 b) { return _mm512_mul_epu32(a.v, b.v); }
// Of the low 16-bit halves of words whose high halves are zero, the factors below 2^15: exact.
inline I32 multiply_low_halves(I32 a, int16_t b) { return _mm512_madd_epi16(a.v, _mm512_set1_epi16(b)); }
// Of each 16-bit half of the words: the high 16 bits of the product without a sign.
inline I32 multiply_high16(I32 a, uint16_t b) {
  return _mm512_mulhi_epu16(a.v, _mm512_set1_epi16(static_cast<int16_t>(b)));
}
inline I64 multiply_high16(I64 a, uint16_t b) {
  return _mm512_mulhi_epu16(a.v, _mm512_set1_epi16(static_cast<int16_t>(b)));
}

inline M32 equal(I32 a, I32 b) { return M32(_mm512_cmpeq_epi32_mask(a.v, b.v)); }
inline M64 equal(I64 a, I64 b) { return M64(_mm512_cmpeq_epi64_mask(a.v, b.v)); }
inline M32 greater_signed(I32 a, I32 b) { return M32(_mm512_cmpgt_epi32_mask(a.v, b.v)); }
inline M64 greater_signed(I64 a, I64 b) { return M64(_mm512_cmpgt_epi64_mask(a.v, b.v)); }
// All ones (-1) where a mask is true.
// By hand: compilers take vpmovm2d and vpmovm2q, which wait for the register that they overwrite (Golden Cove), so that a loop's
// rounds follow one another.
inline I32 minus_one(M32 mask) {
  __m512i a;
  asm("vmovdqa32 %2, %0%{%1%}%{z%}" : "=v"(a) : "Yk"(mask.v), "v"(_mm512_set1_epi32(-1)));
  return a;
}
inline I64 minus_one(M64 mask) {
  __m512i a;
  asm("vmovdqa64 %2, %0%{%1%}%{z%}" : "=v"(a) : "Yk"(mask.v), "v"(_mm512_set1_epi64(-1)));
  return a;
}

template <int Count>
inline I32 shift_left(I32 a) {
  return _mm512_slli_epi32(a.v, Count);
}
template <int Count>
inline I32 shift_right(I32 a) {  // logical
  return _mm512_srli_epi32(a.v, Count);
}
// By as many as each lane says; 0 from the lane's width on.
inline I32 shift_left(I32 a, I32 count) { return _mm512_sllv_epi32(a.v, count.v); }
inline I32 shift_right(I32 a, I32 count) { return _mm512_srlv_epi32(a.v, count.v); }

template <int Count>
inline I64 shift_left(I64 a) {
  return _mm512_slli_epi64(a.v, Count);
}
template <int Count>
inline I64 shift_right(I64 a) {  // logical
  return _mm512_srli_epi64(a.v, Count);
}
// By as many as each lane says; 0 from the lane's width on.
inline I64 shift_left(I64 a, I64 count) { return _mm512_sllv_epi64(a.v, count.v); }
inline I64 shift_right(I64 a, I64 count) { return _mm512_srlv_epi64(a.v, count.v); }
template <int Count>
inline I32 shift_right_arithmetic(I32 a) {
  return _mm512_srai_epi32(a.v, Count);
}

// The same register, read in lanes of the other width.
inline I32 as_words(I64 a) { return a.v; }
inline I64 as_long_words(I32 a) { return a.v; }
// Bytes of `yes` where the top bit of the mask's byte is set.
inline I64 select_bytes(I64 mask, I64 yes, I64 no) {
  return _mm512_mask_blend_epi8(_mm512_movepi8_mask(mask.v), no.v, yes.v);
}

inline I32 as_bits(F32 a) { return _mm512_castps_si512(a.v); }
inline I64 as_bits(F64 a) { return _mm512_castpd_si512(a.v); }
inline F32 as_float(I32 a) { return _mm512_castsi512_ps(a.v); }
inline F64 as_float(I64 a) { return _mm512_castsi512_pd(a.v); }

// The sign bit as a mask.
inline M32 sign_decides(F32 a) { return M32(_mm512_movepi32_mask(_mm512_castps_si512(a.v))); }
inline M64 sign_decides(F64 a) { return M64(_mm512_movepi64_mask(_mm512_castpd_si512(a.v))); }

// --- conversions ----------------------------------------------------------------------------------------------------

// Between integers with a sign and floats; to nearest.
inline F32 to_float(I32 a) { return _mm512_cvtepi32_ps(a.v); }
inline I32 to_integer(F32 a) { return _mm512_cvtps_epi32(a.v); }
inline F64 to_double(I32Half a) { return _mm512_cvtepi32_pd(a.v); }
inline I32Half to_integer(F64 a) { return _mm512_cvtpd_epi32(a.v); }

// Halves of sixteen lanes of 32 bits as eight of 64, and back.
inline F64 widen_low(F32 a) { return _mm512_cvtps_pd(low_256(a.v)); }
inline F64 widen_high(F32 a) { return _mm512_cvtps_pd(high_256(a.v)); }
inline F32 narrow(F64 low, F64 high) { return join_256(_mm512_cvtpd_ps(low.v), _mm512_cvtpd_ps(high.v)); }
inline I32Half low_half(I32 a) { return low_256(a.v); }
inline I32Half high_half(I32 a) { return high_256(a.v); }
inline I32 join(I32Half low, I32Half high) { return join_256(low.v, high.v); }
inline I64 widen(I32Half a) { return _mm512_cvtepi32_epi64(a.v); }  // with its sign
inline I32Half low_words(I64 a) { return _mm512_cvtepi64_epi32(a.v); }
inline I32Half operator+(I32Half a, I32Half b) { return _mm256_add_epi32(a.v, b.v); }
inline I32Half operator-(I32Half a, I32Half b) { return _mm256_sub_epi32(a.v, b.v); }
inline I32Half operator&(I32Half a, I32Half b) { return _mm256_and_si256(a.v, b.v); }

// --- tests of whole blocks ------------------------------------------------------------------------------------------

inline I32 larger_words(I32 a, I32 b) { return _mm512_max_epi32(a.v, b.v); }
inline I64 larger_words(I64 a, I64 b) { return _mm512_max_epi32(a.v, b.v); }
inline I32 smaller_words(I32 a, I32 b) { return _mm512_min_epi32(a.v, b.v); }
inline I64 smaller_words(I64 a, I64 b) { return _mm512_min_epi32(a.v, b.v); }
inline I32 subtract_from_words(uint32_t a, I32 b) { return I32(a) - b; }
inline I64 subtract_from_words(uint32_t a, I64 b) {
  return _mm512_sub_epi32(_mm512_set1_epi32(static_cast<int32_t>(a)), b.v);
}
// 32-bit words as numbers with a sign; in 64-bit lanes the high word's answer is the lane's, which the low words all
// ones make it.
inline M32 words_above(I32 a, int32_t bound) {
  return M32(_mm512_cmpgt_epi32_mask(a.v, _mm512_set1_epi32(bound)));
}
inline M64 words_above(I64 a, int32_t bound) {
  const auto high = static_cast<uint64_t>(static_cast<uint32_t>(bound)) << 32;
  return M64(_mm512_cmpgt_epi64_mask(a.v, _mm512_set1_epi64(static_cast<int64_t>(high | 0xFFFFFFFFu))));
}
inline I32 add_to_words(I32 a, uint32_t b) { return a + I32(b); }
inline I64 add_to_words(I64 a, uint32_t b) { return _mm512_add_epi32(a.v, _mm512_set1_epi32(static_cast<int32_t>(b))); }

}  // namespace orvik

// Arithmetic, bits, masks and conversions of the 256-bit lane types.
#pragma once

#include "lanes/types.h"

namespace orvik {

// --- arithmetic -----------------------------------------------------------------------------------------------------

inline F32 operator+(F32 a, F32 b) { return _mm256_add_ps(a.v, b.v); }
inline F64 operator+(F64 a, F64 b) { return _mm256_add_pd(a.v, b.v); }
inline F32 operator-(F32 a, F32 b) { return _mm256_sub_ps(a.v, b.v); }
inline F64 operator-(F64 a, F64 b) { return _mm256_sub_pd(a.v, b.v); }
inline F32 operator*(F32 a, F32 b) { return _mm256_mul_ps(a.v, b.v); }
inline F64 operator*(F64 a, F64 b) { return _mm256_mul_pd(a.v, b.v); }
inline F32 operator/(F32 a, F32 b) { return _mm256_div_ps(a.v, b.v); }
inline F64 operator/(F64 a, F64 b) { return _mm256_div_pd(a.v, b.v); }

// a b + c, a b - c, c - a b, each with one rounding.
inline F32 fma(F32 a, F32 b, F32 c) { return _mm256_fmadd_ps(a.v, b.v, c.v); }
inline F64 fma(F64 a, F64 b, F64 c) { return _mm256_fmadd_pd(a.v, b.v, c.v); }
inline F32 fms(F32 a, F32 b, F32 c) { return _mm256_fmsub_ps(a.v, b.v, c.v); }
inline F64 fms(F64 a, F64 b, F64 c) { return _mm256_fmsub_pd(a.v, b.v, c.v); }
inline F32 fnma(F32 a, F32 b, F32 c) { return _mm256_fnmadd_ps(a.v, b.v, c.v); }
inline F64 fnma(F64 a, F64 b, F64 c) { return _mm256_fnmadd_pd(a.v, b.v, c.v); }

// By the round instruction's operand.
template <int Operand>
inline F32 round_by(F32 a) {
  return _mm256_round_ps(a.v, Operand);
}
template <int Operand>
inline F64 round_by(F64 a) {
  return _mm256_round_pd(a.v, Operand);
}

inline F32 sqrt(F32 a) { return _mm256_sqrt_ps(a.v); }
inline F64 sqrt(F64 a) { return _mm256_sqrt_pd(a.v); }

// 1/a and 1/sqrt(a) with a relative error of at most 1.5 * 2^-12. The bits differ between processor makers. Denormals
// count as zero.
inline F32 reciprocal_estimate(F32 a) { return _mm256_rcp_ps(a.v); }
inline F32 inverse_root_estimate(F32 a) { return _mm256_rsqrt_ps(a.v); }

// The same of the narrowed values: what is no normal float is out of range.
inline F64 reciprocal_estimate(F64 a) { return _mm256_cvtps_pd(_mm_rcp_ps(_mm256_cvtpd_ps(a.v))); }

// The instruction's own choice on NaNs and zeros: b unless a is greater (less).
inline F32 max(F32 a, F32 b) { return _mm256_max_ps(a.v, b.v); }
inline F64 max(F64 a, F64 b) { return _mm256_max_pd(a.v, b.v); }
inline F32 min(F32 a, F32 b) { return _mm256_min_ps(a.v, b.v); }
inline F64 min(F64 a, F64 b) { return _mm256_min_pd(a.v, b.v); }

// --- masks ----------------------------------------------------------------------------------------------------------

// Quiet comparisons: a NaN compares false, and no flag is raised for a quiet one.
inline M32 operator>(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_GT_OQ)); }
inline M64 operator>(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_GT_OQ)); }
inline M32 operator<(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ)); }
inline M64 operator<(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_LT_OQ)); }
inline M32 operator>=(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_GE_OQ)); }
inline M64 operator>=(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_GE_OQ)); }
inline M32 operator<=(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_LE_OQ)); }
inline M64 operator<=(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_LE_OQ)); }
inline M32 operator==(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_EQ_OQ)); }
inline M64 operator==(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_EQ_OQ)); }
// True for a NaN.
inline M32 equal_or_unordered(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_EQ_UQ)); }
inline M64 equal_or_unordered(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_EQ_UQ)); }
inline M32 unordered(F32 a, F32 b) { return M32(_mm256_cmp_ps(a.v, b.v, _CMP_UNORD_Q)); }
inline M64 unordered(F64 a, F64 b) { return M64(_mm256_cmp_pd(a.v, b.v, _CMP_UNORD_Q)); }

inline M32 operator&(M32 a, M32 b) { return M32(_mm256_and_ps(a.v, b.v)); }
inline M64 operator&(M64 a, M64 b) { return M64(_mm256_and_pd(a.v, b.v)); }
inline M32 operator|(M32 a, M32 b) { return M32(_mm256_or_ps(a.v, b.v)); }
inline M64 operator|(M64 a, M64 b) { return M64(_mm256_or_pd(a.v, b.v)); }
inline M32 operator^(M32 a, M32 b) { return M32(_mm256_xor_ps(a.v, b.v)); }
inline M64 operator^(M64 a, M64 b) { return M64(_mm256_xor_pd(a.v, b.v)); }
inline M32 complement(M32 a) { return M32(_mm256_xor_ps(a.v, _mm256_castsi256_ps(_mm256_set1_epi32(-1)))); }
inline M64 complement(M64 a) { return M64(_mm256_xor_pd(a.v, _mm256_castsi256_pd(_mm256_set1_epi32(-1)))); }
// b where a is not.
inline M32 andnot(M32 a, M32 b) { return M32(_mm256_andnot_ps(a.v, b.v)); }
inline M64 andnot(M64 a, M64 b) { return M64(_mm256_andnot_pd(a.v, b.v)); }

inline F32 select(M32 mask, F32 yes, F32 no) { return _mm256_blendv_ps(no.v, yes.v, mask.v); }
inline F64 select(M64 mask, F64 yes, F64 no) { return _mm256_blendv_pd(no.v, yes.v, mask.v); }
inline I32 select(M32 mask, I32 yes, I32 no) {
  return _mm256_castps_si256(_mm256_blendv_ps(_mm256_castsi256_ps(no.v), _mm256_castsi256_ps(yes.v), mask.v));
}
inline I64 select(M64 mask, I64 yes, I64 no) {
  return _mm256_castpd_si256(_mm256_blendv_pd(_mm256_castsi256_pd(no.v), _mm256_castsi256_pd(yes.v), mask.v));
}
// a or +0.
inline F32 keep(M32 mask, F32 a) { return _mm256_and_ps(mask.v, a.v); }
inline F64 keep(M64 mask, F64 a) { return _mm256_and_pd(mask.v, a.v); }
inline F32 drop(M32 mask, F32 a) { return _mm256_andnot_ps(mask.v, a.v); }
inline F64 drop(M64 mask, F64 a) { return _mm256_andnot_pd(mask.v, a.v); }

inline uint32_t lane_bits(M32 mask) { return static_cast<uint32_t>(_mm256_movemask_ps(mask.v)); }
inline uint32_t lane_bits(M64 mask) { return static_cast<uint32_t>(_mm256_movemask_pd(mask.v)); }
inline bool none(M32 mask) { return _mm256_testz_ps(mask.v, mask.v) != 0; }
inline bool none(M64 mask) { return _mm256_testz_pd(mask.v, mask.v) != 0; }

// True where a bit is set, the lowest first.
inline M32 mask_of_bits(F32, uint32_t bits) {
  const __m256i each = _mm256_setr_epi32(1, 2, 4, 8, 16, 32, 64, 128);
  const __m256i all = _mm256_set1_epi32(static_cast<int32_t>(bits));
  return M32(_mm256_castsi256_ps(_mm256_cmpeq_epi32(_mm256_and_si256(all, each), each)));
}
inline M64 mask_of_bits(F64, uint32_t bits) {
  const __m256i each = _mm256_setr_epi64x(1, 2, 4, 8);
  const __m256i all = _mm256_set1_epi64x(static_cast<int64_t>(bits));
  return M64(_mm256_castsi256_pd(_mm256_cmpeq_epi64(_mm256_and_si256(all, each), each)));
}

// --- bits -----------------------------------------------------------------------------------------------------------

inline F32 operator&(F32 a, F32 b) { return _mm256_and_ps(a.v, b.v); }
inline F64 operator&(F64 a, F64 b) { return _mm256_and_pd(a.v, b.v); }
inline F32 operator|(F32 a, F32 b) { return _mm256_or_ps(a.v, b.v); }
inline F64 operator|(F64 a, F64 b) { return _mm256_or_pd(a.v, b.v); }
inline F32 operator^(F32 a, F32 b) { return _mm256_xor_ps(a.v, b.v); }
inline F64 operator^(F64 a, F64 b) { return _mm256_xor_pd(a.v, b.v); }
inline F32 andnot(F32 mask, F32 a) { return _mm256_andnot_ps(mask.v, a.v); }
inline F64 andnot(F64 mask, F64 a) { return _mm256_andnot_pd(mask.v, a.v); }

inline I32 operator+(I32 a, I32 b) { return _mm256_add_epi32(a.v, b.v); }
inline I64 operator+(I64 a, I64 b) { return _mm256_add_epi64(a.v, b.v); }
inline I32 operator-(I32 a, I32 b) { return _mm256_sub_epi32(a.v, b.v); }
inline I64 operator-(I64 a, I64 b) { return _mm256_sub_epi64(a.v, b.v); }
inline I32 operator&(I32 a, I32 b) { return _mm256_and_si256(a.v, b.v); }
inline I64 operator&(I64 a, I64 b) { return _mm256_and_si256(a.v, b.v); }
inline I32 operator|(I32 a, I32 b) { return _mm256_or_si256(a.v, b.v); }
inline I64 operator|(I64 a, I64 b) { return _mm256_or_si256(a.v, b.v); }
inline I32 operator^(I32 a, I32 b) { return _mm256_xor_si256(a.v, b.v); }
inline I64 operator^(I64 a, I64 b) { return _mm256_xor_si256(a.v, b.v); }
inline I32 operator*(I32 a, I32 b) { return _mm256_mullo_epi32(a.v, b.v); }
// Of the low halves of 64-bit lanes, as numbers without a sign.
inline I64 multiply_low_words(I64 a, I64 b) { return _mm256_mul_epu32(a.v, b.v); }
// Of the low 16-bit halves of words whose high halves are zero, the factors below 2^15: exact.
inline I32 multiply_low_halves(I32 a, int16_t b) { return _mm256_madd_epi16(a.v, _mm256_set1_epi16(b)); }
// Of each 16-bit half of the words: the high 16 bits of the product without a sign.
inline I32 multiply_high16(I32 a, uint16_t b) {
  return _mm256_mulhi_epu16(a.v, _mm256_set1_epi16(static_cast<int16_t>(b)));
}
inline I64 multiply_high16(I64 a, uint16_t b) {
  return _mm256_mulhi_epu16(a.v, _mm256_set1_epi16(static_cast<int16_t>(b)));
}

inline M32 equal(I32 a, I32 b) { return M32(_mm256_castsi256_ps(_mm256_cmpeq_epi32(a.v, b.v))); }
inline M64 equal(I64 a, I64 b) { return M64(_mm256_castsi256_pd(_mm256_cmpeq_epi64(a.v, b.v))); }
inline M32 greater_signed(I32 a, I32 b) { return M32(_mm256_castsi256_ps(_mm256_cmpgt_epi32(a.v, b.v))); }
inline M64 greater_signed(I64 a, I64 b) { return M64(_mm256_castsi256_pd(_mm256_cmpgt_epi64(a.v, b.v))); }
// All ones (-1) where a whole-lane mask is true.
inline I32 minus_one(M32 mask) { return _mm256_castps_si256(mask.v); }
inline I64 minus_one(M64 mask) { return _mm256_castpd_si256(mask.v); }

template <int Count>
inline I32 shift_left(I32 a) {
  return _mm256_slli_epi32(a.v, Count);
}
template <int Count>
inline I32 shift_right(I32 a) {  // logical
  return _mm256_srli_epi32(a.v, Count);
}
// By as many as each lane says; 0 from the lane's width on.
inline I32 shift_left(I32 a, I32 count) { return _mm256_sllv_epi32(a.v, count.v); }
inline I32 shift_right(I32 a, I32 count) { return _mm256_srlv_epi32(a.v, count.v); }

template <int Count>
inline I64 shift_left(I64 a) {
  return _mm256_slli_epi64(a.v, Count);
}
template <int Count>
inline I64 shift_right(I64 a) {  // logical
  return _mm256_srli_epi64(a.v, Count);
}
// By as many as each lane says; 0 from the lane's width on.
inline I64 shift_left(I64 a, I64 count) { return _mm256_sllv_epi64(a.v, count.v); }
inline I64 shift_right(I64 a, I64 count) { return _mm256_srlv_epi64(a.v, count.v); }
template <int Count>
inline I32 shift_right_arithmetic(I32 a) {
  return _mm256_srai_epi32(a.v, Count);
}

// The same register, read in lanes of the other width.
inline I32 as_words(I64 a) { return a.v; }
inline I64 as_long_words(I32 a) { return a.v; }
// Bytes of `yes` where the top bit of the mask's byte is set.
inline I64 select_bytes(I64 mask, I64 yes, I64 no) { return _mm256_blendv_epi8(no.v, yes.v, mask.v); }

inline I32 as_bits(F32 a) { return _mm256_castps_si256(a.v); }
inline I64 as_bits(F64 a) { return _mm256_castpd_si256(a.v); }
inline F32 as_float(I32 a) { return _mm256_castsi256_ps(a.v); }
inline F64 as_float(I64 a) { return _mm256_castsi256_pd(a.v); }

// The sign bit as a mask.
inline M32 sign_decides(F32 a) { return M32(a.v); }
inline M64 sign_decides(F64 a) { return M64(a.v); }

// --- conversions ----------------------------------------------------------------------------------------------------

// Between integers with a sign and floats; to nearest.
inline F32 to_float(I32 a) { return _mm256_cvtepi32_ps(a.v); }
inline I32 to_integer(F32 a) { return _mm256_cvtps_epi32(a.v); }
inline F64 to_double(I32Half a) { return _mm256_cvtepi32_pd(a.v); }
inline I32Half to_integer(F64 a) { return _mm256_cvtpd_epi32(a.v); }

// Halves of eight lanes of 32 bits as four of 64, and back.
inline F64 widen_low(F32 a) { return _mm256_cvtps_pd(_mm256_castps256_ps128(a.v)); }
inline F64 widen_high(F32 a) { return _mm256_cvtps_pd(_mm256_extractf128_ps(a.v, 1)); }
inline F32 narrow(F64 low, F64 high) {
  return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm256_cvtpd_ps(low.v)), _mm256_cvtpd_ps(high.v), 1);
}
inline I32Half low_half(I32 a) { return _mm256_castsi256_si128(a.v); }
inline I32Half high_half(I32 a) { return _mm256_extracti128_si256(a.v, 1); }
inline I32 join(I32Half low, I32Half high) { return _mm256_inserti128_si256(_mm256_castsi128_si256(low.v), high.v, 1); }
inline I64 widen(I32Half a) { return _mm256_cvtepi32_epi64(a.v); }  // with its sign
inline I32Half low_words(I64 a) {
  const __m256i even = _mm256_permutevar8x32_epi32(a.v, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
  return _mm256_castsi256_si128(even);
}
inline I32Half operator+(I32Half a, I32Half b) { return _mm_add_epi32(a.v, b.v); }
inline I32Half operator-(I32Half a, I32Half b) { return _mm_sub_epi32(a.v, b.v); }
inline I32Half operator&(I32Half a, I32Half b) { return _mm_and_si128(a.v, b.v); }

// --- tests of whole blocks ------------------------------------------------------------------------------------------

inline I32 larger_words(I32 a, I32 b) { return _mm256_max_epi32(a.v, b.v); }
inline I64 larger_words(I64 a, I64 b) { return _mm256_max_epi32(a.v, b.v); }
inline I32 smaller_words(I32 a, I32 b) { return _mm256_min_epi32(a.v, b.v); }
inline I64 smaller_words(I64 a, I64 b) { return _mm256_min_epi32(a.v, b.v); }
inline I32 subtract_from_words(uint32_t a, I32 b) { return I32(a) - b; }
inline I64 subtract_from_words(uint32_t a, I64 b) {
  return _mm256_sub_epi32(_mm256_set1_epi32(static_cast<int32_t>(a)), b.v);
}
// 32-bit words as numbers with a sign; in 64-bit lanes the high word's answer is the lane's.
inline M32 words_above(I32 a, int32_t bound) {
  return M32(_mm256_castsi256_ps(_mm256_cmpgt_epi32(a.v, _mm256_set1_epi32(bound))));
}
inline M64 words_above(I64 a, int32_t bound) {
  return M64(_mm256_castsi256_pd(_mm256_cmpgt_epi32(a.v, _mm256_set1_epi32(bound))));
}
inline I32 add_to_words(I32 a, uint32_t b) { return a + I32(b); }
inline I64 add_to_words(I64 a, uint32_t b) { return _mm256_add_epi32(a.v, _mm256_set1_epi32(static_cast<int32_t>(b))); }

}  // namespace orvik

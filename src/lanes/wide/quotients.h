// Quotients and roots by estimate and fused steps, with the bits of the instructions.
//
// Quotient (Markstein, 1990): y is 1/b rounded, or its neighbour where 1/b lies within 2^-84 (floats: 2^-42) of the
// middle of two numbers; q, from a y, is off by less than an ulp, so that a - b q is exact, and q + y (a - b q) before
// its rounding by less than what any quotient keeps from the middle of two numbers. One divisor is an exception, whose
// bits behind the point are all ones: its y is the neighbour below, and the one above serves. Root: the same with g
// next to sqrt(a) and h next to 1 / (2 sqrt(a)) (Cornea, Harrison and Tang, 2002). The test divides what comes closest.
#pragma once

#include "lanes/units.h"
#include "lanes/wide/vectors.h"

namespace orvik {

// Without flags: on the way to a result there are steps that are inexact where it is not.
inline constexpr int kQuietly = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
inline F64 quiet_product(F64 a, F64 b) { return _mm512_mul_round_pd(a.v, b.v, kQuietly); }
inline F32 quiet_product(F32 a, F32 b) { return _mm512_mul_round_ps(a.v, b.v, kQuietly); }
inline F64 quiet_fma(F64 a, F64 b, F64 c) { return _mm512_fmadd_round_pd(a.v, b.v, c.v, kQuietly); }
inline F32 quiet_fma(F32 a, F32 b, F32 c) { return _mm512_fmadd_round_ps(a.v, b.v, c.v, kQuietly); }
inline F64 quiet_fnma(F64 a, F64 b, F64 c) { return _mm512_fnmadd_round_pd(a.v, b.v, c.v, kQuietly); }
inline F32 quiet_fnma(F32 a, F32 b, F32 c) { return _mm512_fnmadd_round_ps(a.v, b.v, c.v, kQuietly); }

// 1/b, within 2^-14, with three times as many bits.
inline F64 reciprocal_cubed(F64 b) {
  const F64 y = _mm512_rcp14_pd(b.v), e = quiet_fnma(b, y, F64(1.0));
  return quiet_fma(y, quiet_fma(e, e, e), y);
}
inline F32 reciprocal_cubed(F32 b) {
  const F32 y = _mm512_rcp14_ps(b.v), e = quiet_fnma(b, y, F32(1.0f));
  return quiet_fma(y, quiet_fma(e, e, e), y);
}
// y, one unit of its last place up where the bits of b behind the point are all ones.
inline F64 up_beside_all_ones(F64 y, F64 b) {
  const __m512i bits = _mm512_castpd_si512(y.v), one = _mm512_set1_epi64(1);
  const __mmask8 all_ones =
      _mm512_testn_epi64_mask(_mm512_add_epi64(_mm512_castpd_si512(b.v), one), _mm512_set1_epi64(0xFFFFFFFFFFFFF));
  return _mm512_castsi512_pd(_mm512_mask_add_epi64(bits, all_ones, bits, one));
}
inline F32 up_beside_all_ones(F32 y, F32 b) {
  const __m512i bits = _mm512_castps_si512(y.v), one = _mm512_set1_epi32(1);
  const __mmask16 all_ones =
      _mm512_testn_epi32_mask(_mm512_add_epi32(_mm512_castps_si512(b.v), one), _mm512_set1_epi32(0x7FFFFF));
  return _mm512_castsi512_ps(_mm512_mask_add_epi32(bits, all_ones, bits, one));
}
// Whether a magnitude is outside 2^-255 to 2^257, floats 2^-31 to 2^33: of the bits less three eighths of the
// exponents' range the two above those eighths are then not 0.
inline bool any_far_from_1(F64 a, F64 b) {
  const I64 move = I64(-(int64_t{3} << 60)), far = I64(int64_t{3} << 61);
  const I64 moved = (I64(_mm512_castpd_si512(a.v)) + move) | (I64(_mm512_castpd_si512(b.v)) + move);
  const __mmask8 outside = _mm512_test_epi64_mask(moved.v, far.v);
  return _kortestz_mask8_u8(outside, outside) == 0;
}
inline bool any_far_from_1(F32 a, F32 b) {
  const __m512i move = _mm512_set1_epi32(-(3 << 28)), far = _mm512_set1_epi32(3 << 29);
  const __m512i moved = _mm512_or_si512(_mm512_add_epi32(_mm512_castps_si512(a.v), move),
                                        _mm512_add_epi32(_mm512_castps_si512(b.v), move));
  const __mmask16 outside = _mm512_test_epi32_mask(moved, far);
  return _kortestz_mask16_u8(outside, outside) == 0;
}

template <class V>
struct QuotientBySteps {
  V a, b, y, q;
  [[gnu::always_inline]] QuotientBySteps(V dividend, V divisor) : a(dividend), b(divisor), y(reciprocal_cubed(b)) {
    if constexpr (Double<V>) y = quiet_fma(y, quiet_fnma(b, y, V(1.0)), y);
    y = up_beside_all_ones(y, b);
    const V near = quiet_product(a, y);
    q = quiet_fma(quiet_fnma(b, near, a), y, near);
  }
};

// Units that take registers in halves need for the steps of a vector about as long as their divider, which works beside
// what else there is to do: it takes all.
inline F64 divided(F64 a, F64 b) { return units_of_halves ? a / b : QuotientBySteps<F64>(a, b).q; }
inline F32 divided(F32 a, F32 b) { return QuotientBySteps<F32>(a, b).q; }

// Any operands: near 1 by steps, the others by the instruction. What is left of a raises inexact where it is not 0.
template <class V>
[[gnu::always_inline]] inline V divided_by_either(V a, V b) {
  if (any_far_from_1(a, b)) [[unlikely]]
    return a / b;
  const QuotientBySteps<V> r(a, b);
  return fma(quiet_fnma(r.b, r.q, r.a), V(Single<V> ? 0x1p-40f : 0x1p-300), r.q);
}
inline F64 divided_exactly(F64 a, F64 b) { return divided_by_either(a, b); }
inline F32 divided_exactly(F32 a, F32 b) { return divided_by_either(a, b); }

inline F64 root_by_steps(F64 a) {
  const F64 half = 0.5;
  const __mmask8 some = _mm512_cmp_pd_mask(a.v, _mm512_setzero_pd(), _CMP_NEQ_UQ);
  const F64 y = _mm512_maskz_rsqrt14_pd(some, a.v);
  F64 g = quiet_product(a, y), h = quiet_product(y, half);
  const F64 r = quiet_fnma(g, h, half);
  const F64 c = quiet_fma(quiet_product(r, r), F64(1.5), r);
  g = quiet_fma(g, c, g), h = quiet_fma(h, c, h);
  const F64 rest = quiet_fnma(g, h, half);
  g = quiet_fma(g, rest, g), h = quiet_fma(h, rest, h);
  return quiet_fma(quiet_fnma(g, g, a), h, g);
}
inline F64 root(F64 a) { return units_of_halves ? sqrt(a) : root_by_steps(a); }

}  // namespace orvik

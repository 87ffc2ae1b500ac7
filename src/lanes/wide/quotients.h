// Quotients and roots by estimate and fused steps, with the bits of the instructions.
//
// Quotient (Markstein, 1990): y is 1/b rounded, or its neighbour where 1/b lies within 2^-84 (floats: 2^-42) of the
// middle of two numbers; q, from a y, is off by less than an ulp, so that a - b q is exact, and q + y (a - b q) before
// its rounding by less than what any quotient keeps from the middle of two numbers. One divisor is an exception, whose
// bits behind the point are all ones: its y is the neighbour below, and the one above serves. Root: the same with g
// next to sqrt(a) and h next to 1 / (2 sqrt(a)) (Cornea, Harrison and Tang, 2002). The test divides what comes closest.
#pragma once

#include "lanes/wide/vectors.h"

namespace orvik {

// Without flags: on the way to a result there are steps that are inexact where it is not.
inline constexpr int kQuietly = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;

struct Quotient64 {
  __m512d a, b, y, q;
  Quotient64(F64 dividend, F64 divisor) : a(dividend.v), b(divisor.v) {
    const __m512d one = _mm512_set1_pd(1.0);
    const __m512d y0 = _mm512_rcp14_pd(b);
    const __m512d e0 = _mm512_fnmadd_round_pd(b, y0, one, kQuietly);
    const __m512d y1 = _mm512_fmadd_round_pd(y0, _mm512_fmadd_round_pd(e0, e0, e0, kQuietly), y0, kQuietly);
    const __m512d e1 = _mm512_fnmadd_round_pd(b, y1, one, kQuietly);
    const __m512i near = _mm512_castpd_si512(_mm512_fmadd_round_pd(y1, e1, y1, kQuietly));
    const __m512i next = _mm512_add_epi64(_mm512_castpd_si512(b), _mm512_set1_epi64(1));
    const __mmask8 all_ones = _mm512_testn_epi64_mask(next, _mm512_set1_epi64(0xFFFFFFFFFFFFF));
    y = _mm512_castsi512_pd(_mm512_mask_add_epi64(near, all_ones, near, _mm512_set1_epi64(1)));
    const __m512d q0 = _mm512_mul_round_pd(a, y, kQuietly);
    q = _mm512_fmadd_round_pd(_mm512_fnmadd_round_pd(b, q0, a, kQuietly), y, q0, kQuietly);
  }
};

inline F64 divided(F64 a, F64 b) { return Quotient64(a, b).q; }

// Any operands: near 1 by steps, the others by the instruction. What is left of a raises inexact where it is not 0.
inline F64 divided_exactly(F64 a, F64 b) {
  // Magnitudes from 2^-255 to 2^257: bits 61 and 62 of the sum are 0.
  const __m512i move = _mm512_set1_epi64(-(int64_t{3} << 60)), far = _mm512_set1_epi64(int64_t{3} << 61);
  const __m512i ta = _mm512_add_epi64(_mm512_castpd_si512(a.v), move),
                tb = _mm512_add_epi64(_mm512_castpd_si512(b.v), move);
  const __mmask8 outside = _mm512_test_epi64_mask(_mm512_or_si512(ta, tb), far);
  if (_kortestz_mask8_u8(outside, outside) == 0) [[unlikely]]
    return a / b;
  const Quotient64 r(a, b);
  return _mm512_fmadd_pd(_mm512_fnmadd_round_pd(r.b, r.q, r.a, kQuietly), _mm512_set1_pd(0x1p-300), r.q);
}

struct Quotient32 {
  __m512 a, b, y, q;
  Quotient32(F32 dividend, F32 divisor) : a(dividend.v), b(divisor.v) {
    const __m512 y0 = _mm512_rcp14_ps(b);
    const __m512 e0 = _mm512_fnmadd_round_ps(b, y0, _mm512_set1_ps(1.0f), kQuietly);
    const __m512i near =
        _mm512_castps_si512(_mm512_fmadd_round_ps(y0, _mm512_fmadd_round_ps(e0, e0, e0, kQuietly), y0, kQuietly));
    const __m512i next = _mm512_add_epi32(_mm512_castps_si512(b), _mm512_set1_epi32(1));
    const __mmask16 all_ones = _mm512_testn_epi32_mask(next, _mm512_set1_epi32(0x7FFFFF));
    y = _mm512_castsi512_ps(_mm512_mask_add_epi32(near, all_ones, near, _mm512_set1_epi32(1)));
    const __m512 q0 = _mm512_mul_round_ps(a, y, kQuietly);
    q = _mm512_fmadd_round_ps(_mm512_fnmadd_round_ps(b, q0, a, kQuietly), y, q0, kQuietly);
  }
};

inline F32 divided(F32 a, F32 b) { return Quotient32(a, b).q; }

// Magnitudes from 2^-31 to 2^33.
inline F32 divided_exactly(F32 a, F32 b) {
  const __m512i move = _mm512_set1_epi32(-(3 << 28)), far = _mm512_set1_epi32(3 << 29);
  const __m512i ta = _mm512_add_epi32(_mm512_castps_si512(a.v), move),
                tb = _mm512_add_epi32(_mm512_castps_si512(b.v), move);
  const __mmask16 outside = _mm512_test_epi32_mask(_mm512_or_si512(ta, tb), far);
  if (_kortestz_mask16_u8(outside, outside) == 0) [[unlikely]]
    return a / b;
  const Quotient32 r(a, b);
  return _mm512_fmadd_ps(_mm512_fnmadd_round_ps(r.b, r.q, r.a, kQuietly), _mm512_set1_ps(0x1p-40f), r.q);
}

inline F64 root(F64 a) {
  const __m512d half = _mm512_set1_pd(0.5);
  const __mmask8 some = _mm512_cmp_pd_mask(a.v, _mm512_setzero_pd(), _CMP_NEQ_UQ);
  const __m512d y = _mm512_maskz_rsqrt14_pd(some, a.v);
  const __m512d g0 = _mm512_mul_round_pd(a.v, y, kQuietly), h0 = _mm512_mul_round_pd(y, half, kQuietly);
  const __m512d r0 = _mm512_fnmadd_round_pd(g0, h0, half, kQuietly);
  const __m512d c = _mm512_fmadd_round_pd(_mm512_mul_round_pd(r0, r0, kQuietly), _mm512_set1_pd(1.5), r0, kQuietly);
  const __m512d g1 = _mm512_fmadd_round_pd(g0, c, g0, kQuietly), h1 = _mm512_fmadd_round_pd(h0, c, h0, kQuietly);
  const __m512d r1 = _mm512_fnmadd_round_pd(g1, h1, half, kQuietly);
  const __m512d g = _mm512_fmadd_round_pd(g1, r1, g1, kQuietly), h = _mm512_fmadd_round_pd(h1, r1, h1, kQuietly);
  return _mm512_fmadd_round_pd(_mm512_fnmadd_round_pd(g, g, a.v, kQuietly), h, g, kQuietly);
}

}  // namespace orvik

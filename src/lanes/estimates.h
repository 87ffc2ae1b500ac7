// 1/sqrt(a) of doubles as floats estimate it, within 1.5 * 2^-12 and the narrowing: what is no normal float is out of
// range. The bits differ between processor makers.
#pragma once

#include "lanes/types.h"

namespace orvik {

#if ORVIK_REGISTER_BITS == 512
inline F64 inverse_root_estimate(F64 a) { return _mm512_cvtps_pd(_mm256_rsqrt_ps(_mm512_cvtpd_ps(a.v))); }
#else
inline F64 inverse_root_estimate(F64 a) { return _mm256_cvtps_pd(_mm_rsqrt_ps(_mm256_cvtpd_ps(a.v))); }
#endif

}  // namespace orvik

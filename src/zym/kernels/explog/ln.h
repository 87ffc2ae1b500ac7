// ln x = e ln 2 + ln m. 32 bits: m in [2/3, 4/3) and one polynomial. 64 bits: a table of -ln(rc/1024), rc the estimate
// of 1/m as an integer, and a short polynomial in r = rc m - 1, which is exact.
#pragma once

#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/ln_element.h"
#include "zym/kernels/explog/tables.h"
#include "zym/lanes/lanes.h"

namespace orvik::zym {

template <class V, Level L>
struct Ln;

// --- 32 bits --------------------------------------------------------------------------------------------------------

// x = 2^e (1 + f), 1 + f in [2/3, 4/3).
struct CentredSingle {
  F32 e, f;
  explicit CentredSingle(F32 x) {
    const I32 u = as_bits(x) - I32(0x3F2AAAABu);
    e = to_float(shift_right_arithmetic<23>(u));
    const F32 m = as_float((u & I32(0x007FFFFFu)) + I32(0x3F2AAAABu));
    f = m - F32(1.0f);
  }
};

// (ln(1 + f) - f) / f^2 on [-1/3, 1/3].
inline constexpr float kLnSingleEP[] = {0.2198837250471115f, -0.2674025893211365f, 0.33289623260498047f, -0.5f};
inline constexpr float kLnSingleLA[] = {-0.15177205204963684f,
                                        0.16964881122112274f,
                                        -0.16462457180023193f,
                                        0.19822503626346588f,
                                        -0.25004664063453674f,
                                        0.33336564898490906f,
                                        -0.5f};
inline constexpr float kLnSingleHA[] = {-0.12891685962677002f, 0.1398443728685379f,   -0.12184260785579681f,
                                        0.140058696269989f,    -0.16680487990379333f, 0.20010405778884888f,
                                        -0.24999797344207764f, 0.3333321511745453f,   -0.5f};

template <Level L>
struct LnSingle {
  static auto special(F32 x) { return not_positive_normal(x); }
  static int32_t element(const float* x, float* r) { return ln_element(x, r); }
};

// 12.8 bits.
template <>
struct Ln<F32, Level::EP> : LnSingle<Level::EP> {
  static F32 lanes(F32 x) {
    const CentredSingle c(x);
    const F32 p = horner(c.f, kLnSingleEP);
    return fma(c.e, F32(0.6931471824645996f), fma(c.f * p, c.f, c.f));
  }
};

// 3.94 ulp.
template <>
struct Ln<F32, Level::LA> : LnSingle<Level::LA> {
  static F32 lanes(F32 x) {
    const CentredSingle c(x);
    const F32 p = horner(c.f, kLnSingleLA);
    return fma(c.e, F32(0.6931471824645996f), fma(c.f * p, c.f, c.f));
  }
};

// 0.93 ulp.
template <>
struct Ln<F32, Level::HA> : LnSingle<Level::HA> {
  static F32 lanes(F32 x) {
    const CentredSingle c(x);
    const F32 p = horner(c.f, kLnSingleHA);
    const F32 y = fma(c.f * p, c.f, c.f);
    return fma(c.e, F32(kLn2Head32), fma(c.e, F32(kLn2Tail32), y));
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// x = 2^e m' with m' = 1024 m in [1, 2); rc is the integer nearest to an estimate of 1/m, r = rc m - 1, exact.
struct KeyedDouble {
  __m128i key;  // rc
  F64 rc, r;
  I64 biased;  // the exponent field at the low end of the bits of 2^52

  explicit KeyedDouble(F64 x) {
    biased = shift_right<52>(as_bits(x)) | as_bits(F64(0x1p52));
    const F64 m = as_float((as_bits(x) & I64(int64_t{0x000FFFFFFFFFFFFF})) | I64(int64_t{0x3F50000000000000}));
    key = _mm_cvtps_epi32(_mm_rcp_ps(_mm256_cvtpd_ps(m.v)));  // to nearest
    rc = _mm256_cvtepi32_pd(key);
    r = fms(rc, m, F64(1.0));
  }
  F64 exponent() const { return as_float(biased) - F64(0x1p52 + 1023); }
  // On the scale of the tables of heads, where rows below 724 belong to [1/2, 1).
  F64 centred_exponent() const {
    const F64 lower = compare<_CMP_LT_OQ>(rc, F64(724.0));
    return as_float(biased - as_bits(lower)) - F64(0x1p52 + 1023);
  }
};

// (ln(1 + r) - r) / r^2 on |r| up to 1/1024, by powers.
inline constexpr double kLnC5 = 0.2000003665949424;
inline constexpr double kLnC4 = -0.2500003054940248;
inline constexpr double kLnC3 = 0.33333333333308374;
inline constexpr double kLnC2 = -0.49999999999988803;

// HA: in two halves.
inline F64 ln_polynomial(F64 r) { return fma(fma(F64(kLnC5), r, F64(kLnC4)), r * r, fma(F64(kLnC3), r, F64(kLnC2))); }

// Below 0.75 ulp for any finite positive x, whose exponent is `added` less.
inline F64 ln_pairs(F64 x, double added) {
  const KeyedDouble k(x);
  const F64 e = added == 0.0 ? k.exponent() : k.exponent() - F64(added);
  const GatheredPair log = gather<512>(kLnPairs, Indices(k.key));
  const F64 p = k.r * k.r * ln_polynomial(k.r);
  // The first sum is exact; what the second loses is carried, since its own half ulp and the final one make a whole.
  const F64 table = fma(e, F64(kLn2Head64), log.first);
  const F64 head = table + k.r;
  const F64 lost = k.r - (head - table);
  return head + (fma(e, F64(kLn2Tail64), log.second) + (p + lost));
}

inline int32_t ln_element(const double* px, double* r) {
  int32_t code;
  if (!log_special(*px, r, &code)) {
    *r = _mm256_cvtsd_f64(ln_pairs(F64(*px * 0x1p54), 54.0).v);
  }
  return code;
}

struct LnDouble {
  static auto special(F64 x) { return not_positive_normal(x); }
  static int32_t element(const double* x, double* r) { return ln_element(x, r); }
};

template <>
struct Ln<F64, Level::HA> : LnDouble {
  static F64 lanes(F64 x) { return ln_pairs(x, 0.0); }
};

template <Level L>
struct Ln<F64, L> : LnDouble {
  static F64 lanes(F64 x) {
    const KeyedDouble k(x);
    const F64 e = k.centred_exponent();
    F64 p;
    if constexpr (L == Level::EP) {
      p = horner(k.r, F64(kLnC3), F64(kLnC2));
    } else {
      p = horner(k.r, F64(kLnC5), F64(kLnC4), F64(kLnC3), F64(kLnC2));
    }
    const F64 head = fma(e, F64(kLn2Head64), gather<512>(kLnHeads, Indices(k.key))) + k.r;
    return head + fma(e, F64(kLn2Tail64), k.r * k.r * p);
  }
};

}  // namespace orvik::zym

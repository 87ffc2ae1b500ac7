// ln x = e ln 2 + ln m. 32 bits: m in [2/3, 4/3) and one polynomial. 64 bits: a table of -ln(rc/1024), rc the estimate
// of 1/m as an integer, and a short polynomial in r = rc m - 1, which is exact.
#pragma once

#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/ln_element.h"
#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct Ln;

// --- 32 bits --------------------------------------------------------------------------------------------------------

// x = 2^e (1 + f), 1 + f in [2/3, 4/3).
template <Single V>
struct CentredSingle {
  V e, f;
  explicit CentredSingle(V x) {
    using I = Integer<V>;
    const I u = as_bits(x) - I(0x3F2AAAABu);
    e = to_float(shift_right_arithmetic<23>(u));
    const V m = as_float((u & I(0x007FFFFFu)) + I(0x3F2AAAABu));
    f = m - V(1.0f);
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

template <Single V>
struct LnSingle {
  static auto special(V x) { return not_positive_normal(x); }
  static int32_t element(const float* x, float* r) { return ln_element(x, r); }
};

// 12.8 bits.
template <Single V>
struct Ln<V, Level::EP> : LnSingle<V> {
  static V lanes(V x) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleEP);
    return fma(c.e, V(0.6931471824645996f), fma(c.f * p, c.f, c.f));
  }
};

// 3.94 ulp.
template <Single V>
struct Ln<V, Level::LA> : LnSingle<V> {
  static V lanes(V x) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleLA);
    return fma(c.e, V(0.6931471824645996f), fma(c.f * p, c.f, c.f));
  }
};

// 0.93 ulp.
template <Single V>
struct Ln<V, Level::HA> : LnSingle<V> {
  static V lanes(V x) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleHA);
    const V y = fma(c.f * p, c.f, c.f);
    return fma(c.e, V(kLn2Head32), fma(c.e, V(kLn2Tail32), y));
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// x = 2^e m' with m' = 1024 m in [1, 2); rc is the integer nearest to an estimate of 1/m, r = rc m - 1, exact.
template <Double V>
struct KeyedDouble {
  Index<V> key;  // rc
  V rc, r;
  Integer<V> biased;  // the exponent field at the low end of the bits of 2^52

  explicit KeyedDouble(V x) {
    using I = Integer<V>;
    biased = shift_right<52>(as_bits(x)) | as_bits(V(0x1p52));
    const V m = as_float((as_bits(x) & I(int64_t{0x000FFFFFFFFFFFFF})) | I(int64_t{0x3F50000000000000}));
    key = integer_reciprocal(m);
    rc = to_double(key);
    r = fms(rc, m, V(1.0));
  }
  V exponent() const { return as_float(biased) - V(0x1p52 + 1023); }
  // On the scale of the tables of heads, where rows below 724 belong to [1/2, 1).
  V centred_exponent() const { return as_float(biased - minus_one(rc < V(724.0))) - V(0x1p52 + 1023); }
};

// (ln(1 + r) - r) / r^2 on |r| up to 1/1024, by powers.
inline constexpr double kLnC5 = 0.2000003665949424;
inline constexpr double kLnC4 = -0.2500003054940248;
inline constexpr double kLnC3 = 0.33333333333308374;
inline constexpr double kLnC2 = -0.49999999999988803;

// HA: in two halves.
template <Double V>
V ln_polynomial(V r) {
  return fma(fma(V(kLnC5), r, V(kLnC4)), r * r, fma(V(kLnC3), r, V(kLnC2)));
}

// Below 0.75 ulp for any finite positive x, whose exponent is `added` less.
template <Double V>
V ln_pairs(V x, double added) {
  const KeyedDouble<V> k(x);
  const V e = added == 0.0 ? k.exponent() : k.exponent() - V(added);
  const auto log = gather<512>(kLnPairs, indices(k.key));
  const V p = k.r * k.r * ln_polynomial(k.r);
  // The first sum is exact; what the second loses is carried, since its own half ulp and the final one make a whole.
  const V table = fma(e, V(kLn2Head64), log.first);
  const V head = table + k.r;
  const V lost = k.r - (head - table);
  return head + (fma(e, V(kLn2Tail64), log.second) + (p + lost));
}

inline int32_t ln_element(const double* px, double* r) {
  int32_t code;
  if (!log_special(*px, r, &code)) {
    *r = first_lane(ln_pairs(F64(*px * 0x1p54), 54.0));
  }
  return code;
}

template <Double V>
struct LnDouble {
  static auto special(V x) { return not_positive_normal(x); }
  static int32_t element(const double* x, double* r) { return ln_element(x, r); }
};

template <Double V>
struct Ln<V, Level::HA> : LnDouble<V> {
  static V lanes(V x) { return ln_pairs(x, 0.0); }
};

template <Double V, Level L>
struct Ln<V, L> : LnDouble<V> {
  static V lanes(V x) {
    const KeyedDouble<V> k(x);
    const V e = k.centred_exponent();
    V p;
    if constexpr (L == Level::EP) {
      p = horner(k.r, V(kLnC3), V(kLnC2));
    } else {
      p = horner(k.r, V(kLnC5), V(kLnC4), V(kLnC3), V(kLnC2));
    }
    const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + k.r;
    return head + fma(e, V(kLn2Tail64), k.r * k.r * p);
  }
};

}  // namespace orvik::zym

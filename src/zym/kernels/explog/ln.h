// ln x = e ln 2 + ln m. 32 bits: m in [2/3, 4/3) and one polynomial. 64 bits: a table of -ln(rc/1024), rc the estimate
// of 1/m as an integer, and a short polynomial in r = rc m - 1, which is exact.
#pragma once

#include "lanes/exponents.h"
#include "zym/kernels/explog/coefficients.h"
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

template <Single V>
struct LnSingle {
  static auto special(V x) { return not_positive_normal(x); }
  static int32_t element(const float* x, float* r) { return ln_element(x, r); }
};

// sLn EP: 12.79 bits at 0x1.555556p+0
template <Single V>
struct Ln<V, Level::EP> : LnSingle<V> {
  static V lanes(V x) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleEP);
    return fma(c.e, V(kLn2Whole32), fma(c.f * p, c.f, c.f));
  }
};

// sLn LA: 3.9373 ulp at 0x1.c3dff4p-1
template <Single V>
struct Ln<V, Level::LA> : LnSingle<V> {
  static V lanes(V x) {
    const CentredSingle<V> c(x);
    const V p = horner(c.f, kLnSingleLA);
    return fma(c.e, V(kLn2Whole32), fma(c.f * p, c.f, c.f));
  }
};

// sLn HA: 0.9311 ulp at 0x1.559d2ep+1
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
template <Double V, template <class> class Exponent = Exponents>
struct KeyedDouble {
  Index<V> key;  // rc
  V rc, r;
  V m;
  Exponent<V> e;

  explicit KeyedDouble(V x) : e(x) {
    using I = Integer<V>;
    m = as_float((as_bits(x) & I(int64_t{0x000FFFFFFFFFFFFF})) | I(int64_t{0x3F50000000000000}));
    key = integer_reciprocal(m);
    rc = to_double(key);
    r = fms(rc, m, V(1.0));
  }
  V exponent() const { return e.numbers(); }
  // On the scale of the tables of heads, where rows below 724 belong to [1/2, 1).
  V centred_exponent() const { return e.one_more(rc < V(724.0)); }
};

template <Double V>
using KeyedNormal = KeyedDouble<V, NormalExponents>;  // of x that is known to be normal

// (ln(1 + r) - r) / r^2, in two halves.
template <Double V>
V ln_polynomial(V r) {
  constexpr const auto& c = kLnDoubleLA;
  return fma(fma(V(c[0]), r, V(c[1])), r * r, fma(V(c[2]), r, V(c[3])));
}

// For any finite positive x, whose exponent is `added` less. As head and tail: |tail| is below 2^-9, its error 2^-70.
template <Double V, class Keyed = KeyedDouble<V>>
[[gnu::always_inline]] inline HeadTail<V> ln_head_tail(V x, double added) {
  const Keyed k(x);
  const V e = added == 0.0 ? k.exponent() : k.exponent() - V(added);
  const auto log = gather<512>(kLnPairs, indices(k.key));
  const V p = k.r * k.r * ln_polynomial(k.r);
  // The first sum is exact; what the second loses is carried, since its own half ulp and the final one make a whole.
  const V table = fma(e, V(kLn2Head64), log.first);
  const V head = table + k.r;
  const V lost = k.r - (head - table);
  return {head, fma(e, V(kLn2Tail64), log.second) + (p + lost)};
}
template <Double V, class Keyed = KeyedDouble<V>>
[[gnu::always_inline]] inline V ln_pairs(V x, double added) {
  const HeadTail<V> ln = ln_head_tail<V, Keyed>(x, added);
  return ln.head + ln.tail;
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

// dLn HA: 0.5760 ulp at 0x1.ffeb443c69461p-1
template <Double V>
struct Ln<V, Level::HA> : LnDouble<V> {
  static V lanes(V x) { return ln_pairs<V, KeyedNormal<V>>(x, 0.0); }
};

// dLn LA: 1.6195 ulp at 0x1.8f49f6cf960efp+0
// dLn EP: 31.99 bits at 0x1.ff7ffffffffe9p-1
template <Double V, Level L>
struct Ln<V, L> : LnDouble<V> {
  static V lanes(V x) {
    const KeyedNormal<V> k(x);
    const V e = k.centred_exponent();
    V p;
    if constexpr (L == Level::EP) {
      p = horner(k.r, kLnDoubleEP);
    } else {
      p = horner(k.r, kLnDoubleLA);
    }
    const V head = fma(e, V(kLn2Head64), gather<512>(kLnHeads, indices(k.key))) + k.r;
    return head + fma(e, V(kLn2Tail64), k.r * k.r * p);
  }
};

}  // namespace orvik::zym

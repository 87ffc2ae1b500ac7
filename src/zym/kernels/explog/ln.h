// ln x of floats: e ln 2 + ln m, m in [2/3, 4/3), by one polynomial. Doubles: log.h.
#pragma once

#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/ln_element.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct Ln;

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

}  // namespace orvik::zym

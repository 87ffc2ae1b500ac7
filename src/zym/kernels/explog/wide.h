// Logarithms of 32-bit numbers in 64-bit arithmetic: a table of -log(rc/128), rc the estimate of 1/m as an integer, and
// a short polynomial in r = rc m - 1.
#pragma once

#include <cmath>

#include "lanes/scalar.h"
#include "zym/kernels/explog/base.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// x = 2^e 128 m with 128 m in [2/3, 4/3); rc from 96 to 192.
template <Single V>
struct WideKey {
  Integer<V> e, rc;
  V m;
  explicit WideKey(V x) {
    using I = Integer<V>;
    const I u = as_bits(x) - I(0x3F2AAAABu);
    e = shift_right_arithmetic<23>(u);
    m = as_float((u & I(0x007FFFFFu)) + I(0x3F2AAAABu - (7u << 23)));
    rc = to_integer(reciprocal_estimate(m));
  }
};

// 64-bit lanes: r and the exponent as doubles, the table's rows.
template <class Base, Double V>
V wide_log(V r, V e, Index<V> rc) {
  const V row = gather<96>(Base::table, indices(rc));
  const V table = Base::of2 == 1.0 ? e + row : fma(e, V(Base::of2), row);
  return fma(r, horner(r, Base::wide), table);
}

template <class Base, Single V>
V wide_log(const WideKey<V>& k) {
  using W = Wide<V>;
  const auto half = [&](Index<W> rc, Index<W> e, W m) {
    return wide_log<Base>(fms(to_double(rc), m, W(1.0)), to_double(e), rc);
  };
  return narrow(half(low_half(k.rc), low_half(k.e), widen_low(k.m)),
                half(high_half(k.rc), high_half(k.e), widen_high(k.m)));
}

// One positive finite number, denormal or not.
template <class Base>
double wide_log(float x) {
  const uint64_t u = bits_of(static_cast<double>(x)) - bits_of(2.0 / 3.0);
  const double e = static_cast<double>(static_cast<int64_t>(u) >> 52);
  const double m = float_of<double>((u & 0x000FFFFFFFFFFFFF) + bits_of(2.0 / 3.0));
  const int rc = static_cast<int>(128.0 / m + 0.5);
  const double r = std::fma(rc / 128.0, m, -1.0);
  return std::fma(r, horner(r, Base::wide), std::fma(e, Base::of2, Base::table[rc - 96]));
}

}  // namespace orvik::zym

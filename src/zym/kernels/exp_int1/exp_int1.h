// The exponential integral E1(x), the integral of e^-t / t from x on. From 2^-6 on it is e^-x f(x), f by rows
// (tables.h); below, the second tier has -ln x - c + x - x^2/4 + x^3/18 - ..., c being Euler's constant. One kernel
// serves LA and HA. Its 32 bits are 64 bits at EP.
#pragma once

#include <cmath>

#include "orvik/zym_types.h"
#include "zym/kernels/exp_int1/constants.h"
#include "zym/kernels/exp_int1/tables.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/explog/octave.h"
#include "zym/kernels/shared/expansion.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

template <class V, Level L>
struct ExpInt1;

namespace exp_int1 {

// What is decided without arithmetic; true where that was all. x is left to be positive and finite.
template <class E>
bool special_value(E x, E* r, int32_t* code) {
  *code = 0;
  if (is_nan(x)) {
    *r = x + x;
  } else if (x == 0) {
    *r = 1 / opaque(E(0));
    *code = zymErrorSingularity;
  } else if (x < 0) {
    *r = opaque(E(0)) * infinity<E>;
    *code = zymErrorDomain;
  } else if (is_infinite(x)) {
    *r = E(0);
  } else {
    return false;
  }
  return true;
}

// A result that is too small even for denormal numbers.
template <class E>
E underflow() {
  const E tiny = opaque(float_of<E>(FloatFormat<E>::min_normal));
  return tiny * tiny;
}

}  // namespace exp_int1

// --- 64 bits --------------------------------------------------------------------------------------------------------

// dExpInt1 EP: 26.95 bits at 0x1p+9
// dExpInt1 HA: 0.5730 ulp at 0x1.3025431ad57dap+3
template <Double V, Level L>
struct ExpInt1<V, L> {
  static constexpr Knobs knobs = {.vectors = L == Level::EP ? 2 : 1};

  // [2^-6, 700): beyond, results may be denormal.
  static auto special(V x) { return outside<0x3F900000u, 0x4085DFFFu>(x); }

  static V lanes(V x) {
    if constexpr (L == Level::EP) {
      const auto [t, n] = shift_round(x, V(-k128OverLn2));
      const V r = fnma(n, V(kLn2Over128), V(0.0) - x);
      const V power = gather(kExp2Frac128, indices(as_bits(t) & Integer<V>(int64_t{127}))) * horner(r, kExpDoubleLA);
      const ExpansionRow<V, 5, -6> row(x);
      const V f = short_expansion(x - row.middle, gather(kExpInt1Short, indices(row.index)));
      return scale_by_row<7>(power * f, t);
    } else {
      const Product p(x);
      return scale_by_row<6>(p.value, p.t);
    }
  }

  // Normal numbers below 2^-6.
  static Masked<V, Mask<V>> wide(V x) { return {small(x, 0.0), Mask<V>(outside<0x00100000u, 0x3F8FFFFFu>(x))}; }

  static int32_t element(const double* px, double* r) {
    const double x = *px;
    int32_t code;
    if (exp_int1::special_value(x, r, &code)) return code;
    if (x < 1) {  // denormal
      *r = first_lane(ExpInt1<F64, Level::HA>::small(F64(x * 0x1p54), 54.0));
    } else if (x < 750) {
      const typename ExpInt1<F64, Level::HA>::Product p{F64(x)};
      *r = times_two_to(first_lane(p.value), static_cast<int>(std::floor((first_lane(p.t) - kShifter64) / 64)));
    } else {
      *r = exp_int1::underflow<double>();
    }
    return 0;
  }

 private:
  template <class, Level>
  friend struct ExpInt1;

  // e^-x f(x) but for a power of two, whose exponent stands above the low six bits of t: heads are multiplied exactly,
  // their corrections to first order.
  struct Product {
    V value, t;
    explicit Product(V x) {
      const Shifted<V> quotient = shift_round(x, V(-k64OverLn2));
      t = quotient.sum;
      const V n = quotient.n;
      const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), V(0.0) - x));
      const auto power = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
      const V p = fma(r * r, horner(r, kExpDoubleHA), r) + power.second;
      const ExpansionRow<V, 4, -6> row(x);
      const V from_middle = x - row.middle;
      const Expansion<V> f(from_middle, row_indices(row.index), kExpInt1Terms0, kExpInt1Terms4, kExpInt1Terms8);
      const V rest = fma(from_middle, f.rest, f.first_tail);
      const HeadTail<V> heads = two_prod(power.first, f.first);
      value = heads.head + fma(power.first, fma(p, f.first + rest, rest), heads.tail);
    }
  };

  // For 2^-added x, x normal. What is not in the domain gives any finite result.
  static V small(V x, double added) {
    const V a = magnitude(x), bound = V(0x1p-6);
    const V series_at = select(a < bound, a, bound);  // quietly, where minima of a NaN would raise invalid
    if constexpr (L == Level::EP) {
      const V log = octave_log_in_one<BaseE, Exponents>(x, kLnOctaveEP64);
      return fms(series_at, horner(series_at, kExpInt1SeriesShort), log + V(kEulerHead));
    } else {
      const OctaveKey<V, Exponents> k(x);
      const auto at = k.at();
      const V r = fms(octave_reciprocal<BaseE, V>(k, at), k.m(), V(1.0));
      const HeadTail<V> table = octave_parts<BaseE>(added == 0.0 ? k.e() : k.e() - V(added), at);
      const V sum = table.head + V(kEulerHead);  // exact
      const V head = sum + r;
      const V lost = r - (head - sum);
      const V low = fma(r * horner(r, kLnOctaveLA64), r, lost + (table.tail + V(kEulerTail)));
      return fms(series_at, horner(series_at, kExpInt1Series), low) - head;
    }
  }
};

// --- 32 bits --------------------------------------------------------------------------------------------------------

// sExpInt1 EP: 12.29 bits at 0x1.196af2p+6
// sExpInt1 HA: 0.5988 ulp at 0x1.044e0ep+5
template <Single V, Level L>
struct ExpInt1<V, L> {
  static constexpr Knobs knobs = {.vectors = L == Level::EP ? 2 : 1, .together = L != Level::EP};

  // [2^-6, 82) at EP, where the results are normal numbers; up to 104 otherwise, where they are 0.
  static auto special(V x) { return outside < 0x3C800000u, L == Level::EP ? 0x42A3FFFFu : 0x42CFFFFFu > (x); }

  static V lanes(V x) {
    if constexpr (L == Level::EP) {
      using I = Integer<V>;
      const auto [t, n] = shift_round(x, V(-kLog2E32));
      const V r = fnma(n, V(kLn2Whole32), V(0.0f) - x);
      const auto c = gather(kExpInt1Single, shift_right<20>(as_bits(x)) - I((127 - 6) << 3));
      const V y = x - c.c[3];
      const V f = fma(fma(c.c[2], y, c.c[1]), y, c.c[0]);
      return as_float(as_bits(horner(r, kExpSingleEP) * f) + shift_left<23>(as_bits(t)));
    } else {
      using F = ExpInt1<Wide<V>, Level::EP>;
      return narrow(F::lanes(widen_low(x)), F::lanes(widen_high(x)));
    }
  }

  // Normal numbers below 2^-6: whether others read as zero is for the element routine to see.
  static Masked<V, Mask<V>> wide(V x) {
    using F = ExpInt1<Wide<V>, Level::EP>;
    return {narrow(F::small(widen_low(x), 0.0), F::small(widen_high(x), 0.0)),
            Mask<V>(outside<0x00800000u, 0x3C7FFFFFu>(x))};
  }

  static int32_t element(const float* px, float* r) {
    const float x = *px;
    int32_t code;
    if (exp_int1::special_value(x, r, &code)) return code;
    using F = ExpInt1<F64, Level::EP>;
    if (x < 1) {  // denormal
      *r = static_cast<float>(first_lane(F::small(F64(x), 0.0)));
    } else if (x < 104) {
      *r = static_cast<float>(first_lane(F::lanes(F64(x))));
    } else {
      *r = exp_int1::underflow<float>();
    }
    return 0;
  }
};

}  // namespace orvik::zym

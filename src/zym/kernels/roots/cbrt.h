// Cube roots. |x| = 2^(3q + k) m with k in {0, 1, 2} and m in [1, 2): a table of three powers, keyed by k, times a
// polynomial in m, and 2^q added to the exponent. Where that is not enough it only starts from w ~ z^(-1/3),
// z = 2^k m in [1, 8), and d = 1 - z w^3 leads to the last place.
#pragma once

#include "lanes/scalar.h"
#include "orvik/zym_types.h"
#include "zym/kernels/roots/coefficients.h"
#include "zym/kernels/roots/estimate.h"

namespace orvik::zym {
namespace roots {

template <class V>
struct Thirds;

// E, the biased exponent, times 0x5556 = 2^16/3 + 2/3: E/3 without its rest from bit 16 on and the rest as a fraction
// below, k = 0, 1, 2 in bits 14 and 15. 126 is of no rest, 127 of one: powers are those of k - 1.
template <Single V>
struct Thirds<V> {
  using I = Integer<V>;
  I shift;  // E/3 - 42, in the exponent field
  V m;

  explicit Thirds(V x) {
    product_ = multiply_low_halves(shift_right<24>(shift_left<1>(as_bits(x))), 0x5556);
    shift = shift_left<7>(product_ & I(0xFFFF0000u)) - I(42u << 23);
    m = (x & pattern<V>(0x007FFFFFu)) | V(1.0f);
  }
  V z() const { return as_float(as_bits(m) + ((shift_left<9>(product_) & I(3u << 23)) - I(1u << 23))); }
  V power(const float (&table)[8]) const { return look_up(octet_table<V>(table), shift_right<14>(product_)); }

 private:
  I product_;
};

// The high words do the work; what stands in the low words of k is the fraction.
template <Double V>
struct Thirds<V> {
  using I = Integer<V>;
  I shift;
  V m;

  explicit Thirds(V x) {
    const I bits = as_bits(magnitude(x));
    const I third = shift_left<52>(multiply_high16(shift_right<52>(bits), 0x5556));
    shift = third - I(uint64_t{341} << 52);
    k_ = bits - (third + shift_left<1>(third));
    m = as_float((k_ & I(uint64_t{0x000FFFFFFFFFFFFF})) | I(uint64_t{0x3FF0000000000000}));
  }
  V z() const { return as_float(k_ + I(uint64_t{1023} << 52)); }
  // The powers at 21 bits: w is an estimate.
  V power(const uint32_t (&table)[8]) const {
    const I index = as_long_words(shift_right<20>(as_words(k_)));
    return as_float(look_up(octet_table<V>(table), index) & I(high(0xFFFFFFFFu)));
  }

 private:
  I k_;
};

// w with few enough bits for an exact square: 12, 26.
template <class V>
V truncated(V w) {
  return w & pattern<V>(Single<V> ? Bits<V>(0xFFFFF000u) : Bits<V>(0xFFFFFFFFF8000000u));
}

// 1 - z w^3 of a truncated w, exact to its own rounding.
template <class V>
inline V cubic_residue(V z, V w) {
  const V w2 = w * w;
  const V y = z * w2;
  return fnma(fms(z, w2, y), w, fnma(y, w, V(1.0f)));
}

template <class V>
inline V scaled(V r, Integer<V> shift) {
  return as_float(as_bits(r) + shift);
}

// Denormals, scaled by a power of eight, through the lanes: one element.
template <class Fn, class V>
inline Element<V> through_lanes(Element<V> x) {
  return first_lane(Fn::lanes(V(x)));
}
template <class E>
inline constexpr E kLift = sizeof(E) == 4 ? E(0x1p24) : E(0x1p54);
template <class E>
inline constexpr E kLiftRoot = sizeof(E) == 4 ? E(0x1p8) : E(0x1p18);

template <class V>
inline auto not_normal(V x) {
  return outside_magnitude < Single<V> ? 0x00800000u : 0x00100000u, Single<V> ? 0x7F7FFFFFu : 0x7FEFFFFFu > (x);
}

// w ~ z^(-1/3). The 64-bit EP level has one more power here and two fewer behind.
template <Level L, Single V>
inline V inverse_cube_root(const Thirds<V>& t) {
  return t.power(kInverseThirdRoots) * horner(t.m, kInvCbrtStart);
}
template <Level L, Double V>
inline V inverse_cube_root(const Thirds<V>& t) {
  if constexpr (L == Level::EP) return t.power(kInverseThirdRootsHigh) * horner(t.m, kInvCbrtStart64Short);
  return t.power(kInverseThirdRootsHigh) * horner(t.m, kInvCbrtStart64);
}

}  // namespace roots

template <class Fn, class V>
struct CbrtElement {
  using E = Element<V>;
  static auto special(V x) { return roots::not_normal(x); }
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x) || is_infinite(x)) {
      *r = x + x;
    } else if (x == 0) {
      *r = quiet(x);
    } else {
      *r = roots::through_lanes<Fn, V>(x * roots::kLift<E>) / roots::kLiftRoot<E>;
    }
    return 0;
  }
};

// sCbrt LA: 2.0377 ulp at 0x1.a41c94p-106
// sCbrt HA: 0.6853 ulp at 0x1.7ab904p-85
// sCbrt EP: 13.73 bits at -0x1.73f36ep+7
// dCbrt LA: 0.9764 ulp at -0x1.ec199d3559923p-25
// dCbrt HA: 0.6665 ulp at -0x1.d02a65374df12p+8
// dCbrt EP: 27.89 bits at 0x1.312fa44ddc06dp-26
template <class V, Level L>
struct Cbrt : CbrtElement<Cbrt<V, L>, V> {
  static constexpr Knobs knobs = {.vectors = Single<V> ? 4 : 2};
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return join_sign(roots::scaled(positive(t), t.shift), x);
  }

 private:
  static V positive(const roots::Thirds<V>& t) requires Single<V> {
    if constexpr (L == Level::EP) return t.power(roots::kThirdRoots) * horner(t.m, roots::kCbrtShort);
    if constexpr (L == Level::LA) return t.power(roots::kThirdRoots) * horner(t.m - V(1.5f), roots::kCbrtLow);
    // The rounding of y counts a third: 0.5 + 0.17 ulp.
    const V w = roots::truncated(roots::inverse_cube_root<L>(t));
    const V y = t.z() * (w * w);
    const V d = fnma(y, w, V(1.0f));
    return fma(y, d * horner(d, roots::kCbrtTail), y);
  }
  static V positive(const roots::Thirds<V>& t) requires Double<V> {
    V w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) w = roots::truncated(w);
    const V y = t.z() * (w * w);
    const V d = fnma(y, w, V(1.0));
    if constexpr (L == Level::EP) return y * horner(d, roots::kCbrtTail64Short);
    return fma(y, d * horner(d, roots::kCbrtTail64), y);
  }
};

template <class Fn, class V>
struct InvCbrtElement {
  using E = Element<V>;
  static auto special(V x) { return roots::not_normal(x); }
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
    } else if (is_infinite(x)) {
      *r = zero_like(x);
    } else if (x == 0) {
      *r = E(1) / quiet(x);
      return zymErrorSingularity;
    } else {
      *r = roots::through_lanes<Fn, V>(x * roots::kLift<E>) * roots::kLiftRoot<E>;
    }
    return 0;
  }
};

// sInvCbrt LA: 1.4137 ulp at 0x1.6b515p-104
// sInvCbrt HA: 0.5057 ulp at 0x1.7dbdd8p-97
// sInvCbrt EP: 11.94 bits at 0x1.226b46p-22
// dInvCbrt LA: 0.9949 ulp at 0x1.1f34eca9a6992p+612
// dInvCbrt HA: 0.5280 ulp at 0x1.22fe8469da151p+9
// dInvCbrt EP: 29.21 bits at 0x1.05d3fe0515431p-41
template <class V, Level L>
struct InvCbrt : InvCbrtElement<InvCbrt<V, L>, V> {
  static constexpr Knobs knobs = {.vectors = Single<V> ? 4 : 2};
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return join_sign(as_float(as_bits(positive(t)) - t.shift), x);
  }

 private:
  static V positive(const roots::Thirds<V>& t) requires Single<V> {
    if constexpr (L == Level::EP) return roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::LA) return t.power(roots::kInverseThirdRoots) * horner(t.m - V(1.5f), roots::kInvCbrtLow);
    const V w = roots::truncated(roots::inverse_cube_root<L>(t));
    const V d = roots::cubic_residue(t.z(), w);
    return fma(w, d * horner(d, roots::kInvCbrtTail), w);
  }
  static V positive(const roots::Thirds<V>& t) requires Double<V> {
    V w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) {
      w = roots::truncated(w);
      const V d = roots::cubic_residue(t.z(), w);
      return fma(w, d * horner(d, roots::kInvCbrtTail64), w);
    }
    const V d = fnma(t.z() * (w * w), w, V(1.0));
    if constexpr (L == Level::EP) return w * horner(d, roots::kInvCbrtTail64Short);
    return fma(w, d * horner(d, roots::kInvCbrtTail64), w);
  }
};

template <class Fn, class V>
struct Pow2o3Element {
  using E = Element<V>;
  static auto special(V x) { return roots::not_normal(x); }
  static int32_t element(const E* px, E* r) {
    const E x = *px;
    if (is_nan(x)) {
      *r = x + x;
    } else if (is_infinite(x)) {
      *r = infinity<E>;
    } else if (x == 0) {
      *r = E(0);
    } else {
      *r = roots::through_lanes<Fn, V>(x * roots::kLift<E>) / (roots::kLiftRoot<E> * roots::kLiftRoot<E>);
    }
    return 0;
  }
};

// z^(2/3) = z w (1 - d)^(-1/3). At HA the product z w keeps its low part.
// sPow2o3 LA: 1.8263 ulp at 0x1.097c34p+1
// sPow2o3 HA: 0.5101 ulp at 0x1.feedf4p-85
// sPow2o3 EP: 14.24 bits at 0x1.72p-142
// dPow2o3 LA: 1.1400 ulp at 0x1.67231b3a66988p+7
// dPow2o3 HA: 0.5269 ulp at -0x1.6297671d00ebp-11
// dPow2o3 EP: 29.21 bits at 0x1.31637bfa77faap+9
template <class V, Level L>
struct Pow2o3 : Pow2o3Element<Pow2o3<V, L>, V> {
  static constexpr Knobs knobs = {.vectors = Single<V> ? 4 : 2};
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return roots::scaled(positive(t), shift_left<1>(t.shift));
  }

 private:
  static V positive(const roots::Thirds<V>& t) requires Single<V> {
    if constexpr (L == Level::EP) return t.power(roots::kTwoThirdRoots) * horner(t.m, roots::kPow2o3Short);
    if constexpr (L == Level::LA) return t.power(roots::kTwoThirdRoots) * horner(t.m - V(1.5f), roots::kPow2o3Low);
    const V w = roots::truncated(roots::inverse_cube_root<L>(t));
    const V g = t.z() * w;
    const V low = fms(t.z(), w, g);
    const V w2 = w * w;
    const V d = fnma(low, w2, fnma(g, w2, V(1.0f)));
    return g + fma(g, d * horner(d, roots::kInvCbrtTail), low);
  }
  static V positive(const roots::Thirds<V>& t) requires Double<V> {
    V w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) w = roots::truncated(w);
    const V g = t.z() * w;
    const V w2 = w * w;
    const V d = fnma(g, w2, V(1.0));
    if constexpr (L == Level::EP) return g * horner(d, roots::kInvCbrtTail64Short);
    if constexpr (L == Level::LA) return fma(g, d * horner(d, roots::kInvCbrtTail64), g);
    const V low = fms(t.z(), w, g);
    const V rest = fnma(low, w2, d);
    return g + fma(g, rest * horner(rest, roots::kInvCbrtTail64), low);
  }
};

}  // namespace orvik::zym

// Cube roots. |x| = 2^(3q + k) m with k in {0, 1, 2} and m in [1, 2): a table of three powers, keyed by k, times a
// polynomial in m, and 2^q added to the exponent. Where that is not enough it only starts from w ~ z^(-1/3),
// z = 2^k m in [1, 8), and d = 1 - z w^3 leads to the last place.
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/roots/constants_cbrt.h"
#include "zym/kernels/roots/estimate.h"
#include "zym/lanes/scalar.h"

namespace orvik::zym {
namespace roots {

template <class V>
struct Thirds;

template <>
struct Thirds<F32> {
  I32 shift;  // q, in the exponent field
  F32 z, m;

  explicit Thirds(F32 x) {
    const I32 bits = as_bits(magnitude(x)) + I32(2 << 23);  // 127 + 2 is a multiple of 3
    const I32 third = shift_left<23>(I32(multiply_high16(shift_right<23>(bits).v, 0x5556)));
    shift = third - I32(43 << 23);
    k_ = bits - (third + shift_left<1>(third));
    z = as_float(k_ + I32(127 << 23));
    m = as_float((k_ & I32(0x007FFFFF)) | I32(0x3F800000));
  }
  F32 power(const float (&table)[8]) const {
    const I32 entries = as_bits(load<F32>(table));
    return as_float(look_up(entries, shift_right<23>(k_)));
  }

 private:
  I32 k_;  // k in the exponent field, the fraction below
};

// The high words do the work; what stands in the low words of k is the fraction.
template <>
struct Thirds<F64> {
  I64 shift;
  F64 z, m;

  explicit Thirds(F64 x) {
    const I64 bits = as_bits(magnitude(x));
    const I64 third = shift_left<52>(I64(multiply_high16(shift_right<52>(bits).v, 0x5556)));
    shift = third - I64(uint64_t{341} << 52);
    k_ = bits - (third + shift_left<1>(third));
    z = as_float(k_ + I64(uint64_t{1023} << 52));
    m = as_float((k_ & I64(uint64_t{0x000FFFFFFFFFFFFF})) | I64(uint64_t{0x3FF0000000000000}));
  }
  // The powers at 21 bits: w is an estimate.
  F64 power(const uint32_t (&table)[8]) const {
    const I32 entries = _mm256_load_si256(reinterpret_cast<const __m256i*>(table));
    const I32 found = look_up(entries, shift_right<20>(I32(k_.v)));
    return as_float(I64(found.v) & I64(high(0xFFFFFFFFu)));
  }

 private:
  I64 k_;
};

// w with few enough bits for an exact square: 12, 26.
inline F32 truncated(F32 w) { return w & pattern<F32>(0xFFFFF000u); }
inline F64 truncated(F64 w) { return w & pattern<F64>(0xFFFFFFFFF8000000u); }

// 1 - z w^3 of a truncated w, exact to its own rounding.
template <class V>
inline V cubic_residue(V z, V w) {
  const V w2 = w * w;
  const V y = z * w2;
  return fnma(fms(z, w2, y), w, fnma(y, w, V(1.0f)));
}

template <class V>
inline V scaled(V r, typename V::Integer shift) {
  return as_float(as_bits(r) + shift);
}

// Denormals, scaled by a power of eight, through the lanes: one element.
template <class Fn, class V>
inline typename V::Element through_lanes(typename V::Element x) {
  alignas(32) typename V::Element r[V::width];
  store(r, Fn::lanes(V(x)));
  return r[0];
}
template <class E>
inline constexpr E kLift = sizeof(E) == 4 ? E(0x1p24) : E(0x1p54);
template <class E>
inline constexpr E kLiftRoot = sizeof(E) == 4 ? E(0x1p8) : E(0x1p18);

template <class V>
inline auto not_normal(V x) {
  constexpr bool wide = V::width == 4;
  return outside_magnitude < wide ? 0x00100000 : 0x00800000, wide ? 0x7FEFFFFF : 0x7F7FFFFF > (x);
}

// w ~ z^(-1/3). The 64-bit EP level has one more power here and two fewer behind.
template <Level L>
inline F32 inverse_cube_root(const Thirds<F32>& t) {
  return t.power(kInverseThirdRoots) * horner(t.m, kInvCbrtStart);
}
template <Level L>
inline F64 inverse_cube_root(const Thirds<F64>& t) {
  if constexpr (L == Level::EP) return t.power(kInverseThirdRootsHigh) * horner(t.m, kInvCbrtStart64Short);
  return t.power(kInverseThirdRootsHigh) * horner(t.m, kInvCbrtStart64);
}

}  // namespace roots

template <class Fn, class V>
struct CbrtElement {
  using E = typename V::Element;
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

template <class V, Level L>
struct Cbrt : CbrtElement<Cbrt<V, L>, V> {
  static constexpr int vectors = V::width == 4 ? 2 : 4;
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return roots::scaled(positive(t), t.shift) | sign_of(x);
  }

 private:
  static F32 positive(const roots::Thirds<F32>& t) {
    if constexpr (L == Level::EP) return t.power(roots::kThirdRoots) * horner(t.m, roots::kCbrtShort);
    if constexpr (L == Level::LA) return t.power(roots::kThirdRoots) * horner(t.m - F32(1.5f), roots::kCbrtLow);
    // The rounding of y counts a third: 0.5 + 0.17 ulp.
    const F32 w = roots::truncated(roots::inverse_cube_root<L>(t));
    const F32 y = t.z * (w * w);
    const F32 d = fnma(y, w, F32(1.0f));
    return fma(y, d * horner(d, roots::kCbrtTail), y);
  }
  static F64 positive(const roots::Thirds<F64>& t) {
    F64 w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) w = roots::truncated(w);
    const F64 y = t.z * (w * w);
    const F64 d = fnma(y, w, F64(1.0));
    if constexpr (L == Level::EP) return y * horner(d, roots::kCbrtTail64Short);
    return fma(y, d * horner(d, roots::kCbrtTail64), y);
  }
};

template <class Fn, class V>
struct InvCbrtElement {
  using E = typename V::Element;
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

template <class V, Level L>
struct InvCbrt : InvCbrtElement<InvCbrt<V, L>, V> {
  static constexpr int vectors = V::width == 4 ? 2 : 4;
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return as_float(as_bits(positive(t)) - t.shift) | sign_of(x);
  }

 private:
  static F32 positive(const roots::Thirds<F32>& t) {
    if constexpr (L == Level::EP) return roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::LA)
      return t.power(roots::kInverseThirdRoots) * horner(t.m - F32(1.5f), roots::kInvCbrtLow);
    const F32 w = roots::truncated(roots::inverse_cube_root<L>(t));
    const F32 d = roots::cubic_residue(t.z, w);
    return fma(w, d * horner(d, roots::kInvCbrtTail), w);
  }
  static F64 positive(const roots::Thirds<F64>& t) {
    F64 w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) {
      w = roots::truncated(w);
      const F64 d = roots::cubic_residue(t.z, w);
      return fma(w, d * horner(d, roots::kInvCbrtTail64), w);
    }
    const F64 d = fnma(t.z * (w * w), w, F64(1.0));
    if constexpr (L == Level::EP) return w * horner(d, roots::kInvCbrtTail64Short);
    return fma(w, d * horner(d, roots::kInvCbrtTail64), w);
  }
};

template <class Fn, class V>
struct Pow2o3Element {
  using E = typename V::Element;
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
template <class V, Level L>
struct Pow2o3 : Pow2o3Element<Pow2o3<V, L>, V> {
  static constexpr int vectors = V::width == 4 ? 2 : 4;
  static V lanes(V x) {
    const roots::Thirds<V> t(x);
    return roots::scaled(positive(t), shift_left<1>(t.shift));
  }

 private:
  static F32 positive(const roots::Thirds<F32>& t) {
    if constexpr (L == Level::EP) return t.power(roots::kTwoThirdRoots) * horner(t.m, roots::kPow2o3Short);
    if constexpr (L == Level::LA) return t.power(roots::kTwoThirdRoots) * horner(t.m - F32(1.5f), roots::kPow2o3Low);
    const F32 w = roots::truncated(roots::inverse_cube_root<L>(t));
    const F32 g = t.z * w;
    const F32 low = fms(t.z, w, g);
    const F32 w2 = w * w;
    const F32 d = fnma(low, w2, fnma(g, w2, F32(1.0f)));
    return g + fma(g, d * horner(d, roots::kInvCbrtTail), low);
  }
  static F64 positive(const roots::Thirds<F64>& t) {
    F64 w = roots::inverse_cube_root<L>(t);
    if constexpr (L == Level::HA) w = roots::truncated(w);
    const F64 g = t.z * w;
    const F64 w2 = w * w;
    const F64 d = fnma(g, w2, F64(1.0));
    if constexpr (L == Level::EP) return g * horner(d, roots::kInvCbrtTail64Short);
    if constexpr (L == Level::LA) return fma(g, d * horner(d, roots::kInvCbrtTail64), g);
    const F64 low = fms(t.z, w, g);
    const F64 rest = fnma(low, w2, d);
    return g + fma(g, rest * horner(rest, roots::kInvCbrtTail64), low);
  }
};

}  // namespace orvik::zym

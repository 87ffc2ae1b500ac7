// Bessel functions of the first and second kind, order 0 and 1. Up to 63.75 expansions from a table; above amplitude
// and phase (far.h); below 2^-5 the series of what is singular there (near_zero.h). The first kind is even or odd.
#pragma once

#include "zym/kernels/bessel/far.h"
#include "zym/kernels/bessel/near_zero.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {
namespace bessel {

template <int Order, bool Second>
struct RowsOf;
template <>
struct RowsOf<0, false> {
  static constexpr const auto& rows64 = kJ0Rows64;
  static constexpr const auto& rows32 = kJ0Rows32;
};
template <>
struct RowsOf<1, false> {
  static constexpr const auto& rows64 = kJ1Rows64;
  static constexpr const auto& rows32 = kJ1Rows32;
};
template <>
struct RowsOf<0, true> {
  static constexpr const auto& rows64 = kY0Rows64;
  static constexpr const auto& rows32 = kY0Rows32;
};
template <>
struct RowsOf<1, true> {
  static constexpr const auto& rows64 = kY1Rows64;
  static constexpr const auto& rows32 = kY1Rows32;
};

// High words of the bounds in the format of the lanes.
template <class V>
inline constexpr uint32_t kRowsEndWord = Single<V> ? 0x427F0000u : 0x404FE000u;

// The value between the table's ends, in head and tail where there are some.
template <int Order, bool Second, bool Fine = false, Double V>
[[gnu::always_inline]] inline HeadTail<V> row_value(V a) {
  return expand<Fine>(RowsOf<Order, Second>::rows64, Second ? singular_row(a) : even_row(a), a);
}
template <int Order, bool Second, class V>
[[gnu::always_inline]] inline V near_value(V a) {
  if constexpr (Single<V>) {
    const auto half = [](Wide<V> x) __attribute__((always_inline)) {
      return expand(RowsOf<Order, Second>::rows32, Second ? singular_row(x) : even_row(x), x);
    };
    return narrow(half(widen_low(a)), half(widen_high(a)));
  } else {
    const HeadTail<V> r = row_value<Order, Second>(a);
    return r.head + r.tail;
  }
}
template <int Order, bool Second, class V>
[[gnu::always_inline]] inline V far_sum(V a) {
  if constexpr (Single<V>) {
    return far_single<Order, Second>(a);
  } else {
    const HeadTail<V> r = far_value<Order, Second>(a);
    return r.head + r.tail;
  }
}

// Squares of tiny and of huge arguments' reciprocals underflow on the way.
inline constexpr Knobs kCylinderKnobs = {.vectors = 2, .stray = kUnderflowFlag};

template <int Order, class V>
struct FirstKind {
  static constexpr Knobs knobs = kCylinderKnobs;
  using E = Element<V>;

  static auto special(V x) { return magnitude_above<kRowsEndWord<V> - 1>(x); }
  static V lanes(V x) { return signed_as(near_value<Order, false>(magnitude(x)), x); }
  static Masked<V, Mask<V>> wide(V x) {
    const Mask<V> outside = not_finite(x);
    const V a = select(outside, V(E(64)), magnitude(x));
    return {signed_as(far_sum<Order, false>(max(a, V(E(kRowsEnd)))), x), outside};
  }
  static int32_t element(const E* x, E* r) {
    *r = is_nan(*x) ? *x * *x : Order == 0 ? E(0) : zero_like(*x);
    return 0;
  }

 private:
  static V signed_as(V r, V x) { return Order == 0 ? r : flip_sign(r, x); }
};

// Where the second kind is singular or not defined; true where that is the whole answer.
template <class E>
bool second_kind_special(E x, E* r) {
  if (is_nan(x)) {
    *r = x * x;
  } else if (x == E(0)) {
    *r = E(-1) / opaque(E(0));
  } else if (x < E(0)) {
    *r = opaque(E(0)) * infinity<E>;
  } else if (is_infinite(x)) {
    *r = E(0);
  } else {
    return false;
  }
  return true;
}

template <int Order, class V>
struct SecondKind {
  static constexpr Knobs knobs = kCylinderKnobs;
  using E = Element<V>;

  static auto special(V x) { return outside < Single<V> ? 0x3D000000u : 0x3FA00000u, kRowsEndWord<V> - 1 > (x); }
  static V lanes(V x) { return near_value<Order, true>(x); }

  static Masked<V, Mask<V>> wide(V x) {
    constexpr E kSmallest = Single<V> ? E(0x1p-126) : E(0x1p-1000);
    const Mask<V> outside = Mask<V>(not_finite(x)) | complement(x >= V(kSmallest));
    const V a = select(outside, V(E(64)), x);
    V r = far_sum<Order, true>(max(a, V(E(kRowsEnd))));
    const Mask<V> small = a < V(E(1));
    if (!none(small)) r = select(small, small_sum(min(a, V(E(kSingularRowsBegin)))), r);
    return {r, outside};
  }

  static int32_t element(const E* x, E* r) {
    if (second_kind_special(*x, r)) return 0;
    if constexpr (Single<V>) {  // a denormal number
      const HeadTail<F64> value = second_near_zero<Order>(F64(static_cast<double>(*x)));
      *r = static_cast<float>(opaque(first_lane(value.head + value.tail)));
    } else {
      *r = second_of_tiny<Order>(*x);
    }
    return 0;
  }

 private:
  static V small_sum(V x) {
    const auto sum = [](auto y) __attribute__((always_inline)) {
      const auto value = second_near_zero<Order>(y);
      return value.head + value.tail;
    };
    if constexpr (Single<V>) return narrow(sum(widen_low(x)), sum(widen_high(x)));
    if constexpr (Double<V>) return sum(x);
  }
};

}  // namespace bessel

// sJ0 HA: 0.5839 ulp at 0x1.5a00dp+5
// dJ0 HA: 0.5538 ulp at -0x1.63906cff299p+1
template <class V, Level L>
struct J0 : bessel::FirstKind<0, V> {};
// sJ1 HA: 0.5826 ulp at 0x1.65c156p+5
// dJ1 HA: 0.5731 ulp at 0x1.11f5a73a77498p+5
template <class V, Level L>
struct J1 : bessel::FirstKind<1, V> {};
// sY0 HA: 0.5819 ulp at 0x1.b2001ap+5
// dY0 HA: 0.5441 ulp at 0x1.29b9d8c4ecd0ep+5
template <class V, Level L>
struct Y0 : bessel::SecondKind<0, V> {};
// sY1 HA: 0.5805 ulp at 0x1.5a012ap+5
// dY1 HA: 0.5312 ulp at 0x1.49de378ed7aacp+5
template <class V, Level L>
struct Y1 : bessel::SecondKind<1, V> {};

}  // namespace orvik::zym

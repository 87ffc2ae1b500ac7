// Bessel functions of the first and second kind of any integer order, in lanes with one order. From the values of order
// 0 and 1 by the recurrence f(k+1) = 2k/x f(k) - f(k-1), in head and tail for 64 bits: upwards where that is stable, Y
// everywhere and J up to order x; for J of a higher order downwards from the ratio J(n+1)/J(n), which is a continued
// fraction (Gautschi 1967), as far as order 0. Numbers beyond 2^300 are scaled down and the steps counted.
#pragma once

#include <cstdlib>

#include "zym/kernels/bessel/cylinder.h"

namespace orvik::zym {
namespace bessel {

// f 2^(700 count) for growing numbers, with `limit` on the way to overflow: steps grow by less than 2^700, for
// arguments from kSmallest on and orders of 31 bits.
inline constexpr double kScaleLimit = 0x1p300, kScaleDown = 0x1p-700, kScaleUp = 0x1p700, kSmallest = 0x1p-600;

// The recurrence at one argument. Without Pairs there are no tails.
template <bool Pairs, Double V>
struct Recurrence {
  HeadTail<V> two_over_x;
  HeadTail<V> f, before;  // of the order reached, and of the one before
  V count = V(0.0);       // of scalings

  explicit Recurrence(V x) {
    two_over_x = divide(V(2.0), x);
    if constexpr (!Pairs) two_over_x.tail = V(0.0);
  }

  // From orders k and before to the next beyond k.
  [[gnu::always_inline]] void step(double order) {
    const V k = V(order);
    const V c = k * two_over_x.head;
    HeadTail<V> next;
    if constexpr (Pairs) {
      const V c_tail = fma(k, two_over_x.tail, fms(k, two_over_x.head, c));
      const HeadTail<V> p = two_prod(c, f.head);
      const V p_tail = fma(c, f.tail, fma(c_tail, f.head, p.tail));
      const HeadTail<V> sum = two_sum(p.head, flip_sign(before.head, V(-1.0)));
      next = {sum.head, sum.tail + (p_tail - before.tail)};
    } else {
      next = {fms(c, f.head, before.head), V(0.0)};
    }
    before = f;
    f = next;
  }
  [[gnu::always_inline]] void keep_in_range() {
    const Mask<V> large = magnitude(f.head) > V(kScaleLimit);
    if (!none(large)) [[unlikely]]
      scale_down(large);
  }
  void scale_down(Mask<V> large) {
    const V factor = select(large, V(kScaleDown), V(1.0));
    f = {f.head * factor, f.tail * factor};
    before = {before.head * factor, before.tail * factor};
    count = count + keep(large, V(1.0));
  }
  // Whether no lane comes back into the range of numbers.
  bool beyond() const { return none(count < V(3.0)); }
};

// A number times 2^(700 count), or by 2^-700 for each; beyond three nothing is left of any.
template <Double V>
[[gnu::always_inline]] inline V scaled_by(V r, V count, double factor) {
  for (int i = 0; i < 3; ++i) r = r * select(count > V(double(i)), V(factor), V(1.0));
  return r;
}

// Order 0 or 1 at any positive argument.
template <int Order, bool Second, bool Fine, Double V>
[[gnu::noinline]] HeadTail<V> start_value(V a) {
  HeadTail<V> r{V(0.0), V(0.0)};
  const Mask<V> far = a >= V(kRowsEnd);
  const auto take = [&](Mask<V> mask, HeadTail<V> value) {
    r = {select(mask, value.head, r.head), select(mask, value.tail, r.tail)};
  };
  if (!none(complement(far))) {
    r = row_value<Order, Second, Fine>(min(Second ? max(a, V(kSingularRowsBegin)) : a, V(kRowsLast)));
    if constexpr (Second) {
      const Mask<V> small = a < V(kSingularRowsBegin);
      if (!none(small)) take(small, second_near_zero<Order>(min(a, V(kSingularRowsBegin))));
    }
  }
  if (!none(far)) take(far, far_value<Order, Second>(max(a, V(kRowsEnd))));
  return r;
}

// Upwards to an order from 2 on.
template <bool Pairs, bool Second, Double V>
[[gnu::always_inline]] inline Recurrence<Pairs, V> upwards(V a, int64_t order) {
  Recurrence<Pairs, V> r(a);
  const auto begin = [](HeadTail<V> x) { return Pairs ? x : HeadTail<V>{x.head + x.tail, V(0.0)}; };
  r.before = begin(start_value<0, Second, Pairs>(a));
  r.f = begin(start_value<1, Second, Pairs>(a));
  if constexpr (Second) r.scale_down(a < V(1.0));  // 1/x may be large already
  for (int64_t k = 1; k < order; ++k) {
    r.step(static_cast<double>(k));
    if constexpr (Second) {
      r.keep_in_range();
      if (k % 16 == 0 && r.beyond()) break;
    }
  }
  return r;
}

// x J(n+1)/J(n), n above x, from an order where what is left out counts for nothing: the growth of the recurrence's
// other solution is the square root of the error (Olver 1967).
template <bool Pairs, Double V>
[[gnu::always_inline]] inline HeadTail<V> ratio_times_x(V a, int64_t order) {
  const V enough = V(Pairs ? 0x1p36 : 0x1p22), cap = V(0x1p60);
  const V two_over_x = V(2.0) / a;
  V growth = V(1.0), before = V(0.0);
  int64_t k = order + 1;
  for (; !none(growth < enough); ++k) {
    const V next = min(fms(V(static_cast<double>(k)) * two_over_x, growth, before), cap);
    before = growth;
    growth = next;
  }
  const HeadTail<V> square = two_square(a);
  HeadTail<V> ratio{V(0.0), V(0.0)};
  for (; k > order; --k) {
    const V twice = V(2.0 * static_cast<double>(k));
    if constexpr (Pairs) {
      const HeadTail<V> rest = fast_two_sum(twice, flip_sign(ratio.head, V(-1.0)));
      ratio = divide(square, HeadTail<V>{rest.head, rest.tail - ratio.tail});
    } else {
      ratio.head = square.head / (twice - ratio.head);
    }
  }
  return ratio;
}

// J of an order from 2 on and above x.
template <bool Pairs, Double V>
[[gnu::noinline]] V first_kind_downwards(V a, int64_t order) {
  a = max(a, V(kSmallest));
  Recurrence<Pairs, V> r(a);
  r.before = divide(ratio_times_x<Pairs>(a, order), HeadTail<V>{a, V(0.0)});
  r.f = {V(1.0), V(0.0)};
  for (int64_t k = order; k > 0; --k) {
    r.step(static_cast<double>(k));
    r.keep_in_range();
    if (k % 16 == 0 && r.beyond()) break;
  }
  const HeadTail<V> j0 = start_value<0, false, Pairs>(a), j1 = start_value<1, false, Pairs>(a);
  const Mask<V> first = magnitude(r.f.head) >= magnitude(r.before.head);
  const HeadTail<V> known = {select(first, j0.head, j1.head), select(first, j0.tail, j1.tail)};
  const HeadTail<V> found = {select(first, r.f.head, r.before.head), select(first, r.f.tail, r.before.tail)};
  V value;  // positive: the order is above the argument
  if constexpr (Pairs) {
    const HeadTail<V> q = divide(known, found);
    value = q.head + q.tail;
  } else {
    value = (known.head + known.tail) / found.head;
  }
  return scaled_by(magnitude(value), r.count, kScaleDown);
}

// |J| with its sign for positive orders and arguments.
template <bool Pairs, Double V>
[[gnu::noinline]] V first_kind(V a, int64_t order) {
  if (order < 2) {
    const HeadTail<V> r = order == 0 ? start_value<0, false, Pairs>(a) : start_value<1, false, Pairs>(a);
    return r.head + r.tail;
  }
  const V n = V(static_cast<double>(order));
  const Mask<V> above = a < n;  // the order is above the argument
  V value = V(0.0);
  if (!none(complement(above))) {
    const HeadTail<V> f = upwards<Pairs, false>(max(a, n), order).f;
    value = f.head + f.tail;
  }
  if (!none(above)) {
    value =
        select(above, first_kind_downwards<Pairs>(select(above, a, V(0.5 * static_cast<double>(order))), order), value);
  }
  return value;
}

template <bool Pairs, Double V>
[[gnu::noinline]] V second_kind(V a, int64_t order) {
  if (order < 2) {
    const HeadTail<V> r = order == 0 ? start_value<0, true, Pairs>(a) : start_value<1, true, Pairs>(a);
    return r.head + r.tail;
  }
  const Recurrence<Pairs, V> r = upwards<Pairs, true>(max(a, V(kSmallest)), order);
  return scaled_by(r.f.head + r.f.tail, r.count, kScaleUp);
}

// A function of 64-bit lanes over these or over the halves of floats.
template <class V, class F>
[[gnu::always_inline]] inline V over_doubles(V a, F function) {
  if constexpr (Single<V>) {
    return narrow(function(widen_low(a)), function(widen_high(a)));
  } else {
    return function(a);
  }
}

inline int64_t magnitude_of(Order p) { return std::abs(static_cast<int64_t>(p.order)); }
// f(-n) = (-1)^n f(n).
inline bool changes_sign(Order p) { return p.order < 0 && p.order % 2 != 0; }

}  // namespace bessel

// sJn HA: 0.5000 ulp at order 1, 0x1p-149
// dJn HA: 0.6667 ulp at order 3, 0x1.0000000000001p-339
template <class V, Level L>
struct Jn {
  static constexpr Knobs knobs = {.vectors = 1, .stray = kUnderflowFlag, .together = false};
  using E = Element<V>;

  static auto special(V x, Order) { return not_finite(x); }
  static V lanes(V x, Order p) {
    const V r = bessel::over_doubles(magnitude(x),
                                     [&](auto a) { return bessel::first_kind<Double<V>>(a, bessel::magnitude_of(p)); });
    const V signs = p.order % 2 == 0 ? V(E(0)) : bessel::changes_sign(p) ? flip_sign(x, V(E(-1))) : x;
    return flip_sign(r, signs);
  }
  static int32_t element(const E* x, E* r, Order p) {
    if (is_nan(*x)) {
      *r = *x * *x;
    } else {
      const E zero = p.order % 2 == 0 ? E(0) : zero_like(*x);
      *r = bessel::changes_sign(p) ? -zero : zero;
    }
    return 0;
  }
};

// sYn HA: 0.5000 ulp at order 1, 0x1.16fe1ap-19
// dYn HA: 0.4984 ulp at 0x1p-766
template <class V, Level L>
struct Yn {
  // The filler is an argument where no order overflows.
  static constexpr Knobs knobs = {.vectors = 1, .filler = 1e30, .stray = kUnderflowFlag};
  using E = Element<V>;

  static auto special(V x, Order) { return not_positive_normal(x); }
  static V lanes(V x, Order p) {
    const V r =
        bessel::over_doubles(x, [&](auto a) { return bessel::second_kind<Double<V>>(a, bessel::magnitude_of(p)); });
    return flip_sign(r, V(E(bessel::changes_sign(p) ? -1 : 1)));
  }
  static int32_t element(const E* x, E* r, Order p) {
    if (!bessel::second_kind_special(*x, r)) {  // a denormal number
      const int64_t order = bessel::magnitude_of(p);
      if constexpr (Single<V>) {
        *r = static_cast<float>(opaque(first_lane(bessel::second_kind<false>(F64(static_cast<double>(*x)), order))));
      } else if (order == 0) {
        *r = bessel::second_of_tiny<0>(*x);
      } else if (order == 1) {
        *r = bessel::second_of_tiny<1>(*x);
      } else {
        *r = opaque(-std::numeric_limits<E>::max()) * std::numeric_limits<E>::max();
      }
    }
    if (bessel::changes_sign(p) && !is_nan(*r)) *r = -*r;
    return 0;
  }
};

}  // namespace orvik::zym

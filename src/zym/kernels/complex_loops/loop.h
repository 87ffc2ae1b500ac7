// What the complex functions of one argument share: parts widened to doubles, lanes for what is neither special nor far
// out, the routine for one element, parts narrowed, the code of the report.
//
// A function F has, over the number N, for elements and for lanes,
//   static Point finite(double x, double y);             any finite parts
//   static Point special(double x, double y);            all others (C99 Annex G; no template)
//   static Mask<V> left(V x, V y);                       what its lanes do not serve: infinities, NaNs, and what is far out
//   static Masked<Pair<V>, Mask<V>> lanes(V x, V y);     the others, with those whose tails are lost
#pragma once

#include "orvik/zym_types.h"
#include "zym/kernels/complex_loops/number.h"
#include "zym/kernels/shared/flags.h"
#include "zym/skeleton/family.h"
#include "zym/skeleton/signature.h"

namespace orvik::zym::complex_loops {

inline bool finite(double x) { return magnitude_bits(x) < FloatFormat<double>::exponent_field; }
inline bool finite(Point z) { return finite(z.re) && finite(z.im); }

// A denormal that counts as zero becomes one, a signalling NaN a quiet one.
template <class E>
Point widened(const Complex<E>* z) {
  return {quiet(static_cast<double>(z->re)), quiet(static_cast<double>(z->im))};
}
template <class E>
void narrow_to(Complex<E>* r, Point w) {
  *r = {static_cast<E>(w.re), static_cast<E>(w.im)};
}

// Finite arguments with an infinite part in the result: an overflow.
template <class E>
int32_t code_of(const Complex<E>& r) {
  return is_infinite(r.re) || is_infinite(r.im) ? zymErrorOverflow : 0;
}

// A NaN of an invalid operation on what was none: infinity times zero and its like.
inline double invalid() { return opaque(infinity<double>) * opaque(0.0); }
inline bool has_nan(Point z) { return is_nan(z.re) || is_nan(z.im); }
// Both NaN: an invalid operation unless a NaN came in.
inline Point no_number(double x, double y) {
  const double n = has_nan({x, y}) ? x + y : invalid();
  return {n, n};
}

// Squares and products of tails are tinier than what they belong to; what lanes leave may do anything.
inline constexpr Knobs kKnobs = {.vectors = 1, .stray = kUnderflowFlag | kSevereFlags};

// The same of an element's routine.
template <class F>
int32_t without_underflow(F routine) {
  const uint32_t before = read_control();
  const int32_t code = routine();
  take_back_underflow(before);
  return code;
}

// A function of lanes of doubles over the halves of floats, NaN where it leaves a lane.
template <class Function, Single V, class... More>
[[gnu::always_inline]] inline auto by_halves(Function function, V x, V y, More... more) {
  using W = Wide<V>;
  const auto marked = [](Masked<Pair<W>, Mask<W>> r) __attribute__((always_inline)) {
    const W none = W(nan<double>);
    return Pair<W>{select(r.special, none, r.value.first), select(r.special, none, r.value.second)};
  };
  const Pair<W> low = marked(function(widen_low(x), widen_low(y), widen_low(more)...));
  const Pair<W> high = marked(function(widen_high(x), widen_high(y), widen_high(more)...));
  const Pair<V> r = {narrow(low.first, high.first), narrow(low.second, high.second)};
  return Masked{r, not_finite(r.first) | not_finite(r.second)};
}

template <class F, class V>
struct Loop {
  using E = Element<V>;
  static constexpr Knobs knobs = kKnobs;

  static auto lanes(Pair<V> z) {
    if constexpr (Single<V>) {
      return by_halves([](auto x, auto y) { return doubles(x, y); }, z.first, z.second);
    } else {
      return doubles(z.first, z.second);
    }
  }
  static int32_t element(const Complex<E>* pz, Complex<E>* r) {
    return without_underflow([=] {
      const Point z = widened<E>(pz);
      if (!finite(z)) [[unlikely]]
        return limit(z, r);
      narrow_to<E>(r, F::template finite<Number<E>>(z.re, z.im));
      return code_of<E>(*r);
    });
  }

 private:
  // Out of line: an element takes a hundred times what the call does.
  template <Double W>
  [[gnu::noinline]] static Masked<Pair<W>, Mask<W>> doubles(W x, W y) {
    using N = Number<E, W>;
    const Mask<W> left = F::template left<N>(x, y);
    const W filler = W(0.75);
    const auto r = F::template lanes<N>(select(left, filler, x), select(left, filler, y));
    return {r.value, left | r.special};
  }
  [[gnu::noinline, gnu::cold]] static int32_t limit(Point z, Complex<E>* r) {
    const Point w = F::special(z.re, z.im);
    narrow_to<E>(r, w);
    return has_nan(w) && !has_nan(z) ? zymErrorDomain : 0;
  }
};

// i z and -i z: the circular functions from the hyperbolic ones, and back.
inline Point turned(Point z) { return {-z.im, z.re}; }
inline Point turned_back(Point z) { return {z.im, -z.re}; }

}  // namespace orvik::zym::complex_loops

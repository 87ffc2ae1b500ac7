// The derivative rules of the local cubic kinds: each says which slopes it looks at, the derivative at an interior
// breakpoint k of a chunk or at several from there on, and the derivatives at the ends of a periodic function. kHalo:
// breakpoints that it looks at on either side; kFirst: where it begins to hold; kLengths: it reads intervals' lengths;
// kGiven: there is none, the caller gives the derivatives.
#ifndef ORVIK_DF_CONSTRUCT_RULES_H
#define ORVIK_DF_CONSTRUCT_RULES_H

#include "df/construct/chunk.h"

namespace orvik::df {

// The values and slopes of one function near its ends, formed as the chunks form them.
template <class Real, bool kUniform>
struct Outline {
  Partition<Real, kUniform> partition;
  Values<Real> y;
  int64_t nx;
  const Real* bc;

  Real h(int64_t i) const { return partition.h(i); }
  Real m(int64_t i) const { return slope(y[i], y[i + 1], partition.inverse_h(i)); }
  int64_t last() const { return nx - 2; }  // the last interval
};

// Derivatives that the caller gives: only the ends are rules.
struct Hermite {
  static constexpr bool kGiven = true;
  static constexpr int64_t kHalo = 0, kFirst = 1;

  template <class Real, bool kUniform>
  static Real periodic_left(const Outline<Real, kUniform>& o) {
    return o.bc[0];
  }
  template <class Real, bool kUniform>
  static Real periodic_right(const Outline<Real, kUniform>& o) {
    return o.bc[0];
  }
};

// The parabola through three neighbouring points.
struct Bessel {
  static constexpr bool kGiven = false;
  static constexpr int64_t kHalo = 1, kFirst = 1;
  static constexpr bool kLengths = true;

  template <class T, class Real, bool kUniform>
  static T derivative(const Chunk<Real, kUniform>& c, int64_t k) {
    if constexpr (kUniform) {
      return (load<T>(c.y + k + 1) - load<T>(c.y + k - 1)) * T(Real(0.5) * c.partition.inverse_step());
    } else {
      const T sum = fma(load<T>(c.h() + k), load<T>(c.m() + k - 1), load<T>(c.h() + k - 1) * load<T>(c.m() + k));
      return sum / (load<T>(c.x + k + 1) - load<T>(c.x + k - 1));
    }
  }
  template <class Real, bool kUniform>
  static Real periodic_left(const Outline<Real, kUniform>& o) {
    if constexpr (kUniform) {
      return around(o);
    } else {
      const Real h0 = o.h(0), hl = o.h(o.last());
      const Real dyl = o.y[o.nx - 1] - o.y[o.nx - 2];
      return std::fma(hl, o.m(0), h0 * dyl / hl) / (h0 + hl);
    }
  }
  template <class Real, bool kUniform>
  static Real periodic_right(const Outline<Real, kUniform>& o) {
    if constexpr (kUniform) {
      return around(o);
    } else {
      const Real h0 = o.h(0), hl = o.h(o.last());
      const Real dy0 = o.y[1] - o.y[0];
      return std::fma(h0, o.m(o.last()), hl * dy0 / h0) / (hl + h0);
    }
  }

 private:
  template <class Real>
  static Real around(const Outline<Real, true>& o) {
    return ((o.y[1] + o.y[o.nx - 1]) - (o.y[0] + o.y[o.nx - 2])) * (Real(0.5) * o.partition.inverse_step());
  }
};

// Bessel's derivative, cut to zero at extrema and to three times the smaller slope (Hyman 1983).
struct Hyman {
  static constexpr bool kGiven = false;
  static constexpr int64_t kHalo = 1, kFirst = 1;
  static constexpr bool kLengths = true;

  template <class T, class Real, bool kUniform>
  static T derivative(const Chunk<Real, kUniform>& c, int64_t k) {
    const T zero(Real(0)), left = load<T>(c.m() + k - 1), right = load<T>(c.m() + k);
    const T b = select(zero >= left * right, zero, Bessel::derivative<T>(c, k));
    const T size_left = magnitude(left), size_right = magnitude(right);
    const T cap = T(Real(3)) * select(size_right < size_left, size_right, size_left);
    return join_sign(select(magnitude(b) < cap, magnitude(b), cap), b);
  }
  template <class Real, bool kUniform>
  static Real periodic_left(const Outline<Real, kUniform>& o) {
    return Bessel::periodic_left(o);
  }
  template <class Real, bool kUniform>
  static Real periodic_right(const Outline<Real, kUniform>& o) {
    return Bessel::periodic_right(o);
  }
};

// Slopes weighted by how much the slopes on the other side change (Akima 1970).
struct Akima {
  static constexpr bool kGiven = false;
  static constexpr int64_t kHalo = 2, kFirst = 2;
  static constexpr bool kLengths = false;

  // Below this sum of weights the plain mean is taken. The float bound is the least float not below 1e-6.
  template <class Real>
  static constexpr Real kThreshold = sizeof(Real) == 8 ? Real(1e-10) : Real(1.0000001e-6f);

  template <class T, class Real, bool kUniform>
  static T derivative(const Chunk<Real, kUniform>& c, int64_t k) {
    const Real* m = c.m() + k;
    const T left = load<T>(m - 1), right = load<T>(m);
    return weighted<Real, T>(magnitude(left - load<T>(m - 2)), magnitude(load<T>(m + 1) - right), left, right);
  }
  // Beside an end the weight that is missing is its neighbour's.
  template <class Real, bool kUniform>
  static Real beside_left(const Chunk<Real, kUniform>& c) {
    const Real* m = c.m();
    return weighted<Real, Real>(magnitude(m[1] - m[0]), magnitude(m[2] - m[1]), m[0], m[1]);
  }
  template <class Real, bool kUniform>
  static Real beside_right(const Chunk<Real, kUniform>& c) {
    const Real* m = c.m() + c.points - 2;  // the last slope
    return weighted<Real, Real>(magnitude(m[-1] - m[-2]), magnitude(m[0] - m[-1]), m[-1], m[0]);
  }
  template <class Real, bool kUniform>
  static Real periodic_left(const Outline<Real, kUniform>& o) {
    const Real a = o.m(o.last() - 1), b = o.m(o.last());
    const Real v = magnitude(b - a), u = magnitude(o.m(1) - o.m(0));
    if (magnitude(v + u) < kThreshold<Real>) return (b + o.m(0)) * Real(0.5);
    return std::fma(v, o.m(0), u * b) / (v + u);
  }
  template <class Real, bool kUniform>
  static Real periodic_right(const Outline<Real, kUniform>& o) {
    const int64_t l = o.last();
    const Real a = o.m(0), b = o.m(1);
    const Real v = magnitude(b - a), u = magnitude(o.m(l) - o.m(l - 1));
    if (magnitude(v + u) < kThreshold<Real>) return (o.m(l) + a) * Real(0.5);
    return std::fma(o.m(l), v, u * a) / (v + u);
  }

 private:
  // From the slopes on both sides and the weights beyond them.
  template <class Real, class T>
  static T weighted(T before, T after, T left, T right) {
    const T s = after + before;
    return select(s < T(kThreshold<Real>), T(T(Real(0.5)) * (left + right)), T(fma(after, left, before * right) / s));
  }
};

}  // namespace orvik::df

#endif

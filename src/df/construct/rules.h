// The derivative rules of the local cubic kinds: each says which slopes it looks at, the derivative at an interior
// breakpoint, and the derivatives at the ends of a periodic function.
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

// Derivatives that the caller gives.
struct Hermite {
  static constexpr int64_t kHalo = 0, kFirst = 1;

  template <class Real, bool kUniform>
  static void interior(const Task& task, const Chunk<Real, kUniform>& c, int64_t from, int64_t to, Real* d) {
    const Real* given = task.internal_values<Real>();  // of breakpoint 1 and on
    for (int64_t k = from; k <= to; ++k) d[k] = given[c.base + k - 1];
  }
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
  static constexpr int64_t kHalo = 1, kFirst = 1;

  template <class Real, bool kUniform>
  static void interior(const Task&, const Chunk<Real, kUniform>& c, int64_t from, int64_t to, Real* d) {
    if constexpr (kUniform) {
      const Real half = Real(0.5) * c.partition.inverse_step;
      by_lanes<Real>(from, to, [&](int64_t k, auto zero) {
        using T = decltype(zero);
        put(d + k, (at<T>(c.y + k + 1) - at<T>(c.y + k - 1)) * T(half));
      });
    } else {
      by_lanes<Real>(from, to, [&](int64_t k, auto zero) {
        using T = decltype(zero);
        using std::fma;
        const T sum = fma(at<T>(c.h + k), at<T>(c.m + k - 1), at<T>(c.h + k - 1) * at<T>(c.m + k));
        put(d + k, sum / (at<T>(c.x + k + 1) - at<T>(c.x + k - 1)));
      });
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
    return ((o.y[1] + o.y[o.nx - 1]) - (o.y[0] + o.y[o.nx - 2])) * (Real(0.5) * o.partition.inverse_step);
  }
};

// Bessel's derivative, cut to zero at extrema and to three times the smaller slope (Hyman 1983).
struct Hyman {
  static constexpr int64_t kHalo = 1, kFirst = 1;

  template <class Real, bool kUniform>
  static void interior(const Task& task, const Chunk<Real, kUniform>& c, int64_t from, int64_t to, Real* d) {
    Bessel::interior(task, c, from, to, d);
    by_lanes<Real>(from, to, [&](int64_t k, auto zero) {
      using T = decltype(zero);
      using std::abs, std::copysign;
      const T left = at<T>(c.m + k - 1), right = at<T>(c.m + k);
      const T b = select(zero >= left * right, zero, at<T>(d + k));
      const T size_left = abs(left), size_right = abs(right);
      const T cap = T(Real(3)) * select(size_right < size_left, size_right, size_left);
      put(d + k, copysign(select(abs(b) < cap, abs(b), cap), b));
    });
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
  static constexpr int64_t kHalo = 2, kFirst = 2;

  // Below this sum of weights the plain mean is taken. The float bound is the least float not below 1e-6.
  template <class Real>
  static constexpr Real kThreshold = sizeof(Real) == 8 ? Real(1e-10) : Real(1.0000001e-6f);

  template <class Real, bool kUniform>
  static void interior(const Task&, const Chunk<Real, kUniform>& c, int64_t from, int64_t to, Real* d) {
    const int64_t slopes = c.points - 1;
    Real* w = c.w;
    const Real* m = c.m;
    by_lanes<Real>(1, slopes - 1, [&](int64_t k, auto zero) {
      using T = decltype(zero);
      using std::abs;
      put(w + k, T(abs(at<T>(m + k) - at<T>(m + k - 1))));
    });
    if (c.at_left) w[0] = w[1];
    if (c.at_right) w[slopes] = w[slopes - 1];
    by_lanes<Real>(from, to, [&](int64_t k, auto zero) {
      using T = decltype(zero);
      using std::fma;
      const T before = at<T>(w + k - 1), after = at<T>(w + k + 1), left = at<T>(m + k - 1), right = at<T>(m + k);
      const T s = after + before;
      const T mean = T(Real(0.5)) * (left + right);
      put(d + k, select(s < T(kThreshold<Real>), mean, fma(after, left, before * right) / s));
    });
  }
  template <class Real, bool kUniform>
  static Real periodic_left(const Outline<Real, kUniform>& o) {
    const Real a = o.m(o.last() - 1), b = o.m(o.last());
    const Real v = std::abs(b - a), u = std::abs(o.m(1) - o.m(0));
    if (std::abs(v + u) < kThreshold<Real>) return (b + o.m(0)) * Real(0.5);
    return std::fma(v, o.m(0), u * b) / (v + u);
  }
  template <class Real, bool kUniform>
  static Real periodic_right(const Outline<Real, kUniform>& o) {
    const int64_t l = o.last();
    const Real a = o.m(0), b = o.m(1);
    const Real v = std::abs(b - a), u = std::abs(o.m(l) - o.m(l - 1));
    if (std::abs(v + u) < kThreshold<Real>) return (o.m(l) + a) * Real(0.5);
    return std::fma(o.m(l), v, u * a) / (v + u);
  }
};

}  // namespace orvik::df

#endif

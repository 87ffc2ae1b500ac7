// The quadratic spline through (x[i], y[i]) with knots tau[0..nx] between the breakpoints. docs/quadratic-splines.md
// has the derivation.
#ifndef ORVIK_DF_CONSTRUCT_QUADRATIC_KNOTS_H
#define ORVIK_DF_CONSTRUCT_QUADRATIC_KNOTS_H

#include "df/construct/problem.h"
#include "df/pieces/knots.h"

namespace orvik::df {

// Slopes s[i] at tau[i]. On [tau[i], tau[i+1]] the derivative runs linearly from s[i] to s[i+1]; continuity of the
// value at tau[i] is row i, 1 <= i <= nx - 1. One end condition removes one end's slope, the other one is the last
// equation.
template <class Real, bool kEven>
struct QuadraticSystem {
  const Knots<Real, kEven>& knots;
  Values<Real> y;
  int64_t nx;
  End left, right;
  const Real* bc;
  bool from_right;  // eliminate s[nx], else s[0]

  Real width(int64_t i) const { return knots.tau(i + 1) - knots.tau(i); }

  // An end's condition as outer = ratio * inner + shift, for its slope `outer` and the next one `inner`.
  struct EndSlope {
    Real ratio, shift;
  };
  EndSlope left_slope() const {
    if (left == End::kFirst) return {0, bc[0]};
    return {1, left == End::kSecond ? -width(0) * bc[0] : Real(0)};
  }
  EndSlope right_slope() const {
    if (right == End::kFirst) return {0, bc[1]};
    return {1, right == End::kSecond ? width(nx - 1) * bc[1] : Real(0)};
  }

  // The unknowns that are left after the elimination, among s[0..nx].
  Real* unknowns(Real* s) const { return from_right ? s : s + 1; }

  void set_up(Real* dl, Real* d, Real* du, Real* s) const {
    const int64_t shift = from_right ? 0 : 1;  // unknown k is slope k + shift
    const EndSlope a = left_slope(), b = right_slope();
    for (int64_t i = 1; i <= nx - 1; ++i) {
      const Real before = knots.tau(i) - knots.x(i - 1), after = knots.x(i) - knots.tau(i);
      const Real low = before * before / (2 * width(i - 1)), high = after * after / (2 * width(i));
      Real middle = before - low + after - high, right_side = y[i] - y[i - 1];
      const int64_t row = i - shift;
      if (i == 1 && !from_right) {
        middle += low * a.ratio;
        right_side -= low * a.shift;
      } else {
        dl[row - 1] = low;
      }
      if (i == nx - 1 && from_right) {
        middle += high * b.ratio;
        right_side -= high * b.shift;
      } else {
        du[row] = high;
      }
      d[row] = middle;
      s[i] = right_side;
    }
    if (from_right) {
      d[0] = 1;
      du[0] = -a.ratio;
      s[0] = a.shift;
    } else {
      dl[nx - 2] = -b.ratio;
      d[nx - 1] = 1;
      s[nx] = b.shift;
    }
  }

  void restore_eliminated(Real* s) const {
    if (from_right) {
      s[nx] = std::fma(right_slope().ratio, s[nx - 1], right_slope().shift);
    } else {
      s[0] = std::fma(left_slope().ratio, s[1], left_slope().shift);
    }
  }

  void store(const Real* s, Real* c) const {
    for (int64_t i = 0; i < nx; ++i) {
      const Real bend = (s[i + 1] - s[i]) / width(i);
      c[3 * i] = y[i];
      c[3 * i + 1] = std::fma(bend, knots.x(i) - knots.tau(i), s[i]);
      c[3 * i + 2] = Real(0.5) * bend;
    }
  }
};

}  // namespace orvik::df

#endif

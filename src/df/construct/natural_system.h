// The equations of the natural cubic kind: continuity of the second derivative, in the unknown first derivatives.
//
// Row i, 1 <= i <= nx - 2:
//   h[i] d[i-1] + 2 (x[i+1] - x[i-1]) d[i] + h[i-1] d[i+1] = 3 (h[i] m[i-1] + h[i-1] m[i])
// The first and the last row express the end conditions.
#ifndef ORVIK_DF_CONSTRUCT_NATURAL_SYSTEM_H
#define ORVIK_DF_CONSTRUCT_NATURAL_SYSTEM_H

#include "df/construct/problem.h"

namespace orvik::df {

// One end row: on[0] for the end's own unknown, on[1] for its neighbour, and the right side.
template <class Real>
struct EndRow {
  Real own, neighbour, right;
};

// The end row from the two intervals next to the end, nearest first: lengths h0, h1, slopes m0, m1, t = h0 + h1 as a
// difference of breakpoints. `outward` is +1 on the left and -1 on the right: the sign of the second derivative's term.
template <class Real>
EndRow<Real> end_row(End end, Real h0, Real h1, Real m0, Real m1, Real t, Real given, Real outward) {
  switch (end) {
    case End::kNotAKnot:
      return {h1, t, ((2 * t + h0) * h1 * m0 + h0 * h0 * m1) / t};
    case End::kFirst:
      return {1, 0, given};
    case End::kSecond:
      return {2, 1, 3 * m0 - outward * (Real(0.5) * h0 * given)};
    default:
      return {2, 1, 3 * m0};
  }
}

template <class Real>
Real interior_right_side(Real h_before, Real h, Real m_before, Real m) {
  return 3 * (h * m_before + h_before * m);
}

template <class Real, bool kUniform>
struct NaturalSystem {
  const Task& task;
  Ends ends;
  Partition<Real, kUniform> partition;
  int64_t nx;
  const Real* bc;

  NaturalSystem(const Task& given, Ends conditions)
      : task(given), ends(conditions), partition(given), nx(given.nx), bc(given.boundary_values<Real>()) {}

  Real m(const Values<Real>& y, int64_t i) const { return slope(y[i], y[i + 1], partition.inverse_h(i)); }

  EndRow<Real> left(const Values<Real>& y) const {
    const int64_t l = nx - 2;
    if (periodic()) {
      const Real h = partition.h(l);
      return {2 * h + partition.h(0), h, interior_right_side(h, partition.h(0), m(y, l), m(y, 0))};
    }
    const End end = left_end(ends);
    return end_row(end, partition.h(0), partition.h(1), m(y, 0), m(y, 1), partition.two_h(0),
                   end == End::kFirst || end == End::kSecond ? bc[0] : Real(0), Real(1));
  }
  EndRow<Real> right(const Values<Real>& y) const {
    const int64_t l = nx - 2;
    if (periodic()) {
      const Real h = partition.h(l), before = partition.h(l - 1);
      return {2 * h + before, h, interior_right_side(before, h, m(y, l - 1), m(y, l))};
    }
    const End end = right_end(ends);
    return end_row(end, partition.h(nx - 2), partition.h(nx - 3), m(y, nx - 2), m(y, nx - 3), partition.two_h(nx - 3),
                   end == End::kFirst || end == End::kSecond ? bc[1] : Real(0), Real(-1));
  }

  // The cyclic matrix lacks its corners; what they weigh, h[0] and h[nx-3], is put back by a rank-one correction.
  bool periodic() const { return ends == Ends::kPeriodic; }
  int64_t unknowns() const { return periodic() ? nx - 1 : nx; }
  Real first_corner() const { return partition.h(0); }
  Real last_corner() const { return partition.h(nx - 3); }

  // Of row i, but for the first one.
  Real lower(int64_t i) const { return partition.h(i); }
};

// The derivatives at two or three breakpoints, in closed form.
template <class Real, bool kUniform>
void solve_few(const NaturalSystem<Real, kUniform>& system, const Values<Real>& y, Real* d) {
  const Partition<Real, kUniform>& p = system.partition;
  const Real* bc = system.bc;
  if (system.nx == 2) {
    const Real m = system.m(y, 0), h = p.h(0);
    if (system.periodic() || system.ends == Ends::kFree) {
      d[0] = d[1] = m;
      return;
    }
    const End left = left_end(system.ends), right = right_end(system.ends);
    const EndRow<Real> a = end_row(left, h, h, m, m, h, bc[0], Real(1));
    const EndRow<Real> b = end_row(right, h, h, m, m, h, bc[1], Real(-1));
    const Real determinant = a.own * b.own - a.neighbour * b.neighbour;
    d[0] = (a.right * b.own - a.neighbour * b.right) / determinant;
    d[1] = (a.own * b.right - a.right * b.neighbour) / determinant;
    return;
  }
  const Real h0 = p.h(0), h1 = p.h(1), t = p.two_h(0), m0 = system.m(y, 0), m1 = system.m(y, 1);
  const Real sum = h1 * m0 + h0 * m1;
  switch (system.ends) {
    case Ends::kNotAKnot:  // singular: the solution with a zero derivative in the middle
      d[0] = ((2 * t + h0) * h1 * m0 + h0 * h0 * m1) / (h1 * t);
      d[1] = 0;
      d[2] = ((2 * t + h1) * h0 * m1 + h1 * h1 * m0) / (h0 * t);
      return;
    case Ends::kFree:
      d[1] = sum / t;
      d[0] = Real(1.5) * m0 - Real(0.5) * d[1];
      d[2] = Real(1.5) * m1 - Real(0.5) * d[1];
      return;
    case Ends::kFirstFirst:
      d[0] = bc[0];
      d[2] = bc[1];
      d[1] = (Real(1.5) * sum - Real(0.5) * (h1 * bc[0] + h0 * bc[1])) / t;
      return;
    case Ends::kPeriodic:
      d[0] = d[1] = d[2] = sum / t;
      return;
    default: {
      const EndRow<Real> a = system.left(y), b = system.right(y);
      d[1] = (3 * sum - h1 * a.right / a.own - h0 * b.right / b.own) /
             (2 * t - h1 * a.neighbour / a.own - h0 * b.neighbour / b.own);
      d[0] = (a.right - a.neighbour * d[1]) / a.own;
      d[2] = (b.right - b.neighbour * d[1]) / b.own;
    }
  }
}

}  // namespace orvik::df

#endif

// Derivatives at the two ends of a local cubic kind.
#ifndef ORVIK_DF_CONSTRUCT_ENDS_H
#define ORVIK_DF_CONSTRUCT_ENDS_H

#include "df/construct/rules.h"

namespace orvik::df {

// d[0], from the derivative d1 at the second breakpoint.
template <class Rule, class Real, bool kUniform>
Real left_derivative(const Outline<Real, kUniform>& o, Ends ends, Real d1) {
  switch (left_end(ends)) {
    case End::kNotAKnot: {
      if constexpr (kUniform) {
        const Real half = Real(0.5) * o.partition.inverse_step();
        return (o.y[2] + 4 * o.y[1] - 5 * o.y[0]) * half - 2 * d1;
      } else {
        const Real h0 = o.h(0), h1 = o.h(1), t = o.partition.two_h(0);
        return (std::fma(std::fma(t, Real(2), h0) * h1, o.m(0), h0 * h0 * o.m(1)) / t - t * d1) / h1;
      }
    }
    case End::kFree:
      return Real(1.5) * o.m(0) - Real(0.5) * d1;
    case End::kFirst:
      return o.bc[0];
    case End::kSecond: {
      const Real bend = kUniform ? Real(0.25) * o.bc[0] / o.partition.inverse_step() : Real(0.25) * o.h(0) * o.bc[0];
      return Real(1.5) * o.m(0) - bend - Real(0.5) * d1;
    }
    case End::kPeriodic:
      return Rule::periodic_left(o);
    case End::kNone:
      break;
  }
  return Real(1.5) * o.m(0) - Real(0.5) * o.m(1);
}

// d[nx-1], from the derivative dl at the breakpoint before.
template <class Rule, class Real, bool kUniform>
Real right_derivative(const Outline<Real, kUniform>& o, Ends ends, Real dl) {
  const int64_t l = o.last(), n = o.nx;
  switch (right_end(ends)) {
    case End::kNotAKnot: {
      if constexpr (kUniform) {
        const Real half = Real(0.5) * o.partition.inverse_step();
        return (5 * o.y[n - 1] - 4 * o.y[n - 2] - o.y[n - 3]) * half - 2 * dl;
      } else {
        const Real hl = o.h(l), before = o.h(l - 1), t = o.partition.two_h(l - 1);
        return (std::fma(std::fma(t, Real(2), hl) * before, o.m(l), hl * hl * o.m(l - 1)) / t - t * dl) / before;
      }
    }
    case End::kFree:
      return Real(1.5) * o.m(l) - Real(0.5) * dl;
    case End::kFirst:
      return o.bc[1];
    case End::kSecond: {
      const Real bend = kUniform ? Real(0.25) * o.bc[1] / o.partition.inverse_step() : Real(0.25) * o.h(l) * o.bc[1];
      return Real(1.5) * o.m(l) + bend - Real(0.5) * dl;
    }
    case End::kPeriodic:
      return Rule::periodic_right(o);
    case End::kNone:
      break;
  }
  return Real(1.5) * o.m(l) - Real(0.5) * o.m(l - 1);
}

}  // namespace orvik::df

#endif

// The cubic whose interior second derivatives the caller gives.
#include "df/construct/problem.h"

namespace orvik::df {
namespace {

// One function. S[k] is the second derivative at breakpoint k + 1.
template <class Real, bool kUniform>
struct DefaultCubic {
  const Partition<Real, kUniform>& partition;
  const Values<Real> y;
  const int64_t l;  // the last interval
  const Real* S;
  const Real* bc;
  Real* c;

  static constexpr Real kSixth = Real(1.0 / 6.0), kMinusThird = Real(-1.0 / 3.0);

  Real m(int64_t i) const { return slope(y[i], y[i + 1], partition.inverse_h(i)); }
  // c[1] that leads through the next value.
  Real closing(int64_t i, Real c2, Real c3) const {
    const Real h = partition.h(i);
    return m(i) - h * (c2 + h * c3);
  }
  void put(int64_t i, Real c1, Real c2, Real c3) {
    c[4 * i] = y[i];
    c[4 * i + 1] = c1;
    c[4 * i + 2] = c2;
    c[4 * i + 3] = c3;
  }

  Real inner_third(int64_t i) const { return (S[i] - S[i - 1]) * kSixth * partition.inverse_h(i); }

  void interior() {
    for (int64_t i = 1; i < l; ++i) {
      const Real before = S[i - 1], after = S[i];
      const Real c1 = m(i) + partition.h(i) * (before * kMinusThird - after * kSixth);
      put(i, c1, Real(0.5) * before, inner_third(i));
    }
  }

  void left(End end) {
    const Real h = partition.h(0), inverse = partition.inverse_h(0);
    switch (end) {
      case End::kNotAKnot: {
        // With two intervals each end would take the other's third derivative: both are zero then.
        const Real c3 = l > 1 ? inner_third(1) : Real(0);
        const Real c2 = Real(0.5) * S[0] - 3 * h * c3;
        put(0, closing(0, c2, c3), c2, c3);
        return;
      }
      case End::kFirst: {
        const Real c3 = inverse * (Real(0.5) * inverse * (bc[0] - m(0)) + Real(0.25) * S[0]);
        put(0, bc[0], Real(0.5) * S[0] - 3 * h * c3, c3);
        return;
      }
      case End::kSecond:
      case End::kPeriodic: {
        const Real c2 = Real(0.5) * bc[0];
        const Real c3 = (Real(0.5) * S[0] - c2) / 3 * inverse;
        put(0, closing(0, c2, c3), c2, c3);
        return;
      }
      default: {
        const Real c3 = S[0] * kSixth * inverse;
        put(0, m(0) - h * h * c3, 0, c3);
      }
    }
  }

  void right(End end) {
    const Real inverse = partition.inverse_h(l), last = S[l - 1];
    const Real c2 = Real(0.5) * last;
    Real c3;
    switch (end) {
      case End::kNotAKnot:
        c3 = l > 1 ? inner_third(l - 1) : Real(0);
        break;
      case End::kFirst:
        c3 = Real(0.5) * inverse * (inverse * (bc[1] - m(l)) - c2);
        break;
      case End::kSecond:
        c3 = (bc[1] - last) * kSixth * inverse;
        break;
      case End::kPeriodic:
        c3 = (bc[0] - last) * kSixth * inverse;
        break;
      // The factor goes with c2, half of the second derivative: the curve ends at half of the last given value.
      default:
        c3 = -kSixth * c2 * inverse;
        break;
    }
    put(l, closing(l, c2, c3), c2, c3);
  }
};

template <class Real, bool kUniform>
int32_t run_default(const Task& task, Ends ends) {
  const Partition<Real, kUniform> partition(task);
  for (int64_t f = 0; f < task.ny; ++f) {
    DefaultCubic<Real, kUniform> spline{partition,
                                        Values<Real>(task, f),
                                        task.nx - 2,
                                        task.internal_values<Real>(),
                                        task.boundary_values<Real>(),
                                        task.coefficients<Real>(f)};
    spline.interior();
    spline.left(left_end(ends));
    spline.right(right_end(ends));
  }
  return 0;
}

template <class Real>
int32_t construct_default(const Task* task) {
  if (task == nullptr) return DFS_NO_TASK;
  if (task->nx < 3) return DFS_BAD_BREAKPOINT_COUNT;
  if (!storage_hint_ok(task->yhint)) return DFS_BAD_FUNCTION_HINT;
  Ends ends;
  const int32_t status = read_ends(*task, false, &ends);
  if (status != 0) return status;
  if (ends == Ends::kPeriodic && !all_periodic<Real>(*task)) return DFS_NOT_PERIODIC;
  return task->uniform() ? run_default<Real, true>(*task, ends) : run_default<Real, false>(*task, ends);
}

}  // namespace
}  // namespace orvik::df

using namespace orvik::df;

extern "C" int32_t orvik_df_kernel_dDFDefaultCubicSpline1D(OrvikDFTask task, int64_t, int64_t, const OrvikDFServices*) {
  return construct_default<double>(as_task(task));
}

extern "C" int32_t orvik_df_kernel_sDFDefaultCubicSpline1D(OrvikDFTask task, int64_t, int64_t, const OrvikDFServices*) {
  return construct_default<float>(as_task(task));
}

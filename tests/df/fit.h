// A task with everything that a construction needs, and evaluation of its coefficients in long double.
#ifndef ORVIK_TESTS_DF_FIT_H
#define ORVIK_TESTS_DF_FIT_H

#include <memory>

#include "df/support.h"
#include "df/task/task.h"

namespace orvik::df::test {

template <class Real>
struct Fit {
  using E = Entries<Real>;
  int64_t nx, ny;
  std::vector<Real> x, y, bc, ic, c;
  int64_t order = 4, type = 0, bc_type = 2, ic_type = 0, xhint = 1, yhint = 16;
  OwnedTask task;

  Fit(std::vector<Real> breakpoints, std::vector<Real> values, int64_t functions = 1)
      : nx(static_cast<int64_t>(breakpoints.size())), ny(functions), x(breakpoints), y(values) {}

  // On an even grid only the two ends are handed over.
  int32_t construct(Construct kind, const OrvikDFServices* services = nullptr) {
    if (static_cast<OrvikDFTask>(task) == nullptr) make();
    return kind(task, 0, 0, services);
  }
  void make() {
    std::vector<Real> ends = {x.front(), x.back()};
    given = xhint == 4 ? ends : x;
    ASSERT_EQ(E::make(task.out(), nx, given.data(), xhint, ny, y.data(), yhint, 0), 0);
    const int64_t intervals = type == 1 ? nx : nx - 1;
    c.assign(static_cast<size_t>(order * intervals * ny), Real(77));
    ASSERT_EQ(E::edit_spline(task, order, type, bc_type, bc.empty() ? nullptr : bc.data(), 0, nullptr, c.data(), 0), 0);
    as_task(task)->ic_type = ic_type;
    as_task(task)->ic = ic.empty() ? nullptr : ic.data();
  }

  Real* coefficients(int64_t interval, int64_t f = 0) {
    const int64_t intervals = type == 1 ? nx : nx - 1;
    return c.data() + f * intervals * order + interval * order;
  }
  // Derivative `k` of the polynomial on `interval`, at the offset t from its breakpoint.
  long double at(int64_t interval, long double t, int k = 0, int64_t f = 0) {
    const Real* p = coefficients(interval, f);
    long double sum = 0;
    for (int64_t j = order - 1; j >= k; --j) {
      long double factor = 1;
      for (int i = 0; i < k; ++i) factor *= static_cast<long double>(j - i);
      sum = sum * t + factor * p[j];
    }
    return sum;
  }
  long double h(int64_t i) const { return static_cast<long double>(x[size_t(i) + 1]) - x[size_t(i)]; }

  std::vector<Real> given;
};

template <class Real>
std::vector<Real> even_partition(int64_t nx, Real a, Real b) {
  std::vector<Real> x(static_cast<size_t>(nx));
  for (int64_t i = 0; i < nx; ++i) {
    x[size_t(i)] =
        static_cast<Real>(a + (static_cast<double>(b) - a) * static_cast<double>(i) / static_cast<double>(nx - 1));
  }
  return x;
}

template <class Real>
std::vector<Real> transposed(const std::vector<Real>& rows, int64_t nx, int64_t ny) {
  std::vector<Real> columns(rows.size());
  for (int64_t f = 0; f < ny; ++f) {
    for (int64_t i = 0; i < nx; ++i) columns[size_t(i * ny + f)] = rows[size_t(f * nx + i)];
  }
  return columns;
}

template <class Real>
struct Kind {
  const char* name;
  Construct construct;
  int64_t order, type;
};

template <class Real>
std::vector<Kind<Real>> local_kinds() {
  using E = Entries<Real>;
  return {
      {"Hermite", E::hermite, 4, 3}, {"Bessel", E::bessel, 4, 5}, {"Akima", E::akima, 4, 4}, {"Hyman", E::hyman, 4, 9}};
}
template <class Real>
std::vector<Kind<Real>> cubic_kinds() {
  using E = Entries<Real>;
  auto kinds = local_kinds<Real>();
  kinds.push_back({"Natural", E::natural, 4, 2});
  kinds.push_back({"Default", E::default_cubic, 4, 0});
  return kinds;
}

inline constexpr int64_t kAllEnds[] = {1, 2, 12, 24, 36, 48, 64};

template <class Real>
constexpr double kTolerance = sizeof(Real) == 8 ? 1e-13 : 1e-5;

// A task that a kind accepts: periodic values, conditions given.
template <class Real>
std::unique_ptr<Fit<Real>> legal_fit(const Kind<Real>& kind, int64_t nx, int64_t ny, int64_t bc_type, int64_t xhint) {
  auto x = xhint == 4 ? even_partition<Real>(nx, -1, 5) : ragged_partition<Real>(nx);
  auto y = random_values<Real>(nx * ny, 5);
  for (int64_t f = 0; f < ny; ++f) y[size_t(f * nx + nx - 1)] = y[size_t(f * nx)];
  auto fit = std::make_unique<Fit<Real>>(x, y, ny);
  fit->order = kind.order, fit->type = kind.type, fit->bc_type = bc_type, fit->xhint = xhint;
  fit->bc = {Real(0.75), Real(-0.5)};
  fit->ic = random_values<Real>(nx + 1, 6);
  return fit;
}

}  // namespace orvik::df::test

#endif

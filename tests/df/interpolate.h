// What the tests of interpolation share: a call with defaults, splines with random coefficients, sites everywhere.
#ifndef ORVIK_TESTS_DF_INTERPOLATE_H
#define ORVIK_TESTS_DF_INTERPOLATE_H

#include "df/fit.h"

namespace orvik::df::test {

// The arguments of a call, with defaults for a plain evaluation.
template <class Real>
struct Call {
  using E = Entries<Real>;
  int64_t flags = 1, sitehint = 0, rhint = 16;
  std::vector<int32_t> dorder = {1};
  const Real* datahint = nullptr;
  void* cell = nullptr;
  typename E::Callback le = nullptr, re = nullptr, inside = nullptr;
  void *le_params = nullptr, *re_params = nullptr, *inside_params = nullptr;
  typename E::SearchCallback search = nullptr;
  const OrvikDFServices* services = nullptr;
  int32_t status = 1;

  int64_t results() const {
    int64_t asked = 0;
    for (int32_t k : dorder) asked += k;
    return std::max<int64_t>(asked, 1);
  }
  std::vector<Real> operator()(OrvikDFTask task, const std::vector<Real>& sites, int64_t nsite = -1) {
    if (nsite < 0) nsite = static_cast<int64_t>(sites.size());
    const size_t size = static_cast<size_t>(nsite * std::max<int64_t>(as_task(task)->ny, 1) * results());
    std::vector<Real> r(size + 1, Real(-77));
    std::vector<int64_t> wide(dorder.begin(), dorder.end());
    const bool wide_orders = (as_task(task)->index_width & 1) != 0;
    const void* orders = wide_orders ? static_cast<const void*>(wide.data()) : dorder.data();
    status = E::interpolate(task, flags, 0, nsite, sites.data(), sitehint, static_cast<int64_t>(dorder.size()), orders,
                            datahint, r.data(), rhint, cell, le, le_params, re, re_params, inside, inside_params,
                            search, nullptr, services);
    EXPECT_EQ(r.back(), -77);
    r.pop_back();
    return r;
  }
};

// A task with random coefficients of some order.
template <class Real>
std::unique_ptr<Fit<Real>> random_spline(int64_t order, int64_t type, int64_t nx, int64_t ny, int64_t xhint = 1) {
  auto x = xhint == 4 ? even_partition<Real>(nx, -1, 7) : ragged_partition<Real>(nx);
  auto fit = std::make_unique<Fit<Real>>(x, random_values<Real>(nx * ny), ny);
  fit->order = order, fit->type = type, fit->xhint = xhint;
  fit->make();
  fit->c = random_values<Real>(std::max<int64_t>(static_cast<int64_t>(fit->c.size()), 1), 9);
  EXPECT_EQ(Entries<Real>::edit_pointer(fit->task, DFP_COEFFICIENTS, fit->c.data()), 0);
  return fit;
}

template <class Real>
std::vector<Real> spread_sites(const Fit<Real>& fit, int64_t n, uint32_t seed = 21) {
  auto sites = random_values<Real>(n, seed);
  const Real a = fit.x.front(), b = fit.x.back();
  for (auto& t : sites) t = a + (b - a) * (t * Real(0.3) + Real(0.5));  // some outside on both sides
  sites[0] = b;
  if (n > 2) sites[1] = a, sites[2] = fit.x[fit.x.size() / 2];
  return sites;
}

template <class Real>
int64_t interval_at(const Fit<Real>& fit, Real t) {
  const int64_t above = std::upper_bound(fit.x.begin(), fit.x.end(), t) - fit.x.begin();
  return std::clamp<int64_t>(above - 1, 0, fit.nx - 2);
}

}  // namespace orvik::df::test

#endif

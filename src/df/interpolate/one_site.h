// One site of one function: no block, no request, one pass from the site to its results. Short calls are made by the
// million, so that a copied argument is a cost here.
#ifndef ORVIK_DF_INTERPOLATE_ONE_SITE_H
#define ORVIK_DF_INTERPOLATE_ONE_SITE_H

#include "df/interpolate/request.h"
#include "df/pieces/pieces.h"
#include "df/pieces/polynomials.h"

namespace orvik::df {

inline constexpr int64_t kOneSiteOrders = 4;  // derivative flags at most

template <class Real>
int64_t one_cell(const Task& task, Method method, const Real* datahint, Real site) {
  const Finder<Real> finder(task, method, datahint);
  int64_t state = 0;
  if (method == Method::kSorted) approach_first_site(finder.lookup(), site, &state);
  return finder.one(site, &state);
}

// The derivatives that are asked for, one after the other: with one site of one function all layouts are this one.
template <int kOrder, class Real>
void one_polynomial(const Task& task, const Orders& orders, int64_t cell, Real site, Real* r) {
  const int64_t i = interval_of(cell, task.nx);
  const Real t = site - with_partition<Real>(task, [=](const auto& x) { return x.left_end(i); });
  const Real* c = task.coefficients<Real>(0) + kOrder * i;
  if (orders.value_alone()) {
    *r = horner<kOrder, 0, Real>(c, t);
    return;
  }
  for (int64_t k = 0; k < orders.size(); ++k) {
    if (orders[k]) *r++ = polynomial_at<kOrder>(c, k, t);
  }
}

template <class Real>
int32_t run_one_site(const Task& task, Evaluator evaluator, const Orders& orders, int64_t cell, const Real* site,
                     Real* r, const Supplier<Real>& supplier) {
  if (supplier.callback != nullptr) {
    for (int64_t k = 0; k < orders.asked(); ++k) {
      int64_t count = 1;
      const int32_t status = supplier.callback(&count, site, &cell, r + k, supplier.params);
      if (status < 0) return status;
    }
    return 0;
  }
  if (evaluator == Evaluator::kCubic) {
    one_polynomial<4>(task, orders, cell, *site, r);
  } else if (evaluator == Evaluator::kQuadratic) {
    one_polynomial<3>(task, orders, cell, *site, r);
  } else {
    one_polynomial<2>(task, orders, cell, *site, r);
  }
  return 0;
}

}  // namespace orvik::df

#endif

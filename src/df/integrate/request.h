// One integration call: what is integrated, between which limits, and where the results go.
#ifndef ORVIK_DF_INTEGRATE_REQUEST_H
#define ORVIK_DF_INTEGRATE_REQUEST_H

#include "df/pieces/kinds.h"
#include "df/search/finder.h"
#include "df/search/sites.h"
#include "df/search/user_defined.h"
#include "df/task/task.h"

namespace orvik::df {

template <class Real>
using IntegralCallback = int32_t (*)(int64_t* count, const Real* left, const Real* right, const int64_t* cells,
                                     Real* results, void* params);

// One of the three callbacks that supply integrals.
template <class Real>
struct IntegralSupplier {
  IntegralCallback<Real> callback;
  void* params;
};

// One side's limits: an array, or the two ends of an even grid.
template <class Real>
struct Limits {
  Finder<Real> finder;
  const Real* given = nullptr;
  bool grid = false;

  // Limits first .. first + count - 1 of `total`; `room` is written where they have to be formed.
  const Real* take(int64_t total, int64_t first, int64_t count, Real* room) const {
    if (!grid) return given + first;
    expand_uniform_sites(given, total, first, count, room);
    return room;
  }
};

template <class Real>
struct IntegralRequest {
  const Task& task;
  Evaluator kind;
  int64_t count;
  Limits<Real> left, right;
  Real* r;
  int64_t function_stride, limit_stride;  // in r
  IntegralSupplier<Real> before, behind, inside;
  UserSearch<Real> user;  // of a partition that is not even

  // Whether any part of any integral is that of a polynomial or a step.
  bool reads_pieces() const { return !(before.callback && behind.callback && inside.callback); }
  bool any_supplier() const { return before.callback || behind.callback || inside.callback; }
};

}  // namespace orvik::df

#endif

// One interpolation call: what is evaluated, where, and where the results go.
#ifndef ORVIK_DF_INTERPOLATE_REQUEST_H
#define ORVIK_DF_INTERPOLATE_REQUEST_H

#include "df/search/finder.h"
#include "df/search/user_defined.h"
#include "df/task/task.h"

namespace orvik::df {

// In the order of all tables of evaluators.
enum class Evaluator { kLinear, kQuadratic, kCubic, kQuadraticKnots, kGeneral, kStepRight, kStepLeft, kLookUp };

// By the spline's order and type; false when nothing evaluates such a spline.
bool choose_evaluator(int64_t order, int64_t type, bool all_callbacks, Evaluator* evaluator);

inline constexpr int64_t kComputeFlag = 1, kCellsFlag = 2, kCellsGiven = 4;

// The flags of asked derivatives, 32 or 64 bits wide. None set: the values alone.
class Orders {
 public:
  Orders(const Task& task, int64_t count, const void* flags);

  int64_t given() const { return given_; }  // the caller's count
  int64_t size() const { return size_; }    // flags to look at
  int64_t asked() const { return asked_; }  // results of one site and function
  bool operator[](int64_t k) const { return none_set_ ? k == 0 : raw(k) == 1; }
  bool first_flag_set() const { return given_ > 0 && raw(0) != 0; }

 private:
  int64_t raw(int64_t k) const {
    return wide_ ? static_cast<const int64_t*>(flags_)[k] : static_cast<const int32_t*>(flags_)[k];
  }
  const void* flags_;
  bool wide_, none_set_;
  int64_t given_, size_, asked_;
};

// Where the result of (function, site, derivative) stands in r.
struct Layout {
  int64_t function, site, derivative;  // strides

  // False for a hint that is not accepted.
  static bool from_hint(int64_t hint, int64_t ny, int64_t nsite, int64_t nder, Layout* layout);
};

template <class Real>
using ValueCallback = int32_t (*)(int64_t* count, const Real* sites, const int64_t* cells, Real* results, void* params);

// One of the three callbacks that supply results.
template <class Real>
struct Supplier {
  ValueCallback<Real> callback;
  void* params;
};

template <class Real>
struct Request {
  const Task& task;
  Evaluator evaluator;
  Finder<Real> finder;
  Orders orders;
  Layout layout;
  bool compute, write_cells, cells_given, uniform_sites;
  int64_t nsite;
  const Real* site;
  Real* r;
  void* cell;  // the caller's, when written or given
  Supplier<Real> left, right, inside;
  UserSearch<Real> user;

  bool narrow_user_cells() const { return task.index_width == 0; }
  bool any_supplier() const { return left.callback || right.callback || inside.callback; }
};

}  // namespace orvik::df

#endif

// One interpolation call: what is evaluated, where, and where the results go.
#ifndef ORVIK_DF_INTERPOLATE_REQUEST_H
#define ORVIK_DF_INTERPOLATE_REQUEST_H

#include "df/pieces/kinds.h"
#include "df/search/finder.h"
#include "df/search/user_defined.h"
#include "df/task/task.h"

namespace orvik::df {

inline constexpr int64_t kComputeFlag = 1, kCellsFlag = 2, kCellsGiven = 4;

// The flags of asked derivatives, 32 or 64 bits wide. None set: the values alone.
class Orders {
 public:
  Orders(const Task& task, int64_t count, const void* flags)
      : flags_(flags), wide_((task.index_width & 1) != 0), given_(flags == nullptr ? 0 : count) {
    if (given_ == 1) {  // the value alone, asked for or not
      asked_ = size_ = 1;
      none_set_ = raw(0) != 1;
    } else {
      count_asked();
    }
  }

  int64_t given() const { return given_; }  // the caller's count
  int64_t size() const { return size_; }    // flags to look at
  int64_t asked() const { return asked_; }  // results of one site and function
  bool value_alone() const { return size_ == 1; }
  bool operator[](int64_t k) const { return none_set_ ? k == 0 : raw(k) == 1; }
  // The asked derivatives below `order`, at most 32, as bits.
  unsigned below(int64_t order) const {
    unsigned bits = 0;
    for (int64_t k = 0; k < std::min(order, size_); ++k) bits |= static_cast<unsigned>((*this)[k]) << k;
    return bits;
  }
  bool first_flag_set() const { return given_ > 0 && raw(0) != 0; }

 private:
  void count_asked();
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

  static bool accepts(int64_t hint) {
    return hint == 16 || hint == 0 || hint == 32 || hint == 128 || hint == 256 || hint == 512;
  }
  static Layout from_hint(int64_t hint, int64_t ny, int64_t nsite, int64_t nder);
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
  // The polynomials alone give the results.
  bool polynomials_only() const { return compute && evaluator <= Evaluator::kCubic && !any_supplier(); }
  bool any_supplier() const { return left.callback || right.callback || inside.callback; }
};

}  // namespace orvik::df

#endif

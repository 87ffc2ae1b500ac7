// The knots of a quadratic spline that lie between the breakpoints.
#ifndef ORVIK_DF_PIECES_KNOTS_H
#define ORVIK_DF_PIECES_KNOTS_H

#include "df/pieces/partition.h"

namespace orvik::df {

// tau[0 .. nx], from x[0] to x[nx-1]; where none are given they lie half way between the breakpoints.
template <class Real, bool kEven>
class Knots {
 public:
  Knots(const Task& task, const Partition<Real, kEven>& partition)
      : partition_(partition), given_(task.internal_values<Real>()) {}

  Real x(int64_t i) const { return partition_[i]; }
  Real tau(int64_t i) const {
    const int64_t last = partition_.points();
    if (i == 0) return partition_.first();
    if (i == last) return partition_.last();
    return given_ != nullptr ? given_[i] : Real(0.5) * (x(i - 1) + x(i));
  }
  // Given knots must begin and end where the partition does.
  bool ends_fit() const {
    return given_ == nullptr || (given_[0] == partition_.first() && given_[partition_.points()] == partition_.last());
  }

 private:
  Partition<Real, kEven> partition_;
  const Real* given_;
};

}  // namespace orvik::df

#endif

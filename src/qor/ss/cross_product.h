// Sums of outer products of deviations, by matrix kernels on blocks of observations.
#pragma once

#include "qor/ss/plan.h"
#include "qor/ss/task.h"
#include "serv/memory.h"

namespace orvik::ss {

// Accumulates into the upper triangle of a column-major p by p matrix.
//
// The fast method adds products of plain observations and takes the mean out at the end. The others add products of
// deviations from the mean known at the block, so that a mean that is large against the deviations costs no digits.
template <class T>
class CrossProduct {
 public:
  CrossProduct(const Data<T>& d, Method method, T* matrix);

  // Scratch of the blocks. False when memory is exhausted.
  bool allocate();

  // Observations of one block: 256 KiB of data with what is copied of them, at least 64.
  int64_t block() const { return block_; }

  // For the one-pass method: remembers a mean; goes from the products about it, of all before of this weight, to those
  // about `mean`.
  void before(const T* mean);
  void recentre(double weight, const T* mean);
  // Adds the observations [i, i + m), no more than a block: about `mean`, or as they are with the fast method.
  void add(int64_t i, int64_t m, const T* mean);
  // matrix += alpha v v'
  void add_outer(double alpha, const T* v);

 private:
  void copy(int64_t i, int64_t m, const T* shift);

  const Data<T>& d_;
  Method method_;
  T* matrix_;
  int64_t block_;
  bool copies_;
  serv::Block<T> scratch_;
  T* roots_ = nullptr;  // square roots of the block's weights
  T* shift_ = nullptr;
};

}  // namespace orvik::ss

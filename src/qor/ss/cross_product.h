// Sums of outer products of deviations on blocks of observations: in vectors for few variables, by matrix kernels for
// more.
#pragma once

#include "qor/ss/observations.h"

namespace orvik::ss {

// Accumulates into the upper triangle of a column-major p by p matrix.
template <class T>
class CrossProduct {
 public:
  CrossProduct() = default;
  // `scratch` has scratch_size(p, n, weighted) values.
  CrossProduct(int64_t p, int64_t n, bool weighted, T* matrix, T* scratch)
      : p_(p), block_(block_of(p, n, weighted)), matrix_(matrix), rows_(scratch), roots_(scratch + block_ * p) {}

  static int64_t scratch_size(int64_t p, int64_t n, bool weighted) { return block_of(p, n, weighted) * (p + 1); }

  T* matrix() const { return matrix_; }

  // Adds the products of deviations from `shift` of the observations [i0, i1).
  void add(const Observations<T>& o, int64_t i0, int64_t i1, const T* shift) const;
  // matrix += alpha v v'
  void add_outer(double alpha, const T* v) const;

 private:
  // Observations of one block: 256 KiB of data with what is copied of them, at least 64.
  static int64_t block_of(int64_t p, int64_t n, bool weighted) {
    const int64_t row = p * static_cast<int64_t>(sizeof(T)) * (weighted ? 2 : 1);
    const int64_t block = 0x40000 / row < 64 ? 64 : 0x40000 / row;
    return n < block ? n : block;
  }

  int64_t p_ = 0, block_ = 0;
  T* matrix_ = nullptr;
  T* rows_ = nullptr;
  T* roots_ = nullptr;  // square roots of the block's weights
};

}  // namespace orvik::ss

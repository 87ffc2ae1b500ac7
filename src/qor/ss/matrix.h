// A symmetric matrix in one of the caller's storages.
#pragma once

#include <cstdint>

#include "qor/ss/task.h"

namespace orvik::ss {

template <class T>
class Matrix {
 public:
  Matrix(void* a, int64_t p, int64_t code) : a_(real<T>(a)), p_(p), code_(static_cast<int>(code & 3)) {}

  bool full() const { return code_ == ORVIK_SS_MATRIX_FULL; }
  T* data() const { return a_; }

  // i <= j.
  T get(int64_t i, int64_t j) const { return a_[index(i, j)]; }
  void set(int64_t i, int64_t j, T value) const {
    a_[index(i, j)] = value;
    if (full()) a_[i * p_ + j] = value;
  }

 private:
  int64_t index(int64_t i, int64_t j) const {
    switch (code_) {
      case ORVIK_SS_MATRIX_LOWER:
        return j * (j + 1) / 2 + i;
      case ORVIK_SS_MATRIX_UPPER:
        return i * p_ - i * (i - 1) / 2 + (j - i);
      default:
        return j * p_ + i;  // the upper triangle of a column-major matrix
    }
  }

  T* a_;
  int64_t p_;
  int code_;
};

}  // namespace orvik::ss

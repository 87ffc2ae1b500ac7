// Symmetric matrices in the caller's storages: check, read, write, unpack, pack, mirror. Working matrices are p by p and
// column-major; "upper" is their upper triangle, a[j * p + i] with i <= j.
#pragma once

#include <cstdint>

#include "qor/ss/task.h"

namespace orvik::ss {

// Status of a storage field for a matrix that is asked for: the code is in the low two bits.
inline int32_t check_matrix_storage(const Task& task, const void* storage) {
  if (storage == nullptr) return missing_field::covarianceStorage;
  return (task.integer(storage) & 3) == 3 ? kBadStorage : kDone;
}

// The same where the code is the whole value: 0 to 2.
inline int32_t check_matrix_storage_value(const Task& task, const void* storage) {
  if (storage == nullptr) return missing_field::covarianceStorage;
  const int64_t code = task.integer(storage);
  return code < 0 || code > 2 ? kBadStorage : kDone;
}

template <class T>
class Matrix {
 public:
  Matrix(void* a, int64_t p, int64_t code) : a_(real<T>(a)), p_(p), code_(static_cast<int>(code & 3)) {}

  bool full() const { return code_ == ORVIK_SS_MATRIX_FULL; }
  T* data() const { return a_; }
  // Values in the storage.
  int64_t size() const { return full() ? p_ * p_ : p_ * (p_ + 1) / 2; }

  // i <= j.
  T get(int64_t i, int64_t j) const { return a_[index(i, j)]; }
  void set(int64_t i, int64_t j, T value) const {
    a_[index(i, j)] = value;
    if (full()) a_[i * p_ + j] = value;
  }

  // To and from the upper triangle of a p by p matrix.
  void unpack(T* to) const {
    for (int64_t j = 0; j < p_; ++j) {
      for (int64_t i = 0; i <= j; ++i) to[j * p_ + i] = get(i, j);
    }
  }
  void pack(const T* from) const {
    for (int64_t j = 0; j < p_; ++j) {
      for (int64_t i = 0; i <= j; ++i) set(i, j, from[j * p_ + i]);
    }
  }

 private:
  int64_t index(int64_t i, int64_t j) const {
    switch (code_) {
      case ORVIK_SS_MATRIX_LOWER:
        return j * (j + 1) / 2 + i;
      case ORVIK_SS_MATRIX_UPPER:
        return i * p_ - i * (i - 1) / 2 + (j - i);
      default:
        return j * p_ + i;
    }
  }

  T* a_;
  int64_t p_;
  int code_;
};

// A matrix field of a task with the code behind its storage field, which has been checked.
template <class T>
Matrix<T> matrix_of(const Task& task, void* field, const void* storage, int64_t p) {
  return {field, p, task.integer(storage)};
}

// The lower triangle from the upper one, and back.
template <class T>
void mirror_upper(int64_t p, T* a) {
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < j; ++i) a[i * p + j] = a[j * p + i];
  }
}
template <class T>
void mirror_lower(int64_t p, T* a) {
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i < j; ++i) a[j * p + i] = a[i * p + j];
  }
}

}  // namespace orvik::ss

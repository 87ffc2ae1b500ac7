#include "qor/ss/cross_product.h"

#include <algorithm>
#include <cmath>

#include "serv/blas.h"

namespace orvik::ss {

namespace blas = serv::blas;

template <class T>
CrossProduct<T>::CrossProduct(const Data<T>& d, Method method, T* matrix) : d_(d), method_(method), matrix_(matrix) {
  // Leading dimensions of the matrix kernels have 32 bits.
  copies_ = d.weights != nullptr || method != Method::Fast || (d.contiguous_variables && d.n > INT32_MAX);
  const int64_t row = d.p * static_cast<int64_t>(sizeof(T)) * (d.weights != nullptr ? 2 : 1);
  block_ = std::max<int64_t>(0x40000 / row, 64);
}

template <class T>
bool CrossProduct<T>::allocate() {
  if (!copies_) return true;
  block_ = std::min(block_, std::max<int64_t>(d_.n, 1));
  scratch_ = serv::Block<T>(static_cast<uint64_t>(block_ * d_.p + block_ + d_.p));
  if (!scratch_) return false;
  roots_ = scratch_.get() + block_ * d_.p;
  shift_ = roots_ + block_;
  return true;
}

template <class T>
void CrossProduct<T>::add_outer(double alpha, const T* v) {
  blas::syr('U', static_cast<int32_t>(d_.p), static_cast<T>(alpha), v, 1, matrix_, static_cast<int32_t>(d_.p));
}

// sqrt(w) (x - shift) of a block, in the form of the data.
template <class T>
void CrossProduct<T>::copy(int64_t i, int64_t m, const T* shift) {
  T* out = scratch_.get();
  const bool weighted = d_.weights != nullptr;
  for (int64_t r = 0; r < m && weighted; ++r) roots_[r] = std::sqrt(d_.weights[i + r]);
  if (d_.contiguous_variables) {
    for (int64_t j = 0; j < d_.p; ++j, out += m) {
      const T* x = d_.x + j * d_.n + i;
      const T u = shift == nullptr ? T{0} : shift[j];
      if (weighted) {
        for (int64_t r = 0; r < m; ++r) out[r] = (x[r] - u) * roots_[r];
      } else {
        for (int64_t r = 0; r < m; ++r) out[r] = x[r] - u;
      }
    }
    return;
  }
  for (int64_t r = 0; r < m; ++r, out += d_.p) {
    const T* x = d_.x + (i + r) * d_.p;
    const T root = weighted ? roots_[r] : T{1};
    if (shift == nullptr) {
      for (int64_t j = 0; j < d_.p; ++j) out[j] = x[j] * root;
    } else {
      for (int64_t j = 0; j < d_.p; ++j) out[j] = (x[j] - shift[j]) * root;
    }
  }
}

template <class T>
void CrossProduct<T>::before(const T* mean) {
  std::copy(mean, mean + d_.p, shift_);
}

template <class T>
void CrossProduct<T>::recentre(double weight, const T* mean) {
  if (weight == 0) return;
  for (int64_t j = 0; j < d_.p; ++j) shift_[j] -= mean[j];
  add_outer(weight, shift_);
}

template <class T>
void CrossProduct<T>::add(int64_t i, int64_t m, const T* mean) {
  const bool by_variable = d_.contiguous_variables;
  const T* a = by_variable ? d_.x + i : d_.x + i * d_.p;
  int64_t leading = by_variable ? d_.n : d_.p;
  if (copies_) {
    copy(i, m, method_ == Method::Fast ? nullptr : mean);
    a = scratch_.get();
    leading = by_variable ? m : d_.p;
  }
  blas::syrk('U', by_variable ? 'T' : 'N', static_cast<int32_t>(d_.p), static_cast<int32_t>(m), T{1}, a,
             static_cast<int32_t>(leading), T{1}, matrix_, static_cast<int32_t>(d_.p));
}

template class CrossProduct<float>;
template class CrossProduct<double>;

}  // namespace orvik::ss

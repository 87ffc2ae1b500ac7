#include "qor/ss/cross_product.h"

#include <algorithm>

#include "serv/blas.h"

namespace orvik::ss {

namespace blas = serv::blas;

template <class T>
void CrossProduct<T>::add_outer(double alpha, const T* v) const {
  blas::syr('U', static_cast<int32_t>(p_), static_cast<T>(alpha), v, 1, matrix_, static_cast<int32_t>(p_));
}

template <class T>
void CrossProduct<T>::add(const Observations<T>& o, int64_t i0, int64_t i1, const T* shift) const {
  const bool by_variable = o.contiguous_variables;
  for (int64_t i = i0; i < i1; i += block_) {
    const int64_t m = std::min(block_, i1 - i);
    if (o.weights != nullptr) copy_root_weights(o, i, m, roots_);
    copy_block(o, i, m, by_variable ? Layout::ByVariable : Layout::ByObservation, shift,
               o.weights != nullptr ? roots_ : nullptr, rows_);
    blas::syrk('U', by_variable ? 'T' : 'N', static_cast<int32_t>(p_), static_cast<int32_t>(m), T{1}, rows_,
               static_cast<int32_t>(by_variable ? m : p_), T{1}, matrix_, static_cast<int32_t>(p_));
  }
}

template class CrossProduct<float>;
template class CrossProduct<double>;

}  // namespace orvik::ss

// The observations that an estimator works on: all of a matrix or those of an index list, with weights or without.
// Blocks of them and single variables are copied from here, whatever the storage is.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "qor/ss/task.h"

namespace orvik::ss {

template <class T>
struct Observations {
  const T* x = nullptr;
  int64_t p = 0;  // variables
  int64_t n = 0;  // observations, entries of `index` where that is set
  bool contiguous_variables = false;
  int64_t stride = 0;              // from one variable (contiguous variables) or observation to the next
  const T* weights = nullptr;      // by observation of the matrix; null: every weight is 1
  const int64_t* index = nullptr;  // observations of the matrix; null: the first n

  Observations() = default;
  explicit Observations(const Data<T>& d)
      : x(d.x),
        p(d.p),
        n(d.n),
        contiguous_variables(d.contiguous_variables),
        stride(d.contiguous_variables ? d.n : d.p),
        weights(d.weights) {}

  // The same with a choice of observations.
  Observations subset(const int64_t* chosen, int64_t count) const {
    Observations o = *this;
    o.index = chosen;
    o.n = count;
    return o;
  }
  Observations weighed(const T* by) const {
    Observations o = *this;
    o.weights = by;
    return o;
  }

  int64_t place(int64_t i) const { return index == nullptr ? i : index[i]; }
  T at(int64_t i, int64_t j) const {
    return contiguous_variables ? x[j * stride + place(i)] : x[place(i) * stride + j];
  }
  T weight(int64_t i) const { return weights == nullptr ? T{1} : weights[place(i)]; }
};

// Values of variable j, contiguous.
template <class T>
void copy_variable(const Observations<T>& o, int64_t j, T* to) {
  const T* x = o.contiguous_variables ? o.x + j * o.stride : o.x + j;
  const int64_t step = o.contiguous_variables ? 1 : o.stride;
  if (o.index != nullptr) {
    for (int64_t i = 0; i < o.n; ++i) to[i] = x[o.index[i] * step];
  } else if (step == 1) {
    for (int64_t i = 0; i < o.n; ++i) to[i] = x[i];
  } else {
    for (int64_t i = 0; i < o.n; ++i) to[i] = x[i * step];
  }
}

// Square roots of the weights of observations [i, i + m).
template <class T>
void copy_root_weights(const Observations<T>& o, int64_t i, int64_t m, T* roots) {
  for (int64_t r = 0; r < m; ++r) roots[r] = std::sqrt(o.weight(i + r));
}

enum class Layout { ByObservation, ByVariable };  // out[r * p + j], out[j * m + r]

namespace blocks {

template <bool Shifted, bool Scaled, class T>
inline T value(T x, T shift, T root) {
  if (Shifted) x -= shift;
  return !Scaled ? x : root == 0 ? T{0} : x * root;
}

template <bool Shifted, bool Scaled, class T>
void copy(const Observations<T>& o, int64_t i, int64_t m, Layout layout, const T* shift, const T* roots, T* out) {
  const int64_t row = layout == Layout::ByObservation ? o.p : 1, column = layout == Layout::ByObservation ? 1 : m;
  // Along what is contiguous; the plain cases, which the compiler makes vectors of, apart.
  if (o.contiguous_variables) {
    for (int64_t j = 0; j < o.p; ++j) {
      const T* const x = o.x + j * o.stride + (o.index == nullptr ? i : 0);
      T* const to = out + j * column;
      const T u = Shifted ? shift[j] : T{0};
      if (o.index == nullptr && row == 1) {
        for (int64_t r = 0; r < m; ++r) to[r] = value<Shifted, Scaled>(x[r], u, Scaled ? roots[r] : T{1});
      } else {
        for (int64_t r = 0; r < m; ++r) {
          to[r * row] = value<Shifted, Scaled>(x[o.index == nullptr ? r : o.index[i + r]], u, Scaled ? roots[r] : T{1});
        }
      }
    }
    return;
  }
  if (column == 1) {
    for (int64_t r = 0; r < m; ++r) {
      const T* const x = o.x + o.place(i + r) * o.stride;
      const T root = Scaled ? roots[r] : T{1};
      T* const to = out + r * row;
      for (int64_t j = 0; j < o.p; ++j) to[j] = value<Shifted, Scaled>(x[j], Shifted ? shift[j] : T{0}, root);
    }
    return;
  }
  // Variable by variable, of as many observations as a cache holds.
  constexpr int64_t kTile = 128;
  for (int64_t first = 0; first < m; first += kTile) {
    const int64_t end = std::min(m, first + kTile);
    for (int64_t j = 0; j < o.p; ++j) {
      const T u = Shifted ? shift[j] : T{0};
      T* const to = out + j * column;
      const auto put = [&](int64_t r, int64_t place) __attribute__((always_inline)) {
        to[r] = value<Shifted, Scaled>(o.x[place * o.stride + j], u, Scaled ? roots[r] : T{1});
      };
      if (o.index == nullptr) {
        for (int64_t r = first; r < end; ++r) put(r, i + r);
      } else {
        for (int64_t r = first; r < end; ++r) put(r, o.index[i + r]);
      }
    }
  }
}

}  // namespace blocks

// Observations [i, i + m) as (x - shift[j]) roots[r]. Null `shift`: none; null `roots`: 1. What has the root 0 is 0,
// even where x is no number.
template <class T>
void copy_block(const Observations<T>& o, int64_t i, int64_t m, Layout layout, const T* shift, const T* roots, T* out) {
  if (roots != nullptr) {
    shift != nullptr ? blocks::copy<true, true>(o, i, m, layout, shift, roots, out)
                     : blocks::copy<false, true>(o, i, m, layout, shift, roots, out);
  } else {
    shift != nullptr ? blocks::copy<true, false>(o, i, m, layout, shift, roots, out)
                     : blocks::copy<false, false>(o, i, m, layout, shift, roots, out);
  }
}

}  // namespace orvik::ss

// The front's vector functions by row: arrays of reals, whatever the elements.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "orvik/front.h"
#include "tools/rows/list.h"

namespace orvik::front::test {

using rows::Row;
using rows::Shape;

struct Functions {
  std::string_view row;
  void *unit, *strided;
};

inline const std::vector<Functions>& functions() {
  static const std::vector<Functions> list = {
#define FRONT(name, unit, strided) {name, reinterpret_cast<void*>(unit), reinterpret_cast<void*>(strided)},
#include "front_list.inc"
#undef FRONT
  };
  return list;
}

struct MathCall {
  int64_t n = 0;
  const void *a = nullptr, *b = nullptr;
  void *r1 = nullptr, *r2 = nullptr;
  int64_t inc_a = 1, inc_b = 1, inc_r1 = 1, inc_r2 = 1;
  double scalars[8] = {1.25, -0.5, 0.75, 2.0};
  int32_t order = 1;
};

// T the element, S the real number that it is made of.
template <class T, class S>
orvik_status call_typed(const Row& row, void* f, bool strided, const MathCall& c, orvik_math_options* o) {
  using I = int64_t;
  const auto run = [&]<class... P>(P... p) {
    return reinterpret_cast<orvik_status (*)(I, P..., orvik_math_options*)>(f)(c.n, p..., o);
  };
  const auto arrays = [&]<class In, class Out>(const In* a, Out* r) {
    return strided ? run(a, c.inc_a, r, c.inc_r1) : run(a, r);
  };
  rows::Call numbers;
  for (int k = 0; k < 8; ++k) numbers.scalars[k] = c.scalars[k];
  const T s0 = rows::scalar_of<T>(numbers, 0), s1 = rows::scalar_of<T>(numbers, 1), s2 = rows::scalar_of<T>(numbers, 2),
          s3 = rows::scalar_of<T>(numbers, 3);
  const T *const a = static_cast<const T*>(c.a), *const b = static_cast<const T*>(c.b);
  T *const r1 = static_cast<T*>(c.r1), *const r2 = static_cast<T*>(c.r2);
  switch (row.shape) {
    case Shape::unary:
      return arrays(a, r1);
    case Shape::to_real:
      return arrays(a, static_cast<S*>(c.r1));
    case Shape::from_real:
      return arrays(static_cast<const S*>(c.a), r1);
    case Shape::binary:
      return strided ? run(a, c.inc_a, b, c.inc_b, r1, c.inc_r1) : run(a, b, r1);
    case Shape::unary2:
      return strided ? run(a, c.inc_a, r1, c.inc_r1, r2, c.inc_r2) : run(a, r1, r2);
    case Shape::scalar:
      return strided ? run(a, c.inc_a, s0, r1, c.inc_r1) : run(a, s0, r1);
    case Shape::bessel:
      return strided ? run(c.order, a, c.inc_a, r1, c.inc_r1) : run(c.order, a, r1);
    case Shape::fraction:
      return strided ? run(a, c.inc_a, b, c.inc_b, s0, s1, s2, s3, r1, c.inc_r1) : run(a, b, s0, s1, s2, s3, r1);
    case Shape::pack:
      break;
  }
  return -1;
}

inline orvik_status call(const Row& row, const Functions& f, bool strided, const MathCall& c, orvik_math_options* o) {
  void* const function = strided ? f.strided : f.unit;
  switch (row.precision) {
    case 's':
      return call_typed<float, float>(row, function, strided, c, o);
    case 'd':
      return call_typed<double, double>(row, function, strided, c, o);
    case 'c':
      return call_typed<ZymComplexFloat, float>(row, function, strided, c, o);
    default:
      return call_typed<ZymComplexDouble, double>(row, function, strided, c, o);
  }
}

}  // namespace orvik::front::test

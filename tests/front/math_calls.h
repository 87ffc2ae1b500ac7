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

template <class T>
orvik_status call_typed(const Row& row, void* f, bool strided, const MathCall& c, orvik_math_options* o) {
  using I = int64_t;
  using In = const void*;
  using Out = void*;
  const auto run = [&]<class... P>(P... p) {
    return reinterpret_cast<orvik_status (*)(I, P..., orvik_math_options*)>(f)(c.n, p..., o);
  };
  rows::Call numbers;
  for (int k = 0; k < 8; ++k) numbers.scalars[k] = c.scalars[k];
  const T s0 = rows::scalar_of<T>(numbers, 0), s1 = rows::scalar_of<T>(numbers, 1), s2 = rows::scalar_of<T>(numbers, 2),
          s3 = rows::scalar_of<T>(numbers, 3);
  switch (row.shape) {
    case Shape::unary:
    case Shape::to_real:
    case Shape::from_real:
      return strided ? run.template operator()<In, I, Out, I>(c.a, c.inc_a, c.r1, c.inc_r1)
                     : run.template operator()<In, Out>(c.a, c.r1);
    case Shape::binary:
      return strided ? run.template operator()<In, I, In, I, Out, I>(c.a, c.inc_a, c.b, c.inc_b, c.r1, c.inc_r1)
                     : run.template operator()<In, In, Out>(c.a, c.b, c.r1);
    case Shape::unary2:
      return strided ? run.template operator()<In, I, Out, I, Out, I>(c.a, c.inc_a, c.r1, c.inc_r1, c.r2, c.inc_r2)
                     : run.template operator()<In, Out, Out>(c.a, c.r1, c.r2);
    case Shape::scalar:
      return strided ? run.template operator()<In, I, T, Out, I>(c.a, c.inc_a, s0, c.r1, c.inc_r1)
                     : run.template operator()<In, T, Out>(c.a, s0, c.r1);
    case Shape::bessel:
      return strided ? run.template operator()<int32_t, In, I, Out, I>(c.order, c.a, c.inc_a, c.r1, c.inc_r1)
                     : run.template operator()<int32_t, In, Out>(c.order, c.a, c.r1);
    case Shape::fraction:
      if constexpr (requires(T t) { t.re; }) {
        return -1;
      } else {
        return strided ? run.template operator()<In, I, In, I, T, T, T, T, Out, I>(c.a, c.inc_a, c.b, c.inc_b, s0, s1,
                                                                                   s2, s3, c.r1, c.inc_r1)
                       : run.template operator()<In, In, T, T, T, T, Out>(c.a, c.b, s0, s1, s2, s3, c.r1);
      }
    case Shape::pack:
      break;
  }
  return -1;
}

inline orvik_status call(const Row& row, const Functions& f, bool strided, const MathCall& c, orvik_math_options* o) {
  void* const function = strided ? f.strided : f.unit;
  switch (row.precision) {
    case 's':
      return call_typed<float>(row, function, strided, c, o);
    case 'd':
      return call_typed<double>(row, function, strided, c, o);
    case 'c':
      return call_typed<ZymComplexFloat>(row, function, strided, c, o);
    default:
      return call_typed<ZymComplexDouble>(row, function, strided, c, o);
  }
}

}  // namespace orvik::front::test

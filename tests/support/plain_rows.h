// Rows of every shape whose kernels are plain loops, so that tests over rows are tried on complex elements, orders and
// scalar operands whatever is built.
#pragma once

#include <math.h>

#include <cmath>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tools/rows/list.h"

namespace orvik::test {

// Elements of one or two numbers, in and out, through F.
template <class In, class Out, auto F>
struct Plain {
  using I = int32_t;
  static void unary(I n, const In* a, Out* r) {
    for (I i = 0; i < n; ++i) r[i] = F(a[i]);
  }
  static void unary_strided(I n, const In* a, I incA, Out* r, I incR) {
    for (I i = 0; i < n; ++i) r[i * incR] = F(a[i * incA]);
  }
  static void binary(I n, const In* a, const In* b, Out* r) {
    for (I i = 0; i < n; ++i) r[i] = F(a[i], b[i]);
  }
  static void binary_strided(I n, const In* a, I incA, const In* b, I incB, Out* r, I incR) {
    for (I i = 0; i < n; ++i) r[i * incR] = F(a[i * incA], b[i * incB]);
  }
  static void scalar(I n, const In* a, In b, Out* r) {
    for (I i = 0; i < n; ++i) r[i] = F(a[i], b);
  }
  static void scalar_strided(I n, const In* a, I incA, In b, Out* r, I incR) {
    for (I i = 0; i < n; ++i) r[i * incR] = F(a[i * incA], b);
  }
  static void order(I n, I order, const In* a, Out* r) {
    for (I i = 0; i < n; ++i) r[i] = F(a[i], order);
  }
  static void order_strided(I n, I order, const In* a, I incA, Out* r, I incR) {
    for (I i = 0; i < n; ++i) r[i * incR] = F(a[i * incA], order);
  }
};

// A row that no list has. Its description and its function's name are what a caller makes of them.
template <class Unit, class Strided>
rows::Row plain_row(char precision, std::string_view function, rows::Shape shape, Unit* unit, Strided* strided) {
  static std::vector<std::string> names;
  names.reserve(1000);  // they stay where they are
  const bool complex = precision == 'c' || precision == 'z';
  const auto u = reinterpret_cast<void*>(unit), s = reinterpret_cast<void*>(strided);
  return {.precision = precision,
          .function = function,
          .name = names.emplace_back(precision + std::string(function)),
          .shape = shape,
          .sharing = rows::Sharing::one,
          .kernels = {1, 1, 1},
          .reports = false,
          .family = "plain",
          .description = "of a test",
          .costs = {1, 1, 1},
          .wide_costs = {1, 1, 1},
          .input_arrays = shape == rows::Shape::binary ? 2 : 1,
          .output_arrays = 1,
          .input_parts = complex && shape != rows::Shape::from_real ? 2 : 1,
          .output_parts = complex && shape != rows::Shape::to_real ? 2 : 1,
          .entries = {{u, u, u}, {s, s, s}}};
}

// One of every shape that complex elements, orders and scalars make, in both sizes.
template <class E>
void add_plain_rows(char real, char complex, std::vector<rows::Row>& made) {
  using rows::Shape;
  using C = std::conditional_t<sizeof(E) == 4, ZymComplexFloat, ZymComplexDouble>;
  using Conj = Plain<C, C, [](C a) { return C{a.re, -a.im}; }>;
  using Add = Plain<C, C, [](C a, C b) { return C{a.re + b.re, a.im + b.im}; }>;
  using Abs = Plain<C, E, [](C a) { return std::hypot(a.re, a.im); }>;
  using CIS = Plain<E, C, [](E a) { return C{std::cos(a), std::sin(a)}; }>;
  using Powx = Plain<E, E, [](E a, E b) { return std::pow(a, b); }>;
  using Jn = Plain<E, E, [](E a, int32_t order) { return static_cast<E>(::jn(order, static_cast<double>(a))); }>;
  made.push_back(plain_row(complex, "Conj", Shape::unary, Conj::unary, Conj::unary_strided));
  made.push_back(plain_row(complex, "Add", Shape::binary, Add::binary, Add::binary_strided));
  made.push_back(plain_row(complex, "Abs", Shape::to_real, Abs::unary, Abs::unary_strided));
  made.push_back(plain_row(complex, "CIS", Shape::from_real, CIS::unary, CIS::unary_strided));
  made.push_back(plain_row(complex, "AddTo", Shape::scalar, Add::scalar, Add::scalar_strided));
  made.push_back(plain_row(real, "Powx", Shape::scalar, Powx::scalar, Powx::scalar_strided));
  made.push_back(plain_row(real, "Jn", Shape::bessel, Jn::order, Jn::order_strided));
}

inline std::vector<rows::Row> plain_rows() {
  std::vector<rows::Row> made;
  add_plain_rows<float>('s', 'c', made);
  add_plain_rows<double>('d', 'z', made);
  return made;
}

}  // namespace orvik::test

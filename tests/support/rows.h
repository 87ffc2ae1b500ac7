// Typed calls of the entries of rows, over the list of rows.
#pragma once

#include <cstdint>
#include <type_traits>
#include <vector>

#include "tools/rows/list.h"

namespace orvik::test {

using rows::kLevelNames;
using rows::Row;
using rows::Shape;

// The real number that an element is made of, and how many of them.
template <class E>
struct ElementOf {
  using Part = E;
  static constexpr int parts = 1;
};
template <>
struct ElementOf<ZymComplexFloat> {
  using Part = float;
  static constexpr int parts = 2;
};
template <>
struct ElementOf<ZymComplexDouble> {
  using Part = double;
  static constexpr int parts = 2;
};
template <class E>
using Part = typename ElementOf<E>::Part;

// An element from its parts; the imaginary one is dropped where there is none.
template <class E>
constexpr E element(double re, double im = 0) {
  if constexpr (ElementOf<E>::parts == 2) {
    return {static_cast<Part<E>>(re), static_cast<Part<E>>(im)};
  } else {
    return static_cast<E>(re);
  }
}

// The arrays of a call: In is read, Out is written. Steps count for strided calls only; b, r2 where the shape has them.
template <class In, class Out = In>
struct Call {
  int32_t n = 0;
  const In* a = nullptr;
  const In* b = nullptr;
  Out* r1 = nullptr;
  Out* r2 = nullptr;
  int32_t incA = 1, incB = 1, incR1 = 1, incR2 = 1;
  // LinearFrac: scaleA, shiftA, scaleB, shiftB; Powx: the first.
  In fraction[4] = {element<In>(1.25), element<In>(-0.5), element<In>(0.75), element<In>(2.0)};
  int32_t order = 1;  // Jn, Yn
};

// Whether a row reads In and writes Out.
template <class In, class Out = In>
bool has_elements(const Row& row) {
  return row.shape != Shape::pack && row.single() == std::is_same_v<Part<In>, float> &&
         row.single() == std::is_same_v<Part<Out>, float> && row.input_parts == ElementOf<In>::parts &&
         row.output_parts == ElementOf<Out>::parts;
}

// Calls the entry of a level; false where the row has no arrays of these elements (data movers, other precisions).
template <class In, class Out>
bool call_row(const Row& row, int level, bool strided, const Call<In, Out>& c) {
  if (!has_elements<In, Out>(row)) return false;
  rows::Call call;
  call.a = c.a, call.b = c.b, call.r1 = c.r1, call.r2 = c.r2;
  call.incA = c.incA, call.incB = c.incB, call.incR1 = c.incR1, call.incR2 = c.incR2;
  call.order = c.order;
  for (int i = 0; i < 4; ++i) {
    if constexpr (ElementOf<In>::parts == 2) {
      call.scalars[2 * i] = static_cast<double>(c.fraction[i].re);
      call.scalars[2 * i + 1] = static_cast<double>(c.fraction[i].im);
    } else {
      call.scalars[i] = static_cast<double>(c.fraction[i]);
    }
  }
  rows::with_call(row, row.entries[strided ? 1 : 0][level], strided, call, [&](auto function) { function(c.n); });
  return true;
}

// What goes with the elements of a call besides: orders, scalar operands, none of the usual.
struct Variant {
  double scalars[8] = {1.25, -0.5, 0.75, 2.0};
  int32_t order = 1;
};

inline std::vector<Variant> variants_of(const Row& row) {
  std::vector<Variant> made;
  if (row.shape == Shape::bessel) {
    for (int32_t order : {0, 1, 2, 7, 40, -1, -2, -7}) made.push_back({.scalars = {}, .order = order});
  } else if (row.shape == Shape::scalar) {
    for (double power : {1.25, -3.0, 0.5, 0.0}) made.push_back({.scalars = {power, -power / 2}, .order = 1});
  } else {
    made.push_back({});
  }
  return made;
}

}  // namespace orvik::test

// Inputs of a row: fixed seeds, so that every run of a count tries the same ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/rows/list.h"

namespace orvik::accuracy {

// Elements and what goes with them besides: a scalar operand (two parts if complex), four of a linear fraction, or an
// order. E is the real number that elements are made of; a complex one is two of them.
template <class E>
struct Inputs {
  std::vector<E> a, b;  // b: functions of two arguments
  struct Segment {      // elements [first, last) share their scalars
    size_t first, last;
    double scalars[4];
    int32_t order;
  };
  std::vector<Segment> segments;

  size_t count(const rows::Row& row) const { return a.size() / static_cast<size_t>(row.input_parts); }
};

// About `count` inputs: special values and their pairs, the neighbourhoods of powers of two and of the function's
// edges, its hard cases (see hard_cases.h), random bit patterns, values of the function's domain, denormals, nearly
// equal pairs. `fixed` false leaves the parts out that do not depend on the seed. A row's inputs decide its hash: new
// ones change it.
template <class E>
Inputs<E> make_inputs(const rows::Row& row, size_t count, uint64_t seed, bool fixed = true);

// Results of one kernel over all inputs, unit stride or strided.
template <class E>
void evaluate(const rows::Row& row, int level, bool strided, const Inputs<E>& inputs, std::vector<E>& r1,
              std::vector<E>& r2);

}  // namespace orvik::accuracy

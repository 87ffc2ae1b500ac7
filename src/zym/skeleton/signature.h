// What a kernel reads and writes, known at compile time.
#pragma once

#include <type_traits>

#include "orvik/zym_types.h"

namespace orvik::zym {

enum class Kind { none, real, complex, scalar, complex_scalar };

struct Signature {
  Kind a = Kind::real;
  Kind b = Kind::none;  // the second input: an array, or one element for all
  Kind r = Kind::real;
  int results = 1;       // two: arrays of one kind
  bool reports = false;  // whether elements can be reported at all
};

template <class E>
using Complex = std::conditional_t<std::is_same_v<E, float>, ZymComplexFloat, ZymComplexDouble>;

}  // namespace orvik::zym

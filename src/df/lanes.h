// The vector layer as data fitting uses it: formulas are written once over T, a real or the lanes of its type.
#ifndef ORVIK_DF_LANES_H
#define ORVIK_DF_LANES_H

#include "lanes/generic.h"
#include "lanes/memory.h"
#include "lanes/table_rows.h"

namespace orvik::df {

template <class Real>
using Lanes = Native<Real>;
// As many 32-bit indices as there are lanes.
template <class Real>
using LaneIndices = orvik::Index<Lanes<Real>>;

// body(k, zero) for k = from .. to: with a vector zero for kCount indices at a time, then with a real one for the rest.
// In line, since what a body holds would be copied otherwise, a vector of it waiting for single stores.
template <class Real, class Body>
[[gnu::always_inline]] inline void by_lanes(int64_t from, int64_t to, const Body& body) {
  using V = Lanes<Real>;
  int64_t k = from;
  for (; k + kWidth<V> <= to + 1; k += kWidth<V>) body(k, V(Real(0)));
  for (; k <= to; ++k) body(k, Real(0));
}

}  // namespace orvik::df

#endif

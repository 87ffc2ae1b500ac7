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

}  // namespace orvik::df

#endif

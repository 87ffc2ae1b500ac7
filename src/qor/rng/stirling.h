// Logarithms of factorials, for the ratios of probabilities that rejection methods compare.
#pragma once

#include <cstdint>

#include "lanes/generic.h"
#include "lanes/round.h"
#include "lanes/tables.h"

namespace orvik::qor {

// What ln((x - 1)!) has beyond (x - 1/2) ln x - x + ln(2 pi) / 2, for whole x >= 1: a table, then Stirling's series
// with an error below 1e-12.
inline constexpr int32_t kStirlingTable = 10;
inline constexpr double kStirlingRest[kStirlingTable] = {
    0.08106146679532726,  0.04134069595540929, 0.027677925684998338, 0.020790672103765093, 0.016644691189821193,
    0.013876128823070748, 0.01189670994589177, 0.010411265261972096, 0.009255462182712733, 0.00833056343336287};
template <class V>
inline V stirling_series(V x) {
  const V inverse = V(1) / x, square = inverse * inverse;
  return inverse * (V(1.0 / 12) - square * (V(1.0 / 360) - square * (V(1.0 / 1260) - square * V(1.0 / 1680))));
}
inline double stirling_rest(double x) {
  if (x <= kStirlingTable) return kStirlingRest[x < 1 ? 0 : static_cast<int32_t>(x) - 1];
  return stirling_series(x);
}
inline F64 stirling_rest(F64 x) {
  const F64 series = stirling_series(x);
  const M64 small = x <= F64(kStirlingTable);
  if (none(small)) return series;
  const F64 place = max(round<Direction::zero>(select(small, x, F64(1))) - F64(1), F64(0));
  return select(small, gather(kStirlingRest, Indices(to_integer(place))), series);
}

constexpr double kHalfLnTwoPi = 0.91893853319999996;

}  // namespace orvik::qor

// Logarithms of factorials, for the ratios of probabilities that rejection methods compare.
#pragma once

#include <cstdint>

namespace orvik::qor {

// What ln((x - 1)!) has beyond (x - 1/2) ln x - x + ln(2 pi) / 2, for whole x >= 1: a table, then Stirling's series
// with an error below 1e-12.
inline double stirling_rest(double x) {
  static constexpr double kRest[10] = {
      0.08106146679532726,  0.04134069595540929, 0.027677925684998338, 0.020790672103765093, 0.016644691189821193,
      0.013876128823070748, 0.01189670994589177, 0.010411265261972096, 0.009255462182712733, 0.00833056343336287};
  if (x <= 10) return kRest[x < 1 ? 0 : static_cast<int32_t>(x) - 1];
  const double inverse = 1 / x, square = inverse * inverse;
  return inverse * (1.0 / 12 - square * (1.0 / 360 - square * (1.0 / 1260 - square * (1.0 / 1680))));
}

constexpr double kHalfLnTwoPi = 0.91893853319999996;

}  // namespace orvik::qor

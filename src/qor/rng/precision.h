// What distributions of float and of double do not share: constants and the ids of their side blocks.
#pragma once

#include <cstdint>

namespace orvik::qor {

template <class T>
struct Precision;

template <>
struct Precision<double> {
  // What stands for ln 0, so that a uniform of 0 becomes a large number and not an infinity; below ln of any double.
  static constexpr double kLnOfZero = -744.44007192138122;
  // What stands for the inverse of the error function at 1, above that of any number below 1.
  static constexpr double kErfInvOfOne = 5.8635847487551676;
  static constexpr double kHalfPi = 0x1.921fb54442d18p+0, kTwoPi = 0x1.921fb54442d18p+2,
                          kSqrtTwo = 0x1.6a09e667f3bcdp+0;
  // Side blocks: the pending pair of Gaussian and of Gamma.
  static constexpr int32_t kGaussianPair = 2, kGammaPair = 7;
};

template <>
struct Precision<float> {
  static constexpr double kLnOfZero = -103.2789306640625;
  static constexpr double kErfInvOfOne = 3.8325068950653076;
  static constexpr float kHalfPi = 0x1.921fb6p+0f, kTwoPi = 0x1.921fb6p+2f, kSqrtTwo = 0x1.6a09e6p+0f;
  static constexpr int32_t kGaussianPair = 1, kGammaPair = 8;
};

}  // namespace orvik::qor

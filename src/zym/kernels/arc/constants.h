// Constants of the arc functions, head and tail.
#pragma once

#include "zym/kernels/shared/corrections.h"

namespace orvik::zym {

// What results are measured in: radians, or half turns (results divided by pi: multiples of 1/4 are then exact).
enum class Unit { radian, half_turn };

namespace arc {

inline constexpr float kPi32 = 0x1.921fb6p1f;                      //: = pi
inline constexpr double kPi64 = 0x1.921fb54442d18p1;               //: = pi
inline constexpr double kPiLow64 = 0x1.1a62633145c07p-53;          //: = pi - kPi64
inline constexpr float kPiRest32 = -0x1.de12cap-26f;               //: = pi / kPi32 - 1
inline constexpr double kPiRest64 = 0x1.678afae35cdd1p-55;         //: = pi / kPi64 - 1
inline constexpr float kInversePi32 = 0x1.45f306p-2f;              //: = 1/pi
inline constexpr float kInversePiLow32 = 0x1.b9391p-27f;           //: = 1/pi - kInversePi32
inline constexpr double kInversePi64 = 0x1.45f306dc9c883p-2;       //: = 1/pi
inline constexpr double kInversePiLow64 = -0x1.6b01ec5417056p-56;  //: = 1/pi - kInversePi64

inline constexpr float kThreeQuarters32 = 0x1.2d97c8p1f;         //: = 3 * pi/4
inline constexpr double kThreeQuarters64 = 0x1.2d97c7f3321d2p1;  //: = 3 * pi/4

// The angle whose tangent is 9/16.
inline constexpr float kPivot32 = 0x1.0657eap-1f;           //: = atan(9/16)
inline constexpr double kPivot64 = 0x1.0657e94db30dp-1;     //: = atan(9/16)
inline constexpr float kPivotpi32 = 0x1.4e06a8p-3f;         //: = atan(9/16)/pi
inline constexpr double kPivotpi64 = 0x1.4e06a7aa3c7dep-3;  //: = atan(9/16)/pi
// The angle whose tangent is 16/9.
inline constexpr float kFarPivot32 = 0x1.0ef3cp0f;      //: = atan(16/9)
inline constexpr float kFarPivotpi32 = 0x1.58fcacp-2f;  //: = atan(16/9)/pi
// One number for results in radians, one for half turns.
template <class E>
struct ByUnit {
  E radian, half_turn;
  constexpr E operator[](int unit) const { return unit == 0 ? radian : half_turn; }
};
template <class E>
struct Constants;
template <>
struct Constants<float> {
  static constexpr float inverse_pi = kInversePi32, inverse_pi_low = kInversePiLow32;
  static constexpr ByUnit<float> pi = {kPi32, 1};
  static constexpr float pi_rest = kPiRest32;
  static constexpr ByUnit<float> pivot = {kPivot32, kPivotpi32};
  static constexpr ByUnit<float> far_pivot = {kFarPivot32, kFarPivotpi32};
  static constexpr ByUnit<float> three_quarters = {kThreeQuarters32, 0.75f};
};
template <>
struct Constants<double> {
  static constexpr double inverse_pi = kInversePi64, inverse_pi_low = kInversePiLow64;
  static constexpr ByUnit<double> pi = {kPi64, 1};
  static constexpr double pi_rest = kPiRest64;
  static constexpr ByUnit<double> pivot = {kPivot64, kPivotpi64};
  static constexpr ByUnit<double> three_quarters = {kThreeQuarters64, 0.75};
};

// Head and tail of (head + tail) / pi.
template <class V>
HeadTail<V> over_pi(V head, V tail) {
  const V q = V(Constants<Element<V>>::inverse_pi), q_low = V(Constants<Element<V>>::inverse_pi_low);
  const V product = head * q;
  return {product, fma(head, q_low, fma(tail, q, fms(head, q, product)))};
}

// 2^-90 or 2^-944, the high word: below it the tail of a product with 1/pi could underflow.
template <class E>
inline constexpr uint32_t kSmallestTurn = sizeof(E) == 4 ? 0x12800000u : 0x04F00000u;

// (head + tail) 2^e with one rounding, below the normal numbers as well; |tail| <= |head| <= 1, e < -100.
inline double scaled_once(HeadTail<double> x, int e) {
  const auto power = [](int k) { return float_of<double>(static_cast<uint64_t>(1023 + k) << 52); };
  if (e < -1100) e = -1100;  // 0 either way
  const HeadTail<double> sum = fast_two_sum(x.head, x.tail);
  const double r = sum.head * 0x1p-100 * power(e + 100);
  if (magnitude(r) > 0x1p-1022) return r;
  const double rest = (sum.head - r * 0x1p100 * power(-e - 100)) + sum.tail;
  if (magnitude(rest) <= power(-1075 - e)) return r;
  // Times one: with denormals flushed, r is 0 and what stands beside it counts as 0.
  return quiet(float_of<double>(is_negative(rest) == is_negative(sum.head) ? bits_of(r) + 1 : bits_of(r) - 1));
}

// x / pi of numbers so small that the product's error cannot be had as it is; one rounding where the result is normal.
inline float tiny_over_pi(float x) { return static_cast<float>(static_cast<double>(x) * kInversePi64); }
inline double tiny_over_pi(double x) {
  if (x == 0) return x + x;  // denormals read as zero as well
  return scaled_once(over_pi(x * 0x1p200, 0.0), -200);
}

// pi or 1.
template <class E, Unit U>
inline constexpr E kHalfTurn = Constants<E>::pi[static_cast<int>(U)];

}  // namespace arc
}  // namespace orvik::zym

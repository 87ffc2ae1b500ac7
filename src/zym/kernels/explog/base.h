// What the logarithms of different bases differ in: log_b(x) = e log_b(2) + log_b(m).
#pragma once

#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"

namespace orvik::zym {

struct BaseE {
  static constexpr const auto& wide = kLnWide;
  static constexpr const auto& rows = kLnSixteenths;
  static constexpr double of2_short = kLn2Short;
};

struct Base2 {
  // 32 bits.
  static constexpr const auto& single_ep = kLog2SingleEP;
  static constexpr const auto& single_la = kLog2SingleLA;
  static constexpr float of2_single = 1.0f;
  // 64-bit arithmetic for results of 32.
  static constexpr const auto& wide = kLog2Wide;
  static constexpr const auto& rows = kLog2Sixteenths;
  static constexpr double of2_short = 1.0;
  // 64 bits.
  static constexpr const auto& double_ep = kLog2DoubleEP;
  static constexpr const auto& double_la = kLog2DoubleLA;
  static constexpr const auto& double_ha = kLog2DoubleHA;
  static constexpr const auto& pairs = kLog2Pairs;
  static constexpr const auto& heads = kLog2Heads;
  static constexpr double of2 = 1.0;
  static constexpr double of2_head = 1.0, of2_tail = 0.0;
  static constexpr double of_e = kLog2E64, of_e_tail = kLog2ETail64;
};

struct Base10 {
  static constexpr const auto& single_ep = kLog10SingleEP;
  static constexpr const auto& single_la = kLog10SingleLA;
  static constexpr float of2_single = kLog10Of2In32;
  static constexpr const auto& wide = kLog10Wide;
  static constexpr const auto& rows = kLog10Sixteenths;
  static constexpr double of2_short = kLog10Of2Short;
  static constexpr const auto& double_ep = kLog10DoubleEP;
  static constexpr const auto& double_la = kLog10DoubleLA;
  static constexpr const auto& double_ha = kLog10DoubleHA;
  static constexpr const auto& pairs = kLog10Pairs;
  static constexpr const auto& heads = kLog10Heads;
  static constexpr double of2 = kLog10Of2Head + kLog10Of2Tail;
  static constexpr double of2_head = kLog10Of2Head, of2_tail = kLog10Of2Tail;
  static constexpr double of_e = kLog10E64, of_e_tail = kLog10ETail64;
};

}  // namespace orvik::zym

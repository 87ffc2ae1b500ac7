// What the logarithms of different bases differ in: log_b(x) = e log_b(2) + log_b(m).
#pragma once

#include "zym/kernels/explog/coefficients.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/octave_coefficients.h"
#include "zym/kernels/explog/octave_tables.h"
#include "zym/kernels/explog/tables.h"

namespace orvik::zym {

struct BaseE {
  template <class E>
  struct Octave;
};
template <>
struct BaseE::Octave<double> {
  static constexpr const auto& rows = kLnOctave64;
  static constexpr const auto& parts = kLnOctaveParts64;
  static constexpr const auto& ep = kLnOctaveEP64;
  static constexpr const auto& la = kLnOctaveLA64;
  static constexpr const auto& ha = kLnOctaveCubic64;
  static constexpr double of2 = kLn2Head64 + kLn2Tail64, of2_head = kLn2Head64, of2_tail = kLn2Tail64, of_e = 1;
};

// The same of a sum, whose reduced argument is rounded.
struct BaseEOfSum {
  template <class E>
  struct Octave;
};
template <>
struct BaseEOfSum::Octave<float> {
  static constexpr const auto& rows = kLn1pEighths32;
  static constexpr const auto& reciprocals = kLn1pOctaveReciprocals32;
  static constexpr const auto& parts = kLn1pOctaveParts32;
  static constexpr const auto& la = kLn1pEighthLA32;
  static constexpr const auto& ha = kLn1pOctaveHA32;
  static constexpr float of2 = kLn2Whole32, of2_head = kLn2Head32, of2_tail = kLn2Tail32;
};
template <>
struct BaseEOfSum::Octave<double> {
  static constexpr const auto& rows = kLn1pOctave64;
  static constexpr const auto& parts = kLn1pOctaveParts64;
  static constexpr const auto& ep = kLnOctaveEP64;
  static constexpr const auto& la = kLnOctaveLA64;
  static constexpr const auto& ha = kLnOctaveHA64;
  static constexpr double of2 = kLn2Head64 + kLn2Tail64, of2_head = kLn2Head64, of2_tail = kLn2Tail64;
};

struct Base2 {
  static constexpr const auto& single_ep = kLog2SingleEP;
  static constexpr float of2_single = 1.0f;
  template <class E>
  struct Octave;
};
template <>
struct Base2::Octave<float> {
  static constexpr const auto& rows = kLog2Eighths32;
  static constexpr const auto& reciprocals = kOctaveReciprocals32;
  static constexpr const auto& parts = kLog2OctaveParts32;
  static constexpr const auto& la = kLog2EighthLA32;
  static constexpr const auto& ha = kLog2OctaveHA32;
  static constexpr float of2 = 1, of_e = kLog2E32, of_e_tail = kLog2ETail32;
};
template <>
struct Base2::Octave<double> {
  static constexpr const auto& rows = kLog2Octave64;
  static constexpr const auto& parts = kLog2OctaveParts64;
  static constexpr const auto& ep = kLog2OctaveEP64;
  static constexpr const auto& la = kLog2OctaveLA64;
  static constexpr const auto& ha = kLog2OctaveHA64;
  static constexpr double of2 = 1, of_e = kLog2E64, of_e_tail = kLog2ETail64;
};

struct Base10 {
  static constexpr const auto& single_ep = kLog10SingleEP;
  static constexpr float of2_single = kLog10Of2In32;
  template <class E>
  struct Octave;
};
template <>
struct Base10::Octave<float> {
  static constexpr const auto& rows = kLog10Eighths32;
  static constexpr const auto& reciprocals = kOctaveReciprocals32;
  static constexpr const auto& parts = kLog10OctaveParts32;
  static constexpr const auto& la = kLog10EighthLA32;
  static constexpr const auto& ha = kLog10OctaveHA32;
  static constexpr float of2 = kLog10Of2In32, of2_head = kLog10Of2Head32, of2_tail = kLog10Of2Tail32;
  static constexpr float of_e = kLog10E32, of_e_tail = kLog10ETail32;
};
template <>
struct Base10::Octave<double> {
  static constexpr const auto& rows = kLog10Octave64;
  static constexpr const auto& parts = kLog10OctaveParts64;
  static constexpr const auto& ep = kLog10OctaveEP64;
  static constexpr const auto& la = kLog10OctaveLA64;
  static constexpr const auto& ha = kLog10OctaveHA64;
  static constexpr double of2 = kLog10Of2Head + kLog10Of2Tail, of2_head = kLog10Of2Head, of2_tail = kLog10Of2Tail;
  static constexpr double of_e = kLog10E64, of_e_tail = kLog10ETail64;
};

}  // namespace orvik::zym

// 2^(n/16) by sixteen rows that fit registers, and the polynomials of the exponentials within half a step. Numbers and
// worst errors by tools/approx from the lines marked //:.
#pragma once

#include "lanes/register_tables.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/exp2_factors.h"
#include "zym/kernels/explog/octave_tables.h"

namespace orvik::zym {

inline constexpr double k16OverLog10Of2 = 0x1.a934f0979a371p5;  //: = 16/log10(2)
inline constexpr double kLog10Of2Over16Head = 0x1.34413509fp-6;  //: = grid(log10(2)/16, 2^-42)
inline constexpr double kLog10Of2Over16Tail = 0x1.e7fbcc47c4acdp-44;  //: = log10(2)/16 - kLog10Of2Over16Head

inline constexpr float k8OverLn2In32 = 0x1.715476p3f;  //: = 8/log(2)
inline constexpr float kLn2Over8Head32 = 0x1.62ep-4f;  //: = trunc_bits(log(2)/8, 13)
inline constexpr float kLn2Over8Tail32 = 0x1.0bfbe8p-18f;  //: = log(2)/8 - kLn2Over8Head32
inline constexpr float k16OverLn2In32 = 0x1.715476p4f;  //: = 16/log(2)
inline constexpr float kLn2Over16Head32 = 0x1.62e43p-5f;  //: = log(2)/16
inline constexpr float kLn2Over16Tail32 = -0x1.05c61p-33f;  //: = log(2)/16 - kLn2Over16Head32
inline constexpr double k16OverLn2 = 0x1.71547652b82fep4;  //: = 16/log(2)
inline constexpr double kLn2Over16Head = 0x1.62e42fefa39efp-5;  //: = log(2)/16
inline constexpr double kLn2Over16Tail = 0x1.abc9e3b39803fp-60;  //: = log(2)/16 - kLn2Over16Head

//: 1 + x * p(x) = 2^x on [-1/32, 1/32], relative error 2^-56.9
//: fit explog/coefficients.sollya
inline constexpr double kExp2Sixteenth[6] = {
    0x1.430a9bf1a371dp-13, 0x1.5d89bd5ecbeadp-10, 0x1.3b2ab6fa94017p-7, 0x1.c6b08d6e8cd18p-5, 0x1.ebfbdff82c59dp-3,
    0x1.62e42fefa39fdp-1
};
//: 1 + x * p(x) = 10^x on [-0.00941, 0.00941], relative error 2^-56.9
//: fit explog/coefficients.sollya
inline constexpr double kExp10Sixteenth[6] = {
    0x1.a7ef6e31552b1p-3, 0x1.142b6130a99dcp-1, 0x1.2bd7609edc829p0, 0x1.0470591ce3555p1, 0x1.53524c73cea72p1,
    0x1.26bb1bbb55521p1
};

// The ends are log(2)/16 and log(2)/32 and a little.
//: x + x^2 * p(x) = expm1(x) on [-0.04333, 0.04333], relative error 2^-27.5
//: fit explog/coefficients.sollya
inline constexpr float kExpm1Eighth32[3] = {0x1.555a56p-5f, 0x1.555c22p-3f, 0x1p-1f};
//: x + x^2 * p(x) = expm1(x) on [-0.02168, 0.02168], relative error 2^-31.5
//: fit explog/coefficients.sollya
inline constexpr float kExpm1Sixteenth32[3] = {0x1.555662p-5f, 0x1.555708p-3f, 0x1p-1f};
//: x + x^2 * p(x) = expm1(x) on [-0.02168, 0.02168], relative error 2^-59.6
//: fit explog/coefficients.sollya
inline constexpr double kExpm1Sixteenth64[6] = {
    0x1.a01b96ff1cf9ap-13, 0x1.6c182908a2e1p-10, 0x1.1111111085552p-7, 0x1.55555554a0566p-5, 0x1.5555555555559p-3,
    0x1.0000000000003p-1
};

//: = 2^(i/16)
inline constexpr double kExp2Sixteenths64[16] = {
    0x1p0, 0x1.0b5586cf9890fp0, 0x1.172b83c7d517bp0, 0x1.2387a6e756238p0, 0x1.306fe0a31b715p0, 0x1.3dea64c123422p0,
    0x1.4bfdad5362a27p0, 0x1.5ab07dd485429p0, 0x1.6a09e667f3bcdp0, 0x1.7a11473eb0187p0, 0x1.8ace5422aa0dbp0,
    0x1.9c49182a3f09p0, 0x1.ae89f995ad3adp0, 0x1.c199bdd85529cp0, 0x1.d5818dcfba487p0, 0x1.ea4afa2a490dap0
};
// What these lack, relative to them.
//: let head = double(2^(i/16))
//: = (2^(i/16) - head) / head
inline constexpr double kExp2SixteenthTails64[16] = {
    0.0, 0x1.79aa65d837b6dp-54, -0x1.01b15eaa59348p-55, 0x1.68efde3a8a894p-54, 0x1.34d754db0abb6p-55,
    0x1.59f48a72a4c6dp-55, 0x1.690cebb7aafbp-56, 0x1.063e1e21c5409p-54, -0x1.3b3efbf5e2228p-54, -0x1.b32dcb94da51dp-56,
    0x1.db72fc1f0eab4p-55, 0x1.1affc2b91ce27p-56, 0x1.c1a7792cb3387p-55, 0x1.36eae30af0cb3p-56, 0x1.4a385a63d07a7p-56,
    -0x1.ff7128fd391fp-55
};
//: let head = float(2^(i/16))
//: = (2^(i/16) - head) / head
inline constexpr float kExp2SixteenthTails32[16] = {
    0.0f, 0x1.8d96d4p-25f, -0x1.9c0c22p-27f, 0x1.964904p-25f, 0x1.125002p-25f, 0x1.370be4p-25f, -0x1.0a355p-25f,
    -0x1.00d8acp-27f, 0x1.26055cp-26f, -0x1.05cb44p-25f, 0x1.67a1cap-28f, 0x1.a3b5e4p-28f, -0x1.f9c304p-27f,
    -0x1.6961b4p-28f, -0x1.a5217cp-28f, 0x1.61428ep-28f
};

// Heads alone, by their bits less the number of the row where a shifted index has it.
inline constexpr RowFields kExp2SixteenthFields64(kExp2Sixteenths64);

// Heads by their bits less the number of the row where a shifted index has it; tails.
struct Exp2SixteenthRows {
  double rows[16][2];
  constexpr Exp2SixteenthRows() : rows{} {
    for (size_t i = 0; i < 16; ++i) rows[i][0] = kExp2SixteenthFields64.bits[i], rows[i][1] = kExp2SixteenthTails64[i];
  }
};
inline constexpr Exp2SixteenthRows kExp2SixteenthRows;
inline constexpr Columns kExp2SixteenthColumns(kExp2SixteenthRows.rows);

// 2^(n/16) = head (1 + tail), n in the low bits of t.
template <Single V>
HeadTail<V> exp2_of_16(V t) {
  const V row = look_up_16<V>(kExp2SixteenthFields32.bits, as_bits(t));
  return {as_float(as_bits(row) + shift_left<19>(as_bits(t))), look_up_16<V>(kExp2SixteenthTails32, as_bits(t))};
}
template <Double V>
HeadTail<V> exp2_of_16(V t) {
  using I = Integer<V>;
  Pair<V> row;
  if constexpr (kHasPermutes64<V>) {
    row = {look_up_in_16(kExp2SixteenthColumns.of[0], as_bits(t)), look_up_in_16(kExp2SixteenthColumns.of[1], as_bits(t))};
  } else {
    row = gather(kExp2SixteenthRows.rows, indices(as_bits(t) & I(uint64_t{15})));
  }
  return {as_float(as_bits(row.first) + shift_left<48>(as_bits(t))), row.second};
}
// The head alone.
template <Double V>
V exp2_head_of_16(V t) {
  using I = Integer<V>;
  V row;
  if constexpr (kHasPermutes64<V>) {
    row = look_up_in_16(kExp2SixteenthFields64.bits, as_bits(t));
  } else {
    row = gather(kExp2SixteenthFields64.bits, indices(as_bits(t) & I(uint64_t{15})));
  }
  return as_float(as_bits(row) + shift_left<48>(as_bits(t)));
}

}  // namespace orvik::zym

// What the complementary error functions share: q(z) = e^(z^2) erfc(z) for z >= 0, which is smooth and never far from
// 1 / (z + 1), by polynomials on intervals whose length grows with z + 1; and e^y, whose argument comes in two parts,
// since its error is magnified by the size of y.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/error/coefficients.h"
#include "zym/kernels/error/constants.h"
#include "zym/kernels/error/tables.h"
#include "zym/kernels/explog/exp.h"
#include "zym/kernels/shared/octets.h"

namespace orvik::zym::error {

// --- 32 bits --------------------------------------------------------------------------------------------------------

inline constexpr Octets kErfcxEP(kErfcxSingleEP, 6);  // the octave from 1 on has an odd exponent field
inline constexpr Octets kErfcxLA(kErfcxSingleLA, 6);

// q(a scale / kErfcxScale).
template <Level L, Single V>
[[gnu::always_inline]] inline V scaled(V a, float scale) {
  const Integer<V> row = shift_right<22>(as_bits(fma(a, V(scale), V(1.0f))));
  const V t = fms(a, V(scale), look_up(octet_table<V>(kErfcxCentres), row));
  if constexpr (L == Level::EP) return octet_polynomial(t, kErfcxEP, row);
  if constexpr (L != Level::EP) return octet_polynomial(t, kErfcxLA, row);
}

// e^(y.head + y.tail) = fraction * scale, y not above 0; the scale is 2^bias too high, so that it stays normal.
template <Level L, Single V>
struct DecaySingle {
  V fraction, scale;

  [[gnu::always_inline]] DecaySingle(HeadTail<V> y, int bias) {
    const auto [t, n] = shift_round(y.head, V(kLog2E32), V(kShifter32 + static_cast<float>(127 + bias)));
    scale = as_float(shift_left<23>(as_bits(t)));
    if constexpr (L == Level::EP) {
      fraction = horner(fnma(n, V(kLn2Whole32), y.head), kExpSingleEP);
    } else {
      const V r = fnma(n, V(kLn2Tail32), fnma(n, V(kLn2Head32), y.head)) + y.tail;
      fraction = fma(fma(horner(r, kDecaySingle), r, V(1.0f)), r, V(1.0f));
    }
  }
};

// --- 64 bits --------------------------------------------------------------------------------------------------------

// q(z) = head + rest, z below 31; z_tail is what z lacks.
template <Double V>
struct Scaled {
  V head, rest;

  [[gnu::always_inline]] explicit Scaled(V z, V z_tail) {
    const Integer<V> key = shift_right<48>(as_bits(z + V(1.0))) - Integer<V>(uint64_t{1023 << 4});
    const auto index = row_indices(key + key + key);
    const auto* const rows = reinterpret_cast<const double(*)[4]>(kErfcxRows);  // twelve numbers are three times four
    const auto low = gather(rows, index), middle = gather(rows + 1, index), high = gather(rows + 2, index);
    const V t = (z - low.c[0]) + z_tail;
    const V p = horner(t, high.c[3], high.c[2], high.c[1], high.c[0], middle.c[3], middle.c[2], middle.c[1],
                       middle.c[0], low.c[3]);
    head = low.c[1];
    rest = fma(t, p, low.c[2]);
  }
};

// The same to 30 bits.
template <Double V>
[[gnu::always_inline]] inline V scaled_short(V z) {
  using I = Integer<V>;
  const V one = V(1.0);
  const I bits = as_bits(z + one);
  const V t = z - (as_float((bits & I(~uint64_t{0} << 46)) | I(uint64_t{1} << 45)) - one);
  const auto row = gather(kErfcxShort, indices(shift_right<46>(bits) - I(uint64_t{1023 << 6})));
  return horner(t, row.c[3], row.c[2], row.c[1], row.c[0]);
}

// e^(y.head + y.tail) 2^power = scale (1 + rest).
template <Double V>
struct Exponential {
  V scale, rest;

  [[gnu::always_inline]] Exponential(HeadTail<V> y, int power) {
    const auto [t, n] = shift_round(y.head, V(k64OverLn2), V(kShifter64 + 64 * power));
    const V r = fnma(n, V(kLn2Over64Tail), fnma(n, V(kLn2Over64Head), y.head)) + y.tail;
    const auto row = gather(kExp2Frac64, indices(as_bits(t) & Integer<V>(int64_t{63})));
    scale = scale_by_row<6>(row.first, t);
    rest = fma(r * r, horner(r, kExpDoubleHA), r) + row.second;
  }
};

// The same to 37 bits, y in one part: e^y 2^power.
template <Double V>
[[gnu::always_inline]] inline V exponential_short(V y, int power) {
  const auto [t, n] = shift_round(y, V(k128OverLn2), V(kShifter64 + 128 * power));
  const V r = fnma(n, V(kLn2Over128), y);
  const V scale = scale_by_row<7>(gather(kExp2Frac128, indices(as_bits(t) & Integer<V>(int64_t{127}))), t);
  return fma(scale, fma(r * r, horner(r, kDecayShort), r), scale);
}

}  // namespace orvik::zym::error

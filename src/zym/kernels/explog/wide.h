// Logarithms of 32-bit numbers in 64-bit arithmetic: x = 2^e m, c near 1/m from sixteen rows by the upper bits of m,
// and a polynomial in r = c m - 1. No lane is converted: exponent and m become doubles by words and a shift.
#pragma once

#include "lanes/scalar.h"
#include "lanes/unpacked.h"
#include "zym/kernels/explog/base.h"
#include "zym/kernels/explog/constants.h"
#include "zym/kernels/explog/tables.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// x = 2^e m, m in [0.82, 1.65).
struct WideKey {
  I32 field, row;  // of e; in the low four bits
  explicit WideKey(F32 x) {
    const I32 u = as_bits(x) - I32(0x3F52AAABu);
    field = u & I32(0xFF800000u);
    row = shift_right<19>(u);
  }
  // The high words of the doubles 384 + e.
  I32 exponent() const { return shift_right_arithmetic<11>(field) + I32(0x40780000u); }
};

// Both halves of a vector of floats, in the order of unpacking; step by step, since one chain alone would wait.
using Halves = Twice<F64>;
inline Halves halves(Pair<I64> a) { return {as_float(a.first), as_float(a.second)}; }

template <class Base>
[[gnu::always_inline]] inline F32 wide_log(Halves r, Halves exponent, Halves row) {
  const Halves table = Base::of2_short == 1.0 ? exponent + row : fma(exponent, Halves(Base::of2_short), row);
  const Halves y = fma(r, horner(r, Base::wide), table);
  return narrow_unpacked(y.low, y.high);
}

template <class Base>
[[gnu::always_inline]] inline F32 wide_log(F32 x) {
  const WideKey k(x);
  // Below m the row, of which three bits are shifted out: the fourth is 0 in the rows about 1 and 2^-52 elsewhere.
  const Pair<I64> m = unpack(k.row, as_bits(x) - k.field), e = unpack(I32(0u), k.exponent());
  const auto rows = look_up_in_16(Base::rows, k.row, m);
  const Halves c = {rows.first.first, rows.second.first}, log = {rows.first.second, rows.second.second};
  const Halves r = fms(c, as_float(shift_right<3>(Twice<I64>{m.first, m.second})), Halves(1.0));
  return wide_log<Base>(r, halves(e), log);
}
template <class Base, class V>
Twice<V> wide_log(Twice<V> x) {
  return {wide_log<Base>(x.low), wide_log<Base>(x.high)};
}

// One positive finite number, denormal or not.
template <class Base>
double wide_log(float x) {
  constexpr uint64_t kLeast = (uint64_t{0x3F52AAABu} << 29) + (uint64_t{1023 - 127} << 52);
  const uint64_t u = bits_of(static_cast<double>(x)) - kLeast;
  const double e = static_cast<double>(static_cast<int64_t>(u) >> 52);
  const double m = float_of<double>((u & 0x000FFFFFFFFFFFFF) + kLeast);
  const double* row = Base::rows[u >> 48 & 15];
  const double r = std::fma(row[0] * 0x1p-896, m, -1.0);
  return std::fma(r, horner(r, Base::wide), std::fma(e + 384.0, Base::of2_short, row[1]));
}

}  // namespace orvik::zym

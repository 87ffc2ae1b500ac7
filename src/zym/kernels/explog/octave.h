// Logarithms by rows of an octave, which fit registers: x = 2^e m with m in [1, 2), c near 1/m by the upper bits of m,
// r = c m - 1, log(x) = (e log(2) - log(c)) + log(1 + r). c is 1 in the first row and 1/2 in the last: on both
// sides of x = 1 the first sum is 0, and r, which is exact, all that counts. At LA and EP, where that sum rounds, e is
// one more from m = 3/2 on, so that it is not a small difference.
#pragma once

#include <bit>
#include <iterator>

#include "lanes/exponents.h"
#include "lanes/register_tables.h"
#include "zym/kernels/explog/base.h"
#include "zym/skeleton/family.h"

namespace orvik::zym {

// Both columns of a row by the low bits of the index.
template <const auto& Rows, Single V>
Pair<V> octave_row(Integer<V> index) {
  const auto& columns = kColumns<Rows>;
  if constexpr (std::size(Rows) == 8) {
    return {look_up(octet_table<V>(columns.of[0]), index), look_up(octet_table<V>(columns.of[1]), index)};
  } else {
    return {look_up_16<V>(columns.of[0], index), look_up_16<V>(columns.of[1], index)};
  }
}
template <const auto& Rows, Double V>
Pair<V> octave_row(Integer<V> index) {
  if constexpr (kHasPermutes64<V>) {
    return {look_up_in_16(kColumns<Rows>.of[0], index), look_up_in_16(kColumns<Rows>.of[1], index)};
  } else {
    return gather(Rows, indices(index & Integer<V>(uint64_t{15})));
  }
}
// c alone, of sixteen rows.
template <class Base, class V>
V octave_reciprocal(Integer<V> index) {
  using B = typename Base::template Octave<Element<V>>;
  if constexpr (Single<V>) return look_up_16<V>(B::reciprocals, index);
  if constexpr (Double<V>) return octave_row<B::rows, V>(index).first;
}

template <class V>
struct OctaveKey {
  using I = Integer<V>;
  static constexpr int kBits = Format<V>::mantissa_bits;
  static constexpr Bits<V> kOne = Bits<V>{Format<V>::bias} << kBits;

  I bits;
  explicit OctaveKey(V x) : bits(as_bits(x)) {}
  V e() const { return NormalExponents<V>(as_float(bits)).numbers(); }
  // One more from m = 3/2 on; of x below 3/4 of what would overflow.
  V centred_e() const { return NormalExponents<V>(as_float(bits + I(Bits<V>{1} << (kBits - 1)))).numbers(); }
  template <size_t Rows = 16>
  I row() const {
    return shift_right<kBits + 1 - std::bit_width(Rows)>(bits);
  }
  V m() const { return as_float((bits & I((Bits<V>{1} << kBits) - 1)) | I(kOne)); }
  // 2^-e c.
  V scaled(V c) const { return as_float(as_bits(c) + I(kOne) - (bits & I(Format<V>::exponent_field))); }
};

// e log(2) - log(c), rounded.
template <class Base, class V>
V octave_log(V e, V log) {
  using B = typename Base::template Octave<Element<V>>;
  if constexpr (B::of2 == 1) return e + log;
  if constexpr (B::of2 != 1) return fma(e, V(B::of2), log);
}

// The same in two parts, whose first is exact.
template <class Base, class V>
HeadTail<V> octave_parts(V e, Integer<V> row) {
  using B = typename Base::template Octave<Element<V>>;
  const auto log = octave_row<B::parts, V>(row);
  if constexpr (B::of2 == 1) return {e + log.first, log.second};
  if constexpr (B::of2 != 1) return {fma(e, V(B::of2_head), log.first), fma(e, V(B::of2_tail), log.second)};
}

// LA and EP.
template <class Base, class V, size_t N>
[[gnu::always_inline]] inline V octave_log_in_one(V x, const Element<V> (&p)[N]) {
  using B = typename Base::template Octave<Element<V>>;
  const OctaveKey<V> k(x);
  const auto row = octave_row<B::rows, V>(k.template row<std::size(B::rows)>());
  const V r = fms(row.first, k.m(), V(Element<V>(1)));
  return fma(r, horner(r, p), octave_log<Base>(k.centred_e(), row.second));
}

// HA. The exponent is `added` less.
template <class Base, class V>
[[gnu::always_inline]] inline V octave_log_in_two(V x, Element<V> added = 0) {
  using B = typename Base::template Octave<Element<V>>;
  const OctaveKey<V> k(x);
  const V r = fms(octave_reciprocal<Base, V>(k.row()), k.m(), V(Element<V>(1)));
  const HeadTail<V> table = octave_parts<Base>(added == 0 ? k.e() : k.e() - V(added), k.row());
  // The rounding error of the first sum, which is small against r only where the table's part is 0.
  const V head = fma(r, V(B::of_e), table.head);
  const V lost = fma(r, V(B::of_e), table.head - head);
  const V rest = fma(r, horner(r, B::ha), V(B::of_e_tail));
  return head + fma(r, rest, lost + table.tail);
}

}  // namespace orvik::zym

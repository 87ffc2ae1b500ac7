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
template <const auto& Rows, Double V, class At>
Pair<V> octave_row(const At& at) {
  if constexpr (kHasPermutes64<V>) {
    return {look_up_in_16(kColumns<Rows>.of[0], at), look_up_in_16(kColumns<Rows>.of[1], at)};
  } else {
    return gather(Rows, at);
  }
}

template <class V, template <class> class Exponent = NormalExponents>
struct OctaveKey {
  using I = Integer<V>;
  static constexpr int kBits = Format<V>::mantissa_bits;
  static constexpr Bits<V> kOne = Bits<V>{Format<V>::bias} << kBits;

  I bits;
  explicit OctaveKey(V x) : bits(as_bits(x)) {}
  V e() const { return Exponent<V>(as_float(bits)).numbers(); }
  // One more from m = 3/2 on; of x below 3/4 of what would overflow.
  V centred_e() const { return Exponent<V>(as_float(bits + I(Bits<V>{1} << (kBits - 1)))).numbers(); }
  template <size_t Rows = 16>
  I row() const {
    return shift_right<kBits + 1 - std::bit_width(Rows)>(bits);
  }
  // The same for the look-ups below: where they are to memory, one for all of them.
  template <size_t Rows = 16>
  auto at() const {
    if constexpr (Single<V> || kHasPermutes64<V>) {
      return row<Rows>();
    } else {
      return row_indices(row<Rows>() & I(Bits<V>{Rows - 1}));
    }
  }
  V m() const { return as_float((bits & I((Bits<V>{1} << kBits) - 1)) | I(kOne)); }
  // 2^-e c.
  V scaled(V c) const { return as_float(as_bits(c) + I(kOne) - (bits & I(Format<V>::exponent_field))); }
};

// The reciprocals of doubles by their high words, which are all of them: without permutes of doubles these come from
// registers too, since everything waits for them.
struct HighWords {
  alignas(64) float of[16];
  explicit constexpr HighWords(const double (&rows)[16][2]) : of{} {
    for (int i = 0; i < 16; ++i) {
      of[i] = std::bit_cast<float>(static_cast<uint32_t>(std::bit_cast<uint64_t>(rows[i][0]) >> 32));
    }
  }
};
template <const auto& Rows>
inline constexpr HighWords kHighWords(Rows);
template <const auto& Rows>
F64 reciprocal_by_words(I64 bits) {
  const I32 words = as_bits(look_up_in_sixteen(kHighWords<Rows>.of, as_words(shift_right<16>(bits))));
  return as_float(as_long_words(words) & I64(uint64_t{0xFFFFFFFF00000000}));
}
template <const auto& Rows, class I>
Twice<F64> reciprocal_by_words(Twice<I> bits) {
  return {reciprocal_by_words<Rows>(bits.low), reciprocal_by_words<Rows>(bits.high)};
}

// c alone, of sixteen rows.
template <const auto& Rows, Double V, class Key, class At>
V reciprocal_of(const Key& k, const At& at) {
  if constexpr (kHasPermutes64<V>) {
    return look_up_in_16(kColumns<Rows>.of[0], at);
  } else if constexpr (std::is_same_v<V, double>) {
    return gather(kColumns<Rows>.of[0], at);
  } else {
    return reciprocal_by_words<Rows>(k.bits);
  }
}
template <class Base, class V, class Key, class At>
V octave_reciprocal(const Key& k, const At& at) {
  using B = typename Base::template Octave<Element<V>>;
  if constexpr (Single<V>) return look_up_16<V>(B::reciprocals, at);
  if constexpr (Double<V>) return reciprocal_of<B::rows, V>(k, at);
}
// c, and its logarithm with the other sign.
template <const auto& Rows, class V, class Key, class At>
Pair<V> octave_pair(const Key& k, const At& at) {
  if constexpr (Single<V> || kHasPermutes64<V>) {
    return octave_row<Rows, V>(at);
  } else {
    return {reciprocal_of<Rows, V>(k, at), gather(kColumns<Rows>.of[1], at)};
  }
}

// e log(2) - log(c), rounded.
template <class Base, class V>
V octave_log(V e, V log) {
  using B = typename Base::template Octave<Element<V>>;
  if constexpr (B::of2 == 1) return e + log;
  if constexpr (B::of2 != 1) return fma(e, V(B::of2), log);
}

// The same in two parts, whose first is exact.
template <class Base, class V, class At>
HeadTail<V> octave_parts(V e, const At& at) {
  using B = typename Base::template Octave<Element<V>>;
  const auto log = octave_row<B::parts, V>(at);
  if constexpr (B::of2 == 1) return {e + log.first, log.second};
  if constexpr (B::of2 != 1) return {fma(e, V(B::of2_head), log.first), fma(e, V(B::of2_tail), log.second)};
}

// To base e: e log(2) - log(c) + r, rounded, and what that lacks, with what else is small.
template <class Base, class V, class At, class... Small>
HeadTail<V> octave_sum(V e, const At& at, V r, Small... small) {
  const HeadTail<V> table = octave_parts<Base>(e, at);
  const V head = table.head + r;
  return {head, ((r - (head - table.head)) + ... + small) + table.tail};
}

// Horner's rule in two chains, of odd and of even powers: half as long, for one step more.
template <class V, size_t N>
V horner_by_two(V x, const Element<V> (&c)[N]) {
  const V square = x * x;
  V first = V(c[0]), second = V(c[1]);
  for (size_t i = 2; i < N; ++i) {
    V& chain = i % 2 == 0 ? first : second;
    chain = fma(chain, square, V(c[i]));
  }
  return N % 2 == 0 ? fma(first, x, second) : fma(second, x, first);
}

// log(1 + r) / r. To base e it begins with 1, which is no coefficient.
template <class Base, class V, size_t N>
V octave_slope(V r, const Element<V> (&p)[N]) {
  if constexpr (Base::template Octave<Element<V>>::of_e == 1) return fma(r, horner(r, p), V(Element<V>(1)));
  if constexpr (Base::template Octave<Element<V>>::of_e != 1) return horner(r, p);
}

// LA and EP.
template <class Base, template <class> class Exponent = NormalExponents, class V, size_t N>
[[gnu::always_inline]] inline V octave_log_in_one(V x, const Element<V> (&p)[N]) {
  using B = typename Base::template Octave<Element<V>>;
  const OctaveKey<V, Exponent> k(x);
  const auto row = octave_pair<B::rows, V>(k, k.template at<std::size(B::rows)>());
  const V r = fms(row.first, k.m(), V(Element<V>(1)));
  return fma(r, octave_slope<Base>(r, p), octave_log<Base>(k.centred_e(), row.second));
}

// ln x as head and tail, |tail| below 2^-8, within 2^-62. The exponent is `added` less.
template <template <class> class Exponent = NormalExponents, Double V>
[[gnu::always_inline]] inline HeadTail<V> ln_head_tail(V x, double added = 0) {
  const OctaveKey<V, Exponent> k(x);
  const auto at = k.at();
  const V r = fms(octave_reciprocal<BaseE, V>(k, at), k.m(), V(1.0));
  const HeadTail<V> sum = octave_sum<BaseE>(added == 0 ? k.e() : k.e() - V(added), at, r);
  const V cubic = fma(r * r * r, horner_by_two(r, BaseE::Octave<double>::ha), sum.tail);
  return {sum.head, fma(V(-0.5) * r, r, cubic)};  // r^2/2 rounded with the rest
}

// HA. The exponent is `added` less.
template <class Base, template <class> class Exponent = NormalExponents, class V>
[[gnu::always_inline]] inline V octave_log_in_two(V x, Element<V> added = 0) {
  if constexpr (std::is_same_v<Base, BaseE>) {
    const HeadTail<V> ln = ln_head_tail<Exponent>(x, added);
    return ln.head + ln.tail;
  } else {
    using B = typename Base::template Octave<Element<V>>;
    const OctaveKey<V, Exponent> k(x);
    const auto at = k.at();
    const V r = fms(octave_reciprocal<Base, V>(k, at), k.m(), V(Element<V>(1)));
    const HeadTail<V> table = octave_parts<Base>(added == 0 ? k.e() : k.e() - V(added), at);
    // The rounding error of the first sum, which is small against r only where the table's part is 0.
    const V head = fma(r, V(B::of_e), table.head);
    const V lost = fma(r, V(B::of_e), table.head - head);
    const V rest = fma(r, horner(r, B::ha), V(B::of_e_tail));
    return head + fma(r, rest, lost + table.tail);
  }
}

}  // namespace orvik::zym

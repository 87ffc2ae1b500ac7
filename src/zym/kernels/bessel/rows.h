// Look-up and evaluation of the tables of expansions (tables.h).
#pragma once

#include <type_traits>

#include "lanes/lanes.h"
#include "zym/kernels/bessel/tables.h"

namespace orvik::zym::bessel {

// Arguments from here on lie behind the rows.
inline constexpr double kRowsEnd = 63.75, kModifiedRowsEnd = 31.75, kSingularRowsBegin = 0x1p-5;
inline constexpr double kRowsLast = 0x1.fdfffffffffffp5;  // the number below kRowsEnd

// Number of the evenly spaced row of a non-negative argument: twice it, rounded.
template <Double V>
[[gnu::always_inline]] inline Integer<V> even_row(V a) {
  return as_bits(a + V(kShifter64 / 2)) & Integer<V>(uint64_t{255});
}
// Number of the row of a function that is singular at 0.
template <Double V>
[[gnu::always_inline]] inline Integer<V> singular_row(V a) {
  const Integer<V> even = even_row(a) + Integer<V>(uint64_t{48});
  return select(a < V(4.0), shift_right<49>(as_bits(a)) - Integer<V>(uint64_t{1018 * 8}), even);
}

// Columns 4 Part to 4 Part + 3 of rows of 4 Parts columns; k: rows times Parts.
template <Double V, int Part, class Rows, class Indexes>
[[gnu::always_inline]] inline Quad<V> columns(const Rows& rows, const Indexes& k) {
  return gather(reinterpret_cast<const double(*)[4]>(&rows[0][0]) + Part, k);
}

// value + slope h + h^2 P(h): the first sum keeps what it lost. The value is the larger term, or 0. With Fine the
// second sum keeps it too, for what is computed on: the error is below 2^-59 of the function's amplitude instead of
// 2^-57.
template <bool Fine = false, Double V, size_t N>
[[gnu::always_inline]] inline HeadTail<V> expand(const double (&rows)[N][16], Integer<V> row, V a) {
  const auto k = row_indices(shift_left<2>(row));
  const Quad<V> last = columns<V, 3>(rows, k), first = columns<V, 0>(rows, k);
  const Quad<V> second = columns<V, 1>(rows, k), third = columns<V, 2>(rows, k);
  const V h = a - last.c[2];
  const V p = horner(h, first.c[0], first.c[1], first.c[2], first.c[3], second.c[0], second.c[1], second.c[2],
                     second.c[3], third.c[0]);
  const V slope = third.c[2], value = third.c[3];
  const HeadTail<V> rise = two_prod(slope, h);
  const HeadTail<V> sum = fast_two_sum(value, rise.head);
  const V lost = fma(last.c[0], h, last.c[1] + (sum.tail + rise.tail));
  if constexpr (Fine) {
    const HeadTail<V> square = two_square(h);
    const HeadTail<V> bend = two_prod(square.head, third.c[1]);
    const HeadTail<V> total = two_sum(sum.head, bend.head);
    const V bend_tail = fma(square.head, last.c[3], fma(square.tail, third.c[1], bend.tail));
    return {total.head, fma(square.head * h, p, total.tail + (bend_tail + lost))};
  } else {
    return {sum.head, fma(h * h, fma(p, h, third.c[1]), lost)};
  }
}

// value + h P(h) for results of 32 bits.
template <Double V, size_t N>
[[gnu::always_inline]] inline V expand(const double (&rows)[N][8], Integer<V> row, V a) {
  const auto k = row_indices(shift_left<1>(row));
  const Quad<V> first = columns<V, 0>(rows, k), last = columns<V, 1>(rows, k);
  const V h = a - last.c[3];
  return horner(h, first.c[0], first.c[1], first.c[2], first.c[3], last.c[0], last.c[1], last.c[2]);
}

}  // namespace orvik::zym::bessel

// The polynomials of the gamma functions in lanes, and what goes with every row.
#pragma once

#include "lanes/lanes.h"
#include "zym/kernels/gamma/constants.h"
#include "zym/kernels/gamma/tables.h"

namespace orvik::zym::gamma {

// A function of doubles over floats, both halves of a register interleaved.
template <class F, Single V>
[[gnu::always_inline]] inline V in_doubles(F function, V x) {
  if constexpr (std::is_same_v<V, F32>) {
    const Twice<F64> r = function(Twice<F64>(widen_low(x), widen_high(x)));
    return narrow(r.low, r.high);
  } else {
    return narrow(function(widen_low(x)), function(widen_high(x)));
  }
}

inline constexpr int kRest = sizeof kGammaRest[0] / sizeof(double);

// Where x lies: n = 4 x rounded, the exact rest of x, and for n < 4 (`low`) the distance from the pole that the row
// divides out, exact too; for others x itself.
template <Double V>
struct Place {
  V n, rest, distance;
  Mask<V> low;
  explicit Place(V x) : Place(x, x) {}
  Place(V x, V in_rows) {
    n = shift_round(in_rows, V(4.0)).n;
    rest = fnma(n, V(0.25), in_rows);
    low = n < V(4.0);
    distance = x - min(round<Direction::down>(fma(n, V(0.25), V(0.5))), V(0.0));
  }
};

// Row k of the tables, counted from 0, k an integer.
template <Double V>
class Row {
 public:
  explicit Row(V k) : heads_(bits(k + V(kShifter64))), rest_(bits(fma(k, V(kRest / 2), V(kShifter64)))) {}

  // By the lowest `Count` coefficients of the rest and those below them.
  template <int Count>
  V value(V x) const {
    const Pair<V> heads = gather(kGammaHeads, heads_);
    return fma(fma(rest<Count>(x), x, heads.first), x, heads.second);
  }
  // The sums of the lowest three with what they lose: each power of x takes a factor of 2 or more off an error.
  HeadTail<V> head_tail(V x) const {
    const Pair<V> heads = gather(kGammaHeads, heads_), tails = gather(kGammaTails, heads_);
    const Pair<V> lowest = gather(pairs<2>(), rest_), lowest_tails = gather(kGammaRestTails, heads_);
    V terms[kRest / 2 - 1];
    gather_terms<kRest>(x, terms);
    const V third = fma(by_halves(terms, x * x), x, lowest.first) * x;
    const HeadTail<V> second =
        product(x, fast_two_sum(lowest.second, third), fma(lowest_tails.first, x, lowest_tails.second));
    const HeadTail<V> first = product(x, fast_two_sum(heads.first, second.head), second.tail + tails.first);
    const HeadTail<V> sum = fast_two_sum(heads.second, first.head);
    return {sum.head, sum.tail + (first.tail + tails.second)};
  }
  // What x adds to the value's own.
  V increment(V x) const { return fma(rest<kRest>(x), x, gather(kGammaHeads, heads_).first) * x; }

 private:
  using At = decltype(row_indices(Integer<V>(uint64_t{0})));

  static At bits(V sum) { return row_indices(as_bits(sum) & Integer<V>(uint64_t{0xFFFF})); }

  template <int Count>
  V rest(V x) const {
    static_assert(Count % 2 == 0);
    V terms[Count / 2];
    gather_terms<Count>(x, terms);
    return by_halves(terms, x * x);
  }
  // The lowest `Count` columns of the rest, by twos.
  template <int Count>
  static const double (*pairs())[2] {
    return reinterpret_cast<const double(*)[2]>(kGammaRest) + (kRest - Count) / 2;
  }
  // From the highest of them down, by twos as linear terms.
  template <int Count, int N>
  void gather_terms(V x, V (&terms)[N]) const {
    gather_rows<N>(pairs<Count>(), rest_,
                   [&](int j, Pair<V> next)
                       __attribute__((always_inline)) { terms[j] = fma(next.first, x, next.second); });
  }
  // x (a + more).
  static HeadTail<V> product(V x, HeadTail<V> a, V more) {
    const HeadTail<V> p = two_prod(x, a.head);
    return {p.head, fma(x, a.tail + more, p.tail)};
  }
  // The polynomial with these coefficients, from the highest power down, joined by twos (Estrin 1960): the rows'
  // latency is what lanes wait for.
  template <int N>
  static V by_halves(const V (&terms)[N], V x) {
    constexpr int kHalf = (N + 1) / 2;
    V joined[kHalf];
#pragma GCC unroll 8
    for (int j = 0; j < kHalf; ++j) {
      const int low = N - 1 - 2 * (kHalf - 1 - j);
      joined[j] = low > 0 ? fma(terms[low - 1], x, terms[low]) : terms[low];
    }
    if constexpr (kHalf == 1) {
      return joined[0];
    } else {
      return by_halves(joined, x * x);
    }
  }

  At heads_, rest_;
};

}  // namespace orvik::zym::gamma

// Runs of elements of WH, in registers of either width. The four members of one element are lanes of a register of
// doubles, those of the fourth element behind it the other lanes of a wide one.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "qor/brng/sinks.h"
#include "qor/brng/wh.h"

namespace orvik::qor {

struct WhState {
  uint32_t x[4], a[4];
};

// Elements, four registers of them, and the reciprocals of the moduli that make numbers of them.
struct WhElements {
  F64 x[4], reciprocal;
};

struct WhLoader {
  using Vector = WhElements;
  struct Element {
    uint32_t word[4];
  };
  static constexpr double kDoubleScale = 1;

  static void store_all(Element* r, const Vector& w) {
    unroll<4>([&](auto k) __attribute__((always_inline)) { store_fours(r[k].word, 16, truncated_words(w.x[k])); });
  }
  static void store_first(Element* r, const Vector& w, int count) {
    Element all[kLongs];
    store_all(all, w);
    for (int k = 0; k < count; ++k) r[k] = all[k];
  }
  static double first_double(const Vector& w) {
    const double sum = sum_of_four(w.x[0] * w.reciprocal);
    return sum - __builtin_trunc(sum);
  }
  // The fraction of the sum, whose terms are added in their order.
  template <int N>
  static void to_doubles(const Vector (&w)[N], F64 (&u)[N]) {
    unroll<N>([&](auto g) __attribute__((always_inline)) {
      F64 term[4];
      unroll<4>([&](auto k) __attribute__((always_inline)) { term[k] = w[g].x[k] * w[g].reciprocal; });
      transpose(term);
      const F64 sum = ((term[0] + term[1]) + term[2]) + term[3];
      u[g] = sum - truncated(sum);
    });
  }
};

// Residues of the four moduli.
struct Moduli {
  Moduli(const uint32_t* moduli, const double* reciprocals)
      : modulus(to_double(load_fours(moduli))), reciprocal(load_fours(reciprocals)) {}
  F64 multiply(F64 x, F64 a) const {
    const F64 product = x * a;
    return fnma(modulus, truncated(product * reciprocal), product);
  }
  F64 modulus, reciprocal;
};

// n elements, at least a register's of each of four, from the state on; `m` are its moduli. Products stay below 2^48;
// the moduli are prime and no member is 0, so that no product comes close enough to a multiple of its modulus for the
// truncated quotient to be wrong.
template <class Sink>
void run_wh(WhState& state, const Moduli& m, int32_t n, const Sink& target) {
  const Sink sink = target;  // a copy: for all the compiler knows the results might overlap it
  const F64 x = to_double(load_fours(state.x)), a = to_double(load_fours(state.a));
  const F64 a2 = m.multiply(a, a), a4 = m.multiply(a2, a2), a8 = m.multiply(a4, a4);
  const F64 x1 = m.multiply(x, a);
  WhElements w[2] = {{{x, x1, m.multiply(x, a2), m.multiply(x1, a2)}, m.reciprocal}, {{}, m.reciprocal}};
  constexpr bool kWide = kLongs == 8;
  if constexpr (kWide) {
    const F64 spread = four_and_others(F64(1.0), a4);
    unroll<4>([&](auto k) __attribute__((always_inline)) { w[0].x[k] = m.multiply(w[0].x[k], spread); });
  }
  const F64 one = kWide ? a8 : a4, two = m.multiply(one, one);  // registers on
  unroll<4>([&](auto k) __attribute__((always_inline)) { w[1].x[k] = m.multiply(w[0].x[k], one); });
  ptrdiff_t i = 0;
  for (; i + 2 * kLongs <= n; i += 2 * kLongs) {
    sink.group(i, w);
    unroll<2>([&](auto g) __attribute__((always_inline)) {
      unroll<4>([&](auto k) __attribute__((always_inline)) { w[g].x[k] = m.multiply(w[g].x[k], two); });
    });
  }
  const int rest = static_cast<int>(n - i), whole = rest / kLongs, some = rest % kLongs;
  if (whole > 0) put_one(sink, i, w[0]);
  if (some != 0) sink.some(i + kLongs * whole, w[whole], some);
  uint32_t last[kLongs];
  store(last, truncated_words(w[whole].x[some % 4]));
  memcpy(state.x, last + some / 4 * 4, sizeof state.x);
}

using WhDoubles = DoubleLongs<WhLoader>;
using WhFloats = RoundedLongs<WhLoader>;
using WhWords = RawLongs<WhLoader>;

// The same, compiled for registers of 512 bits.
using WideWh = void(Form form, WhState& state, const uint32_t* moduli, const double* reciprocals, int32_t n,
                    const Target& target);
extern "C" WideWh orvik_qor_wide_wh;
// From so many elements on they pay: of numbers, of residues as they are.
inline constexpr int32_t kWideWhNumbers = 40, kWideWhWords = 96;

}  // namespace orvik::qor

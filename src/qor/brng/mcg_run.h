// Runs of members of the congruential generators, in registers of either width.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "qor/brng/mcg_moduli.h"
#include "qor/brng/sinks.h"

namespace orvik::qor {

// The powers A^4, A^8 ... A^32, `step` words apart.
struct McgPowers {
  const uint64_t* first;
  ptrdiff_t step;
  uint64_t of(int fours) const { return first[(fours - 1) * step]; }
};

// Delivers n members from those of four consecutive lanes on, and leaves in these what follows.
template <class Modulus, class Sink>
void run_lanes(uint64_t* members, McgPowers powers, int32_t n, const Sink& sink) {
  using Factor = typename Modulus::Factor;
  using Vector = typename Modulus::Vector;
  constexpr int kFours = kLongs / 4;  // a register holds so many times four
  constexpr int kSteps = 8 / kFours;  // registers of a round, which moves on by A^32
  constexpr int kGroup = 2;           // products that are made together
  const auto factor_of = [powers](int step) { return Factor(I64(powers.of(kFours * step))); };
  auto lane = Modulus::enter(load_fours(members));
  Vector w[1], after[1];
  if constexpr (kFours > 1) {
    const Factor spread(four_and_others(I64(uint64_t{1}), I64(powers.of(1))));
    Modulus::multiply(lane, &spread, w);
    lane = Modulus::lanes(w[0]);
  }
  ptrdiff_t i = 0;
  if (n >= 32) {
    const Sink own = sink;  // a copy: for all the compiler knows the results might overlap it
    Factor factor[kSteps];
    for (int j = 0; j < kSteps; ++j) factor[j] = factor_of(j + 1);
    for (; i + 32 <= n; i += 32) {
      unroll<kSteps / kGroup>([&](auto g) __attribute__((always_inline)) {
        Vector group[kGroup];
        if constexpr (g == 0) {
          Vector behind[kGroup - 1];
          Modulus::multiply(lane, factor, behind);
          group[0] = Modulus::unit(lane);
          unroll<kGroup - 1>([&](auto k) __attribute__((always_inline)) { group[k + 1] = behind[k]; });
        } else {
          Modulus::multiply(lane, factor + g * kGroup - 1, group);
        }
        own.group(i + kLongs * kGroup * g, group);
      });
      Modulus::multiply(lane, factor + kSteps - 1, after);
      lane = Modulus::lanes(after[0]);
    }
  }
  const Factor next[2] = {factor_of(1), factor_of(2)};
  for (; i + 2 * kLongs <= n; i += 2 * kLongs) {
    Vector behind[2];
    Modulus::multiply(lane, next, behind);
    const Vector pair[2] = {Modulus::unit(lane), behind[0]};
    sink.group(i, pair);
    lane = Modulus::lanes(behind[1]);
  }
  w[0] = Modulus::unit(lane);
  if (i + kLongs <= n) {
    sink.group(i, w);
    Modulus::multiply(lane, next, after);
    lane = Modulus::lanes(after[0]);
    w[0] = Modulus::unit(lane);
    i += kLongs;
  }
  const int rest = static_cast<int>(n - i);
  if (rest > 0) {
    sink.some(i, w[0], rest);
    Modulus::multiply(lane, next, after);
    // The lanes stay consecutive members.
    store_four(members, longs_from(Modulus::leave(lane), Modulus::leave(Modulus::lanes(after[0])), rest));
  } else {
    store_four(members, Modulus::leave(lane));
  }
}

// The same, compiled for registers of 512 bits.
using WideMcg = void(Form form, uint64_t* members, McgPowers powers, int32_t n, const Target& target);
extern "C" WideMcg orvik_qor_wide_mcg31m1, orvik_qor_wide_mcg59;
// From so many members on they pay.
inline constexpr int32_t kWideMcgMembers = 64;

}  // namespace orvik::qor

// Blocks of MRG32K3A in registers of either width. L words for each lane are made by lanes that stand L words apart:
// each steps L times, and as many steps as a register holds words are transposed into words in a row of each lane. The
// lanes are put in their places by the powers A^(k L).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "lanes/words.h"
#include "qor/brng/mrg32k3a.h"
#include "qor/brng/sinks.h"
#include "qor/unroll.h"

namespace orvik::qor {

// As many lanes as words in a register, in two registers.
inline constexpr int kMrgLanes = kWords;
struct MrgLanes {
  I64 half[2];
};
// Where lane k stands among the places, L words apart each: so that packing the low words of two registers puts them in
// order.
constexpr int mrg_place(int k) {
  const int half = k / (kMrgLanes / 2), lane = k % (kMrgLanes / 2);
  return 4 * (lane / 2) + 2 * half + lane % 2;
}
// Nine entries of A^(k L) for each lane.
struct Spread {
  alignas(64) uint64_t entry[9][kMrgLanes];
};

template <int kLog>  // L = 2^kLog
constexpr Spread make_spread(const PowerTable& powers, uint32_t modulus) {
  Spread s = {};
  Matrix3 m = identity3();
  for (int place = 0; place < kMrgLanes; ++place) {
    for (int lane = 0; lane < kMrgLanes; ++lane)
      if (mrg_place(lane) == place)
        for (int e = 0; e < 9; ++e) s.entry[e][lane] = m.m[e];
    m = multiply(powers.power[kLog], m, modulus);
  }
  return s;
}

template <int kLog>
struct Spreads {
  static constexpr Spread kFirst = make_spread<kLog>(kMrgPowers1, kMrgModulus1);
  static constexpr Spread kSecond = make_spread<kLog>(kMrgPowers2, kMrgModulus2);
};

// Residues modulo 2^32 - kGap.
template <uint32_t kGap>
struct Residue {
  static constexpr uint64_t kModulus = (uint64_t{1} << 32) - kGap;

  // 2^32 counts as kGap: below 2^32 + kGap (s div 2^32).
  static I64 fold(I64 s) { return s - multiply_low_words(shift_right<32>(s), I64(kModulus)); }
  // Of values below twice the modulus.
  static I64 finish(I64 s) { return wrap_down(s, I64(kModulus)); }
};
using Mod1 = Residue<209>;
using Mod2 = Residue<22853>;

inline I64 first_step(I64 middle, I64 oldest) {
  const I64 m(Mod1::kModulus);
  const I64 s =
      multiply_low_words(I64(uint64_t{1403580}), middle) + multiply_low_words(I64(uint64_t{810728}), m - oldest);
  return Mod1::finish(Mod1::fold(s));  // s < 2^54: one fold leaves less than 2^32 + 2^30
}
inline I64 second_step(I64 newest, I64 oldest) {
  const I64 m(Mod2::kModulus);
  const I64 s =
      multiply_low_words(I64(uint64_t{527612}), newest) + multiply_low_words(I64(uint64_t{1370589}), m - oldest);
  return Mod2::finish(Mod2::fold(Mod2::fold(s)));
}

// Row r of the lanes' matrices times a vector.
template <class Mod>
I64 row_product(const Spread& s, int r, int half, const I64 (&v)[3]) {
  I64 sum = Mod::fold(multiply_low_words(load_words(s.entry[3 * r] + kMrgLanes / 2 * half), v[0]));
  sum = sum + Mod::fold(multiply_low_words(load_words(s.entry[3 * r + 1] + kMrgLanes / 2 * half), v[1]));
  sum = sum + Mod::fold(multiply_low_words(load_words(s.entry[3 * r + 2] + kMrgLanes / 2 * half), v[2]));
  return Mod::finish(Mod::fold(Mod::fold(sum)));
}

template <class Mod>
void spread_out(const Spread& s, const uint32_t* member, MrgLanes (&out)[3]) {
  const I64 v[3] = {I64(uint64_t{member[0]}), I64(uint64_t{member[1]}), I64(uint64_t{member[2]})};
  for (int half = 0; half < 2; ++half)
    for (int r = 0; r < 3; ++r) out[r].half[half] = row_product<Mod>(s, r, half, v);
}

struct MrgUnit {
  static constexpr double kUnit = 0x1.000000D10000Bp-32;  // 1/(2^32 - 209)
};
using MrgFloats = FloatSink<ToFloats<Unsigned, InDouble<FromLow<MrgUnit>>>>;
using MrgDoubles = DoubleSink<ToDoubles<Unsigned, FromLow<MrgUnit>>>;

// The next word.
inline uint32_t mrg_step(Mrg32k3aState& s) {
  const uint64_t x = (uint64_t{1403580} * s.x[1] + uint64_t{810728} * (kMrgModulus1 - s.x[0])) % kMrgModulus1;
  const uint64_t y = (uint64_t{527612} * s.y[2] + uint64_t{1370589} * (kMrgModulus2 - s.y[0])) % kMrgModulus2;
  s = {{s.x[1], s.x[2], static_cast<uint32_t>(x)}, {s.y[1], s.y[2], static_cast<uint32_t>(y)}};
  return static_cast<uint32_t>(x > y ? x - y : x - y + kMrgModulus1);
}

struct MrgBlocks {
  // As many steps of all lanes as a register holds words: w[k] are those in a row from lane k.
  static void steps(MrgLanes (&x)[3], MrgLanes (&y)[3], I32 (&w)[kWords]) {
    unroll<kWords>([&](auto t) __attribute__((always_inline)) {
      I64 word[2];
      for (int half = 0; half < 2; ++half) {
        const I64 next_x = first_step(x[1].half[half], x[0].half[half]);
        const I64 next_y = second_step(y[2].half[half], y[0].half[half]);
        word[half] = wrap_up(next_x, next_y, I64(Mod1::kModulus));
        x[0].half[half] = x[1].half[half];
        x[1].half[half] = x[2].half[half];
        x[2].half[half] = next_x;
        y[0].half[half] = y[1].half[half];
        y[1].half[half] = y[2].half[half];
        y[2].half[half] = next_y;
      }
      w[t] = low_words_by_halves(word[0], word[1]);
    });
    transpose(w);
  }

  // The members of the lane at a place.
  static uint32_t member(const MrgLanes& lanes, int place) {
    uint64_t lane[kMrgLanes / 2];
    store(lane, lanes.half[place / 2 % 2]);
    return static_cast<uint32_t>(lane[place / 4 * 2 + place % 2]);
  }
  static void take(Mrg32k3aState& state, const MrgLanes (&x)[3], const MrgLanes (&y)[3], int place) {
    for (int k = 0; k < 3; ++k) {
      state.x[k] = member(x[k], place);
      state.y[k] = member(y[k], place);
    }
  }

  // kMrgLanes * 2^kLog words.
  template <int kLog, class Sink>
  static void block(Mrg32k3aState& state, const Sink& sink, ptrdiff_t i) {
    constexpr int kSteps = 1 << kLog;
    MrgLanes x[3], y[3];
    spread_out<Mod1>(Spreads<kLog>::kFirst, state.x, x);
    spread_out<Mod2>(Spreads<kLog>::kSecond, state.y, y);
    static_assert(kSteps % kWords == 0);
    for (int t = 0; t < kSteps; t += kWords) {
      I32 w[kWords];
      steps(x, y, w);
      unroll<kWords>([&](auto lane) __attribute__((always_inline)) { put_one(sink, i + kSteps * lane + t, w[lane]); });
    }
    take(state, x, y, kMrgLanes - 1);
  }

  // The shortest block: as many words a lane as a register holds.
  static constexpr int kShortest = kWords == 8 ? 3 : 4;
  // From so many words on a part of it is quicker than they are one by one, or by shorter registers.
  static constexpr int kLeast = kWords == 8 ? 24 : 160;

  // Apart from the loops, whose registers it would take.
  template <class Sink>
  [[gnu::noinline]] static void part(Mrg32k3aState& state, const Sink& sink, ptrdiff_t i, int count) {
    MrgLanes x[3], y[3];
    spread_out<Mod1>(Spreads<kShortest>::kFirst, state.x, x);
    spread_out<Mod2>(Spreads<kShortest>::kSecond, state.y, y);
    const int whole = count / kWords, rest = count % kWords;
    take(state, x, y, whole);
    for (int k = 0; k < rest; ++k) mrg_step(state);
    I32 w[kWords];
    steps(x, y, w);
    unroll<kWords>([&](auto lane) __attribute__((always_inline)) {
      if (lane < whole) put_one(sink, i + kWords * lane, w[lane]);
      if (lane == whole && rest != 0) sink.some(i + kWords * lane, w[lane], rest);
    });
  }

  // Delivers whole blocks from index i on, the longer ones first, and a part of one; returns the next index.
  template <class Sink>
  static ptrdiff_t deliver(Mrg32k3aState& state, ptrdiff_t i, ptrdiff_t n, const Sink& sink) {
    for (; i + (kMrgLanes << 8) <= n; i += kMrgLanes << 8) block<8>(state, sink, i);
    for (; i + (kMrgLanes << 5) <= n; i += kMrgLanes << 5) block<5>(state, sink, i);
    for (; i + (kMrgLanes << kShortest) <= n; i += kMrgLanes << kShortest) block<kShortest>(state, sink, i);
    if (n - i < kLeast) return i;
    part(state, sink, i, static_cast<int>(n - i));
    return n;
  }
};

// The same, compiled for registers of 512 bits.
using WideMrg = ptrdiff_t(Form form, Mrg32k3aState& state, ptrdiff_t i, ptrdiff_t n, const Target& target);
extern "C" WideMrg orvik_qor_wide_mrg32k3a;
// From so many words on it pays.
inline constexpr ptrdiff_t kWideMrgWords = 160;

}  // namespace orvik::qor

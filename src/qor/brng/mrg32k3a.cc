// MRG32K3A: two recurrences of third order, combined (L'Ecuyer 1999).
//
// Blocks of 8 L words are made by eight lanes that stand L words apart: each lane steps L times, eight steps at a time
// are transposed into eight words in a row of each lane. The lanes are put in their places by the powers A^(k L).
#include "qor/brng/mrg32k3a.h"

#include <string.h>

#include "qor/brng/entries.h"
#include "qor/brng/sinks.h"
#include "qor/stream/restore.h"

namespace orvik::qor {

constexpr PowerTable kPowers1 = make_powers(kMrgFirst, kMrgModulus1), kPowers2 = make_powers(kMrgSecond, kMrgModulus2);
const PowerTable Mrg32k3aPowers1 = kPowers1, Mrg32k3aPowers2 = kPowers2;

namespace {

// Words that eight steps make: lane k of a Lanes stands for place kPlace[k] of eight in a row, so that packing the low
// words of two vectors of four puts them in order.
constexpr int kPlace[8] = {0, 1, 4, 5, 2, 3, 6, 7};

struct Lanes {
  I64 half[2];
};
// Nine entries of A^(k L) for each of eight lanes.
struct Spread {
  alignas(32) uint64_t entry[9][8];
};

template <int kLog>  // L = 2^kLog
constexpr Spread make_spread(const PowerTable& powers, uint32_t modulus) {
  Spread s = {};
  Matrix3 m = identity3();
  for (int place = 0; place < 8; ++place) {
    for (int lane = 0; lane < 8; ++lane)
      if (kPlace[lane] == place)
        for (int e = 0; e < 9; ++e) s.entry[e][lane] = m.m[e];
    m = multiply(powers.power[kLog], m, modulus);
  }
  return s;
}

template <int kLog>
struct Spreads {
  static constexpr Spread kFirst = make_spread<kLog>(kPowers1, kMrgModulus1);
  static constexpr Spread kSecond = make_spread<kLog>(kPowers2, kMrgModulus2);
};

// Residues modulo 2^32 - kGap.
template <uint32_t kGap>
struct Residue {
  static constexpr uint64_t kModulus = (uint64_t{1} << 32) - kGap;

  // 2^32 counts as kGap: below 2^32 + kGap (s div 2^32).
  static I64 fold(I64 s) {
    const I64 low = s & I64(uint64_t{0xFFFFFFFF});
    return low + multiply_low_words(shift_right<32>(s), I64(uint64_t{kGap}));
  }
  // Of values below twice the modulus.
  static I64 finish(I64 s) {
    const I64 less = s - I64(kModulus);
    return by_sign(less, less, s);
  }
};
using Mod1 = Residue<209>;
using Mod2 = Residue<22853>;

I64 first_step(I64 middle, I64 oldest) {
  const I64 m(Mod1::kModulus);
  const I64 s =
      multiply_low_words(I64(uint64_t{1403580}), middle) + multiply_low_words(I64(uint64_t{810728}), m - oldest);
  return Mod1::finish(Mod1::fold(s));  // s < 2^54: one fold leaves less than 2^32 + 2^30
}
I64 second_step(I64 newest, I64 oldest) {
  const I64 m(Mod2::kModulus);
  const I64 s =
      multiply_low_words(I64(uint64_t{527612}), newest) + multiply_low_words(I64(uint64_t{1370589}), m - oldest);
  return Mod2::finish(Mod2::fold(Mod2::fold(s)));
}
// x - y, and the modulus more where that is not positive.
I64 combined(I64 x, I64 y) {
  const I64 less = x - y - I64(uint64_t{1});
  return by_sign(less, less, less + I64(Mod1::kModulus)) + I64(uint64_t{1});
}

// Row r of the lanes' matrices times a vector.
template <class Mod>
I64 row_product(const Spread& s, int r, int half, const I64 (&v)[3]) {
  I64 sum = Mod::fold(multiply_low_words(load_words(s.entry[3 * r] + 4 * half), v[0]));
  sum = sum + Mod::fold(multiply_low_words(load_words(s.entry[3 * r + 1] + 4 * half), v[1]));
  sum = sum + Mod::fold(multiply_low_words(load_words(s.entry[3 * r + 2] + 4 * half), v[2]));
  return Mod::finish(Mod::fold(Mod::fold(sum)));
}

template <class Mod>
void spread_out(const Spread& s, const uint32_t* member, Lanes (&out)[3]) {
  const I64 v[3] = {I64(uint64_t{member[0]}), I64(uint64_t{member[1]}), I64(uint64_t{member[2]})};
  for (int half = 0; half < 2; ++half)
    for (int r = 0; r < 3; ++r) out[r].half[half] = row_product<Mod>(s, r, half, v);
}

}  // namespace

struct Mrg32k3a {
  using State = Mrg32k3aState;
  struct Unit {
    static constexpr double kUnit = 0x1.000000D10000Bp-32;  // 1/(2^32 - 209)
  };
  using Vector = I32;
  using Raw = RawSink;
  using Float = FloatSink<ToFloats<Unsigned, InDouble<FromLow<Unit>>>>;
  using Double = DoubleSink<ToDoubles<Unsigned, FromLow<Unit>>>;

  static uint32_t step(State& s) {
    const uint64_t x = (uint64_t{1403580} * s.x[1] + uint64_t{810728} * (kMrgModulus1 - s.x[0])) % kMrgModulus1;
    const uint64_t y = (uint64_t{527612} * s.y[2] + uint64_t{1370589} * (kMrgModulus2 - s.y[0])) % kMrgModulus2;
    s = {{s.x[1], s.x[2], static_cast<uint32_t>(x)}, {s.y[1], s.y[2], static_cast<uint32_t>(y)}};
    return static_cast<uint32_t>(x > y ? x - y : x - y + kMrgModulus1);
  }

  // Eight steps of all lanes.
  static void eight_steps(Lanes (&x)[3], Lanes (&y)[3], I32 (&w)[8]) {
    unroll<8>([&](auto t) __attribute__((always_inline)) {
      I64 word[2];
      for (int half = 0; half < 2; ++half) {
        const I64 next_x = first_step(x[1].half[half], x[0].half[half]);
        const I64 next_y = second_step(y[2].half[half], y[0].half[half]);
        word[half] = combined(next_x, next_y);
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

  // The last place's members: lane 3 of the second half.
  static uint32_t last_member(const Lanes& lanes) {
    uint64_t lane[4];
    store(lane, lanes.half[1]);
    return static_cast<uint32_t>(lane[3]);
  }

  // 8 * 2^kLog words.
  template <int kLog, class Sink>
  static void block(State& state, const Sink& sink, ptrdiff_t i) {
    constexpr int kSteps = 1 << kLog;
    Lanes x[3], y[3];
    spread_out<Mod1>(Spreads<kLog>::kFirst, state.x, x);
    spread_out<Mod2>(Spreads<kLog>::kSecond, state.y, y);
    for (int t = 0; t < kSteps; t += 8) {
      I32 w[8];
      eight_steps(x, y, w);
      unroll<8>([&](auto lane) __attribute__((always_inline)) { put_one(sink, i + kSteps * lane + t, w[lane]); });
    }
    for (int k = 0; k < 3; ++k) {
      state.x[k] = last_member(x[k]);
      state.y[k] = last_member(y[k]);
    }
  }

  template <SinkOf<Vector> Sink>
  static int32_t fill(OrvikStream stream, int32_t n, const Sink& target) {
    State& kept = state_of<State>(stream);
    State state = kept;
    const Sink sink = target;  // copies: for all the compiler knows the results might overlap them
    ptrdiff_t i = 0;
    for (; i + 2048 <= n; i += 2048) block<8>(state, sink, i);
    for (; i + 256 <= n; i += 256) block<5>(state, sink, i);
    for (; i + 64 <= n; i += 64) block<3>(state, sink, i);
    alignas(32) uint32_t few[16];
    while (i < n) {
      const int count = n - i < 8 ? static_cast<int>(n - i) : 8;
      for (int k = 0; k < count; ++k) few[k] = step(state);
      if (count == 8)
        put_one(sink, i, load_words(few));
      else
        sink.some(i, load_some(few, count), count);
      i += count;
    }
    kept = state;
    return ORVIK_QOR_OK;
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    State& s = state_of<State>(stream);
    uint32_t word[6] = {1, 1, 1, 1, 1, 1};
    for (int32_t i = 0; i < n && i < 6; ++i) word[i] = seeds[i];
    memcpy(&s, word, sizeof s);
    reduce(s);
    if ((s.x[0] | s.x[1] | s.x[2]) == 0) s.x[0] = 1;
    if ((s.y[0] | s.y[1] | s.y[2]) == 0) s.y[0] = 1;
    return ORVIK_QOR_OK;
  }

  static void reduce(State& s) {
    for (uint32_t& x : s.x) x = x >= kMrgModulus1 ? x - kMrgModulus1 : x;
    for (uint32_t& y : s.y) y = y >= kMrgModulus2 ? y - kMrgModulus2 : y;
  }

  static int32_t leapfrog(OrvikStream, int32_t, int32_t) { return ORVIK_QOR_NO_LEAPFROG; }

  static int32_t skip(OrvikStream stream, uint64_t count) {
    State& s = state_of<State>(stream);
    __qoriVect3PowMod(s.x, kMrgFirst, kMrgModulus1, count);
    return __qoriVect3PowMod(s.y, kMrgSecond, kMrgModulus2, count);
  }

  // The tables reach to 192 bits.
  static int32_t skip_long(OrvikStream stream, int32_t n, const uint64_t* count) {
    State& s = state_of<State>(stream);
    bool long_count = false;
    for (int32_t i = 3; i < n; ++i) long_count |= count[i] != 0;
    if (long_count) {
      __qoriVect3PowArrayMod(s.x, kMrgFirst, kMrgModulus1, n, count);
      return __qoriVect3PowArrayMod(s.y, kMrgSecond, kMrgModulus2, n, count);
    }
    const int32_t words = n < 3 ? n : 3;
    __qoriVect3PowArrayMod_M1(s.x, words, count, Mrg32k3aPowers1.data());
    __qoriVect3PowArrayMod_M2(s.y, words, count, Mrg32k3aPowers2.data());
    return ORVIK_QOR_OK;
  }
};
static_assert(record_size<Mrg32k3a::State>() == 40);

int32_t restore_mrg32k3a(OrvikStream stream) {
  Mrg32k3a::reduce(state_of<Mrg32k3aState>(stream));
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(MRG32K3A, orvik::qor::Mrg32k3a)

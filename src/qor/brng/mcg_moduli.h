// The two moduli of the congruential generators.
#pragma once

#include <stdint.h>

#include "qor/brng/sinks.h"

namespace orvik::qor {

struct Mod2P31M1 {
  using Element = uint32_t;
  static constexpr uint32_t kRow = 0;
  static constexpr int32_t kFew = 12;
  static constexpr uint64_t kMultiplier = 1132489760, kModulus = 0x7FFFFFFF;
  // The float scale is rounded to a power of two, the double one is not.
  static constexpr float kFloatScale = 0x1p-31f;
  static constexpr double kDoubleScale = 0x1.00000002p-31;

  static uint64_t member(int32_t n, const uint32_t* seeds) { return n <= 0 ? 1 : seeds[0] % kModulus; }

  static uint64_t residue(uint64_t x) { return x % kModulus; }
  // Below 2^62, so that one fold and one subtraction give the residue.
  static uint64_t multiply(uint64_t x, uint64_t a) {
    const uint64_t product = x * a, sum = (product & kModulus) + (product >> 31);
    return sum >= kModulus ? sum - kModulus : sum;
  }
  // A multiplier of the lanes.
  struct Factor {
    Factor() = default;
    explicit Factor(I64 power) : a(power) {}
    I64 a;
  };
  // Members, one a lane, and what they come from.
  using Lanes = I64;
  using Vector = I64;
  static Lanes enter(I64 x) { return x; }
  static I64 leave(Lanes x) { return x; }
  static Lanes lanes(Vector x) { return x; }
  static Vector unit(Lanes x) { return x; }
  template <int N>
  static void multiply(Lanes x, const Factor* f, Vector (&r)[N]) {
    const I64 m(kModulus);
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k] = multiply_low_words(x, f[k].a); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k] = (r[k] & m) + shift_right<31>(r[k]); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k] = smaller_unsigned(r[k], r[k] - m); });
  }
  static void store_all(uint32_t* r, Vector w) { store(r, low_words(w)); }
  static void store_first(uint32_t* r, Vector w, int count) { store_some(r, widen_to_words(low_words(w)), count); }
  template <int N>
  static void to_doubles(const Vector (&w)[N], F64 (&x)[N]) {
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      x[k] = as_float(w[k] | long_bits(0x4330000000000000)) - F64(0x1p52);
    });
  }
  // 31 bits have a sign to spare: one rounding.
  template <int N>
  static void to_floats(const Vector (&w)[N], F32 (&x)[(N + 1) / 2]) {
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) {
      constexpr int kOther = 2 * k + 1 < N ? 2 * k + 1 : 2 * k;
      x[k] = orvik::to_float(pack_low_words(w[2 * k], w[kOther]));
    });
  }
};

struct Mod2P59 {
  using Element = uint64_t;
  static constexpr uint32_t kRow = 1;
  static constexpr int32_t kFew = 24;
  static constexpr uint64_t kMultiplier = 302875106592253, kMask = (uint64_t{1} << 59) - 1;
  static constexpr float kFloatScale = 0x1p-59f;
  static constexpr double kDoubleScale = 0x1p-59;

  static uint64_t member(int32_t n, const uint32_t* seeds) {
    if (n <= 0) return 1;
    return n == 1 ? seeds[0] : (seeds[0] | static_cast<uint64_t>(seeds[1]) << 32) & kMask;
  }
  static uint64_t residue(uint64_t x) { return x & kMask; }
  static uint64_t multiply(uint64_t x, uint64_t a) { return x * a & kMask; }
  struct Factor {
    Factor() = default;
    explicit Factor(I64 power) : low(power), high(shift_right<32>(power)) {}
    I64 low, high;
  };
  // Lanes stand 5 bits higher, so that the modulus is that of the word. A product is `low`, and `high` added to its
  // upper half, of which only the low 32 bits count.
  using Lanes = I64;
  struct Vector {
    I64 low, high;
  };
  static Lanes enter(I64 x) { return shift_left<5>(x); }
  static I64 leave(Lanes x) { return shift_right<5>(x); }
  static Lanes lanes(Vector x) { return x.low + shift_left<32>(x.high); }
  static Vector unit(Lanes x) { return {x, I64(uint64_t{0})}; }
  template <int N>
  static void multiply(Lanes x, const Factor* f, Vector (&r)[N]) {
    const I64 upper = shift_right<32>(x);
    I64 cross[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      r[k].low = multiply_low_words(x, f[k].low);
      r[k].high = multiply_low_words(upper, f[k].low);
      cross[k] = multiply_low_words(x, f[k].high);
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) { r[k].high = r[k].high + cross[k]; });
  }
  static void store_all(uint64_t* r, Vector w) { store(r, leave(lanes(w))); }
  static void store_first(uint64_t* r, Vector w, int count) {
    store_some(reinterpret_cast<uint32_t*>(r), as_words(leave(lanes(w))), 2 * count);
  }
  // One rounding: halves against the biases 2^79 and 2^47.
  template <int N>
  static void to_doubles(const Vector (&w)[N], F64 (&x)[N]) {
    I64 high[N];
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = shift_right<32>(w[k].low); });
    unroll<N>([&](auto k) __attribute__((always_inline)) { high[k] = high[k] + w[k].high; });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      const I64 biased = with_high_words(high[k], long_bits(0x44E0000000000000));
      x[k] = as_float(biased) - F64(0x1p79 + 0x1p47);
    });
    unroll<N>([&](auto k) __attribute__((always_inline)) {
      x[k] = x[k] + as_float(with_high_words(w[k].low, long_bits(0x42E0000000000000)));
    });
  }
  // By way of the double, in two roundings.
  template <int N>
  static void to_floats(const Vector (&w)[N], F32 (&x)[(N + 1) / 2]) {
    unroll<(N + 1) / 2>([&](auto k) __attribute__((always_inline)) {
      const Vector pair[2] = {w[2 * k], w[2 * k + 1 < N ? 2 * k + 1 : 2 * k]};
      F64 d[2];
      to_doubles(pair, d);
      x[k] = narrow(d[0], d[1]);
    });
  }
};

}  // namespace orvik::qor

// The recurrences of the generators, one word at a time, as plainly as they can be written.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "orvik/qor.h"
#include "qor/brng/mt2203.h"

namespace orvik::models {

using Seeds = std::vector<uint32_t>;

struct Mcg31m1 {
  uint64_t x, a = 1132489760;
  explicit Mcg31m1(const Seeds& s) : x(s.empty() ? 1 : s[0] % 2147483647u) { x += x == 0; }
  uint64_t operator()() {
    const uint64_t out = x;
    x = x * a % 2147483647u;
    return out;
  }
};

struct Mcg59 {
  uint64_t x, a = 302875106592253;
  explicit Mcg59(const Seeds& s)
      : x(s.empty()       ? 1
          : s.size() == 1 ? s[0]
                          : (s[0] + (uint64_t{s[1]} << 32)) % (1ull << 59)) {
    x += x == 0;
  }
  uint64_t operator()() {
    const uint64_t out = x;
    x = x * a % (1ull << 59);
    return out;
  }
};

struct Twister {
  size_t n, m;
  uint32_t low, matrix, b, c;
  int first_shift;
  std::vector<uint32_t> mt;
  size_t k = 0;

  void seed(Seeds key) {
    if (key.empty()) key = {1};
    mt.assign(n, 0);
    mt[0] = 19650218;
    for (size_t i = 1; i < n; ++i) mt[i] = 1812433253u * (mt[i - 1] ^ (mt[i - 1] >> 30)) + static_cast<uint32_t>(i);
    size_t i = 1, j = 0;
    for (size_t left = std::max(n, key.size()); left > 0; --left) {
      mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1664525u)) + key[j] + static_cast<uint32_t>(j);
      if (++i == n) mt[0] = mt[n - 1], i = 1;
      if (++j == key.size()) j = 0;
    }
    for (size_t left = n - 1; left > 0; --left) {
      mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1566083941u)) - static_cast<uint32_t>(i);
      if (++i == n) mt[0] = mt[n - 1], i = 1;
    }
    mt[0] = 0x80000000u;
  }
  uint64_t operator()() {
    const uint32_t y = (mt[k] & ~low) | (mt[(k + 1) % n] & low);
    mt[k] = mt[(k + m) % n] ^ (y >> 1) ^ (y % 2 ? matrix : 0);
    uint32_t out = mt[k];
    k = (k + 1) % n;
    out ^= out >> first_shift;
    out ^= (out << 7) & b;
    out ^= (out << 15) & c;
    return out ^ (out >> 18);
  }
};

inline Twister mt19937(const Seeds& s) {
  Twister t{624, 397, 0x7FFFFFFF, 0x9908B0DF, 0x9D2C5680, 0xEFC60000, 11, {}};
  t.seed(s);
  return t;
}
inline Twister mt2203(int member, const Seeds& s) {
  const qor::Mt2203Set& p = qor::Mt2203Params[member];
  Twister t{69, 34, 0x1F, p.matrix_a, p.mask_b, p.mask_c, 12, {}};
  t.seed(s);
  return t;
}

using Block = std::array<uint32_t, 4>;

inline Block philox_block(Block c, uint32_t k0, uint32_t k1) {
  for (int round = 0; round < 10; ++round) {
    const uint64_t p0 = 0xD2511F53ull * c[0], p1 = 0xCD9E8D57ull * c[2];
    c = {static_cast<uint32_t>(p1 >> 32) ^ c[1] ^ k0, static_cast<uint32_t>(p1),
         static_cast<uint32_t>(p0 >> 32) ^ c[3] ^ k1, static_cast<uint32_t>(p0)};
    k0 += 0x9E3779B9;
    k1 += 0xBB67AE85;
  }
  return c;
}

inline uint8_t aes_times2(uint8_t v) { return static_cast<uint8_t>(v << 1 ^ (v & 0x80 ? 0x1B : 0)); }

inline std::array<uint8_t, 256> make_aes_box() {
  const auto product = [](uint8_t a, uint8_t b) {
    uint8_t r = 0;
    for (; b; b >>= 1, a = aes_times2(a))
      if (b & 1) r ^= a;
    return r;
  };
  std::array<uint8_t, 256> box{};
  for (int v = 0; v < 256; ++v) {
    uint8_t inverse = 1;
    for (int i = 0; i < 254; ++i) inverse = product(inverse, static_cast<uint8_t>(v));
    uint8_t r = 0x63;
    for (int s = 0; s < 5; ++s) r ^= static_cast<uint8_t>(inverse << s | inverse >> (8 - s));
    box[v] = r;
  }
  return box;
}

// One AES round in software (FIPS 197), state and round key as 16 bytes.
inline std::array<uint8_t, 16> aes_round(const std::array<uint8_t, 16>& in, const std::array<uint8_t, 16>& key,
                                         bool mix) {
  static const std::array<uint8_t, 256> box = make_aes_box();
  std::array<uint8_t, 16> s{}, out{};
  for (int column = 0; column < 4; ++column)
    for (int row = 0; row < 4; ++row) s[4 * column + row] = box[in[(4 * (column + row) + row) % 16]];
  for (int i = 0; i < 16; ++i) {
    const int column = i / 4 * 4, row = i % 4;
    const auto at = [&](int k) { return s[column + (row + k) % 4]; };
    out[i] = mix ? aes_times2(at(0)) ^ aes_times2(at(1)) ^ at(1) ^ at(2) ^ at(3) : s[i];
    out[i] ^= key[i];
  }
  return out;
}

inline Block ars5_block(const Block& c, const Block& key) {
  uint64_t low = key[0] | uint64_t{key[1]} << 32, high = key[2] | uint64_t{key[3]} << 32;
  std::array<uint8_t, 16> x;
  for (int i = 0; i < 16; ++i) x[i] = static_cast<uint8_t>((c[i / 4] ^ key[i / 4]) >> (8 * (i % 4)));
  for (int round = 1; round <= 5; ++round) {
    low += 0x9E3779B97F4A7C15;
    high += 0xBB67AE8584CAA73B;
    std::array<uint8_t, 16> k;
    for (int i = 0; i < 16; ++i) k[i] = static_cast<uint8_t>((i < 8 ? low : high) >> (8 * (i % 8)));
    x = aes_round(x, k, round < 5);
  }
  Block out{};
  for (int i = 0; i < 16; ++i) out[i / 4] |= uint32_t{x[i]} << (8 * (i % 4));
  return out;
}

// Words of blocks whose counter moves on by one with carry through all its words.
struct Counting {
  Block counter{};
  std::function<Block(const Block&)> block;
  Block hand{};
  int used = 4;
  uint64_t operator()() {
    if (used == 4) {
      hand = block(counter);
      for (uint32_t& w : counter)
        if (++w != 0) break;
      used = 0;
    }
    return hand[used++];
  }
};

inline uint32_t at(const Seeds& s, size_t i) { return i < s.size() ? s[i] : 0; }

inline Counting philox(const Seeds& s) {
  const uint32_t k0 = at(s, 0), k1 = at(s, 1);
  return {{at(s, 2), at(s, 3), at(s, 4), at(s, 5)}, [=](const Block& c) { return philox_block(c, k0, k1); }};
}
inline Counting ars5(const Seeds& s) {
  const Block key = {at(s, 0), at(s, 1), at(s, 2), at(s, 3)};
  return {{at(s, 4), at(s, 5), at(s, 6), at(s, 7)}, [=](const Block& c) { return ars5_block(c, key); }};
}

using Model = std::function<uint64_t()>;

inline Model make(int32_t brng, const Seeds& seeds) {
  switch (brng >> 20) {
    case 1:
      return Mcg31m1(seeds);
    case 4:
      return Mcg59(seeds);
    case 8:
      return mt19937(seeds);
    case 9:
      return mt2203(brng & 0xFFFFF, seeds);
    case 15:
      return ars5(seeds);
    case 16:
      return philox(seeds);
    default:
      return {};
  }
}

inline std::vector<uint64_t> take(const Model& model, size_t n) {
  std::vector<uint64_t> r(n);
  for (uint64_t& w : r) w = model();
  return r;
}

// The conversions of an output word, one element at a time.
inline float to_float(int32_t brng, uint64_t w, float a, float b) {
  switch (brng >> 20) {
    case 1:
      return __builtin_fmaf((b - a) * 0x1p-31f, static_cast<float>(static_cast<double>(w)), a);
    case 4:
      return __builtin_fmaf((b - a) * 0x1p-59f, static_cast<float>(static_cast<double>(w)), a);
    case 8:
    case 9:
      return __builtin_fmaf((b - a) * 0x1p-32f, static_cast<float>(w), a);
    default:
      return __builtin_fmaf((b - a) * 0x1p-32f, static_cast<float>(static_cast<int32_t>(w)), (a + b) * 0.5f);
  }
}
inline double to_double(int32_t brng, uint64_t w, double a, double b) {
  switch (brng >> 20) {
    case 1:
      return __builtin_fma((b - a) * 4.656612875245797e-10, static_cast<double>(w), a);
    case 4:
      return __builtin_fma((b - a) * 0x1p-59, static_cast<double>(w), a);
    case 8:
    case 9:
      return __builtin_fma((b - a) * 0x1p-32, static_cast<double>(w), a);
    default:
      return __builtin_fma((b - a) * 0x1p-32, static_cast<double>(static_cast<int32_t>(w)), (a + b) * 0.5);
  }
}

}  // namespace orvik::models

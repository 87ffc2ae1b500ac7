// SFMT19937 (Saito, Matsumoto 2008), one 128-bit block at a time, as plainly as it can be written.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvik::models {

struct Sfmt {
  std::vector<uint32_t> s = std::vector<uint32_t>(624, 0x8B8B8B8B);
  bool certified_by_flip = false;
  size_t at = 0;  // next word; a new block is due at a multiple of four

  explicit Sfmt(std::vector<uint32_t> key) {
    if (key.empty()) key = {1};
    const auto f = [](uint32_t x) { return (x ^ x >> 27) * 1664525u; };
    const auto g = [](uint32_t x) { return (x ^ x >> 27) * 1566083941u; };
    const auto w = [this](size_t i) -> uint32_t& { return s[i % 624]; };
    uint32_t r = f(w(0) ^ w(306) ^ w(623));
    w(306) += r;
    r += static_cast<uint32_t>(key.size());
    w(317) += r;
    w(0) = r;
    size_t i = 1;
    for (size_t j = 0; j < std::max<size_t>(key.size(), 623); ++j, i = (i + 1) % 624) {
      r = f(w(i) ^ w(i + 306) ^ w(i + 623));
      w(i + 306) += r;
      r += (j < key.size() ? key[j] : 0) + static_cast<uint32_t>(i);
      w(i + 317) += r;
      w(i) = r;
    }
    for (size_t j = 0; j < 624; ++j, i = (i + 1) % 624) {
      r = g(w(i) + w(i + 306) + w(i + 623));
      w(i + 306) ^= r;
      r -= static_cast<uint32_t>(i);
      w(i + 317) ^= r;
      w(i) = r;
    }
    const uint32_t check = (s[0] & 1) ^ (s[3] & 0x13C9E684);
    certified_by_flip = __builtin_popcount(check) % 2 == 0;
    if (certified_by_flip) s[0] ^= 1;
  }

  void step(size_t block) {
    static constexpr uint32_t kMask[4] = {0xDFFFFFEF, 0xDDFECB7F, 0xBFFAFFFF, 0xBFFFFFF6};
    const auto word = [this](size_t b, size_t lane) { return s[b % 156 * 4 + lane]; };
    uint32_t next[4];
    for (size_t k = 0; k < 4; ++k) {
      const uint32_t a = word(block, k), below = k > 0 ? word(block, k - 1) : 0;
      const uint32_t c = word(block + 154, k), above = k < 3 ? word(block + 154, k + 1) : 0;
      next[k] = a ^ (a << 8 | below >> 24) ^ (word(block + 122, k) >> 11 & kMask[k]) ^ (c >> 8 | above << 24) ^
                word(block + 155, k) << 18;
    }
    std::copy(next, next + 4, s.begin() + static_cast<std::ptrdiff_t>(4 * block));
  }

  uint64_t operator()() {
    if (at == 624) at = 0;
    if (at % 4 == 0) step(at / 4);
    return s[at++];
  }
};

}  // namespace orvik::models

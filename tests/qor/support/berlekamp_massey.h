// The minimal polynomial of a sequence of bits (Berlekamp 1968, Massey 1969).
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orvik::support {

// Exponents of the non-zero terms, ascending, of the polynomial p of lowest degree d with sum p_i s[n + i] = 0 for all
// n. The sequence must hold at least 2 d bits.
inline std::vector<uint32_t> minimal_polynomial(const std::vector<bool>& s) {
  const size_t words = s.size() / 64 + 2;
  std::vector<uint64_t> c(words), b(words), window(words), t;
  c[0] = b[0] = 1;
  size_t length = 0, gap = 1;
  for (size_t n = 0; n < s.size(); ++n) {
    // window holds s[n], s[n-1], ... from bit 0 up
    const size_t used = length / 64 + 1;
    for (size_t i = used; i > 0; --i) window[i] = window[i] << 1 | window[i - 1] >> 63;
    window[0] = window[0] << 1 | (s[n] ? 1 : 0);
    uint64_t sum = 0;
    for (size_t i = 0; i < used; ++i) sum ^= c[i] & window[i];
    if (__builtin_popcountll(sum) % 2 == 0) {
      ++gap;
      continue;
    }
    const bool longer = 2 * length <= n;
    if (longer) t = c;
    const size_t shift = gap / 64, bits = gap % 64;
    for (size_t i = 0; i + shift < words; ++i) {
      c[i + shift] ^= b[i] << bits;
      if (bits != 0 && i + shift + 1 < words) c[i + shift + 1] ^= b[i] >> (64 - bits);
    }
    if (!longer) {
      ++gap;
      continue;
    }
    const size_t grown = n + 1 - length;
    // the window must reach as far back as the longer polynomial
    length = grown;
    for (size_t i = 0; i < words; ++i) window[i] = 0;
    for (size_t i = 0; i <= length && i <= n; ++i)
      if (s[n - i]) window[i / 64] |= uint64_t{1} << (i % 64);
    b = std::move(t);
    gap = 1;
  }
  std::vector<uint32_t> exponents;
  for (size_t i = length + 1; i-- > 0;)
    if (c[i / 64] >> (i % 64) & 1) exponents.push_back(static_cast<uint32_t>(length - i));
  return exponents;
}

}  // namespace orvik::support

// Elements of 4, 8 or 16 bytes between every step-th place of an array and a row of memory where they stand side by
// side. Bits only: nothing is computed, no flag raised.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <cstring>

namespace orvik {

namespace strided {
typedef int32_t Word32 __attribute__((may_alias, aligned(1)));
typedef long long Word64 __attribute__((may_alias, aligned(1)));

// A vector of elements, the addresses by a function of the index. Each is loaded into all lanes and blended into its
// own: loads and blends have ports to spare, where gathers are slower on some processors (and index by 32 bits) and
// insertions all meet at one port.
template <int Size, class At>
inline __m256i vector_of(At at) {
  if constexpr (Size == 4) {
    const auto element = [&](int i) { return _mm256_set1_epi32(*reinterpret_cast<const Word32*>(at(i))); };
    const auto pair = [&](int i) { return _mm256_blend_epi32(element(i), element(i + 1), 0xAA); };
    const auto four = [&](int i) { return _mm256_blend_epi32(pair(i), pair(i + 2), 0xCC); };
    return _mm256_blend_epi32(four(0), four(4), 0xF0);
  } else if constexpr (Size == 8) {
    const auto element = [&](int i) { return _mm256_set1_epi64x(*reinterpret_cast<const Word64*>(at(i))); };
    const auto pair = [&](int i) { return _mm256_blend_epi32(element(i), element(i + 1), 0xCC); };
    return _mm256_blend_epi32(pair(0), pair(2), 0xF0);
  } else {
    const auto element = [&](int i) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at(i))); };
    return _mm256_inserti128_si256(_mm256_castsi128_si256(element(0)), element(1), 1);
  }
}
// The first k, k from 1 on; the last again in the other lanes, so that no memory behind it is touched.
template <int Size>
inline __m256i first_of(const char* from, int64_t step, int k) {
  constexpr int kCount = 32 / Size;
  const char* at[kCount];
  at[0] = from;
  for (int j = 1; j < kCount; ++j) at[j] = at[j - 1] + (j < k ? step : 0);
  return vector_of<Size>([&](int j) { return at[j]; });
}
}  // namespace strided

// n elements, step bytes apart, into a row that has room for whole vectors.
template <int Size>
inline void gather_row(const char* from, int64_t step, char* row, int n) {
  constexpr int kCount = 32 / Size;
  int i = 0;
  for (; i + kCount <= n; i += kCount, from += kCount * step) {
    const __m256i v = strided::vector_of<Size>([=](int j) { return from + j * step; });
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(row + i * Size), v);
  }
  if (i == n) return;
  // By a whole vector too, since a vector can only be loaded from single stores once all of them have left the store
  // queue.
  const __m256i v = strided::first_of<Size>(from, step, n - i);
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(row + i * Size), v);
}

// A row's n elements to places step bytes apart, in order.
template <int Size>
inline void spread_row(const char* row, char* to, int64_t step, int n) {
  constexpr int kCount = Size == 16 ? 2 : 4;
  int i = 0;
  for (; i + kCount <= n; i += kCount, to += kCount * step, row += kCount * Size) {
    if constexpr (Size == 8) {  // halves of a register can be stored without a shuffle
      const __m128d low = _mm_castsi128_pd(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row)));
      const __m128d high = _mm_castsi128_pd(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row + 16)));
      _mm_storel_pi(reinterpret_cast<__m64*>(to), _mm_castpd_ps(low));
      _mm_storeh_pi(reinterpret_cast<__m64*>(to + step), _mm_castpd_ps(low));
      _mm_storel_pi(reinterpret_cast<__m64*>(to + 2 * step), _mm_castpd_ps(high));
      _mm_storeh_pi(reinterpret_cast<__m64*>(to + 3 * step), _mm_castpd_ps(high));
    } else {
#pragma GCC unroll 4
      for (int j = 0; j < kCount; ++j) std::memcpy(to + j * step, row + j * Size, Size);
    }
  }
  for (; i < n; ++i, to += step, row += Size) std::memcpy(to, row, Size);
}

inline void gather_row(const char* from, int64_t step, char* row, int size, int n) {
  if (size == 4) return gather_row<4>(from, step, row, n);
  if (size == 8) return gather_row<8>(from, step, row, n);
  gather_row<16>(from, step, row, n);
}
inline void spread_row(const char* row, char* to, int64_t step, int size, int n) {
  if (size == 4) return spread_row<4>(row, to, step, n);
  if (size == 8) return spread_row<8>(row, to, step, n);
  spread_row<16>(row, to, step, n);
}

}  // namespace orvik

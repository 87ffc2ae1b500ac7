// The loops that distributions are made of: blocks, pairs, candidates, and the last pass over the results.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace orvik::qor {

// Bit of a method word: results are forced into the support of the distribution.
inline constexpr uint32_t kClamp = 0x40000000;

// Outputs a block, so that all buffers stay in the first cache and on the stack.
inline constexpr int32_t kBlock = 1024;

// body(first, count) for blocks of n until one returns false.
template <int32_t size = kBlock, class Body>
bool for_each_block(int32_t n, Body body) {
  for (int32_t first = 0, left = n; left > 0; left -= size, first += size)
    if (!body(first, std::min(left, size))) return false;
  return true;
}

// passes(count, r) over all of r, a part of a long array at a time, so that each pass finds in the caches what the one
// before it left there.
template <class T, class Passes>
void in_passes(int32_t n, T* r, Passes passes) {
  constexpr int32_t kPart = 32 * kBlock;  // 256 KiB of doubles
  for_each_block<kPart>(n, [&](int32_t first, int32_t count) {
    passes(count, r + first);
    return true;
  });
}

// Candidates until n results are full. batch(count, r) makes `count` of them, at most `cap` and never more than results
// are missing, writes those that it accepts to r in order and returns their number, or a negative one when the source
// of uniforms failed; it may write as far as `count`. No candidate is thrown away, so that results do not depend on how
// a request is cut.
template <class T, class Batch>
bool until_accepted(int32_t n, T* r, int32_t cap, Batch batch) {
  for (int32_t done = 0; done < n;) {
    const int32_t accepted = batch(std::min(cap, n - done), r + done);
    if (accepted < 0) return false;
    done += accepted;
  }
  return true;
}

// r = map(x), r = map(r)
template <class T, class Map>
void transform(int32_t n, const T* x, T* r, Map map) {
  for (int32_t i = 0; i < n; ++i) r[i] = map(x[i]);
}
template <class T, class Map>
void transform(int32_t n, T* r, Map map) {
  for (int32_t i = 0; i < n; ++i) r[i] = map(r[i]);
}

template <class T>
T at_least(T low, T x) {
  return x < low ? low : x;
}

// The last pass: r = scale r + shift in one rounding, not below the lower bound where the method says so.
template <class T>
void scale_and_shift(int32_t n, T* r, std::type_identity_t<T> scale, std::type_identity_t<T> shift) {
  transform(n, r, [=](T x) { return std::fma(x, scale, shift); });
}
template <class T>
void scale_and_shift(uint32_t method, int32_t n, T* r, std::type_identity_t<T> scale, std::type_identity_t<T> shift) {
  if ((method & kClamp) == 0)
    scale_and_shift(n, r, scale, shift);
  else
    transform(n, r, [=](T x) { return at_least<T>(shift, std::fma(x, scale, shift)); });
}

template <class T>
void negate(int32_t n, T* r) {
  transform(n, r, [](T x) { return -x; });
}

}  // namespace orvik::qor

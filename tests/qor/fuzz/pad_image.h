// The memory loader trusts its block to be whole: an input is walked as the loader would and padded with zeros to where
// the last chunk ends. Inputs that ask for more than a megabyte or a hundred chunks are left out.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "orvik/qor.h"

namespace orvik::fuzz {

template <class T>
T read_padded(std::vector<uint8_t>& image, size_t at) {
  if (image.size() < at + sizeof(T)) image.resize(at + sizeof(T));
  T value;
  std::memcpy(&value, image.data() + at, sizeof value);
  return value;
}

// False when the image is too large to be padded.
inline bool pad(std::vector<uint8_t>& image) {
  constexpr size_t kMost = 1 << 20, kMostChunks = 100;
  const uint8_t version = read_padded<uint8_t>(image, 0);
  const bool current = version == 2;
  const int32_t brng = read_padded<int32_t>(image, current ? 20 : 16);
  const size_t chunks = read_padded<uint16_t>(image, current ? 16 : 12);
  if (chunks > kMostChunks) return false;
  RegBrngRow row;
  if (__qorGetBrngProperties(brng, &row) != 0) return true;
  size_t at = (current ? 24 : 20) + static_cast<size_t>(std::max(row.StreamStateSize - 16, 0));
  for (size_t i = 0; i < chunks && version <= 2; ++i) {
    const size_t to_size = version == 0 ? 4 : 20;
    at += to_size + 4 + read_padded<uint32_t>(image, at + to_size);
    if (at > kMost) return false;
  }
  if (image.size() < at) image.resize(at);
  image.shrink_to_fit();
  return true;
}

}  // namespace orvik::fuzz

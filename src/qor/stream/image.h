// The image of a stream: what a file and a memory block hold.
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace orvik::qor {

constexpr uint8_t kImageVersion = 2;
constexpr uint32_t kImageMagic = 0x00474E52;  // "RNG"

// Version 2, native byte order. The gaps carry nothing.
struct ImageHeader {
  uint8_t version;
  uint8_t gap0[3];
  uint32_t magic;
  uint16_t header_size;
  uint8_t gap1[2];
  uint32_t body_size;
  uint16_t chunk_count;
  uint8_t gap2[2];
  uint32_t brng;
};
static_assert(sizeof(ImageHeader) == 24);
static_assert(offsetof(ImageHeader, body_size) == 12 && offsetof(ImageHeader, brng) == 20);

// What follows the first eight bytes in images of every other version.
struct OldImageTail {
  uint16_t header_size;
  uint16_t body_size;
  uint16_t chunk_count;
  uint16_t gap;
  uint32_t brng;
};
static_assert(sizeof(OldImageTail) == 12);

}  // namespace orvik::qor

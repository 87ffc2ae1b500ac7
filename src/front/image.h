// Images of objects in memory: a head with magic, size and checksum, then what the object wrote.
#pragma once

#include <cstdint>
#include <cstring>

#include "orvik/front.h"

namespace orvik::front {

struct ImageHead {
  char magic[8];
  uint64_t size;  // of the whole image
  uint64_t checksum;
};

// FNV-1a over eight bytes at a time, then the rest.
inline uint64_t checksum_of(const void* data, uint64_t size) {
  constexpr uint64_t kPrime = 0x100000001B3;
  const auto* bytes = static_cast<const unsigned char*>(data);
  uint64_t sum = 0xCBF29CE484222325 ^ size;
  for (; size >= 8; size -= 8, bytes += 8) {
    uint64_t word;
    std::memcpy(&word, bytes, 8);
    sum = (sum ^ word) * kPrime;
    sum ^= sum >> 32;
  }
  for (; size > 0; --size) sum = (sum ^ *bytes++) * kPrime;
  return sum;
}

// The common part of all saves. BAD_LENGTH where `memory` has too little room; with null memory only the size is
// stored. write(body) fills the image behind its head.
template <class Write>
orvik_status save_image(const char* magic, uint64_t body, void* memory, int64_t* size, const Write& write) {
  if (size == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const uint64_t whole = sizeof(ImageHead) + body;
  if (memory != nullptr) {
    if (*size < 0 || static_cast<uint64_t>(*size) < whole) return ORVIK_ERROR_BAD_LENGTH;
    char* const behind = static_cast<char*>(memory) + sizeof(ImageHead);
    if (const orvik_status status = write(behind); status != ORVIK_SUCCESS) return status;
    ImageHead head;
    std::memcpy(head.magic, magic, sizeof head.magic);
    head.size = whole;
    head.checksum = checksum_of(behind, body);
    std::memcpy(memory, &head, sizeof head);
  }
  *size = static_cast<int64_t>(whole);
  return ORVIK_SUCCESS;
}

// What stands behind a whole image's head, and how much; null for anything else.
inline const char* read_image(const char* magic, const void* memory, int64_t size, uint64_t* body) {
  ImageHead head;
  if (size < static_cast<int64_t>(sizeof head)) return nullptr;
  std::memcpy(&head, memory, sizeof head);
  *body = static_cast<uint64_t>(size) - sizeof head;
  const char* const behind = static_cast<const char*>(memory) + sizeof head;
  const bool whole = std::memcmp(head.magic, magic, sizeof head.magic) == 0 &&
                     head.size == static_cast<uint64_t>(size) && head.checksum == checksum_of(behind, *body);
  return whole ? behind : nullptr;
}

}  // namespace orvik::front

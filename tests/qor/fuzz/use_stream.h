// What every fuzz target does with a stream that a loader handed out: everything a caller could.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "orvik/qor.h"

namespace orvik::fuzz {

inline void require(bool condition) {
  if (!condition) std::abort();
}

inline std::vector<uint8_t> save(OrvikStream stream) {
  std::vector<uint8_t> image(static_cast<size_t>(__qorGetStreamSize(stream)));
  require(__qorSaveStreamM(stream, image.data()) == 0);
  return image;
}

inline void draw(OrvikStream stream, const RegBrngRow& row) {
  if (!row.InitStream) return;  // the two empty rows, and negative ids
  alignas(16) uint8_t r[16 * 100];
  row.iBRng(stream, 100, r);
  row.sBRng(stream, 100, reinterpret_cast<float*>(r), 0, 1);
  row.dBRng(stream, 100, reinterpret_cast<double*>(r), 0, 1);
  row.iBRng(stream, 3, r);
  __qorSkipAheadStream(stream, 1000);
  row.dBRng(stream, 5, reinterpret_cast<double*>(r), 0, 1);
  __qorLeapfrogStream(stream, 1, 2);
  row.sBRng(stream, 5, reinterpret_cast<float*>(r), 0, 1);
}

// Consumes the stream. Saved images must load again and hold the same.
inline void use(OrvikStream stream) {
  RegBrngRow row;
  require(__qorGetBrngProperties(__qorGetStreamStateBrng(stream), &row) == 0);
  const std::vector<uint8_t> image = save(stream);
  OrvikStream again = nullptr, copy = nullptr;
  require(__qorLoadStreamM(&again, image.data()) == 0);
  require(__qorGetNumChunks(again) == __qorGetNumChunks(stream));
  const std::vector<uint8_t> second = save(again);
  require(second.size() == image.size());
  const size_t head = row.StreamStateSize > 16 ? static_cast<size_t>(row.StreamStateSize) + 8 : 24;
  require(std::memcmp(second.data(), image.data(), head) == 0);
  require(__qorCopyStream(&copy, stream) == 0);
  __qorDeleteStream(&stream);
  draw(again, row);
  draw(copy, row);
  require(__qorCopyStreamState(copy, again) == 0);
  __qorDeleteStream(&again);
  draw(copy, row);
  __qorDeleteStream(&copy);
}

}  // namespace orvik::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

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

// The forms that abstract types lack are one function behind pointers of three types.
#ifdef __clang__
#define ORVIK_FUZZ_ANY_FORM __attribute__((no_sanitize("function")))
#else
#define ORVIK_FUZZ_ANY_FORM
#endif

// Draws in every form and jumps in every way; returns all that was written. Some ids have no functions to draw by.
inline std::vector<uint8_t> draw(OrvikStream stream, const RegBrngRow& row) {
  constexpr int32_t kMost = 150;
  std::vector<uint8_t> all;
  std::vector<uint64_t> r(2 * kMost);  // of the widest element
  const auto keep = [&](int32_t count, size_t size) {
    const auto* from = reinterpret_cast<const uint8_t*>(r.data());
    all.insert(all.end(), from, from + static_cast<size_t>(count) * size);
  };
  const auto each_form = [&](int32_t n) ORVIK_FUZZ_ANY_FORM {
    if (!row.InitStream) return;
    row.iBRng(stream, n, r.data());
    keep(n, static_cast<size_t>(row.WordSize));
    row.sBRng(stream, n, reinterpret_cast<float*>(r.data()), 0, 1);
    keep(n, sizeof(float));
    row.dBRng(stream, n, reinterpret_cast<double*>(r.data()), -1, 2);
    keep(n, sizeof(double));
  };
  const uint64_t far[4] = {3, 5, 7, 9};
  each_form(kMost);
  each_form(3);
  __qorSkipAheadStream(stream, 1000);
  each_form(5);
  __qorLeapfrogStream(stream, 1, 2);
  each_form(5);
  __qorLeapfrogStream(stream, 1, 0x7FFFFFFF);
  each_form(40);
  __qorSkipAheadStreamEx(stream, 4, far);
  each_form(2);
  return all;
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

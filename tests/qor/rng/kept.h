// What set-ups that stay with a stream must do, whatever they hold: one build for equal parameters, a fresh one for
// others, with the numbers of a stream that has none; no leaks; sound after any image.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <span>
#include <vector>

#include "orvik/serv.h"
#include "qor/rng/call.h"
#include "qor/stream/record.h"
#include "serv/memory.h"

namespace orvik::testing {

using KeptDraw = std::function<int32_t(OrvikStream, int32_t n, int32_t* r)>;

inline std::vector<int32_t> draw(const Stream& s, int32_t n, const KeptDraw& d) {
  return drawn<int32_t>(n, [&](int32_t* r) { return d(s.get(), n, r); });
}

// `first` and `second` have different parameters.
inline void expect_kept(uint32_t id, const KeptDraw& first, const KeptDraw& second) {
  const Stream s(ORVIK_BRNG_MT19937, {77});
  draw(s, 10, first);
  void* const block = __qorSearchChunk(s.get(), id);
  ASSERT_NE(block, nullptr);
  const int32_t chunks = __qorGetNumChunks(s.get());
  const Stream plain = s.copy();
  EXPECT_EQ(draw(s, 1000, first), draw(plain, 1000, first));
  EXPECT_EQ(__qorSearchChunk(s.get(), id), block) << "the second call finds it";
  const Stream fresh(ORVIK_BRNG_MT19937, {5});
  const Stream other(ORVIK_BRNG_MT19937, {5});
  draw(other, 0, first);
  EXPECT_EQ(draw(other, 1000, second), draw(fresh, 1000, second)) << "other parameters, a new set-up";
  EXPECT_EQ(draw(other, 1000, first), draw(fresh, 1000, first)) << "and back";
  EXPECT_EQ(__qorGetNumChunks(s.get()), chunks);
}

// A set-up whose parameters are those of the call is taken as it is: one that was exchanged for that of parameters
// nearby, of the same branch of the method, stays exchanged. Its own parameters are the first bytes of the block.
inline void expect_not_built_again(uint32_t id, size_t parameters, const KeptDraw& d, const KeptDraw& nearby) {
  const auto bytes = [id](const Stream& s) {
    const qor::ChunkNode* node = qor::header(s.get())->chunks;
    while (node != nullptr && node->id != id) node = node->next;
    EXPECT_NE(node, nullptr);
    return node == nullptr ? std::span<uint8_t>()
                           : std::span(static_cast<uint8_t*>(node->data), static_cast<size_t>(node->size));
  };
  const Stream s(ORVIK_BRNG_MT19937, {77}), other(ORVIK_BRNG_MT19937, {77});
  draw(s, 10, d);
  draw(other, 10, nearby);
  ASSERT_EQ(bytes(s).size(), bytes(other).size());
  const std::span<uint8_t> place = bytes(s).subspan(parameters), near = bytes(other).subspan(parameters);
  ASSERT_FALSE(std::equal(place.begin(), place.end(), near.begin()));
  std::copy(near.begin(), near.end(), place.begin());
  const std::vector<uint8_t> exchanged(bytes(s).begin(), bytes(s).end());
  for (const int32_t n : {1, 1000}) {
    draw(s, n, d);
    EXPECT_TRUE(std::equal(exchanged.begin(), exchanged.end(), bytes(s).begin())) << n;
  }
  draw(s, 1, nearby);
  draw(s, 1, d);
  EXPECT_FALSE(std::equal(exchanged.begin(), exchanged.end(), bytes(s).begin())) << "other parameters came between";
}

inline void expect_no_leaks(const KeptDraw& d) {
  int failures = 0;
  for (int64_t n = 1;; ++n, ++failures) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    int32_t r[3] = {7, 7, 7};
    const int64_t before = serv::live_allocations();
    serv::fail_allocation_after(n);
    const int32_t status = d(s.get(), 3, r);
    serv::fail_allocation_after(0);
    if (status == 0) break;
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(serv::live_allocations(), before);
    EXPECT_EQ(r[0], 7);
    EXPECT_EQ(s.words(3), source.words(3)) << "nothing was drawn";
  }
  EXPECT_EQ(failures, 2) << "the block and its node";
}

// An image with a set-up goes on with the same numbers; one whose set-up has been tampered with as well, since what it
// says beyond its parameters is not believed.
inline void expect_sound_after_images(uint32_t id, size_t parameters, const KeptDraw& d) {
  const Stream s(ORVIK_BRNG_MT19937, {77});
  draw(s, 10, d);
  const size_t size = static_cast<size_t>(__qorGetStreamSize(s.get()));
  std::vector<uint8_t> image(size);
  ASSERT_EQ(__qorSaveStreamM(s.get(), image.data()), 0);
  Stream loaded;
  ASSERT_EQ(__qorLoadStreamM(loaded.out(), image.data()), 0);
  std::vector<uint8_t> again(size);
  ASSERT_EQ(__qorSaveStreamM(loaded.get(), again.data()), 0);
  EXPECT_EQ(image, again) << "an image of what was loaded";
  const Stream copy = s.copy();
  const std::vector<int32_t> expected = draw(copy, 1000, d);
  EXPECT_EQ(draw(loaded, 1000, d), expected);
  for (const uint8_t filler : {uint8_t{0}, uint8_t{0x7F}, uint8_t{0xFF}}) {
    const Stream spoilt = s.copy();
    uint8_t* const block = static_cast<uint8_t*>(__qorSearchChunk(spoilt.get(), id));
    std::memset(block + parameters, filler, 300);
    ASSERT_EQ(__qorSaveStreamM(spoilt.get(), image.data()), 0);
    Stream back;
    ASSERT_EQ(__qorLoadStreamM(back.out(), image.data()), 0);
    EXPECT_EQ(draw(back, 1000, d), expected) << int{filler};
    std::memset(block, filler, parameters);  // parameters that no call has
    ASSERT_EQ(__qorSaveStreamM(spoilt.get(), image.data()), 0);
    Stream odd;
    ASSERT_EQ(__qorLoadStreamM(odd.out(), image.data()), 0);
    EXPECT_EQ(draw(odd, 1000, d), expected) << int{filler};
  }
}

}  // namespace orvik::testing

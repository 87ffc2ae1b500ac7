// Streams as objects: made, copied, saved, loaded, moved, deleted; what is wrong with any of it; failing allocations.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "orvik/front.h"
#include "orvik/qor.h"
#include "serv/memory.h"

namespace {

using orvik::serv::fail_allocation_after;
using orvik::serv::live_allocations;

constexpr int32_t kGenerators[] = {ORVIK_MCG31M1,  ORVIK_R250,      ORVIK_MRG32K3A, ORVIK_MCG59,
                                   ORVIK_WH + 272, ORVIK_SOBOL,     ORVIK_MT19937,  ORVIK_NIEDERREITER,
                                   ORVIK_MT2203,   ORVIK_SFMT19937, ORVIK_ARS5,     ORVIK_PHILOX4X32X10};

std::vector<char> save(const orvik_stream* s) {
  int64_t size = 0;
  EXPECT_EQ(orvik_stream_save(s, nullptr, &size), ORVIK_SUCCESS);
  std::vector<char> bytes(static_cast<size_t>(size));
  EXPECT_EQ(orvik_stream_save(s, bytes.data(), &size), ORVIK_SUCCESS);
  EXPECT_EQ(size, static_cast<int64_t>(bytes.size()));
  return bytes;
}
std::vector<double> numbers(orvik_stream* s, size_t n = 100) {
  std::vector<double> r(n);
  EXPECT_EQ(orvik_d_uniform(s, static_cast<int64_t>(n), r.data(), 0, 1), ORVIK_SUCCESS);
  return r;
}

TEST(Streams, CopiesAndImagesOfEveryGeneratorGoOnAlike) {
  for (const int32_t generator : kGenerators) {
    orvik_stream *s = nullptr, *copy = nullptr, *loaded = nullptr;
    ASSERT_EQ(orvik_stream_new(&s, generator, 3), ORVIK_SUCCESS) << generator;
    EXPECT_EQ(orvik_stream_generator(s), generator);
    numbers(s, 33);
    ASSERT_EQ(orvik_stream_copy(&copy, s), ORVIK_SUCCESS);
    const std::vector<char> image = save(s);
    ASSERT_EQ(orvik_stream_load(&loaded, image.data(), static_cast<int64_t>(image.size())), ORVIK_SUCCESS);
    const auto want = numbers(s);
    EXPECT_EQ(numbers(copy), want) << orvik_generator_name(generator);
    EXPECT_EQ(numbers(loaded), want) << orvik_generator_name(generator);
    EXPECT_EQ(orvik_stream_generator(loaded), generator);
    for (orvik_stream* each : {s, copy, loaded}) orvik_stream_delete(each);
  }
}

TEST(Streams, TheSeedIsTwoWordsLowFirst) {
  orvik_stream *s = nullptr, *t = nullptr;
  const uint32_t words[] = {0x89ABCDEF, 0x01234567};
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_MT19937, 0x0123456789ABCDEF), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_new_seeds(&t, ORVIK_MT19937, 2, words), ORVIK_SUCCESS);
  EXPECT_EQ(numbers(s), numbers(t));
  orvik_stream_delete(s);
  orvik_stream_delete(t);
}

TEST(Streams, SkipsAndLeapfrogsAreTheMembers) {
  orvik_stream *s = nullptr, *t = nullptr;
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_MCG59, 7), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_copy(&t, s), ORVIK_SUCCESS);
  const auto all = numbers(s, 100);
  ASSERT_EQ(orvik_stream_skip(t, 90), ORVIK_SUCCESS);
  EXPECT_EQ(numbers(t, 10), std::vector<double>(all.begin() + 90, all.end()));
  orvik_stream_delete(s);
  orvik_stream_delete(t);
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_MCG59, 7), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_leapfrog(s, 1, 3), ORVIK_SUCCESS);
  const auto third = numbers(s, 10);
  for (size_t k = 0; k < 10; ++k) EXPECT_EQ(third[k], all[1 + 3 * k]);
  orvik_stream_delete(s);
  const uint64_t far[] = {5, 1};
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_PHILOX4X32X10, 7), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_new(&t, ORVIK_PHILOX4X32X10, 7), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_skip_long(s, 2, far), ORVIK_SUCCESS);
  for (int k = 0; k < 2; ++k) ASSERT_EQ(orvik_stream_skip(t, uint64_t{1} << 63), ORVIK_SUCCESS);
  ASSERT_EQ(orvik_stream_skip(t, 5), ORVIK_SUCCESS);
  EXPECT_EQ(numbers(s), numbers(t));
  orvik_stream_delete(s);
  orvik_stream_delete(t);
}

TEST(Streams, WhatAGeneratorCannotDoIsTheKernelsStatus) {
  orvik_stream* s = nullptr;
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_MT2203, 7), ORVIK_SUCCESS);
  const uint64_t one = 1;
  EXPECT_EQ(orvik_stream_skip(s, 1), ORVIK_QOR_NO_SKIPAHEAD);
  EXPECT_EQ(orvik_stream_skip_long(s, 1, &one), ORVIK_QOR_NO_SKIPAHEAD_EX);
  EXPECT_EQ(orvik_stream_leapfrog(s, 0, 2), ORVIK_QOR_NO_LEAPFROG);
  orvik_stream_delete(s);
}

TEST(Streams, BadGeneratorsSeedsAndPointers) {
  auto* const kept = reinterpret_cast<orvik_stream*>(&live_allocations);
  for (const int32_t generator :
       {0, -1, 5, 0x0FFFFF, 0x1100000, 0x7FFFFFFF, ORVIK_MT19937 + 1, ORVIK_WH + 273, ORVIK_MT2203 + 6024}) {
    orvik_stream* s = kept;
    EXPECT_EQ(orvik_stream_new(&s, generator, 1), ORVIK_QOR_BAD_BRNG) << generator;
    EXPECT_EQ(s, nullptr);
    EXPECT_EQ(orvik_generator_name(generator), nullptr);
  }
  for (const int32_t generator : {ORVIK_BRNG_IABSTRACT, ORVIK_BRNG_DABSTRACT, ORVIK_BRNG_SABSTRACT}) {
    orvik_stream* s = kept;
    EXPECT_EQ(orvik_stream_new(&s, generator, 1), ORVIK_ERROR_UNSUPPORTED);
    EXPECT_EQ(s, nullptr);
  }
  orvik_stream* s = nullptr;
  for (const uint64_t dimension : {uint64_t{0}, uint64_t{41}, uint64_t{1} << 32}) {
    EXPECT_EQ(orvik_stream_new(&s, ORVIK_SOBOL, dimension), ORVIK_ERROR_BAD_PARAMETER);
  }
  EXPECT_EQ(orvik_stream_new(&s, ORVIK_NIEDERREITER, 319), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_stream_new(nullptr, ORVIK_MT19937, 1), ORVIK_ERROR_NULL_POINTER);
  const uint32_t seed = 1;
  EXPECT_EQ(orvik_stream_new_seeds(nullptr, ORVIK_MT19937, 1, &seed), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_stream_new_seeds(&s, ORVIK_MT19937, -1, &seed), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_stream_new_seeds(&s, ORVIK_MT19937, 1, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_STREQ(orvik_generator_name(ORVIK_MT2203 + 6023), "MT2203");
}

TEST(Streams, NullAndDeletedOnesAreRefusedEverywhere) {
  orvik_stream *deleted = nullptr, *out = nullptr;
  ASSERT_EQ(orvik_stream_new(&deleted, ORVIK_MT19937, 1), ORVIK_SUCCESS);
  orvik_stream_delete(deleted);
  orvik_stream_delete(deleted);  // again
  orvik_stream_delete(nullptr);
  const uint64_t one = 1;
  int64_t size = 0;
  double r = -7;
  for (orvik_stream* s : {static_cast<orvik_stream*>(nullptr), deleted}) {
    EXPECT_EQ(orvik_stream_copy(&out, s), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(orvik_stream_save(s, nullptr, &size), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(orvik_stream_skip(s, 1), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(orvik_stream_skip_long(s, 1, &one), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(orvik_stream_leapfrog(s, 0, 1), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(orvik_stream_generator(s), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(orvik_d_uniform(s, 1, &r, 0, 1), ORVIK_ERROR_BAD_STREAM);
    EXPECT_EQ(r, -7);
  }
}

TEST(Streams, ASummaryIsNoStream) {
  orvik_d_summary* summary = nullptr;
  ASSERT_EQ(orvik_d_summary_new(&summary, 1), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_stream_skip(reinterpret_cast<orvik_stream*>(summary), 1), ORVIK_ERROR_BAD_STREAM);
  orvik_stream_delete(reinterpret_cast<orvik_stream*>(summary));
  EXPECT_EQ(orvik_d_summary_count(summary, nullptr), ORVIK_ERROR_NULL_POINTER);  // still there
  orvik_d_summary_delete(summary);
}

TEST(Streams, ArgumentsOfMoves) {
  orvik_stream* s = nullptr;
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_WH, 1), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_stream_leapfrog(s, 0, 0), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_stream_leapfrog(s, -1, 2), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_stream_leapfrog(s, 2, 2), ORVIK_ERROR_BAD_PARAMETER);
  EXPECT_EQ(orvik_stream_skip_long(s, -1, nullptr), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_stream_skip_long(s, 2, nullptr), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_stream_skip_long(s, 0, nullptr), ORVIK_SUCCESS);
  EXPECT_EQ(orvik_stream_copy(nullptr, s), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_stream_save(s, nullptr, nullptr), ORVIK_ERROR_NULL_POINTER);
  orvik_stream_delete(s);
}

TEST(Streams, TooLittleRoomForAnImageWritesNothing) {
  orvik_stream* s = nullptr;
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_MT19937, 1), ORVIK_SUCCESS);
  const std::vector<char> image = save(s);
  for (const int64_t room : {int64_t{0}, int64_t{-1}, static_cast<int64_t>(image.size()) - 1}) {
    std::vector<char> memory(image.size(), 'x');
    int64_t size = room;
    EXPECT_EQ(orvik_stream_save(s, memory.data(), &size), ORVIK_ERROR_BAD_LENGTH);
    EXPECT_EQ(size, room);
    EXPECT_EQ(memory, std::vector<char>(image.size(), 'x'));
  }
  orvik_stream_delete(s);
}

TEST(Streams, EveryDamagedImageIsRefused) {
  orvik_stream *s = nullptr, *out = nullptr;
  ASSERT_EQ(orvik_stream_new(&s, ORVIK_PHILOX4X32X10, 1), ORVIK_SUCCESS);
  const std::vector<char> image = save(s);
  const auto size = static_cast<int64_t>(image.size());
  for (size_t at = 0; at < image.size(); ++at) {
    std::vector<char> bent = image;
    bent[at] ^= 0x10;
    out = s;
    ASSERT_EQ(orvik_stream_load(&out, bent.data(), size), ORVIK_ERROR_BAD_IMAGE) << at;
    ASSERT_EQ(out, nullptr);
  }
  for (int64_t shorter = 0; shorter < size; ++shorter) {
    ASSERT_EQ(orvik_stream_load(&out, image.data(), shorter), ORVIK_ERROR_BAD_IMAGE);
  }
  EXPECT_EQ(orvik_stream_load(&out, image.data(), -1), ORVIK_ERROR_BAD_LENGTH);
  EXPECT_EQ(orvik_stream_load(&out, nullptr, size), ORVIK_ERROR_NULL_POINTER);
  EXPECT_EQ(orvik_stream_load(nullptr, image.data(), size), ORVIK_ERROR_NULL_POINTER);
  orvik_stream_delete(s);
}

TEST(Streams, FailingAllocationsLeaveNothingBehind) {
  orvik_stream* s = nullptr;
  for (const int32_t generator : {ORVIK_MT19937, ORVIK_SOBOL}) {
    for (int64_t n = 1; n < 1000; ++n) {
      const int64_t before = live_allocations();
      fail_allocation_after(n);
      const orvik_status status = orvik_stream_new(&s, generator, 1);
      fail_allocation_after(0);
      if (status == ORVIK_SUCCESS) break;
      EXPECT_TRUE(status == ORVIK_ERROR_NO_MEMORY || status == ORVIK_QOR_NO_MEMORY) << status;
      EXPECT_EQ(s, nullptr);
      EXPECT_EQ(live_allocations(), before);
    }
    orvik_stream* other = nullptr;
    for (int64_t n = 1; n < 1000; ++n) {
      const int64_t before = live_allocations();
      fail_allocation_after(n);
      const orvik_status status = orvik_stream_copy(&other, s);
      fail_allocation_after(0);
      if (status == ORVIK_SUCCESS) break;
      EXPECT_EQ(other, nullptr);
      EXPECT_EQ(live_allocations(), before);
    }
    const std::vector<char> image = save(s);
    orvik_stream_delete(other);
    for (int64_t n = 1; n < 1000; ++n) {
      const int64_t before = live_allocations();
      fail_allocation_after(n);
      const orvik_status status = orvik_stream_load(&other, image.data(), static_cast<int64_t>(image.size()));
      fail_allocation_after(0);
      if (status == ORVIK_SUCCESS) break;
      EXPECT_EQ(other, nullptr);
      EXPECT_EQ(live_allocations(), before);
    }
    // Copies for threads cannot be made: one thread draws the same.
    std::vector<double> want(1000), got(1000);
    ASSERT_EQ(orvik_d_uniform(s, 1000, want.data(), 0, 1), ORVIK_SUCCESS);
    for (int64_t n = 1; n <= 2; ++n) {
      orvik_stream* again = nullptr;
      ASSERT_EQ(orvik_stream_copy(&again, other), ORVIK_SUCCESS);
      const int64_t before = live_allocations();
      fail_allocation_after(n);
      EXPECT_EQ(orvik_d_uniform_threads(again, 1000, got.data(), 0, 1, 3), ORVIK_SUCCESS);
      fail_allocation_after(0);
      EXPECT_EQ(live_allocations(), before);
      EXPECT_EQ(want, got);
      orvik_stream_delete(again);
    }
    orvik_stream_delete(other);
    orvik_stream_delete(s);
  }
}

}  // namespace

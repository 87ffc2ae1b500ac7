// What all distributions promise: statuses, the calling thread's state, requests below one number, cuts, no heap.
#include <fenv.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>

#include "lanes/control.h"
#include "orvik/zym.h"
#include "qor/rng/entries.h"
#include "qor/rng/scripted.h"
#include "qor/support/stream.h"
#include "serv/memory.h"
#include "support/upper_halves.h"

namespace orvik::testing {
namespace {

constexpr int32_t kMany = 5000;  // several blocks and a rest, an odd number of pairs in some
constexpr uint8_t kUntouched = 0x5A;

// Requests to the C library's heap so far, from anywhere. The sanitizers have a heap of their own.
std::atomic<int64_t> requests_to_heap;
int64_t heap_requests() { return requests_to_heap.load(std::memory_order_relaxed); }

class EveryEntry : public ::testing::TestWithParam<Entry> {
 protected:
  std::vector<uint8_t> room(int32_t n) const {
    return std::vector<uint8_t>(static_cast<size_t>(n) * static_cast<size_t>(GetParam().bytes), kUntouched);
  }
  int32_t call(OrvikStream s, int32_t n, std::vector<uint8_t>& r, int32_t first = 0) const {
    return GetParam().call(s, n, r.data() + static_cast<size_t>(first) * static_cast<size_t>(GetParam().bytes));
  }
  std::vector<uint8_t> drawn(OrvikStream s, int32_t n) const {
    std::vector<uint8_t> r = room(n);
    EXPECT_EQ(call(s, n, r), 0);
    return r;
  }
};
INSTANTIATE_TEST_SUITE_P(Distributions, EveryEntry, ::testing::ValuesIn(entries()),
                         [](const auto& info) { return info.param.name; });

int32_t theirs(ZymErrorContext*) { return 0; }

uint16_t x87_word() {
  uint16_t word;
  asm volatile("fnstcw %0" : "=m"(word));
  return word;
}

// Everything of the thread that an entry changes for its duration.
struct ThreadState {
  uint32_t mode = _zymGetMode();
  ZymErrorCallback callback = _zymGetErrorCallBack();
  uint16_t x87 = x87_word();
  uint32_t control = read_control() & ~0x3Fu;  // flags may be raised
  bool operator==(const ThreadState&) const = default;
};

// An odd state; back to the usual one afterwards.
class OddThread {
 public:
  OddThread() : mxcsr_(read_control()) {
    _zymSetErrorCallBack(theirs);
    _zymSetMode(0x280000 | ZYM_ERRMODE_CALLBACK | ZYM_ERRMODE_ERRNO | ZYM_LA);
    feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_DIVBYZERO | FE_OVERFLOW);
  }
  ~OddThread() {
    fedisableexcept(FE_ALL_EXCEPT);
    write_control(mxcsr_);
    _zymSetErrorCallBack(nullptr);
    _zymSetMode(ZYM_ERRMODE_DEFAULT | 0x140000 | ZYM_HA);
  }
  OddThread(const OddThread&) = delete;
  OddThread& operator=(const OddThread&) = delete;

 private:
  uint32_t mxcsr_;
};

TEST_P(EveryEntry, EndsAtOnceAtANegativeStatusOfAnyRequest) {
  int32_t requests;
  {
    Scripted s;
    s.spread();
    drawn(s.get(), kMany);
    requests = static_cast<int32_t>(s->requests.size());
  }
  ASSERT_GE(requests, 1);
  for (int32_t bad = 0; bad < std::min(requests, 40); ++bad) {
    Scripted s;
    s.spread();
    s->status = [bad](int64_t k) { return k == bad ? -1131 : 0; };
    std::vector<uint8_t> r = room(kMany);
    EXPECT_EQ(call(s.get(), kMany, r), -1131) << "request " << bad;
    EXPECT_EQ(static_cast<int32_t>(s->requests.size()), bad + 1) << "no request follows";
  }
}

TEST_P(EveryEntry, WritesNothingWhenTheFirstRequestFails) {
  Scripted s;
  s->status = [](int64_t) { return -5; };
  std::vector<uint8_t> r = room(kMany);
  EXPECT_EQ(call(s.get(), kMany, r), -5);
  EXPECT_EQ(r, room(kMany));
}

TEST_P(EveryEntry, CarriesAConstantPositiveStatus) {
  Scripted s;
  s.spread();
  s->status = [](int64_t) { return 7; };
  std::vector<uint8_t> r = room(kMany);
  EXPECT_EQ(call(s.get(), kMany, r), 7);
  Scripted silent;
  silent.spread();
  EXPECT_EQ(r, drawn(silent.get(), kMany)) << "and delivers the same numbers";
}

TEST_P(EveryEntry, ReturnsTheStatusOfTheLastRequest) {
  Scripted s;
  s.spread();
  s->status = [](int64_t k) { return static_cast<int32_t>(k + 1); };
  std::vector<uint8_t> r = room(kMany);
  const int32_t status = call(s.get(), kMany, r);
  EXPECT_EQ(status, static_cast<int32_t>(s->requests.size()));
}

TEST_P(EveryEntry, WritesNothingBelowOneNumber) {
  for (const int32_t n : {0, -1, -1024, -5000}) {
    const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
    std::vector<uint8_t> r = room(1);
    EXPECT_EQ(call(s.get(), n, r), 0) << n;
    EXPECT_EQ(r, room(1)) << n;
    EXPECT_EQ(s.words(3), source.words(3)) << n << ": nothing was drawn";
  }
}

TEST_P(EveryEntry, LeavesTheThreadAsItWas) {
  const OddThread odd;
  const ThreadState before;
  Scripted s;
  s.spread();
  drawn(s.get(), kMany);
  EXPECT_EQ(ThreadState(), before);
  drawn(s.get(), 1);
  EXPECT_EQ(ThreadState(), before) << "one number";
  const int64_t requests = static_cast<int64_t>(s->requests.size());
  s->status = [requests](int64_t k) { return k >= requests ? -4 : 0; };
  std::vector<uint8_t> r = room(kMany);
  EXPECT_EQ(call(s.get(), kMany, r), -4);
  EXPECT_EQ(ThreadState(), before) << "after a failure";
}

TEST_P(EveryEntry, LeavesNothingInTheUpperHalvesOfRegisters) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers' own code uses them";
#endif
  if (!test::tells_upper_halves()) GTEST_SKIP() << "the processor does not tell";
  const Stream s(ORVIK_BRNG_MT19937, {77});
  for (const int32_t n : {1, 2, 3, 4, 5, 8, 12, 16, 24, 31, 32, 33, 64, 100, 1024, 2048, kMany}) {
    std::vector<uint8_t> r = room(n);
    for (int turn = 0; turn < 10; ++turn) {
      test::clear_upper_halves();
      GetParam().call(s.get(), n, r.data());
      const bool left = test::upper_halves_in_use();
      test::clear_upper_halves();
      ASSERT_FALSE(left) << n << " numbers";
    }
  }
}

TEST_P(EveryEntry, DoesNotCallTheCallersCallback) {
  static int calls;
  calls = 0;
  _zymSetErrorCallBack([](ZymErrorContext*) { return ++calls; });
  for (const double number : {0.0, 1.0}) {  // logarithms of zero, poles of inverse functions
    Scripted s;
    s->number = [number](int64_t i) {
      const double x = static_cast<double>(i + 1) * 0.6180339887498949;
      return i % 7 == 3 ? number : x - std::floor(x);
    };
    drawn(s.get(), kMany);
  }
  _zymSetErrorCallBack(nullptr);
  _zymSetMode(ZYM_ERRMODE_DEFAULT);
  EXPECT_EQ(calls, 0) << "elements that a kernel reports are the entry's own affair";
}

TEST_P(EveryEntry, DoesNotDependOnHowARequestIsCut) {
  if (!GetParam().free_of_cuts)
    return;  // the distribution says why see the distribution's own
             // test";
  const Stream whole(ORVIK_BRNG_MT19937, {77}), cut = whole.copy();
  const std::vector<uint8_t> expected = drawn(whole.get(), 2 * kMany);
  std::vector<uint8_t> got = room(2 * kMany);
  for (int32_t n = 1, done = 0; done < 2 * kMany; done += n, n = n * 5 % 1237 + 1) {
    n = std::min(n, 2 * kMany - done);
    ASSERT_EQ(call(cut.get(), n, got, done), 0);
  }
  for (int32_t i = 0; i < 2 * kMany; ++i) {
    const size_t bytes = static_cast<size_t>(GetParam().bytes), at = static_cast<size_t>(i) * bytes;
    ASSERT_EQ(std::memcmp(got.data() + at, expected.data() + at, bytes), 0) << "number " << i;
  }
  EXPECT_EQ(cut.words(3), whole.words(3));
}

TEST_P(EveryEntry, AllocatesNothingButItsSideBlock) {
  const Stream s(ORVIK_BRNG_MT19937, {77});
  std::vector<uint8_t> r = room(kMany);
  const int64_t live = serv::live_allocations();
  EXPECT_EQ(call(s.get(), 1, r), 0);
  EXPECT_EQ(serv::live_allocations(), live + 2 * GetParam().blocks) << "a block and its node each";
  serv::fail_allocation_after(1);
  const int64_t before = heap_requests();
  const int32_t status = call(s.get(), kMany, r);
  const int64_t after = heap_requests();
  serv::fail_allocation_after(0);
  if (GetParam().scratch) {
    EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
    EXPECT_EQ(serv::live_allocations(), live + 2 * GetParam().blocks);
    return;
  }
  EXPECT_EQ(status, 0);
  EXPECT_EQ(after, before) << "not by another way";
}

TEST_P(EveryEntry, LeavesTheThreadAsItWasWhenMemoryIsExhausted) {
  const OddThread odd;
  const ThreadState before;
  for (int64_t failing = 1; failing < 10; ++failing) {
    Scripted s;
    s.spread();
    std::vector<uint8_t> r = room(1);
    serv::fail_allocation_after(failing);
    const int32_t status = call(s.get(), 1, r);
    serv::fail_allocation_after(0);
    EXPECT_EQ(ThreadState(), before) << "allocation " << failing;
    EXPECT_TRUE(status == 0 || status == ORVIK_QOR_NO_MEMORY) << status;
    if (status != 0) {
      EXPECT_EQ(r, room(1));
    }
  }
}

// Numbers at the ends of the interval and next to them, and one half, for a while; then numbers that fill it.
TEST_P(EveryEntry, EndsAfterAnyNumbers) {
  for (const double number : {0.0, 1.0, 0.5, 1 - 0x1p-24, 1 - 0x1p-53}) {
    Scripted s;
    s->number = [number](int64_t i) {
      const double x = static_cast<double>(i + 1) * 0.6180339887498949;
      return i < 5000 ? number : x - std::floor(x);
    };
    const ThreadState before;
    drawn(s.get(), 20);
    EXPECT_EQ(ThreadState(), before) << number;
  }
}

TEST_P(EveryEntry, IsRefusedByAStreamOfAnotherForm) {
  // Doubles alone, of a caller's own.
  std::vector<double> ring;
  for (int i = 1; i <= 64; ++i) ring.push_back(std::fmod(i * 0.6180339887498949, 1));
  Stream s;
  const auto refill = [](OrvikStream, int32_t*, double*, int32_t*, int32_t* room, int32_t*) { return *room; };
  ASSERT_EQ(__qordNewAbstractStream(s.out(), 64, ring.data(), 0, 1, refill), 0);
  std::vector<uint8_t> r = room(100);
  const int32_t status = call(s.get(), 100, r);
  if (GetParam().name[0] == 'd' || GetParam().name == "iUniform")
    EXPECT_EQ(status, 0);
  else
    EXPECT_TRUE(status == -1122 || status == -1014 || (GetParam().draws_doubles && status == 0)) << status;
}

TEST_P(EveryEntry, EndsWithItsStatusWhenACallersNumbersRunDry) {
  static int refills;
  refills = 0;
  std::vector<double> ring(64, 0.25);
  std::vector<float> short_ring(64, 0.25f);
  std::vector<uint32_t> words(64, 7);
  Stream d, f, i;
  ASSERT_EQ(__qordNewAbstractStream(d.out(), 64, ring.data(), 0, 1,
                                    [](OrvikStream, int32_t*, double*, int32_t*, int32_t* room, int32_t*) {
                                      return refills++ < 1 ? *room : 0;
                                    }),
            0);
  ASSERT_EQ(__qorsNewAbstractStream(f.out(), 64, short_ring.data(), 0, 1,
                                    [](OrvikStream, int32_t*, float*, int32_t*, int32_t* room, int32_t*) {
                                      return refills++ < 1 ? *room : 0;
                                    }),
            0);
  ASSERT_EQ(__qoriNewAbstractStream(i.out(), 64, words.data(),
                                    [](OrvikStream, int32_t*, uint32_t*, int32_t*, int32_t* room, int32_t*) {
                                      return refills++ < 1 ? *room : 0;
                                    }),
            0);
  int dry = 0, refused = 0;
  const ThreadState before;
  for (const Stream* s : {&d, &f, &i}) {
    refills = 0;
    std::vector<uint8_t> r = room(1000);
    const int32_t status = call(s->get(), 1000, r);
    EXPECT_LT(status, 0);
    dry += status == ORVIK_QOR_ABSTRACT_NO_DATA;
    refused += status == ORVIK_QOR_ABSTRACT_WRONG_TYPE || status == ORVIK_QOR_NO_WORDS;
  }
  EXPECT_EQ(dry + refused, 3);
  EXPECT_EQ(ThreadState(), before);
  const bool needs_good_words = GetParam().name == "iUniformBits32" || GetParam().name == "iUniformBits64";
  const bool takes_turns = GetParam().name == "iMultinomial_poisson_of_many";  // of doubles and floats
  EXPECT_EQ(dry > 0, !needs_good_words && !takes_turns);
}

}  // namespace
}  // namespace orvik::testing

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);

void* malloc(size_t bytes) {
  orvik::testing::requests_to_heap.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(bytes);
}
void* calloc(size_t n, size_t bytes) {
  orvik::testing::requests_to_heap.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(n, bytes);
}
void* realloc(void* block, size_t bytes) {
  orvik::testing::requests_to_heap.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(block, bytes);
}
void* aligned_alloc(size_t alignment, size_t bytes) {
  orvik::testing::requests_to_heap.fetch_add(1, std::memory_order_relaxed);
  return __libc_memalign(alignment, bytes);
}
int posix_memalign(void** block, size_t alignment, size_t bytes) {
  orvik::testing::requests_to_heap.fetch_add(1, std::memory_order_relaxed);
  *block = __libc_memalign(alignment, bytes);
  return *block != nullptr ? 0 : ENOMEM;
}
}
#endif

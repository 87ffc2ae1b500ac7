// A stream that deletes itself, with its numbers as vectors. Generator functions are reached through the registry row,
// as distributions reach them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "orvik/qor.h"

namespace orvik::testing {

class Stream {
 public:
  Stream() = default;
  explicit Stream(int32_t brng, const std::vector<uint32_t>& seeds = {1}) {
    EXPECT_EQ(__qorNewStreamEx(&stream_, brng, static_cast<int32_t>(seeds.size()), seeds.data()), 0);
  }
  ~Stream() {
    if (stream_) __qorDeleteStream(&stream_);
  }
  Stream(Stream&& other) noexcept : stream_(std::exchange(other.stream_, nullptr)) {}
  Stream& operator=(Stream&& other) noexcept {
    std::swap(stream_, other.stream_);
    return *this;
  }

  Stream copy() const {
    Stream other;
    EXPECT_EQ(__qorCopyStream(&other.stream_, stream_), 0);
    return other;
  }

  OrvikStream get() const { return stream_; }
  OrvikStream* out() { return &stream_; }
  template <class T>
  T* state() const {
    return reinterpret_cast<T*>(static_cast<uint8_t*>(stream_) + 16);
  }

  RegBrngRow row() const {
    RegBrngRow row;
    EXPECT_EQ(__qorGetBrngProperties(__qorGetStreamStateBrng(stream_), &row), 0);
    return row;
  }

  template <class T>
  std::vector<T> integers(int32_t n) const {
    return guarded<T>(n, [&](T* r) { return row().iBRng(stream_, n, r); });
  }
  std::vector<uint32_t> words(int32_t n) const { return integers<uint32_t>(n); }
  // Integer outputs of any width as 64-bit numbers; elements of four words as four of them.
  std::vector<uint64_t> outputs(int32_t n) const {
    struct Four {
      uint32_t w[4];
      explicit Four(uint32_t v = 0) : w{v, v, v, v} {}
      bool operator==(const Four&) const = default;
    };
    std::vector<uint64_t> r;
    switch (row().WordSize) {
      case 4:
        for (uint32_t w : words(n)) r.push_back(w);
        break;
      case 8:
        r = integers<uint64_t>(n);
        break;
      case 16:
        for (const Four& f : integers<Four>(n)) r.insert(r.end(), f.w, f.w + 4);
        break;
      default:
        ADD_FAILURE() << "an element of " << row().WordSize << " bytes";
    }
    return r;
  }
  std::vector<float> floats(int32_t n, float a = 0, float b = 1) const {
    return guarded<float>(n, [&](float* r) { return row().sBRng(stream_, n, r, a, b); });
  }
  std::vector<double> doubles(int32_t n, double a = 0, double b = 1) const {
    return guarded<double>(n, [&](double* r) { return row().dBRng(stream_, n, r, a, b); });
  }
  int32_t skip(uint64_t count) const { return __qorSkipAheadStream(stream_, count); }
  int32_t skip_ex(const std::vector<uint64_t>& count) const {
    return __qorSkipAheadStreamEx(stream_, static_cast<int32_t>(count.size()), count.data());
  }
  int32_t leapfrog(int32_t k, int32_t nstreams) const { return __qorLeapfrogStream(stream_, k, nstreams); }

 private:
  // An array at an odd place between two guard elements that must survive.
  template <class T, class Fill>
  static std::vector<T> guarded(int32_t n, Fill fill) {
    const size_t count = static_cast<size_t>(n);
    std::vector<T> r(count + 16, T(77));
    EXPECT_EQ(fill(r.data() + 1), 0);
    EXPECT_EQ(r[0], T(77));
    for (size_t i = count + 1; i < r.size(); ++i)
      EXPECT_EQ(r[i], T(77)) << "element " << i << " of " << n << " written";
    return {r.begin() + 1, r.begin() + 1 + n};
  }

  OrvikStream stream_ = nullptr;
};

// A generator of the list as tests take it: families by a member in the middle, points by ten dimensions.
struct Generator {
  const char* name;
  int32_t brng;
  bool leapfrogs, skips, skips_long;
  std::vector<uint32_t> seeds;
};
enum Jump { no, yes, one };

inline const std::vector<Generator>& generators() {
  static const std::vector<Generator> all = [] {
    const std::vector<uint32_t> usual = {0x12345, 0x9ABCDEF0, 0x55AA55AA, 7, 0xFFFFFFF0, 0x80000001, 3, 0xC0FFEE};
    std::vector<Generator> g;
#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, leap, skip, skip_long, ...)   \
  g.push_back({#functions, ORVIK_BRNG_##constant + (members > 1 ? 17 : 0), leap == yes, skip == yes, skip_long == yes, \
               leap == one ? std::vector<uint32_t>{10} : usual});
#include "qor/stream/brngs.def"
    return g;
  }();
  return all;
}
// Those that __qorNewStreamEx makes and whose numbers follow from their seeds.
inline std::vector<Generator> seeded_generators() {
  std::vector<Generator> g;
  for (const Generator& each : generators())
    if (each.brng != ORVIK_BRNG_IABSTRACT && each.brng != ORVIK_BRNG_DABSTRACT && each.brng != ORVIK_BRNG_SABSTRACT &&
        each.brng != ORVIK_BRNG_TRNG)
      g.push_back(each);
  return g;
}
// Those that keep one place for all forms.
inline std::vector<Generator> one_place_generators() {
  std::vector<Generator> g;
  for (const Generator& each : seeded_generators())
    if (each.brng != ORVIK_BRNG_MCG31M1 && each.brng != ORVIK_BRNG_MCG59) g.push_back(each);
  return g;
}
inline std::string name_of(const ::testing::TestParamInfo<Generator>& info) { return info.param.name; }
inline void PrintTo(const Generator& g, std::ostream* out) { *out << g.name; }

}  // namespace orvik::testing

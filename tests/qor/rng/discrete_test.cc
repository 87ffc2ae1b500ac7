// Bernoulli, Geometric and words.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <bit>
#include <cmath>

#include "qor/rng/call.h"
#include "qor/rng/patched.h"
#include "qor/rng/plain.h"
#include "qor/rng/scripted.h"

namespace orvik::testing {
namespace {

const int32_t kSizes[] = {1, 2, 7, 1023, 1024, 1025, 2047, 2048, 2049, 5000};

TEST(Bernoulli, IsOneWhereTheUniformIsBelow) {
  for (const double p : {0.0, 0.125, 0.3, 0.999, 1.0})
    for (const int32_t n : kSizes) {
      const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
      std::vector<int32_t> expected;
      for (const float u : source.floats(n)) expected.push_back(u < static_cast<float>(p) ? 1 : 0);
      expect_same(drawn<int32_t>(n, [&](int32_t* r) { return _qoriRngBernoulli(0, s.get(), n, r, p); }), expected, "n");
      EXPECT_EQ(s.words(2), source.words(2)) << "one uniform a number";
    }
}

TEST(Bernoulli, OfProbabilityZeroYieldsOnlyZeroAndOfOneOnlyOne) {
  const std::vector<double> odd = {0, 0x1p-32, 0.25, 0.5, 1 - 0x1p-24};
  const int32_t n = static_cast<int32_t>(odd.size());
  for (const double p : {0.0, 1.0}) {
    Scripted s;
    s.numbers(odd);
    const std::vector<int32_t> r =
        drawn<int32_t>(n, [&](int32_t* r) { return _qoriRngBernoulli(0, s.get(), n, r, p); });
    EXPECT_EQ(r, std::vector<int32_t>(odd.size(), p == 0 ? 0 : 1));
  }
}

TEST(Bernoulli, OfAUniformThatWasRoundedUpToOneIsZero) {
  Scripted s;
  s.numbers({1});
  EXPECT_EQ(drawn<int32_t>(1, [&](int32_t* r) { return _qoriRngBernoulli(0, s.get(), 1, r, 1); })[0], 0);
}

TEST(Geometric, IsTheFloorOfAScaledLogarithm) {
  for (const double p : {0.001, 0.2, 0.5, 0.9})
    for (const int32_t n : kSizes) {
      const Stream s(ORVIK_BRNG_MT19937, {77}), source = s.copy();
      double ln = 1 - p;
      _zymdLn_HA(1, &ln, &ln);
      const float c = static_cast<float>(1 / ln);
      std::vector<int32_t> expected;
      for (const float x : plain::ln(source.floats(n))) expected.push_back(static_cast<int32_t>(std::floor(c * x)));
      expect_same(drawn<int32_t>(n, [&](int32_t* r) { return _qoriRngGeometric(0, s.get(), n, r, p); }), expected, "n");
      EXPECT_EQ(s.words(2), source.words(2)) << "one uniform a number";
    }
}

TEST(Geometric, TakesOneUniformANumberInBlocksOf1024) {
  Scripted s;
  s.spread();
  const Patched<float> watched(orvik_zym_kernel_sLn_ttab, 0);
  drawn<int32_t>(2500, [&](int32_t* r) { return _qoriRngGeometric(0, s.get(), 2500, r, 0.3); });
  EXPECT_EQ(s->sizes(), (std::vector<int32_t>{1024, 1024, 452}));
  EXPECT_EQ(watched.sizes(), (std::vector<int32_t>{1024, 1024, 452}));
}

TEST(Geometric, OfAUniformOfExactlyZeroIsFinite) {
  Scripted s;
  s.numbers({0});
  const int32_t r = drawn<int32_t>(1, [&](int32_t* r) { return _qoriRngGeometric(0, s.get(), 1, r, 0.5); })[0];
  EXPECT_EQ(r, 149) << "103.279 / ln 2";
}

TEST(Geometric, BeyondIntegersIsTheLargestInteger) {
  for (const double p : {1e-9, 1e-10, 1e-16, 1e-17, 1e-300}) {  // 1 - p may be 1
    Scripted s;
    s.spread();
    int64_t largest = 0;
    for (const int32_t k :
         drawn<int32_t>(2000, [&](int32_t* r) { return _qoriRngGeometric(0, s.get(), 2000, r, p); })) {
      ASSERT_GE(k, 0) << p;
      largest += k == 0x7FFFFFFF;
    }
    EXPECT_NEAR(static_cast<double>(largest) / 2000, std::exp(-0x1p31 * p), 0.002) << p;
  }
}

TEST(Words, AreTheGeneratorsOwn) {
  for (const Generator& g : seeded_generators()) {
    const Stream s(g.brng, g.seeds), source = s.copy();
    const std::vector<uint64_t> expected = source.outputs(1000);
    const int32_t size = s.row().WordSize;
    std::vector<uint32_t> r(4000);
    ASSERT_EQ(_qoriRngUniformBits(0, s.get(), 1000, r.data()), 0);
    for (size_t i = 0; i < expected.size(); ++i)
      ASSERT_EQ(size == 8 ? r[2 * i] | uint64_t{r[2 * i + 1]} << 32 : r[i], expected[i]) << g.name << ", " << i;
  }
}

TEST(Words, OfGoodGeneratorsComeDirectly) {
  for (const int32_t brng : {ORVIK_BRNG_MT19937 + 0, ORVIK_BRNG_MT2203 + 17, ORVIK_BRNG_SFMT19937 + 0,
                             ORVIK_BRNG_ARS5 + 0, ORVIK_BRNG_PHILOX4X32X10 + 0})
    for (const int32_t n : kSizes) {
      const Stream s(brng, {77}), source = s.copy();
      expect_same(drawn<uint32_t>(n, [&](uint32_t* r) { return _qoriRngUniformBits32(0, s.get(), n, r); }),
                  source.words(n), "words of 32");
      const std::vector<uint32_t> w = source.words(2 * n);
      std::vector<uint64_t> expected;
      for (size_t i = 0; i < w.size(); i += 2) expected.push_back(w[i] | uint64_t{w[i + 1]} << 32);
      expect_same(drawn<uint64_t>(n, [&](uint64_t* r) { return _qoriRngUniformBits64(0, s.get(), n, r); }), expected,
                  "words of 64: 2 n words through the generator");
      EXPECT_EQ(s.words(2), source.words(2));
    }
}

TEST(Words, OfMcg59AreItsBits27To58InBlocksOf2048) {
  for (const int32_t brng : {ORVIK_BRNG_MCG59 + 0, 3})  // by either id
    for (const int32_t n : kSizes) {
      const Stream s(brng, {77}), source = s.copy();
      std::vector<uint32_t> expected;
      for (const uint64_t w : source.integers<uint64_t>(n)) expected.push_back(static_cast<uint32_t>(w >> 27));
      expect_same(drawn<uint32_t>(n, [&](uint32_t* r) { return _qoriRngUniformBits32(0, s.get(), n, r); }), expected,
                  "words of 32");
      std::vector<uint64_t> pairs;
      const std::vector<uint64_t> w = source.integers<uint64_t>(2 * n);
      for (size_t i = 0; i < w.size(); i += 2) pairs.push_back((w[i] >> 27 & 0xFFFFFFFF) | (w[i + 1] >> 27) << 32);
      expect_same(drawn<uint64_t>(n, [&](uint64_t* r) { return _qoriRngUniformBits64(0, s.get(), n, r); }), pairs,
                  "words of 64: the first is the low half");
    }
}

TEST(Words, OfOtherGeneratorsAreRefused) {
  for (const Generator& g : seeded_generators()) {
    const int32_t row = (g.brng >> 20) - 1;
    const bool refused = row == 0 || row == 1 || row == 2 || row == 4 || row == 5 || row == 6;
    const Stream s(g.brng, g.seeds), source = s.copy();
    std::vector<uint64_t> r(4, 7);
    const std::vector<uint64_t> untouched = r;
    EXPECT_EQ(_qoriRngUniformBits32(0, s.get(), 4, reinterpret_cast<uint32_t*>(r.data())), refused ? -1014 : 0)
        << g.name;
    EXPECT_EQ(r == untouched, refused) << g.name;
    EXPECT_EQ(_qoriRngUniformBits64(0, s.get(), 4, r.data()), refused ? -1014 : 0) << g.name;
    if (refused) {
      EXPECT_EQ(s.outputs(4), source.outputs(4)) << g.name << ": nothing was drawn";
    }
  }
}

TEST(Words, OfOldIdsAreRefusedButForMcg59) {
  // Places in the table of old ids mean other generators than places in the new one: 7, 8, 12 to 15 are members of WH.
  for (const int32_t id : {0, 1, 2, 4, 7, 8, 12, 15, 276, 277, 278}) {
    const Stream s(id, {2});
    std::vector<uint64_t> r(4);
    EXPECT_EQ(_qoriRngUniformBits64(0, s.get(), 4, r.data()), -1014) << id;
  }
}

TEST(Words, OfMoreThanACountHoldsAreDrawnInParts) {
  static std::vector<int32_t> sizes;
  Scripted s;
  RegBrngRow row;
  ASSERT_EQ(__qorGetBrngProperties(scripted_brng(), &row), 0);
  row.iBRng = [](OrvikStream, int32_t n, void*) -> int32_t { return sizes.push_back(n), 9; };
  Stream counted;
  ASSERT_EQ(__qorNewStreamEx(counted.out(), __qorRegisterBrng(&row), 0, nullptr), 0);
  constexpr int32_t kNumbers = (1 << 30) + 5;
  constexpr size_t kBytes = size_t{8} * kNumbers;
  void* const place = mmap(nullptr, kBytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(place, MAP_FAILED);
  EXPECT_EQ(_qoriRngUniformBits64(0, counted.get(), kNumbers, static_cast<uint64_t*>(place)), 9);
  munmap(place, kBytes);
  EXPECT_EQ(sizes, (std::vector<int32_t>{0x7FFFFFFE, 12}));
}

TEST(Words, OfRegisteredGeneratorsGoByTheirWidth) {
  Scripted s;  // words of 4 bytes, 32 bits
  s.numbers({0.25, 0.75});
  uint64_t r;
  EXPECT_EQ(_qoriRngUniformBits64(0, s.get(), 1, &r), 0);
  EXPECT_EQ(r, 0xC000000040000000u);
  RegBrngRow row;
  ASSERT_EQ(__qorGetBrngProperties(scripted_brng(), &row), 0);
  row.NBits = 31;
  Stream few;
  const int32_t id = __qorRegisterBrng(&row);
  ASSERT_EQ(__qorNewStreamEx(few.out(), id, 0, nullptr), 0);
  EXPECT_EQ(_qoriRngUniformBits64(0, few.get(), 1, &r), -1014);
}

}  // namespace
}  // namespace orvik::testing

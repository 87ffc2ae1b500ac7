#include "qor/stream/registry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>

#include "orvik/qor.h"

namespace {

using namespace orvik::qor;

// The numbers as published, apart from the list that the library is made of.
struct BuiltIn {
  const char* name;
  int32_t id, members, size, seeds, zero, word, bits;
};
const BuiltIn kBuiltIn[] = {{"MCG31M1", 0x100000, 1, 24, 1, 0, 4, 31},
                            {"R250", 0x200000, 1, 1024, 252, 1, 4, 32},
                            {"MRG32K3A", 0x300000, 1, 40, 6, 1, 4, 32},
                            {"MCG59", 0x400000, 1, 32, 1, 0, 8, 59},
                            {"WH", 0x500000, 273, 48, 4, 1, 16, 24},
                            {"Sobol", 0x600000, 1, 11712, 2604, 0, 4, 32},
                            {"Niederreiter", 0x700000, 1, 84288, 10498, 0, 4, 32},
                            {"MT19937", 0x800000, 1, 2520, 625, 1, 4, 32},
                            {"MT2203", 0x900000, 6024, 312, 70, 1, 4, 32},
                            {"integer abstract", 0xA00000, 1, 48, 0, 1, 4, 32},
                            {"double abstract", 0xB00000, 1, 64, 0, 1, 4, 32},
                            {"float abstract", 0xC00000, 1, 56, 0, 1, 4, 32},
                            {"SFMT19937", 0xD00000, 1, 2536, 625, 1, 4, 32},
                            {"TRNG", 0xE00000, 1, 24, 1, 1, 4, 32},
                            {"ARS5", 0xF00000, 1, 72, 8, 1, 4, 32},
                            {"PHILOX4X32X10", 0x1000000, 1, 64, 8, 1, 4, 32}};

bool same_row(const RegBrngRow& x, const RegBrngRow& y) { return std::memcmp(&x, &y, sizeof x) == 0; }

TEST(Registry, BuiltInRows) {
  for (const BuiltIn& b : kBuiltIn) {
    RegBrngRow row;
    ASSERT_EQ(__qorGetBrngProperties(b.id, &row), 0) << b.name;
    EXPECT_EQ(row.StreamStateSize, b.size) << b.name;
    EXPECT_EQ(row.NSeeds, b.seeds) << b.name;
    EXPECT_EQ(row.IncludesZero, b.zero) << b.name;
    EXPECT_EQ(row.WordSize, b.word) << b.name;
    EXPECT_EQ(row.NBits, b.bits) << b.name;
    EXPECT_TRUE(same_row(row, __RegBrngsNew[(b.id >> 20) - 1])) << b.name;
    EXPECT_EQ(__qorGetBrngProperties(b.id + b.members - 1, &row), 0) << b.name;
    EXPECT_EQ(__qorGetBrngProperties(b.id + b.members, &row), ORVIK_QOR_BAD_BRNG) << b.name;
  }
}

TEST(Registry, HistoricalRowsEqualTheirCurrentOnes) {
  const auto expect_same = [](int32_t historical, int32_t current) {
    RegBrngRow a, b;
    ASSERT_EQ(__qorGetBrngProperties(historical, &a), 0);
    ASSERT_EQ(__qorGetBrngProperties(current, &b), 0);
    EXPECT_TRUE(same_row(a, b)) << historical;
  };
  expect_same(0, ORVIK_BRNG_MCG31M1);
  expect_same(1, ORVIK_BRNG_R250);
  expect_same(2, ORVIK_BRNG_MRG32K3A);
  expect_same(3, ORVIK_BRNG_MCG59);
  for (int32_t id = 4; id <= 276; ++id) {
    expect_same(id, ORVIK_BRNG_WH);
    EXPECT_TRUE(same_row(__RegBrngs[id], __RegBrngs[4]));
  }
  expect_same(277, ORVIK_BRNG_SOBOL);
  expect_same(278, ORVIK_BRNG_NIEDERREITER);
}

TEST(Registry, IdsOfBothFormsResolve) {
  const auto expect_place = [](int32_t id, const void* table, uint32_t index, uint32_t sub) {
    uint32_t i = 99, s = 99;
    EXPECT_EQ(__qorGetBrngBaseOffset(id, &i, &s), table) << id;
    EXPECT_EQ(i, index) << id;
    EXPECT_EQ(s, sub) << id;
  };
  expect_place(3, __RegBrngs, 3, 0);
  expect_place(4, __RegBrngs, 4, 0);
  expect_place(276, __RegBrngs, 4, 272);
  expect_place(277, __RegBrngs, 277, 0);
  expect_place(0xFFFFF, __RegBrngs, 0xFFFFF, 0);
  expect_place(-1, __RegBrngs, 0xFFFFFFFF, 0);
  expect_place(0x100000, __RegBrngsNew, 0, 0);
  expect_place(0x500000 + 272, __RegBrngsNew, 4, 272);
  expect_place(0x7FFFFFFF, __RegBrngsNew, 2046, 0xFFFFF);
}

TEST(Registry, EmptyRows279And280AreValid) {
  for (int32_t id : {279, 280}) {
    RegBrngRow row, zeros = {};
    std::memset(&row, 0xAA, sizeof row);
    EXPECT_EQ(__qorIsBrngValid(__RegBrngs, id, 0), 0);
    ASSERT_EQ(__qorGetBrngProperties(id, &row), 0);
    EXPECT_TRUE(same_row(row, zeros)) << id;
  }
  RegBrngRow row;
  EXPECT_EQ(__qorIsBrngValid(__RegBrngs, 281, 0), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(__qorGetBrngProperties(281, &row), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(__qorGetBrngProperties(0xFFFFF, &row), ORVIK_QOR_BAD_BRNG);
}

TEST(Registry, WhHistoricalIdsReachTheSameSubGenerators) {
  for (int32_t k = 0; k < 273; ++k) {
    uint32_t i, old_sub, new_sub;
    __qorGetBrngBaseOffset(4 + k, &i, &old_sub);
    __qorGetBrngBaseOffset(0x500000 + k, &i, &new_sub);
    EXPECT_EQ(old_sub, new_sub);
  }
}

TEST(Registry, LastMembersOfWhAndMt2203AreValidAndTheNextAreNot) {
  RegBrngRow row;
  EXPECT_EQ(__qorGetBrngProperties(0x500110, &row), 0);
  EXPECT_EQ(__qorGetBrngProperties(0x500111, &row), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(__qorGetBrngProperties(0x901787, &row), 0);
  EXPECT_EQ(__qorGetBrngProperties(0x901788, &row), ORVIK_QOR_BAD_BRNG);
}

TEST(Registry, NegativeIdPassesTheTestAndLeadsToAnEmptyRow) {
  EXPECT_EQ(__qorIsBrngValid(__RegBrngs, -1, 0), 0);
  EXPECT_EQ(__qorIsBrngValid(__RegBrngs, INT32_MIN, 0), 0);
  RegBrngRow row;
  ASSERT_EQ(__qorGetBrngProperties(-5, &row), 0);
  EXPECT_EQ(row.StreamStateSize, 0);
}

TEST(Registry, ListOfGeneratorsSaysWhatTheRowsSay) {
  size_t line = 0;
#define ORVIK_BRNG(constant, functions, title, members_, record, seeds_, zero_, bytes, bits_, ...)                     \
  EXPECT_STREQ(kBuiltIn[line].name, title);                                                                            \
  EXPECT_EQ(kBuiltIn[line].id, ORVIK_BRNG_##constant);                                                                 \
  EXPECT_TRUE(kBuiltIn[line].members == members_ && kBuiltIn[line].size == record && kBuiltIn[line].seeds == seeds_ && \
              kBuiltIn[line].zero == zero_ && kBuiltIn[line].word == bytes && kBuiltIn[line].bits == bits_)            \
      << title;                                                                                                        \
  EXPECT_EQ(__RegBrngsNew[line].iBRng, __qoriBRng##functions);                                                         \
  ++line;
#include "qor/stream/brngs.def"
  EXPECT_EQ(line, std::size(kBuiltIn));
}

TEST(Registry, FormsThatAbstractTypesLackAreOneRefusingFunction) {
  const auto refusing = reinterpret_cast<void (*)()>(__RegBrngsNew[9].sBRng);
  EXPECT_EQ(reinterpret_cast<void (*)()>(__RegBrngsNew[9].dBRng), refusing);
  EXPECT_EQ(reinterpret_cast<void (*)()>(__RegBrngsNew[10].sBRng), refusing);
  EXPECT_EQ(reinterpret_cast<void (*)()>(__RegBrngsNew[10].iBRng), refusing);
  EXPECT_EQ(reinterpret_cast<void (*)()>(__RegBrngsNew[11].dBRng), refusing);
  EXPECT_EQ(reinterpret_cast<void (*)()>(__RegBrngsNew[11].iBRng), refusing);
  EXPECT_EQ(__qordBRngsAbstract(nullptr, 1, nullptr, 0, 1), ORVIK_QOR_ABSTRACT_WRONG_TYPE);
}

// ---- registration. The registry is the process's: this test alone registers.

int32_t fake_init(uint32_t, OrvikStream, int32_t, const void*) { return 0; }
int32_t fake_s(OrvikStream, int32_t, float*, float, float) { return 0; }
int32_t fake_d(OrvikStream, int32_t, double*, double, double) { return 0; }
int32_t fake_i(OrvikStream, int32_t, void*) { return 0; }

TEST(Registry, RegistrationTestsInOrderThenAddsRows) {
  const RegBrngRow good = {40, 1, 0, 8, 64, fake_init, fake_s, fake_d, fake_i};
  ASSERT_EQ(__qorGetNumRegBrngs(), 16);

  RegBrngRow bad = {-1, 0, 0, 5, 0, nullptr, nullptr, nullptr, nullptr};
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_REG_BAD_STATE_SIZE);
  bad.StreamStateSize = 24;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_REG_BAD_WORD_SIZE);
  for (int32_t size : {-4, 0, 1, 2, 3, 12, 32}) {
    bad.WordSize = size;
    EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_REG_BAD_WORD_SIZE) << size;
  }
  bad.WordSize = 16;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_REG_BAD_NSEEDS);
  bad.NSeeds = 1;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_REG_BAD_NBITS);
  bad.NBits = 1;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_NULL_POINTER);
  bad.dBRng = fake_d;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_NULL_POINTER);
  bad.sBRng = fake_s;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_NULL_POINTER);
  bad.iBRng = fake_i;
  EXPECT_EQ(__qorRegisterBrng(&bad), ORVIK_QOR_NULL_POINTER);
  EXPECT_EQ(__qorGetNumRegBrngs(), 16);

  EXPECT_EQ(__qorRegisterBrng(&good), 0x1100000);
  EXPECT_EQ(__qorRegisterBrng(&good), 0x1200000);
  EXPECT_EQ(__qorGetNumRegBrngs(), 18);
  RegBrngRow row;
  ASSERT_EQ(__qorGetBrngProperties(0x1100000, &row), 0);
  EXPECT_TRUE(same_row(row, good));
  EXPECT_EQ(__qorGetBrngProperties(0x1100001, &row), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(__qorGetBrngProperties(0x1300000, &row), ORVIK_QOR_BAD_BRNG);

  // A state size of 0 is accepted; a stream of it has its header.
  RegBrngRow empty = good;
  empty.StreamStateSize = 0;
  ASSERT_EQ(__qorRegisterBrng(&empty), 0x1300000);
  OrvikStream s = nullptr, copy = nullptr;
  ASSERT_EQ(__qorNewStreamEx(&s, 0x1300000, 0, nullptr), 0);
  EXPECT_EQ(__qorGetStreamSize(s), 24);  // an image is never shorter than its header
  EXPECT_EQ(__qorCopyStream(&copy, s), 0);
  __qorDeleteStream(&copy);
  __qorDeleteStream(&s);

  // The table is finite: the row that it has no place for is refused.
  while (__qorGetNumRegBrngs() < 512) ASSERT_GT(__qorRegisterBrng(&good), 0);
  EXPECT_EQ(__qorRegisterBrng(&good), ORVIK_QOR_NO_MEMORY);
  EXPECT_EQ(__qorGetNumRegBrngs(), 512);
  EXPECT_EQ(__qorGetBrngProperties((511 << 20) + 0x100000, &row), 0);
}

}  // namespace

#include "serv/processor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orvik/version.h"
#include "serv/caches.h"

namespace {

using namespace orvik::serv;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Bit {
  const char* name;
  uint32_t ProcessorWords::*word;
  int bit;
};

// The manuals' places of what the library is compiled with, and of the two halves of the saved state.
const std::vector<Bit> kBits = {
    {"AVX", &ProcessorWords::leaf1_ecx, 28},        {"AVX2", &ProcessorWords::leaf7_ebx, 5},
    {"FMA", &ProcessorWords::leaf1_ecx, 12},        {"BMI1", &ProcessorWords::leaf7_ebx, 3},
    {"BMI2", &ProcessorWords::leaf7_ebx, 8},        {"LZCNT", &ProcessorWords::extended_leaf1_ecx, 5},
    {"POPCNT", &ProcessorWords::leaf1_ecx, 23},     {"operating system", &ProcessorWords::xcr0, 1},
    {"operating system", &ProcessorWords::xcr0, 2},
};

// Words with the bits of `set` (an index into kBits each), the others as in `rest`.
ProcessorWords words_with(uint32_t set, uint32_t rest) {
  ProcessorWords words = {rest, rest, rest, rest, rest, rest, rest, rest};
  for (size_t i = 0; i < kBits.size(); ++i) {
    words.*kBits[i].word &= ~(1u << kBits[i].bit);
    if ((set >> i & 1) != 0) words.*kBits[i].word |= 1u << kBits[i].bit;
  }
  return words;
}

std::string line_of(const ProcessorWords& words) {
  char line[kMissingLineSize];
  const int32_t length = describe_missing(missing_features(words), line);
  EXPECT_LT(length, kMissingLineSize);
  EXPECT_EQ(std::string(line).size(), static_cast<size_t>(length));
  return line;
}

// The names between "lacks " and ";".
std::vector<std::string> names_of(const std::string& line) {
  const size_t from = line.find("lacks ") + 6;
  std::string list = line.substr(from, line.find(';') - from);
  std::vector<std::string> names;
  for (size_t comma; (comma = list.find(", ")) != std::string::npos; list.erase(0, comma + 2)) {
    names.push_back(list.substr(0, comma));
  }
  names.push_back(list);
  return names;
}

TEST(Processor, EveryCombinationOfFeaturesIsJudgedAndNamed) {
  const uint32_t all = (1u << kBits.size()) - 1;
  for (const uint32_t rest : {0u, ~0u}) {
    for (uint32_t set = 0; set <= all; ++set) {
      const ProcessorWords words = words_with(set, rest);
      EXPECT_EQ(missing_features(words) == 0, set == all) << set;
      if (set == all) continue;
      std::vector<std::string> want;
      for (size_t i = 0; i < kBits.size(); ++i) {
        const bool saving = kBits[i].word == &ProcessorWords::xcr0;
        if ((set >> i & 1) == 0 && !saving) want.push_back(kBits[i].name);
      }
      const bool saved = (set >> 7 & 3) == 3, has_avx = (set & 1) != 0;
      if (has_avx && !saved) want.push_back("an operating system that saves the AVX state");
      // Without AVX there is no state to save: its absence alone is not told.
      EXPECT_EQ(names_of(line_of(words)), want) << set;
    }
  }
}

// AVX-512 F, DQ, BW, VL; masks, upper halves of the first sixteen registers, the second sixteen.
TEST(Processor, WideRegistersNeedTheirInstructionsAndAnOperatingSystemThatSavesThem) {
  const std::vector<Bit> bits = {{"F", &ProcessorWords::leaf7_ebx, 16},   {"DQ", &ProcessorWords::leaf7_ebx, 17},
                                 {"BW", &ProcessorWords::leaf7_ebx, 30},  {"VL", &ProcessorWords::leaf7_ebx, 31},
                                 {"masks", &ProcessorWords::xcr0, 5},     {"halves", &ProcessorWords::xcr0, 6},
                                 {"the others", &ProcessorWords::xcr0, 7}};
  const uint32_t all = (1u << bits.size()) - 1;
  for (const uint32_t rest : {0u, ~0u}) {
    for (uint32_t set = 0; set <= all; ++set) {
      ProcessorWords words = words_with((1u << kBits.size()) - 1, rest);
      for (size_t i = 0; i < bits.size(); ++i) {
        words.*bits[i].word &= ~(1u << bits[i].bit);
        if ((set >> i & 1) != 0) words.*bits[i].word |= 1u << bits[i].bit;
      }
      EXPECT_EQ(has_wide_registers(words), set == all) << set;
      words.leaf7_ecx = ~(1u << 9);
      EXPECT_FALSE(has_wide_aes(words)) << set;
      words.leaf7_ecx = 1u << 9;
      EXPECT_EQ(has_wide_aes(words), set == all) << set;
      words.leaf1_ecx &= ~(1u << 12);  // what the narrow ones need as well
      EXPECT_FALSE(has_wide_registers(words)) << set;
    }
  }
}

// The width of the units of arithmetic: bits 2 (256) and 3 (512) of a leaf that AMD's processors have.
TEST(Processor, WideRegistersGoInHalvesWhereTheUnitsAreOf256Bits) {
  ProcessorWords words = {};
  EXPECT_FALSE(halves_wide_registers(words)) << "no such leaf";
  words.extended_leaf1a_eax = 6;
  EXPECT_TRUE(halves_wide_registers(words));
  words.extended_leaf1a_eax = 6 | 8;
  EXPECT_FALSE(halves_wide_registers(words));
  words.extended_leaf1a_eax = 1;
  EXPECT_FALSE(halves_wide_registers(words));
  __builtin_cpu_init();
  EXPECT_FALSE(__builtin_cpu_is("intel") && halves_wide_registers(read_processor())) << "they have no such leaf";
}

TEST(Processor, AnOuterCacheNearTheCoresIsOfWaysPartitionsLinesAndSets) {
  ProcessorWords words = {};
  EXPECT_EQ(near_outer_cache(words), 0) << "no such leaf";
  words.extended_leaf1d_ebx = 15u << 22 | 63;
  words.extended_leaf1d_ecx = 32767;
  EXPECT_EQ(near_outer_cache(words), 32 << 20);
  words.extended_leaf1d_ebx |= 1u << 12;
  EXPECT_EQ(near_outer_cache(words), 64 << 20);
  words.extended_leaf1d_ecx = 0xFFFFFFFF;
  EXPECT_EQ(near_outer_cache(words), int64_t{16} * 2 * 64 << 32);
  __builtin_cpu_init();
  const ProcessorWords here = read_processor();
  EXPECT_FALSE(__builtin_cpu_is("intel") && near_outer_cache(here) != 0) << "they have no such leaf";
  EXPECT_EQ(kept_result_bytes, near_outer_cache(here) / 8 * 3);
}

TEST(Processor, TheLineIsOneLine) {
  const std::string line = line_of({});
  EXPECT_THAT(line, StartsWith("orvik_kernel: "));
  EXPECT_THAT(line, EndsWith("\n"));
  EXPECT_THAT(line.substr(0, line.size() - 1), Not(HasSubstr("\n")));
  EXPECT_THAT(line, HasSubstr("illegal instruction"));
}

TEST(Processor, TheProcessorOfThisTestServesOrIsToldAsTheCompilersLibrarySees) {
  __builtin_cpu_init();  // asks the operating system for the saved state too
  const bool serves = __builtin_cpu_supports("avx") && __builtin_cpu_supports("avx2") &&
                      __builtin_cpu_supports("fma") && __builtin_cpu_supports("bmi") &&
                      __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("popcnt");
  EXPECT_EQ(missing_features(read_processor()) == 0, serves);
  EXPECT_EQ(orvik_cpu_supported(), serves ? 1 : 0);
  const bool wide = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                    __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
  EXPECT_EQ(has_wide_registers(read_processor()), serves && wide);
  EXPECT_EQ(has_wide_aes(read_processor()), serves && wide && __builtin_cpu_supports("vaes"));
}

}  // namespace

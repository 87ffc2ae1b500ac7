// The mode word: default, environment override, merge.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "orvik/zym.h"
#include "support/thread.h"
#include "zym/frame/mode.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

using test::on_fresh_thread;

constexpr uint32_t kRefused = 0xFFFFFFFF;

// The mode that a thread starts with under this value of the variable; null: unset.
uint32_t initial_mode(const char* value) {
  if (value != nullptr) {
    setenv("ORVIK_ZYM_MODE", value, 1);
  } else {
    unsetenv("ORVIK_ZYM_MODE");
  }
  uint32_t mode = 0;
  on_fresh_thread([&] { mode = _zymGetMode(); });
  unsetenv("ORVIK_ZYM_MODE");
  return mode;
}

TEST(ModeEnvironment, UnsetGivesDefault) { EXPECT_EQ(initial_mode(nullptr), 0x1A02u); }
TEST(ModeEnvironment, EmptyGivesDefault) { EXPECT_EQ(initial_mode(""), 0x1A02u); }
TEST(ModeEnvironment, LeadingBlankIsRefused) { EXPECT_EQ(initial_mode(" ZYM_EP"), 0x1A02u); }
TEST(ModeEnvironment, TrailingCommaIsRefused) { EXPECT_EQ(initial_mode("ZYM_HA,"), 0x1A02u); }
TEST(ModeEnvironment, DoubleConsistentWithFinalTIsRefused) { EXPECT_EQ(initial_mode("ZYM_DOUBLE_CONSISTENT"), 0x1A02u); }
TEST(ModeEnvironment, DoubleConsistenIsAccepted) { EXPECT_EQ(initial_mode("ZYM_DOUBLE_CONSISTEN"), 0x1A22u); }
TEST(ModeEnvironment, LevelAndErrorFieldAreTaken) { EXPECT_EQ(initial_mode("ZYM_EP,ZYM_ERRMODE_STDERR"), 0x403u); }
TEST(ModeEnvironment, DefaultPrecisionAloneGivesDefault) { EXPECT_EQ(initial_mode("ZYM_DEFAULT_PRECISION"), 0x1A02u); }
TEST(ModeEnvironment, NoerrAloneKeepsHighAccuracy) { EXPECT_EQ(initial_mode("ZYM_ERRMODE_NOERR"), 0x2002u); }
TEST(ModeEnvironment, ValuesOfOneFieldAreOred) { EXPECT_EQ(initial_mode("ZYM_LA,ZYM_HA"), 0x1A03u); }
TEST(ModeEnvironment, OneBadTokenDiscardsAll) { EXPECT_EQ(initial_mode("ZYM_EP,ZYM_BOGUS"), 0x1A02u); }
TEST(ModeEnvironment, MissingPrefixIsRefused) { EXPECT_EQ(initial_mode("EP"), 0x1A02u); }
TEST(ModeEnvironment, BlankBehindCommaIsRefused) { EXPECT_EQ(initial_mode("ZYM_EP, ZYM_ERRMODE_STDERR"), 0x1A02u); }
TEST(ModeEnvironment, TrapsAreTaken) {
  EXPECT_EQ(initial_mode("ZYM_TRAP_INVALID,ZYM_TRAP_UNDERFLOW"), 0x9001A02u);
}

TEST(ModeEnvironment, MoreThan255CharactersAreCutAndRefused) {
  std::string value;
  while (value.size() < 300) value += "ZYM_EP,";
  value += "ZYM_EP";
  EXPECT_EQ(initial_mode(value.c_str()), 0x1A02u);
}

TEST(ModeEnvironment, ValueOf255CharactersIsAccepted) {
  std::string value;
  for (int i = 0; i < 30; ++i) value += "ZYM_EP,";
  value += "ZYM_RESTORE,ZYM_RESTORE,ZYM_DEFAULT_PRECISION";
  ASSERT_EQ(value.size(), 255u);
  EXPECT_EQ(initial_mode(value.c_str()), 0x1A33u);
}

TEST(ModeEnvironment, AThreadSeesTheEnvironmentOfItsStart) {
  setenv("ORVIK_ZYM_MODE", "ZYM_LA", 1);
  uint32_t first = 0;
  uint32_t second = 0;
  on_fresh_thread([&] {
    first = _zymGetMode();
    setenv("ORVIK_ZYM_MODE", "ZYM_EP", 1);
    EXPECT_EQ(_zymGetMode(), first);
    on_fresh_thread([&] { second = _zymGetMode(); });
  });
  unsetenv("ORVIK_ZYM_MODE");
  EXPECT_EQ(first, 0x1A01u);
  EXPECT_EQ(second, 0x1A03u);
}

struct Keyword {
  const char* name;
  uint32_t value;
};

TEST(ModeKeywords, EachHasItsValue) {
  const Keyword keywords[] = {{"LA", 0x1}, {"HA", 0x2}, {"EP", 0x3}, {"DEFAULT_PRECISION", 0},
                              {"FLOAT_CONSISTENT", 0x10}, {"DOUBLE_CONSISTEN", 0x20}, {"RESTORE", 0x30},
                              {"ERRMODE_IGNORE", 0x100}, {"ERRMODE_ERRNO", 0x200}, {"ERRMODE_STDERR", 0x400},
                              {"ERRMODE_EXCEPT", 0x800}, {"ERRMODE_CALLBACK", 0x1000}, {"ERRMODE_NOERR", 0x2000},
                              {"ERRMODE_DEFAULT", 0x1A00}, {"TRAP_INVALID", 0x1000000},
                              {"TRAP_DIVBYZERO", 0x2000000}, {"TRAP_OVERFLOW", 0x4000000},
                              {"TRAP_UNDERFLOW", 0x8000000}};
  for (const Keyword& k : keywords) {
    EXPECT_EQ(parse_mode((std::string("ZYM_") + k.name).c_str()), k.value) << k.name;
    EXPECT_EQ(parse_mode((std::string("ZYM_") + k.name + "X").c_str()), kRefused) << k.name;
  }
}

TEST(ModeMerge, ZeroReturnsTheModeAndChangesNothing) {
  on_fresh_thread([] {
    EXPECT_EQ(_zymSetMode(0), 0x1A02u);
    EXPECT_EQ(_zymGetMode(), 0x1A02u);
  });
}

TEST(ModeMerge, FieldsAreReplacedOneByOne) {
  on_fresh_thread([] {
    EXPECT_EQ(orvik_zym_kernel_SetMode(ZYM_EP), 0x1A02u);
    EXPECT_EQ(_zymGetMode(), 0x1A03u);
    EXPECT_EQ(_zymSetMode(0x400), 0x1A03u);  // the error field is replaced as a whole
    EXPECT_EQ(_zymGetMode(), 0x403u);
    _zymSetMode(0x280000);
    EXPECT_EQ(_zymGetMode(), 0x280403u);
    _zymSetMode(0x30000);
    EXPECT_EQ(_zymGetMode(), 0x2B0403u);
    _zymSetMode(0xA000000);
    EXPECT_EQ(orvik_zym_kernel_GetMode(), 0xA2B0403u);
  });
}

TEST(ModeMerge, ConsistencyAndTopBitsAreIgnored) {
  on_fresh_thread([] {
    _zymSetMode(0xF00000F0);
    EXPECT_EQ(_zymGetMode(), 0x1A02u);
  });
}

TEST(ModeMerge, RestoreCannotBringBackAZeroField) {
  on_fresh_thread([] {
    const uint32_t old = _zymSetMode(0x140000);
    EXPECT_EQ(old, 0x1A02u);
    _zymSetMode(old);
    EXPECT_EQ(_zymGetMode(), 0x141A02u);
  });
}

TEST(ModeTableIndex, IsTheLevelLessOne) {
  on_fresh_thread([] {
    EXPECT_EQ(orvik_zym_kernel_GetTTableIndex(), 1);
    _zymSetMode(ZYM_LA);
    EXPECT_EQ(orvik_zym_kernel_GetTTableIndex(), 0);
    EXPECT_EQ(orvik_zym_kernel_GetTTableIndexM(123, 0x1A03), 2);
    EXPECT_EQ(orvik_zym_kernel_GetTTableIndexM(0, 0x1A00), -1);
  });
}

TEST(ModeThreads, ManyThreadsInitialiseAtOnce) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back([] { EXPECT_EQ(_zymGetMode(), 0x1A02u); });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace orvik::zym

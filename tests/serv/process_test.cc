#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "orvik/serv.h"

namespace {

constexpr char kName[] = "ORVIK_TEST_VARIABLE";

class Getenv : public testing::Test {
 protected:
  void TearDown() override { unsetenv(kName); }
};

TEST_F(Getenv, CopiesTheValueAndReturnsItsLength) {
  setenv(kName, "ZYM_LA", 1);
  char buffer[16];
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, sizeof buffer), 6);
  EXPECT_STREQ(buffer, "ZYM_LA");
}

TEST_F(Getenv, AnUnsetOrEmptyVariableGivesZeroAndAnEmptyText) {
  char buffer[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, sizeof buffer), 0);
  EXPECT_STREQ(buffer, "");
  setenv(kName, "", 1);
  buffer[0] = 'x';
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, sizeof buffer), 0);
  EXPECT_STREQ(buffer, "");
}

TEST_F(Getenv, CutsToTheBufferAndStillEndsWithNul) {
  setenv(kName, std::string(300, 'a').c_str(), 1);
  char buffer[257];
  buffer[256] = '#';
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, 256), 300);
  EXPECT_EQ(std::string(buffer), std::string(255, 'a'));
  EXPECT_EQ(buffer[256], '#');
}

TEST_F(Getenv, AValueThatJustFitsIsWhole) {
  setenv(kName, "abc", 1);
  char buffer[4];
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, 4), 3);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(orvik_serv_getenv(kName, buffer, 3), 3);
  EXPECT_STREQ(buffer, "ab");
  char one = '#';
  EXPECT_EQ(orvik_serv_getenv(kName, &one, 1), 3);
  EXPECT_EQ(one, '\0');
}

TEST(Exit, EndsTheProcessWithTheStatus) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(orvik_serv_exit(3), testing::ExitedWithCode(3), "");
  EXPECT_EXIT(orvik_serv_exit(0), testing::ExitedWithCode(0), "");
}

TEST(Cpu, VectorAesAgreesWithTheKernelsListOfFlags) {
  std::ifstream file("/proc/cpuinfo");
  std::string line;
  while (std::getline(file, line) && line.rfind("flags", 0) != 0) {
  }
  if (line.empty()) GTEST_SKIP() << "no flags in /proc/cpuinfo";
  std::istringstream words(line);
  int32_t listed = 0;
  for (std::string word; words >> word;) listed |= word == "vaes";
  EXPECT_EQ(orvik_serv_cpuisicx(), listed);
  EXPECT_EQ(orvik_serv_cpuisicx(), listed);
}

}  // namespace
